"""The built program on a real display, used by keyboard as a person does. TALLIX_PROGRAM says which program."""

import os
import signal
import unittest
import unittest.mock

from accessibility import AccessibleDesktop
from desktop import Desktop, Portal, Program, Timeout, wait_for

FIRST = "Untitled — Tallix"
SECOND = "Untitled 2 — Tallix"


class DesktopTest(unittest.TestCase):
    """The tests of a class share a desktop. Each finds it without windows and settings, and with a plain keyboard."""

    make_desktop = Desktop

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(cls.make_desktop())

    def setUp(self):
        self.desktop.clear()

    def start(self):
        self.program = self.enterContext(Program(self.desktop, [os.environ["TALLIX_PROGRAM"]]))
        self.desktop.wait_for_window(FIRST)


class SessionTest(DesktopTest):
    """Each test has the first window of a new program in front."""

    def setUp(self):
        super().setUp()
        self.start()

    def assert_quits_after(self, *keys):
        self.desktop.key(*keys)
        self.assertEqual(self.program.outcome(), (0, ""))

    def change_window(self):
        """To the mini window or back; the id of the window that is there then."""
        return self.desktop.change_window("ctrl+shift+m")


class WholeSession(SessionTest):
    HISTORY = (
        "2+3\n\t= 5\n\n"
        "ans1+4\n\t= 9\n\n"
        "x=4\n\tx = 4\n\n"
        "sqrt(16\n\tError: There is an open parenthesis in the equation -- you are missing a ).\n\n"
        "x=4\n\tx = 4\n\n"
        "sqrt(16)\n\t= 4"
    )

    def test_from_the_first_line_to_ctrl_q(self):
        desktop = self.desktop
        desktop.enter("2+3", "+4", "x=4", "sqrt(16")
        # After a calculation the first step goes past the formula that is still shown.
        desktop.key("alt+Up")
        desktop.enter("")
        desktop.key("alt+Up", "alt+Up", "alt+Down")
        desktop.enter(")")
        self.assertEqual(desktop.history(), self.HISTORY)
        self.assertEqual(desktop.line(), "sqrt(16)")

        desktop.key("ctrl+n")
        desktop.wait_for_window(SECOND)
        desktop.enter("1+1")
        self.assertEqual(desktop.history(), "1+1\n\t= 2")
        self.assert_quits_after("ctrl+q")

    def test_ends_when_the_last_window_is_closed(self):
        desktop = self.desktop
        desktop.key("ctrl+n")
        desktop.wait_for_window(SECOND)
        desktop.key("ctrl+w")
        desktop.wait_for_window(FIRST)
        desktop.enter("2+3")
        self.assertEqual(desktop.history(), "2+3\n\t= 5")
        desktop.key("ctrl+comma")
        desktop.wait_for_window("Preferences — Tallix")
        desktop.key("Escape")
        desktop.wait_for_window(FIRST)
        self.assert_quits_after("ctrl+w")

    def test_ends_with_panels_preferences_and_an_alert_open(self):
        desktop = self.desktop
        desktop.key("ctrl+shift+g")
        wait_for(lambda: desktop.windows("Greek Letters"), "the Greek letters")
        desktop.key("ctrl+comma")
        desktop.wait_for_window("Preferences — Tallix")
        desktop.key("alt+F4")  # of the window manager
        desktop.wait_for_window(FIRST)
        desktop.key("ctrl+comma")
        desktop.wait_for_window("Preferences — Tallix")
        desktop.activate(FIRST)
        desktop.key("ctrl+n")
        desktop.wait_for_window(SECOND)
        desktop.key("ctrl+s")
        wait_for(lambda: desktop.active_title() == "Tallix", "the alert")
        desktop.activate(FIRST)
        self.assert_quits_after("ctrl+q")

    def test_answers_save_with_an_alert_that_esc_closes(self):
        desktop = self.desktop
        desktop.type("2+3")
        for key in ("Escape", "Return"):
            desktop.key("ctrl+s")
            wait_for(lambda: desktop.active_title() == "Tallix", "the alert")
            desktop.key(key)
            desktop.wait_for_window(FIRST)
        desktop.enter("*2")
        self.assertEqual(desktop.history(), "2+3*2\n\t= 8")
        self.assert_quits_after("ctrl+q")


class Mouse(SessionTest):
    """What the mouse brings into the line."""

    def place_of_line(self):
        """Somewhere behind a short line."""
        width, height = self.desktop.place(self.desktop.active_window())[2:]
        return width - 60, height - 62

    def paste_with_middle_button(self, text):
        desktop = self.desktop
        before = desktop.line()
        desktop.offer("primary", text)
        desktop.click(desktop.active_window(), *self.place_of_line(), button=2)
        wait_for(lambda: desktop.line() != before, "what the middle button pastes")

    def test_the_middle_button_brings_no_ans(self):
        self.desktop.enter("2+3")
        self.paste_with_middle_button("+")
        self.assertEqual(self.desktop.line(), "2+3+")

    def test_the_middle_button_pastes_one_line(self):
        self.desktop.type("1")
        self.paste_with_middle_button("+2\n\n+3\n")
        self.assertEqual(self.desktop.line(), "1+2 +3")

    def test_a_move_by_drag_is_undone_in_one_step(self):
        desktop = self.desktop
        # So long that there is text all over the line, and the first part of it below the place where the drag begins.
        line = "1" * 30 + "2" * 200
        desktop.type(line[0])
        self.paste_with_middle_button(line[1:])
        x, y = self.place_of_line()
        desktop.key("Home", *["shift+Right"] * 30)
        desktop.drag(desktop.active_window(), (280, y), (x, y))
        moved = wait_for(lambda: (text := desktop.line()) != line and text, "the move")
        self.assertRegex(moved, "^2+1{30}2+$")
        desktop.key("ctrl+z")
        self.assertEqual(desktop.line(), line)
        self.assert_quits_after("ctrl+q")


