#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QString>
#include <optional>

/// A stream socket between programs of this machine, or nothing. It is closed with this object, and never waits but
/// where a deadline is given.
///
/// The toolkit's own would bring a library that is as much work to load as half of the first window is to show.
class LocalSocket {
public:
    static constexpr int none = -1;

    explicit LocalSocket(int descriptor = none) : descriptor_(descriptor) {}
    ~LocalSocket();
    LocalSocket(LocalSocket&& other) noexcept;
    LocalSocket& operator=(LocalSocket&& other) noexcept;
    LocalSocket(const LocalSocket&) = delete;
    LocalSocket& operator=(const LocalSocket&) = delete;

    /// One that waits for others at a path, which is its user's alone, in place of what is there. Nothing where there
    /// cannot be one, for example since the path is too long for an address.
    static LocalSocket listening(const QString& path);
    /// One that is connected to the one that waits there, or nothing.
    static LocalSocket connected(const QString& path);
    /// The next one that has connected to this one, or nothing.
    LocalSocket accepted() const;

    explicit operator bool() const { return descriptor_ != none; }
    int descriptor() const { return descriptor_; }

    /// Whether all of it was sent. False also when nobody is there to receive it.
    bool send(const QByteArray& bytes) const;

    enum class State { open, ended };
    /// Adds what has arrived, up to `longest` bytes in `text`. It has ended when no more can come.
    State receive(QByteArray* text, qsizetype longest) const;
    /// Waits until something has arrived or the other one is gone; false at the deadline.
    bool waitForMore(const QDeadlineTimer& deadline) const;

private:
    int descriptor_;
};
