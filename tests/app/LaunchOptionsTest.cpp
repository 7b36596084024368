// The window program as a process without a display: its options.

#include "app/LaunchOptions.h"

#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Process.h"

namespace {

struct OptionsCase {
    const char* name;
    std::vector<std::string> arguments;
    std::string output;
    std::string errors;
    int status;
};
void PrintTo(const OptionsCase& row, std::ostream* out) { *out << testing::PrintToString(row.arguments); }
class WithoutDisplay : public testing::TestWithParam<OptionsCase> {};

TEST_P(WithoutDisplay, answersItsOptions) {
    Command command;
    command.program = TALLIX_PROGRAM;
    command.arguments = GetParam().arguments;
    command.environment = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM=xcb", "LSAN_OPTIONS"};
    const Outcome outcome = Process::run(command);
    EXPECT_EQ(outcome.output, GetParam().output);
    EXPECT_EQ(outcome.errors, GetParam().errors);
    EXPECT_EQ(outcome.status, GetParam().status);
}

const std::string help(LaunchOptions::helpText());
const std::string version = "tallix " TALLIX_VERSION "\n";

std::string refusal(const std::string& complaint) { return "tallix: " + complaint + "\nTry 'tallix --help'.\n"; }

// clang-format off
INSTANTIATE_TEST_SUITE_P(Options, WithoutDisplay, testing::Values(
    OptionsCase{"Help",             {"--help"},               help,    "", 0},
    OptionsCase{"Version",          {"--version"},            version, "", 0},
    OptionsCase{"TheFirstDecides",  {"--version", "--bogus"}, version, "", 0},
    OptionsCase{"AfterASetting",    {"--new-process", "--version"}, version, "", 0},
    OptionsCase{"WrongAfterOne",    {"--new-process", "--bogus"}, "", refusal("unrecognised option '--bogus'"), 2},
    OptionsCase{"Unknown",          {"--bogus"},              "",      refusal("unrecognised option '--bogus'"), 2},
    OptionsCase{"UnknownFirst",     {"--bogus", "--help"},    "",      refusal("unrecognised option '--bogus'"), 2},
    OptionsCase{"Short",            {"-h"},                   "",      refusal("unrecognised option '-h'"), 2},
    OptionsCase{"Abbreviated",      {"--vers"},               "",      refusal("unrecognised option '--vers'"), 2},
    OptionsCase{"OfTheToolkit",     {"-style", "windows"},    "",      refusal("unrecognised option '-style'"), 2},
    OptionsCase{"File",             {"sums.txt"},             "",      refusal("unexpected argument 'sums.txt'"), 2},
    OptionsCase{"Dash",             {"-"},                    "",      refusal("unexpected argument '-'"), 2},
    OptionsCase{"Empty",            {""},                     "",      refusal("unexpected argument ''"), 2}
), [](const auto& row) { return row.param.name; });
// clang-format on

TEST(LaunchOptions, runsTheWindowsWithoutArguments) {
    EXPECT_EQ(LaunchOptions::parse({}).action, LaunchOptions::Action::run);
    EXPECT_FALSE(LaunchOptions::parse({}).isNewProcess);
    EXPECT_EQ(LaunchOptions::parse({"--new-process"}).action, LaunchOptions::Action::run);
    EXPECT_TRUE(LaunchOptions::parse({"--new-process"}).isNewProcess);
}

TEST(LaunchOptions, failsWhenNobodyCanReadTheHelp) {
    Command command;
    command.program = TALLIX_PROGRAM;
    command.arguments = {"--help"};
    command.outputPath = "/dev/full";
    const Outcome outcome = Process::run(command);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "tallix: No space left on device\n");
}

}  // namespace
