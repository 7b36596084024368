#include "engine/controller/TXEquationController.h"

#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "engine/records/descriptionText.h"
#include "tests/support/text.h"

namespace {

// What one line says: its number as text, or its message.
std::string said(const TXResult* result) {
    if (result == nullptr) return "nothing";
    return result->isErrorMessage() ? "Error: " + utf8(result->errorMessage()) : utf8(fixedText(result->number()));
}

std::string said(TXEquationController& controller, std::u16string_view line) {
    return said(controller.addOneStringBlindly(line));
}

const TXVariable& variableNamed(const TXEquationController& controller, std::u16string_view name) {
    return controller.variableArray()[controller.getVariableIndexForString(name)];
}

void expectOnlyPiAndAns(const TXEquationController& controller) {
    const TXVariableArray& variables = controller.variableArray();
    ASSERT_EQ(variables.size(), 2);

    EXPECT_EQ(utf8(variables[0].variableName()), "pi");
    EXPECT_TRUE(variables[0].isDefined());
    EXPECT_EQ(variables[0].number(), 3.141592653589793);
    EXPECT_TRUE(variables[0].isLocked());
    EXPECT_FALSE(variables[0].isAutoCached());
    EXPECT_EQ(variables[0].variableIndex(), 0);

    EXPECT_EQ(utf8(variables[1].variableName()), "ans");
    EXPECT_FALSE(variables[1].isDefined());
    EXPECT_EQ(variables[1].number(), 0.0);
    EXPECT_FALSE(variables[1].isLocked());
    EXPECT_TRUE(variables[1].isAutoCached());
    EXPECT_EQ(variables[1].variableIndex(), 1);
}

TEST(TXEquationController, aFreshOneKnowsOnlyPiAndAns) {
    TXEquationController controller;
    expectOnlyPiAndAns(controller);
    EXPECT_TRUE(controller.equationsArray().empty());
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 0);
    EXPECT_TRUE(controller.currentAnswerCacheNumberBlacklist().empty());
    EXPECT_EQ(controller.lastVariableAssignedIndex(), -1);
    EXPECT_TRUE(controller.useRadians());
    EXPECT_FALSE(controller.percentSignIsModulus());
    EXPECT_TRUE(controller.allowsMultipleEquationsOnSameLine());
    EXPECT_EQ(controller.lastResult(), nullptr);
}

TEST(TXEquationController, everyAccessorReadsWhatWasWritten) {
    TXEquationController controller;
    controller.setUseRadians(false);
    EXPECT_FALSE(controller.useRadians());
    controller.setPercentSignIsModulus(true);
    EXPECT_TRUE(controller.percentSignIsModulus());
    controller.setAllowsMultipleEquationsOnSameLine(false);
    EXPECT_FALSE(controller.allowsMultipleEquationsOnSameLine());
    controller.setLastVariableAssignedIndex(0);
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 0);
}

TEST(TXEquationController, thePercentSettingChangesNoAnswer) {
    TXEquationController controller;
    controller.setPercentSignIsModulus(true);
    EXPECT_EQ(said(controller, u"5%2"), "Error: % is not currently supported as an operator.");
}

TEST(TXEquationController, theSettingForSeveralEquationsChangesNoAnswer) {
    for (const bool allows : {true, false}) {
        TXEquationController controller;
        controller.setAllowsMultipleEquationsOnSameLine(allows);
        EXPECT_EQ(said(controller, u"3;4"), "Error: You cannot have a semicolon in the equation.");
    }
}

TEST(TXEquationController, theAngleUnitCountsFromTheNextLine) {
    TXEquationController controller;
    EXPECT_EQ(said(controller, u"cos(pi)"), "-1.000000");
    controller.setUseRadians(false);
    EXPECT_EQ(said(controller, u"cos(180)"), "-1.000000");
    controller.setUseRadians(true);
    EXPECT_EQ(said(controller, u"cos(pi)"), "-1.000000");
}

// The life of one line

