"""Settings that the program does not know outlive a session."""

import unittest

from desktop import PATIENCE, Desktop
from window_case import WindowCase

OF_ANOTHER_PROGRAM = """[SystemSetting]
ConMeterAddr="7"
KnownToNobody="kept"

[Ports]
COM5=/dev/ttyS4

[Future]
Words=@ByteArray(a b)
Number=3
"""


class SettingsTest(WindowCase):
    def test_keys_and_sections_of_a_newer_program_are_kept(self):
        self.settings.write_text(OF_ANOTHER_PROGRAM, encoding="utf-8")
        with Desktop() as desktop:
            process = self.start(desktop, "/dev/no-such-device")
            desktop.window(process)
            desktop.press("ctrl+q")
            self.assertEqual(process.wait(PATIENCE), 0)
        lines = self.settings.read_text(encoding="utf-8").splitlines()
        self.assertGreater(len(lines), len(OF_ANOTHER_PROGRAM.splitlines()))  # it has stored its own
        for line in ("KnownToNobody=kept", "COM5=/dev/ttyS4", "[Future]", "Words=@ByteArray(a b)", "Number=3"):
            self.assertIn(line, [line.replace('"', "") for line in lines])


if __name__ == "__main__":
    unittest.main()
