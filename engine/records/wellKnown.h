#pragma once

#include <cstdint>
#include <string_view>

// What every part of the engine knows of the variables that are always there, and of the value that is none.

inline constexpr std::u16string_view piName = u"pi";
inline constexpr double piValue = 3.141592653589793;

/// The latest answer's name; numbered answers begin with it.
inline constexpr std::u16string_view answerName = u"ans";
inline constexpr std::int32_t answerPosition = 1;

/// The variable id of the value of `nil` and `undefined`. No variable stands at it.
inline constexpr std::int32_t undefinedVariableID = -2;
inline constexpr std::u16string_view undefinedValueName = u"nil";
