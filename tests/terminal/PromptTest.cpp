// The terminal program on a terminal of its own: prompt, line editing, completion and colours.

#include <csignal>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/Terminal.h"

namespace {

using testing::HasSubstr;
using testing::Not;

Command command(std::vector<std::string> arguments = {}, std::vector<std::string> environment = {}) {
    Command command;
    command.program = TALLIX_CLI_PROGRAM;
    command.arguments = std::move(arguments);
    command.environment = std::move(environment);
    return command;
}

std::string blue(std::string_view answer) { return "\033[34m" + std::string(answer) + "\033[0m\r\n"; }

std::string red(std::string_view answer) { return "\033[31m" + std::string(answer) + "\033[0m\r\n"; }

// What Return writes: a line end, and that pastes need no mark any more.
const std::string lineEnd = "\r\n\033[?2004l";

/// A session at its first prompt.
class PromptTest : public testing::Test {
protected:
    PromptTest() { EXPECT_TRUE(terminal_.shows("> ")); }

    Terminal& terminal() { return terminal_; }

    /// Types a line, and waits for its answer and the next prompt.
    void enter(std::string_view line, std::string_view answer) {
        terminal_.type(line);
        terminal_.type(keys::enter);
        EXPECT_TRUE(terminal_.shows(blue(answer))) << terminal_.written();
        EXPECT_TRUE(terminal_.shows("> "));
    }

private:
    Terminal terminal_{command()};
};

TEST_F(PromptTest, answersInBlueAndRefusesInRed) {
    enter("2+3", "5");
    enter("x=4", "x = 4");
    terminal().type("2+\r");
    EXPECT_TRUE(terminal().shows(red("Error: The equation cannot end with a +.")));
}

TEST_F(PromptTest, controlDEndsTheSession) {
    enter("2+3", "5");
    terminal().type(keys::controlD);
    EXPECT_EQ(terminal().status(), 0);
    EXPECT_THAT(terminal().written(), Not(HasSubstr("^D")));
}

TEST_F(PromptTest, anErrorGivesStatusOne) {
    terminal().type("2+\r");
    EXPECT_TRUE(terminal().shows("\033[0m"));
    enter("2+3", "5");
    terminal().type(keys::controlD);
    EXPECT_EQ(terminal().status(), 1);
}

TEST_F(PromptTest, controlDInALineDeletesACharacter) {
    terminal().type("27");
    terminal().type(keys::controlA);
    terminal().type(keys::controlD);
    enter("", "7");
}

TEST_F(PromptTest, controlCDropsTheLine) {
    terminal().type("2+3");
    EXPECT_TRUE(terminal().shows("2+3"));
    terminal().type(keys::controlC);
    EXPECT_TRUE(terminal().shows("> "));
    enter("7", "7");
    terminal().type(keys::controlC);
    EXPECT_TRUE(terminal().shows("> "));
    enter("8", "8");
    terminal().type(keys::controlD);
    EXPECT_EQ(terminal().status(), 0);
    EXPECT_THAT(terminal().written(), Not(HasSubstr("\033[34m5")));
}

TEST_F(PromptTest, anOperatorTypedFirstGoesOnFromTheAnswer) {
    double answer = 8;
    enter("8", "8");
    for (const std::string_view key : {"+2", "-3", "*4", "/7", "^2"}) {
        terminal().type(key.substr(0, 1));
        EXPECT_TRUE(terminal().shows("ans" + std::string(key.substr(0, 1)))) << key;
        switch (key.front()) {
            case '+': answer = 10; break;
            case '-': answer = 7; break;
            case '*': answer = 28; break;
            case '/': answer = 4; break;
            default: answer = 16; break;
        }
        enter(key.substr(1), std::to_string(static_cast<int>(answer)));
    }
}

TEST_F(PromptTest, theDotOperatorGoesOnFromTheAnswer) {
    enter("8", "8");
    enter(
        "\xE2\x8B\x85"
        "2",
        "16");
}

TEST_F(PromptTest, backspaceRemovesTheAns) {
    enter("8", "8");
    terminal().type("-");
    EXPECT_TRUE(terminal().shows("ans-"));
    for (int i = 0; i < 4; ++i) terminal().type(keys::backspace);
    // The line is empty again, but the operator is not its first key.
    enter("-3", "-3");
}

TEST_F(PromptTest, anOperatorIsItselfBeforeTheFirstLine) { enter("-3+1", "-2"); }

TEST_F(PromptTest, anOperatorInsideALineIsItself) {
    enter("8", "8");
    enter("2-3", "-1");
}

TEST_F(PromptTest, aBlankLineIsNoLineToGoOnFrom) {
    terminal().type(" \r");
    EXPECT_TRUE(terminal().shows("> "));
    enter("-3", "-3");
    terminal().type("\r");
    EXPECT_TRUE(terminal().shows("> "));
    enter("-3", "-6");
}

TEST_F(PromptTest, aPasteNeverBringsAns) {
    enter("8", "8");
    terminal().type("\033[200~-3\r-4\r\033[201~");
    EXPECT_TRUE(terminal().shows(blue("-3")));
    EXPECT_TRUE(terminal().shows(blue("-4")));
    EXPECT_TRUE(terminal().shows("> "));
    enter("-1", "-5");
}

TEST_F(PromptTest, theArrowKeysBringLinesBack) {
    enter("2+3", "5");
    terminal().type("  \r");
    EXPECT_TRUE(terminal().shows("> "));
    enter("7", "7");
    terminal().type(keys::up);
    EXPECT_TRUE(terminal().shows("7"));
    terminal().type(keys::up);
    EXPECT_TRUE(terminal().shows("2+3"));
    enter("*4", "14");
}

TEST_F(PromptTest, controlRSearchesBackwards) {
    enter("100+1", "101");
    enter("2+3", "5");
    terminal().type(keys::controlR);
    terminal().type("100");
    terminal().type(keys::enter);
    EXPECT_TRUE(terminal().shows(blue("101")));
}

TEST_F(PromptTest, tabCompletesAFunction) {
    terminal().type("sq\t");
    EXPECT_TRUE(terminal().shows("sqrt("));
    enter("16)", "4");
}

TEST_F(PromptTest, tabCompletesAVariableInsideTheLine) {
    enter("radius=3", "radius = 3");
    terminal().type("2*r*2");
    terminal().type(keys::left);
    terminal().type(keys::left);
    terminal().type(keys::tab);
    enter("", "12");
}

TEST_F(PromptTest, tabListsSeveralNames) {
    terminal().type("2*si\t");
    EXPECT_TRUE(terminal().shows("\r\nsin(   sinh(\r\n"));
    EXPECT_TRUE(terminal().shows("> 2*sin"));
    enter("(0)", "0");
}

TEST_F(PromptTest, tabListsNamesBelowALineOfSeveralRows) {
    std::string ones = "1";
    for (int i = 0; i < 60; ++i) ones += "+1";
    terminal().type(ones + "+si\t");
    EXPECT_TRUE(terminal().shows("\r\nsin(   sinh(\r\n"));
    // The first row begins where the list ends: one row down, and up again for clearing.
    EXPECT_TRUE(terminal().shows("\r\n\r\033[K\033[A\033[K> 1+1")) << terminal().written();
    enter("(0)", "61");
}

TEST_F(PromptTest, tabDoesNotOfferWhatNeverAnswers) {
    terminal().type("at\t");
    EXPECT_TRUE(terminal().shows("atan("));
    enter("0)", "0");
    EXPECT_THAT(terminal().written(), Not(HasSubstr("atan2")));
}

TEST_F(PromptTest, tabRingsTheBellWhereNoNameFits) {
    terminal().type("xyz\t");
    EXPECT_TRUE(terminal().shows("\a"));
    terminal().type(keys::controlU);
    enter("7", "7");
}

TEST_F(PromptTest, whatIsNotUtf8CountsAsReplacement) {
    terminal().type("$\xFF\r");
    EXPECT_TRUE(terminal().shows(red("Error: Invalid variable name: $\xEF\xBF\xBD")));
}

TEST_F(PromptTest, aNewSizeIsTakenUp) {
    terminal().type("1+");
    EXPECT_TRUE(terminal().shows("1+"));
    terminal().resize(40);
    std::string ones = "1";
    for (int i = 0; i < 50; ++i) ones += "+1";
    enter(ones, "52");
}

TEST_F(PromptTest, aLineMayBeLongerThanTheScreen) {
    std::string ones = "1";
    for (int i = 0; i < 700; ++i) ones += "+1";
    enter(ones, "701");
    terminal().type(keys::up);
    enter("+1", "702");
}

TEST_F(PromptTest, showsItsLineAgainWhenItIsContinued) {
    terminal().type("2+");
    EXPECT_TRUE(terminal().shows("2+"));
    terminal().sendSignal(SIGSTOP);
    terminal().sendSignal(SIGCONT);
    EXPECT_TRUE(terminal().shows("> 2+"));
    enter("3", "5");
}

TEST_F(PromptTest, endsWhenItIsTold) {
    terminal().type("2+");
    EXPECT_TRUE(terminal().shows("2+"));
    terminal().sendSignal(SIGTERM);
    EXPECT_EQ(terminal().status(), 128 + SIGTERM);
}

/// Only a shell with job control can be told by Ctrl+Z that its program has stopped.
TEST(PromptSuspension, leavesTheTerminalToTheShellAndTakesItAgain) {
    Command shell = command({"-mc", "\"$0\"; stty -a; fg", TALLIX_CLI_PROGRAM});
    shell.program = "/bin/sh";
    Terminal terminal(shell);
    EXPECT_TRUE(terminal.shows("> "));
    terminal.type("2+");
    EXPECT_TRUE(terminal.shows("2+"));
    terminal.type(keys::controlZ);
    EXPECT_THAT(terminal.waitFor(" echo "), HasSubstr(" icanon ")) << "the shell has its terminal back";
    EXPECT_TRUE(terminal.shows("> 2+"));
    terminal.type("3\r");
    EXPECT_TRUE(terminal.shows(blue("5")));
    terminal.type(keys::controlD);
    EXPECT_EQ(terminal.status(), 0);
}

TEST(PromptHistory, showsTheTextOfTheHistory) {
    Terminal terminal(command({"--history"}));
    EXPECT_TRUE(terminal.shows("> "));
    terminal.type("2+3\r");
    EXPECT_TRUE(terminal.shows(lineEnd + "2+3\r\n" + blue("\t= 5")));
    EXPECT_TRUE(terminal.shows("> "));
    terminal.type("*2\r");
    EXPECT_TRUE(terminal.shows(lineEnd + "\r\nans1*2\r\n" + blue("\t= 10")));
}

TEST(PromptLocale, plusMinusArrivesInEveryLocale) {
    for (const char* const locale : {"LC_ALL=C", "LC_ALL=POSIX", "LC_ALL=C.UTF-8", "LC_ALL=no_SUCH"}) {
        SCOPED_TRACE(locale);
        Terminal terminal(command({}, {locale}));
        EXPECT_TRUE(terminal.shows("> "));
        terminal.type(
            "5\xC2\xB1"
            "0.1");
        EXPECT_TRUE(
            terminal.shows("5\xC2\xB1"
                           "0.1"))
            << "it is shown as it was typed";
        terminal.type(keys::enter);
        EXPECT_TRUE(terminal.shows(blue("5")));
        terminal.type("\xCF\x89=0.5\r");
        EXPECT_TRUE(terminal.shows(blue("\xCF\x89 = 0.5"))) << "and the point stays a point";
    }
}

TEST(PromptColours, areOffWhereTheyAreNotWanted) {
    const struct {
        const char* name;
        std::vector<std::string> environment;
        std::string answer;
    } rows[] = {
        {"NO_COLOR is set", {"NO_COLOR=1"}, lineEnd + "5\r\n"},
        {"NO_COLOR is empty", {"NO_COLOR="}, lineEnd + blue("5")},
        {"the terminal is dumb", {"TERM=dumb"}, "\r\n5\r\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Terminal terminal(command({}, row.environment));
        EXPECT_TRUE(terminal.shows("> "));
        terminal.type("2+3\r");
        EXPECT_TRUE(terminal.shows(row.answer)) << terminal.written();
        EXPECT_TRUE(terminal.shows("> "));
        terminal.type(keys::controlD);
        EXPECT_EQ(terminal.status(), 0);
    }
}

TEST(PromptColours, areForAnswersToArgumentsToo) {
    Terminal terminal(command({"2+3", "2+"}));
    EXPECT_EQ(terminal.status(), 1);
    EXPECT_EQ(terminal.written(), blue("5") + red("Error: The equation cannot end with a +."));
}

TEST(PromptTerminals, ofAnyKindDo) {
    for (const char* const kind : {"TERM=dumb", "TERM=no-such-terminal", "TERM=", "TERM", "TERM=emacs", "TERM=vt100"}) {
        SCOPED_TRACE(kind);
        Terminal terminal(command({}, {kind, "NO_COLOR=1"}));
        EXPECT_EQ(terminal.waitFor("> ").find("terminal type"), std::string::npos) << "nothing but the prompt";
        terminal.type("2+3");
        terminal.type(std::string_view(kind) == "TERM=emacs" ? "\n" : "\r");
        EXPECT_TRUE(terminal.shows("5\r\n")) << terminal.written();
        EXPECT_TRUE(terminal.shows("> "));
        terminal.type(keys::controlD);
        EXPECT_EQ(terminal.status(), 0);
    }
}

}  // namespace
