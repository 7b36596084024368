"""docs/interface-checklist.md names tests and pictures that exist."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


class Checklist(unittest.TestCase):
    def setUp(self):
        self.text = (ROOT / "docs" / "interface-checklist.md").read_text()
        sources = [path for ending in ("cpp", "py") for path in (ROOT / "tests").rglob(f"*.{ending}")]
        self.tests = "\n".join(path.read_text() for path in sources)

    def exists(self, suite, name):
        if name.startswith("test_"):
            return f"class {suite}(" in self.tests and f"    def {name}(" in self.tests
        return re.search(rf"TEST(_F|_P)?\(\s*{suite},\s*{name}\)", self.tests)

    def test_its_tests_exist(self):
        named = re.findall(r"`([A-Z]\w*)\.(\w+)`", self.text)
        self.assertGreater(len(named), 100)
        self.assertEqual([f"{suite}.{name}" for suite, name in named if not self.exists(suite, name)], [])

    def test_its_pictures_exist(self):
        pictures = re.findall(r"[\w-]+\.png", self.text)
        self.assertGreater(len(pictures), 10)
        self.assertEqual([name for name in pictures if not (ROOT / "docs" / "screenshots" / name).exists()], [])


if __name__ == "__main__":
    unittest.main()
