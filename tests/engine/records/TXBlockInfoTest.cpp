#include "engine/records/TXBlockInfo.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

TEST(TXBlockInfo, aFreshOneHangsNowhere) {
    const TXBlockInfo info;
    EXPECT_EQ(info.parentIndex(), -1);
    EXPECT_EQ(info.parentSubIndex(), -1);
    EXPECT_FALSE(info.isReducedToNumber());
    EXPECT_FALSE(info.isDynamic());
    EXPECT_FALSE(info.isForMatrix());
    EXPECT_EQ(info.matrixIndex(), 0);
    EXPECT_EQ(info.blockRange(), TXBlockRange{});
}

TEST(TXBlockInfo, everyAccessorReadsWhatWasWritten) {
    TXBlockInfo info;
    info.setParentIndex(3);
    EXPECT_EQ(info.parentIndex(), 3);
    info.setParentSubIndex(4);
    EXPECT_EQ(info.parentSubIndex(), 4);
    info.setMatrixIndex(5);
    EXPECT_EQ(info.matrixIndex(), 5);
    info.setIsReducedToNumber(true);
    EXPECT_TRUE(info.isReducedToNumber());
    EXPECT_FALSE(info.isDynamic());
    info.setIsDynamic(true);
    EXPECT_TRUE(info.isDynamic());
    EXPECT_FALSE(info.isForMatrix());
    info.setIsForMatrix(true);
    EXPECT_TRUE(info.isForMatrix());
    info.setIsReducedToNumber(false);
    EXPECT_FALSE(info.isReducedToNumber());
    info.setBlockRange({.start = 6, .length = 2});
    EXPECT_EQ(info.blockRange(), (TXBlockRange{6, 2}));
    EXPECT_EQ(info.blockRange().end(), 8);
}

TEST(TXBlockInfo, theParentIsReadAndWrittenTogether) {
    TXBlockInfo info;
    EXPECT_EQ(info.parentBlockInfoStruct(), (_TXBlockInfoStruct{-1, -1}));
    info.setParentBlockInfoStruct({.parentIndex = 2, .parentSubIndex = 1});
    EXPECT_EQ(info.parentIndex(), 2);
    EXPECT_EQ(info.parentSubIndex(), 1);
    info.setParentSubIndex(7);
    EXPECT_EQ(info.parentBlockInfoStruct().parentIndex, 2);
    EXPECT_EQ(info.parentBlockInfoStruct().parentSubIndex, 7);
}

TEST(TXBlockInfo, theDescriptionShowsParentAndDynamic) {
    TXBlockInfo info;
    const std::string start = "TXBlockInfo (" + testing::PrintToString(static_cast<const void*>(&info)) + "): ";
    EXPECT_EQ(utf8(info.description()), start + "Parent=-1, parentSubIndex=-1, isDynamic=0");
    info.setParentBlockInfoStruct({.parentIndex = 12, .parentSubIndex = 3});
    info.setIsDynamic(true);
    info.setIsForMatrix(true);
    info.setMatrixIndex(9);
    EXPECT_EQ(utf8(info.description()), start + "Parent=12, parentSubIndex=3, isDynamic=1");
}

}  // namespace