class Keys(SessionTest):
    """Which keys end the continuation from the last answer: right after 2+3, "+" gives "ans+" when they did not."""

    def assert_continues_after(self, *keys, then="+", line="ans+"):
        with self.subTest(keys=keys):
            self.desktop.key("ctrl+a")
            self.desktop.enter("2+3")
            self.desktop.key(*keys)
            self.desktop.type(then)
            self.assertEqual(self.desktop.line(), line)

    def test_modifiers_and_locks_alone_clear_nothing(self):
        for key in ("Shift_L", "Shift_R", "Control_L", "Control_R", "Alt_L", "Super_L"):
            self.assert_continues_after(key)
        for key in ("Alt_R", "Super_R"):
            self.assert_continues_after(key)
        for lock in ("Caps_Lock", "Num_Lock", "Scroll_Lock"):
            self.assert_continues_after(lock, lock)
        self.assert_continues_after("Alt_L", "Alt_L", "Shift_L", "Control_L")

    def test_level_shift_alone_clears_nothing(self):
        self.desktop.set_keyboard("de")
        self.assert_continues_after("ISO_Level3_Shift")
        self.assert_continues_after("ISO_Level3_Shift", "Shift_L", then="-", line="ans-")

    def test_keys_of_the_layout_alone_clear_nothing(self):
        self.desktop.set_keyboard("us,de", "-option", "grp:menu_toggle,lv5:ralt_switch")
        self.assert_continues_after("ISO_Level5_Shift")
        self.assert_continues_after("ISO_Next_Group", "ISO_Next_Group")
        self.desktop.set_keyboard("us", "-option", "", "-option", "level3:ralt_switch")
        self.assert_continues_after("ISO_Level3_Shift")

    def test_dead_keys_clear_nothing_and_type_operators(self):
        self.desktop.set_keyboard("us", "-variant", "intl")
        self.assert_continues_after("dead_circumflex", "space", then="", line="ans^")
        self.assert_continues_after("dead_circumflex", "dead_circumflex", then="2", line="ans^2")

    def test_dead_keys_beside_the_line_type_into_it(self):
        desktop = self.desktop
        desktop.set_keyboard("us", "-variant", "intl")
        for stop in (["shift+Tab"], ["shift+Tab", "shift+Tab"]):  # the history and the sidebar
            with self.subTest(stop=stop):
                desktop.key("ctrl+a", "7", *stop, "dead_circumflex", "space")
                desktop.type("2")
                self.assertEqual(desktop.line(), "7^2")

    def test_the_compose_key_clears_nothing(self):
        self.desktop.set_keyboard("us", "-option", "compose:menu")
        self.assert_continues_after("Multi_key", "greater", "space", then="", line="ans^")
        self.assert_continues_after("Multi_key", "plus", "plus", then="", line="#")

    def test_keys_of_commands_clear_nothing(self):
        self.assert_continues_after("ctrl+c")

    def test_commands_with_an_alert_clear_nothing(self):
        desktop = self.desktop
        for key in ("F1", "ctrl+s"):
            desktop.key("ctrl+a")
            desktop.enter("2+3")
            desktop.key(key)
            wait_for(lambda: desktop.active_title() == "Tallix", "the alert")
            desktop.key("Escape")
            desktop.wait_for_window(FIRST)
            desktop.type("+")
            self.assertEqual(desktop.line(), "ans+")

    def test_filling_the_screen_clears_nothing(self):
        desktop = self.desktop
        window = desktop.active_window()
        place = desktop.place(window)
        desktop.enter("2+3")
        desktop.key("F11")
        wait_for(lambda: desktop.place(window) == (0, 0, 1280, 1024), "a window as large as the screen")
        desktop.key("F11")
        wait_for(lambda: desktop.place(window) == place, "the window in its old place")
        desktop.wait_for_window(FIRST)
        desktop.type("+")
        self.assertEqual(desktop.line(), "ans+")

    def test_opening_a_menu_clears_nothing(self):
        desktop = self.desktop
        desktop.enter("2+3")
        desktop.open_and_close_menu("F10")
        desktop.type("+")
        self.assertEqual(desktop.line(), "ans+")

    def test_other_keys_do(self):
        self.assert_continues_after("Home", line="+2+3")
        self.assert_continues_after("shift+Left", line="+3")
        self.assert_continues_after("alt+Up", "alt+Down", line="2+3+")
        self.assert_continues_after("BackSpace", line="+")

    def test_the_step_to_the_working_line_does_not(self):
        self.assert_continues_after("alt+Down")

    def test_keypad_types_too(self):
        self.desktop.key("KP_2", "KP_Add", "KP_3", "KP_Enter", "KP_Multiply", "KP_4", "KP_Enter", "KP_Divide", "KP_2",
                         "shift+Return", "1", "KP_Decimal", "5", "shift+KP_Enter")
        self.assertEqual(self.desktop.history(), "2+3\n\t= 5\n\nans1*4\n\t= 20\n\nans2/2\n\t= 10\n\n1.5\n\t= 1.5")

    def test_the_keypads_decimal_key_types_a_point_in_every_layout(self):
        keypad_decimal = "91"  # by its place, whatever it types
        for layout in ("kpdl:dot", "kpdl:comma", "kpdl:commaoss", "kpdl:momayyez"):
            with self.subTest(layout=layout):
                self.desktop.set_keyboard("de", "-option", "", "-option", layout)
                # It types with Num Lock, and deletes what is not there without; whichever it is at first.
                self.desktop.key("ctrl+a", "1", keypad_decimal, "Num_Lock", keypad_decimal, "Num_Lock", "5")
                self.assertEqual(self.desktop.line(), "1.5")