TEST(TXEquationController, bareAnswersAreNumberedAndAssignmentsAreNot) {
    TXEquationController controller;
    EXPECT_EQ(said(controller, u"2+3"), "5.000000");
    EXPECT_EQ(said(controller, u"x=4"), "4.000000");
    EXPECT_EQ(said(controller, u"7"), "7.000000");

    const TXVariableArray& variables = controller.variableArray();
    ASSERT_EQ(variables.size(), 5);
    struct Row {
        const char* name;
        double number;
        bool isAutoCached;
        std::int32_t definedIn;
    };
    const Row rows[] = {{"ans1", 5.0, true, 0}, {"x", 4.0, false, 1}, {"ans2", 7.0, true, 2}};
    std::int32_t position = 2;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(utf8(variables[position].variableName()), row.name);
        EXPECT_TRUE(variables[position].isDefined());
        EXPECT_EQ(variables[position].number(), row.number);
        EXPECT_EQ(variables[position].isAutoCached(), row.isAutoCached);
        EXPECT_FALSE(variables[position].isLocked());
        EXPECT_EQ(variables[position].variableIndex(), position);
        EXPECT_EQ(variables[position].definedInEquationIndex(), row.definedIn);
        ++position;
    }
    EXPECT_TRUE(variables[1].isDefined());
    EXPECT_EQ(variables[1].number(), 7.0);
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 2);
    ASSERT_EQ(controller.equationsArray().size(), 3U);
    for (std::size_t index = 0; index < 3; ++index) {
        EXPECT_EQ(controller.equationsArray()[index].equationIndex(), static_cast<std::int32_t>(index));
    }
    EXPECT_EQ(utf8(controller.equationsArray()[1].masterString()), "x=4");
}

TEST(TXEquationController, aResultSaysWhichVariableItIsFor) {
    TXEquationController controller;
    EXPECT_EQ(controller.addOneStringBlindly(u"2+3")->variableToAssign(), -1);
    EXPECT_EQ(controller.addOneStringBlindly(u"x=4")->variableToAssign(), 3);
    EXPECT_EQ(controller.addOneStringBlindly(u"x+1")->variableToAssign(), -1);
    EXPECT_TRUE(controller.lastResult()->isHashed());
}

TEST(TXEquationController, theLastAssignedVariableFollowsEveryAnswer) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"2+3");
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 2);
    controller.addOneStringBlindly(u"x=4");
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 3);
    controller.addOneStringBlindly(u"7");
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 4);
    controller.addOneStringBlindly(u"x=5");
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 3);
}

TEST(TXEquationController, ansIsDefinedByTheFirstAnswerEvenOfAnAssignment) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"x=4");
    EXPECT_TRUE(controller.variableArray()[1].isDefined());
    EXPECT_EQ(controller.variableArray()[1].number(), 4.0);
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 0);
}

TEST(TXEquationController, aNewAssignmentTakesTheOldVariable) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"x=4");
    EXPECT_EQ(said(controller, u"x=x+1"), "5.000000");
    EXPECT_EQ(controller.variableArray().size(), 3);
    EXPECT_EQ(variableNamed(controller, u"x").number(), 5.0);
    EXPECT_EQ(variableNamed(controller, u"x").definedInEquationIndex(), 1);
}

TEST(TXEquationController, ansIsTheLatestAnswerOfEitherKind) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"2+3");
    EXPECT_EQ(said(controller, u"ans*2"), "10.000000");
    EXPECT_EQ(utf8(controller.equationsArray()[1].masterString()), "ans1*2");
    controller.addOneStringBlindly(u"x=4");
    EXPECT_EQ(said(controller, u"ans+ans"), "8.000000");
    EXPECT_EQ(utf8(controller.equationsArray()[3].masterString()), "x+x");
}

