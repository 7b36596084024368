#include "terminal/Program.h"

#include <cerrno>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

#include "terminal/Environment.h"
#include "terminal/LineReader.h"
#include "terminal/Prompt.h"
#include "terminal/ReplyWriter.h"
#include "terminal/Session.h"

namespace {

bool isTerminal(int descriptor) { return isatty(descriptor) == 1; }

bool isRegularFile(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

void complain(const std::string& text) {
    static_cast<void>(std::fputs(("tallix-cli: " + text + "\n").c_str(), stderr));
}

std::string reasonOf(int error) { return std::generic_category().message(error); }

ReplyWriter::Manner mannerOfOutput() {
    const bool isShown = isTerminal(STDOUT_FILENO);
    ReplyWriter::Manner manner;
    manner.hasColours = isShown && Environment::wantsColours();
    // Nobody waits for an answer before the next line where the lines were all written beforehand.
    manner.isBuffered = !isShown && isRegularFile(STDIN_FILENO);
    return manner;
}

/// The loops below go on until there are no more lines, or until nobody can be told the answers.
bool enter(std::string_view line, Session& session, ReplyWriter& writer) {
    const Reply* const reply = session.enter(line);
    return reply == nullptr || writer.write(*reply);
}

/// The `errno` of a read that failed, or 0.
int enterLinesOfInput(Session& session, ReplyWriter& writer) {
    LineReader reader(STDIN_FILENO);
    for (;;) {
        const std::optional<std::string_view> line = reader.nextLine();
        if (!line || !enter(*line, session, writer)) return reader.error();
    }
}

void converse(Session& session, ReplyWriter& writer) {
    Prompt prompt(session.equationController());
    while (const std::optional<std::u16string> line = prompt.nextLine()) {
        const Reply* const reply = session.enter(*line);
        if (reply == nullptr) continue;
        prompt.keepLine(*line);
        if (!writer.write(*reply)) return;
    }
}

/// Complains about what went wrong with reading or writing, and gives the exit status if something did.
std::optional<int> failureOf(ReplyWriter& writer, int readError) {
    writer.flush();
    // Who stops listening is not told about it.
    if (writer.error() != 0 && writer.error() != EPIPE) {
        complain("cannot write to standard output: " + reasonOf(writer.error()));
        return exitStatus::failed;
    }
    if (readError != 0) {
        complain("cannot read standard input: " + reasonOf(readError));
        return exitStatus::failed;
    }
    return std::nullopt;
}

int calculate(const Options& options) {
    Session session(options.session);
    ReplyWriter writer(STDOUT_FILENO, mannerOfOutput());
    int readError = 0;
    if (!options.equations.empty()) {
        for (const std::string& equation : options.equations) {
            if (!enter(equation, session, writer)) break;
        }
    } else if (isTerminal(STDIN_FILENO) && isTerminal(STDOUT_FILENO)) {
        converse(session, writer);
    } else {
        readError = enterLinesOfInput(session, writer);
    }
    return failureOf(writer, readError).value_or(session.hasErrors() ? exitStatus::failed : exitStatus::answered);
}

int show(std::string_view text) {
    ReplyWriter writer(STDOUT_FILENO, {});
    writer.write(text);
    return failureOf(writer, 0).value_or(exitStatus::answered);
}

}  // namespace

int runProgram(const Options& options) {
    switch (options.action) {
        case Options::Action::showHelp: return show(Options::helpText());
        case Options::Action::showVersion: return show(Options::versionText());
        case Options::Action::calculate: return calculate(options);
        default: break;
    }
    complain(options.complaint + "\nTry 'tallix-cli --help' for more information.");
    return exitStatus::wrongUsage;
}
