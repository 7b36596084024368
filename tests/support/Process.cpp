#include "tests/support/Process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <stdexcept>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr std::chrono::seconds patience(30);

struct Pipe {
    int reading = -1;
    int writing = -1;
};

[[noreturn]] void fail(const char* what, int error) { throw std::system_error(error, std::generic_category(), what); }

// Close-on-exec, so that a second program does not hold the ends of the first one's pipes.
Pipe makePipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) fail("pipe2", errno);
    return {ends[0], ends[1]};
}

void closeAndForget(int& descriptor) {
    if (descriptor >= 0) close(descriptor);
    descriptor = -1;
}

class SpawnActions {
public:
    SpawnActions() {
        posix_spawn_file_actions_init(&actions_);
        posix_spawnattr_init(&attributes_);
        // The program begins with the signals that a shell would give it.
        sigset_t usual;
        sigemptyset(&usual);
        posix_spawnattr_setsigmask(&attributes_, &usual);
        for (const int signal : {SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGHUP}) sigaddset(&usual, signal);
        posix_spawnattr_setsigdefault(&attributes_, &usual);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    ~SpawnActions() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;

    void connect(int descriptor, const std::string& path, int flags, int pipeEnd) {
        if (path.empty()) {
            posix_spawn_file_actions_adddup2(&actions_, pipeEnd, descriptor);
        } else {
            posix_spawn_file_actions_addopen(&actions_, descriptor, path.c_str(), flags, 0600);
        }
    }
    const posix_spawn_file_actions_t* actions() const { return &actions_; }
    const posix_spawnattr_t* attributes() const { return &attributes_; }

private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

/// Takes what a pipe holds. False at its end, where it is closed.
bool takeFrom(int& descriptor, std::string& text) {
    std::array<char, 65536> buffer{};
    const ssize_t count = read(descriptor, buffer.data(), buffer.size());
    if (count > 0) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
        return true;
    }
    if (count < 0 && errno == EINTR) return true;
    closeAndForget(descriptor);
    return false;
}

}  // namespace

std::vector<std::string> changedEnvironment(const std::vector<std::string>& changes) {
    std::vector<std::string> variables;
    for (char** variable = environ; *variable != nullptr; ++variable) {
        const std::string_view text = *variable;
        const std::string_view name = text.substr(0, text.find('='));
        const bool isChanged = std::any_of(changes.begin(), changes.end(), [name](const std::string& change) {
            return std::string_view(change).substr(0, change.find('=')) == name;
        });
        if (!isChanged) variables.emplace_back(text);
    }
    std::copy_if(changes.begin(), changes.end(), std::back_inserter(variables),
                 [](const std::string& change) { return change.find('=') != std::string::npos; });
    return variables;
}

std::vector<char*> nullTerminated(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

int statusOf(pid_t id) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    int status = 0;
    while (waitpid(id, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > deadline) kill(id, SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

Process::Process(const Command& command) {
    Pipe input = makePipe();
    Pipe output = makePipe();
    Pipe errors = makePipe();
    SpawnActions actions;
    actions.connect(STDIN_FILENO, command.inputPath, O_RDONLY, input.reading);
    actions.connect(STDOUT_FILENO, command.outputPath, O_WRONLY | O_CREAT | O_TRUNC, output.writing);
    actions.connect(STDERR_FILENO, {}, 0, errors.writing);

    std::vector<std::string> arguments = command.arguments;
    arguments.insert(arguments.begin(), command.program);
    std::vector<std::string> variables = changedEnvironment(command.environment);
    const int error = posix_spawn(&id_, command.program.c_str(), actions.actions(), actions.attributes(),
                                  nullTerminated(arguments).data(), nullTerminated(variables).data());
    close(input.reading);
    close(output.writing);
    close(errors.writing);
    if (error != 0) fail("posix_spawn", error);
    input_ = input.writing;
    output_ = output.reading;
    errors_ = errors.reading;
    fcntl(input_, F_SETFL, O_NONBLOCK);
}

Process::~Process() {
    if (id_ > 0) {
        kill(id_, SIGKILL);
        statusOf(id_);
    }
    closeAndForget(input_);
    closeAndForget(output_);
    closeAndForget(errors_);
}

/// Waits for the pipes and takes what came. Gives whether something happened: false when nothing can any more, or when
/// it takes too long.
bool Process::collect(bool isWriting) {
    // A negative descriptor is passed over.
    std::array<pollfd, 3> pipes = {{
        {output_, POLLIN, 0},
        {errors_, POLLIN, 0},
        {isWriting ? input_ : -1, POLLOUT, 0},
    }};
    if (output_ < 0 && errors_ < 0 && !isWriting) return false;
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(patience).count();
    if (poll(pipes.data(), pipes.size(), static_cast<int>(milliseconds)) <= 0) {
        kill(id_, SIGKILL);
        return false;
    }
    if (pipes[0].revents != 0) takeFrom(output_, outcome_.output);
    if (pipes[1].revents != 0) takeFrom(errors_, outcome_.errors);
    return true;
}

void Process::write(std::string_view text) {
    struct sigaction ignoring {};
    struct sigaction before {};
    ignoring.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &ignoring, &before);
    while (!text.empty() && input_ >= 0) {
        const ssize_t count = ::write(input_, text.data(), text.size());
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EAGAIN || !collect(true)) {
            closeInput();
        }
    }
    sigaction(SIGPIPE, &before, nullptr);
}

void Process::closeInput() { closeAndForget(input_); }

void Process::closeOutput() { closeAndForget(output_); }

std::string Process::outputUntil(std::string_view end) {
    std::size_t found = outcome_.output.find(end, given_);
    while (found == std::string::npos && output_ >= 0 && collect(false)) found = outcome_.output.find(end, given_);
    const std::size_t until = found == std::string::npos ? outcome_.output.size() : found + end.size();
    std::string text = outcome_.output.substr(given_, until - given_);
    given_ = until;
    return text;
}

Outcome Process::finish() {
    closeInput();
    while (collect(false)) {
    }
    outcome_.status = statusOf(id_);
    id_ = -1;
    return outcome_;
}

Outcome Process::run(const Command& command, std::string_view input) {
    Process process(command);
    process.write(input);
    return process.finish();
}
