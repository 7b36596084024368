#pragma once

#include <cstdint>

/// A function that a name stands for. Built-in functions are of type 0; their index is their id.
class TXFunction {
public:
    /// A function of this type, with its index among the functions of the type.
    static TXFunction initWithFunctionType(std::int32_t functionType, std::int32_t index) {
        TXFunction function;
        function.functionType_ = functionType;
        function.functionIndex_ = index;
        return function;
    }

    std::int32_t functionType() const { return functionType_; }
    void setFunctionType(std::int32_t functionType) { functionType_ = functionType; }
    std::int32_t functionIndex() const { return functionIndex_; }
    void setFunctionIndex(std::int32_t functionIndex) { functionIndex_ = functionIndex; }

private:
    std::int32_t functionType_ = 0;
    std::int32_t functionIndex_ = 0;
};
