// Tolerances: what may follow a "±" behind a decimal literal or a variable.
//
//   tolerance = "±" number [ [" "] "|" [" "] number ]
//   number    = digit or "." and then digits, points and exponents, refused afterwards where there are too many
//
// Blanks may stand in front of "±" and around "|", but none right after "±".

#include "engine/parser/TXEHasher.h"

#include <cmath>
#include <limits>

#include "engine/parser/characterClasses.h"
#include "engine/parser/decimalNumber.h"
#include "engine/parser/messages.h"

namespace {

constexpr char16_t plusMinus = u'\u00B1';

}  // namespace

// What the scan of a tolerance number has seen so far.
struct TXEHasher::ToleranceLiteral {
    std::int32_t start = 0;
    std::int32_t dots = 0;
    std::int32_t exponents = 0;
    std::int32_t mantissaEnd = 0;  ///< The position of the "e".
    std::int32_t exponentStart = 0;
    bool exponentIsNegative = false;
};

void TXEHasher::parseTolerance() {
    const std::int32_t saved = equationPosition_;
    if (!atTolerance() || !readTolerance()) {
        equationPosition_ = saved;
    }
}

// Goes on to the "±". As the very last character it is none, and the scan will refuse it.
bool TXEHasher::atTolerance() {
    skipBlanksAfterAdvancing();
    return equationPosition_ < lastEquationPosition_ && characterAt(equationPosition_) == plusMinus;
}

// Reads what follows the "±" into the working block; false when it was refused.
bool TXEHasher::readTolerance() {
    ++equationPosition_;
    const char16_t first = characterAt(equationPosition_);
    if (first != u'.' && !isDigit(first)) {
        const bool isAtEnd = equationPosition_ >= equationLength_;
        refuse(isAtEnd ? parserMessages::toleranceAtEnd : parserMessages::toleranceWithoutNumber);
        return false;
    }
    const double plus = parseToleranceNumber();
    if (isThereAnError_) {
        return false;
    }
    double minus = plus;
    const std::int32_t mark = equationPosition_;
    skipBlanksAfterAdvancing();
    if (characterAt(equationPosition_) == u'|') {
        skipBlanksAfterAdvancing();
        minus = parseToleranceNumber();  // whatever follows the bar: what is no number is refused there
        if (isThereAnError_) {
            return false;
        }
    } else {
        equationPosition_ = mark;
    }
    workingTXBlock().setTolerance({.plusTol = plus, .minusTol = minus});
    workingTXBlock().setToleranceIsUserDefined(true);
    return true;
}

double TXEHasher::parseToleranceNumber() {
    constexpr double base = 10.0;
    if (const std::u16string_view message = unsupportedTolerance(); !message.empty()) {
        refuse(message);
        return 0.0;
    }
    ToleranceLiteral literal{.start = equationPosition_};
    if (const std::u16string_view message = scanToleranceNumber(literal); !message.empty()) {
        refuse(message);
        return 0.0;
    }
    if (literal.exponents == 0) {
        return decimalNumber(textBetween(literal.start, equationPosition_));
    }
    const double mantissa = decimalNumber(textBetween(literal.start, literal.mantissaEnd));
    const double exponent = decimalNumber(textBetween(literal.exponentStart, equationPosition_));
    const double value = mantissa * std::pow(base, literal.exponentIsNegative ? -exponent : exponent);
    if (value == std::numeric_limits<double>::infinity()) {
        refuse(parserMessages::toleranceTooLarge);
    }
    return value;
}

// The message for what a tolerance cannot begin with, empty for anything else. Only lower-case prefixes are known here.
std::u16string_view TXEHasher::unsupportedTolerance() const {
    const char16_t first = characterAt(equationPosition_);
    if (equationPosition_ >= lastEquationPosition_ && !isDigit(first)) {
        return parserMessages::badEndOfTolerance;
    }
    if (first != u'0') {
        return {};
    }
    switch (characterAt(equationPosition_ + 1)) {
        case u'o': return parserMessages::octalTolerance;
        case u'x': return parserMessages::hexadecimalTolerance;
        case u'b': return parserMessages::binaryTolerance;
        default: return {};
    }
}

// Reads on from the number's first character, which is not looked at, so that a point there is not counted. Gives the
// message for a number that is refused.
std::u16string_view TXEHasher::scanToleranceNumber(ToleranceLiteral& literal) {
    while (isDecimalCharacter(characterAt(equationPosition_ + 1))) {
        ++equationPosition_;
        const char16_t character = characterAt(equationPosition_);
        if (character == u'.') {
            ++literal.dots;
            if (literal.exponents > 0) {
                return parserMessages::decimalInToleranceExponent;
            }
        } else if (!isDigit(character) && !scanToleranceExponent(literal)) {
            return parserMessages::noToleranceExponent;
        }
    }
    if (literal.dots > 1) {
        return parserMessages::tooManyToleranceDecimals;
    }
    return literal.exponents > 1 ? parserMessages::tooManyToleranceExponents : std::u16string_view();
}

// The "e" and the signs after it; false when no digit follows.
bool TXEHasher::scanToleranceExponent(ToleranceLiteral& literal) {
    literal.mantissaEnd = equationPosition_;
    ++literal.exponents;
    ++equationPosition_;
    parseNegativeSign();
    literal.exponentIsNegative = parseNegativeNumber_;
    literal.exponentStart = equationPosition_ + 1;
    return isDigit(characterAt(literal.exponentStart));
}
