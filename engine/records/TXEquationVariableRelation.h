#pragma once

#include <cstdint>

/// The pairing of an equation with a variable, each by its index.
class TXEquationVariableRelation {
public:
    /// The pairing of the equation and the variable at these positions.
    static TXEquationVariableRelation initWithEquationIndex(std::int32_t equationIndex, std::int32_t variableIndex) {
        TXEquationVariableRelation relation;
        relation.equationIndex_ = equationIndex;
        relation.variableIndex_ = variableIndex;
        return relation;
    }

    std::int32_t equationIndex() const { return equationIndex_; }
    void setEquationIndex(std::int32_t index) { equationIndex_ = index; }
    std::int32_t variableIndex() const { return variableIndex_; }
    void setVariableIndex(std::int32_t index) { variableIndex_ = index; }

private:
    std::int32_t equationIndex_ = 0;
    std::int32_t variableIndex_ = 0;
};
