"""The manual pages tell every verb and option that the help tells."""

import re
import subprocess
import unittest
from pathlib import Path

from programs import CLI
from window_case import WINDOW

PAGES = Path(__file__).resolve().parents[2] / "packaging/man"
MANUAL = PAGES / "commtest-cli.1"


class ManualTest(unittest.TestCase):
    def test_each_option_of_each_verb_stands_in_the_manual(self):
        manual = MANUAL.read_text(encoding="utf-8")
        for verb in ("poll", "write", "list", "catalogue", "convert", "check"):
            self.assertIn(f".Ss {verb}", manual)
            text = subprocess.run([CLI, verb, "--help"], capture_output=True, encoding="utf-8", check=True).stdout
            options = re.findall(r"^  --([a-z-]+)", text, re.MULTILINE)
            self.assertIn("help", options)
            for option in options:
                self.assertRegex(manual, rf"Fl -{option}\b", f"{verb} --{option}")

    def test_each_option_of_the_window_stands_in_its_manual(self):
        manual = (PAGES / "commtest.1").read_text(encoding="utf-8")
        text = subprocess.run([WINDOW, "--help"], capture_output=True, encoding="utf-8", check=True).stdout
        options = re.findall(r"--([a-z-]+)", text)
        self.assertIn("face", options)
        for option in options:
            self.assertRegex(manual, rf"-{option}\b", option)


if __name__ == "__main__":
    unittest.main()
