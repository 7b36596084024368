// Single steps of the controller, called with what no line gives them.

#include "engine/controller/TXEquationController.h"

#include <cstdint>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

TEST(TXEquationControllerSteps, aVariableThatDoesNotExistReservesNoNumber) {
    TXEquationController controller;
    for (const std::int32_t position : {-2, -1, 2, 1000}) {
        controller.addNumbertoAutoIncrementBlacklistIfNecessary(position);
        EXPECT_TRUE(controller.currentAnswerCacheNumberBlacklist().empty()) << position;
    }
}

TEST(TXEquationControllerSteps, aListEmptiedFromOutsideTakesAnswersAgain) {
    TXEquationController controller;
    controller.variableArray().clear();
    EXPECT_EQ(controller.addOneStringBlindly(u"2+3")->number(), 5.0);
    ASSERT_EQ(controller.variableArray().size(), 1);
    EXPECT_EQ(utf8(controller.variableArray()[0].variableName()), "ans1");
    EXPECT_EQ(controller.variableArray()[0].number(), 5.0);
    EXPECT_EQ(controller.lastVariableAssignedIndex(), 0);
    EXPECT_EQ(controller.addOneStringBlindly(u"ans*2")->number(), 10.0);
}

}  // namespace
