#include "engine/controller/TXDictionary.h"

#include <string>

#include <gtest/gtest.h>

#include "engine/records/descriptionText.h"
#include "tests/support/text.h"

namespace {

TEST(TXDictionary, anEmptyOneFindsNothing) {
    const TXDictionary<int> dictionary;
    EXPECT_EQ(dictionary.size(), 0);
    EXPECT_EQ(dictionary.find(u"sin"), nullptr);
    EXPECT_FALSE(dictionary.contains(u""));
}

TEST(TXDictionary, findsAValueByItsWholeName) {
    TXDictionary<int> dictionary;
    dictionary.set(u"sin", 2);
    dictionary.set(u"sinh", 6);
    EXPECT_EQ(dictionary.size(), 2);
    ASSERT_NE(dictionary.find(u"sin"), nullptr);
    EXPECT_EQ(*dictionary.find(u"sin"), 2);
    EXPECT_EQ(*dictionary.find(u"sinh"), 6);
    for (const std::u16string_view name : {u"Sin", u"SIN", u"si", u"sin ", u""}) {
        SCOPED_TRACE(utf8(name));
        EXPECT_EQ(dictionary.find(name), nullptr);
        EXPECT_FALSE(dictionary.contains(name));
    }
}

TEST(TXDictionary, setReplacesTheValue) {
    TXDictionary<std::u16string> dictionary;
    dictionary.set(u"if", u"one");
    dictionary.set(u"if", u"two");
    EXPECT_EQ(dictionary.size(), 1);
    EXPECT_EQ(*dictionary.find(u"if"), u"two");
}

TEST(TXDictionary, theEmptyNameIsAName) {
    TXDictionary<int> dictionary;
    dictionary.set(u"", 5);
    ASSERT_TRUE(dictionary.contains(u""));
    EXPECT_EQ(*dictionary.find(u""), 5);
}

TEST(TXDictionary, aNameIsFoundByItsHash) {
    TXDictionary<int> dictionary;
    dictionary.set(u"ln", 8);
    ASSERT_NE(dictionary.find(u"ln", TXNameIndex::hash(u"ln")), nullptr);
    EXPECT_EQ(*dictionary.find(u"ln", TXNameIndex::hash(u"ln")), 8);
    EXPECT_EQ(dictionary.find(u"log", TXNameIndex::hash(u"log")), nullptr);
}

TEST(TXDictionary, keepsManyValues) {
    constexpr std::int32_t count = 2000;
    TXDictionary<std::int32_t> dictionary;
    for (std::int32_t value = 0; value < count; ++value) dictionary.set(u"k" + integerText(value), value);
    EXPECT_EQ(dictionary.size(), count);
    for (std::int32_t value = 0; value < count; ++value) {
        ASSERT_NE(dictionary.find(u"k" + integerText(value)), nullptr);
        ASSERT_EQ(*dictionary.find(u"k" + integerText(value)), value);
    }
    EXPECT_FALSE(dictionary.contains(u"k2000"));
}

}  // namespace
