#include "engine/records/descriptionText.h"

#include <array>
#include <cstdio>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

// What C itself prints, as the second opinion.
std::string printed(double value) {
    std::array<char, 400> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), "%f", value);
    return {buffer.data(), static_cast<std::size_t>(length)};
}

std::string printed(const void* address) {
    std::array<char, 40> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), "%p", address);
    return {buffer.data(), static_cast<std::size_t>(length)};
}

TEST(IntegerText, isDecimalDigits) {
    EXPECT_EQ(utf8(integerText(0)), "0");
    EXPECT_EQ(utf8(integerText(-1)), "-1");
    EXPECT_EQ(utf8(integerText(1200)), "1200");
    EXPECT_EQ(utf8(integerText(std::numeric_limits<std::int32_t>::max())), "2147483647");
    EXPECT_EQ(utf8(integerText(std::numeric_limits<std::int32_t>::min())), "-2147483648");
}

TEST(FixedText, hasSixPlaces) {
    EXPECT_EQ(utf8(fixedText(0.0)), "0.000000");
    EXPECT_EQ(utf8(fixedText(-0.0)), "-0.000000");
    EXPECT_EQ(utf8(fixedText(2.5)), "2.500000");
    EXPECT_EQ(utf8(fixedText(-1234.56789)), "-1234.567890");
    EXPECT_EQ(utf8(fixedText(0.9999999)), "1.000000");
    EXPECT_EQ(utf8(fixedText(1e15)), "1000000000000000.000000");
}

TEST(FixedText, namesWhatIsNotFinite) {
    EXPECT_EQ(utf8(fixedText(std::numeric_limits<double>::infinity())), "inf");
    EXPECT_EQ(utf8(fixedText(-std::numeric_limits<double>::infinity())), "-inf");
    EXPECT_EQ(utf8(fixedText(std::numeric_limits<double>::quiet_NaN())), "nan");
}

TEST(FixedText, roundsAsCDoes) {
    // Binary ties, halves that are not quite halves, and the ends of the range.
    for (const double number : {0.0000005, 0.00000050000000001, 0.0000015, 0.0000025, 1.0000005, 0.0000019073486328125,
                                0.00000286102294921875, 1.0 / 3.0, 2.0 / 3.0, 123456789.987654321, 1e300,
                                std::numeric_limits<double>::max(), -std::numeric_limits<double>::max(),
                                std::numeric_limits<double>::min(), std::numeric_limits<double>::denorm_min()}) {
        EXPECT_EQ(utf8(fixedText(number)), printed(number));
    }
}

TEST(AddressText, isWhatCPrints) {
    const int object = 0;
    EXPECT_EQ(utf8(addressText(&object)), printed(static_cast<const void*>(&object)));
    EXPECT_EQ(utf8(addressText(nullptr)), "(nil)");
}

}  // namespace
