#include "engine/parser/TXEHasher.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "engine/parser/messages.h"
#include "tests/support/parsing.h"

namespace {

class DriverRefusals : public testing::TestWithParam<RefusalCase> {};

TEST_P(DriverRefusals, giveTheirMessage) { expectRefusal(GetParam()); }

// clang-format off
constexpr RefusalCase forbidden[] = {
    {"Semicolon",                     u"3;4",        u"You cannot have a semicolon in the equation."},
    {"SemicolonAlone",                u";",          u"You cannot have a semicolon in the equation."},
    {"SemicolonAfterAName",           u"a;b",        u"You cannot have a semicolon in the equation."},
    {"SemicolonAtTheEnd",             u"5;",         u"You cannot have a semicolon in the equation."},
    {"SemicolonAfterAPrefixedNumber", u"0x1F;",      u"You cannot have a semicolon in the equation."},
    {"Comma",                         u"3,4",        u"You cannot have a comma in the equation."},
    {"CommaAlone",                    u",",          u"You cannot have a comma in the equation."},
    {"CommaBetweenArguments",         u"sin(1,2)",   u"You cannot have a comma in the equation."},
    {"CommaOfTwoArguments",           u"atan2(1,2)", u"You cannot have a comma in the equation."},
    {"CommaAfterABlank",              u"5 , 6",      u"You cannot have a comma in the equation."},
    {"CommaInAGroup",                 u"(1,2)",      u"You cannot have a comma in the equation."},
    // The first error ends the scan after the run or word that it is in.
    {"FirstErrorEndsTheScan",         u"3;4,5$",     u"You cannot have a semicolon in the equation."},
    {"FirstOfTwoRuns",                u"5+*3+*4",    u"* can't come right after a +"},
    {"UnknownFunctionIsAName",        u"f(1,2)",     u"You need an operator between f and (."},
    {"SlashesAreNoComment",           u"//x",        u"/ can't come right after a /"},
    {"TabIsPartOfAName",              u"2+\t3",      u"Invalid variable name: \t3"},
    {"NulIsPartOfAName",              std::u16string_view(u"a\0b", 3), std::u16string_view(u"Invalid variable name: a\0b", 26)},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Forbidden, DriverRefusals, testing::ValuesIn(forbidden), RowName());

class DriverTrees : public testing::TestWithParam<TreeCase> {};

TEST_P(DriverTrees, areAccepted) { expectTree(GetParam()); }

// clang-format off
constexpr TreeCase accepted[] = {
    {"Nothing",                u"",                        "0:"},
    {"BlanksOnly",             u"   ",                     "0:"},
    {"BlanksEverywhere",       u"  2  *  (  3  +  x  )  ", "0: 2 *[1] | 1@0.1!: 3 +v2"},
    {"NoBlanks",               u"2*(3+x)",                 "0: 2 *[1] | 1@0.1!: 3 +v2"},
    {"Assignment",             u"x=2+3*4",                 "0!: v2", "0: 2 +3 *4"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Accepted, DriverTrees, testing::ValuesIn(accepted), RowName());

TEST(Hashing, givesTheResultThatTheEquationHolds) {
    const ParsedLine parsed(u"x=2+3*4");
    EXPECT_EQ(parsed.result, parsed.equation.lastResult());
    EXPECT_TRUE(parsed.result->isHashed());
    EXPECT_FALSE(parsed.result->isErrorMessage());
    EXPECT_FALSE(parsed.result->isReduced());
    EXPECT_EQ(parsed.result->number(), 0.0);
    EXPECT_EQ(parsed.result->variableToAssign(), 2);
    EXPECT_TRUE(parsed.equation.leftEquationBlockInfo());
    EXPECT_TRUE(parsed.equation.rightEquationBlockInfo());
}

TEST(Hashing, computesNothing) {
    const ParsedLine parsed(u"a=2+3");
    EXPECT_FALSE(parsed.controller.variableArray()[2].isDefined());
    EXPECT_TRUE(parsed.controller.equationsArray().empty());
    EXPECT_EQ(parsed.controller.lastVariableAssignedIndex(), -1);
}

TEST(Hashing, aRefusedResultCarriesNothingElse) {
    const ParsedLine parsed(u"a=5)");
    EXPECT_FALSE(parsed.result->isHashed());
    EXPECT_FALSE(parsed.result->isReduced());
    EXPECT_EQ(parsed.result->number(), 0.0);
    EXPECT_EQ(parsed.result->variableToAssign(), -1);
}

TEST(HashingAgain, replacesTheListsAndTheResult) {
    TXEquationController controller;
    TXEquation equation = TXEquation::initWithEquationString(u"a=5+(6)");
    TXEHasher& hasher = controller.equationHasher();
    hasher.hashEquation(equation);
    hasher.hashEquation(equation);
    EXPECT_EQ(treeText(equation.leftEquationBlocks()), "0!: v2");
    EXPECT_EQ(treeText(equation.rightEquationBlocks()), "0: 5 +[1] | 1@0.1: 6");
    EXPECT_EQ(controller.variableArray().size(), 3);

    equation.setMasterString(u"7");
    const TXResult* result = hasher.hashEquation(equation);
    EXPECT_EQ(result, equation.lastResult());
    EXPECT_EQ(result->variableToAssign(), -1);
    EXPECT_EQ(treeText(equation.leftEquationBlocks()), "0: 7");
    EXPECT_EQ(equation.rightEquationBlocks(), nullptr);
}

TEST(HashingAgain, turnsARefusalIntoAnAnswerAndBack) {
    TXEquationController controller;
    TXEquation equation = TXEquation::initWithEquationString(u"5)");
    TXEHasher& hasher = controller.equationHasher();
    EXPECT_TRUE(hasher.hashEquation(equation)->isErrorMessage());
    equation.setMasterString(u"5");
    EXPECT_FALSE(hasher.hashEquation(equation)->isErrorMessage());
    EXPECT_EQ(treeText(equation.leftEquationBlocks()), "0: 5");
    equation.setMasterString(u"5)");
    EXPECT_TRUE(hasher.hashEquation(equation)->isErrorMessage());
    EXPECT_FALSE(equation.lastResult()->isHashed());
    EXPECT_EQ(equation.leftEquationBlocks(), nullptr);
    EXPECT_EQ(equation.rightEquationBlocks(), nullptr);
}

TEST(HashingAgain, readsTheNameThatAnsWasRewrittenTo) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"5");
    TXEquation equation = TXEquation::initWithEquationString(u"ans*ans");
    controller.equationHasher().hashEquation(equation);
    EXPECT_EQ(equation.masterString(), u"ans1*ans1");
    controller.equationHasher().hashEquation(equation);
    EXPECT_EQ(equation.masterString(), u"ans1*ans1");
    EXPECT_EQ(treeText(equation.leftEquationBlocks()), "0!: v2 *v2");
}

