// The front door: settings taken over, separators, signs, and what is not finite.
#include "format/TXNumberFormatter.h"

#include <iterator>
#include <limits>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "tests/format/answers.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(TXNumberFormatter, startsWithDefaultsAndWithoutDigits) {
    const TXNumberFormatter formatter;
    EXPECT_EQ(formatter.numberFormatterSettings(), nullptr);
    EXPECT_EQ(formatter.preferencesAnswerFormatting(), 1);
    EXPECT_EQ(formatter.preferencesSignificantFigures(), -1);
    EXPECT_EQ(formatter.preferencesDecimalPlaces(), -1);
    EXPECT_FALSE(formatter.preferencesThousandsSeperators());
    EXPECT_TRUE(formatter.preferencesAddZerosInDecimalMode());
    EXPECT_EQ(formatter.masterRoundingNumber().count(), 0);
    EXPECT_EQ(formatter.roundingNumber().count(), 0);
    EXPECT_EQ(utf8(formatter.decimalCharacter()), ".");
    EXPECT_EQ(utf8(formatter.seperatorCharacter()), ",");
    EXPECT_EQ(utf8(formatter.exponentCharacter()), "e");
}

TEST(TXNumberFormatter, startsWithTheSeparatorOfItsSettings) {
    TXNumberFormatterSettings settings;
    settings.setThousandsCharacter(u"'");
    EXPECT_EQ(utf8(TXNumberFormatter(&settings).seperatorCharacter()), "'");
}

TEST(TXNumberFormatter, holdsNothingAtFirst) {
    const TXNumberFormatter formatter;
    EXPECT_EQ(formatter.masterNumber(), 0.0);
    EXPECT_EQ(formatter.masterDecimalLocation(), -1);
    EXPECT_EQ(formatter.masterExponent(), 0);
    EXPECT_EQ(formatter.decimalLocation(), -1);
    EXPECT_EQ(formatter.exponent(), 1);
    EXPECT_EQ(utf8(formatter.negative()), "");
    EXPECT_FALSE(formatter.displayExponent());
}

TEST(TXNumberFormatter, isSetUpWithItsFirstNumberAndNeverAgain) {
    TXNumberFormatterSettings settings;
    settings.setThousandsCharacter(u"'");
    TXNumberFormatter formatter(&settings);
    formatter.setNumberFormatterSettings(nullptr);
    formatter.formattedNumberForNumber(1.5);
    EXPECT_EQ(utf8(formatter.seperatorCharacter()), ",");

    TXNumberFormatter other(&settings);
    other.formattedNumberForNumber(1.5);
    other.setNumberFormatterSettings(nullptr);
    other.formattedNumberForNumber(1.5);
    EXPECT_EQ(utf8(other.seperatorCharacter()), "'");
}

TEST(TXNumberFormatter, isSetUpForItsFirstNumber) {
    TXNumberFormatter formatter;
    formatter.setInitValues();
    EXPECT_EQ(formatter.masterDecimalLocation(), -1);
    EXPECT_EQ(formatter.masterExponent(), 0);
    EXPECT_EQ(formatter.decimalLocation(), -1);
    EXPECT_EQ(formatter.exponent(), 1);
    EXPECT_EQ(utf8(formatter.negative()), "");
    EXPECT_FALSE(formatter.displayExponent());
    EXPECT_EQ(utf8(formatter.seperatorCharacter()), ",");

    TXNumberFormatterSettings settings;
    settings.setThousandsCharacter(u"'");
    formatter.setNumberFormatterSettings(&settings);
    formatter.setInitValues();
    EXPECT_EQ(utf8(formatter.seperatorCharacter()), "'");
}

TEST(TXNumberFormatter, forgetsTheNumberBefore) {
    TXNumberFormatter formatter;
    formatter.formattedNumberForNumber(-1.5e20);
    EXPECT_TRUE(formatter.displayExponent());
    EXPECT_EQ(formatter.masterNumber(), -1.5e20);
    formatter.prepareForFormat();
    EXPECT_EQ(formatter.masterRoundingNumber().count(), 0);
    EXPECT_EQ(formatter.roundingNumber().count(), 0);
    EXPECT_EQ(formatter.masterDecimalLocation(), -1);
    EXPECT_EQ(formatter.masterExponent(), 0);
    EXPECT_EQ(formatter.decimalLocation(), -1);
    EXPECT_EQ(formatter.exponent(), 1);
    EXPECT_EQ(utf8(formatter.negative()), "");
    EXPECT_FALSE(formatter.displayExponent());
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(2.5)), "2.5");
}

