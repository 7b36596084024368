// What the style over Fusion draws in another way than Fusion.

#include "app/OutlineStyle.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QStyleOption>
#include <ostream>

#include <gtest/gtest.h>

namespace {

struct ScrollBarCase {
    const char* name;
    Qt::Orientation orientation;
    QSize size;
    qreal scale;
};
void PrintTo(const ScrollBarCase& row, std::ostream* out) { *out << row.name; }
class DrawnScrollBar : public testing::TestWithParam<ScrollBarCase> {};

/// One without a way to go: the slider of any other is the style's own.
QImage drawn(const QStyle& style, const ScrollBarCase& bar) {
    QImage image(bar.size * bar.scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(bar.scale);
    image.fill(Qt::gray);
    QStyleOptionSlider option;
    option.rect = QRect(QPoint(), bar.size);
    option.orientation = bar.orientation;
    option.state = QStyle::State_Enabled | QStyle::State_Active;
    if (bar.orientation == Qt::Horizontal) option.state |= QStyle::State_Horizontal;
    option.subControls = QStyle::SC_All;
    QPainter painter(&image);
    style.drawComplexControl(QStyle::CC_ScrollBar, &option, &painter);
    return image;
}

TEST_P(DrawnScrollBar, looksAsInOnePiece) {
    OutlineStyle::install();
    const auto* const style = qobject_cast<const OutlineStyle*>(QApplication::style());
    ASSERT_NE(style, nullptr);
    const QImage image = drawn(*style, GetParam());
    EXPECT_EQ(image, drawn(*style->baseStyle(), GetParam()));
    QImage empty = image.copy();
    empty.fill(Qt::gray);
    EXPECT_NE(image, empty);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Sizes, DrawnScrollBar, testing::Values(
    ScrollBarCase{"High",       Qt::Vertical,   QSize(14, 431), 1.0},
    ScrollBarCase{"Low",        Qt::Vertical,   QSize(14, 40),  1.0},
    ScrollBarCase{"OfOneStrip", Qt::Vertical,   QSize(14, 64),  1.0},
    ScrollBarCase{"Wide",       Qt::Horizontal, QSize(431, 14), 1.0},
    ScrollBarCase{"Double",     Qt::Vertical,   QSize(14, 431), 2.0},
    ScrollBarCase{"OneAndHalf", Qt::Vertical,   QSize(14, 432), 1.5}
), [](const auto& row) { return row.param.name; });
// clang-format on

}  // namespace