class Focus(SessionTest):
    def test_stays_in_the_line_after_alt_alone(self):
        self.desktop.type("1")
        self.desktop.key("Alt_L")
        self.desktop.type("2")
        self.assertEqual(self.desktop.line(), "12")

    def test_goes_to_the_menus_and_comes_back(self):
        self.desktop.type("1")
        self.desktop.open_and_close_menu("F10")
        self.desktop.type("2")
        self.desktop.open_and_close_menu("alt+f")
        self.desktop.type("3")
        self.assertEqual(self.desktop.line(), "123")

    def test_goes_to_the_greek_letters_by_f6_only(self):
        desktop = self.desktop
        desktop.enter("2+3")
        desktop.key("ctrl+shift+g")
        panel = wait_for(lambda: desktop.windows("Greek Letters"), "the Greek letters")[0]
        desktop.type("+")  # it went to the line, and right after the calculation
        self.assertEqual(desktop.line(), "ans+")
        desktop.key("End")
        desktop.click(panel, 27, 27)
        wait_for(lambda: desktop.line() == "ans+α", "the letter")
        self.assertTrue(desktop.has_keyboard(FIRST))
        desktop.key("End", "F6")
        desktop.wait_for_window("Greek Letters — Tallix")
        desktop.key("Right", "Down", "Return", "Escape")
        desktop.wait_for_window(FIRST)
        desktop.type("=")
        self.assertEqual(desktop.line(), "ans+αξ=")
        desktop.key("F6")
        desktop.wait_for_window("Greek Letters — Tallix")
        desktop.key("F6")
        desktop.wait_for_window(FIRST)
        self.assert_quits_after("ctrl+q")


class MiniMode(SessionTest):
    def test_calculates_and_comes_back(self):
        desktop = self.desktop
        full = desktop.active_window()
        place = desktop.place(full)
        desktop.enter("2+3")
        mini = self.change_window()
        self.assertEqual(desktop.place(mini)[2:], (340, 84))
        self.assertEqual(desktop.windows("Untitled"), [mini])
        desktop.enter("*4", "+1")
        self.assertEqual(desktop.line(), "ans+1")
        self.assertEqual(self.change_window(), full)
        self.assertEqual(desktop.place(full), place)
        self.assertEqual(desktop.history(), "2+3\n\t= 5\n\nans1*4\n\t= 20\n\nans2+1\n\t= 21")
        self.assert_quits_after("ctrl+q")

    def test_continues_from_the_last_answer_on_either_side(self):
        self.desktop.enter("2+3")
        self.change_window()
        self.change_window()
        self.desktop.type("+")
        self.assertEqual(self.desktop.line(), "ans+")

    def test_stays_where_it_was_put(self):
        desktop = self.desktop
        mini = self.change_window()
        desktop.move(mini, 300, 200)
        place = desktop.place(mini)
        self.change_window()
        self.assertEqual(desktop.place(self.change_window()), place)

    def test_returns_to_the_full_window_when_it_is_maximized(self):
        desktop = self.desktop
        full = desktop.active_window()
        mini = self.change_window()
        place = desktop.place(mini)
        desktop.maximize(mini)
        wait_for(lambda: desktop.has_keyboard(FIRST) and desktop.active_window() == full, "the full window")
        self.assertEqual(desktop.place(full)[2:], (760, 500))
        self.assertEqual(desktop.place(self.change_window()), place)

    def test_is_kept_on_top(self):
        desktop = self.desktop
        desktop.choose("alt+v", "k")
        mini = self.change_window()
        wait_for(lambda: "_NET_WM_STATE_ABOVE" in desktop.state(mini), "a window on top")
        desktop.key("Menu", "k")
        wait_for(lambda: "_NET_WM_STATE_ABOVE" not in desktop.state(mini), "a window like the others")
        self.assertTrue(desktop.has_keyboard(FIRST))

    def test_closes_the_document(self):
        self.change_window()
        self.assert_quits_after("ctrl+w")


class Formats(SessionTest):
    def test_are_chosen_in_the_menus_and_below_the_line(self):
        desktop = self.desktop
        desktop.enter("12345.678")
        desktop.choose("alt+o", "n", "s")  # Scientific
        desktop.enter("/1")
        desktop.key("Tab", "Tab")
        desktop.choose("space", "s", "3")  # 3 significant figures
        desktop.key("shift+Tab", "shift+Tab")
        desktop.enter("ans*1")
        desktop.choose("alt+o", "a", "d")  # Degrees
        desktop.choose("alt+o", "n", "d")  # Decimal
        desktop.enter("sin(30)")
        self.assertEqual(desktop.history(), "12345.678\n\t= 12345.678\n\nans1/1\n\t= 1.2345678e4\n\n"
                         "ans2*1\n\t= 1.23e4\n\nsin(30)\n\t= 0.5")

    def test_leave_the_keyboard_with_the_line(self):
        desktop = self.desktop
        window = desktop.active_window()
        desktop.enter("1/8")
        left, _, width, height = desktop.place(window)
        with desktop.menu(lambda: desktop.click(window, 40, height - 18)):
            desktop.key("p")  # Percent
        desktop.click(window, width - 140, height - 18)  # Degrees
        desktop.enter("+0")
        self.assertEqual(desktop.history(), "1/8\n\t= 0.125\n\nans1+0\n\t= 12.5%")


