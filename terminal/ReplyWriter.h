#pragma once

#include <string>
#include <string_view>

#include "terminal/Session.h"

/// Writes replies to a file descriptor: each at once, or, when nobody is waiting for them, many at a time.
///
/// After an error nothing more is written; `error()` keeps its reason.
class ReplyWriter {
public:
    struct Manner {
        bool hasColours = false;  ///< Answers in blue, errors in red.
        bool isBuffered = false;  ///< Replies may wait for each other; the last ones wait for `flush`.
    };

    /// The descriptor is not owned.
    ReplyWriter(int descriptor, Manner manner) : descriptor_(descriptor), manner_(manner) {}

    /// Each of these gives whether all went well so far.
    bool write(const Reply& reply);
    bool write(std::string_view text);
    bool flush();

    /// The `errno` of the write that failed, 0 while none did. EPIPE says that the reader has gone away.
    int error() const { return error_; }

private:
    bool wrote();

    int descriptor_;
    Manner manner_;
    std::string waiting_;
    int error_ = 0;
};
