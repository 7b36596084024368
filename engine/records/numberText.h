#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// The longest text of a double: "-1.2345678901234567e-308".
inline constexpr std::size_t numberTextCapacity = 24;

/// A positive finite double as d.ddd x 10^exponent, with the fewest digits that read back to it.
struct ShortestDecimal {
    static constexpr int maxDigits = 17;

    int count;     ///< 1 to 17.
    int exponent;  ///< Power of ten of the first digit, -324 to 308.
    std::array<char, numberTextCapacity> text;

    /// The digits, '0' to '9', of which the first is not '0'. They lie in `text` from its second character on, with
    /// characters of no account behind them: whoever copies fixed lengths may take those along.
    std::string_view digits() const { return {text.data() + 1, static_cast<std::size_t>(count)}; }
};

/// The shortest digits of `magnitude`, which is finite and above zero; of several as short, the nearest.
///
/// They are the digits that numberText writes, of which the formatter takes the first 15: what an answer shows and what
/// a result describes never differ in a digit. leadingDigitsTest holds the formatter to it.
ShortestDecimal shortestDecimal(double magnitude);

/// Whether a number whose first digit counts 10^exponent is written plainly, and not as "1e+17".
constexpr bool isWrittenPlainly(int exponent) { return exponent >= -4 && exponent < ShortestDecimal::maxDigits; }

/// The text of any double: the shortest digits that read back to it, laid out as C's "%.17g" lays out digits.
///
/// The exponent form has a sign and at least two digits in its exponent. No locale is asked: the point is a ".".
///
///     0.1 -> "0.1"   1e16 -> "10000000000000000"   1e17 -> "1e+17"   0.00001 -> "1e-05"
///     -0.0 -> "-0"   infinities -> "inf", "-inf"   any NaN -> "nan"
std::u16string numberText(double number);

/// The same text, written into `buffer` without any allocation; the view returned lies there.
std::string_view writeNumberText(double number, std::span<char, numberTextCapacity> buffer);
