// Any double through every formatting type and digit choice, with what holds for each answer.
//
// An input is a run of records of 21 characters, so that a file of them reads as lines: a FormatChoice, the bits of a
// double as 16 hexadecimal digits, and the end of the line. Any other character at its end asks for a single step of
// the formatter. All records go through one formatter, whose state must not show.
//
//     1A0,3FB999999999999A        0.1 as a new document shows it

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "format/TXNumberFormatter.h"
#include "fuzz/FormatChoice.h"
#include "fuzz/ShownNumber.h"
#include "fuzz/expect.h"

namespace {

constexpr std::size_t bitsLength = 16;
constexpr std::size_t recordLength = FormatChoice::length + bitsLength + 1;

struct Record {
    FormatChoice choice;
    double number = 0.0;
    char step = '\n';
};

/// Characters that are no hexadecimal digits count by their lowest bits.
unsigned int nibbleOf(char character) {
    constexpr unsigned int ten = 10;
    const unsigned int code = static_cast<unsigned char>(character);
    if (character >= 'A' && character <= 'F') return code - 'A' + ten;
    if (character >= 'a' && character <= 'f') return code - 'a' + ten;
    return code & 0xFU;
}

Record recordOf(std::string_view characters) {
    std::uint64_t bits = 0;
    for (const char character : characters.substr(FormatChoice::length, bitsLength)) {
        bits = bits << 4U | nibbleOf(character);
    }
    return {FormatChoice::read(characters), std::bit_cast<double>(bits), characters.back()};
}

// --- Decimal answers ---

constexpr int largestPlain = 14;
constexpr int smallestPlain = -5;
constexpr int mostDigits = 15;

/// How the answer is to look, worked out from the master digits.
struct Expected {
    Decimal magnitude;
    bool hasExponent = false;
    bool isEngineering = false;
};

int engineeringWhole(int leading) {
    constexpr int group = 3;
    return (leading % group + group) % group + 1;
}

Expected expectedFigures(const Decimal& master, int type, int figures) {
    Expected expected;
    expected.magnitude =
        figures == TXNumberFormatterSettings::automatic ? master : master.roundedAt(master.leading - figures + 1);
    const int leading = expected.magnitude.leading;
    expected.isEngineering = type == TXFormattingType::engineering;
    expected.hasExponent = expected.isEngineering || type == TXFormattingType::scientific || leading > largestPlain ||
                           leading < smallestPlain;
    return expected;
}

Expected expectedPlaces(const Decimal& master, int type, int places) {
    Expected expected;
    int place = -places;
    if (type == TXFormattingType::scientific || master.leading > largestPlain) {
        place += master.leading;
        expected.hasExponent = true;
    } else if (type == TXFormattingType::engineering) {
        place += master.leading - engineeringWhole(master.leading) + 1;
        expected.hasExponent = true;
        expected.isEngineering = true;
    }
    expected.magnitude = master.roundedAt(place);
    return expected;
}

/// The digits that the formatter has loaded: those of a scientific answer with automatic digits.
Decimal masterDigits(double number) {
    TXNumberFormatterSettings settings;
    settings.setFormattingType(TXFormattingType::scientific);
    const auto shown = ShownNumber::read(TXNumberFormatter(&settings).formattedNumberForNumber(number), u',');
    expect(shown.has_value(), "an answer with automatic digits is a number");
    return shown ? shown->magnitude() : Decimal{};
}

/// At most 15 characters of digits are taken, and runs of six nines or zeros near the end go: so far may the digits be
/// from the number.
void checkMasterDigits(const Decimal& master, double magnitude) {
    expect(static_cast<int>(master.digits.size()) <= mostDigits, "at most 15 digits are shown");
    if (master.isZero()) {
        expect(magnitude == 0.0, "only zero loads as zero");
        return;
    }
    constexpr int noise = 6;
    constexpr int smallestWrittenPlainly = -4;
    const int last = master.leading - static_cast<int>(master.digits.size()) + 1;
    const bool countsZeros = master.leading < 0 && master.leading >= smallestWrittenPlainly;
    const int cut = (countsZeros ? 0 : master.leading) - mostDigits + 1;
    const double allowed = std::pow(10.0, last - noise) + std::pow(10.0, cut);
    const double grain = magnitude * std::numeric_limits<double>::epsilon() + std::numeric_limits<double>::denorm_min();
    expect(std::fabs(master.number() - magnitude) <= allowed + grain, "the digits read back as the number");
}

void checkForm(const ShownNumber& shown, const Expected& expected) {
    expect(shown.exponent.has_value() == expected.hasExponent, "an exponent where it belongs");
    if (!expected.hasExponent) return;
    const int leading = expected.magnitude.leading;
    const int whole = expected.isEngineering ? engineeringWhole(leading) : 1;
    expect(shown.whole == whole && *shown.exponent == leading - whole + 1, "the exponent of the form");
}

void checkPlaces(const ShownNumber& shown, const Expected& expected, const TXNumberFormatterSettings& settings) {
    const int places = +settings.decimalPlaces();
    if (places == TXNumberFormatterSettings::automatic) {
        const bool isPlain = !expected.hasExponent && settings.significantFigures() == places;
        expect(!isPlain || shown.places() == 0 || shown.digits.back() != '0', "no zero ends an automatic answer");
        return;
    }
    // 999.96 at 1 place is 1.000e3: the digits that the carry moved behind the point stay.
    const bool mayBeCarried = expected.isEngineering && shown.places() == places + 2;
    const bool areMet = settings.addZerosInDecimalMode() ? shown.places() == places : shown.places() <= places;
    expect(areMet || mayBeCarried, "as many places as chosen");
}

void checkDecimalAnswer(double number, const TXNumberFormatterSettings& settings, std::u16string_view text) {
    const auto shown = ShownNumber::read(text, settings.thousandsCharacter().front());
    expect(shown.has_value(), "an answer is a number");
    if (!shown) return;
    Decimal master = masterDigits(number);
    checkMasterDigits(master, std::fabs(number));

    const int type = +settings.formattingType();
    expect(shown->hasPercentSign == (type == TXFormattingType::percent), "a percent sign behind per cents alone");
    if (type == TXFormattingType::percent) master = master.timesTenTo(2);
    const Expected expected = settings.decimalPlaces() == TXNumberFormatterSettings::automatic
                                  ? expectedFigures(master, type, settings.significantFigures())
                                  : expectedPlaces(master, type, settings.decimalPlaces());
    expect(shown->magnitude() == expected.magnitude, "the digits rounded half up");
    expect(shown->isNegative == (number < 0.0 && !expected.magnitude.isZero()), "the sign, but none on a zero");
    checkForm(*shown, expected);
    checkPlaces(*shown, expected, settings);

    constexpr int group = 3;
    expect(shown->hasSeparators == (settings.thousandsSeparators() && shown->whole > group), "separators if wanted");
    constexpr std::size_t longest = 40;
    expect(text.size() <= longest, "no answer is longer than a line of a narrow window");
}

// --- Binary, octal and hexadecimal answers ---

struct Radix {
    std::u16string_view prefix;
    int base;
};

Radix radixOf(int type) {
    if (type == TXFormattingType::binary) return {u"0b", 2};
    if (type == TXFormattingType::octal) return {u"0o", 8};
    return {u"0x", 16};
}

bool takePrefix(std::u16string_view& text, std::u16string_view prefix) {
    if (!text.starts_with(prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

/// The value of a digit of a base up to 16, or -1.
int digitOf(char16_t character, int base) {
    constexpr std::u16string_view digits = u"0123456789ABCDEF";
    const std::size_t value = digits.substr(0, static_cast<std::size_t>(base)).find(character);
    return value == std::u16string_view::npos ? -1 : static_cast<int>(value);
}

double radixValue(std::u16string_view digits, const Radix& radix) {
    expect(!digits.empty() && (digits.front() != u'0' || digits == u"0" || radix.base == 2), "no zero in front");
    constexpr std::size_t group = 5;  // four bits and the blank behind them
    double value = 0.0;
    for (std::size_t position = 0; position < digits.size(); ++position) {
        if (radix.base == 2 && position % group == group - 1) {
            expect(digits[position] == u' ', "a blank between groups of bits");
            continue;
        }
        const int digit = digitOf(digits[position], radix.base);
        expect(digit >= 0, "digits of the base alone");
        value = value * radix.base + digit;
    }
    return value;
}

void checkRadixAnswer(double number, int type, std::u16string_view text) {
    const Radix radix = radixOf(type);
    constexpr std::u16string_view mark = u" (Floored)";
    const bool isMarked = text.ends_with(mark);
    if (isMarked) text.remove_suffix(mark.size());
    const bool isNegative = takePrefix(text, u"-");
    expect(takePrefix(text, radix.prefix), "the prefix of the base");
    const double value = radixValue(text, radix);
    constexpr double largestNegative = 2147483648.0;
    const double whole = std::trunc(std::fabs(number));
    expect(value == (number < 0.0 ? std::min(whole, largestNegative) : whole),
           "the whole part, to 32 bits if negative");
    expect(isNegative == (number < 0.0 && whole > 0.0), "the sign, but none on a zero");
    expect(isMarked == (std::fabs(number) != whole && !isNegative), "a dropped fraction is marked");
    expect(radix.base != 2 || text == u"0" || (text.size() % 5 == 4 && !text.starts_with(u"0000")),
           "groups of four bits");
}

// --- Any answer ---

std::u16string_view notFiniteText(double number) {
    if (std::isnan(number)) return u"nan";
    return number < 0.0 ? u"-inf" : u"inf";
}

/// Off the menus an answer has as many digits as a list holds, each perhaps with a separator.
void checkOtherAnswer(std::u16string_view text) {
    constexpr std::size_t longest = 2 * DigitList::capacity + 32;
    expect(!text.empty() && text.size() <= longest, "an answer has a length within bounds");
    const bool isKnown = text.find_first_not_of(u"0123456789.,' \u202Fe-%") == std::u16string_view::npos;
    expect(isKnown, "an answer is made of digits and marks");
}

void check(double number, const FormatChoice& choice, std::u16string_view text) {
    const int type = +choice.settings.formattingType();
    if (!std::isfinite(number)) {
        expect(text == notFiniteText(number), "what is not finite has a name");
    } else if (type >= TXFormattingType::binary && type <= TXFormattingType::hexadecimal) {
        checkRadixAnswer(number, type, text);
    } else if (choice.isOnMenu) {
        checkDecimalAnswer(number, choice.settings, text);
    } else {
        checkOtherAnswer(text);
    }
}

/// One of the steps, on whatever the last answer left.
void takeStep(TXNumberFormatter& formatter, char character, double number) {
    const int length = static_cast<unsigned char>(character) / 8 - 4;
    switch (static_cast<unsigned char>(character) % 14) {
        case 0: formatter.removeTrailingZeros(); break;
        case 1: formatter.eliminateDoublePrecisionNoise(); break;
        case 2: formatter.truncateToLength(length); break;
        case 3: formatter.truncateWithRoundingToLength(length); break;
        case 4: formatter.addZerosToEnd(length); break;
        case 5: formatter.addZerosToBeginning(length * length); break;
        case 6: formatter.setExponentsToZero(); break;
        case 7: formatter.prepareForFormat(); break;
        case 8: formatter.roundToDecimal(length * length); break;
        case 9: formatter.roundToSignificantFigures(length); break;
        case 10: formatter.setNumber(number); break;  // '\n', the end of a line
        case 11: formatter.setInitValues(); break;
        case 12: formatter.copyMasterNumberIntoRoundingNumber(); break;
        default: expect(!formatter.logRoundingNumber().empty(), "a list of digits has a text"); break;
    }
    expect(formatter.roundingNumber().count() <= DigitList::capacity, "digits end at the 512th");
    static_cast<void>(formatter.isZeroNumber());
    static_cast<void>(formatter.stringForNumber());
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(data, data + size);
    TXNumberFormatter formatter;
    for (std::size_t start = 0; start + recordLength <= size; start += recordLength) {
        const Record record = recordOf(std::string_view(input).substr(start, recordLength));
        formatter.setNumberFormatterSettings(&record.choice.settings);
        const std::u16string text = formatter.formattedNumberForNumber(record.number);
        expect(text == TXNumberFormatter(&record.choice.settings).formattedNumberForNumber(record.number),
               "an answer does not depend on the one before");
        check(record.number, record.choice, text);
        takeStep(formatter, record.step, record.number);
        formatter.setNumberFormatterSettings(nullptr);
    }
    return 0;
}
