#include "engine/records/TXNameIndex.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "engine/records/descriptionText.h"
#include "tests/support/text.h"

namespace {

/// A list of names with its index, and a hash that may be any function of the name.
class NameList {
public:
    explicit NameList(std::uint32_t (*hash)(std::u16string_view) = &TXNameIndex::hash) : hash_(hash) {}

    void add(const std::u16string& name) {
        const auto position = static_cast<std::int32_t>(names_.size());
        names_.push_back(name);
        index_.insert(name, hash_(name), position, NameAt{names_});
    }
    void removeLast() {
        const std::u16string& name = names_.back();
        index_.removeLast(name, hash_(name), static_cast<std::int32_t>(names_.size()) - 1, NameAt{names_});
        names_.pop_back();
    }
    std::int32_t find(std::u16string_view name) const { return index_.find(name, hash_(name), NameAt{names_}); }
    void clear() {
        names_.clear();
        index_.clear();
    }

private:
    struct NameAt {
        const std::vector<std::u16string>& names;
        std::u16string_view operator()(std::int32_t position) const {
            return names[static_cast<std::size_t>(position)];
        }
    };

    std::uint32_t (*hash_)(std::u16string_view);
    std::vector<std::u16string> names_;
    TXNameIndex index_;
};

TEST(TXNameIndex, anEmptyOneFindsNothing) {
    const NameList list;
    EXPECT_EQ(list.find(u""), TXNameIndex::none);
    EXPECT_EQ(list.find(u"x"), TXNameIndex::none);
    EXPECT_EQ(TXNameIndex::none, -1);
}

TEST(TXNameIndex, findsEachNameAtItsPosition) {
    NameList list;
    for (const char16_t* name : {u"x", u"y", u"", u"Größe"}) list.add(name);
    EXPECT_EQ(list.find(u"x"), 0);
    EXPECT_EQ(list.find(u"y"), 1);
    EXPECT_EQ(list.find(u""), 2);
    EXPECT_EQ(list.find(u"Größe"), 3);
    EXPECT_EQ(list.find(u"größe"), -1);
    EXPECT_EQ(list.find(u"xy"), -1);
}

TEST(TXNameIndex, aNameThatComesAgainStaysWhereItWas) {
    NameList list;
    for (const char16_t* name : {u"x", u"y", u"x"}) list.add(name);
    EXPECT_EQ(list.find(u"x"), 0);
    EXPECT_EQ(list.find(u"y"), 1);
}

TEST(TXNameIndex, equalTextsHaveEqualHashes) {
    const std::u16string one = u"ans12";
    const std::u16string two = std::u16string(u"ans") + u"12";
    EXPECT_EQ(TXNameIndex::hash(one), TXNameIndex::hash(two));
    EXPECT_EQ(TXNameIndex::hash(u"xans12y"), TXNameIndex::hash(u"xans12y"));
}

// Names that differ in one place must not share their hash: a session of such names would be searched one by one.
TEST(TXNameIndex, everyCharacterCounts) {
    for (std::size_t length = 1; length <= 16; ++length) {
        const std::u16string name(length, u'x');
        for (std::size_t place = 0; place < length; ++place) {
            std::u16string other = name;
            other[place] = u'y';
            EXPECT_NE(TXNameIndex::hash(name), TXNameIndex::hash(other)) << utf8(other);
        }
    }
}

TEST(TXNameIndex, theOrderOfCharactersCounts) {
    EXPECT_NE(TXNameIndex::hash(u"ab"), TXNameIndex::hash(u"ba"));
    EXPECT_NE(TXNameIndex::hash(u"a"), TXNameIndex::hash(u"aa"));
}

struct HashCase {
    const char* name;
    std::uint32_t (*hash)(std::u16string_view);
};
class TXNameIndexHashes : public testing::TestWithParam<HashCase> {};

TEST_P(TXNameIndexHashes, findManyNames) {
    constexpr std::int32_t count = 1000;
    NameList list(GetParam().hash);
    for (std::int32_t position = 0; position < count; ++position) {
        ASSERT_EQ(list.find(u"v" + integerText(position)), -1);
        list.add(u"v" + integerText(position));
    }
    for (std::int32_t position = 0; position < count; ++position) {
        ASSERT_EQ(list.find(u"v" + integerText(position)), position);
    }
    EXPECT_EQ(list.find(u"v1000"), -1);
    list.clear();
    EXPECT_EQ(list.find(u"v0"), -1);
    list.add(u"v999");
    EXPECT_EQ(list.find(u"v999"), 0);
}

TEST(TXNameIndex, theLastNameOfTwoEqualOnesLeavesTheFirst) {
    NameList list;
    for (const char16_t* name : {u"x", u"y", u"x"}) list.add(name);
    list.removeLast();
    EXPECT_EQ(list.find(u"x"), 0);
    list.removeLast();
    EXPECT_EQ(list.find(u"y"), -1);
    list.removeLast();
    EXPECT_EQ(list.find(u"x"), -1);
}

// The table grows on the way, which puts its names into another order.
TEST_P(TXNameIndexHashes, namesGoAgainFromTheLastToTheFirst) {
    constexpr std::int32_t count = 200;
    NameList list(GetParam().hash);
    for (std::int32_t position = 0; position < count; ++position) list.add(u"v" + integerText(position));
    for (std::int32_t left = count - 1; left >= 0; --left) {
        list.removeLast();
        EXPECT_EQ(list.find(u"v" + integerText(left)), -1);
        for (std::int32_t position = 0; position < left; ++position) {
            ASSERT_EQ(list.find(u"v" + integerText(position)), position);
        }
    }
    list.add(u"v7");
    EXPECT_EQ(list.find(u"v7"), 0);
}

INSTANTIATE_TEST_SUITE_P(Any, TXNameIndexHashes,
                         testing::Values(HashCase{"OfItsOwn", &TXNameIndex::hash},
                                         HashCase{"AlwaysTheSame", [](std::u16string_view) { return 0U; }},
                                         HashCase{"AtTheEndOfTheTable", [](std::u16string_view) { return ~0U; }},
                                         HashCase{"DifferentOnlyInHighBits",
                                                  [](std::u16string_view name) {
                                                      return name.empty() ? 0U : name.back() * 0x10000000U;
                                                  }}),
                         [](const auto& test) { return test.param.name; });

}  // namespace
