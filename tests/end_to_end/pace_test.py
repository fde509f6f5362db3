"""How soon the line is used: the first frame of a call, and what follows a write."""

import time
import unittest

from programs import CommandLineTest

RUNS = 40
CYCLE_TICK = 0.3  # seconds that a session of the window waits in front of its first frame


class PaceTest(CommandLineTest):
    def check_waits_for_no_tick(self, run):
        """One run without the tick shows it; a busy machine slows down others."""
        for _ in range(RUNS):
            began = time.monotonic()
            self.assertEqual(run().status, 0)
            if time.monotonic() - began < CYCLE_TICK / 2:
                return
        self.fail(f"each of {RUNS} runs took half a tick and more")

    def test_first_frame_of_a_poll_leaves_at_once(self):
        with self.simulate() as simulator:
            self.check_waits_for_no_tick(lambda: self.poll(simulator.device, "--exchanges", 1, "--strict"))

    def test_write_and_its_read_back_wait_for_no_more_than_the_line(self):
        with self.simulate() as simulator:
            def write():
                return self.finish(self.start("write", simulator.device, ("TQ仪表协议", "HX-D10智能数字显示控制仪", None),
                                              "--set", "15=7"))
            self.check_waits_for_no_tick(write)

    def test_interval_that_is_given_parts_the_frames_of_a_write(self):
        with self.simulate() as simulator:
            began = time.monotonic()
            run = self.finish(self.start("write", simulator.device, ("TQ仪表协议", "HX-D10智能数字显示控制仪", None),
                                         "--set", "15=7", "--interval", 400))
        self.assertEqual(run.status, 0)
        self.assertGreater(time.monotonic() - began, 0.4)


if __name__ == "__main__":
    unittest.main()
