#include "engine/records/TXEquation.h"

#include <array>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

TXBlockLists oneNumber(double number) {
    std::array blocks = {PlacedBlock{TXBlock::initWithNumber(number, u'\0'), 0}};
    std::array info = {TXBlockInfo()};
    info[0].setBlockRange({.start = 0, .length = 1});
    info[0].setIsDynamic(true);
    return {blocks, info};
}

TEST(TXEquation, aFreshOneHasOnlyItsText) {
    const TXEquation equation = TXEquation::initWithEquationString(u"2+3");
    EXPECT_EQ(utf8(equation.masterString()), "2+3");
    EXPECT_EQ(equation.lastResult(), nullptr);
    EXPECT_EQ(equation.leftEquationBlocks(), nullptr);
    EXPECT_FALSE(equation.leftEquationBlockInfo());
    EXPECT_EQ(equation.rightEquationBlocks(), nullptr);
    EXPECT_FALSE(equation.rightEquationBlockInfo());
    EXPECT_EQ(equation.scope(), 0);
    EXPECT_EQ(equation.equationIndex(), 0);
}

TEST(TXEquation, everyAccessorReadsWhatWasWritten) {
    TXEquation equation = TXEquation::initWithEquationString(u"2+3");
    equation.setMasterString(u"ans1*2");
    EXPECT_EQ(utf8(equation.masterString()), "ans1*2");
    equation.setScope(3);
    EXPECT_EQ(equation.scope(), 3);
    equation.setEquationIndex(4);
    EXPECT_EQ(equation.equationIndex(), 4);
}

TEST(TXEquation, theResultLivesInTheEquation) {
    TXEquation equation = TXEquation::initWithEquationString(u"2+3");
    equation.setLastResult(TXResult::initWithNumber(5.0));
    ASSERT_NE(equation.lastResult(), nullptr);
    equation.lastResult()->setNumber(6.0);
    EXPECT_EQ(std::as_const(equation).lastResult()->number(), 6.0);
    EXPECT_EQ(equation.lastResult(), std::as_const(equation).lastResult());
    equation.setLastResult(std::nullopt);
    EXPECT_EQ(equation.lastResult(), nullptr);
}

TEST(TXEquation, beginResultPutsAFreshResultInPlace) {
    TXEquation equation = TXEquation::initWithEquationString(u"2+3");
    equation.setLastResult(TXResult::initWithErrorMessage(u"old"));
    TXResult& result = equation.beginResult();
    EXPECT_EQ(&result, equation.lastResult());
    EXPECT_FALSE(result.isErrorMessage());
    EXPECT_EQ(result.variableToAssign(), -1);
}

TEST(TXEquation, theSidesAreKeptApart) {
    TXEquation equation = TXEquation::initWithEquationString(u"x=3");
    equation.setRightEquationBlocks(oneNumber(3.0));
    EXPECT_EQ(equation.leftEquationBlocks(), nullptr);
    EXPECT_FALSE(equation.leftEquationBlockInfo());
    ASSERT_NE(equation.rightEquationBlocks(), nullptr);
    EXPECT_EQ((*equation.rightEquationBlocks())[0][0].number(), 3.0);

    equation.setLeftEquationBlocks(oneNumber(4.0));
    ASSERT_NE(equation.leftEquationBlocks(), nullptr);
    EXPECT_EQ((*std::as_const(equation).leftEquationBlocks())[0][0].number(), 4.0);
    EXPECT_EQ((*std::as_const(equation).rightEquationBlocks())[0][0].number(), 3.0);
}

TEST(TXEquation, theInformationComesAndGoesWithTheLists) {
    TXEquation equation = TXEquation::initWithEquationString(u"x=3");
    equation.setLeftEquationBlocks(oneNumber(1.0));
    equation.setRightEquationBlocks(oneNumber(2.0));
    ASSERT_TRUE(equation.leftEquationBlockInfo());
    ASSERT_TRUE(equation.rightEquationBlockInfo());
    EXPECT_EQ(equation.leftEquationBlockInfo()->size(), 1U);
    EXPECT_TRUE(equation.rightEquationBlockInfo()->front().isDynamic());

    equation.setLeftEquationBlocks({});
    equation.setRightEquationBlocks({});
    EXPECT_EQ(equation.leftEquationBlocks(), nullptr);
    EXPECT_FALSE(equation.leftEquationBlockInfo());
    EXPECT_EQ(equation.rightEquationBlocks(), nullptr);
    EXPECT_FALSE(equation.rightEquationBlockInfo());
}

TEST(TXEquation, theDescriptionShowsTheText) {
    TXEquation equation = TXEquation::initWithEquationString(u"5±0.1%@");
    const std::string start = "TXEquation (" + testing::PrintToString(static_cast<const void*>(&equation)) + "): ";
    EXPECT_EQ(utf8(equation.description()), start + "5±0.1%@");
    equation.setMasterString(u"");
    EXPECT_EQ(utf8(equation.description()), start);
}

}  // namespace
