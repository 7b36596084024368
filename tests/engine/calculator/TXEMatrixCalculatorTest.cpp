#include "engine/calculator/TXEMatrixCalculator.h"

#include <gtest/gtest.h>

#include "engine/controller/TXEquationController.h"

namespace {

TEST(TXEMatrixCalculator, keepsItsController) {
    TXEquationController controller;
    const TXEMatrixCalculator calculator(controller);
    EXPECT_EQ(&calculator.equationController(), &controller);
}

TEST(TXEMatrixCalculator, everyOperationGivesNothing) {
    TXEquationController controller;
    const TXEMatrixCalculator calculator(controller);
    TXMatrix square;
    square.setRows(2);
    square.setColumns(2);
    for (const char16_t operation : {u'+', u'-', u'*', u'/', u'^', u'\0'}) {
        EXPECT_FALSE(calculator.calculateOperation(operation, square, square));
        EXPECT_FALSE(calculator.calculateOperation(operation, TXMatrix(), TXMatrix()));
    }
}

}  // namespace
