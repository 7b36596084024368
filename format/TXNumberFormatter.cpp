// The front door: settings in, text out.
#include "format/TXNumberFormatter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "engine/records/numberText.h"
#include "format/wholeDigits.h"

namespace {

constexpr std::size_t longestExponent = 11;           // "-2147483648"
constexpr double largestPlain = 999999999999999.875;  // the last double below 1e15

/// Writes all digits of a block.
template <std::size_t size>
void writeBlock(const std::array<std::uint8_t, size>& block, char16_t* out) {
    for (std::size_t position = 0; position < size; ++position) {
        out[position] = static_cast<char16_t>(u'0' + block[position]);
    }
}

/// Writes by whole blocks: `out` has room for one more than the digits need.
char16_t* writeDigits(const std::uint8_t* from, const std::uint8_t* to, char16_t* out) {
    char16_t* const end = out + (to - from);
    for (; from < to; from += DigitList::blockSize, out += DigitList::blockSize) {
        DigitList::Block block{};
        std::copy_n(from, block.size(), block.begin());
        writeBlock(block, out);
    }
    return end;
}

/// Writes a whole number that is not negative and below 10^16, in the same way.
char16_t* writeWhole(std::int64_t whole, char16_t* out) {
    const WholeDigits digits = wholeDigits(whole);
    writeBlock(digits.first, out);
    out += digits.firstCount;
    if (digits.hasRest) {
        writeBlock(digits.rest, out);
        out += digits.rest.size();
    }
    return out;
}

/// Writes `whole` digits in groups of three, `separator` before each but the first. Groups count from `location`, 1 or
/// more, where the point belongs, though it may lie beyond the digits.
char16_t* writeGroups(const std::uint8_t* digits, int whole, int location, std::u16string_view separator,
                      char16_t* out) {
    constexpr int group = 3;
    const int first = std::min((location - 1) % group + 1, whole);
    out = writeDigits(digits, digits + first, out);
    for (int start = first; start < whole; start += group) {
        out = std::copy(separator.begin(), separator.end(), out);
        out = writeDigits(digits + start, digits + std::min(start + group, whole), out);
    }
    return out;
}

/// Writes the exponent of an answer, or any that a step was left with. That of a double has three digits at most: all
/// three are written, each over the one before where that is a leading zero.
char16_t* writeExponent(std::int64_t exponent, char16_t* out) {
    const std::int64_t magnitude = std::abs(exponent);
    *out = u'-';
    out += exponent < 0 ? 1 : 0;
    if (magnitude >= 1000) {
        return writeWhole(magnitude, out);
    }
    *out = static_cast<char16_t>(u'0' + magnitude / 100);
    out += magnitude >= 100 ? 1 : 0;
    *out = static_cast<char16_t>(u'0' + magnitude / 10 % 10);
    out += magnitude >= 10 ? 1 : 0;
    *out++ = static_cast<char16_t>(u'0' + magnitude % 10);
    return out;
}

/// Whether `text` reads as the number 0, up to where it stops being a number.
bool readsAsZero(std::u16string_view text) {
    bool hasPoint = false;
    for (const char16_t character : text) {
        if (character == u'.' && !hasPoint) {
            hasPoint = true;
        } else if (character != u'0') {
            return character < u'1' || character > u'9';
        }
    }
    return true;
}

}  // namespace

// Room for so many characters and for a block of digits behind them, with a sign in front.
inline char16_t* TXNumberFormatter::roomFor(std::size_t characters) {
    const std::size_t needed = 1 + characters + DigitList::blockSize;
    if (text_.size() < needed) {
        text_.resize(needed);
    }
    text_.front() = u'-';
    return text_.data() + 1;
}

std::u16string_view TXNumberFormatter::formattedViewForNumber(double number) {
    if (!isSetUp_) {
        setInitValues();
    }
    prepareForFormat();
    refreshFormatterSettings();
    masterNumber_ = number;
    if (const auto text = wholeNumberText(); !text.empty()) {
        return text;
    }
    switch (preferencesAnswerFormatting_) {
        case TXFormattingType::binary: return binaryView();
        case TXFormattingType::octal: return octalView();
        case TXFormattingType::hexadecimal: return hexView();
        default: break;
    }
    loadMasterNumber(number);
    const auto text = preferencesDecimalPlaces_ == automatic ? significantFiguresView(preferencesSignificantFigures_)
                                                             : decimalView(preferencesDecimalPlaces_);
    return std::isfinite(number) ? text : text_ = numberText(number);
}

