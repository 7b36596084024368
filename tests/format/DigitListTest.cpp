#include "format/DigitList.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

std::string written(const DigitList& list) {
    std::string text;
    for (const auto digit : list) {
        text += static_cast<char>('0' + digit);
    }
    return text;
}

/// A list of `count` digits 1 2 3 ... 9 0 1 ...
DigitList counting(int count) {
    DigitList list;
    list.addZerosToEnd(count);
    for (int position = 0; position < count; ++position) {
        list[position] = static_cast<std::uint8_t>((position + 1) % 10);
    }
    return list;
}

TEST(DigitList, startsEmpty) {
    const DigitList list;
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.begin(), list.end());
}

TEST(DigitList, growsAtTheEnd) {
    DigitList list;
    list.append(DigitList::Block{1, 2, 3, 4}, 3);
    EXPECT_EQ(written(list), "123");
    list.append(std::array<std::uint8_t, 8>{9, 8, 7, 6, 5, 4, 3, 2}, 8);
    EXPECT_EQ(written(list), "12398765432");
    list.append(DigitList::Block{1}, 0);
    EXPECT_EQ(list.count(), 11);
}

TEST(DigitList, isCutToALengthOrLeftAlone) {
    struct Row {
        int length;
        const char* digits;
    };
    const Row rows[] = {{3, "123"}, {5, "12345"}, {6, "12345"}, {largest, "12345"}, {0, ""}, {-1, ""}, {smallest, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.length);
        DigitList list = counting(5);
        list.cutToLength(row.length);
        EXPECT_EQ(written(list), row.digits);
    }
}

TEST(DigitList, becomesOneDigit) {
    DigitList list = counting(20);
    list.setTo(7);
    EXPECT_EQ(written(list), "7");
    list.clear();
    EXPECT_EQ(list.count(), 0);
}

TEST(DigitList, losesZerosAtTheEndButNeverItsLastDigit) {
    DigitList list;
    list.removeZerosFromEnd();
    EXPECT_EQ(list.count(), 0);
    list.append(DigitList::Block{1, 0, 2, 0, 0}, 5);
    list.removeZerosFromEnd();
    EXPECT_EQ(written(list), "102");
    list.removeZerosFromEnd();
    EXPECT_EQ(written(list), "102");
    list.setTo(0);
    list.addZerosToEnd(3);
    list.removeZerosFromEnd();
    EXPECT_EQ(written(list), "0");
}

TEST(DigitList, takesZerosAtTheEnd) {
    for (const int count : {0, 1, 3, 15, 16, 17, 40}) {
        for (const int zeros : {smallest, -1, 0, 1, 2, 15, 16, 17, 33, 200}) {
            SCOPED_TRACE(testing::Message() << count << " digits, " << zeros << " zeros");
            DigitList list = counting(count);
            const std::string before = written(list);
            list.addZerosToEnd(zeros);
            EXPECT_EQ(written(list), before + std::string(static_cast<std::size_t>(std::max(zeros, 0)), '0'));
        }
    }
}

TEST(DigitList, takesZerosAtTheBeginning) {
    for (const int count : {0, 1, 3, 15, 16, 17, 40}) {
        for (const int zeros : {smallest, -1, 0, 1, 2, 15, 16, 17, 33, 200}) {
            SCOPED_TRACE(testing::Message() << count << " digits, " << zeros << " zeros");
            DigitList list = counting(count);
            const std::string before = written(list);
            list.addZerosToBeginning(zeros);
            EXPECT_EQ(written(list), std::string(static_cast<std::size_t>(std::max(zeros, 0)), '0') + before);
        }
    }
}

TEST(DigitList, dropsWhatItHasNoRoomFor) {
    DigitList list = counting(20);
    list.addZerosToEnd(largest);
    EXPECT_EQ(list.count(), DigitList::capacity);
    EXPECT_EQ(written(list).substr(0, 21), "123456789012345678900");

    list = counting(20);
    list.addZerosToBeginning(DigitList::capacity - 5);
    EXPECT_EQ(list.count(), DigitList::capacity);
    EXPECT_EQ(written(list).substr(DigitList::capacity - 6), "012345");

    list = counting(20);
    list.addZerosToBeginning(largest);
    EXPECT_EQ(written(list), std::string(DigitList::capacity, '0'));
}

TEST(DigitList, isCopiedWhateverItsLength) {
    for (const int count : {0, 1, 15, 16, 17, 100, DigitList::capacity}) {
        SCOPED_TRACE(count);
        const DigitList list = counting(count);
        DigitList copy = list;
        EXPECT_EQ(written(copy), written(list));
        const DigitList& same = copy;
        copy = same;
        EXPECT_EQ(written(copy), written(list));
    }
}

}  // namespace
