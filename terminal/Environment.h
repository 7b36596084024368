#pragma once

/// What the environment says about terminals and taste.
class Environment {
public:
    /// Whether colours are welcome: NO_COLOR is unset or empty, and the terminal is not called "dumb".
    static bool wantsColours();
    /// Whether the terminal is of a kind that can be asked for more than text.
    static bool namesCapableTerminal();
};
