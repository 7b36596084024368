#pragma once

#include <array>
#include <string_view>

#include "format/TXNumberFormatterSettings.h"

/// The settings under which the texts of numbers are benchmarked, by name.
inline constexpr std::array<std::string_view, 5> textChoiceNames{"automatic", "5-figures", "2-places-separators",
                                                                 "engineering", "hexadecimal"};

/// Makes `settings`, which are as at first, those of a choice. Gives whether there is a choice of this name.
inline bool choose(std::string_view name, TXNumberFormatterSettings& settings) {
    if (name == "5-figures") {
        settings.setSignificantFigures(5);
    } else if (name == "2-places-separators") {
        settings.setDecimalPlaces(2);
        settings.setThousandsSeparators(true);
    } else if (name == "engineering") {
        settings.setFormattingType(TXFormattingType::engineering);
    } else if (name == "hexadecimal") {
        settings.setFormattingType(TXFormattingType::hexadecimal);
    } else {
        return name == "automatic";
    }
    return true;
}
