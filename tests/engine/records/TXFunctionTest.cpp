#include "engine/records/TXFunction.h"

#include <gtest/gtest.h>

namespace {

TEST(TXFunction, aNewOneIsTheFirstOfTheBuiltInOnes) {
    EXPECT_EQ(TXFunction().functionType(), 0);
    EXPECT_EQ(TXFunction().functionIndex(), 0);
}

TEST(TXFunction, keepsTypeAndIndex) {
    TXFunction function = TXFunction::initWithFunctionType(1, 20);
    EXPECT_EQ(function.functionType(), 1);
    EXPECT_EQ(function.functionIndex(), 20);
    function.setFunctionType(0);
    function.setFunctionIndex(-1);
    EXPECT_EQ(function.functionType(), 0);
    EXPECT_EQ(function.functionIndex(), -1);
}

}  // namespace