TEST(TXEquationController, theResultIsTheOneInItsEquation) {
    TXEquationController controller;
    for (const std::u16string_view line : {u"2+3", u"x=4", u"2+", u"y", u"sqrt(-1)", u"pi=3"}) {
        SCOPED_TRACE(utf8(line));
        TXResult* result = controller.addOneStringBlindly(line);
        ASSERT_NE(result, nullptr);
        EXPECT_EQ(result, controller.equationsArray().back().lastResult());
        EXPECT_EQ(result, controller.lastResult());
    }
}

TEST(TXEquationController, lastResultIsThatOfTheLastEquation) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"2+3");
    EXPECT_EQ(said(controller.lastResult()), "5.000000");
    controller.addOneStringBlindly(u"2+");
    EXPECT_EQ(said(controller.lastResult()), "Error: The equation cannot end with a +.");
    controller.addOneStringBlindly(u"   ");
    EXPECT_EQ(said(controller.lastResult()), "Error: The equation cannot end with a +.");
}

// Refused lines

TEST(TXEquationController, aRefusedLineIsStoredButChangesNoValue) {
    for (const std::u16string_view line :
         {u"2+", u"sqrt(-1)", u"y+1", u"x=sqrt(-1)", u"pi=3", u"ans=3", u"5=3", u"x=10^400"}) {
        SCOPED_TRACE(utf8(line));
        TXEquationController controller;
        controller.addOneStringBlindly(u"2+3");
        controller.addOneStringBlindly(u"x=4");
        EXPECT_TRUE(controller.addOneStringBlindly(line)->isErrorMessage());

        ASSERT_EQ(controller.equationsArray().size(), 3U);
        EXPECT_EQ(controller.equationsArray()[2].equationIndex(), 2);
        EXPECT_EQ(utf8(controller.equationsArray()[2].masterString()), utf8(line));
        EXPECT_EQ(controller.currentAnswerCacheNumber(), 1);
        EXPECT_EQ(controller.lastVariableAssignedIndex(), 3);
        EXPECT_EQ(controller.variableArray()[0].number(), 3.141592653589793);
        EXPECT_EQ(controller.variableArray()[1].number(), 4.0);
        EXPECT_EQ(variableNamed(controller, u"x").number(), 4.0);
        EXPECT_EQ(variableNamed(controller, u"x").definedInEquationIndex(), 1);

        controller.addOneStringBlindly(u"6");
        EXPECT_EQ(utf8(controller.variableArray()[controller.lastVariableAssignedIndex()].variableName()), "ans2");
    }
}

TEST(TXEquationController, aRefusedFirstLineLeavesAnsUndefined) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"sqrt(-1)");
    EXPECT_FALSE(controller.variableArray()[1].isDefined());
    EXPECT_EQ(said(controller, u"ans"),
              "Error: ans is not available to use as a variable yet, since no calculations have been made.");
}

TEST(TXEquationController, aRefusedLineKeepsTheVariablesThatItCreated) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"width=height+");
    ASSERT_EQ(controller.variableArray().size(), 4);
    EXPECT_EQ(controller.getVariableIndexForString(u"width"), 2);
    EXPECT_EQ(controller.getVariableIndexForString(u"height"), 3);
    EXPECT_FALSE(variableNamed(controller, u"width").isDefined());
    EXPECT_FALSE(variableNamed(controller, u"height").isDefined());
    controller.addOneStringBlindly(u"height=2");
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 3);
}

// White space around a line

TEST(TXEquationController, anEmptyLineGivesNothing) {
    TXEquationController controller;
    EXPECT_EQ(controller.addOneStringBlindly(u""), nullptr);
    EXPECT_TRUE(controller.equationsArray().empty());
}

TEST(TXEquationController, aBlankLineChangesNothing) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"2+3");
    EXPECT_EQ(controller.addOneStringBlindly(u" \t \u00A0\u3000 "), nullptr);
    EXPECT_EQ(controller.equationsArray().size(), 1U);
    EXPECT_EQ(controller.variableArray().size(), 3);
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 1);
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 2);
    EXPECT_EQ(controller.variableArray()[1].number(), 5.0);
}

