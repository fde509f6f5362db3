"""Polling: frames, record, grid, statistics."""

import csv
import io
import re
import unittest

from programs import FILLED, FLOW_METER, NOVAX, PLAIN, RTU, SUM, CommandLineTest, Simulator, description
from scripted_instrument import ScriptedInstrument, rtu_frame

UNJUDGED = ("ModBus-Ascii协议-定制02", "HX-M23大屏显示仪", None)

VALUES = {"小数点位置": 1, "测量值": -1234, "峰值": 5, "变送输出值": 250, "量程下限": -1999, "滤波系数": 20}


class PollTest(CommandLineTest):
    def test_grid_holds_the_values_of_the_instrument(self):
        with self.simulate(values=VALUES) as simulator:
            run = self.poll(simulator.device, "--exchanges", 200, "--format", "json", "--strict")
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertEqual(run.json["statistics"], {"frames": 200, "exchanges": 200, "incomplete": 0, "checkErrors": 0,
                                                  "noReply": 0, "reconnects": 0, "repetitions": 0})
        self.assertEqual(simulator.counts["requests"], 200)
        # Two bytes, low one first, the high bit for the sign: 1234 is 04D2.
        self.assertEqual(run.row(6), {"row": 6, "name": "测量值", "address": "0010", "length": "2", "attribute": "D",
                                      "decimals": "0020", "singleRead": "", "groupRead": "D284", "value": "-1234",
                                      "scaledValue": "-123.4"})
        shown = {row: run.row(row)["scaledValue"] for row in (7, 9, 11, 13, 17)}
        self.assertEqual(shown, {7: "0.5", 9: "25.0", 11: "1", 13: "-199.9", 17: "20"})

    def test_record_comes_block_by_block_before_grid_and_statistics(self):
        with self.simulate(values=VALUES) as simulator:
            run = self.poll(simulator.device, "--exchanges", 2, "--record", self.folder / "record.txt")
        first = ("第 1 次, 向 HX-D10智能数字显示控制仪 发送: @01RD17\\0D   收到: \n"
                 "@01RDD2840500")
        self.assertEqual(run.output[:len(first)], first)
        second = run.output.index("第 2 次, 向 HX-D10智能数字显示控制仪 发送: @01RR01\\0D   收到: \n@01RR01")
        grid = run.output.index("序号  参数名称")
        self.assertLess(second, grid)
        self.assertTrue(run.output.endswith(
            "\n\n总计通讯: 2 次         数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 0.00 %\n"))
        record = (self.folder / "record.txt").read_text(encoding="utf-8")
        self.assertEqual(record, run.output[:grid])

    def test_frames_can_be_shown_in_hexadecimal(self):
        with self.simulate() as simulator:
            run = self.poll(simulator.device, "--exchanges", 1, "--show", "hex")
        self.assertIn("发送:  40 30 31 52 44 31 37 0D   收到: \n40 30 31 52 44 ", run.output)

    def test_csv_has_the_grid_alone_and_the_statistics_stand_apart(self):
        with self.simulate(values=VALUES) as simulator:
            run = self.poll(simulator.device, "--exchanges", 3, "--format", "csv")
        rows = list(csv.reader(io.StringIO(run.output)))
        self.assertEqual(rows[0], ["row", "name", "address", "length", "attribute", "decimals", "singleRead", "groupRead",
                                   "value", "scaledValue"])
        self.assertEqual(rows[6], ["6", "测量值", "0010", "2", "D", "0020", "", "D284", "-1234", "-123.4"])
        self.assertEqual(run.problem_lines, ["总计通讯: 3 次         数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 0.00 %"])

    def test_bytes_that_ask_for_the_next_part_are_no_exchanges(self):
        with self.simulate(part_length=20) as simulator:
            run = self.poll(simulator.device, "--exchanges", 10, "--format", "json", "--strict")
        self.assertEqual(run.status, 0)
        continued = simulator.counts["continue_bytes"]
        self.assertGreater(continued, 0)
        self.assertEqual(simulator.counts["requests"], 10 + continued)
        self.assertEqual(run.json["statistics"]["exchanges"], 10)
        self.assertEqual(run.json["statistics"]["frames"], 10 + continued)

    def test_rows_are_read_one_by_one(self):
        with self.simulate(values=VALUES) as simulator:
            run = self.poll(simulator.device, "--command", 50, "--exchanges", 8, "--format", "json")
        self.assertEqual([run.row(row)["singleRead"] for row in (11, 12, 13)], ["01", "07", "CF87"])

    def test_group_is_as_long_as_it_is_asked_to_be(self):
        with self.simulate() as simulator:
            run = self.poll(simulator.device, "--command", 60, "--count", 4, "--exchanges", 1)
        # Rows of 1, 1, 2 and 2 bytes: the first counts twice, the last not at all, and 4 is passed with the third.
        self.assertIn("发送: @01RE00200511", run.output)

    def test_other_native_protocols_and_addresses(self):
        for instrument in (PLAIN, SUM, FILLED):
            with self.subTest(instrument[0]), self.simulate(instrument=instrument, address=26) as simulator:
                run = self.poll(simulator.device, "--address", 26, "--exchanges", 4, "--strict", instrument=instrument)
                self.assertEqual((run.status, run.problems), (0, ""))
                self.assertIn("发送: @1ARD", run.output)
            self.assertEqual(simulator.counts["requests"], 4)

    def test_novax_instrument_is_walked_one_row_a_poll(self):
        values = {"测量值": -25, "控制输出": 1000, "运行状态": 200, "设定温度": 1205, "参数锁": 9}
        with self.simulate(instrument=NOVAX, values=values, address=127) as simulator:
            run = self.poll(simulator.device, "--address", 127, "--exchanges", 13, "--format", "json", "--strict",
                            instrument=NOVAX)
        self.assertEqual((run.status, run.problems), (0, ""))
        shown = {row: run.row(row)["scaledValue"] for row in (6, 7, 8, 9, 10, 20, 21, 22)}
        self.assertEqual(shown, {6: "-2.5", 7: "100.0", 8: "200", 9: "7", 10: "120.5", 20: "9", 21: "", 22: ""})
        self.assertEqual(run.row(21)["groupRead"], "0007", "a row of attribute S shows its digits")
        self.assertEqual(simulator.counts["requests"], 13)

    def test_corrupt_replies_of_a_novax_instrument_are_not_told(self):
        with self.simulate("--corrupt", "1", instrument=NOVAX) as simulator:
            run = self.poll(simulator.device, "--exchanges", 5, "--format", "json", "--strict", instrument=NOVAX)
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertEqual(simulator.counts["corrupted"], 5)

    def test_flow_meter_shows_its_four_values(self):
        values = {"瞬时流量": 1234, "流体流速": 5678, "流体温度": 901234, "累积流量": 56789012}
        with self.simulate(instrument=FLOW_METER, values=values, address=10) as simulator:
            run = self.poll(simulator.device, "--address", 10, "--exchanges", 2, "--strict", instrument=FLOW_METER)
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertIn("发送:  AA AA AA AA AA AA AA 07 02 0A 01 00 14 0E   收到: ", run.output)
        for shown in ("1234", "56.78", "9012.34", "56789012"):
            self.assertRegex(run.output, rf"(?m) {re.escape(shown)} *$")

    def test_strict_poll_fails_with_a_bad_frame_of_the_flow_meter_that_no_counter_shows(self):
        with self.simulate("--corrupt", "1", instrument=FLOW_METER) as simulator:
            run = self.poll(simulator.device, "--exchanges", 2, "--format", "json", "--strict", instrument=FLOW_METER)
            loose = self.poll(simulator.device, "--exchanges", 1, "--format", "json", instrument=FLOW_METER)
        self.assertEqual((run.status, loose.status), (1, 0))
        self.assertEqual(run.json["statistics"]["checkErrors"], 0)
        self.assertEqual([run.row(row)["scaledValue"] for row in (6, 7, 8, 9)], ["", ".", ".", ""])

    def test_time_ends_the_poll_with_the_exchange_under_way(self):
        with self.simulate() as simulator:
            run = self.finish(self.start("poll", simulator.device, PLAIN, "--interval", 20, "--seconds", 0.8,
                                         "--format", "json", "--strict"))
        self.assertEqual(run.status, 0)
        statistics = run.json["statistics"]
        self.assertGreater(statistics["exchanges"], 1)
        self.assertEqual(statistics["exchanges"], simulator.counts["answers"])

    def test_strict_poll_fails_with_one_missing_reply(self):
        with self.simulate("--drop", "1") as simulator:
            run = self.poll(simulator.device, "--exchanges", 1, "--strict")
        self.assertEqual((run.status, run.problems), (1, ""))
        self.assertIn("无应答 1 次; 错误率 100.00 %", run.output)
        self.assertIsNotNone(re.search("仪表无应答  注意：", run.output))

    def test_run_time_error_ends_the_poll(self):
        # Under this protocol the reading of row after row does not go back to the top.
        with self.simulate(instrument=FILLED) as simulator:
            run = self.poll(simulator.device, "--command", 50, instrument=FILLED)
        self.assertEqual((run.status, run.problems), (
            1, "实时错误 '9': 下标越界 通讯已停止。请换用别的 --command，或检查目录中这种仪表的参数表\n"))
        self.assertIn("\n总计通讯: ", run.output)

    def test_exception_of_an_address_ends_the_poll(self):
        known = [line for line in description(RTU[2]).splitlines() if not line.startswith("零点修正")]
        with Simulator(self.outer.name, "\n".join([*known, ""])) as simulator:
            run = self.poll(simulator.device, "--command", 50, "--exchanges", 200, instrument=RTU)
        self.assertEqual(run.status, 1)
        self.assertEqual(run.problem_lines, [
            "第 10 次通讯被仪表的回答结束: 注意：读写指令中含有非法参数地址/长度超出范围 指令错误！。请检查 --command 和仪表的参数表"])
        self.assertIn("CRC校验正确  注意：读写指令中含有非法参数地址/长度超出范围    指令错误！\n", run.output)
        self.assertIn("\n总计通讯: 10 次", run.output)  # rows 6 to 14, then the missing one

    def test_json_tells_what_ended_the_poll(self):
        with ScriptedInstrument(rtu_frame("0103020064"), rtu_frame("018303")) as peer:
            run = self.poll(peer.device, "--command", 50, "--exchanges", 5, "--format", "json", instrument=RTU)
        self.assertEqual(run.status, 1)
        self.assertEqual(run.json["stopped"], {"exchange": 2, "exception": "83 03",
                                               "reason": "注意：非法的参数地址！该指令无效 指令错误！"})

    def test_refused_reply_fails_a_strict_poll(self):
        # 84 does not end the polling.
        for options, status in (((), 0), (("--strict",), 1)):
            with self.subTest(options), ScriptedInstrument(rtu_frame("018404")) as peer:
                run = self.poll(peer.device, "--command", 50, "--exchanges", 1, *options, instrument=RTU)
                self.assertEqual((run.status, run.problems), (status, ""))

    def test_silence_under_a_protocol_that_judges_nothing_fails_a_strict_poll(self):
        for reply, status in ((b"", 1), (b":0103", 0)):
            with self.subTest(reply), ScriptedInstrument(reply) as peer:
                run = self.poll(peer.device, "--command", 50, "--exchanges", 1, "--strict", instrument=UNJUDGED)
                self.assertEqual((run.status, run.problems), (status, ""))

    def test_program_folder_gets_no_file(self):
        before = sorted(self.folder.iterdir())
        with self.simulate() as simulator:
            self.poll(simulator.device, "--exchanges", 51)
        self.assertEqual(sorted(path for path in self.folder.iterdir() if path.name != "record.txt"),
                         [path for path in before if path.name != "record.txt"])


if __name__ == "__main__":
    unittest.main()
