// The front door of the parser: look at one character, hand over to the room that reads what it starts.

#include "engine/parser/TXEHasher.h"

#include <utility>

#include "engine/controller/TXEquationController.h"
#include "engine/parser/characterClasses.h"
#include "engine/parser/messages.h"
#include "engine/records/filled.h"

TXEHasher::TXEHasher(TXEquationController& controller) : equationController_(&controller) {}

TXResult* TXEHasher::hashEquation(TXEquation& equation) {
    reset();
    load(equation);
    prepareForHashOfLeftSide();
    scan();
    checkForPostHashingErrors();

    handOver(equation);
    replaceAnsVariableInMasterEquationString(equation);
    return currentEquationResult_;
}

inline void TXEHasher::hashCharacter(char16_t character) {
    switch (characterKind(character)) {
        case CharacterKind::number: parseNumber(); break;
        case CharacterKind::operatorRun: parseOperator(); break;
        case CharacterKind::blank: gobbleWhitespace(); break;
        case CharacterKind::semicolon: refuse(parserMessages::semicolon); break;
        case CharacterKind::comma: refuse(parserMessages::comma); break;
        case CharacterKind::name: parseFunctionOrVariable(); break;
    }
}

void TXEHasher::scan() {
    for (equationPosition_ = 0; equationPosition_ < equationLength_; ++equationPosition_) {
        positionBeforePreviousHash_ = std::exchange(positionBeforeHash_, equationPosition_);
        hashCharacter(*textFrom(equationPosition_));
        if (isThereAnError_) {
            return;
        }
    }
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
        equation.setLeftEquationBlocks(equationBlocks_.finish(memory_));
        equation.setRightEquationBlocks({});
    } else {
        equation.setLeftEquationBlocks(std::move(leftEquationBlocks_));
        equation.setRightEquationBlocks(equationBlocks_.finish(memory_));
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
    unicharEquation_ = {};
    lastEquationPosition_ = -1;
    undefinedWord_ = {};
    namePosition_ = 0;
    positionsOfAnsVariable_.clear();
    leftEquationBlocks_ = {};  // of a refused line; its memory goes with the session's
    overloadedAnsBeforeEquals_ = false;
}

// Looks at the equation's text, and gives the equation the fresh result that is filled from here on.
void TXEHasher::load(TXEquation& equation) {
    constexpr std::size_t longest = std::size_t{1} << 27U;  // a character can need some 70 bytes while it is parsed
    currentEquationResult_ = &equation.beginResult();
    memory_ = equation.memory();
    indexOfEquationToHash_ = equation.equationIndex();
    positionBeforePreviousHash_ = 0;
    positionBeforeHash_ = 0;
    if (equation.masterString().size() > longest) {
        refuse(parserMessages::parsingError);
    } else {
        lookAt(equation.masterString());
    }
}

void TXEHasher::prepareForHashOfLeftSide() {
    leftEquationBlocks_ = {};
    prepareBlocks();
}

void TXEHasher::prepareForHashOfRightSide() {
    if (!isThereAnError_) {
        leftEquationBlocks_ = equationBlocks_.finish(memory_);
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

void TXEHasher::gobbleWhitespace() {
    if (!isWhitespace(characterAt(equationPosition_))) {
        return;
    }
    while (isWhitespace(characterAt(equationPosition_ + 1))) {
        ++equationPosition_;
    }
}

std::u16string_view TXEHasher::getStringUpToOperator() {
    const std::u16string_view rest = textBetween(equationPosition_, lastEquationPosition_);
    std::size_t length = 0;
    while (length < rest.size() && !isVariableDelimiter(rest[length])) {
        ++length;
    }
    equationPosition_ += static_cast<std::int32_t>(length) - 1;
    return rest.substr(0, length);
}

std::u16string_view TXEHasher::textBetween(std::int32_t first, std::int32_t last) const {
    if (first < 0 || first >= equationLength_ || last < first) {
        return {};
    }
    const auto start = static_cast<std::size_t>(first);
    return unicharEquation_.substr(start, static_cast<std::size_t>(last) + 1 - start);
}

void TXEHasher::refuse(std::u16string_view message, std::initializer_list<std::u16string_view> parts) {
    setErrorMessage(filled(message, parts));
}

void TXEHasher::setErrorMessage(std::u16string message) {
    if (currentEquationResult_ != nullptr) {
        currentEquationResult_->setErrorMessage(std::move(message));
    }
    endOfQuotation_.reset();
    isThereAnError_ = true;
    equationBlocks_.onlyCount();
}
