#include "engine/records/numberText.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

struct TextCase {
    const char* name;
    double number;
    const char* text;
};
void PrintTo(const TextCase& row, std::ostream* out) { *out << row.text; }
class NumberText : public testing::TestWithParam<TextCase> {};

TEST_P(NumberText, isTheShortestInTheLayoutOf17Digits) {
    EXPECT_EQ(utf8(numberText(GetParam().number)), GetParam().text);
}

TEST_P(NumberText, isTheSameInABuffer) {
    std::array<char, numberTextCapacity> buffer{};
    const auto text = writeNumberText(GetParam().number, buffer);
    EXPECT_EQ(text, GetParam().text);
    EXPECT_EQ(text.data(), buffer.data());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, NumberText, testing::Values(
    //       name                        number                     text
    TextCase{"Zero",                     0.0,                       "0"},
    TextCase{"NegativeZero",             -0.0,                      "-0"},
    TextCase{"One",                      1.0,                       "1"},
    TextCase{"TrailingZeros",            1200.0,                    "1200"},
    TextCase{"Negative",                 -2.5,                      "-2.5"},
    TextCase{"ShortDecimal",             0.1,                       "0.1"},
    TextCase{"SeventeenDigits",          0.1 + 0.2,                 "0.30000000000000004"},
    TextCase{"SixteenDigits",            1.0 / 3,                   "0.3333333333333333"},
    TextCase{"WholeAndFraction",         1234567.891,               "1234567.891"},
    TextCase{"SmallestPlain",            0.0001,                    "0.0001"},
    TextCase{"SmallestPlainLong",        0.00012345678901234567,    "0.00012345678901234567"},
    TextCase{"BelowSmallestPlain",       0.00009999,                "9.999e-05"},
    TextCase{"SmallPowerOfTen",          0.00001,                   "1e-05"},
    TextCase{"ExponentOfTwoDigits",      1.5e-10,                   "1.5e-10"},
    TextCase{"ExponentOfThreeDigits",    -2.25e-100,                "-2.25e-100"},
    TextCase{"LargestPlainPowerOfTen",   1e16,                      "10000000000000000"},
    TextCase{"PaddedShortestDigits",     72057594037927936.0,       "72057594037927940"},
    TextCase{"SmallestLarge",            1e17,                      "1e+17"},
    TextCase{"LargeWithDigits",          1.25e20,                   "1.25e+20"},
    TextCase{"TwoToThe53",               9007199254740992.0,        "9007199254740992"},
    TextCase{"Largest",                  1.7976931348623157e308,    "1.7976931348623157e+308"},
    TextCase{"Longest",                  -2.2250738585072014e-308,  "-2.2250738585072014e-308"},
    TextCase{"SmallestSubnormal",        5e-324,                    "5e-324"},
    TextCase{"Infinity",                 infinity,                  "inf"},
    TextCase{"NegativeInfinity",         -infinity,                 "-inf"},
    TextCase{"NotANumber",               nan,                       "nan"},
    TextCase{"NegativeNotANumber",       -nan,                      "nan"}
), [](const auto& test) { return test.param.name; });
// clang-format on

struct DecimalCase {
    double magnitude;
    const char* digits;
    int exponent;
};

TEST(ShortestDecimal, hasTheDigitsAndThePowerOfTheFirst) {
    const DecimalCase rows[] = {
        {1.0, "1", 0},        {5e-324, "5", -324},  {1.7976931348623157e308, "17976931348623157", 308},
        {1234.5, "12345", 3}, {0.00625, "625", -3}, {0.1 + 0.2, "30000000000000004", -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.digits);
        const ShortestDecimal decimal = shortestDecimal(row.magnitude);
        EXPECT_EQ(decimal.digits(), row.digits);
        EXPECT_EQ(decimal.count, static_cast<int>(decimal.digits().size()));
        EXPECT_EQ(decimal.exponent, row.exponent);
    }
}

TEST(NumberText, readsBackToTheSameDouble) {
    std::mt19937_64 random(1);
    for (int round = 0; round < 20000; ++round) {
        const auto number = std::bit_cast<double>(random());
        if (!std::isfinite(number)) continue;
        const std::string text = utf8(numberText(number));
        double back = 0.0;
        const auto read = std::from_chars(text.data(), text.data() + text.size(), back);
        ASSERT_EQ(read.ptr, text.data() + text.size()) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(number)) << text;
    }
}

}  // namespace
