#include "app/LaunchOptions.h"

LaunchOptions LaunchOptions::parse(const std::vector<std::string>& arguments) {
    LaunchOptions options;
    for (const std::string& argument : arguments) {
        if (argument == "--new-process") {
            options.isNewProcess = true;
            continue;
        }
        if (argument == "--help") return {Action::showHelp, {}};
        if (argument == "--version") return {Action::showVersion, {}};
        const bool isOption = argument.size() > 1 && argument.front() == '-';
        return {Action::complain, (isOption ? "unrecognised option '" : "unexpected argument '") + argument + "'"};
    }
    return options;
}

std::string_view LaunchOptions::helpText() {
    return R"(Usage: tallix [OPTION]...

Opens a calculator window. Type an equation and press Return. Where Tallix runs
already on the same display, the window is a new one of that program.

Options:
  --new-process   start a program of its own, whatever runs already
  --help          show this help and stop
  --version       show the version and stop

Exit status: 0 when all windows were closed, or the program that runs already
has opened one; 1 when writing failed, 2 for wrong usage.
)";
}

std::string_view LaunchOptions::versionText() { return "tallix " TALLIX_VERSION "\n"; }
