// From the full window to the mini window and back, and what the mini window has beside its entry line.

#include "ui/document/MyDocument.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QScreen>
#include <QStyle>
#include <QWindow>

#include "ui/UserDefaults.h"
#include "ui/document/MiniModeAnswerField.h"
#include "ui/document/PullDownButton.h"
#include "ui/document/TXFormulaEnteringMiniModeTextField.h"
#include "ui/document/TXWindow.h"
#include "ui/document/windowPlace.h"
#include "ui_MiniWindow.h"
#include "ui_MyDocument.h"

namespace {

constexpr auto placeKey = "miniWindowPlace";
constexpr auto keepOnTopKey = "keepMiniWindowOnTop";

constexpr double entryPointSize = 13.0;
constexpr double labelPointSize = 11.0;
constexpr double sizeOfLiveAnswer = 1.0;  // of the entry's points
constexpr QColor background(0x2A, 0x2B, 0x2F);
constexpr QColor labelColor(255, 255, 255, 178);
constexpr float shadowOpacity = 0.6F;

QFont sized(QFont font, double points) {
    font.setPointSizeF(points);
    return font;
}

/// A plain widget is no window for assistive technology, wherever it is.
QAccessibleInterface* makeWindow(const QString& /*className*/, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    const bool isMiniWindow = widget != nullptr && widget->objectName() == QLatin1String("miniWindow");
    return isMiniWindow ? new QAccessibleWidget(widget, QAccessible::Window) : nullptr;
}

}  // namespace

void MyDocument::prepareMiniMode() {
    QAccessible::installFactory(makeWindow);  // Once: it is known by its address.
    ui_->miniModeButton->setToolTip(
        tr("Mini mode (%1)").arg(QKeySequence(QStringLiteral("Ctrl+Shift+M")).toString(QKeySequence::NativeText)));
    // Not while the window manager's wish is still being carried out.
    connect(this, &MyDocument::zoomRequested, this, &MyDocument::leaveZoom, Qt::QueuedConnection);
    connect(ui_->miniModeButton, &QPushButton::clicked, this, &MyDocument::windowShouldZoom);
    setKeepsMiniWindowOnTop(UserDefaults().interfaceBoolForKey(keepOnTopKey, false));
}

QWidget* MyDocument::miniWindow() const {
    needMiniWindow_();
    return miniWindow_.get();
}

TXFormulaEnteringMiniModeTextField* MyDocument::miniModeformulaTextView() const {
    needMiniWindow_();
    return miniUi_->miniModeformulaTextView;
}

MiniModeAnswerField* MyDocument::miniModeAnswerField() const {
    needMiniWindow_();
    return miniUi_->miniModeAnswerField;
}

QList<QWidget*> MyDocument::windows() const {
    QList<QWidget*> windows{documentWindow_.get()};
    if (miniWindow_ != nullptr) windows.append(miniWindow_.get());
    return windows;
}

// When somebody asks for it. Most documents never need it, and the first one would be shown later for it.
void MyDocument::loadMiniWindow() {
    if (miniWindow_ != nullptr) return;
    miniWindow_ = std::make_unique<QWidget>();
    miniUi_->setupUi(miniWindow_.get());
    miniWindow_->setWindowTitle(documentWindow_->windowTitle());
    miniWindow_->installEventFilter(this);
    miniWindow_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(miniWindow_.get(), &QWidget::customContextMenuRequested, this, &MyDocument::showMiniModeMenu);
    prepareMiniWindow();
    prepareEntry(miniUi_->miniModeformulaTextView, sizeOfLiveAnswer);
    // With the fonts known: only the width is the user's to change.
    miniWindow_->setFixedHeight(std::max(miniWindow_->height(), miniUi_->miniLayout->minimumSize().height()));
    refreshMiniModeFormatLabel();
    putMiniWindowOnTop();
    emit miniWindowLoaded(miniWindow_.get());
}

// It is dark on every desktop, and its equations are not mirrored on a mirrored one.
void MyDocument::prepareMiniWindow() {
    QPalette colors = miniWindow_->palette();
    colors.setColor(QPalette::Window, background);
    colors.setColor(QPalette::Base, background);
    colors.setColor(QPalette::WindowText, Qt::white);
    miniWindow_->setPalette(colors);
    TXFormulaEnteringMiniModeTextField* const entry = miniUi_->miniModeformulaTextView;
    entry->setFont(sized(documentFont_, entryPointSize));
    entry->setTypedTextShadow({QColor::fromRgbF(0.0F, 0.0F, 0.0F, shadowOpacity), {0.0, 1.0}});
    entry->setTextColor(Qt::white);
    entry->setLayoutDirection(Qt::LeftToRight);
    miniUi_->miniModeAnswerField->setFrameShadow(QFrame::Sunken);
    miniUi_->miniModeAnswerField->setLayoutDirection(Qt::LeftToRight);
    QPalette labelColors = colors;
    labelColors.setColor(QPalette::WindowText, labelColor);
    miniUi_->miniModeFormatLabel->setPalette(labelColors);
    miniUi_->miniModeFormatLabel->setFont(sized(documentFont_, labelPointSize));
}

