#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "engine/controller/TXEquationController.h"

/// How the name that ends a piece of an equation can go on: to which functions and variables, and how far that is
/// certain.
///
///     Completion::ofNameAtEnd(u"2*co", controller).names   // "cos(", "cosh(", "cot(", "coth("
///     Completion::ofNameAtEnd(u"2*sq", controller).suffix  // "rt("
///
/// Functions bring their "(". Variables count when they have a value.
struct Completion {
    std::u16string suffix;              ///< What all names have in common, behind what is already there.
    std::vector<std::u16string> names;  ///< Sorted, each once.

    static Completion ofNameAtEnd(std::u16string_view equation, const TXEquationController& controller);
};

/// Lays names out in columns, read downwards, for a screen of `width` columns: lines with their ends. Names that do not
/// fit into `maximumLines`, 1 or more, are counted in a last line.
std::u16string inColumns(const std::vector<std::u16string>& names, std::size_t width, std::size_t maximumLines);
