// The first digits of a double.
//
// std::to_chars gives the shortest decimal of any double, but it searches all 17 digits. Most answers are whole
// numbers, or lie where a multiplication by a power of ten that a double holds exactly makes 15 digits of them:
// for those an integer is taken apart instead, which gives the same digits and takes half the time.
#include "format/leadingDigits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>

#include "engine/records/numberText.h"
#include "format/wholeDigits.h"

namespace {

constexpr std::int64_t smallestWith15Digits = 100000000000000;
constexpr double smallestWith16Digits = 1e15;
constexpr double largestExactWhole = 9007199254740992.0;  // below it every whole number is a double

// The powers of ten that a double holds exactly.
constexpr std::array exactPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// A whole number of at most 16 digits, to be divided by 10^places.
struct ScaledNumber {
    std::int64_t whole;
    int places;
};

std::optional<ScaledNumber> wholeNumber(double magnitude) {
    if (magnitude >= largestExactWhole) {
        return std::nullopt;
    }
    const auto whole = static_cast<std::int64_t>(magnitude);
    return static_cast<double>(whole) == magnitude ? std::optional(ScaledNumber{whole, 0}) : std::nullopt;
}

/// How often `magnitude` is to be multiplied by ten to have 15 digits before the point, or one time more.
int placesFor15Digits(double magnitude) {
    constexpr int fractionBits = 52;
    constexpr int bias = 1023;
    constexpr int log10Of2In65536ths = 19728;  // log10(2) * 65536
    const int binary = static_cast<int>(std::bit_cast<std::uint64_t>(magnitude) >> fractionBits) - bias;
    return maxLeadingDigits - 1 - (binary * log10Of2In65536ths >> 16);
}

std::optional<ScaledNumber> scaledTo15Digits(double magnitude) {
    int places = placesFor15Digits(magnitude);
    if (places < 1 || places >= static_cast<int>(exactPowers.size())) {
        return std::nullopt;
    }
    if (magnitude * exactPowers[static_cast<std::size_t>(places)] >= smallestWith16Digits) {
        --places;
    }
    const double power = exactPowers[static_cast<std::size_t>(places)];
    const double scaled = magnitude * power;
    // Doubles lie closer than 15 digits: where a number of 15 digits reads back to this one, it is the shortest.
    const std::int64_t nearest = (static_cast<std::int64_t>(2 * scaled) + 1) / 2;
    if (static_cast<double>(nearest) / power == magnitude) {
        return ScaledNumber{nearest, places};
    }
    // Otherwise no number of 15 digits lies between this double and its shortest decimal, so both begin alike. The
    // product was rounded, but not across a whole number; where it was rounded to one, the error tells its side.
    auto whole = static_cast<std::int64_t>(scaled);
    if (static_cast<double>(whole) == scaled && std::fma(magnitude, power, -scaled) < 0.0) {
        --whole;
    }
    return whole < smallestWith15Digits ? std::nullopt : std::optional(ScaledNumber{whole, places});
}

int takeApart(ScaledNumber number, DigitList& digits) {
    const WholeDigits apart = wholeDigits(number.whole);
    digits.append(apart.first, apart.firstCount);
    if (apart.hasRest) {
        digits.append(apart.rest, static_cast<int>(apart.rest.size()));
    }
    const int exponent = digits.count() - 1 - number.places;
    digits.cutToLength(maxLeadingDigits);
    return exponent;
}

}  // namespace

int leadingDigits(double magnitude, DigitList& digits) {
    digits.clear();
    if (const auto whole = wholeNumber(magnitude)) {
        return takeApart(*whole, digits);
    }
    if (const auto scaled = scaledTo15Digits(magnitude)) {
        return takeApart(*scaled, digits);
    }
    const ShortestDecimal shortest = shortestDecimal(magnitude);
    DigitList::Block block{};
    std::copy_n(shortest.digits().data(), block.size(), block.begin());
    for (std::uint8_t& digit : block) {
        digit = static_cast<std::uint8_t>(digit - '0');
    }
    digits.append(block, std::min(shortest.count, maxLeadingDigits));
    return shortest.exponent;
}
