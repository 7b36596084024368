// The terminal program as a process: pipes, files, arguments and exit statuses.

#include <cstdio>
#include <fstream>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "terminal/Options.h"
#include "tests/support/Process.h"

namespace {

using namespace std::string_literals;
using Arguments = std::vector<std::string>;

Command withArguments(Arguments arguments) {
    Command command;
    command.program = TALLIX_CLI_PROGRAM;
    command.arguments = std::move(arguments);
    return command;
}

struct ProgramCase {
    const char* name;
    Arguments arguments;
    std::string input;
    std::string output;
    int status;
};
void PrintTo(const ProgramCase& row, std::ostream* out) {
    *out << testing::PrintToString(row.arguments) << " with " << testing::PrintToString(row.input);
}
class Program : public testing::TestWithParam<ProgramCase> {};

TEST_P(Program, answers) {
    const Outcome outcome = Process::run(withArguments(GetParam().arguments), GetParam().input);
    EXPECT_EQ(outcome.output, GetParam().output);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.status, GetParam().status);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Input, Program, testing::Values(
    ProgramCase{"NoLine",               {}, "",                       "",                      0},
    ProgramCase{"OneLine",              {}, "2+3*4\n",                "14\n",                  0},
    ProgramCase{"LastLineWithoutEnd",   {}, "2+3",                    "5\n",                   0},
    ProgramCase{"OneSession",           {}, "x=3\nx^2\nans+1\n",      "x = 3\n9\n10\n",        0},
    ProgramCase{"BlankLinesHaveNone",   {}, "\n 2\n\t\n\n3\n\n",      "2\n3\n",                0},
    ProgramCase{"WindowsLineEnds",      {}, "2+3\r\n\r\n4\r\n",       "5\n4\n",                0},
    ProgramCase{"NoAnsBeforeOperators", {}, "5\n-3\n",                "5\n-3\n",               0},
    ProgramCase{"ErrorGivesStatusOne",  {}, "2+\n2+3\n",              "Error: The equation cannot end with a +.\n5\n", 1},
    ProgramCase{"PlusMinus",            {}, "5\xC2\xB1""0.1\n",       "5\n",                   0},
    ProgramCase{"InvalidUtf8",          {}, "$\xFF\xC2\n7\n",
                "Error: Invalid variable name: $\xEF\xBF\xBD\xEF\xBF\xBD\n7\n",                1},
    ProgramCase{"NulInALine",           {}, "$\0\n7\n"s,              "Error: Invalid variable name: $\0\n7\n"s, 1},
    ProgramCase{"History",              {"--history"}, "2+3\n\nans*2\n2+\n",
                "2+3\n\t= 5\n\nans1*2\n\t= 10\n\n2+\n\tError: The equation cannot end with a +.\n", 1}
), [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(Arguments, Program, testing::Values(
    ProgramCase{"InPlaceOfInput",       {"2+3"},                         "7\n", "5\n",          0},
    ProgramCase{"OneSession",           {"x=3", "-x+3", "ans-1"},        "",    "x = 3\n0\n-1\n", 0},
    ProgramCase{"ErrorGivesStatusOne",  {"2+", "4"},                     "",    "Error: The equation cannot end with a +.\n4\n", 1},
    ProgramCase{"BlankHasNoAnswer",     {""},                            "7\n", "",             0},
    ProgramCase{"EndOfOptions",         {"--", "--5"},                   "",    "5\n",          0},
    ProgramCase{"InvalidUtf8",          {"$\xE2\x8B"},                   "",
                "Error: Invalid variable name: $\xEF\xBF\xBD\n",                                1},
    ProgramCase{"Degrees",              {"--degrees", "sin(30)"},        "",    "0.5\n",        0},
    ProgramCase{"Scientific",           {"--format=scientific", "1500"}, "",    "1.5e3\n",      0},
    ProgramCase{"Hexadecimal",          {"--format", "hexadecimal", "0b11111111"}, "", "0xFF\n", 0},
    ProgramCase{"SignificantFigures",   {"--significant-figures", "3", "2/3"}, "", "0.667\n",   0},
    ProgramCase{"DecimalPlaces",        {"--decimal-places", "2", "10/4"}, "",  "2.50\n",       0},
    ProgramCase{"NoZeros",              {"--no-zeros", "--decimal-places", "2", "10/4"}, "", "2.5\n", 0},
    ProgramCase{"Thousands",            {"--thousands", ",", "2^20"},    "",    "1,048,576\n",  0},
    ProgramCase{"ThousandsWithBlank",   {"--thousands", " ", "2^20"},    "",    "1 048 576\n",  0},
    ProgramCase{"History",              {"--history", "2+3", "x=4"},     "",    "2+3\n\t= 5\n\nx=4\n\tx = 4\n", 0}
), [](const auto& test) { return test.param.name; });
// clang-format on

TEST(ProgramUsage, helpAndVersionGoToStandardOutput) {
    const Outcome help = Process::run(withArguments({"--help"}));
    EXPECT_EQ(help.output, Options::helpText());
    EXPECT_EQ(help.errors, "");
    EXPECT_EQ(help.status, 0);
    const Outcome version = Process::run(withArguments({"--version"}));
    EXPECT_EQ(version.output, "tallix-cli " TALLIX_VERSION "\n");
    EXPECT_EQ(version.status, 0);
}

/// The examples of the help are a promise.
TEST(ProgramUsage, helpShowsWhatItsExamplesAnswer) {
    EXPECT_EQ(Process::run(withArguments({"2+3*4"})).output, "14\n");
    EXPECT_EQ(Process::run(withArguments({"x=3", "x^2", "ans+1"})).output, "x = 3\n9\n10\n");
    EXPECT_EQ(Process::run(withArguments({"--degrees", "sin(30)"})).output, "0.5\n");
    EXPECT_EQ(Process::run(withArguments({"--decimal-places", "2", "10/4"})).output, "2.50\n");
    EXPECT_EQ(Process::run(withArguments({"--format", "hexadecimal", "0b11111111"})).output, "0xFF\n");
    EXPECT_EQ(Process::run(withArguments({"--thousands", ",", "2^20"})).output, "1,048,576\n");
}

TEST(ProgramUsage, wrongUsageGoesToStandardErrorWithAHint) {
    const Outcome outcome = Process::run(withArguments({"2+3", "--bogus"}));
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors,
              "tallix-cli: unrecognised option '--bogus'\nTry 'tallix-cli --help' for more information.\n");
    EXPECT_EQ(outcome.status, 2);
}

TEST(ProgramPipes, answersALineBeforeTheNextOneComes) {
    Process process(withArguments({}));
    process.write("2+3\n");
    EXPECT_EQ(process.outputUntil("\n"), "5\n");
    process.write("ans*2\nx=");
    EXPECT_EQ(process.outputUntil("\n"), "10\n");
    process.write("4\n");
    EXPECT_EQ(process.outputUntil("\n"), "x = 4\n");
    EXPECT_EQ(process.finish().status, 0);
}

TEST(ProgramPipes, aClosedPipeEndsItQuietly) {
    Process process(withArguments({}));
    process.closeOutput();
    process.write("2+3\n4\n");
    const Outcome outcome = process.finish();
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST(ProgramPipes, aClosedPipeEndsItBeforeTheInputDoes) {
    Process process(withArguments({}));
    process.closeOutput();
    std::string lines;
    for (int i = 0; i < 100'000; ++i) lines += "2+3\n";
    process.write(lines);
    EXPECT_EQ(process.finish().status, 0);
}

TEST(ProgramFailures, aFullDeviceIsTold) {
    for (const Arguments& arguments : {Arguments{"2+3"}, Arguments{"--help"}, Arguments{"--version"}}) {
        Command command = withArguments(arguments);
        command.outputPath = "/dev/full";
        const Outcome outcome = Process::run(command);
        EXPECT_EQ(outcome.errors, "tallix-cli: cannot write to standard output: No space left on device\n");
        EXPECT_EQ(outcome.status, 1);
    }
}

TEST(ProgramFailures, aFailedReadIsToldAfterTheAnswers) {
    Command command = withArguments({});
    command.inputPath = "/";
    const Outcome outcome = Process::run(command);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "tallix-cli: cannot read standard input: Is a directory\n");
    EXPECT_EQ(outcome.status, 1);
}

/// A file that is gone after the test.
class ProgramFiles : public testing::Test {
protected:
    void TearDown() override { static_cast<void>(std::remove(path_.c_str())); }

    Outcome answersTo(const std::string& text) const {
        std::ofstream(path_, std::ios::binary) << text;
        Command command = withArguments({});
        command.inputPath = path_;
        return Process::run(command);
    }

private:
    std::string path_ =
        testing::TempDir() + "tallix-cli-input-" + testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(ProgramFiles, areAnsweredToTheirEnd) {
    const Outcome outcome = answersTo("2+3\nx=4\nx*ans");
    EXPECT_EQ(outcome.output, "5\nx = 4\n16\n");
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(ProgramFiles, mayHaveManyLines) {
    constexpr int count = 20'000;
    std::string lines;
    std::string answers;
    for (int i = 0; i < count; ++i) {
        lines += "x=" + std::to_string(i) + "\nx+1\n";
        answers += "x = " + std::to_string(i) + "\n" + std::to_string(i + 1) + "\n";
    }
    const Outcome outcome = answersTo(lines);
    EXPECT_TRUE(outcome.output == answers);
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(ProgramFiles, mayHaveLongLines) {
    std::string sum = "1";
    for (int i = 1; i < 500'000; ++i) sum += "+1";
    const Outcome outcome = answersTo(sum + "\n" + std::string(1'000'000, '(') + "\n2");
    EXPECT_TRUE(outcome.output.starts_with("500000\nError: ")) << outcome.output.substr(0, 200);
    EXPECT_TRUE(outcome.output.ends_with("\n2\n"));
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(ProgramFiles, mayHoldAnything) {
    std::string bytes;
    unsigned state = 1;
    for (int i = 0; i < 200'000; ++i) {
        state = state * 1664525 + 1013904223;
        bytes += static_cast<char>(state >> 24);
    }
    const Outcome outcome = answersTo(bytes);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.status, 1);
}

}  // namespace
