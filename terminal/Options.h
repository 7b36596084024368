#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "terminal/Session.h"

/// What the command line asks for.
///
///     Options::parse({"--degrees", "sin(30)", "-x+3"}).equations  // "sin(30)", "-x+3"
///
/// An option is long and written out in full; its value follows it or "=". Every argument that does not begin with
/// "--", and every one after a "--", is an equation. Where an option is given twice, the later value counts.
struct Options {
    enum class Action { calculate, showHelp, showVersion, complain };

    Action action = Action::calculate;
    std::string complaint;  ///< What is wrong with the usage, when `action` is `complain`.
    SessionSettings session;
    std::vector<std::string> equations;  ///< To be entered in place of the lines of standard input, if there are any.

    /// The arguments are those after the program's name. Nothing is thrown: wrong usage is an action.
    static Options parse(const std::vector<std::string>& arguments);

    /// What `--help` shows, and what `--version` shows; whole lines.
    static std::string_view helpText();
    static std::string_view versionText();
};
