#include "engine/parser/TXEHasher.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/parsing.h"

namespace {

constexpr std::int32_t atan2Function = 20;

class GroupTrees : public testing::TestWithParam<TreeCase> {};

TEST_P(GroupTrees, hangWhereTheyShould) { expectTree(GetParam()); }

// clang-format off
constexpr TreeCase groups[] = {
    {"Whole",                       u"(5)",               "0: [1] | 1@0.0: 5"},
    {"Operand",                     u"2*(3+x)",           "0: 2 *[1] | 1@0.1!: 3 +v2"},
    {"BlanksInside",                u"2 * ( 3 + x )",     "0: 2 *[1] | 1@0.1!: 3 +v2"},
    {"Two",                         u"(1)+(2)",           "0: [1] +[2] | 1@0.0: 1 | 2@0.1: 2"},
    {"Nested",                      u"((5))",             "0: [1] | 1@0.0: [2] | 2@1.0: 5"},
    {"NestedAndContinued",          u"((1+2)*3)^4",       "0: [1] ^4 | 1@0.0: [2] *3 | 2@1.0: 1 +2"},
    {"ListsCountInOpeningOrder",    u"(1+(2))*(3)",       "0: [1] *[3] | 1@0.0: 1 +[2] | 2@1.1: 2 | 3@0.1: 3"},
    {"SameLevelTwiceInAGroup",      u"((1)-(2))",         "0: [1] | 1@0.0: [2] -[3] | 2@1.0: 1 | 3@1.1: 2"},
    {"OnBothSidesOfNothing",        u"a=((5))",           "0!: v2", "0: [1] | 1@0.0: [2] | 2@1.0: 5"},
    {"OnlyTheListItselfIsDynamic",  u"1+(2*(x))+3",       "0: 1 +[1] +3 | 1@0.1: 2 *[2] | 2@1.1!: v2"},
    {"UndefinedValueIsDynamic",     u"(nil)+1",           "0: [1] +1 | 1@0.0!: nil"},
};

constexpr TreeCase functions[] = {
    {"Call",                        u"sin(3)",            "0: f2[1] | 1@0.0: 3"},
    {"CallAfterABlank",             u"sin (3)",           "0: f2[1] | 1@0.0: 3"},
    {"CallAsOperand",               u"2*sin(3)+1",        "0: 2 *f2[1] +1 | 1@0.1: 3"},
    {"CallInACall",                 u"sin(cos(2))",       "0: f2[1] | 1@0.0: f3[2] | 2@1.0: 2"},
    {"TwoCalls",                    u"sin(1)+cos(2)",     "0: f2[1] +f3[2] | 1@0.0: 1 | 2@0.1: 2"},
    {"GroupInACall",                u"sin((1)+2)",        "0: f2[1] | 1@0.0: [2] +2 | 2@1.0: 1"},
    {"VariableInACall",             u"sin(x)",            "0: f2[1] | 1@0.0!: v2"},
    {"WithoutArguments",            u"sin",               "0: f2"},
    {"WithoutArgumentsAsOperand",   u"1+sin",             "0: 1 +f2"},
    {"SecondTakesTheGroup",         u"sin+cos(3)",        "0: f2 +f3[1] | 1@0.1: 3"},
    // A function waits for the next group of its level, whatever stands between.
    {"GroupFarBehind",              u"sin+5+(6)",         "0: f2[1] +5 | 1@0.1: +6"},
    {"OperatorGoesIntoTheGroup",    u"sin-(5)",           "0: f2[1] | 1@0.0: -5"},
    {"TimesGoesIntoTheGroup",       u"sin*(5)",           "0: f2[1] | 1@0.0: *5"},
    {"SignInTheGroupMeetsTheOperator", u"sin+(-5)",       "0: f2[1] | 1@0.0: +~5"},
    {"OnceServedItWaitsNoMore",     u"sin(1)+(2)",        "0: f2[1] +[2] | 1@0.0: 1 | 2@0.1: 2"},
    {"ItsOwnLevelOnly",             u"(sin)+(3)",         "0: [1] +[2] | 1@0.0: f2 | 2@0.1: 3"},
    {"LevelsBeginAnew",             u"(sin)+((3))",       "0: [1] +[2] | 1@0.0: f2 | 2@0.1: [3] | 3@2.0: 3"},
    {"WaitsAcrossAClosedGroup",     u"(1+sin(2)+cos)*(3)", "0: [1] *[3] | 1@0.0: 1 +f2[2] +f3 | 2@1.1: 2 | 3@0.1: 3"},
    {"SidesBeginAnew",              u"a=sin+1",           "0!: v2", "0: f2 +1"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Groups, GroupTrees, testing::ValuesIn(groups), RowName());
INSTANTIATE_TEST_SUITE_P(Functions, GroupTrees, testing::ValuesIn(functions), RowName());

TEST(GroupOpening, keepsOneCursorForEachLevel) {
    OpenedLine opened(u"");
    opened.hasher.incrementBlockIndent();
    opened.hasher.incrementBlockIndent();
    EXPECT_EQ(opened.hasher.equationIndentLevel_, 2);
    ASSERT_EQ(opened.hasher.equationIndentTracker_.size(), 3U);
    EXPECT_EQ(opened.hasher.equationIndentTracker_[0].currentIndex(), 0);
    EXPECT_EQ(opened.hasher.equationIndentTracker_[1].currentIndex(), 1);
    EXPECT_EQ(opened.hasher.equationIndentTracker_[2].currentIndex(), 2);
    EXPECT_EQ(opened.hasher.currentIndex_, 2);
}

TEST(GroupOpening, usesTheCursorOfALevelAgain) {
    OpenedLine opened(u"");
    opened.hasher.incrementBlockIndent();
    opened.hasher.setBlockFunction(2);
    opened.hasher.decrementBlockIndent();
    opened.hasher.addOperatorToStack(u'+');
    opened.hasher.incrementBlockIndent();
    ASSERT_EQ(opened.hasher.equationIndentTracker_.size(), 2U);
    const TXPosition& cursor = opened.hasher.equationIndentTracker_[1];
    EXPECT_EQ(cursor.currentIndex(), 2);
    EXPECT_FALSE(cursor.currentlyParsingTXFunction());
    EXPECT_EQ(cursor.currentTXFunctionIndex(), -1);
    EXPECT_EQ(cursor.currentTXFunctionSubIndex(), -1);
}

TEST(GroupClosing, returnsToTheListAround) {
    OpenedLine opened(u"");
    opened.hasher.incrementBlockIndent();
    opened.hasher.incrementBlockIndent();
    opened.hasher.decrementBlockIndent();
    EXPECT_EQ(opened.hasher.equationIndentLevel_, 1);
    EXPECT_EQ(opened.hasher.currentIndex_, 1);
    opened.hasher.decrementBlockIndent();
    EXPECT_EQ(opened.hasher.currentIndex_, 0);
    EXPECT_FALSE(opened.hasher.isThereAnError_);
}

TEST(GroupClosing, belowTheTopLevelIsUnbalancedAndGoesOn) {
    OpenedLine opened(u"");
    opened.hasher.decrementBlockIndent();
    opened.hasher.decrementBlockIndent();
    EXPECT_EQ(opened.hasher.equationIndentLevel_, -2);
    EXPECT_EQ(opened.message(), "Unbalanced Parethesis");
    opened.hasher.setBlockFunction(2);
    opened.hasher.incrementFunctionArgument();
    opened.hasher.incrementMatrixElement();
    opened.hasher.incrementBlockIndent();
    EXPECT_EQ(opened.hasher.equationIndentLevel_, -1);
}

TEST(Functions, waitOnTheCursorOfTheirLevel) {
    OpenedLine opened(u"");
    opened.hasher.addNumberToStack(1.0);
    opened.hasher.addOperatorToStack(u'+');
    opened.hasher.setBlockFunction(7);
    const TXPosition& cursor = opened.hasher.equationIndentTracker_[0];
    EXPECT_TRUE(cursor.currentlyParsingTXFunction());
    EXPECT_EQ(cursor.currentTXFunctionIndex(), 0);
    EXPECT_EQ(cursor.currentTXFunctionSubIndex(), 1);
    EXPECT_EQ(opened.finishedTree(), "0: 1 +f7");
}

TEST(Functions, closingTheirLevelEndsTheWait) {
    OpenedLine opened(u"");
    opened.hasher.setBlockFunction(7);
    opened.hasher.incrementBlockIndent();
    EXPECT_TRUE(opened.hasher.equationIndentTracker_[0].currentlyParsingTXFunction());
    opened.hasher.decrementBlockIndent();
    EXPECT_FALSE(opened.hasher.equationIndentTracker_[0].currentlyParsingTXFunction());
    EXPECT_FALSE(opened.hasher.equationIndentTracker_[0].currentlyParsingTXMatrix());
}

TEST(Groups, aLinkToAListIsAnOperand) {
    OpenedLine opened(u"");
    opened.hasher.addOperatorToStack(u'-');
    opened.hasher.setCurrentBlockPointer(3);
    EXPECT_EQ(opened.finishedTree(), "0: -[3]");
}

// The openers that the scan does not reach, driven by hand.

TEST(FurtherArguments, hangAtTheirFunction) {
    OpenedLine opened(u"");
    opened.hasher.addNumberToStack(5.0);
    opened.hasher.addOperatorToStack(u'*');
    opened.hasher.setBlockFunction(atan2Function);
    opened.hasher.incrementBlockIndent();
    opened.hasher.addNumberToStack(1.0);
    opened.hasher.incrementFunctionArgument();
    EXPECT_EQ(opened.hasher.currentIndex_, 2);
    EXPECT_EQ(opened.hasher.equationIndentTracker_[1].currentIndex(), 2);
    opened.hasher.addNumberToStack(2.0);
    opened.hasher.incrementFunctionArgument();
    opened.hasher.addUndefinedVariableToStack();
    opened.hasher.decrementBlockIndent();
    EXPECT_EQ(opened.hasher.currentIndex_, 0);
    opened.hasher.addOperatorToStack(u'+');
    opened.hasher.addNumberToStack(3.0);
    EXPECT_EQ(opened.finishedTree(), "0: 5 *f20[1,2,3] +3 | 1@0.1: 1 | 2@0.1: 2 | 3@0.1!: nil");
}

TEST(FurtherArguments, mayHoldGroups) {
    OpenedLine opened(u"");
    opened.hasher.setBlockFunction(atan2Function);
    opened.hasher.incrementBlockIndent();
    opened.hasher.addNumberToStack(1.0);
    opened.hasher.incrementFunctionArgument();
    opened.hasher.incrementBlockIndent();
    opened.hasher.addNumberToStack(2.0);
    opened.hasher.decrementBlockIndent();
    EXPECT_EQ(opened.hasher.currentIndex_, 2);
    opened.hasher.addOperatorToStack(u'+');
    opened.hasher.addNumberToStack(3.0);
    opened.hasher.decrementBlockIndent();
    EXPECT_EQ(opened.finishedTree(), "0: f20[1,2] | 1@0.0: 1 | 2@0.0: [3] +3 | 3@2.0: 2");
}

TEST(FurtherArguments, ofANestedCallHangAtTheNestedCall) {
    OpenedLine opened(u"");
    opened.hasher.incrementBlockIndent();
    opened.hasher.setBlockFunction(atan2Function);
    opened.hasher.incrementBlockIndent();
    opened.hasher.addNumberToStack(1.0);
    opened.hasher.incrementFunctionArgument();
    opened.hasher.addNumberToStack(2.0);
    opened.hasher.decrementBlockIndent();
    opened.hasher.decrementBlockIndent();
    EXPECT_EQ(opened.finishedTree(), "0: [1] | 1@0.0: f20[2,3] | 2@1.0: 1 | 3@1.0: 2");
}

TEST(Matrices, openTheirFirstElement) {
    OpenedLine opened(u"");
    opened.hasher.addNumberToStack(5.0);
    opened.hasher.addOperatorToStack(u'*');
    opened.hasher.parseMatrix();
    EXPECT_EQ(opened.hasher.equationIndentLevel_, 1);
    EXPECT_EQ(opened.hasher.currentIndex_, 1);
    const TXPosition& cursor = opened.hasher.equationIndentTracker_[0];
    EXPECT_TRUE(cursor.currentlyParsingTXMatrix());
    EXPECT_EQ(cursor.currentTXMatrixIndex(), 0);
    EXPECT_EQ(cursor.currentTXMatrixSubIndex(), 1);
    opened.hasher.addNumberToStack(1.0);
    opened.hasher.decrementBlockIndent();
    EXPECT_FALSE(opened.hasher.equationIndentTracker_[0].currentlyParsingTXMatrix());
    EXPECT_EQ(opened.finishedTree(), "0: 5 *m[1] | 1@0.1: 1");
}

TEST(Matrices, elementsAndRowsAreLinksInOrder) {
    OpenedLine opened(u"");
    opened.hasher.parseMatrix();
    opened.hasher.addNumberToStack(1.0);
    opened.hasher.incrementMatrixElement();
    opened.hasher.addNumberToStack(2.0);
    opened.hasher.incrementMatrixRow();
    opened.hasher.addNumberToStack(3.0);
    opened.hasher.incrementMatrixElement();
    opened.hasher.addNumberToStack(4.0);
    EXPECT_EQ(opened.hasher.equationIndentTracker_[1].currentIndex(), 4);
    opened.hasher.decrementBlockIndent();
    EXPECT_EQ(opened.hasher.currentIndex_, 0);
    EXPECT_EQ(opened.finishedTree(), "0: m[1,2,3,4] | 1@0.0: 1 | 2@0.0: 2 | 3@0.0: 3 | 4@0.0: 4");
}

TEST(Matrices, elementsAndRowsTakeTheBlanksThere) {
    OpenedLine opened(u"1,   2;   3", 2);
    opened.hasher.parseMatrix();
    opened.hasher.incrementMatrixElement();
    EXPECT_EQ(opened.hasher.equationPosition_, 4);
    opened.hasher.equationPosition_ = 7;
    opened.hasher.incrementMatrixRow();
    EXPECT_EQ(opened.hasher.equationPosition_, 9);
    opened.hasher.equationPosition_ = 10;
    opened.hasher.incrementMatrixRow();
    EXPECT_EQ(opened.hasher.equationPosition_, 10);
}

TEST(Matrices, aFunctionOfTheLevelTakesTheGroupFirst) {
    OpenedLine opened(u"");
    opened.hasher.setBlockFunction(2);
    opened.hasher.addOperatorToStack(u'+');
    opened.hasher.parseMatrix();
    EXPECT_EQ(opened.finishedTree(), "0: f2[1] +m_ | 1@0.1:");
}

}  // namespace
