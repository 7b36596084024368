#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The pieces of which log descriptions are made. They follow C's printf to the letter, but never ask the locale.

/// "%d": the decimal digits of `number`, with a "-" when it is negative.
std::u16string integerText(std::int32_t number);

/// "%f": `number` with six digits after the point; "inf", "-inf" or "nan" where it is not finite.
std::u16string fixedText(double number);

/// "%p": the address of an object, in lower-case hexadecimal after "0x"; "(nil)" for none.
std::u16string addressText(const void* object);
