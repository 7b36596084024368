// Names: built-in functions, the undefined value, `ans`, and variables.
//
// A name is whatever stands between delimiters, so that a bad one is refused as a whole. Functions are recognised
// first: the name of a function is never a variable.

#include "engine/parser/TXEHasher.h"

#include <algorithm>
#include <utility>

#include "engine/controller/TXEquationController.h"
#include "engine/parser/characterClasses.h"
#include "engine/parser/messages.h"
#include "engine/records/filled.h"
#include "engine/records/wellKnown.h"

namespace {

// A text in which `ans` has been written out has at most this many characters, or eight times as many as were typed.
// Names have no bound, so without one a few lines could fill the memory.
constexpr std::size_t longestRewrittenText = std::size_t{1} << 24U;

enum NameCode : std::int32_t {
    validName = 0,
    startsWithDigit = 1,
    isFunction = 2,
    isKeyword = 3,
    hasNoLetter = 4,
    hasBadCharacter = 5,
    answerIsMissing = 6
};

std::u16string_view messageForCode(std::int32_t code) {
    switch (code) {
        case startsWithDigit: return parserMessages::nameStartsWithDigit;
        case isFunction: return parserMessages::nameOfFunction;
        case isKeyword: return parserMessages::nameIsKeyword;
        case hasNoLetter: return parserMessages::nameWithoutLetter;
        case answerIsMissing: return parserMessages::noAnswerYet;
        default: return parserMessages::invalidName;
    }
}

}  // namespace

bool TXEHasher::isUndefinedWord(std::u16string_view name) { return name == u"undefined" || name == u"nil"; }

void TXEHasher::parseFunctionOrVariable() {
    namePosition_ = equationPosition_;
    const std::u16string_view name = getStringUpToOperator();
    if (name.empty()) {
        refuse(parserMessages::emptyName);
        return;
    }
    const std::uint32_t nameHash = TXNameIndex::hash(name);
    if (const TXFunction* function = equationController_->functionDictionary().find(name, nameHash)) {
        setBlockFunction(function->functionIndex());
        return;
    }
    if (const std::int32_t code = codeForName(name, nameHash); code != validName) {
        refuse(messageForCode(code), {name});
        return;
    }
    if (isUndefinedWord(name)) {
        if (equalsCount_ == 0) {
            undefinedWord_ = name;
        }
        addUndefinedVariableToStack();
        return;
    }
    parseTolerance();
    addVariable(name, nameHash);
}

std::int32_t TXEHasher::validationCodeForVariableName(std::u16string_view name) const {
    return codeForName(name, TXNameIndex::hash(name));
}

std::int32_t TXEHasher::codeForName(std::u16string_view name, std::uint32_t nameHash) const {
    if (isDigit(characterAt(equationPosition_ - static_cast<std::int32_t>(name.size()) + 1))) {
        return startsWithDigit;
    }
    if (equationController_->functionDictionary().find(name, nameHash) != nullptr) {
        return isFunction;
    }
    if (equationController_->reservedKeywords().find(name, nameHash) != nullptr) {
        return isKeyword;
    }
    if (name == answerName && !hasAnswer()) {
        return answerIsMissing;
    }
    return codeForCharacters(name);
}

// The characters are those of the equation that end where the name does.
std::int32_t TXEHasher::codeForCharacters(std::u16string_view name) const {
    bool hasLetter = false;
    for (std::int32_t position = equationPosition_ - static_cast<std::int32_t>(name.size()) + 1;
         position <= equationPosition_; ++position) {
        const char16_t character = characterAt(position);
        if (!isValidVariableCharacter(character)) {
            return hasBadCharacter;
        }
        hasLetter = hasLetter || isLetter(character);
    }
    return hasLetter ? validName : hasNoLetter;
}

// After `clearAll` the latest answer's position may lie past the end of the list: that answer is gone.
bool TXEHasher::hasAnswer() const {
    return equationController_->variableArray().holds(equationController_->lastVariableAssignedIndex());
}

std::int32_t TXEHasher::variableIndexForString(std::u16string_view name) const {
    return equationController_->variableArray().indexOf(name);
}

std::int32_t TXEHasher::functionIndexForString(std::u16string_view name) const {
    const TXFunction* function = equationController_->functionDictionary().find(name);
    return function == nullptr ? -1 : function->functionIndex();
}

void TXEHasher::addVariableToStack(std::u16string_view name) { addVariable(name, TXNameIndex::hash(name)); }

void TXEHasher::addVariable(std::u16string_view name, std::uint32_t nameHash) {
    TXVariableArray& variables = equationController_->variableArray();
    std::int32_t variable = name == answerName ? positionOfAns() : variables.indexOf(name, nameHash);
    if (variable == TXNameIndex::none) {
        variable = variables.append(name, nameHash).variableIndex();
    }
    addVariableBlock(variable);
}

// The variable that `ans` means here, noting that it was meant; -1 where there is no answer.
std::int32_t TXEHasher::positionOfAns() {
    overloadedAnsBeforeEquals_ = overloadedAnsBeforeEquals_ || equalsCount_ == 0;
    if (!hasAnswer()) {
        refuse(parserMessages::internalError);
        return TXNameIndex::none;
    }
    if (textBetween(namePosition_, namePosition_ + 2) == answerName) {
        positionsOfAnsVariable_.push_back(namePosition_);
    }
    return equationController_->lastVariableAssignedIndex();
}

void TXEHasher::addUndefinedVariableToStack() { addVariableBlock(undefinedVariableID); }

void TXEHasher::addVariableBlock(std::int32_t variable) {
    if (TXBlockInfo* info = equationBlocks_.info(currentIndex_)) {
        info->setIsDynamic(true);
    }
    workingTXBlock().setVariableID(variable);
    addWorkingBlockToStack();
}

void TXEHasher::replaceAnsVariableInMasterEquationString(TXEquation& equation) {
    if (isThereAnError_ || positionsOfAnsVariable_.empty() || !hasAnswer()) {
        return;
    }
    const TXVariableArray& variables = equationController_->variableArray();
    const std::u16string_view text = unicharEquation_;
    const std::u16string_view replacement = variables[equationController_->lastVariableAssignedIndex()].variableName();
    const std::size_t length = text.size() + positionsOfAnsVariable_.size() * replacement.size();
    if (length > std::max(longestRewrittenText, 8 * text.size())) {
        return;
    }
    std::u16string rewritten;
    rewritten.reserve(length);
    std::size_t copied = 0;
    for (const std::int32_t position : positionsOfAnsVariable_) {
        const auto start = static_cast<std::size_t>(position);
        rewritten += text.substr(copied, start - copied);
        rewritten += replacement;
        copied = start + answerName.size();
    }
    rewritten += text.substr(copied);
    equation.setMasterString(rewritten);
    lookAt(equation.masterString());  // the old text is gone
}
