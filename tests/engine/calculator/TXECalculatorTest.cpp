#include "engine/calculator/TXECalculator.h"

#include <array>
#include <cmath>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "engine/controller/TXEquationController.h"
#include "tests/support/text.h"

namespace {

// Read at run time: a compiler that works the expectation out by itself may round otherwise than the library does.
double unfolded(double value) {
    volatile double hidden = value;
    return hidden;
}

constexpr double pi = 3.141592653589793;

/// A parsed equation with an evaluator whose inside can be looked at.
class Driver : public TXECalculator {
public:
    Driver(TXEquationController& controller, std::u16string_view line)
        : TXECalculator(controller), equation(TXEquation::initWithEquationString(std::u16string(line))) {
        controller.equationHasher().hashEquation(equation);
    }

    TXResult& result() { return *equation.lastResult(); }
    TXResult* evaluate() { return TXECalculator::calculateEquation(equation); }

    /// What comes before the lists are reduced.
    void prepare() {
        reset();
        currentEquationResult_ = &result();
        equationBlocks_ =
            equation.rightEquationBlocks() != nullptr ? equation.rightEquationBlocks() : equation.leftEquationBlocks();
        prepareForCalculation();
    }

    using TXECalculator::currentEquationResult_;
    using TXECalculator::equationBlockPositions_;
    using TXECalculator::equationBlocks_;
    using TXECalculator::equationBlocksLength_;
    using TXECalculator::equationBlockStructs_;
    using TXECalculator::equationBlockValues_;
    using TXECalculator::finalAnswer_;
    using TXECalculator::isThereAnError_;
    using TXECalculator::preferencesRadians_;
    using TXECalculator::txBlocksLength_;
    using TXECalculator::TXBlockValues_;

