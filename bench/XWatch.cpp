#include "bench/XWatch.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include <poll.h>
#include <xcb/xtest.h>

namespace {

constexpr xcb_keysym_t returnSymbol = 0xFF0D;
constexpr xcb_keysym_t shiftSymbol = 0xFFE1;
constexpr xcb_keysym_t controlSymbol = 0xFFE3;
constexpr std::uint8_t eventMask = 0x7F;  // without the bit for events that a client sent

/// What the library hands out to be freed.
template <class Type>
std::unique_ptr<Type, decltype(&std::free)> owned(Type* object) {
    return {object, &std::free};
}

/// A caret blinks by a clock of its own, whatever is typed.
bool isCaret(const xcb_rectangle_t& painted) {
    constexpr int caretWidth = 16;  // with what the toolkit paints around it
    return painted.width <= caretWidth && painted.height > painted.width;
}

}  // namespace

XWatch::XWatch() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_.get()) != 0) throw std::runtime_error("there is no display");
    const xcb_query_extension_reply_t* damage = xcb_get_extension_data(connection_.get(), &xcb_damage_id);
    if (damage == nullptr || damage->present == 0) throw std::runtime_error("the display does not tell of paints");
    damageEvent_ = static_cast<std::uint8_t>(damage->first_event + XCB_DAMAGE_NOTIFY);
    owned(
        xcb_damage_query_version_reply(connection_.get(), xcb_damage_query_version(connection_.get(), 1, 1), nullptr));
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
    const std::uint32_t wanted = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_.get(), root_, XCB_CW_EVENT_MASK, &wanted);
    readKeyboard();
    xcb_flush(connection_.get());
}

void XWatch::readKeyboard() {
    const xcb_setup_t* setup = xcb_get_setup(connection_.get());
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto cookie = xcb_get_keyboard_mapping(connection_.get(), setup->min_keycode, count);
    const auto reply = owned(xcb_get_keyboard_mapping_reply(connection_.get(), cookie, nullptr));
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    const int columns = reply->keysyms_per_keycode;
    for (int row = 0; row < count; ++row) {
        for (int column = 0; column < std::min(2, columns); ++column) {
            const auto code = static_cast<xcb_keycode_t>(setup->min_keycode + row);
            keys_.try_emplace(symbols[row * columns + column], Key{code, column == 1});
        }
    }
}

void XWatch::watch(xcb_window_t window) {
    const xcb_damage_damage_t damage = xcb_generate_id(connection_.get());
    xcb_damage_create(connection_.get(), damage, window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    xcb_flush(connection_.get());
}

std::optional<std::pair<xcb_window_t, bool>> XWatch::nextPaint(Time until) {
    while (true) {
        const auto event = owned(xcb_poll_for_event(connection_.get()));
        if (event == nullptr) {
            const auto rest = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now());
            pollfd readable{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
            if (rest.count() <= 0 || poll(&readable, 1, static_cast<int>(rest.count())) <= 0) return std::nullopt;
            continue;
        }
        const auto type = static_cast<std::uint8_t>(event->response_type & eventMask);
        if (type == XCB_REPARENT_NOTIFY) {
            // The window manager puts the windows of programs, before they show, into frames of its own.
            watch(reinterpret_cast<const xcb_reparent_notify_event_t*>(event.get())->window);
        } else if (type == damageEvent_) {
            const auto* painted = reinterpret_cast<const xcb_damage_notify_event_t*>(event.get());
            if (isCaret(painted->area)) continue;
            const int area = painted->area.width * painted->area.height;
            lastPaint_ = Clock::now();
            return std::pair(painted->drawable, 2 * area >= painted->geometry.width * painted->geometry.height);
        }
    }
}

std::optional<XWatch::Painted> XWatch::waitForNewWindow(const std::set<xcb_window_t>& known,
                                                        std::chrono::milliseconds patience) {
    const Time until = Clock::now() + patience;
    while (const auto paint = nextPaint(until)) {
        if (paint->second && !known.contains(paint->first)) return Painted{paint->first, lastPaint_};
    }
    return std::nullopt;
}

XWatch::Time XWatch::waitForQuiet(std::chrono::milliseconds quiet) {
    const Time called = Clock::now();
    while (nextPaint(std::max(lastPaint_, called) + quiet)) {
    }
    return lastPaint_;
}

bool XWatch::waitForPaint(std::chrono::milliseconds patience) { return nextPaint(Clock::now() + patience).has_value(); }

void XWatch::send(xcb_keycode_t code, bool isPress) {
    const std::uint8_t type = isPress ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
    xcb_test_fake_input(connection_.get(), type, code, XCB_CURRENT_TIME, root_, 0, 0, 0);
}

void XWatch::press(Key key, std::optional<xcb_keycode_t> modifier) {
    if (modifier) send(*modifier, true);
    send(key.code, true);
    send(key.code, false);
    if (modifier) send(*modifier, false);
}

void XWatch::type(std::string_view text) {
    for (const char character : text) {
        const Key key = keys_.at(character == '\n' ? returnSymbol : static_cast<xcb_keysym_t>(character));
        press(key, key.isShifted ? std::optional(keys_.at(shiftSymbol).code) : std::nullopt);
    }
    xcb_flush(connection_.get());
}

void XWatch::pressControl(char letter) {
    press(keys_.at(static_cast<xcb_keysym_t>(letter)), keys_.at(controlSymbol).code);
    xcb_flush(connection_.get());
}

xcb_atom_t XWatch::atom(std::string_view name) {
    const auto cookie =
        xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), std::string(name).c_str());
    return owned(xcb_intern_atom_reply(connection_.get(), cookie, nullptr))->atom;
}

void XWatch::askToClose(xcb_window_t window) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom("WM_PROTOCOLS");
    message.data.data32[0] = atom("WM_DELETE_WINDOW");
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(connection_.get(), 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
    xcb_flush(connection_.get());
}
