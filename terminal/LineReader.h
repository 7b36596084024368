#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reads lines of any length from a file descriptor, each byte once.
///
/// LF or CR LF ends a line; a CR elsewhere is a character like any other. What stands after the last line end is a line
/// too, unless it is empty. A line is handed out as soon as its end was read, so that a pipe can be a conversation.
class LineReader {
public:
    /// The descriptor is not owned. `bufferSize`, 1 or more, is how much is asked for at a time.
    explicit LineReader(int descriptor, std::size_t bufferSize = 65536);

    /// The next line without its end; it stays readable until the next call. Nothing at the end of the input, and where
    /// reading fails: `error()` tells which.
    std::optional<std::string_view> nextLine();

    /// The `errno` of the read that failed, 0 while none did.
    int error() const { return error_; }

private:
    bool fill();
    std::optional<std::string_view> lastLine();

    int descriptor_;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;  ///< What was read and not handed out is in the buffer from here ...
    std::size_t end_ = 0;    ///< ... to here.
    std::string line_;       ///< A line that did not fit into the buffer.
    bool isAtEnd_ = false;
    int error_ = 0;
};
