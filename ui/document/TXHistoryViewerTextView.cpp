#include "ui/document/TXHistoryViewerTextView.h"

#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextDocumentFragment>
#include <QTextFrame>
#include <algorithm>
#include <memory>

#include "ui/document/MyDocument.h"
#include "ui/document/contrast.h"
#include "ui_HistoryMenu.h"

namespace {

constexpr int pageMargin = 12;
constexpr int horizontalInset = 0;
constexpr int verticalInset = 2;
constexpr int tabStop = 24;
constexpr qsizetype longestWord = 10'000;

QTextBlockFormat blockFormat(TXHistoryViewerTextView::LineKind kind) {
    QTextBlockFormat format;
    format.setProperty(TXHistoryViewerTextView::lineKindProperty, static_cast<int>(kind));
    if (kind != TXHistoryViewerTextView::LineKind::equation) {
        // A wrapped answer goes on below its first word, which stands behind the line's tab.
        format.setLeftMargin(tabStop);
        format.setTextIndent(-tabStop);
    }
    return format;
}

bool hasWordLongerThan(qsizetype length, QStringView text) {
    qsizetype wordLength = 0;
    for (const QChar character : text) {
        wordLength = character.isSpace() ? 0 : wordLength + 1;
        if (wordLength > length) return true;
    }
    return false;
}

}  // namespace

TXHistoryViewerTextView::TXHistoryViewerTextView(QWidget* parent)
    : QTextEdit(parent), menuUi_(std::make_unique<Ui::HistoryMenu>()) {
    setUndoRedoEnabled(false);  // Nobody undoes the history, and remembering would cost with every line.
    setTabStopDistance(tabStop);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditable(false);
    followPalette();

    // Equations run from left to right on every desktop.
    QTextOption option = document()->defaultTextOption();
    option.setTextDirection(Qt::LeftToRight);
    document()->setDefaultTextOption(option);
}

TXHistoryViewerTextView::~TXHistoryViewerTextView() = default;

void TXHistoryViewerTextView::awakeFromNib() {
    makeMenu();
    QTextFrame* page = document()->rootFrame();
    QTextFrameFormat format = page->frameFormat();
    format.setLeftMargin(pageMargin + horizontalInset);
    format.setRightMargin(pageMargin + horizontalInset);
    format.setTopMargin(pageMargin + verticalInset);
    format.setBottomMargin(pageMargin + verticalInset);
    page->setFrameFormat(format);
}

void TXHistoryViewerTextView::setEditable(bool isEditable) {
    setReadOnly(!isEditable);
    // Read only, it still has a caret, for those who select with the keyboard.
    if (!isEditable) setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void TXHistoryViewerTextView::moveInsertionPointToEnd() {
    QTextCursor cursor = textCursor();
    cursor.movePosition(QTextCursor::End);
    setTextCursor(cursor);
}

void TXHistoryViewerTextView::insertLineBreak() { textCursor().insertBlock(QTextBlockFormat(), QTextCharFormat()); }

void TXHistoryViewerTextView::insertLine(const QString& line, LineKind kind, const QTextCharFormat& attributes) {
    wrapAnywhereIfNeededFor(line);
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.setBlockFormat(blockFormat(kind));
    cursor.insertText(line, attributes);
    cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    showInReadableColor(cursor.block().previous());
    cursor.endEditBlock();
}

// At every line end the layout looks for the end of the word: a word of a million characters would take it minutes.
// With such a one, lines end wherever they are full.
void TXHistoryViewerTextView::wrapAnywhereIfNeededFor(const QString& line) {
    if (wordWrapMode() != QTextOption::WrapAnywhere && hasWordLongerThan(longestWord, line)) {
        setWordWrapMode(QTextOption::WrapAnywhere);
    }
}

void TXHistoryViewerTextView::scrollToEnd() {
    ensureCursorVisible();
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

bool TXHistoryViewerTextView::isScrolledToEnd() const {
    return verticalScrollBar()->value() == verticalScrollBar()->maximum();
}

// The newest answer stays in sight next to the entry line.
void TXHistoryViewerTextView::resizeEvent(QResizeEvent* event) {
    const bool wasScrolledToEnd = isScrolledToEnd();
    QTextEdit::resizeEvent(event);
    if (wasScrolledToEnd) verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

// With another size of the text, what is in sight stays there.
void TXHistoryViewerTextView::changeEvent(QEvent* event) {
    if (event->type() != QEvent::FontChange) {
        QTextEdit::changeEvent(event);
        if (event->type() == QEvent::PaletteChange) followPalette();
        return;
    }
    const bool wasScrolledToEnd = isScrolledToEnd();
    const QTextCursor first = cursorForPosition(QPoint(0, 0));
    QTextEdit::changeEvent(event);
    document()->size();  // Lays all of it out.
    QScrollBar* const bar = verticalScrollBar();
    bar->setValue(wasScrolledToEnd ? bar->maximum() : bar->value() + cursorRect(first).top());
}

// The history itself takes no text: who types means the entry line.
void TXHistoryViewerTextView::keyPressEvent(QKeyEvent* event) {
    if (parentDocument_ == nullptr || !parentDocument_->typeIntoEntry(event)) QTextEdit::keyPressEvent(event);
}

// So a dead key that is pressed here can begin a character, too.
void TXHistoryViewerTextView::inputMethodEvent(QInputMethodEvent* event) {
    if (parentDocument_ != nullptr) parentDocument_->composeIntoEntry(event);
}

QVariant TXHistoryViewerTextView::inputMethodQuery(Qt::InputMethodQuery query) const {
    return parentDocument_ != nullptr ? parentDocument_->inputMethodQueryOfEntry(query, *this)
                                      : QTextEdit::inputMethodQuery(query);
}

// What is copied does not end with a blank line, though every line of the history ends with a line break.
QTextCursor TXHistoryViewerTextView::selectionToCopy() const {
    QTextCursor selection = textCursor();
    int end = selection.selectionEnd();
    while (end > selection.selectionStart() && document()->characterAt(end - 1) == QChar::ParagraphSeparator) --end;
    if (end == selection.selectionStart()) return selection;
    const int start = selection.selectionStart();
    selection.setPosition(start);
    selection.setPosition(end, QTextCursor::KeepAnchor);
    return selection;
}

QMimeData* TXHistoryViewerTextView::createMimeDataFromSelection() const {
    const QTextCursor selection = selectionToCopy();
    auto copied = std::make_unique<QMimeData>();
    // Taken raw, since the editor's own plain text turns no-break spaces into blanks.
    copied->setText(selection.selectedText().replace(QChar::ParagraphSeparator, u'\n'));
    copied->setHtml(selection.selection().toHtml());
    return copied.release();
}

void TXHistoryViewerTextView::paintEvent(QPaintEvent* event) {
    QTextEdit::paintEvent(event);
    if (!document()->isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(placeholderColor(palette(), QPalette::Base));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, tr("Type an equation and press Return"));
}
