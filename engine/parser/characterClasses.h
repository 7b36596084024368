#pragma once

#include <array>
#include <cstdint>

// The character classes of equations, over single UTF-16 code units. No locale is asked.
//
// `characterRules` says which characters belong to a class. The functions below it give the same answers, from a table
// for the characters that equations are mostly made of.

namespace characterRules {

constexpr bool whitespace(char16_t character) { return character == u' '; }

constexpr bool precedenceOperator(char16_t character) {
    switch (character) {
        case u'+':
        case u'-':
        case u'*':
        case u'/':
        case u'^':
        case u'\u22C5': return true;  // dot operator
        default: return false;
    }
}

constexpr bool anyOperator(char16_t character) {
    switch (character) {
        case u'(':
        case u')':
        case u'[':
        case u']':
        case u'\u2022':  // bullet
        case u'\u00D7':  // multiplication sign
        case u'=':
        case u'%':
        case u'|':
        case u'&':
        case u'~':
        case u'<':
        case u'>':
        case u'!':
        case u'\u2260':               // not equal to
        case u'\u2264':               // less-than or equal to
        case u'\u2265': return true;  // greater-than or equal to
        default: return precedenceOperator(character);
    }
}

constexpr bool numericalDelimiter(char16_t character) {
    return anyOperator(character) || whitespace(character) || character == u',' || character == u';' ||
           character == u'\u00B1';
}

constexpr bool variableDelimiter(char16_t character) { return numericalDelimiter(character) || character == u'.'; }

constexpr bool digit(char16_t character) { return character >= u'0' && character <= u'9'; }

constexpr bool letter(char16_t character) {
    const auto within = [character](char16_t first, char16_t last) { return character >= first && character <= last; };
    return within(u'a', u'z') || within(u'A', u'Z') ||
           (within(u'\u00C0', u'\u00FF') && character != u'\u00D7' && character != u'\u00ED') ||
           within(u'\u0391', u'\u03A1') || within(u'\u03A3', u'\u03A9') || within(u'\u03B1', u'\u03C1') ||
           within(u'\u03C3', u'\u03C9');
}

}  // namespace characterRules

/// What the character that comes next in an equation begins.
enum class CharacterKind : std::uint8_t { number, operatorRun, blank, semicolon, comma, name };

namespace characterRules {

constexpr CharacterKind kind(char16_t character) {
    if (digit(character) || character == u'.') return CharacterKind::number;
    if (anyOperator(character)) return CharacterKind::operatorRun;
    switch (character) {
        case u' ': return CharacterKind::blank;
        case u';': return CharacterKind::semicolon;
        case u',': return CharacterKind::comma;
        default: return CharacterKind::name;
    }
}

/// A rule, and its answers for the first 256 code units.
template <class Answer>
class CharacterTable {
public:
    /// Asks the rule about those code units now, and about the others when they come.
    constexpr explicit CharacterTable(Answer (*rule)(char16_t)) : rule_(rule) {
        for (char16_t character = 0; character < tabled; ++character) {
            table_[character] = rule(character);
        }
    }
    /// What the rule says of any code unit.
    constexpr Answer operator()(char16_t character) const {
        return character < tabled ? table_[character] : rule_(character);
    }

private:
    static constexpr char16_t tabled = 256;
    Answer (*rule_)(char16_t);
    std::array<Answer, tabled> table_{};
};

inline constexpr CharacterTable precedenceOperators(precedenceOperator);
inline constexpr CharacterTable operators(anyOperator);
inline constexpr CharacterTable numericalDelimiters(numericalDelimiter);
inline constexpr CharacterTable variableDelimiters(variableDelimiter);
inline constexpr CharacterTable letters(letter);
inline constexpr CharacterTable kinds(kind);

}  // namespace characterRules

constexpr CharacterKind characterKind(char16_t character) { return characterRules::kinds(character); }

/// A blank (U+0020), and nothing else: a tab is part of a name, and so is refused there.
constexpr bool isWhitespace(char16_t character) { return characterRules::whitespace(character); }

/// The operators with which numbers are computed: + - * / ^ and the dot operator U+22C5.
constexpr bool isPrecedenceOperator(char16_t character) { return characterRules::precedenceOperators(character); }

/// Every character that stands for an operation, a grouping or a comparison. Most of them are only known so that the
/// user hears that this operator, rather than this name, is not supported.
constexpr bool isOperator(char16_t character) { return characterRules::operators(character); }

/// What ends a number: operators, blanks, "," ";" and "±".
constexpr bool isNumericalDelimiter(char16_t character) { return characterRules::numericalDelimiters(character); }

/// What ends a name: whatever ends a number, and ".".
constexpr bool isVariableDelimiter(char16_t character) { return characterRules::variableDelimiters(character); }

constexpr bool isDigit(char16_t character) { return characterRules::digit(character); }

/// What a decimal literal is made of, apart from the signs of its exponent.
constexpr bool isDecimalCharacter(char16_t character) {
    return isDigit(character) || character == u'.' || character == u'e' || character == u'E';
}

/// The letters of names: Latin as far as U+00FF and Greek. The sign × and the letter í are none, the sign ÷ is one, and
/// the final sigma is none.
constexpr bool isLetter(char16_t character) { return characterRules::letters(character); }

/// What a variable's name may hold: letters, digits and "_".
constexpr bool isValidVariableCharacter(char16_t character) {
    return isLetter(character) || isDigit(character) || character == u'_';
}
