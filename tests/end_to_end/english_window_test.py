"""The program with its window under the English face: a user polls an instrument and reads the record."""

import os
import subprocess
import unittest

from desktop import PATIENCE, Desktop, wait_for
from programs import PLAIN, Simulator, description
from window_case import WINDOW, WindowCase


class EnglishWindowTest(WindowCase):
    def poll(self, desktop, simulator, *options):
        """Polls with the record kept until the first of them is saved; gives the window's title."""
        program = self.start(desktop, simulator.device, *options)
        title = desktop.title(desktop.window(program))
        self.tick_with_the_keyboard(desktop)
        desktop.press("F5")
        wait_for(self.records, "50 exchanges")
        desktop.press("ctrl+q")
        self.assertEqual(program.wait(PATIENCE), 0)
        return title

    def test_record_is_in_english(self):
        self.store(SoftSeting="5 1 16 0 0 1", CommPort="9600,N,8,1 COM1")
        with Desktop() as desktop, Simulator(self.scratch, description(PLAIN[2])) as simulator:
            title = self.poll(desktop, simulator, "--face", "english")
        self.assertTrue(title.startswith("KERO- series instruments communication demo software V "), title)
        record = self.records()[0].read_text(encoding="ascii")
        self.assertIn(" time, to ", record)
        self.assertIn(" send: ", record)
        self.assertIn("   receive: ", record)

    def test_face_that_is_remembered_comes_without_being_named(self):
        self.store(SoftSeting="5 1 16 0 0 1", CommPort="9600,N,8,1 COM1")
        with self.settings.open("a", encoding="utf-8") as settings:
            settings.write("[Window]\nFace=english\n")
        with Desktop() as desktop, Simulator(self.scratch, description(PLAIN[2])) as simulator:
            title = self.poll(desktop, simulator)
        self.assertTrue(title.startswith("KERO- series instruments"), title)
        self.assertIn(" time, to ", self.records()[0].read_text(encoding="ascii"))

    def test_unknown_face_is_refused_in_a_line(self):
        run = subprocess.run([WINDOW, "--face", "norse", "-platform", "offscreen"], capture_output=True, text=True,
                             check=False)
        self.assertEqual((run.returncode, run.stderr.splitlines()[-1]), (2, "--face 须是 chinese 或 english"))

    def test_help_is_in_the_language_of_the_face(self):
        text = subprocess.run([WINDOW, "--face", "english", "--help"], capture_output=True, text=True, check=True).stdout
        self.assertIn("The face, by default the one chosen last.", text)

    def test_face_that_there_is_not_is_refused_without_a_display(self):
        without = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "QT_QPA_PLATFORM")}
        run = subprocess.run([WINDOW, "--face", "latin"], capture_output=True, text=True, check=False, env=without)
        self.assertEqual((run.returncode, run.stderr), (2, "--face 须是 chinese 或 english\n"))


if __name__ == "__main__":
    unittest.main()
