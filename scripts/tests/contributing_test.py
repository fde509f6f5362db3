"""What CONTRIBUTING.md names stands where it says."""

import re
import unittest
from pathlib import Path

ROOT = Path(__file__).parents[2]
PAGE = (ROOT / "CONTRIBUTING.md").read_text(encoding="utf-8")
FOLDERS = "data|docs|fuzz|scripts|src|tests"


class Contributing(unittest.TestCase):
    def test_each_path_is_there(self):
        paths = re.findall(rf"(?<![\w/])(?:{FOLDERS})/[\w./*-]*[\w*]", PAGE)
        self.assertGreater(len(paths), 20)
        for path in paths:
            self.assertTrue(list(ROOT.glob(path)), path)

    def test_the_row_that_it_shows_is_that_of_the_table(self):
        table = (ROOT / "src/protocol_special/special_protocols.cpp").read_text(encoding="utf-8")
        shown = re.findall(r"^    (meter\..*)$", PAGE, re.MULTILINE)
        self.assertEqual(shown, re.findall(r"^    (meter\..*)$", table, re.MULTILINE))


if __name__ == "__main__":
    unittest.main()
