#include "tests/models/PlainFormatter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace {

constexpr int scientific = 2;
constexpr int engineering = 3;
constexpr int percent = 4;
constexpr int binary = 5;
constexpr int octal = 6;

constexpr int mostDigits = 15;

std::u16string wide(const std::string& text) { return {text.begin(), text.end()}; }

// Groups of three before the point.
std::u16string grouped(const std::string& whole, std::u16string_view separator) {
    std::u16string text;
    for (std::size_t left = whole.size(); left > 0; --left) {
        if (left != whole.size() && left % 3 == 0) text += separator;
        text += static_cast<char16_t>(whole[whole.size() - left]);
    }
    return text;
}

// All of a decimal's digits, zeros up to the point included.
std::u16string plainText(const PlainDecimal& decimal, std::u16string_view separator) {
    const PlainDecimal filled = decimal.filledTo(0);
    const auto places = static_cast<std::size_t>(-filled.exponent);
    std::string digits = filled.digits();
    if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
    const std::size_t whole = digits.size() - places;
    const std::u16string text = grouped(digits.substr(0, whole), separator);
    return places == 0 ? text : text + u"." + wide(digits.substr(whole));
}

std::u16string exponentText(const PlainDecimal& decimal, int exponent) {
    return plainText({decimal.units, decimal.exponent - exponent}, {}) + u"e" + wide(std::to_string(exponent));
}

// The greatest multiple of 3 that is not above it.
int engineeringExponent(int exponent) { return exponent - (exponent % 3 + 3) % 3; }

PlainDecimal timesHundred(const PlainDecimal& decimal) {
    return decimal.isZero() ? decimal : PlainDecimal{decimal.units, decimal.exponent + 2};
}

std::u16string figuresText(const PlainDecimal& exact, const PlainStyle& style) {
    const PlainDecimal decimal = style.figures == -1 ? exact : exact.roundedToDigits(style.figures);
    const int exponent = decimal.leadingExponent();
    if (style.type == engineering) return exponentText(decimal, engineeringExponent(exponent));
    if (style.type == scientific || exponent > 14 || exponent < -5) return exponentText(decimal, exponent);
    return plainText(decimal, style.separator);
}

std::u16string placesText(const PlainDecimal& exact, const PlainStyle& style) {
    const int places = style.places;
    const int before = exact.leadingExponent();
    const auto filled = [&style](const PlainDecimal& decimal, int lowest) {
        return style.addsZeros ? decimal.filledTo(lowest) : decimal;
    };
    if (style.type == scientific || before > 14) {
        const PlainDecimal decimal = exact.roundedToDigits(places + 1);
        const int exponent = decimal.leadingExponent();
        return exponentText(filled(decimal, exponent - places), exponent);
    }
    if (style.type == engineering) {
        const PlainDecimal decimal = exact.roundedToDigits(places + 1 + before - engineeringExponent(before));
        const int exponent = engineeringExponent(decimal.leadingExponent());
        return exponentText(filled(decimal, exponent - places), exponent);
    }
    return plainText(filled(exact.roundedToDigits(before + 1 + places), -places), style.separator);
}

std::u16string wholeText(const mpz_class& whole, int type) {
    if (type == octal) return wide(whole.get_str(8));
    const std::string units = whole.get_str(-16);
    if (type != binary) return wide(units);
    std::u16string text;
    for (const char unit : units) {
        const std::string bits = mpz_class(std::string(1, unit), 16).get_str(2);
        text += (text.empty() ? u"" : u" ") + std::u16string(4 - bits.size(), u'0') + wide(bits);
    }
    return text;
}

std::u16string radixText(double number, int type) {
    constexpr std::array<std::u16string_view, 3> prefixes{u"0b", u"0o", u"0x"};
    constexpr double lowest = -2147483648.0;
    const std::u16string prefix(prefixes.at(static_cast<std::size_t>(type - binary)));
    const std::u16string mark = u" (Floored)";
    if (std::fabs(number) < 1.0) return prefix + (number == 0.0 ? u"0" : u"0" + mark);
    // Negative numbers are those of 32 bits, and not marked where a fraction is dropped.
    if (number < 0.0) return u"-" + prefix + wholeText(mpz_class(-std::max(number, lowest)), type);
    const mpz_class whole(number);
    return prefix + wholeText(whole, type) + (whole == number ? u"" : mark);
}

}  // namespace

PlainFormatter::PlainFormatter(double number) : number_(number) {
    if (std::isfinite(number) && number != 0.0) load(std::fabs(number));
}

// The text of a double has at most 17 digits: plain from 0.0001 to below 10^17, else with one digit before the point.
// At most 15 of its characters are taken, the zeros in front of a small number among them.
void PlainFormatter::load(double magnitude) {
    const PlainDecimal exact = shortestPlainDecimal(magnitude);
    const int exponent = exact.leadingExponent();
    const bool isPlain = exponent >= -4 && exponent < 17;
    const int lastBeforePoint = isPlain ? 0 : exponent;
    const int first = isPlain ? std::max(exponent, 0) : exponent;
    decimal_ = exact.cutAt(first - mostDigits + 1).withoutZerosAtEnd();
    removeNoise(exponent - lastBeforePoint + 1);
}

// Noise is a run of six or more zeros or nines after the point, with at most three digits behind it. The number is
// rounded to the digits in front of the first such run.
void PlainFormatter::removeNoise(int digitsBeforePoint) {
    const std::string digits = decimal_.digits();
    for (auto at = static_cast<std::size_t>(std::max(digitsBeforePoint, 0)); at < digits.size(); ++at) {
        if (digits[at] != '0' && digits[at] != '9') continue;
        const std::size_t end = std::min(digits.find_first_not_of(digits[at], at), digits.size());
        if (end - at >= 6 && digits.size() - end <= 3) {
            hadNoise_ = true;
            decimal_ = decimal_.roundedToDigits(static_cast<int>(at));
            return;
        }
    }
}

std::u16string PlainFormatter::text(const PlainStyle& style) const {
    if (std::isnan(number_)) return u"nan";
    if (std::isinf(number_)) return number_ > 0 ? u"inf" : u"-inf";
    if (style.type >= binary) return radixText(number_, style.type);
    const PlainDecimal decimal = style.type == percent ? timesHundred(decimal_) : decimal_;
    std::u16string text = style.places == -1 ? figuresText(decimal, style) : placesText(decimal, style);
    // What shows no digit but 0 has no sign.
    const std::u16string mantissa = text.substr(0, text.find(u'e'));
    if (number_ < 0.0 && mantissa.find_first_of(u"123456789") != std::u16string::npos) text.insert(0, 1, u'-');
    return style.type == percent ? text + u"%" : text;
}
