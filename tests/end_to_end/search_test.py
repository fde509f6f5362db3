"""Searching: a bus of instruments at addresses and rates of their own."""

import csv
import io
import signal
import subprocess
import time
import unittest

from programs import CLI, CommandLineTest, Simulator
from terminal_test import Terminal

VALUE = "(0) value | 0010 | 2 | D | 0020"

# Address, rate, delay, manner.
SIX = [(1, 9600, "", ""), (2, 19200, "", ""), (3, 9600, 600, ""), (4, 9600, "", "garbage"), (5, 19200, "", ""),
       (6, 28800, "", "")]


def bus(instruments):
    return "".join(f"11000101 | no {address} | {address} | | {rate} | {delay} | {manner}\n{VALUE}\n"
                   for address, rate, delay, manner in instruments)


class SearchTest(CommandLineTest):
    def start_search(self, device, *options, **streams):
        streams = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, "encoding": "utf-8"} | streams
        return subprocess.Popen([CLI, "search", "--folder", self.folder, "--port", f"COM1={device}",
                                 *map(str, options)], **streams)

    def search(self, device, *options):
        return self.finish(self.start_search(device, *options))

    def test_six_instruments_are_found_at_their_rates(self):
        with Simulator(self.outer.name, bus(SIX)) as simulator:
            run = self.search(simulator.device, "--from", 1, "--to", 6, "--baud", "9600,19200,28800", "--format",
                              "json")
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertEqual([(hit["baud"], hit["address"], hit["checkWord"]) for hit in run.json],
                         [(9600, 1, "right"), (9600, 3, "right"), (9600, 4, "wrong"), (19200, 2, "right"),
                          (19200, 5, "right"), (28800, 6, "right")])
        slow = run.json[1]
        self.assertTrue(600 <= slow["replyTime"] < 1200, slow)
        self.assertEqual(run.json[0]["firstBytes"], "40 30 31 52 44 31 37 0D")
        self.assertEqual(simulator.counts["requests"], 6)
        self.assertEqual(simulator.counts["ignored_frames"], 12)

    def test_rates_between_are_searched_as_the_window_does_or_not(self):
        between = bus([(2, 4800, "", ""), (2, 9600, "", "")])
        for options, rates in (((), ["9600"]), (("--as-window",), ["4800", "9600"])):
            with self.subTest(options), Simulator(self.outer.name, between) as simulator:
                run = self.search(simulator.device, "--from", 2, "--to", 2, "--baud", "2400,9600", *options,
                                  "--format", "csv")
                rows = list(csv.DictReader(io.StringIO(run.output)))
                self.assertEqual([row["baud"] for row in rows], rates)

    def test_nothing_found_is_status_1(self):
        with Simulator(self.outer.name, bus(SIX[:1])) as simulator:
            run = self.search(simulator.device, "--from", 7, "--to", 7, "--format", "json")
        self.assertEqual((run.status, run.output, run.problems), (1, "[\n]\n", ""))

    def test_interrupt_prints_what_was_found(self):
        with Simulator(self.outer.name, bus(SIX)) as simulator:
            terminal = Terminal()
            process = self.start_search(simulator.device, "--from", 1, "--to", 200, "--baud", "9600,19200",
                                        stderr=terminal.slave)
            time.sleep(2)
            process.send_signal(signal.SIGINT)
            started = time.monotonic()
            output, _ = process.communicate(timeout=60)
            self.assertLess(time.monotonic() - started, 1)
        self.assertEqual(process.returncode, 0)
        self.assertRegex(output, r"(?m)^ +1 +9600 +\d+  正确    40 30 31 52 44 31 37 0D$")
        live = terminal.text()
        self.assertIn("搜索: 地址 2  波特率 9600  0 %  还需约 599 秒  已找到 1 台", live)


if __name__ == "__main__":
    unittest.main()
