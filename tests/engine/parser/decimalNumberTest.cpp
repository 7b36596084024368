#include "engine/parser/decimalNumber.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/parsing.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();
constexpr double smallestNormal = std::numeric_limits<double>::min();

struct NumberCase {
    const char* name;
    std::u16string_view text;
    double number;
};

void PrintTo(const NumberCase& row, std::ostream* out) { *out << utf8(row.text); }

class DecimalNumber : public testing::TestWithParam<NumberCase> {};

TEST_P(DecimalNumber, isReadFromTheBeginning) { EXPECT_EQ(decimalNumber(GetParam().text), GetParam().number); }

// clang-format off
constexpr NumberCase wholeTexts[] = {
    {"Zero",                  u"0",                    0.0},
    {"Digit",                 u"7",                    7.0},
    {"LeadingZeros",          u"00012",                12.0},
    {"Fraction",              u"0.5",                  0.5},
    {"PointInFront",          u".25",                  0.25},
    {"PointAtTheEnd",         u"5.",                   5.0},
    {"Tenth",                 u"0.1",                  0.1},
    {"TrailingZeros",         u"1.5000",               1.5},
    {"Pi",                    u"3.141592653589793",    3.141592653589793},
    {"TwentyTwoPlaces",       u"0.0000000000000000000003", 3e-22},
    {"TwentyThreePlaces",     u"0.00000000000000000000003", 3e-23},
    {"OddOneAboveExact",      u"9007199254740993",     9007199254740992.0},
    {"EvenTieGoesUp",         u"9007199254740995",     9007199254740996.0},
    {"JustAboveTheTie",       u"9007199254740993.00000000000000000001", 9007199254740994.0},
    {"JustBelowTheTie",       u"9007199254740994.99999999999999999999", 9007199254740994.0},
    {"TieOfEighteenDigits",   u"144115188075855888",   144115188075855872.0},
    {"OneMoreThanTheTie",     u"144115188075855889",   144115188075855904.0},
    {"ManyNines",             u"0.99999999999999999999999999", 1.0},
    {"NineteenDigits",        u"1.234567890123456789", 1.2345678901234567},
    {"HalfwayAfterThePoint",  u"1.00000000000000011102230246251565404236316680908203125", 1.0},
    {"AboveHalfway",          u"1.00000000000000011102230246251565404236316680908203126", 1.0000000000000002},
};

constexpr NumberCase leadingParts[] = {
    {"Nothing",                     u"",        0.0},
    {"PointAlone",                  u".",       0.0},
    {"TwoPoints",                   u"..5",     0.0},
    {"ExponentLetter",              u"1.5e",    1.5},
    {"CapitalExponentLetter",       u"1.5E",    1.5},
    {"ExponentLetterAfterThePoint", u"5.e",     5.0},
    {"SecondPoint",                 u"1.5.5",   1.5},
    {"Letters",                     u"12abc",   12.0},
    {"LettersFirst",                u"e5",      0.0},
    {"Bar",                         u"|2",      0.0},
    {"PlusMinus",                   u"±2",      0.0},
    {"HexadecimalPrefix",           u"0x10",    0.0},
    {"Infinity",                    u"inf",     0.0},
    {"InfinityInFull",              u"infinity", 0.0},
    {"NotANumber",                  u"nan",     0.0},
    {"Comma",                       u"1,5",     1.0},
    {"FullwidthDigit",              u"\uFF15",  0.0},
    {"ArabicDigitAfterADigit",      u"1\u0665", 1.0},
    // U+0131 ends in the byte of "1".
    {"CodeUnitThatEndsLikeADigit",  u"12345678901234567890\u0131", 12345678901234567890.0},
};

