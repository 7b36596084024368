#include "bench/benchLines.h"

#include <algorithm>

namespace {

constexpr std::size_t roundNames = 100;
constexpr std::size_t assignmentEvery = 4;
constexpr std::size_t newVariableDigits = 6;

constexpr std::array<std::string_view, 8> functionNames{"sin", "cos", "tan", "sqrt", "ln", "exp", "atan", "cbrt"};

}  // namespace

std::optional<LineFamily> lineFamilyNamed(std::string_view name) {
    const auto* const found = std::find(lineFamilyNames.begin(), lineFamilyNames.end(), name);
    if (found == lineFamilyNames.end()) {
        return std::nullopt;
    }
    return static_cast<LineFamily>(found - lineFamilyNames.begin());
}

std::string BenchLines::next() {
    const std::size_t line = line_++;
    switch (family_) {
        case LineFamily::arithmetic: return fromPattern("n.d:(d+d.5)^d+d:d");
        case LineFamily::trivial: return fromPattern("d?d");
        case LineFamily::variables: return newVariable(line);
        case LineFamily::functions: break;
    }
    const bool isAssignment = line % assignmentEvery == assignmentEvery - 1;
    return isAssignment ? roundAssignment(line / assignmentEvery) : fromPattern("f+f*f");
}

// In a pattern d is a digit but 0, n a number below 100, f a call, + one of + and -, : one of * and /, ? one of + - *.
// All else stands for itself. Every choice is made in its turn: between the parts of one expression a compiler may
// choose the order, and then the lines of two compilers would differ.
std::string BenchLines::fromPattern(std::string_view pattern) {
    std::string line;
    for (const char symbol : pattern) {
        switch (symbol) {
            case 'd': line += digit(); break;
            case 'n': line += std::to_string(below(100)); break;
            case 'f': line += call(); break;
            case '+': line += "+-"[below(2)]; break;
            case ':': line += "*/"[below(2)]; break;
            case '?': line += "+-*"[below(3)]; break;
            default: line += symbol;
        }
    }
    return line;
}

std::string BenchLines::call() {
    std::string text(functionNames[below(functionNames.size())]);
    text += below(2) == 0 ? "(" : "(0.";
    text += digit();
    return text + ")";
}

std::string BenchLines::roundAssignment(std::size_t assignment) {
    const std::size_t variable = assignment % roundNames;
    std::string line = "x" + std::to_string(variable) + "=";
    if (variable != 0) {
        line += "x" + std::to_string(variable - 1) + "*";
    }
    return line + "1." + digit();
}

std::string BenchLines::newVariable(std::size_t line) {
    const auto name = [](std::size_t number) {
        const std::string digits = std::to_string(number);
        return "v" + std::string(newVariableDigits - std::min(newVariableDigits, digits.size()), '0') + digits;
    };
    std::string text = name(line) + "=";
    if (line != 0) {
        text += name(line - 1) + "+";
    }
    return text + "1." + digit();
}

std::vector<std::string> benchLines(LineFamily family, std::size_t count) {
    BenchLines maker(family);
    std::vector<std::string> lines;
    lines.reserve(count);
    while (lines.size() < count) {
        lines.push_back(maker.next());
    }
    return lines;
}
