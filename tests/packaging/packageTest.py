"""The Debian packages: what lintian says, and their way into a clean system and out of it again.

As root the system is a fresh Debian made by debootstrap, into which apt installs; otherwise the packages are only
unpacked. TALLIX_PACKAGES says in which folder they are.
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests" / "endToEnd"), str(ROOT / "tests" / "packaging")]

from desktop import Desktop, Program  # noqa: E402
from menu import Menu  # noqa: E402

PACKAGES = sorted(pathlib.Path(os.environ["TALLIX_PACKAGES"]).glob("*.deb"))
ID = "org.tallix.tallix"
GUIDE = "lib/tallix/Contents/Resources/TALLIX User Guide.pdf"
RELEASE = "bookworm"
# In place of the desktop's viewer: writes down what it is to open.
RECORDER = '#!/bin/sh\nprintf "%s\\n" "$@" >"{0}.part" && mv "{0}.part" "{0}"\n'


def run(*command, **options):
    """What a command writes, errors included; it must succeed."""
    result = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, text=True, check=False, **options)
    if result.returncode != 0:
        raise AssertionError(f"{command} gave {result.returncode}: {result.stdout}")
    return result.stdout


def field(package, name):
    return run("dpkg-deb", "--field", package, name).strip()


class FreshDebian:
    """A system of its own. Only what is asked for is installed, without recommendations."""

    def __init__(self, folder):
        self.root = folder / "root"
        run("debootstrap", "--variant=minbase", RELEASE, self.root)
        shutil.copy("/etc/resolv.conf", self.root / "etc")
        self._inside("apt-get", "-q", "update")
        self.before = self._facts()

    def install(self):
        place = self.root / "srv"
        for package in PACKAGES:
            shutil.copy(package, place)
        self._inside("apt-get", "-q", "-y", "install", "--no-install-recommends",
                     *(f"/srv/{package.name}" for package in PACKAGES))
        for package in PACKAGES:
            (place / package.name).unlink()

    def remove(self):
        self._inside("apt-get", "-q", "-y", "autoremove", "--purge", *(field(package, "Package") for package in PACKAGES))

    def left_behind(self):
        """What the packages, and all that came with them, have left."""
        return sorted(self._facts() - self.before)

    def data_folders(self):
        return [self.root / "usr/local/share", self.root / "usr/share"]

    def file_outside_the_packages(self, _):
        """The path of a file that programs inside may write, as it is inside and as it is from here."""
        return pathlib.Path("/tmp/opened"), self.root / "tmp/opened"

    def command(self, program, **environment):
        """How a program is started inside."""
        return ["chroot", str(self.root), "/usr/bin/env", "-i", "PATH=/usr/local/bin:/usr/bin:/bin", "HOME=/tmp",
                "LC_ALL=C.UTF-8", *(f"{name}={value}" for name, value in environment.items()), program]

    def _inside(self, *command):
        return run(*self.command(command[0], DEBIAN_FRONTEND="noninteractive", PATH="/usr/sbin:/usr/bin:/sbin:/bin"),
                   *command[1:])

    def _facts(self):
        """All files, without the notes of apt and dpkg about what they did; and the packages."""
        notes = ("dev/", "proc/", "sys/", "tmp/", "var/cache/", "var/log/", "var/lib/apt/", "var/lib/dpkg/", "etc/ld.so.cache")
        files = {str(path.relative_to(self.root)) for path in self.root.rglob("*")}
        packages = self._inside("dpkg-query", "--show", "--showformat", "package ${Package} ${db:Status-Abbrev}\\n")
        return {file for file in files if not file.startswith(notes)} | set(packages.splitlines())


class UnpackedPrefix:
    """The packages' files in a folder, with the libraries of the system."""

    def __init__(self, folder):
        self.root = folder / "root"
        self.root.mkdir()

    def install(self):
        for package in PACKAGES:
            run("dpkg-deb", "--extract", package, self.root)

    def remove(self):
        for package in PACKAGES:
            for line in reversed(run("dpkg-deb", "--contents", package).splitlines()):
                path = self.root / line.split("./", 1)[1].split(" -> ")[0]
                if path.is_dir():
                    if not any(path.iterdir()):
                        path.rmdir()
                else:
                    path.unlink()

    def left_behind(self):
        return sorted(str(path) for path in self.root.rglob("*") if path.is_file())

    def data_folders(self):
        """With those of the machine, which has the icon theme itself."""
        return [self.root / "usr/share", pathlib.Path("/usr/local/share"), pathlib.Path("/usr/share")]

    def file_outside_the_packages(self, home):
        return home / "opened", home / "opened"

    def command(self, program, **environment):
        return ["/usr/bin/env", f"PATH={self.root}/usr/local/bin:{os.environ['PATH']}",
                *(f"{name}={value}" for name, value in environment.items()), str(self.root / "usr/bin" / program)]


