#include "engine/parser/TXEHasher.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/parsing.h"

namespace {

class OperatorTrees : public testing::TestWithParam<TreeCase> {};

TEST_P(OperatorTrees, areAccepted) { expectTree(GetParam()); }

// clang-format off
constexpr TreeCase operators[] = {
    {"Plus",                          u"5+3",          "0: 5 +3"},
    {"Minus",                         u"5-3",          "0: 5 -3"},
    {"Times",                         u"5*3",          "0: 5 *3"},
    {"Divide",                        u"5/3",          "0: 5 /3"},
    {"Power",                         u"5^3",          "0: 5 ^3"},
    {"DotOperatorIsTimes",            u"5\u22C5" "2",  "0: 5 *2"},
    {"BlanksAround",                  u"5  *  3",      "0: 5 *3"},
    {"SeveralInReadingOrder",         u"1+2*3-4/5^6",  "0: 1 +2 *3 -4 /5 ^6"},
};

constexpr TreeCase signs[] = {
    {"LeadingMinusIsAnOperator",      u"-5",           "0: -5"},
    {"LeadingPlusIsAnOperator",       u"+5",           "0: +5"},
    {"TwoLeadingMinus",               u"--5",          "0: +5"},
    {"LeadingRunWithBlanks",          u"- + - -5",     "0: -5"},
    {"TwoMinusArePlus",               u"5 - - 3",      "0: 5 +3"},
    {"PlusMinusIsMinus",              u"5+-3",         "0: 5 -3"},
    {"MinusPlusIsMinus",              u"5-+3",         "0: 5 -3"},
    {"ThreeMinus",                    u"5---3",        "0: 5 -3"},
    {"MinusAfterTimes",               u"5*-3",         "0: 5 *~3"},
    {"PlusAfterTimes",                u"5*+3",         "0: 5 *3"},
    {"TwoMinusAfterTimes",            u"5*--3",        "0: 5 *3"},
    {"OddRunAfterTimes",              u"5 * - + - - 3", "0: 5 *~3"},
    {"MinusAfterDivide",              u"5/-3",         "0: 5 /~3"},
    {"MinusAfterPower",               u"5^-3",         "0: 5 ^~3"},
    {"MinusBeforeAVariableAfterTimes", u"5*-a",        "0!: 5 *~v2"},
    {"MinusBeforeAGroupAfterTimes",   u"5*-(3)",       "0: 5 *~[1] | 1@0.1: 3"},
    {"MinusBeforeAFunctionAfterTimes", u"5*-sin(3)",   "0: 5 *~f2[1] | 1@0.1: 3"},
    {"MinusBeforeALeadingGroup",      u"-(3)",         "0: -[1] | 1@0.0: 3"},
    {"MinusAfterAParenthesis",        u"2*(-3)",       "0: 2 *[1] | 1@0.1: -3"},
    {"MinusAfterTheEqualsSign",       u"a=-5",         "0!: v2", "0: -5"},
    {"BlankRunAfterTheEqualsSign",    u"a = - 5",      "0!: v2", "0: -5"},
    {"MinusInFrontOfTheTarget",       u"-a=5",         "0!: -v2", "0: 5"},
};

constexpr TreeCase atTheBeginning[] = {
    // Only the very first character of the text counts as its beginning.
    {"OperatorAfterALeadingBlank",    u" *5",          "0: *5"},
    {"OperatorAfterAParenthesis",     u"(*5)",         "0: [1] | 1@0.0: *5"},
    {"OperatorAfterParenthesisInARun", u"5+(*3)",      "0: 5 +[1] | 1@0.1: *3"},
    {"OperatorBeforeAndInTheGroup",   u"5*(/3)",       "0: 5 *[1] | 1@0.1: /3"},
};

constexpr TreeCase atTheEnd[] = {
    {"ClosingParenthesis",            u"(5)",          "0: [1] | 1@0.0: 5"},
    {"BlankBehindAnOperator",         u"5* ",          "0: 5"},
    {"BlankBehindTheEqualsSign",      u"a= ",          "0!: v2", "0:"},
    {"BlanksBehindAParenthesis",      u"(5)  ",        "0: [1] | 1@0.0: 5"},
};

constexpr TreeCase equalsSigns[] = {
    {"DividesTheSides",               u"a=b+1",        "0!: v2", "0!: v3 +1"},
    {"BlanksAround",                  u"a  =  5",      "0!: v2", "0: 5"},
    {"GroupOnTheRight",               u"a=(5)",        "0!: v2", "0: [1] | 1@0.0: 5"},
    // Inside parentheses it becomes an operator block without an operand.
    {"InAGroupBeforeASign",           u"(a=+b)",       "0: [1] | 1@0.0!: v2 =_ +v3"},
    {"InAGroupBeforeAMinus",          u"(a=-b)",       "0: [1] | 1@0.0!: v2 =_ -v3"},
    {"InAGroupOnTheRight",            u"a=(b=+1)",     "0!: v2", "0: [1] | 1@0.0!: v3 =_ +1"},
    {"InAnArgumentBeforeItsGroup",    u"(sin=(3))",    "0: [1] | 1@0.0: f2[2] =_ | 2@1.1: 3"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Operators, OperatorTrees, testing::ValuesIn(operators), RowName());
INSTANTIATE_TEST_SUITE_P(Signs, OperatorTrees, testing::ValuesIn(signs), RowName());
INSTANTIATE_TEST_SUITE_P(AtTheBeginning, OperatorTrees, testing::ValuesIn(atTheBeginning), RowName());
INSTANTIATE_TEST_SUITE_P(AtTheEnd, OperatorTrees, testing::ValuesIn(atTheEnd), RowName());
INSTANTIATE_TEST_SUITE_P(EqualsSigns, OperatorTrees, testing::ValuesIn(equalsSigns), RowName());

class OperatorRefusals : public testing::TestWithParam<RefusalCase> {};

TEST_P(OperatorRefusals, giveTheirMessage) { expectRefusal(GetParam()); }

// clang-format off
constexpr RefusalCase cannotEnd[] = {
    {"Plus",                         u"5+",         u"The equation cannot end with a +."},
    {"Minus",                        u"5-",         u"The equation cannot end with a -."},
    {"Times",                        u"5*",         u"The equation cannot end with a *."},
    {"Divide",                       u"5/",         u"The equation cannot end with a /."},
    {"Power",                        u"5^",         u"The equation cannot end with a ^."},
    {"DotOperatorAsTyped",           u"5\u22C5",    u"The equation cannot end with a \u22C5."},
    {"EqualsSign",                   u"a=",         u"The equation cannot end with a =."},
    {"EqualsSignAlone",              u"=",          u"The equation cannot end with a =."},
    {"OpeningParenthesis",           u"(",          u"The equation cannot end with a (."},
    {"OpeningParenthesisAfterOperator", u"5+(",     u"The equation cannot end with a (."},
    {"OperatorInAnOpenGroup",        u"(5+",        u"The equation cannot end with a +."},
    {"PlusAlone",                    u"+",          u"The equation cannot end with a +."},
    {"LastSignOfARun",               u"5+-",        u"The equation cannot end with a -."},
    {"LastSignAfterTimes",           u"5*-",        u"The equation cannot end with a -."},
    {"SignsAndBlanks",               u"5+ - ",      u"The equation cannot end with a  ."},
    {"BlankBehindASign",             u"5- ",        u"The equation cannot end with a  ."},
    {"AfterABracket",                u"a[+",        u"The equation cannot end with a +."},
    {"TimesAfterABracket",           u"5]*",        u"The equation cannot end with a *."},
    {"AfterAnotherMessageOfTheRun",  u"(5)=(",      u"The equation cannot end with a (."},
};

constexpr RefusalCase cannotBegin[] = {
    {"Times",                        u"*5",         u"The equation cannot begin with a *."},
    {"Divide",                       u"/5",         u"The equation cannot begin with a /."},
    {"Power",                        u"^5",         u"The equation cannot begin with a ^."},
    {"DotOperatorIsTimes",           u"\u22C5" "5", u"The equation cannot begin with a *."},
    {"TimesAloneAlsoEnds",           u"*",          u"The equation cannot begin with a *."},
    {"DotOperatorAloneAlsoEnds",     u"\u22C5",     u"The equation cannot begin with a *."},
    {"BeforeAGroup",                 u"*(5)",       u"The equation cannot begin with a *."},
    {"BeforeASign",                  u"*-5",        u"The equation cannot begin with a *."},
};

constexpr RefusalCase cannotFollow[] = {
    {"TimesAfterPlus",               u"5+*3",       u"* can't come right after a +"},
    {"TimesAfterTimes",              u"5**3",       u"* can't come right after a *"},
    {"DivideAfterTimes",             u"5*/3",       u"/ can't come right after a *"},
    {"PowerAfterMinus",              u"5-^3",       u"^ can't come right after a -"},
    {"TimesAfterPower",              u"5^*3",       u"* can't come right after a ^"},
    {"DotOperatorsReadAsTimes",      u"5\u22C5\u22C5" "3", u"* can't come right after a *"},
    {"PlusAfterDotOperatorIsFine",   u"5\u22C5+/3", u"/ can't come right after a +"},
    {"BlanksDoNotSeparate",          u"5 * * 3",    u"* can't come right after a *"},
    {"FirstSignOfARunIsNamed",       u"5+-*3",      u"* can't come right after a +"},
    {"FirstSignOfABlankRunIsNamed",  u"5- + *3",    u"* can't come right after a -"},
    {"SignAfterTimes",               u"5*-*3",      u"* can't come right after a -"},
    {"AfterALeadingSign",            u"-*5",        u"* can't come right after a -"},
    {"AfterAGroup",                  u"(5)+*3",     u"* can't come right after a +"},
    {"TwoAtTheBeginning",            u"**",         u"* can't come right after a *"},
    {"TwoAtTheBeginningBeforeMore",  u"*/5",        u"/ can't come right after a *"},
    {"AfterABracketKeepsCounting",   u"5+[*3",      u"* can't come right after a ["},
    {"AfterAParenthesisKeepsCounting", u"(5+)*3",   u"* can't come right after a )"},
    {"TimesAfterEquals",             u"a=*5",       u"* can't come right after a ="},
    {"TimesAfterEqualsAndABlank",    u"a= *5",      u"* can't come right after a ="},
    {"TimesAfterEqualsAtTheEnd",     u"a=*",        u"* can't come right after a ="},
    {"TimesAfterEqualsInAGroup",     u"(a=*b)",     u"* can't come right after a ="},
    {"TimesAfterLeadingEquals",      u"=*5",        u"* can't come right after a ="},
};

constexpr RefusalCase closingParentheses[] = {
    {"EmptyGroup",                   u"()",         u") can't come right after a ("},
    {"EmptyGroupWithABlank",         u"( )",        u") can't come right after a ("},
    {"EmptyArgument",                u"sin()",      u") can't come right after a ("},
    {"AfterAPlus",                   u"(5+)",       u") can't come right after a +"},
    {"AfterASignRun",                u"(5-+)",      u") can't come right after a -"},
    {"AfterTimes",                   u"(5*)+1",     u") can't come right after a *"},
    {"AfterADotOperator",            u"(5\u22C5)",  u") can't come right after a *"},
    {"AfterEqualsInAGroup",          u"(a=)",       u") can't come right after a ="},
    {"AfterABracketInAGroup",        u"([)",        u") can't come right after a ["},
    {"AfterAClosingBracketIsFine",   u"(5])",       u"] is not currently supported as a character.  Use ) instead for opening parenthesis."},
    {"TooMany",                      u"5)",         u"Unbalanced Parethesis"},
    {"Alone",                        u")",          u"Unbalanced Parethesis"},
    {"TooManyBeforeMore",            u"5)+3",       u"Unbalanced Parethesis"},
    {"TooManyInTheEnd",              u"(5))",       u"Unbalanced Parethesis"},
    {"TooManyAfterAnOperator",       u"5+)3",       u"Unbalanced Parethesis"},
    {"TooManyAfterEquals",           u"a=)",        u"Unbalanced Parethesis"},
    {"TooManyAfterABracket",         u"[)",         u"Unbalanced Parethesis"},
    {"TooManyAfterAnOpenAndClosed",  u"())",        u"Unbalanced Parethesis"},
    {"OnTheRightSide",               u"a=5)",       u"Unbalanced Parethesis"},
};

constexpr RefusalCase equalsSignRefusals[] = {
    {"Second",                       u"a=b=c",      u"You can't have more than one equals sign in the main part of the equation."},
    {"TwoInARow",                    u"a==5",       u"You can't have more than one equals sign in the main part of the equation."},
    {"TwoAlone",                     u"==",         u"You can't have more than one equals sign in the main part of the equation."},
    {"SecondAtTheEnd",               u"a=5=",       u"You can't have more than one equals sign in the main part of the equation."},
    {"SecondAfterAnOperator",        u"a=5+=3",     u"You can't have more than one equals sign in the main part of the equation."},
    {"SecondAfterAGroup",            u"a=(5)=3",    u"You can't have more than one equals sign in the main part of the equation."},
    {"AfterAPlus",                   u"5+=3",       u"= can't come right after a +"},
    {"AfterAPlusAndABlank",          u"5+ =3",      u"= can't come right after a +"},
    {"AfterTimes",                   u"a*=3",       u"= can't come right after a *"},
    {"AfterAGroup",                  u"(5)=3",      u"= can't come right after a )"},
    {"AfterAGroupedVariable",        u"(a)=3",      u"= can't come right after a )"},
    {"AfterAGroupAndABlank",         u"(a) =3",     u"= can't come right after a )"},
    {"AfterAFunction",               u"sin(a)=3",   u"= can't come right after a )"},
    {"AfterAGroupAtTheEnd",          u"(a)=",       u"= can't come right after a )"},
    {"AfterAnOpeningBracket",        u"a[=5",       u"= can't come right after a ["},
    {"AfterAClosingBracket",         u"a]=5",       u"= can't come right after a ]"},
    {"AfterAnOpeningParenthesis",    u"(=5)",       u"= can't come right after a ("},
    {"TwoInAGroup",                  u"(a==b)",     u"= can't come right after a ="},
    {"InAGroupAfterAnOperator",      u"(a+=b)",     u"= can't come right after a +"},
    {"InAGroupTheNextOperandWantsAnOperator", u"(a=b)", u"You need an operator between = and b."},
    {"InAGroupTheNextGroupWantsAnOperator", u"(a=(b))", u"You need an operator between a and =(."},
};

constexpr RefusalCase brackets[] = {
    {"Opening",                      u"[5",         u"[ is not currently supported as a character.  Use ( instead for opening parenthesis."},
    {"OpeningAlone",                 u"[",          u"[ is not currently supported as a character.  Use ( instead for opening parenthesis."},
    {"OpeningAfterAnOperator",       u"5+[3",       u"[ is not currently supported as a character.  Use ( instead for opening parenthesis."},
    {"OpeningAtTheEnd",              u"5+[",        u"[ is not currently supported as a character.  Use ( instead for opening parenthesis."},
    {"Closing",                      u"5]",         u"] is not currently supported as a character.  Use ) instead for opening parenthesis."},
    {"ClosingBeforeMore",            u"5]+3",       u"] is not currently supported as a character.  Use ) instead for opening parenthesis."},
    {"Both",                         u"[]",         u"] is not currently supported as a character.  Use ) instead for opening parenthesis."},
    {"AroundANumber",                u"[5]",        u"[ is not currently supported as a character.  Use ( instead for opening parenthesis."},
    {"OperatorAfterOpening",         u"a[*5",       u"[ is not currently supported as a character.  Use ( instead for opening parenthesis."},
    {"GroupAfterOpening",            u"[(5)",       u"[ is not currently supported as a character.  Use ( instead for opening parenthesis."},
};

constexpr RefusalCase unsupported[] = {
    {"Percent",                      u"5%2",        u"% is not currently supported as an operator."},
    {"Bar",                          u"5|2",        u"| is not currently supported as an operator."},
    {"Ampersand",                    u"5&2",        u"& is not currently supported as an operator."},
    {"Tilde",                        u"~2",         u"~ is not currently supported as an operator."},
    {"Less",                         u"5<2",        u"< is not currently supported as an operator."},
    {"Greater",                      u"5>2",        u"> is not currently supported as an operator."},
    {"Exclamation",                  u"a!",         u"! is not currently supported as an operator."},
    {"Bullet",                       u"5\u2022" "2", u"\u2022 is not currently supported as an operator."},
    {"MultiplicationSign",           u"5\u00D7" "2", u"\u00D7 is not currently supported as an operator."},
    {"NotEqual",                     u"5\u2260" "2", u"\u2260 is not currently supported as an operator."},
    {"LessOrEqual",                  u"5\u2264" "2", u"\u2264 is not currently supported as an operator."},
    {"GreaterOrEqual",               u"5\u2265" "2", u"\u2265 is not currently supported as an operator."},
    {"BeforeTheEndMessage",          u"5%",         u"% is not currently supported as an operator."},
    {"AfterAnOperator",              u"5+%2",       u"% is not currently supported as an operator."},
    {"EndsTheRun",                   u"5%*)",       u"% is not currently supported as an operator."},
    {"AfterABracket",                u"5+[!",       u"! is not currently supported as an operator."},
    {"AfterEquals",                  u"a=%",        u"% is not currently supported as an operator."},
    {"OneEqualAfterAnother",         u"a=<b",       u"< is not currently supported as an operator."},
    {"AfterABlank",                  u"5 % 2",      u"% is not currently supported as an operator."},
};

constexpr RefusalCase missingOperators[] = {
    {"Groups",                       u"(2)(3)",     u"You need an operator between 2 and )(."},
    {"GroupsWithABlank",             u"(2) (3)",    u"You need an operator between 2 and ) (."},
    {"Names",                        u"a b",        u"You need an operator between   and b."},
    {"NamesFarApart",                u"a   bc",     u"You need an operator between     and bc."},
    {"Numbers",                      u"2 3",        u"You need an operator between   and 3."},
    {"NameAndNumber",                u"a.5",        u"You need an operator between a and .5."},
    {"NameAndGroup",                 u"a(3)",       u"You need an operator between a and (."},
    {"NameAndNestedGroups",          u"a((3))",     u"You need an operator between a and (."},
    {"GroupAndNumber",               u"(2)3",       u"You need an operator between ) and 3."},
    {"GroupAndName",                 u"(2)ab",      u"You need an operator between ) and ab."},
    {"GroupAndFunction",             u"(2)sin(3)",  u"You need an operator between ) and sin."},
    {"FunctionAndNumber",            u"sin 5",      u"You need an operator between   and 5."},
    {"FunctionAndPoint",             u"sin.5",      u"You need an operator between sin and .5."},
    {"FunctionAndFunction",          u"sin cos(3)", u"You need an operator between   and cos."},
    {"ArgumentAndGroup",             u"sin(5)(6)",  u"You need an operator between 5 and )(."},
    {"NumberAndUndefinedValue",      u"2 nil",      u"You need an operator between   and nil."},
    {"InAGroup",                     u"(2 3)",      u"You need an operator between   and 3."},
    {"OnTheRightSide",               u"a=b c",      u"You need an operator between   and c."},
    {"AtTheBeginningNothingStandsBefore", u"()(",   u"You need an operator between  and ()(."},
    {"AfterABracket",                u"(2)](3)",    u"You need an operator between 2 and )](."},
};

constexpr RefusalCase belowTheTopLevel[] = {
    {"ClosedAndOpened",              u")(",         u"The equation cannot end with a (."},
    {"ClosedAndOpenedTwice",         u"))((",       u"The equation cannot end with a (."},
    {"ClosedOnceOpenedTwice",        u")((",        u"The equation cannot end with a (."},
    {"ClosedTwice",                  u"))",         u"Unbalanced Parethesis"},
    {"OpenedAfterwards",             u")(5",        u"Unbalanced Parethesis"},
    {"ClosedAgain",                  u")()",        u"Unbalanced Parethesis"},
    {"OpenedAfterAnOperator",        u"5)+(6)",     u"Unbalanced Parethesis"},
    {"OpenedAfterAnOperand",         u"5)(6",       u"You need an operator between 5 and )(."},
    {"OpenedAfterAnOperandAtTheEnd", u"5)(",        u"You need an operator between 5 and )(."},
    {"OpenedTwiceAfterAnOperand",    u"5))((",      u"The equation cannot end with a (."},
    {"NoFunctionIsPending",          u"sin)(5)",    u"You need an operator between sin and )(."},
    {"EqualsAfterwards",             u"5)=3",       u"= can't come right after a )"},
    {"EqualsAfterwardsAtTheEnd",     u"5)=",        u"= can't come right after a )"},
    {"TwoEqualsAfterwards",          u"5)==",       u"= can't come right after a ="},
    {"EqualsThenAGroup",             u")=(1",       u"You need an operator between  and )=(."},
    {"TimesAfterwards",              u"5)*/",       u"/ can't come right after a *"},
    // The list of the second group is there before the block that leads to it looks for a list.
    {"EqualsAfterClosedAndOpened",   u"5)(=((",     u"You need an operator between 5 and )(=((."},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(CannotEnd, OperatorRefusals, testing::ValuesIn(cannotEnd), RowName());
INSTANTIATE_TEST_SUITE_P(CannotBegin, OperatorRefusals, testing::ValuesIn(cannotBegin), RowName());
INSTANTIATE_TEST_SUITE_P(CannotFollow, OperatorRefusals, testing::ValuesIn(cannotFollow), RowName());
INSTANTIATE_TEST_SUITE_P(ClosingParentheses, OperatorRefusals, testing::ValuesIn(closingParentheses), RowName());
INSTANTIATE_TEST_SUITE_P(EqualsSigns, OperatorRefusals, testing::ValuesIn(equalsSignRefusals), RowName());
INSTANTIATE_TEST_SUITE_P(Brackets, OperatorRefusals, testing::ValuesIn(brackets), RowName());
INSTANTIATE_TEST_SUITE_P(Unsupported, OperatorRefusals, testing::ValuesIn(unsupported), RowName());
INSTANTIATE_TEST_SUITE_P(MissingOperators, OperatorRefusals, testing::ValuesIn(missingOperators), RowName());
INSTANTIATE_TEST_SUITE_P(BelowTheTopLevel, OperatorRefusals, testing::ValuesIn(belowTheTopLevel), RowName());

struct SignRunCase {
    const char* name;
    std::u16string_view line;
    std::int32_t start;
    std::int32_t end;
    bool isNegative;
    std::u16string_view message;
};

void PrintTo(const SignRunCase& row, std::ostream* out) { *out << utf8(row.line); }

class SignRuns : public testing::TestWithParam<SignRunCase> {};

TEST_P(SignRuns, areReadToTheirLastCharacter) {
    OpenedLine opened(GetParam().line, GetParam().start);
    opened.hasher.parseNegativeSign();
    EXPECT_EQ(opened.hasher.equationPosition_, GetParam().end);
    EXPECT_EQ(opened.hasher.parseNegativeNumber(), GetParam().isNegative);
    EXPECT_EQ(opened.message(), utf8(GetParam().message));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Direct, SignRuns, testing::Values(
    SignRunCase{"Even",           u"5 - - 3", 2, 5,  false, u""},
    SignRunCase{"Odd",            u"5+-3",    1, 2,  true,  u""},
    SignRunCase{"PlusOnly",       u"++3",     0, 1,  false, u""},
    SignRunCase{"None",           u"3",       0, -1, false, u""},
    SignRunCase{"BlanksOnly",     u"   3",    0, 2,  false, u""},
    SignRunCase{"ToTheEnd",       u"5--",     1, 2,  false, u"The equation cannot end with a -."},
    SignRunCase{"OddToTheEnd",    u"5+- ",    1, 3,  true,  u"The equation cannot end with a  ."},
    SignRunCase{"BeyondTheEnd",   u"1e",      2, 1,  false, u"The equation cannot end with a e."}
), RowName());
// clang-format on

TEST(OperatorReading, endsOnTheLastCharacterOfTheRun) {
    OpenedLine opened(u"(5 * - (3) + 2)", 3);
    opened.hasher.addNumberToStack(5.0);
    opened.hasher.parseOperator();
    EXPECT_EQ(opened.hasher.equationPosition_, 7);
    EXPECT_EQ(opened.hasher.equationIndentLevel_, 1);
    EXPECT_FALSE(opened.hasher.parseNegativeNumber());
}

TEST(OperatorReading, addOperatorOnlyMarksTheWorkingBlock) {
    OpenedLine opened(u"");
    opened.hasher.addOperatorToStack(u'^');
    EXPECT_EQ(opened.hasher.workingTXBlock().blockOperator(), u'^');
    EXPECT_EQ(opened.hasher.equationBlocks_.count(0), 0);
    opened.hasher.addNumberToStack(2.0);
    EXPECT_EQ(opened.hasher.workingTXBlock().blockOperator(), 0);
    EXPECT_EQ(opened.finishedTree(), "0: ^2");
}

TEST(OperatorReading, aBlockWithoutAnOperatorIsRefusedAfterAnother) {
    OpenedLine opened(u"12345");
    opened.hasher.addNumberToStack(1.0);
    opened.hasher.positionBeforePreviousHash_ = 0;
    opened.hasher.positionBeforeHash_ = 2;
    opened.hasher.equationPosition_ = 3;
    opened.hasher.addNumberToStack(2.0);
    EXPECT_EQ(opened.message(), "You need an operator between 12 and 34.");
    EXPECT_EQ(opened.hasher.equationBlocks_.count(0), 1);
}

}  // namespace
