"""What `cmake --install` leaves, in a prefix that was moved afterwards. TALLIX_BUILD says in which folder Tallix was built."""

import configparser
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "endToEnd"))

from desktop import Desktop, Program, wait_for  # noqa: E402

BUILD = pathlib.Path(os.environ["TALLIX_BUILD"])
ID = "org.tallix.tallix"
GUIDE = "lib/tallix/Contents/Resources/TALLIX User Guide.pdf"
PROGRAMS = ("tallix", "tallix-cli")
PNG_SIZES = (16, 22, 24, 32, 48, 64, 128, 256)


def setUpModule():
    global FOLDER, PREFIX
    FOLDER = pathlib.Path(unittest.enterModuleContext(tempfile.TemporaryDirectory(prefix="tallix-installed-")))
    installed = FOLDER / "first place"
    run("cmake", "--install", BUILD, "--prefix", installed)
    PREFIX = FOLDER / "second place"
    installed.rename(PREFIX)


def run(*command, **options):
    """What a command writes, errors included; it must succeed."""
    result = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                            check=False, **options)
    if result.returncode != 0:
        raise AssertionError(f"{command} gave {result.returncode}: {result.stdout}")
    return result.stdout


def installed(program):
    return PREFIX / "bin" / program


class Programs(unittest.TestCase):
    def test_start(self):
        for program in PROGRAMS:
            self.assertRegex(run(installed(program), "--version"), rf"^{program} \d+\.\d+\.\d+\n$")

    def test_nothing_remembers_where_it_was_built_or_put_first(self):
        for path in filter(pathlib.Path.is_file, PREFIX.rglob("*")):
            content = path.read_bytes()
            for place in (BUILD, ROOT, FOLDER / "first place"):
                self.assertNotIn(bytes(place) + b"/", content, path)


class MenuEntry(unittest.TestCase):
    def setUp(self):
        self.path = PREFIX / "share/applications" / f"{ID}.desktop"
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        parser.read(self.path)
        self.entry = parser["Desktop Entry"]

    def test_is_valid(self):
        self.assertEqual(run("desktop-file-validate", self.path), "")

    def test_leads_to_the_program_and_its_icon(self):
        self.assertTrue(os.access(installed(self.entry["Exec"]), os.X_OK))
        self.assertEqual(self.entry["Icon"], ID)


class Metainfo(unittest.TestCase):
    def setUp(self):
        self.path = PREFIX / "share/metainfo" / f"{ID}.metainfo.xml"
        self.root = xml.etree.ElementTree.parse(self.path).getroot()

    def test_is_valid(self):
        environment = {**os.environ, "LC_ALL": "C.UTF-8"}
        self.assertEqual(run("appstreamcli", "validate", "--pedantic", "--no-net", "--no-color", self.path, env=environment),
                         "✔ Validation was successful.\n")

    def test_names_what_is_there(self):
        self.assertEqual(self.root.findtext("id"), ID)
        self.assertTrue((PREFIX / "share/applications" / self.root.findtext("launchable")).exists())
        self.assertEqual([binary.text for binary in self.root.iter("binary")], list(PROGRAMS))
        for image in self.root.iter("image"):
            self.assertTrue((ROOT / "docs/screenshots" / image.text.rsplit("/", 1)[1]).exists(), image.text)

    def test_keeps_within_what_software_centres_show(self):
        self.assertLessEqual(len(self.root.findtext("summary")), 35)
        self.assertGreaterEqual(len(" ".join(self.root.find("description/p").text.split())), 80)

    def test_latest_release_is_this_version(self):
        version = run(installed("tallix"), "--version").split()[1]
        self.assertEqual(self.root.find("releases/release").get("version"), version)


