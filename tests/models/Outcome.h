#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// How a line ended, counted so that a run can show that it met every kind.
enum class Outcome : unsigned char {
    blank,
    number,
    assignment,
    infinite,
    notANumber,
    undefinedVariable,
    undefinedVariables,
    powerNotANumber,
    powerTooLarge,
    functionOutOfRange,
    functionWithOneArgument,
    functionWithoutArguments,
    numberTooLarge,
    toleranceTooLarge,
    noAnswerYet,
    constantAssigned,
    answerAssigned,
    keywordAssigned,
    keywordAsName,
    nameWithoutLetters,
    nameWithOtherCharacters,
};

inline constexpr std::array<std::string_view, 21> outcomeNames{
    "blank line",
    "number",
    "number for a variable",
    "infinity",
    "not a number",
    "undefined variable",
    "undefined variables",
    "power that is not a number",
    "power too large",
    "function out of range",
    "function with one argument of two",
    "function without arguments",
    "literal too large",
    "tolerance too large",
    "ans before any answer",
    "assignment to pi",
    "assignment to ans",
    "assignment to nil or undefined",
    "reserved word as a name",
    "name without letters",
    "name with other characters",
};

inline std::string_view nameOf(Outcome outcome) { return outcomeNames.at(static_cast<std::size_t>(outcome)); }