TEST(TXNumberFormatter, forgetsAWholeNumberToo) {
    TXNumberFormatter formatter;
    formatter.formattedNumberForNumber(-1200.0);
    formatter.prepareForFormat();
    EXPECT_EQ(formatter.masterRoundingNumber().count(), 0);
    EXPECT_EQ(formatter.roundingNumber().count(), 0);
    EXPECT_EQ(formatter.decimalLocation(), -1);
    EXPECT_EQ(utf8(formatter.negative()), "");
    EXPECT_EQ(utf8(formatter.roundToSignificantFigures(-1)), "");
    EXPECT_EQ(utf8(formatter.roundToDecimal(2)), "0.00");
}

std::string place(const TXNumberFormatter& formatter) {
    return utf8(formatter.negative()) + " " + std::to_string(formatter.decimalLocation()) + "e" +
           std::to_string(formatter.exponent()) + (formatter.displayExponent() ? " shown, " : ", ") +
           std::to_string(formatter.masterDecimalLocation()) + "e" + std::to_string(formatter.masterExponent()) + ", " +
           std::to_string(formatter.sciPonent()) + (formatter.isZeroNumber() ? ", zero" : "");
}

std::string state(const TXNumberFormatter& formatter) {
    return utf8(formatter.logMasterRoundingNumber()) + " " + utf8(formatter.logRoundingNumber()) + " " +
           place(formatter);
}

/// What formattedNumberForNumber does, step by step.
std::u16string formatByStepsAlone(TXNumberFormatter& formatter, double number) {
    formatter.prepareForFormat();
    formatter.refreshFormatterSettings();
    formatter.setNumber(number);
    const int places = formatter.preferencesDecimalPlaces();
    return places == -1 ? formatter.roundToSignificantFigures(formatter.preferencesSignificantFigures())
                        : formatter.roundToDecimal(places);
}

constexpr double manyNumbers[] = {0.0,
                                  -0.0,
                                  1.0,
                                  -7.0,
                                  10.0,
                                  -1200.0,
                                  99999999.0,
                                  100000000.0,
                                  1e14,
                                  -1e14,
                                  123456789012345.0,
                                  999999999999999.0,
                                  1e15,
                                  -1.5e20,
                                  0.5,
                                  -0.001,
                                  1e-7,
                                  1.0 / 3,
                                  1299.9999999999998};

struct Step {
    const char* name;
    void (*take)(TXNumberFormatter&);
};
const Step steps[] = {
    {"none", [](TXNumberFormatter&) {}},
    {"setNumber", [](TXNumberFormatter& formatter) { formatter.setNumber(0.0); }},
    {"removeTrailingZeros", [](TXNumberFormatter& formatter) { formatter.removeTrailingZeros(); }},
    {"eliminateNoise", [](TXNumberFormatter& formatter) { formatter.eliminateDoublePrecisionNoise(); }},
    {"copyMasterNumber", [](TXNumberFormatter& formatter) { formatter.copyMasterNumberIntoRoundingNumber(); }},
    {"truncate", [](TXNumberFormatter& formatter) { formatter.truncateToLength(0); }},
    {"truncateWithRounding", [](TXNumberFormatter& formatter) { formatter.truncateWithRoundingToLength(1); }},
    {"zerosToEnd", [](TXNumberFormatter& formatter) { formatter.addZerosToEnd(1); }},
    {"zerosToBeginning", [](TXNumberFormatter& formatter) { formatter.addZerosToBeginning(1); }},
    {"setExponentsToZero", [](TXNumberFormatter& formatter) { formatter.setExponentsToZero(); }},
    {"figures", [](TXNumberFormatter& formatter) { formatter.roundToSignificantFigures(2); }},
    {"places", [](TXNumberFormatter& formatter) { formatter.roundToDecimal(2); }},
};

