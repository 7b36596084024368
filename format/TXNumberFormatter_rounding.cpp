// Rounding to figures or places, and the choice between plain and exponent form.
#include "format/TXNumberFormatter.h"

#include <algorithm>

namespace {

// The exponents of the first digit between which a decimal answer is plain.
constexpr int largestPlain = 14;
constexpr int smallestPlain = -5;

constexpr int percentExponent = 2;  // times 100

}  // namespace

std::u16string_view TXNumberFormatter::significantFiguresView(int figures) {
    copyMasterNumberIntoRoundingNumber();
    int type = preferencesAnswerFormatting_;
    if (type == TXFormattingType::percent) {
        exponent_ += percentExponent;
        type = TXFormattingType::decimal;
    }
    displayExponent_ = true;
    if (figures != automatic) {
        truncateToLength(figures);
    }
    const int leading = sciPonent();
    const bool isOutsidePlain = leading > largestPlain || leading < smallestPlain;
    if (type == TXFormattingType::scientific || (type == TXFormattingType::decimal && isOutsidePlain)) {
        exponent_ = leading;
        decimalLocation_ = 1;
    } else if (type == TXFormattingType::engineering) {
        decimalLocation_ = engLength(leading);
        exponent_ = leading - decimalLocation_ + 1;
        roundingNumber_.addZerosToEnd(decimalLocation_ - roundingNumber_.count());
    } else {
        writeOutPlainly(leading);
    }
    return numberView();
}

void TXNumberFormatter::writeOutPlainly(int leadingExponent) {
    displayExponent_ = false;
    exponent_ = 0;
    if (isZeroNumber()) {
        return;
    }
    if (leadingExponent >= 0) {
        roundingNumber_.addZerosToEnd(leadingExponent - roundingNumber_.count() + 1);
        decimalLocation_ = leadingExponent + 1;
    } else {
        roundingNumber_.addZerosToBeginning(-leadingExponent);
        decimalLocation_ = 1;
    }
}

std::u16string_view TXNumberFormatter::decimalView(int places) {
    // Beyond what a list holds one place more or less is the same.
    places = std::clamp(places, -DigitList::capacity, DigitList::capacity);
    copyMasterNumberIntoRoundingNumber();
    const int type = preferencesAnswerFormatting_;
    if (type == TXFormattingType::percent) {
        exponent_ += percentExponent;
    }
    displayExponent_ = true;
    if (type == TXFormattingType::scientific || sciPonent() > largestPlain) {
        roundToScientificPlaces(places);
    } else if (type == TXFormattingType::engineering) {
        roundToEngineeringPlaces(places);
    } else if (type == TXFormattingType::decimal || type == TXFormattingType::percent) {
        roundToPlainPlaces(places);
    }
    if (decimalLocation_ == 0) {
        roundingNumber_.addZerosToBeginning(1);
        decimalLocation_ = 1;
    }
    // The places up to the point are part of the value, whether or not zeros are wanted behind it.
    roundingNumber_.addZerosToEnd(decimalLocation_ - roundingNumber_.count());
    return numberView();
}

void TXNumberFormatter::roundToScientificPlaces(int places) {
    const int length = places + 1;
    truncateToLength(length);
    padToLength(length);
    exponent_ = sciPonent();
    decimalLocation_ = 1;
}

void TXNumberFormatter::roundToEngineeringPlaces(int places) {
    truncateToLength(places + engLength(sciPonent()));
    // Rounding may have carried into a new first place: 999.96 at 1 place is 1.000e3.
    const int leading = sciPonent();
    const int whole = engLength(leading);
    padToLength(places + whole);
    exponent_ = leading - whole + 1;
    decimalLocation_ = whole;
}

void TXNumberFormatter::roundToPlainPlaces(int places) {
    displayExponent_ = false;
    decimalLocation_ += exponent_;
    exponent_ = 0;
    truncateToLength(decimalLocation_ + places);
    const int leading = sciPonent();
    int length = std::max(leading, 0) + places + 1;
    if (isZeroNumber()) {
        length = places + 1;
        decimalLocation_ = 1;
    }
    if (decimalLocation_ < 1) {
        roundingNumber_.addZerosToBeginning(1 - decimalLocation_);
        decimalLocation_ = 1;
    }
    padToLength(length);
}

void TXNumberFormatter::padToLength(int length) {
    if (preferencesAddZerosInDecimalMode_) {
        roundingNumber_.addZerosToEnd(length - roundingNumber_.count());
    }
}

int TXNumberFormatter::engLength(int leadingExponent) {
    constexpr int group = 3;
    const int rest = leadingExponent % group;  // has the sign of the exponent
    return (rest < 0 ? rest + group : rest) + 1;
}

void TXNumberFormatter::setExponentsToZero() {
    load();
    const int leading = sciPonent();
    // Compared as unsigned numbers: to a negative exponent no list is long enough.
    if (static_cast<std::uint32_t>(roundingNumber_.count() - 1) >= static_cast<std::uint32_t>(leading)) {
        return;
    }
    addZerosToEnd(leading - roundingNumber_.count() + 1);
    exponent_ = 0;
    decimalLocation_ = roundingNumber_.count() + 1;
}
