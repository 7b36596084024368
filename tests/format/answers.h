#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

#include "format/TXNumberFormatter.h"
#include "tests/support/text.h"

// What the rows of the answer tables are made of.

/// A digit choice: figures(3), places(2), bare(2) for two places without added zeros, or automatic.
struct DigitChoice {
    int figures = -1;
    int places = -1;
    bool addsZeros = true;
};
inline constexpr DigitChoice automatic;
constexpr DigitChoice figures(int count) { return {.figures = count}; }
constexpr DigitChoice places(int count) { return {.places = count}; }
constexpr DigitChoice bare(int count) { return {.places = count, .addsZeros = false}; }

struct AnswerCase {
    const char* name = "";
    DigitChoice digits;
    double number = 0.0;
    const char* text = "";
};
inline void PrintTo(const AnswerCase& row, std::ostream* out) { *out << row.text; }

inline void choose(TXNumberFormatterSettings& settings, const DigitChoice& digits) {
    if (digits.places == -1) {
        settings.setSignificantFigures(static_cast<std::int8_t>(digits.figures));
    } else {
        settings.setDecimalPlaces(static_cast<std::int8_t>(digits.places));
    }
    settings.setAddZerosInDecimalMode(digits.addsZeros);
}

/// The answer of a fresh formatter; with a separator, separators are on.
inline std::string answer(int type, const DigitChoice& digits, double number,
                          const std::optional<std::u16string>& separator = std::nullopt) {
    TXNumberFormatterSettings settings;
    settings.setFormattingType(static_cast<std::int8_t>(type));
    choose(settings, digits);
    if (separator) {
        settings.setThousandsSeparators(true);
        settings.setThousandsCharacter(*separator);
    }
    return utf8(TXNumberFormatter(&settings).formattedNumberForNumber(number));
}
