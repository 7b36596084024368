#include "ui/document/NameSuggestions.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QStyledItemDelegate>
#include <algorithm>

#include "ui/document/EntryColors.h"
#include "ui/document/MyDocument.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/contrast.h"
#include "ui/document/equationMarks.h"

namespace {

constexpr int listWidth = 260;
constexpr int rowPadding = 6;
constexpr int sideMargin = 6;
constexpr int columnDistance = 12;
constexpr int distanceFromLine = 2;
constexpr int outlineShare = 90;  // 255ths of the text's colour
constexpr int meaningRole = Qt::UserRole;
constexpr int isFunctionRole = Qt::UserRole + 1;

/// The name at the left, and at the right in grey what it means, which gives way.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const bool isChosen = option.state.testFlag(QStyle::State_Selected);
        const QPalette& palette = option.palette;
        if (isChosen) painter->fillRect(option.rect, palette.brush(QPalette::Highlight));
        const QRect row = option.rect.adjusted(sideMargin, 0, -sideMargin, 0);
        const QColor front = palette.color(isChosen ? QPalette::HighlightedText : QPalette::Text);
        const QColor quiet = EntryColors::on(palette.color(QPalette::Base)).quiet;
        const int rest = drawn(painter, row, Qt::AlignLeft, index.data().toString(), front);
        const QRect right = row.adjusted(rest + columnDistance, 0, 0, 0);
        drawn(painter, right, Qt::AlignRight, index.data(meaningRole).toString(), isChosen ? front : quiet);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const override {
        return {0, option.fontMetrics.height() + rowPadding};
    }

private:
    /// The width of what was drawn.
    static int drawn(QPainter* painter, const QRect& place, Qt::Alignment alignment, const QString& text,
                     const QColor& color) {
        const QFontMetrics metrics = painter->fontMetrics();
        const QString shown = metrics.elidedText(text, Qt::ElideRight, std::max(0, place.width()));
        painter->setPen(color);
        painter->drawText(place, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine, shown);
        return metrics.horizontalAdvance(shown);
    }
};

}  // namespace

NameSuggestions::NameSuggestions(TXFormulaEnteringTextView& entry) : QListWidget(&entry), entry_(entry) {
    setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setLayoutDirection(Qt::LeftToRight);
    setAccessibleName(tr("Suggestions"));
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setItemDelegate(new RowDelegate(this));
    entry.installEventFilter(this);
}

void NameSuggestions::offer() {
    MyDocument* const document = entry_.parentDocument();
    const bool isWanted = document != nullptr && document->entryOptions().suggestsNames;
    const QTextCursor cursor = entry_.textCursor();
    const QString line = entry_.text();
    const qsizetype caret = cursor.position();
    const qsizetype start = startOfNameBefore(line, caret);
    QList<NameSuggestion> suggestions;
    if (isWanted && entry_.hasFocus() && !cursor.hasSelection() && caret - start >= fewestLetters) {
        suggestions = document->suggestionsFor(QStringView(line).sliced(start, caret - start), mostRows);
    }
    if (suggestions.isEmpty()) {
        hide();
        return;
    }
    fill(suggestions);
    takeColors();
    place(start);
    show();
}

void NameSuggestions::fill(const QList<NameSuggestion>& suggestions) {
    clear();
    for (const NameSuggestion& suggestion : suggestions) {
        auto* item = new QListWidgetItem(suggestion.name, this);
        item->setData(meaningRole, suggestion.meaning);
        item->setData(Qt::AccessibleDescriptionRole, suggestion.meaning);
        item->setData(isFunctionRole, suggestion.isFunction);
    }
}

// A list in a window of its own has the colours of the desktop, of which the outline is a mixture.
void NameSuggestions::takeColors() {
    QPalette colors = QGuiApplication::palette();
    colors.setColor(QPalette::WindowText,
                    mixed(colors.color(QPalette::Text), colors.color(QPalette::Base), outlineShare));
    setPalette(colors);
}

// Above the word. Where the screen ends there, below the window: the line and its answer always stay in sight.
void NameSuggestions::place(qsizetype startOfWord) {
    const QWidget* const window = entry_.window();
    const int height = count() * sizeHintForRow(0) + 2 * frameWidth();
    const QPoint word = entry_.viewport()->mapToGlobal(QPoint(entry_.leftOf(startOfWord), 0));
    const QRect screen = entry_.screen()->availableGeometry();
    int top = entry_.mapToGlobal(QPoint(0, 0)).y() - distanceFromLine - height;
    if (top < screen.top()) top = window->mapToGlobal(QPoint(0, window->height())).y() + distanceFromLine;
    const int left = word.x() - sideMargin - frameWidth();
    const int rightmost = screen.right() + 1 - listWidth;
    setGeometry(std::max(screen.left(), std::min(left, rightmost)), top, listWidth, height);
    if (watchedWindow_ == window) return;
    watchedWindow_ = window;
    entry_.window()->installEventFilter(this);
}

bool NameSuggestions::takeKey(const QKeyEvent& event) {
    if (!isVisible() || (event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) != Qt::NoModifier)
        return false;
    switch (event.key()) {
        case Qt::Key_Up: choose(-1); return true;
        case Qt::Key_Down: choose(1); return true;
        case Qt::Key_Escape: hide(); return true;
        default: return false;
    }
}

QListWidgetItem* NameSuggestions::chosen() const {
    const QList<QListWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? nullptr : selected.front();
}

// Round at both ends.
void NameSuggestions::choose(int step) {
    const QListWidgetItem* const before = chosen();
    const int from = before != nullptr ? row(before) : (step > 0 ? -1 : count());
    setCurrentRow((from + step + count()) % count(), QItemSelectionModel::ClearAndSelect);
}

bool NameSuggestions::accept() {
    if (!isVisible()) return false;
    const QListWidgetItem* const taken = chosen() != nullptr ? chosen() : item(0);
    QString text = taken->text();
    const bool isFunction = taken->data(isFunctionRole).toBool();
    hide();
    const QString line = entry_.text();
    const qsizetype caret = entry_.textCursor().position();
    if (isFunction && !QStringView(line).sliced(caret).startsWith(u'(')) text += u'(';
    entry_.replaceAsTyped(startOfNameBefore(line, caret), caret, text);
    return true;
}

void NameSuggestions::mouseReleaseEvent(QMouseEvent* event) {
    QListWidgetItem* const clicked = itemAt(event->position().toPoint());
    if (clicked == nullptr) return;
    setCurrentItem(clicked, QItemSelectionModel::ClearAndSelect);
    accept();
}

void NameSuggestions::changeEvent(QEvent* event) {
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) hide();
}

bool NameSuggestions::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusOut:
        case QEvent::Hide:
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::WindowDeactivate: hide(); break;
        default: break;
    }
    return QListWidget::eventFilter(watched, event);
}
