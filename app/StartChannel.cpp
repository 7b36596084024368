#include "app/StartChannel.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <cerrno>
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

/// What tells the display from others; empty when nothing is shown on one.
QByteArray display() {
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    const auto maybeOn = [&platform](const char* name) { return platform.isEmpty() || platform.startsWith(name); };
    const QByteArray wayland = maybeOn("wayland") ? qgetenv("WAYLAND_DISPLAY") : QByteArray();
    QByteArray x11 = maybeOn("xcb") ? qgetenv("DISPLAY") : QByteArray();
    // The number of a screen after the display's own: windows may move from one to the other.
    const qsizetype point = x11.indexOf('.', x11.lastIndexOf(':'));
    if (point >= 0) x11.truncate(point);
    return wayland.isEmpty() && x11.isEmpty() ? QByteArray() : wayland + '\n' + x11;
}

/// Whatever would not pass as one line of plain text is no token.
QByteArray token(const QByteArray& text) {
    const auto isPlain = [](char c) { return c > ' ' && c <= '~'; };
    const bool isToken = text.size() < longestLine / 2 && std::all_of(text.begin(), text.end(), isPlain);
    return isToken ? text : QByteArray();
}

bool ask(const QString& socketPath, const QByteArray& line, const QDeadlineTimer& deadline) {
    const auto remaining = [&deadline] { return static_cast<int>(deadline.remainingTime()); };
    QLocalSocket socket;
    socket.connectToServer(socketPath);
    if (!socket.waitForConnected(remaining())) return false;
    socket.write(line);
    while (!socket.canReadLine() && socket.bytesAvailable() < longestLine) {
        if (!socket.waitForReadyRead(remaining())) return false;
    }
    return socket.readLine(longestLine) == reply;
}

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
        if (ask(socketPath(), line, deadline)) return true;
        if (deadline.hasExpired()) return false;
        QThread::msleep(pauseBetweenTries);
    }
    return false;
}

void StartChannel::listen(WindowOpener openWindow) {
    if (lock_ < 0) return;
    openWindow_ = std::move(openWindow);
    server_ = std::make_unique<QLocalServer>();
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    // Who holds the lock finds no living socket there, only what is left of an earlier one.
    QLocalServer::removeServer(socketPath());
    QObject::connect(server_.get(), &QLocalServer::newConnection, server_.get(), [this] {
        while (QLocalSocket* const client = server_->nextPendingConnection()) attend(*client);
    });
    // Without a socket nobody should wait for an answer.
    if (!server_->listen(socketPath())) close();
}

void StartChannel::attend(QLocalSocket& client) const {
    client.setReadBufferSize(longestLine);
    QObject::connect(&client, &QLocalSocket::readyRead, &client, [this, &client] { answer(client); });
    QObject::connect(&client, &QLocalSocket::disconnected, &client, &QObject::deleteLater);
    auto* timer = new QTimer(&client);
    QObject::connect(timer, &QTimer::timeout, &client, &QLocalSocket::abort);
    timer->start(patience_);
    answer(client);
}

void StartChannel::answer(QLocalSocket& client) const {
    if (!client.canReadLine()) {
        if (client.bytesAvailable() >= longestLine) client.abort();
        return;
    }
    const QByteArray line = client.readLine(longestLine).chopped(1);
    if (!line.startsWith(request)) return client.abort();
    client.write(reply);
    client.flush();
    // Who waits no longer has a window of its own by now.
    if (client.state() != QLocalSocket::ConnectedState) return;
    openWindow_(token(line.mid(static_cast<qsizetype>(sizeof(request)) - 1)));
}

void StartChannel::close() {
    server_.reset();
    if (lock_ >= 0) unlock(std::exchange(lock_, noFile));
}
