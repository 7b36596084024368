"""The built program under a Wayland compositor without a screen. TALLIX_PROGRAM says which program.

The compositor has no keyboard, so the program is used through the accessibility bus.
"""

import os
import re
import unittest

from accessibility import WithAccessibility
from desktop import Desktop, Program, wait_for


class WaylandDesktop(WithAccessibility, Desktop):
    """Weston and a session bus, with folders of their own in place of the user's."""

    SOCKET = "tallix-wayland"

    def _start_screen(self):
        settings = self.home / "weston.ini"
        settings.write_text("[core]\nidle-time=0\n[shell]\npanel-position=none\nlocking=false\n")
        # Painted by the processor, whatever else the machine may have.
        self._start(["weston", "--backend=headless-backend.so", "--use-pixman", "--debug", f"--socket={self.SOCKET}",
                     f"--config={settings}"])
        self.environment.pop("DISPLAY", None)
        self.environment["QT_QPA_PLATFORM"] = "wayland"
        self.environment["WAYLAND_DISPLAY"] = self.SOCKET
        wait_for((self.home / "run" / self.SOCKET).exists, "the compositor")

    def _start_window_manager(self):
        """It is part of the compositor, and ready when its background is there."""
        wait_for(lambda: "background for output" in self.scene(), "the background")

    def scene(self):
        """What the compositor says that it shows."""
        return self._output("weston-debug", "scene-graph")

    def shown_windows(self):
        """The titles of the windows that the compositor shows, and whose they are."""
        return re.findall(r"top-level window '(.*)' of ([^ ,]*)", self.scene())


class Wayland(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(WaylandDesktop())
        self.program = self.enterContext(Program(self.desktop, [os.environ["TALLIX_PROGRAM"]]))
        self.wait_for_windows("Untitled — Tallix")

    def wait_for_windows(self, *titles):
        expected = [(title, "org.tallix.tallix") for title in titles]
        wait_for(lambda: self.desktop.shown_windows() == expected, f"the windows {titles}")

    def read(self, name):
        windows = wait_for(lambda: self.desktop.accessible_windows(self.program), "the windows")
        return next(one for window in windows for one in window.all() if one.name == name)

    def test_a_window_an_equation_and_its_answer(self):
        desktop = self.desktop
        desktop.insert(self.program, "Equation", "2+3*4")
        desktop.act(self.program, "Equation", "Press")
        wait_for(lambda: self.read("History").text.rstrip() == "2+3*4\n\t= 14", "the answer")
        # There a program cannot put its windows above all others.
        self.assertNotIn("enabled", self.read("Keep Mini Window on Top").states)
        self.assertIn("enabled", self.read("Mini Mode").states)

        desktop.act(self.program, "Quit", "Press")
        self.assertEqual(self.program.outcome(), (0, ""))

    def test_a_second_start_opens_a_window(self):
        with Program(self.desktop, [os.environ["TALLIX_PROGRAM"]]) as second:
            self.assertEqual(second.outcome(), (0, ""))
        expected = [(title, "org.tallix.tallix") for title in ("Untitled 2 — Tallix", "Untitled — Tallix")]
        wait_for(lambda: sorted(self.desktop.shown_windows()) == expected, "both windows")
        self.desktop.act(self.program, "Quit", "Press")
        self.assertEqual(self.program.outcome(), (0, ""))


if __name__ == "__main__":
    unittest.main(verbosity=2)