TEST(TXEquationController, blanksOfEveryWidthAreTrimmed) {
    for (const char16_t blank :
         std::u16string_view(u"\u0009\u0020\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006"
                             u"\u2007\u2008\u2009\u200A\u202F\u205F\u3000")) {
        SCOPED_TRACE(static_cast<unsigned>(blank));
        TXEquationController controller;
        const std::u16string blanks(2, blank);
        EXPECT_EQ(controller.addOneStringBlindly(blanks), nullptr);
        std::u16string line = blanks;
        line.append(u"2 + 3").append(blanks);
        EXPECT_EQ(said(controller, line), "5.000000");
        ASSERT_EQ(controller.equationsArray().size(), 1U);
        EXPECT_EQ(utf8(controller.equationsArray()[0].masterString()), "2 + 3");
    }
}

TEST(TXEquationController, lineEndsAndOtherSpacesAreNotTrimmed) {
    for (const char16_t space :
         std::u16string_view(u"\u000A\u000B\u000C\u000D\u0085\u180E\u200B\u2028\u2029\u2060\uFEFF\u0000", 12)) {
        SCOPED_TRACE(static_cast<unsigned>(space));
        TXEquationController controller;
        const std::u16string line = space + std::u16string(u"2");
        EXPECT_EQ(said(controller, line), "Error: Invalid variable name: " + utf8(line));
        ASSERT_EQ(controller.equationsArray().size(), 1U);
        EXPECT_EQ(controller.equationsArray()[0].masterString(), line);
        EXPECT_NE(controller.addOneStringBlindly(std::u16string(1, space)), nullptr);
    }
}

TEST(TXEquationController, thereAreNoComments) {
    TXEquationController controller;
    EXPECT_EQ(said(controller, u"//x"), "Error: / can't come right after a /");
    EXPECT_EQ(said(controller, u"2 + 3"), "5.000000");
    EXPECT_EQ(controller.equationsArray().size(), 2U);
}

// Names and numbering

TEST(TXEquationController, aVariableIsFoundByItsExactName) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"Width=3");
    EXPECT_EQ(controller.getVariableIndexForString(u"pi"), 0);
    EXPECT_EQ(controller.getVariableIndexForString(u"ans"), 1);
    EXPECT_EQ(controller.getVariableIndexForString(u"Width"), 2);
    for (const std::u16string_view name : {u"PI", u"Pi", u"p", u"width", u"Widt", u"Widths", u"ans1", u""}) {
        SCOPED_TRACE(utf8(name));
        EXPECT_EQ(controller.getVariableIndexForString(name), -1);
    }
}

TEST(TXEquationController, upperAndLowerCaseAreDifferentVariables) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"Pi=3");
    EXPECT_EQ(said(controller, u"Pi"), "3.000000");
    EXPECT_EQ(said(controller, u"pi"), "3.141593");
}

TEST(TXEquationController, theNumberingDoesNotLeaveOutWhatTheUserAssigned) {
    TXEquationController controller;
    EXPECT_EQ(said(controller, u"ans1=30"), "30.000000");
    EXPECT_TRUE(controller.currentAnswerCacheNumberBlacklist().empty());
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 0);
    controller.addOneStringBlindly(u"5");
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 1);
    ASSERT_EQ(controller.variableArray().size(), 4);
    EXPECT_EQ(utf8(controller.variableArray()[3].variableName()), "ans1");
    EXPECT_EQ(controller.variableArray()[3].number(), 5.0);
    EXPECT_EQ(controller.getVariableIndexForString(u"ans1"), 2) << "the first of the name";
    EXPECT_EQ(said(controller, u"ans1"), "30.000000");
    EXPECT_EQ(said(controller, u"ans1+0*ans"), "30.000000");
}

TEST(TXEquationController, aNumberFarAheadIsNotReservedEither) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"ans7=3");
    for (int line = 0; line < 7; ++line) controller.addOneStringBlindly(u"1");
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 7);
    EXPECT_EQ(utf8(controller.variableArray()[9].variableName()), "ans7");
}