    TXEquation equation;
};

// Answers

struct DrivenAnswerCase {
    const char* name;
    std::u16string_view line;
    double answer;
};
void PrintTo(const DrivenAnswerCase& row, std::ostream* out) { *out << utf8(row.line); }
class DrivenAnswer : public testing::TestWithParam<DrivenAnswerCase> {};

TEST_P(DrivenAnswer, isGiven) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"x=3");
    controller.addOneStringBlindly(u"y=-2");
    const TXResult* result = controller.addOneStringBlindly(GetParam().line);
    ASSERT_NE(result, nullptr);
    ASSERT_FALSE(result->isErrorMessage()) << utf8(result->errorMessage());
    EXPECT_EQ(result->number(), GetParam().answer);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lists, DrivenAnswer, testing::Values(
    //               name                          line                      answer
    DrivenAnswerCase{"OneNumber",                  u"5",                       5.0},
    DrivenAnswerCase{"Group",                      u"2*(3+4)",                14.0},
    DrivenAnswerCase{"GroupAlone",                 u"(5)",                     5.0},
    DrivenAnswerCase{"SignBeforeAGroup",           u"-(2+3)",                 -5.0},
    DrivenAnswerCase{"NegativeGroup",              u"2*-(2+3)",              -10.0},
    DrivenAnswerCase{"GroupsSideBySide",           u"(1+2)*(3+4)-(5)",        16.0},
    DrivenAnswerCase{"GroupsInGroups",             u"((1+2)*(3+(4-5)))",       6.0},
    DrivenAnswerCase{"GroupInAnArgument",          u"sqrt((2+2)*4)",           4.0},
    DrivenAnswerCase{"FunctionBeforeItsList",      u"1+sqrt(9)*2",             7.0},
    DrivenAnswerCase{"FunctionsInFunctions",       u"sqrt(sqrt(sqrt(256)))",   2.0},
    DrivenAnswerCase{"FunctionInAGroup",           u"2^(sqrt(9)-1)",           4.0},
    DrivenAnswerCase{"NegativeFunction",           u"2*-sqrt(9)",             -6.0},
    DrivenAnswerCase{"SignBeforeAFunction",        u"-sqrt(4)^2",             -4.0},
    DrivenAnswerCase{"NegativeArgument",           u"abs(-(2+3))",             5.0},
    DrivenAnswerCase{"TwoFunctionsInOneList",      u"sqrt(9)-cbrt(8)",         1.0},
    DrivenAnswerCase{"GroupOnAPendingFunction",    u"sin+5+(6)",               std::sin(unfolded(6)) + 6}
), [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(Variables, DrivenAnswer, testing::Values(
    //               name                          line                      answer
    DrivenAnswerCase{"Alone",                      u"x",                       3.0},
    DrivenAnswerCase{"SignBefore",                 u"-x",                     -3.0},
    DrivenAnswerCase{"Negative",                   u"2*-x",                   -6.0},
    DrivenAnswerCase{"NegativeOfANegativeValue",   u"2*-y",                    4.0},
    DrivenAnswerCase{"Constant",                   u"2*pi",                    2 * pi},
    DrivenAnswerCase{"LatestAnswer",               u"ans*2",                  -4.0},
    DrivenAnswerCase{"SameOneTwice",               u"x*x+x",                  12.0},
    DrivenAnswerCase{"InAnArgument",               u"abs(y)",                  2.0},
    DrivenAnswerCase{"BaseOfNegativeValue",        u"y^2",                     4.0},
    DrivenAnswerCase{"SignBeforeAPower",           u"-y^2",                   -4.0},
    DrivenAnswerCase{"OnlyTheRightSideCounts",     u"x=x*2+1",                 7.0},
    DrivenAnswerCase{"TheLeftMayBeUndefined",      u"z=y+x",                   1.0}
), [](const auto& test) { return test.param.name; });

// A tolerance is stored, and no answer depends on it.
INSTANTIATE_TEST_SUITE_P(Tolerances, DrivenAnswer, testing::Values(
    DrivenAnswerCase{"OfANumber",                  u"5±0.1",                   5.0},
    DrivenAnswerCase{"OnBothSides",                u"5±0.1|0.2*2",            10.0},
    DrivenAnswerCase{"OfAVariable",                u"x±2",                     3.0}
), [](const auto& test) { return test.param.name; });
// clang-format on

// Refusals

struct DrivenRefusalCase {
    const char* name;
    std::u16string_view line;
    const char* message;
};
void PrintTo(const DrivenRefusalCase& row, std::ostream* out) { *out << utf8(row.line); }
class DrivenRefusal : public testing::TestWithParam<DrivenRefusalCase> {};

TEST_P(DrivenRefusal, givesTheMessage) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"known=3");
    const TXResult* result = controller.addOneStringBlindly(GetParam().line);
    ASSERT_NE(result, nullptr);
    ASSERT_TRUE(result->isErrorMessage()) << result->number();
    EXPECT_EQ(utf8(result->errorMessage()), GetParam().message);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(UndefinedVariables, DrivenRefusal, testing::Values(
    DrivenRefusalCase{"One",               u"a",           "The equation contains an undefined variable: a."},
    DrivenRefusalCase{"OneAmongKnown",     u"known+a*pi",  "The equation contains an undefined variable: a."},
    DrivenRefusalCase{"OneTwiceIsOne",     u"a+a*a",       "The equation contains an undefined variable: a."},
    DrivenRefusalCase{"Two",               u"a+b",         "The equation contains undefined variables: a, b."},
    DrivenRefusalCase{"TwoOneOfThemTwice", u"b+a+b",       "The equation contains undefined variables: b, a."},
    DrivenRefusalCase{"EachOnceInOrder",   u"c*(a+b)-(b*(a-c)+c)", "The equation contains undefined variables: c, a, b."},
    DrivenRefusalCase{"InAnArgument",      u"sqrt(a)+1",   "The equation contains an undefined variable: a."},
    DrivenRefusalCase{"NotTheLeftSide",    u"a=b+c",       "The equation contains undefined variables: b, c."},
    DrivenRefusalCase{"AssignedToItself",  u"a=a+1",       "The equation contains an undefined variable: a."},
    DrivenRefusalCase{"Nil",               u"nil",         "The equation contains an undefined variable: nil."},
    DrivenRefusalCase{"UndefinedIsNilToo", u"undefined",   "The equation contains an undefined variable: nil."},
    DrivenRefusalCase{"NilOnce",           u"nil+undefined*nil", "The equation contains an undefined variable: nil."},
    DrivenRefusalCase{"NilComesFirst",     u"b+a+undefined", "The equation contains undefined variables: nil, b, a."},
    DrivenRefusalCase{"NilOnTheRight",     u"a=nil",       "The equation contains an undefined variable: nil."},
    DrivenRefusalCase{"BeforeArithmetic",  u"a+10^400",    "The equation contains an undefined variable: a."},
    DrivenRefusalCase{"BeforeFunctions",   u"sqrt(-1)+a",  "The equation contains an undefined variable: a."}
), [](const auto& test) { return test.param.name; });

