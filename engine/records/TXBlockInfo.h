#pragma once

#include <cstdint>
#include <string>

/// Where a block list hangs: the place of the block that contains it.
struct _TXBlockInfoStruct {
    std::int32_t parentIndex = -1;     ///< The list that holds the parent block; -1 for the top level.
    std::int32_t parentSubIndex = -1;  ///< The parent block's place in that list; -1 for the top level.

    bool operator==(const _TXBlockInfoStruct&) const = default;
};

/// A run of blocks in a flat array.
struct TXBlockRange {
    std::int32_t start = 0;
    std::int32_t length = 0;

    std::int32_t end() const { return start + length; }
    bool operator==(const TXBlockRange&) const = default;
};

/// What is known of one block list of an equation side: its parent, its marks, and where its blocks lie in the side's
/// array.
class TXBlockInfo {
public:
    _TXBlockInfoStruct parentBlockInfoStruct() const { return parent_; }
    void setParentBlockInfoStruct(_TXBlockInfoStruct parent) { parent_ = parent; }
    std::int32_t parentIndex() const { return parent_.parentIndex; }
    void setParentIndex(std::int32_t parentIndex) { parent_.parentIndex = parentIndex; }
    std::int32_t parentSubIndex() const { return parent_.parentSubIndex; }
    void setParentSubIndex(std::int32_t parentSubIndex) { parent_.parentSubIndex = parentSubIndex; }

    /// The evaluator has reduced the list to one number.
    bool isReducedToNumber() const { return isReducedToNumber_; }
    void setIsReducedToNumber(bool isReducedToNumber) { isReducedToNumber_ = isReducedToNumber; }

    /// The list's value depends on a variable.
    bool isDynamic() const { return isDynamic_; }
    void setIsDynamic(bool isDynamic) { isDynamic_ = isDynamic; }

    /// The list is one element of a matrix, at `matrixIndex` in row order.
    bool isForMatrix() const { return isForMatrix_; }
    void setIsForMatrix(bool isForMatrix) { isForMatrix_ = isForMatrix; }
    std::int32_t matrixIndex() const { return matrixIndex_; }
    void setMatrixIndex(std::int32_t matrixIndex) { matrixIndex_ = matrixIndex; }

    /// The list's blocks in the array that it shares with the other lists of its side.
    TXBlockRange blockRange() const { return blockRange_; }
    void setBlockRange(TXBlockRange blockRange) { blockRange_ = blockRange; }

    /// One line for logging: "TXBlockInfo (0x5581): Parent=0, parentSubIndex=1, isDynamic=1".
    std::u16string description() const;

private:
    _TXBlockInfoStruct parent_;
    std::int32_t matrixIndex_ = 0;
    TXBlockRange blockRange_;
    bool isReducedToNumber_ = false;
    bool isDynamic_ = false;
    bool isForMatrix_ = false;
};
