#include "engine/parser/TXEHasher.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "engine/parser/messages.h"
#include "tests/support/parsing.h"

namespace {

class NameTrees : public testing::TestWithParam<TreeCase> {};

TEST_P(NameTrees, becomeTheirBlocks) { expectTree(GetParam()); }

// clang-format off
constexpr TreeCase variables[] = {
    {"Constant",                     u"pi",              "0!: v0"},
    {"NewName",                      u"a",               "0!: v2"},
    {"NewNameInAnOperation",         u"2*a",             "0!: 2 *v2"},
    {"TheSameNameTwice",             u"a+a",             "0!: v2 +v2"},
    {"TwoNames",                     u"a+b-a",           "0!: v2 +v3 -v2"},
    {"CapitalsAreOtherNames",        u"Pi+pi+PI",        "0!: v2 +v0 +v3"},
    {"LetterE",                      u"e+E",             "0!: v2 +v3"},
    {"LikeAnExponent",               u"e3",              "0!: v2"},
    {"LikeAFunction",                u"sin5",            "0!: v2"},
    {"FunctionInCapitals",           u"SIN+Sin",         "0!: v2 +v3"},
    {"KeywordInCapitals",            u"IF",              "0!: v2"},
    {"LikeTheAnswer",                u"ans1+answer",     "0!: v2 +v3"},
    {"AnswerInCapitals",             u"Ans",             "0!: v2"},
    {"UndefinedWordInCapitals",      u"Nil",             "0!: v2"},
    {"DigitsAndUnderscores",         u"_a_1",            "0!: v2"},
    {"Greek",                        u"\u03B1\u03A9",    "0!: v2"},
    {"Accents",                      u"\u00E9\u00FF\u00C0", "0!: v2"},
    {"DivisionSignIsALetter",        u"\u00F7",          "0!: v2"},
    {"EndsAtAPoint",                 u"(a*.5)",          "0: [1] | 1@0.0!: v2 *0.5"},
    {"OnBothSides",                  u"a=b",             "0!: v2", "0!: v3"},
};

constexpr TreeCase undefinedValue[] = {
    {"Nil",                          u"nil",             "0!: nil"},
    {"Undefined",                    u"undefined",       "0!: nil"},
    {"InAnOperation",                u"2-nil",           "0!: 2 -nil"},
    {"OnTheRightSide",               u"a=undefined",     "0!: v2", "0!: nil"},
    {"Negative",                     u"2*-nil",          "0!: 2 *~nil"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Variables, NameTrees, testing::ValuesIn(variables), RowName());
INSTANTIATE_TEST_SUITE_P(UndefinedValue, NameTrees, testing::ValuesIn(undefinedValue), RowName());

class NameRefusals : public testing::TestWithParam<RefusalCase> {};

TEST_P(NameRefusals, giveTheirMessage) { expectRefusal(GetParam()); }

// clang-format off
constexpr RefusalCase badNames[] = {
    {"Dollar",                       u"a$",              u"Invalid variable name: a$"},
    {"DollarAlone",                  u"$",               u"Invalid variable name: $"},
    {"DollarWithoutALetter",         u"_$",              u"Invalid variable name: _$"},
    {"Tab",                          u"a\tb",            u"Invalid variable name: a\tb"},
    {"TabAlone",                     u"\t",              u"Invalid variable name: \t"},
    {"LineEnd",                      u"a\n",             u"Invalid variable name: a\n"},
    {"NoBreakSpace",                 u"a\u00A0b",        u"Invalid variable name: a\u00A0b"},
    {"SmallIWithAcute",              u"\u00ED",          u"Invalid variable name: \u00ED"},
    {"FinalSigma",                   u"\u03C2",          u"Invalid variable name: \u03C2"},
    {"Cyrillic",                     u"\u0434",          u"Invalid variable name: \u0434"},
    {"OutsideTheBasicPlane",         u"x\U0001D400",     u"Invalid variable name: x\U0001D400"},
    {"LoneSurrogate",                u"a\xDC00",         u"Invalid variable name: a\xDC00"},
    {"Apostrophe",                   u"f'",              u"Invalid variable name: f'"},
    {"Colon",                        u"a:b",             u"Invalid variable name: a:b"},
    {"Comment",                      u"a+#x",            u"Invalid variable name: #x"},
    {"Underscore",                   u"_",               u"Invalid variable name: '_' must have more than numbers and/or underscores in the name."},
    {"UnderscoreAndDigit",           u"_1",              u"Invalid variable name: '_1' must have more than numbers and/or underscores in the name."},
    {"UnderscoreInAnOperation",      u"2*__",            u"Invalid variable name: '__' must have more than numbers and/or underscores in the name."},
    {"AnswerBeforeAny",              u"ans",             u"ans is not available to use as a variable yet, since no calculations have been made."},
    {"AnswerBeforeAnyInAnOperation", u"2*ans",           u"ans is not available to use as a variable yet, since no calculations have been made."},
    {"AnswerBeforeAnyAsTarget",      u"ans=3",           u"ans is not available to use as a variable yet, since no calculations have been made."},
    {"PlusMinus",                    u"±",               u"There is an error in the equation.  Please report the equation, since this error shouldn't have happened.  Thanks."},
};

constexpr RefusalCase keywords[] = {
    {"Delete",                       u"delete",          u"Invalid variable name: 'delete' is a reserved keyword."},
    {"In",                           u"in",              u"Invalid variable name: 'in' is a reserved keyword."},
    {"Function",                     u"function",        u"Invalid variable name: 'function' is a reserved keyword."},
    {"Default",                      u"default",         u"Invalid variable name: 'default' is a reserved keyword."},
    {"Return",                       u"return",          u"Invalid variable name: 'return' is a reserved keyword."},
    {"If",                           u"if",              u"Invalid variable name: 'if' is a reserved keyword."},
    {"Else",                         u"else",            u"Invalid variable name: 'else' is a reserved keyword."},
    {"For",                          u"for",             u"Invalid variable name: 'for' is a reserved keyword."},
    {"While",                        u"while",           u"Invalid variable name: 'while' is a reserved keyword."},
    {"Switch",                       u"switch",          u"Invalid variable name: 'switch' is a reserved keyword."},
    {"Case",                         u"case",            u"Invalid variable name: 'case' is a reserved keyword."},
    {"Break",                        u"break",           u"Invalid variable name: 'break' is a reserved keyword."},
    {"AsTarget",                     u"if=3",            u"Invalid variable name: 'if' is a reserved keyword."},
    {"Called",                       u"2*while(3)",      u"Invalid variable name: 'while' is a reserved keyword."},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(BadNames, NameRefusals, testing::ValuesIn(badNames), RowName());
INSTANTIATE_TEST_SUITE_P(Keywords, NameRefusals, testing::ValuesIn(keywords), RowName());

TEST(FunctionNames, becomeFunctionBlocksAndNeverVariables) {
    const TXEquationController names;
    ASSERT_EQ(names.nativeFunctionNames().size(), 22U);
    std::int32_t function = 0;
    for (const std::u16string_view name : names.nativeFunctionNames()) {
        const ParsedLine parsed(std::u16string(name) + u"(1)");
        SCOPED_TRACE(utf8(name));
        EXPECT_EQ(treeText(parsed.equation.leftEquationBlocks()), "0: f" + std::to_string(function) + "[1] | 1@0.0: 1");
        EXPECT_EQ(parsed.controller.variableArray().size(), 2);
        ++function;
    }
}

TEST(NewNames, becomeUndefinedVariables) {
    const ParsedLine parsed(u"a+b_2");
    const TXVariableArray& list = parsed.controller.variableArray();
    ASSERT_EQ(list.size(), 4);
    EXPECT_EQ(list[2].variableName(), u"a");
    EXPECT_EQ(list[3].variableName(), u"b_2");
    for (const std::int32_t position : {2, 3}) {
        EXPECT_EQ(list[position].variableIndex(), position);
        EXPECT_FALSE(list[position].isDefined());
        EXPECT_EQ(list[position].number(), 0.0);
        EXPECT_FALSE(list[position].isAutoCached());
        EXPECT_FALSE(list[position].isLocked());
    }
}

struct CreationCase {
    const char* name;
    std::u16string_view line;
    std::string_view created;  ///< With commas.
};

void PrintTo(const CreationCase& row, std::ostream* out) { *out << utf8(row.line); }

class RefusedLines : public testing::TestWithParam<CreationCase> {};

TEST_P(RefusedLines, keepTheVariablesThatTheyCreated) {
    const ParsedLine parsed(GetParam().line);
    EXPECT_TRUE(parsed.result->isErrorMessage());
    std::string created;
    for (std::int32_t at = 2; at < parsed.controller.variableArray().size(); ++at) {
        created += (created.empty() ? "" : ",") + utf8(parsed.controller.variableArray()[at].variableName());
    }
    EXPECT_EQ(created, GetParam().created);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Created, RefusedLines, testing::Values(
    CreationCase{"BeforeTheError",               u"q+5)",   "q"},
    CreationCase{"NotAfterTheError",             u"q;r",    "q"},
    CreationCase{"NotAfterAnOperatorError",      u"q+*r",   "q"},
    CreationCase{"ThatLacksItsOperator",         u"q r",    "q,r"},
    CreationCase{"WithARefusedTolerance",        u"q±r",    "q"},
    CreationCase{"NotABadName",                  u"q$",     ""},
    CreationCase{"NotAKeyword",                  u"q+if",   "q"},
    CreationCase{"OfAnUnclosedGroup",            u"(q",     "q"},
    CreationCase{"OfAnAssignmentToAnOperation",  u"q+r=s",  "q,r,s"},
    CreationCase{"NotTheUndefinedValue",         u"nil)",   ""}
), RowName());
// clang-format on

struct CodeCase {
    const char* name;
    std::u16string_view word;
    std::int32_t code;
};

void PrintTo(const CodeCase& row, std::ostream* out) { *out << utf8(row.word); }

class NameCodes : public testing::TestWithParam<CodeCase> {};

TEST_P(NameCodes, tellWhatIsWrong) {
    const std::u16string_view word = GetParam().word;
    const std::u16string line = u"1+" + std::u16string(word) + u"*2";
    const OpenedLine opened(line, static_cast<std::int32_t>(word.size()) + 1);
    EXPECT_EQ(opened.hasher.validationCodeForVariableName(word), GetParam().code);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Direct, NameCodes, testing::Values(
    CodeCase{"Valid",                      u"a1_",     0},
    CodeCase{"Constant",                   u"pi",      0},
    CodeCase{"UndefinedValue",             u"nil",     0},
    CodeCase{"StartsWithADigit",           u"1a",      1},
    CodeCase{"DigitBeforeABadCharacter",   u"1$",      1},
    CodeCase{"Function",                   u"atan2",   2},
    CodeCase{"Keyword",                    u"break",   3},
    CodeCase{"NoLetter",                   u"_1_2",    4},
    CodeCase{"BadCharacter",               u"a$b",     5},
    CodeCase{"BadCharacterWithoutALetter", u"_$",      5},
    CodeCase{"AnswerBeforeAny",            u"ans",     6}
), RowName());
// clang-format on

TEST(NameCodes, readTheCharactersFromTheEquation) {
    const OpenedLine opened(u"a$b", 2);
    EXPECT_EQ(opened.hasher.validationCodeForVariableName(u"xyz"), 5);
}

TEST(NameCodes, anAnswerThatIsGoneCountsAsNone) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"5");
    controller.clearAll();
    ASSERT_GE(controller.lastVariableAssignedIndex(), controller.variableArray().size());
    const TXResult* result = controller.addOneStringBlindly(u"ans");
    EXPECT_EQ(utf8(result->errorMessage()),
              "ans is not available to use as a variable yet, since no calculations have been made.");
}

TEST(NameMessages, ofWordsThatTheScanNeverTakesForNames) {
    OpenedLine opened(u"1a+2");
    opened.hasher.parseFunctionOrVariable();
    EXPECT_EQ(opened.message(),
              "Invalid variable name: 1a (Variables can't start with a number -- they must start with a letter).");
    EXPECT_EQ(opened.hasher.equationPosition_, 1);
    EXPECT_EQ(opened.hasher.equationBlocks_.count(0), 0);
    EXPECT_EQ(parserMessages::nameOfFunction, u"Invalid variable name: '%@' is the name of a function.");
}

TEST(AddingAnswers, withoutAnAnswerIsAnInternalErrorAndANewName) {
    OpenedLine opened(u"ans", 2);
    opened.hasher.addVariableToStack(u"ans");
    EXPECT_EQ(opened.message(), "Internal error, please report this equation.");
    ASSERT_EQ(opened.controller.variableArray().size(), 3);
    EXPECT_EQ(opened.controller.variableArray()[2].variableName(), u"ans");
    EXPECT_TRUE(opened.hasher.overloadedAnsBeforeEquals_);
    EXPECT_TRUE(opened.hasher.positionsOfAnsVariable_.empty());
}

TEST(NameLookup, isExactAndFindsTheFirst) {
    TXEquationController controller;
    const TXEHasher& hasher = controller.equationHasher();
    controller.variableArray().append(TXVariable::initWithName(u"twin", true, 1.0));
    controller.variableArray().append(TXVariable::initWithName(u"twin", true, 2.0));
    EXPECT_EQ(hasher.variableIndexForString(u"pi"), 0);
    EXPECT_EQ(hasher.variableIndexForString(u"ans"), 1);
    EXPECT_EQ(hasher.variableIndexForString(u"twin"), 2);
    EXPECT_EQ(hasher.variableIndexForString(u"Pi"), -1);
    EXPECT_EQ(hasher.variableIndexForString(u"p"), -1);
    EXPECT_EQ(hasher.variableIndexForString(u""), -1);
    EXPECT_EQ(hasher.functionIndexForString(u"abs"), 0);
    EXPECT_EQ(hasher.functionIndexForString(u"cbrt"), 21);
    EXPECT_EQ(hasher.functionIndexForString(u"Abs"), -1);
    EXPECT_EQ(hasher.functionIndexForString(u"ab"), -1);
}

/// A session whose latest answer is the variable at position 2.
struct AnsweredLine {
    AnsweredLine(std::u16string_view nameOfAnswer, std::u16string_view line)
        : equation(TXEquation::initWithEquationString(std::u16string(line))) {
        controller.variableArray().append(TXVariable::initWithName(std::u16string(nameOfAnswer), true, 7.0));
        controller.setLastVariableAssignedIndex(2);
        controller.equationHasher().hashEquation(equation);
    }

