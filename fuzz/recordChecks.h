#pragma once

#include "engine/controller/TXEquationController.h"

/// Ends the program where the records of a session contradict each other: the links between the block lists of an
/// equation, the positions of variables and equations. Every description is called on the way.
void checkEquation(const TXEquation& equation, const TXVariableArray& variables);

/// Every variable stands where it says, and a name leads to the first that has it.
void checkVariables(const TXEquationController& controller);
