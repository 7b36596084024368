#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/records/TXEquation.h"

class TXEquationController;

/// The evaluator: reduces the block lists of a parsed equation to one number, or to a message for the user.
///
/// It lays the blocks of the side in one array and reduces the lists from the last to the first, so that every group
/// and every argument is a number before the list that contains it. Arithmetic is IEEE 754 double; powers and functions
/// are the C library's. One evaluator serves one controller, one equation at a time.
class TXECalculator {
public:
    /// The controller is referred to, not owned, and must outlive the evaluator.
    explicit TXECalculator(TXEquationController& controller);

    /// Evaluates the right side of the equation, or the left when there is no right, and stores the number or the
    /// message in the equation's own result, which it gives. A result that is an error already is given as it is; an
    /// equation that was never parsed has none, and nullptr is given.
    TXResult* calculateEquation(TXEquation& equation);

    /// Forgets the equation and reads the controller's angle unit anew.
    void reset();

    // The steps of evaluating, public so that each can be tested by itself. They work on the equation evaluated last,
    // which must still be there; without one they do nothing.

    /// Lays out the blocks of the side, each variable's value in place of its number. Variables without a value are
    /// reported, all in one message.
    void prepareForCalculation();
    /// Reduces the lists, from the last to list 0, whose value is the answer. Stops at the first list with an error.
    void calculateEquation();
    /// Computes the function calls of one list, whose arguments must be numbers already. Does nothing where there is no
    /// such list.
    void calculateFunctionsInBlock(std::int32_t list);
    /// One list: powers before products and quotients before sums and differences. Its value goes into the list's
    /// place.
    void calculateMDASInBlock(std::int32_t list);
    /// The powers of the blocks from `from` to `toIndex`, positions in the array of all blocks, grouped from the right.
    /// A sign in front of a base is applied to the power.
    double calculateExponentsFromIndex(std::int32_t from, std::int32_t toIndex);
    /// A built-in function by its id, of the values of the lists to which the links lead. Angles are radians or degrees
    /// as the controller says. What is wrong with the call is reported; a number is given all the same.
    double calculateTXFunction(std::int32_t function, const TXBlockPointerList& withArguments);
    /// Snaps a trigonometric result within 1e-13 of 0 or 1 to it. Values near -1 are left as they are.
    static double formatTrigFunction(double value);

    /// Another way to hand the value of a list to the block that contains it. The driver does not take it.
    void replaceBlockInParent(std::int32_t list);
    /// A place for a debugger to stop and look at the blocks. Nothing to be seen comes of it.
    void logEquationBlocks() const;

    /// Reports that these variables, in ascending order, have no value. -2 is the undefined value, called nil.
    void createUndefinedVariableErrorMessage(const std::vector<std::int32_t>& variables);
    /// Makes the message that of the equation being evaluated, in place of an earlier one.
    void setErrorMessage(std::u16string message);

protected:
    TXEquationController* equationController_;
    TXBlockLists* equationBlocks_ = nullptr;  ///< The side being evaluated, with its information. The equation's own.
    bool isThereAnError_ = false;
    bool preferencesRadians_ = true;
    double finalAnswer_ = 0.0;
    std::int32_t equationBlocksLength_ = 0;
    std::int32_t txBlocksLength_ = 0;
    TXResult* currentEquationResult_ = nullptr;

    // Filled for one equation and emptied after it; the memory serves the next.
    std::vector<TXBlockRange> equationBlockPositions_;      ///< Where each list stands in `TXBlockValues_`.
    std::vector<double> equationBlockValues_;               ///< The value of each list.
    std::vector<_TXBlockInfoStruct> equationBlockStructs_;  ///< The parent of each list.
    std::vector<_TXBlockStruct> TXBlockValues_;             ///< All blocks, the lists one after another.

private:
    void takeBlocks();
    void takeValueOfVariable(_TXBlockStruct& block);
    void reportUndefinedVariables();
    void freeArrays();
    std::span<_TXBlockStruct> blocksOfList(std::int32_t list) {
        const auto [start, length] = equationBlockPositions_[static_cast<std::size_t>(list)];
        return {TXBlockValues_.data() + start, static_cast<std::size_t>(length)};
    }
    double listValue(std::int32_t list) const;
    bool holdsList(std::int32_t list) const {
        return list >= 0 && static_cast<std::size_t>(list) < equationBlockValues_.size();
    }

    // arithmetic
    double termFrom(const _TXBlockStruct*& block, const _TXBlockStruct* last);
    double powerFrom(const _TXBlockStruct*& block, const _TXBlockStruct* last);
    double standaloneOperand(const _TXBlockStruct& block);

    // functions
    double functionOfOne(std::int32_t function, double argument, std::u16string_view& message) const;
    double functionOfTwo(std::int32_t function, double first, double second, std::u16string_view& message) const;
    std::u16string_view functionName(std::int32_t function) const;

    std::vector<std::int32_t> undefinedVariables_;
};
