#pragma once

#include <QString>
#include <cstdint>
#include <deque>

/// What the monkey did last, for whoever has to do it again. There is one at a time; as long as it lives, every warning
/// of the toolkit, a crash, and an event that takes a minute end the program with what led there.
class Journal {
public:
    /// With `isTraced` each event is printed as it begins.
    Journal(std::uint64_t seed, bool isTraced);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// Says what is about to happen.
    void begin(const QString& event);
    /// Adds to what was said of the present event.
    void add(const QString& detail);
    std::uint64_t eventsBegun() const { return eventsBegun_; }

    /// Prints the complaint and the last events, and ends the program.
    [[noreturn]] void fail(const QString& complaint) const;
    void printLastEvents() const;

private:
    std::uint64_t seed_;
    bool isTraced_;
    std::uint64_t eventsBegun_ = 0;
    std::deque<QString> lastEvents_;
};
