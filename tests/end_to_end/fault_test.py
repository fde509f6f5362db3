"""A bad line: the program counts each fault that the simulator has made, to the last frame."""

import unittest

from programs import ASCII, PLAIN, RTU, CommandLineTest


class FaultTest(CommandLineTest):
    def check(self, exchanges, *faults, instrument=PLAIN):
        with self.simulate(*faults, instrument=instrument) as simulator:
            run = self.poll(simulator.device, "--exchanges", exchanges, "--format", "json", instrument=instrument)
        self.assertEqual((run.status, run.problems), (0, ""))
        counts = simulator.counts
        self.assertEqual(run.json["statistics"],
                         {"frames": exchanges, "exchanges": exchanges, "incomplete": counts["truncated"],
                          "checkErrors": counts["corrupted"], "noReply": counts["dropped"], "reconnects": 0,
                          "repetitions": 0})
        self.assertEqual(counts["requests"], exchanges)
        return counts

    def test_faults_of_every_kind(self):
        counts = self.check(400, "--seed", "5", "--drop", "0.01", "--truncate", "0.01", "--corrupt", "0.1",
                            "--split", "0.03", "--delay", "0.01")
        for fault in ("dropped", "truncated", "corrupted", "split", "delayed"):
            self.assertGreater(counts[fault], 0, fault)

    def test_faults_of_every_kind_on_modbus_lines(self):
        for instrument in (RTU, ASCII):
            with self.subTest(instrument[0]):
                counts = self.check(200, "--seed", "5", "--drop", "0.01", "--truncate", "0.01", "--corrupt", "0.1",
                                    instrument=instrument)
                for fault in ("dropped", "truncated", "corrupted"):
                    self.assertGreater(counts[fault], 0, fault)

    def test_every_reply_is_corrupt(self):
        self.assertEqual(self.check(300, "--corrupt", "1")["corrupted"], 300)

    def test_every_reply_comes_in_pieces(self):
        self.assertEqual(self.check(20, "--split", "1")["split"], 20)


if __name__ == "__main__":
    unittest.main()
