#include "terminal/ReplyWriter.h"

#include <cerrno>
#include <cstddef>

#include <poll.h>
#include <unistd.h>

namespace {

constexpr std::size_t bufferSize = 65536;

constexpr std::string_view blue = "\033[34m";
constexpr std::string_view red = "\033[31m";
constexpr std::string_view plain = "\033[0m";

}  // namespace

bool ReplyWriter::write(const Reply& reply) {
    waiting_ += reply.lead;
    if (manner_.hasColours) waiting_ += reply.isError ? red : blue;
    waiting_ += reply.answer;
    if (manner_.hasColours) waiting_ += plain;
    waiting_ += '\n';
    return wrote();
}

bool ReplyWriter::write(std::string_view text) {
    waiting_ += text;
    return wrote();
}

bool ReplyWriter::wrote() {
    if (manner_.isBuffered && waiting_.size() < bufferSize) return error_ == 0;
    return flush();
}

bool ReplyWriter::flush() {
    std::string_view rest = waiting_;
    while (!rest.empty() && error_ == 0) {
        const ssize_t count = ::write(descriptor_, rest.data(), rest.size());
        if (count >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            // Somebody else made the shared descriptor non-blocking.
            pollfd ready{descriptor_, POLLOUT, 0};
            poll(&ready, 1, -1);
        } else if (errno != EINTR) {
            error_ = errno;
        }
    }
    waiting_.clear();
    return error_ == 0;
}
