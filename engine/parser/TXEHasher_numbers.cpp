// Number literals: decimal, and with the prefixes 0b, 0o and 0x whole numbers of another base.
//
//   decimal  = ( digits [ "." [ digits ] ] | "." digits ) [ ("e" | "E") { "+" | "-" | " " } digits ]
//   prefixed = "0" ( "b" | "o" | "x" ) digits, up to the next delimiter
//
// A sign in front of a literal is an operator and never reaches this file. What looks like a literal but is none is
// read to its end all the same, so that the message can quote the whole of it.

#include "engine/parser/TXEHasher.h"

#include <cmath>
#include <limits>

#include "engine/parser/characterClasses.h"
#include "engine/parser/decimalNumber.h"
#include "engine/parser/messages.h"
#include "engine/records/filled.h"

namespace {

char16_t lowerCased(char16_t character) {
    return character >= u'A' && character <= u'Z' ? static_cast<char16_t>(character - u'A' + u'a') : character;
}

// The value of a digit in a base up to 16; the base itself where it is none.
std::int32_t digitValue(char16_t character, std::int32_t base) {
    constexpr std::int32_t ten = 10;
    std::int32_t value = base;
    if (isDigit(character)) {
        value = character - u'0';
    } else if (character >= u'a' && character <= u'f') {
        value = character - u'a' + ten;
    }
    return value < base ? value : base;
}

// Neither a zero in front of more digits nor a point alone.
bool hasPlainBeginning(const char16_t* text, const SmallDecimal& number) {
    switch (text[0]) {
        case u'0': return number.length == 1 || text[1] == u'.';
        case u'.': return number.places > 0;
        default: return true;
    }
}

}  // namespace

// The short way for most literals: digits with at most one point, followed by an operator or the end. False, with
// nothing done, for any other.
inline bool TXEHasher::parsePlainNumber() {
    if (equationPosition_ < 0 || equationPosition_ >= equationLength_) {
        return false;
    }
    const char16_t* const text = textFrom(equationPosition_);
    const SmallDecimal number = readSmallDecimal(text);
    const char16_t* const next = text + number.length;
    const bool ends = isPrecedenceOperator(*next) || *next == u')' || next == textFrom(equationLength_);
    if (!ends || !number.isExact() || !hasPlainBeginning(text, number)) {
        return false;
    }
    equationPosition_ += static_cast<std::int32_t>(number.length) - 1;
    addNumberToStack(number.value());
    parseNegativeNumber_ = false;
    return true;
}

enum class TXEHasher::Radix : std::int32_t { binary = 2, octal = 8, decimal = 10, hexadecimal = 16 };

TXEHasher::Radix TXEHasher::radixOfPrefix(char16_t first, char16_t second) {
    if (first != u'0') {
        return Radix::decimal;
    }
    switch (second) {
        case u'b':
        case u'B': return Radix::binary;
        case u'o':
        case u'O': return Radix::octal;
        case u'x':
        case u'X': return Radix::hexadecimal;
        default: return Radix::decimal;
    }
}

std::u16string_view TXEHasher::kindWord(Radix radix) {
    switch (radix) {
        case Radix::binary: return u"binary";
        case Radix::octal: return u"octal";
        default: return u"hexadecimal";
    }
}

// What the scan of a decimal literal has seen so far.
struct TXEHasher::DecimalLiteral {
    enum class Fault : std::uint8_t { none, decimalInExponent, nothingBeforeExponent };

    std::u16string_view text;
    std::int32_t dots = 0;
    std::int32_t exponents = 0;
    std::int32_t digits = 0;          ///< Since the last exponent.
    std::int32_t mantissaLength = 0;  ///< With the "e"; the whole literal without one.
    std::int32_t exponentStart = 0;   ///< Counted from the literal's first character.
    bool exponentIsNegative = false;
    Fault fault = Fault::none;

    std::u16string_view mantissa() const { return text.substr(0, static_cast<std::size_t>(mantissaLength)); }
};

void TXEHasher::parseNumber() {
    if (parsePlainNumber()) {
        return;
    }
    const std::int32_t start = equationPosition_;
    const Radix radix = radixOfPrefix(characterAt(start), characterAt(start + 1));
    if (radix == Radix::decimal) {
        parseDecimalNumber(start);
    } else {
        parsePrefixedNumber(start, radix);
    }
}

void TXEHasher::parsePrefixedNumber(std::int32_t start, Radix radix) {
    const std::u16string_view kind = kindWord(radix);
    const char16_t prefixLetter = characterAt(start + 1);
    equationPosition_ += 2;
    if (equationPosition_ >= equationLength_) {
        refuse(parserMessages::nothingAfterPrefixAtEnd, {kind, characterText(prefixLetter)});
        return;
    }
    const std::int32_t digitsStart = equationPosition_;
    while (equationPosition_ < equationLength_ && !isNumericalDelimiter(characterAt(equationPosition_))) {
        ++equationPosition_;
    }
    --equationPosition_;
    const std::u16string_view digits = textBetween(digitsStart, equationPosition_);
    if (digits.empty()) {
        refuse(parserMessages::nothingAfterPrefix, {kind, characterText(prefixLetter)});
        return;
    }
    double value = 0.0;
    switch (radix) {
        case Radix::binary: value = doubleFromBinary(digits); break;
        case Radix::octal: value = doubleFromOctal(digits); break;
        default: value = doubleFromHex(digits); break;
    }
    finishNumber(value, {});
}

