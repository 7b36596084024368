// What a window costs, seen from the display. Usage:
//     tallix-bench-window start|close|lines|variables|documents COUNT PROGRAM
// Starts PROGRAM on the display of the environment, where a window manager must be running, and prints as JSON:
//     start      how long until its window was painted, and the memory that it then has
//     lines      after COUNT lines "2+3": how long more of them take until nothing is painted any more, and the
//                processor time of the program for them
//     variables  the same after COUNT lines that each make a variable
//     close      how long it takes to end after COUNT lines
//     documents  how long each of COUNT more windows takes until it was painted, and the processor time of the program
//                for it until nothing is painted any more
// Times are in microseconds, memory in bytes.
#include <algorithm>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bench/XWatch.h"
#include "bench/benchLines.h"

namespace {

using std::chrono::milliseconds;

constexpr milliseconds quiet(150);  // more than an entry line waits before it helps, less than a caret blinks
constexpr milliseconds patience(20'000);
constexpr milliseconds breath(20);  // between lines that are not measured
constexpr std::size_t linesInOneBreath = 50;
constexpr int measuredLines = 20;

/// A running program, which is ended with this object.
class Program {
public:
    explicit Program(const char* path) {
        std::string name = path;
        char* arguments[] = {name.data(), nullptr};
        if (posix_spawn(&process_, path, nullptr, nullptr, static_cast<char**>(arguments), environ) != 0) {
            throw std::runtime_error("the program does not start");
        }
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() {
        if (process_ == 0) return;
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }

    void waitForEnd() {
        waitpid(process_, nullptr, 0);
        process_ = 0;
    }

    /// The processor time of all its threads, in nanoseconds.
    std::int64_t processorTime() const {
        std::int64_t sum = 0;
        for (const auto& thread : std::filesystem::directory_iterator(folder() + "/task")) {
            std::int64_t time = 0;
            std::ifstream(thread.path() / "schedstat") >> time;
            sum += time;
        }
        return sum;
    }

    /// The bytes that the system counts under this name.
    std::int64_t memory(const std::string& name) const {
        std::ifstream rollup(folder() + "/smaps_rollup");
        for (std::string word; rollup >> word;) {
            std::int64_t kilobytes = 0;
            if (word == name + ':' && rollup >> kilobytes) return kilobytes * 1024;
        }
        return 0;
    }

private:
    std::string folder() const { return "/proc/" + std::to_string(process_); }

    pid_t process_ = 0;
};

double microseconds(XWatch::Clock::duration duration) {
    return std::chrono::duration<double, std::micro>(duration).count();
}

void print(const char* name, const std::vector<double>& values, const char* end) {
    std::printf("  \"%s\": [", name);
    for (std::size_t i = 0; i < values.size(); ++i) std::printf("%s%.1f", i == 0 ? "" : ", ", values[i]);
    std::printf("]%s\n", end);
}

/// A program with its first window painted and at rest.
struct Session {
    explicit Session(const char* path) : begun(XWatch::Clock::now()), program(path) {
        const auto painted = watch.waitForNewWindow({}, patience);
        if (!painted) throw std::runtime_error("no window was painted");
        window = painted->window;
        start = painted->time - begun;
        settled = watch.waitForQuiet(quiet) - begun;
    }

    void enter(BenchLines& lines, std::size_t count) {
        for (std::size_t entered = 0; entered < count;) {
            const std::int64_t before = program.processorTime();
            std::string text;
            for (const std::size_t end = std::min(count, entered + linesInOneBreath); entered < end; ++entered) {
                text += lines.next() + '\n';
            }
            watch.type(text);
            waitForRest(before);
        }
        watch.waitForQuiet(quiet);
    }

    /// Waits until the program has used more processor time than `before`, and now hardly uses any.
    ///
    /// That nothing is painted would not say so: a program that reads keys may paint when it has read them all.
    void waitForRest(std::int64_t before) {
        const auto until = XWatch::Clock::now() + patience;
        bool isAtRest = false;
        while (!isAtRest) {
            if (XWatch::Clock::now() > until) throw std::runtime_error("the program does not come to rest");
            const std::int64_t used = program.processorTime();
            const auto asked = XWatch::Clock::now();
            watch.waitForQuiet(breath);
            const std::chrono::nanoseconds waited = XWatch::Clock::now() - asked;
            const std::int64_t now = program.processorTime();
            isAtRest = now > before && now - used < waited.count() / 10;
        }
    }

    XWatch watch;
    XWatch::Time begun;
    Program program;
    xcb_window_t window = 0;
    XWatch::Clock::duration start{};
    XWatch::Clock::duration settled{};
};

void measureStart(Session& session) {
    std::printf("{\n  \"painted\": %.1f,\n  \"settled\": %.1f,\n  \"rss\": %lld,\n  \"pss\": %lld\n}\n",
                microseconds(session.start), microseconds(session.settled),
                static_cast<long long>(session.program.memory("Rss")),
                static_cast<long long>(session.program.memory("Pss")));
}

void measureLines(Session& session, std::size_t count, LineFamily family) {
    BenchLines lines(family);
    session.enter(lines, count);
    std::vector<double> settled;
    std::vector<double> processor;
    for (int i = 0; i < measuredLines; ++i) {
        const std::int64_t before = session.program.processorTime();
        const auto typed = XWatch::Clock::now();
        session.watch.type("2+3\n");
        if (!session.watch.waitForPaint(patience)) throw std::runtime_error("a line was not painted");
        settled.push_back(microseconds(session.watch.waitForQuiet(quiet) - typed));
        processor.push_back(static_cast<double>(session.program.processorTime() - before) / 1000);
    }
    std::printf("{\n");
    print("settled", settled, ",");
    print("processor", processor, "");
    std::printf("}\n");
}

void measureClose(Session& session, std::size_t count) {
    BenchLines lines(LineFamily::trivial);
    session.enter(lines, count);
    const auto asked = XWatch::Clock::now();
    session.watch.askToClose(session.window);
    session.program.waitForEnd();
    std::printf("{\"ended\": %.1f}\n", microseconds(XWatch::Clock::now() - asked));
}

void measureDocuments(Session& session, std::size_t count) {
    std::set<xcb_window_t> known{session.window};
    std::vector<double> painted;
    std::vector<double> processor;
    for (std::size_t i = 0; i < count; ++i) {
        const std::int64_t before = session.program.processorTime();
        const auto pressed = XWatch::Clock::now();
        session.watch.pressControl('n');
        const auto next = session.watch.waitForNewWindow(known, patience);
        if (!next) throw std::runtime_error("a document was not painted");
        painted.push_back(microseconds(next->time - pressed));
        known.insert(next->window);
        session.watch.waitForQuiet(quiet);
        processor.push_back(static_cast<double>(session.program.processorTime() - before) / 1000);
    }
    std::printf("{\n");
    print("painted", painted, ",");
    print("processor", processor, "");
    std::printf("}\n");
}

bool measure(const std::string& scenario, std::size_t count, const char* path) {
    Session session(path);
    if (scenario == "start") {
        measureStart(session);
    } else if (scenario == "lines") {
        measureLines(session, count, LineFamily::trivial);
    } else if (scenario == "variables") {
        measureLines(session, count, LineFamily::variables);
    } else if (scenario == "close") {
        measureClose(session, count);
    } else if (scenario == "documents") {
        measureDocuments(session, count);
    } else {
        return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<const char*> arguments(argv, argv + argc);
    std::size_t count = 0;
    const bool hasCount =
        arguments.size() == 4 &&
        std::from_chars(arguments[2], arguments[2] + std::strlen(arguments[2]), count).ec == std::errc();
    try {
        if (hasCount && measure(arguments[1], count, arguments[3])) return 0;
        std::fputs("Usage: tallix-bench-window start|close|lines|variables|documents COUNT PROGRAM\n", stderr);
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tallix-bench-window: %s\n", error.what());
        return 1;
    }
}