// The digits of a whole number are its answer already, unless they are to be rounded, filled up or grouped. The text
// is written without a digit list.
std::u16string_view TXNumberFormatter::wholeNumberText() {
    const bool isShownAsItIs = preferencesAnswerFormatting_ == TXFormattingType::decimal &&
                               preferencesDecimalPlaces_ == automatic && preferencesSignificantFigures_ == automatic &&
                               !preferencesThousandsSeperators_;
    // Larger numbers, and what is no number, are made one that is not whole: a single question is left.
    const double magnitude = std::min(largestPlain, std::fabs(masterNumber_));
    const auto whole = static_cast<std::int64_t>(magnitude);
    if (!isShownAsItIs || static_cast<double>(whole) != magnitude) {
        return {};
    }
    isLoaded_ = false;
    char16_t* const begin = roomFor(0);
    const char16_t* const end = writeWhole(whole, begin);
    return {masterNumber_ < 0.0 ? begin - 1 : begin, end};
}

// All that prepareForFormat reset is made what loading and rounding the number would have made it.
void TXNumberFormatter::loadWholeNumber() const {
    isLoaded_ = true;
    negative_ = signOf(masterNumber_);
    const WholeDigits digits = wholeDigits(std::abs(static_cast<std::int64_t>(masterNumber_)));
    roundingNumber_.append(digits.first, digits.firstCount);
    if (digits.hasRest) {
        roundingNumber_.append(digits.rest, static_cast<int>(digits.rest.size()));
    }
    masterRoundingNumber_ = roundingNumber_;
    masterRoundingNumber_.removeZerosFromEnd();
    masterDecimalLocation_ = digits.count();
    decimalLocation_ = digits.count();
    exponent_ = 0;
}

void TXNumberFormatter::setInitValues() {
    prepareForFormat();
    decimalCharacter_ = u".";
    seperatorCharacter_ = firstSeperatorCharacter();
    separatorOfSettings_ = nullptr;
    exponentCharacter_ = u"e";
    isSetUp_ = true;
}

void TXNumberFormatter::prepareForFormat() {
    isLoaded_ = true;
    negative_ = {};
    masterDecimalLocation_ = -1;
    masterExponent_ = 0;
    decimalLocation_ = -1;
    exponent_ = 1;
    displayExponent_ = false;
    masterRoundingNumber_.clear();
    roundingNumber_.clear();
}

void TXNumberFormatter::refreshFormatterSettings() {
    if (numberFormatterSettings_ == nullptr) return;
    const TXNumberFormatterSettings& settings = *numberFormatterSettings_;
    // The plus makes an int of a small number.
    preferencesAnswerFormatting_ = +settings.formattingType();
    preferencesSignificantFigures_ = +settings.significantFigures();
    preferencesDecimalPlaces_ = +settings.decimalPlaces();
    preferencesThousandsSeperators_ = settings.thousandsSeparators();
    preferencesAddZerosInDecimalMode_ = settings.addZerosInDecimalMode();
    const std::u16string& separator = settings.thousandsCharacter();
    if (&separator != separatorOfSettings_) {
        seperatorCharacter_ = separator;
        separatorOfSettings_ = &separator;
    }
}

std::u16string_view TXNumberFormatter::numberView() {
    const int count = roundingNumber_.count();
    const int whole = decimalLocation_ < 1 ? count : std::min(decimalLocation_, count);
    const std::uint8_t* const digits = roundingNumber_.begin();
    const bool isGrouped = preferencesThousandsSeperators_ && decimalLocation_ > 0;
    const auto separator = isGrouped ? std::u16string_view(seperatorCharacter_) : u"";

    // Every digit with a separator, the point, the exponent and a percent sign.
    char16_t* begin = roomFor(static_cast<std::size_t>(count) * (1 + separator.size()) + decimalCharacter_.size() +
                              exponentCharacter_.size() + longestExponent + 1);
    char16_t* end = separator.empty() ? writeDigits(digits, digits + whole, begin)
                                      : writeGroups(digits, whole, decimalLocation_, separator, begin);
    if (whole < count) {
        *end++ = decimalCharacter_.front();
        end = writeDigits(digits + whole, digits + count, end);
    }
    if (displayExponent_ || exponent_ != 0) {
        *end++ = exponentCharacter_.front();
        end = writeExponent(exponent_, end);
    }
    // An answer that was rounded to zero has no sign. Others get theirs without a branch: it could not be foreseen.
    if (!readsAsZero({begin, end})) {
        begin -= negative_.size();
    }
    if (preferencesAnswerFormatting_ == TXFormattingType::percent) {
        *end++ = u'%';
    }
    return {begin, end};
}
