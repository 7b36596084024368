// The digit list: a double loaded, cleaned of noise, cut and padded.
#include "format/TXNumberFormatter.h"

#include <algorithm>
#include <cmath>

#include "engine/records/numberText.h"
#include "format/leadingDigits.h"

namespace {

constexpr int noiseRun = 6;    // so many equal nines or zeros are noise
constexpr int noiseSlack = 3;  // if no more digits than this come behind them

std::u16string listed(const DigitList& digits) {
    std::u16string text = u"(";
    for (const std::uint8_t digit : digits) {
        if (text.size() > 1) text += u", ";
        text += static_cast<char16_t>(u'0' + digit);
    }
    return text + u")";
}

}  // namespace

void TXNumberFormatter::setNumber(double number) {
    load();
    loadMasterNumber(number);
    if (number != 0.0) {
        copyMasterNumberIntoRoundingNumber();
    }
}

// Without the working digits: who rounds the number copies them anyway.
void TXNumberFormatter::loadMasterNumber(double number) {
    negative_ = signOf(number);
    masterDecimalLocation_ = 1;
    masterExponent_ = 0;
    if (number == 0.0 || !std::isfinite(number)) {
        masterRoundingNumber_.setTo(0);
        return;
    }
    const int leading = leadingDigits(std::fabs(number), masterRoundingNumber_);
    if (!isWrittenPlainly(leading)) {
        masterExponent_ = leading;
    } else if (leading >= 0) {
        masterDecimalLocation_ = leading + 1;
    } else {
        // The zeros of "0.00012" are among the 15 characters that are taken, though not among the digits.
        masterRoundingNumber_.cutToLength(maxLeadingDigits + leading);
        masterDecimalLocation_ = 0;
        masterExponent_ = leading + 1;
    }
    masterRoundingNumber_.removeZerosFromEnd();
    removeNoise();
}

void TXNumberFormatter::removeTrailingZeros() {
    load();
    masterRoundingNumber_.removeZerosFromEnd();
}

void TXNumberFormatter::eliminateDoublePrecisionNoise() {
    copyMasterNumberIntoRoundingNumber();
    removeNoise();
}

// A run with at most three digits behind it, and six long, covers the fourth digit from the end. So it is enough to
// look at the one run that covers that digit. A run that begins before the point counts from the point on.
void TXNumberFormatter::removeNoise() {
    const DigitList& digits = masterRoundingNumber_;
    const int fractionStart = std::max(masterDecimalLocation_, 0);
    const int covered = digits.count() - 1 - noiseSlack;
    if (covered < fractionStart || (digits[covered] != 9 && digits[covered] != 0)) {
        return;
    }
    int start = covered;
    while (start > fractionStart && digits[start - 1] == digits[covered]) {
        --start;
    }
    int end = covered + 1;
    while (end < digits.count() && digits[end] == digits[covered]) {
        ++end;
    }
    if (end - start < noiseRun) {
        return;
    }
    copyMasterNumberIntoRoundingNumber();
    truncateToLength(start);
    masterRoundingNumber_ = roundingNumber_;
    masterDecimalLocation_ = decimalLocation_;
    masterExponent_ = exponent_;
}

void TXNumberFormatter::copyMasterNumberIntoRoundingNumber() {
    load();
    roundingNumber_ = masterRoundingNumber_;
    decimalLocation_ = masterDecimalLocation_;
    exponent_ = masterExponent_;
}

void TXNumberFormatter::truncateToLength(int length) {
    load();
    if (length >= roundingNumber_.count()) {
        return;
    }
    const bool roundsUp = length >= 0 && roundingNumber_[length] >= 5;
    if (length > 0 && roundsUp) {
        truncateWithRoundingToLength(length);
    } else if (length > 0) {
        roundingNumber_.cutToLength(length);
    } else if (roundsUp) {
        roundingNumber_.setTo(1);
        ++decimalLocation_;
    } else {
        roundingNumber_.setTo(0);
        exponent_ = 0;
        decimalLocation_ = 1;
    }
}

void TXNumberFormatter::truncateWithRoundingToLength(int length) {
    load();
    if (length < 1 || roundingNumber_.count() == 0) return;
    roundingNumber_.cutToLength(length);
    int position = roundingNumber_.count() - 1;
    while (position >= 0 && roundingNumber_[position] == 9) {
        roundingNumber_[position--] = 0;
    }
    if (position >= 0) {
        ++roundingNumber_[position];
    } else {
        // All nines became zeros: a 1 in front of them, and one zero less at the end.
        roundingNumber_[0] = 1;
        ++decimalLocation_;
    }
}

bool TXNumberFormatter::isZeroNumber() const {
    load();
    return std::all_of(roundingNumber_.begin(), roundingNumber_.end(), [](std::uint8_t digit) { return digit == 0; });
}

std::u16string TXNumberFormatter::logMasterRoundingNumber() const { return listed(masterRoundingNumber()); }

std::u16string TXNumberFormatter::logRoundingNumber() const { return listed(roundingNumber()); }
