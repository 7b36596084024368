#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "engine/controller/TXEquationController.h"
#include "engine/parser/TXEHasher.h"
#include "tests/support/text.h"

// What the tests of the parser share: a line parsed in a session of its own, its block lists as one line of text, and
// the parser opened up for the tests of single steps.

/// One line, parsed but not evaluated, in a fresh session. `pi` is the variable at 0 and `ans` the one at 1, so the
/// first new name stands at 2.
struct ParsedLine {
    explicit ParsedLine(std::u16string_view line)
        : equation(TXEquation::initWithEquationString(std::u16string(line))),
          result(controller.equationHasher().hashEquation(equation)) {}

    TXEquationController controller;
    TXEquation equation;
    TXResult* result;  ///< Lives in the equation.
};

/// A line that is refused, and the message, which is the last that was set.
struct RefusalCase {
    const char* name;
    std::u16string_view line;
    std::u16string_view message;
};

/// A line that is accepted, and its sides as `treeText` shows them; the right one empty where there is no "=".
struct TreeCase {
    const char* name;
    std::u16string_view line;
    std::string_view left;
    std::string_view right = {};
};

inline void PrintTo(const RefusalCase& row, std::ostream* out) { *out << utf8(row.line); }

inline void PrintTo(const TreeCase& row, std::ostream* out) { *out << utf8(row.line); }

/// Names a test after its row.
struct RowName {
    template <class Row>
    std::string operator()(const testing::TestParamInfo<Row>& test) const {
        return test.param.name;
    }
};

