#pragma once

#include <optional>

#include "engine/records/TXMatrix.h"

class TXEquationController;

/// Where matrices would be computed with. There is no matrix arithmetic: every operation gives nothing.
class TXEMatrixCalculator {
public:
    /// The controller is referred to, not owned.
    explicit TXEMatrixCalculator(TXEquationController& controller) : equationController_(&controller) {}

    TXEquationController& equationController() const { return *equationController_; }

    /// What the operation, one of + - * / ^, would make of two matrices: always nothing.
    std::optional<TXMatrix> calculateOperation(char16_t operation, const TXMatrix& withFirstMatrix,
                                               const TXMatrix& andSecondMatrix) const;

private:
    TXEquationController* equationController_;
};
