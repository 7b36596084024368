#include "ui/document/TXFormulaScrollerController.h"

#include <gtest/gtest.h>

#include "tests/support/BeepCount.h"

namespace {

using Slots = std::vector<QString>;

class TXFormulaScrollerControllerTest : public testing::Test {
protected:
    BeepCount beeps_;
    TXFormulaScrollerController scroller_;
};

TEST_F(TXFormulaScrollerControllerTest, beginsWithOneEmptyWorkingSlot) {
    EXPECT_EQ(scroller_.masterScrollbackArray(), Slots{""});
    EXPECT_TRUE(scroller_.modifiedScrollbackArray().empty());
    EXPECT_EQ(scroller_.currentIndex(), 0);
}

TEST_F(TXFormulaScrollerControllerTest, beginsAgainWhenAwoken) {
    scroller_.addCalculatedString("a");
    scroller_.awakeFromNib();
    EXPECT_EQ(scroller_.masterScrollbackArray(), Slots{""});
    EXPECT_EQ(scroller_.currentIndex(), 0);
}

TEST_F(TXFormulaScrollerControllerTest, putsWhatWasCalculatedIntoTheWorkingSlot) {
    scroller_.addCalculatedString("a");
    EXPECT_EQ(scroller_.masterScrollbackArray(), (Slots{"a", ""}));
    EXPECT_EQ(scroller_.currentIndex(), 1);
}

TEST_F(TXFormulaScrollerControllerTest, putsItThereFromAnOlderSlotToo) {
    scroller_.addCalculatedString("a");
    scroller_.addCalculatedString("b");
    scroller_.stringForPreviousIndexFromString("", true);
    scroller_.stringForPreviousIndexFromString("b2", true);
    scroller_.addCalculatedString("c");
    EXPECT_EQ(scroller_.masterScrollbackArray(), (Slots{"a", "b2", "c", ""}));
    EXPECT_EQ(scroller_.currentIndex(), 3);
}

TEST_F(TXFormulaScrollerControllerTest, keepsEditsOnTheWayBackAndForth) {
    scroller_.addCalculatedString("a");
    EXPECT_EQ(scroller_.stringForPreviousIndexFromString("typed", true), "a");
    EXPECT_EQ(scroller_.stringForNextIndexFromString("a2", true), "typed");
    EXPECT_EQ(scroller_.stringForPreviousIndexFromString("typed2", true), "a2");
    EXPECT_EQ(scroller_.masterScrollbackArray(), (Slots{"a2", "typed2"}));
    EXPECT_EQ(beeps_.count(), 0);
}

TEST_F(TXFormulaScrollerControllerTest, storesNothingAtTheFirstSlot) {
    EXPECT_EQ(scroller_.stringForPreviousIndexFromString("typed", true), std::nullopt);
    EXPECT_EQ(scroller_.masterScrollbackArray(), Slots{""});
    EXPECT_EQ(beeps_.count(), 1);
}

TEST_F(TXFormulaScrollerControllerTest, storesNothingAtTheWorkingSlot) {
    EXPECT_EQ(scroller_.stringForNextIndexFromString("typed", true), std::nullopt);
    EXPECT_EQ(scroller_.masterScrollbackArray(), Slots{""});
    EXPECT_EQ(beeps_.count(), 1);
}

TEST_F(TXFormulaScrollerControllerTest, isSilentWhenToldSo) {
    EXPECT_EQ(scroller_.stringForPreviousIndexFromString("typed", false), std::nullopt);
    EXPECT_EQ(scroller_.stringForNextIndexFromString("typed", false), std::nullopt);
    EXPECT_EQ(beeps_.count(), 0);
}

TEST_F(TXFormulaScrollerControllerTest, goesToTheWorkingSlotWithoutStoring) {
    scroller_.addCalculatedString("a");
    scroller_.addCalculatedString("b");
    scroller_.stringForPreviousIndexFromString("", true);
    scroller_.stringForPreviousIndexFromString("b", true);
    scroller_.incrementCurrentIndexToLastIndex();
    EXPECT_EQ(scroller_.currentIndex(), 2);
    EXPECT_EQ(scroller_.masterScrollbackArray(), (Slots{"a", "b", ""}));
}

}  // namespace
