#pragma once

#include <string_view>

// What the evaluator says to the user, word for word; "%@" is filled in.
namespace calculatorMessages {

inline constexpr std::u16string_view undefinedVariable = u"The equation contains an undefined variable: %@.";
inline constexpr std::u16string_view undefinedVariables = u"The equation contains undefined variables: %@.";

inline constexpr std::u16string_view exponentNaN = u"Error in exponents, NaN.  Please report this bug.";
inline constexpr std::u16string_view exponentTooLarge = u"Extremely large exponent result (>10^308) in the equation.";
inline constexpr std::u16string_view internalError = u"Internal error, please report the bug.";

inline constexpr std::u16string_view tooFewArguments = u"%@() has too few arguments.";
inline constexpr std::u16string_view unsupportedFunction = u"%@() is not currently supported as a function.";
inline constexpr std::u16string_view onlyOneArgument = u"%@() only has one argument -- it should have two arguments.";
inline constexpr std::u16string_view atan2Unavailable = u"atan2() is not currently available as a function";
// The second pair of parentheses belongs to the message.
inline constexpr std::u16string_view tooManyForOne =
    u"%@() () has too many arguments -- it should only have one argument.";
inline constexpr std::u16string_view tooManyArguments = u"%@() has too many arguments.";
inline constexpr std::u16string_view imaginaryOrLarge =
    u"%@() produced an imaginary or extremely large (>10^308) result.";

}  // namespace calculatorMessages