class Lintian(unittest.TestCase):
    def test_finds_no_error_and_no_warning(self):
        self.assertEqual(run("lintian", "--allow-root", "--profile", "debian", "--fail-on", "error,warning", *PACKAGES), "")


class Control(unittest.TestCase):
    def test_there_are_programs_and_libraries(self):
        self.assertEqual([field(package, "Package") for package in PACKAGES], ["libtallix-dev", "tallix"])

    def test_the_programs_depend_on_what_they_are_linked_with(self):
        depends = field(PACKAGES[1], "Depends")
        for library in ("libqt6widgets6", "libedit2", "libstdc++6", "libc6"):
            self.assertRegex(depends, rf"(^|, ){re.escape(library)} \(>= ")

    def test_the_first_window_waits_for_no_network_library(self):
        """Loading it would take half as long as all the rest of the start."""
        self.assertNotIn("qt6network", field(PACKAGES[1], "Depends"))


class Hardening(unittest.TestCase):
    """What the linker and the compiler have put into the programs against attacks on them."""

    @classmethod
    def setUpClass(cls):
        folder = cls.enterClassContext(tempfile.TemporaryDirectory(prefix="hardening-"))
        run("dpkg-deb", "--extract", PACKAGES[1], folder)
        cls.programs = sorted(pathlib.Path(folder, "usr/bin").iterdir())

    def test_every_program_is_hardened(self):
        self.assertEqual([program.name for program in self.programs], ["tallix", "tallix-cli"])
        for program in self.programs:
            with self.subTest(program.name):
                facts = run("readelf", "--wide", "--file-header", "--program-headers", "--dynamic", "--dyn-syms", program)
                self.assertRegex(facts, r"Type: +DYN \(Position-Independent Executable file\)")
                self.assertRegex(facts, r"(?m)^ +GNU_RELRO ")
                self.assertRegex(facts, r"\(FLAGS\) +BIND_NOW")
                self.assertRegex(facts, r"(?m)^ +GNU_STACK .* RW ")
                self.assertRegex(facts, r" __stack_chk_fail@")


class Flatpak(unittest.TestCase):
    """The manifest, as flatpak-builder reads it."""

    PATH = ROOT / "packaging/flatpak" / f"{ID}.yaml"

    def setUp(self):
        # It leaves a folder of its own where it runs.
        folder = self.enterContext(tempfile.TemporaryDirectory(prefix="flatpak-"))
        self.manifest = json.loads(run("flatpak-builder", "--show-manifest", self.PATH, cwd=folder))
        self.module, = self.manifest["modules"]

    def test_lets_the_program_out_to_the_display_alone(self):
        self.assertEqual(self.manifest["finish-args"],
                         ["--socket=wayland", "--socket=fallback-x11", "--share=ipc", "--device=dri"])

    def test_starts_the_program_of_this_id(self):
        self.assertEqual((self.manifest["id"], self.manifest["command"]), (ID, "tallix"))

    def test_the_build_options_are_known(self):
        options = re.findall(r"-D(TALLIX_[A-Z_]+)=", " ".join(self.module["config-opts"]))
        self.assertGreater(len(options), 1)
        known = "".join((ROOT / folder / "CMakeLists.txt").read_text() for folder in (".", "docs/guide"))
        self.assertEqual([option for option in options if not re.search(rf"(option|set)\({option} ", known)], [])

    def test_takes_the_guide_from_where_it_was_rendered(self):
        _, guide = self.module["sources"]
        self.assertEqual((self.PATH.parent / guide["path"]).resolve(), ROOT / "build/release" / GUIDE)
        self.assertIn(f"-DTALLIX_RENDERED_GUIDE={guide['dest-filename']}", self.module["config-opts"])


