#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "format/DigitList.h"
#include "format/TXNumberFormatterSettings.h"

/// Turns a double into the text of an answer, as the document's settings ask.
///
/// The settings are referred to, not owned: they must outlive the formatter. One formatter serves one document and is
/// not re-entrant. Nothing here fails: every double has a text.
///
/// The number is held as a list of decimal digits d1 d2 d3 ..., of which `decimalLocation` stand before the point,
/// times 10^`exponent`: the digits 1 2 3 at location 0 with exponent -2 are 0.123 x 10^-2. Loading a number fills the
/// master digits. Rounding works on a copy and leaves them as they are, so that it may be done again with other
/// settings.
class TXNumberFormatter {
public:
    /// Without settings, answers are decimal with automatic digits and no separators.
    explicit TXNumberFormatter(const TXNumberFormatterSettings* settings = nullptr)
        : numberFormatterSettings_(settings) {}

    const TXNumberFormatterSettings* numberFormatterSettings() const { return numberFormatterSettings_; }
    void setNumberFormatterSettings(const TXNumberFormatterSettings* settings) { numberFormatterSettings_ = settings; }

    /// The text of `number`, as the settings now are.
    ///
    /// With automatic digits at most 15 are shown, and the noise of binary rounding is cleaned away: 0.1 + 0.2 gives
    /// "0.3". What is not finite is "inf", "-inf" or "nan" under every setting.
    std::u16string formattedNumberForNumber(double number) { return std::u16string(formattedViewForNumber(number)); }

    /// The same text without a string of its own: it is good until the formatter writes its next.
    std::u16string_view formattedViewForNumber(double number);

    // The steps, public so that each can be tested by itself. A text that one gives is good until the next is written.

    // TXNumberFormatter.cpp: from the settings, and into text
    /// Makes the formatter ready for its first number.
    void setInitValues();
    /// Forgets the number before.
    void prepareForFormat();
    /// Takes over what the settings now say; without settings nothing changes. Their point and their exponent character
    /// are left alone: an answer always has "." and "e".
    void refreshFormatterSettings();
    /// The working digits as text: separators, point, exponent, sign and percent sign included.
    std::u16string_view stringForNumber();

    // TXNumberFormatter_digits.cpp: the digit list, loaded, cleaned, cut and padded
    /// Loads `number` into the master digits: 15 of them at most, without noise. What is not finite has no digits and
    /// is loaded as 0.
    void setNumber(double number);
    /// Removes the zeros at the end of the master digits, but never the last digit of all.
    void removeTrailingZeros();
    /// Rounds the master digits before a run of nines, or cuts them before a run of zeros, that binary rounding left:
    /// six or more after the point, with at most three other digits behind.
    void eliminateDoublePrecisionNoise();
    void copyMasterNumberIntoRoundingNumber();
    /// Cuts the working digits to `length`, rounding half up on the first one dropped. Cut to 0, they become a 1 in the
    /// place before, or a 0; cut to less, a 0.
    void truncateToLength(int length);
    /// Cuts the working digits to `length`, 1 or more, and adds one to the last of them:
    /// 9 9 9 at location 0, cut to 2 -> 1 0 at location 1.
    void truncateWithRoundingToLength(int length);
    void addZerosToEnd(int zeros) { roundingNumber_.addZerosToEnd(zeros); }
    /// The decimal location stays: the caller moves it.
    void addZerosToBeginning(int zeros) { roundingNumber_.addZerosToBeginning(zeros); }
    /// Whether the working digits are all 0.
    bool isZeroNumber() const;
    /// The master or the working digits as "(1, 2, 3)", to be looked at in a debugger.
    std::u16string logMasterRoundingNumber() const;
    std::u16string logRoundingNumber() const;

    // TXNumberFormatter_rounding.cpp: plain or with an exponent, to so many figures or places
    /// The text of the master digits, cut to `figures`, or with all of them where that is -1.
    /// 9.9999 at 2 figures -> "10"   the carry adds a digit and moves the point
    std::u16string_view roundToSignificantFigures(int figures);
    /// The text of the master digits with `places` digits after the point (of the one leading digit, in exponent form).
    /// 0.006 at 2 places -> "0.01"   -0.004 at 2 places -> "0.00", a rounded zero has no sign
    std::u16string_view roundToDecimal(int places);
    /// The power of ten of the first working digit.
    int sciPonent() const { return exponent_ + decimalLocation_ - 1; }
    /// How many digits stand before the point in engineering form, when the first counts 10^`leadingExponent`: 1 to 3.
    static int engLength(int leadingExponent);
    /// Writes the exponent out as zeros, where the digits do not reach their own first place.
    void setExponentsToZero();

    // TXNumberFormatter_radix.cpp: the whole part of the master number in another base
    /// Groups of four bits: 20 -> "0b0001 0100".
    std::u16string_view binaryNumberForNumber();
    /// 20 -> "0o24".
    std::u16string_view octalNumberForNumber();
    /// 255.5 -> "0xFF (Floored)", -20 -> "-0x14".
    std::u16string_view hexNumberForNumber();

    // What the steps work on, to be looked at.
    double masterNumber() const { return masterNumber_; }
    const DigitList& masterRoundingNumber() const { return masterRoundingNumber_; }
    int masterDecimalLocation() const { return masterDecimalLocation_; }
    int masterExponent() const { return masterExponent_; }
    const DigitList& roundingNumber() const { return roundingNumber_; }
    int decimalLocation() const { return decimalLocation_; }
    int exponent() const { return exponent_; }
    std::u16string_view negative() const { return negative_; }
    bool displayExponent() const { return displayExponent_; }
    std::int32_t preferencesAnswerFormatting() const { return preferencesAnswerFormatting_; }
    std::int32_t preferencesSignificantFigures() const { return preferencesSignificantFigures_; }
    std::int32_t preferencesDecimalPlaces() const { return preferencesDecimalPlaces_; }
    bool preferencesThousandsSeperators() const { return preferencesThousandsSeperators_; }
    bool preferencesAddZerosInDecimalMode() const { return preferencesAddZerosInDecimalMode_; }
    const std::u16string& seperatorCharacter() const { return seperatorCharacter_; }

private:
    static constexpr std::int32_t automatic = -1;

    std::u16string_view wholeNumberText();
    char16_t* roomFor(std::size_t characters);
    void startRounding();
    void writeOutPlainly(int leadingExponent);
    void roundToScientificPlaces(int places);
    void roundToEngineeringPlaces(int places);
    void roundToPlainPlaces(int places);
    void padToLength(int length);

    const TXNumberFormatterSettings* numberFormatterSettings_;

    std::int32_t preferencesAnswerFormatting_ = TXFormattingType::decimal;
    std::int32_t preferencesSignificantFigures_ = automatic;
    std::int32_t preferencesDecimalPlaces_ = automatic;
    bool preferencesThousandsSeperators_ = false;
    bool preferencesAddZerosInDecimalMode_ = true;
    std::u16string seperatorCharacter_;

    double masterNumber_ = 0.0;
    DigitList masterRoundingNumber_;
    DigitList roundingNumber_;
    // Working and master values take turns: side by side, the compiler copies two as one, and has to wait for both.
    int decimalLocation_ = -1;  ///< Digits of roundingNumber_ before the point; may be 0 or negative while working.
    int masterDecimalLocation_ = -1;
    int exponent_ = 1;
    int masterExponent_ = 0;
    std::u16string_view negative_;  ///< "-" or empty.
    bool displayExponent_ = false;  ///< Write the exponent even when it is 0.

    bool isSetUp_ = false;
    std::u16string text_;  ///< Where texts are put together, kept from call to call.
};
