#include "ui/document/MiniModeAnswerField.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>

namespace {

constexpr int errorLines = 2;
constexpr int fieldHeight = 36;
constexpr int lineTolerance = 4;  // The room above the first line and below the last one that no character uses.
constexpr QColor shadowColor(0, 0, 0, 153);

}  // namespace

MiniModeAnswerField::MiniModeAnswerField(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void MiniModeAnswerField::showAnswer(const QString& answer) {
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setWordWrap(false);
    show(answer);
}

void MiniModeAnswerField::showError(const QString& error) {
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setWordWrap(true);
    show(error);
}

void MiniModeAnswerField::show(const QString& text) {
    setText(text);
    setAccessibleDescription(text);  // The name says what it is, so a screen reader would not come to the text.
    refreshToolTip();
}

void MiniModeAnswerField::refreshToolTip() { setToolTip(isElided() ? text() : QString()); }

QString MiniModeAnswerField::shownText() const {
    const int width = contentsRect().width();
    if (!wordWrap()) return fontMetrics().elidedText(text(), Qt::ElideMiddle, width);

    QTextLayout layout(text(), font());
    layout.beginLayout();
    for (int lines = 1; lines < linesThatFit(); ++lines) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(width);
    }
    const QTextLine last = layout.createLine();
    layout.endLayout();
    if (!last.isValid()) return text();
    const int start = last.textStart();
    return text().left(start) + fontMetrics().elidedText(text().mid(start), Qt::ElideRight, width);
}

int MiniModeAnswerField::linesThatFit() const {
    return std::min(errorLines, (height() + lineTolerance) / fontMetrics().lineSpacing());
}

QSize MiniModeAnswerField::sizeHint() const { return {QLabel::sizeHint().width(), minimumSizeHint().height()}; }

QSize MiniModeAnswerField::minimumSizeHint() const { return {0, std::max(fieldHeight, fontMetrics().height())}; }

void MiniModeAnswerField::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());  // By itself it would take the desktop's.
    drawFrame(&painter);
    const int flags = static_cast<int>(alignment()) | (wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine);
    const QString shown = shownText();
    if (frameShadow() == QFrame::Sunken) {  // On a lowered background text stands out by its shadow.
        painter.setPen(shadowColor);
        painter.drawText(contentsRect().translated(0, 1), flags, shown);
    }
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), flags, shown);
}

void MiniModeAnswerField::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    refreshToolTip();
}

void MiniModeAnswerField::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) refreshToolTip();
}
