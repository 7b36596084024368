#include "engine/controller/TXEquationController.h"

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "engine/records/descriptionText.h"
#include "tests/support/text.h"

namespace {

// What the line would give: "5.000000", "x = 5.000000", an error, or "nothing".
std::string foreseen(TXEquationController& controller, std::u16string_view line) {
    const auto preview = controller.previewOneString(line);
    if (!preview) return "nothing";
    if (preview->result.isErrorMessage()) return "Error: " + utf8(preview->result.errorMessage());
    const std::string name = utf8(preview->variableName);
    return (name.empty() ? name : name + " = ") + utf8(fixedText(preview->result.number()));
}

/// All that a session shows of itself.
struct State {
    explicit State(TXEquationController& controller)
        : answerNumber(controller.currentAnswerCacheNumber()),
          lastAssigned(controller.lastVariableAssignedIndex()),
          timesCleared(controller.variableArray().timesCleared()),
          lastResult(controller.lastResult()) {
        for (const TXVariable& variable : controller.variableArray()) {
            variables.emplace_back(&variable, utf8(variable.variableName()), variable.isDefined(), variable.number(),
                                   variable.definedInEquationIndex());
        }
        for (const TXEquation& equation : controller.equationsArray()) {
            equations.emplace_back(&equation, utf8(equation.masterString()));
        }
    }
    bool operator==(const State&) const = default;

    std::int32_t answerNumber;
    std::int32_t lastAssigned;
    std::uint32_t timesCleared;
    const TXResult* lastResult;
    std::vector<std::tuple<const TXVariable*, std::string, bool, double, std::int32_t>> variables;
    std::vector<std::pair<const TXEquation*, std::string>> equations;
};

// Entered one after the other; each is previewed first.
constexpr std::u16string_view session[] = {
    u"ans",  u"2+3*4",         u" \t", u"",        u"x=ans/2", u"x",    u"a+b+c", u"b=2", u"a+b", u"(2+3",  u"ans1*ans",
    u"pi=3", u"new=unknown+1", u"2,3", u"sin(30)", u"y=0x1F",  u"x=-x", u"1e400", u"-5",  u"nil", u"q=w=e", u"5±0.1",
};

TEST(LinePreview, saysWhatTheLineWillGive) {
    TXEquationController controller;
    EXPECT_EQ(foreseen(controller, u"2+3*4"), "14.000000");
    EXPECT_EQ(foreseen(controller, u"  x = 2.5 "), "x = 2.500000");
    EXPECT_EQ(foreseen(controller, u"x+1"), "Error: The equation contains an undefined variable: x.");
    controller.addOneStringBlindly(u"x=4");
    EXPECT_EQ(foreseen(controller, u"x+1"), "5.000000");
    EXPECT_EQ(foreseen(controller, u"ans*2"), "8.000000");
    EXPECT_EQ(foreseen(controller, u" \t "), "nothing");
    EXPECT_EQ(foreseen(controller, u""), "nothing");
}

TEST(LinePreview, isWhatEnteringGives) {
    TXEquationController controller;
    for (const std::u16string_view line : session) {
        const auto preview = controller.previewOneString(line);
        const TXResult* entered = controller.addOneStringBlindly(line);
        ASSERT_EQ(preview.has_value(), entered != nullptr) << utf8(line);
        if (!preview) continue;
        EXPECT_EQ(preview->result.isErrorMessage(), entered->isErrorMessage()) << utf8(line);
        EXPECT_EQ(preview->result.variableToAssign(), entered->variableToAssign()) << utf8(line);
        EXPECT_EQ(preview->result.number(), entered->number()) << utf8(line);
        if (entered->isErrorMessage()) {
            EXPECT_EQ(utf8(preview->result.errorMessage()), utf8(entered->errorMessage()));
            EXPECT_EQ(utf8(preview->variableName), "");
        }
    }
}

TEST(LinePreview, leavesTheSessionAsItWas) {
    TXEquationController controller;
    for (const std::u16string_view line : session) {
        const State before(controller);
        for (const std::u16string_view other : session) {
            controller.previewOneString(other);
            ASSERT_EQ(State(controller), before) << utf8(line) << " and then " << utf8(other);
        }
        controller.addOneStringBlindly(line);
    }
}

TEST(LinePreview, leavesTheParserWithTheLineEnteredLast) {
    TXEquationController controller;
    controller.addOneStringBlindly(u"12");
    // The parser judges a name where it stands in the line: here at the digit 2.
    constexpr std::int32_t startsWithDigit = 1;
    ASSERT_EQ(controller.equationHasher().validationCodeForVariableName(u"xy"), startsWithDigit);
    controller.previewOneString(u"(x)");
    EXPECT_EQ(controller.equationHasher().validationCodeForVariableName(u"xy"), startsWithDigit);
}

TEST(LinePreview, namesOnlyItsOwnLinesUnknownVariables) {
    TXEquationController controller;
    EXPECT_EQ(foreseen(controller, u"first+second"),
              "Error: The equation contains undefined variables: first, second.");
    EXPECT_EQ(foreseen(controller, u"second"), "Error: The equation contains an undefined variable: second.");
    EXPECT_EQ(controller.getVariableIndexForString(u"second"), -1);
    EXPECT_EQ(controller.variableArray().size(), 2);
    controller.addOneStringBlindly(u"second=1");
    EXPECT_EQ(controller.getVariableIndexForString(u"second"), 2);
}

TEST(LinePreview, followsTheAngleUnit) {
    TXEquationController controller;
    controller.setUseRadians(false);
    EXPECT_EQ(foreseen(controller, u"sin(30)"), "0.500000");
}

TEST(LinePreview, findsEveryVariableAfterAddingManyOfItsOwn) {
    TXEquationController controller;
    std::u16string line = u"0";
    for (std::int32_t number = 0; number < 1000; ++number) {
        const std::u16string name = u"v" + integerText(number);
        if (number % 2 == 0) controller.addOneStringBlindly(name + u"=1");
        line += u"+" + name;
    }
    const State before(controller);
    controller.previewOneString(line);
    ASSERT_EQ(State(controller), before);
    for (std::int32_t number = 0; number < 1000; ++number) {
        const bool isKnown = number % 2 == 0;
        ASSERT_EQ(controller.getVariableIndexForString(u"v" + integerText(number)), isKnown ? 2 + number / 2 : -1);
    }
}

}  // namespace
