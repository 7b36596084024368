#include "engine/records/TXBlockLists.h"

#include <array>
#include <utility>

#include <gtest/gtest.h>

namespace {

TXBlockInfo infoWithLength(std::int32_t length, _TXBlockInfoStruct parent = {}) {
    TXBlockInfo info;
    info.setBlockRange({.start = 0, .length = length});
    info.setParentBlockInfoStruct(parent);
    return info;
}

// 2*(3+4)-5, the blocks in the order in which they are read.
TXBlockLists nestedLists() {
    std::array<PlacedBlock, 5> blocks = {{{TXBlock::initWithNumber(2, u'\0'), 0},
                                          {TXBlock(), 0},
                                          {TXBlock::initWithNumber(3, u'\0'), 1},
                                          {TXBlock::initWithNumber(4, u'+'), 1},
                                          {TXBlock::initWithNumber(5, u'-'), 0}}};
    blocks[1].block.setBlockOperator(u'*');
    blocks[1].block.addBlockPointer(1);
    blocks[4].block.setTolerance({.plusTol = 0.5, .minusTol = 0.25});
    const std::array info = {infoWithLength(3), infoWithLength(2, {0, 1})};
    return {blocks, info};
}

TEST(TXBlockLists, isEmptyAtFirst) {
    const TXBlockLists lists;
    EXPECT_TRUE(lists.empty());
    EXPECT_EQ(lists.size(), 0);
    EXPECT_EQ(lists.blockCount(), 0);
    EXPECT_TRUE(lists.info().empty());
}

TEST(TXBlockLists, countsListsAndBlocks) {
    const TXBlockLists lists = nestedLists();
    EXPECT_FALSE(lists.empty());
    EXPECT_EQ(lists.size(), 2);
    EXPECT_EQ(lists.blockCount(), 5);
    ASSERT_EQ(lists.info().size(), 2U);
    EXPECT_EQ(lists.info()[0].parentBlockInfoStruct(), (_TXBlockInfoStruct{-1, -1}));
    EXPECT_EQ(lists.info()[1].parentBlockInfoStruct(), (_TXBlockInfoStruct{0, 1}));
}

TEST(TXBlockLists, eachListHasItsOwnRunOfBlocks) {
    const TXBlockLists lists = nestedLists();
    ASSERT_EQ(lists[0].size(), 3U);
    EXPECT_EQ(lists[0][0].number(), 2.0);
    EXPECT_EQ(lists[0][1].blockPointers()[0].blockPointerID(), 1);
    EXPECT_EQ(lists[0][2].number(), 5.0);
    ASSERT_EQ(lists[1].size(), 2U);
    EXPECT_EQ(lists[1][0].number(), 3.0);
    EXPECT_EQ(lists[1][1].number(), 4.0);
}

TEST(TXBlockLists, aListMayHaveNoBlocks) {
    const std::array info = {TXBlockInfo()};
    const TXBlockLists lists({}, info);
    EXPECT_FALSE(lists.empty());
    EXPECT_EQ(lists.size(), 1);
    EXPECT_TRUE(lists[0].empty());
}

TEST(TXBlockLists, blocksCanBeChangedInPlace) {
    TXBlockLists lists = nestedLists();
    lists.block(0, 1).setResultNumber(7.0);
    EXPECT_EQ(lists[0][1].number(), 7.0);
    EXPECT_FALSE(lists[0][0].isResult());
    lists.block(1, 0).setNumber(8.0);
    EXPECT_EQ(lists[1][0].number(), 8.0);
}

TEST(TXBlockLists, theBlocksComeWithAllThatTheyHave) {
    const TXBlockLists lists = nestedLists();
    EXPECT_EQ(lists[0][2].tolerance(), (_TXTolerance{0.5, 0.25}));
}

TEST(TXBlockLists, oneThatMovesLeavesNothingBehind) {
    TXBlockLists lists = nestedLists();
    const TXBlockLists moved = std::move(lists);
    // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what is left behind is the question
    EXPECT_TRUE(lists.empty());
    EXPECT_EQ(lists.size(), 0);
    EXPECT_EQ(lists.blockCount(), 0);
    EXPECT_TRUE(lists.info().empty());
}

TEST(TXBlockLists, oneThatMovesTakesEverythingAlong) {
    TXBlockLists lists = nestedLists();
    TXBlockLists moved = std::move(lists);
    EXPECT_EQ(moved[0][1].blockPointers()[0].blockPointerID(), 1);
    EXPECT_EQ(moved.blockCount(), 5);
    TXBlockLists assigned;
    assigned = std::move(moved);
    EXPECT_EQ(assigned[0][1].blockPointers()[0].blockPointerID(), 1);
    EXPECT_EQ(assigned[1][1].number(), 4.0);
    EXPECT_EQ(assigned.size(), 2);
    assigned = TXBlockLists();
    EXPECT_TRUE(assigned.empty());
    EXPECT_EQ(assigned.blockCount(), 0);
}

}  // namespace
