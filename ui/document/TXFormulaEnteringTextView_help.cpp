// What helps while a line is typed: marks in the line, and names that could be meant. None of it moves the caret or
// changes the selection, so the two flags stay as they are.

#include "ui/document/TXFormulaEnteringTextView.h"

#include <QPainter>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextLayout>
#include <cstdlib>

#include "ui/document/EntryColors.h"
#include "ui/document/MyDocument.h"
#include "ui/document/NameSuggestions.h"
#include "ui/document/equationMarks.h"

namespace {

constexpr qsizetype longestMarkedLine = 2000;
constexpr qreal bracketRadius = 3.0;
constexpr int bracketOpacity = 64;  // a quarter

QTextEdit::ExtraSelection colored(QTextCursor cursor, qsizetype start, qsizetype length, const QColor& color) {
    cursor.setPosition(static_cast<int>(start));
    cursor.setPosition(static_cast<int>(start + length), QTextCursor::KeepAnchor);
    QTextCharFormat format;
    format.setForeground(color);
    return {cursor, format};
}

const QColor& colorOf(EquationPart part, const EntryColors& colors) {
    switch (part) {
        case EquationPart::number: return colors.number;
        case EquationPart::function: return colors.function;
        default: return colors.variable;
    }
}

}  // namespace

void TXFormulaEnteringTextView::prepareMarks() {
    connect(this, &QPlainTextEdit::textChanged, this, &TXFormulaEnteringTextView::refreshMarks);
    const auto caretMoved = [this] {
        viewport()->update();
        if (!isBeingTyped_) closeSuggestions();
    };
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, caretMoved);
    connect(this, &QPlainTextEdit::selectionChanged, this, caretMoved);
}

void TXFormulaEnteringTextView::refreshMarks() {
    QList<QTextEdit::ExtraSelection> marks;
    const QString line = text();
    if (line.size() <= longestMarkedLine && !isComposing()) {
        const EntryColors& colors = EntryColors::on(palette().color(QPalette::Base));
        const QTextCursor cursor(document());
        if (parentDocument_ != nullptr && parentDocument_->entryOptions().colorsEquation) {
            for (const EquationSpan& span : spansOf(line, [this](QStringView name) { return partOf(name); })) {
                marks.append(colored(cursor, span.start, span.length, colorOf(span.part, colors)));
            }
        }
        for (const qsizetype position : unmatchedClosingBrackets(line)) {
            marks.append(colored(cursor, position, 1, colors.error));
        }
    }
    if (!marks.isEmpty() || !extraSelections().isEmpty()) setExtraSelections(marks);
}

// What is composed stands in the line without being part of its text, so that places in the two differ.
bool TXFormulaEnteringTextView::isComposing() const {
    return !document()->firstBlock().layout()->preeditAreaText().isEmpty();
}

std::optional<EquationPart> TXFormulaEnteringTextView::partOf(QStringView name) const {
    return parentDocument_->partOfName(name);
}

// Under the text, which the editor paints afterwards.
void TXFormulaEnteringTextView::paintEvent(QPaintEvent* event) {
    paintBrackets();
    QPlainTextEdit::paintEvent(event);
}

void TXFormulaEnteringTextView::paintBrackets() {
    const QString line = text();
    if (textCursor().hasSelection() || isComposing() || line.size() > longestMarkedLine) return;
    const auto pair = bracketPairAt(line, textCursor().position());
    if (!pair) return;
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(bracketColor());
    for (const qsizetype position : {pair->opening, pair->closing}) {
        const int left = leftOf(position);
        const QRect place(left, lineTop(), leftOf(position + 1) - left, fontMetrics().height());
        painter.drawRoundedRect(place, bracketRadius, bracketRadius);
    }
}

// A highlight that is hardly brighter than the line's background would not be seen at all.
QColor TXFormulaEnteringTextView::bracketColor() const {
    constexpr int leastDifference = 48;
    const QColor highlight = palette().color(QPalette::Highlight);
    const QColor base = palette().color(QPalette::Base);
    const bool isSeen = std::abs(qGray(highlight.rgb()) - qGray(base.rgb())) >= leastDifference;
    QColor color = isSeen ? highlight : palette().color(QPalette::Text);
    color.setAlpha(bracketOpacity);
    return color;
}

int TXFormulaEnteringTextView::leftOf(qsizetype position) const {
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(position));
    return cursorRect(cursor).left();
}

int TXFormulaEnteringTextView::lineTop() const { return cursorRect(QTextCursor(document())).top(); }

int TXFormulaEnteringTextView::endOfText() const {
    const QTextBlock block = document()->firstBlock();
    const qreal left = blockBoundingGeometry(block).translated(contentOffset()).left();
    const QTextLayout* const layout = block.layout();
    const qreal width = layout->lineCount() > 0 ? layout->lineAt(0).naturalTextRect().right() : 0.0;
    return qCeil(left + width);
}

void TXFormulaEnteringTextView::offerSuggestions() {
    if (suggestions_ == nullptr) suggestions_ = new NameSuggestions(*this);
    suggestions_->offer();
}

void TXFormulaEnteringTextView::suggestAfter(bool wasTyping) {
    if (wasTyping) {
        offerSuggestions();
    } else {
        closeSuggestions();
    }
}

void TXFormulaEnteringTextView::closeSuggestions() {
    if (suggestions_ != nullptr) suggestions_->hide();
}
