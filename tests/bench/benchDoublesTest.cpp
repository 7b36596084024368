#include "bench/benchDoubles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace {

constexpr std::size_t count = 5000;

// Its digits without the zeros at the end.
std::size_t digitsOf(double number) {
    std::array<char, 32> buffer{};
    std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(number), std::chars_format::scientific);
    const std::string_view text(buffer.data());
    const std::size_t mantissa = text.find('e');
    return mantissa == 1 ? 1 : mantissa - 1;  // without the point
}

TEST(BenchDoubles, beginWithTheSameNumbersEverywhere) {
    EXPECT_EQ(benchDoubles(DoubleSet::shortDecimals, 4), (std::vector<double>{42.3, 5.4, -920.6319, 32.265}));
    EXPECT_EQ(benchDoubles(DoubleSet::anyMagnitude, 2),
              (std::vector<double>{1.3322621864123478e-289, 2.9239106127589681e-266}));
}

TEST(BenchDoubles, areHalfNegative) {
    for (std::size_t set = 0; set < doubleSetNames.size(); ++set) {
        const auto numbers = benchDoubles(static_cast<DoubleSet>(set), count);
        const auto negative = std::count_if(numbers.begin(), numbers.end(), [](double number) { return number < 0.0; });
        EXPECT_NEAR(static_cast<double>(negative), count / 2.0, count / 20.0) << doubleSetNames[set];
    }
}

TEST(BenchDoubles, integersHaveUpTo15Digits) {
    bool isShortSeen = false;
    bool isLongSeen = false;
    for (const double number : benchDoubles(DoubleSet::integers, count)) {
        EXPECT_EQ(number, std::trunc(number));
        EXPECT_TRUE(std::fabs(number) >= 1.0 && std::fabs(number) < 1e15) << number;
        isShortSeen = isShortSeen || std::fabs(number) < 10.0;
        isLongSeen = isLongSeen || std::fabs(number) >= 1e14;
    }
    EXPECT_TRUE(isShortSeen && isLongSeen);
}

TEST(BenchDoubles, shortDecimalsHaveUpTo4Places) {
    for (const double number : benchDoubles(DoubleSet::shortDecimals, count)) {
        EXPECT_NE(number, std::trunc(number));
        EXPECT_EQ(number, std::round(number * 1e4) / 1e4);
        EXPECT_TRUE(std::fabs(number) >= 1.0 && std::fabs(number) < 1e5) << number;
        EXPECT_LE(digitsOf(number), 9U) << number;
    }
}

TEST(BenchDoubles, fullPrecisionTakesAllDigits) {
    std::size_t full = 0;
    for (const double number : benchDoubles(DoubleSet::fullPrecision, count)) {
        EXPECT_TRUE(std::fabs(number) >= 1e-8 && std::fabs(number) < 1e15) << number;
        full += digitsOf(number) >= 15 ? 1U : 0U;
    }
    EXPECT_GT(full, count * 99 / 100);
}

TEST(BenchDoubles, anyMagnitudeIsFiniteAndFarApart) {
    std::size_t far = 0;
    for (const double number : benchDoubles(DoubleSet::anyMagnitude, count)) {
        EXPECT_TRUE(std::isfinite(number));
        far += std::fabs(number) < 1e-8 || std::fabs(number) > 1e15 ? 1U : 0U;
    }
    EXPECT_GT(far, count * 9 / 10);
}

TEST(BenchDoubles, areFoundByTheirNames) {
    EXPECT_EQ(doubleSetNamed("any-magnitude"), DoubleSet::anyMagnitude);
    EXPECT_EQ(doubleSetNamed("none"), std::nullopt);
}

}  // namespace
