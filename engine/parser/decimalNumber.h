#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "engine/parser/characterClasses.h"

/// The double nearest to the decimal number at the beginning of `text`: an optional sign, digits, at most one point.
///
/// Reading stops at the first character that cannot belong to such a number, so the "e" of an exponent and a second
/// point are passed over; a text without a digit gives 0. Too large a number gives infinity, too small a one 0.
/// Correctly rounded, ties to even (IEEE 754), at any length.
double decimalNumber(std::u16string_view text);

/// A decimal number short enough that one division gives its double: digits / 10^places, where both are exact doubles
/// and the quotient is correctly rounded (Clinger, "How to read floating point numbers accurately", 1990).
struct SmallDecimal {
    static constexpr std::ptrdiff_t longest = 16;  ///< 15 digits and a point: the digits stay below 2^53.
    static constexpr std::array exactPowersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                    1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

    std::int64_t digits = 0;
    std::ptrdiff_t places = 0;  ///< Digits after the point.
    std::ptrdiff_t length = 0;  ///< The characters read: digits and at most one point.

    /// Whether `value` may be asked. A longer number has been read to its end, but not been kept.
    bool isExact() const { return length < longest || (length == longest && places > 0); }
    double value() const { return static_cast<double>(digits) / exactPowersOfTen[static_cast<std::size_t>(places)]; }
};

/// Reads digits as far as they go into `value`, and gives where they end.
inline const char16_t* readDigits(const char16_t* at, std::uint64_t& value) {
    constexpr std::uint64_t base = 10;
    for (; isDigit(*at); ++at) {
        value = value * base + (*at - u'0');
    }
    return at;
}

/// Reads digits with at most one point from `start`, as far as they go. Something else must follow them, at the latest
/// the zero that ends a string.
inline SmallDecimal readSmallDecimal(const char16_t* start) {
    std::uint64_t digits = 0;  // unsigned, since those of a long number go round
    const char16_t* at = readDigits(start, digits);
    std::ptrdiff_t places = 0;
    if (*at == u'.') {
        const char16_t* const fraction = at + 1;
        at = readDigits(fraction, digits);
        places = at - fraction;
    }
    return {.digits = static_cast<std::int64_t>(digits), .places = places, .length = at - start};
}
