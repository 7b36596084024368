#include "engine/records/TXPosition.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

TEST(TXPosition, aFreshOneWaitsForNothing) {
    const TXPosition position;
    EXPECT_EQ(position.currentIndex(), 0);
    EXPECT_EQ(position.currentTXFunctionIndex(), -1);
    EXPECT_EQ(position.currentTXFunctionSubIndex(), -1);
    EXPECT_FALSE(position.currentlyParsingTXFunction());
    EXPECT_EQ(position.currentTXMatrixIndex(), -1);
    EXPECT_EQ(position.currentTXMatrixSubIndex(), -1);
    EXPECT_FALSE(position.currentlyParsingTXMatrix());
}

TXPosition busyPosition() {
    TXPosition position;
    position.setCurrentIndex(1);
    position.setCurrentTXFunctionIndex(2);
    position.setCurrentTXFunctionSubIndex(3);
    position.setCurrentlyParsingTXFunction(true);
    position.setCurrentTXMatrixIndex(4);
    position.setCurrentTXMatrixSubIndex(5);
    position.setCurrentlyParsingTXMatrix(true);
    return position;
}

TEST(TXPosition, everyAccessorReadsWhatWasWritten) {
    const TXPosition position = busyPosition();
    EXPECT_EQ(position.currentIndex(), 1);
    EXPECT_EQ(position.currentTXFunctionIndex(), 2);
    EXPECT_EQ(position.currentTXFunctionSubIndex(), 3);
    EXPECT_TRUE(position.currentlyParsingTXFunction());
    EXPECT_EQ(position.currentTXMatrixIndex(), 4);
    EXPECT_EQ(position.currentTXMatrixSubIndex(), 5);
    EXPECT_TRUE(position.currentlyParsingTXMatrix());
}

TEST(TXPosition, resetValuesMakesItFresh) {
    TXPosition position = busyPosition();
    position.resetValues();
    EXPECT_EQ(position.currentIndex(), 0);
    EXPECT_EQ(position.currentTXFunctionIndex(), -1);
    EXPECT_EQ(position.currentTXFunctionSubIndex(), -1);
    EXPECT_FALSE(position.currentlyParsingTXFunction());
    EXPECT_EQ(position.currentTXMatrixIndex(), -1);
    EXPECT_EQ(position.currentTXMatrixSubIndex(), -1);
}

TEST(TXPosition, resetValuesDoesNotTouchTheMatrixFlag) {
    TXPosition position = busyPosition();
    position.resetValues();
    EXPECT_TRUE(position.currentlyParsingTXMatrix());
    position.setCurrentlyParsingTXMatrix(false);
    position.resetValues();
    EXPECT_FALSE(position.currentlyParsingTXMatrix());
}

TEST(TXPosition, theDescriptionLeavesTheMatrixOut) {
    TXPosition position;
    const std::string start = "TXPosition (" + testing::PrintToString(static_cast<const void*>(&position)) + "): ";
    EXPECT_EQ(utf8(position.description()), start +
                                                "currentIndex=0, currentTXFunctionIndex=-1, "
                                                "currentTXFunctionSubIndex=-1, currentlyParsingTXFunction=0");
    position = busyPosition();
    EXPECT_EQ(utf8(position.description()), start +
                                                "currentIndex=1, currentTXFunctionIndex=2, "
                                                "currentTXFunctionSubIndex=3, currentlyParsingTXFunction=1");
}

}  // namespace
