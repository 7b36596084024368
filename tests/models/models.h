#pragma once

#include <cstdint>

// The two comparisons. Each prints what it did and, at a difference, everything needed to see it again.

/// Runs made-up sessions of `count` lines in all through the engine and through the plain session. Whether nothing
/// differed and every outcome occurred.
bool compareEvaluators(std::uint64_t count, std::uint64_t seed);

/// Writes `count` doubles as every type and digit choice through both formatters. Whether nothing differed and every
/// kind of double and of text occurred.
bool compareFormatters(std::uint64_t count, std::uint64_t seed);
