#include "engine/parser/characterClasses.h"

#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/parsing.h"

namespace {

struct CodeRange {
    char32_t first;
    char32_t last;
};

using CodeRanges = std::vector<CodeRange>;

/// Ranges that belong to one class, written down code by code, so that no class rests on another.
struct ClassCase {
    const char* name;
    bool (*isInClass)(char16_t);
    CodeRanges members;
};

void PrintTo(const ClassCase& row, std::ostream* out) { *out << row.name; }

class CharacterClasses : public testing::TestWithParam<ClassCase> {};

TEST_P(CharacterClasses, holdExactlyTheirMembersOfAllCodeUnits) {
    std::vector<bool> isMember(0x10000);
    for (const auto& [first, last] : GetParam().members) {
        for (char32_t code = first; code <= last; ++code) {
            isMember[code] = true;
        }
    }
    std::string wrong;
    for (char32_t code = 0; code < isMember.size(); ++code) {
        if (GetParam().isInClass(static_cast<char16_t>(code)) != isMember[code]) {
            wrong += " " + std::to_string(code);
        }
    }
    EXPECT_EQ(wrong, "");
}

// clang-format off
const CodeRanges whitespace = {{0x20, 0x20}};

const CodeRanges precedenceOperators = {
    {0x2A, 0x2B}, {0x2D, 0x2D}, {0x2F, 0x2F},  // * + - /
    {0x5E, 0x5E},                              // ^
    {0x22C5, 0x22C5},                          // dot operator
};

const CodeRanges operators = {
    {0x21, 0x21}, {0x25, 0x26}, {0x28, 0x2B}, {0x2D, 0x2D}, {0x2F, 0x2F},    // ! % & ( ) * + - /
    {0x3C, 0x3E}, {0x5B, 0x5B}, {0x5D, 0x5E}, {0x7C, 0x7C}, {0x7E, 0x7E},    // < = > [ ] ^ | ~
    {0xD7, 0xD7}, {0x2022, 0x2022}, {0x2260, 0x2260}, {0x2264, 0x2265}, {0x22C5, 0x22C5},
};

const CodeRanges numericalDelimiters = {
    {0x20, 0x21}, {0x25, 0x26}, {0x28, 0x2D}, {0x2F, 0x2F},                  // blank ! % & ( ) * + , - /
    {0x3B, 0x3E}, {0x5B, 0x5B}, {0x5D, 0x5E}, {0x7C, 0x7C}, {0x7E, 0x7E},    // ; < = > [ ] ^ | ~
    {0xB1, 0xB1}, {0xD7, 0xD7}, {0x2022, 0x2022}, {0x2260, 0x2260}, {0x2264, 0x2265}, {0x22C5, 0x22C5},
};

const CodeRanges variableDelimiters = {
    {0x20, 0x21}, {0x25, 0x26}, {0x28, 0x2F},                                // as above, with the point
    {0x3B, 0x3E}, {0x5B, 0x5B}, {0x5D, 0x5E}, {0x7C, 0x7C}, {0x7E, 0x7E},
    {0xB1, 0xB1}, {0xD7, 0xD7}, {0x2022, 0x2022}, {0x2260, 0x2260}, {0x2264, 0x2265}, {0x22C5, 0x22C5},
};

const CodeRanges letters = {
    {0x41, 0x5A}, {0x61, 0x7A},
    {0xC0, 0xD6}, {0xD8, 0xEC}, {0xEE, 0xFF},                                // neither the sign U+00D7 nor U+00ED
    {0x391, 0x3A1}, {0x3A3, 0x3A9}, {0x3B1, 0x3C1}, {0x3C3, 0x3C9},          // no final sigma, U+03C2
};

const CodeRanges variableCharacters = {
    {0x30, 0x39}, {0x41, 0x5A}, {0x5F, 0x5F}, {0x61, 0x7A},
    {0xC0, 0xD6}, {0xD8, 0xEC}, {0xEE, 0xFF},
    {0x391, 0x3A1}, {0x3A3, 0x3A9}, {0x3B1, 0x3C1}, {0x3C3, 0x3C9},
};

const CodeRanges decimalCharacters = {{0x2E, 0x2E}, {0x30, 0x39}, {0x45, 0x45}, {0x65, 0x65}};

INSTANTIATE_TEST_SUITE_P(Classes, CharacterClasses, testing::Values(
    ClassCase{"Whitespace",         isWhitespace,             whitespace},
    ClassCase{"PrecedenceOperator", isPrecedenceOperator,     precedenceOperators},
    ClassCase{"Operator",           isOperator,               operators},
    ClassCase{"NumericalDelimiter", isNumericalDelimiter,     numericalDelimiters},
    ClassCase{"VariableDelimiter",  isVariableDelimiter,      variableDelimiters},
    ClassCase{"VariableCharacter",  isValidVariableCharacter, variableCharacters},
    ClassCase{"Letter",             isLetter,                 letters},
    ClassCase{"Digit",              isDigit,                  CodeRanges{{0x30, 0x39}}},
    ClassCase{"DecimalCharacter",   isDecimalCharacter,       decimalCharacters}
), RowName());

// The classes look most characters up in tables that the compiler has made of these.
INSTANTIATE_TEST_SUITE_P(Rules, CharacterClasses, testing::Values(
    ClassCase{"Whitespace",         characterRules::whitespace,         whitespace},
    ClassCase{"PrecedenceOperator", characterRules::precedenceOperator, precedenceOperators},
    ClassCase{"Operator",           characterRules::anyOperator,        operators},
    ClassCase{"NumericalDelimiter", characterRules::numericalDelimiter, numericalDelimiters},
    ClassCase{"VariableDelimiter",  characterRules::variableDelimiter,  variableDelimiters},
    ClassCase{"Letter",             characterRules::letter,             letters},
    ClassCase{"Digit",              characterRules::digit,              CodeRanges{{0x30, 0x39}}}
), RowName());
// clang-format on

}  // namespace
