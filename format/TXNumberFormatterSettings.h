#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "format/SharedText.h"

/// The codes of a formatting type. Settings store any other 8-bit number as well; the formatter has a text for each.
namespace TXFormattingType {
inline constexpr std::int8_t decimal = 1;      ///< Exponent form only for very large or very small magnitudes.
inline constexpr std::int8_t scientific = 2;   ///< One digit before the point: 1.5e12.
inline constexpr std::int8_t engineering = 3;  ///< An exponent that is a multiple of 3: 15e-6.
inline constexpr std::int8_t percent = 4;      ///< Decimal, times 100, with a "%".
inline constexpr std::int8_t binary = 5;
inline constexpr std::int8_t octal = 6;
inline constexpr std::int8_t hexadecimal = 7;
}  // namespace TXFormattingType

/// How a document's answers are written. Each document owns one; its formatter reads it before every answer.
///
/// Digits are automatic, or a number of significant figures, or a number of decimal places: choosing one of the two
/// numbers clears the other. The texts may be set while another thread reads them.
class TXNumberFormatterSettings {
public:
    /// Stands in `significantFigures` and in `decimalPlaces` for "not chosen".
    static constexpr std::int8_t automatic = -1;

    /// Written between groups of three digits, "," at first. The reference stays good as long as the settings live.
    const std::u16string& thousandsCharacter() const { return thousandsCharacter_.text(); }
    void setThousandsCharacter(std::u16string_view text) { thousandsCharacter_.setText(text); }

    /// "." at first. Kept for whoever asks; the formatter always writes ".".
    const std::u16string& decimalCharacter() const { return decimalCharacter_.text(); }
    void setDecimalCharacter(std::u16string_view text) { decimalCharacter_.setText(text); }

    /// "e" at first. Kept for the document, which shows it; the formatter always writes "e".
    const std::u16string& exponentCharacter() const { return exponentCharacter_.text(); }
    void setExponentCharacter(std::u16string_view text) { exponentCharacter_.setText(text); }

    /// One of TXFormattingType.
    std::int8_t formattingType() const { return formattingType_; }
    void setFormattingType(std::int8_t type) { formattingType_ = type; }

    std::int8_t significantFigures() const { return significantFigures_; }
    /// Chooses significant figures; 0 of them means automatic digits. Other numbers are stored as they are.
    void setSignificantFigures(std::int8_t figures);

    std::int8_t decimalPlaces() const { return decimalPlaces_; }
    /// Chooses decimal places, of which 0 is a number like any other. They are stored as they are.
    void setDecimalPlaces(std::int8_t places);

    bool thousandsSeparators() const { return thousandsSeparators_; }
    void setThousandsSeparators(bool isOn) { thousandsSeparators_ = isOn; }

    /// Whether decimal places are filled up with zeros: 2 at 2 places is "2.00" or "2".
    bool addZerosInDecimalMode() const { return addZerosInDecimalMode_; }
    void setAddZerosInDecimalMode(bool isOn) { addZerosInDecimalMode_ = isOn; }

    /// The digit choice as its position in the digit menu: 0 automatic, 1 to 10 that many significant figures,
    /// 11 to 21 that many decimal places and 11.
    unsigned int digitIndexForSettingsController() const;
    /// Makes the digit choice at position `index` of the menu. A position from 22 on gives automatic digits.
    void setDigitsWithSettingsControllerIndex(unsigned int index);

    /// One line for logging.
    std::u16string description() const;

private:
    SharedText thousandsCharacter_{u","};
    SharedText decimalCharacter_{u"."};
    SharedText exponentCharacter_{u"e"};
    std::int8_t formattingType_ = TXFormattingType::decimal;
    std::int8_t significantFigures_ = automatic;
    std::int8_t decimalPlaces_ = automatic;
    bool thousandsSeparators_ = false;
    bool addZerosInDecimalMode_ = true;
};
