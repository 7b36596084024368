#include "engine/calculator/TXEMatrixCalculator.h"

std::optional<TXMatrix> TXEMatrixCalculator::calculateOperation(
    [[maybe_unused]] char16_t operation, [[maybe_unused]] const TXMatrix& withFirstMatrix,
    [[maybe_unused]] const TXMatrix& andSecondMatrix) const {
    return std::nullopt;
}
