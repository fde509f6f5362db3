"""What reaches a terminal, and how a poll ends from outside."""

import os
import pty
import re
import signal
import subprocess
import threading
import time
import unittest

from programs import PLAIN, CommandLineTest


class Terminal:
    """A terminal of 100 columns that keeps what is written to it."""

    def __init__(self):
        self.master, self.slave = pty.openpty()
        subprocess.run(["stty", "cols", "100"], stdin=self.slave, check=True)
        self.content = b""
        self.reader = threading.Thread(target=self._read)
        self.reader.start()

    def _read(self):
        while True:
            try:
                chunk = os.read(self.master, 4096)
            except OSError:
                return
            self.content += chunk

    def text(self):
        """Everything written, once the program has ended."""
        os.close(self.slave)
        self.reader.join()
        os.close(self.master)
        return self.content.decode("utf-8")


class TerminalTest(CommandLineTest):
    def test_no_control_character_of_the_line_comes_through(self):
        terminal = Terminal()
        with self.simulate("--noise", "1", "--seed", "3") as simulator:
            process = self.start("poll", simulator.device, PLAIN, "--interval", 0, "--exchanges", 60,
                                 stdout=terminal.slave, stderr=terminal.slave)
            process.wait(60)
        text = terminal.text()
        self.assertGreater(simulator.counts["noise"], 40)
        self.assertIsNotNone(re.search(r"\\1[0-9A-F]", text))
        self.assertEqual(re.findall("[\x00-\x09\x0b\x0c\x0e-\x1f\x7f-\x9f]", text), [])
        # A carriage return begins a line end of the terminal, or stands around the blanks that wipe a live line.
        self.assertEqual(re.findall(r"\r(?!\n| +\r)(?<! \r)", text), [])

    def test_statistics_live_on_a_terminal(self):
        terminal = Terminal()
        with self.simulate() as simulator:
            process = self.start("poll", simulator.device, PLAIN, "--interval", 5, "--seconds", 1.5,
                                 stderr=terminal.slave)
            output, _ = process.communicate(timeout=60)
        live = terminal.text()
        updates = re.findall("总计通讯: (\\d+) 次", live)
        self.assertGreaterEqual(len(updates), 3)
        self.assertLessEqual(len(updates), 17)
        self.assertEqual(updates, sorted(updates, key=int))
        self.assertTrue(live.endswith("\r"))
        self.assertNotIn("\r", output)

    def test_no_live_line_without_a_terminal(self):
        with self.simulate() as simulator:
            run = self.poll(simulator.device, "--seconds", 0.6)
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertNotIn("\r", run.output)

    def test_blocks_come_while_the_poll_goes_on(self):
        with self.simulate() as simulator:
            process = self.start("poll", simulator.device, PLAIN)
            first = process.stdout.readline()
            self.assertIsNone(process.poll())
            process.send_signal(signal.SIGINT)
            self.finish(process)
        self.assertTrue(first.startswith("第 1 次, 向 "))

    def test_interrupt_ends_the_poll_with_the_summary(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(number), self.simulate() as simulator:
                process = self.start("poll", simulator.device, PLAIN, "--interval", 10, "--strict")
                process.stdout.readline()
                process.send_signal(number)
                started = time.monotonic()
                run = self.finish(process)
                self.assertLess(time.monotonic() - started, 1)
                self.assertEqual((run.status, run.problems), (0, ""))
                self.assertIn("\n总计通讯: ", run.output)

    def test_interrupt_in_the_wait_for_a_reply(self):
        with self.simulate("--drop", "1") as simulator:
            process = self.start("poll", simulator.device, PLAIN, "--format", "json")
            time.sleep(0.6)
            process.send_signal(signal.SIGINT)
            run = self.finish(process)
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertEqual(run.json["statistics"]["frames"], 1)
        self.assertEqual(run.json["statistics"]["noReply"], 0)

    def test_interrupted_write_says_so(self):
        with self.simulate("--drop", "1") as simulator:
            process = self.start("write", simulator.device, PLAIN, "--row", 22, "--value", 1)
            time.sleep(0.6)
            process.send_signal(signal.SIGINT)
            run = self.finish(process)
        self.assertEqual((run.status, run.problem_lines), (1, ["已中断，不知是否写入。请用 poll 查看"]))


if __name__ == "__main__":
    unittest.main()
