#include "tests/support/contrast.h"

#include <QHash>
#include <algorithm>
#include <cmath>

namespace {

double linear(double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); }

double luminance(const QColor& color) {
    return 0.2126 * linear(color.red() / 255.0) + 0.7152 * linear(color.green() / 255.0) +
           0.0722 * linear(color.blue() / 255.0);
}

QHash<QRgb, int> colorsOf(const QImage& image) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
    }
    return counts;
}

}  // namespace

double contrastRatio(const QColor& one, const QColor& other) {
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor commonestColor(const QImage& image) {
    const QHash<QRgb, int> counts = colorsOf(image);
    QRgb commonest = 0;
    int most = 0;
    for (auto color = counts.begin(); color != counts.end(); ++color) {
        if (color.value() > most) commonest = color.key();
        most = std::max(most, color.value());
    }
    return commonest;
}

QColor strongestColor(const QImage& image) {
    const QColor background = commonestColor(image);
    QColor strongest = background;
    for (const QRgb color : colorsOf(image).keys()) {
        if (contrastRatio(color, background) > contrastRatio(strongest, background)) strongest = color;
    }
    return strongest;
}

double paintedContrast(QWidget* widget, const QRect& area) {
    const QImage image = widget->grab(area).toImage();
    return contrastRatio(commonestColor(image), strongestColor(image));
}

double paintedContrast(QWidget* widget) { return paintedContrast(widget, widget->rect()); }

QList<QColor> leftEdge(QWidget* widget, int length) {
    return colorsFrom(widget->window(), widget->mapTo(widget->window(), QPoint(-1, widget->height() / 2)), length + 1);
}

QList<QColor> colorsFrom(QWidget* window, const QPoint& start, int length) {
    const QImage image = window->grab(QRect(start, QSize(length, 1))).toImage();
    QList<QColor> colors;
    for (int x = 0; x < image.width(); ++x) colors.append(image.pixelColor(x, 0));
    return colors;
}

double edgeContrast(const QList<QColor>& colors) {
    double highest = 1.0;
    for (const QColor& color : colors) highest = std::max(highest, contrastRatio(color, colors.first()));
    return highest;
}
