#include "ui/document/OutlineRowDelegate.h"

#include <QApplication>
#include <QFontMetrics>
#include <QStyle>
#include <algorithm>

#include "ui/document/contrast.h"

namespace {

constexpr qsizetype longestShownText = 1000;  // More is never in sight, and would take long to lay out.
constexpr qsizetype toolTipLine = 80;
constexpr qsizetype longestToolTip = 4000;

}  // namespace

QFont OutlineRowDelegate::titleFont(QFont font) {
    font.setBold(true);
    if (font.pointSizeF() > 1) font.setPointSizeF(font.pointSizeF() - 1);
    return font;
}

QColor OutlineRowDelegate::titleColor(const QPalette& palette) { return placeholderColor(palette, QPalette::Window); }

void OutlineRowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->text.size() > longestShownText) option->text = option->text.left(longestShownText) + u'…';
    if (index.parent().isValid()) {
        // A name and its number run from left to right, at whichever edge.
        option->displayAlignment = QStyle::visualAlignment(option->direction, option->displayAlignment);
        option->direction = Qt::LeftToRight;
        option->palette.setColor(QPalette::Text, option->palette.color(QPalette::WindowText));
    } else {
        option->font = titleFont(option->font);
        option->fontMetrics = QFontMetrics(option->font);
        option->palette.setColor(QPalette::Text, titleColor(option->palette));
    }
}

bool OutlineRowDelegate::isElided(const QString& text, const QFont& font, int width, const QWidget& view) {
    const int margin = view.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view) + 1;
    return text.size() > longestShownText || QFontMetrics(font).horizontalAdvance(text) > width - 2 * margin;
}

QString OutlineRowDelegate::toolTipOf(const QString& text) {
    QString lines;
    for (qsizetype i = 0; i < std::min(text.size(), longestToolTip); i += toolTipLine) {
        lines += text.mid(i, toolTipLine) + u'\n';
    }
    lines.chop(1);
    if (text.size() > longestToolTip) lines += u'…';
    // A tooltip would take some texts for markup.
    return QStringLiteral("<p dir='ltr' style='white-space:pre'>%1</p>").arg(lines.toHtmlEscaped());
}
