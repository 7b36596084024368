#include "terminal/Completion.h"

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "terminal/utf8.h"

namespace {

using Names = std::vector<std::u16string>;

struct CompletionCase {
    const char* name;
    std::u16string_view equation;
    std::u16string_view suffix;
    Names names;
};
void PrintTo(const CompletionCase& row, std::ostream* out) { *out << toUtf8(row.equation); }

/// The variables are radius, rate, the Greek one, ans and ans1 to ans3; refused has no value.
class NameCompletion : public testing::TestWithParam<CompletionCase> {
protected:
    NameCompletion() {
        for (const std::u16string_view line :
             {u"radius=2", u"rate=3", u"\u03C9=4", u"5", u"6", u"ans1=8", u"7", u"refused"}) {
            controller_.addOneStringBlindly(line);
        }
    }
    const TXEquationController& controller() const { return controller_; }

private:
    TXEquationController controller_;
};

TEST_P(NameCompletion, findsTheNames) {
    const Completion completion = Completion::ofNameAtEnd(GetParam().equation, controller());
    EXPECT_EQ(toUtf8(completion.suffix), toUtf8(GetParam().suffix));
    EXPECT_EQ(completion.names, GetParam().names);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Completion, NameCompletion, testing::Values(
    CompletionCase{"FunctionBringsItsParenthesis", u"sq",        u"rt(",   {u"sqrt("}},
    CompletionCase{"VariableDoesNot",              u"rad",       u"ius",   {u"radius"}},
    CompletionCase{"BehindAnOperator",             u"2*rad",     u"ius",   {u"radius"}},
    CompletionCase{"BehindADotOperator",           u"2\u22C5rad", u"ius",  {u"radius"}},
    CompletionCase{"InsideParentheses",            u"sin(ra",    u"",      {u"radius", u"rate"}},
    CompletionCase{"CommonPart",                   u"r",         u"a",     {u"radius", u"rate"}},
    CompletionCase{"OneNameMayBeginAnother",       u"si",        u"n",     {u"sin(", u"sinh("}},
    CompletionCase{"NothingInCommon",              u"2+c",       u"",      {u"cbrt(", u"cos(", u"cosh(", u"cot(", u"coth(", u"csc(", u"csch("}},
    CompletionCase{"WholeFunctionGetsParenthesis", u"sqrt",      u"(",     {u"sqrt("}},
    CompletionCase{"WholeVariable",                u"radius",    u"",      {u"radius"}},
    CompletionCase{"Constant",                     u"p",         u"i",     {u"pi"}},
    CompletionCase{"GreekVariable",                u"2*\u03C9",  u"",      {u"\u03C9"}},
    CompletionCase{"AnswersOnceEach",              u"ans",       u"",      {u"ans", u"ans1", u"ans2", u"ans3"}},
    CompletionCase{"NeverAnsweringFunction",       u"atan",      u"(",     {u"atan("}},
    CompletionCase{"UndefinedVariable",            u"ref",       u"",      {}},
    CompletionCase{"CaseCounts",                   u"SI",        u"",      {}},
    CompletionCase{"NumbersAreNoNames",            u"2",         u"",      {}},
    CompletionCase{"UnknownName",                  u"xyz",       u"",      {}}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(Completion, offersEverythingWhereNoNameHasBegun) {
    const TXEquationController controller;
    const Completion completion = Completion::ofNameAtEnd(u"2+", controller);
    EXPECT_EQ(completion.suffix, u"");
    // All functions but one, and pi: ans has no value yet.
    EXPECT_EQ(completion.names.size(), controller.nativeFunctionNames().size());
    EXPECT_EQ(completion.names.front(), u"abs(");
}

TEST(InColumns, readsDownwards) {
    const Names names = {u"a", u"bb", u"ccc", u"d", u"e"};
    const struct {
        const char* name;
        std::size_t width;
        std::size_t maximumLines;
        std::u16string_view text;
    } rows[] = {
        {"one row", 80, 9, u"a    bb   ccc  d    e\n"},
        {"it just fits", 23, 9, u"a    bb   ccc  d    e\n"},
        {"it just does not", 22, 9, u"a    ccc  e\nbb   d\n"},
        {"two columns", 10, 9, u"a    d\nbb   e\nccc\n"},
        {"one column", 3, 9, u"a\nbb\nccc\nd\ne\n"},
        {"a screen that is too narrow", 1, 9, u"a\nbb\nccc\nd\ne\n"},
        {"as many lines as there are", 3, 5, u"a\nbb\nccc\nd\ne\n"},
        {"too few lines", 3, 4, u"a\nbb\nccc\nand 2 more\n"},
        {"a single line", 3, 1, u"a\nand 4 more\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(toUtf8(inColumns(names, row.width, row.maximumLines)), toUtf8(row.text));
    }
    EXPECT_EQ(inColumns({}, 80, 9), u"");
}

}  // namespace