TEST(HashingAgain, nothingOfAnEarlierEquationSurvives) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"5");
    TXEHasher& hasher = controller.equationHasher();
    for (const std::u16string_view earlier :
         {u"((sin+5$", u"a=b=c", u"5))))(", u"ans", u"ans=", u"2e-3(", u"5±1x", u"5*", u"nil=3", u"(sin"}) {
        SCOPED_TRACE(utf8(earlier));
        TXEquation first = TXEquation::initWithEquationString(std::u16string(earlier));
        hasher.hashEquation(first);
        TXEquation second = TXEquation::initWithEquationString(u"pq=(1)-2");
        const TXResult* result = hasher.hashEquation(second);
        EXPECT_FALSE(result->isErrorMessage()) << utf8(result->errorMessage());
        EXPECT_EQ(treeText(second.rightEquationBlocks()), "0: [1] -2 | 1@0.0: 1");
        EXPECT_EQ(second.masterString(), u"pq=(1)-2");
    }
}

TEST(HashingSteps, loadTakesTheTextAndGivesAFreshResult) {
    TXEquationController controller;
    OpenHasher hasher(controller);
    TXEquation equation = TXEquation::initWithEquationString(u"12345");
    equation.setEquationIndex(7);
    equation.setLastResult(TXResult::initWithErrorMessage(u"old"));
    hasher.positionBeforeHash_ = 3;
    hasher.positionBeforePreviousHash_ = 2;
    hasher.reset();
    hasher.load(equation);
    EXPECT_EQ(hasher.indexOfEquationToHash_, 7);
    EXPECT_EQ(hasher.equationLength_, 5);
    EXPECT_EQ(hasher.lastEquationPosition_, 4);
    EXPECT_EQ(hasher.positionBeforeHash_, 0);
    EXPECT_EQ(hasher.positionBeforePreviousHash_, 0);
    EXPECT_EQ(hasher.currentEquationResult_, equation.lastResult());
    EXPECT_FALSE(equation.lastResult()->isErrorMessage());
    EXPECT_FALSE(equation.lastResult()->isHashed());
}

