#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "tests/models/Random.h"

/// Makes up doubles of every kind that is written in a way of its own.
class DoubleSource {
public:
    static constexpr std::array<std::string_view, 10> kinds{"any bits",
                                                            "whole number",
                                                            "short decimal",
                                                            "near a rounding tie",
                                                            "binary noise",
                                                            "run of nines or zeros",
                                                            "near a threshold",
                                                            "subnormal",
                                                            "power of two or ten",
                                                            "zero or not finite"};

    explicit DoubleSource(Random& random) : random_(random) {}

    /// A double of the kind at this position, of either sign.
    double next(std::size_t kind);

private:
    double magnitude(std::size_t kind);
    double anyBits();
    double wholeNumber();
    double shortDecimal();
    double nearTie();
    double binaryNoise();
    double runOfDigits();
    double nearThreshold();
    double subnormal();
    double powerOfTwoOrTen();
    double zeroOrNotFinite();

    double moved(double number, int steps);
    std::string digits(int count);

    Random& random_;
};