class HelpWhileTyping(SessionTest):
    """Suggestions are a window of their own that never has the keyboard."""

    def setUp(self):
        super().setUp()
        self.window = self.desktop.shown()

    def wait_for_list(self, is_open=True):
        wait_for(lambda: (self.desktop.shown() > self.window) == is_open, "suggestions" if is_open else "no suggestions")

    def test_tab_takes_a_suggestion_and_the_line_goes_on(self):
        self.desktop.type("9*sq")
        self.wait_for_list()
        self.desktop.key("Tab")
        self.wait_for_list(False)
        self.desktop.type("16)")
        self.assertEqual(self.desktop.line(), "9*sqrt(16)")

    def test_return_calculates_whatever_is_suggested(self):
        self.desktop.enter("si=7")
        self.desktop.type("si")
        self.wait_for_list()
        self.desktop.key("Down", "Return")
        self.wait_for_list(False)
        self.desktop.type("*2")
        self.assertEqual(self.desktop.line(), "ans*2")
        self.assertEqual(self.desktop.history(), "si=7\n\tsi = 7\n\nsi\n\t= 7")

    def test_a_row_is_taken_with_a_click(self):
        self.desktop.type("co")
        self.wait_for_list()
        list_window = (self.desktop.shown() - self.window).pop()
        self.desktop.click(list_window, 30, 12)
        self.wait_for_list(False)
        self.desktop.type("0)")
        self.assertEqual(self.desktop.line(), "cos(0)")

    def test_escape_and_other_windows_close_the_list(self):
        for keys in (["Escape"], ["alt+f", "Escape", "Escape"]):
            self.desktop.type("si")
            self.wait_for_list()
            self.desktop.key(*keys)
            self.wait_for_list(False)
            self.assertEqual(self.desktop.line(), "si")
            self.desktop.key("BackSpace")

    def test_the_mini_window_has_them_too(self):
        self.window = {self.change_window()}
        self.desktop.type("9*sq")
        self.wait_for_list()
        self.desktop.key("Tab")
        self.wait_for_list(False)
        self.assertEqual(self.desktop.line(), "9*sqrt(")


class Commands(SessionTest):
    """Commands by their keys, which reach them past the entry line and the window manager."""

    def test_copy_the_last_answer(self):
        self.desktop.enter("2-5")
        self.assertEqual(self.desktop.copied("ctrl+shift+c"), "-3")
        self.desktop.type("+")
        self.assertEqual(self.desktop.line(), "ans+")

    def test_insert_plus_minus_in_every_layout(self):
        for layout in ("us", "de", "fr"):  # In one of them "=" needs Shift.
            self.desktop.set_keyboard(layout)
            self.desktop.key("ctrl+a", "5", "alt+shift+equal", "1")
            self.assertEqual(self.desktop.line(), "5±1")

    def test_keys_in_the_history_go_to_the_line(self):
        self.desktop.enter("2+3")
        self.desktop.click(self.desktop.active_window(), 500, 200)
        self.desktop.key("ctrl+Home")
        self.desktop.type("+1")
        self.assertEqual(self.desktop.line(), "ans+1")
        self.assertEqual(self.desktop.history(), "2+3\n\t= 5")

    def test_escape_empties_the_line_and_undo_brings_it_back(self):
        self.desktop.type("12+3")
        self.desktop.key("Escape")
        self.desktop.type("4")
        self.assertEqual(self.desktop.line(), "4")
        self.desktop.key("ctrl+z", "ctrl+z")
        self.assertEqual(self.desktop.line(), "12+3")

    def test_a_cleared_history_comes_back(self):
        self.desktop.enter("2+3")
        self.desktop.choose("alt+e", "h")
        self.desktop.key("ctrl+z")
        self.assertEqual(self.desktop.history(), "2+3\n\t= 5")

    def test_the_find_bar_takes_the_keys_and_gives_them_back(self):
        self.desktop.enter("2+3", "7*6")
        self.desktop.key("ctrl+f")
        self.desktop.type("2+")
        self.desktop.key("Return", "F3", "Escape")
        self.desktop.type("-")
        self.assertEqual(self.desktop.line(), "ans-")
        self.assertEqual(self.desktop.history(), "2+3\n\t= 5\n\n7*6\n\t= 42")

    def test_clear_everything_after_the_question(self):
        desktop = self.desktop
        desktop.enter("x=4")
        for key, history in {"Return": "x=4\n\tx = 4\n\n1+1\n\t= 2", "alt+e": "1+1\n\t= 2"}.items():
            desktop.key("alt+f", "e")
            wait_for(lambda: desktop.active_title() == "Tallix", "the question")
            desktop.key(key)
            desktop.wait_for_window(FIRST)
            desktop.enter("1+1")
            self.assertEqual(desktop.history(), history)

    def test_a_closed_window_comes_back(self):
        desktop = self.desktop
        desktop.key("ctrl+n")
        desktop.wait_for_window(SECOND)
        desktop.enter("7*6")
        place = desktop.place(desktop.active_window())
        desktop.key("ctrl+w")
        desktop.wait_for_window(FIRST)
        desktop.key("ctrl+shift+t")
        desktop.wait_for_window(SECOND)
        self.assertEqual(desktop.place(desktop.active_window()), place)
        self.assertEqual(desktop.history(), "7*6\n\t= 42")
        desktop.key("ctrl+w")
        desktop.wait_for_window(FIRST)
        self.assert_quits_after("ctrl+w")

    def test_the_list_of_keys_closes_with_escape(self):
        self.desktop.key("ctrl+question")
        self.desktop.wait_for_window("Keyboard Shortcuts — Tallix")
        self.desktop.key("Down", "Escape")
        self.desktop.wait_for_window(FIRST)
        self.assert_quits_after("ctrl+q")


