"""A desktop of its own for a test: an X display with a window manager and a session bus, and programs on it.

    with Desktop() as desktop, Program(desktop, ["tallix"]) as program:
        desktop.wait_for_window("Untitled")
        desktop.type("2+3")

Nothing here sleeps for a fixed time: it waits for what is to happen, and fails after PATIENCE seconds.
"""

import contextlib
import functools
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import time

PATIENCE = 60
DISPLAY_TRIES = 5
SCREEN = "1280x1024x24"


class Timeout(Exception):
    """What was waited for did not happen."""


class ProgramFailed(Exception):
    """A program ended while one of its windows was waited for."""


def wait_for(condition, what):
    """The first true value of the condition."""
    end = time.monotonic() + PATIENCE
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Timeout(f"waited in vain for {what}")
        time.sleep(0.02)


class Desktop:
    """Xvfb, openbox and a session bus, with folders of their own in place of the user's."""

    def __init__(self, screen=SCREEN):
        self.screen = screen
        self.processes = []
        self.programs = []

    def __enter__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="tallix-desktop-")
        self.home = pathlib.Path(self.folder.name)
        self.environment = self._environment()
        try:
            self._start_screen()
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_bus()
            self._start_window_manager()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()
        self.folder.cleanup()

    @property
    def settings(self):
        """The folder where programs keep their settings."""
        return self.home / "config"

    @property
    def runtime(self):
        """The folder for sockets, as long as the user is there."""
        return self.home / "run"

    def clear(self):
        """Makes it as new for the next program, once the windows of the one before are gone."""
        wait_for(lambda: not self.shown(), "a desktop without windows")
        shutil.rmtree(self.settings)
        self.settings.mkdir(mode=0o700)
        self.set_keyboard("us", "-variant", "", "-option", "")

    def _environment(self):
        """The test's own, without what would lead to the user's desktop and files."""
        environment = {name: value for name, value in os.environ.items() if not name.startswith(("QT_", "WAYLAND_", "XDG_"))}
        for name, folder in {"XDG_RUNTIME_DIR": "run", "XDG_CONFIG_HOME": "config", "XDG_CACHE_HOME": "cache",
                             "XDG_DATA_HOME": "data", "HOME": "home"}.items():
            path = self.home / folder
            path.mkdir(mode=0o700)
            environment[name] = str(path)
        environment["LC_ALL"] = "C.UTF-8"
        return environment

    def _start(self, command, **options):
        log = open(self.home / f"{os.path.basename(command[0])}.log", "w")
        process = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL, stderr=log,
                                   **{"stdout": log, **options})
        log.close()
        self.processes.append(process)
        return process

    def _start_screen(self):
        self.environment["DISPLAY"] = self._start_display()

    def _start_window_manager(self):
        self._start(["openbox", "--config-file", self._window_manager_settings(), "--sm-disable"])
        wait_for(lambda: "window id" in self._output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "the window manager")

    def _start_display(self):
        """Xvfb looks for a free number by itself. Of two that start at once, one may lose its number, and ends."""
        number = next(filter(None, (self._try_display() for _ in range(DISPLAY_TRIES))), None)
        if not number:
            raise Timeout("Xvfb did not start: " + (self.home / "Xvfb.log").read_text())
        return f":{number}"

    def _try_display(self):
        """The number of the display, which Xvfb writes down when it is ready; nothing when it ended instead."""
        reading, writing = os.pipe()
        self._start(["Xvfb", "-displayfd", str(writing), "-screen", "0", self.screen, "-nolisten", "tcp", "-noreset", "-wr"],
                    pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as pipe:
            return pipe.readline().strip()

    def _start_bus(self):
        bus = self._start(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address"], stdout=subprocess.PIPE,
                          text=True)
        address = bus.stdout.readline().strip()
        bus.stdout.close()
        return address

    def start_another_bus(self):
        """The address of a second bus, and its process, which the caller ends."""
        address = self._start_bus()
        return address, self.processes.pop()

    def _window_manager_settings(self):
        path = self.home / "openbox.xml"
        path.write_text('<openbox_config xmlns="http://openbox.org/3.4/rc"><focus><focusNew>yes</focusNew></focus>'
                        "<theme><name>Clearlooks</name></theme></openbox_config>")
        return str(path)

    def _run(self, *command, **options):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True, timeout=PATIENCE, check=False,
                              **options)

    def _output(self, *command):
        return self._run(*command).stdout

    def wait_for(self, condition, what):
        """Waits for what a program is to do, as long as none has failed."""
        def is_met():
            for program in self.programs:
                program.must_not_have_failed()
            return condition()

        return wait_for(is_met, what)

    # Windows

    def active_window(self):
        return self._output("xdotool", "getactivewindow").strip()

    def active_title(self):
        return self._output("xdotool", "getactivewindow", "getwindowname").strip()

    def front_process(self):
        """The number of the process whose window has the keyboard; 0 where there is none."""
        return int(self._output("xdotool", "getactivewindow", "getwindowpid").strip() or 0)

    def windows(self, title):
        """The ids of the visible windows whose title begins so."""
        return self._output("xdotool", "search", "--onlyvisible", "--name", "^" + title).split()

    def has_keyboard(self, title):
        """Whether the window manager and the display agree that this window is the one."""
        active = self.active_window()
        focused = self._output("xdotool", "getwindowfocus").strip()
        return active and active == focused and self.active_title() == title

    def wait_for_window(self, title):
        """Waits until this very title is that of the window with the keyboard."""
        self.wait_for(lambda: self.has_keyboard(title), f"the window {title!r}")

    def change_window(self, *keys):
        """Presses keys that replace the window with the keyboard by another one of the same title; the id of that."""
        before, title = self.active_window(), self.active_title()
        self.key(*keys)
        self.wait_for(lambda: self.has_keyboard(title) and self.active_window() != before, "the other window")
        return self.active_window()

    def activate(self, title):
        """Brings the window with this very title to the front, as a task bar does."""
        for window in self.windows(title.split(" — ")[0]):
            if self._output("xdotool", "getwindowname", window).strip() == title:
                self._run("xdotool", "windowactivate", window)
        self.wait_for_window(title)

    def move(self, window, x, y):
        self._run("xdotool", "windowmove", "--sync", window, str(x), str(y))

    def maximize(self, window):
        """Clicks on the window manager's button, the second from the right."""
        left, top, width, _ = self.place(window)
        self._run("xdotool", "mousemove", str(left + width - 24), str(top - 10), "click", "1")

    def state(self, window):
        """What the window manager says about the window."""
        return self._output("xprop", "-id", window, "_NET_WM_STATE")

    # Keys

    def key(self, *keys):
        self._run("xdotool", "key", *keys)

    def type(self, text):
        self._run("xdotool", "type", "--delay", "1", "--", text)

    def enter(self, *lines):
        for line in lines:
            self.type(line)
            self.key("Return")

    def move_pointer(self, x, y):
        self._run("xdotool", "mousemove", str(x), str(y))

    def click(self, window, x, y, button=1):
        self._run("xdotool", "mousemove", "--window", window, str(x), str(y), "click", str(button))

    def double_click(self, window, x, y):
        self._run("xdotool", "mousemove", "--window", window, str(x), str(y), "click", "--repeat", "2", "--delay", "20", "1")

    def drag(self, window, start, end):
        """From one place in a window to another, in steps, as a hand moves."""
        self._run("xdotool", "mousemove", "--window", window, str(start[0]), str(start[1]), "mousedown", "1")
        steps = 10
        for step in range(1, steps + 1):
            x, y = (start[i] + (end[i] - start[i]) * step // steps for i in (0, 1))
            self._run("xdotool", "mousemove", "--sync", "--window", window, str(x), str(y))
        self._run("xdotool", "mousemove", "--window", window, str(end[0] - 1), str(end[1]), "mouseup", "1")

    @contextlib.contextmanager
    def menu(self, open_it):
        """A menu, from when it is opened until it was left."""
        before = self.shown()
        open_it()
        self.wait_for(lambda: self.shown() > before, "the menu")
        yield
        self.wait_for(lambda: self.shown() <= before, "the end of the menu")

    def choose(self, opener, *keys):
        """Opens a menu with a key and its submenus with others, and chooses with the last what opens no window.

        A submenu opens a moment after its key, and until then the next key would be the outer menu's own, as keys are
        that come before all of them are gone."""
        *openers, last = (opener, *keys)
        with contextlib.ExitStack() as menus:
            for key in openers:
                menus.enter_context(self.menu(functools.partial(self.key, key)))
            self.key(last)

    def open_and_close_menu(self, key):
        """Opens a menu with the key and leaves it, and then the menu bar."""
        with self.menu(lambda: self.key(key)):
            self.key("Escape")
        self.key("Escape")

    def shown(self):
        """The visible windows of the program, menus included."""
        return set(self._output("xdotool", "search", "--onlyvisible", "--class", "tallix").split())

    def set_keyboard(self, *arguments):
        self._run("setxkbmap", *arguments)

    # Clipboard

    def copied(self, *keys):
        """What the keys put into the clipboard."""
        marker = "nothing was copied"
        self.offer("clipboard", marker)
        self.key(*keys)
        return wait_for(lambda: (text := self._selection("clipboard")) != marker and text, "something in the clipboard")

    def offer(self, selection, text):
        """Puts a text into the clipboard, or into what the middle button pastes: "primary"."""
        # It stays in the background to offer the text, so its output must not be waited for.
        subprocess.run(["xclip", "-selection", selection, "-in"], env=self.environment, input=text, text=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=PATIENCE, check=True)
        wait_for(lambda: self._selection(selection) == text, "a clipboard of our own")

    def offered_types(self):
        """In which forms the clipboard's content can be had."""
        return self._output("xclip", "-selection", "clipboard", "-out", "-target", "TARGETS").split()

    def _selection(self, name):
        return self._output("xclip", "-selection", name, "-out")

    def line(self):
        """The text of the entry line; afterwards it is selected."""
        return self.copied("ctrl+a", "ctrl+c")

    def history(self):
        """The text of the history; afterwards the caret is in the entry line again."""
        text = self.copied("shift+Tab", "ctrl+a", "ctrl+c")
        self.key("Tab")
        return text

    # Pictures

    def place(self, window):
        """Left and upper edge, width and height of a window without its frame."""
        text = self._output("xwininfo", "-id", window)
        names = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        return tuple(int(re.search(rf"{name}: *(-?\d+)", text)[1]) for name in names)

    def picture(self, path, area):
        """What is on the screen, in a rectangle given by width, height, left and upper edge."""
        result = self._run("import", "-window", "root", "-crop", "{}x{}+{}+{}".format(*area), "+repage", str(path))
        if result.returncode != 0:
            raise Timeout("no picture: " + result.stderr)


    def color(self, window, x, y):
        """The colour of one pixel of a window, as "#36363A"."""
        left, top, _, _ = self.place(window)
        text = self._output("import", "-window", "root", "-crop", f"1x1+{left + x}+{top + y}", "-depth", "8", "txt:-")
        return re.search(r"#[0-9A-F]{6}", text)[0]

    def wait_for_color(self, window, place, color):
        self.wait_for(lambda: self.color(window, *place) == color, f"{color} in a window")


class Portal:
    """A desktop's portal that says whether the desktop is dark."""

    def __init__(self, desktop, value):
        self.desktop = desktop
        self.command = ["/usr/bin/python3", "-B", pathlib.Path(__file__).with_name("portal.py"), str(value)]

    def __enter__(self):
        self.process = subprocess.Popen(self.command, env=self.desktop.environment, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True)
        if self.process.stdout.readline() != "ready\n":
            raise Timeout("the portal did not start")
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.wait(PATIENCE)
        self.process.stdout.close()

    def change(self, value):
        self.process.stdin.write(f"{value}\n")
        self.process.stdin.flush()


class Program:
    """A program on a desktop, from its start to its end."""

    OPTIONS = {}  # More of what subprocess.Popen takes.

    def __init__(self, desktop, command):
        self.desktop = desktop
        self.command = command

    def __enter__(self):
        self.errors = open(self.desktop.home / "program.err", "w+")
        self.process = subprocess.Popen(self.command, env=self.desktop.environment, stdin=subprocess.DEVNULL,
                                        stdout=self.errors, stderr=self.errors, **self.OPTIONS)
        self.desktop.programs.append(self)
        return self

    def __exit__(self, *_):
        if self in self.desktop.programs:
            self.desktop.programs.remove(self)
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGKILL)
            self.process.wait()
        self.errors.close()

    def must_not_have_failed(self):
        """A program that ended by an error will show no window: what it said beats waiting for one."""
        if self.process.poll():
            status, text = self.outcome()
            raise ProgramFailed(f"status {status}: {text}")

    def must_be_running(self):
        """What is asked of a program that ended, in whatever way, is never answered."""
        if self.process.poll() is not None:
            status, text = self.outcome()
            raise ProgramFailed(f"status {status}: {text}")

    def outcome(self):
        """Waits for the end; the exit status and all that the program wrote."""
        status = self.process.wait(PATIENCE)
        self.errors.seek(0)
        return status, self.errors.read()
