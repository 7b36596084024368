#pragma once

#include <string_view>

#include "engine/controller/TXEquationController.h"
#include "format/TXNumberFormatter.h"

/// What a line goes through in Tallix: a session and the formatter of its document, at their first settings.
class TallixSession {
public:
    /// Parses and evaluates a line, and stores the equation and its variable. Gives whether it has an answer.
    bool enter(std::u16string_view line) {
        result_ = controller_.addOneStringBlindly(line);
        return result_ != nullptr && !result_->isErrorMessage();
    }

    /// The same with the text of the answer, empty where there is none: good until the next line.
    std::u16string_view answerForLine(std::u16string_view line) {
        return enter(line) ? formatter_.formattedViewForNumber(result_->number()) : std::u16string_view();
    }

private:
    TXEquationController controller_;
    TXNumberFormatterSettings settings_;
    TXNumberFormatter formatter_{&settings_};
    const TXResult* result_ = nullptr;
};
