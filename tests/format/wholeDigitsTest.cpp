#include "format/wholeDigits.h"

#include <cstdint>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

std::string written(const WholeDigits& digits) {
    std::string text;
    for (int position = 0; position < digits.firstCount; ++position) {
        text += static_cast<char>('0' + digits.first[static_cast<std::size_t>(position)]);
    }
    for (const auto digit : digits.rest) {
        if (digits.hasRest) text += static_cast<char>('0' + digit);
    }
    return text;
}

TEST(WholeDigits, areThoseOfEveryLength) {
    std::int64_t power = 1;
    for (int count = 1; count <= 16; ++count, power *= 10) {
        for (const std::int64_t whole : {power, power + 1, 2 * power + power / 3, 10 * power - 1}) {
            EXPECT_EQ(written(wholeDigits(whole)), std::to_string(whole));
            EXPECT_EQ(wholeDigits(whole).count(), count) << whole;
        }
    }
    EXPECT_EQ(written(wholeDigits(0)), "0");
}

TEST(WholeDigits, areThoseOfNumbersUpTo10000) {
    for (std::int64_t whole = 0; whole <= 10000; ++whole) {
        ASSERT_EQ(written(wholeDigits(whole)), std::to_string(whole));
    }
}

TEST(WholeDigits, areThoseOfAnyNumber) {
    std::mt19937_64 random(2);
    for (int round = 0; round < 50000; ++round) {
        const auto whole = static_cast<std::int64_t>((random() % 10000000000000000U) >> random() % 50);
        ASSERT_EQ(written(wholeDigits(whole)), std::to_string(whole));
    }
}

}  // namespace
