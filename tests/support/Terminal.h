#pragma once

#include <string>
#include <string_view>

#include <sys/types.h>

#include "tests/support/Process.h"

/// A program that a test runs on a pseudo-terminal of its own, as a person would.
///
/// What the program writes is waited for, never for a fixed time; a program that writes nothing new for half a minute
/// has failed.
class Terminal {
public:
    /// The paths of `command` are not used. TERM is "xterm" where the command does not say otherwise.
    explicit Terminal(const Command& command, unsigned short columns = 80);
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Types keys; "\x03" is Ctrl+C.
    void type(std::string_view keys) const;
    void resize(unsigned short columns) const;

    /// Waits until what was written since the last wait holds `text`, and passes over it that far. Gives what was
    /// passed over; everything there is where the text does not come.
    std::string waitFor(std::string_view text);
    /// Whether `text` comes.
    bool shows(std::string_view text);

    /// Everything written so far, escape sequences included.
    const std::string& written() const { return written_; }

    void sendSignal(int signal) const;
    /// Waits for the program's end and gives its exit status, 128 and the signal's number where it was killed.
    int status();

private:
    bool collect();

    pid_t id_ = -1;
    int descriptor_ = -1;
    std::string written_;
    std::size_t seen_ = 0;  ///< How much of it was waited for.
};

namespace keys {
inline constexpr std::string_view enter = "\r";
inline constexpr std::string_view tab = "\t";
inline constexpr std::string_view backspace = "\x7F";
inline constexpr std::string_view up = "\033[A";
inline constexpr std::string_view left = "\033[D";
inline constexpr std::string_view controlA = "\x01";
inline constexpr std::string_view controlC = "\x03";
inline constexpr std::string_view controlD = "\x04";
inline constexpr std::string_view controlR = "\x12";
inline constexpr std::string_view controlU = "\x15";
inline constexpr std::string_view controlZ = "\x1A";
}  // namespace keys
