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
        : numberFormatterSettings_(settings), seperatorCharacter_(firstSeperatorCharacter()) {}

    const TXNumberFormatterSettings* numberFormatterSettings() const { return numberFormatterSettings_; }
    void setNumberFormatterSettings(const TXNumberFormatterSettings* settings) {
        numberFormatterSettings_ = settings;
        separatorOfSettings_ = nullptr;
    }

    /// The text of `number`, as the settings now are.
    ///
    /// With automatic digits at most 15 are shown, and the noise of binary rounding is cleaned away: 0.1 + 0.2 gives
    /// "0.3". What is not finite is "inf", "-inf" or "nan" under every setting.
    std::u16string formattedNumberForNumber(double number) { return std::u16string(formattedViewForNumber(number)); }

    /// The same text without a string of its own, for who writes out many: it is good until the formatter, in whatever
    /// step, writes its next.
    std::u16string_view formattedViewForNumber(double number);

    // The steps, public so that each can be tested by itself.

    // TXNumberFormatter.cpp: from the settings, and into text
    /// Makes the formatter ready for its first number: without digits, and with the separator of the settings or ",".
    void setInitValues();
    /// Forgets the number before, its digits and its sign. Only `masterNumber` stays until the next is taken over.
    void prepareForFormat();
    /// Takes over what the settings now say; without settings nothing changes. Their point and their exponent character
    /// are left alone: an answer always has "." and "e".
    void refreshFormatterSettings();
    /// The working digits as text: separators, point, exponent, sign and percent sign included. Separators stand
    /// between groups of three before the point; where no digit stands before it, no point is written either.
    std::u16string stringForNumber() {
        load();
        return std::u16string(numberView());
    }

    // TXNumberFormatter_digits.cpp: the digit list, loaded, cleaned, cut and padded
    /// Loads `number` into the master digits: 15 of them at most, without noise. They are the first digits of what
    /// numberText writes. What is not finite has no digits and is loaded as 0.
    void setNumber(double number);
    /// Removes the zeros at the end of the master digits, but never the last digit of all.
    void removeTrailingZeros();
    /// Rounds the master digits before a run of nines, or cuts them before a run of zeros, that binary rounding left:
    /// six or more after the point, with at most three other digits behind. The working digits become the same.
    void eliminateDoublePrecisionNoise();
    /// Makes the master digits, with their decimal location and exponent, the working ones again.
    void copyMasterNumberIntoRoundingNumber();
    /// Cuts the working digits to `length`, rounding half up on the first one dropped. Cut to 0, they become a 1 in the
    /// place before, or a 0; cut to less, a 0.
    void truncateToLength(int length);
    /// Cuts the working digits to `length`, 1 or more, and adds one to the last of them:
    /// 9 9 9 at location 0, cut to 2 -> 1 0 at location 1.
    void truncateWithRoundingToLength(int length);
    /// Adds `zeros` zeros behind the working digits, none if it is negative. Digits end at the 512th.
    void addZerosToEnd(int zeros) {
        load();
        roundingNumber_.addZerosToEnd(zeros);
    }
    /// Puts `zeros` zeros before the working digits, none if it is negative. What would come to lie behind the 512th
    /// digit is dropped. The decimal location stays: the caller moves it.
    void addZerosToBeginning(int zeros) {
        load();
        roundingNumber_.addZerosToBeginning(zeros);
    }
    /// Whether the working digits are all 0.
    bool isZeroNumber() const;
    /// The master or the working digits as "(1, 2, 3)", to be looked at in a debugger.
    std::u16string logMasterRoundingNumber() const;
    std::u16string logRoundingNumber() const;

    // TXNumberFormatter_rounding.cpp: plain or with an exponent, to so many figures or places
    /// The text of the master digits, cut to `figures`, or with all of them where that is -1.
    /// 9.9999 at 2 figures -> "10"   the carry adds a digit and moves the point
    std::u16string roundToSignificantFigures(int figures) { return std::u16string(significantFiguresView(figures)); }
    /// The text of the master digits with `places` digits after the point (of the one leading digit, in exponent form).
    /// Digits end at the 512th, however many places are asked for.
    /// 0.006 at 2 places -> "0.01"   -0.004 at 2 places -> "0.00", a rounded zero has no sign
    std::u16string roundToDecimal(int places) { return std::u16string(decimalView(places)); }
    /// The power of ten of the first working digit.
    int sciPonent() const { return exponent() + decimalLocation() - 1; }
    /// How many digits stand before the point in engineering form, when the first counts 10^`leadingExponent`: 1 to 3.
    static int engLength(int leadingExponent);
    /// Writes the exponent out as zeros, where the digits are too few to reach the point. The decimal location is then
    /// one more than there are digits.
    void setExponentsToZero();

    // TXNumberFormatter_radix.cpp: the whole part of the master number in another base
    /// Groups of four bits: 20 -> "0b0001 0100".
    std::u16string binaryNumberForNumber() { return std::u16string(binaryView()); }
    /// 20 -> "0o24".
    std::u16string octalNumberForNumber() { return std::u16string(octalView()); }
    /// 255.5 -> "0xFF (Floored)", -20 -> "-0x14".
    std::u16string hexNumberForNumber() { return std::u16string(hexView()); }

    // What the steps work on, to be looked at.
    double masterNumber() const { return masterNumber_; }
    const DigitList& masterRoundingNumber() const {
        load();
        return masterRoundingNumber_;
    }
    int masterDecimalLocation() const {
        load();
        return masterDecimalLocation_;
    }
    int masterExponent() const { return masterExponent_; }
    const DigitList& roundingNumber() const {
        load();
        return roundingNumber_;
    }
    int decimalLocation() const {
        load();
        return decimalLocation_;
    }
    int exponent() const {
        load();
        return exponent_;
    }
    std::u16string_view negative() const {
        load();
        return negative_;
    }
    bool displayExponent() const { return displayExponent_; }
    std::int32_t preferencesAnswerFormatting() const { return preferencesAnswerFormatting_; }
    std::int32_t preferencesSignificantFigures() const { return preferencesSignificantFigures_; }
    std::int32_t preferencesDecimalPlaces() const { return preferencesDecimalPlaces_; }
    bool preferencesThousandsSeperators() const { return preferencesThousandsSeperators_; }
    bool preferencesAddZerosInDecimalMode() const { return preferencesAddZerosInDecimalMode_; }
    std::u16string_view decimalCharacter() const { return decimalCharacter_; }
    const std::u16string& seperatorCharacter() const { return seperatorCharacter_; }
    std::u16string_view exponentCharacter() const { return exponentCharacter_; }