    TXEquationController controller;
    TXEquation equation;
};

struct RewriteCase {
    const char* name;
    std::u16string_view answerName;
    std::u16string_view line;
    std::u16string_view text;
    std::string_view tree;  ///< Of the side that is evaluated.
};

void PrintTo(const RewriteCase& row, std::ostream* out) { *out << utf8(row.line); }

class Answers : public testing::TestWithParam<RewriteCase> {};

TEST_P(Answers, standForTheVariableThatHasThem) {
    const AnsweredLine answered(GetParam().answerName, GetParam().line);
    ASSERT_FALSE(answered.equation.lastResult()->isErrorMessage())
        << utf8(answered.equation.lastResult()->errorMessage());
    EXPECT_EQ(utf8(answered.equation.masterString()), utf8(GetParam().text));
    const TXBlockLists* right = answered.equation.rightEquationBlocks();
    EXPECT_EQ(treeText(right == nullptr ? answered.equation.leftEquationBlocks() : right), GetParam().tree);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Rewritten, Answers, testing::Values(
    RewriteCase{"Alone",                    u"ans3",  u"ans",               u"ans3",                 "0!: v2"},
    RewriteCase{"InAnOperation",            u"ans3",  u"ans*2",             u"ans3*2",               "0!: v2 *2"},
    RewriteCase{"TwoThatGrow",              u"ans12", u"ans+ans",           u"ans12+ans12",          "0!: v2 +v2"},
    RewriteCase{"ThreeThatGrow",            u"total", u"1+ans*(ans-ans)+1", u"1+total*(total-total)+1", "0!: 1 +v2 *[1] +1 | 1@0.2!: v2 -v2"},
    RewriteCase{"ThreeThatShrink",          u"x",     u"ans+ans*ans",       u"x+x*x",                "0!: v2 +v2 *v2"},
    RewriteCase{"SameLength",               u"abc",   u"ans-ans",           u"abc-abc",              "0!: v2 -v2"},
    RewriteCase{"BlanksStay",               u"ans1",  u"  ans  +  ans ",    u"  ans1  +  ans1 ",     "0!: v2 +v2"},
    RewriteCase{"WithATolerance",           u"ans1",  u"ans±2",             u"ans1±2",               "0!: v2±2"},
    RewriteCase{"WithAToleranceAndAnother", u"x",     u"ans ±0.25|1e - 3+ans", u"x ±0.25|1e - 3+x",  "0!: v2±0.25|0.001 +v2"},
    RewriteCase{"TwoWithTolerances",        u"ans10", u"ans±1*ans ±2*ans",  u"ans10±1*ans10 ±2*ans10", "0!: v2±1 *v2±2 *v2"},
    RewriteCase{"InAnAssignment",           u"ans1",  u"b=ans+ans",         u"b=ans1+ans1",          "0!: v2 +v2"},
    RewriteCase{"InTheAssignmentOfItself",  u"x",     u"x=ans+1",           u"x=x+1",                "0!: v2 +1"},
    RewriteCase{"InAnArgument",             u"ans1",  u"sin(ans)",          u"sin(ans1)",            "0: f2[1] | 1@0.0!: v2"},
    RewriteCase{"NotWithinOtherNames",      u"x",     u"ans1+answer+ans",   u"ans1+answer+x",        "0!: v3 +v4 +v2"},
    RewriteCase{"NotInCapitals",            u"x",     u"Ans+ANS+ans",       u"Ans+ANS+x",            "0!: v3 +v4 +v2"},
    RewriteCase{"NothingToRewrite",         u"x",     u"1+2",               u"1+2",                  "0: 1 +2"}
), RowName());
// clang-format on

TEST(AnswersInRefusedLines, stayAsTyped) {
    for (const std::u16string_view line : {u"ans+5)", u"ans ans", u"ans=3", u"ans+1=2", u"(ans", u"ans±x", u"b=ans;"}) {
        SCOPED_TRACE(utf8(line));
        const AnsweredLine answered(u"ans1", line);
        EXPECT_TRUE(answered.equation.lastResult()->isErrorMessage());
        EXPECT_EQ(answered.equation.masterString(), line);
    }
}

TEST(AnswersAreConcrete, laterAnswersDoNotMoveThem) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"5");
    controller.addOneStringBlindly(u"ans*2");
    controller.addOneStringBlindly(u"x=ans+ans");
    controller.addOneStringBlindly(u"ans");
    EXPECT_EQ(utf8(controller.equationsArray()[1].masterString()), "ans1*2");
    EXPECT_EQ(utf8(controller.equationsArray()[2].masterString()), "x=ans2+ans2");
    EXPECT_EQ(utf8(controller.equationsArray()[3].masterString()), "x");
    EXPECT_EQ(controller.lastResult()->number(), 20.0);
}

