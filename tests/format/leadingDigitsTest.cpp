#include "format/leadingDigits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "engine/records/numberText.h"

namespace {

struct Digits {
    std::string digits;
    int exponent;
};

std::string withoutZeros(std::string digits) {
    digits.erase(digits.find_last_not_of('0') + 1);
    return digits;
}

Digits leading(double magnitude) {
    DigitList list;
    list.addZerosToEnd(3);  // what was there before is gone
    const int exponent = leadingDigits(magnitude, list);
    std::string digits;
    for (const auto digit : list) {
        digits += static_cast<char>('0' + digit);
    }
    EXPECT_LE(list.count(), 15) << magnitude;
    return {withoutZeros(digits), exponent};
}

/// The same, read from the text that numberText writes.
Digits expected(double magnitude) {
    std::array<char, numberTextCapacity> buffer{};
    const std::string text(writeNumberText(magnitude, buffer));
    const std::size_t mark = std::min(text.find('e'), text.size());
    std::string digits = text.substr(0, mark);
    const std::size_t point = std::min(digits.find('.'), mark);
    digits.erase(point, 1);
    const std::size_t first = digits.find_first_not_of('0');
    const int written = mark < text.size() ? std::stoi(text.substr(mark + 1)) : 0;
    const int exponent = written + static_cast<int>(point) - static_cast<int>(first) - 1;
    return {withoutZeros(digits.substr(first, 15)), exponent};
}

void expectTheShortest(double magnitude) {
    const Digits found = leading(magnitude);
    const Digits right = expected(magnitude);
    ASSERT_EQ(found.digits, right.digits) << numberText(magnitude).size() << ": " << magnitude;
    ASSERT_EQ(found.exponent, right.exponent) << magnitude;
}

struct LeadingCase {
    double magnitude;
    const char* digits;
    int exponent;
};

TEST(LeadingDigits, areCutAndNotRounded) {
    const LeadingCase rows[] = {
        {1.0, "1", 0},
        {1234.5, "12345", 3},
        {0.0625, "625", -2},
        {9007199254740991.0, "900719925474099", 15},
        {1.2345678901234567, "123456789012345", 0},
        {0.1 + 0.2, "3", -1},
        {2.0 / 3, "666666666666666", -1},
        {1e-300, "1", -300},
        {1.7976931348623157e308, "179769313486231", 308},
        {5e-324, "5", -324},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.digits);
        const Digits found = leading(row.magnitude);
        EXPECT_EQ(found.digits, row.digits);
        EXPECT_EQ(found.exponent, row.exponent);
    }
}

TEST(LeadingDigits, areTheShortestBesidePowersOfTenAndTwo) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (int exponent = -320; exponent <= 308; ++exponent) {
        const double ten = std::pow(10.0, exponent);
        const double two = std::ldexp(1.0, exponent);
        for (const double power : {ten, two, ten * 9.99999999999999, ten * 0.999999999999999}) {
            if (power == 0.0 || std::isinf(power)) continue;
            const double below = std::nextafter(power, 0.0);
            expectTheShortest(power);
            if (below > 0.0) expectTheShortest(below);
            expectTheShortest(std::nextafter(power, infinity));
        }
    }
}

TEST(LeadingDigits, areTheShortestOfWholeNumbers) {
    std::mt19937_64 random(3);
    for (int round = 0; round < 50000; ++round) {
        expectTheShortest(static_cast<double>((random() >> random() % 64) | 1U));
    }
}

TEST(LeadingDigits, areTheShortestOfDecimalsAndTheirNeighbours) {
    std::mt19937_64 random(4);
    for (int round = 0; round < 50000; ++round) {
        const auto whole = static_cast<double>((random() % 1000000000000000U >> random() % 48) + 1);
        const double decimal = whole / std::pow(10.0, static_cast<double>(random() % 23));
        expectTheShortest(decimal);
        expectTheShortest(std::nextafter(decimal, 0.0));
        expectTheShortest(std::nextafter(decimal, 1e300));
    }
}

TEST(LeadingDigits, areTheShortestOfFullPrecision) {
    std::mt19937_64 random(5);
    std::uniform_real_distribution<double> power(-30.0, 40.0);
    for (int round = 0; round < 100000; ++round) {
        expectTheShortest(std::pow(10.0, power(random)));
    }
}

TEST(LeadingDigits, areTheShortestOfAnyBits) {
    std::mt19937_64 random(6);
    for (int round = 0; round < 20000; ++round) {
        const double magnitude = std::fabs(std::bit_cast<double>(random()));
        if (std::isfinite(magnitude) && magnitude > 0.0) expectTheShortest(magnitude);
    }
}

}  // namespace
