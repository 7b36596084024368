#pragma once

#include <cstdint>
#include <memory>
#include <vector>

// A line as the tree that its grammar says. A power is held to its right, as it is grouped: 2^3^2 is 2^(3^2).
//
//   sum     = [signs] term { signs term }
//   term    = power { ("*" | "/") [signs] power }
//   power   = operand [ "^" [signs] power ]
//   operand = number | variable | "(" sum ")" | function "(" sum ")"

struct PlainSum;

/// What a number, a variable, a group or a function call stands for.
struct PlainOperand {
    double number = 0.0;              ///< Of a group or a call: its value, once it is known.
    std::int32_t variable = -1;       ///< -1 for none, -2 for the word for an undefined value.
    std::int32_t function = -1;       ///< Position in plainFunctions, -1 for none.
    std::unique_ptr<PlainSum> inner;  ///< The group, or the argument.
};

struct PlainPower {
    bool isNegative = false;  ///< The sign in front of it, which is applied after it.
    PlainOperand* base = nullptr;
    std::unique_ptr<PlainPower> exponent;
};

struct PlainFactor {
    bool divides = false;
    PlainPower power;
};

struct PlainTerm {
    bool isSubtracted = false;
    std::vector<PlainFactor> factors;
};

/// The operands stand in the order of the line. They are held here, for they are looked at in other orders too.
struct PlainSum {
    std::vector<std::unique_ptr<PlainOperand>> operands;
    std::vector<PlainTerm> terms;
};
