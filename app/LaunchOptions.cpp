#include "app/LaunchOptions.h"

LaunchOptions LaunchOptions::parse(const std::vector<std::string>& arguments) {
    if (arguments.empty()) return {};
    const std::string& first = arguments.front();
    if (first == "--help") return {Action::showHelp, {}};
    if (first == "--version") return {Action::showVersion, {}};
    const bool isOption = first.size() > 1 && first.front() == '-';
    return {Action::complain, (isOption ? "unrecognised option '" : "unexpected argument '") + first + "'"};
}

std::string_view LaunchOptions::helpText() {
    return R"(Usage: tallix [OPTION]

Opens a calculator window. Type an equation and press Return.

Options:
  --help      show this help and stop
  --version   show the version and stop

Exit status: 0 when all windows were closed, 1 when writing failed, 2 for wrong
usage.
)";
}

std::string_view LaunchOptions::versionText() { return "tallix " TALLIX_VERSION "\n"; }
