"""The program with its window on a desktop: a user polls an instrument, writes a value and leaves, all by the
keyboard."""

import json
import subprocess
import unittest

from desktop import PATIENCE, Desktop, wait_for
from programs import CLI, NOVAX, PLAIN, Simulator, description
from window_case import WindowCase

DELAY = 22  # row of AL1报警延时, one byte
WRITTEN = "@01W100312A16"  # 42 to this row; 16 is the exclusive or of the characters behind "@"
TAKEN = "@01##01"
UPPER_LIMIT = 12  # row of 上限报警值 of the NOVAX instrument


class WindowTest(WindowCase):
    def test_session_by_the_keyboard(self):
        self.store(SoftSeting="5 1 16 0 0 1", CommPort="9600,N,8,1 COM1")
        with Desktop() as desktop, Simulator(self.scratch, description(PLAIN[2]), "--drop", "0.02",
                                             "--corrupt", "0.02") as simulator:
            program = self.start(desktop, simulator.device)
            desktop.window(program)
            self.tick_with_the_keyboard(desktop)
            desktop.press("F5")
            wait_for(lambda: len(self.records()) >= 4, "200 exchanges")

            self.write_until_taken(desktop)
            desktop.press("F5")
            desktop.press("ctrl+q")
            self.assertEqual(program.wait(PATIENCE), 0)
            self.check_written_value(simulator)

        self.assertEqual(self.stored(), {"ShowType": "1", "CommPort": "9600,N,8,1 COM1", "SoftSeting": "5 1 16 0 0 1"})
        self.check_error_file()
        self.check_record()
        self.assertGreaterEqual(simulator.counts["writes_accepted"], 1)

    def test_special_instrument_is_chosen_polled_and_written(self):
        """NOVAX stands third from the end of the list of protocols."""
        self.store(SoftSeting="5 1 16 0 0 1", CommPort="9600,N,8,1 COM1")
        with Desktop() as desktop, Simulator(self.scratch, description(NOVAX[2])) as simulator:
            program = self.start(desktop, simulator.device)
            desktop.window(program)
            desktop.press("shift+F6", "End", "Return")
            for _ in range(2):
                desktop.press("shift+F6", "Up", "Return")
            self.tick_with_the_keyboard(desktop)
            desktop.press("F5")
            wait_for(lambda: len(self.records()) >= 2, "100 exchanges")
            desktop.press("ctrl+1", "ctrl+Home", *["Down"] * (UPPER_LIMIT - 1), "End", "F2")
            desktop.type("123.4")
            desktop.press("Return")
            known = len(self.records())
            wait_for(lambda: len(self.records()) > known + 1, "exchanges behind the write")
            desktop.press("ctrl+q")
            self.assertEqual(program.wait(PATIENCE), 0)
        # Parameter 12 takes 04D2; 1200 + 04D2 + 43 + 1.
        texts = "".join(record.read_text(encoding="ascii") for record in self.records())
        self.assertIn("81 81 43 12 D2 04 16 17", texts)
        self.assertIn("07 00 07 00 07 07 D2 04", texts)
        self.assertEqual((simulator.counts["writes_accepted"], simulator.counts["ignored_frames"]), (1, 0))

    def test_first_start_tries_the_simulated_instrument(self):
        """The steps stand in the place of the record, behind the grid and the strip. The trial is not stored."""
        self.store(SoftSeting="5 7 16 3 0 1", CommPort="9600,N,8,1 COM1")
        with Desktop() as desktop:
            program = self.start(desktop, self.scratch / "no-device")
            desktop.window(program)
            self.tick_with_the_keyboard(desktop)
            desktop.press("ctrl+1", "F6", "F6", "Tab", "Tab", "Tab", "space")
            wait_for(lambda: len(self.records()) >= 2, "100 exchanges")
            desktop.press("ctrl+q")
            self.assertEqual(program.wait(PATIENCE), 0)
        self.assertIn("@01", self.records()[0].read_text(encoding="ascii"))
        self.assertEqual(self.stored()["SoftSeting"], "5 7 16 3 0 1")

    def write_until_taken(self, desktop):
        """Edits the cell of the row; the line is faulty, so the one write may be lost. The editor stops the session,
        Enter goes on with it."""
        for _ in range(5):
            known = len(self.records())
            desktop.press("ctrl+1", "ctrl+Home", *["Down"] * (DELAY - 1), "End", "F2")
            desktop.type("42")
            desktop.press("Return")
            wait_for(lambda: len(self.records()) > known + 1, "exchanges behind the write")
            if any(TAKEN in record.read_text(encoding="ascii") for record in self.records()):
                return
        self.fail("no write was taken")

    def check_error_file(self):
        text = (self.folder / "ErrorComm.ini").read_bytes().decode("gb18030")
        *failures, rest = text.split("        串口设置: 9600,N,8,1\r\n\r\n")
        self.assertEqual(rest, "")
        self.assertGreater(len(failures), 0)
        for record in failures:
            self.assertRegex(record, r"^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d第 \d+ 次, 向 HX-D10智能数字显示控制仪 发送: ")

    def check_record(self):
        texts = [record.read_text(encoding="ascii") for record in self.records()]
        for text in texts:
            self.assertTrue(text.startswith("{\\rtf1"))
            self.assertIn("HX-D10", text)
        self.assertTrue(any(WRITTEN in text for text in texts))

    def check_written_value(self, simulator):
        protocol, name, _ = PLAIN
        poll = subprocess.run([CLI, "poll", "--folder", self.folder, "--protocol", protocol, "--instrument", name,
                               "--port", f"COM1={simulator.device}", "--interval", "0", "--exchanges", "20",
                               "--format", "json"], check=True, capture_output=True, text=True)
        row = next(row for row in json.loads(poll.stdout)["parameters"] if row["row"] == DELAY)
        self.assertEqual(row["scaledValue"], "42")


if __name__ == "__main__":
    unittest.main()
