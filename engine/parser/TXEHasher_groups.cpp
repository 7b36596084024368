// Opening and closing block lists: parenthesised groups, function arguments, matrix elements.
//
// Each nesting level has a cursor. Below level 0 (more closing than opening parentheses, an error that is already
// reported) there is no cursor, and so nothing waits for a group there.

#include "engine/parser/TXEHasher.h"

#include "engine/parser/messages.h"

TXPosition* TXEHasher::positionAtLevel(std::int32_t level) {
    const bool isThere = level >= 0 && static_cast<std::size_t>(level) < equationIndentTracker_.size();
    return isThere ? &equationIndentTracker_[static_cast<std::size_t>(level)] : nullptr;
}

// The function block that waits for its group on a level, or else the matrix block; nullptr for none.
TXBlock* TXEHasher::pendingBlock(const TXPosition& position) {
    if (position.currentlyParsingTXFunction()) {
        return equationBlocks_.block(position.currentTXFunctionIndex(), position.currentTXFunctionSubIndex());
    }
    if (position.currentlyParsingTXMatrix()) {
        return equationBlocks_.block(position.currentTXMatrixIndex(), position.currentTXMatrixSubIndex());
    }
    return nullptr;
}

void TXEHasher::setCurrentBlockPointer(std::int32_t blockList) {
    workingTXBlock().addBlockPointer(blockList);
    addWorkingBlockToStack();
}

void TXEHasher::setBlockFunction(std::int32_t functionIndex) {
    workingTXBlock().setFunctionID(functionIndex);
    addWorkingBlockToStack();
    if (TXPosition* position = positionAtLevel(equationIndentLevel_)) {
        position->setCurrentlyParsingTXFunction(true);
        position->setCurrentTXFunctionIndex(currentIndex_);
        position->setCurrentTXFunctionSubIndex(equationBlocks_.count(currentIndex_) - 1);
    }
}

void TXEHasher::incrementBlockIndent() {
    const std::int32_t newList = equationBlocks_.openList();
    const TXPosition* outer = positionAtLevel(equationIndentLevel_);
    if (TXBlock* pending = outer == nullptr ? nullptr : pendingBlock(*outer)) {
        pending->addBlockPointer(newList);
    } else {
        setCurrentBlockPointer(newList);
    }
    equationBlocks_.info(newList)->setParentBlockInfoStruct(
        {.parentIndex = currentIndex_, .parentSubIndex = equationBlocks_.count(currentIndex_) - 1});
    currentIndex_ = newList;
    enterLevel(equationIndentLevel_ + 1);
}

void TXEHasher::enterLevel(std::int32_t level) {
    equationIndentLevel_ = level;
    TXPosition* position = positionAtLevel(level);
    if (position != nullptr) {
        position->resetValues();
    } else if (level > 0) {
        position = &equationIndentTracker_.emplace_back();
    } else {
        return;
    }
    position->setCurrentIndex(currentIndex_);
}

void TXEHasher::decrementBlockIndent() {
    --equationIndentLevel_;
    TXPosition* position = positionAtLevel(equationIndentLevel_);
    if (position == nullptr) {
        refuse(parserMessages::unbalanced);
        return;
    }
    position->setCurrentlyParsingTXFunction(false);
    position->setCurrentlyParsingTXMatrix(false);
    currentIndex_ = position->currentIndex();
}

// Goes on to the next argument of a function, or element of a matrix, whose block is at `subIndex` of `list`.
void TXEHasher::openArgument(std::int32_t list, std::int32_t subIndex) {
    TXBlock* parent = equationBlocks_.block(list, subIndex);
    TXPosition* position = positionAtLevel(equationIndentLevel_);
    if (parent == nullptr || position == nullptr) {
        return;
    }
    currentIndex_ = equationBlocks_.openList({.parentIndex = list, .parentSubIndex = subIndex});
    position->setCurrentIndex(currentIndex_);
    parent->addBlockPointer(currentIndex_);
}

void TXEHasher::incrementFunctionArgument() {
    if (const TXPosition* outer = positionAtLevel(equationIndentLevel_ - 1)) {
        openArgument(outer->currentTXFunctionIndex(), outer->currentTXFunctionSubIndex());
    }
}

void TXEHasher::parseMatrix() {
    workingTXBlock().setIsMatrix(true);
    addWorkingBlockToStack();
    if (TXPosition* position = positionAtLevel(equationIndentLevel_)) {
        position->setCurrentlyParsingTXMatrix(true);
        position->setCurrentTXMatrixIndex(currentIndex_);
        position->setCurrentTXMatrixSubIndex(equationBlocks_.count(currentIndex_) - 1);
    }
    incrementBlockIndent();
}

void TXEHasher::incrementMatrixElement() {
    if (const TXPosition* outer = positionAtLevel(equationIndentLevel_ - 1)) {
        openArgument(outer->currentTXMatrixIndex(), outer->currentTXMatrixSubIndex());
    }
    gobbleWhitespace();
}

void TXEHasher::incrementMatrixRow() {
    incrementMatrixElement();
    gobbleWhitespace();
}
