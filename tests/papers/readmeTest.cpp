// What the README shows is what the program does.

#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Process.h"

namespace {

std::string contentsOf(const std::string& path) {
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// The fenced blocks of one kind, without their fences.
std::vector<std::string> blocks(const std::string& text, const std::string& kind) {
    const std::string opening = "```" + kind + "\n";
    std::vector<std::string> found;
    for (std::size_t at = text.find(opening); at != std::string::npos; at = text.find(opening, at)) {
        at += opening.size();
        const std::size_t end = text.find("```", at);
        found.push_back(text.substr(at, end - at));
        at = end;
    }
    return found;
}

std::string outputOf(std::vector<std::string> arguments, const std::string& input = {}) {
    Command command;
    command.program = TALLIX_CLI_PROGRAM;
    command.arguments = std::move(arguments);
    return Process::run(command, input).output;
}

struct Session {
    std::string input;
    std::string output;
};

// Lines that begin with the prompt are typed, the others are answers.
Session sessionIn(const std::string& block) {
    Session session;
    std::istringstream lines(block);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("> ")) {
            session.input += line.substr(2) + "\n";
        } else {
            session.output += line + "\n";
        }
    }
    return session;
}

TEST(Readme, sessionGivesTheAnswersShown) {
    const std::vector<std::string> sessions = blocks(contentsOf(TALLIX_SOURCE_FOLDER "/README.md"), "session");
    ASSERT_EQ(sessions.size(), 1U);
    const Session session = sessionIn(sessions.front());
    ASSERT_FALSE(session.input.empty());
    EXPECT_EQ(outputOf({}, session.input), session.output);
}

struct Call {
    const char* command;
    std::vector<std::string> arguments;
    const char* output;
};

// The commands that the README shows with their answers.
TEST(Readme, commandsGiveTheAnswersShown) {
    const std::string readme = contentsOf(TALLIX_SOURCE_FOLDER "/README.md");
    const std::vector<Call> calls = {
        {"tallix-cli --degrees 'sin(30)'", {"--degrees", "sin(30)"}, "0.5\n"},
        {"tallix-cli --format hexadecimal 255", {"--format", "hexadecimal", "255"}, "0xFF\n"},
        {"tallix-cli --decimal-places 2 --thousands , 1234567.891",
         {"--decimal-places", "2", "--thousands", ",", "1234567.891"},
         "1,234,567.89\n"},
    };
    for (const Call& call : calls) {
        SCOPED_TRACE(call.command);
        EXPECT_NE(readme.find(call.command), std::string::npos);
        EXPECT_EQ(outputOf(call.arguments), call.output);
    }
}

}  // namespace
