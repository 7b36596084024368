#include "tests/models/DoubleSource.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace {

double read(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

}  // namespace

double DoubleSource::next(std::size_t kind) {
    const double number = magnitude(kind);
    return random_.oneIn(2) ? -number : number;
}

double DoubleSource::magnitude(std::size_t kind) {
    switch (kind) {
        case 0: return anyBits();
        case 1: return wholeNumber();
        case 2: return shortDecimal();
        case 3: return nearTie();
        case 4: return binaryNoise();
        case 5: return runOfDigits();
        case 6: return nearThreshold();
        case 7: return subnormal();
        case 8: return powerOfTwoOrTen();
        default: return zeroOrNotFinite();
    }
}

double DoubleSource::anyBits() { return std::bit_cast<double>(random_.bits()); }

double DoubleSource::wholeNumber() { return std::trunc(read(digits(random_.between(1, 22)))); }

double DoubleSource::shortDecimal() {
    return read(digits(random_.between(1, 6)) + "e" + std::to_string(random_.between(-10, 6)));
}

// Ends in a 5, or a few steps beside it.
double DoubleSource::nearTie() {
    const std::string text = digits(random_.between(0, 14)) + "5e" + std::to_string(random_.between(-20, 12));
    return moved(read(text), random_.between(-2, 2));
}

double DoubleSource::binaryNoise() {
    switch (random_.below(3)) {
        case 0: return shortDecimal() + shortDecimal();
        case 1: return shortDecimal() * random_.between(1, 1000);
        default: return moved(shortDecimal(), random_.between(-9, 9));
    }
}

double DoubleSource::runOfDigits() {
    std::string text = digits(random_.between(0, 8));
    const std::size_t point = random_.below(text.size() + 1);
    text.append(static_cast<std::size_t>(random_.between(4, 14)), random_.oneIn(2) ? '0' : '9');
    text += digits(random_.between(0, 5));
    text.insert(point, random_.oneIn(4) ? ".00" : ".");
    return read("0" + text + "e" + std::to_string(random_.oneIn(3) ? random_.between(-30, 30) : 0));
}

// Where the form of the text changes, or what a 32-bit number holds ends.
double DoubleSource::nearThreshold() {
    constexpr std::array<double, 20> thresholds{1e-6, 1e-5, 1e-4,  1e-3,   0.1,  0.5,         0.9999999,
                                                1.0,  10.0, 999.5, 1000.0, 1e6,  1e13,        1e14,
                                                1e15, 1e16, 1e17,  1e18,   4e15, 2147483648.0};
    const double threshold = random_.oneOf(thresholds);
    return random_.oneIn(2) ? moved(threshold, random_.between(-3, 3)) : threshold * (1.0 + shortDecimal() * 1e-9);
}

double DoubleSource::subnormal() {
    const std::uint64_t fraction = random_.bits() & 0xFFFFFFFFFFFFFU;
    return std::bit_cast<double>(fraction >> random_.below(52));
}

double DoubleSource::powerOfTwoOrTen() {
    if (random_.oneIn(2)) return moved(std::ldexp(1.0, random_.between(-1074, 1023)), random_.between(-1, 1));
    return moved(read("1e" + std::to_string(random_.between(-323, 308))), random_.between(-1, 1));
}

double DoubleSource::zeroOrNotFinite() {
    switch (random_.below(4)) {
        case 0: return std::numeric_limits<double>::infinity();
        case 1: return std::numeric_limits<double>::quiet_NaN();
        case 2: return std::numeric_limits<double>::max();
        default: return 0.0;
    }
}

double DoubleSource::moved(double number, int steps) {
    const double towards =
        steps < 0 ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
    for (int step = 0; step < std::abs(steps); ++step) number = std::nextafter(number, towards);
    return number;
}

std::string DoubleSource::digits(int count) {
    std::string text;
    for (; count > 0; --count) text += static_cast<char>('0' + random_.below(10));
    return text;
}
