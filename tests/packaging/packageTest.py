"""The Debian packages: what lintian says, and their way into a clean system and out of it again.

As root the system is a fresh Debian made by debootstrap, into which apt installs; otherwise the packages are only
unpacked. TALLIX_PACKAGES says in which folder they are.
"""

import configparser
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "endToEnd"))

from desktop import Desktop, Program  # noqa: E402

PACKAGES = sorted(pathlib.Path(os.environ["TALLIX_PACKAGES"]).glob("*.deb"))
ID = "org.tallix.tallix"
GUIDE = "usr/lib/tallix/Contents/Resources/TALLIX User Guide.pdf"
RELEASE = "bookworm"
RECORDER = '#!/bin/sh\nprintf "%s\\n" "$@" >/tmp/opened.part && mv /tmp/opened.part /tmp/opened\n'


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
        for library in ("libqt6widgets6", "libqt6network6", "libedit2", "libstdc++6", "libc6"):
            self.assertRegex(depends, rf"(^|, ){re.escape(library)} \(>= ")


class Flatpak(unittest.TestCase):
    """The manifest, as flatpak-builder reads it."""

    def setUp(self):
        self.manifest = json.loads(run("flatpak-builder", "--show-manifest", ROOT / "packaging/flatpak" / f"{ID}.yaml"))

    def test_lets_the_program_out_to_the_display_alone(self):
        self.assertEqual(self.manifest["finish-args"],
                         ["--socket=wayland", "--socket=fallback-x11", "--share=ipc", "--device=dri"])

    def test_starts_the_program_of_this_id(self):
        self.assertEqual((self.manifest["id"], self.manifest["command"]), (ID, "tallix"))

    def test_the_build_options_are_known(self):
        options = re.findall(r"-D(TALLIX_[A-Z_]+)=", " ".join(self.manifest["modules"][0]["config-opts"]))
        known = (ROOT / "CMakeLists.txt").read_text()
        self.assertEqual([option for option in options if f"option({option} " not in known and option != "TALLIX_BUILD_GUIDE"], [])


class System(unittest.TestCase):
    """One way through: the packages come, are used, and go."""

    def test_they_come_work_and_go(self):
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="system-")))
        kind = FreshDebian if os.geteuid() == 0 else UnpackedPrefix
        print(f"packages are tried in: {kind.__name__}", file=sys.stderr)
        self.system = kind(folder)
        self.system.install()
        self.check_terminal_program()
        self.check_menu_entry()
        self.check_window()
        self.system.remove()
        self.assertEqual(self.system.left_behind(), [])

    def check_terminal_program(self):
        self.assertEqual(run(*self.system.command("tallix-cli"), "2+3*4"), "14\n")

    def check_menu_entry(self):
        """As a desktop finds it: the entry by its id, the program in the path, the icon in the folders of its theme."""
        usr = self.system.root / "usr"
        parser = configparser.ConfigParser(interpolation=None, strict=False)
        parser.optionxform = str
        parser.read(usr / "share/applications" / f"{ID}.desktop")
        entry = parser["Desktop Entry"]
        self.assertTrue(os.access(usr / "bin" / entry["Exec"], os.X_OK))
        for size in (16, 22, 24, 32, 48, 64, 128, 256):
            self.assertEqual([path.name for path in self.icons(entry["Icon"], size)], [f"{ID}.png"], size)

    def icons(self, name, size):
        """The files of an icon at just this size."""
        theme = self.system.root / "usr/share/icons/hicolor"
        parser = configparser.ConfigParser(interpolation=None, strict=False)
        # Of the machine, where the packages are only unpacked.
        parser.read(["/usr/share/icons/hicolor/index.theme", theme / "index.theme"])
        for folder in parser["Icon Theme"]["Directories"].split(","):
            if parser[folder]["Size"] == str(size) and "Scale" not in parser[folder]:
                yield from (theme / folder).glob(f"{name}.png")

    def check_window(self):
        desktop = self.enterContext(Desktop())
        recorder = self.system.root / "usr/local/bin/xdg-open"
        recorder.parent.mkdir(parents=True, exist_ok=True)
        recorder.write_text(RECORDER)
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
        if (ROOT / "docs/guide").exists():
            opened = (self.system.root if isinstance(self.system, FreshDebian) else pathlib.Path("/")) / "tmp/opened"
            desktop.wait_for(opened.exists, "the guide")
            self.assertTrue(opened.read_text().endswith("/" + GUIDE.replace(" ", "%20") + "\n"))
            opened.unlink()
        else:
            desktop.wait_for(lambda: desktop.active_title() == "Tallix", "the alert")
            desktop.key("Escape")
            desktop.wait_for_window("Untitled — Tallix")


if __name__ == "__main__":
    unittest.main(verbosity=2)
