// What an answer looks like in decimal, scientific, engineering and percent form, under each digit choice.
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "tests/format/answers.h"

namespace {

constexpr double largest = std::numeric_limits<double>::max();

class Decimal : public testing::TestWithParam<AnswerCase> {};
class Scientific : public testing::TestWithParam<AnswerCase> {};
class Engineering : public testing::TestWithParam<AnswerCase> {};
class Percent : public testing::TestWithParam<AnswerCase> {};
class OtherCodes : public testing::TestWithParam<AnswerCase> {};

TEST_P(Decimal, givesTheText) { EXPECT_EQ(answer(1, GetParam().digits, GetParam().number), GetParam().text); }
TEST_P(Scientific, givesTheText) { EXPECT_EQ(answer(2, GetParam().digits, GetParam().number), GetParam().text); }
TEST_P(Engineering, givesTheText) { EXPECT_EQ(answer(3, GetParam().digits, GetParam().number), GetParam().text); }
TEST_P(Percent, givesTheText) { EXPECT_EQ(answer(4, GetParam().digits, GetParam().number), GetParam().text); }
TEST_P(OtherCodes, giveTheText) {
    for (const int type : {-128, -1, 0, 8, 127}) {
        EXPECT_EQ(answer(type, GetParam().digits, GetParam().number), GetParam().text) << type;
    }
}

// clang-format off
const auto nameOf = [](const auto& test) { return test.param.name; };

INSTANTIATE_TEST_SUITE_P(Automatic, Decimal, testing::Values(
    //         name                        digits     number                    text
    AnswerCase{"Zero",                     automatic, 0.0,                      "0"},
    AnswerCase{"NegativeZero",             automatic, -0.0,                     "0"},
    AnswerCase{"One",                      automatic, 1.0,                      "1"},
    AnswerCase{"NegativeWhole",            automatic, -42.0,                    "-42"},
    AnswerCase{"EightDigits",              automatic, 12345678.0,               "12345678"},
    AnswerCase{"ZerosBeforeThePoint",      automatic, -1200000.0,               "-1200000"},
    AnswerCase{"FifteenDigits",            automatic, 999999999999999.0,        "999999999999999"},
    AnswerCase{"NegativeFifteenDigits",    automatic, -999999999999999.0,       "-999999999999999"},
    AnswerCase{"Fraction",                 automatic, -0.5,                     "-0.5"},
    AnswerCase{"WholeAndFraction",         automatic, 1234567.891,              "1234567.891"},
    AnswerCase{"Third",                    automatic, 1.0 / 3,                  "0.33333333333333"},
    AnswerCase{"TwoThirdsAreCut",          automatic, 2.0 / 3,                  "0.66666666666666"},
    AnswerCase{"Exponent14IsPlain",        automatic, 1e14,                     "100000000000000"},
    AnswerCase{"Exponent15IsNot",          automatic, 1e15,                     "1e15"},
    AnswerCase{"SixteenDigitsAreCut",      automatic, 9007199254740991.0,       "9.00719925474099e15"},
    AnswerCase{"TextWithExponent",         automatic, 123456789012345678.0,     "1.23456789012345e17"},
    AnswerCase{"Large",                    automatic, 1e20,                     "1e20"},
    AnswerCase{"NegativeLarge",            automatic, -1e20,                    "-1e20"},
    AnswerCase{"Largest",                  automatic, largest,                  "1.79769313486231e308"},
    AnswerCase{"NegativeLargest",          automatic, -largest,                 "-1.79769313486231e308"},
    AnswerCase{"ExponentMinus5IsPlain",    automatic, 0.00001,                  "0.00001"},
    AnswerCase{"DigitsAtMinus5",           automatic, 0.0000123,                "0.0000123"},
    AnswerCase{"ExponentMinus6IsNot",      automatic, 0.000001,                 "1e-6"},
    AnswerCase{"DigitsAtMinus6",           automatic, -0.00000999,              "-9.99e-6"},
    AnswerCase{"Tiny",                     automatic, -1.5e-10,                 "-1.5e-10"},
    AnswerCase{"Smallest",                 automatic, 5e-324,                   "5e-324"}
), nameOf);

INSTANTIATE_TEST_SUITE_P(FifteenCharacters, Decimal, testing::Values(
    //         name                        digits     number                    text
    AnswerCase{"OneBeforeThePoint",        automatic, 1.2345678901234567,       "1.23456789012345"},
    AnswerCase{"NineBeforeThePoint",       automatic, 123456789.12345679,       "123456789.123456"},
    AnswerCase{"LeadingZeroCounts",        automatic, 0.12345678901234567,      "0.12345678901234"},
    AnswerCase{"EveryLeadingZeroCounts",   automatic, 0.000123456789012345,     "0.00012345678901"},
    AnswerCase{"TheSignDoesNot",           automatic, -0.000123456789012345,    "-0.00012345678901"},
    AnswerCase{"NorDoesThePoint",          automatic, 12.345678901234567,       "12.3456789012345"},
    AnswerCase{"NoZerosInExponentForm",    automatic, 0.00001234567890123456,   "0.0000123456789012345"}
), nameOf);

INSTANTIATE_TEST_SUITE_P(Noise, Decimal, testing::Values(
    //         name                        digits     number                    text
    AnswerCase{"BinarySum",                automatic, 0.1 + 0.2,                "0.3"},
    AnswerCase{"NegativeBinarySum",        automatic, -0.1 - 0.2,               "-0.3"},
    AnswerCase{"NinesToOne",               automatic, 0.9999999999999999,       "1"},
    AnswerCase{"FiveNinesStay",            automatic, 0.99999,                  "0.99999"},
    AnswerCase{"SixNinesGo",               automatic, 0.999999,                 "1"},
    AnswerCase{"FiveZerosStay",            automatic, 1.000001,                 "1.000001"},
    AnswerCase{"SixZerosGo",               automatic, 1.0000001,                "1"},
    AnswerCase{"FiveNinesAfterDigitsStay", automatic, 0.1299999,                "0.1299999"},
    AnswerCase{"SixNinesAfterDigitsGo",    automatic, 0.12999999,               "0.13"},
    AnswerCase{"ThreeDigitsBehindNines",   automatic, 0.999999123,              "1"},
    AnswerCase{"FourDigitsBehindNines",    automatic, 0.9999991234,             "0.9999991234"},
    AnswerCase{"ThreeDigitsBehindZeros",   automatic, 0.1000000123,             "0.1"},
    AnswerCase{"FourDigitsBehindZeros",    automatic, 0.10000001234,            "0.10000001234"},
    AnswerCase{"ThreeBehindButFiveNines",  automatic, 0.99999123,               "0.99999123"},
    AnswerCase{"TwoRunsThatAreTooShort",   automatic, 0.9990009,                "0.9990009"},
    AnswerCase{"NinesThenZeros",           automatic, 0.999000000123,           "0.999"},
    AnswerCase{"ZerosBeforeThePointStay",  automatic, 1000000.5,                "1000000.5"},
    AnswerCase{"ZerosAcrossThePointStay",  automatic, 10000.001,                "10000.001"},
    AnswerCase{"NinesBeforeThePointStay",  automatic, 9999999.5,                "9999999.5"},
    AnswerCase{"NinesAcrossCountFromIt",   automatic, 9999.9999,                "9999.9999"},
    AnswerCase{"NinesOnBothSides",         automatic, 99999999.999999,          "100000000"},
    AnswerCase{"WholeStays",               automatic, 1299.9999999999998,       "1300"},
    AnswerCase{"ZerosAtOnce",              automatic, 12.0000001,               "12"},
    AnswerCase{"NinesBehindLeadingZeros",  automatic, 0.00099999999,            "0.001"},
    AnswerCase{"NinesOfALargeNumber",      automatic, 9.99999999999e20,         "1e21"},
    AnswerCase{"ZerosOfATinyNumber",       automatic, 4.00000000000001e-20,     "4e-20"}
), nameOf);

INSTANTIATE_TEST_SUITE_P(SignificantFigures, Decimal, testing::Values(
    //         name                        digits       number                  text
    AnswerCase{"Zero",                     figures(3),  0.0,                    "0"},
    AnswerCase{"Third",                    figures(3),  1.0 / 3,                "0.333"},
    AnswerCase{"TwoThirds",                figures(3),  2.0 / 3,                "0.667"},
    AnswerCase{"TenFigures",               figures(10), 1.0 / 3,                "0.3333333333"},
    AnswerCase{"NoZerosAdded",             figures(5),  2.0,                    "2"},
    AnswerCase{"CarryMovesThePoint",       figures(2),  9.9999,                 "10"},
    AnswerCase{"CarryToOneFigure",         figures(1),  99.5,                   "100"},
    AnswerCase{"CarryToAWhole",            figures(1),  0.95,                   "1"},
    AnswerCase{"CarryInTheMiddle",         figures(3),  0.1996,                 "0.200"},
    AnswerCase{"ZerosUpToThePoint",        figures(2),  123456.0,               "120000"},
    AnswerCase{"HalfUp",                   figures(2),  1250.0,                 "1300"},
    AnswerCase{"BelowHalf",                figures(2),  1249.0,                 "1200"},
    AnswerCase{"NegativeHalfAwayFromZero", figures(2),  -1250.0,                "-1300"},
    AnswerCase{"FiguresEnough",            figures(6),  -1250.5,                "-1250.5"},
    AnswerCase{"OneFigure",                figures(1),  0.5,                    "0.5"},
    AnswerCase{"NoiseFirst",               figures(10), 0.1 + 0.2,              "0.3"},
    AnswerCase{"SmallPlain",               figures(3),  0.000012345,            "0.0000123"},
    AnswerCase{"SmallWithExponent",        figures(3),  0.000001,               "1e-6"},
    AnswerCase{"CarryOutOfExponentForm",   figures(2),  -0.0000099996,          "-0.000010"},
    AnswerCase{"CarryIntoExponentForm",    figures(3),  999999999999999.0,      "1.00e15"},
    AnswerCase{"LargestPlain",             figures(4),  1e14,                   "100000000000000"},
    AnswerCase{"Large",                    figures(4),  1e15,                   "1e15"},
    AnswerCase{"Largest",                  figures(10), largest,                "1.797693135e308"},
    AnswerCase{"Smallest",                 figures(1),  5e-324,                 "5e-324"},
    AnswerCase{"MoreThanThereAre",         figures(127), 1.5,                   "1.5"},
    AnswerCase{"NegativeNumberOfFigures",  figures(-2), -123.0,                 "0"},
    AnswerCase{"SmallestNumberOfFigures",  figures(-128), 1e300,                "0"}
), nameOf);

INSTANTIATE_TEST_SUITE_P(DecimalPlaces, Decimal, testing::Values(
    //         name                        digits      number                   text
    AnswerCase{"Zero",                     places(2),  0.0,                     "0.00"},
    AnswerCase{"NegativeZero",             places(2),  -0.0,                    "0.00"},
    AnswerCase{"ZeroWithoutZeros",         bare(2),    0.0,                     "0"},
    AnswerCase{"ZeroWithoutPlaces",        places(0),  0.0,                     "0"},
    AnswerCase{"Third",                    places(2),  1.0 / 3,                 "0.33"},
    AnswerCase{"TwoThirds",                places(2),  2.0 / 3,                 "0.67"},
    AnswerCase{"TenPlaces",                places(10), 0.1 + 0.2,               "0.3000000000"},
    AnswerCase{"ZerosAdded",               places(2),  1234.5,                  "1234.50"},
    AnswerCase{"NoZerosAdded",             bare(2),    1234.5,                  "1234.5"},
    AnswerCase{"WholeWithZeros",           places(2),  500.0,                   "500.00"},
    AnswerCase{"WholeWithoutZeros",        bare(2),    500.0,                   "500"},
    AnswerCase{"SmallRoundsUp",            places(2),  0.006,                   "0.01"},
    AnswerCase{"SmallHalfRoundsUp",        places(2),  0.005,                   "0.01"},
    AnswerCase{"SmallBelowHalf",           places(2),  0.0049,                  "0.00"},
    AnswerCase{"SmallToZero",              places(2),  0.001,                   "0.00"},
    AnswerCase{"SmallToZeroWithoutZeros",  bare(2),    0.001,                   "0"},
    AnswerCase{"SmallRoundsUpBare",        bare(2),    0.006,                   "0.01"},
    AnswerCase{"NegativeRoundedAway",      places(2),  -0.0004,                 "0.00"},
    AnswerCase{"NegativeRoundedAwayBare",  bare(2),    -0.0004,                 "0"},
    AnswerCase{"NegativeRoundsUp",         places(2),  -0.006,                  "-0.01"},
    AnswerCase{"OneToZeroPlaces",          places(0),  1.0,                     "1"},
    AnswerCase{"HalfToWhole",              places(0),  2.5,                     "3"},
    AnswerCase{"HalfToOne",                places(0),  0.5,                     "1"},
    AnswerCase{"NegativeHalfToOne",        places(0),  -0.5,                    "-1"},
    AnswerCase{"BelowHalfToZero",          places(0),  -0.4,                    "0"},
    AnswerCase{"FarBelowHalfToZero",       places(0),  0.05,                    "0"},
    AnswerCase{"DecimalHalfNotBinary",     places(2),  1.005,                   "1.01"},
    AnswerCase{"AnotherDecimalHalf",       places(2),  2.675,                   "2.68"},
    AnswerCase{"Carry",                    places(1),  9.99,                    "10.0"},
    AnswerCase{"CarryWithoutZeros",        bare(1),    9.99,                    "10"},
    AnswerCase{"CarryOverThePoint",        places(2),  999.995,                 "1000.00"},
    AnswerCase{"CarriedZerosStay",         bare(2),    999.995,                 "1000.0"},
    AnswerCase{"CarryToAWhole",            places(0),  99.5,                    "100"},
    AnswerCase{"CarryToAWholeBare",        bare(0),    99.5,                    "100"},
    AnswerCase{"CarryFromOneDigit",        bare(0),    9.5,                     "10"},
    AnswerCase{"NoLowerThreshold",         places(10), 1e-10,                   "0.0000000001"},
    AnswerCase{"TinyRoundsUp",             places(10), 5e-11,                   "0.0000000001"},
    AnswerCase{"TinyToZero",               places(10), 4e-11,                   "0.0000000000"},
    AnswerCase{"TinyFarBelow",             places(2),  1e-300,                  "0.00"},
    AnswerCase{"Smallest",                 bare(10),   -5e-324,                 "0"},
    AnswerCase{"LargestPlain",             places(2),  1e14,                    "100000000000000.00"},
    AnswerCase{"LargestPlainBare",         bare(2),    1e14,                    "100000000000000"},
    AnswerCase{"CutFractionBefore1e15",    places(2),  999999999999999.9,       "999999999999999.00"},
    AnswerCase{"Large",                    places(2),  1e15,                    "1.00e15"},
    AnswerCase{"LargeBare",                bare(2),    1e15,                    "1e15"},
    AnswerCase{"LargeRounded",             places(2),  -1.23456e15,             "-1.23e15"},
    AnswerCase{"Largest",                  places(10), largest,                 "1.7976931349e308"},
    AnswerCase{"NegativePlaces",           places(-2), 12345.0,                 "12300"},
    AnswerCase{"NegativePlacesRoundUp",    places(-2), 12355.0,                 "12400"},
    AnswerCase{"NegativePlacesUpFromNone", places(-2), 50.0,                    "100"},
    AnswerCase{"NegativePlacesToZero",     places(-2), -49.0,                   "0"},
    AnswerCase{"NegativePlacesOfZero",     places(-2), 0.0,                     "0"},
    AnswerCase{"SmallestNumberOfPlaces",   places(-128), 99999.0,               "0"}
), nameOf);

INSTANTIATE_TEST_SUITE_P(All, Scientific, testing::Values(
    //         name                        digits      number                   text
    AnswerCase{"Zero",                     automatic,  0.0,                     "0e0"},
    AnswerCase{"NegativeZero",             automatic,  -0.0,                    "0e0"},
    AnswerCase{"One",                      automatic,  1.0,                     "1e0"},
    AnswerCase{"Ten",                      automatic,  10.0,                    "1e1"},
    AnswerCase{"Digits",                   automatic,  12345.0,                 "1.2345e4"},
    AnswerCase{"NegativeSmall",            automatic,  -0.00012,                "-1.2e-4"},
    AnswerCase{"NoiseToADigit",            automatic,  0.1 + 0.2,               "3e-1"},
    AnswerCase{"NoiseToOne",               automatic,  0.999999,                "1e0"},
    AnswerCase{"NoiseLeavesZeros",         automatic,  1299.9999999999998,      "1.300e3"},
    AnswerCase{"LoadedZerosDoNot",         automatic,  1300.0,                  "1.3e3"},
    AnswerCase{"Largest",                  automatic,  largest,                 "1.79769313486231e308"},
    AnswerCase{"Tiny",                     automatic,  -1e-300,                 "-1e-300"},
    AnswerCase{"Smallest",                 automatic,  5e-324,                  "5e-324"},
    AnswerCase{"Figures",                  figures(3), 12345.0,                 "1.23e4"},
    AnswerCase{"FiguresAddNoZeros",        figures(3), 1.0,                     "1e0"},
    AnswerCase{"FiguresOfZero",            figures(3), 0.0,                     "0e0"},
    AnswerCase{"FiguresCarry",             figures(3), 9.996,                   "1.00e1"},
    AnswerCase{"FiguresCarrySmall",        figures(4), 0.00099996,              "1.000e-3"},
    AnswerCase{"OneFigure",                figures(1), -15.0,                   "-2e1"},
    AnswerCase{"Places",                   places(2),  12345.0,                 "1.23e4"},
    AnswerCase{"PlacesAddZeros",           places(2),  1.0,                     "1.00e0"},
    AnswerCase{"PlacesWithoutZeros",       bare(2),    1.0,                     "1e0"},
    AnswerCase{"PlacesOfZero",             places(2),  0.0,                     "0.00e0"},
    AnswerCase{"PlacesOfZeroBare",         bare(2),    0.0,                     "0e0"},
    AnswerCase{"NoPlaces",                 places(0),  15.0,                    "2e1"},
    AnswerCase{"NoPlacesCarry",            places(0),  95.0,                    "1e2"},
    AnswerCase{"PlacesCarry",              places(1),  99999.0,                 "1.0e5"},
    AnswerCase{"PlacesCarrySmall",         places(1),  -0.00995,                "-1.0e-2"},
    AnswerCase{"TenPlaces",                places(10), 3.141592653589793,       "3.1415926536e0"},
    AnswerCase{"PlacesOfTheLargest",       places(10), largest,                 "1.7976931349e308"},
    AnswerCase{"PlacesOfTheSmallest",      places(1),  -5e-324,                 "-5.0e-324"},
    AnswerCase{"NegativePlaces",           places(-2), -12345.0,                "0e0"}
), nameOf);

INSTANTIATE_TEST_SUITE_P(All, Engineering, testing::Values(
    //         name                        digits      number                   text
    AnswerCase{"Zero",                     automatic,  0.0,                     "0e0"},
    AnswerCase{"NegativeZero",             automatic,  -0.0,                    "0e0"},
    AnswerCase{"One",                      automatic,  1.0,                     "1e0"},
    AnswerCase{"Ten",                      automatic,  10.0,                    "10e0"},
    AnswerCase{"Hundred",                  automatic,  100.0,                   "100e0"},
    AnswerCase{"Thousand",                 automatic,  1000.0,                  "1e3"},
    AnswerCase{"HundredThousand",          automatic,  1e5,                     "100e3"},
    AnswerCase{"Digits",                   automatic,  12345.0,                 "12.345e3"},
    AnswerCase{"SixDigits",                automatic,  999999.0,                "999.999e3"},
    AnswerCase{"Tenth",                    automatic,  0.1,                     "100e-3"},
    AnswerCase{"Hundredth",                automatic,  0.01,                    "10e-3"},
    AnswerCase{"Thousandth",               automatic,  0.001,                   "1e-3"},
    AnswerCase{"TenThousandth",            automatic,  0.0001,                  "100e-6"},
    AnswerCase{"Small",                    automatic,  0.000015,                "15e-6"},
    AnswerCase{"Smaller",                  automatic,  -1.5e-7,                 "-150e-9"},
    AnswerCase{"LargeKeepsMultipleOf3",    automatic,  -2e22,                   "-20e21"},
    AnswerCase{"Exponent15",               automatic,  1e15,                    "1e15"},
    AnswerCase{"Largest",                  automatic,  largest,                 "179.769313486231e306"},
    AnswerCase{"Smallest",                 automatic,  5e-324,                  "5e-324"},
    AnswerCase{"NoiseLeavesZeros",         automatic,  1299.9999999999998,      "1.300e3"},
    AnswerCase{"Figures",                  figures(2), 12345.0,                 "12e3"},
    AnswerCase{"FiguresFilledToThePoint",  figures(1), 12345.0,                 "10e3"},
    AnswerCase{"FiguresCarry",             figures(1), 950.0,                   "1e3"},
    AnswerCase{"FiguresCarryWithZeros",    figures(3), 999.96,                  "1.00e3"},
    AnswerCase{"FiguresOfZero",            figures(3), 0.0,                     "0e0"},
    AnswerCase{"Places",                   places(1),  12345.0,                 "12.3e3"},
    AnswerCase{"PlacesRoundUp",            places(2),  12345.0,                 "12.35e3"},
    AnswerCase{"PlacesAddZeros",           places(2),  500.0,                   "500.00e0"},
    AnswerCase{"FilledToThePointAnyway",   bare(2),    500.0,                   "500e0"},
    AnswerCase{"FilledWhenSmall",          bare(1),    0.5,                     "500e-3"},
    AnswerCase{"PlacesOfZero",             places(2),  0.0,                     "0.00e0"},
    AnswerCase{"PlacesOfZeroBare",         bare(2),    0.0,                     "0e0"},
    AnswerCase{"NoPlaces",                 places(0),  0.00123,                 "1e-3"},
    AnswerCase{"NoPlacesRoundUp",          places(0),  0.0126,                  "13e-3"},
    AnswerCase{"CarryToANewGroup",         places(1),  999.96,                  "1.000e3"},
    AnswerCase{"CarryToANewGroupBare",     bare(1),    999.96,                  "1.000e3"},
    AnswerCase{"CarryInTheGroup",          places(1),  9.96,                    "10.0e0"},
    AnswerCase{"CarryInTheGroupBare",      bare(1),    9.96,                    "10e0"},
    AnswerCase{"CarryFilled",              places(0),  -99999.0,                "-100e3"},
    AnswerCase{"PlacesAtExponent14",       places(1),  2e14,                    "200.0e12"},
    AnswerCase{"PlacesAbove14AreScientific", places(2), 1.5e16,                 "1.50e16"},
    AnswerCase{"PlacesAbove14Bare",        bare(2),    -1.5e16,                 "-1.5e16"},
    AnswerCase{"PlacesOfATinyNumber",      places(1),  -1.25e-20,               "-12.5e-21"},
    AnswerCase{"NegativePlacesRoundUp",    places(-3), 500.0,                   "1e3"},
    AnswerCase{"NegativePlacesToZero",     places(-4), -500.0,                  "0e0"}
), nameOf);

INSTANTIATE_TEST_SUITE_P(All, Percent, testing::Values(
    //         name                        digits      number                   text
    AnswerCase{"Zero",                     automatic,  0.0,                     "0%"},
    AnswerCase{"NegativeZero",             automatic,  -0.0,                    "0%"},
    AnswerCase{"One",                      automatic,  1.0,                     "100%"},
    AnswerCase{"Quarter",                  automatic,  0.25,                    "25%"},
    AnswerCase{"Negative",                 automatic,  -0.5,                    "-50%"},
    AnswerCase{"Third",                    automatic,  1.0 / 3,                 "33.333333333333%"},
    AnswerCase{"Exponent14IsPlain",        automatic,  1e12,                    "100000000000000%"},
    AnswerCase{"Exponent15IsNot",          automatic,  1e13,                    "1e15%"},
    AnswerCase{"ExponentMinus5IsPlain",    automatic,  1e-7,                    "0.00001%"},
    AnswerCase{"ExponentMinus6IsNot",      automatic,  -1e-8,                   "-1e-6%"},
    AnswerCase{"LargestIsNoInfinity",      automatic,  largest,                 "1.79769313486231e310%"},
    AnswerCase{"Noise",                    automatic,  0.1 + 0.2,               "30%"},
    AnswerCase{"Figures",                  figures(2), 0.25,                    "25%"},
    AnswerCase{"FiguresOfAThird",          figures(3), 1.0 / 3,                 "33.3%"},
    AnswerCase{"FiguresCarry",             figures(2), 0.0999,                  "10%"},
    AnswerCase{"FiguresCarryFilled",       figures(1), 0.995,                   "100%"},
    AnswerCase{"FiguresOfZero",            figures(3), 0.0,                     "0%"},
    AnswerCase{"Places",                   places(1),  0.5,                     "50.0%"},
    AnswerCase{"PlacesWithoutZeros",       bare(1),    0.5,                     "50%"},
    AnswerCase{"PlacesOfASmallNumber",     places(1),  0.001234,                "0.1%"},
    AnswerCase{"PlacesOfZero",             places(2),  0.0,                     "0.00%"},
    AnswerCase{"PlacesOfZeroBare",         bare(2),    0.0,                     "0%"},
    AnswerCase{"PlacesRoundUp",            places(2),  -0.00005,                "-0.01%"},
    AnswerCase{"PlacesToZero",             places(2),  -0.00004,                "0.00%"},
    AnswerCase{"PlacesCarry",              places(0),  0.995,                   "100%"},
    AnswerCase{"PlacesCarryBare",          bare(0),    0.995,                   "100%"},
    AnswerCase{"PlacesAtExponent14",       places(2),  1e12,                    "100000000000000.00%"},
    AnswerCase{"PlacesAbove14",            places(2),  1e13,                    "1.00e15%"},
    AnswerCase{"PlacesAbove14Bare",        bare(2),    -1e13,                   "-1e15%"}
), nameOf);

INSTANTIATE_TEST_SUITE_P(All, OtherCodes, testing::Values(
    //         name                        digits      number                   text
    AnswerCase{"Zero",                     automatic,  0.0,                     "0"},
    AnswerCase{"LargeIsPlain",             automatic,  -1e20,                   "-100000000000000000000"},
    AnswerCase{"SmallIsPlain",             automatic,  1e-10,                   "0.0000000001"},
    AnswerCase{"Figures",                  figures(2), 12345.0,                 "12000"},
    AnswerCase{"PlacesChangeNothing",      places(0),  12.5,                    "12.5e0"},
    AnswerCase{"ZeroBeforeThePoint",       places(2),  0.5,                     "0.5e0"},
    AnswerCase{"LoadedExponent",           places(2),  0.05,                    "0.5e-1"},
    AnswerCase{"FilledToThePoint",         places(2),  500.0,                   "500e0"},
    AnswerCase{"FilledToThePointBare",     bare(2),    500.0,                   "500e0"},
    AnswerCase{"PlacesOfZero",             places(2),  0.0,                     "0e0"},
    AnswerCase{"PlacesAbove14",            places(2),  1e15,                    "1.00e15"}
), nameOf);
// clang-format on

TEST(OtherCodes, writeTheLargestNumberOut) {
    EXPECT_EQ(answer(8, automatic, largest), "179769313486231" + std::string(294, '0'));
    EXPECT_EQ(answer(8, automatic, -5e-324), "-0." + std::string(323, '0') + "5");
}

TEST(DecimalPlaces, mayBeAsManyAsASettingHolds) {
    EXPECT_EQ(answer(1, places(127), 1.5), "1.5" + std::string(126, '0'));
    EXPECT_EQ(answer(1, places(127), 123456789012345.0), "123456789012345." + std::string(127, '0'));
    EXPECT_EQ(answer(1, places(127), 1.25e-126), "0." + std::string(125, '0') + "13");
    EXPECT_EQ(answer(2, places(127), 1.5), "1.5" + std::string(126, '0') + "e0");
    EXPECT_EQ(answer(3, places(127), 15.0), "15." + std::string(127, '0') + "e0");
}

// The drivers and what they are made of.

TEST(SciPonent, isThePowerOfTheFirstDigit) {
    struct Row {
        double number;
        int exponent;
    };
    const Row rows[] = {{0.0, 0}, {1.0, 0}, {9.5, 0}, {10.0, 1}, {0.1, -1}, {0.00123, -3}, {1e17, 17}, {1e-7, -7}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        TXNumberFormatter formatter;
        formatter.setNumber(row.number);
        formatter.copyMasterNumberIntoRoundingNumber();
        EXPECT_EQ(formatter.sciPonent(), row.exponent);
    }
}

TEST(EngLength, isTheLengthOfTheFirstGroup) {
    struct Row {
        int exponent;
        int length;
    };
    const Row rows[] = {{0, 1},
                        {1, 2},
                        {2, 3},
                        {3, 1},
                        {4, 2},
                        {5, 3},
                        {308, 3},
                        {-1, 3},
                        {-2, 2},
                        {-3, 1},
                        {-4, 3},
                        {-5, 2},
                        {-6, 1},
                        {-324, 1},
                        {std::numeric_limits<int>::max(), 2},
                        {std::numeric_limits<int>::min(), 2}};
    for (const auto& row : rows) {
        EXPECT_EQ(TXNumberFormatter::engLength(row.exponent), row.length) << row.exponent;
    }
}

TEST(RoundingDrivers, leaveTheMasterDigitsForTheNext) {
    TXNumberFormatter formatter;
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(-1234.567)), "-1234.567");
    EXPECT_EQ(utf8(formatter.roundToSignificantFigures(2)), "-1200");
    EXPECT_EQ(utf8(formatter.roundToDecimal(1)), "-1234.6");
    EXPECT_EQ(utf8(formatter.roundToSignificantFigures(0)), "0");
    EXPECT_EQ(utf8(formatter.roundToDecimal(2)), "-1234.57");
    EXPECT_EQ(utf8(formatter.roundToSignificantFigures(-1)), "-1234.567");
}

