#include "app/TXGreekLetterPanel.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "app/greekLetters.h"
#include "ui/document/MyDocument.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/TXWindow.h"
#include "ui/document/contrast.h"
#include "ui/document/windowPlace.h"
#include "ui_TXGreekLetterPanel.h"

namespace {

constexpr int columnCount = 12;
constexpr int smallestButton = 34;
constexpr int buttonPadding = 12;
constexpr int roomForEntry = 90;  // At the lower end of a window.
constexpr double smallestLetter = 14.0;
constexpr double letterFactor = 1.4;  // Of the desktop's font.

/// A flat button that shows where the pointer and the focus are, which the styles do not show on flat ones.
class LetterButton : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor wash = palette().color(QPalette::Highlight);
        wash.setAlphaF(washOpacity);
        painter.setBrush(underMouse() ? QBrush(wash) : QBrush(Qt::NoBrush));
        painter.setPen(hasFocus() ? QPen(focusMarkColor(palette()), ringWidth) : QPen(Qt::NoPen));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
        painter.end();
        QPushButton::paintEvent(event);
    }

private:
    static constexpr float washOpacity = 0.2F;
    static constexpr qreal ringWidth = 2.0;
    static constexpr qreal cornerRadius = 4.0;
};

/// Where a panel of this size does not hide the window of its document: right of it, left, below at either edge, or
/// else in its upper part, which leaves the entry line free.
QPoint placeBeside(const QRect& window, const QSize& panel, const QRect& screen) {
    const QPoint places[] = {window.topRight() + QPoint(1, 0), window.topLeft() - QPoint(panel.width(), 0),
                             window.bottomLeft() + QPoint(0, 1), window.bottomRight() + QPoint(1 - panel.width(), 1)};
    for (const QPoint& place : places) {
        if (screen.contains(QRect(place, panel))) return place;
    }
    const int free = std::max(0, window.height() - panel.height() - roomForEntry);
    const QPoint inside(window.right() - panel.width() - smallestButton,
                        window.top() + std::min(2 * smallestButton, free));
    return movedOntoScreen(QRect(inside, panel), 0).topLeft();
}

}  // namespace

TXGreekLetterPanel::TXGreekLetterPanel(MyDocument& document)
    : QWidget(document.documentWindow(), Qt::Tool | Qt::WindowDoesNotAcceptFocus),
      document_(document),
      ui_(std::make_unique<Ui::TXGreekLetterPanel>()) {
    ui_->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setLayoutDirection(Qt::LeftToRight);  // The alphabet is, and the arrow keys with it.
    for (const NamedCharacter& letter : greekLetters()) addLetter(letter.character, tr(letter.name));
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    connect(&document, &MyDocument::miniModeChanged, this, &TXGreekLetterPanel::stayAboveWindowInUse);
}

TXGreekLetterPanel::~TXGreekLetterPanel() = default;

void TXGreekLetterPanel::addLetter(char16_t letter, const QString& name) {
    auto* button = new LetterButton(QString(letter), this);
    QFont font = button->font();
    font.setPointSizeF(std::max(smallestLetter, letterFactor * QFontInfo(font).pointSizeF()));
    button->setFont(font);
    const int buttonSize = std::max(smallestButton, QFontMetrics(font).height() + buttonPadding);
    button->setFlat(true);
    button->setAttribute(Qt::WA_Hover);
    button->setFixedSize(buttonSize, buttonSize);
    button->setFocusPolicy(Qt::TabFocus);  // not with a click
    button->setAccessibleName(name);
    button->installEventFilter(this);
    connect(button, &QPushButton::clicked, this, [this, button] { type(button->text()); });
    const int index = static_cast<int>(buttons_.size());
    ui_->letterGrid->addWidget(button, index / columnCount, index % columnCount);
    buttons_.push_back(button);
}

void TXGreekLetterPanel::showWindow() {
    const QWidget* const window = document_.activeWindow();
    adjustSize();
    // Its own frame is not known before it is shown, so it is taken to be as wide as that of the other window.
    const QSize framed = size() + window->frameGeometry().size() - window->size();
    move(placeBeside(window->frameGeometry(), framed, window->screen()->availableGeometry()));
    stayAboveWindowInUse();
    show();
}

// Window managers put a tool window above the one that it belongs to, and that may be hidden in mini mode.
void TXGreekLetterPanel::stayAboveWindowInUse() {
    winId();
    windowHandle()->setTransientParent(document_.activeWindow()->windowHandle());
}

void TXGreekLetterPanel::takeFocus() {
    setAcceptsFocus(true);
    activateWindow();
    QWidget* const last = focusWidget();
    (last != nullptr ? last : buttons_.front())->setFocus(Qt::ShortcutFocusReason);
}

void TXGreekLetterPanel::giveFocusBack() { document_.showWindow(); }

void TXGreekLetterPanel::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // Not isActiveWindow(), which a tool window may share with its parent.
    const bool isActive = QApplication::activeWindow() == this;
    if (event->type() == QEvent::ActivationChange && !isActive) setAcceptsFocus(false);
}

// On the window itself, since a widget would be hidden when its flags change.
void TXGreekLetterPanel::setAcceptsFocus(bool accepts) {
    if (QWindow* window = windowHandle()) window->setFlag(Qt::WindowDoesNotAcceptFocus, !accepts);
}

// The line takes it from where input methods deliver, which is typing for it.
void TXGreekLetterPanel::type(const QString& letter) {
    QInputMethodEvent typing;
    typing.setCommitString(letter);
    QCoreApplication::sendEvent(document_.activeFormulaTextView(), &typing);
}

bool TXGreekLetterPanel::eventFilter(QObject* watched, QEvent* event) {
    auto* const button = qobject_cast<QPushButton*>(watched);
    switch (event->type()) {
        case QEvent::Enter: showName(button); break;
        case QEvent::Leave:
        case QEvent::FocusIn:
        case QEvent::FocusOut: showName(qobject_cast<QPushButton*>(QApplication::focusWidget())); break;
        case QEvent::KeyPress: return pressKey(static_cast<QKeyEvent*>(event)->key(), button);
        default: break;
    }
    return QWidget::eventFilter(watched, event);
}

bool TXGreekLetterPanel::pressKey(int key, QPushButton* button) {
    switch (key) {
        case Qt::Key_Left: moveFocus(button, -1, 0); return true;
        case Qt::Key_Right: moveFocus(button, 1, 0); return true;
        case Qt::Key_Up: moveFocus(button, 0, -1); return true;
        case Qt::Key_Down: moveFocus(button, 0, 1); return true;
        case Qt::Key_Return:
        case Qt::Key_Enter: button->click(); return true;
        case Qt::Key_Escape: giveFocusBack(); return true;
        default: return false;
    }
}

// The last row has one button, which is below all of those above.
void TXGreekLetterPanel::moveFocus(const QPushButton* from, int columns, int rows) {
    const int last = static_cast<int>(buttons_.size()) - 1;
    const int index = static_cast<int>(std::find(buttons_.begin(), buttons_.end(), from) - buttons_.begin());
    const int column = index % columnCount + columns;
    const int row = index / columnCount + rows;
    if (column < 0 || column >= columnCount || row < 0 || row > last / columnCount) return;
    const int target = std::min(row * columnCount + column, last);
    buttons_[static_cast<std::size_t>(target)]->setFocus(Qt::TabFocusReason);
}

void TXGreekLetterPanel::showName(const QWidget* button) {
    const bool isOurs = button != nullptr && button->window() == this;
    ui_->nameLine->setText(isOurs ? button->accessibleName() : QString());
}
