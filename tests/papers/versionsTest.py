"""Every paper that names releases begins with the version that is built, and they agree about its day."""

import datetime
import email.utils
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


def found(pattern, path):
    """The groups of the first place in a file that the pattern fits."""
    return re.search(pattern, (ROOT / path).read_text(), re.MULTILINE).groups()


class NewestRelease(unittest.TestCase):
    VERSION, = found(r"^project\(Tallix VERSION (\S+)", "CMakeLists.txt")
    DAY = found(r"^## (\S+) \((.*)\)$", "CHANGELOG.md")[1]

    def test_is_this_version_in_the_changelog(self):
        self.assertEqual(found(r"^## (.*)$", "CHANGELOG.md"), (f"{self.VERSION} ({self.DAY})",))
        self.assertEqual(datetime.date.fromisoformat(self.DAY).isoformat(), self.DAY)

    def test_is_this_version_in_software_centres(self):
        self.assertEqual(found(r'<release version="([^"]*)" date="([^"]*)"', "packaging/org.tallix.tallix.metainfo.xml.in"),
                         (self.VERSION, self.DAY))

    def test_is_this_version_under_debian(self):
        path = "packaging/debian/changelog.in"
        revision, = found(r"^set\(revision (\S+)\)$", "packaging/debian/CMakeLists.txt")
        self.assertEqual(found(r"\Atallix \((.*)\) ", path), (f"{self.VERSION}-{revision}",))
        when, = found(r"^ -- .*  (.*)$", path)
        self.assertEqual(email.utils.parsedate_to_datetime(when).date().isoformat(), self.DAY)

    def test_is_this_version_in_the_guide(self):
        self.assertEqual(found(r"^## Version (.*)$", "docs/guide/16-release-notes.md"), (self.VERSION,))

    def test_is_what_the_readme_asks_for(self):
        self.assertEqual(found(r"find_package\(Tallix (\S+) REQUIRED\)", "README.md"), (self.VERSION.rpartition(".")[0],))


if __name__ == "__main__":
    unittest.main()