TEST(HashingSteps, resetForgetsTheLine) {
    OpenedLine opened(u"12", 1);
    opened.hasher.setErrorMessage(u"refused");
    opened.hasher.equalsCount_ = 1;
    opened.hasher.currentIndex_ = 4;
    opened.hasher.equationIndentLevel_ = -3;
    opened.hasher.overloadedAnsBeforeEquals_ = true;
    opened.hasher.positionsOfAnsVariable_ = {1};
    opened.hasher.parseNegativeNumber_ = true;
    opened.hasher.reset();
    EXPECT_EQ(opened.hasher.equationPosition_, 0);
    EXPECT_EQ(opened.hasher.equationLength_, 0);
    EXPECT_EQ(opened.hasher.equalsCount_, 0);
    EXPECT_EQ(opened.hasher.currentIndex_, 0);
    EXPECT_EQ(opened.hasher.equationIndentLevel_, 0);
    EXPECT_FALSE(opened.hasher.isThereAnError_);
    EXPECT_FALSE(opened.hasher.overloadedAnsBeforeEquals_);
    EXPECT_TRUE(opened.hasher.positionsOfAnsVariable_.empty());
    // Each reader of signs sets it anew.
    EXPECT_TRUE(opened.hasher.parseNegativeNumber());
}

TEST(HashingSteps, eachSideBeginsWithOneListAndOneCursor) {
    OpenedLine opened(u"");
    EXPECT_EQ(opened.hasher.equationIndentTracker_.size(), 1U);
    EXPECT_EQ(opened.hasher.equationBlocks_.size(), 1);
    opened.hasher.addNumberToStack(5.0);
    opened.hasher.addOperatorToStack(u'*');
    opened.hasher.prepareForHashOfRightSide();
    EXPECT_EQ(treeText(&opened.hasher.leftEquationBlocks_), "0: 5");
    EXPECT_EQ(opened.hasher.equationIndentTracker_.size(), 1U);
    EXPECT_EQ(opened.hasher.workingTXBlock().blockOperator(), 0);
    EXPECT_EQ(opened.finishedTree(), "0:");
}

TEST(HashingSteps, theLaterMessageIsTheOneThatStays) {
    OpenedLine opened(u"");
    opened.hasher.setErrorMessage(u"first");
    EXPECT_TRUE(opened.hasher.isThereAnError_);
    opened.hasher.setErrorMessage(u"second");
    EXPECT_EQ(opened.message(), "second");
    EXPECT_TRUE(opened.hasher.currentEquationResult_->isErrorMessage());
}

TEST(HashingSteps, blanksAreTakenToTheLast) {
    OpenedLine opened(u"5    \t  ", 1);
    opened.hasher.gobbleWhitespace();
    EXPECT_EQ(opened.hasher.equationPosition_, 4);
    opened.hasher.equationPosition_ = 6;
    opened.hasher.gobbleWhitespace();
    EXPECT_EQ(opened.hasher.equationPosition_, 7);
    for (const std::int32_t position : {0, 5, 8}) {
        opened.hasher.equationPosition_ = position;
        opened.hasher.gobbleWhitespace();
        EXPECT_EQ(opened.hasher.equationPosition_, position);
    }
}

