#pragma once

#include <string>

#include <gmpxx.h>

/// A decimal of any size, 0 or more: a whole number of units of 10^`exponent`. Zeros at its end count as digits of it:
/// 120 units of 10^-2 are 1.20.
struct PlainDecimal {
    mpz_class units;
    int exponent = 0;

    bool isZero() const { return units == 0; }
    std::string digits() const { return units.get_str(); }  ///< "0" for zero, else without zeros in front.
    int digitCount() const;                                 ///< 1 for zero.
    /// The power of ten that the first digit counts.
    int leadingExponent() const { return exponent + digitCount() - 1; }

    /// The same value in units of 10^`lowest`, where they are smaller than its own.
    PlainDecimal filledTo(int lowest) const;
    /// The multiple of 10^`lowest` that is not above the value, where its own units are smaller.
    PlainDecimal cutAt(int lowest) const;
    PlainDecimal withoutZerosAtEnd() const;
    /// To so many leading digits, half up. A carry adds no digit: 9.96 to 2 digits is 10. To no digits, the value
    /// becomes one unit or zero, to less than none, zero; other zeros are left as they are.
    PlainDecimal roundedToDigits(int count) const;
};

/// 10^`exponent`, 0 or more. The reference is good until the next call.
const mpz_class& powerOfTen(int exponent);

/// The decimal with the fewest digits that reads back to `magnitude`, finite and above 0; of several, the nearest.
PlainDecimal shortestPlainDecimal(double magnitude);
