#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

using EightDigits = std::array<std::uint8_t, 8>;

/// The decimal digits of a whole number, most significant first, in one piece or two.
struct WholeDigits {
    EightDigits first;  ///< Its first `firstCount` digits, with anything behind them.
    EightDigits rest;   ///< Eight more, if `hasRest`.
    int firstCount;     ///< 1 to 8; the number 0 has one digit.
    bool hasRest;

    int count() const { return firstCount + (hasRest ? static_cast<int>(rest.size()) : 0); }
};

/// How many digits a number below 10^8 has.
inline int digitCount(std::uint32_t number) {
    // Static, or it would be laid out anew for each number.
    static constexpr std::array<std::uint32_t, 9> powers{1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
    constexpr int log10Of2In4096ths = 1233;  // log10(2) * 4096
    const std::uint32_t counted = number | 1U;
    const int shortest = static_cast<int>(std::bit_width(counted)) * log10Of2In4096ths / 4096;  // or one more
    return shortest + (counted >= powers[static_cast<std::size_t>(shortest)] ? 1 : 0);
}

/// All eight digits of a number below 10^8, a byte each, the first in the lowest.
inline std::uint64_t packedDigits(std::uint32_t number) {
    // Every lane is halved at once: from one of eight digits to two of four, four of two and eight of one. Lanes are
    // divided by a multiplication and a shift, exact for as many digits as a lane has.
    const std::uint64_t fours = number / 10000 | std::uint64_t{number % 10000} << 32U;
    const std::uint64_t hundreds = fours * 5243 >> 19U & 0x0000007F0000007FU;
    const std::uint64_t twos = hundreds | (fours - hundreds * 100) << 16U;
    const std::uint64_t tens = twos * 103 >> 10U & 0x000F000F000F000FU;
    return tens | (twos - tens * 10) << 8U;
}

inline EightDigits unpacked(std::uint64_t digits) {
    if constexpr (std::endian::native == std::endian::little) {
        return std::bit_cast<EightDigits>(digits);
    }
    EightDigits bytes{};
    for (std::size_t position = 0; position < bytes.size(); ++position) {
        bytes[position] = static_cast<std::uint8_t>(digits >> 8 * position);
    }
    return bytes;
}

/// The digits of `whole`, which is not negative and below 10^16.
inline WholeDigits wholeDigits(std::int64_t whole) {
    constexpr std::int64_t eightZeros = 100000000;
    const bool hasRest = whole >= eightZeros;
    const auto first = static_cast<std::uint32_t>(hasRest ? whole / eightZeros : whole);
    const auto rest = static_cast<std::uint32_t>(hasRest ? whole % eightZeros : 0);
    const int firstCount = digitCount(first);
    const std::uint64_t packed = packedDigits(first) >> 8 * (8 - firstCount);  // without leading zeros
    return {unpacked(packed), hasRest ? unpacked(packedDigits(rest)) : EightDigits{}, firstCount, hasRest};
}
