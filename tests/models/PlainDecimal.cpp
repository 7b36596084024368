#include "tests/models/PlainDecimal.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <vector>

#include <mpfr.h>

namespace {

constexpr mpfr_prec_t doublePrecision = 53;
// What separates a decimal of 17 digits from a double needs as many binary digits as the smallest double's exponent.
constexpr mpfr_prec_t exactPrecision = 2500;

class Real {
public:
    explicit Real(mpfr_prec_t precision) { mpfr_init2(&value_, precision); }
    ~Real() { mpfr_clear(&value_); }
    Real(const Real&) = delete;
    Real& operator=(const Real&) = delete;
    Real(Real&&) = delete;
    Real& operator=(Real&&) = delete;

    mpfr_ptr get() { return &value_; }

private:
    __mpfr_struct value_{};
};

PlainDecimal rounded(double magnitude, std::size_t digitCount, mpfr_rnd_t direction) {
    thread_local Real real(doublePrecision);
    mpfr_set_d(real.get(), magnitude, MPFR_RNDN);
    std::array<char, 32> digits{};
    mpfr_exp_t pointBehind = 0;
    mpfr_get_str(digits.data(), &pointBehind, 10, digitCount, real.get(), direction);
    return {mpz_class(digits.data()), static_cast<int>(pointBehind) - static_cast<int>(digitCount)};
}

std::string textOf(const PlainDecimal& decimal) { return decimal.digits() + "e" + std::to_string(decimal.exponent); }

bool readsBackTo(double magnitude, const PlainDecimal& decimal) {
    return std::strtod(textOf(decimal).c_str(), nullptr) == magnitude;
}

bool isNearer(double magnitude, const PlainDecimal& one, const PlainDecimal& other) {
    thread_local Real distance(exactPrecision);
    thread_local Real otherDistance(exactPrecision);
    const auto measure = [magnitude](Real& result, const PlainDecimal& decimal) {
        mpfr_set_str(result.get(), textOf(decimal).c_str(), 10, MPFR_RNDN);
        mpfr_sub_d(result.get(), result.get(), magnitude, MPFR_RNDN);
    };
    measure(distance, one);
    measure(otherDistance, other);
    return mpfr_cmpabs(distance.get(), otherDistance.get()) < 0;
}

// Of two neighbours, the nearer need not read back: below a power of two doubles lie closer than above.
std::optional<PlainDecimal> decimalOf(double magnitude, std::size_t digitCount) {
    const PlainDecimal below = rounded(magnitude, digitCount, MPFR_RNDD);
    const PlainDecimal above = rounded(magnitude, digitCount, MPFR_RNDU);
    const bool isBelow = readsBackTo(magnitude, below);
    const bool isAbove = readsBackTo(magnitude, above);
    if (isBelow && isAbove) return isNearer(magnitude, below, above) ? below : above;
    if (isBelow) return below;
    return isAbove ? std::optional(above) : std::nullopt;
}

}  // namespace

const mpz_class& powerOfTen(int exponent) {
    thread_local std::vector<mpz_class> powers{1};
    const auto at = static_cast<std::size_t>(exponent);
    while (powers.size() <= at) powers.emplace_back(powers.back() * 10);
    return powers[at];
}

int PlainDecimal::digitCount() const {
    const auto count = static_cast<int>(mpz_sizeinbase(units.get_mpz_t(), 10));
    // What GMP gives may be one too many.
    return count > 1 && units < powerOfTen(count - 1) ? count - 1 : count;
}

PlainDecimal PlainDecimal::filledTo(int lowest) const {
    if (exponent <= lowest) return *this;
    return {units * powerOfTen(exponent - lowest), lowest};
}

PlainDecimal PlainDecimal::cutAt(int lowest) const {
    if (exponent >= lowest) return *this;
    return {units / powerOfTen(lowest - exponent), lowest};
}

PlainDecimal PlainDecimal::withoutZerosAtEnd() const {
    PlainDecimal decimal = *this;
    while (!decimal.isZero() && decimal.units % 10 == 0) {
        decimal.units /= 10;
        ++decimal.exponent;
    }
    return decimal;
}

PlainDecimal PlainDecimal::roundedToDigits(int count) const {
    const int dropped = digitCount() - count;
    if (dropped <= 0) return *this;
    if (count < 0) return {};
    const mpz_class& unit = powerOfTen(dropped);
    PlainDecimal rounded{(units + unit / 2) / unit, exponent + dropped};
    if (rounded.isZero()) return {};
    if (count > 0 && rounded.digitCount() > count) {
        rounded.units /= 10;
        ++rounded.exponent;
    }
    return rounded;
}

PlainDecimal shortestPlainDecimal(double magnitude) {
    constexpr std::size_t alwaysEnough = 17;
    for (std::size_t digitCount = 1; digitCount <= alwaysEnough; ++digitCount) {
        if (const auto decimal = decimalOf(magnitude, digitCount)) return decimal->withoutZerosAtEnd();
    }
    throw std::logic_error("no decimal of 17 digits reads back");
}
