#include "terminal/TerminalSignals.h"

#include <cstddef>

#include <poll.h>

namespace {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): a signal handler has nothing else to write to.
std::array<volatile std::sig_atomic_t, 65> notes{};

extern "C" void leaveNote(int signal) { notes[static_cast<std::size_t>(signal)] = 1; }

}  // namespace

TerminalSignals::TerminalSignals() {
    for (std::size_t i = 0; i < caught.size(); ++i) {
        sigaction(caught[i], nullptr, &before_[i]);
        if (caught[i] == SIGINT || before_[i].sa_handler != SIG_IGN) catchSignal(caught[i]);
    }
}

TerminalSignals::~TerminalSignals() {
    for (std::size_t i = 0; i < caught.size(); ++i) sigaction(caught[i], &before_[i], nullptr);
}

void TerminalSignals::catchSignal(int signal) {
    struct sigaction action {};
    action.sa_handler = leaveNote;
    // Writing an answer goes on after a signal; only waiting for input, with poll, is interrupted all the same.
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

int TerminalSignals::takeNote() {
    for (const int signal : caught) {
        volatile std::sig_atomic_t& note = notes[static_cast<std::size_t>(signal)];
        if (note != 0) {
            note = 0;
            return signal;
        }
    }
    return 0;
}

// Outside of ppoll the signals are blocked, so that none comes between the look at the notes and the wait.
int TerminalSignals::waitForInput(int descriptor) {
    sigset_t blocked;
    sigset_t usual;
    sigemptyset(&blocked);
    for (const int signal : caught) sigaddset(&blocked, signal);
    sigprocmask(SIG_BLOCK, &blocked, &usual);
    int signal = takeNote();
    while (signal == 0) {
        pollfd input{descriptor, POLLIN, 0};
        if (ppoll(&input, 1, nullptr, &usual) > 0) break;
        signal = takeNote();
    }
    sigprocmask(SIG_SETMASK, &usual, nullptr);
    return signal;
}

void TerminalSignals::actOn(int signal) {
    struct sigaction usual {};
    usual.sa_handler = SIG_DFL;
    sigemptyset(&usual.sa_mask);
    sigaction(signal, &usual, nullptr);
    raise(signal);
    catchSignal(signal);
    notes[SIGCONT] = 0;
}
