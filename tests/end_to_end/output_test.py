"""Files that options name to be written: nothing of the user's is overwritten."""

import os
import subprocess
import threading
import unittest

from programs import CLI, PATIENCE, PLAIN, CommandLineTest


class OutputTest(CommandLineTest):
    def path(self, name):
        return self.folder.parent / name

    def test_catalogue_is_no_place_for_a_record(self):
        catalogue = self.folder / "通讯数据.mdb"
        before = catalogue.read_bytes()
        with self.simulate() as simulator:
            run = self.poll(simulator.device, "--exchanges", 1, "--record", catalogue)
        self.assertEqual((run.status, run.output), (2, ""))
        self.assertEqual(run.problem_lines, [f"{catalogue} 是程序自己用的文件，没有改动。请给出另一个文件名"])
        self.assertEqual(catalogue.read_bytes(), before)
        self.assertEqual(simulator.counts["requests"], 0)

    def test_copy_of_the_catalogue_is_no_place_either(self):
        copy = self.path("copy.mdb")
        copy.write_bytes((self.folder / "通讯数据.mdb").read_bytes())
        link = self.path("record.txt")
        link.symlink_to(copy)
        with self.simulate() as simulator:
            run = self.poll(simulator.device, "--exchanges", 1, "--record", link)
        self.assertEqual(run.problem_lines, [f"{link} 已存在，不是通讯记录，没有改动。请给出另一个文件名"])
        self.assertEqual(copy.read_bytes(), (self.folder / "通讯数据.mdb").read_bytes())

    def test_earlier_record_is_replaced_or_gone_on_with(self):
        record = self.path("night.txt")
        with self.simulate() as simulator:
            self.poll(simulator.device, "--exchanges", 3, "--record", record)
            self.assertEqual(record.read_text(encoding="utf-8").count("发送: "), 3)
            self.poll(simulator.device, "--exchanges", 2, "--record", record)
            self.assertEqual(record.read_text(encoding="utf-8").count("发送: "), 2)
            run = self.poll(simulator.device, "--exchanges", 2, "--record", record, "--append", "--format", "json")
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertEqual(record.read_text(encoding="utf-8").count("发送: "), 4)

    def test_record_to_standard_output_stands_there_once(self):
        with self.simulate() as simulator:
            run = self.poll(simulator.device, "--exchanges", 2, "--record", "-")
        self.assertEqual(run.status, 0)
        self.assertEqual(run.output.count("发送: "), 2)

    def test_record_goes_into_a_pipe(self):
        pipe = self.path("pipe")
        os.mkfifo(pipe)
        read = []
        reader = threading.Thread(target=lambda: read.append(pipe.read_text(encoding="utf-8")), daemon=True)
        reader.start()
        with self.simulate() as simulator:
            run = self.poll(simulator.device, "--exchanges", 2, "--record", pipe, "--format", "json")
        reader.join(PATIENCE)
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertEqual(read[0].count("发送: "), 2)

    def test_full_device_is_told(self):
        with self.simulate() as simulator:
            run = self.poll(simulator.device, "--exchanges", 1, "--record", "/dev/full", "--format", "json")
        self.assertEqual(run.status, 3)
        self.assertIn("/dev/full 写不进去: ", run.problems)

    def test_list_and_recording_spare_what_is_no_earlier_one(self):
        notes = self.path("notes.txt")
        notes.write_text("notes\n", encoding="utf-8")
        with self.simulate() as simulator:
            self.finish(self.start("capture", simulator.device, PLAIN, "--note", "A", "--exchanges", 1))
        calls = ((("catalogue", "export", "--output", notes), "参数表"),
                 (("recordings", "export", notes, "--instrument", PLAIN[1], "--note", "A"), "演示数据"))
        for words, kind in calls:
            with self.subTest(kind):
                run = subprocess.run([CLI, *map(str, words), "--folder", self.folder], capture_output=True,
                                     encoding="utf-8", check=False)
                self.assertEqual((run.returncode, run.stderr),
                                 (2, f"{notes} 已存在，不是{kind}，没有改动。请给出另一个文件名\n"))
        self.assertEqual(notes.read_text(encoding="utf-8"), "notes\n")


if __name__ == "__main__":
    unittest.main()