TEST(TXNumberFormatter, isLeftAsTheStepsLeaveIt) {
    for (const int type : {1, 2, 3, 4, 8}) {
        for (const auto& digits : {automatic, figures(2), places(2)}) {
            TXNumberFormatterSettings settings;
            settings.setFormattingType(static_cast<std::int8_t>(type));
            choose(settings, digits);
            for (const double number : manyNumbers) {
                for (const Step& step : steps) {
                    SCOPED_TRACE(testing::Message() << number << " as " << type << ", then " << step.name);
                    TXNumberFormatter formatter(&settings);
                    TXNumberFormatter stepped(&settings);
                    EXPECT_EQ(formatter.formattedNumberForNumber(number), formatByStepsAlone(stepped, number));
                    step.take(formatter);
                    step.take(stepped);
                    EXPECT_EQ(state(formatter), state(stepped));
                    EXPECT_EQ(utf8(formatter.stringForNumber()), utf8(stepped.stringForNumber()));
                }
            }
        }
    }
}

// Whichever is asked first: a whole number's text is written before its digits.
TEST(TXNumberFormatter, hasTheDigitsOfAWholeNumberWhenAskedForThem) {
    const auto formatted = [] {
        TXNumberFormatter formatter;
        formatter.formattedNumberForNumber(-1200.0);
        return formatter;
    };
    EXPECT_EQ(formatted().masterRoundingNumber().count(), 2);
    EXPECT_EQ(formatted().roundingNumber().count(), 4);
    EXPECT_EQ(formatted().masterDecimalLocation(), 4);
    EXPECT_EQ(formatted().decimalLocation(), 4);
    EXPECT_EQ(formatted().masterExponent(), 0);
    EXPECT_EQ(formatted().exponent(), 0);
    EXPECT_EQ(formatted().sciPonent(), 3);
    EXPECT_EQ(utf8(formatted().negative()), "-");
    EXPECT_FALSE(formatted().displayExponent());
    EXPECT_FALSE(formatted().isZeroNumber());
    EXPECT_EQ(utf8(formatted().stringForNumber()), "-1200");
    EXPECT_EQ(utf8(formatted().logMasterRoundingNumber()), "(1, 2)");
    EXPECT_EQ(utf8(formatted().logRoundingNumber()), "(1, 2, 0, 0)");
}

TEST(TXNumberFormatter, keepsTheViewWhileItsDigitsAreLookedAt) {
    TXNumberFormatter formatter;
    const std::u16string_view view = formatter.formattedViewForNumber(-1200.0);
    EXPECT_EQ(formatter.roundingNumber().count(), 4);
    EXPECT_EQ(utf8(view), "-1200");
}

TEST(TXNumberFormatter, worksWithoutSettings) {
    TXNumberFormatter formatter;
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(1234567.891)), "1234567.891");
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(1e20)), "1e20");
    EXPECT_EQ(utf8(formatter.seperatorCharacter()), ",");
}

TEST(TXNumberFormatter, takesItsSettingsOverForEachAnswer) {
    TXNumberFormatterSettings settings;
    TXNumberFormatter formatter(&settings);
    EXPECT_EQ(formatter.numberFormatterSettings(), &settings);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(1234.5)), "1234.5");
    settings.setThousandsSeparators(true);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(1234.5)), "1,234.5");
    settings.setThousandsCharacter(u" ");
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(1234.5)), "1 234.5");
    settings.setDecimalPlaces(2);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(1234.5)), "1 234.50");
    settings.setAddZerosInDecimalMode(false);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(1234.5)), "1 234.5");
    settings.setSignificantFigures(2);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(1234.5)), "1 200");
    settings.setFormattingType(TXFormattingType::scientific);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(1234.5)), "1.2e3");
    settings.setFormattingType(TXFormattingType::hexadecimal);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(16.0)), "0x10");
}

