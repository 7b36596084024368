#include "engine/records/TXBlock.h"

#include <ostream>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

TEST(TXBlock, aFreshOneHoldsNothing) {
    const TXBlock block;
    EXPECT_EQ(block.number(), 0.0);
    EXPECT_FALSE(block.isNumber());
    EXPECT_EQ(block.blockOperator(), u'\0');
    EXPECT_FALSE(block.isNegative());
    EXPECT_EQ(block.functionID(), -1);
    EXPECT_EQ(block.variableID(), -1);
    EXPECT_TRUE(block.blockPointers().empty());
    EXPECT_EQ(block.numberOfElements(), 0);
    EXPECT_FALSE(block.isMatrix());
    EXPECT_EQ(block.rows(), 0);
    EXPECT_FALSE(block.isResult());
    EXPECT_EQ(block.tolerance(), (_TXTolerance{0.0, 0.0}));
    EXPECT_FALSE(block.hasTolerance());
    EXPECT_FALSE(block.toleranceIsUserDefined());
    EXPECT_EQ(block.plusTolerance(), 0.0);
    EXPECT_EQ(block.minusTolerance(), 0.0);
}

TEST(TXBlock, initWithNumberMakesANumberBlock) {
    const TXBlock block = TXBlock::initWithNumber(2.5, u'*');
    EXPECT_EQ(block.number(), 2.5);
    EXPECT_TRUE(block.isNumber());
    EXPECT_EQ(block.blockOperator(), u'*');
    EXPECT_EQ(block.variableID(), -1);
    EXPECT_EQ(block.functionID(), -1);
}

TEST(TXBlock, initWithVariableIsNoNumberBlock) {
    const TXBlock block = TXBlock::initWithVariable(7, u'-');
    EXPECT_EQ(block.variableID(), 7);
    EXPECT_EQ(block.blockOperator(), u'-');
    EXPECT_FALSE(block.isNumber());
    EXPECT_FALSE(block.isNegative());
    EXPECT_EQ(block.number(), 0.0);
    EXPECT_EQ(block.functionID(), -1);
}

TEST(TXBlock, setNumberMakesANumberBlock) {
    TXBlock block;
    block.setNumber(0.0);
    EXPECT_TRUE(block.isNumber());
}

TEST(TXBlock, whatIsKeptAsideIsZeroUntilItIsSet) {
    TXBlock block;
    block.setRows(2);
    EXPECT_EQ(block.plusTolerance(), 0.0);
    EXPECT_EQ(block.minusTolerance(), 0.0);
    EXPECT_EQ(block.tolerance(), _TXTolerance{});
    block.setPlusTolerance(1.5);
    EXPECT_EQ(block.minusTolerance(), 0.0);
    EXPECT_EQ(block.rows(), 2);
    block.setIsResult(true);
    EXPECT_EQ(block.number(), 0.0);

    TXBlock other;
    other.setTolerance({.plusTol = 0.5, .minusTol = 0.25});
    EXPECT_EQ(other.rows(), 0);
}

TEST(TXBlock, everyAccessorReadsWhatWasWritten) {
    TXBlock block;
    block.setBlockOperator(u'^');
    EXPECT_EQ(block.blockOperator(), u'^');
    block.setVariableID(-2);
    EXPECT_EQ(block.variableID(), -2);
    block.setFunctionID(21);
    EXPECT_EQ(block.functionID(), 21);
    block.setNegative(true);
    EXPECT_TRUE(block.isNegative());
    block.setIsMatrix(true);
    EXPECT_TRUE(block.isMatrix());
    block.setRows(3);
    EXPECT_EQ(block.rows(), 3);
    block.setTolerance({.plusTol = 0.25, .minusTol = 0.5});
    EXPECT_EQ(block.tolerance().plusTol, 0.25);
    EXPECT_EQ(block.tolerance().minusTol, 0.5);
    block.setPlusTolerance(1.5);
    EXPECT_EQ(block.plusTolerance(), 1.5);
    block.setMinusTolerance(2.5);
    EXPECT_EQ(block.minusTolerance(), 2.5);
    EXPECT_EQ(block.tolerance(), (_TXTolerance{0.25, 0.5}));
}