// The lists are reduced from the last to the first, and what fails in one keeps the ones before it from being looked at.
// Within one list functions come before arithmetic, and the later message stays.
INSTANTIATE_TEST_SUITE_P(Order, DrivenRefusal, testing::Values(
    DrivenRefusalCase{"LaterFunctionOfOneList",   u"sqrt(-1)+ln(-1)",
                      "ln() produced an imaginary or extremely large (>10^308) result."},
    DrivenRefusalCase{"EarlierFunctionLast",      u"ln(-1)+sqrt(-1)",
                      "sqrt() produced an imaginary or extremely large (>10^308) result."},
    DrivenRefusalCase{"ArithmeticAfterFunctions", u"sqrt(-1)^2",
                      "Error in exponents, NaN.  Please report this bug."},
    DrivenRefusalCase{"LaterListFirst",           u"sqrt(-1)+(10^400)",
                      "Extremely large exponent result (>10^308) in the equation."},
    DrivenRefusalCase{"LaterArgumentFirst",       u"(10^400)+(sqrt(-1))",
                      "sqrt() produced an imaginary or extremely large (>10^308) result."},
    DrivenRefusalCase{"GroupBeforeTheTopLevel",   u"sqrt(-1)+(ln(-1))",
                      "ln() produced an imaginary or extremely large (>10^308) result."},
    DrivenRefusalCase{"GroupStopsTheTopLevel",    u"(ln(-1))+sqrt(-1)",
                      "ln() produced an imaginary or extremely large (>10^308) result."},
    DrivenRefusalCase{"InnerStopsTheOuter",       u"sqrt(ln(-1))",
                      "ln() produced an imaginary or extremely large (>10^308) result."}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(TXECalculator, undefinedVariablesComeInTheOrderOfTheirPositions) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"first+second+third");
    EXPECT_EQ(utf8(controller.addOneStringBlindly(u"third+fourth+first+fourth")->errorMessage()),
              "The equation contains undefined variables: first, third, fourth.");
}

TEST(TXECalculator, aVariableIsNoLongerUndefinedOnceItIsAssigned) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"a+b");
    controller.addOneStringBlindly(u"a=1");
    EXPECT_EQ(utf8(controller.addOneStringBlindly(u"a+b")->errorMessage()),
              "The equation contains an undefined variable: b.");
    controller.addOneStringBlindly(u"b=2");
    EXPECT_EQ(controller.addOneStringBlindly(u"a+b")->number(), 3.0);
}

// One call

TEST(TXECalculator, anErrorOfParsingComesBackUntouched) {
    TXEquationController controller;
    Driver driver(controller, u"2+");
    TXResult* const result = driver.equation.lastResult();
    result->setNumber(7.0);
    EXPECT_EQ(driver.evaluate(), result);
    EXPECT_TRUE(result->isErrorMessage());
    EXPECT_EQ(utf8(result->errorMessage()), "The equation cannot end with a +.");
    EXPECT_EQ(result->number(), 7.0);
}

TEST(TXECalculator, anErrorSetBeforehandKeepsTheEquationFromBeingComputed) {
    TXEquationController controller;
    Driver driver(controller, u"2+3");
    driver.result().setErrorMessage(u"Not today.");
    EXPECT_EQ(driver.evaluate(), driver.equation.lastResult());
    EXPECT_EQ(utf8(driver.result().errorMessage()), "Not today.");
    EXPECT_EQ(driver.result().number(), 0.0);
}

