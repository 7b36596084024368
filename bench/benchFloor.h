#pragma once

#include <span>
#include <string_view>

/// The least that any calculator does for a line: walks its characters, converts the literals with std::from_chars,
/// calls the C library's function for each name and each power, and writes a value with std::to_chars. No grammar,
/// nothing looked up, nothing stored.
///
/// What the line names is summed up from left to right, whatever operators and groups it has: the value is seldom the
/// line's answer, but has digits like one. Gives the text written, which lies in `buffer`.
std::string_view floorForLine(std::string_view line, std::span<char, 32> buffer);
