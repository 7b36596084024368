// Sessions of lines through the controller under all settings, with what holds after each line.
//
// An input begins with five characters that choose the settings, best followed by a line end: a digit, the sum of 1 for
// degrees and 2 for lines in UTF-16 code units (low byte first) instead of UTF-8, and a FormatChoice. Then come the
// lines. Three of them are no equations: "!degrees", "!radians" and "!clear".
//
//     01A0,
//     x=2+3*4
//     ans/3

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "engine/controller/TXEquationController.h"
#include "engine/records/wellKnown.h"
#include "format/TXNumberFormatter.h"
#include "fuzz/FormatChoice.h"
#include "fuzz/expect.h"
#include "fuzz/recordChecks.h"
#include "terminal/utf8.h"

namespace {

struct Input {
    bool useRadians = true;
    FormatChoice choice;
    std::vector<std::u16string> lines;
};

std::u16string unitsOf(std::string_view bytes) {
    std::u16string units;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned char>(bytes[at]);
        const auto high = static_cast<unsigned char>(bytes[at + 1]);
        units += static_cast<char16_t>(high << 8U | low);
    }
    return units;
}

std::vector<std::u16string> dividedIntoLines(std::u16string_view text) {
    std::vector<std::u16string> lines;
    for (std::size_t end = text.find(u'\n'); end != std::u16string_view::npos; end = text.find(u'\n')) {
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    lines.emplace_back(text);
    return lines;
}

Input inputOf(std::string_view bytes) {
    constexpr std::size_t headLength = 1 + FormatChoice::length;
    if (bytes.size() < headLength) return {};
    const auto marks = static_cast<unsigned char>(bytes.front());
    Input input;
    input.useRadians = (marks & 1U) == 0;
    input.choice = FormatChoice::read(bytes.substr(1));
    bytes.remove_prefix(headLength);
    if (bytes.starts_with('\n')) bytes.remove_prefix(1);
    input.lines = dividedIntoLines((marks & 2U) == 0 ? toUtf16(bytes) : unitsOf(bytes));
    return input;
}

/// What a preview and a refused line leave as it was.
struct Bookkeeping {
    std::int32_t answerNumber = 0;
    std::int32_t lastAssigned = -1;
    std::vector<std::pair<bool, std::uint64_t>> values;  ///< Of each variable: whether it has one, and its bits.
    std::int32_t namesFound = 0;                         ///< How many variables their names lead to.

    explicit Bookkeeping(const TXEquationController& controller)
        : answerNumber(controller.currentAnswerCacheNumber()), lastAssigned(controller.lastVariableAssignedIndex()) {
        for (const TXVariable& variable : controller.variableArray()) {
            values.emplace_back(variable.isDefined(), std::bit_cast<std::uint64_t>(variable.number()));
            if (controller.getVariableIndexForString(variable.variableName()) == variable.variableIndex()) ++namesFound;
        }
    }
    bool operator==(const Bookkeeping&) const = default;
};

/// All that a preview and a blank line leave as it was.
struct WholeState {
    Bookkeeping bookkeeping;
    std::vector<std::tuple<std::u16string, std::int32_t, std::int32_t, bool, bool, bool>> variables;
    std::size_t equations = 0;
    std::u16string lastEquation;
    const TXResult* lastResult = nullptr;
    std::u16string lastMessage;
    std::uint32_t timesCleared = 0;

    explicit WholeState(TXEquationController& controller)
        : bookkeeping(controller),
          equations(controller.equationsArray().size()),
          lastResult(controller.lastResult()),
          timesCleared(controller.variableArray().timesCleared()) {
        for (const TXVariable& variable : controller.variableArray()) {
            variables.emplace_back(variable.variableName(), variable.variableIndex(), variable.definedInEquationIndex(),
                                   variable.isAutoCached(), variable.isLocked(), variable.definedState());
        }
        if (equations == 0) return;
        lastEquation = controller.equationsArray().back().masterString();
        if (lastResult != nullptr) lastMessage = lastResult->errorMessage();
    }
    bool operator==(const WholeState&) const = default;
};

/// What became of a line.
struct Outcome {
    bool isError = false;
    std::uint64_t number = 0;
    std::int32_t variable = -1;
    std::u16string text;    ///< The message, or the number as shown.
    std::u16string master;  ///< The equation as it is kept.
    bool operator==(const Outcome&) const = default;
};

class Run {
public:
    Run(TXEquationController& controller, const Input& input)
        : controller_(controller), input_(input), formatter_(&input.choice.settings) {
        controller_.setUseRadians(input.useRadians);
    }

    std::vector<Outcome> outcomes() {
        for (const std::u16string& line : input_.lines) {
            if (line == u"!degrees" || line == u"!radians") {
                controller_.setUseRadians(line == u"!radians");
            } else if (line == u"!clear") {
                controller_.clearAll();
                expect(controller_.lastResult() == nullptr, "a cleared session has no result");
            } else {
                enter(line);
            }
        }
        checkVariables(controller_);
        return std::move(outcomes_);
    }

private:
    void enter(std::u16string_view line) {
        const std::size_t count = controller_.equationsArray().size();
        const WholeState state(controller_);
        const Bookkeeping& before = state.bookkeeping;
        const std::optional<LinePreview> preview = controller_.previewOneString(line);
        expect(state == WholeState(controller_), "a preview changes nothing");
        TXResult* const result = controller_.addOneStringBlindly(line);
        expect(preview.has_value() == (result != nullptr), "a blank line has no preview");
        if (result == nullptr) {
            expect(state == WholeState(controller_), "a blank line changes nothing");
            return;
        }
        expect(controller_.equationsArray().size() == count + 1, "a line is stored once");
        const TXEquation& equation = controller_.equationsArray().back();
        expect(equation.equationIndex() == static_cast<std::int32_t>(count), "an equation knows its position");
        expect(equation.lastResult() == result && controller_.lastResult() == result, "a result lives in its equation");
        checkEquation(equation, controller_.variableArray());
        checkPreview(*preview, *result);
        if (result->isErrorMessage()) {
            checkRefused(*result, before);
        } else {
            checkAccepted(*result, before, static_cast<std::int32_t>(count));
        }
        keepOutcome(*result, equation);
    }

    void checkPreview(const LinePreview& preview, const TXResult& result) const {
        const bool isError = result.isErrorMessage();
        expect(preview.result.isErrorMessage() == isError, "a preview is refused as the line is");
        expect(!isError || preview.result.errorMessage() == result.errorMessage(), "a preview has the line's message");
        expect(std::bit_cast<std::uint64_t>(preview.result.number()) == std::bit_cast<std::uint64_t>(result.number()),
               "a preview has the line's number");
        const std::int32_t assigned = isError ? -1 : result.variableToAssign();
        expect(preview.variableName == (assigned == -1 ? u"" : controller_.variableArray()[assigned].variableName()),
               "a preview names the line's variable");
    }

    void checkRefused(const TXResult& result, const Bookkeeping& before) const {
        expect(!result.errorMessage().empty(), "a refused line has a message");
        Bookkeeping after(controller_);
        expect(after.values.size() >= before.values.size(), "variables stay");
        for (std::size_t position = before.values.size(); position < after.values.size(); ++position) {
            expect(!after.values[position].first, "what a refused line names has no value");
        }
        after.values.resize(before.values.size());
        after.namesFound = before.namesFound;
        expect(after == before, "a refused line leaves answers and numbering as they were");
    }

    void checkAccepted(const TXResult& result, const Bookkeeping& before, std::int32_t equationIndex) const {
        const TXVariableArray& variables = controller_.variableArray();
        const std::int32_t assigned = controller_.lastVariableAssignedIndex();
        const bool isBare = result.variableToAssign() == -1;
        expect(isBare || variables.holds(result.variableToAssign()), "the assigned variable exists");
        expect(assigned == (isBare ? variables.size() - 1 : result.variableToAssign()), "the newest answer is known");
        expect(assigned > answerPosition, "neither pi nor ans is assigned");
        const Bookkeeping after(controller_);
        expect(after.answerNumber == before.answerNumber + (isBare ? 1 : 0), "a bare answer takes the next number");
        const TXVariable& variable = variables[assigned];
        expect(variable.definedInEquationIndex() == equationIndex, "the variable knows its equation");
        const std::pair value(true, std::bit_cast<std::uint64_t>(result.number()));
        expect(after.values[static_cast<std::size_t>(assigned)] == value, "the variable has the answer");
        expect(after.values[static_cast<std::size_t>(answerPosition)] == value, "ans has the answer");
        if (isBare) {
            const std::string name = "ans" + std::to_string(after.answerNumber);
            expect(toUtf8(variable.variableName()) == name && variable.isAutoCached(), "a bare answer is numbered");
        }
        checkOthers(before, after, assigned);
    }

    static void checkOthers(const Bookkeeping& before, const Bookkeeping& after, std::int32_t assigned) {
        for (std::size_t position = 0; position < before.values.size(); ++position) {
            const auto index = static_cast<std::int32_t>(position);
            if (index == assigned || index == answerPosition) continue;
            expect(after.values[position] == before.values[position], "no other variable changes");
        }
    }

    void keepOutcome(TXResult& result, const TXEquation& equation) {
        expect(!result.description().empty(), "a result has a description");
        Outcome outcome;
        outcome.isError = result.isErrorMessage();
        outcome.number = std::bit_cast<std::uint64_t>(result.number());
        outcome.variable = result.variableToAssign();
        outcome.text = outcome.isError ? result.errorMessage() : formatter_.formattedNumberForNumber(result.number());
        outcome.master = equation.masterString();
        expect(!outcome.text.empty() && !outcome.master.empty(), "an entry of the history has its texts");
        outcomes_.push_back(std::move(outcome));
    }

    TXEquationController& controller_;
    const Input& input_;
    TXNumberFormatter formatter_;
    std::vector<Outcome> outcomes_;
};

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const Input input = inputOf(bytes);
    TXEquationController controller;
    const std::vector<Outcome> outcomes = Run(controller, input).outcomes();
    // A session that was cleared is a new one, whatever parser and evaluator have worked on before.
    controller.clearAll();
    controller.setLastVariableAssignedIndex(-1);
    expect(Run(controller, input).outcomes() == outcomes, "the same session has the same answers");
    return 0;
}
