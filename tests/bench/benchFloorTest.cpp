#include "bench/benchFloor.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include <gtest/gtest.h>

namespace {

std::string floorOf(std::string_view line) {
    std::array<char, 32> buffer{};
    return std::string(floorForLine(line, buffer));
}

std::string shortest(double number) {
    std::array<char, 32> buffer{};
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr};
}

TEST(BenchFloor, convertsEveryLiteral) {
    EXPECT_EQ(floorOf("2+3"), "5");
    EXPECT_EQ(floorOf("12.5*(3+4)-7/8"), "34.5");
    EXPECT_EQ(floorOf(".25"), "0.25");
    EXPECT_EQ(floorOf("1e3+2"), "1002");
    EXPECT_EQ(floorOf(""), "0");
}

TEST(BenchFloor, raisesWhatItHasToEachPower) {
    EXPECT_EQ(floorOf("(1+2)^3"), "27");
    EXPECT_EQ(floorOf("2^3^2"), "64");
    EXPECT_EQ(floorOf("2^3+1"), "9");
}

TEST(BenchFloor, callsTheFunctionOfEachName) {
    struct Call {
        const char* line;
        double (*function)(double);
        double argument;
    };
    // clang-format off
    const std::array calls{
        Call{"sin(0.5)", std::sin, 0.5}, Call{"cos(0.5)", std::cos, 0.5}, Call{"tan(0.5)", std::tan, 0.5},
        Call{"sqrt(2)", std::sqrt, 2.0}, Call{"ln(7)", std::log, 7.0},    Call{"exp(3)", std::exp, 3.0},
        Call{"atan(2)", std::atan, 2.0}, Call{"cbrt(5)", std::cbrt, 5.0},
    };
    // clang-format on
    for (const Call& call : calls) {
        // A compiler that knew the argument would work out the value itself, to a bit more.
        const volatile double argument = call.argument;
        EXPECT_EQ(floorOf(call.line), shortest(call.function(argument))) << call.line;
    }
    EXPECT_EQ(floorOf("sqrt(4)+sqrt(9)*sqrt(16)"), "9");
}

TEST(BenchFloor, passesNamesOfVariables) {
    EXPECT_EQ(floorOf("x17=x16*1.5"), "1.5");
    EXPECT_EQ(floorOf("x0=1.5"), "1.5");
    EXPECT_EQ(floorOf("x0"), "0");
}

}  // namespace
