"""A desktop with an accessibility bus, and what a screen reader learns there about a program's window.

    with AccessibleDesktop() as desktop, Program(desktop, ["tallix"]) as program:
        window = desktop.accessible_window(program)
        window.find(name="Equation").text
"""

import json
import pathlib

from desktop import Desktop, wait_for

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
READER = pathlib.Path(__file__).with_name("read_accessibles.py")


class Accessible:
    """A window, a control or a row, as it was when it was read."""

    def __init__(self, facts):
        self.role = facts["role"]
        self.name = facts["name"]
        self.description = facts["description"]
        self.text = facts["text"]
        self.states = frozenset(facts["states"])
        self.children = [Accessible(child) for child in facts["children"]]

    def __repr__(self):
        return f"{self.role} {self.name!r} {self.description!r} {self.text!r} {sorted(self.states)}"

    def all(self):
        """Itself and all that is in it, to any depth."""
        yield self
        for child in self.children:
            yield from child.all()

    def find(self, name):
        """What has this name, and is shown."""
        return next((one for one in self.all() if one.name == name and "showing" in one.states), None)


class AccessibleDesktop(Desktop):
    """A desktop whose session bus says that a screen reader is at work."""

    def __enter__(self):
        super().__enter__()
        try:
            # Settings in memory, so that no service for settings is started beside it and outlives the desktop.
            self.environment["GSETTINGS_BACKEND"] = "memory"
            self._start([LAUNCHER, "--launch-immediately", "--a11y=1"])
            wait_for(lambda: "unix:" in self._output("xprop", "-root", "AT_SPI_BUS"), "the accessibility bus")
        except BaseException:
            self.__exit__()
            raise
        return self

    def accessible_window(self, program):
        """The program's window with the keyboard; nothing while that changes."""
        program.must_be_running()
        result = self._run("/usr/bin/python3", "-B", str(READER), str(program.process.pid))
        windows = json.loads(result.stdout) if result.returncode == 0 else []
        return next((Accessible(window) for window in windows if "active" in window["states"]), None)
