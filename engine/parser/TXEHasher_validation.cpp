// What only the whole equation shows: whether its parentheses balance, and whether its left side can receive an answer.

#include "engine/parser/TXEHasher.h"

#include <utility>

#include "engine/controller/TXEquationController.h"
#include "engine/parser/messages.h"
#include "engine/records/filled.h"
#include "engine/records/wellKnown.h"

void TXEHasher::checkForPostHashingErrors() {
    if (isThereAnError_) {
        return;
    }
    if (equationIndentLevel_ != 0) {
        const bool isClosedTooOften = equationIndentLevel_ < 0;
        refuse(isClosedTooOften ? parserMessages::missingOpening : parserMessages::missingClosing);
    }
    if (equalsCount_ == 0) {
        return;
    }
    if (!isSingleVariableOnTheLeft()) {
        refuse(parserMessages::assignmentForm);
        return;
    }
    const std::int32_t variable = leftEquationBlocks_[0].front().variableID();
    if (std::u16string refusal = refusalOfTarget(variable); !refusal.empty()) {
        setErrorMessage(std::move(refusal));
    }
    if (equationBlocks_.size() == 0) {
        refuse(parserMessages::assignedNothing);
    }
    if (!isThereAnError_) {
        currentEquationResult_->setVariableToAssign(variable);
    }
}

bool TXEHasher::isSingleVariableOnTheLeft() const {
    return leftEquationBlocks_.size() == 1 && leftEquationBlocks_[0].size() == 1 &&
           leftEquationBlocks_[0].front().variableID() != -1;
}

// Why this variable cannot be assigned to; empty when it can. The undefined value stands in no list: its name is the
// word that was typed for it.
std::u16string TXEHasher::refusalOfTarget(std::int32_t variable) const {
    const TXVariableArray& variables = equationController_->variableArray();
    const std::u16string_view name = variables.holds(variable) ? variables[variable].variableName() : undefinedWord_;
    if (name == piName) {  // the variable's own lock is not asked
        return filled(parserMessages::lockedVariable, {name});
    }
    if (overloadedAnsBeforeEquals_) {
        return filled(parserMessages::lockedVariable, {answerName});
    }
    if (isUndefinedWord(name)) {
        return filled(parserMessages::reservedTarget, {name});
    }
    return {};
}
