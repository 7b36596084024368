// The colours in which the lines are shown. Those of the text itself are for white paper.

#include "ui/document/TXHistoryViewerTextView.h"

#include <QTextLayout>

#include "ui/document/contrast.h"

namespace {

using LineKind = TXHistoryViewerTextView::LineKind;

constexpr QColor answerOnDark(0xA6, 0xA6, 0xFF);
constexpr QColor errorOnDark(0xFF, 0x8A, 0x8A);

}  // namespace

QColor TXHistoryViewerTextView::shownColor(LineKind kind, const QColor& settled, const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    QColor color = settled;
    if (isDark(base)) {
        switch (kind) {
            case LineKind::equation: color = text; break;
            case LineKind::answer: color = answerOnDark; break;
            case LineKind::error: color = errorOnDark; break;
        }
    }
    return strengthened(color, base, text, readableContrast);
}

// As a format of the layout, which is no part of the text: whatever is taken from the text has its own colours.
bool TXHistoryViewerTextView::showInReadableColor(const QTextBlock& line) const {
    const int kind = line.blockFormat().intProperty(lineKindProperty);
    if (kind == 0) return false;
    const QColor settled = line.begin().fragment().charFormat().foreground().color();
    const QColor shown = shownColor(static_cast<LineKind>(kind), settled, palette());
    QList<QTextLayout::FormatRange> formats;
    if (shown.rgb() != settled.rgb()) {
        QTextCharFormat format;
        format.setForeground(shown);
        formats.append({0, line.length(), format});
    }
    if (formats == line.layout()->formats()) return false;
    line.layout()->setFormats(formats);
    return true;
}

void TXHistoryViewerTextView::showAllInReadableColors() {
    bool hasChanged = false;
    for (QTextBlock line = document()->begin(); line.isValid(); line = line.next()) {
        hasChanged |= showInReadableColor(line);
    }
    if (hasChanged) document()->markContentsDirty(0, document()->characterCount());
}

// Laying out all lines takes time, so it is left to changes that they show.
void TXHistoryViewerTextView::followPalette() {
    showMatch();
    const QColor base = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    if (base == knownBase_ && text == knownText_) return;
    knownBase_ = base;
    knownText_ = text;
    showAllInReadableColors();
}
