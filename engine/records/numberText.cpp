#include "engine/records/numberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

char* copied(std::string_view text, char* to) { return std::copy(text.begin(), text.end(), to); }

char* writePlainly(const ShortestDecimal& decimal, char* to) {
    const std::string_view digits = decimal.digits();
    const int whole = decimal.exponent + 1;  // digits before the point
    if (whole <= 0) {
        to = std::fill_n(copied("0.", to), -whole, '0');
        return copied(digits, to);
    }
    to = copied(digits.substr(0, static_cast<std::size_t>(whole)), to);
    if (whole >= decimal.count) {
        return std::fill_n(to, whole - decimal.count, '0');
    }
    *to++ = '.';
    return copied(digits.substr(static_cast<std::size_t>(whole)), to);
}

}  // namespace

ShortestDecimal shortestDecimal(double magnitude) {
    // "d.ddde+dd" or "de+dd". Not to_chars without a format: that one picks a layout by its length.
    ShortestDecimal decimal{};
    char* const text = decimal.text.data();
    const char* const end =
        std::to_chars(text, text + decimal.text.size(), magnitude, std::chars_format::scientific).ptr;
    const char* mark = end - 4;  // an exponent has two digits or three
    if (*mark != 'e') --mark;

    for (const char* digit = mark + 2; digit < end; ++digit) {
        decimal.exponent = decimal.exponent * 10 + (*digit - '0');
    }
    if (mark[1] == '-') {
        decimal.exponent = -decimal.exponent;
    }
    decimal.count = std::max(1, static_cast<int>(mark - text) - 1);
    text[1] = text[0];  // over the point, so that the digits stand together
    return decimal;
}

std::string_view writeNumberText(double number, std::span<char, numberTextCapacity> buffer) {
    char* to = buffer.data();
    const double magnitude = std::fabs(number);
    // Never "-nan": the sign of a NaN differs from machine to machine.
    if (std::signbit(number) && !std::isnan(number)) {
        *to++ = '-';
    }
    if (std::isnan(number)) {
        to = copied("nan", to);
    } else if (std::isinf(number)) {
        to = copied("inf", to);
    } else if (number == 0.0) {
        *to++ = '0';
    } else if (const auto decimal = shortestDecimal(magnitude); isWrittenPlainly(decimal.exponent)) {
        to = writePlainly(decimal, to);
    } else {
        to = std::to_chars(to, buffer.data() + buffer.size(), magnitude, std::chars_format::scientific).ptr;
    }
    return {buffer.data(), static_cast<std::size_t>(to - buffer.data())};
}

std::u16string numberText(double number) {
    std::array<char, numberTextCapacity> buffer{};
    const auto text = writeNumberText(number, buffer);
    return {text.begin(), text.end()};
}