TEST(TXBlock, setHasToleranceSetsTheFlagAlone) {
    TXBlock block;
    block.setHasTolerance(true);
    EXPECT_TRUE(block.hasTolerance());
    EXPECT_FALSE(block.toleranceIsUserDefined());
    block.setHasTolerance(false);
    EXPECT_FALSE(block.hasTolerance());
}

TEST(TXBlock, setToleranceDoesNotAttachIt) {
    TXBlock block;
    block.setTolerance({.plusTol = 0.25, .minusTol = 0.5});
    EXPECT_FALSE(block.hasTolerance());
    EXPECT_FALSE(block.toleranceIsUserDefined());
}

// The value of an operand

struct EffectiveNumberCase {
    const char* name;
    double literal;
    bool isNegative;
    bool hasResult;
    double result;
    double number;
};
void PrintTo(const EffectiveNumberCase& row, std::ostream* out) { *out << row.literal << ", result " << row.result; }
class TXBlockEffectiveNumber : public testing::TestWithParam<EffectiveNumberCase> {};

TEST_P(TXBlockEffectiveNumber, isTheSignedResultOrElseTheSignedLiteral) {
    TXBlock block;
    block.setNumber(GetParam().literal);
    block.setNegative(GetParam().isNegative);
    if (GetParam().hasResult) block.setResultNumber(GetParam().result);
    EXPECT_EQ(block.number(), GetParam().number);
    EXPECT_EQ(block.isResult(), GetParam().hasResult);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Signs, TXBlockEffectiveNumber, testing::Values(
    //                  name                    literal  neg.   result?  result  number
    EffectiveNumberCase{"Literal",                5.0,   false, false,    0.0,    5.0},
    EffectiveNumberCase{"NegativeLiteral",        5.0,   true,  false,    0.0,   -5.0},
    EffectiveNumberCase{"Result",                 5.0,   false, true,     2.0,    2.0},
    EffectiveNumberCase{"NegativeResult",         5.0,   true,  true,     2.0,   -2.0},
    EffectiveNumberCase{"ResultBelowZeroNegated", 5.0,   true,  true,    -2.0,    2.0},
    EffectiveNumberCase{"ZeroIsAResultToo",       5.0,   false, true,     0.0,    0.0}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(TXBlock, theStoredLiteralIsNeverNegated) {
    TXBlock block = TXBlock::initWithNumber(5.0, u'\0');
    block.setNegative(true);
    EXPECT_EQ(block.number(), -5.0);
    EXPECT_EQ(block.blockStruct().number, 5.0);
    block.setNegative(false);
    EXPECT_EQ(block.number(), 5.0);
}

TEST(TXBlock, setIsResultSetsTheFlagAlone) {
    TXBlock block = TXBlock::initWithNumber(5.0, u'\0');
    block.setIsResult(true);
    EXPECT_TRUE(block.isResult());
    EXPECT_EQ(block.number(), 0.0) << "no result was stored yet";
    block.setResultNumber(2.0);
    block.setIsResult(false);
    EXPECT_EQ(block.number(), 5.0);
    block.setIsResult(true);
    EXPECT_EQ(block.number(), 2.0) << "the flag does not forget the result";
}

// Tolerances

TEST(TXBlock, aUserDefinedToleranceIsAttached) {
    TXBlock block;
    block.setToleranceIsUserDefined(true);
    EXPECT_TRUE(block.toleranceIsUserDefined());
    EXPECT_TRUE(block.hasTolerance());
}

TEST(TXBlock, turningTheUserFlagOffRemovesTheTolerance) {
    TXBlock block;
    block.setTolerance({.plusTol = 0.1, .minusTol = 0.2});
    block.setHasTolerance(true);
    block.setToleranceIsUserDefined(false);
    EXPECT_FALSE(block.toleranceIsUserDefined());
    EXPECT_FALSE(block.hasTolerance());
}

TEST(TXBlock, aToleranceCanBeTakenBackAndGivenAgain) {
    TXBlock block;
    for (const bool isUserDefined : {true, false, true}) {
        block.setToleranceIsUserDefined(isUserDefined);
        EXPECT_EQ(block.hasTolerance(), isUserDefined);
    }
}

// Starting over

TEST(TXBlock, setInitialValuesMakesItFresh) {
    TXBlock block = TXBlock::initWithNumber(5.0, u'*');
    block.setNegative(true);
    block.setFunctionID(2);
    block.setVariableID(3);
    block.addBlockPointer(1);
    block.addBlockPointer(2);
    block.setIsMatrix(true);
    block.setRows(2);
    block.setResultNumber(7.0);
    block.setTolerance({.plusTol = 0.1, .minusTol = 0.2});
    block.setToleranceIsUserDefined(true);

    block.setInitialValues();

    EXPECT_EQ(block.number(), 0.0);
    EXPECT_FALSE(block.isNumber());
    EXPECT_EQ(block.blockOperator(), u'\0');
    EXPECT_FALSE(block.isNegative());
    EXPECT_EQ(block.functionID(), -1);
    EXPECT_EQ(block.variableID(), -1);
    EXPECT_EQ(block.numberOfElements(), 0);
    EXPECT_FALSE(block.isMatrix());
    EXPECT_EQ(block.rows(), 0);
    EXPECT_FALSE(block.isResult());
    EXPECT_EQ(block.tolerance(), _TXTolerance{});
    EXPECT_FALSE(block.hasTolerance());
    EXPECT_FALSE(block.toleranceIsUserDefined());
    block.setIsResult(true);
    EXPECT_EQ(block.number(), 0.0) << "the old result is gone as well";
}

TEST(TXBlock, setInitialValuesLeavesTheSecondTolerancesAsTheyAre) {
    TXBlock block;
    block.setPlusTolerance(1.5);
    block.setMinusTolerance(2.5);
    block.setTolerance({.plusTol = 0.1, .minusTol = 0.2});
    block.setInitialValues();
    EXPECT_EQ(block.plusTolerance(), 1.5);
    EXPECT_EQ(block.minusTolerance(), 2.5);
    EXPECT_EQ(block.tolerance(), _TXTolerance{});
}

// Links

TEST(TXBlock, bothWaysOfAddingALinkAreTheSame) {
    TXBlock group;
    group.addBlockPointer(4);
    TXBlock matrix;
    matrix.addMatrixElementPointer(4);
    for (const TXBlock* block : {&group, &matrix}) {
        ASSERT_EQ(block->numberOfElements(), 1);
        EXPECT_EQ(block->blockPointers()[0].blockPointerID(), 4);
        EXPECT_FALSE(block->blockPointers()[0].title());
    }
}

TEST(TXBlock, linksKeepTheirOrder) {
    TXBlock block;
    for (std::int32_t id = 9; id > 3; --id) {
        block.addBlockPointer(id);
        EXPECT_EQ(block.numberOfElements(), 10 - id);
    }
    ASSERT_EQ(block.blockPointers().size(), 6);
    for (std::int32_t index = 0; index < 6; ++index) {
        EXPECT_EQ(block.blockPointers()[index].blockPointerID(), 9 - index);
        EXPECT_EQ(block.blockPointers().blockPointerIDAt(index), 9 - index);
    }
}

TEST(TXBlock, linksGoAlongWhenTheBlockMoves) {
    for (const std::int32_t links : {1, 3}) {
        TXBlock block;
        for (std::int32_t id = 1; id <= links; ++id) block.addBlockPointer(id);
        std::vector<TXBlock> list;
        list.push_back(std::move(block));
        list.reserve(list.capacity() + 1);  // moves it once more
        ASSERT_EQ(list.front().numberOfElements(), links);
        EXPECT_EQ(list.front().blockPointers()[links - 1].blockPointerID(), links);
    }
}

struct ColumnsCase {
    const char* name;
    std::int32_t elements;
    std::int32_t rows;
    std::int32_t columns;
};
void PrintTo(const ColumnsCase& row, std::ostream* out) {
    *out << row.elements << " elements in " << row.rows << " rows";
}
class TXBlockColumns : public testing::TestWithParam<ColumnsCase> {};

TEST_P(TXBlockColumns, areElementsByRows) {
    TXBlock block;
    block.setIsMatrix(true);
    block.setRows(GetParam().rows);
    for (std::int32_t element = 0; element < GetParam().elements; ++element) block.addMatrixElementPointer(element + 1);
    EXPECT_EQ(block.columns(), GetParam().columns);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Shapes, TXBlockColumns, testing::Values(
    //          name             elements rows columns
    ColumnsCase{"TwoByThree",          6,   2,  3},
    ColumnsCase{"OneByOne",            1,   1,  1},
    ColumnsCase{"NoElements",          0,   2,  0},
    ColumnsCase{"NoRows",              6,   0,  0},
    ColumnsCase{"RestIsCutOff",        7,   2,  3},
    ColumnsCase{"FewerThanRows",       1,   2,  0}
), [](const auto& test) { return test.param.name; });
// clang-format on

// Snapshots

TEST(TXBlockStruct, aFreshOneCallsNothing) {
    const _TXBlockStruct snapshot;
    EXPECT_EQ(snapshot.blockOperator, u'\0');
    EXPECT_EQ(snapshot.number, 0.0);
    EXPECT_EQ(snapshot.TXFunction_, -1);
    EXPECT_EQ(snapshot.variablePointer, -1);
    EXPECT_TRUE(snapshot.blockPointers.empty());
    EXPECT_FALSE(snapshot.isNegative);
    EXPECT_FALSE(snapshot.isMatrix);
    EXPECT_EQ(snapshot.rows, 0);
    EXPECT_EQ(snapshot.columns, 0);
}

TEST(TXBlock, blockStructTakesEveryField) {
    TXBlock block = TXBlock::initWithNumber(5.0, u'/');
    block.setFunctionID(20);
    block.setVariableID(6);
    block.setNegative(true);
    block.addBlockPointer(1);
    block.addBlockPointer(2);
    const _TXBlockStruct snapshot = block.blockStruct();
    EXPECT_EQ(snapshot.blockOperator, u'/');
    EXPECT_EQ(snapshot.number, 5.0);
    EXPECT_EQ(snapshot.TXFunction_, 20);
    EXPECT_EQ(snapshot.variablePointer, 6);
    EXPECT_TRUE(snapshot.isNegative);
    EXPECT_FALSE(snapshot.isMatrix);
    ASSERT_EQ(snapshot.blockPointers.size(), 2);
    EXPECT_EQ(snapshot.blockPointers[0].blockPointerID(), 1);
    EXPECT_EQ(snapshot.blockPointers[1].blockPointerID(), 2);
}

TEST(TXBlock, blockStructTakesTheLiteralAndNotTheResult) {
    TXBlock block = TXBlock::initWithNumber(5.0, u'\0');
    block.setNegative(true);
    block.setResultNumber(2.0);
    EXPECT_EQ(block.number(), -2.0);
    EXPECT_EQ(block.blockStruct().number, 5.0);
    EXPECT_TRUE(block.blockStruct().isNegative);
}

TEST(TXBlock, blockStructNeverComputesColumns) {
    TXBlock block;
    block.setIsMatrix(true);
    block.setRows(2);
    for (std::int32_t element = 1; element <= 6; ++element) block.addMatrixElementPointer(element);
    EXPECT_EQ(block.columns(), 3);
    EXPECT_EQ(block.blockStruct().columns, 0);
    EXPECT_EQ(block.blockStruct().rows, 2);
    EXPECT_TRUE(block.blockStruct().isMatrix);
}

// Descriptions

struct BlockDescriptionCase {
    const char* name;
    TXBlock (*make)();
    std::u16string_view text;
};
void PrintTo(const BlockDescriptionCase& row, std::ostream* out) { *out << utf8(row.text); }
class TXBlockDescription : public testing::TestWithParam<BlockDescriptionCase> {};

TXBlock negated(TXBlock block) {
    block.setNegative(true);
    return block;
}

TXBlock linked(TXBlock block, std::int32_t links) {
    for (std::int32_t id = 1; id <= links; ++id) block.addBlockPointer(id);
    return block;
}

TXBlock calling(std::int32_t functionID, TXBlock block) {
    block.setFunctionID(functionID);
    return block;
}

TXBlock tolerating(_TXTolerance tolerance, TXBlock block) {
    block.setTolerance(tolerance);
    block.setHasTolerance(true);
    return block;
}

TXBlock number(double value) { return TXBlock::initWithNumber(value, u'\0'); }

TXBlock reduced(double result, TXBlock block) {
    block.setResultNumber(result);
    return block;
}

TEST_P(TXBlockDescription, isOneLine) { EXPECT_EQ(utf8(GetParam().make().description()), utf8(GetParam().text)); }

// clang-format off
INSTANTIATE_TEST_SUITE_P(Blocks, TXBlockDescription, testing::Values(
    BlockDescriptionCase{"Fresh", [] { return TXBlock(); }, u"0.000000"},
    BlockDescriptionCase{"SixPlaces", [] { return number(2.5); }, u"2.500000"},
    BlockDescriptionCase{"OperatorAndOneBlank", [] { return TXBlock::initWithNumber(3, u'^'); }, u"^ 3.000000"},
    BlockDescriptionCase{"OperatorBeyondAscii", [] { return TXBlock::initWithNumber(3, u'\u22C5'); }, u"\u22C5 3.000000"},
    BlockDescriptionCase{"Negative", [] { return negated(number(3)); }, u"-3.000000"},
    BlockDescriptionCase{"OperatorThenSign", [] { return negated(TXBlock::initWithNumber(3, u'*')); }, u"* -3.000000"},
    BlockDescriptionCase{"StoredNumberAndNotTheResult", [] { return reduced(7, number(3)); }, u"3.000000"},
    BlockDescriptionCase{"Variable", [] { return TXBlock::initWithVariable(4, u'+'); }, u"+ (TXVariablePointer=4)"},
    BlockDescriptionCase{"NegativeVariable", [] { return negated(TXBlock::initWithVariable(4, u'\0')); }, u"-(TXVariablePointer=4)"},
    BlockDescriptionCase{"UndefinedValue", [] { return TXBlock::initWithVariable(-2, u'\0'); }, u"(TXVariablePointer=-2)"},
    BlockDescriptionCase{"Group", [] { return linked(TXBlock(), 1); }, u"(blockPointers=(BlockPointer: id=1, title=(no title)))"},
    BlockDescriptionCase{"SeveralLinks", [] { return linked(TXBlock(), 2); },
        u"(blockPointers=(BlockPointer: id=1, title=(no title), BlockPointer: id=2, title=(no title)))"},
    BlockDescriptionCase{"LinksComeBeforeAVariable", [] { return linked(TXBlock::initWithVariable(4, u'\0'), 1); },
        u"(blockPointers=(BlockPointer: id=1, title=(no title)))"},
    BlockDescriptionCase{"FunctionEndsWithABlank", [] { return linked(calling(5, TXBlock()), 1); },
        u"(Function=5, Pointers=(BlockPointer: id=1, title=(no title))) "},
    BlockDescriptionCase{"FunctionComesBeforeAVariable", [] { return linked(calling(0, TXBlock::initWithVariable(4, u'-')), 1); },
        u"- (Function=0, Pointers=(BlockPointer: id=1, title=(no title))) "},
    BlockDescriptionCase{"EqualTolerancesOnce", [] { return tolerating({0.5, 0.5}, number(3)); }, u"3.000000 ±0.500000"},
    BlockDescriptionCase{"DifferentTolerancesPlusFirst", [] { return tolerating({0.5, 0.25}, number(3)); },
        u"3.000000 ±0.500000|0.250000"},
    BlockDescriptionCase{"ToleranceAfterAFunction", [] { return tolerating({1, 1}, linked(calling(5, TXBlock()), 1)); },
        u"(Function=5, Pointers=(BlockPointer: id=1, title=(no title)))  ±1.000000"},
    BlockDescriptionCase{"EverythingAtOnce", [] { return tolerating({1, 2}, negated(TXBlock::initWithVariable(0, u'/'))); },
        u"/ -(TXVariablePointer=0) ±1.000000|2.000000"}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(TXBlock, aToleranceThatIsNotAttachedIsNotDescribed) {
    TXBlock block = TXBlock::initWithNumber(3, u'\0');
    block.setTolerance({.plusTol = 0.5, .minusTol = 0.5});
    EXPECT_EQ(utf8(block.description()), "3.000000");
}

}  // namespace
