"""What the user guide says is what the programs do.

TALLIX_CLI_PROGRAM names the terminal program, TALLIX_GUIDE the guide as it was rendered, and TALLIX_GUIDE_PYTHON what rendered it.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))

from guide import examples  # noqa: E402

PROGRAM = os.environ["TALLIX_CLI_PROGRAM"]
CHAPTERS = sorted((ROOT / "docs" / "guide").glob("*.md"))
TEXTS = {path.name: path.read_text(encoding="utf-8") for path in CHAPTERS}


def chapter(name):
    """The text of the chapter whose file name ends like this."""
    return next(text for file, text in TEXTS.items() if file.endswith(f"-{name}.md"))


def history_of(session):
    """What the history shows when a session's lines are entered."""
    typed = "".join(line.typed + "\n" for line in session.lines)
    return subprocess.run([PROGRAM, "--history", *session.arguments], input=typed, capture_output=True, text=True,
                          encoding="utf-8", check=False).stdout


def expected_history(session):
    """What the guide says that the history shows."""
    return "\n".join(f"{line.kept}\n\t{line.answer}\n" for line in session.lines)


class Examples(unittest.TestCase):
    def check(self, sessions_of):
        count = 0
        for file, text in TEXTS.items():
            for session in sessions_of(text):
                with self.subTest(file=file, first=session.lines[0].typed, arguments=session.arguments):
                    self.assertEqual(history_of(session), expected_history(session))
                count += len(session.lines)
        return count

    def test_sessions_give_the_answers_shown(self):
        self.assertGreater(self.check(examples.sessions_in_blocks), 60)

    def test_tables_give_the_answers_shown(self):
        self.assertGreater(self.check(examples.sessions_in_tables), 150)

    def test_commands_write_what_is_shown(self):
        environment = dict(os.environ, PATH=f"{pathlib.Path(PROGRAM).parent}:{os.environ['PATH']}")
        count = 0
        for file, text in TEXTS.items():
            for block in examples.console_blocks(text):
                with tempfile.TemporaryDirectory() as folder:
                    for command, output in block:
                        with self.subTest(file=file, command=command):
                            run = subprocess.run(command, shell=True, cwd=folder, env=environment, check=False,
                                                 stdout=subprocess.PIPE, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL)
                            self.assertEqual(run.stdout.decode(), output)
                        count += 1
        self.assertGreater(count, 8)

    def test_every_block_is_of_a_kind_that_is_run(self):
        for file, text in TEXTS.items():
            kinds = {kind for kind, _, _ in examples.FENCE.findall(text)}
            self.assertLessEqual(kinds, {"tallix", "console"}, file)
            self.assertEqual(text.count("```"), 2 * len(examples.FENCE.findall(text)), file)


def words_of(source, name):
    """The words of a C++ array."""
    array = re.search(name + r" = \{(.*?)\};", source, re.DOTALL)
    return re.findall(r'u"(\w+)"', array[1])


def messages():
    """What the engine and the formatter can say, by name."""
    found = {}
    for folder in ("engine", "format"):
        for header in sorted((ROOT / folder).rglob("messages.h")):
            for name, literals in re.findall(r'u16string_view (\w+) =\s*((?:u"(?:[^"\\]|\\.)*"\s*)+);', header.read_text()):
                texts = re.findall(r'u"((?:[^"\\]|\\.)*)"', literals)
                found[f"{header.parent.name}/{name}"] = "".join(texts).replace(r"\"", '"')
    return found


def pattern_of(message):
    """What a message looks like with something in place of each of its gaps."""
    return "`(?:Error: )?" + re.sub("%[@C12]", "[^`]+?", re.escape(message)) + "`"


def texts_in(source):
    """The texts of a C++ source, each as one even where it is written in parts."""
    for found in re.findall(r'(?<![R\w])((?:"(?:[^"\\\n]|\\.)*"\s*)+)', source):
        yield "".join(re.findall(r'"((?:[^"\\\n]|\\.)*)"', found)).replace(r"\"", '"')


