#include "engine/records/TXEquationVariableRelation.h"

#include <gtest/gtest.h>

namespace {

TEST(TXEquationVariableRelation, keepsBothIndexes) {
    auto relation = TXEquationVariableRelation::initWithEquationIndex(3, 5);
    EXPECT_EQ(relation.equationIndex(), 3);
    EXPECT_EQ(relation.variableIndex(), 5);
    relation.setEquationIndex(4);
    EXPECT_EQ(relation.equationIndex(), 4);
    EXPECT_EQ(relation.variableIndex(), 5);
    relation.setVariableIndex(6);
    EXPECT_EQ(relation.equationIndex(), 4);
    EXPECT_EQ(relation.variableIndex(), 6);
}

}  // namespace
