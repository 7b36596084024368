#include "engine/controller/TXEquationController.h"

#include <array>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/text.h"

namespace {

struct FunctionNameCase {
    const char* name;
    std::u16string_view function;
    std::int32_t id;
};
void PrintTo(const FunctionNameCase& row, std::ostream* out) { *out << utf8(row.function); }
class FunctionTable : public testing::TestWithParam<FunctionNameCase> {};

TEST_P(FunctionTable, givesTheId) {
    const TXEquationController controller;
    const TXFunction* function = controller.functionDictionary().find(GetParam().function);
    ASSERT_NE(function, nullptr);
    EXPECT_EQ(function->functionType(), 0);
    EXPECT_EQ(function->functionIndex(), GetParam().id);
    EXPECT_EQ(utf8(controller.nativeFunctionNames().at(static_cast<std::size_t>(GetParam().id))),
              utf8(GetParam().function));
}

// The ids are a contract with the evaluator: not alphabetical, "ln" and "log" between "cosh" and "tanh", "atan2" and
// "cbrt" last.
// clang-format off
INSTANTIATE_TEST_SUITE_P(BuiltIn, FunctionTable, testing::Values(
    FunctionNameCase{"abs",    u"abs",    0},
    FunctionNameCase{"exp",    u"exp",    1},
    FunctionNameCase{"sin",    u"sin",    2},
    FunctionNameCase{"cos",    u"cos",    3},
    FunctionNameCase{"tan",    u"tan",    4},
    FunctionNameCase{"sqrt",   u"sqrt",   5},
    FunctionNameCase{"sinh",   u"sinh",   6},
    FunctionNameCase{"cosh",   u"cosh",   7},
    FunctionNameCase{"ln",     u"ln",     8},
    FunctionNameCase{"log",    u"log",    9},
    FunctionNameCase{"tanh",   u"tanh",  10},
    FunctionNameCase{"csc",    u"csc",   11},
    FunctionNameCase{"sec",    u"sec",   12},
    FunctionNameCase{"cot",    u"cot",   13},
    FunctionNameCase{"csch",   u"csch",  14},
    FunctionNameCase{"sech",   u"sech",  15},
    FunctionNameCase{"coth",   u"coth",  16},
    FunctionNameCase{"asin",   u"asin",  17},
    FunctionNameCase{"acos",   u"acos",  18},
    FunctionNameCase{"atan",   u"atan",  19},
    FunctionNameCase{"atan2",  u"atan2", 20},
    FunctionNameCase{"cbrt",   u"cbrt",  21}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(FunctionTable, hasNothingElse) {
    const TXEquationController controller;
    EXPECT_EQ(controller.nativeFunctionNames().size(), 22U);
    EXPECT_EQ(controller.functionDictionary().size(), 22);
    for (const std::u16string_view name : {u"floor", u"ceil", u"hypot", u"round", u"pi", u"ans", u"nil", u""}) {
        SCOPED_TRACE(utf8(name));
        EXPECT_FALSE(controller.functionDictionary().contains(name));
    }
}

TEST(FunctionTable, upperAndLowerCaseAreApart) {
    TXEquationController controller;
    EXPECT_TRUE(controller.functionDictionary().contains(u"sin"));
    EXPECT_FALSE(controller.functionDictionary().contains(u"Sin"));
    EXPECT_FALSE(controller.functionDictionary().contains(u"SIN"));
    EXPECT_EQ(utf8(controller.addOneStringBlindly(u"Sin(1)")->errorMessage()),
              "You need an operator between Sin and (.");
    EXPECT_EQ(controller.addOneStringBlindly(u"SIN=3")->number(), 3.0);
}

TEST(FunctionTable, aFunctionIsNoVariable) {
    TXEquationController controller;
    EXPECT_EQ(utf8(controller.addOneStringBlindly(u"sin=3")->errorMessage()),
              "If you want to assign a variable, in needs to be in the form variable=equation.  For example: a=5+2.");
    EXPECT_EQ(controller.getVariableIndexForString(u"sin"), -1);
}

struct KeywordCase {
    const char* name;
    std::u16string_view keyword;
};
void PrintTo(const KeywordCase& row, std::ostream* out) { *out << utf8(row.keyword); }
class KeywordTable : public testing::TestWithParam<KeywordCase> {};

TEST_P(KeywordTable, reservesTheWord) {
    TXEquationController controller;
    const std::u16string* value = controller.reservedKeywords().find(GetParam().keyword);
    ASSERT_NE(value, nullptr);
    EXPECT_TRUE(value->empty());
    const std::u16string line = std::u16string(GetParam().keyword) + u"=3";
    const TXResult* result = controller.addOneStringBlindly(line);
    ASSERT_TRUE(result->isErrorMessage());
    EXPECT_EQ(utf8(result->errorMessage()),
              "Invalid variable name: '" + utf8(GetParam().keyword) + "' is a reserved keyword.");
    EXPECT_EQ(controller.variableArray().size(), 2);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Language, KeywordTable, testing::Values(
    KeywordCase{"Delete",   u"delete"},
    KeywordCase{"In",       u"in"},
    KeywordCase{"Function", u"function"},
    KeywordCase{"Default",  u"default"},
    KeywordCase{"Return",   u"return"},
    KeywordCase{"If",       u"if"},
    KeywordCase{"Else",     u"else"},
    KeywordCase{"For",      u"for"},
    KeywordCase{"While",    u"while"},
    KeywordCase{"Switch",   u"switch"},
    KeywordCase{"Case",     u"case"},
    KeywordCase{"Break",    u"break"}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(KeywordTable, hasNothingElse) {
    const TXEquationController controller;
    EXPECT_EQ(controller.reservedKeywords().size(), 12);
    for (const std::u16string_view name :
         {u"nil", u"undefined", u"If", u"IF", u"i", u"pi", u"ans", u"sin", u"continue", u""}) {
        SCOPED_TRACE(utf8(name));
        EXPECT_FALSE(controller.reservedKeywords().contains(name));
    }
}

TEST(KeywordTable, upperAndLowerCaseAreApart) {
    TXEquationController controller;
    EXPECT_EQ(controller.addOneStringBlindly(u"If=3")->number(), 3.0);
}

void expectTheTables(const TXEquationController& controller) {
    EXPECT_EQ(controller.nativeFunctionNames().size(), 22U);
    EXPECT_EQ(controller.functionDictionary().size(), 22);
    EXPECT_EQ(controller.reservedKeywords().size(), 12);
    EXPECT_EQ(utf8(controller.nativeFunctionNames().back()), "cbrt");
    const TXFunction* function = controller.functionDictionary().find(u"ln");
    ASSERT_NE(function, nullptr);
    EXPECT_EQ(function->functionIndex(), 8);
    EXPECT_TRUE(controller.reservedKeywords().contains(u"break"));
}

TEST(Tables, stayWhenEverythingIsCleared) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"sin(1)");
    controller.clearAll();
    expectTheTables(controller);
}

TEST(Tables, areTheSameWhenMadeAgain) {
    TXEquationController controller;
    controller.createFunctionDictionary();
    controller.createReservedKeywordsDictionary();
    expectTheTables(controller);
    EXPECT_EQ(controller.addOneStringBlindly(u"sqrt(9)")->number(), 3.0);
}

}  // namespace
