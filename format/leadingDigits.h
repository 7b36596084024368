#pragma once

#include "format/DigitList.h"

/// An answer takes no more digits than these from a double.
inline constexpr int maxLeadingDigits = 15;

/// Fills `digits` with the first 15 digits of `magnitude`, as its shortest decimal has them, cut and not rounded.
///
/// `magnitude` is finite and above zero. Zeros may follow the last digit that counts, within the 15. Gives the power
/// of ten of the first digit: 1234.5 is 1 2 3 4 5 and 3.
int leadingDigits(double magnitude, DigitList& digits);
