"""The built program where something around it is missing, full or broken. TALLIX_PROGRAM says which program.

Each time it goes on working or says clearly what is wrong, and never leaves a damaged settings file.
"""

import contextlib
import os
import pathlib
import random
import resource
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
import unittest.mock

from desktop import Program, wait_for
from test_session import FIRST, SECOND, DesktopTest

PROGRAM = os.environ["TALLIX_PROGRAM"]


def mounted(path, *options):
    """Whether a file system in memory could be put there, for which one must be root."""
    return subprocess.run(["mount", "-t", "tmpfs", "-o", ",".join(options), "tmpfs", path], stdin=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, check=False).returncode == 0


def unmount(path):
    subprocess.run(["umount", path], check=True)


@contextlib.contextmanager
def read_only(folder, prepare=lambda folder: None):
    """A folder in which nothing can be written once it is prepared. For root, who may write everywhere, it is a file
    system of its own."""
    folder.mkdir(mode=0o700)
    is_mounted = os.geteuid() == 0 and mounted(folder, "mode=700")
    prepare(folder)
    if is_mounted:
        subprocess.run(["mount", "-o", "remount,ro", folder], check=True)
    else:
        set_mode(folder, 0o500)
    try:
        yield folder
    finally:
        if is_mounted:
            unmount(folder)
        else:
            set_mode(folder, 0o700)
        shutil.rmtree(folder)


@contextlib.contextmanager
def full(folder, prepare=lambda folder: None):
    """A folder on a disk without room for a byte. Who cannot have a disk of its own starts programs that may write no
    byte into a file."""
    folder.mkdir(mode=0o700)
    is_mounted = os.geteuid() == 0 and mounted(folder, "mode=700", "size=64k")
    prepare(folder)
    options = {} if is_mounted else {"preexec_fn": forbid_writing, "restore_signals": False}
    if is_mounted:
        fill(folder / "rest")
    try:
        with unittest.mock.patch.object(Program, "OPTIONS", options):
            yield folder
    finally:
        if is_mounted:
            unmount(folder)
        shutil.rmtree(folder)


def forbid_writing():
    resource.setrlimit(resource.RLIMIT_FSIZE, (0, 0))


def fill(path):
    with open(path, "wb", buffering=0) as file, contextlib.suppress(OSError):
        while True:
            file.write(b"x")


def set_mode(folder, mode):
    for path in [folder, *filter(pathlib.Path.is_dir, folder.rglob("*"))]:
        path.chmod(mode)