TEST(TXEquationController, noNameEverGetsOntoTheBlacklist) {
    TXEquationController controller;
    const std::u16string_view lines[] = {u"a=1",     u"an=1",     u"ans0=1",           u"ans1=1",   u"ans12=1",
                                         u"ans1a=1", u"answer=1", u"ans99999999999=1", u"anansi=1", u"ANS5=1"};
    for (const std::u16string_view line : lines) {
        SCOPED_TRACE(utf8(line));
        ASSERT_FALSE(controller.addOneStringBlindly(line)->isErrorMessage());
        controller.addNumbertoAutoIncrementBlacklistIfNecessary(controller.lastVariableAssignedIndex());
        EXPECT_TRUE(controller.currentAnswerCacheNumberBlacklist().empty());
    }
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 0);
}

TEST(TXEquationController, incrementAutoCacheNumberGoesOnByOne) {
    TXEquationController controller;
    controller.incrementAutoCacheNumber();
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 1);
    controller.incrementAutoCacheNumber();
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 2);
    controller.addOneStringBlindly(u"5");
    EXPECT_EQ(utf8(controller.variableArray()[2].variableName()), "ans3");
}

// Starting over

TEST(TXEquationController, clearAllForgetsEquationsVariablesAndNumbering) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"2+3");
    controller.addOneStringBlindly(u"x=4");
    controller.clearAll();
    expectOnlyPiAndAns(controller);
    EXPECT_TRUE(controller.equationsArray().empty());
    EXPECT_EQ(controller.lastResult(), nullptr);
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 0);
    EXPECT_EQ(controller.getVariableIndexForString(u"x"), -1);
    EXPECT_EQ(said(controller, u"x"), "Error: The equation contains an undefined variable: x.");
}

TEST(TXEquationController, numberingStartsAgainAfterClearAll) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"2+3");
    controller.addOneStringBlindly(u"7");
    controller.clearAll();
    EXPECT_EQ(said(controller, u"8"), "8.000000");
    EXPECT_EQ(utf8(controller.variableArray()[2].variableName()), "ans1");
    EXPECT_EQ(controller.equationsArray().back().equationIndex(), 0);
    EXPECT_EQ(said(controller, u"ans"), "8.000000");
}

TEST(TXEquationController, clearAllKeepsTheLastAssignedPositionAndTheSettings) {
    TXEquationController controller;
    controller.setUseRadians(false);
    controller.setPercentSignIsModulus(true);
    controller.setAllowsMultipleEquationsOnSameLine(false);
    controller.addOneStringBlindly(u"2+3");
    controller.addOneStringBlindly(u"x=4");
    controller.clearAll();
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 3);
    EXPECT_FALSE(controller.useRadians());
    EXPECT_TRUE(controller.percentSignIsModulus());
    EXPECT_FALSE(controller.allowsMultipleEquationsOnSameLine());
}

TEST(TXEquationController, ansIsNotAvailableAfterClearAll) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"2+3");
    controller.clearAll();
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 2);
    EXPECT_EQ(said(controller, u"ans"),
              "Error: ans is not available to use as a variable yet, since no calculations have been made.");
    EXPECT_EQ(said(controller, u"1+ans*2"),
              "Error: ans is not available to use as a variable yet, since no calculations have been made.");
    EXPECT_EQ(controller.variableArray().size(), 2);
}

TEST(TXEquationController, ansMeansWhateverStandsAtItsOldPositionAfterClearAll) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"2+3");
    controller.clearAll();
    EXPECT_EQ(said(controller, u"new+1"), "Error: The equation contains an undefined variable: new.");
    EXPECT_EQ(said(controller, u"ans"), "Error: The equation contains an undefined variable: new.");
    EXPECT_EQ(utf8(controller.equationsArray().back().masterString()), "new");
}

TEST(TXEquationController, clearAllOnAFreshOneChangesNothing) {
    TXEquationController controller;
    controller.clearAll();
    expectOnlyPiAndAns(controller);
    EXPECT_EQ(controller.lastVariableAssignedIndex(), -1);
}