class Sidebar(SessionTest):
    """How names and values get out of the sidebar. A click with Alt is the window manager's here."""

    PI = (60, 55)  # the second row

    def assert_line(self, expected):
        wait_for(lambda: self.desktop.line() == expected, f"the line {expected!r}")
        self.assertTrue(self.desktop.has_keyboard(FIRST))
        self.desktop.key("End")

    def test_types_names(self):
        desktop = self.desktop
        window = desktop.active_window()
        desktop.type("2*")
        desktop.double_click(window, *self.PI)
        self.assert_line("2*pi")
        desktop.type("+")
        desktop.click(window, *self.PI)
        desktop.key("Return")
        self.assert_line("2*pi+pi")

    def test_is_dragged_into_the_line(self):
        desktop = self.desktop
        window = desktop.active_window()
        width, height = desktop.place(window)[2:]
        desktop.type("2*")
        desktop.drag(window, self.PI, (width - 40, height - 61))
        self.assert_line("2*pi")

    def test_is_copied_by_menu_and_by_key(self):
        desktop = self.desktop
        desktop.enter("x=4")
        desktop.click(desktop.active_window(), *self.PI)
        desktop.key("End")
        self.assertEqual(desktop.copied("ctrl+c"), "x=4")
        self.assertEqual(desktop.copied("Menu", "Down", "Return"), "x")
        self.assertEqual(desktop.copied("shift+F10", "Down", "Down", "Return"), "4")

    def test_is_hidden_by_f9(self):
        desktop = self.desktop
        desktop.key("F9")
        desktop.enter("2+3")
        self.assertEqual(desktop.history(), "2+3\n\t= 5")
        desktop.key("F9")
        desktop.double_click(desktop.active_window(), *self.PI)
        self.assert_line("pi")
        self.assert_quits_after("ctrl+q")


class HistoryMenu(SessionTest):
    """What a right click in the history offers, and the Menu key."""

    EQUATION, ANSWER = (225, 46), (260, 69)  # the first calculation

    def test_copies_and_uses_a_calculation(self):
        desktop = self.desktop
        window = desktop.active_window()
        desktop.enter("2+3", "4*5")
        desktop.type("1+")
        for place, key, copied in ((self.EQUATION, "a", "5"), (self.ANSWER, "e", "2+3")):
            with desktop.menu(lambda: desktop.click(window, *place, button=3)):
                self.assertEqual(desktop.copied(key), copied)
        desktop.key("shift+Tab", "ctrl+Home", "Menu", "u")  # Use Equation
        desktop.enter("*7")
        self.assertEqual(desktop.history(), "2+3\n\t= 5\n\n4*5\n\t= 20\n\n1+2+3*7\n\t= 24")
        self.assert_quits_after("ctrl+q")


class ContextMenuKeys(SessionTest):
    """The menu opens where the caret is, and clears nothing."""

    def assert_menu_opens(self, key):
        with self.subTest(key=key):
            self.desktop.key("ctrl+a")
            self.desktop.enter("2+3")
            with self.desktop.menu(lambda: self.desktop.key(key)):
                self.desktop.key("Escape")
            self.desktop.type("+")
            self.assertEqual(self.desktop.line(), "ans+")

    def test_open_it_in_either_window(self):
        for key in ("Menu", "shift+F10"):
            self.assert_menu_opens(key)
        self.change_window()
        for key in ("Menu", "shift+F10"):
            self.assert_menu_opens(key)

    def test_open_it_in_the_history(self):
        desktop = self.desktop
        desktop.enter("2+3")
        for key in ("Menu", "shift+F10"):
            desktop.key("shift+Tab", "ctrl+Home")
            self.assertEqual(desktop.copied(key, "e"), "2+3")


class Inspector(SessionTest):
    TITLE = "Inspector — Tallix"

    def test_leaves_the_document_as_it_is(self):
        desktop = self.desktop
        desktop.enter("2+3")
        desktop.key("alt+w", "i")
        desktop.wait_for_window(self.TITLE)
        desktop.key("Down", "Down", "alt+a", "alt+h")
        desktop.key("Escape")
        desktop.wait_for_window(FIRST)
        desktop.enter("*2")
        self.assertEqual(desktop.history(), "2+3\n\t= 5\n\nans1*2\n\t= 10")
        desktop.key("alt+w", "i")
        desktop.wait_for_window(self.TITLE)
        desktop.activate(FIRST)
        desktop.key("alt+w", "i")
        desktop.wait_for_window(self.TITLE)
        self.assertEqual(len(desktop.windows("Inspector")), 1)
        desktop.activate(FIRST)
        self.assert_quits_after("ctrl+q")


class AccessibilityTest(SessionTest):
    """As a screen reader has the program."""

    make_desktop = AccessibleDesktop

    def read(self, name, condition=lambda found: True):
        """What has this name, as it is when the condition first holds for it."""
        found = None

        def is_read():
            nonlocal found
            window = self.desktop.accessible_window(self.program)
            found = window.find(name) if window is not None else None
            return found is not None and condition(found)

        try:
            wait_for(is_read, "what a screen reader reads")
        except Timeout:
            self.fail(f"{name!r} is read as {found}")
        return found

    def assert_described(self, name, description):
        self.read(name, lambda found: found.description == description)

    def told(self, kind):
        """The changes of this kind so far: what each is of, and its value."""
        return [(change.role, change.name, change.value) for change in self.desktop.heard(self.program)
                if change.kind == kind]

    def wait_until_told(self, kind, *expected):
        """Waits until exactly these were told."""
        try:
            wait_for(lambda: self.told(kind) == list(expected), "what a screen reader is told")
        except Timeout:
            self.assertEqual(self.told(kind), list(expected))

    def focused(self):
        """The name of what told last that it has the focus."""
        names = [name for _, name, has_focus in self.told("focused") if has_focus]
        return names[-1] if names else None

    def assert_focus_after(self, key, *names):
        """Presses the key once for each name, which is that of what has the focus then."""
        for name in names:
            self.desktop.key(key)
            try:
                wait_for(lambda: self.focused() == name, f"the focus on {name!r}")
            except Timeout:
                self.assertEqual(self.focused(), name, f"after {key}")


