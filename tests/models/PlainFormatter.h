#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tests/models/PlainDecimal.h"

/// How a number is to be written. Significant figures or decimal places are -1 where they are not chosen.
struct PlainStyle {
    int type = 1;
    int figures = -1;
    int places = -1;
    bool addsZeros = true;
    std::u16string_view separator;  ///< Empty for none.
};

/// Writes one number in every style, by arithmetic on decimals instead of lists of digits.
class PlainFormatter {
public:
    explicit PlainFormatter(double number);

    std::u16string text(const PlainStyle& style) const;

    /// Whether a run of zeros or nines was taken for the noise of binary rounding.
    bool hadNoise() const { return hadNoise_; }

private:
    void load(double magnitude);
    void removeNoise(int digitsBeforePoint);

    double number_;
    PlainDecimal decimal_;  ///< What is left of the magnitude after cut and clean-up; 0 where that is 0 or not finite.
    bool hadNoise_ = false;
};
