#pragma once

#include <string_view>

// What the controller itself says to the user.
namespace controllerMessages {

inline constexpr std::u16string_view nothingToCalculate = u"There is nothing to calculate!";

}  // namespace controllerMessages
