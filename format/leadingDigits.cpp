// The first digits of a double.
//
// std::to_chars gives the shortest decimal of any double, but it searches all 17 digits. For 15 of them the double is
// multiplied by a power of ten, so that they stand before the point, in 64 bits and with a known error. Where the
// error could matter, std::to_chars is asked.
#include "format/leadingDigits.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>

#include "engine/records/numberText.h"
#include "format/powersOfTen.h"
#include "format/wholeDigits.h"

namespace {

/// A double above zero as `significand` x 2^(`exponent` - 63), with the first bit of the significand set.
struct BinaryNumber {
    std::uint64_t significand;
    int exponent;
};

/// A number of 15 digits, or 10^15, divided by 10^places.
struct ScaledNumber {
    std::int64_t whole;
    int places;
};

// The smallest doubles have fewer bits than the others, and are left to std::to_chars.
std::optional<BinaryNumber> binaryNumber(double magnitude) {
    constexpr unsigned fractionBits = 52;
    constexpr unsigned unusedBits = 11;
    constexpr int bias = 1023;
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    const auto biased = static_cast<int>(bits >> fractionBits);
    if (biased == 0) {
        return std::nullopt;
    }
    return BinaryNumber{bits << unusedBits | std::uint64_t{1} << 63U, biased - bias};
}

/// The power of ten of the first digit. Where the number lies so close below a power of ten that the table's bits do
/// not tell them apart, it may be that one's.
int leadingExponent(BinaryNumber number) {
    constexpr int log10Of2 = 1262611;  // log10(2) * 2^22
    const int least = number.exponent * log10Of2 >> 22;
    const PowerOfTen next = powerOfTen(least + 1);
    // Added and not branched on: no processor could foresee it.
    const bool isNext = number.exponent == next.exponent && number.significand >= next.significand;
    return least + (isNext ? 1 : 0);
}

/// The upper half of a product.
std::uint64_t productHigh(std::uint64_t left, std::uint64_t right) {
    constexpr std::uint64_t half = 0xFFFFFFFFU;
    const std::uint64_t low = (left & half) * (right & half);
    const std::uint64_t middle = (left >> 32U) * (right & half) + (low >> 32U);
    const std::uint64_t otherMiddle = (left & half) * (right >> 32U) + (middle & half);
    return (left >> 32U) * (right >> 32U) + (middle >> 32U) + (otherMiddle >> 32U);
}

/// A number times a power of ten: `bits`, of which the last `fractionBits` stand behind the point, and as much of it
/// as half the distance to the next double. Either is less than two units of the last bit too small.
struct Product {
    std::uint64_t bits;
    std::uint64_t halfDistance;
    unsigned fractionBits;

    std::int64_t whole() const { return static_cast<std::int64_t>(bits >> fractionBits); }
    std::int64_t nearestWhole() const {
        return static_cast<std::int64_t>((bits + (std::uint64_t{1} << (fractionBits - 1))) >> fractionBits);
    }
};

Product product(BinaryNumber number, int places) {
    constexpr unsigned halfDistanceShift = 54;  // half a unit of the 53rd bit
    const PowerOfTen power = powerOfTen(places);
    return {productHigh(number.significand, power.significand), power.significand >> halfDistanceShift,
            static_cast<unsigned>(62 - number.exponent - power.exponent)};
}

std::optional<ScaledNumber> scaledTo15Digits(double magnitude) {
    constexpr std::uint64_t error = 4;  // of the product and of half the distance together
    const auto number = binaryNumber(magnitude);
    if (!number) {
        return std::nullopt;
    }
    const int places = maxLeadingDigits - 1 - leadingExponent(*number);
    const Product scaled = product(*number, places);
    // Doubles lie closer than 15 digits: where a number of 15 digits reads back to this one, it is the shortest. Below
    // a power of two the next double is half as far.
    const std::int64_t nearest = scaled.nearestWhole();
    const std::uint64_t nearestBits = static_cast<std::uint64_t>(nearest) << scaled.fractionBits;
    const std::uint64_t away = std::max(nearestBits, scaled.bits) - std::min(nearestBits, scaled.bits);
    const bool isPowerOfTwo = number->significand << 1U == 0;
    if (away + error < scaled.halfDistance / (isPowerOfTwo ? 2 : 1)) {
        return ScaledNumber{nearest, places};
    }
    // Otherwise no number of 15 digits lies between this double and its shortest decimal: both begin alike.
    return away > scaled.halfDistance + error ? std::optional(ScaledNumber{scaled.whole(), places}) : std::nullopt;
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

int takeShortest(double magnitude, DigitList& digits) {
    const ShortestDecimal shortest = shortestDecimal(magnitude);
    DigitList::Block block{};
    std::copy_n(shortest.digits().data(), block.size(), block.begin());
    for (std::uint8_t& digit : block) {
        digit = static_cast<std::uint8_t>(digit - '0');
    }
    digits.append(block, std::min(shortest.count, maxLeadingDigits));
    return shortest.exponent;
}

}  // namespace

int leadingDigits(double magnitude, DigitList& digits) {
    digits.clear();
    const auto scaled = scaledTo15Digits(magnitude);
    return scaled ? takeApart(*scaled, digits) : takeShortest(magnitude, digits);
}