TEST(RoundingDrivers, roundAWholeNumberThatWasWrittenAsItIs) {
    TXNumberFormatter formatter;
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(-1250.0)), "-1250");
    EXPECT_EQ(utf8(formatter.roundToSignificantFigures(2)), "-1300");
    EXPECT_EQ(utf8(formatter.roundToDecimal(2)), "-1250.00");
    EXPECT_EQ(utf8(formatter.formattedNumberForNumber(7.0)), "7");
    EXPECT_EQ(utf8(formatter.roundToDecimal(1)), "7.0");
}

TEST(RoundingDrivers, roundToNoFigures) {
    TXNumberFormatter formatter;
    formatter.setNumber(7.0);
    EXPECT_EQ(utf8(formatter.roundToSignificantFigures(0)), "10");
    formatter.setNumber(3.0);
    EXPECT_EQ(utf8(formatter.roundToSignificantFigures(0)), "0");
}

TEST(RoundingDrivers, takeAnyNumber) {
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    TXNumberFormatter formatter;
    EXPECT_EQ(utf8(formatter.roundToSignificantFigures(most)), "");  // no digits are loaded yet
    formatter.setNumber(2.5);
    EXPECT_EQ(utf8(formatter.roundToSignificantFigures(most)), "2.5");
    EXPECT_EQ(utf8(formatter.roundToSignificantFigures(least)), "0");
    EXPECT_EQ(utf8(formatter.roundToDecimal(least)), "0");
    EXPECT_EQ(utf8(formatter.roundToDecimal(most)), "2.5" + std::string(DigitList::capacity - 2, '0'));
}

TEST(SetExponentsToZero, fillsTheDigitsUpToTheirFirstPlace) {
    struct Row {
        double number;
        const char16_t* digits;
        int decimalLocation;
        int exponent;
    };
    const Row rows[] = {
        {12.5, u"(1, 2, 5)", 2, 0},       // reaches its first place: left alone
        {12.0, u"(1, 2)", 2, 0},          // just reaches it
        {120.0, u"(1, 2, 0)", 4, 0},      // a zero is missing
        {1200.0, u"(1, 2, 0, 0)", 5, 0},  // filled, and the point moves one place too far
        {1.5e17, u"(1, 5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0)", 19, 0},
        {1.5e-10, u"(1, 5)", 3, 0},  // no list is long enough for a negative exponent
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        TXNumberFormatter formatter;
        formatter.setNumber(row.number);
        formatter.copyMasterNumberIntoRoundingNumber();
        formatter.setExponentsToZero();
        EXPECT_EQ(utf8(formatter.logRoundingNumber()), utf8(row.digits));
        EXPECT_EQ(formatter.decimalLocation(), row.decimalLocation);
        EXPECT_EQ(formatter.exponent(), row.exponent);
    }
}

}  // namespace
