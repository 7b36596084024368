#include "terminal/Completion.h"

#include <algorithm>

#include "engine/parser/characterClasses.h"
#include "terminal/utf8.h"

namespace {

// atan2 needs two arguments, and no equation can give them.
constexpr std::u16string_view neverAnswers = u"atan2";

constexpr std::size_t gap = 2;

std::u16string_view nameAtEndOf(std::u16string_view equation) {
    const auto reversed = std::find_if_not(equation.rbegin(), equation.rend(), isValidVariableCharacter);
    return equation.substr(static_cast<std::size_t>(equation.rend() - reversed));
}

std::vector<std::u16string> namesBeginningWith(std::u16string_view start, const TXEquationController& controller) {
    std::vector<std::u16string> names;
    for (const std::u16string_view function : controller.nativeFunctionNames()) {
        if (function.starts_with(start) && function != neverAnswers) names.push_back(std::u16string(function) + u'(');
    }
    for (const TXVariable& variable : controller.variableArray()) {
        const std::u16string_view name = variable.variableName();
        if (variable.isDefined() && name.starts_with(start)) names.emplace_back(name);
    }
    // The numbered answers and a variable of the user's can have the same name.
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

/// How many characters all names begin with. They are sorted, so the first and the last tell.
std::size_t commonLength(const std::vector<std::u16string>& names) {
    const std::u16string& first = names.front();
    const std::u16string& last = names.back();
    const auto difference = std::mismatch(first.begin(), first.end(), last.begin(), last.end()).first;
    return static_cast<std::size_t>(difference - first.begin());
}

std::size_t longestOf(const std::vector<std::u16string>& names) {
    std::size_t longest = 0;
    for (const std::u16string& name : names) longest = std::max(longest, name.size());
    return longest;
}

void appendRow(const std::vector<std::u16string>& names, std::size_t row, std::size_t rows, std::size_t count,
               std::size_t columnWidth, std::u16string& text) {
    for (std::size_t at = row; at < count; at += rows) {
        text += names[at];
        if (at + rows < count) text.append(columnWidth - names[at].size(), u' ');
    }
    text += u'\n';
}

}  // namespace

Completion Completion::ofNameAtEnd(std::u16string_view equation, const TXEquationController& controller) {
    const std::u16string_view start = nameAtEndOf(equation);
    Completion completion;
    completion.names = namesBeginningWith(start, controller);
    if (!completion.names.empty()) {
        completion.suffix =
            completion.names.front().substr(start.size(), commonLength(completion.names) - start.size());
    }
    return completion;
}

std::u16string inColumns(const std::vector<std::u16string>& names, std::size_t width, std::size_t maximumLines) {
    const std::size_t columnWidth = longestOf(names) + gap;
    // The gap behind the last column may lie beyond the edge.
    const std::size_t columns = std::max<std::size_t>((width + gap) / columnWidth, 1);
    const std::size_t lines = (names.size() + columns - 1) / columns;
    const bool allFit = lines <= maximumLines;
    const std::size_t rows = allFit ? lines : std::max<std::size_t>(maximumLines - 1, 1);
    const std::size_t count = std::min(names.size(), rows * columns);
    std::u16string text;
    for (std::size_t row = 0; row < rows; ++row) appendRow(names, row, rows, count, columnWidth, text);
    if (count < names.size()) text += toUtf16("and " + std::to_string(names.size() - count) + " more\n");
    return text;
}
