#pragma once

#include <string>

#include "engine/records/TXResult.h"

/// What entering a line would give, found out without entering it.
struct LinePreview {
    /// The answer or the message. The position of the variable to assign is that which it would have.
    TXResult result;
    /// The name of the variable that would be assigned; empty for a bare expression and for a refused line.
    std::u16string variableName;
};
