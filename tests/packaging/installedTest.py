"""What `cmake --install` leaves, in a prefix that was moved afterwards. TALLIX_BUILD says in which folder Tallix was built."""

import configparser
import os
import pathlib
import re
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
# Fields, const functions without arguments, setters of one value and defaulted operators.
NEEDS_NO_WORDS = re.compile(r": warning: Member (\w+ \(variable\)|\w+\(\) const \(function\)|set[A-Z]\w*\([^(),]+\) \(function\)"
                            r"|operator\S+\(.*\) (const )?=default \(function\)) of [\w: ]+ is not documented\.$")
PNG_SIZES = (16, 22, 24, 32, 48, 64, 128, 256)


def setUpModule():
    global FOLDER, PREFIX
    FOLDER = pathlib.Path(unittest.enterModuleContext(tempfile.TemporaryDirectory(prefix="tallix-installed-")))
    # What is started here meets no program of the user's.
    (FOLDER / "run").mkdir(mode=0o700)
    os.environ["XDG_RUNTIME_DIR"] = str(FOLDER / "run")
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
            self.assert_look_alike(FOLDER / "made" / name, PREFIX / "share/icons/hicolor" / name)

    def test_are_those_that_were_looked_at(self):
        run(ROOT / "scripts/icons", "--sheet", FOLDER / "sheet.png")
        self.assert_look_alike(FOLDER / "sheet.png", ROOT / "docs/screenshots/icons.png")

    def assert_look_alike(self, first, second):
        difference = subprocess.run(["compare", "-metric", "AE", "-fuzz", "2%", first, second, "null:"], capture_output=True,
                                    text=True, check=False)
        self.assertEqual((difference.returncode, difference.stderr), (0, "0"), second.name)


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
        self.assertEqual(self.opened.read_text(), (PREFIX / GUIDE).as_uri() + "\n")
        self.assertEqual((PREFIX / GUIDE).read_bytes()[:5], b"%PDF-")


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
        settings = (ROOT / "docs/Doxyfile").read_text() + f'OUTPUT_DIRECTORY = "{output}"\nWARN_IF_UNDOCUMENTED = YES\n'
        warnings = run("doxygen", "-", cwd=ROOT, input=settings).splitlines()
        self.assertGreater(len(warnings), 100)  # Their names say what accessors and fields are.
        self.assertEqual([warning for warning in warnings if not NEEDS_NO_WORDS.search(warning)], [])
        self.assertTrue((output / "html/classTXEquationController.html").exists())

    def asked_for(self, *wishes):
        """Which of some wishes find_package grants."""
        project = FOLDER / f"asked for {wishes[0]}"
        project.mkdir()
        lines = ["cmake_minimum_required(VERSION 3.25)", "project(Other LANGUAGES CXX)"]
        for wish in wishes:
            lines += [f"find_package(Tallix {wish} QUIET)", f'message(STATUS "{wish}: ${{Tallix_FOUND}}")']
        (project / "CMakeLists.txt").write_text("\n".join(lines) + "\n")
        output = run("cmake", "-S", project, "-B", project / "build", f"-DCMAKE_PREFIX_PATH={PREFIX}")
        return [wish for wish in wishes if f"-- {wish}: 1\n" in output]

    def test_another_minor_version_is_refused(self):
        major, minor, _ = (int(part) for part in run(installed("tallix-cli"), "--version").split()[1].split("."))
        # Before 1.0 a minor version may take something away.
        self.assertEqual(major, 0)
        versions = [f"{major}.{minor + step}" for step in (-1, 0, 1)]
        self.assertEqual(self.asked_for(*versions), [versions[1]])

    def test_another_component_is_refused(self):
        self.assertEqual(self.asked_for("COMPONENTS engine format", "COMPONENTS engine bogus", "OPTIONAL_COMPONENTS bogus"),
                         ["COMPONENTS engine format", "OPTIONAL_COMPONENTS bogus"])


def configured(name, *options):
    """A build folder of its own, without anything built."""
    build = FOLDER / name
    run("cmake", "-S", ROOT, "-B", build, "-G", "Ninja", *options, "--no-warn-unused-cli")
    return build


class WithoutTests(unittest.TestCase):
    """A build as users make it."""

    def test_makes_all_that_is_installed(self):
        build = configured("without-tests", "-DBUILD_TESTING=OFF", "-DCMAKE_BUILD_TYPE=Release")
        made = {build / path for path in re.findall(r'label="([^"]*)"', run("ninja", "-C", build, "-t", "graph", "all"))}
        scripts = "".join(path.read_text() for path in build.rglob("cmake_install.cmake"))
        installed_files = {pathlib.Path(path) for path in re.findall(rf'"({re.escape(str(build))}/[^"$]*)"', scripts)}
        self.assertLessEqual({build / "bin/tallix", build / "bin/tallix-cli", build / GUIDE}, installed_files)
        # What is there from the beginning was written by the configuration.
        self.assertEqual([path for path in installed_files if path not in made and not path.exists()], [])

    def test_takes_a_guide_that_was_rendered_before(self):
        guide = FOLDER / "user-guide.pdf"
        guide.write_bytes(b"%PDF-rendered before")
        build = configured("rendered-before", "-DBUILD_TESTING=OFF", f"-DTALLIX_RENDERED_GUIDE={guide}")
        run("cmake", "--build", build, "--target", "guide")
        run("cmake", "--install", build / "docs/guide", "--prefix", FOLDER / "rendered-before-prefix")
        self.assertEqual((FOLDER / "rendered-before-prefix" / GUIDE).read_bytes(), guide.read_bytes())


class WithoutQt(unittest.TestCase):
    """A build for machines without a display, optimized for nothing but the time it takes itself."""

    def test_has_the_libraries_the_terminal_program_and_their_tests(self):
        build = configured("without-qt", "-DTALLIX_BUILD_UI=OFF", "-DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON",
                           "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0")
        run("cmake", "--build", build, "--target", "programs", "tallix-tests-format", "tallix-tests-engine-parser")
        self.check_files(build)
        self.check_tests(build)

    def check_files(self, build):
        prefix = FOLDER / "without-qt-prefix"
        run("cmake", "--install", build, "--prefix", prefix)
        self.assertEqual(run(prefix / "bin/tallix-cli", "2+3*4"), "14\n")
        files = {str(path.relative_to(prefix)) for path in prefix.rglob("*") if path.is_file()}
        self.assertLessEqual({"lib/libtallix_engine.a", "lib/libtallix_format.a", "share/man/man1/tallix-cli.1"}, files)
        foreign = r"tallix\.(1|desktop|metainfo)|icons/|bin/tallix$|\.pdf$"
        self.assertEqual([file for file in files if re.search(foreign, file)], [])

    def check_tests(self, build):
        listed = run("ctest", "--test-dir", build, "-N")
        for name in ("engine-records", "engine-controller", "engine-parser", "engine-calculator", "format", "terminal"):
            self.assertRegex(listed, rf"(?m): {name}$")
        self.assertNotRegex(listed, r"(?m): (app|ui-document|end-to-end|guide)$")
        self.assertIn("100% tests passed, 0 tests failed out of 2\n",
                      run("ctest", "--test-dir", build, "-R", "^(format|engine-parser)$"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
