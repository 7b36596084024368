#include "engine/parser/TXEHasher.h"

#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "engine/parser/messages.h"
#include "tests/support/parsing.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

class ToleranceTrees : public testing::TestWithParam<TreeCase> {};

TEST_P(ToleranceTrees, carryTheTolerance) { expectTree(GetParam()); }

// clang-format off
constexpr TreeCase tolerances[] = {
    {"Symmetric",                     u"5±0.1",            "0: 5±0.1"},
    {"BlankInFront",                  u"5 ±0.1",           "0: 5±0.1"},
    {"BlanksInFront",                 u"5   ±0.1",         "0: 5±0.1"},
    {"Asymmetric",                    u"5±0.1|0.2",        "0: 5±0.1|0.2"},
    {"AsymmetricWithBlanks",          u"5±0.1 | 0.2",      "0: 5±0.1|0.2"},
    {"AsymmetricWithBlanksEverywhere", u"5  ±0.1  |  0.2", "0: 5±0.1|0.2"},
    {"AsymmetricBlankBeforeTheBar",   u"5±0.1 |0.2",       "0: 5±0.1|0.2"},
    {"AsymmetricBlankAfterTheBar",    u"5±0.1| 0.2",       "0: 5±0.1|0.2"},
    {"OnAVariable",                   u"a±2",              "0!: v2±2"},
    {"OnAVariableAfterABlank",        u"a ±2",             "0!: v2±2"},
    {"AsymmetricOnAVariable",         u"a±2|3",            "0!: v2±2|3"},
    {"OnAConstant",                   u"pi±1",             "0!: v0±1"},
    {"OnEachOperand",                 u"5±1+6±2*a±3",      "0!: 5±1 +6±2 *v2±3"},
    {"OnlyWhereItStands",             u"5±1+6",            "0: 5±1 +6"},
    {"InAGroup",                      u"2*(3±1)",          "0: 2 *[1] | 1@0.1: 3±1"},
    {"OnALiteralWithExponent",        u"5e1±1",            "0: 50±1"},
    {"OnTheRightSide",                u"a=5±1",            "0!: v2", "0: 5±1"},
    {"OnTheTarget",                   u"a±1=5",            "0!: v2±1", "0: 5"},
    {"ThenABlankAndAnOperator",       u"5±1 + 2",          "0: 5±1 +2"},
    {"ThenABlank",                    u"5±1 ",             "0: 5±1"},
    {"Zero",                          u"5±0",              "0: 5±0"},
    {"WholeNumber",                   u"5±12",             "0: 5±12"},
    {"PointInFront",                  u"5±.5",             "0: 5±0.5"},
    {"PointAtTheEnd",                 u"5±2.",             "0: 5±2"},
    {"LeadingZerosAreAllowed",        u"5±05",             "0: 5±5"},
    {"Exponent",                      u"5±1e3",            "0: 5±1000"},
    {"CapitalExponent",               u"5±1E3",            "0: 5±1000"},
    {"NegativeExponent",              u"5±1e-3",           "0: 5±0.001"},
    {"BlanksInTheExponent",           u"5±1e - 3",         "0: 5±0.001"},
    {"EvenMinusSignsInTheExponent",   u"5±1e--3",          "0: 5±1000"},
    {"ExponentsOnBothSides",          u"5±1e2|2e-1",       "0: 5±100|0.2"},
    {"MantissaTimesPower",            u"5±3e-1",           "0: 5±0.30000000000000004"},
    {"ZeroTimesInfinity",             u"5±0e999",          "0: 5±nan|nan"},
    {"PointInFrontIsNotCounted",      u"5±.5.5",           "0: 5±0.5"},
    {"TwoPointsInFront",              u"5±..5",            "0: 5±0"},
    {"PointBeforeAnOperator",         u"5±.+1",            "0: 5±0 +1"},
    // What follows the bar is not looked at: it is whatever a number's leading part makes of it.
    {"NameAfterTheBar",               u"5±1|x+2",          "0: 5±1|0 +2"},
    {"MinusAfterTheBar",              u"5±1|-2",           "0: 5±1|-2"},
    {"PlusAfterTheBar",               u"5±1|+2",           "0: 5±1|2"},
    {"SecondBarAfterTheBar",          u"5±1||2",           "0: 5±1|0"},
    {"PlusMinusAfterTheBar",          u"5±1|±2",           "0: 5±1|0"},
    {"ExponentLetterAfterTheBar",     u"5±1|e5",           "0: 5±1|0"},
    {"PointAfterTheBar",              u"5±1|.5",           "0: 5±1|0.5"},
    {"MinusInfinityAfterTheBar",      u"5±1|-3e999",       "0: 5±1|-inf"},
    {"ParenthesisAfterTheBar",        u"5±1|)+2",          "0: 5±1|0 +2"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Accepted, ToleranceTrees, testing::ValuesIn(tolerances), RowName());

class ToleranceRefusals : public testing::TestWithParam<RefusalCase> {};

TEST_P(ToleranceRefusals, giveTheirMessage) { expectRefusal(GetParam()); }

constexpr std::u16string_view noNumber = u"± must be followed by a number (you can't have variables or anything else).";
constexpr std::u16string_view unexpected =
    u"There is an error in the equation.  Please report the equation, since this error shouldn't have happened.  "
    u"Thanks.";

// clang-format off
constexpr RefusalCase withoutANumber[] = {
    {"BlankAfterTheSign",            u"5 ± 0.1",        noNumber},
    {"BlankOnlyAfterTheSign",        u"5± 0.1",         noNumber},
    {"BlankAtTheEnd",                u"5± ",            noNumber},
    {"Name",                         u"5±x",            noNumber},
    {"NameOnAVariable",              u"a±x",            noNumber},
    {"BlankOnAVariable",             u"a ± 2",          noNumber},
    {"Minus",                        u"5±-1",           noNumber},
    {"Parenthesis",                  u"5±(1)",          noNumber},
    {"SecondSign",                   u"5±±1",           noNumber},
    {"Bar",                          u"5±|1",           noNumber},
    {"LastCharacterPoint",           u"5±.",            u"You can't have that character at the end of the equation."},
    {"NothingAfterTheBar",           u"5±0.1|",         u"You can't have that character at the end of the equation."},
    {"BlankAfterTheBar",             u"5±0.1| ",        u"You can't have that character at the end of the equation."},
    {"NameAtTheEndAfterTheBar",      u"5±0.1|x",        u"You can't have that character at the end of the equation."},
    {"PointAtTheEndAfterTheBar",     u"5±0.1|.",        u"You can't have that character at the end of the equation."},
    {"BarAtTheEndOnAVariable",       u"a±1|",           u"You can't have that character at the end of the equation."},
};

constexpr RefusalCase badNumbers[] = {
    {"Octal",                        u"5±0o1",          u"Octal numbers not supported yet"},
    {"Hexadecimal",                  u"5±0x1",          u"Hexadecimal numbers not supported yet"},
    {"Binary",                       u"5±0b1",          u"Binary numbers not supported yet"},
    {"OctalAfterTheBar",             u"5±1|0o1",        u"Octal numbers not supported yet"},
    {"HexadecimalAfterTheBar",       u"a±1|0x1",        u"Hexadecimal numbers not supported yet"},
    {"BinaryPrefixAlone",            u"5±0b",           u"Binary numbers not supported yet"},
    {"CapitalPrefixIsNotKnown",      u"5±0X1",          u"There needs to be an operator after 5."},
    {"CapitalPrefixOnAVariable",     u"a±0X1",          u"You need an operator between a±0 and X1."},
    {"DecimalInTheExponent",         u"5±1e2.5",        u"Exponent must be integer."},
    {"DecimalInTheSecondExponent",   u"5±1e2e3.5",      u"Exponent must be integer."},
    {"NoExponent",                   u"5±1e",           u"1 Exponent must be an integer."},
    {"NoExponentBeforeAnOperator",   u"5±1e*2",         u"1 Exponent must be an integer."},
    {"NoExponentBeforeAName",        u"5±1ex",          u"1 Exponent must be an integer."},
    {"SignWithoutExponent",          u"5±1e-",          u"1 Exponent must be an integer."},
    {"PointBeginsTheExponent",       u"5±1e.5",         u"1 Exponent must be an integer."},
    {"SecondExponentWithoutDigits",  u"5±1e2e",         u"1 Exponent must be an integer."},
    {"TooManyDecimals",              u"5±1.2.3",        u"Too many decimals in a tolerance number."},
    {"TooManyDecimalsAfterTheBar",   u"5±1|1.2.3",      u"Too many decimals in a tolerance number."},
    {"TwoPointsAtTheEnd",            u"5±1..",          u"Too many decimals in a tolerance number."},
    {"DecimalsBeforeExponents",      u"5±1.2.3e4e5",    u"Too many decimals in a tolerance number."},
    {"TooManyExponents",             u"5±1e2e3",        u"Too many exponents in a tolerance number."},
    {"TooLarge",                     u"5±1e999",        u"A number in the equation is too large"},
    {"TooLargeAfterTheBar",          u"5±1|1e999",      u"A number in the equation is too large"},
    {"TooLargeOnAVariable",          u"a±1e999",        u"A number in the equation is too large"},
};

constexpr RefusalCase noTolerance[] = {
    {"SignAtTheEnd",                 u"5±",             unexpected},
    {"SignAtTheEndAfterABlank",      u"5 ±",            unexpected},
    {"SignAtTheEndOfAName",          u"a±",             unexpected},
    {"SignAlone",                    u"±",              unexpected},
    {"SignInFront",                  u"±5",             unexpected},
    {"SecondTolerance",              u"5±0.1±0.2",      unexpected},
    {"OnAPrefixedNumber",            u"0x1F±1",         unexpected},
    {"OnABinaryNumber",              u"0b1 ±1",         unexpected},
    {"OnNil",                        u"nil±1",          unexpected},
    {"OnUndefined",                  u"undefined±1",    unexpected},
    {"OnAFunction",                  u"sin±1",          unexpected},
    {"OnAGroup",                     u"(5)±1",          unexpected},
    {"SecondBar",                    u"5±1|2|3",        u"| is not currently supported as an operator."},
};

constexpr RefusalCase followedByMore[] = {
    {"OperandAfterABlank",           u"5±1 2",          u"You need an operator between   and 2."},
    {"MessageQuotesTheTolerance",    u"3 5±1",          u"You need an operator between   and 5±1."},
    {"MessageQuotesTheToleranceOfAName", u"x y±2|3",    u"You need an operator between   and y±2|3."},
    {"RefusedToleranceIsNotQuoted",  u"3 5±x",          u"You need an operator between   and 5."},
    {"RefusedToleranceOfANameIsNotQuoted", u"x y±z",    u"You need an operator between   and y."},
    {"LettersAfterTheBar",           u"5±1|xy",         u"There needs to be an operator after 5."},
    {"LetterAfterTheTolerance",      u"5±1x",           u"There needs to be an operator after 5."},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(WithoutANumber, ToleranceRefusals, testing::ValuesIn(withoutANumber), RowName());
INSTANTIATE_TEST_SUITE_P(BadNumbers, ToleranceRefusals, testing::ValuesIn(badNumbers), RowName());
INSTANTIATE_TEST_SUITE_P(NoTolerance, ToleranceRefusals, testing::ValuesIn(noTolerance), RowName());
INSTANTIATE_TEST_SUITE_P(FollowedByMore, ToleranceRefusals, testing::ValuesIn(followedByMore), RowName());

TEST(Tolerances, withoutAnExponentInfinityIsAccepted) {
    const ParsedLine parsed(u"5±" + std::u16string(400, u'9'));
    ASSERT_FALSE(parsed.result->isErrorMessage()) << utf8(parsed.result->errorMessage());
    EXPECT_EQ(treeText(parsed.equation.leftEquationBlocks()), "0: 5±inf");
}

TEST(Tolerances, aRefusedOneLeavesThePositionAndTheBlockAlone) {
    for (const std::u16string_view line :
         {u"5 ± 1", u"5 ±x+1", u"5 ±0x1", u"5 ±1 |", u"5 ±1 | 1.2.3", u"5 ±", u"5 +1", u"5"}) {
        SCOPED_TRACE(utf8(line));
        OpenedLine opened(line);
        opened.hasher.parseTolerance();
        EXPECT_EQ(opened.hasher.equationPosition_, 0);
        EXPECT_FALSE(opened.hasher.workingTXBlock().hasTolerance());
        EXPECT_EQ(opened.hasher.workingTXBlock().tolerance(), _TXTolerance());
    }
}

TEST(Tolerances, anAcceptedOneEndsOnItsLastCharacter) {
    OpenedLine opened(u"5 ±0.1 | 0.25 +1");
    opened.hasher.parseTolerance();
    EXPECT_EQ(opened.hasher.equationPosition_, 12);
    EXPECT_TRUE(opened.hasher.workingTXBlock().toleranceIsUserDefined());
    EXPECT_EQ(opened.hasher.workingTXBlock().tolerance(), (_TXTolerance{.plusTol = 0.1, .minusTol = 0.25}));
}

TEST(Tolerances, blanksAfterASymmetricOneAreNotTaken) {
    OpenedLine opened(u"5±0.1   +1");
    opened.hasher.parseTolerance();
    EXPECT_EQ(opened.hasher.equationPosition_, 4);
}

TEST(Tolerances, changeNothingInTheAnswer) {
    TXEquationController controller;
    EXPECT_EQ(controller.addOneStringBlindly(u"5±0.1")->number(), 5.0);
    EXPECT_EQ(controller.addOneStringBlindly(u"ans±1|2*2±1")->number(), 10.0);
}

TEST(Tolerances, guardsThatNothingReachesKeepTheirWords) {
    EXPECT_EQ(parserMessages::toleranceAtEnd, u"Can't have ± at the end of the equation.");
    EXPECT_EQ(
        parserMessages::barWithoutNumber,
        u"In the tolerance, the | symbol must be followed by a number (you can't have variables or anything else).");
}

struct ToleranceNumberCase {
    const char* name;
    std::u16string_view line;
    double number;
    std::int32_t lastPosition;
    std::u16string_view message;
};

void PrintTo(const ToleranceNumberCase& row, std::ostream* out) { *out << utf8(row.line); }

class ToleranceNumbers : public testing::TestWithParam<ToleranceNumberCase> {};

TEST_P(ToleranceNumbers, areReadFromTheirFirstCharacter) {
    OpenedLine opened(GetParam().line);
    EXPECT_EQ(opened.hasher.parseToleranceNumber(), GetParam().number);
    EXPECT_EQ(opened.message(), utf8(GetParam().message));
    if (GetParam().message.empty()) {
        EXPECT_EQ(opened.hasher.equationPosition_, GetParam().lastPosition);
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Direct, ToleranceNumbers, testing::Values(
    ToleranceNumberCase{"Digit",             u"7",        7.0,      0, u""},
    ToleranceNumberCase{"Fraction",          u"0.25+1",   0.25,     3, u""},
    ToleranceNumberCase{"Exponent",          u"2e - 3*4", 0.002,    5, u""},
    ToleranceNumberCase{"NoDigit",           u"x+1",      0.0,      0, u""},
    ToleranceNumberCase{"TooLargeStillGiven", u"1e999",   infinity, 4, u"A number in the equation is too large"},
    ToleranceNumberCase{"AtTheEnd",          u")",        0.0,      0, u"You can't have that character at the end of the equation."},
    ToleranceNumberCase{"Refused",           u"1.2.3",    0.0,      0, u"Too many decimals in a tolerance number."}
), RowName());
// clang-format on

}  // namespace
