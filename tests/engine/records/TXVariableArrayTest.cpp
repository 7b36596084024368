#include "engine/records/TXVariableArray.h"

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "engine/records/descriptionText.h"
#include "tests/support/text.h"

namespace {

TXVariable named(const std::u16string& name) { return TXVariable::initWithName(name, true, 1.0); }

TEST(TXVariableArray, isEmptyAtFirst) {
    const TXVariableArray variables;
    EXPECT_EQ(variables.size(), 0);
    EXPECT_EQ(variables.indexOf(u"x"), -1);
    EXPECT_TRUE(variables.begin() == variables.end());
}

TEST(TXVariableArray, appendTellsTheVariableItsPosition) {
    TXVariableArray variables;
    EXPECT_EQ(variables.append(named(u"a")).variableIndex(), 0);
    EXPECT_EQ(variables.append(named(u"b")).variableIndex(), 1);
    EXPECT_EQ(variables.size(), 2);
    EXPECT_EQ(utf8(variables[1].variableName()), "b");
}

TEST(TXVariableArray, aNameIsFoundOnlyWhole) {
    TXVariableArray variables;
    variables.append(named(u"pi"));
    variables.append(named(u"pint"));
    EXPECT_EQ(variables.indexOf(u"pi"), 0);
    EXPECT_EQ(variables.indexOf(u"pint"), 1);
    for (const std::u16string_view name : {u"PI", u"Pi", u"p", u"pin", u"pi ", u""}) {
        SCOPED_TRACE(utf8(name));
        EXPECT_EQ(variables.indexOf(name), -1);
    }
}

TEST(TXVariableArray, ofTwoWithOneNameTheFirstIsFound) {
    TXVariableArray variables;
    variables.append(named(u"a"));
    variables.append(named(u"twice"));
    variables.append(named(u"twice"));
    EXPECT_EQ(variables.indexOf(u"twice"), 1);
    EXPECT_EQ(variables.size(), 3);
}

TEST(TXVariableArray, aNameIsFoundByItsHash) {
    TXVariableArray variables;
    variables.append(named(u"a"));
    EXPECT_EQ(variables.indexOf(u"a", TXNameIndex::hash(u"a")), 0);
    EXPECT_EQ(variables.indexOf(u"b", TXNameIndex::hash(u"b")), -1);
}

TEST(TXVariableArray, holdsAnswersForAnyNumber) {
    TXVariableArray variables;
    EXPECT_FALSE(variables.holds(0));
    variables.append(named(u"a"));
    EXPECT_TRUE(variables.holds(0));
    for (const std::int32_t position :
         {1, -1, -2, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_FALSE(variables.holds(position)) << position;
    }
}

TEST(TXVariableArray, addressesStayWhileTheListGrows) {
    constexpr std::int32_t count = 5000;
    TXVariableArray variables;
    const TXVariable* const first = &variables.append(named(u"v0"));
    for (std::int32_t position = 1; position < count; ++position) variables.append(named(u"v" + integerText(position)));
    EXPECT_EQ(&variables[0], first);
    for (std::int32_t position = 0; position < count; ++position) {
        ASSERT_EQ(variables.indexOf(u"v" + integerText(position)), position);
        ASSERT_EQ(variables[position].variableIndex(), position);
    }
}

TEST(TXVariableArray, theVariablesComeInOrder) {
    TXVariableArray variables;
    for (const char16_t* name : {u"c", u"a", u"b"}) variables.append(named(name));
    std::string names;
    for (const TXVariable& variable : variables) names += utf8(variable.variableName());
    EXPECT_EQ(names, "cab");
}

TEST(TXVariableArray, clearForgetsVariablesAndNames) {
    TXVariableArray variables;
    variables.append(named(u"a"));
    variables.append(named(u"b"));
    variables.clear();
    EXPECT_EQ(variables.size(), 0);
    EXPECT_FALSE(variables.holds(0));
    EXPECT_EQ(variables.indexOf(u"a"), -1);
    EXPECT_EQ(variables.append(named(u"b")).variableIndex(), 0);
    EXPECT_EQ(variables.indexOf(u"b"), 0);
    EXPECT_EQ(variables.indexOf(u"a"), -1);
}

TEST(TXVariableArray, takesTheLastVariableAway) {
    TXVariableArray variables;
    const TXVariable& first = variables.append(named(u"a"));
    variables.append(named(u"b"));
    variables.append(named(u"a"));
    variables.removeLast();
    EXPECT_EQ(variables.indexOf(u"a"), 0);
    variables.removeLast();
    EXPECT_EQ(variables.indexOf(u"b"), -1);
    EXPECT_EQ(variables.size(), 1);
    EXPECT_FALSE(variables.holds(1));
    EXPECT_EQ(&variables[0], &first);
    EXPECT_EQ(variables.timesCleared(), 0U);
    EXPECT_EQ(variables.append(named(u"c")).variableIndex(), 1);
    EXPECT_EQ(variables.indexOf(u"c"), 1);
}

TEST(TXVariableArray, countsHowOftenItWasCleared) {
    TXVariableArray variables;
    EXPECT_EQ(variables.timesCleared(), 0U);
    variables.append(named(u"a"));
    EXPECT_EQ(variables.timesCleared(), 0U);
    variables.clear();
    variables.clear();
    EXPECT_EQ(variables.timesCleared(), 2U);
}

}  // namespace