/// The shortest digits of a number, and "nan" whatever the sign.
inline std::string digitsOf(double number) {
    if (std::isnan(number)) return "nan";
    std::array<char, 32> text{};
    char* const end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

/// One block: its operator, "~" when it is negative, "m" for a matrix, "f2" for a function, "v2" for a variable (nil
/// for the undefined value), the number, the lists it leads to, the tolerance; "_" where there is no operand.
inline std::string blockText(const TXBlock& block) {
    std::string text;
    if (block.functionID() != -1) {
        text += "f" + std::to_string(block.functionID());
    }
    if (block.variableID() != -1) {
        text += block.variableID() == -2 ? "nil" : "v" + std::to_string(block.variableID());
    }
    if (block.isNumber()) {
        text += digitsOf(block.blockStruct().number);
    }
    for (std::int32_t at = 0; at < block.blockPointers().size(); ++at) {
        text += (at == 0 ? "[" : ",") + std::to_string(block.blockPointers()[at].blockPointerID());
    }
    text += block.blockPointers().empty() ? "" : "]";
    if (block.hasTolerance() || block.toleranceIsUserDefined()) {
        const auto [plus, minus] = block.tolerance();
        text += "±" + digitsOf(plus) + (plus == minus ? "" : "|" + digitsOf(minus));
        text += block.hasTolerance() && block.toleranceIsUserDefined() ? "" : " (half set)";
    }
    const std::u16string sign(block.blockOperator() == 0 ? 0 : 1, block.blockOperator());
    return utf8(sign) + (block.isNegative() ? "~" : "") + (block.isMatrix() ? "m" : "") + (text.empty() ? "_" : text);
}

/// The lists of one side: "0: 2 *[1] | 1@0.1!: 3 +v2" says that list 1 hangs at block 1 of list 0 and is dynamic. Empty
/// for a side that is not there.
inline std::string treeText(const TXBlockLists* side) {
    std::string text;
    for (std::int32_t list = 0; side != nullptr && list < side->size(); ++list) {
        const TXBlockInfo& info = side->info()[static_cast<std::size_t>(list)];
        text += (list == 0 ? "" : " | ") + std::to_string(list);
        if (info.parentIndex() != -1 || info.parentSubIndex() != -1) {
            text += "@" + std::to_string(info.parentIndex()) + "." + std::to_string(info.parentSubIndex());
        }
        text += info.isDynamic() ? "!:" : ":";
        for (const TXBlock& block : (*side)[list]) {
            text += " " + blockText(block);
        }
    }
    return text;
}

/// Expects the line to be refused with exactly this message, and its equation to be left as a refused one.
inline void expectRefusal(const ParsedLine& parsed, std::u16string_view line, std::u16string_view message) {
    ASSERT_NE(parsed.result, nullptr);
    EXPECT_TRUE(parsed.result->isErrorMessage());
    EXPECT_EQ(utf8(parsed.result->errorMessage()), utf8(message));
    EXPECT_EQ(parsed.result->errorMessage(), message);
    EXPECT_FALSE(parsed.result->isHashed());
    EXPECT_EQ(parsed.result->variableToAssign(), -1);
    EXPECT_EQ(parsed.equation.lastResult(), parsed.result);
    EXPECT_FALSE(parsed.equation.leftEquationBlocks());
    EXPECT_FALSE(parsed.equation.leftEquationBlockInfo());
    EXPECT_FALSE(parsed.equation.rightEquationBlocks());
    EXPECT_FALSE(parsed.equation.rightEquationBlockInfo());
    EXPECT_EQ(parsed.equation.masterString(), line);
}

inline void expectRefusal(const RefusalCase& row) {
    const ParsedLine parsed(row.line);
    expectRefusal(parsed, row.line, row.message);
}

/// Expects the line to be accepted with these block lists.
inline void expectTree(const TreeCase& row) {
    const ParsedLine parsed(row.line);
    ASSERT_NE(parsed.result, nullptr);
    EXPECT_FALSE(parsed.result->isErrorMessage()) << utf8(parsed.result->errorMessage());
    EXPECT_TRUE(parsed.result->isHashed());
    EXPECT_EQ(treeText(parsed.equation.leftEquationBlocks()), row.left);
    EXPECT_EQ(treeText(parsed.equation.rightEquationBlocks()), row.right);
}

/// The parser with its steps and its state open to a test.
class OpenHasher : public TXEHasher {
public:
    using TXEHasher::TXEHasher;

    using TXEHasher::gobbleWhitespace;
    using TXEHasher::hashCharacter;
    using TXEHasher::load;
    using TXEHasher::prepareBlocks;
    using TXEHasher::prepareForHashOfLeftSide;
    using TXEHasher::prepareForHashOfRightSide;
    using TXEHasher::reset;
    using TXEHasher::setErrorMessage;

    using TXEHasher::currentEquationResult_;
    using TXEHasher::currentIndex_;
    using TXEHasher::equalsCount_;
    using TXEHasher::equationBlocks_;
    using TXEHasher::equationIndentLevel_;
    using TXEHasher::equationIndentTracker_;
    using TXEHasher::equationLength_;
    using TXEHasher::equationPosition_;
    using TXEHasher::indexOfEquationToHash_;
    using TXEHasher::isThereAnError_;
    using TXEHasher::lastEquationPosition_;
    using TXEHasher::leftEquationBlocks_;
    using TXEHasher::overloadedAnsBeforeEquals_;
    using TXEHasher::parseNegativeNumber_;
    using TXEHasher::positionBeforeHash_;
    using TXEHasher::positionBeforePreviousHash_;
    using TXEHasher::positionsOfAnsVariable_;
    using TXEHasher::workingTXBlock;

    std::u16string stringUpToOperator() { return std::u16string(getStringUpToOperator()); }
};

/// A line loaded into a parser of its own, ready for its left side: nothing of it is read yet.
struct OpenedLine {
    explicit OpenedLine(std::u16string_view line, std::int32_t position = 0)
        : equation(TXEquation::initWithEquationString(std::u16string(line))), hasher(controller) {
        hasher.reset();
        hasher.load(equation);
        hasher.prepareForHashOfLeftSide();
        hasher.equationPosition_ = position;
    }

    /// The message set last, empty for none.
    std::string message() const { return utf8(hasher.currentEquationResult_->errorMessage()); }
    /// Takes the lists out of the parser.
    std::string finishedTree() {
        const TXBlockLists lists = hasher.equationBlocks_.finish();
        return treeText(&lists);
    }

    TXEquationController controller;
    TXEquation equation;
    OpenHasher hasher;
};