class Accessibility(AccessibilityTest):
    """What can be read: the controls by their names, and the answers."""

    def assert_unit(self, unit):
        def is_chosen(control):
            checked = [segment.name for segment in control.children if "checked" in segment.states]
            return checked == [unit]

        control = self.read("Angle unit", is_chosen)
        self.assertEqual([(segment.role, segment.name) for segment in control.children],
                         [("radio button", "Radians"), ("radio button", "Degrees")])

    def assert_rows(self, *rows):
        """The rows of the answers in the sidebar."""
        self.read("Variables", lambda tree: [row.name for row in tree.all() if row.name.startswith("ans")] == list(rows))

    def test_every_control_has_a_name(self):
        roles = {"Equation": "text", "History": "text", "Variables": "tree", "Number format": "push button",
                 "Digits": "push button", "Angle unit": "panel", "Mini mode": "push button"}
        self.assertEqual({name: self.read(name).role for name in roles}, roles)
        self.assertEqual(self.read("Untitled").role, "frame")
        self.change_window()
        roles = {"Equation": "text", "Format": "label", "Answer": "label", "Untitled": "frame"}
        self.assertEqual({name: self.read(name).role for name in roles}, roles)

    def test_answers_are_read_in_either_window(self):
        desktop = self.desktop
        desktop.enter("12345")
        self.read("History", lambda history: history.text.rstrip() == "12345\n\t= 12345")
        self.change_window()
        desktop.enter("*4")
        self.assert_described("Answer", "49380")
        self.assert_described("Format", "rad")
        self.assertEqual(self.read("Equation").text, "ans*4")
        desktop.enter("sin(1")
        self.read("Answer", lambda answer: answer.description.startswith("Error: There is an open parenthesis"))
        self.change_window()
        self.assert_rows("ans=49380", "ans1=12345", "ans2=49380")

    def test_formats_and_unit_are_read_with_their_state(self):
        desktop = self.desktop
        desktop.enter("49380")
        desktop.choose("alt+o", "n", "s")  # Scientific
        self.assert_described("Number format", "Scientific")
        self.assert_rows("ans=4.938e4", "ans1=4.938e4")
        self.assertIn("enabled", self.read("Digits").states)
        desktop.key("Tab", "space", "h", "shift+Tab")  # Hexadecimal
        self.assert_described("Number format", "Hexadecimal")
        self.read("Digits", lambda digits: "enabled" not in digits.states)
        self.assert_rows("ans=0xC0E4", "ans1=0xC0E4")

        self.assert_unit("Radians")
        desktop.choose("alt+o", "a", "d")
        self.assert_unit("Degrees")
        self.change_window()
        self.assert_described("Answer", "0xC0E4")
        self.assert_described("Format", "deg Hexadecimal")
        # Not by its key: the toolkit keeps each key until the screen reader has seen it, and loses the last at the end.
        desktop.act(self.program, "Quit", "Press")
        self.assertEqual(self.program.outcome(), (0, ""))


class Colors(DesktopTest):
    """Light and dark windows, by the desktop's wish or by the user's."""

    PLACE = (60, 400)  # in the sidebar, below its rows
    LIGHT, DARK = "#EFEFEF", "#36363A"
    WHITE, BLUE, YELLOW = "255,255,255", "0,0,96", "255,255,0"

    def assert_color(self, color):
        self.desktop.wait_for_color(self.desktop.active_window(), self.PLACE, color)

    def test_are_light_without_a_wish(self):
        self.start()
        self.assert_color(self.LIGHT)

    def test_follow_the_portal(self):
        with Portal(self.desktop, 1) as portal:
            self.start()
            self.assert_color(self.DARK)
            portal.change(2)
            self.assert_color(self.LIGHT)
            portal.change(1)
            self.assert_color(self.DARK)
            self.desktop.key("ctrl+q")
            self.assertEqual(self.program.outcome(), (0, ""))

    def test_are_chosen_in_the_preferences_and_kept(self):
        desktop = self.desktop
        self.start()
        window = desktop.active_window()
        desktop.key("ctrl+comma")
        desktop.wait_for_window("Preferences — Tallix")
        desktop.key("alt+o", "End")
        desktop.wait_for_color(window, self.PLACE, self.DARK)
        desktop.key("Escape")
        desktop.wait_for_window(FIRST)
        desktop.key("ctrl+q")
        self.assertEqual(self.program.outcome(), (0, ""))
        self.start()
        self.assert_color(self.DARK)

    def test_of_a_desktop_with_a_palette_are_kept(self):
        colors = f"BackgroundNormal={self.BLUE}\nForegroundNormal={self.WHITE}\n"
        groups = "".join(f"[Colors:{group}]\n{colors}" for group in ("View", "Window", "Button", "Tooltip"))
        chosen = f"[Colors:Selection]\nBackgroundNormal={self.YELLOW}\nForegroundNormal={self.BLUE}\n"
        (self.desktop.settings / "kdeglobals").write_text(groups + chosen)
        self.enterContext(unittest.mock.patch.dict(self.desktop.environment,
                                                   {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}))
        with Portal(self.desktop, 1):
            self.start()
            self.assert_color("#000060")