private:
    static constexpr std::int32_t automatic = -1;

    std::u16string firstSeperatorCharacter() const {
        return numberFormatterSettings_ != nullptr ? numberFormatterSettings_->thousandsCharacter() : u",";
    }

    // The texts, in text_: good until the next is written.
    std::u16string_view wholeNumberText();
    std::u16string_view numberView();
    std::u16string_view significantFiguresView(int figures);
    std::u16string_view decimalView(int places);
    std::u16string_view binaryView();
    std::u16string_view octalView();
    std::u16string_view hexView();

    static std::u16string_view signOf(double number) { return std::u16string_view(u"-", number < 0.0 ? 1 : 0); }
    /// Public steps and accessors begin with it where they read or change the digits, their place or their sign.
    void load() const {
        if (!isLoaded_) loadWholeNumber();
    }
    void loadWholeNumber() const;
    void loadMasterNumber(double number);
    void removeNoise();
    char16_t* roomFor(std::size_t characters);
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
    std::u16string_view decimalCharacter_ = u".";  ///< One character, and so is exponentCharacter_.
    std::u16string seperatorCharacter_;
    std::u16string_view exponentCharacter_ = u"e";
    /// The text of the settings that seperatorCharacter_ is a copy of. Settings give each value a text that stays.
    const std::u16string* separatorOfSettings_ = nullptr;

    double masterNumber_ = 0.0;
    // The text of a whole number is written without any of these: they are filled when something first looks at them.
    mutable bool isLoaded_ = true;
    mutable DigitList masterRoundingNumber_;
    mutable DigitList roundingNumber_;
    // Working and master values take turns: side by side, the compiler copies two as one, and has to wait for both.
    mutable int decimalLocation_ = -1;  ///< Digits of roundingNumber_ before the point; may be 0 or negative.
    mutable int masterDecimalLocation_ = -1;
    mutable int exponent_ = 1;
    int masterExponent_ = 0;
    mutable std::u16string_view negative_;  ///< "-" or empty.
    bool displayExponent_ = false;          ///< Write the exponent even when it is 0.

    bool isSetUp_ = false;
    std::u16string text_;  ///< Where texts are put together, kept from call to call.
};
