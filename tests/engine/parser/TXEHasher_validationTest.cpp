#include "engine/parser/TXEHasher.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/parsing.h"

namespace {

constexpr std::u16string_view assignmentForm =
    u"If you want to assign a variable, in needs to be in the form variable=equation.  For example: a=5+2.";
constexpr std::u16string_view missingClosing = u"There is an open parenthesis in the equation -- you are missing a ).";

class WholeEquationRefusals : public testing::TestWithParam<RefusalCase> {};

TEST_P(WholeEquationRefusals, giveTheirMessage) { expectRefusal(GetParam()); }

// clang-format off
constexpr RefusalCase balance[] = {
    {"Unclosed",                       u"(5",             missingClosing},
    {"UnclosedTwice",                  u"((5)+1",         missingClosing},
    {"UnclosedCall",                   u"sin(5",          missingClosing},
    {"UnclosedBeforeABlank",           u"(5 ",            missingClosing},
    {"UnclosedOnTheRight",             u"a=(5",           missingClosing},
    {"UnclosedAtTheEndEndsBadly",      u"(",              u"The equation cannot end with a (."},
    {"EarlierMessageStays",            u"(5$",            u"There needs to be an operator after 5."},
};

constexpr RefusalCase targets[] = {
    {"Operation",                      u"a+b=3",          assignmentForm},
    {"Number",                         u"2=3",            assignmentForm},
    {"OtherNumber",                    u"5=3",            assignmentForm},
    {"Nothing",                        u"=3",             assignmentForm},
    {"Blank",                          u" =3",            assignmentForm},
    {"Function",                       u"sin=3",          assignmentForm},
    {"GroupAndVariable",               u"(1)+a=3",        assignmentForm},
    {"TwiceTheSame",                   u"a*a=3",          assignmentForm},
    {"NumberFromTheAnswerSide",        u"5=a",            assignmentForm},
    {"OperationWithPi",                u"pi+1=3",         assignmentForm},
    {"OperationWithNil",               u"nil+1=3",        assignmentForm},
    {"Pi",                             u"pi=3",           u"pi is a locked variable, so you can't assign it anything."},
    {"NegativePi",                     u"-pi=3",          u"pi is a locked variable, so you can't assign it anything."},
    {"PiWithATolerance",               u"pi±1=3",         u"pi is a locked variable, so you can't assign it anything."},
    {"Nil",                            u"nil=3",          u"nil is a reserved keyword, so you can't assign it anything."},
    {"NegativeNil",                    u"-nil=3",         u"nil is a reserved keyword, so you can't assign it anything."},
    {"Undefined",                      u"undefined=3",    u"undefined is a reserved keyword, so you can't assign it anything."},
    {"NilAssignedUndefined",           u"nil=undefined",  u"nil is a reserved keyword, so you can't assign it anything."},
    {"UndefinedAssignedNil",           u"undefined=2*nil", u"undefined is a reserved keyword, so you can't assign it anything."},
    {"NilWithNothingBehind",           u"nil= ",          u"nil is a reserved keyword, so you can't assign it anything."},
};

constexpr RefusalCase laterReplacesEarlier[] = {
    {"FormAfterBalance",               u"2=(3",           assignmentForm},
    {"LockedAfterBalance",             u"pi=(3",          u"pi is a locked variable, so you can't assign it anything."},
    {"ReservedAfterBalance",           u"nil=(3",         u"nil is a reserved keyword, so you can't assign it anything."},
    {"NothingAfterAScanError",         u"2=3)",           u"Unbalanced Parethesis"},
    {"NothingAfterAnEndError",         u"pi=",            u"The equation cannot end with a =."},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Balance, WholeEquationRefusals, testing::ValuesIn(balance), RowName());
INSTANTIATE_TEST_SUITE_P(Targets, WholeEquationRefusals, testing::ValuesIn(targets), RowName());
INSTANTIATE_TEST_SUITE_P(LaterReplacesEarlier, WholeEquationRefusals, testing::ValuesIn(laterReplacesEarlier),
                         RowName());

struct AssignmentCase {
    const char* name;
    std::u16string_view line;
    std::int32_t variable;  ///< -1 for no assignment.
};

void PrintTo(const AssignmentCase& row, std::ostream* out) { *out << utf8(row.line); }

class Assignments : public testing::TestWithParam<AssignmentCase> {};

TEST_P(Assignments, tellWhichVariableReceivesTheAnswer) {
    const ParsedLine parsed(GetParam().line);
    ASSERT_FALSE(parsed.result->isErrorMessage()) << utf8(parsed.result->errorMessage());
    EXPECT_EQ(parsed.result->variableToAssign(), GetParam().variable);
    EXPECT_EQ(parsed.equation.rightEquationBlocks() != nullptr, GetParam().variable != -1);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Accepted, Assignments, testing::Values(
    AssignmentCase{"NewName",               u"a=5",       2},
    AssignmentCase{"BlanksAround",          u" a = 5",    2},
    AssignmentCase{"OnlyTheLeftSideCounts", u"b=a+1",     2},
    AssignmentCase{"NameLikeAnAnswer",      u"ans7=3",    2},
    AssignmentCase{"SignIsNotLookedAt",     u"-a=5",      2},
    AssignmentCase{"ToleranceIsNotLookedAt", u"a±2=5",    2},
    AssignmentCase{"NothingOnTheRight",     u"a= ",       2},
    AssignmentCase{"PiInCapitals",          u"PI=3",      2},
    AssignmentCase{"Expression",            u"5+3",       -1},
    AssignmentCase{"VariableAlone",         u"a",         -1},
    AssignmentCase{"EqualsSignInAGroup",    u"(a=+b)",    -1},
    AssignmentCase{"Nothing",               u"",          -1}
), RowName());
// clang-format on

TEST(LockedTargets, areKnownByTheNamePiAlone) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"x=1");
    controller.variableArray()[0].setIsLocked(false);
    controller.variableArray()[2].setIsLocked(true);
    EXPECT_EQ(utf8(controller.addOneStringBlindly(u"pi=3")->errorMessage()),
              "pi is a locked variable, so you can't assign it anything.");
    EXPECT_FALSE(controller.addOneStringBlindly(u"x=2")->isErrorMessage());
}

