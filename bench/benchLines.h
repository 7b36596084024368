#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

/// The kinds of lines that the benchmarks enter.
enum class LineFamily : std::uint8_t {
    arithmetic,  ///< 12.5*(3+4.5)^2-7/8
    functions,   ///< sin(0.5)+sqrt(2)*ln(7), and every fourth line an assignment: x0=1.5, x1=x0*1.5, ... x99, x0
    trivial,     ///< 2+3
    variables,   ///< v000017=v000016+1.5, a new variable with every line, its name as long as all others
};

/// In the order of the families.
inline constexpr std::array<std::string_view, 4> lineFamilyNames{"arithmetic", "functions", "trivial", "variables"};

/// The family called `name`.
std::optional<LineFamily> lineFamilyNamed(std::string_view name);

/// Makes the lines of a family one after the other, the same on every machine and in every run. All are well-formed
/// and have a finite answer.
///
///     BenchLines(LineFamily::trivial).next();  // "2+3", or the like
class BenchLines {
public:
    explicit BenchLines(LineFamily family) : family_(family) {}

    /// In ASCII, as the yardsticks read it.
    std::string next();

private:
    std::size_t below(std::size_t bound) { return generator_() % bound; }
    char digit() { return static_cast<char>('1' + below(9)); }
    std::string fromPattern(std::string_view pattern);
    std::string call();
    std::string roundAssignment(std::size_t assignment);
    std::string newVariable(std::size_t line);

    LineFamily family_;
    std::size_t line_ = 0;
    // A generator whose numbers the standard lays down, with a seed of its own.
    std::mt19937 generator_{20261121};  // NOLINT(cert-msc32-c,cert-msc51-cpp): always the same lines
};

/// The first `count` lines of a family.
std::vector<std::string> benchLines(LineFamily family, std::size_t count);

/// A line as the engine takes it.
inline std::u16string utf16Line(std::string_view line) { return {line.begin(), line.end()}; }
