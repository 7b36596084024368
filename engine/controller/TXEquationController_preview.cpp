// What a line would give, without entering it.

#include "engine/controller/TXEquationController.h"

#include <utility>

namespace {

/// Takes back what variables a line adds, however the work on the line ends.
class AddedVariables {
public:
    explicit AddedVariables(TXVariableArray& variables) : variables_(variables), size_(variables.size()) {}
    AddedVariables(const AddedVariables&) = delete;
    AddedVariables& operator=(const AddedVariables&) = delete;
    ~AddedVariables() {
        while (variables_.size() > size_) {
            variables_.removeLast();
        }
    }

private:
    TXVariableArray& variables_;
    std::int32_t size_;
};

}  // namespace

std::optional<LinePreview> TXEquationController::previewOneString(std::u16string_view line) {
    const std::u16string_view text = trimmed(line);
    if (text.empty()) {
        return std::nullopt;
    }
    // A parser and an evaluator of its own, since the session's still answer questions about the line entered last.
    TXEHasher hasher(*this);
    TXECalculator calculator(*this);
    TXEquation equation = TXEquation::initWithEquationString(text);
    equation.setEquationIndex(static_cast<std::int32_t>(equationsArray_.size()));
    const AddedVariables added(variableArray_);
    hasher.hashEquation(equation);
    TXResult* result = calculator.calculateEquation(equation);
    LinePreview preview;
    if (!result->isErrorMessage() && result->variableToAssign() != -1) {
        preview.variableName = variableArray_[result->variableToAssign()].variableName();
    }
    preview.result = std::move(*result);
    return preview;
}
