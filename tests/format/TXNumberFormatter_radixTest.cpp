// Answers in binary, octal and hexadecimal.
#include <cmath>
#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "tests/format/answers.h"

namespace {

struct RadixCase {
    const char* name;
    double number;
    const char* binary;
    const char* octal;
    const char* hexadecimal;
};
void PrintTo(const RadixCase& row, std::ostream* out) { *out << row.hexadecimal; }
class Radix : public testing::TestWithParam<RadixCase> {};

TEST_P(Radix, givesTheTexts) {
    const RadixCase& row = GetParam();
    EXPECT_EQ(answer(5, automatic, row.number), row.binary);
    EXPECT_EQ(answer(6, automatic, row.number), row.octal);
    EXPECT_EQ(answer(7, automatic, row.number), row.hexadecimal);
}

TEST_P(Radix, doesNotAskForDigitsAndSeparators) {
    for (const auto& digits : {figures(1), places(2), bare(0)}) {
        EXPECT_EQ(answer(5, digits, GetParam().number, u","), GetParam().binary);
        EXPECT_EQ(answer(6, digits, GetParam().number, u","), GetParam().octal);
        EXPECT_EQ(answer(7, digits, GetParam().number, u","), GetParam().hexadecimal);
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, Radix, testing::Values(
    //        name                number          binary                                     octal             hexadecimal
    RadixCase{"Zero",             0.0,            "0b0",                                     "0o0",            "0x0"},
    RadixCase{"NegativeZero",     -0.0,           "0b0",                                     "0o0",            "0x0"},
    RadixCase{"Half",             0.5,            "0b0 (Floored)",                           "0o0 (Floored)",  "0x0 (Floored)"},
    RadixCase{"HalfHasNoSign",    -0.5,           "0b0 (Floored)",                           "0o0 (Floored)",  "0x0 (Floored)"},
    RadixCase{"JustBelowOne",     0.9999999999999999, "0b0 (Floored)",                       "0o0 (Floored)",  "0x0 (Floored)"},
    RadixCase{"JustAboveMinusOne", -0.9999999999999999, "0b0 (Floored)",                     "0o0 (Floored)",  "0x0 (Floored)"},
    RadixCase{"Smallest",         5e-324,         "0b0 (Floored)",                           "0o0 (Floored)",  "0x0 (Floored)"},
    RadixCase{"One",              1.0,            "0b0001",                                  "0o1",            "0x1"},
    RadixCase{"MinusOne",         -1.0,           "-0b0001",                                 "-0o1",           "-0x1"},
    RadixCase{"OneAndAHalf",      1.5,            "0b0001 (Floored)",                        "0o1 (Floored)",  "0x1 (Floored)"},
    RadixCase{"MinusOneAndAHalf", -1.5,           "-0b0001",                                 "-0o1",           "-0x1"},
    RadixCase{"NegativeFraction", -2.5,           "-0b0010",                                 "-0o2",           "-0x2"},
    RadixCase{"Seven",            7.0,            "0b0111",                                  "0o7",            "0x7"},
    RadixCase{"Eight",            8.0,            "0b1000",                                  "0o10",           "0x8"},
    RadixCase{"Ten",              10.0,           "0b1010",                                  "0o12",           "0xA"},
    RadixCase{"Fifteen",          15.0,           "0b1111",                                  "0o17",           "0xF"},
    RadixCase{"Sixteen",          16.0,           "0b0001 0000",                             "0o20",           "0x10"},
    RadixCase{"Twenty",           20.0,           "0b0001 0100",                             "0o24",           "0x14"},
    RadixCase{"MinusTwenty",      -20.0,          "-0b0001 0100",                            "-0o24",          "-0x14"},
    RadixCase{"FlooredByte",      255.5,          "0b1111 1111 (Floored)",                   "0o377 (Floored)", "0xFF (Floored)"},
    RadixCase{"JustBelow256",     255.99999999999997, "0b1111 1111 (Floored)",               "0o377 (Floored)", "0xFF (Floored)"},
    RadixCase{"JustBelow16",      15.999999999999998, "0b1111 (Floored)",                    "0o17 (Floored)", "0xF (Floored)"},
    RadixCase{"DigitsToB",        1250999896491.0, "0b0001 0010 0011 0100 0101 0110 0111 1000 1001 1010 1011", "0o22150531704653", "0x123456789AB"},
    RadixCase{"DigitsToF",        52719.0,        "0b1100 1101 1110 1111",                   "0o146757",       "0xCDEF"},
    RadixCase{"Largest32Bits",    2147483647.0,   "0b0111 1111 1111 1111 1111 1111 1111 1111", "0o17777777777", "0x7FFFFFFF"},
    RadixCase{"Above32Bits",      4294967296.0,   "0b0001 0000 0000 0000 0000 0000 0000 0000 0000", "0o40000000000", "0x100000000"},
    RadixCase{"Above32BitsFloored", 4294967296.5, "0b0001 0000 0000 0000 0000 0000 0000 0000 0000 (Floored)", "0o40000000000 (Floored)", "0x100000000 (Floored)"},
    RadixCase{"Smallest32Bits",   -2147483648.0,  "-0b1000 0000 0000 0000 0000 0000 0000 0000", "-0o20000000000", "-0x80000000"},
    RadixCase{"NegativeSaturates", -5e9,          "-0b1000 0000 0000 0000 0000 0000 0000 0000", "-0o20000000000", "-0x80000000"},
    RadixCase{"JustAboveSmallest", -2147483647.5, "-0b0111 1111 1111 1111 1111 1111 1111 1111", "-0o17777777777", "-0x7FFFFFFF"},
    RadixCase{"LastFraction",     4503599627370495.5, "0b1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 (Floored)",
                                                                                             "0o177777777777777777 (Floored)", "0xFFFFFFFFFFFFF (Floored)"}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(Radix, hasAnExactLeadingUnitAtEveryPowerOfTheBase) {
    for (int power = 0; power < 256; ++power) {
        const std::string zeros(static_cast<std::size_t>(power), '0');
        EXPECT_EQ(answer(7, automatic, std::ldexp(1.0, 4 * power)), "0x1" + zeros);
        EXPECT_EQ(answer(6, automatic, std::ldexp(1.0, 3 * power)), "0o1" + zeros);
    }
}

TEST(Radix, isTheUnitBelowJustBelowAPowerOfTheBase) {
    for (int power = 1; power <= 12; ++power) {
        const std::string digits(static_cast<std::size_t>(power), 'F');
        EXPECT_EQ(answer(7, automatic, std::ldexp(1.0, 4 * power) - 1), "0x" + digits);
        EXPECT_EQ(answer(7, automatic, std::nextafter(std::ldexp(1.0, 4 * power), 0.0)), "0x" + digits + " (Floored)");
    }
}

TEST(Radix, writesTheLargestNumberOut) {
    constexpr double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(answer(7, automatic, largest), "0x" + std::string(13, 'F') + "8" + std::string(242, '0'));
    EXPECT_EQ(answer(6, automatic, largest), "0o1" + std::string(17, '7') + "4" + std::string(323, '0'));
    EXPECT_EQ(answer(7, automatic, -largest), "-0x80000000");
}

TEST(Radix, rendersTheMasterNumber) {
    TXNumberFormatter formatter;
    EXPECT_EQ(utf8(formatter.hexNumberForNumber()), "0x0");
    formatter.formattedNumberForNumber(-20.0);
    EXPECT_EQ(utf8(formatter.binaryNumberForNumber()), "-0b0001 0100");
    EXPECT_EQ(utf8(formatter.octalNumberForNumber()), "-0o24");
    EXPECT_EQ(utf8(formatter.hexNumberForNumber()), "-0x14");
    formatter.formattedNumberForNumber(-std::numeric_limits<double>::infinity());
    EXPECT_EQ(utf8(formatter.hexNumberForNumber()), "-inf");
}

}  // namespace
