#include "app/LocalSocket.h"

#include <QtGlobal>
#include <utility>

#ifdef Q_OS_UNIX

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr int waitingOnes = 64;

/// The descriptor's socket, neither inherited by other programs nor ever waited for.
LocalSocket prepared(int descriptor) {
    LocalSocket socket(descriptor);
    const bool isReady =
        socket && fcntl(descriptor, F_SETFD, FD_CLOEXEC) == 0 && fcntl(descriptor, F_SETFL, O_NONBLOCK) == 0;
    return isReady ? std::move(socket) : LocalSocket();
}

LocalSocket madeSocket() { return prepared(socket(AF_UNIX, SOCK_STREAM, 0)); }

/// The address of a path; nothing when it has no room there.
std::optional<sockaddr_un> addressOf(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address = {};
    if (static_cast<std::size_t>(name.size()) >= sizeof(address.sun_path)) return std::nullopt;
    address.sun_family = AF_UNIX;
    std::copy(name.begin(), name.end(), static_cast<char*>(address.sun_path));
    return address;
}

/// What bind and connect take.
const sockaddr* generic(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address);  // NOLINT(cppcoreguidelines-pro-type-reinterpret-cast)
}

/// An operation, again until no signal interrupts it.
template <typename Operation>
auto uninterrupted(Operation operation) {
    auto result = operation();
    while (result < 0 && errno == EINTR) result = operation();
    return result;
}

}  // namespace

LocalSocket::~LocalSocket() {
    if (*this) ::close(descriptor_);
}

LocalSocket LocalSocket::listening(const QString& path) {
    const auto address = addressOf(path);
    LocalSocket socket = madeSocket();
    if (!address || !socket) return LocalSocket();
    unlink(static_cast<const char*>(address->sun_path));
    // Before it has a name: from then on others might reach it. What is sticky is not cleaned away on long days.
    const bool isListening = fchmod(socket.descriptor(), S_IRUSR | S_IWUSR | S_ISVTX) == 0 &&
                             bind(socket.descriptor(), generic(*address), sizeof(*address)) == 0 &&
                             ::listen(socket.descriptor(), waitingOnes) == 0;
    return isListening ? std::move(socket) : LocalSocket();
}

LocalSocket LocalSocket::connected(const QString& path) {
    const auto address = addressOf(path);
    LocalSocket socket = madeSocket();
    if (!address || !socket) return LocalSocket();
    const int result = uninterrupted([&] { return connect(socket.descriptor(), generic(*address), sizeof(*address)); });
    return result == 0 ? std::move(socket) : LocalSocket();
}

LocalSocket LocalSocket::accepted() const {
    return prepared(uninterrupted([this] { return accept(descriptor_, nullptr, nullptr); }));
}

bool LocalSocket::send(const QByteArray& bytes) const {
    const auto size = static_cast<std::size_t>(bytes.size());
    const auto sent = uninterrupted([&] { return ::send(descriptor_, bytes.constData(), size, MSG_NOSIGNAL); });
    return sent == static_cast<ssize_t>(size);
}

LocalSocket::State LocalSocket::receive(QByteArray* text, qsizetype longest) const {
    while (text->size() < longest) {
        const qsizetype before = text->size();
        text->resize(longest);
        const auto room = static_cast<std::size_t>(longest - before);
        const auto received = uninterrupted([&] { return recv(descriptor_, text->data() + before, room, 0); });
        const bool isWaiting = received < 0 && errno == EAGAIN;
        text->resize(before + std::max<ssize_t>(received, 0));
        if (isWaiting) return State::open;
        if (received <= 0) return State::ended;
    }
    return State::open;
}

bool LocalSocket::waitForMore(const QDeadlineTimer& deadline) const {
    pollfd waiting = {descriptor_, POLLIN, 0};
    return uninterrupted([&] { return poll(&waiting, 1, static_cast<int>(deadline.remainingTime())); }) > 0;
}

#else

LocalSocket::~LocalSocket() = default;
LocalSocket LocalSocket::listening(const QString&) { return LocalSocket(); }
LocalSocket LocalSocket::connected(const QString&) { return LocalSocket(); }
LocalSocket LocalSocket::accepted() const { return LocalSocket(); }
bool LocalSocket::send(const QByteArray&) const { return false; }
LocalSocket::State LocalSocket::receive(QByteArray*, qsizetype) const { return State::ended; }
bool LocalSocket::waitForMore(const QDeadlineTimer&) const { return false; }

#endif

LocalSocket::LocalSocket(LocalSocket&& other) noexcept : descriptor_(std::exchange(other.descriptor_, none)) {}

LocalSocket& LocalSocket::operator=(LocalSocket&& other) noexcept {
    LocalSocket closing(std::exchange(descriptor_, std::exchange(other.descriptor_, none)));
    return *this;
}