TEST(TXNumberFormatter, copiesEverySettingButTheTwoCharacters) {
    TXNumberFormatterSettings settings;
    settings.setFormattingType(-3);
    settings.setDecimalPlaces(-7);
    settings.setThousandsSeparators(true);
    settings.setAddZerosInDecimalMode(false);
    settings.setThousandsCharacter(u"'");
    TXNumberFormatter formatter(&settings);
    formatter.refreshFormatterSettings();
    EXPECT_EQ(formatter.preferencesAnswerFormatting(), -3);
    EXPECT_EQ(formatter.preferencesSignificantFigures(), -1);
    EXPECT_EQ(formatter.preferencesDecimalPlaces(), -7);
    EXPECT_TRUE(formatter.preferencesThousandsSeperators());
    EXPECT_FALSE(formatter.preferencesAddZerosInDecimalMode());
    EXPECT_EQ(utf8(formatter.seperatorCharacter()), "'");
    settings.setSignificantFigures(9);
    formatter.refreshFormatterSettings();
    EXPECT_EQ(formatter.preferencesSignificantFigures(), 9);
    EXPECT_EQ(formatter.preferencesDecimalPlaces(), -1);
}

// The document shows another exponent character by itself; answers are read back with these two.
TEST(TXNumberFormatter, alwaysWritesPointAndE) {
    TXNumberFormatterSettings settings;
    settings.setDecimalCharacter(u",");
    settings.setExponentCharacter(u"E");
    TXNumberFormatter formatter(&settings);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(1.5e20)), "1.5e20");
    EXPECT_EQ(utf8(formatter.decimalCharacter()), ".");
    EXPECT_EQ(utf8(formatter.exponentCharacter()), "e");
}

TEST(TXNumberFormatter, keepsWhatItHasWhenItsSettingsAreTakenAway) {
    TXNumberFormatterSettings settings;
    settings.setDecimalPlaces(1);
    settings.setThousandsSeparators(true);
    settings.setThousandsCharacter(u"'");
    TXNumberFormatter formatter(&settings);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(1234.0)), "1'234.0");
    formatter.setNumberFormatterSettings(nullptr);
    settings.setDecimalPlaces(3);
    EXPECT_EQ(formatter.numberFormatterSettings(), nullptr);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(1234.0)), "1'234.0");
}

TEST(TXNumberFormatter, givesTheSameTextAsAView) {
    TXNumberFormatterSettings settings;
    TXNumberFormatter formatter(&settings);
    for (const int type : {1, 2, 3, 4, 5, 6, 7}) {
        settings.setFormattingType(static_cast<std::int8_t>(type));
        for (const double number : {0.0, -7.0, 123456789.0, 0.1 + 0.2, -1.5e-20, infinity}) {
            const std::u16string text = formatter.formattedNumberForNumber(number);
            EXPECT_EQ(utf8(formatter.formattedViewForNumber(number)), utf8(text));
        }
    }
}

TEST(TXNumberFormatter, givesAStringThatTheNextAnswerDoesNotTouch) {
    TXNumberFormatter formatter;
    const std::u16string first = formatter.formattedNumberForNumber(123456789.25);
    formatter.formattedNumberForNumber(7.0);
    EXPECT_EQ(utf8(first), "123456789.25");
}

template <class Result>
constexpr bool isString = std::is_same_v<Result, std::u16string>;
using Formatter = TXNumberFormatter&;
static_assert(isString<decltype(std::declval<Formatter>().stringForNumber())>);
static_assert(isString<decltype(std::declval<Formatter>().roundToSignificantFigures(1))>);
static_assert(isString<decltype(std::declval<Formatter>().roundToDecimal(1))>);
static_assert(isString<decltype(std::declval<Formatter>().binaryNumberForNumber())>);
static_assert(isString<decltype(std::declval<Formatter>().octalNumberForNumber())>);
static_assert(isString<decltype(std::declval<Formatter>().hexNumberForNumber())>);

TEST(TXNumberFormatter, givesStringsThatTheNextStepDoesNotTouch) {
    TXNumberFormatter formatter;
    formatter.formattedNumberForNumber(-20.75);
    const std::u16string texts[] = {
        formatter.roundToSignificantFigures(3), formatter.stringForNumber(),      formatter.roundToDecimal(1),
        formatter.binaryNumberForNumber(),      formatter.octalNumberForNumber(), formatter.hexNumberForNumber()};
    const char* const expected[] = {"-20.8", "-20.8", "-20.8", "-0b0001 0100", "-0o24", "-0x14"};
    for (std::size_t step = 0; step < std::size(texts); ++step) {
        EXPECT_EQ(utf8(texts[step]), expected[step]);
    }
}