struct WordCase {
    const char* name;
    std::u16string_view line;
    std::u16string_view word;
    std::int32_t lastPosition;
};

void PrintTo(const WordCase& row, std::ostream* out) { *out << utf8(row.line); }

class Words : public testing::TestWithParam<WordCase> {};

TEST_P(Words, endAtADelimiter) {
    OpenedLine opened(GetParam().line);
    EXPECT_EQ(opened.hasher.stringUpToOperator(), GetParam().word);
    EXPECT_EQ(opened.hasher.equationPosition_, GetParam().lastPosition);
    EXPECT_FALSE(opened.hasher.isThereAnError_);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(UpToOperator, Words, testing::Values(
    WordCase{"End",            u"abc",          u"abc",   2},
    WordCase{"Operator",       u"ab+c",         u"ab",    1},
    WordCase{"Parenthesis",    u"ab(",          u"ab",    1},
    WordCase{"UnknownOperator", u"ab\u2264",    u"ab",    1},
    WordCase{"Blank",          u"ab c",         u"ab",    1},
    WordCase{"Comma",          u"ab,c",         u"ab",    1},
    WordCase{"Semicolon",      u"ab;c",         u"ab",    1},
    WordCase{"PlusMinus",      u"ab±1",         u"ab",    1},
    WordCase{"Point",          u"ab.c",         u"ab",    1},
    WordCase{"AnythingElse",   u"a\t$#\u0434\"+", u"a\t$#\u0434\"", 5},
    WordCase{"DelimiterFirst", u"±1",           u"",      -1}
), RowName());
// clang-format on

TEST(HashingSteps, aNewParserHoldsNothing) {
    TXEquationController controller;
    OpenHasher hasher(controller);
    EXPECT_EQ(hasher.currentEquationResult_, nullptr);
    EXPECT_FALSE(hasher.isThereAnError_);
    EXPECT_FALSE(hasher.parseNegativeNumber());
    EXPECT_FALSE(hasher.overloadedAnsBeforeEquals_);
    EXPECT_TRUE(hasher.equationIndentTracker_.empty());
    EXPECT_TRUE(hasher.positionsOfAnsVariable_.empty());
    EXPECT_EQ(hasher.equationPosition_, 0);
    EXPECT_EQ(hasher.equationLength_, 0);
    EXPECT_EQ(hasher.lastEquationPosition_, -1);
    EXPECT_EQ(hasher.equationIndentLevel_, 0);
    EXPECT_EQ(hasher.currentIndex_, 0);
    EXPECT_EQ(hasher.equalsCount_, 0);
    EXPECT_EQ(hasher.indexOfEquationToHash_, 0);
    EXPECT_EQ(hasher.positionBeforeHash_, 0);
    EXPECT_EQ(hasher.positionBeforePreviousHash_, 0);
}

TEST(HashingSteps, theGuardOfTheWordsKeepsItsMessage) {
    EXPECT_EQ(parserMessages::parsingError, u"Parsing error. Please report this bug with the equation.");
}

// Lines of a million characters and more: they only have to come to their end, and to the right one.

constexpr std::size_t million = 1000000;

std::u16string repeated(std::u16string_view part, std::size_t times) {
    std::u16string text;
    text.reserve(part.size() * times);
    for (std::size_t count = 0; count < times; ++count) {
        text += part;
    }
    return text;
}

struct LongRefusalCase {
    const char* name;
    std::u16string_view first;
    std::u16string_view repeatedPart;
    std::u16string_view last;
    std::u16string_view message;
};

void PrintTo(const LongRefusalCase& row, std::ostream* out) { *out << row.name; }

class LongRefusals : public testing::TestWithParam<LongRefusalCase> {};

TEST_P(LongRefusals, giveTheirMessage) {
    const LongRefusalCase& row = GetParam();
    const std::u16string line =
        std::u16string(row.first) + repeated(row.repeatedPart, million) + std::u16string(row.last);
    const ParsedLine parsed(line);
    EXPECT_EQ(utf8(parsed.result->errorMessage()), utf8(row.message));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Million, LongRefusals, testing::Values(
    LongRefusalCase{"OpeningParentheses",  u"",     u"(",    u"",   u"The equation cannot end with a (."},
    LongRefusalCase{"UnclosedGroups",      u"",     u"(",    u"5",  u"There is an open parenthesis in the equation -- you are missing a )."},
    LongRefusalCase{"UnclosedCalls",       u"",     u"sin(", u"5",  u"There is an open parenthesis in the equation -- you are missing a )."},
    LongRefusalCase{"ClosingParentheses",  u"5",    u")",    u"",   u"Unbalanced Parethesis"},
    LongRefusalCase{"ClosedAndOpened",     u"",     u")(",   u"",   u"The equation cannot end with a (."},
    LongRefusalCase{"Signs",               u"5",    u"-",    u"",   u"The equation cannot end with a -."},
    LongRefusalCase{"Brackets",            u"a",    u"]",    u"",   u"] is not currently supported as a character.  Use ) instead for opening parenthesis."},
    LongRefusalCase{"BlanksBeforeATolerance", u"5", u" ",    u"±x", u"± must be followed by a number (you can't have variables or anything else)."},
    LongRefusalCase{"ToleranceDigits",     u"5±1.", u"3",    u".",  u"Too many decimals in a tolerance number."},
    LongRefusalCase{"EqualsSignsInAGroup", u"(a",   u"=+1",  u"",   u"There is an open parenthesis in the equation -- you are missing a )."}
), RowName());
// clang-format on

TEST(LongLines, aLongNameIsQuotedWhole) {
    const std::u16string name = std::u16string(million, u'a') + u"$";
    expectRefusal({"", name, u"Invalid variable name: " + name});
}

// Every "(" of the run lacks its operator; the message of the last one quotes the whole run.
TEST(LongLines, aLongRunOfGroupsIsQuotedWhole) {
    const std::u16string run = repeated(u")(", million / 4);
    expectRefusal({"", u"(5" + run, u"You need an operator between 5 and " + run + u"."});
}

TEST(LongLines, manyOperands) {
    const ParsedLine parsed(repeated(u"1+", million) + u"x");
    ASSERT_FALSE(parsed.result->isErrorMessage()) << utf8(parsed.result->errorMessage());
    const TXBlockLists& lists = *parsed.equation.leftEquationBlocks();
    EXPECT_EQ(lists.size(), 1);
    EXPECT_EQ(lists.blockCount(), 1000001);
    EXPECT_EQ(lists[0].back().variableID(), 2);
}

TEST(LongLines, manyNestedGroups) {
    const ParsedLine parsed(repeated(u"2*(", million) + u"5" + repeated(u")+1", million));
    ASSERT_FALSE(parsed.result->isErrorMessage()) << utf8(parsed.result->errorMessage());
    const TXBlockLists& lists = *parsed.equation.leftEquationBlocks();
    ASSERT_EQ(lists.size(), 1000001);
    EXPECT_EQ(lists.blockCount(), 3000001);
    std::int32_t wrong = 0;
    for (std::int32_t list = 0; list < 1000000; ++list) {
        const bool leadsOn = lists[list].size() == 3 && lists[list][1].blockPointers().size() == 1 &&
                             lists[list][1].blockPointers()[0].blockPointerID() == list + 1;
        const TXBlockInfo& inner = lists.info()[static_cast<std::size_t>(list) + 1];
        wrong += leadsOn && inner.parentIndex() == list && inner.parentSubIndex() == 1 ? 0 : 1;
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(lists[1000000].front().number(), 5.0);
}

TEST(LongLines, manyGroupsSideBySide) {
    const ParsedLine parsed(u"(1)" + repeated(u"+(1)", million));
    ASSERT_FALSE(parsed.result->isErrorMessage()) << utf8(parsed.result->errorMessage());
    const TXBlockLists& lists = *parsed.equation.leftEquationBlocks();
    EXPECT_EQ(lists.size(), 1000002);
    EXPECT_EQ(lists[0].size(), 1000001U);
    EXPECT_EQ(lists.info().back().parentSubIndex(), 1000000);
}

// A character needs so much more memory while it is parsed that such a line could fill all there is.
TEST(LongLines, aLineTooLongToBeParsedIsRefused) {
    constexpr std::size_t longest = std::size_t{1} << 27U;
    TXEquationController controller;
    TXEquation equation = TXEquation::initWithEquationString(std::u16string(longest + 1, u' '));
    const TXResult* result = controller.equationHasher().hashEquation(equation);
    EXPECT_TRUE(result->isErrorMessage());
    EXPECT_EQ(utf8(result->errorMessage()), "Parsing error. Please report this bug with the equation.");
    EXPECT_EQ(equation.leftEquationBlocks(), nullptr);
}

TEST(LongLines, manyAnswersAreRewritten) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"5");
    for (const std::u16string_view name : {u"ans1", u"x"}) {
        TXEquation equation = TXEquation::initWithEquationString(repeated(u"ans+", million) + u"ans");
        const TXResult* result = controller.equationHasher().hashEquation(equation);
        ASSERT_FALSE(result->isErrorMessage()) << utf8(result->errorMessage());
        EXPECT_TRUE(equation.masterString() == repeated(std::u16string(name) + u"+", million) + std::u16string(name));
        controller.addOneStringBlindly(u"x=1");
    }
}

