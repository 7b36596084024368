// Binary, octal and hexadecimal: the whole part of a number in units of one digit of the base.
//
// The base is a power of two, so that every step is exact: the number is scaled to one unit before the point, and then
// each unit is taken off and the rest moved up.
#include "format/TXNumberFormatter.h"

#include <array>
#include <cmath>
#include <limits>
#include <span>

#include "engine/records/numberText.h"

namespace {

constexpr std::u16string_view flooredMark = u" (Floored)";

struct Radix {
    std::u16string_view prefix;
    int bitsInUnit;  ///< The base is two to this power.
    std::span<const std::u16string_view> units;
    std::u16string_view separator;  ///< Between units.
};

constexpr std::array<std::u16string_view, 16> bitGroups{u"0000", u"0001", u"0010", u"0011", u"0100", u"0101",
                                                        u"0110", u"0111", u"1000", u"1001", u"1010", u"1011",
                                                        u"1100", u"1101", u"1110", u"1111"};
constexpr std::array<std::u16string_view, 16> digits{u"0", u"1", u"2", u"3", u"4", u"5", u"6", u"7",
                                                     u"8", u"9", u"A", u"B", u"C", u"D", u"E", u"F"};

constexpr Radix binary{u"0b", 4, bitGroups, u" "};
constexpr Radix octal{u"0o", 3, std::span(digits).first(8), u""};
constexpr Radix hexadecimal{u"0x", 4, digits, u""};

/// `number` without its fraction, as near as 32 bits with a sign come.
std::int32_t truncatedTo32Bits(double number) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (number >= Limits::max()) return Limits::max();
    if (number <= Limits::min()) return Limits::min();
    return static_cast<std::int32_t>(number);
}

/// Adds the units of `magnitude`, 1 or more, to `text`, and says whether a fraction is left over.
bool writeUnits(double magnitude, const Radix& radix, std::u16string& text) {
    const int leading = std::ilogb(magnitude) / radix.bitsInUnit;
    const int base = 1 << radix.bitsInUnit;
    double rest = std::ldexp(magnitude, -leading * radix.bitsInUnit);
    for (int position = leading; position >= 0; --position) {
        const int unit = static_cast<int>(rest);
        text += radix.units[static_cast<std::size_t>(unit)];
        if (position > 0) text += radix.separator;
        rest = (rest - unit) * base;
    }
    return rest != 0.0;
}

/// Makes `text` the rendering of `number`.
std::u16string_view write(double number, const Radix& radix, std::u16string& text) {
    if (!std::isfinite(number)) return text = numberText(number);
    const std::int32_t truncated = truncatedTo32Bits(number);
    const bool isNegative = number < 0.0 && truncated != 0;
    text.assign(isNegative ? 1 : 0, u'-');
    text += radix.prefix;
    if (truncated == 0) {
        text += u'0';
        return number == 0.0 ? text : text += flooredMark;
    }
    // A negative number is its 32-bit whole part alone: it has lost its fraction and is not marked as floored.
    const double magnitude = isNegative ? -static_cast<double>(truncated) : number;
    if (writeUnits(magnitude, radix, text)) {
        text += flooredMark;
    }
    return text;
}

}  // namespace

std::u16string_view TXNumberFormatter::binaryView() { return write(masterNumber_, binary, text_); }

std::u16string_view TXNumberFormatter::octalView() { return write(masterNumber_, octal, text_); }

std::u16string_view TXNumberFormatter::hexView() { return write(masterNumber_, hexadecimal, text_); }
