"""A run that stands the night: ends, repetitions, a port that comes back, a reader that leaves, a trace."""

import datetime
import json
import os
import signal
import subprocess
import time
import unittest

from programs import PATIENCE, PLAIN, RTU, CommandLineTest
from scripted_instrument import ScriptedInstrument, rtu_frame

GOOD = rtu_frame("0103020064")
CORRUPT = GOOD[:-1] + bytes([GOOD[-1] ^ 1])
REFUSED = rtu_frame("018404")


class NightTest(CommandLineTest):
    def read(self, replies, *options):
        """An exchange for each of the rows from the first on, with what the far end says in turn."""
        with ScriptedInstrument(*replies) as peer:
            run = self.poll(peer.device, "--command", 50, "--format", "json", *options, instrument=RTU)
        return run, peer.requests

    # --- Ends ---

    def test_run_ends_at_the_next_such_time(self):
        until = datetime.datetime.now() + datetime.timedelta(seconds=2)
        with self.simulate() as simulator:
            run = self.poll(simulator.device, "--until", until.strftime("%H:%M:%S"), "--format", "json", "--strict")
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertGreaterEqual(datetime.datetime.now(), until.replace(microsecond=0))
        self.assertGreater(run.json["statistics"]["exchanges"], 1)

    def test_first_end_counts(self):
        with self.simulate() as simulator:
            by_count = self.poll(simulator.device, "--exchanges", 3, "--seconds", 1000, "--until", "2999-01-01 00:00",
                                 "--format", "json")
            by_time = self.poll(simulator.device, "--exchanges", 2_000_000, "--seconds", 0.3, "--format", "json")
        self.assertEqual(by_count.json["statistics"]["exchanges"], 3)
        self.assertLess(by_time.json["statistics"]["exchanges"], 2_000_000)
        self.assertEqual((by_count.status, by_time.status), (0, 0))

    # --- Repetitions ---

    def test_read_that_failed_is_sent_again(self):
        run, requests = self.read((GOOD, b"", CORRUPT, b"\x01\x03", GOOD, GOOD), "--exchanges", 3, "--retries", 3,
                                  "--strict")
        self.assertEqual(run.status, 0)
        self.assertEqual(len(requests), 6)
        self.assertEqual(len(set(requests[1:5])), 1)
        self.assertNotEqual(requests[5], requests[4])
        statistics = run.json["statistics"]
        self.assertEqual([statistics[key] for key in ("exchanges", "repetitions", "noReply", "checkErrors",
                                                      "incomplete")], [6, 3, 1, 1, 1])
        self.assertEqual(run.problem_lines, ["第 2 次通讯无应答，重复第 1 次", "第 3 次通讯校验出错，重复第 2 次",
                                             "第 4 次通讯数据不完整，重复第 3 次"])

    def test_both_kinds_of_a_native_read_are_repeated(self):
        with self.simulate("--drop", "0.5", "--seed", "5") as simulator:
            run = self.poll(simulator.device, "--exchanges", 4, "--retries", 20, "--format", "jsonl", "--strict")
        self.assertEqual(run.status, 0)
        lines = [json.loads(line) for line in run.output.splitlines()]
        good = [bytes.fromhex(line["request"])[3:5] for line in lines if line["ending"] == "complete"]
        self.assertEqual(good, [b"RD", b"RR", b"RD", b"RR"])
        self.assertGreater(len(lines), 4)

    def test_exit_status_of_each_pair_of_strict_and_retries(self):
        cases = (
            # replies, retries, strict, status
            ((GOOD,), 0, False, 0), ((GOOD,), 0, True, 0),
            ((b"", GOOD), 0, False, 0), ((b"", GOOD), 0, True, 1),
            ((b"", GOOD), 1, False, 0), ((b"", GOOD), 1, True, 0),
            ((b"", b"", GOOD), 1, False, 0), ((b"", b"", GOOD), 1, True, 1),
            ((CORRUPT, GOOD), 1, True, 0), ((CORRUPT, CORRUPT), 1, True, 1),
            ((REFUSED,), 0, False, 0), ((REFUSED,), 2, True, 1),
        )
        for replies, retries, is_strict, status in cases:
            with self.subTest(replies=replies, retries=retries, strict=is_strict):
                strict = ("--strict",) if is_strict else ()
                run, _ = self.read(replies, "--exchanges", 1, "--retries", retries, *strict)
                self.assertEqual(run.status, status)

    # --- A port that comes back ---

    def start_on_a_link(self, *options):
        link = self.folder.parent / "port"
        return self.start("poll", link, PLAIN, "--interval", 10, "--format", "json", *options)

    def link_to(self, device):
        link = self.folder.parent / "port"
        fresh = self.folder.parent / "fresh"
        fresh.unlink(missing_ok=True)
        fresh.symlink_to(device)
        fresh.rename(link)

    def pull_out(self, simulator):
        """The link goes ahead of its device, whose name another test may get at once."""
        (self.folder.parent / "port").unlink()
        simulator.pull_the_cable()

    def lose_and_return(self, *options):
        """The run, behind a device that was pulled out and came back under another name."""
        with self.simulate() as first:
            self.link_to(first.device)
            process = self.start_on_a_link(*options)
            time.sleep(0.5)
            self.pull_out(first)
            lost = process.stderr.readline()
            with self.simulate() as second:
                self.link_to(second.device)
                back = process.stderr.readline()
                time.sleep(0.5)
                process.send_signal(signal.SIGINT)
                run = self.finish(process)
        return lost, back, run, second.counts["requests"]

    def test_vanished_port_is_waited_for(self):
        lost, back, run, requests = self.lose_and_return("--reconnect", "--strict", "--retries", 1)
        self.assertEqual((lost, back), ("串口已断开，等待它重新连接\n", "串口已重新连接，第 1 次\n"))
        self.assertEqual(run.status, 0)
        self.assertGreater(requests, 1)
        self.assertEqual(run.json["statistics"]["reconnects"], 1)

    def test_without_the_option_the_run_ends(self):
        with self.simulate() as simulator:
            self.link_to(simulator.device)
            process = self.start_on_a_link("--strict")
            time.sleep(0.3)
            simulator.pull_the_cable()
            self.assertEqual(self.finish(process).status, 3)

    def test_run_that_waits_for_its_port_ends_by_time_and_by_interrupt(self):
        for options, interrupts in ((("--seconds", 2), False), ((), True)):
            with self.subTest(options), self.simulate() as simulator:
                self.link_to(simulator.device)
                process = self.start_on_a_link("--reconnect", *options)
                time.sleep(0.4)
                self.pull_out(simulator)
                self.assertEqual(process.stderr.readline(), "串口已断开，等待它重新连接\n")
                if interrupts:
                    process.send_signal(signal.SIGINT)
                run = self.finish(process)
                self.assertEqual((run.status, run.problems), (0, ""))
                self.assertEqual(run.json["statistics"]["reconnects"], 0)

    def test_port_that_is_not_there_at_first_is_not_waited_for(self):
        run = self.poll("/dev/no-port-to-wait-for", "--reconnect", "--exchanges", 1)
        self.assertEqual(run.status, 3)

    # --- A reader that leaves ---

    def test_reader_that_leaves_ends_the_run_quietly(self):
        for form in ("text", "jsonl"):
            with self.subTest(form), self.simulate() as simulator:
                process = self.start("poll", simulator.device, PLAIN, "--interval", 5, "--format", form)
                process.stdout.readline()
                process.stdout.close()
                self.assertEqual(process.wait(PATIENCE), -signal.SIGPIPE)
                self.assertEqual(process.stderr.read(), "")
                process.stderr.close()

    def test_list_without_a_reader_ends_quietly(self):
        read, write = os.pipe()
        os.close(read)
        process = self.start_words([self.words("list", "x", PLAIN)[0], "list", "instruments", "--folder", self.folder],
                                   stdout=write)
        os.close(write)
        _, problems = process.communicate(timeout=PATIENCE)
        self.assertEqual((process.returncode, problems), (-signal.SIGPIPE, ""))

    # --- The trace ---

    def test_trace_has_each_chunk_with_its_time_and_direction(self):
        trace = self.folder.parent / "trace.csv"
        with self.simulate() as simulator:
            for _ in range(2):
                run = self.poll(simulator.device, "--exchanges", 2, "--trace", trace, "--format", "json")
                self.assertEqual((run.status, run.problems), (0, ""))
        heading, *lines = trace.read_text(encoding="utf-8").splitlines()
        self.assertEqual(heading, "time,microseconds,gap,direction,bytes")
        chunks = [line.split(",") for line in lines]
        self.assertEqual(chunks[0][3:], ["sent", "40 30 31 52 44 31 37 0D"])
        received = "".join(chunk[4] + " " for chunk in chunks if chunk[3] == "received")
        self.assertTrue(bytes.fromhex(received).startswith(b"@01RD07"))
        self.assertEqual(sum(chunk[3] == "sent" for chunk in chunks), 2)
        moments = [datetime.datetime.fromisoformat(chunk[0]).replace(microsecond=int(chunk[1])) for chunk in chunks]
        for i in range(1, len(chunks)):
            self.assertEqual(moments[i] - moments[i - 1], datetime.timedelta(microseconds=int(chunks[i][2])))

    def test_trace_spares_what_is_none(self):
        notes = self.folder.parent / "notes.csv"
        notes.write_text("time,microseconds\n", encoding="utf-8")
        with self.simulate() as simulator:
            run = self.poll(simulator.device, "--exchanges", 1, "--trace", notes)
        self.assertEqual((run.status, run.problem_lines), (2, [f"{notes} 已存在，不是线路跟踪，没有改动。请给出另一个文件名"]))


if __name__ == "__main__":
    unittest.main()