TEST(NotFinite, isLoadedAsZero) {
    TXNumberFormatter formatter;
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(-infinity)), "-inf");
    EXPECT_EQ(utf8(formatter.logMasterRoundingNumber()), "(0)");
    EXPECT_EQ(formatter.masterDecimalLocation(), 1);
    EXPECT_EQ(utf8(formatter.roundToDecimal(2)), "0.00");
}

TEST(NotFinite, isTheSameUnderEverySetting) {
    for (const int type : {0, 1, 2, 3, 4, 5, 6, 7, 8}) {
        for (const auto& digits : {automatic, figures(3), places(2), bare(0)}) {
            SCOPED_TRACE(type);
            EXPECT_EQ(answer(type, digits, infinity, u","), "inf");
            EXPECT_EQ(answer(type, digits, -infinity, u","), "-inf");
            EXPECT_EQ(answer(type, digits, nan, u","), "nan");
            EXPECT_EQ(answer(type, digits, -nan, u","), "nan");
        }
    }
}

struct GroupCase {
    const char* name;
    int type;
    DigitChoice digits;
    double number;
    const char16_t* separator;
    const char* text;
};
void PrintTo(const GroupCase& row, std::ostream* out) { *out << row.text; }
class Separators : public testing::TestWithParam<GroupCase> {};

TEST_P(Separators, standBetweenGroupsOfThree) {
    const GroupCase& row = GetParam();
    EXPECT_EQ(answer(row.type, row.digits, row.number, row.separator), row.text);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, Separators, testing::Values(
    //        name                     type digits     number           separator text
    GroupCase{"Zero",                  1,   automatic, 0.0,             u",",     "0"},
    GroupCase{"OneDigit",              1,   automatic, 7.0,             u",",     "7"},
    GroupCase{"ThreeDigits",           1,   automatic, 999.0,           u",",     "999"},
    GroupCase{"FourDigits",            1,   automatic, 1234.0,          u",",     "1,234"},
    GroupCase{"FiveDigits",            1,   automatic, 12345.0,         u",",     "12,345"},
    GroupCase{"SixDigits",             1,   automatic, 123456.0,        u",",     "123,456"},
    GroupCase{"SevenDigits",           1,   automatic, 1234567.0,       u",",     "1,234,567"},
    GroupCase{"Fraction",              1,   automatic, 1234567.891,     u",",     "1,234,567.891"},
    GroupCase{"NotInTheFraction",      1,   automatic, 0.12345,         u",",     "0.12345"},
    GroupCase{"LongFraction",          1,   automatic, 1234.5678901,    u",",     "1,234.5678901"},
    GroupCase{"Negative",              1,   automatic, -1234.5,         u",",     "-1,234.5"},
    GroupCase{"NegativeThreeDigits",   1,   automatic, -123.0,          u",",     "-123"},
    GroupCase{"FilledZeros",           1,   automatic, 1e14,            u",",     "100,000,000,000,000"},
    GroupCase{"ExponentForm",          1,   automatic, 1e15,            u",",     "1e15"},
    GroupCase{"Blank",                 1,   automatic, 1234567.0,       u" ",     "1 234 567"},
    GroupCase{"Apostrophe",            1,   automatic, 1234567.0,       u"'",     "1'234'567"},
    GroupCase{"Empty",                 1,   automatic, 1234567.5,       u"",      "1234567.5"},
    GroupCase{"Long",                  1,   automatic, -1234567.5,      u"<->",   "-1<->234<->567.5"},
    GroupCase{"NotAscii",              1,   automatic, 1234.0,          u"\u2009", "1\xE2\x80\x89" "234"},
    GroupCase{"FiguresCarryToAGroup",  1,   figures(1), 999.0,          u",",     "1,000"},
    GroupCase{"Places",                1,   places(2), 1234.0,          u",",     "1,234.00"},
    GroupCase{"PlacesRoundedToZero",   1,   places(2), -0.001,          u",",     "0.00"},
    GroupCase{"Scientific",            2,   automatic, 123456.0,        u",",     "1.23456e5"},
    GroupCase{"Engineering",           3,   automatic, 123456.0,        u",",     "123.456e3"},
    GroupCase{"Percent",               4,   automatic, 12.345,          u",",     "1,234.5%"},
    GroupCase{"NegativePercentPlaces", 4,   places(1), -12.0,           u",",     "-1,200.0%"},
    GroupCase{"AnotherCode",           8,   automatic, 1e21,            u",",     "1,000,000,000,000,000,000,000"}
), [](const auto& test) { return test.param.name; });
// clang-format on

