#include "bench/benchDoubles.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <random>

namespace {

class DoubleMaker {
public:
    double next(DoubleSet set) {
        const double magnitude = magnitudeOf(set);
        return below(2) == 0 ? magnitude : -magnitude;
    }

private:
    double magnitudeOf(DoubleSet set) {
        switch (set) {
            case DoubleSet::integers: return static_cast<double>(ofDigits(1 + below(15)));
            case DoubleSet::shortDecimals: return shortDecimal();
            case DoubleSet::fullPrecision: return fullPrecision();
            case DoubleSet::anyMagnitude: break;
        }
        return anyMagnitude();
    }

    std::uint64_t below(std::uint64_t bound) { return generator_() % bound; }

    static double powerOfTen(std::uint64_t exponent) { return std::pow(10.0, static_cast<double>(exponent)); }

    // Of exactly so many digits.
    std::uint64_t ofDigits(std::uint64_t digits) {
        const auto smallest = static_cast<std::uint64_t>(powerOfTen(digits - 1));
        return smallest + below(9 * smallest);
    }

    double shortDecimal() {
        const std::uint64_t places = 1 + below(4);
        const std::uint64_t digits = places + 1 + below(5);
        // Divided once, so that the number is the nearest to its few digits. Its last digit is not 0.
        const std::uint64_t whole = 10 * ofDigits(digits - 1) + 1 + below(9);
        return static_cast<double>(whole) / powerOfTen(places);
    }

    double fullPrecision() {
        constexpr std::uint64_t powers = 23;
        const double leading = 1.0 + 9.0 * std::ldexp(static_cast<double>(generator_() >> 11U), -53);
        return leading * (powerOfTen(below(powers)) / 1e8);
    }

    double anyMagnitude() {
        while (true) {
            const double number = std::fabs(std::bit_cast<double>(generator_()));
            if (std::isfinite(number)) return number;
        }
    }

    // A generator whose numbers the standard lays down, with a seed of its own.
    std::mt19937_64 generator_{20261121};  // NOLINT(cert-msc32-c,cert-msc51-cpp): always the same numbers
};

}  // namespace

std::optional<DoubleSet> doubleSetNamed(std::string_view name) {
    const auto* const found = std::find(doubleSetNames.begin(), doubleSetNames.end(), name);
    if (found == doubleSetNames.end()) {
        return std::nullopt;
    }
    return static_cast<DoubleSet>(found - doubleSetNames.begin());
}

std::vector<double> benchDoubles(DoubleSet set, std::size_t count) {
    DoubleMaker maker;
    std::vector<double> numbers;
    numbers.reserve(count);
    while (numbers.size() < count) {
        numbers.push_back(maker.next(set));
    }
    return numbers;
}