TEST(TXEquationController, setInitialValuesMakesAUsedOneFresh) {
    TXEquationController controller;
    controller.setUseRadians(false);
    controller.setPercentSignIsModulus(true);
    controller.setAllowsMultipleEquationsOnSameLine(false);
    controller.addOneStringBlindly(u"2+3");
    controller.setInitialValues();
    expectOnlyPiAndAns(controller);
    EXPECT_TRUE(controller.equationsArray().empty());
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 0);
    EXPECT_EQ(controller.lastVariableAssignedIndex(), -1);
    EXPECT_TRUE(controller.useRadians());
    EXPECT_FALSE(controller.percentSignIsModulus());
    EXPECT_TRUE(controller.allowsMultipleEquationsOnSameLine());
    EXPECT_EQ(controller.functionDictionary().size(), 22);
    EXPECT_EQ(said(controller, u"sin(pi/2)"), "1.000000");
}

// Older entries and aids

TEST(TXEquationController, addStringRefusesTheEmptyText) {
    TXEquationController controller;
    const auto results = controller.addString(u"");
    ASSERT_TRUE(results);
    ASSERT_EQ(results->size(), 1U);
    EXPECT_TRUE(results->front().isErrorMessage());
    EXPECT_EQ(utf8(results->front().errorMessage()), "There is nothing to calculate!");
    EXPECT_TRUE(controller.equationsArray().empty());
}

TEST(TXEquationController, addStringGivesNothingForAnyOtherText) {
    TXEquationController controller;
    for (const std::u16string_view text : {u"1+1", u" ", u"x=3", u"2+"}) {
        SCOPED_TRACE(utf8(text));
        EXPECT_FALSE(controller.addString(text));
    }
    EXPECT_TRUE(controller.equationsArray().empty());
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 0);
    expectOnlyPiAndAns(controller);
}

TEST(TXEquationController, splitUpStringGivesNoPieces) {
    const TXEquationController controller;
    for (const std::u16string_view text : {u"", u"1+1", u"1;2"}) {
        SCOPED_TRACE(utf8(text));
        EXPECT_TRUE(controller.splitUpString(text).empty());
    }
}

TEST(TXEquationController, renameVariableAtIndexChangesNothing) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"x=4");
    const TXResult result = controller.renameVariableAtIndex(2, u"y");
    EXPECT_EQ(result.number(), 0.0);
    EXPECT_FALSE(result.isErrorMessage());
    EXPECT_FALSE(result.isHashed());
    EXPECT_FALSE(result.isReduced());
    EXPECT_EQ(result.variableToAssign(), -1);
    EXPECT_EQ(controller.variableArray().size(), 3);
    EXPECT_EQ(utf8(controller.variableArray()[2].variableName()), "x");
    EXPECT_EQ(controller.getVariableIndexForString(u"y"), -1);
}

struct CommentCase {
    const char* name;
    std::u16string_view line;
    bool isComment;
};
void PrintTo(const CommentCase& row, std::ostream* out) { *out << utf8(row.line); }
class CommentLine : public testing::TestWithParam<CommentCase> {};

