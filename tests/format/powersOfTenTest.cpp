#include "format/powersOfTen.h"

#include <cmath>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace {

TEST(PowersOfTen, areExactWhileTheyFit) {
    std::uint64_t power = 1;
    for (int exponent = 0; exponent <= 19; ++exponent, power *= 10) {
        const PowerOfTen held = powerOfTen(exponent);
        EXPECT_EQ(held.significand >> (63 - held.exponent), power) << exponent;
        EXPECT_EQ(held.significand << held.exponent << 1U, 0U) << exponent;
    }
}

TEST(PowersOfTen, areCutBehindTheirLastBit) {
    struct Row {
        int exponent;
        PowerOfTen power;
    };
    // Worked out in whole numbers of any length.
    constexpr Row rows[] = {
        {-294, {0xA37FCE126597973CU, -977}}, {-293, {0xCC5FC196FEFD7D0CU, -974}}, {-28, {0xFD87B5F28300CA0DU, -94}},
        {-2, {0xA3D70A3D70A3D70AU, -7}},     {-1, {0xCCCCCCCCCCCCCCCCU, -4}},     {27, {0xCECB8F27F4200F3AU, 89}},
        {28, {0x813F3978F8940984U, 93}},     {100, {0x924D692CA61BE758U, 332}},   {308, {0x8E679C2F5E44FF8FU, 1023}},
        {322, {0xCA5E89B18B602368U, 1069}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(powerOfTen(row.exponent).significand, row.power.significand) << row.exponent;
        EXPECT_EQ(powerOfTen(row.exponent).exponent, row.power.exponent) << row.exponent;
    }
}

TEST(PowersOfTen, areTheNearestDoubles) {
    for (int exponent = -307; exponent <= 308; ++exponent) {
        const PowerOfTen held = powerOfTen(exponent);
        const double written = std::stod("1e" + std::to_string(exponent));
        EXPECT_NEAR(std::ldexp(static_cast<double>(held.significand), held.exponent - 63) / written, 1.0, 3e-16);
        EXPECT_EQ(held.significand >> 63U, 1U);
    }
}

}  // namespace