TEST(AnswerPositions, areWhereTheNameBegins) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"5");
    OpenHasher hasher(controller);
    TXEquation equation = TXEquation::initWithEquationString(u"1+ans±2 + ans");
    hasher.hashEquation(equation);
    EXPECT_EQ(hasher.positionsOfAnsVariable_, (std::vector<std::int32_t>{2, 10}));
    EXPECT_TRUE(hasher.overloadedAnsBeforeEquals_);
}

TEST(AnswerPositions, afterTheEqualsSignDoNotMarkTheTarget) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"5");
    OpenHasher hasher(controller);
    TXEquation equation = TXEquation::initWithEquationString(u"a=ans");
    hasher.hashEquation(equation);
    EXPECT_FALSE(hasher.overloadedAnsBeforeEquals_);
}

// A name has no bound, and neither has the number of times that it is meant.
TEST(AnswersAreConcrete, unlessTheTextWouldFillTheMemory) {
    constexpr std::size_t bound = std::size_t{1} << 24U;
    constexpr std::size_t nameLength = 65536;
    TXEquationController controller;
    controller.addOneStringBlindly(std::u16string(nameLength, u'a') + u"=5");
    const auto sumOfAnswers = [&controller](std::size_t count) {
        std::u16string line = u"ans";
        for (std::size_t answer = 1; answer < count; ++answer) {
            line += u"+ans";
        }
        TXEquation equation = TXEquation::initWithEquationString(line);
        controller.equationHasher().hashEquation(equation);
        return std::pair(line, std::u16string(equation.masterString()));
    };
    constexpr std::size_t most = bound / (nameLength + 4);
    EXPECT_EQ(sumOfAnswers(most).second.size(), most * (nameLength + 1) - 1);
    const auto [typed, stored] = sumOfAnswers(most + 2);
    EXPECT_EQ(utf8(stored), utf8(typed));
}

