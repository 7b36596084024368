#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// A power of ten as `significand` x 2^(`exponent` - 63), with the first bit of the significand set. What lies behind
/// its last bit is cut.
struct PowerOfTen {
    std::uint64_t significand;
    int exponent;
};

inline constexpr int smallestPowerOfTen = -308;
inline constexpr int largestPowerOfTen = 322;

namespace powersOfTen {

/// A power with twice the bits: what is cut step by step while the table is made never reaches the bits that it keeps.
struct WidePower {
    std::uint64_t high;
    std::uint64_t low;
    int exponent;
};

constexpr WidePower shiftedLeft(WidePower power) {
    while (power.high >> 63U == 0) {
        power = {power.high << 1U | power.low >> 63U, power.low << 1U, power.exponent - 1};
    }
    return power;
}

// 10 = 8 * (1 + 1/4)
constexpr WidePower timesTen(WidePower power) {
    const std::uint64_t low = power.low + (power.high << 62U | power.low >> 2U);
    const std::uint64_t high = power.high + (power.high >> 2U) + (low < power.low ? 1 : 0);
    if (high < power.high) {
        return {high >> 1U | std::uint64_t{1} << 63U, high << 63U | low >> 1U, power.exponent + 4};
    }
    return {high, low, power.exponent + 3};
}

// 1/10 = 1/5 * 1/2, divided half a word at a time
constexpr WidePower dividedByTen(WidePower power) {
    constexpr std::uint64_t half = 0xFFFFFFFFU;
    const std::uint64_t middle = power.high % 5 << 32U | power.low >> 32U;
    const std::uint64_t last = middle % 5 << 32U | (power.low & half);
    return shiftedLeft({power.high / 5, middle / 5 << 32U | last / 5, power.exponent - 1});
}

using Table = std::array<PowerOfTen, static_cast<std::size_t>(largestPowerOfTen - smallestPowerOfTen + 1)>;

consteval Table made() {
    constexpr WidePower one{std::uint64_t{1} << 63U, 0, 0};
    constexpr auto zero = static_cast<std::size_t>(-smallestPowerOfTen);
    Table table{};
    WidePower power = one;
    for (std::size_t at = zero; at < table.size(); ++at, power = timesTen(power)) {
        table[at] = {power.high, power.exponent};
    }
    power = one;
    for (std::size_t at = zero; at > 0; --at) {
        power = dividedByTen(power);
        table[at - 1] = {power.high, power.exponent};
    }
    return table;
}

inline constexpr Table table = made();

}  // namespace powersOfTen

/// 10^`exponent`, which lies between the smallest and the largest there are.
constexpr PowerOfTen powerOfTen(int exponent) {
    return powersOfTen::table[static_cast<std::size_t>(exponent - smallestPowerOfTen)];
}