TEST(TXECalculator, theResultGivenIsTheEquationsOwn) {
    TXEquationController controller;
    for (const std::u16string_view line : {u"2+3", u"x=2+3", u"a+b", u"10^400", u"sqrt(-4)"}) {
        SCOPED_TRACE(utf8(line));
        Driver driver(controller, line);
        TXResult* const result = driver.equation.lastResult();
        EXPECT_EQ(driver.evaluate(), result);
        EXPECT_EQ(driver.equation.lastResult(), result);
    }
}

TEST(TXECalculator, anEquationThatWasNeverParsedGivesNothing) {
    TXEquationController controller;
    TXEquation equation = TXEquation::initWithEquationString(u"2+3");
    EXPECT_EQ(controller.equationCalculator().calculateEquation(equation), nullptr);
}

TEST(TXECalculator, theNumberStaysAsItWasAfterAnError) {
    TXEquationController controller;
    for (const std::u16string_view line : {u"a+1", u"10^400", u"sqrt(-4)", u"1+(0^-1)"}) {
        SCOPED_TRACE(utf8(line));
        Driver driver(controller, line);
        driver.result().setNumber(7.0);
        driver.evaluate();
        EXPECT_TRUE(driver.result().isErrorMessage());
        EXPECT_EQ(driver.result().number(), 7.0);
    }
}

TEST(TXECalculator, anErrorIsForgottenWithTheNextEquation) {
    TXEquationController controller;
    EXPECT_TRUE(controller.addOneStringBlindly(u"sqrt(-4)")->isErrorMessage());
    const TXResult* result = controller.addOneStringBlindly(u"sqrt(4)");
    EXPECT_FALSE(result->isErrorMessage());
    EXPECT_EQ(result->number(), 2.0);
}

TEST(TXECalculator, anEquationCanBeEvaluatedAgain) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"x=3");
    Driver driver(controller, u"2*(x+sqrt(4))");
    EXPECT_EQ(driver.evaluate()->number(), 10.0);
    controller.addOneStringBlindly(u"x=4");
    EXPECT_EQ(driver.evaluate()->number(), 12.0);
}

TEST(TXECalculator, theArraysLiveOnlyDuringTheCall) {
    TXEquationController controller;
    for (const std::u16string_view line : {u"2*(3+4)", u"a+(1)", u"sqrt(-4)", u"2+3"}) {
        SCOPED_TRACE(utf8(line));
        Driver driver(controller, line);
        driver.evaluate();
        EXPECT_TRUE(driver.equationBlockPositions_.empty());
        EXPECT_TRUE(driver.equationBlockValues_.empty());
        EXPECT_TRUE(driver.equationBlockStructs_.empty());
        EXPECT_TRUE(driver.TXBlockValues_.empty());
    }
}

// Steps

TEST(TXECalculator, holdsNothingAtFirst) {
    TXEquationController controller;
    const Driver driver(controller, u"2+3");
    EXPECT_EQ(driver.equationBlocks_, nullptr);
    EXPECT_EQ(driver.currentEquationResult_, nullptr);
    EXPECT_FALSE(driver.isThereAnError_);
    EXPECT_TRUE(driver.preferencesRadians_);
    EXPECT_EQ(driver.finalAnswer_, 0.0);
    EXPECT_EQ(driver.equationBlocksLength_, 0);
    EXPECT_EQ(driver.txBlocksLength_, 0);
}

TEST(TXECalculator, resetReadsTheAngleUnitAnewAndForgetsTheRest) {
    TXEquationController controller;
    Driver driver(controller, u"2+3");
    driver.prepare();
    driver.isThereAnError_ = true;
    driver.finalAnswer_ = 4.0;
    controller.setUseRadians(false);
    EXPECT_TRUE(driver.preferencesRadians_);
    driver.reset();
    EXPECT_EQ(driver.equationBlocks_, nullptr);
    EXPECT_FALSE(driver.isThereAnError_);
    EXPECT_EQ(driver.finalAnswer_, 0.0);
    EXPECT_EQ(driver.equationBlocksLength_, 0);
    EXPECT_FALSE(driver.preferencesRadians_);
    EXPECT_NE(driver.equation.leftEquationBlocks(), nullptr) << "the lists are the equation's";
}

