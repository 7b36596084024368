#include "engine/records/TXBlockPointer.h"

#include <array>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

TEST(TXBlockPointer, aNewLinkHasNoTitle) {
    const TXBlockPointer pointer = TXBlockPointer::initWithBlockPointerID(3);
    EXPECT_EQ(pointer.blockPointerID(), 3);
    EXPECT_EQ(pointer.title(), std::nullopt);
    EXPECT_EQ(TXBlockPointer().blockPointerID(), 0);
}

TEST(TXBlockPointer, everyAccessorReadsWhatWasWritten) {
    TXBlockPointer pointer = TXBlockPointer::initWithBlockPointerID(3);
    pointer.setBlockPointerID(-1);
    EXPECT_EQ(pointer.blockPointerID(), -1);
    pointer.setTitle(u"argument");
    EXPECT_EQ(pointer.title(), u"argument");
    pointer.setTitle(std::nullopt);
    EXPECT_EQ(pointer.title(), std::nullopt);
}

TEST(TXBlockPointer, theDescriptionShowsTheTitle) {
    TXBlockPointer pointer = TXBlockPointer::initWithBlockPointerID(2);
    EXPECT_EQ(utf8(pointer.description()), "BlockPointer: id=2, title=(no title)");
    pointer.setTitle(u"übergroß");
    EXPECT_EQ(utf8(pointer.description()), "BlockPointer: id=2, title=übergroß");
}

TEST(TXBlockPointer, anEmptyTitleIsATitle) {
    TXBlockPointer pointer = TXBlockPointer::initWithBlockPointerID(2);
    pointer.setTitle(u"");
    EXPECT_EQ(utf8(pointer.description()), "BlockPointer: id=2, title=");
}

TEST(TXBlockPointer, aTitleMayLookLikeAFormat) {
    TXBlockPointer pointer = TXBlockPointer::initWithBlockPointerID(2);
    pointer.setTitle(u"%d%@");
    EXPECT_EQ(utf8(pointer.description()), "BlockPointer: id=2, title=%d%@");
}

TEST(TXBlockPointerList, isEmptyAtFirst) {
    const TXBlockPointerList list;
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.size(), 0);
}

TEST(TXBlockPointerList, givesTheLinksInOrder) {
    const std::array<std::int32_t, 3> ids = {5, 2, 8};
    const TXBlockPointerList list(ids);
    ASSERT_EQ(list.size(), 3);
    EXPECT_FALSE(list.empty());
    for (std::int32_t index = 0; index < 3; ++index) {
        EXPECT_EQ(list[index].blockPointerID(), ids[static_cast<std::size_t>(index)]);
        EXPECT_EQ(list.blockPointerIDAt(index), ids[static_cast<std::size_t>(index)]);
    }
}

TEST(TXBlockPointerList, theDescriptionListsTheLinks) {
    const std::array<std::int32_t, 3> ids = {5, 2, 8};
    EXPECT_EQ(utf8(TXBlockPointerList().description()), "()");
    EXPECT_EQ(utf8(TXBlockPointerList(std::span(ids).first(1)).description()),
              "(BlockPointer: id=5, title=(no title))");
    EXPECT_EQ(utf8(TXBlockPointerList(ids).description()),
              "(BlockPointer: id=5, title=(no title), BlockPointer: id=2, title=(no title), "
              "BlockPointer: id=8, title=(no title))");
}

}  // namespace
