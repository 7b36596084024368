#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/records/TXBlockPointer.h"
#include "engine/records/TXTolerance.h"

class TXBlock;

/// What the evaluator keeps of a block while it computes: a snapshot of the operand as it was written.
struct _TXBlockStruct {
    _TXBlockStruct() = default;
    /// The block as it is now; its links stay good until it changes.
    _TXBlockStruct(const TXBlock& block);  // not explicit, so that a whole array of blocks can be assigned

    char16_t blockOperator = 0;  ///< The operator in front of the operand, 0 for none.
    bool isNegative = false;
    bool isMatrix = false;
    std::int32_t TXFunction_ = -1;      ///< The id of the built-in function called, -1 for none.
    std::int32_t variablePointer = -1;  ///< The position of the variable read, -1 for none.
    std::int32_t rows = 0;
    std::int32_t columns = 0;          ///< Always 0: a snapshot never computes it.
    double number = 0.0;               ///< The literal without its sign; later the operand's value.
    TXBlockPointerList blockPointers;  ///< The block's own links, shared.
};

/// One operand of an equation together with the operator in front of it: a number, a reference to a variable, a call of
/// a built-in function, a parenthesised group, or a matrix.
///
/// A block is a small value made to stand in arrays. What few blocks have (a tolerance, a computed result, matrix rows,
/// more than one link) is kept aside and costs the others one pointer.
class TXBlock {
public:
    TXBlock() = default;
    /// A block for this literal, without its sign, with the operator in front of it; 0 for none.
    static TXBlock initWithNumber(double number, char16_t andOperator);
    /// A block that reads the variable at this position, with the operator in front of it; 0 for none.
    static TXBlock initWithVariable(std::int32_t variable, char16_t andOperator);

    /// Makes the block a fresh one again. `plusTolerance` and `minusTolerance` are left as they are.
    void setInitialValues();

    /// The operand's value: the result once there is one, else the literal; negated when the block is negative.
    double number() const;
    /// Stores a literal as written, without its sign, and makes this a number block.
    void setNumber(double number) {
        number_ = number;
        marks_.isNumber = true;
    }
    bool isNumber() const { return marks_.isNumber; }

    /// The character that stands in front of the operand: one of + - * / ^ =, or 0 on the first operand of a list.
    char16_t blockOperator() const { return blockOperator_; }
    void setBlockOperator(char16_t blockOperator) { blockOperator_ = blockOperator; }

    /// Whether a unary minus was folded into the operand.
    bool isNegative() const { return marks_.negative; }
    void setNegative(bool negative) { marks_.negative = negative; }

    /// The id of the built-in function that the block calls, -1 for none.
    std::int32_t functionID() const { return functionID_; }
    void setFunctionID(std::int32_t functionID) { functionID_ = functionID; }

    /// The position of the variable that the block reads; -1 for none, -2 for the undefined value.
    std::int32_t variableID() const { return variableID_; }
    void setVariableID(std::int32_t variableID) { variableID_ = variableID; }

    /// The links to the block lists that the block contains; empty until the first is added.
    TXBlockPointerList blockPointers() const {
        if (details_ && !marks_.hasOnlyBlockPointer) {
            return TXBlockPointerList(details_->blockPointerIDs);
        }
        return TXBlockPointerList({&onlyBlockPointerID_, marks_.hasOnlyBlockPointer ? 1U : 0U});
    }
    /// Appends a link to the block list with this index. Elements of a matrix are links like any other.
    void addBlockPointer(std::int32_t blockPointerID) {
        if (numberOfElements() == 0) {
            onlyBlockPointerID_ = blockPointerID;
            marks_.hasOnlyBlockPointer = true;
        } else {
            addFurtherBlockPointer(blockPointerID);
        }
    }
    /// Appends a link to the block list of a matrix's next element, in row order.
    void addMatrixElementPointer(std::int32_t blockPointerID) { addBlockPointer(blockPointerID); }
    std::int32_t numberOfElements() const { return blockPointers().size(); }

    bool isMatrix() const { return marks_.isMatrix; }
    void setIsMatrix(bool isMatrix) { marks_.isMatrix = isMatrix; }
    std::int32_t rows() const { return details_ ? details_->rows : 0; }
    void setRows(std::int32_t rows) { details().rows = rows; }
    /// The links for each row, the count taken as unsigned; 0 where there are no rows.
    std::int32_t columns() const;

    bool isResult() const { return marks_.isResult; }
    void setIsResult(bool isResult) { marks_.isResult = isResult; }
    /// Stores the operand's computed value, from now on its number.
    void setResultNumber(double result);

    _TXTolerance tolerance() const { return details_ ? details_->tolerance : _TXTolerance{}; }
    void setTolerance(_TXTolerance tolerance) { details().tolerance = tolerance; }
    bool hasTolerance() const { return marks_.hasTolerance; }
    void setHasTolerance(bool hasTolerance) { marks_.hasTolerance = hasTolerance; }
    bool toleranceIsUserDefined() const { return marks_.toleranceIsUserDefined; }
    /// A tolerance that the user takes back is gone: `hasTolerance` follows the flag.
    void setToleranceIsUserDefined(bool isUserDefined);

    /// A second place for the deviations, apart from `tolerance`. Nothing in the engine fills it.
    double plusTolerance() const { return details_ ? details_->plusTolerance : 0.0; }
    void setPlusTolerance(double deviation) { details().plusTolerance = deviation; }
    double minusTolerance() const { return details_ ? details_->minusTolerance : 0.0; }
    void setMinusTolerance(double deviation) { details().minusTolerance = deviation; }

    /// The block as the evaluator takes it: the literal as stored, never the result, and no column count.
    _TXBlockStruct blockStruct() const { return _TXBlockStruct(*this); }

    /// One line for logging: "+ -3.000000 ±0.100000".
    std::u16string description() const;

private:
    friend struct _TXBlockStruct;

    struct Details {
        _TXTolerance tolerance;
        double plusTolerance = 0.0;
        double minusTolerance = 0.0;
        double result = 0.0;
        std::int32_t rows = 0;
        std::vector<std::int32_t> blockPointerIDs;  ///< All the links, once there is more than one.
    };

    // Together in one place, so that they are copied as one.
    struct Marks {
        bool hasOnlyBlockPointer : 1 = false;
        bool isNumber : 1 = false;
        bool negative : 1 = false;
        bool isMatrix : 1 = false;
        bool isResult : 1 = false;
        bool hasTolerance : 1 = false;
        bool toleranceIsUserDefined : 1 = false;
    };

    Details& details();
    void addFurtherBlockPointer(std::int32_t blockPointerID);
    std::u16string operandDescription() const;
    std::u16string toleranceDescription() const;

    double number_ = 0.0;
    std::unique_ptr<Details> details_;
    std::int32_t functionID_ = -1;
    std::int32_t variableID_ = -1;
    std::int32_t onlyBlockPointerID_ = -1;
    char16_t blockOperator_ = 0;
    Marks marks_;
};

inline _TXBlockStruct::_TXBlockStruct(const TXBlock& block)
    : blockOperator(block.blockOperator_),
      isNegative(block.marks_.negative),
      isMatrix(block.marks_.isMatrix),
      TXFunction_(block.functionID_),
      variablePointer(block.variableID_),
      rows(block.rows()),
      number(block.number_),
      blockPointers(block.blockPointers()) {}
