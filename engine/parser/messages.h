#pragma once

#include <string_view>

// What the parser says to the user, word for word; "%@" and "%C" are filled in.
namespace parserMessages {

// Characters that no equation has.
inline constexpr std::u16string_view semicolon = u"You cannot have a semicolon in the equation.";
inline constexpr std::u16string_view comma = u"You cannot have a comma in the equation.";
inline constexpr std::u16string_view parsingError = u"Parsing error. Please report this bug with the equation.";

// Numbers.
inline constexpr std::u16string_view nothingAfterPrefixAtEnd =
    u"The %@ number at the end of the equation does not have anything after 0%C.";
inline constexpr std::u16string_view nothingAfterPrefix = u"One of your %@ numbers does not have anything after 0%C.";
inline constexpr std::u16string_view badHexadecimalDigit =
    u"Hexadecimal numbers can only have digits 0-9 and letters A-F; you can't have a %C character in an hexadecimal "
    u"number (in 0x%@).";
inline constexpr std::u16string_view badBinaryDigit =
    u"Binary numbers can only have digits 0 or 1; you can't have a %C character in a binary number (in 0b%@).";
inline constexpr std::u16string_view badOctalDigit =
    u"Octal numbers can only have digits 0-7; you can't have a %C character in an octal number (in 0o%@).";
inline constexpr std::u16string_view leadingZero =
    u"You must have a decimal following the leading zero in the number %@ .";
inline constexpr std::u16string_view tooManyExponents = u"You have too many exponents in the number %@ .";
inline constexpr std::u16string_view decimalInExponent = u"You cannot have a decimal in an exponent of %@ .";
inline constexpr std::u16string_view nothingBeforeExponent = u"You must have a number before the exponent in %@ .";
inline constexpr std::u16string_view nothingInExponent = u"You must have a number in the exponent of %@ .";
inline constexpr std::u16string_view noDigits = u"You must have a number in the \"number\" %@ .";
inline constexpr std::u16string_view tooManyDecimals = u"You have too many decimals in the number %@ .";
inline constexpr std::u16string_view numberTooLarge = u"A number is too large";
inline constexpr std::u16string_view operatorAfterNumber = u"There needs to be an operator after %@.";

// Operators and groups.
inline constexpr std::u16string_view cannotEnd = u"The equation cannot end with a %C.";
inline constexpr std::u16string_view cannotBegin = u"The equation cannot begin with a %C.";
inline constexpr std::u16string_view cannotFollow = u"%C can't come right after a %C";
inline constexpr std::u16string_view secondEquals =
    u"You can't have more than one equals sign in the main part of the equation.";
inline constexpr std::u16string_view openingBracket =
    u"[ is not currently supported as a character.  Use ( instead for opening parenthesis.";
// "Opening" here too: that is how the message has always read.
inline constexpr std::u16string_view closingBracket =
    u"] is not currently supported as a character.  Use ) instead for opening parenthesis.";
inline constexpr std::u16string_view unsupportedOperator = u"%C is not currently supported as an operator.";
inline constexpr std::u16string_view operatorBetween = u"You need an operator between %@ and %@.";
inline constexpr std::u16string_view unbalanced = u"Unbalanced Parethesis";

// Names.
inline constexpr std::u16string_view emptyName =
    u"There is an error in the equation.  Please report the equation, since this error shouldn't have happened.  "
    u"Thanks.";
inline constexpr std::u16string_view invalidName = u"Invalid variable name: %@";
inline constexpr std::u16string_view nameStartsWithDigit =
    u"Invalid variable name: %@ (Variables can't start with a number -- they must start with a letter).";
inline constexpr std::u16string_view nameOfFunction = u"Invalid variable name: '%@' is the name of a function.";
inline constexpr std::u16string_view nameIsKeyword = u"Invalid variable name: '%@' is a reserved keyword.";
inline constexpr std::u16string_view nameWithoutLetter =
    u"Invalid variable name: '%@' must have more than numbers and/or underscores in the name.";
inline constexpr std::u16string_view noAnswerYet =
    u"ans is not available to use as a variable yet, since no calculations have been made.";
inline constexpr std::u16string_view internalError = u"Internal error, please report this equation.";

// Tolerances.
// The first of these is for a "±" that nothing follows, which the scan refuses by itself; the last for a "|" that no
// number follows, which the reading of that number refuses.
inline constexpr std::u16string_view toleranceAtEnd = u"Can't have ± at the end of the equation.";
inline constexpr std::u16string_view toleranceWithoutNumber =
    u"± must be followed by a number (you can't have variables or anything else).";
inline constexpr std::u16string_view barWithoutNumber =
    u"In the tolerance, the | symbol must be followed by a number (you can't have variables or anything else).";
inline constexpr std::u16string_view badEndOfTolerance = u"You can't have that character at the end of the equation.";
inline constexpr std::u16string_view octalTolerance = u"Octal numbers not supported yet";
inline constexpr std::u16string_view hexadecimalTolerance = u"Hexadecimal numbers not supported yet";
inline constexpr std::u16string_view binaryTolerance = u"Binary numbers not supported yet";
inline constexpr std::u16string_view decimalInToleranceExponent = u"Exponent must be integer.";
inline constexpr std::u16string_view noToleranceExponent = u"1 Exponent must be an integer.";
inline constexpr std::u16string_view tooManyToleranceDecimals = u"Too many decimals in a tolerance number.";
inline constexpr std::u16string_view tooManyToleranceExponents = u"Too many exponents in a tolerance number.";
inline constexpr std::u16string_view toleranceTooLarge = u"A number in the equation is too large";

// What only the whole equation shows.
inline constexpr std::u16string_view missingOpening =
    u"There is an open parenthesis in the equation -- you are missing a (.";
inline constexpr std::u16string_view missingClosing =
    u"There is an open parenthesis in the equation -- you are missing a ).";
inline constexpr std::u16string_view assignmentForm =
    u"If you want to assign a variable, in needs to be in the form variable=equation.  For example: a=5+2.";
inline constexpr std::u16string_view lockedVariable = u"%@ is a locked variable, so you can't assign it anything.";
inline constexpr std::u16string_view reservedTarget = u"%@ is a reserved keyword, so you can't assign it anything.";
inline constexpr std::u16string_view assignedNothing = u"You can't assign a variable nothing.";

}  // namespace parserMessages
