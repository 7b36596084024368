#pragma once

#include <cstdint>
#include <string>

/// The parser's cursor on one nesting level: the block list of that level, and the function or matrix block in it that
/// still waits for its group.
class TXPosition {
public:
    /// Makes the cursor fresh, except that `currentlyParsingTXMatrix` keeps its value: it is false only from creation.
    void resetValues() {
        const bool keptMatrixMark = currentlyParsingTXMatrix_;
        *this = TXPosition();
        currentlyParsingTXMatrix_ = keptMatrixMark;
    }

    std::int32_t currentIndex() const { return currentIndex_; }
    void setCurrentIndex(std::int32_t index) { currentIndex_ = index; }

    /// The list and the place in it of the function block that waits; -1 when there was none.
    std::int32_t currentTXFunctionIndex() const { return currentTXFunctionIndex_; }
    void setCurrentTXFunctionIndex(std::int32_t index) { currentTXFunctionIndex_ = index; }
    std::int32_t currentTXFunctionSubIndex() const { return currentTXFunctionSubIndex_; }
    void setCurrentTXFunctionSubIndex(std::int32_t subIndex) { currentTXFunctionSubIndex_ = subIndex; }
    bool currentlyParsingTXFunction() const { return currentlyParsingTXFunction_; }
    void setCurrentlyParsingTXFunction(bool isParsing) { currentlyParsingTXFunction_ = isParsing; }

    /// The same for a matrix block.
    std::int32_t currentTXMatrixIndex() const { return currentTXMatrixIndex_; }
    void setCurrentTXMatrixIndex(std::int32_t index) { currentTXMatrixIndex_ = index; }
    std::int32_t currentTXMatrixSubIndex() const { return currentTXMatrixSubIndex_; }
    void setCurrentTXMatrixSubIndex(std::int32_t subIndex) { currentTXMatrixSubIndex_ = subIndex; }
    bool currentlyParsingTXMatrix() const { return currentlyParsingTXMatrix_; }
    void setCurrentlyParsingTXMatrix(bool isParsing) { currentlyParsingTXMatrix_ = isParsing; }

    /// One line for logging; the matrix fields are not shown.
    std::u16string description() const;

private:
    std::int32_t currentIndex_ = 0;
    std::int32_t currentTXFunctionIndex_ = -1;
    std::int32_t currentTXFunctionSubIndex_ = -1;
    bool currentlyParsingTXFunction_ = false;
    std::int32_t currentTXMatrixIndex_ = -1;
    std::int32_t currentTXMatrixSubIndex_ = -1;
    bool currentlyParsingTXMatrix_ = false;
};
