"""A desktop with an accessibility bus, and what a screen reader learns and does there with a program's window.

    with AccessibleDesktop() as desktop, Program(desktop, ["tallix"]) as program:
        desktop.insert(program, "Equation", "2+3")
        desktop.act(program, "Equation", "Press")
        desktop.accessible_window(program).find("Equation").description
"""

import json
import pathlib
from typing import NamedTuple

from desktop import Desktop, wait_for

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
CLIENT = ("/usr/bin/python3", "-B", str(pathlib.Path(__file__).with_name("accessibility_client.py")))


class Change(NamedTuple):
    """What a program told about one of its controls."""

    process: int
    kind: str  # focused, checked, accessible-description or announcement
    role: str
    name: str
    value: object  # after it


class Accessible:
    """A window, a control or a row, as it was when it was read."""

    def __init__(self, facts):
        self.role = facts["role"]
        self.name = facts["name"]
        self.description = facts["description"]
        self.text = facts["text"]
        self.labels = facts["labels"]
        self.states = frozenset(facts["states"])
        self.children = [Accessible(child) for child in facts["children"]]

    def __repr__(self):
        return f"{self.role} {self.name!r} {self.description!r} {self.text!r} {self.labels} {sorted(self.states)}"

    def all(self):
        """Itself and all that is in it, to any depth."""
        yield self
        for child in self.children:
            yield from child.all()

    def find(self, name):
        """What has this name, and is shown."""
        return next((one for one in self.all() if one.name == name and "showing" in one.states), None)


class WithAccessibility:
    """What makes the session bus of a desktop say that a screen reader is at work, and listens there as one."""

    def __enter__(self):
        super().__enter__()
        try:
            # Settings in memory, so that no service for settings is started beside it and outlives the desktop.
            self.environment["GSETTINGS_BACKEND"] = "memory"
            self._start([LAUNCHER, "--launch-immediately", "--a11y=1"])
            self.changes = self.home / "changes"
            with open(self.changes, "w") as output:
                self._start([*CLIENT, "listen"], stdout=output)
            wait_for(self.changes.read_text, "one who listens")
        except BaseException:
            self.__exit__()
            raise
        return self

    def accessible_windows(self, program):
        """All windows of the program; none while that changes."""
        program.must_be_running()
        result = self._run(*CLIENT, "read", str(program.process.pid))
        return [Accessible(window) for window in json.loads(result.stdout)] if result.returncode == 0 else []

    def accessible_window(self, program):
        """The program's window with the keyboard; nothing while that changes."""
        return next((window for window in self.accessible_windows(program) if "active" in window.states), None)

    def insert(self, program, name, text):
        """Puts a text before the one in the field with this name."""
        self._use(program, "insert", name, text)

    def act(self, program, name, action):
        """Does what the control with this name offers to do."""
        self._use(program, "act", name, action)

    def _use(self, program, command, *arguments):
        def is_done():
            program.must_be_running()
            return self._run(*CLIENT, command, str(program.process.pid), *arguments).returncode == 0

        wait_for(is_done, f"{command} {arguments}")

    def heard(self, program):
        """All changes that the program has told so far."""
        lines = self.changes.read_text().splitlines(keepends=True)
        changes = [Change(*json.loads(line)) for line in lines if line.startswith("[") and line.endswith("\n")]
        return [change for change in changes if change.process == program.process.pid]


class AccessibleDesktop(WithAccessibility, Desktop):
    """An X display with an accessibility bus."""