class Icons(unittest.TestCase):
    def folder(self, name):
        return PREFIX / "share/icons/hicolor" / name / "apps"

    def test_are_as_large_as_their_folders_say(self):
        for size in PNG_SIZES:
            header = (self.folder(f"{size}x{size}") / f"{ID}.png").read_bytes()[:24]
            self.assertEqual(header[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual(struct.unpack(">II", header[16:]), (size, size))

    def test_can_be_scaled(self):
        for path in (self.folder("scalable") / f"{ID}.svg", self.folder("symbolic") / f"{ID}-symbolic.svg"):
            self.assertEqual(xml.etree.ElementTree.parse(path).getroot().tag, "{http://www.w3.org/2000/svg}svg")

    def test_the_symbolic_one_has_one_colour(self):
        text = (self.folder("symbolic") / f"{ID}-symbolic.svg").read_text()
        self.assertEqual(re.findall(r'(?:fill|stroke|color)="([^"]*)"', text), ["#2e3436"])

    def test_are_made_from_their_drawings(self):
        run(ROOT / "scripts/icons", FOLDER / "made")
        for size in PNG_SIZES:
            name = f"{size}x{size}/apps/{ID}.png"
            difference = subprocess.run(["compare", "-metric", "AE", "-fuzz", "2%", FOLDER / "made" / name,
                                         PREFIX / "share/icons/hicolor" / name, "null:"], capture_output=True, text=True,
                                        check=False)
            self.assertEqual((difference.returncode, difference.stderr), (0, "0"), name)


class ManualPages(unittest.TestCase):
    def page(self, program):
        environment = {**os.environ, "LC_ALL": "C.UTF-8", "MANWIDTH": "80", "MANROFFSEQ": ""}
        path = PREFIX / "share/man/man1" / f"{program}.1"
        result = subprocess.run(["man", "--warnings", "--local-file", path], env=environment, capture_output=True, text=True,
                                check=True)
        self.assertEqual(result.stderr, "")
        return re.sub(".\b", "", result.stdout)

    def test_tell_every_option(self):
        for program in PROGRAMS:
            page = self.page(program)
            options = re.findall(r"^ +(--[a-z-]+(?: [A-Z]+)?)  ", run(installed(program), "--help"), re.MULTILINE)
            self.assertGreaterEqual(len(options), 3)
            for option in options:
                self.assertRegex(page, rf"(?m)^ +{option.replace(' ', '.')}( |$)", program)

    def test_tell_the_version(self):
        for program in PROGRAMS:
            version = run(installed(program), "--version").split()[1]
            self.assertIn(f"Tallix {version}", self.page(program))


class Window(unittest.TestCase):
    """The program in its new place, on a display."""

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop())
        cls.opened = cls.desktop.home / "opened"
        recorder = cls.desktop.home / "bin" / "xdg-open"
        recorder.parent.mkdir()
        recorder.write_text(f'#!/bin/sh\nprintf "%s\\n" "$@" >"{cls.opened}.part" && mv "{cls.opened}.part" "{cls.opened}"\n')
        recorder.chmod(0o755)
        cls.desktop.environment["PATH"] = f"{recorder.parent}:{cls.desktop.environment['PATH']}"
        cls.guide = PREFIX / GUIDE
        cls.guide.parent.mkdir(parents=True, exist_ok=True)
        cls.guide.touch()

    def setUp(self):
        self.desktop.clear()
        self.program = self.enterContext(Program(self.desktop, [installed("tallix")]))
        self.desktop.wait_for_window("Untitled — Tallix")

    def property(self, name):
        return run("xprop", "-id", self.desktop.active_window(), name, env=self.desktop.environment)

    def test_belongs_to_its_menu_entry(self):
        entry = (PREFIX / "share/applications" / f"{ID}.desktop").read_text()
        window_class = re.search("^StartupWMClass=(.*)$", entry, re.MULTILINE)[1]
        self.assertEqual(self.property("WM_CLASS"), f'WM_CLASS(STRING) = "tallix", "{window_class}"\n')

    def test_has_an_icon(self):
        for size in (16, 32, 48, 64):
            self.assertIn(f"Icon ({size} x {size})", self.property("_NET_WM_ICON"))

    def test_opens_the_guide_that_is_installed(self):
        self.desktop.key("F1")
        self.desktop.wait_for(self.opened.exists, "the guide")
        self.assertEqual(self.opened.read_text(), self.guide.as_uri() + "\n")


class Package(unittest.TestCase):
    """The libraries, for other projects."""

    def test_the_example_is_built_against_them(self):
        build = FOLDER / "example"
        run("cmake", "-S", ROOT / "examples", "-B", build, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={PREFIX}",
            "-DCMAKE_BUILD_TYPE=Release", "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Wpedantic -Werror")
        run("cmake", "--build", build)
        self.assertEqual(run(build / "answers", "r=2.5", "pi*r^2", " ", "2*(ans", "0.1+0.2"),
                         "2.5\n19.6349540849362\nThere is an open parenthesis in the equation -- you are missing a ).\n0.3\n")

    def test_doxygen_reads_the_headers_without_a_warning(self):
        output = FOLDER / "reference"
        settings = (ROOT / "docs/Doxyfile").read_text() + f'OUTPUT_DIRECTORY = "{output}"\n'
        self.assertEqual(run("doxygen", "-", cwd=ROOT, input=settings), "")
        self.assertTrue((output / "html/classTXEquationController.html").exists())

    def test_another_minor_version_is_refused(self):
        project = FOLDER / "other"
        project.mkdir()
        (project / "CMakeLists.txt").write_text("cmake_minimum_required(VERSION 3.25)\nproject(Other LANGUAGES CXX)\n"
                                                "find_package(Tallix 99.0 QUIET)\nmessage(STATUS \"found: ${Tallix_FOUND}\")\n")
        output = run("cmake", "-S", project, "-B", project / "build", f"-DCMAKE_PREFIX_PATH={PREFIX}")
        self.assertIn("-- found: 0\n", output)


class WithoutQt(unittest.TestCase):
    """A build for machines without a display."""

    def test_has_the_libraries_the_terminal_program_and_their_tests(self):
        build = FOLDER / "without-qt"
        run("cmake", "-S", ROOT, "-B", build, "-G", "Ninja", "-DTALLIX_BUILD_UI=OFF", "-DTALLIX_BUILD_GUIDE=OFF",
            "-DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON", "-DCMAKE_BUILD_TYPE=Release", "--no-warn-unused-cli")
        run("cmake", "--build", build, "--target", "programs")
        prefix = FOLDER / "without-qt-prefix"
        run("cmake", "--install", build, "--prefix", prefix)
        self.assertEqual(run(prefix / "bin/tallix-cli", "2+3*4"), "14\n")
        files = {str(path.relative_to(prefix)) for path in prefix.rglob("*") if path.is_file()}
        self.assertLessEqual({"lib/libtallix_engine.a", "lib/libtallix_format.a", "share/man/man1/tallix-cli.1"}, files)
        self.assertEqual([file for file in files if re.search(r"tallix\.(1|desktop|metainfo)|icons/|bin/tallix$", file)], [])
        tests = run("ctest", "--test-dir", build, "-N")
        for name in ("engine-parser", "format", "terminal"):
            self.assertRegex(tests, rf"(?m): {name}$")
        self.assertNotRegex(tests, r"(?m): (app|ui-document|end-to-end)$")


if __name__ == "__main__":
    unittest.main(verbosity=2)
