"""What the papers say of the project is so: their links lead somewhere, what they name exists, and their commands work.

TALLIX_BUILD names the folder of the release build. No command builds anything or asks the network: what takes long is proved in a
short form, or by a test that runs it.
"""

import functools
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unicodedata
import unittest

sys.dont_write_bytecode = True
ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ["TALLIX_BUILD"])
PROGRAMS = BUILD / "bin"
sys.path.insert(0, str(ROOT / "scripts"))

from guide.examples import console_blocks  # noqa: E402

PAPERS = [*sorted(ROOT.glob("*.md")), *sorted((ROOT / "docs").rglob("*.md"))]
MANUALS = sorted((ROOT / "packaging" / "man").glob("*.in"))
GUIDE = ROOT / "docs" / "guide"
# What is no command in a fenced block; the tests of the README and of the guide try their own kinds.
OTHER_BLOCKS = {"session", "tallix", "console", "cmake"}
FENCED = re.compile(r"^```(\w*)[^\n]*\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def text_of(path):
    return path.read_text(encoding="utf-8")


def name_of(path):
    return str(path.relative_to(ROOT))


def without_blocks(text):
    return FENCED.sub("", text)


def run(*command, cwd=ROOT, **options):
    """What a command says, all of it; a failure is one of the test. Nothing here takes long."""
    environment = {**os.environ, "PATH": f"{PROGRAMS}:{os.environ['PATH']}", "QT_QPA_PLATFORM": "offscreen"}
    result = subprocess.run(command, cwd=cwd, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
                            timeout=60, **({"stdin": subprocess.DEVNULL} | options))
    output = result.stdout.decode(errors="replace")
    if result.returncode != 0:
        raise AssertionError(f"{command} ended with {result.returncode}:\n{output}")
    return output


# --- Links

def anchor_of(title):
    """The anchor that a heading has where Markdown is shown as pages."""
    plain = re.sub(r"[^\w\- ]", "", unicodedata.normalize("NFC", re.sub("[`*]", "", title)).lower())
    return plain.strip().replace(" ", "-")


def anchors_in(path):
    return {anchor_of(title) for title in re.findall(r"^#+ (.*)$", without_blocks(text_of(path)), re.MULTILINE)}


def targets_in(text):
    """All that a paper links or shows."""
    text = re.sub(r"`[^`\n]*`", "", without_blocks(text))
    return re.findall(r"\]\(([^)\s]+)", text) + re.findall(r'(?:src|srcset|href)="([^"]+)"', text)


class Links(unittest.TestCase):
    def test_lead_to_files_and_headings_that_exist(self):
        count = 0
        for paper in PAPERS:
            for target in targets_in(text_of(paper)):
                with self.subTest(paper=name_of(paper), target=target):
                    self.assertNotRegex(target, r"^\w+:", "nothing here is looked up in the network")
                    path, _, place = target.partition("#")
                    file = (paper.parent / path).resolve() if path else paper
                    self.assertTrue(file.exists())
                    if place and file.suffix == ".md":
                        self.assertIn(place, anchors_in(file))
                count += 1
        self.assertGreater(count, 40)

    def test_lead_to_every_paper(self):
        linked = {(paper.parent / target.partition("#")[0]).resolve() for paper in PAPERS for target in targets_in(text_of(paper))}
        for paper in PAPERS:
            if paper.parent != GUIDE and paper.name != "README.md":
                self.assertIn(paper, linked)


# --- Names

@functools.cache
def sources():
    """The text of all sources, in which names are looked for."""
    folders = ("app", "bench", "cmake", "engine", "examples", "format", "fuzz", "packaging", "scripts", "terminal", "tests", "ui")
    endings = {".h", ".cpp", ".py", ".ui", ".txt", ".cmake", ".in", ""}
    files = [path for folder in folders for path in (ROOT / folder).rglob("*")
             if path.is_file() and path.suffix in endings and "corpus" not in path.parts and path.parent.name != "papers"]
    return "\n".join(path.read_text(encoding="utf-8", errors="replace") for path in files)


@functools.cache
def file_names():
    folders = [path for path in ROOT.iterdir() if path.is_dir() and path.name not in ("build", ".git")]
    return {path.name for folder in [ROOT, *folders] for path in (folder.glob("*") if folder == ROOT else folder.rglob("*"))}


def names_in(paper):
    return re.findall(r"`([^`\n]+)`", without_blocks(text_of(paper)))


class Names(unittest.TestCase):
    """What ARCHITECTURE.md and CONTRIBUTING.md call by name."""

    PAPERS = (ROOT / "ARCHITECTURE.md", ROOT / "CONTRIBUTING.md")
    FILE = re.compile(r"[\w./-]*/[\w.-]*|[\w-]+\.(?:cpp|h|ui|md|py|txt|in|dict)|\.clang-\w+")
    PART = re.compile(r"_[a-z]\w+")  # of a class that has several files
    WORD = re.compile(r"(\w+)(?:::(\w+))?")

    def test_of_files_exist(self):
        named = [(paper, name) for paper in self.PAPERS for name in names_in(paper)
                 if self.FILE.fullmatch(name) and not name.startswith(("./", "build/", "lib/")) and "NAME" not in name]
        self.assertGreater(len(named), 30)
        for paper, name in named:
            with self.subTest(paper=paper.name, name=name):
                is_there = (ROOT / name).exists() if "/" in name else name in file_names() or (ROOT / name).exists()
                self.assertTrue(is_there)

    def test_of_parts_of_a_class_are_files(self):
        for name in names_in(ROOT / "ARCHITECTURE.md"):
            if self.PART.fullmatch(name):
                with self.subTest(name):
                    self.assertTrue(any(file.endswith(f"{name}.cpp") for file in file_names()))

    def test_of_classes_and_operations_stand_in_the_sources(self):
        named = {name for name in names_in(ROOT / "ARCHITECTURE.md")
                 if self.WORD.fullmatch(name) and re.search("^[^_]*[a-z][A-Z]|^TX|::", name)}
        self.assertGreater(len(named), 60)
        for name in sorted(named):
            with self.subTest(name):
                for word in filter(None, self.WORD.fullmatch(name).groups()):
                    self.assertTrue(re.search(rf"\b{word}\b", sources()))

    def test_the_map_has_every_folder(self):
        folders = {path.name for path in ROOT.iterdir() if path.is_dir() and not path.name.startswith(".")}
        mapped = set(re.findall(r"^\| `(\w+)/", text_of(ROOT / "README.md"), re.MULTILINE))
        self.assertEqual(mapped, folders - {"build"})

    def test_the_rooms_are_the_folders_of_the_sources(self):
        table = re.search(r"^\| room \|.*?\n\n", text_of(ROOT / "ARCHITECTURE.md"), re.MULTILINE | re.DOTALL)
        rooms = re.findall(r"^\| `([\w/]+)` \|", table[0], re.MULTILINE)
        holding = {name_of(path.parent) for folder in ("engine", "format", "terminal", "ui", "app")
                   for path in (ROOT / folder).rglob("*.h")}
        self.assertEqual(set(rooms), holding)


# --- Commands

PROGRAM = r"(?:\./(?:run|test)|scripts/[a-z][a-z-]*|tallix(?:-cli)?|tallix-(?:bench|replay|models)\S*|build/\S*/bin/\S+|cmake|ctest|doxygen|pdftoppm|valgrind|echo|git)"
COMMAND = re.compile(rf"{PROGRAM}(?: .*)?")


def commands_in(text):
    """The commands of a paper: the lines of its blocks, and what stands in a line of text as one."""
    for kind, block in FENCED.findall(text):
        if kind not in OTHER_BLOCKS:
            yield from filter(str.strip, block.replace("\\\n", " ").splitlines())
    for line in re.findall(r"^    (?! )(.*)$", without_blocks(text), re.MULTILINE):
        if COMMAND.fullmatch(line):
            yield line
    for code in re.findall(r"`([^`\n]+)`", without_blocks(text)):
        if COMMAND.fullmatch(code) and not (ROOT / code).is_dir() and not re.fullmatch(r"scripts/\S*", code) or is_script(code):
            yield code


def is_script(code):
    """Whether this is a script by itself, and not a file beside the scripts."""
    return re.fullmatch(r"scripts/[\w-]+", code) is not None and os.access(ROOT / code, os.X_OK) and (ROOT / code).is_file()


def commands_in_manual(text):
    """The examples of a manual page, without what stands for a file."""
    for block in re.findall(r"^\.EX\n(.*?)^\.EE$", text, re.MULTILINE | re.DOTALL):
        yield from block.replace(r"\-", "-").replace(r"\(aq", "'").replace(r"\(ha", "^").splitlines()


def all_commands():
    """Each command of the papers with what it is said to answer, and where it stands."""
    for paper in PAPERS + MANUALS:
        text = text_of(paper)
        for line in commands_in_manual(text) if paper in MANUALS else commands_in(text):
            command, _, said = re.sub(r"\s{2,}#?\s*", "\0", line.strip(), count=1).partition("\0")
            yield command, said, name_of(paper)
            yield from ((other, "", name_of(paper)) for other in re.findall(r"\./test \w+|scripts/[a-z]+", said))


@functools.cache
def help_of(program):
    return run(ROOT / program, "--help")


def proved_by_help(command):
    """The command's own help knows each of its words; a word in capitals stands for a value."""
    program, *words = shlex.split(command)
    text = help_of(program)
    for word in words:
        word = word.strip("[].")
        if word != "--help" and not re.fullmatch(r"[A-Z]+|\d+", word):
            assert re.search(rf"(?<![\w-]){re.escape(word)}(?![\w-])", text), f"{program} does not know {word}"


def proved_in_shell(command, said):
    """It is run as it stands, in a folder of its own that has the file which examples read."""
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "equations.txt").write_text("2+3\nans*2\n")
        output = run("sh", "-c", command, cwd=folder)
    answers = ", then ".join(output.splitlines())
    is_number = re.match(r"-?\d|\w+ = ", said)
    assert not is_number or answers == said, f"{command} answers {answers}"
    assert output, f"{command} answers nothing"


