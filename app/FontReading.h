#pragma once

#include <future>

/// Reads which fonts there are, in a thread of its own, while the program connects to its display: the longest part of
/// a start that needs nothing of the others.
///
/// It has ended with this object, which must go before the first text is laid out. Otherwise both would read them.
/// Nothing is done where fontconfig is not what finds fonts.
class FontReading {
public:
    FontReading();

private:
    std::future<void> reading_;
};
