#include "ui/document/contrast.h"

#include <gtest/gtest.h>

#include "tests/support/contrast.h"

namespace {

TEST(Contrast, isThatOfTheGuidelines) {
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21.0);
    EXPECT_DOUBLE_EQ(contrast(Qt::white, Qt::white), 1.0);
    // Greys at the edge of what is readable on white, as the guidelines' examples have them.
    EXPECT_NEAR(contrast("#767676", Qt::white), 4.54, 0.005);
    EXPECT_NEAR(contrast(Qt::white, "#777777"), 4.48, 0.005);
    EXPECT_NEAR(contrast("#D41818", Qt::white), 5.3, 0.05);
    EXPECT_NEAR(contrast("#1818D4", Qt::white), 9.9, 0.05);
    for (const char* color : {"#010203", "#0A0B0C", "#36363A", "#A6A6FF"}) {
        EXPECT_DOUBLE_EQ(contrast(color, "#222226"), contrastRatio(color, "#222226")) << color;
    }
}

TEST(Contrast, tellsDarkBackgrounds) {
    for (const char* color : {"#000000", "#222226", "#36363A", "#0000FF", "#757575"})
        EXPECT_TRUE(isDark(color)) << color;
    for (const char* color : {"#767676", "#EFEFEF", "#FFFF00", "#FFFFFF"}) EXPECT_FALSE(isDark(color)) << color;
}

TEST(Contrast, mixesByParts) {
    EXPECT_EQ(mixed(Qt::white, Qt::black, 255), QColor(Qt::white));
    EXPECT_EQ(mixed(Qt::white, Qt::black, 0), QColor(Qt::black));
    EXPECT_EQ(mixed(QColor(255, 100, 0), QColor(0, 200, 0), 51), QColor(51, 180, 0));
}

TEST(Contrast, isStrengthenedAsFarAsNeeded) {
    EXPECT_EQ(strengthened("#123456", Qt::white, Qt::black, 4.5), QColor("#123456"));
    const QColor stronger = strengthened("#AAAAAA", Qt::white, Qt::black, 4.5);
    EXPECT_GE(contrast(stronger, Qt::white), 4.5);
    EXPECT_LE(contrast(stronger, Qt::white), 5.5);
    // A colour that shines through is what is seen of it.
    EXPECT_EQ(strengthened(QColor(0, 0, 0, 51), Qt::white, Qt::black, 1.0), QColor(204, 204, 204));
    // There may be nothing better.
    EXPECT_EQ(strengthened("#EEEEEE", Qt::white, "#DDDDDD", 4.5), QColor("#DDDDDD"));
}

TEST(Contrast, leavesHairlinesThatAreSeen) {
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    EXPECT_EQ(hairlineColor("#EFEFEF", palette), QColor("#EFEFEF"));
    EXPECT_GE(contrast(hairlineColor("#FEFEFE", palette), Qt::white), 3.0);
}

}  // namespace
