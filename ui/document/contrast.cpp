#include "ui/document/contrast.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace {

constexpr int whole = 255;
constexpr int step = 15;
constexpr double noticeableContrast = 1.1;

using Parts = std::array<double, whole + 1>;

// The light of each part of a colour.
Parts lightOfParts() {
    Parts light{};
    for (std::size_t part = 0; part < light.size(); ++part) {
        const double share = static_cast<double>(part) / whole;
        light[part] = share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    }
    return light;
}

// How bright a colour looks, from 0 to 1.
double luminance(const QColor& color) {
    static const Parts light = lightOfParts();  // asked for with every key and row
    const auto linear = [](int part) { return light[static_cast<std::size_t>(part)]; };
    return 0.2126 * linear(color.red()) + 0.7152 * linear(color.green()) + 0.0722 * linear(color.blue());
}

}  // namespace

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, brighter] = std::minmax({luminance(one), luminance(other)});
    return (brighter + 0.05) / (darker + 0.05);
}

bool isDark(const QColor& background) { return contrast(Qt::white, background) > contrast(Qt::black, background); }

QColor mixed(const QColor& color, const QColor& background, int share) {
    const auto part = [share](int front, int back) { return (front * share + back * (whole - share)) / whole; };
    return {part(color.red(), background.red()), part(color.green(), background.green()),
            part(color.blue(), background.blue())};
}

QColor strengthened(const QColor& color, const QColor& background, const QColor& stronger, double leastContrast) {
    const QColor seen = mixed(color, background, color.alpha());
    QColor result = seen;
    for (int share = step; contrast(result, background) < leastContrast && share <= whole; share += step) {
        result = mixed(stronger, seen, share);
    }
    return result;
}

QColor placeholderColor(const QPalette& palette, QPalette::ColorRole background) {
    const QPalette::ColorRole text = background == QPalette::Window ? QPalette::WindowText : QPalette::Text;
    return strengthened(palette.color(QPalette::PlaceholderText), palette.color(background), palette.color(text),
                        readableContrast);
}

QColor focusMarkColor(const QPalette& palette) {
    return strengthened(palette.color(QPalette::Highlight), palette.color(QPalette::Window),
                        palette.color(QPalette::WindowText), visibleContrast);
}

QColor hairlineColor(const QColor& color, const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    if (contrast(color, base) >= noticeableContrast) return color;
    return strengthened(color, base, palette.color(QPalette::Text), visibleContrast);
}
