"""What each program says of its version."""

import re
import subprocess
import unittest

from desktop import PATIENCE, Desktop, wait_for
from programs import CLI, SIMULATOR
from window_case import WINDOW, WindowCase

FACTS = re.compile(r"(?P<program>\S+) (?P<version>\d+\.\d+\.\d+)\n"
                   r"commit: (?P<commit>[0-9a-f]{12}(-dirty)?|none)\n"
                   r"toolkit: (?P<toolkit>.+)\n"
                   r"store: (?P<store>.+)\n")


def facts_of(program):
    run = subprocess.run([program, "--version"], capture_output=True, encoding="utf-8", check=True)
    return FACTS.fullmatch(run.stdout).groupdict()


class VersionTest(WindowCase):
    def test_each_program_tells_version_commit_toolkit_and_store(self):
        for program, name in ((WINDOW, "commtest"), (CLI, "commtest-cli")):
            facts = facts_of(program)
            self.assertEqual(facts["program"], name)
            self.assertRegex(facts["toolkit"], r"^Qt 6\.\d+\.\d+$")
            self.assertRegex(facts["store"], r"^SQLite 3\.\d+(\.\d+)+$")

    def test_the_simulator_stands_on_no_toolkit_and_no_store(self):
        facts = facts_of(SIMULATOR)
        self.assertEqual((facts["program"], facts["toolkit"], facts["store"]), ("instrument-simulator", "none", "none"))

    def test_the_programs_have_one_version(self):
        self.assertEqual(len({facts_of(program)["version"] for program in (WINDOW, CLI, SIMULATOR)}), 1)

    def test_the_title_of_the_window_ends_in_the_version(self):
        major, minor, revision = map(int, facts_of(WINDOW)["version"].split("."))
        with Desktop() as desktop:
            process = self.start(desktop, "/dev/no-such-device")
            ending = f" V {major}.{minor:02}.{revision:02}"
            window = desktop.window(process)
            wait_for(lambda: desktop.title(window).endswith(ending), f"the title with{ending}")
            desktop.press("ctrl+q")
            self.assertEqual(process.wait(PATIENCE), 0)


if __name__ == "__main__":
    unittest.main()
