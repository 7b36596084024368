#include "engine/records/TXResult.h"

#include <utility>

#include "engine/records/descriptionText.h"
#include "engine/records/filled.h"
#include "engine/records/numberText.h"

TXResult TXResult::initWithErrorMessage(std::u16string message) {
    TXResult result;
    result.setErrorMessage(std::move(message));
    return result;
}

TXResult TXResult::initWithNumber(double number) {
    TXResult result;
    result.number_ = number;
    result.isReduced_ = true;
    return result;
}

TXResult TXResult::initWithNumber(double number, std::int32_t toBeAssignedTo) {
    TXResult result = initWithNumber(number);
    result.variableToAssign_ = toBeAssignedTo;
    return result;
}

TXResult TXResult::initWithIsHashed([[maybe_unused]] bool isHashed) {
    TXResult result;
    result.isHashed_ = true;
    return result;
}

void TXResult::setErrorMessage(std::optional<std::u16string> message) {
    isErrorMessage_ = message.has_value();
    if (message) {
        errorMessage_ = std::make_unique<std::u16string>(std::move(*message));
    }
}

const std::u16string& TXResult::errorMessage() const {
    static const std::u16string none;
    return errorMessage_ ? *errorMessage_ : none;
}

std::u16string TXResult::description() {
    if (isErrorMessage_) {
        return filled(u"TXResult (%p): Error: %@", {addressText(this), errorMessage()});
    }
    answerSet_ = false;
    if (variableToAssign_ == -1) {
        return filled(u"TXResult (%p): %@", {addressText(this), numberText(number_)});
    }
    return filled(u"TXResult (%p): %@ for variable %d",
                  {addressText(this), numberText(number_), integerText(variableToAssign_)});
}
