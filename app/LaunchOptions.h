#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What the command line asks for. There are no arguments but options; each document is made by hand.
struct LaunchOptions {
    enum class Action { run, showHelp, showVersion, complain };

    Action action = Action::run;
    std::string complaint;      ///< What is wrong with the usage, when `action` is `complain`.
    bool isNewProcess = false;  ///< Whether to stay apart from programs that run already, and from later ones.

    /// The arguments are those after the program's name. The first one that is no mere setting decides.
    static LaunchOptions parse(const std::vector<std::string>& arguments);

    /// What `--help` shows, and what `--version` shows; whole lines.
    static std::string_view helpText();
    static std::string_view versionText();
};
