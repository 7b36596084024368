#include "tests/models/PlainReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <stdexcept>
#include <utility>

#include "tests/models/PlainFunctions.h"
#include "tests/support/text.h"

namespace {

constexpr std::u16string_view decimalDigits = u"0123456789";
constexpr std::u16string_view nameEnds = u" +-*/^\u22c5()[]\u2022\u00d7=%|&~<>!\u2260\u2264\u2265,;\u00b1.";

constexpr std::array<std::u16string_view, 12> keywords{u"delete", u"in",  u"function", u"default", u"return", u"if",
                                                       u"else",   u"for", u"while",    u"switch",  u"case",   u"break"};

bool contains(std::u16string_view text, char16_t character) {
    return text.find(character) != std::u16string_view::npos;
}

bool isNoValue(std::u16string_view name) { return name == u"nil" || name == u"undefined"; }

bool isDigit(char16_t character) { return contains(decimalDigits, character); }

bool isLetter(char16_t c) {
    const auto isBetween = [c](char16_t first, char16_t last) { return c >= first && c <= last; };
    if (c == u'\u00d7' || c == u'\u00ed' || c == u'\u03a2' || c == u'\u03c2') return false;
    return isBetween(u'A', u'Z') || isBetween(u'a', u'z') || isBetween(u'\u00c0', u'\u00ff') ||
           isBetween(u'\u0391', u'\u03a9') || isBetween(u'\u03b1', u'\u03c9');
}

// The C library reads decimals by another way than the engine. No test changes the locale from "C".
double decimal(std::u16string_view text) { return std::strtod(utf8(text).c_str(), nullptr); }

}  // namespace

PlainLine PlainReader::read() {
    try {
        readSides();
    } catch (const Refused&) {
        read_.isRefused = true;
    }
    return std::move(read_);
}

void PlainReader::readSides() {
    std::u16string targetName;
    if (contains(line_, u'=')) {
        negativeSigns();
        const std::size_t begin = at_;
        targetName = std::u16string(name());
        at_ = begin;
        PlainOperand target;
        namedOperand(target);
        skipBlanks();
        skip(u'=');
        read_.target = target.variable;
        read_.variables.clear();
    }
    read_.side = sum();
    if (at_ != line_.size()) misread();
    if (!targetName.empty()) checkTarget(targetName);
}

void PlainReader::checkTarget(std::u16string_view targetName) {
    const std::u16string shownName(targetName);
    if (targetName == u"pi") {
        refuse(Outcome::constantAssigned, shownName + u" is a locked variable, so you can't assign it anything.");
    }
    // An `ans` on the right side stands behind the "=" and does no harm.
    if (targetName == u"ans") {
        refuse(Outcome::answerAssigned, u"ans is a locked variable, so you can't assign it anything.");
    }
    if (isNoValue(targetName)) {
        refuse(Outcome::keywordAssigned, shownName + u" is a reserved keyword, so you can't assign it anything.");
    }
}

PlainSum PlainReader::sum() {
    PlainSum sum;
    do {
        const bool isSubtracted = negativeSigns();
        sum.terms.push_back(term(sum));
        sum.terms.back().isSubtracted = isSubtracted;
        skipBlanks();
    } while (nextIsOneOf(u"+-"));
    return sum;
}

PlainTerm PlainReader::term(PlainSum& sum) {
    PlainTerm term;
    term.factors.push_back({.divides = false, .power = power(sum, false)});
    for (skipBlanks(); nextIsOneOf(u"*/\u22c5"); skipBlanks()) {
        const bool divides = next() == u'/';
        ++at_;
        const bool isNegative = negativeSigns();
        term.factors.push_back({.divides = divides, .power = power(sum, isNegative)});
    }
    return term;
}

PlainPower PlainReader::power(PlainSum& sum, bool isNegative) {
    PlainPower power{.isNegative = isNegative, .base = operand(sum), .exponent = nullptr};
    skipBlanks();
    if (next() == u'^') {
        ++at_;
        const bool isNegativeExponent = negativeSigns();
        power.exponent = std::make_unique<PlainPower>(this->power(sum, isNegativeExponent));
    }
    return power;
}

PlainOperand* PlainReader::operand(PlainSum& sum) {
    skipBlanks();
    PlainOperand* const operand = sum.operands.emplace_back(std::make_unique<PlainOperand>()).get();
    if (next() == u'(') {
        operand->inner = std::make_unique<PlainSum>(group());
    } else if (isDigit(next()) || next() == u'.') {
        numberOperand(*operand);
    } else {
        namedOperand(*operand);
    }
    return operand;
}

PlainSum PlainReader::group() {
    skip(u'(');
    PlainSum inner = sum();
    skip(u')');
    return inner;
}

void PlainReader::numberOperand(PlainOperand& operand) {
    const std::u16string_view prefix = line_.substr(at_, 2);
    if (prefix == u"0b" || prefix == u"0B") {
        operand.number = prefixedNumber(2.0);
    } else if (prefix == u"0o" || prefix == u"0O") {
        operand.number = prefixedNumber(8.0);
    } else if (prefix == u"0x" || prefix == u"0X") {
        operand.number = prefixedNumber(16.0);
    } else {
        const Literal number = literal();
        operand.number = number.value;
        if (number.isTooLarge) {
            read_.message = u"A number is too large";
            read_.refusal = Outcome::numberTooLarge;
        }
        tolerance();  // Also behind a number that is too large: its own message comes later and stays.
        if (!read_.message.empty()) throw Refused{};
    }
}