TEST(LongLines, manyNewVariables) {
    std::u16string line = u"v0";
    for (int number = 1; number < 100000; ++number) {
        line += u"+v";
        for (const char digit : std::to_string(number)) {
            line += static_cast<char16_t>(digit);
        }
    }
    const ParsedLine parsed(line);
    EXPECT_FALSE(parsed.result->isErrorMessage());
    EXPECT_EQ(parsed.controller.variableArray().size(), 100002);
}

TEST(LongLines, manyBlanksBetweenOperands) {
    const std::u16string blanks(million, u' ');
    const ParsedLine parsed(blanks + u"5" + blanks + u"+" + blanks + u"a" + blanks);
    EXPECT_EQ(treeText(parsed.equation.leftEquationBlocks()), "0!: 5 +v2");
}

// Every operation may be called at any time; without an equation there is nothing to read.
TEST(WithoutAnEquation, everyOperationKeepsItsPeace) {
    TXEquationController controller;
    TXEHasher& hasher = controller.equationHasher();
    for (std::int32_t round = 0; round < 3; ++round) {
        hasher.parseOperator();
        hasher.parseNegativeSign();
        hasher.parseNumber();
        hasher.parseFunctionOrVariable();
        hasher.parseTolerance();
        hasher.parseToleranceNumber();
        hasher.addNumberToStack(1.0);
        hasher.setBlockFunction(0);
        hasher.incrementBlockIndent();
        hasher.incrementFunctionArgument();
        hasher.parseMatrix();
        hasher.incrementMatrixRow();
        hasher.addUndefinedVariableToStack();
        hasher.addVariableToStack(u"fresh");
        hasher.decrementBlockIndent();
        hasher.checkForPostHashingErrors();
        controller.addOneStringBlindly(u"(2+3");
        controller.clearAll();
    }
    EXPECT_EQ(controller.addOneStringBlindly(u"2+3")->number(), 5.0);
}

TEST(WithoutAnEquation, theDebuggingAidLeavesNone) {
    TXEquationController controller;
    controller.hashEquationForDebug(u"2+3");
    controller.equationHasher().parseNumber();
    EXPECT_EQ(controller.addOneStringBlindly(u"myVariable*0+2")->number(), 2.0);
}

}  // namespace
