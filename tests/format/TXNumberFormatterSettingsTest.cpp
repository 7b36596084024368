#include "format/TXNumberFormatterSettings.h"

#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

TEST(TXNumberFormatterSettings, startDecimalAndAutomatic) {
    const TXNumberFormatterSettings settings;
    EXPECT_EQ(settings.formattingType(), 1);
    EXPECT_EQ(settings.significantFigures(), -1);
    EXPECT_EQ(settings.decimalPlaces(), -1);
    EXPECT_FALSE(settings.thousandsSeparators());
    EXPECT_TRUE(settings.addZerosInDecimalMode());
    EXPECT_EQ(utf8(settings.thousandsCharacter()), ",");
    EXPECT_EQ(utf8(settings.decimalCharacter()), ".");
    EXPECT_EQ(utf8(settings.exponentCharacter()), "e");
    EXPECT_EQ(settings.digitIndexForSettingsController(), 0U);
}

TEST(TXNumberFormatterSettings, keepWhatIsSet) {
    TXNumberFormatterSettings settings;
    settings.setFormattingType(7);
    settings.setThousandsSeparators(true);
    settings.setAddZerosInDecimalMode(false);
    EXPECT_EQ(settings.formattingType(), 7);
    EXPECT_TRUE(settings.thousandsSeparators());
    EXPECT_FALSE(settings.addZerosInDecimalMode());
    settings.setThousandsSeparators(false);
    settings.setAddZerosInDecimalMode(true);
    EXPECT_FALSE(settings.thousandsSeparators());
    EXPECT_TRUE(settings.addZerosInDecimalMode());
}

TEST(TXNumberFormatterSettings, takeAnyFormattingType) {
    TXNumberFormatterSettings settings;
    for (const std::int8_t type : {std::int8_t{-128}, std::int8_t{0}, std::int8_t{127}}) {
        settings.setFormattingType(type);
        EXPECT_EQ(settings.formattingType(), type);
    }
}

TEST(TXNumberFormatterSettings, haveTheTypeCodesOfTheMenu) {
    EXPECT_EQ(TXFormattingType::decimal, 1);
    EXPECT_EQ(TXFormattingType::scientific, 2);
    EXPECT_EQ(TXFormattingType::engineering, 3);
    EXPECT_EQ(TXFormattingType::percent, 4);
    EXPECT_EQ(TXFormattingType::binary, 5);
    EXPECT_EQ(TXFormattingType::octal, 6);
    EXPECT_EQ(TXFormattingType::hexadecimal, 7);
}

TEST(TXNumberFormatterSettings, keepTheirOwnCopiesOfTexts) {
    TXNumberFormatterSettings settings;
    std::u16string text = u"'";
    settings.setThousandsCharacter(text);
    text = u"::";
    settings.setDecimalCharacter(text);
    text = u"E";
    settings.setExponentCharacter(text);
    text = u"changed";
    EXPECT_EQ(utf8(settings.thousandsCharacter()), "'");
    EXPECT_EQ(utf8(settings.decimalCharacter()), "::");
    EXPECT_EQ(utf8(settings.exponentCharacter()), "E");
}

struct DigitCase {
    int number;
    int figures;
    int places;
    unsigned int index;
};

TEST(TXNumberFormatterSettings, setSignificantFiguresClearsDecimalPlaces) {
    const DigitCase rows[] = {{1, 1, -1, 1}, {10, 10, -1, 10}, {0, -1, -1, 0}, {-1, -1, -1, 0}, {127, 127, -1, 127}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        TXNumberFormatterSettings settings;
        settings.setDecimalPlaces(4);
        settings.setSignificantFigures(static_cast<std::int8_t>(row.number));
        EXPECT_EQ(settings.significantFigures(), row.figures);
        EXPECT_EQ(settings.decimalPlaces(), row.places);
        EXPECT_EQ(settings.digitIndexForSettingsController(), row.index);
    }
}

TEST(TXNumberFormatterSettings, setDecimalPlacesClearsSignificantFigures) {
    const DigitCase rows[] = {{0, -1, 0, 11}, {1, -1, 1, 12}, {10, -1, 10, 21}, {-1, -1, -1, 0}, {127, -1, 127, 138}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        TXNumberFormatterSettings settings;
        settings.setSignificantFigures(4);
        settings.setDecimalPlaces(static_cast<std::int8_t>(row.number));
        EXPECT_EQ(settings.significantFigures(), row.figures);
        EXPECT_EQ(settings.decimalPlaces(), row.places);
        EXPECT_EQ(settings.digitIndexForSettingsController(), row.index);
    }
}

