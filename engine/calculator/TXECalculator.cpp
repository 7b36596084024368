// The driver: lay the blocks out, put in the variables' values, reduce list after list.

#include "engine/calculator/TXECalculator.h"

#include <algorithm>
#include <utility>

#include "engine/calculator/messages.h"
#include "engine/controller/TXEquationController.h"
#include "engine/records/filled.h"
#include "engine/records/wellKnown.h"

TXECalculator::TXECalculator(TXEquationController& controller) : equationController_(&controller) {}

void TXECalculator::reset() {
    equationBlocks_ = nullptr;
    currentEquationResult_ = nullptr;
    isThereAnError_ = false;
    finalAnswer_ = 0.0;
    equationBlocksLength_ = 0;
    preferencesRadians_ = equationController_->useRadians();
}

TXResult* TXECalculator::calculateEquation(TXEquation& equation) {
    TXResult* result = equation.lastResult();
    if (result == nullptr || result->isErrorMessage()) {
        return result;
    }
    reset();
    currentEquationResult_ = result;
    equationBlocks_ =
        equation.rightEquationBlocks() != nullptr ? equation.rightEquationBlocks() : equation.leftEquationBlocks();
    prepareForCalculation();
    if (!isThereAnError_) {
        calculateEquation();
    }
    if (!isThereAnError_) {
        result->setNumber(listValue(0));
    }
    freeArrays();
    return result;
}

void TXECalculator::prepareForCalculation() {
    freeArrays();
    if (equationBlocks_ == nullptr) {
        return;
    }
    equationBlocksLength_ = equationBlocks_->size();
    txBlocksLength_ = equationBlocks_->blockCount();
    for (const TXBlockInfo& list : equationBlocks_->info()) {
        equationBlockPositions_.push_back(list.blockRange());
        equationBlockStructs_.push_back(list.parentBlockInfoStruct());
        equationBlockValues_.push_back(0.0);
    }
    takeBlocks();
}

// Lays the blocks out, with the values of the variables in place of their own numbers.
void TXECalculator::takeBlocks() {
    const auto blocks = std::as_const(*equationBlocks_).blocks();
    TXBlockValues_.assign(blocks.begin(), blocks.end());
    for (_TXBlockStruct& block : TXBlockValues_) {
        if (block.variablePointer != -1) {
            takeValueOfVariable(block);
        }
    }
    if (!undefinedVariables_.empty()) {
        reportUndefinedVariables();
    }
}

void TXECalculator::takeValueOfVariable(_TXBlockStruct& block) {
    const TXVariableArray& variables = equationController_->variableArray();
    if (variables.holds(block.variablePointer) && variables[block.variablePointer].isDefined()) {
        block.number = variables[block.variablePointer].number();
    } else {
        undefinedVariables_.push_back(block.variablePointer);
    }
}

void TXECalculator::reportUndefinedVariables() {
    if (!std::is_sorted(undefinedVariables_.begin(), undefinedVariables_.end())) {
        std::sort(undefinedVariables_.begin(), undefinedVariables_.end());
    }
    undefinedVariables_.erase(std::unique(undefinedVariables_.begin(), undefinedVariables_.end()),
                              undefinedVariables_.end());
    createUndefinedVariableErrorMessage(undefinedVariables_);
}

void TXECalculator::freeArrays() {
    equationBlockPositions_.clear();
    equationBlockValues_.clear();
    equationBlockStructs_.clear();
    TXBlockValues_.clear();
    undefinedVariables_.clear();
    equationBlocksLength_ = 0;
    txBlocksLength_ = 0;
}

void TXECalculator::calculateEquation() {
    for (std::int32_t list = equationBlocksLength_ - 1; list >= 0; --list) {
        calculateFunctionsInBlock(list);
        calculateMDASInBlock(list);
        if (isThereAnError_) {
            return;
        }
        if (list != 0) {
            // The parent keeps its own sign, so -(2+3) is -5.
            const auto [parentIndex, parentSubIndex] = equationBlockStructs_[static_cast<std::size_t>(list)];
            blocksOfList(parentIndex)[static_cast<std::size_t>(parentSubIndex)].number = listValue(list);
        }
    }
}

void TXECalculator::calculateFunctionsInBlock(std::int32_t list) {
    if (!holdsList(list)) {
        return;
    }
    for (_TXBlockStruct& block : blocksOfList(list)) {
        if (block.TXFunction_ != -1) {
            block.number = calculateTXFunction(block.TXFunction_, block.blockPointers);
        }
    }
}

// The value of a list that has been reduced; 0 where there is no such list.
double TXECalculator::listValue(std::int32_t list) const {
    return holdsList(list) ? equationBlockValues_[static_cast<std::size_t>(list)] : 0.0;
}

void TXECalculator::replaceBlockInParent(std::int32_t list) {
    if (equationBlocks_ == nullptr || list <= 0 || list >= equationBlocks_->size()) {
        return;
    }
    const auto [parentIndex, parentSubIndex] =
        equationBlocks_->info()[static_cast<std::size_t>(list)].parentBlockInfoStruct();
    const auto blocks = std::as_const(*equationBlocks_)[list];
    if (blocks.empty() || parentIndex < 0) {
        return;
    }
    TXBlock& parent = equationBlocks_->block(parentIndex, parentSubIndex);
    if (parent.functionID() == -1) {
        parent.setResultNumber(blocks.front().number());
    }
}

void TXECalculator::logEquationBlocks() const {
    for (std::int32_t position = 0; position < txBlocksLength_; ++position) {
        [[maybe_unused]] const _TXBlockStruct& block = TXBlockValues_[static_cast<std::size_t>(position)];
    }
}

void TXECalculator::createUndefinedVariableErrorMessage(const std::vector<std::int32_t>& variables) {
    const TXVariableArray& known = equationController_->variableArray();
    std::u16string names;
    for (const std::int32_t variable : variables) {
        names += names.empty() ? u"" : u", ";
        names += known.holds(variable) ? known[variable].variableName() : undefinedValueName;
    }
    const bool isOne = variables.size() == 1;
    setErrorMessage(
        filled(isOne ? calculatorMessages::undefinedVariable : calculatorMessages::undefinedVariables, {names}));
}

void TXECalculator::setErrorMessage(std::u16string message) {
    if (currentEquationResult_ != nullptr) {
        currentEquationResult_->setErrorMessage(std::move(message));
    }
    isThereAnError_ = true;
}
