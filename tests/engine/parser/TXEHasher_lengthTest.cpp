// Lines that are too long to be read.

#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "engine/controller/TXEquationController.h"
#include "tests/support/text.h"

namespace {

TEST(LongLines, areRefusedPastTheLongest) {
    constexpr std::size_t longest = std::size_t{1} << 27U;
    TXEquation equation = TXEquation::initWithEquationString(std::u16string(longest + 1, u'1'));
    TXEquationController controller;
    const TXResult* result = controller.equationHasher().hashEquation(equation);
    EXPECT_EQ(utf8(result->errorMessage()), "Parsing error. Please report this bug with the equation.");
    EXPECT_EQ(equation.masterString().size(), longest + 1);
    EXPECT_EQ(equation.leftEquationBlocks(), nullptr);
}

}  // namespace