TEST(TXECalculator, prepareForCalculationLaysTheBlocksOut) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"x=3");
    Driver driver(controller, u"2*(4+-x)-sqrt(9)");
    driver.prepare();

    EXPECT_EQ(driver.equationBlocksLength_, 3);
    EXPECT_EQ(driver.txBlocksLength_, 6);
    EXPECT_EQ(driver.equationBlockPositions_, (std::vector<TXBlockRange>{{0, 3}, {3, 2}, {5, 1}}));
    EXPECT_EQ(driver.equationBlockStructs_, (std::vector<_TXBlockInfoStruct>{{-1, -1}, {0, 1}, {0, 2}}));
    EXPECT_EQ(driver.equationBlockValues_, std::vector<double>(3, 0.0));
    ASSERT_EQ(driver.TXBlockValues_.size(), 6U);
    const std::vector<_TXBlockStruct>& blocks = driver.TXBlockValues_;
    EXPECT_EQ(blocks[0].number, 2.0);
    EXPECT_EQ(blocks[1].blockOperator, u'*');
    EXPECT_EQ(blocks[1].blockPointers.size(), 1);
    EXPECT_EQ(blocks[2].blockOperator, u'-');
    EXPECT_EQ(blocks[2].TXFunction_, 5);
    EXPECT_EQ(blocks[3].number, 4.0);
    EXPECT_EQ(blocks[4].variablePointer, 2);
    EXPECT_EQ(blocks[5].number, 9.0);
    EXPECT_FALSE(driver.isThereAnError_);
}

TEST(TXECalculator, aVariablesValueIsPutInAndTheSignStays) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"x=3");
    Driver driver(controller, u"2*-x");
    driver.prepare();
    ASSERT_EQ(driver.TXBlockValues_.size(), 2U);
    EXPECT_EQ(driver.TXBlockValues_[1].number, 3.0);
    EXPECT_TRUE(driver.TXBlockValues_[1].isNegative);
}

TEST(TXECalculator, prepareForCalculationCollectsUndefinedVariablesOfAllLists) {
    TXEquationController controller;
    Driver driver(controller, u"a+(b)");
    driver.prepare();
    EXPECT_TRUE(driver.isThereAnError_);
    EXPECT_EQ(utf8(driver.result().errorMessage()), "The equation contains undefined variables: a, b.");
}

TEST(TXECalculator, calculateFunctionsInBlockPutsInTheFunctionsOfOneList) {
    TXEquationController controller;
    Driver driver(controller, u"sqrt(9)+(sqrt(4))+7");
    driver.prepare();
    driver.equationBlockValues_[1] = 9.0;
    driver.equationBlockValues_[3] = 4.0;
    driver.calculateFunctionsInBlock(0);
    EXPECT_EQ(driver.TXBlockValues_[0].number, 3.0);
    EXPECT_EQ(driver.TXBlockValues_[2].number, 7.0);
    EXPECT_EQ(driver.equationBlockStructs_[3].parentIndex, 2);
    const auto inner = static_cast<std::size_t>(driver.equationBlockPositions_[2].start);
    EXPECT_EQ(driver.TXBlockValues_[inner].number, 0.0) << "not this list's turn";
    driver.calculateFunctionsInBlock(2);
    EXPECT_EQ(driver.TXBlockValues_[inner].number, 2.0);
}

TEST(TXECalculator, reducingLeavesTheValueOfEveryList) {
    TXEquationController controller;
    Driver driver(controller, u"2*-(3+4)-sqrt(9)");
    driver.prepare();
    static_cast<TXECalculator&>(driver).calculateEquation();
    EXPECT_EQ(driver.equationBlockValues_, (std::vector<double>{-17.0, 7.0, 9.0}));
    EXPECT_EQ(driver.TXBlockValues_[1].number, 7.0);
    EXPECT_TRUE(driver.TXBlockValues_[1].isNegative) << "the parent keeps its own sign";
}

