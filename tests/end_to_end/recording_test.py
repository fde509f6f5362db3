"""Capturing from a simulated instrument, and replaying without one."""

import subprocess
import unittest

from programs import ASCII, CLI, FLOW_METER, NOVAX, PLAIN, RTU, CommandLineTest, description

EXCHANGES = 200
FAMILIES = (PLAIN, ASCII, RTU, NOVAX, FLOW_METER)
VALUES = {"测量值": 1234, "峰值": 15}
NO_FAILURE = {"incomplete": 0, "checkErrors": 0, "noReply": 0}


def values_of_its_own(parameter_list):
    """Each parameter has another value: of rows with one reply a capture stores the first alone."""
    names = [line.split("|")[0].strip() for line in description(parameter_list).splitlines()[1:]]
    return {name: number for number, name in enumerate(names, start=1)}


class RecordingTest(CommandLineTest):
    def capture(self, device, instrument, note, *options):
        return self.finish(self.start("capture", device, instrument, "--interval", 0, "--note", note, "--format",
                                      "json", *options))

    def replay(self, instrument, note, *options, folder=None):
        return self.run_verb("replay", "--instrument", instrument[1], "--note", note, "--format", "json", *options,
                             folder=folder)

    def run_verb(self, *words, folder=None):
        process = self.start_words([CLI, *words, "--folder", folder or self.folder])
        return self.finish(process)

    def assert_no_failure(self, run):
        failures = {name: run.json["statistics"][name] for name in NO_FAILURE}
        self.assertEqual((run.status, failures), (0, NO_FAILURE))

    def test_replay_fills_the_grid_as_the_line_did(self):
        for instrument in FAMILIES:
            with self.subTest(instrument[0]):
                with self.simulate(instrument=instrument, values=values_of_its_own(instrument[2])) as simulator:
                    live = self.capture(simulator.device, instrument, "bench a", "--exchanges", EXCHANGES)
                self.assert_no_failure(live)
                self.assertRegex(live.problems, r'^说明 "BENCH A": 新采集 (\d+) 条，共 \1 条\n$')
                replayed = self.replay(instrument, "bench a", "--speed", "max", "--exchanges", 60)
                self.assert_no_failure(replayed)
                self.assertEqual(replayed.problems, "")
                self.assertEqual(replayed.json["parameters"], live.json["parameters"])
                self.assertEqual(replayed.json["statistics"]["exchanges"], 60)
                self.assertEqual((replayed.json["port"], replayed.json["settings"]), ("", ""))

    def test_recording_travels_to_another_catalogue_and_is_replayed_there(self):
        other = self.folder.parent / "other"
        subprocess.run([CLI, "catalogue", "create", other], check=True, stdout=subprocess.DEVNULL)
        file = self.folder.parent / "recording.jsonl"
        for instrument in FAMILIES:
            with self.subTest(instrument[0]):
                with self.simulate(instrument=instrument, values=values_of_its_own(instrument[2])) as simulator:
                    live = self.capture(simulator.device, instrument, "travels", "--exchanges", EXCHANGES)
                names = ("--instrument", instrument[1], "--note", "travels")
                self.assertEqual(self.run_verb("recordings", "export", file, *names).problems, "")
                rows = len(file.read_text(encoding="utf-8").splitlines()) - 1
                imported = self.run_verb("recordings", "import", file, folder=other)
                self.assertEqual((imported.status, imported.output), (0, f"已导入 {rows} 条，0 条已有\n"))
                again = self.run_verb("recordings", "import", file, folder=other)
                self.assertEqual((again.status, again.output), (0, f"已导入 0 条，{rows} 条已有\n"))
                replayed = self.replay(instrument, "travels", "--speed", "max", "--exchanges", 2 * rows + 1,
                                       folder=other)
                self.assert_no_failure(replayed)
                self.assertEqual(replayed.json["parameters"], live.json["parameters"])

    def test_known_pairs_are_not_stored_again(self):
        with self.simulate(values=VALUES) as simulator:
            first = self.capture(simulator.device, PLAIN, "again", "--exchanges", 20)
            second = self.capture(simulator.device, PLAIN, "AGAIN", "--exchanges", 20)
        self.assertEqual(first.problems, '说明 "AGAIN": 新采集 2 条，共 2 条\n')
        self.assertEqual(second.problems, '说明 "AGAIN": 新采集 0 条，共 2 条\n')

    def test_address_of_the_recording_is_shown(self):
        with self.simulate(values=VALUES, address=26) as simulator:
            self.capture(simulator.device, PLAIN, "far", "--address", 26, "--exchanges", 4)
        self.assertEqual(self.replay(PLAIN, "far", "--speed", "max", "--exchanges", 3).json["address"], 26)

    def test_speed_divides_the_second_between_two_exchanges(self):
        with self.simulate(values=VALUES) as simulator:
            self.capture(simulator.device, PLAIN, "speed", "--exchanges", 4)
        counts = [self.replay(PLAIN, "speed", "--speed", speed, "--seconds", 2.2).json["statistics"]["exchanges"]
                  for speed in ("1", "10", "max")]
        self.assertTrue(1 <= counts[0] <= 3, counts)
        self.assertTrue(10 <= counts[1] <= 23, counts)
        self.assertGreater(counts[2], 100)

    def test_recording_that_is_not_there_is_bad_usage(self):
        run = self.run_verb("replay", "--instrument", PLAIN[1], "--note", "none")
        self.assertEqual((run.status, run.output, run.problems), (
            2, "", f'没有仪表 "{PLAIN[1]}"、说明 "NONE" 的演示数据。已有的请看 commtest-cli recordings list\n'))


if __name__ == "__main__":
    unittest.main()