def window_messages():
    """What the window says in alerts and while searching, a paragraph each. The About box is none."""
    found = set()
    for path in [*(ROOT / "ui").rglob("*.cpp"), *(ROOT / "app").rglob("*.cpp")]:
        source = path.read_text(encoding="utf-8").partition("void showAbout(")[0]
        sentences = [text for text in texts_in(source) if re.match(r"[A-Z].* .*[.?]$", text)]
        sentences += re.findall(r'showStatus\([^;]*?tr\("([^"]*)"', source)
        sentences += re.findall(r'showStatus\([^;]*? : tr\("([^"]*)"', source)
        found |= {paragraph for sentence in sentences for paragraph in sentence.split(r"\n\n")}
    return found


def program_messages():
    """The parts of what the programs complain of that stand in their sources."""
    found = set()
    for name in ("terminal/Options.cpp", "terminal/Program.cpp", "app/LaunchOptions.cpp"):
        source = (ROOT / name).read_text(encoding="utf-8")
        texts = texts_in(re.sub(r'R"\(.*?\)"', "", source, flags=re.DOTALL))
        found |= {text for text in texts if re.search(r"\w\w+ \w\w+", text) and "--help" not in text}
    return found


WRONG_CALLS = (["--hlep"], ["--format", "roman", "1"], ["--format=", "1"], ["--significant-figures", "0", "1"],
               ["--decimal-places", "eleven", "1"], ["--thousands", ".", "1"], ["--degrees=1", "1"], ["--format"],
               ["--decimal-places", "2", "--significant-figures", "2", "1"])


class Completeness(unittest.TestCase):
    SOURCE = (ROOT / "engine" / "controller" / "TXEquationController_tables.cpp").read_text()

    def test_every_message_is_explained(self):
        text = chapter("error-messages").replace(r"\|", "|")
        self.assertGreater(len(messages()), 55)
        for name, message in messages().items():
            with self.subTest(name):
                self.assertRegex(text, pattern_of(message))

    def test_every_message_that_is_explained_is_one(self):
        known = [re.compile(pattern_of(message)) for message in messages().values()]
        for titles, rows in examples.tables_of(chapter("error-messages")):
            column = titles.index("Error" if "Error" in titles else "Message")
            if titles == ["Message", "What to do"]:
                continue  # what the window and the programs say
            for row in rows:
                with self.subTest(row[column]):
                    self.assertTrue(any(pattern.fullmatch(row[column]) for pattern in known))

    def test_every_message_of_the_window_is_explained(self):
        self.assertGreater(len(window_messages()), 10)
        told = self.told_outside_of_equations()
        for message in window_messages():
            pattern = re.compile(pattern_of(message))
            is_quoted = f'"{message}"' in " ".join(chapter("printing-and-keeping").split())
            with self.subTest(message):
                self.assertTrue(is_quoted or any(pattern.fullmatch(f"`{text}`") for text in told))

    def test_every_complaint_of_the_programs_is_explained(self):
        self.assertGreater(len(program_messages()), 8)
        for part in program_messages():
            with self.subTest(part):
                self.assertTrue(any(part.strip() in text for text in self.told_outside_of_equations()))

    def test_every_message_of_window_and_programs_that_is_explained_is_one(self):
        said = [re.compile(pattern_of(message)) for message in window_messages()]
        parts = program_messages() | set(map(self.complaint_about, WRONG_CALLS))
        for text in self.told_outside_of_equations():
            with self.subTest(text):
                is_of_window = any(pattern.fullmatch(f"`{text}`") for pattern in said)
                self.assertTrue(is_of_window or any(self.has_form(text, part) for part in parts))

    def test_every_wrong_call_is_answered_as_told(self):
        for call in WRONG_CALLS:
            complaint = self.complaint_about(call)
            with self.subTest(complaint):
                self.assertTrue(any(self.has_form(text, complaint) for text in self.told_outside_of_equations()))

    @staticmethod
    def told_outside_of_equations():
        """The messages of window and programs that the chapter explains."""
        return [text for titles, rows in examples.tables_of(chapter("error-messages")) if titles == ["Message", "What to do"]
                for row in rows for text in re.findall("`([^`]+)`", row[0])]

    @staticmethod
    def complaint_about(call):
        run = subprocess.run([PROGRAM, *call], capture_output=True, text=True, check=False)
        assert run.returncode == 2, call
        return run.stderr.splitlines()[0].removeprefix("tallix-cli: ")

    @staticmethod
    def has_form(text, message):
        """Whether a message of the guide, which has dots in its gaps, is this one or begins with it."""
        return text.startswith(message) or re.fullmatch(re.escape(text).replace("…", ".+"), message) is not None

    def test_every_function_is_in_the_table(self):
        table = next(rows for titles, rows in examples.tables_of(chapter("functions")) if titles[0] == "Function")
        names = [examples.bare(row[0]) for row in table]
        self.assertEqual(sorted(names), sorted(words_of(self.SOURCE, "functionNames")))
        for name, row in zip(names, table, strict=True):
            self.assertTrue(name == "atan2" or examples.bare(row[4]).startswith(name + "("), row)

    def test_every_reserved_word_is_told(self):
        for word in words_of(self.SOURCE, "keywords"):
            self.assertIn(f"`{word}`", chapter("variables"))

    def test_every_option_of_the_terminal_program_is_told(self):
        helped = subprocess.run([PROGRAM, "--help"], capture_output=True, text=True, check=True).stdout
        options = re.findall(r"^  (--[a-z-]+)", helped, re.MULTILINE)
        told = [examples.bare(row[0]).split()[0] for titles, rows in examples.tables_of(chapter("terminal-program"))
                if titles[0] == "Option" for row in rows]
        self.assertEqual(told, options)

    def test_every_setting_is_told(self):
        page = (ROOT / "app" / "Preferences.ui").read_text(encoding="utf-8")
        labels = re.findall(r'class="(?:QLabel|QCheckBox)" name="(?!\w+Heading").*?<string>(.*?)</string>', page, re.DOTALL)
        settings = [label.replace("&amp;", "").rstrip(":") for label in labels]
        told = [row[0] for titles, rows in examples.tables_of(chapter("preferences")) for row in rows]
        self.assertEqual(told, settings)

    def test_chapters_are_numbered_without_a_gap(self):
        self.assertEqual([int(file.split("-")[0]) for file in TEXTS], list(range(1, len(TEXTS) + 1)))
        for file, text in TEXTS.items():
            self.assertEqual(re.findall(r"^# ", text, re.MULTILINE), ["# "], file)


