"""What scripts/mutation makes of C++ text, and how it draws its sample."""

import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

from mutants.changes import changes_of, sample_of, tokens_of  # noqa: E402
from mutants.equivalents import read_equivalents  # noqa: E402

# A line, and every line that one change makes of it.
CHANGES = {
    "a comparison": ("x = a < b;", ["x = a <= b;", "x = a >= b;"]),
    "arithmetic": ("x = a % b;", ["x = a * b;"]),
    "logic": ("return a && b;", ["return a || b;"]),
    "a compound assignment": ("a += b;", ["a -= b;"]),
    "steps": ("++a, b--;", ["--a, b--;", "++a, b++;"]),
    "a sign": ("return -a;", ["return a;"]),
    "a negation": ("x = !a;", ["x = a;"]),
    "integers": ("f(0, 1, 7U, 0x7F);", ["f(1, 1, 7U, 0x7F);", "f(0, 0, 7U, 0x7F);", "f(0, 1, 8U, 0x7F);", "f(0, 1, 7U, 0x80);"]),
    "grouped digits": ("f(1'000);", ["f(1001);"]),
    "floating numbers": ("f(0.0, 2.5, 1e300);", ["f(1.0, 2.5, 1e300);", "f(0.0, (2.5 + 1), 1e300);", "f(0.0, 2.5, (1e300 * 2));"]),
    "a character": ("f(u'*');", ["f(u'+');"]),
    "a character written as an escape": (r"f(u'\u00B1');", [r"f((u'\u00B1' + 1));"]),
    "the character before the quotation mark": ("f('&');", [r"f('\'');"]),
    "words": ("f(true);", ["f(false);"]),
    "a condition": ("if (a) b();", ["if (!(a)) b();"]),
    "a condition of two": ("while (a && b) c();", ["while (!(a && b)) c();", "while (a || b) c();"]),
    "a condition behind a declaration": ("if (auto a = f(); a) b();", ["if (auto a = f(); !(a)) b();"]),
    "a condition that is one comparison": ("if (a == b) c();", ["if (a != b) c();"]),
    "a condition that is one negation": ("if (!a) b();", ["if (a) b();"]),
    "a choice": ("x = a.b(c) ? d : e;", ["x = !(a.b(c)) ? d : e;"]),
    "a choice that is returned": ("return a ? b : c;", ["return !(a) ? b : c;"]),
    "declarators": ("T* a(U& b, V&& c);", []),
    "templates": ("template <class T> std::vector<std::array<T, n>> a();", []),
    "an operator's declaration": ("bool operator==(T) const;", []),
    "comments": ("f();  // a < b, 1\n/* 2 */", []),
    "texts": ('f("1 + 2", u"a < b", R"(0 " 1)");', []),
    "directives": ("#if A > 1\nf();\n#endif", []),
    "what only a compiler sees": ("static_assert(a < 1); assert(b == 2);", []),
}  # fmt: skip


class ChangesTest(unittest.TestCase):
    def test_each_line_has_these_changes(self):
        for name, (line, expected) in CHANGES.items():
            with self.subTest(name):
                changes = changes_of("a.cpp", line)
                self.assertEqual([change.applied(line) for change in changes], expected)
                self.assertEqual([change.after for change in changes], expected)

    def test_a_change_knows_its_line_without_comments(self):
        change = changes_of("a.cpp", "// 1\n\n    f(a  +\n      b);  // 2\n")[0]
        self.assertEqual((change.line, change.before, change.after), (3, "f(a +", "f(a -"))

    def test_a_condition_over_two_lines_is_shown_as_one(self):
        change = changes_of("a.cpp", "if (a &&\n    b) {\n")[0]
        self.assertEqual((change.line, change.before, change.after), (1, "if (a && b) {", "if (!(a && b)) {"))

    def test_what_is_no_token_is_refused(self):
        self.assertRaises(ValueError, tokens_of, "a $ b")


class SampleTest(unittest.TestCase):
    changes = list(range(1000))

    def test_it_is_spread_evenly(self):
        firsts = [draw[0] for draw in sample_of(self.changes, 100, 1)]
        self.assertEqual([first // 10 for first in firsts], list(range(100)))

    def test_a_seed_gives_one_sample(self):
        self.assertEqual(sample_of(self.changes, 100, 1), sample_of(self.changes, 100, 1))
        self.assertNotEqual(sample_of(self.changes, 100, 1), sample_of(self.changes, 100, 2))

    def test_a_draw_can_be_repeated_until_its_run_is_used_up(self):
        self.assertEqual(sorted(sample_of(self.changes, 100, 1)[3]), list(range(30, 40)))

    def test_no_more_is_drawn_than_there_is(self):
        self.assertEqual(len(sample_of(self.changes, 2000, 1)), 1000)


class EquivalentsTest(unittest.TestCase):
    def read(self, text):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "list.txt")
            path.write_text(text)
            return read_equivalents(path)

    def test_an_entry_is_a_file_two_lines_and_a_reason(self):
        text = "# a list\n\na.cpp\n- if (a) {\n+ if (!(a)) {\nIt is never\nreached.\n\nb.cpp\n- f(1);\n+ f(0);\nUnused.\n"
        self.assertEqual(
            self.read(text),
            {("a.cpp", "if (a) {", "if (!(a)) {"): "It is never reached.", ("b.cpp", "f(1);", "f(0);"): "Unused."},
        )

    def test_an_entry_without_a_change_is_refused(self):
        self.assertRaises(ValueError, self.read, "a.cpp\nIt is never reached.\n")

    def test_an_entry_without_a_reason_is_refused(self):
        self.assertRaises(ValueError, self.read, "a.cpp\n- f(1);\n+ f(0);\n")


if __name__ == "__main__":
    unittest.main()
