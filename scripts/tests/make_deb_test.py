"""What packaging/make-deb makes of the pages."""

import importlib.machinery
import importlib.util
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).parents[2] / "packaging/make-deb"


def make_deb():
    loader = importlib.machinery.SourceFileLoader("make_deb", str(SCRIPT))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("make_deb", loader))
    loader.exec_module(module)
    return module


CHANGES = """# Changes

## 1.2.0

### 2026-11-23

- New: a thing that takes so many words to tell that they stand on more than one line of the page, and of the
  other one, too.

### 2026-11-22

- Old.

## 1.1.0

### 2026-10-01

- Older.
"""


class MakeDeb(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)
        self.script = make_deb()

    def page(self, text):
        source = self.folder / "page.md"
        source.write_text(text, encoding="utf-8")
        return self.script.page_of(source)

    def changes(self, version):
        (self.folder / "CHANGELOG.md").write_text(CHANGES, encoding="utf-8")
        self.script.ROOT = self.folder
        return self.script.Changes(version)

    def test_a_page_has_its_heading_as_title_and_its_tables(self):
        title, page = self.page("# Wiring\n\n| a | b |\n|---|---|\n| 1 | 2 |\n")
        self.assertEqual(title, "Wiring")
        self.assertIn("<title>Wiring</title>", page)
        self.assertIn("<td>1</td>", page)

    def test_links_between_pages_lead_to_the_pages_in_the_package(self):
        _, page = self.page("# A\n\n[b](b.md) [c](../c.md#part) [far](https://example.org/a.md) ![p](p.png)\n")
        for link in ('href="b.html"', 'href="../c.html#part"', 'href="https://example.org/a.md"', 'src="p.png"'):
            self.assertIn(link, page)

    def test_the_changes_of_the_version_alone_are_told_as_debian_has_them(self):
        self.assertEqual(self.changes("1.2.0").as_debian_has_them(), (
            "commtest (1.2.0) unstable; urgency=medium\n\n"
            "  * New: a thing that takes so many words to tell that they stand on more than\n"
            "    one line of the page, and of the other one, too.\n"
            "  * Old.\n\n"
            " -- CommTest <commtest@hengxiu.example>  Mon, 23 Nov 2026 00:00:00 +0000\n"))

    def test_a_version_of_which_nothing_is_told_is_refused(self):
        with self.assertRaisesRegex(SystemExit, "CHANGELOG.md tells nothing of 1.3.0"):
            self.changes("1.3.0")


if __name__ == "__main__":
    unittest.main()