class Book(unittest.TestCase):
    GUIDE = pathlib.Path(os.environ["TALLIX_GUIDE"])

    def test_says_what_it_is(self):
        data = self.GUIDE.read_bytes()
        self.assertTrue(data.startswith(b"%PDF-"))
        for entry in (b"/Title (Tallix User Guide)", b"/Author (Tallix)", b"/Subject (How to calculate with Tallix"):
            self.assertIn(entry, data)
        self.assertNotIn(b"/CreationDate", data)

    def test_has_a_page_for_each_thought_and_no_more(self):
        pages = len(re.findall(rb"/Type /Page\b", self.GUIDE.read_bytes()))
        self.assertGreaterEqual(pages, 12)
        self.assertLessEqual(pages, 25)

    def test_brings_its_fonts_along(self):
        data = self.GUIDE.read_bytes()
        described = len(re.findall(rb"/Type /FontDescriptor\b", data))
        self.assertGreater(described, 3)
        self.assertEqual(len(re.findall(rb"/FontFile[23]? \d", data)), described)

    def test_contents_lead_to_the_chapters(self):
        data = self.GUIDE.read_bytes()
        self.assertIn(b"/Outlines", data)
        for file in TEXTS:
            with self.subTest(file):
                self.assertIn(b"(" + file.removesuffix(".md").encode() + b")", data)

    def test_is_the_same_file_when_it_is_rendered_again(self):
        version = re.search(r"project\(Tallix VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())[1]
        with tempfile.TemporaryDirectory() as folder:
            again = pathlib.Path(folder) / "guide.pdf"
            subprocess.run([os.environ["TALLIX_GUIDE_PYTHON"], ROOT / "scripts" / "render-guide", version, again], check=True)
            self.assertEqual(again.read_bytes(), self.GUIDE.read_bytes())


if __name__ == "__main__":
    unittest.main()