// What is read back ends at the first separator: the digits before it are all zero here.
TEST(StringForNumber, hasNoSignWhereItReadsAsZero) {
    TXNumberFormatterSettings settings;
    settings.setThousandsSeparators(true);
    TXNumberFormatter formatter(&settings);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(-1234.0)), "-1,234");
    formatter.addZerosToBeginning(3);
    EXPECT_EQ(utf8(formatter.stringForNumber()), "0,001.234");

    // The characters around the digits.
    for (const std::u16string_view separator : {u"/", u":"}) {
        SCOPED_TRACE(utf8(separator));
        settings.setThousandsCharacter(separator);
        formatter.formattedNumberForNumber(-1234.0);
        formatter.addZerosToBeginning(3);
        EXPECT_EQ(utf8(formatter.stringForNumber()), "0" + utf8(separator) + "001.234");
    }

    settings.setThousandsSeparators(false);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(-1234.5)), "-1234.5");
    formatter.addZerosToBeginning(3);
    EXPECT_EQ(utf8(formatter.stringForNumber()), "-0001.2345");
}

TEST(StringForNumber, readsBackUpToASecondPoint) {
    TXNumberFormatterSettings settings;
    settings.setThousandsSeparators(true);
    settings.setThousandsCharacter(u".");
    TXNumberFormatter formatter(&settings);
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(-1234567.0)), "-1.234.567");
    formatter.addZerosToBeginning(4);  // 0000123|4567, of which 7 stand before the point
    EXPECT_EQ(utf8(formatter.stringForNumber()), "0.000.123.4567");

    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(-1234567.0)), "-1.234.567");
    formatter.addZerosToBeginning(3);
    EXPECT_EQ(utf8(formatter.stringForNumber()), "-0.001.234.567");
}

TEST(StringForNumber, groupsFromThePointThoughItLiesBeyondTheDigits) {
    TXNumberFormatterSettings settings;
    settings.setThousandsSeparators(true);
    const struct {
        double number;
        const char* text;
    } rows[] = {{12e3, "12"}, {12e2, "1,2"}, {1234e2, "123,4"}, {1234e3, "1,234"}, {1234e4, "12,34"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        TXNumberFormatter formatter(&settings);
        formatter.refreshFormatterSettings();
        formatter.setNumber(row.number);
        formatter.copyMasterNumberIntoRoundingNumber();
        EXPECT_EQ(utf8(formatter.stringForNumber()), row.text);
    }
}

TEST(StringForNumber, hasNoSeparatorsWhereNoDigitStandsBeforeThePoint) {
    TXNumberFormatterSettings settings;
    settings.setThousandsSeparators(true);
    TXNumberFormatter formatter(&settings);
    formatter.refreshFormatterSettings();
    formatter.setNumber(0.12345);
    formatter.copyMasterNumberIntoRoundingNumber();
    EXPECT_EQ(formatter.decimalLocation(), 0);
    EXPECT_EQ(utf8(formatter.stringForNumber()), "12345");
}

TEST(StringForNumber, writesAnExponentThatIsNotZero) {
    TXNumberFormatter formatter;
    formatter.setNumber(-1.5e-20);
    formatter.copyMasterNumberIntoRoundingNumber();
    EXPECT_FALSE(formatter.displayExponent());
    EXPECT_EQ(utf8(formatter.stringForNumber()), "-1.5e-20");
}

TEST(StringForNumber, writesNoPointWhereNoDigitStandsBeforeIt) {
    TXNumberFormatter formatter;
    formatter.setNumber(0.25);
    formatter.copyMasterNumberIntoRoundingNumber();
    EXPECT_EQ(formatter.decimalLocation(), 0);
    EXPECT_EQ(utf8(formatter.stringForNumber()), "25");
}

}  // namespace
