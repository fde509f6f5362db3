"""Writing a parameter: one frame, the answer, the row read back."""

import unittest

from programs import ASCII, FILLED, RTU, SUM, CommandLineTest

COMMAND, MODEL, DECIMALS, LOWER_LIMIT, CORRECTION, DELAY = 1, 4, 11, 13, 16, 22
FILTERS = {RTU: 16, ASCII: 13}  # rows of 滤波系数


class WriteTest(CommandLineTest):
    def test_value_is_written_and_read_back(self):
        with self.simulate() as simulator:
            run = self.write(simulator.device, DELAY, 42)
            poll = self.poll(simulator.device, "--exchanges", 2, "--format", "json")
        self.assertEqual((run.status, run.problems), (0, ""))
        # 42 is 2A; 22 is the exclusive or of the characters behind "@".
        self.assertIn("第 1 次, 向 HX-D10智能数字显示控制仪 发送: @01W100312A16\\0D   收到: \n@01##01\\0D\n", run.output)
        self.assertIn("     修改 1# 仪表的参数\n", run.output)
        self.assertTrue(run.output.endswith("第 22 行 AL1报警延时: 已写入 42，读回 42，一致\n"))
        self.assertEqual(poll.row(DELAY)["scaledValue"], "42")
        self.assertEqual(simulator.counts["writes_accepted"], 1)

    def test_value_is_scaled_by_the_decimals_that_the_instrument_holds(self):
        with self.simulate(values={"小数点位置": 2}) as simulator:
            run = self.write(simulator.device, LOWER_LIMIT, "-12.3")
            poll = self.poll(simulator.device, "--exchanges", 2, "--format", "json")
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertTrue(run.output.endswith("第 13 行 量程下限: 已写入 -12.3，读回 -12.30，一致\n"))
        # 1230 is 04CE, low byte first, the high bit for the sign.
        self.assertEqual(poll.row(LOWER_LIMIT)["groupRead"], "CE84")
        self.assertEqual(simulator.counts["writes_accepted"], 1)

    def test_own_decimals_of_a_row_scale_its_value(self):
        with self.simulate() as simulator:
            run = self.write(simulator.device, CORRECTION, "1.25")
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertTrue(run.output.endswith("已写入 1.25，读回 1.250，一致\n"))

    def test_value_that_the_row_cannot_hold_reads_back_differently(self):
        with self.simulate() as simulator:
            run = self.write(simulator.device, CORRECTION, "1.2345")
        self.assertEqual(run.status, 1)
        self.assertEqual(run.problem_lines,
                         ["第 16 行 满度修正系数: 已写入 1.2345，读回 1.234，不一致。请检查数值的小数位和上下限"])

    def test_instrument_refuses_a_value_beyond_its_limits(self):
        with self.simulate() as simulator:
            run = self.write(simulator.device, DELAY, 61)
        self.assertEqual(run.status, 1)
        self.assertIn("@01**01\\0D", run.output)
        self.assertEqual(run.problem_lines, ["第 22 行 AL1报警延时: 仪表拒绝写入。请检查数值和仪表的写保护"])
        self.assertEqual(simulator.counts["refusals"], 1)

    def test_modbus_instrument_refuses_a_value_beyond_its_limits(self):
        with self.simulate(instrument=RTU) as simulator:
            run = self.write(simulator.device, FILTERS[RTU], 21, instrument=RTU)
        self.assertEqual(run.status, 1)
        self.assertIn("注意：写入非法数值！ 该指令无效", run.output)
        self.assertEqual(run.problem_lines, ["第 16 行 滤波系数: 仪表拒绝写入。请检查数值和仪表的写保护"])

    def test_row_of_a_modbus_instrument_is_written_and_read_back(self):
        for instrument in (RTU, ASCII):
            with self.subTest(instrument[0]), self.simulate(instrument=instrument) as simulator:
                run = self.write(simulator.device, FILTERS[instrument], 3, instrument=instrument)
                self.assertEqual((run.status, run.problems), (0, ""))
                self.assertTrue(run.output.endswith(" 滤波系数: 已写入 3，读回 3，一致\n"))

    def test_command_row_is_not_read_back(self):
        with self.simulate() as simulator:
            run = self.write(simulator.device, COMMAND, 0)
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertTrue(run.output.endswith("第 1 行 恢复出厂设置: 已写入 0。此行是命令，不回读\n"))
        self.assertEqual(simulator.counts["requests"], 1)

    def test_row_of_the_sum_protocol(self):
        with self.simulate(instrument=SUM, values={"小数点位置": 1}) as simulator:
            run = self.write(simulator.device, 12, "-1.5", instrument=SUM)
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertTrue(run.output.endswith("第 12 行 量程下限: 已写入 -1.5，读回 -1.5，一致\n"))
        self.assertEqual(simulator.counts["writes_accepted"], 1)

    def test_what_cannot_be_written_is_refused_without_a_frame(self):
        with self.simulate() as simulator:
            read_only = self.write(simulator.device, MODEL, 1)
            beyond = self.write(simulator.device, 999, 1)
            filled = self.write(simulator.device, 10, 1, instrument=FILLED)
            no_number = self.write(simulator.device, DELAY, "soon")
        self.assertEqual([run.status for run in (read_only, beyond, filled, no_number)], [2, 2, 2, 2])
        self.assertEqual([len(run.problem_lines) for run in (read_only, beyond, filled, no_number)], [1, 1, 1, 1])
        self.assertTrue(read_only.problems.startswith("注意:参数没有W属性,数据无法修改！"))
        self.assertTrue(no_number.problems.startswith("实时错误 '13': 类型不匹配"))
        self.assertEqual(simulator.counts["requests"], 0)

    def test_silent_instrument_is_told(self):
        with self.simulate("--drop", "1") as simulator:
            run = self.write(simulator.device, DELAY, 1)
            unknown_decimals = self.write(simulator.device, LOWER_LIMIT, 1)
        self.assertEqual((run.status, unknown_decimals.status), (1, 1))
        self.assertEqual(run.problem_lines,
                         ["第 22 行 AL1报警延时: 没有收到正确的回答，不知是否写入。请检查地址和接线"])
        self.assertEqual(unknown_decimals.problem_lines,
                         ["第 13 行 量程下限: 小数点在第 11 行 小数点位置，没有读到，没有写入。请检查地址和接线"])
        self.assertEqual(simulator.counts["writes_accepted"], 1)


if __name__ == "__main__":
    unittest.main()
