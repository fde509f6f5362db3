"""A port of the program with its window that is pulled out and comes back, and what needs no window."""

import os
import subprocess
import unittest

from desktop import PATIENCE, Desktop, wait_for
from programs import PLAIN, Simulator, description
from window_case import WINDOW, WindowCase


class PortTest(WindowCase):
    def setUp(self):
        super().setUp()
        self.adapter = self.scratch / "adapter"

    def simulate(self):
        """An instrument behind the adapter, whatever pseudo-terminal it has got."""
        self.adapter.unlink(missing_ok=True)
        return Simulator(self.scratch, description(PLAIN[2]), "--link", self.adapter)

    def test_pulled_port_comes_back_and_the_session_goes_on(self):
        self.store(SoftSeting="5 1 16 0 0 1", CommPort="9600,N,8,1 COM1")
        with Desktop() as desktop:
            with self.simulate() as simulator:
                program = self.start(desktop, self.adapter)
                window = desktop.window(program)
                self.tick_with_the_keyboard(desktop)
                desktop.press("F5")
                wait_for(lambda: len(self.records()) >= 2, "100 exchanges")
                simulator.pull_the_cable()
                wait_for(lambda: desktop.active() not in ("", window), "the message")
            self.adapter.unlink(missing_ok=True)
            desktop.press("Return")
            wait_for(lambda: desktop.active() == window, "the end of the message")
            with self.simulate():
                known = len(self.records())
                wait_for(lambda: self.goes_on(desktop, known), "exchanges behind the return")
                desktop.press("F5", "ctrl+q")
                self.assertEqual(program.wait(PATIENCE), 0)

    def goes_on(self, desktop, known):
        """Presses what the state line offers, which comes first in the strip; while it offers nothing, that is the
        frame sent last, which takes no text."""
        desktop.press("ctrl+1", "F6", "space")
        return len(self.records()) > known + 1

    def test_help_and_version_need_no_display(self):
        without = {key: value for key, value in os.environ.items() if key not in ("DISPLAY", "WAYLAND_DISPLAY")}
        for option, beginning in (("--help", "用法："), ("--version", "commtest ")):
            run = subprocess.run([WINDOW, option], env=without | {"QT_QPA_PLATFORM": "xcb"}, capture_output=True,
                                 encoding="utf-8", check=False)
            self.assertEqual((run.returncode, run.stderr), (0, ""))
            self.assertTrue(run.stdout.startswith(beginning), run.stdout)


if __name__ == "__main__":
    unittest.main()