// What is typed and all the names together may come to 2^24 characters, or to eight times what is typed.
TEST(AnswersAreConcrete, upToTheBoundExactly) {
    constexpr std::size_t count = 4096;
    struct Row {
        const char* name;
        std::size_t typed;
        std::size_t nameLength;
        bool isRewritten;
    };
    const Row rows[] = {
        {"short line", 393216, 4000, true},
        {"short line, one character more", 393217, 4000, false},
        {"long line", 2359296, 4032, true},
        {"long line, one character less", 2359295, 4032, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TXEquationController controller;
        controller.addOneStringBlindly(std::u16string(row.nameLength, u'a') + u"=5");
        std::u16string line = u"ans";
        for (std::size_t answer = 1; answer < count; ++answer) {
            line += u"+ans";
        }
        line.append(row.typed - line.size(), u' ');
        TXEquation equation = TXEquation::initWithEquationString(line);
        ASSERT_FALSE(controller.equationHasher().hashEquation(equation)->isErrorMessage());
        EXPECT_EQ(equation.masterString().size(), row.typed + (row.isRewritten ? count * (row.nameLength - 3) : 0));
    }
}

TEST(AnswersAreConcrete, shortNamesInLongLinesToo) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"twelve_chars=5");
    std::u16string line = u"0";
    for (std::int32_t answer = 0; answer < 1500000; ++answer) {
        line += u"+ans";
    }
    TXEquation equation = TXEquation::initWithEquationString(line);
    controller.equationHasher().hashEquation(equation);
    EXPECT_EQ(equation.masterString().size(), 1 + 1500000U * 13);
}

TEST(AddingAnswers, remembersOnlyWhereTheNameReallyStands) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"1");
    TXEquation equation = TXEquation::initWithEquationString(u"7");
    TXEHasher& hasher = controller.equationHasher();
    hasher.hashEquation(equation);
    hasher.addVariableToStack(u"ans");
    hasher.replaceAnsVariableInMasterEquationString(equation);
    EXPECT_EQ(utf8(equation.masterString()), "7");
}

}  // namespace
