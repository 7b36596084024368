#include "terminal/Environment.h"

#include <cstdlib>
#include <string_view>

namespace {

/// Unset counts as empty.
std::string_view valueOf(const char* variable) {
    const char* const value = std::getenv(variable);
    return value == nullptr ? std::string_view() : std::string_view(value);
}

}  // namespace

bool Environment::wantsColours() { return valueOf("NO_COLOR").empty() && valueOf("TERM") != "dumb"; }

bool Environment::namesCapableTerminal() { return !valueOf("TERM").empty() && valueOf("TERM") != "dumb"; }
