#include "terminal/LineReader.h"

#include <algorithm>
#include <cerrno>

#include <poll.h>
#include <unistd.h>

namespace {

std::string_view withoutCarriageReturn(std::string_view line) {
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

}  // namespace

LineReader::LineReader(int descriptor, std::size_t bufferSize)
    : descriptor_(descriptor), buffer_(std::max<std::size_t>(bufferSize, 1)) {}

std::optional<std::string_view> LineReader::nextLine() {
    line_.clear();
    for (;;) {
        const std::string_view unread(buffer_.data() + begin_, end_ - begin_);
        const std::size_t length = unread.find('\n');
        if (length != std::string_view::npos) {
            begin_ += length + 1;
            const std::string_view piece = unread.substr(0, length);
            return withoutCarriageReturn(line_.empty() ? piece : std::string_view(line_.append(piece)));
        }
        line_.append(unread);
        begin_ = end_;
        if (!fill()) return lastLine();
    }
}

std::optional<std::string_view> LineReader::lastLine() {
    if (line_.empty() || error_ != 0) return std::nullopt;
    return line_;
}

/// Reads what there is, and waits for it where there is none. False at the end of the input and after an error.
bool LineReader::fill() {
    while (!isAtEnd_) {
        const ssize_t count = read(descriptor_, buffer_.data(), buffer_.size());
        if (count > 0) {
            begin_ = 0;
            end_ = static_cast<std::size_t>(count);
            return true;
        }
        if (count < 0 && errno == EAGAIN) {
            // Somebody else made the shared descriptor non-blocking.
            pollfd waiting{descriptor_, POLLIN, 0};
            poll(&waiting, 1, -1);
        } else if (count == 0 || errno != EINTR) {
            error_ = count == 0 ? 0 : errno;
            isAtEnd_ = true;
        }
    }
    return false;
}
