// Single steps of the evaluator, called with what no line gives them.

#include "engine/calculator/TXECalculator.h"

#include <cstdint>
#include <utility>

#include <gtest/gtest.h>

#include "engine/controller/TXEquationController.h"
#include "engine/parser/TXBlockListsBuilder.h"

namespace {

/// An evaluator with any block lists before it, ready to reduce them.
class OpenCalculator : public TXECalculator {
public:
    explicit OpenCalculator(TXEquationController& controller) : TXECalculator(controller) {}
    OpenCalculator(TXEquationController& controller, TXBlockLists& lists) : TXECalculator(controller) {
        equationBlocks_ = &lists;
        prepareForCalculation();
    }

    using TXECalculator::isThereAnError_;
};

/// 5 as the top level, and a list that hangs nowhere, with a 7 in it or empty.
TXBlockLists withStrayList(bool isEmpty) {
    TXBlockListsBuilder builder;
    builder.begin();
    builder.workingBlock().setNumber(5.0);
    builder.append(0);
    const std::int32_t stray = builder.openList();
    if (!isEmpty) {
        builder.workingBlock().setNumber(7.0);
        builder.append(stray);
    }
    return builder.finish();
}

TEST(TXECalculatorSteps, anEquationWithoutListsIsZero) {
    TXEquationController controller;
    TXEquation equation = TXEquation::initWithEquationString(u"5");
    equation.setLastResult(TXResult::initWithIsHashed(true));
    const TXResult* result = controller.equationCalculator().calculateEquation(equation);
    ASSERT_EQ(result, equation.lastResult());
    EXPECT_FALSE(result->isErrorMessage());
    EXPECT_EQ(result->number(), 0.0);
}

TEST(TXECalculatorSteps, aListThatHangsNowhereIsHandedToNobody) {
    TXEquationController controller;
    for (const bool isEmpty : {true, false}) {
        TXBlockLists lists = withStrayList(isEmpty);
        OpenCalculator calculator(controller, lists);
        for (const std::int32_t list : {-1, 0, 1, 2}) calculator.replaceBlockInParent(list);
        EXPECT_FALSE(std::as_const(lists)[0][0].isResult()) << isEmpty;
    }
}

TEST(TXECalculatorSteps, listsThatDoNotExistAreLeftAlone) {
    TXEquationController controller;
    TXBlockLists lists = withStrayList(true);
    OpenCalculator calculator(controller, lists);
    for (const std::int32_t list : {-1, 2, 1000}) {
        calculator.calculateFunctionsInBlock(list);
        calculator.calculateMDASInBlock(list);
    }
    EXPECT_FALSE(calculator.isThereAnError_);
}

TEST(TXECalculatorSteps, powersOfNoBlocksAreZero) {
    TXEquationController controller;
    TXBlockLists lists = withStrayList(false);
    OpenCalculator calculator(controller, lists);
    EXPECT_EQ(calculator.calculateExponentsFromIndex(1, 0), 0.0);
    EXPECT_EQ(calculator.calculateExponentsFromIndex(0, 2), 0.0);
    EXPECT_EQ(calculator.calculateExponentsFromIndex(0, 1), 78125.0) << "5^7";
}

TEST(TXECalculatorSteps, aMessageWithoutAnEquationIsDropped) {
    TXEquationController controller;
    OpenCalculator calculator(controller);
    calculator.setErrorMessage(u"It went wrong.");
    EXPECT_TRUE(calculator.isThereAnError_);
    controller.equationCalculator().setErrorMessage(u"It went wrong.");
    EXPECT_FALSE(controller.addOneStringBlindly(u"2+3")->isErrorMessage());
}

}  // namespace
