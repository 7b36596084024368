#include "engine/records/TXVariable.h"

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

TEST(TXVariable, aDefinedOneHasItsValue) {
    const TXVariable variable = TXVariable::initWithName(u"größe", true, 7.5);
    EXPECT_EQ(utf8(variable.variableName()), "größe");
    EXPECT_TRUE(variable.variableDescription().empty());
    EXPECT_EQ(variable.number(), 7.5);
    EXPECT_TRUE(variable.isStatic());
    EXPECT_TRUE(variable.isDefined());
    EXPECT_TRUE(variable.definedState());
    EXPECT_FALSE(variable.isAutoCached());
    EXPECT_FALSE(variable.isLocked());
}

TEST(TXVariable, anUndefinedOneKeepsZeroWhateverTheValue) {
    const TXVariable variable = TXVariable::initWithName(u"x", false, 7.0);
    EXPECT_EQ(variable.number(), 0.0);
    EXPECT_TRUE(variable.variableDescription().empty());
    EXPECT_TRUE(variable.isStatic());
    EXPECT_FALSE(variable.isDefined());
    EXPECT_FALSE(variable.definedState());
    EXPECT_FALSE(variable.isAutoCached());
}

TEST(TXVariable, setNumberDefinesIt) {
    TXVariable variable = TXVariable::initWithName(u"x", false, 0.0);
    variable.setNumber(0.0);
    EXPECT_TRUE(variable.isDefined());
    EXPECT_TRUE(variable.definedState());
    variable.setNumber(-3.5);
    EXPECT_EQ(variable.number(), -3.5);
    EXPECT_TRUE(variable.isDefined());
}

TEST(TXVariable, aNewOneStandsAtPositionZero) {
    EXPECT_EQ(TXVariable::initWithName(u"x", false, 0.0).variableIndex(), 0);
}

TEST(TXVariable, mayHaveAnEmptyName) { EXPECT_EQ(utf8(TXVariable::initWithName(u"", false, 0.0).variableName()), ""); }

TEST(TXVariable, everyAccessorReadsWhatWasWritten) {
    TXVariable variable = TXVariable::initWithName(u"x", false, 0.0);
    variable.setVariableName(u"y");
    EXPECT_EQ(utf8(variable.variableName()), "y");
    variable.setVariableDescription(u"the width");
    EXPECT_EQ(utf8(variable.variableDescription()), "the width");
    variable.setVariableDescription(u"");
    EXPECT_TRUE(variable.variableDescription().empty());
    variable.setStatic(false);
    EXPECT_FALSE(variable.isStatic());
    variable.setIsLocked(true);
    EXPECT_TRUE(variable.isLocked());
    EXPECT_FALSE(variable.isAutoCached());
    variable.setIsAutoCached(true);
    EXPECT_TRUE(variable.isAutoCached());
    variable.setIsLocked(false);
    EXPECT_FALSE(variable.isLocked());
    variable.setVariableIndex(5);
    EXPECT_EQ(variable.variableIndex(), 5);
    variable.setDefinedInEquationIndex(6);
    EXPECT_EQ(variable.definedInEquationIndex(), 6);
}

TEST(TXVariable, theDefinedStateIsApartFromBeingDefined) {
    TXVariable variable = TXVariable::initWithName(u"x", false, 0.0);
    variable.setDefinedState(true);
    EXPECT_TRUE(variable.definedState());
    EXPECT_FALSE(variable.isDefined());
    variable.setNumber(1.0);
    variable.setDefinedState(false);
    EXPECT_FALSE(variable.definedState());
    EXPECT_TRUE(variable.isDefined());
}

TEST(TXVariable, theDescriptionTellsWhetherItIsDefined) {
    TXVariable variable = TXVariable::initWithName(u"x", false, 7.0);
    EXPECT_EQ(utf8(variable.description()), "x (undefined)");
    variable.setNumber(7.0);
    EXPECT_EQ(utf8(variable.description()), "x\t7.000000 (defined)");
    variable.setNumber(-0.0000004);
    EXPECT_EQ(utf8(variable.description()), "x\t-0.000000 (defined)");
}

TEST(TXVariable, theDescriptionLooksAtTheDefinedState) {
    TXVariable variable = TXVariable::initWithName(u"x", true, 7.0);
    variable.setDefinedState(false);
    EXPECT_EQ(utf8(variable.description()), "x (undefined)");
    TXVariable other = TXVariable::initWithName(u"y", false, 7.0);
    other.setDefinedState(true);
    EXPECT_EQ(utf8(other.description()), "y\t0.000000 (defined)");
}

}  // namespace
