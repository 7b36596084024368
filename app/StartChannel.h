#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>

#include "app/LocalSocket.h"

class QSocketNotifier;
class QTimer;

/// Lets a program that is started again hand over to the one that runs already, of which there is one for each user and
/// display.
///
/// A lock tells who that is. It goes with its holder, however that ends, so nothing that is left behind delays anybody.
/// Requests go through a socket beside the lock, in a folder that is the user's alone. Wherever this fails, programs
/// run side by side.
class StartChannel {
public:
    /// How long a request waits for its answer, or the other way round.
    static constexpr std::chrono::milliseconds defaultPatience{1000};

    /// Opens a new window. The token, which may be empty, is the desktop's leave to bring it to the front.
    using WindowOpener = std::function<void(const QByteArray& activationToken)>;

    /// The place that programs with the environment of this one share; empty without a display, or without a folder
    /// that is the user's alone.
    static QString placeInEnvironment();

    /// `place` is a path to which the names of lock and socket are added. Without one, the program stays by itself.
    explicit StartChannel(QString place, std::chrono::milliseconds patience = defaultPatience);
    ~StartChannel();
    StartChannel(const StartChannel&) = delete;
    StartChannel& operator=(const StartChannel&) = delete;

    QString lockPath() const { return place_ + QStringLiteral(".lock"); }
    QString socketPath() const { return place_ + QStringLiteral(".socket"); }

    /// Whether a program runs that could be asked. When there is none, this one is it from now on.
    bool hasRunningProgram();

    /// Asks the running program for a window and gives whether it opens one. It may be just starting or ending, so it
    /// is asked until it has answered, this program is the first itself, or patience ends. Whoever gives another answer
    /// is not asked again.
    bool handOver(const QByteArray& activationToken);

    /// Answers the programs that are started from now on, if this one is the first. Needs an event loop.
    void listen(WindowOpener openWindow);

    /// Leaves the place to the next one that starts.
    void close();

private:
    void attend();
    void pauseArrivals();

    QString place_;
    std::chrono::milliseconds patience_;
    int lock_ = -1;  ///< A file that is locked as long as it is open; less than 0 when it is not this program's.
    WindowOpener openWindow_;
    LocalSocket server_;
    std::unique_ptr<QSocketNotifier> arrivals_;  ///< Those that have connected are its children.
    std::unique_ptr<QTimer> pause_;              ///< Until the next one is taken in.
};