class System(unittest.TestCase):
    """One way through: the packages come, are used, and go."""

    def test_they_come_work_and_go(self):
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="system-")))
        kind = FreshDebian if os.geteuid() == 0 else UnpackedPrefix
        print(f"packages are tried in: {kind.__name__}", file=sys.stderr)
        self.system = kind(folder)
        self.system.install()
        self.check_terminal_program()
        self.menu = Menu(self.system.data_folders(), [self.system.root / "usr/local/bin", self.system.root / "usr/bin"])
        self.check_menu_entry()
        self.check_icons()
        self.check_documentation()
        self.check_window()
        self.system.remove()
        self.assertEqual(self.system.left_behind(), [])

    def check_terminal_program(self):
        self.assertEqual(run(*self.system.command("tallix-cli"), "2+3*4"), "14\n")

    def check_menu_entry(self):
        """The entry by its id, and what it starts in the path."""
        groups = self.menu.entry(ID)
        entry, actions = groups["Desktop Entry"], groups["Desktop Entry"]["Actions"].rstrip(";").split(";")
        self.assertEqual(actions, ["new-window"])
        program = self.system.root / "usr/bin/tallix"
        self.assertEqual(self.menu.program(entry["TryExec"]), program)
        self.assertEqual(self.menu.program(entry["Exec"]), program)
        self.assertEqual(self.menu.program(groups["Desktop Action new-window"]["Exec"]), program)
        self.assertEqual(entry["Icon"], ID)

    def check_icons(self):
        icons = self.system.root / "usr/share/icons/hicolor"
        # The theme's folders take sizes up to two pixels off, so the first of 22 and 24 answers for both, and 256x256
        # takes all from 64 on. What is left is scaled.
        places = {16: "16x16", 22: "22x22", 24: "22x22", 25: "24x24", 32: "32x32", 48: "48x48", 64: "64x64", 96: "256x256",
                  128: "128x128", 256: "256x256", 300: "256x256"}
        for size, folder in places.items():
            self.assertEqual(self.menu.icon(ID, size), icons / folder / "apps" / f"{ID}.png", size)
        for size in (12, 40, 56):
            self.assertEqual(self.menu.icon(ID, size), icons / "scalable/apps" / f"{ID}.svg", size)
        for size in (16, 22, 24, 32, 96):
            name = f"{ID}-symbolic"
            self.assertEqual(self.menu.icon(name, size), icons / "symbolic/apps" / f"{name}.svg", size)
        self.assertIsNone(self.menu.icon(f"{ID}-bogus", 16))

    def check_documentation(self):
        """The guide lies where Debian keeps what is for reading, and is registered there."""
        share = self.system.root / "usr/share"
        registered = re.search("(?m)^Files: /(.*)$", (share / "doc-base/tallix.tallix-user-guide").read_text())[1]
        guide = (self.system.root / registered).resolve()
        self.assertEqual(guide, share.resolve() / "tallix" / pathlib.Path(GUIDE).name)
        self.assertEqual((self.system.root / "usr" / GUIDE).resolve(), guide)
        licences = " ".join((share / "doc/tallix/copyright").read_text().split())
        fonts = re.findall(r"(?m)^[A-Z]{6}\+(\S+)", run("pdffonts", guide))
        self.assertGreater(len(fonts), 3)
        for font in fonts:
            self.assertIn(re.sub("(-(Semi|Bold|Italic))+$", "", font).replace("-", " "), licences)

    def check_window(self):
        desktop = self.enterContext(Desktop())
        inside, self.opened = self.system.file_outside_the_packages(desktop.home)
        recorder = self.system.root / "usr/local/bin/xdg-open"
        recorder.parent.mkdir(parents=True, exist_ok=True)
        recorder.write_text(RECORDER.format(inside))
        recorder.chmod(0o755)
        command = self.system.command("tallix", DISPLAY=desktop.environment["DISPLAY"])
        with Program(desktop, command) as program:
            desktop.wait_for_window("Untitled — Tallix")
            desktop.enter("2+3")
            self.assertEqual(desktop.history(), "2+3\n\t= 5")
            self.check_guide(desktop)
            desktop.key("ctrl+q")
            self.assertEqual(program.outcome()[0], 0)
        recorder.unlink()

    def check_guide(self, desktop):
        desktop.key("F1")
        desktop.wait_for(self.opened.exists, "the guide")
        address = urllib.parse.urlsplit(self.opened.read_text().rstrip("\n"))
        self.assertEqual((address.scheme, address.netloc), ("file", ""))
        path = pathlib.Path(urllib.parse.unquote(address.path))
        if isinstance(self.system, FreshDebian):
            path = self.system.root / path.relative_to("/")
        self.assertEqual(path, self.system.root / "usr" / GUIDE)
        self.assertEqual(path.read_bytes()[:5], b"%PDF-")
        self.opened.unlink()


if __name__ == "__main__":
    unittest.main(verbosity=2)
