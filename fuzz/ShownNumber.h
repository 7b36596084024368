#pragma once

#include <optional>
#include <string>
#include <string_view>

/// A decimal number that is not negative: d.ddd x 10^leading. Zero has no digits.
struct Decimal {
    std::string digits;  ///< '0' to '9'; neither the first nor the last is '0'.
    int leading = 0;     ///< Power of ten of the first digit; 0 for zero.

    /// The digits may begin and end with zeros.
    static Decimal of(std::string_view digits, int leading);
    bool isZero() const { return digits.empty(); }
    /// Rounded half up to a multiple of 10^place.
    Decimal roundedAt(int place) const;
    Decimal timesTenTo(int power) const;
    /// The nearest double.
    double number() const;
    bool operator==(const Decimal&) const = default;
};

/// The text of a decimal answer, taken apart again: "-1,234.5e6%".
struct ShownNumber {
    bool isNegative = false;
    std::string digits;  ///< All that stand before the exponent, without separators.
    int whole = 0;       ///< How many of them stand before the point.
    bool hasSeparators = false;
    std::optional<int> exponent;
    bool hasPercentSign = false;

    /// Nothing where the text is no answer: another character, a point without digits around it, a zero in front, a
    /// group that is not of three digits, an exponent with a "+" or a needless zero.
    static std::optional<ShownNumber> read(std::u16string_view text, char16_t separator);

    int places() const { return static_cast<int>(digits.size()) - whole; }
    /// Without the sign, and not divided by 100.
    Decimal magnitude() const { return Decimal::of(digits, exponent.value_or(0) + whole - 1); }
};
