#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include <xcb/damage.h>
#include <xcb/xcb.h>

/// Watches from outside what the programs on an X display paint, and presses keys there.
///
/// Windows count from when the window manager takes them over. A blinking caret is not painting. Times are those at
/// which the display told of what happened.
class XWatch {
public:
    using Clock = std::chrono::steady_clock;
    using Time = Clock::time_point;

    /// Connects to the display that the environment names. Throws std::runtime_error when that fails.
    XWatch();

    /// What was painted of a window.
    struct Painted {
        xcb_window_t window;
        Time time;
    };
    /// Waits until half of a window that is not in `known` is painted for the first time; nothing after `patience`.
    std::optional<Painted> waitForNewWindow(const std::set<xcb_window_t>& known, std::chrono::milliseconds patience);
    /// Waits until, from now on, nothing was painted for as long as `quiet`. The time of what was painted last, which
    /// may have been before the call.
    Time waitForQuiet(std::chrono::milliseconds quiet);
    /// Waits for the next paint; false after `patience`.
    bool waitForPaint(std::chrono::milliseconds patience);

    /// Types characters of ASCII; "\n" is Return.
    void type(std::string_view text);
    /// Presses Ctrl and a letter.
    void pressControl(char letter);
    /// Asks a window to close, as a window manager does.
    void askToClose(xcb_window_t window);

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    struct Key {
        xcb_keycode_t code;
        bool isShifted;
    };

    void readKeyboard();
    void watch(xcb_window_t window);
    /// Takes the next event, if one comes in time: the window that was painted, and whether that was half of it.
    std::optional<std::pair<xcb_window_t, bool>> nextPaint(Time until);
    void send(xcb_keycode_t code, bool isPress);
    void press(Key key, std::optional<xcb_keycode_t> modifier);
    xcb_atom_t atom(std::string_view name);

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t root_ = 0;
    std::uint8_t damageEvent_ = 0;
    std::map<xcb_keysym_t, Key> keys_;
    Time lastPaint_ = Clock::now();
};
