"""The manual pages tell every verb and option that the help tells."""

import re
import subprocess
import unittest
from pathlib import Path

from programs import CLI, SIMULATOR
from window_case import WINDOW

MANUALS = Path(__file__).resolve().parents[2] / "packaging/man"


def output_of(*command):
    return subprocess.run(command, capture_output=True, encoding="utf-8", check=True).stdout


def manual_of(program):
    return (MANUALS / f"{program}.1").read_text(encoding="utf-8")


class ManualTest(unittest.TestCase):
    def test_each_option_of_each_verb_stands_in_the_manual(self):
        manual = manual_of("commtest-cli")
        for verb in ("poll", "write", "list", "catalogue", "convert", "check"):
            self.assertIn(f".Ss {verb}", manual)
            options = re.findall(r"^  --([a-z-]+)", output_of(CLI, verb, "--help"), re.MULTILINE)
            self.assertIn("help", options)
            for option in options:
                self.assertRegex(manual, rf"Fl -{option}\b", f"{verb} --{option}")

    def test_each_option_of_the_window_and_the_simulator_stands_in_its_manual(self):
        for program, path, least in (("commtest", WINDOW, "simulator"), ("instrument-simulator", SIMULATOR, "drop")):
            options = re.findall(r"(?<![\w-])--([a-z-]+)", output_of(path, "--help"))
            self.assertIn(least, options)
            for option in options:
                self.assertRegex(manual_of(program), rf"Fl -{option}\b", f"{program} --{option}")


if __name__ == "__main__":
    unittest.main()
