"""Values over time: an exchange a line, rows of one's own choice, statistics apart, moments in the record."""

import csv
import datetime
import io
import json
import re
import time
import unittest

from programs import PLAIN, RTU, CommandLineTest
from schemas import faults, schema
from scripted_instrument import ScriptedInstrument, rtu_frame

UNJUDGED = ("ModBus-Ascii协议-定制02", "HX-M23大屏显示仪", None)
VALUES = {"小数点位置": 2, "测量值": 9894, "峰值": 5, "量程下限": -1999}
STAMP = r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}[+-]\d\d:\d\d"


class ValuesTest(CommandLineTest):
    def assert_fits(self, value, name):
        self.assertEqual(faults(value, schema(name)), [])

    def lines(self, run):
        lines = [json.loads(line) for line in run.output.splitlines()]
        for line in lines:
            self.assert_fits(line, "exchange")
        return lines

    def test_each_exchange_is_a_line(self):
        with self.simulate(values=VALUES) as simulator:
            run = self.poll(simulator.device, "--exchanges", 3, "--format", "jsonl", "--rows", "6,7,量程下限")
        first, second, third = self.lines(run)
        self.assertEqual((first["request"], first["ending"], first["verdict"], first["check"], first["exception"]),
                         ("40 30 31 52 44 31 37 0D", "complete", "data", "right", None))
        self.assertTrue(first["reply"].startswith("40 30 31 52 44 41 36 32 36 "))
        self.assertEqual([row["row"] for row in first["rows"]], [6, 7])
        self.assertEqual([row["row"] for row in second["rows"]], [13])
        self.assertEqual(third["rows"][0], {"row": 6, "singleRead": "", "groupRead": "A626", "value": "9894",
                                            "scaledValue": "98.94"})
        moment = datetime.datetime.fromisoformat(first["time"])
        self.assertLess(abs((datetime.datetime.now(datetime.timezone.utc) - moment).total_seconds()), 60)
        self.assertEqual(run.problem_lines, ["总计通讯: 3 次         数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 0.00 %"])

    def test_lines_come_as_the_exchanges_end(self):
        with self.simulate() as simulator:
            process = self.start("poll", simulator.device, PLAIN, "--interval", 60000, "--format", "jsonl")
            began = time.monotonic()
            json.loads(process.stdout.readline())
            self.assertLess(time.monotonic() - began, 30)
            process.terminate()
            self.assertEqual(self.finish(process).status, 0)

    def test_endings_and_exceptions_have_their_words(self):
        replies = (rtu_frame("0103020064"), b"\x01\x03\x02", b"", b"", rtu_frame("018404"))
        with ScriptedInstrument(*replies) as peer:
            run = self.poll(peer.device, "--command", 50, "--exchanges", 5, "--format", "jsonl", instrument=RTU)
        shown = [(line["ending"], line["verdict"], line["check"], line["exception"]) for line in self.lines(run)]
        self.assertEqual(shown, [("complete", "data", "right", None), ("incomplete", "unknown", "notJudged", None),
                                 ("silent", "unknown", "notJudged", None), ("silent", "unknown", "notJudged", None),
                                 ("complete", "refused", "right", "84 04")])
        self.assertEqual([line["replyTime"] is None for line in self.lines(run)], [False, False, True, True, False])

    def test_protocol_that_judges_nothing_has_its_lines_too(self):
        with ScriptedInstrument(b":0103\r\n", b"", b":0105\r\n") as peer:
            run = self.poll(peer.device, "--command", 50, "--exchanges", 3, "--format", "jsonl", instrument=UNJUDGED)
        lines = self.lines(run)
        self.assertEqual([(line["verdict"], line["rows"]) for line in lines], [("unknown", [])] * 3)
        self.assertEqual([line["reply"][9:14] for line in lines], ["30 33", "", "30 35"])

    def test_values_without_their_decimals_are_undecided(self):
        with self.simulate(values=VALUES) as simulator:
            one = self.poll(simulator.device, "--exchanges", 1, "--format", "json")
            text = self.poll(simulator.device, "--exchanges", 1, "--rows", "测量值")
            table = self.poll(simulator.device, "--exchanges", 1, "--rows", 6, "--format", "csv")
            line = self.lines(self.poll(simulator.device, "--exchanges", 1, "--rows", 6, "--format", "jsonl"))[0]
        self.assertEqual((one.row(6)["value"], one.row(6)["scaledValue"]), ("9894", None))
        self.assert_fits(one.json, "poll")
        self.assertRegex(text.output, r"(?m)^ +6 .* 9894 +未定$")
        self.assertEqual(list(csv.DictReader(io.StringIO(table.output)))[0]["scaledValue"], "")
        self.assertIsNone(line["rows"][0]["scaledValue"])

    def test_values_are_scaled_at_the_end_if_their_decimals_came(self):
        with self.simulate(values=VALUES) as simulator:
            run = self.poll(simulator.device, "--exchanges", 2, "--format", "json")
        self.assertEqual((run.row(6)["scaledValue"], run.row(7)["scaledValue"]), ("98.94", "0.05"))
        self.assertEqual(simulator.counts["requests"], 2)

    def test_statistics_have_a_file_of_their_own(self):
        file = self.folder.parent / "statistics"
        with self.simulate() as simulator:
            for form in ("csv", "json", "jsonl", "text"):
                run = self.poll(simulator.device, "--exchanges", 4, "--format", form, "--statistics", file)
                content = file.read_text(encoding="utf-8")
                self.assertEqual((run.status, run.problems), (0, ""))
                if form == "csv":
                    self.assertEqual(content, "checkErrors,exchanges,frames,incomplete,noReply,reconnects,repetitions\n0,4,4,0,0,0,0\n")
                elif form == "text":
                    self.assertTrue(content.startswith("总计通讯: 4 次 "))
                else:
                    self.assert_fits(json.loads(content), "statistics")
                    self.assertEqual(json.loads(content)["exchanges"], 4)

    def test_statistics_spare_what_is_none(self):
        notes = self.folder.parent / "notes.json"
        notes.write_text('{"exchanges": 4}\n', encoding="utf-8")
        with self.simulate() as simulator:
            run = self.poll(simulator.device, "--exchanges", 1, "--statistics", notes)
        self.assertEqual((run.status, run.problem_lines),
                         (2, [f"{notes} 已存在，不是统计，没有改动。请给出另一个文件名"]))

    def test_record_has_its_moments(self):
        record = self.folder.parent / "record.txt"
        with self.simulate() as simulator:
            for _ in range(2):
                run = self.poll(simulator.device, "--exchanges", 2, "--timestamps", "--record", record)
                self.assertEqual((run.status, run.problems), (0, ""))
        blocks = record.read_text(encoding="utf-8").split("\n\n")
        self.assertEqual((len(blocks), blocks[-1]), (3, ""))
        for block in blocks[:-1]:
            request, reply, words = block.split("\n")
            self.assertRegex(request, rf"^{STAMP}  第 \d 次, 向 .* 发送: ")
            self.assertRegex(reply, rf"^{STAMP}  @01R")
            self.assertRegex(words, rf"^{STAMP}  CRC校验正确")
            self.assertLessEqual(re.match(STAMP, request)[0], re.match(STAMP, reply)[0])

    def test_rows_that_are_not_there_are_told_before_the_first_frame(self):
        with self.simulate() as simulator:
            for words, line in (("6,无名", "没有参数 \"无名\"。名称和行号请看 commtest-cli list parameters"),
                                ("6,999", "没有第 999 行。名称和行号请看 commtest-cli list parameters")):
                run = self.poll(simulator.device, "--exchanges", 1, "--rows", words)
                self.assertEqual((run.status, run.problem_lines), (2, [line]))
        self.assertEqual(simulator.counts["requests"], 0)


if __name__ == "__main__":
    unittest.main()
