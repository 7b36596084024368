#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

/// The kinds of numbers whose texts are benchmarked. Half of each are negative.
enum class DoubleSet : std::uint8_t {
    integers,       ///< Of 1 to 15 digits, each length as often.
    shortDecimals,  ///< Of 1 to 5 digits before the point and 1 to 4 behind it.
    fullPrecision,  ///< Of all the digits of a double, between 1e-8 and 1e15, each power of ten as often.
    anyMagnitude,   ///< Any finite double: mostly far outside of what is written without an exponent.
};

/// In the order of the sets.
inline constexpr std::array<std::string_view, 4> doubleSetNames{"integers", "short-decimals", "full-precision",
                                                                "any-magnitude"};

/// The set called `name`.
std::optional<DoubleSet> doubleSetNamed(std::string_view name);

/// The first `count` numbers of a set, the same on every machine and in every run.
std::vector<double> benchDoubles(DoubleSet set, std::size_t count);
