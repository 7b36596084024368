#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "format/TXNumberFormatterSettings.h"

/// How answers are written, as four characters of an input choose it: "1A0," is what a new document has.
///
/// | character | what it chooses |
/// | --- | --- |
/// | type | "1" to "7": that formatting type; any other: the type with the character's own code |
/// | digits | "A" automatic, "B" to "K" 1 to 10 figures, "L" to "V" 0 to 10 places; any other: a number off the menu |
/// | marks | a digit, the sum of: 1 separators, 2 no added zeros, 4 other texts for the point and the exponent |
/// | separator | "," or " " or "'"; any other: a narrow no-break space |
struct FormatChoice {
    static constexpr std::size_t length = 4;

    TXNumberFormatterSettings settings;
    bool isOnMenu = true;  ///< The type and the digit choice are such as a user can make.

    /// Reads the first four characters; those that are not there choose nothing.
    static FormatChoice read(std::string_view characters);
};

inline FormatChoice FormatChoice::read(std::string_view characters) {
    std::array<char, length> chosen = {'1', 'A', '0', ','};
    std::copy_n(characters.begin(), std::min(length, characters.size()), chosen.begin());
    const auto [type, digits, marks, separator] = chosen;

    FormatChoice choice;
    TXNumberFormatterSettings& settings = choice.settings;
    const bool isNamedType = type >= '1' && type <= '7';
    settings.setFormattingType(static_cast<std::int8_t>(isNamedType ? type - '0' : type));
    const bool isOnDigitMenu = digits >= 'A' && digits <= 'V';
    if (isOnDigitMenu) {
        settings.setDigitsWithSettingsControllerIndex(static_cast<unsigned int>(digits - 'A'));
    } else if (digits % 2 == 0) {
        settings.setDecimalPlaces(static_cast<std::int8_t>(digits));
    } else {
        settings.setSignificantFigures(static_cast<std::int8_t>(digits));
    }
    choice.isOnMenu = isNamedType && isOnDigitMenu;

    const auto bits = static_cast<unsigned char>(marks);
    settings.setThousandsSeparators((bits & 1U) != 0);
    settings.setAddZerosInDecimalMode((bits & 2U) == 0);
    if ((bits & 4U) != 0) {
        settings.setDecimalCharacter(u",");
        settings.setExponentCharacter(u"E");
    }
    const bool isOnSeparatorMenu = separator == ',' || separator == ' ' || separator == '\'';
    const char16_t character = isOnSeparatorMenu ? static_cast<char16_t>(separator) : u'\u202F';
    settings.setThousandsCharacter({&character, 1});
    return choice;
}