double PlainReader::prefixedNumber(double base) {
    at_ += 2;
    const std::size_t end = std::min(line_.find_first_of(nameEnds, at_), line_.size());
    const double value = digitsInBase(line_.substr(at_, end - at_), base);
    at_ = end;
    return value;
}

double PlainReader::digitsInBase(std::u16string_view digits, double base) {
    constexpr std::u16string_view lower = u"0123456789abcdef";
    constexpr std::u16string_view upper = u"0123456789ABCDEF";
    double value = 0.0;
    int place = 0;
    for (const char16_t digit : std::u16string(digits.rbegin(), digits.rend())) {
        const std::size_t worth = std::min(lower.find(digit), upper.find(digit));
        if (worth > 15) misread();
        // A zero adds nothing, also where its place is worth an infinity.
        if (worth != 0) value += static_cast<double>(worth) * std::pow(base, place);
        ++place;
    }
    return value;
}

// literal = digits and point [ ("e" | "E") [signs] digits ]
PlainReader::Literal PlainReader::literal() {
    const double mantissa = digitsAndPoint();
    if (!nextIsOneOf(u"eE")) return {.value = mantissa, .isTooLarge = false};
    ++at_;
    const bool isNegative = negativeSigns();
    const double exponent = digitsAndPoint();
    const double value = mantissa * std::pow(10.0, isNegative ? -exponent : exponent);
    return {.value = value, .isTooLarge = value == std::numeric_limits<double>::infinity()};
}

double PlainReader::digitsAndPoint() {
    const std::size_t begin = at_;
    while (isDigit(next()) || next() == u'.') ++at_;
    if (at_ == begin) misread();
    return decimal(line_.substr(begin, at_ - begin));
}

// tolerance = "±" literal [ "|" literal ]: read and tested for its size, of no account for the answer
void PlainReader::tolerance() {
    const std::size_t begin = at_;
    skipBlanks();
    if (next() != u'\u00b1') {
        at_ = begin;
        return;
    }
    const auto side = [this] {
        ++at_;
        skipBlanks();
        if (literal().isTooLarge) refuse(Outcome::toleranceTooLarge, u"A number in the equation is too large");
        if (!read_.message.empty()) throw Refused{};
    };
    side();
    const std::size_t end = at_;
    skipBlanks();
    if (next() == u'|') {
        side();
    } else {
        at_ = end;
    }
}

void PlainReader::namedOperand(PlainOperand& operand) {
    const std::size_t position = at_;
    const std::u16string_view text = name();
    operand.function = plainFunctionNamed(text);
    if (operand.function != -1) {
        skipBlanks();
        if (next() == u'(') operand.inner = std::make_unique<PlainSum>(group());
        return;
    }
    checkName(text);
    if (isNoValue(text)) {
        operand.variable = -2;
    } else {
        operand.variable = variable(text, position);
        tolerance();
    }
    read_.variables.insert(operand.variable);
}

std::int32_t PlainReader::variable(std::u16string_view name, std::size_t position) {
    if (name == u"ans") {
        read_.answerPositions.push_back(position);
        return names_.lastAssigned;
    }
    const std::int32_t found = names_.find(name);
    return found != -1 ? found : names_.append({.name = std::u16string(name)});
}

void PlainReader::checkName(std::u16string_view name) {
    const std::u16string shown(name);
    if (std::find(keywords.begin(), keywords.end(), name) != keywords.end()) {
        refuse(Outcome::keywordAsName, u"Invalid variable name: '" + shown + u"' is a reserved keyword.");
    }
    if (name == u"ans" && !names_.hasAnswer()) {
        refuse(Outcome::noAnswerYet,
               u"ans is not available to use as a variable yet, since no calculations have been made.");
    }
    const auto isNameCharacter = [](char16_t c) { return isDigit(c) || isLetter(c) || c == u'_'; };
    if (!std::all_of(name.begin(), name.end(), isNameCharacter)) {
        refuse(Outcome::nameWithOtherCharacters, u"Invalid variable name: " + shown);
    }
    if (std::none_of(name.begin(), name.end(), isLetter)) {
        refuse(Outcome::nameWithoutLetters,
               u"Invalid variable name: '" + shown + u"' must have more than numbers and/or underscores in the name.");
    }
}

std::u16string_view PlainReader::name() {
    const std::size_t begin = at_;
    at_ = std::min(line_.find_first_of(nameEnds, at_), line_.size());
    if (at_ == begin) misread();
    return line_.substr(begin, at_ - begin);
}

bool PlainReader::nextIsOneOf(std::u16string_view characters) const {
    return at_ < line_.size() && contains(characters, line_[at_]);
}

void PlainReader::skip(char16_t character) {
    if (next() != character) misread();
    ++at_;
}

void PlainReader::skipBlanks() {
    while (next() == u' ') ++at_;
}

// A run of signs and blanks: whether its minus signs are odd in number.
bool PlainReader::negativeSigns() {
    bool isNegative = false;
    for (; nextIsOneOf(u"+- "); ++at_) {
        if (next() == u'-') isNegative = !isNegative;
    }
    return isNegative;
}

void PlainReader::refuse(Outcome outcome, std::u16string message) {
    read_.refusal = outcome;
    read_.message = std::move(message);
    throw Refused{};
}

void PlainReader::misread() const {
    throw std::logic_error("the model cannot read, at character " + std::to_string(at_) + ": " + utf8(line_));
}
