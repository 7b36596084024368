#include "format/SharedText.h"

#include <atomic>
#include <string>
#include <thread>

#include <gtest/gtest.h>

namespace {

TEST(SharedText, isWhatWasSetLast) {
    SharedText text(u"one");
    EXPECT_EQ(text.text(), u"one");
    text.setText(u"two");
    EXPECT_EQ(text.text(), u"two");
    text.setText(u"one");
    EXPECT_EQ(text.text(), u"one");
    text.setText(u"");
    EXPECT_EQ(text.text(), u"");
}

TEST(SharedText, leavesATextThatSomebodyReadsAsItIs) {
    SharedText text(u"one");
    const std::u16string& read = text.text();
    text.setText(u"a text that is too long to lie in the string itself");
    EXPECT_EQ(read, u"one");
}

TEST(SharedText, keepsAValueOnceHoweverOftenItIsSet) {
    SharedText text(u"one");
    const std::u16string* const one = &text.text();
    text.setText(u"two");
    text.setText(u"one");
    EXPECT_EQ(&text.text(), one);
}

TEST(SharedText, isCopiedByItsValue) {
    SharedText text(u"one");
    SharedText copy = text;
    text.setText(u"two");
    EXPECT_EQ(copy.text(), u"one");
    copy = text;
    EXPECT_EQ(copy.text(), u"two");
    const SharedText& same = copy;
    copy = same;
    EXPECT_EQ(copy.text(), u"two");
}

TEST(SharedText, isReadWholeWhileItIsSet) {
    SharedText text(u",");
    std::atomic<bool> isDone = false;
    std::thread setter([&] {
        for (int round = 0; round < 2000; ++round) {
            text.setText(round % 2 == 0 ? u"a longer text than fits into the string itself" : u",");
        }
        isDone = true;
    });
    int others = 0;
    while (!isDone) {
        const std::u16string& read = text.text();
        others += read != u"," && read != u"a longer text than fits into the string itself" ? 1 : 0;
    }
    setter.join();
    EXPECT_EQ(others, 0);
}

}  // namespace
