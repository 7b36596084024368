#include "ui/document/OutlineRowDelegate.h"

#include <QApplication>
#include <QFontMetrics>
#include <QStyle>
#include <algorithm>
#include <cmath>

namespace {

constexpr double readableContrast = 4.5;
constexpr qsizetype longestShownText = 1000;  // More is never in sight, and would take long to lay out.
constexpr qsizetype toolTipLine = 80;
constexpr qsizetype longestToolTip = 4000;

// How bright a colour looks, from 0 to 1, as the guidelines for accessible colours define it.
double luminance(const QColor& color) {
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red()) + 0.7152 * linear(color.green()) + 0.0722 * linear(color.blue());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, brighter] = std::minmax({luminance(one), luminance(other)});
    return (brighter + 0.05) / (darker + 0.05);
}

/// So many 255ths of `color` on the background.
QColor mixed(const QColor& color, const QColor& background, int share) {
    const auto part = [share](int front, int back) { return (front * share + back * (255 - share)) / 255; };
    return {part(color.red(), background.red()), part(color.green(), background.green()),
            part(color.blue(), background.blue())};
}

}  // namespace

QFont OutlineRowDelegate::titleFont(QFont font) {
    font.setBold(true);
    if (font.pointSizeF() > 1) font.setPointSizeF(font.pointSizeF() - 1);
    return font;
}

QColor OutlineRowDelegate::titleColor(const QPalette& palette) {
    const QColor background = palette.color(QPalette::Window);
    const QColor placeholder = palette.color(QPalette::PlaceholderText);
    constexpr int step = 15;
    constexpr int whole = 255;
    const QColor shown = mixed(placeholder, background, placeholder.alpha());
    QColor title = shown;
    for (int share = step; contrast(title, background) < readableContrast && share <= whole; share += step) {
        title = mixed(palette.color(QPalette::WindowText), shown, share);
    }
    return title;
}

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
