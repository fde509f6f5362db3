"""Every command of the guide does what the guide says, in a home of its own and with a simulated instrument."""

import os
import re
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from desktop import Desktop
from guide import GUIDE, LANGUAGES, ROOT, blocks, calls, pages
from programs import CLI, PATIENCE, SIMULATOR, Simulator
from window_case import WINDOW

sys.path.insert(0, str(ROOT / "tests/support"))
from private_server import PrivateServer  # noqa: E402

INDICATOR = ROOT / "data/simulator/indicator.txt"

# Both languages have the same commands: guide_test sees to it.
PAGES = pages("zh")

# What stands in the place of what only the reader's machine has.
PLACES = {
    "/dev/ttyUSB0": "{scratch}/ttyUSB0",  # the simulated instrument
    "/tmp/line": "{scratch}/line",
    "/usr/share/commtest/simulator": str(INDICATOR.parent),
    "--until 06:30": "--seconds 1",  # a test is no night
    "--to 32": "--to 2",  # an address without an instrument takes a second
}

NOT_RUN = {
    'sudo usermod -aG dialout "$USER"\n': "changes the groups of this machine; rights_test tries what it is for",
}


def commands(page):
    """The commands of a page, each with the lines that it is said to print."""
    found = []
    for language, text in blocks(page):
        if language == "sh":
            found.append((text, []))
        elif language == "text":
            found[-1][1].extend(text.splitlines())
    return found


def is_of_the_window(command):
    return command.startswith("commtest ")


class Home:
    """A user's home with the programs on the path, and an instrument at its port."""

    def __init__(self, folder):
        self.folder = Path(folder)
        programs = self.folder / "programs"
        programs.mkdir()
        for name, program in (("commtest", WINDOW), ("commtest-cli", CLI), ("instrument-simulator", SIMULATOR)):
            (programs / name).symlink_to(program)
        self.environment = {**os.environ, "PATH": f"{programs}:{os.environ['PATH']}", "HOME": str(self.folder),
                            "XDG_RUNTIME_DIR": str(self.folder), "XDG_CONFIG_HOME": str(self.folder)}
        self.environment.pop("XDG_DATA_HOME", None)

    def here(self, command):
        for place, own in PLACES.items():
            command = command.replace(place, own.format(scratch=self.folder))
        return ["bash", "-euo", "pipefail", "-c", command]

    def run(self, command):
        """Exit status and output; what the command leaves behind is ended."""
        output = self.folder / "output.txt"
        with open(output, "wb") as file:
            process = subprocess.Popen(self.here(command), cwd=self.folder, env=self.environment, stdout=file,
                                       stderr=file, stdin=subprocess.DEVNULL, start_new_session=True)
        try:
            status = process.wait(PATIENCE)
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
        return status, output.read_text(encoding="utf-8")

    def show(self, desktop, command):
        """Starts the window, waits until it is there and leaves it by its key: the exit status."""
        words = self.here("exec " + command)
        screen = {name: desktop.environment[name] for name in ("DISPLAY", "QT_QPA_PLATFORM")}
        program = subprocess.Popen(words, cwd=self.folder, env={**self.environment, **screen})
        try:
            desktop.window(program)
            desktop.press("ctrl+q")
            return program.wait(PATIENCE)
        finally:
            program.kill()
            program.wait()


class GuideCommandsTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        self.addCleanup(scratch.cleanup)
        self.home = Home(scratch.name)

    def follow(self, page):
        """Runs the commands of the page one after the other, as its reader does, but for the window's."""
        for command, lines in commands(page):
            if command in NOT_RUN or is_of_the_window(command):
                continue
            with self.subTest(page=page.name, command=command):
                status, output = self.home.run(command)
                self.assertEqual(status, 0, output)
                self.find(lines, output)

    def find(self, lines, output):
        """Each line, in their order; … stands for anything."""
        printed = iter([" ".join(line.split()) for line in output.splitlines()])
        for line in lines:
            pattern = ".*".join(map(re.escape, " ".join(line.split()).split("…")))
            self.assertTrue(any(re.fullmatch(pattern, one) for one in printed), f"{line}\nin\n{output}")

    def test_the_commands_of_each_page_do_what_it_says(self):
        description = INDICATOR.read_text(encoding="utf-8")
        with Simulator(self.home.folder, description, "--link", self.home.folder / "ttyUSB0"):
            for page in PAGES:
                if page.name != "server.md":
                    self.follow(page)

    def test_the_commands_of_the_page_of_the_server_do_what_it_says(self):
        server = PrivateServer()
        self.addCleanup(server.end)
        self.home.environment |= server.environment
        folder = self.home.folder / ".local/share/CommTest"
        self.home.run("commtest-cli catalogue create ~/.local/share/CommTest")
        (folder / "Setup.ini").write_text(server.setup_ini(), encoding="utf-8")
        self.home.run("commtest-cli catalogue create --server")
        self.follow(GUIDE / "zh/server.md")
        self.assertEqual((folder / "Setup.ini").stat().st_mode & 0o777, 0o600)

    def test_the_window_opens_as_the_guide_starts_it(self):
        starts = [command for page in PAGES for command, _ in commands(page) if is_of_the_window(command)]
        self.assertGreaterEqual(len(starts), 4)
        self.home.run("commtest-cli catalogue create bench")
        with Desktop() as desktop:
            for command in starts:
                with self.subTest(command=command):
                    self.assertEqual(self.home.show(desktop, command), 0)

    def test_a_call_within_a_line_is_one_that_the_program_knows(self):
        found = {call for language in LANGUAGES for page in pages(language) for call in calls(page)}
        self.assertIn("commtest-cli catalogue restore", found)
        for call in found:
            with self.subTest(call=call):
                status, output = self.home.run(call.removesuffix(" --help") + " --help")
                self.assertEqual(status, 0, output)
                for word in call.split()[1:]:
                    self.assertRegex(output, rf"(?<![\w-]){word}(?![\w-])")

    def test_what_is_not_run_stands_in_the_guide(self):
        known = {command for page in PAGES for command, _ in commands(page)}
        self.assertEqual(set(NOT_RUN) - known, set())


if __name__ == "__main__":
    unittest.main()