constexpr NumberCase signedTexts[] = {
    {"Minus",             u"-5",                      -5.0},
    {"Plus",              u"+5",                      5.0},
    {"MinusFraction",     u"-.5",                     -0.5},
    {"MinusManyDigits",   u"-12345678901234567890123", -12345678901234567890123.0},
    {"MinusThenLetters",  u"-2x",                     -2.0},
    {"MinusMinus",        u"--5",                     0.0},
    {"MinusPlus",         u"-+5",                     0.0},
    {"SignAlone",         u"-",                       0.0},
    {"SignAfterTheDigit", u"5-3",                     5.0},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(WholeTexts, DecimalNumber, testing::ValuesIn(wholeTexts), RowName());
INSTANTIATE_TEST_SUITE_P(LeadingParts, DecimalNumber, testing::ValuesIn(leadingParts), RowName());
INSTANTIATE_TEST_SUITE_P(Signs, DecimalNumber, testing::ValuesIn(signedTexts), RowName());

TEST(DecimalNumberSign, aMinusMakesANegativeZero) {
    EXPECT_TRUE(std::signbit(decimalNumber(u"-0")));
    EXPECT_TRUE(std::signbit(decimalNumber(u"-0.000")));
    EXPECT_FALSE(std::signbit(decimalNumber(u"0")));
}

/// An exact decimal number, digit by digit: the second opinion on rounding.
class ExactDecimal {
public:
    explicit ExactDecimal(std::uint64_t number) : digits_(std::to_string(number)) {
        std::reverse(digits_.begin(), digits_.end());
    }

    void multiplyBy(int factor) {
        int carry = 0;
        for (char& digit : digits_) {
            const int value = (digit - '0') * factor + carry;
            digit = static_cast<char>('0' + value % 10);
            carry = value / 10;
        }
        for (; carry != 0; carry /= 10) {
            digits_ += static_cast<char>('0' + carry % 10);
        }
    }

    /// Halving is multiplying by five and moving the point.
    void halve() {
        multiplyBy(5);
        ++places_;
    }

    std::u16string text() const {
        std::string padded = digits_;
        padded.resize(std::max(digits_.size(), places_ + 1), '0');
        std::u16string text(padded.rbegin(), padded.rend());
        if (places_ > 0) {
            text.insert(text.size() - places_, 1, u'.');
        }
        return text;
    }

private:
    std::string digits_;  ///< Backwards.
    std::size_t places_ = 0;
};

/// The digits of significand * 2^exponent, all of them.
std::u16string exactText(std::uint64_t significand, int exponent) {
    ExactDecimal exact(significand);
    for (; exponent > 0; --exponent) {
        exact.multiplyBy(2);
    }
    for (; exponent < 0; ++exponent) {
        exact.halve();
    }
    return exact.text();
}

/// A positive double as significand * 2^exponent with a significand below 2^53.
struct BinaryNumber {
    explicit BinaryNumber(double number) {
        const auto bits = std::bit_cast<std::uint64_t>(number);
        const auto biased = static_cast<int>(bits >> 52U);
        const std::uint64_t fraction = bits & ((std::uint64_t{1} << 52U) - 1);
        significand = biased == 0 ? fraction : fraction | (std::uint64_t{1} << 52U);
        exponent = (biased == 0 ? 1 : biased) - 1075;
    }

    std::uint64_t significand;
    int exponent;
};

/// The text with a digit added at its far end, which makes it a trace larger.
std::u16string aTraceAbove(const std::u16string& text) {
    return text + (text.find(u'.') == std::u16string::npos ? u".0001" : u"0001");
}

void expectRoundingAround(double number) {
    const BinaryNumber binary(number);
    const double next = std::nextafter(number, infinity);
    const double even = binary.significand % 2 == 0 ? number : next;
    const std::u16string midpoint = exactText(2 * binary.significand + 1, binary.exponent - 1);
    EXPECT_EQ(decimalNumber(exactText(binary.significand, binary.exponent)), number);
    EXPECT_EQ(decimalNumber(midpoint), even) << "halfway above " << digitsOf(number);
    EXPECT_EQ(decimalNumber(aTraceAbove(midpoint)), next) << "more than halfway above " << digitsOf(number);
    EXPECT_EQ(decimalNumber(exactText(8 * binary.significand + 3, binary.exponent - 3)), number)
        << "less than halfway above " << digitsOf(number);
}

TEST(DecimalNumberRounding, isExactAroundTheEdgesOfTheRange) {
    for (const double number : {1.0, 0.1, 1e22, 1e23, 4503599627370495.5, 9007199254740991.0, smallest, 3 * smallest,
                                smallestNormal, std::nextafter(smallestNormal, 0.0),
                                std::nextafter(smallestNormal, 1.0), std::nextafter(largest, 0.0), largest}) {
        SCOPED_TRACE(digitsOf(number));
        expectRoundingAround(number);
    }
}

TEST(DecimalNumberRounding, isExactForNumbersOfEverySize) {
    std::mt19937_64 random(20240229);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers in every run
    for (int count = 0; count < 100; ++count) {
        const auto bits = random() % std::bit_cast<std::uint64_t>(largest);
        const auto number = std::bit_cast<double>(bits);
        SCOPED_TRACE(digitsOf(number));
        expectRoundingAround(number);
    }
}

TEST(DecimalNumberRange, halfOfTheSmallestNumberIsZeroAndMoreIsNot) {
    const std::u16string half = exactText(1, -1075);
    EXPECT_EQ(decimalNumber(half), 0.0);
    EXPECT_EQ(decimalNumber(aTraceAbove(half)), smallest);
}

TEST(DecimalNumberRange, underflowGivesZero) {
    EXPECT_EQ(decimalNumber(u"0." + std::u16string(400, u'0') + u"1"), 0.0);
    EXPECT_EQ(decimalNumber(u"." + std::u16string(100000, u'0') + u"9"), 0.0);
    EXPECT_EQ(decimalNumber(u"-0." + std::u16string(400, u'0') + u"1"), 0.0);
    EXPECT_TRUE(std::signbit(decimalNumber(u"-0." + std::u16string(400, u'0') + u"1")));
}

TEST(DecimalNumberRange, subnormalNumbersKeepTheirDigits) {
    EXPECT_EQ(decimalNumber(u"0." + std::u16string(323, u'0') + u"5"), smallest);
    EXPECT_EQ(decimalNumber(u"0." + std::u16string(319, u'0') + u"123"), 1.23e-320);
    EXPECT_EQ(decimalNumber(u"0." + std::u16string(307, u'0') + u"22250738585072011"), 2.2250738585072011e-308);
}

TEST(DecimalNumberRange, overflowGivesInfinity) {
    const std::u16string afterTheLargest = exactText((std::uint64_t{1} << 54U) - 1, 970);  // halfway to 2^1024
    EXPECT_EQ(decimalNumber(afterTheLargest), infinity);
    EXPECT_EQ(decimalNumber(std::u16string(400, u'9')), infinity);
    EXPECT_EQ(decimalNumber(u"-1" + std::u16string(400, u'0')), -infinity);
    EXPECT_EQ(decimalNumber(u"1" + std::u16string(400, u'0') + u".5"), infinity);
}

TEST(DecimalNumberRange, zerosInFrontMakeNoNumberLarge) {
    EXPECT_EQ(decimalNumber(std::u16string(500, u'0') + u"7"), 7.0);
    EXPECT_EQ(decimalNumber(std::u16string(500, u'0') + u"." + std::u16string(500, u'0') + u"7"), 0.0);
    EXPECT_EQ(decimalNumber(std::u16string(500, u'0') + u"7." + std::u16string(500, u'0')), 7.0);
}

TEST(DecimalNumberRange, aMillionDigitsAreReadToTheLast) {
    const std::u16string zeros(1000000, u'0');
    EXPECT_EQ(decimalNumber(u"9007199254740993." + zeros), 9007199254740992.0);
    EXPECT_EQ(decimalNumber(u"9007199254740993." + zeros + u"1"), 9007199254740994.0);
}

}  // namespace