def proved_from_elsewhere(command):
    """./run, where there is nothing to build."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "scripts").mkdir()
        for script in ("install-packages", "build"):
            (folder / "scripts" / script).symlink_to(shutil.which("true"))
        (folder / "build" / "release").mkdir(parents=True)
        (folder / "build" / "release" / "bin").symlink_to(PROGRAMS)
        shutil.copy(ROOT / "run", folder)
        if command == "./run":
            command = "printf '2+3*4' | ./run"
        output = run("sh", "-c", command.replace("--terminal", "--terminal '2+3*4'"), cwd=folder)
        assert output == "14\n", output


def proved_by_test(name, *methods):
    """A test of ctest makes it, with these methods if it is one of Python."""
    def prove(_):
        assert re.search(rf": {name}$", tests_of_build(), re.MULTILINE), f"no test is called {name}"
        assert_that_exist(methods)
    return prove


def proved_by_part(name, *methods):
    """./test NAME makes it, with these methods."""
    def prove(_):
        proved_by_help(f"./test {name}")
        assert_that_exist(methods)
    return prove


def assert_that_exist(methods):
    files = "\n".join(text_of(path) for path in (ROOT / "tests").rglob("*.py"))
    for method in methods:
        assert f"    def {method}(" in files, f"no test is called {method}"


@functools.cache
def tests_of_build():
    return run("ctest", "--test-dir", BUILD, "-N")


def proved_by_preset(command):
    """There are presets of this name for all that is asked for."""
    presets = json.loads(text_of(ROOT / "CMakePresets.json"))
    kinds = {"cmake --preset": "configurePresets", "cmake --build": "buildPresets", "ctest --preset": "testPresets"}
    for part in command.split(" && "):
        kind = kinds[" ".join(part.split()[:2])]
        name = re.search(r"--preset (\S+)", part)[1]
        names = {preset["name"] for preset in presets[kind] if not preset.get("hidden")}
        assert name == "NAME" or name in names, f"no preset {name} of {kind}"
        pattern = re.search(r" -R (\S+)", part)
        assert not pattern or re.search(rf": \S*{pattern[1]}", tests_of_build()), f"no test like {pattern[1]}"


def proved_in_short(short):
    """It is run with less to do: `short` makes its words from those of the paper."""
    def prove(command):
        with tempfile.TemporaryDirectory() as folder:
            run("sh", "-c", short(command), cwd=folder)
    return prove


def with_guide(command):
    guide = BUILD / "lib/tallix/Contents/Resources/TALLIX User Guide.pdf"
    return command.replace("-r 80", "-r 10 -l 2").replace("FILE", shlex.quote(str(guide)))


# How what begins like this is proved; the first that fits counts.
PROOFS = [
    (r"\./test\b", proved_by_help),
    (r"scripts/render-guide VERSION OUTPUT", proved_by_test("guide", "test_is_the_same_file_when_it_is_rendered_again")),
    (r"scripts/", proved_by_help),
    (r"(?:echo .* \| )?\./run\b", proved_from_elsewhere),
    (r"tallix(?: --new-process)?$", proved_in_short(lambda command: command + " --help")),
    (r"tallix-cli$", proved_in_short(lambda command: command + " 1")),
    (r"tallix-cli --%", proved_by_test("terminal")),
    (r"cmake --install build/release --prefix /usr/local$", proved_by_test("installed", "test_start")),
    (r"cmake --preset |cmake --build |ctest --preset ", proved_by_preset),
    (r"doxygen docs/Doxyfile$", proved_by_test("installed", "test_doxygen_reads_the_headers_without_a_warning")),
    (r"sudo apt install \./build/package/packages/", proved_by_part("packages", "test_they_come_work_and_go")),
    (r"pdftoppm ", proved_in_short(with_guide)),
    (r"valgrind .* tallix-bench-work ", proved_in_short(lambda command: re.sub(r"\d+$", "4", command))),
    (r"tallix-bench-times ", proved_in_short(lambda command: command + " --lines=4 --benchmark_min_time=0")),
    (r"tallix-bench-memory ", proved_in_short(lambda command: re.sub(r"\d+$", "4", command))),
    (r"(?:build/\w+/bin/)?tallix-models evaluator\|formatter COUNT SEED$",
     proved_in_short(lambda _: "tallix-models evaluator 20000 7 && tallix-models formatter 20000 7")),
    (r"build/\w+/bin/tallix-replay-session PATH$",
     proved_in_short(lambda _: f"tallix-replay-session {ROOT}/fuzz/corpus/session")),
    (r"build/\w+/bin/tallix-monkey --seed \d+ --events \d+ --trace$",
     proved_in_short(lambda _: "tallix-monkey --seed 7 --events 40 --trace")),
]
# Names that stand for several programs or are only spoken of.
SPOKEN_OF = re.compile(r"tallix-(?:replay|fuzz|bench)-(?:NAME|\w+)$")


class Commands(unittest.TestCase):
    def test_do_what_the_papers_say(self):
        commands = sorted(set(all_commands()))
        self.assertGreater(len(commands), 50)
        for command, said, paper in commands:
            with self.subTest(paper=paper, command=command):
                self.prove(command, said)

    def prove(self, command, said):
        if SPOKEN_OF.match(command):
            return
        for pattern, proof in PROOFS:
            if re.match(pattern, command):
                proof(command)
                return
        # Nothing but the terminal program is run as it stands.
        self.assertRegex(command, r"^(?:(?:echo|printf) [^;&>]*\| )?tallix(?:-cli)?(?: [^;&>|]*)?$", "this kind of command has no proof")
        proved_in_shell(command, said)

    def test_of_the_guide_are_those_that_its_own_test_runs(self):
        for chapter in GUIDE.glob("*.md"):
            text = text_of(chapter)
            shown = [line for kind, block in FENCED.findall(text) if kind == "console" for line in block.splitlines()
                     if line.startswith("$ ")]
            self.assertEqual(len(shown), sum(len(block) for block in console_blocks(text)), chapter.name)

    def test_every_script_tells_its_use(self):
        for script in sorted((ROOT / "scripts").iterdir()):
            if script.is_file() and os.access(script, os.X_OK):
                with self.subTest(script.name):
                    self.assertRegex(help_of(f"scripts/{script.name}"), r"(?i)usage: (?:scripts/)?" + script.name)

    def test_every_part_of_the_tests_can_be_named(self):
        parts = set(re.findall(r"^    ([a-z]+)\) echo", text_of(ROOT / "test"), re.MULTILINE))
        told = set(re.findall(r"^  ([a-z]+) ", help_of("./test"), re.MULTILINE))
        self.assertEqual(parts, told)


# --- Manual pages, settings and promises

class ManualPages(unittest.TestCase):
    def test_have_the_options_of_their_programs(self):
        for program in ("tallix", "tallix-cli"):
            page = text_of(ROOT / "packaging" / "man" / f"{program}.1.in").replace(r"\-", "-")
            options = re.findall(r"^ +(--[a-z-]+)", run(PROGRAMS / program, "--help"), re.MULTILINE)
            told = re.findall(r"^\.TP\n\.BI? (--[a-z-]+)", page, re.MULTILINE)
            self.assertEqual(told, options, program)

    def test_have_the_keys_of_the_guide(self):
        keys = text_of(GUIDE / "13-keyboard-shortcuts.md")
        page = text_of(ROOT / "packaging" / "man" / "tallix.1.in").partition(".SH KEYS")[2].partition(".SH EXIT")[0]
        told = [key for line in re.findall(r"^\.BR? (.*)$", page, re.MULTILINE) for key in re.split(r"\s*,\\~\s*", line)]
        self.assertGreater(len(told), 5)
        for key in told:
            self.assertIn(f"`{key.strip()}`", keys)

    def test_are_read_without_a_warning(self):
        for page in MANUALS:
            text = re.sub("@TALLIX_WEBSITE@", "https://tallix.example", text_of(page))
            with tempfile.NamedTemporaryFile("w", suffix=".1") as file:
                file.write(text.replace("@PROJECT_VERSION@", "0"))
                file.flush()
                self.assertNotIn("warning", run("groff", "-man", "-ww", "-Tutf8", "-z", file.name), page.name)


class Security(unittest.TestCase):
    def test_no_source_speaks_to_the_network(self):
        own = "\n".join(text_of(path) for folder in ("engine", "format", "terminal", "ui", "app")
                        for path in (ROOT / folder).rglob("*") if path.suffix in {".h", ".cpp"})
        self.assertNotRegex(own, r"QTcp|QUdp|QSsl|QNetworkAccess|QNetworkRequest|AF_INET|getaddrinfo|<net(?:db|inet)")

    def test_the_packages_are_hardened(self):
        flags = text_of(ROOT / "CMakePresets.json") + text_of(ROOT / "cmake" / "TallixOptions.cmake")
        for flag in ("_FORTIFY_SOURCE=", "-fstack-protector-strong", "-z,relro", "-z,now"):
            self.assertIn(flag, flags)

    def test_the_flatpak_has_neither_network_nor_files(self):
        manifest = text_of(ROOT / "packaging" / "flatpak" / "org.tallix.tallix.yaml")
        self.assertNotRegex(manifest, r"--share=network|--filesystem")


if __name__ == "__main__":
    unittest.main()
