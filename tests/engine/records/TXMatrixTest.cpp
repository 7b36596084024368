#include "engine/records/TXMatrix.h"

#include <gtest/gtest.h>

namespace {

TEST(TXMatrix, aFreshOneHasNoShape) {
    const TXMatrix matrix;
    EXPECT_EQ(matrix.rows(), 0);
    EXPECT_EQ(matrix.columns(), 0);
}

TEST(TXMatrix, keepsItsShape) {
    TXMatrix matrix;
    matrix.setRows(2);
    matrix.setColumns(3);
    EXPECT_EQ(matrix.rows(), 2);
    EXPECT_EQ(matrix.columns(), 3);
}

}  // namespace
