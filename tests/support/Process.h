#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

/// How a test starts a program.
struct Command {
    std::string program;
    std::vector<std::string> arguments;
    std::vector<std::string>
        environment;         ///< "NAME=value", beside or in place of the test's own; "NAME" takes it away.
    std::string inputPath;   ///< What standard input reads; empty for a pipe from the test.
    std::string outputPath;  ///< What standard output writes to; empty for a pipe to the test.
};

/// What became of a program: its exit status (128 and the signal's number, where it was killed) and all it wrote to
/// pipes.
struct Outcome {
    int status = -1;
    std::string output;
    std::string errors;
};

/// A program that a test runs and talks to through pipes. Nothing here waits longer than half a minute: a program that
/// does not answer or end by then is killed.
class Process {
public:
    explicit Process(const Command& command);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// Writes all of `text`, collecting meanwhile what the program writes. What nobody reads any more is dropped.
    void write(std::string_view text);
    void closeInput();
    void closeOutput();

    /// Waits until the output that was not given before holds `end`, and gives it that far. Gives what there is when
    /// the program ends or takes too long.
    std::string outputUntil(std::string_view end);

    /// Closes the input, and waits for the end.
    Outcome finish();

    /// Runs a program from beginning to end.
    static Outcome run(const Command& command, std::string_view input = {});

private:
    bool collect(bool isWriting);

    pid_t id_ = -1;
    int input_ = -1;
    int output_ = -1;
    int errors_ = -1;
    Outcome outcome_;
    std::size_t given_ = 0;  ///< How much of the output `outputUntil` has given.
};

/// The test's environment with the changes of a Command.
std::vector<std::string> changedEnvironment(const std::vector<std::string>& changes);

/// Pointers to texts as the exec functions want them. They stay good as long as the texts.
std::vector<char*> nullTerminated(std::vector<std::string>& texts);

/// Waits for a program that was started, and kills it when it takes too long. Gives its status as in Outcome.
int statusOf(pid_t id);