class AccessibilityOfOtherWindows(AccessibilityTest):
    def open(self, entry, title):
        """Chooses an entry of a menu, and gives what is in the window with this title then."""
        # Not by Alt and its mnemonic: keys are offered to the screen reader first, and an Alt that comes back late closes
        # the menu that it opened.
        self.desktop.act(self.program, entry, "Press")
        self.desktop.wait_for_window(title)
        return wait_for(lambda: self.desktop.accessible_window(self.program), title)

    def assert_controls_have_names(self, window):
        stops = [one for one in window.all() if {"focusable", "showing"} <= one.states]
        self.assertNotEqual(stops, [])
        for stop in stops:
            self.assertTrue(stop.labels if stop.role == "combo box" else stop.name or stop.role == "table cell", stop)

    def close(self):
        self.desktop.key("Escape")
        self.desktop.wait_for_window(FIRST)

    def test_preferences(self):
        window = self.open("Preferences…", "Preferences — Tallix")
        self.assertEqual(window.role, "dialog")
        self.assert_controls_have_names(window)
        labels = [one.labels for one in window.all() if one.role == "combo box"]
        self.assertEqual(labels[:3], [["Thousands separator:"], ["Exponent character:"], ["Angles:"]])
        self.assertIn("is default", window.find("Close").states)
        self.close()

    def test_keyboard_shortcuts(self):
        window = self.open("Keyboard Shortcuts", "Keyboard Shortcuts — Tallix")
        self.assert_controls_have_names(window)
        names = [row.name for row in window.find("Keyboard shortcuts").children]
        self.assertEqual(names[names.index("New") + 1], "Ctrl+N")
        self.close()

    def test_inspector(self):
        self.assert_controls_have_names(self.open("Inspector", "Inspector — Tallix"))
        self.close()

    def test_greek_letters(self):
        self.desktop.key("ctrl+shift+g")
        wait_for(lambda: self.desktop.windows("Greek Letters"), "the Greek letters")
        self.desktop.key("F6")
        self.desktop.wait_for_window("Greek Letters — Tallix")
        window = wait_for(lambda: self.desktop.accessible_window(self.program), "the Greek letters")
        self.assert_controls_have_names(window)
        self.assertEqual({one.role for one in window.all() if one.name == "omega"}, {"push button"})
        self.assert_focus_after("Right", "beta", "gamma")
        self.close()

    def test_alerts(self):
        window = self.open("Save", "Tallix")
        self.assertEqual(window.role, "alert")
        self.assertIsNotNone(window.find("Sorry"))
        self.assertTrue({"is default", "focused"} <= window.find("OK").states)
        self.close()
        self.desktop.enter("1+1")
        window = self.open("Clear Everything…", "Tallix")
        self.assertIsNotNone(window.find("Clear everything in this window?"))
        self.assertIn("is default", window.find("Cancel").states)
        self.close()

    def test_about(self):
        window = self.open("About Tallix", "About Tallix")
        texts = " ".join(one.name for one in window.all() if one.role == "label")
        self.assertRegex(texts, r"(?s)Tallix \d.*MIT.*Qt 6")
        self.assert_controls_have_names(window)
        self.close()

    def test_the_find_bar(self):
        self.desktop.enter("2+3")
        self.desktop.key("ctrl+f")
        wait_for(lambda: self.focused() == "Find in history", "the focus in the find bar")
        self.assert_controls_have_names(self.desktop.accessible_window(self.program))
        self.assert_focus_after("Tab", "Find previous", "Find next", "Close")
        self.desktop.key("Escape")
        wait_for(lambda: self.focused() == "Equation", "the focus in the line")


class UseThroughAccessibility(AccessibilityTest):
    """Calculating without mouse and keyboard, and what is told meanwhile."""

    def assert_spoken(self, *answers):
        """With Qt 6.8 and later by announcements, before that as descriptions of the line."""
        def spoken():
            return [value for kind in ("accessible-description", "announcement")
                    for _, name, value in self.told(kind) if name == "Equation"]

        try:
            wait_for(lambda: spoken() == list(answers), "what is spoken")
        except Timeout:
            self.assertEqual(spoken(), list(answers))

    def calculate(self, text):
        self.desktop.insert(self.program, "Equation", text)
        self.desktop.act(self.program, "Equation", "Press")

    def test_an_equation_is_entered_and_its_answer_told(self):
        self.calculate("2+3")
        self.assert_spoken("5")
        self.read("History", lambda history: history.text.rstrip() == "2+3\n\t= 5")
        self.calculate("sqrt(16")
        error = "Error: There is an open parenthesis in the equation -- you are missing a )."
        self.assert_spoken("5", error)
        self.change_window()
        self.assert_spoken("5", error, error)
        self.desktop.enter("7*6")
        self.assert_spoken("5", error, error, "42")

    def test_the_same_answer_is_told_again(self):
        self.desktop.enter("2+3", "", "x=4")
        self.assert_spoken("5", "5", "x = 4")
        self.assertEqual(self.focused(), "Equation")

    def test_the_unit_is_chosen(self):
        self.desktop.act(self.program, "Degrees", "Toggle")
        self.wait_until_told("checked", ("radio button", "Radians", False), ("radio button", "Degrees", True))
        self.calculate("sin(30)")
        self.assert_spoken("0.5")

    def test_a_row_of_the_sidebar_types_its_name_or_folds(self):
        self.calculate("x=4")
        self.desktop.insert(self.program, "Equation", "2*")
        self.desktop.key("End", *["BackSpace"] * 3)
        self.desktop.act(self.program, "x=4", "Press")
        self.read("Equation", lambda line: line.text == "2*x")
        self.desktop.act(self.program, "Defined Variables", "Toggle")
        self.read("Defined Variables", lambda row: "expanded" not in row.states and not row.children)


