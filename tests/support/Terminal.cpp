#include "tests/support/Terminal.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <system_error>
#include <vector>

#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr int patience = 30000;  // milliseconds

constexpr std::array<int, 6> usualSignals = {SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGHUP, SIGTSTP};

winsize sizeWith(unsigned short columns) {
    winsize size{};
    size.ws_col = columns;
    size.ws_row = 24;
    return size;
}

[[noreturn]] void runProgram(char* const* arguments, char* const* variables) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int signal : usualSignals) std::signal(signal, SIG_DFL);
    execve(arguments[0], arguments, variables);
    _exit(127);
}

}  // namespace

Terminal::Terminal(const Command& command, unsigned short columns) {
    std::vector<std::string> arguments = command.arguments;
    arguments.insert(arguments.begin(), command.program);
    // The program's own settings of the editing library are no part of a test, and so are none from the home folder.
    std::vector<std::string> changes = {"TERM=xterm", "NO_COLOR", "EDITRC=/nonexistent", "LC_ALL=C.UTF-8"};
    for (const std::string& change : command.environment) {
        const std::string name = change.substr(0, change.find('='));
        std::erase_if(changes, [&name](const std::string& text) { return text.substr(0, text.find('=')) == name; });
        changes.push_back(change);
    }
    std::vector<std::string> variables = changedEnvironment(changes);
    const std::vector<char*> argumentPointers = nullTerminated(arguments);
    const std::vector<char*> variablePointers = nullTerminated(variables);

    winsize size = sizeWith(columns);
    id_ = forkpty(&descriptor_, nullptr, nullptr, &size);
    if (id_ < 0) throw std::system_error(errno, std::generic_category(), "forkpty");
    if (id_ == 0) runProgram(argumentPointers.data(), variablePointers.data());
}

Terminal::~Terminal() {
    if (id_ > 0) {
        kill(id_, SIGKILL);
        statusOf(id_);
    }
    close(descriptor_);
}

void Terminal::type(std::string_view keys) const {
    while (!keys.empty()) {
        const ssize_t count = write(descriptor_, keys.data(), keys.size());
        if (count < 0) return;
        keys.remove_prefix(static_cast<std::size_t>(count));
    }
}

void Terminal::resize(unsigned short columns) const {
    const winsize size = sizeWith(columns);
    ioctl(descriptor_, TIOCSWINSZ, &size);
}

/// Takes what was written, waiting for it. False when the program has ended or writes nothing more.
bool Terminal::collect() {
    pollfd waiting{descriptor_, POLLIN, 0};
    if (poll(&waiting, 1, patience) <= 0) return false;
    std::array<char, 4096> buffer{};
    const ssize_t count = read(descriptor_, buffer.data(), buffer.size());
    if (count <= 0) return false;
    written_.append(buffer.data(), static_cast<std::size_t>(count));
    return true;
}

std::string Terminal::waitFor(std::string_view text) {
    std::size_t found = written_.find(text, seen_);
    while (found == std::string::npos && collect()) found = written_.find(text, seen_);
    const std::size_t end = found == std::string::npos ? written_.size() : found + text.size();
    std::string passed = written_.substr(seen_, end - seen_);
    seen_ = end;
    return passed;
}

bool Terminal::shows(std::string_view text) { return waitFor(text).ends_with(text); }

void Terminal::sendSignal(int signal) const { kill(id_, signal); }

int Terminal::status() {
    while (collect()) {
    }
    const int status = statusOf(id_);
    id_ = -1;
    return status;
}
