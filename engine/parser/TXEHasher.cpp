// The front door of the parser: look at one character, hand over to the room that reads what it starts.

#include "engine/parser/TXEHasher.h"

#include <utility>

#include "engine/controller/TXEquationController.h"
#include "engine/parser/characterClasses.h"
#include "engine/parser/messages.h"

TXEHasher::TXEHasher(TXEquationController& controller) : equationController_(&controller) {}

TXResult* TXEHasher::hashEquation(TXEquation& equation) {
    reset();
    load(equation);
    prepareForHashOfLeftSide();
    for (equationPosition_ = 0; equationPosition_ < equationLength_; ++equationPosition_) {
        positionBeforePreviousHash_ = std::exchange(positionBeforeHash_, equationPosition_);
        hashCharacter(characterAt(equationPosition_));
        if (isThereAnError_) {
            break;
        }
    }
    checkForPostHashingErrors();

    handOver(equation);
    replaceAnsVariableInMasterEquationString(equation);
    return currentEquationResult_;
}

// A refused equation has no lists.
void TXEHasher::handOver(TXEquation& equation) {
    if (isThereAnError_) {
        equation.setLeftEquationBlocks({});
        equation.setRightEquationBlocks({});
        return;
    }
    currentEquationResult_->setIsHashed(true);
    if (equalsCount_ == 0) {
        equation.setLeftEquationBlocks(equationBlocks_.finish());
        equation.setRightEquationBlocks({});
    } else {
        equation.setLeftEquationBlocks(std::move(leftEquationBlocks_));
        equation.setRightEquationBlocks(equationBlocks_.finish());
    }
}

void TXEHasher::reset() {
    currentEquationResult_ = nullptr;
    equationPosition_ = 0;
    equationLength_ = 0;
    equalsCount_ = 0;
    currentIndex_ = 0;
    equationIndentLevel_ = 0;
    isThereAnError_ = false;
    unicharEquation_.clear();
    undefinedWord_ = {};
    namePosition_ = 0;
    positionsOfAnsVariable_.clear();
    overloadedAnsBeforeEquals_ = false;
}

// Takes over the equation's text, and gives the equation the fresh result that is filled from here on.
void TXEHasher::load(TXEquation& equation) {
    constexpr std::size_t longest = std::size_t{1} << 27U;  // a character can need some 70 bytes while it is parsed
    currentEquationResult_ = &equation.beginResult();
    indexOfEquationToHash_ = equation.equationIndex();
    positionBeforePreviousHash_ = 0;
    positionBeforeHash_ = 0;
    if (equation.masterString().size() > longest) {
        setErrorMessage(std::u16string(parserMessages::parsingError));
    } else {
        unicharEquation_ = equation.masterString();
    }
    equationLength_ = static_cast<std::int32_t>(unicharEquation_.size());
    lastEquationPosition_ = equationLength_ - 1;
}

void TXEHasher::prepareForHashOfLeftSide() {
    leftEquationBlocks_ = {};
    prepareBlocks();
}

void TXEHasher::prepareForHashOfRightSide() {
    if (!isThereAnError_) {
        leftEquationBlocks_ = equationBlocks_.finish();
    }
    prepareBlocks();
}

void TXEHasher::prepareBlocks() {
    equationIndentTracker_.clear();
    equationIndentTracker_.emplace_back();
    equationBlocks_.begin();
    if (isThereAnError_) {
        equationBlocks_.onlyCount();
    }
}

void TXEHasher::hashCharacter(char16_t character) {
    if (isDigit(character) || character == u'.') {
        parseNumber();
    } else if (isOperator(character)) {
        parseOperator();
    } else if (isWhitespace(character)) {
        gobbleWhitespace();
    } else if (character == u';') {
        setErrorMessage(std::u16string(parserMessages::semicolon));
    } else if (character == u',') {
        setErrorMessage(std::u16string(parserMessages::comma));
    } else {
        parseFunctionOrVariable();
    }
}

void TXEHasher::gobbleWhitespace() {
    if (!isWhitespace(characterAt(equationPosition_))) {
        return;
    }
    while (isWhitespace(characterAt(equationPosition_ + 1))) {
        ++equationPosition_;
    }
}

std::u16string_view TXEHasher::getStringUpToOperator() {
    const std::int32_t start = equationPosition_;
    while (equationPosition_ < equationLength_ && !isVariableDelimiter(characterAt(equationPosition_))) {
        ++equationPosition_;
    }
    --equationPosition_;
    return textBetween(start, equationPosition_);
}

std::u16string_view TXEHasher::textBetween(std::int32_t first, std::int32_t last) const {
    if (first < 0 || first >= equationLength_ || last < first) {
        return {};
    }
    const auto start = static_cast<std::size_t>(first);
    return std::u16string_view(unicharEquation_).substr(start, static_cast<std::size_t>(last) + 1 - start);
}

void TXEHasher::setErrorMessage(std::u16string message) {
    if (currentEquationResult_ != nullptr) {
        currentEquationResult_->setErrorMessage(std::move(message));
    }
    endOfQuotation_.reset();
    isThereAnError_ = true;
    equationBlocks_.onlyCount();
}
