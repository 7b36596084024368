#include "engine/parser/TXBlockListsBuilder.h"

#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/parsing.h"

namespace {

/// Appends a number to a list, as the parser does.
void append(TXBlockListsBuilder& builder, std::int32_t list, double number) {
    builder.workingBlock().setNumber(number);
    builder.append(list);
}

std::string finished(TXBlockListsBuilder& builder) {
    const TXBlockLists lists = builder.finish();
    return treeText(&lists);
}

TEST(TXBlockListsBuilderTest, hasNoListBeforeItBegins) {
    TXBlockListsBuilder builder;
    EXPECT_EQ(builder.size(), 0);
    EXPECT_FALSE(builder.holds(0));
    EXPECT_EQ(builder.count(0), 0);
    EXPECT_EQ(builder.info(0), nullptr);
    EXPECT_EQ(builder.block(0, 0), nullptr);
    EXPECT_TRUE(builder.finish().empty());
}

TEST(TXBlockListsBuilderTest, beginsWithTheTopLevel) {
    TXBlockListsBuilder builder;
    builder.begin();
    EXPECT_EQ(builder.size(), 1);
    EXPECT_TRUE(builder.holds(0));
    EXPECT_EQ(builder.info(0)->parentIndex(), -1);
    EXPECT_EQ(finished(builder), "0:");
}

TEST(TXBlockListsBuilderTest, aListThatDoesNotExistHoldsNothing) {
    TXBlockListsBuilder builder;
    builder.begin();
    for (const std::int32_t list : {-1, 1, 1000}) {
        EXPECT_FALSE(builder.holds(list));
        EXPECT_EQ(builder.count(list), 0);
        EXPECT_EQ(builder.info(list), nullptr);
        EXPECT_EQ(builder.block(list, 0), nullptr);
    }
    EXPECT_EQ(finished(builder), "0:");
}

TEST(TXBlockListsBuilderTest, keepsTheBlocksOfAListInOrder) {
    TXBlockListsBuilder builder;
    builder.begin();
    append(builder, 0, 1.0);
    append(builder, 0, 2.0);
    EXPECT_EQ(builder.count(0), 2);
    EXPECT_EQ(builder.block(0, 1)->number(), 2.0);
    EXPECT_EQ(builder.block(0, -1), nullptr);
    EXPECT_EQ(builder.block(0, 2), nullptr);
    EXPECT_EQ(finished(builder), "0: 1 2");
}

TEST(TXBlockListsBuilderTest, makesAFreshBlockAfterEach) {
    TXBlockListsBuilder builder;
    builder.begin();
    builder.workingBlock().setBlockOperator(u'*');
    append(builder, 0, 1.0);
    EXPECT_EQ(builder.workingBlock().blockOperator(), 0);
    EXPECT_FALSE(builder.workingBlock().isNumber());
    builder.workingBlock().setNumber(7.0);
    EXPECT_EQ(finished(builder), "0: *1");
    EXPECT_FALSE(builder.workingBlock().isNumber());
}

TEST(TXBlockListsBuilderTest, returnsToTheListAround) {
    TXBlockListsBuilder builder;
    builder.begin();
    append(builder, 0, 1.0);
    EXPECT_EQ(builder.openList(), 1);
    append(builder, 1, 2.0);
    append(builder, 1, 3.0);
    append(builder, 0, 4.0);
    EXPECT_EQ(builder.count(0), 2);
    EXPECT_EQ(builder.count(1), 2);
    EXPECT_EQ(builder.block(0, 1)->number(), 4.0);
    EXPECT_EQ(finished(builder), "0: 1 4 | 1: 2 3");
}

TEST(TXBlockListsBuilderTest, keepsTheOrderOfOpeningWhateverTheOrderOfClosing) {
    TXBlockListsBuilder builder;
    builder.begin();
    append(builder, 0, 0.5);
    builder.openList();
    append(builder, 1, 1.0);
    builder.openList();
    append(builder, 2, 2.0);
    append(builder, 1, 1.5);
    builder.openList();
    append(builder, 3, 3.0);
    append(builder, 0, 0.75);
    EXPECT_EQ(finished(builder), "0: 0.5 0.75 | 1: 1 1.5 | 2: 2 | 3: 3");
}

TEST(TXBlockListsBuilderTest, letsTheBlockThatLeadsToANewListComeAfterIt) {
    TXBlockListsBuilder builder;
    builder.begin();
    EXPECT_EQ(builder.openList(), 1);
    append(builder, 0, 1.0);
    append(builder, 1, 2.0);
    append(builder, 0, 3.0);
    EXPECT_EQ(finished(builder), "0: 1 3 | 1: 2");
}

TEST(TXBlockListsBuilderTest, emptyListsStayEmpty) {
    TXBlockListsBuilder builder;
    builder.begin();
    append(builder, 0, 1.0);
    builder.openList();
    builder.openList();
    append(builder, 0, 2.0);
    EXPECT_EQ(finished(builder), "0: 1 2 | 1: | 2:");
}

TEST(TXBlockListsBuilderTest, changesTheBlocksOfTheListsAround) {
    TXBlockListsBuilder builder;
    builder.begin();
    append(builder, 0, 1.0);
    builder.openList();
    append(builder, 1, 2.0);
    builder.block(0, 0)->addBlockPointer(1);
    EXPECT_EQ(finished(builder), "0: 1[1] | 1: 2");
}

TEST(TXBlockListsBuilderTest, doesNotTakeABlockOfTheInnerListForOneOfTheOuter) {
    TXBlockListsBuilder builder;
    builder.begin();
    append(builder, 0, 1.0);
    builder.openList();
    append(builder, 1, 2.0);
    EXPECT_EQ(builder.block(0, 1), nullptr);
}

TEST(TXBlockListsBuilderTest, keepsWhatIsKnownOfAList) {
    TXBlockListsBuilder builder;
    builder.begin();
    builder.info(0)->setIsDynamic(true);
    builder.openList();
    builder.info(1)->setParentBlockInfoStruct({.parentIndex = 0, .parentSubIndex = 4});
    EXPECT_EQ(finished(builder), "0!: | 1@0.4:");
}

TEST(TXBlockListsBuilderTest, onlyCountsOnceTheEquationIsRefused) {
    TXBlockListsBuilder builder;
    builder.begin();
    append(builder, 0, 1.0);
    builder.onlyCount();
    append(builder, 0, 2.0);
    EXPECT_EQ(builder.count(0), 2);
    builder.openList();
    append(builder, 1, 3.0);
    EXPECT_EQ(builder.count(1), 1);
    append(builder, 0, 4.0);
    EXPECT_EQ(builder.count(0), 3);
    EXPECT_FALSE(builder.workingBlock().isNumber());
}

TEST(TXBlockListsBuilderTest, servesOneSideAfterTheOther) {
    TXBlockListsBuilder builder;
    builder.begin();
    append(builder, 0, 1.0);
    builder.openList();
    EXPECT_EQ(finished(builder).substr(0, 4), "0: 1");
    EXPECT_EQ(builder.size(), 0);

    builder.begin();
    builder.onlyCount();
    append(builder, 0, 2.0);
    builder.begin();
    append(builder, 0, 3.0);
    EXPECT_EQ(finished(builder), "0: 3");

    builder.begin();
    append(builder, 0, 4.0);
    builder.clear();
    EXPECT_EQ(builder.size(), 0);
    builder.begin();
    EXPECT_EQ(finished(builder), "0:");
}

}  // namespace
