#pragma once

#include <array>
#include <csignal>

/// The signals that a line editor must hear of: while a line is edited the terminal is in a state that nobody else can
/// use, so it is put back before the program stops or ends, and taken again afterwards.
///
/// As long as one of these exists, the signals only leave a note, and `waitForInput` says which came. There is one at a
/// time.
class TerminalSignals {
public:
    TerminalSignals();
    ~TerminalSignals();
    TerminalSignals(const TerminalSignals&) = delete;
    TerminalSignals& operator=(const TerminalSignals&) = delete;

    /// Waits until the descriptor can be read or a signal has come. Gives the signal, 0 for input. A signal that came
    /// since the last call is not missed.
    int waitForInput(int descriptor);

    /// Does what `signal` does to a program that does not catch it. Comes back when that was to stop, or nothing.
    void actOn(int signal);

private:
    // The interrupt key is a key of the editor; the other signals stay ignored where they were.
    static constexpr std::array<int, 7> caught = {SIGINT, SIGQUIT, SIGHUP, SIGTERM, SIGTSTP, SIGCONT, SIGWINCH};

    static void catchSignal(int signal);
    static int takeNote();

    std::array<struct sigaction, caught.size()> before_{};
};