TEST(TXECalculator, reducingStopsAtTheListWithTheError) {
    TXEquationController controller;
    Driver driver(controller, u"5+(6)+(10^400)+(7)");
    driver.prepare();
    static_cast<TXECalculator&>(driver).calculateEquation();
    EXPECT_TRUE(driver.isThereAnError_);
    EXPECT_EQ(driver.equationBlockValues_, (std::vector<double>{0.0, 0.0, 0.0, 7.0}));
}

TEST(TXECalculator, setErrorMessageGoesToTheResult) {
    TXEquationController controller;
    Driver driver(controller, u"2+3");
    driver.prepare();
    driver.setErrorMessage(u"One.");
    EXPECT_TRUE(driver.isThereAnError_);
    EXPECT_TRUE(driver.result().isErrorMessage());
    EXPECT_EQ(utf8(driver.result().errorMessage()), "One.");
    driver.setErrorMessage(u"Two.");
    EXPECT_EQ(utf8(driver.result().errorMessage()), "Two.");
}

TEST(TXECalculator, createUndefinedVariableErrorMessageNamesTheVariables) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"a+b+c");
    struct Row {
        std::vector<std::int32_t> variables;
        const char* message;
    };
    const Row rows[] = {
        {{3}, "The equation contains an undefined variable: b."},
        {{2, 4}, "The equation contains undefined variables: a, c."},
        {{2, 3, 4}, "The equation contains undefined variables: a, b, c."},
        {{1}, "The equation contains an undefined variable: ans."},
        {{-2}, "The equation contains an undefined variable: nil."},
        {{-2, 4}, "The equation contains undefined variables: nil, c."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.message);
        Driver driver(controller, u"1");
        driver.prepare();
        driver.createUndefinedVariableErrorMessage(row.variables);
        EXPECT_TRUE(driver.isThereAnError_);
        EXPECT_EQ(utf8(driver.result().errorMessage()), row.message);
    }
}

TEST(TXECalculator, logEquationBlocksHasNoVisibleEffect) {
    TXEquationController controller;
    Driver driver(controller, u"2*(3+4)");
    driver.prepare();
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    driver.logEquationBlocks();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_FALSE(driver.isThereAnError_);
    static_cast<TXECalculator&>(driver).calculateEquation();
    EXPECT_EQ(driver.equationBlockValues_[0], 14.0);
}

// The other way to hand a value up

TEST(TXECalculator, replaceBlockInParentHandsTheFirstNumberUp) {
    TXEquationController controller;
    Driver driver(controller, u"2*(4+1)");
    driver.prepare();
    driver.replaceBlockInParent(1);
    const TXBlock& parent = (*driver.equation.leftEquationBlocks())[0][1];
    EXPECT_TRUE(parent.isResult());
    EXPECT_EQ(parent.number(), 4.0);
}

TEST(TXECalculator, replaceBlockInParentTakesTheFirstNumberWithItsSign) {
    TXEquationController controller;
    Driver driver(controller, u"2*-(4+1)");
    driver.prepare();
    driver.equation.leftEquationBlocks()->block(1, 0).setNegative(true);
    driver.replaceBlockInParent(1);
    EXPECT_EQ((*driver.equation.leftEquationBlocks())[0][1].number(), 4.0) << "the parent is negative as well";
    EXPECT_EQ((*driver.equation.leftEquationBlocks())[0][1].blockStruct().number, 0.0);
}

TEST(TXECalculator, replaceBlockInParentLeavesFunctionsAndTheTopLevelAlone) {
    TXEquationController controller;
    Driver driver(controller, u"2+sqrt(9)");
    driver.prepare();
    driver.replaceBlockInParent(0);
    driver.replaceBlockInParent(1);
    for (const TXBlock& block : (*driver.equation.leftEquationBlocks())[0]) EXPECT_FALSE(block.isResult());
}