class FocusOrder(AccessibilityTest):
    STOPS = ("Number format", "Digits", "Radians", "Mini mode", "Constants", "History", "Equation")

    def test_tab_goes_round_and_shift_tab_back(self):
        self.assert_focus_after("Tab", *self.STOPS, *self.STOPS)
        self.assert_focus_after("shift+Tab", *reversed(self.STOPS[:-1]), "Equation")

    def test_what_is_not_there_is_no_stop(self):
        self.desktop.act(self.program, "Hexadecimal", "Press")  # It has no choice of digits.
        self.desktop.key("F9")
        self.assert_focus_after("Tab", "Number format", "Radians", "Mini mode", "History", "Equation")

    def test_the_segments_are_one_stop_and_chosen_by_arrows(self):
        self.assert_focus_after("Tab", *self.STOPS[:3])
        self.assert_focus_after("Right", "Degrees")
        self.wait_until_told("checked", ("radio button", "Radians", False), ("radio button", "Degrees", True))
        self.assert_focus_after("shift+Tab", "Digits")
        self.assert_focus_after("Tab", "Degrees")
        self.assert_focus_after("Left", "Radians")

    def test_the_sidebar_is_used_by_keys(self):
        desktop = self.desktop
        desktop.enter("x=4")
        self.assert_focus_after("shift+Tab", "History", "Constants")
        self.assert_focus_after("Down", "pi=3.14159265358979")
        self.assert_focus_after("Left", "Constants")
        desktop.key("Left")
        self.read("Constants", lambda row: "expanded" not in row.states)
        desktop.key("Right")
        self.read("Constants", lambda row: "expanded" in row.states)
        self.assert_focus_after("End", "x=4")
        self.assertTrue({"focused", "selected"} <= self.read("x=4").states)
        self.assertEqual(desktop.copied("ctrl+c"), "x=4")
        self.assertEqual(desktop.copied("shift+F10", "Down", "Down", "Return"), "4")
        self.assert_focus_after("Return", "Equation")
        self.assertEqual(desktop.line(), "x")

    def test_the_dividers_are_reached_by_f8(self):
        self.assert_focus_after("F8", "Sidebar width", "Entry height", "Equation", "Sidebar width")
        self.assertEqual(self.read("Sidebar width").role, "separator")
        self.desktop.key("Right")
        self.desktop.type("1")
        self.assertEqual(self.desktop.line(), "1")


class StartedAgain(SessionTest):
    """A program that is started while one runs on the same display."""

    def start_again(self, *options):
        return self.enterContext(Program(self.desktop, [os.environ["TALLIX_PROGRAM"], *options]))

    def assert_calculates(self, program):
        """The window in front is the program's, and answers."""
        self.desktop.enter("2+3")
        self.assertEqual(self.desktop.history(), "2+3\n\t= 5")
        self.desktop.key("ctrl+q")
        self.assertEqual(program.outcome(), (0, ""))

    def assert_is_another(self, program, *before):
        """The program opens a first window of its own, beside these."""
        desktop = self.desktop
        desktop.wait_for(lambda: desktop.has_keyboard(FIRST) and desktop.active_window() not in before, "another first window")
        self.assert_calculates(program)

    def test_opens_a_window_of_the_one_that_runs(self):
        self.assertEqual(self.start_again().outcome(), (0, ""))
        self.desktop.wait_for_window(SECOND)
        self.desktop.activate(FIRST)
        self.assertEqual(self.start_again().outcome(), (0, ""))
        self.desktop.wait_for_window("Untitled 3 — Tallix")
        self.assert_calculates(self.program)

    def test_stays_apart_when_it_is_told_to(self):
        first = self.desktop.active_window()
        self.assert_is_another(self.start_again("--new-process"), first)
        self.desktop.wait_for_window(FIRST)
        self.assertEqual(self.desktop.active_window(), first)

    def test_two_that_start_at_once_are_one(self):
        self.assert_quits_after("ctrl+q")
        programs = [self.start_again(), self.start_again()]
        wait_for(lambda: len(self.desktop.windows("Untitled")) == 2, "both windows")
        wait_for(lambda: any(program.process.poll() is not None for program in programs), "the end of one program")
        self.desktop.activate(SECOND)
        self.desktop.key("ctrl+q")
        self.assertEqual([program.outcome() for program in programs], [(0, "")] * 2)

    def test_takes_the_place_of_one_that_was_killed(self):
        self.program.process.kill()
        self.program.process.wait()
        self.desktop.programs.remove(self.program)
        wait_for(lambda: not self.desktop.shown(), "the end of its window")
        self.assert_is_another(self.start_again())

    def test_does_not_wait_long_for_one_that_hangs(self):
        first = self.desktop.active_window()
        self.program.process.send_signal(signal.SIGSTOP)
        self.assert_is_another(self.start_again(), first)
        # It opens no window late, when nobody wants it any more.
        self.program.process.send_signal(signal.SIGCONT)
        self.desktop.wait_for_window(FIRST)
        self.assertEqual(self.desktop.windows("Untitled"), [first])
        self.assert_calculates(self.program)

    def test_is_alone_where_there_can_be_no_socket(self):
        socket = next(self.desktop.runtime.glob("*.socket"))
        self.assert_quits_after("ctrl+q")
        socket.mkdir()
        self.addCleanup(socket.rmdir)
        self.start()
        self.assert_is_another(self.start_again(), self.desktop.active_window())
        self.desktop.wait_for_window(FIRST)
        self.assert_quits_after("ctrl+q")


class Settings(DesktopTest):
    """Files that no program should stumble over."""

    def start_with(self, prepare):
        folder = self.desktop.settings / "Tallix"
        folder.mkdir()
        prepare(folder / "tallix.conf")
        self.start()
        self.desktop.enter("2+3")
        self.assertEqual(self.desktop.history(), "2+3\n\t= 5")
        self.desktop.key("ctrl+q")
        self.assertEqual(self.program.outcome(), (0, ""))

    def test_no_text(self):
        self.start_with(lambda path: path.write_bytes(bytes(range(256)) * 100))

    def test_a_folder_in_its_place(self):
        self.start_with(lambda path: path.mkdir())

    def test_another_programs_values(self):
        self.start_with(lambda path: path.write_text("[General]\nTXPreferenceRevision=@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\x5zork\\0)\n"
                                                     "TXExponentsCharacter=a, b\nTXThousandsSeparatorCharacter=@Point(1 2)\n"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
