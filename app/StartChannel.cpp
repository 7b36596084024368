#include "app/StartChannel.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QFile>
#include <QSocketNotifier>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

constexpr char request[] = "new-window ";
constexpr char reply[] = "opened\n";
constexpr qint64 longestLine = 1024;
constexpr unsigned long pauseBetweenTries = 10;  // ms
constexpr qsizetype mostClients = 64;
constexpr std::chrono::milliseconds longestSilence{300};
constexpr std::chrono::milliseconds pauseOfArrivals{100};

// In place of a locked file.
constexpr int noFile = -1;
constexpr int heldByAnother = -2;

#ifdef Q_OS_UNIX

bool isPrivateFolder(const QString& path) {
    struct stat facts = {};
    if (!path.startsWith(u'/') || stat(QFile::encodeName(path).constData(), &facts) != 0) return false;
    return S_ISDIR(facts.st_mode) && facts.st_uid == geteuid() && (facts.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

/// A locked file, made where there is none. Never waits.
int lockedFile(const QString& path) {
    constexpr int flags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    const int file = open(QFile::encodeName(path).constData(), flags, S_IRUSR | S_IWUSR);
    if (file < 0) return noFile;
    fchmod(file, S_IRUSR | S_IWUSR | S_ISVTX);  // What is sticky is not cleaned away on long days.
    if (flock(file, LOCK_EX | LOCK_NB) == 0) return file;
    const bool isHeld = errno == EWOULDBLOCK;
    ::close(file);
    return isHeld ? heldByAnother : noFile;
}

void unlock(int file) { ::close(file); }

#else

bool isPrivateFolder(const QString&) { return false; }
int lockedFile(const QString&) { return noFile; }
void unlock(int) {}

#endif

/// The folder for what runs, as long as the user is logged in. In a sandbox only a part of it is shared.
QString runtimeFolder() {
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString sandbox = qEnvironmentVariable("FLATPAK_ID");
    return sandbox.isEmpty() ? folder : folder + QStringLiteral("/app/") + sandbox;
}

/// The platforms that may be used to show windows, with the one that is tried first at the front; empty for all.
QList<QByteArray> platforms() {
    QList<QByteArray> names = qgetenv("QT_QPA_PLATFORM").split(';');
    for (QByteArray& name : names) name.truncate(name.contains(':') ? name.indexOf(':') : name.size());
    names.removeAll(QByteArray());
    return names;
}

QByteArray waylandDisplay(bool isTheOnlyOne) {
    const QByteArray name = qgetenv("WAYLAND_DISPLAY");
    return name.isEmpty() && isTheOnlyOne ? QByteArray("wayland-0") : name;
}

QByteArray x11Display() {
    QByteArray name = qgetenv("DISPLAY");
    if (name.startsWith("unix:")) name.remove(0, static_cast<qsizetype>(std::strlen("unix")));
    // The number of a screen after the display's own: windows may move from one to the other.
    const qsizetype point = name.indexOf('.', name.lastIndexOf(':'));
    if (point >= 0) name.truncate(point);
    return name;
}

/// What tells the display from others; empty when nothing is shown on one.
QByteArray display() {
    const QList<QByteArray> all = platforms();
    const auto includes = [&all](const char* name) {
        const auto isIt = [name](const QByteArray& platform) { return platform.startsWith(name); };
        return all.isEmpty() || std::any_of(all.begin(), all.end(), isIt);
    };
    const QByteArray x11 = includes("xcb") ? x11Display() : QByteArray();
    const bool isOnlyWayland = !all.isEmpty() && !includes("xcb");
    const QByteArray wayland = includes("wayland") ? waylandDisplay(isOnlyWayland) : QByteArray();
    return wayland.isEmpty() && x11.isEmpty() ? QByteArray() : wayland + '\n' + x11;
}

/// Whatever would not pass as one line of plain text is no token.
QByteArray token(const QByteArray& text) {
    const auto isPlain = [](char c) { return c > ' ' && c <= '~'; };
    const bool isToken = text.size() < longestLine / 2 && std::all_of(text.begin(), text.end(), isPlain);
    return isToken ? text : QByteArray();
}

enum class Outcome { opened, refused, unanswered };

Outcome ask(const QString& socketPath, const QByteArray& line, const QDeadlineTimer& deadline) {
    const LocalSocket socket = LocalSocket::connected(socketPath);
    if (!socket || !socket.send(line)) return Outcome::unanswered;
    QByteArray answer;
    auto state = LocalSocket::State::open;
    while (state == LocalSocket::State::open && !answer.contains('\n') && answer.size() < longestLine) {
        if (!socket.waitForMore(deadline)) return Outcome::unanswered;
        state = socket.receive(&answer, longestLine);
    }
    if (answer == reply) return Outcome::opened;
    return answer.isEmpty() ? Outcome::unanswered : Outcome::refused;
}

/// A program that has connected. It goes when it is answered, when it is not understood, or when its patience ends.
class Client : public QObject {
public:
    Client(LocalSocket socket, std::chrono::milliseconds patience, StartChannel::WindowOpener open, QObject* parent)
        : QObject(parent),
          socket_(std::move(socket)),
          arrivals_(socket_.descriptor(), QSocketNotifier::Read),
          open_(std::move(open)) {
        connect(&arrivals_, &QSocketNotifier::activated, this, &Client::take);
        connect(&patience_, &QTimer::timeout, this, &Client::leave);
        patience_.start(patience);
    }

private:
    void take() {
        const LocalSocket::State state = socket_.receive(&received_, longestLine);
        const qsizetype end = received_.indexOf('\n');
        if (end >= 0) return answer(received_.left(end));
        if (state == LocalSocket::State::ended || received_.size() >= longestLine) leave();
    }

    void answer(const QByteArray& line) {
        // Who waits no longer has a window of its own by now.
        const bool isAnswered = line.startsWith(request) && socket_.send(reply);
        leave();
        if (isAnswered) open_(line);
    }

    void leave() {
        patience_.stop();
        arrivals_.setEnabled(false);
        socket_ = LocalSocket();
        deleteLater();
    }

    LocalSocket socket_;
    QSocketNotifier arrivals_;
    QTimer patience_;
    StartChannel::WindowOpener open_;
    QByteArray received_;
};

}  // namespace

QString StartChannel::placeInEnvironment() {
    const QString folder = runtimeFolder();
    const QByteArray shown = display();
    if (shown.isEmpty() || !isPrivateFolder(folder)) return {};
    // A display's name may be long, and hold slashes.
    constexpr int digits = 16;
    const QByteArray name = QCryptographicHash::hash(shown, QCryptographicHash::Sha256).toHex().left(digits);
    return folder + QStringLiteral("/org.tallix.tallix-") + QString::fromLatin1(name);
}

StartChannel::StartChannel(QString place, std::chrono::milliseconds patience)
    : place_(std::move(place)), patience_(patience) {}

StartChannel::~StartChannel() { close(); }

bool StartChannel::hasRunningProgram() {
    if (lock_ < 0 && !place_.isEmpty()) lock_ = lockedFile(lockPath());
    return lock_ == heldByAnother;
}

bool StartChannel::handOver(const QByteArray& activationToken) {
    const QByteArray line = request + token(activationToken) + '\n';
    const QDeadlineTimer deadline(patience_);
    while (hasRunningProgram()) {
        const Outcome outcome = ask(socketPath(), line, deadline);
        if (outcome != Outcome::unanswered || deadline.hasExpired()) return outcome == Outcome::opened;
        QThread::msleep(pauseBetweenTries);
    }
    return false;
}

void StartChannel::listen(WindowOpener openWindow) {
    if (lock_ < 0) return;
    openWindow_ = std::move(openWindow);
    // Who holds the lock finds no living socket there, only what is left of an earlier one.
    server_ = LocalSocket::listening(socketPath());
    // Without a socket nobody should wait for an answer.
    if (!server_) return close();
    arrivals_ = std::make_unique<QSocketNotifier>(server_.descriptor(), QSocketNotifier::Read);
    QObject::connect(arrivals_.get(), &QSocketNotifier::activated, arrivals_.get(), [this] { attend(); });
    pause_ = std::make_unique<QTimer>();
    pause_->setSingleShot(true);
    QObject::connect(pause_.get(), &QTimer::timeout, arrivals_.get(), [this] { arrivals_->setEnabled(true); });
}

void StartChannel::attend() {
    const auto open = [this](const QByteArray& line) {
        openWindow_(token(line.mid(static_cast<qsizetype>(sizeof(request)) - 1)));
    };
    bool isAnyoneThere = false;
    while (arrivals_->children().size() < mostClients) {
        LocalSocket socket = server_.accepted();
        if (!socket) break;
        isAnyoneThere = true;
        new Client(std::move(socket), std::min(patience_, longestSilence), open, arrivals_.get());
    }
    if (!isAnyoneThere) pauseArrivals();
}

// Too many at once, or no file left for another one: else this would be tried again and again meanwhile.
void StartChannel::pauseArrivals() {
    arrivals_->setEnabled(false);
    pause_->start(pauseOfArrivals);
}

void StartChannel::close() {
    arrivals_.reset();
    if (server_) QFile::remove(socketPath());
    server_ = LocalSocket();
    if (lock_ >= 0) unlock(std::exchange(lock_, noFile));
}
