#include "ui/document/TXFormulaEnteringTextView.h"

#include <QMimeData>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <algorithm>
#include <memory>

#include "ui/document/MyDocument.h"

namespace {

constexpr int lineInset = 1;

bool isLineEnd(QChar character) {
    switch (character.unicode()) {
        case u'\n':
        case u'\v':
        case u'\f':
        case u'\r':
        case u'\u0085':  // next line
        case QChar::LineSeparator:
        case QChar::ParagraphSeparator:
        case 0xFDD0:  // The editor keeps these two for itself and would begin a new line.
        case 0xFDD1: return true;
        default: return false;
    }
}

bool continuesFromAnswer(const QString& text) {
    return text.size() == 1 && QStringView(u"*+-/^").contains(text.front());
}

/// Undone by itself, and not with what was typed just before or after.
void insertInOneStep(QTextCursor& cursor, const QString& text) {
    cursor.beginEditBlock();
    // The editor would join what is typed next to an insertion, but not to a removal.
    cursor.insertText(text + u' ');
    cursor.deletePreviousChar();
    cursor.endEditBlock();
}

}  // namespace

TXFormulaEnteringTextView::TXFormulaEnteringTextView(QWidget* parent) : QPlainTextEdit(parent) {
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);

    // Equations run from left to right on every desktop.
    QTextOption option = document()->defaultTextOption();
    option.setTextDirection(Qt::LeftToRight);
    document()->setDefaultTextOption(option);

    connect(this, &QPlainTextEdit::selectionChanged, this, &TXFormulaEnteringTextView::textViewDidChangeSelection);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &TXFormulaEnteringTextView::textViewDidChangeSelection);
    prepareMarks();
}

void TXFormulaEnteringTextView::awakeFromNib() {
    wasFormulaJustCalculated_ = false;
    setTextContainerInset(lineInset);
}

QString TXFormulaEnteringTextView::text() const { return document()->firstBlock().text(); }

void TXFormulaEnteringTextView::setText(const QString& text) {
    const QScopedValueRollback byProgram(isMovedByProgram_, true);
    QTextCursor cursor = textCursor();
    cursor.select(QTextCursor::Document);
    insertInOneStep(cursor, asOneLine(text));
    setTextCursor(cursor);
}

void TXFormulaEnteringTextView::selectWholeText() {
    const QScopedValueRollback byProgram(isMovedByProgram_, true);
    selectAll();
}

void TXFormulaEnteringTextView::takeOver(const TXFormulaEnteringTextView& other) {
    if (text() != other.text()) {
        setUndoRedoEnabled(false);
        setText(other.text());
        setUndoRedoEnabled(true);
    }
    const QScopedValueRollback byProgram(isMovedByProgram_, true);
    QTextCursor cursor = textCursor();
    cursor.setPosition(other.textCursor().anchor());
    cursor.setPosition(other.textCursor().position(), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    wasFormulaJustCalculated_ = other.wasFormulaJustCalculated_;
    permissibleToEnterTextFlag_ = other.permissibleToEnterTextFlag_;
}

void TXFormulaEnteringTextView::insertText(const QString& text) {
    if (text.startsWith(u'\n')) {
        if (parentDocument_ != nullptr) parentDocument_->equationEntered();
        wasFormulaJustCalculated_ = true;
        permissibleToEnterTextFlag_ = true;
        return;
    }
    if (permissibleToEnterTextFlag_ && continuesFromAnswer(text)) {
        insertThroughEditor("ans" + text);
    } else {
        insertThroughEditor(text);
    }
}

void TXFormulaEnteringTextView::insertThroughEditor(const QString& text) {
    insertPlainText(asOneLine(text));
    setTextCursor(textCursor());  // The caret shows itself again, in whatever phase of its blinking it was.
}

void TXFormulaEnteringTextView::insertAtCaret(const QString& text) {
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    insertInOneStep(cursor, asOneLine(text));
    setTextCursor(cursor);
    clearFlags();
}

void TXFormulaEnteringTextView::replaceAsTyped(qsizetype start, qsizetype end, const QString& text) {
    const QScopedValueRollback typed(isBeingTyped_, true);
    QTextCursor cursor = textCursor();
    cursor.setPosition(static_cast<int>(start));
    cursor.setPosition(static_cast<int>(end), QTextCursor::KeepAnchor);
    insertInOneStep(cursor, asOneLine(text));
    setTextCursor(cursor);
    clearFlags();
}

void TXFormulaEnteringTextView::textViewDidChangeSelection() {
    if (!isMovedByProgram_) clearFlags();
}

void TXFormulaEnteringTextView::clearFlags() {
    permissibleToEnterTextFlag_ = false;
    wasFormulaJustCalculated_ = false;
}

QString TXFormulaEnteringTextView::asOneLine(const QString& text) {
    if (std::none_of(text.begin(), text.end(), isLineEnd)) return text;
    QString line;
    line.reserve(text.size());
    bool followsLineEnd = false;
    for (const QChar character : text) {
        const bool endsLine = isLineEnd(character);
        if (!endsLine) line += character;
        if (endsLine && !followsLineEnd) line += u' ';
        followsLineEnd = endsLine;
    }
    return line.trimmed();
}

// One drop, paste or middle click: the editor sends them all here, once it has put the caret in its place.
void TXFormulaEnteringTextView::insertFromMimeData(const QMimeData* source) {
    if (!canInsertFromMimeData(source)) return;
    const QString pasted = source->text();
    QTextCursor cursor = textCursor();
    const qsizetype rest = document()->characterCount() - 1 - (cursor.selectionEnd() - cursor.selectionStart());
    if (pasted.size() > longestLine - rest) {
        parentDocument_->refuseTooLongText(pasted.size());
        return;
    }
    const QString line = asOneLine(pasted);
    if (line.isEmpty()) return;
    insertInOneStep(cursor, line);
    setTextCursor(cursor);
    setFocus();  // What was dropped is typed on.
}

bool TXFormulaEnteringTextView::canInsertFromMimeData(const QMimeData* source) const {
    return source != nullptr && source->hasText();
}

// Plain text, and taken raw: the editor's own would turn no-break spaces into blanks.
QMimeData* TXFormulaEnteringTextView::createMimeDataFromSelection() const {
    auto copied = std::make_unique<QMimeData>();
    copied->setText(textCursor().selectedText());
    return copied.release();
}

void TXFormulaEnteringTextView::setTextContainerInset(int inset) {
    setUndoRedoEnabled(false);  // Or else Undo would take the inset back.
    document()->setDocumentMargin(inset);
    setUndoRedoEnabled(true);
    centreLine();
}

int TXFormulaEnteringTextView::lineHeight() const {
    return fontMetrics().height() + qCeil(2 * document()->documentMargin());
}

// Below the line the view goes on to its lower edge, for characters that are higher than the font's own.
void TXFormulaEnteringTextView::centreLine() {
    setViewportMargins(0, std::max(0, (height() - lineHeight()) / 2), 0, 0);
}

QSize TXFormulaEnteringTextView::sizeHint() const { return {QPlainTextEdit::sizeHint().width(), lineHeight()}; }

QSize TXFormulaEnteringTextView::minimumSizeHint() const { return {fontMetrics().height(), fontMetrics().height()}; }

void TXFormulaEnteringTextView::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    centreLine();
}

void TXFormulaEnteringTextView::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) refreshMarks();
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
    centreLine();
    updateGeometry();
}
