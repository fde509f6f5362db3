"""Ports in the program with its window: one that is named by its device, what is remembered of a program that is
killed, and a second program."""

import configparser
import os
import subprocess
import unittest

from desktop import PATIENCE, Desktop, wait_for
from programs import PLAIN, Simulator, description
from window_case import WINDOW, WindowCase

TABS_TO_THE_INTERVAL = 2  # steps of the tabulator from the list of sent frames


class PortTest(WindowCase):
    def setUp(self):
        super().setUp()
        self.adapter = self.scratch / "adapter"

    def simulate(self):
        """An instrument behind the adapter, whatever pseudo-terminal it has got."""
        self.adapter.unlink(missing_ok=True)
        return Simulator(self.scratch, description(PLAIN[2]), "--link", self.adapter)

    def values(self, section):
        parser = configparser.ConfigParser(interpolation=None, strict=False)
        parser.optionxform = str
        parser.read(self.settings, encoding="utf-8")
        return dict(parser[section]) if parser.has_section(section) else {}

    def test_typed_device_and_interval_outlast_a_program_that_is_killed(self):
        self.store(SoftSeting="5 1 16 0 0 1", CommPort="9600,N,8,1 COM1")
        with Desktop() as desktop, self.simulate():
            program = self.start(desktop, "/dev/no-such-device")
            desktop.window(program)
            desktop.press("ctrl+2", "ctrl+a")
            desktop.type(f"COM9={self.adapter}")
            desktop.press("Return", "ctrl+1", "F6", *["Tab"] * TABS_TO_THE_INTERVAL, "ctrl+a")
            desktop.type("7")
            wait_for(lambda: self.values("Window").get("Interval") == "7", "the interval in the settings")
            program.kill()
            program.wait()
            self.assertEqual(self.values("Ports"), {"COM9": str(self.adapter)})
            self.assertEqual(self.stored()["CommPort"], '9600,N,8,1 COM9')

            program = self.start(desktop, "/dev/no-such-device")
            desktop.window(program)
            self.tick_with_the_keyboard(desktop)
            desktop.press("F5")
            wait_for(lambda: len(self.records()) >= 2, "100 exchanges over the named device")
            desktop.press("F5", "ctrl+q")
            self.assertEqual(program.wait(PATIENCE), 0)
        self.assertEqual(self.stored()["SoftSeting"], "7 1 16 0 0 1")

    def test_second_start_raises_the_first_window_behind_its_message(self):
        with Desktop() as desktop:
            first = self.start(desktop, "/dev/no-such-device")
            window = desktop.window(first)
            desktop.do("windowminimize", "--sync", window)
            second = self.start(desktop, "/dev/no-such-device")
            desktop.window(second)
            self.assertNotEqual(desktop.active(), window)
            wait_for(lambda: second.poll() is not None or desktop.press("Return"), "the end of the message")
            self.assertEqual(second.returncode, 0)
            wait_for(lambda: desktop.active() == window, "the first window")
            desktop.press("ctrl+q")
            self.assertEqual(first.wait(PATIENCE), 0)

    def test_help_and_version_need_no_display(self):
        without = {key: value for key, value in os.environ.items() if key not in ("DISPLAY", "WAYLAND_DISPLAY")}
        for option, beginning in (("--help", "用法："), ("--version", "commtest ")):
            run = subprocess.run([WINDOW, option], env=without | {"QT_QPA_PLATFORM": "xcb"}, capture_output=True,
                                 encoding="utf-8", check=False)
            self.assertEqual((run.returncode, run.stderr), (0, ""))
            self.assertTrue(run.stdout.startswith(beginning), run.stdout)


if __name__ == "__main__":
    unittest.main()