TEST(TXNumberFormatterSettings, storeNegativeNumbersAsTheyAre) {
    TXNumberFormatterSettings settings;
    settings.setSignificantFigures(-128);
    EXPECT_EQ(settings.significantFigures(), -128);
    EXPECT_EQ(settings.digitIndexForSettingsController(), 4294967168U);  // -128 without a sign
    settings.setDecimalPlaces(-3);
    EXPECT_EQ(settings.decimalPlaces(), -3);
    EXPECT_EQ(settings.digitIndexForSettingsController(), 8U);
}

TEST(TXNumberFormatterSettings, haveADigitChoiceForEachMenuPosition) {
    for (unsigned int index = 0; index <= 21; ++index) {
        SCOPED_TRACE(index);
        TXNumberFormatterSettings settings;
        settings.setDigitsWithSettingsControllerIndex(index);
        EXPECT_EQ(settings.significantFigures(), index >= 1 && index <= 10 ? static_cast<int>(index) : -1);
        EXPECT_EQ(settings.decimalPlaces(), index >= 11 ? static_cast<int>(index) - 11 : -1);
        EXPECT_EQ(settings.digitIndexForSettingsController(), index);
    }
}

TEST(TXNumberFormatterSettings, areAutomaticAtPositionsTheMenuDoesNotHave) {
    for (const unsigned int index : {0U, 22U, 23U, 255U, 256U, 267U, std::numeric_limits<unsigned int>::max()}) {
        SCOPED_TRACE(index);
        TXNumberFormatterSettings settings;
        settings.setSignificantFigures(3);
        settings.setDigitsWithSettingsControllerIndex(index);
        EXPECT_EQ(settings.significantFigures(), -1);
        EXPECT_EQ(settings.decimalPlaces(), -1);
        EXPECT_EQ(settings.digitIndexForSettingsController(), 0U);
    }
}

TEST(TXNumberFormatterSettings, clearTheOtherDigitChoiceByMenuPosition) {
    TXNumberFormatterSettings settings;
    settings.setDecimalPlaces(2);
    settings.setDigitsWithSettingsControllerIndex(5);
    EXPECT_EQ(settings.significantFigures(), 5);
    EXPECT_EQ(settings.decimalPlaces(), -1);
    settings.setDigitsWithSettingsControllerIndex(13);
    EXPECT_EQ(settings.significantFigures(), -1);
    EXPECT_EQ(settings.decimalPlaces(), 2);
}

TEST(TXNumberFormatterSettings, describeThemselvesInOneLine) {
    TXNumberFormatterSettings settings;
    EXPECT_EQ(utf8(settings.description()),
              "TXNumberFormatterSettings formattingType=1, significantFigures=-1, decimalPlaces=-1, "
              "thousandsSeparators=0, thousandsCharacter=,, decimalCharacter=., exponentCharacter=e");
    settings.setFormattingType(3);
    settings.setDecimalPlaces(10);
    settings.setThousandsSeparators(true);
    settings.setThousandsCharacter(u" ");
    settings.setDecimalCharacter(u"%@");
    settings.setExponentCharacter(u"E");
    EXPECT_EQ(utf8(settings.description()),
              "TXNumberFormatterSettings formattingType=3, significantFigures=-1, decimalPlaces=10, "
              "thousandsSeparators=1, thousandsCharacter= , decimalCharacter=%@, exponentCharacter=E");
}

TEST(TXNumberFormatterSettings, areCopiedWhole) {
    TXNumberFormatterSettings settings;
    settings.setSignificantFigures(7);
    settings.setThousandsCharacter(u"'");
    TXNumberFormatterSettings copy = settings;
    settings.setThousandsCharacter(u" ");
    EXPECT_EQ(copy.significantFigures(), 7);
    EXPECT_EQ(utf8(copy.thousandsCharacter()), "'");
    copy = settings;
    EXPECT_EQ(utf8(copy.thousandsCharacter()), " ");
}

}  // namespace