TEST_P(CommentLine, isToldByItsStartOrItsBlanks) {
    EXPECT_EQ(TXEquationController::isComment(GetParam().line), GetParam().isComment);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lines, CommentLine, testing::Values(
    //          name                       line       comment
    CommentCase{"TwoSlashes",              u"//x",    true},
    CommentCase{"OneSlashIsEnough",        u"/x",     true},
    CommentCase{"OnlyASlash",              u"/",      true},
    CommentCase{"ThreePieces",             u"2 + 3",  true},
    CommentCase{"ManyPieces",              u"a b c d", true},
    CommentCase{"TwoBlanksInARow",         u"a  b",   true},
    CommentCase{"OnlyTwoBlanks",           u"  ",     true},
    CommentCase{"BlankAtEitherEnd",        u" a ",    true},
    CommentCase{"TwoPieces",               u"a b",    false},
    CommentCase{"OnePiece",                u"2+3",    false},
    CommentCase{"OneBlank",                u" ",      false},
    CommentCase{"SlashAfterABlank",        u" /",     false},
    CommentCase{"SlashInside",             u"6/2",    false},
    CommentCase{"TabsDoNotDivide",         u"a\tb\tc", false}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(TXEquationController, hashEquationForDebugOnlyParses) {
    TXEquationController controller;
    controller.hashEquationForDebug(u"myVariable*other");
    ASSERT_EQ(controller.variableArray().size(), 4);
    EXPECT_EQ(utf8(controller.variableArray()[2].variableName()), "myVariable");
    EXPECT_TRUE(controller.variableArray()[2].isDefined());
    EXPECT_EQ(controller.variableArray()[2].number(), 0.002377);
    EXPECT_EQ(utf8(controller.variableArray()[3].variableName()), "other");
    EXPECT_FALSE(controller.variableArray()[3].isDefined());
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 2);
    EXPECT_TRUE(controller.equationsArray().empty());
    EXPECT_EQ(controller.currentAnswerCacheNumber(), 0);
    EXPECT_FALSE(controller.variableArray()[1].isDefined());
}

TEST(TXEquationController, hashEquationForDebugAddsItsVariableEveryTime) {
    TXEquationController controller;
    controller.hashEquationForDebug(u"1");
    controller.hashEquationForDebug(u"2+");
    EXPECT_EQ(controller.variableArray().size(), 4);
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 2);
    EXPECT_EQ(said(controller, u"ans*1000"), "2.377000");
}

// Long sessions

TEST(TXEquationController, manyLinesKeepTheirResultsAndNumbers) {
    constexpr std::int32_t lines = 20'000;
    TXEquationController controller;
    const TXResult* first = controller.addOneStringBlindly(u"1");
    for (std::int32_t line = 2; line <= lines; ++line) {
        const TXResult* result = controller.addOneStringBlindly(u"ans+1");
        ASSERT_FALSE(result->isErrorMessage()) << said(result);
        ASSERT_EQ(result->number(), line);
    }
    EXPECT_EQ(first->number(), 1.0);
    EXPECT_EQ(first, controller.equationsArray().front().lastResult());
    EXPECT_EQ(controller.currentAnswerCacheNumber(), lines);
    EXPECT_EQ(controller.equationsArray().size(), static_cast<std::size_t>(lines));
    EXPECT_EQ(controller.variableArray().size(), lines + 2);
    EXPECT_EQ(controller.getVariableIndexForString(u"ans" + integerText(lines)), lines + 1);
    EXPECT_EQ(utf8(controller.equationsArray().back().masterString()), "ans19999+1");
    for (std::int32_t position = 0; position < controller.variableArray().size(); ++position) {
        ASSERT_EQ(controller.variableArray()[position].variableIndex(), position);
    }
}

TEST(TXEquationController, twoSessionsKnowNothingOfEachOther) {
    TXEquationController one;
    TXEquationController other;
    one.addOneStringBlindly(u"x=4");
    other.setUseRadians(false);
    EXPECT_EQ(said(other, u"x"), "Error: The equation contains an undefined variable: x.");
    EXPECT_EQ(said(other, u"sin(90)"), "1.000000");
    EXPECT_EQ(said(one, u"cos(0)+x"), "5.000000");
    EXPECT_EQ(one.currentAnswerCacheNumber(), 1);
    EXPECT_EQ(other.currentAnswerCacheNumber(), 1);
}

TEST(TXEquationController, clearingForgetsTheLeftSideOfARefusedLine) {
    TXEquationController controller;
    EXPECT_TRUE(controller.addOneStringBlindly(u"a=(1")->isErrorMessage());
    controller.clearAll();
    EXPECT_EQ(controller.addOneStringBlindly(u"2+3")->number(), 5.0);
}

}  // namespace