class WithoutDisplay(unittest.TestCase):
    """The reason, and what to do, on standard error; and a plain failure instead of a core dump."""

    def setUp(self):
        self.home = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="tallix-no-display-")))
        self.home.chmod(0o700)

    def start(self, *options, **environment):
        plain = {"PATH": os.environ["PATH"], "HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.home), "LC_ALL": "C.UTF-8"}
        kept = {name: os.environ[name] for name in ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS") if name in os.environ}
        result = subprocess.run([PROGRAM, *options], env={**plain, **kept, **environment}, stdin=subprocess.DEVNULL,
                                capture_output=True, text=True, timeout=60, check=False)
        return result.returncode, result.stdout, result.stderr

    def assert_complains(self, reason, **environment):
        status, output, errors = self.start(**environment)
        self.assertEqual((status, output), (1, ""), errors)
        lines = errors.splitlines()
        self.assertIn("tallix: No display could be opened, so there is no place for its window.", lines)
        self.assertIn(f"    {reason}", lines)
        self.assertEqual(lines[-1], "In a terminal, 'tallix-cli' calculates without a display.")
        self.assertNotIn("Reinstalling", errors)
        self.assertEqual([path.name for path in self.home.rglob("*.conf")], [])

    def test_none_is_named(self):
        self.assert_complains("could not connect to display")

    def test_none_answers(self):
        self.assert_complains("could not connect to display :4321", DISPLAY=":4321")

    def test_no_compositor_answers(self):
        self.assert_complains("Failed to create wl_display (No such file or directory)", WAYLAND_DISPLAY="wayland-4321",
                              QT_QPA_PLATFORM="wayland")

    def test_an_unknown_platform(self):
        self.assert_complains('Could not find the Qt platform plugin "nonsense" in ""', QT_QPA_PLATFORM="nonsense")

    def test_help_and_version_need_none(self):
        for option in ("--help", "--version"):
            status, output, errors = self.start(option)
            self.assertEqual((status, errors), (0, ""))
            self.assertIn("tallix", output)


class WorkingTest(DesktopTest):
    """Each test changes what is around the program, which then works as ever."""

    def change_environment(self, **changes):
        """Until the test ends; None takes a variable away."""
        self.enterContext(unittest.mock.patch.dict(self.desktop.environment))
        for name, value in changes.items():
            if value is None:
                self.desktop.environment.pop(name, None)
            else:
                self.desktop.environment[name] = str(value)

    def assert_calculates(self):
        self.desktop.activate(FIRST)
        self.desktop.enter("2+3")
        self.assertEqual(self.desktop.history(), "2+3\n\t= 5")

    def assert_quits(self, program=None):
        self.desktop.key("ctrl+q")
        self.assertEqual((program or self.program).outcome(), (0, ""))

    def assert_works(self):
        self.start()
        self.assert_calculates()
        self.assert_quits()


class SessionBus(WorkingTest):
    def test_none_is_named(self):
        self.change_environment(DBUS_SESSION_BUS_ADDRESS=None)
        self.assert_works()

    def test_none_answers(self):
        self.change_environment(DBUS_SESSION_BUS_ADDRESS=f"unix:path={self.desktop.home}/no-bus")
        self.assert_works()

    def test_it_ends_before_the_program(self):
        address, bus = self.desktop.start_another_bus()
        self.change_environment(DBUS_SESSION_BUS_ADDRESS=address)
        self.start()
        bus.terminate()
        bus.wait()
        self.assert_calculates()
        self.assert_quits()


class SettingsFolder(WorkingTest):
    """Where nothing can be stored, what is chosen counts as long as the program runs."""

    def assert_works_with_choices(self):
        self.start()
        desktop = self.desktop
        desktop.key("F9")  # the sidebar
        desktop.key("ctrl+n")
        desktop.wait_for_window(SECOND)
        self.assert_calculates()
        self.assert_quits()

    def test_no_home(self):
        self.change_environment(HOME=None, XDG_CONFIG_HOME=None, XDG_CACHE_HOME=None, XDG_DATA_HOME=None)
        self.assert_works_with_choices()

    def test_a_home_that_is_not_there(self):
        missing = self.desktop.home / "missing"
        self.change_environment(HOME=missing, XDG_CONFIG_HOME=None, XDG_CACHE_HOME=None, XDG_DATA_HOME=None)
        self.assert_works_with_choices()

    def test_a_file_in_its_place(self):
        place = self.desktop.home / "no-folder"
        place.write_text("mine")
        self.change_environment(XDG_CONFIG_HOME=place)
        self.assert_works_with_choices()
        self.assertEqual(place.read_text(), "mine")

    STORED = b"[General]\nTXPreferenceRevision=1\nTXUsesRadiansForNewDocuments=false\n\n[other]\nyours=2\n"

    def store(self, settings):
        (settings / "Tallix").mkdir()
        (settings / "Tallix" / "tallix.conf").write_bytes(self.STORED)

    def assert_works_with_what_is_stored(self, settings):
        """What is stored is read, stays as it is, and nothing is left beside it."""
        self.change_environment(XDG_CONFIG_HOME=settings)
        self.start()
        self.desktop.enter("sin(90)")
        self.assertEqual(self.desktop.history(), "sin(90)\n\t= 1")
        self.assert_quits()
        folder = settings / "Tallix"
        self.assertEqual([path.name for path in folder.iterdir()], ["tallix.conf"])
        self.assertEqual((folder / "tallix.conf").read_bytes(), self.STORED)

    def test_read_only(self):
        with read_only(self.desktop.home / "read-only", self.store) as settings:
            self.assert_works_with_what_is_stored(settings)

    def test_full(self):
        with full(self.desktop.home / "full", self.store) as settings:
            self.assert_works_with_what_is_stored(settings)


class RuntimeFolder(WorkingTest):
    """Without a place to meet in, each program that is started is one of its own."""

    def assert_runs_beside(self, told=""):
        """What the toolkit tells names the folder."""
        self.start()
        with Program(self.desktop, [PROGRAM]) as second:
            wait_for(lambda: self.desktop.front_process() == second.process.pid, "the second program's window in front")
            self.assertEqual(len(self.desktop.windows("Untitled")), 2)
            self.desktop.key("ctrl+q")
            status, errors = second.outcome()
            self.assertEqual(status, 0)
            self.assertRegex(errors, f"^{told}$")
        self.assert_calculates()
        self.desktop.key("ctrl+q")
        self.assertEqual(self.program.outcome(), (0, errors))

    def test_none_is_named(self):
        instead = self.desktop.home / "instead"
        instead.mkdir(exist_ok=True)
        self.change_environment(XDG_RUNTIME_DIR=None, TMPDIR=instead)
        self.assert_runs_beside(f"QStandardPaths: XDG_RUNTIME_DIR not set, defaulting to '{instead}/runtime-.*'\n")

    def test_it_is_missing(self):
        self.change_environment(XDG_RUNTIME_DIR=self.desktop.home / "missing")
        self.assert_runs_beside()

    def test_it_is_a_file(self):
        place = self.desktop.home / "no-runtime-folder"
        place.touch()
        self.change_environment(XDG_RUNTIME_DIR=place)
        self.assert_runs_beside(f"QStandardPaths: runtime directory '{place}' is not a directory, .*\n")

    def test_it_is_read_only(self):
        with read_only(self.desktop.home / "read-only-runtime") as place:
            self.change_environment(XDG_RUNTIME_DIR=place)
            self.assert_runs_beside("(QStandardPaths: wrong permissions on .*\\n)?")

    def test_it_is_full(self):
        """The lock is an empty file, and the socket is none: both find their place."""
        with full(self.desktop.home / "full-runtime") as place:
            self.change_environment(XDG_RUNTIME_DIR=place)
            self.start()
            with Program(self.desktop, [PROGRAM]) as second:
                self.assertEqual(second.outcome(), (0, ""))
            self.desktop.wait_for_window(SECOND)
            self.assert_calculates()
            self.assert_quits()


class Guide(WorkingTest):
    def test_missing(self):
        """The program stands where no guide belongs to it."""
        program = self.desktop.home / "elsewhere" / "bin" / "tallix"
        program.parent.mkdir(parents=True)
        shutil.copy(PROGRAM, program)
        self.program = self.enterContext(Program(self.desktop, [program]))
        self.desktop.wait_for_window(FIRST)
        self.desktop.key("F1")
        self.desktop.wait_for_window("Tallix")
        self.desktop.key("Escape")
        self.desktop.wait_for_window(FIRST)
        self.assert_calculates()
        self.assert_quits()


class Printer(WorkingTest):
    """A file stands for the printer where there is none."""

    PRINT = "Print — Tallix"

    def print_to(self, path):
        """Until a window comes that says what is wrong."""
        self.desktop.key("ctrl+p")
        self.desktop.wait_for_window(self.PRINT)
        dialog = self.desktop.active_window()
        self.assertTrue(self.desktop.copied("alt+f", "ctrl+a", "ctrl+c").endswith(".pdf"))
        # In one piece: for what is typed, the field offers folders, and would take the keys that follow.
        self.desktop.offer("clipboard", str(path))
        self.desktop.key("ctrl+v", "alt+p")
        others = ("", dialog, self.first)
        self.desktop.wait_for(lambda: self.desktop.active_title() and self.desktop.active_window() not in others, "the alert")

    def start(self):
        super().start()
        self.first = self.desktop.active_window()

    def test_a_file_on_a_full_disk(self):
        with full(self.desktop.home / "full-paper") as folder:
            self.start()
            self.print_to(folder / "history.pdf")
            self.desktop.wait_for_window("Tallix")
            self.desktop.key("Escape")
            self.desktop.wait_for_window(FIRST)
            self.assert_calculates()
            self.assert_quits()
            self.assertEqual([path.name for path in folder.iterdir() if path.name != "rest"], [])

    def test_a_file_in_no_folder(self):
        """The dialog stays, for another file."""
        self.start()
        self.print_to(self.desktop.home / "missing" / "history.pdf")
        self.desktop.change_window("Escape")
        self.desktop.key("Escape")
        self.desktop.wait_for_window(FIRST)
        self.assert_calculates()
        self.assert_quits()


class Clipboard(WorkingTest):
    MEGABYTES = 100

    @classmethod
    def setUpClass(cls):
        """The address sanitizer keeps for a while what was freed."""
        super().setUpClass()
        cls.kept = 1000 if b"__asan_init" in pathlib.Path(PROGRAM).read_bytes() else 30

    @contextlib.contextmanager
    def owner(self, content):
        """A program that offers the content, and goes when it is no longer needed."""
        path = self.desktop.home / "offered"
        path.write_bytes(content)
        process = subprocess.Popen(["xclip", "-quiet", "-selection", "clipboard", "-in", path], env=self.desktop.environment,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            wait_for(lambda: "UTF8_STRING" in self.desktop.offered_types(), "the owner of the clipboard")
            yield process
        finally:
            process.kill()
            process.wait()
            path.unlink()

    def resident(self):
        """The program's memory in megabytes."""
        status = pathlib.Path(f"/proc/{self.program.process.pid}/status").read_text()
        return int(status.split("VmRSS:")[1].split()[0]) / 1024

    def check_large(self, content):
        self.start()
        before = self.resident()
        with self.owner(content):
            self.desktop.key("ctrl+v")
            self.desktop.wait_for_window("Tallix")  # what is too long
            self.desktop.key("Escape")
            self.desktop.wait_for_window(FIRST)
        self.assert_calculates()
        self.desktop.wait_for(lambda: self.resident() < before + self.kept, "the memory")
        self.assert_quits()

    def test_one_line_of_a_hundred_megabytes(self):
        self.check_large(b"1+" * (self.MEGABYTES * 500_000))

    def test_lines_of_a_hundred_megabytes(self):
        self.check_large(b"1234567+\n" * (self.MEGABYTES * 1_000_000 // 9))

    def test_an_owner_that_is_stopped(self):
        """The toolkit waits for it, and then for nobody."""
        self.start()
        self.desktop.type("1+")
        with self.owner(b"2+3") as owner:
            owner.send_signal(signal.SIGSTOP)
            started = time.monotonic()
            self.desktop.key("ctrl+v", "4", "Return")
            self.assertEqual(self.desktop.history(), "1+4\n\t= 5")
            self.assertLess(time.monotonic() - started, 30)
        self.assert_quits()

    def test_a_start_while_its_owner_is_stopped(self):
        with self.owner(b"2+3") as owner:
            owner.send_signal(signal.SIGSTOP)
            self.start()
            self.desktop.enter("2+3")
            self.assert_quits()


class Kill(unittest.TestCase):
    """The settings file is the old one or the new one, whenever the program is killed."""

    ROUNDS = 60
    OLD = b"[General]\nTXAppRevision=1\nTXPreferenceRevision=1\n\n[other]\n" + b"".join(
        b"value%04d=%s\n" % (number, b"x" * 60) for number in range(2000))

    def setUp(self):
        self.home = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="tallix-kill-")))
        self.home.chmod(0o700)
        self.path = self.home / "Tallix" / "tallix.conf"
        self.path.parent.mkdir()
        self.environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "XDG_CONFIG_HOME": str(self.home),
                            "XDG_RUNTIME_DIR": str(self.home), "DBUS_SESSION_BUS_ADDRESS": "none:"}

    def start(self):
        return subprocess.Popen([PROGRAM, "--new-process"], env=self.environment, stdin=subprocess.DEVNULL)

    def stored(self):
        return self.path.read_bytes()

    def new_content(self):
        """What a program that is left alone makes of the file, and after how long."""
        self.path.write_bytes(self.OLD)
        with self.killed(self.start()) as program:
            started = time.monotonic()
            wait_for(lambda: self.stored() != self.OLD, "the new file")
            self.assertIsNone(program.poll())
            return self.stored(), time.monotonic() - started

    @contextlib.contextmanager
    def killed(self, program):
        try:
            yield program
        finally:
            program.kill()
            program.wait()

    def is_storing(self):
        return any(path.name != "tallix.conf" for path in self.path.parent.iterdir())

    def kill_round(self, delay, new):
        """Kills after a while, or somewhere in the middle of the storing."""
        self.path.write_bytes(self.OLD)
        for path in self.path.parent.glob("tallix.conf?*"):
            path.unlink()
        with self.killed(self.start()):
            if delay is None:
                end = time.monotonic() + 20
                while not self.is_storing() and self.stored() == self.OLD and time.monotonic() < end:
                    pass
                delay = random.uniform(0, 0.003)
            time.sleep(delay)
        self.assertIn(self.stored(), (self.OLD, new))
        return self.stored() == new, self.is_storing()

    def test_leaves_the_old_file_or_the_new_one(self):
        new, duration = self.new_content()
        self.assertIn(b"TXAppRevision=9\n", new)
        self.assertEqual(new.count(b"\nvalue"), 2000)
        rounds = [self.kill_round(random.uniform(0, 2 * duration) if number % 2 else None, new)
                  for number in range(self.ROUNDS)]
        self.assertGreater(sum(is_new for is_new, _ in rounds), 0)
        self.assertGreater(sum(not is_new for is_new, _ in rounds), 0)
        self.assertGreater(sum(was_storing for _, was_storing in rounds), 0, "no round was in the middle")

    def test_leaves_no_lock_that_others_wait_for(self):
        new, duration = self.new_content()
        for content in ("", f"{2 ** 22 - 1}\ntallix\n\n\n\n"):
            self.path.write_bytes(self.OLD)
            lock = self.path.with_name("tallix.conf.lock")
            lock.write_text(content)
            os.utime(lock, (time.time() - 1,) * 2)
            with self.killed(self.start()):
                started = time.monotonic()
                wait_for(lambda: self.stored() == new, "the new file")
                self.assertLess(time.monotonic() - started, 5 * duration + 5)


if __name__ == "__main__":
    unittest.main(verbosity=2)