bool MyDocument::windowShouldZoom() {
    const TXFormulaEnteringTextView* const from = activeFormulaTextView();
    QWidget* const shown = activeWindow();
    // A window that is shown again would be placed anew; this makes its place one that was asked for.
    if (QWindow* window = shown->windowHandle()) window->setFramePosition(window->framePosition());
    isSmallWindowShown_ = !isSmallWindowShown_;
    if (isSmallWindowShown_) {
        miniWindow()->setWindowTitle(documentWindow()->windowTitle());
        showLastAnswerInMiniWindow();
        placeMiniWindow();
    } else {
        rememberMiniWindow(miniWindow()->geometry());
    }
    activeFormulaTextView()->takeOver(*from);
    activeFormulaTextView()->setAccessibleDescription(from->accessibleDescription());
    showWindow();
    shown->hide();
    emit miniModeChanged(isSmallWindowShown_);
    return false;
}

// Also when it had a place before: a window manager may have moved it since it was hidden, answering what was asked
// when it was still there.
void MyDocument::placeMiniWindow() {
    const bool isNew = miniWindowPlace_.isEmpty();
    if (isNew) miniWindowPlace_ = UserDefaults().interfaceValueForKey(placeKey).toRect();
    if (isNew || QGuiApplication::screenAt(miniWindowPlace_.center()) == nullptr) {
        const int titleBarHeight = miniWindow()->style()->pixelMetric(QStyle::PM_TitleBarHeight);
        miniWindowPlace_ = movedOntoScreen(miniWindowPlace_, titleBarHeight);
    }
    if (miniWindowPlace_.isEmpty()) {
        const QRect screen = documentWindow()->screen()->availableGeometry();
        miniWindow()->move(screen.right() + 1 - miniWindow()->width(), screen.top());
    } else {
        miniWindow()->setGeometry(
            QRect(miniWindowPlace_.topLeft(), QSize(miniWindowPlace_.width(), miniWindow()->height())));
    }
}

void MyDocument::rememberMiniWindow(const QRect& place) {
    UserDefaults defaults;
    const QRect stored = defaults.interfaceValueForKey(placeKey).toRect();
    miniWindowPlace_ = placeToStore(place, stored, QGuiApplication::platformName());
    defaults.setInterfaceValue(miniWindowPlace_, placeKey);
}

bool MyDocument::isZoomRequest(const QObject* window, const QEvent& event) const {
    if (event.type() != QEvent::WindowStateChange || window != activeWindow()) return false;
#ifndef Q_OS_MACOS
    if (!isSmallWindowShown_) return false;
#endif
    return activeWindow()->isMaximized();
}

// The window stays as large as it was, and the other one takes its place.
void MyDocument::leaveZoom() {
    QWidget* const maximized = activeWindow();
    if (!maximized->isMaximized()) return;
    const QRect before = maximized->normalGeometry();
    maximized->setWindowState(maximized->windowState() & ~Qt::WindowMaximized);
    windowShouldZoom();
    maximized->setGeometry(before);  // The window manager would still be at it.
    if (maximized == miniWindow()) rememberMiniWindow(before);
}

void MyDocument::setKeepsMiniWindowOnTop(bool isOnTop) {
    if (isOnTop == keepsMiniWindowOnTop_) return;
    keepsMiniWindowOnTop_ = isOnTop;
    UserDefaults().setInterfaceValue(isOnTop, keepOnTopKey);
    putMiniWindowOnTop();
    emit keepsMiniWindowOnTopChanged(isOnTop);
}

// Or lets go of it.
void MyDocument::putMiniWindowOnTop() {
    if (miniWindow_ == nullptr) return;
    const Qt::WindowFlags flags = miniWindow_->windowFlags().setFlag(Qt::WindowStaysOnTopHint, keepsMiniWindowOnTop_);
    // On the window itself too, since a widget would be hidden when its flags change.
    miniWindow_->overrideWindowFlags(flags);
    if (QWindow* window = miniWindow_->windowHandle()) window->setFlags(flags);
}

bool MyDocument::canKeepMiniWindowOnTop(const QString& platform) { return canPlaceWindows(platform); }

void MyDocument::refreshMiniModeFormatLabel() {
    if (miniWindow_ == nullptr) return;
    QString text = documentEquationController_.useRadians() ? tr("rad") : tr("deg");
    if (documentNumberFormatterSettings_.formattingType() != TXFormattingType::decimal) {
        text += u' ' + formattingTypeButton()->title();
    }
    miniUi_->miniModeFormatLabel->setText(text);
    miniUi_->miniModeFormatLabel->setAccessibleDescription(text);
}

void MyDocument::addMiniModeCommands(QMenu* menu) {
    QAction* copyAnswer = menu->addAction(tr("Copy &Last Answer"), this, &MyDocument::copyLastAnswer);
    copyAnswer->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+C")));
    copyAnswer->setEnabled(hasLastAnswer());
    menu->addSeparator();
    menu->addActions(angleUnitActions_);
    menu->addSeparator();
    QAction* keepOnTop = menu->addAction(tr("&Keep on Top"), this, &MyDocument::setKeepsMiniWindowOnTop);
    keepOnTop->setCheckable(true);
    keepOnTop->setChecked(keepsMiniWindowOnTop());
    keepOnTop->setEnabled(canKeepMiniWindowOnTop(QGuiApplication::platformName()));
    QAction* fullWindow = menu->addAction(tr("&Full Window"), this, &MyDocument::windowShouldZoom);
    fullWindow->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+M")));
}

void MyDocument::showMiniModeMenu(const QPoint& position) {
    auto* menu = new QMenu(miniWindow());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addMiniModeCommands(menu);
    menu->popup(miniWindow()->mapToGlobal(position));
}
