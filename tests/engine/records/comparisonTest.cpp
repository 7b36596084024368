// Small records are equal where each of their fields is.

#include <gtest/gtest.h>

#include "engine/records/TXBlockInfo.h"
#include "engine/records/TXTolerance.h"

namespace {

TEST(Comparison, aToleranceDiffersInEitherDeviation) {
    const _TXTolerance tolerance{.plusTol = 0.5, .minusTol = 0.25};
    EXPECT_TRUE(tolerance == (_TXTolerance{0.5, 0.25}));
    EXPECT_FALSE(tolerance == (_TXTolerance{0.75, 0.25}));
    EXPECT_FALSE(tolerance == (_TXTolerance{0.5, 0.5}));
}

TEST(Comparison, aParentDiffersInListOrBlock) {
    const _TXBlockInfoStruct parent{.parentIndex = 1, .parentSubIndex = 2};
    EXPECT_TRUE(parent == (_TXBlockInfoStruct{1, 2}));
    EXPECT_FALSE(parent == (_TXBlockInfoStruct{0, 2}));
    EXPECT_FALSE(parent == (_TXBlockInfoStruct{1, 1}));
}

TEST(Comparison, aRangeDiffersInStartOrLength) {
    const TXBlockRange range{.start = 3, .length = 4};
    EXPECT_TRUE(range == (TXBlockRange{3, 4}));
    EXPECT_FALSE(range == (TXBlockRange{2, 4}));
    EXPECT_FALSE(range == (TXBlockRange{3, 5}));
}

}  // namespace