double TXEHasher::doubleFromBinary(std::u16string_view digits) {
    return integerFromDigits(digits, Radix::binary, parserMessages::badBinaryDigit);
}

double TXEHasher::doubleFromOctal(std::u16string_view digits) {
    return integerFromDigits(digits, Radix::octal, parserMessages::badOctalDigit);
}

double TXEHasher::doubleFromHex(std::u16string_view digits) {
    return integerFromDigits(digits, Radix::hexadecimal, parserMessages::badHexadecimalDigit);
}

double TXEHasher::integerFromDigits(std::u16string_view digits, Radix radix, std::u16string_view badDigitMessage) {
    const auto base = static_cast<std::int32_t>(radix);
    double value = 0.0;
    double placeValue = 1.0;  // exact, a power of two, until it is infinite
    for (auto at = digits.rbegin(); at != digits.rend(); ++at) {
        const char16_t character = radix == Radix::hexadecimal ? lowerCased(*at) : *at;
        const std::int32_t digit = digitValue(character, base);
        if (digit == base) {
            refuse(badDigitMessage, {characterText(character), digits});
            return 0.0;
        }
        if (digit != 0) {  // a zero adds nothing, even where its place is worth infinity
            value += digit * placeValue;
        }
        placeValue *= base;
    }
    return value;
}

void TXEHasher::parseDecimalNumber(std::int32_t start) {
    const DecimalLiteral literal = scanDecimal(start);
    if (const std::u16string_view message = faultIn(literal); !message.empty()) {
        refuse(message, {literal.text});
        return;
    }
    const double value = valueOf(literal);
    if (literal.exponents > 0 && value == std::numeric_limits<double>::infinity()) {
        refuse(parserMessages::numberTooLarge);
    }
    parseTolerance();
    finishNumber(value, literal.mantissa());
}

TXEHasher::DecimalLiteral TXEHasher::scanDecimal(std::int32_t start) {
    DecimalLiteral literal;
    equationPosition_ = start - 1;
    while (isDecimalCharacter(characterAt(equationPosition_ + 1))) {
        ++equationPosition_;
        const char16_t character = characterAt(equationPosition_);
        if (character == u'.') {
            ++literal.dots;
            if (literal.exponents > 0) {
                literal.fault = DecimalLiteral::Fault::decimalInExponent;
            }
        } else if (isDigit(character)) {
            ++literal.digits;
        } else {
            literal.mantissaLength = equationPosition_ - start + 1;
            scanExponentSign(literal);
            literal.exponentStart = equationPosition_ + 1 - start;
        }
    }
    literal.text = textBetween(start, equationPosition_);
    if (literal.exponents == 0) {
        literal.mantissaLength = static_cast<std::int32_t>(literal.text.size());
    }
    return literal;
}

// The "e" and the signs after it.
void TXEHasher::scanExponentSign(DecimalLiteral& literal) {
    if (literal.digits == 0) {
        literal.fault = DecimalLiteral::Fault::nothingBeforeExponent;
    }
    literal.digits = 0;
    ++literal.exponents;
    ++equationPosition_;
    parseNegativeSign();
    literal.exponentIsNegative = parseNegativeNumber_;
}

// The message for a malformed literal, empty for a good one.
std::u16string_view TXEHasher::faultIn(const DecimalLiteral& literal) const {
    using Fault = DecimalLiteral::Fault;
    if (literal.text.size() > 1 && literal.text[0] == u'0' && literal.text[1] != u'.') {
        return parserMessages::leadingZero;
    }
    if (literal.exponents > 1) {
        return parserMessages::tooManyExponents;
    }
    if (literal.fault == Fault::decimalInExponent) {
        return parserMessages::decimalInExponent;
    }
    if (literal.fault == Fault::nothingBeforeExponent) {
        return parserMessages::nothingBeforeExponent;
    }
    if (literal.digits == 0 && literal.exponents > 0) {
        return parserMessages::nothingInExponent;
    }
    if (literal.digits == 0 && literal.dots < 2) {
        return parserMessages::noDigits;
    }
    return literal.dots > 1 ? parserMessages::tooManyDecimals : std::u16string_view();
}

double TXEHasher::valueOf(const DecimalLiteral& literal) const {
    constexpr double base = 10.0;
    const double mantissa = decimalNumber(literal.mantissa());
    if (literal.exponents == 0) {
        return mantissa;
    }
    const double exponent = decimalNumber(literal.text.substr(static_cast<std::size_t>(literal.exponentStart)));
    return mantissa * std::pow(base, literal.exponentIsNegative ? -exponent : exponent);
}

// What may follow any literal is a delimiter, but no opening parenthesis: there is no implicit multiplication.
void TXEHasher::finishNumber(double value, std::u16string_view mantissa) {
    if (equationPosition_ + 1 < equationLength_) {
        const char16_t next = characterAt(equationPosition_ + 1);
        if (!isNumericalDelimiter(next) || next == u'(' || next == u'[') {
            refuse(parserMessages::operatorAfterNumber, {mantissa});
            return;
        }
    }
    addNumberToStack(value);
    parseNegativeNumber_ = false;
}