TEST(LockedTargets, ansIsOne) {
    for (const std::u16string_view line : {u"ans=3", u"-ans=3", u"ans±1=3", u"ans=ans", u"ans=(3"}) {
        SCOPED_TRACE(utf8(line));
        TXEquationController controller;
        controller.addOneStringBlindly(u"5");
        const TXResult* result = controller.addOneStringBlindly(line);
        EXPECT_EQ(utf8(result->errorMessage()), "ans is a locked variable, so you can't assign it anything.");
        EXPECT_EQ(result->variableToAssign(), -1);
    }
}

TEST(LockedTargets, theNameComesBeforeAns) {
    TXEquationController controller;
    controller.setLastVariableAssignedIndex(0);
    EXPECT_EQ(utf8(controller.addOneStringBlindly(u"ans=3")->errorMessage()),
              "pi is a locked variable, so you can't assign it anything.");
}

TEST(LockedTargets, ansInAnOperationHasTheWrongForm) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"5");
    EXPECT_EQ(controller.addOneStringBlindly(u"ans+1=3")->errorMessage(), assignmentForm);
    EXPECT_EQ(controller.addOneStringBlindly(u"2=ans")->errorMessage(), assignmentForm);
}

TEST(LockedTargets, theVariableBehindAnsIsNone) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"5");
    EXPECT_FALSE(controller.addOneStringBlindly(u"ans1=3")->isErrorMessage());
    EXPECT_EQ(controller.variableArray()[2].number(), 3.0);
}

// What a typed line cannot bring about, because the scan refuses it first.

TEST(GuardedEnds, tooManyClosedLacksAnOpening) {
    OpenedLine opened(u"");
    opened.hasher.equationIndentLevel_ = -1;
    opened.hasher.checkForPostHashingErrors();
    EXPECT_EQ(opened.message(), "There is an open parenthesis in the equation -- you are missing a (.");
}

TEST(GuardedEnds, anErrorIsLeftAsItIs) {
    OpenedLine opened(u"");
    opened.hasher.setErrorMessage(u"first");
    opened.hasher.equationIndentLevel_ = 1;
    opened.hasher.equalsCount_ = 1;
    opened.hasher.checkForPostHashingErrors();
    EXPECT_EQ(opened.message(), "first");
}

TEST(GuardedEnds, aRightSideWithoutListsIsNothing) {
    OpenedLine opened(u"a=5");
    opened.hasher.addVariableToStack(u"a");
    opened.hasher.prepareForHashOfRightSide();
    opened.hasher.equalsCount_ = 1;
    opened.hasher.equationBlocks_.clear();
    opened.hasher.checkForPostHashingErrors();
    EXPECT_EQ(opened.message(), "You can't assign a variable nothing.");
    EXPECT_EQ(opened.hasher.currentEquationResult_->variableToAssign(), -1);
}

}  // namespace
