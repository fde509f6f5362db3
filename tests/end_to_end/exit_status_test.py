"""The exit status of every pair of the options that touch it, on a line with one corrupt reply or one lost port."""

import datetime
import itertools
import json
import os
import pty
import signal
import tempfile
import threading
import time
import tty
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from programs import RTU, CommandLineTest
from scripted_instrument import ScriptedInstrument, rtu_frame

GOOD = rtu_frame("0103020064")
CORRUPT = GOOD[:-1] + bytes([GOOD[-1] ^ 1])
AT_ONCE = 8  # runs, which mostly wait
MANY = 1000000  # exchanges
LONG = 1000  # seconds

ENDS = ("exchanges", "seconds", "until", "interrupt")
OTHERS = ("strict", "retries", "format", "statistics", "trace", "record on a full disk")
FULL = ("statistics on a full disk", "trace on a full disk")


class VanishingInstrument:
    """A device that goes as its first request arrives."""

    def __enter__(self):
        self.line, slave = pty.openpty()
        tty.setraw(slave)
        self.device = os.ttyname(slave)
        self.thread = threading.Thread(target=self.serve, args=(slave,))
        self.thread.start()
        return self

    def serve(self, slave):
        os.read(self.line, 1)
        os.close(slave)
        os.close(self.line)

    def __exit__(self, *_):
        self.thread.join()


class ExitStatusTest(CommandLineTest):
    def words_of(self, option, place, duration, exchanges):
        until = datetime.datetime.now() + datetime.timedelta(seconds=duration + 1)
        return {
            "strict": ("--strict",),
            "retries": ("--retries", 2),
            "reconnect": ("--reconnect",),
            "format": ("--format", "jsonl"),
            "statistics": ("--statistics", place / "statistics"),
            "trace": ("--trace", place / "trace"),
            "record on a full disk": ("--record", "/dev/full"),
            "statistics on a full disk": ("--statistics", "/dev/full"),
            "trace on a full disk": ("--trace", "/dev/full"),
            "exchanges": ("--exchanges", exchanges),
            "seconds": ("--seconds", duration),
            "until": ("--until", until.strftime("%Y-%m-%d %H:%M:%S")),
            "interrupt": (),
        }[option]

    def start_pair(self, device, options, place, duration):
        ends = () if set(options) & set(ENDS) else ("--exchanges", 3)
        if "interrupt" in options:  # which is the end that comes first
            exchanges, duration = MANY, LONG
        else:
            exchanges = 3
        words = [word for option in options for word in self.words_of(option, place, duration, exchanges)]
        return self.start("poll", device, RTU, "--interval", 0, "--command", 50, *ends, *words)

    def assert_run(self, run, status, options, place):
        self.assertEqual(run.status, status, f"{options}: {run.problems}")
        if "format" in options:
            for line in run.output.splitlines():
                json.loads(line)
        if "statistics" in options and status != 3:
            self.assertGreater((place / "statistics").stat().st_size, 0)
        if "trace" in options:
            self.assertTrue((place / "trace").read_text(encoding="utf-8").startswith("time,microseconds,gap,"))
        if any("full disk" in option for option in options):
            self.assertIn("/dev/full 写不进去: 磁盘已满", run.problem_lines)

    @staticmethod
    def status_of(options, is_bad_alone):
        if any("full disk" in option for option in options):
            return 3
        return 1 if is_bad_alone and "strict" in options and "retries" not in options else 0

    def run_pair(self, options):
        with tempfile.TemporaryDirectory() as name, ScriptedInstrument(CORRUPT, *[GOOD] * 500) as peer:
            place = Path(name)
            process = self.start_pair(peer.device, options, place, 1)
            if "interrupt" in options:
                while len(peer.requests) < 3 and process.poll() is None:
                    time.sleep(0.01)
                process.send_signal(signal.SIGINT)
            self.assert_run(self.finish(process), self.status_of(options, True), options, place)

    def run_pair_with_a_loss(self, options):
        with tempfile.TemporaryDirectory() as name:
            place = Path(name)
            link = place / "port"
            with VanishingInstrument() as first:
                link.symlink_to(first.device)
                process = self.start_pair(link, options, place, 5)
            self.assertEqual(process.stderr.readline(), "串口已断开，等待它重新连接\n")
            with ScriptedInstrument(*[GOOD] * 500) as second:
                (place / "fresh").symlink_to(second.device)
                (place / "fresh").rename(link)
                self.assertEqual(process.stderr.readline(), "串口已重新连接，第 1 次\n")
                if "interrupt" in options:
                    while len(second.requests) < 2:
                        time.sleep(0.01)
                    process.send_signal(signal.SIGINT)
                self.assert_run(self.finish(process), self.status_of(options, True), options, place)

    def run_all(self, run, pairs):
        with ThreadPoolExecutor(AT_ONCE) as pool:
            for pair, result in [(pair, pool.submit(run, pair)) for pair in pairs]:
                with self.subTest(pair):
                    result.result()

    def test_pairs_on_a_line_with_a_corrupt_reply(self):
        pairs = [*itertools.combinations(OTHERS + ENDS, 2), *itertools.product(("strict", "interrupt"), FULL)]
        self.assertEqual(len(pairs), 49)
        self.run_all(self.run_pair, pairs)

    def test_reconnect_with_each_of_the_others(self):
        self.run_all(self.run_pair_with_a_loss, [("reconnect", other) for other in OTHERS + ENDS])

    def test_loss_without_reconnect_is_no_access_whatever_else_is_said(self):
        def run(options):
            with tempfile.TemporaryDirectory() as name:
                place = Path(name)
                with VanishingInstrument() as peer:
                    process = self.start_pair(peer.device, options, place, 20)
                self.assert_run(self.finish(process), 3, options, place)

        self.run_all(run, [(option,) for option in ("strict", "retries", "format", "statistics", "trace", *ENDS)])


if __name__ == "__main__":
    unittest.main()