TEST(TXECalculator, replaceBlockInParentLeavesAloneWhatHasNothingToHandUp) {
    TXEquationController controller;
    for (const bool isEmpty : {true, false}) {
        SCOPED_TRACE(isEmpty);
        std::vector<PlacedBlock> blocks;
        blocks.push_back({TXBlock::initWithNumber(2, u'\0'), 0});
        if (!isEmpty) blocks.push_back({TXBlock::initWithNumber(3, u'\0'), 1});
        std::array<TXBlockInfo, 2> info;
        info[0].setBlockRange({.start = 0, .length = 1});
        info[1].setBlockRange({.start = 0, .length = isEmpty ? 0 : 1});
        // The list without a block has a parent, and the list with one has none.
        if (isEmpty) info[1].setParentBlockInfoStruct({.parentIndex = 0, .parentSubIndex = 0});
        Driver driver(controller, u"1");
        driver.equation.setLeftEquationBlocks(TXBlockLists(blocks, info));
        driver.prepare();
        driver.replaceBlockInParent(1);
        EXPECT_FALSE((*driver.equation.leftEquationBlocks())[0][0].isResult());
    }
}

TEST(TXECalculator, replaceBlockInParentReachesEveryList) {
    TXEquationController controller;
    Driver driver(controller, u"(2)+(7)");
    driver.prepare();
    driver.replaceBlockInParent(2);
    EXPECT_FALSE((*driver.equation.leftEquationBlocks())[0][0].isResult());
    EXPECT_EQ((*driver.equation.leftEquationBlocks())[0][1].number(), 7.0);
}

TEST(TXECalculator, theDriverDoesNotUseReplaceBlockInParent) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"2*(4+1)");
    const TXBlockLists& lists = *controller.equationsArray().back().leftEquationBlocks();
    for (std::int32_t list = 0; list < lists.size(); ++list) {
        for (const TXBlock& block : lists[list]) EXPECT_FALSE(block.isResult());
    }
}

// Size

TEST(TXECalculator, manyUndefinedVariablesAreNamedEachOnce) {
    constexpr int count = 20'000;
    std::u16string line;
    std::string names;
    for (int number = 0; number < count; ++number) {
        const std::string name = "v" + std::to_string(number);
        line += (number == 0 ? u"" : u"+") + std::u16string(name.begin(), name.end());
        names += (number == 0 ? "" : ", ") + name;
    }
    TXEquationController controller;
    const TXResult* result = controller.addOneStringBlindly(line + u"+" + line);
    EXPECT_EQ(utf8(result->errorMessage()), "The equation contains undefined variables: " + names + ".");
}

TEST(TXECalculator, depthIsNoDanger) {
    constexpr std::size_t depth = 200'000;
    const std::u16string open(depth, u'(');
    const std::u16string close(depth, u')');
    TXEquationController controller;
    EXPECT_EQ(controller.addOneStringBlindly(open + u"7" + close)->number(), 7.0);
    EXPECT_EQ(controller.addOneStringBlindly(u"-" + open + u"7" + close)->number(), -7.0);
}

TEST(CalculatorSteps, withoutAnEquationDoNothing) {
    TXEquationController controller;
    TXECalculator& calculator = controller.equationCalculator();
    for (std::int32_t round = 0; round < 2; ++round) {
        calculator.prepareForCalculation();
        calculator.calculateEquation();
        calculator.calculateFunctionsInBlock(0);
        calculator.calculateMDASInBlock(0);
        calculator.replaceBlockInParent(1);
        EXPECT_EQ(calculator.calculateExponentsFromIndex(0, 0), 0.0);
        EXPECT_EQ(calculator.calculateExponentsFromIndex(-1, 2), 0.0);
        controller.addOneStringBlindly(u"(2+3)^2");
        calculator.calculateEquation();
        calculator.calculateMDASInBlock(7);
        controller.clearAll();
    }
    EXPECT_EQ(controller.addOneStringBlindly(u"(2+3)^2")->number(), 25.0);
}

}  // namespace
