"""Writing a parameter: one frame, the answer, the row read back."""

import os
import pty
import sqlite3
import subprocess
import unittest

from programs import ASCII, FILLED, FLOW_METER, NOVAX, PLAIN, RTU, SUM, CommandLineTest
from schemas import faults, schema
from scripted_instrument import ScriptedInstrument, ascii_frame, rtu_frame

COMMAND, MODEL, DECIMALS, LOWER_LIMIT, CORRECTION, DELAY = 1, 4, 11, 13, 16, 22
FILTERS = {RTU: 16, ASCII: 13}  # rows of 滤波系数
RATIO = 28                      # 电压变比 of the ASCII instrument
PHASES = ("ModBus-RTU协议", "HX-E30三相电量表", None)
PHASE_RATIO = 18                # its 电压变比


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

    def test_value_that_the_row_cannot_hold_is_refused_with_what_would_arrive(self):
        with self.simulate() as simulator:
            run = self.write(simulator.device, CORRECTION, "1.2345")
        self.assertEqual(run.status, 2)
        self.assertEqual(run.problem_lines,
                         ['第 16 行 满度修正系数: "1.2345" 此行的代码放不下（没有小数位，正数四舍六入、五取偶，负数舍去小数），'
                          '仪表将收到 1.234，没有写入。仍要写入请加 --force'])
        self.assertEqual(simulator.counts["requests"], 0)

    def test_value_that_the_row_cannot_hold_reads_back_differently(self):
        with self.simulate() as simulator:
            run = self.write(simulator.device, CORRECTION, "1.2345", "--force")
        self.assertEqual(run.status, 1)
        self.assertEqual(run.problem_lines,
                         ["第 16 行 满度修正系数: 已写入 1.2345，读回 1.234，不一致。请检查数值的小数位和上下限"])

    def test_value_beyond_the_limits_is_refused_before_it_leaves(self):
        with self.simulate(values={"小数点位置": 1}) as simulator:
            above = self.write(simulator.device, DELAY, 61)
            below = self.write(simulator.device, LOWER_LIMIT, "-200")
        self.assertEqual((above.status, below.status), (2, 2))
        self.assertEqual(above.problem_lines,
                         ['第 22 行 AL1报警延时: "61" 超出上限 60，没有写入。仍要写入请加 --force'])
        self.assertEqual(below.problem_lines,
                         ['第 13 行 量程下限: "-200" 低于下限 -199.9，没有写入。仍要写入请加 --force'])
        self.assertEqual(simulator.counts["requests"], 1, "the decimals were read, nothing was written")

    def test_instrument_refuses_a_value_beyond_its_limits(self):
        with self.simulate() as simulator:
            run = self.write(simulator.device, DELAY, 61, "--force")
        self.assertEqual(run.status, 1)
        self.assertIn("@01**01\\0D", run.output)
        self.assertEqual(run.problem_lines,
                         ["第 22 行 AL1报警延时: 仪表拒绝写入: 注意： 1# 仪表的通讯出错。请检查数值和仪表的写保护"])
        self.assertEqual(simulator.counts["refusals"], 1)

    def test_modbus_instrument_refuses_a_value_beyond_its_limits(self):
        with self.simulate(instrument=RTU) as simulator:
            run = self.write(simulator.device, FILTERS[RTU], 21, "--force", instrument=RTU)
        self.assertEqual(run.status, 1)
        self.assertIn("注意：写入非法数值！ 该指令无效", run.output)
        self.assertEqual(run.problem_lines,
                         ["第 16 行 滤波系数: 仪表拒绝写入: 注意：写入非法数值！ 该指令无效。请检查数值和仪表的写保护"])

    def test_row_of_a_modbus_instrument_is_written_and_read_back(self):
        for instrument in (RTU, ASCII):
            with self.subTest(instrument[0]), self.simulate(instrument=instrument) as simulator:
                run = self.write(simulator.device, FILTERS[instrument], 3, instrument=instrument)
                self.assertEqual((run.status, run.problems), (0, ""))
                self.assertTrue(run.output.endswith(" 滤波系数: 已写入 3，读回 3，一致\n"))

    def test_row_of_a_novax_instrument_is_proved_by_reading_it_back(self):
        with self.simulate(instrument=NOVAX) as simulator:
            run = self.write(simulator.device, 12, "-15.5", instrument=NOVAX)
            poll = self.poll(simulator.device, "--exchanges", 3, "--format", "json", instrument=NOVAX)
        self.assertEqual((run.status, run.problems), (0, ""))
        # Parameter 12 takes -155, FF65: 1200 + FF65 + 43 + 1 of 16 bits. The answer is that of a read.
        self.assertIn("发送:  81 81 43 12 65 FF A9 11   收到: \n07 00 07 00 07 07 65 FF ", run.output)
        self.assertIn("发送:  81 81 52 12 00 00 53 12   收到: \n", run.output)
        self.assertTrue(run.output.endswith("第 12 行 上限报警值: 已写入 -15.5，读回 -15.5，一致\n"))
        self.assertEqual(poll.row(12)["scaledValue"], "-15.5")
        self.assertEqual(simulator.counts["writes_accepted"], 1)

    def test_novax_instrument_that_does_not_take_a_value_is_found_out_by_the_read_back(self):
        with self.simulate(instrument=NOVAX, values={"设定温度": 250}) as simulator:
            run = self.write(simulator.device, 10, "300.1", "--force", instrument=NOVAX)
        self.assertEqual(run.status, 1)
        # 3001 is 0BB9: the answer holds it, the instrument does not.
        self.assertIn("收到: \n07 00 07 00 07 07 B9 0B ", run.output)
        self.assertEqual(run.problem_lines, ["第 10 行 设定温度: 已写入 300.1，读回 25.0，不一致。请检查数值的小数位和上下限"])
        self.assertEqual(simulator.counts["refusals"], 1)

    def test_flow_meter_is_read_only(self):
        with self.simulate(instrument=FLOW_METER) as simulator:
            run = self.write(simulator.device, 6, 1, instrument=FLOW_METER)
        self.assertEqual(run.status, 2)
        self.assertEqual(run.problem_lines, [
            '第 6 行 瞬时流量: 协议 "TQ特殊仪表协议-HCT615D" 不能写参数。请换用能写的协议和仪表'])
        self.assertEqual(simulator.counts["requests"], 0)

    def test_command_row_is_not_read_back(self):
        with self.simulate() as simulator:
            run = self.write(simulator.device, COMMAND, 0, "--yes")
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertTrue(run.output.endswith("第 1 行 恢复出厂设置: 已写入 0。此行是命令，不回读\n"))
        self.assertEqual(simulator.counts["requests"], 1)

    def test_script_says_yes_to_a_command_beforehand(self):
        with self.simulate() as simulator:
            run = self.finish(self.start("write", simulator.device, PLAIN, "--row", COMMAND, stdin=subprocess.DEVNULL))
        self.assertEqual((run.status, run.output), (2, ""))
        self.assertEqual(run.problem_lines, ["第 1 行 恢复出厂设置 是命令，仪表收到后立即执行，没有写入。确实要发出请加 --yes。"
                                             "用法请看 commtest-cli write --help"])
        self.assertEqual(simulator.counts["requests"], 0)

    def test_command_asks_at_a_terminal_before_it_goes_out(self):
        for answer, status, requests in ((b"n\n", 2, 0), (b"y\n", 0, 1)):
            with self.subTest(answer), self.simulate() as simulator:
                master, slave = pty.openpty()
                os.write(master, answer)
                process = self.start("write", simulator.device, PLAIN, "--set", "恢复出厂设置", stdin=slave)
                run = self.finish(process)
                os.close(master)
                os.close(slave)
                self.assertEqual(run.status, status)
                self.assertIn("第 1 行 恢复出厂设置 是命令，仪表收到后立即执行。发出吗? [y/N]", run.problems)
            self.assertEqual(simulator.counts["requests"], requests)

    def test_value_may_be_left_out_of_a_command_without_data_alone(self):
        with self.simulate() as simulator:
            run = self.finish(self.start("write", simulator.device, PLAIN, "--row", COMMAND, "--yes"))
            password = self.finish(self.start("write", simulator.device, PLAIN, "--row", 3, "--yes"))
            other = self.finish(self.start("write", simulator.device, PLAIN, "--set", "滤波系数", "--yes"))
        self.assertEqual((run.status, password.status, other.status), (0, 2, 2))
        self.assertEqual(password.problem_lines, ["缺少选项 --value。用法请看 commtest-cli write --help"])
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
        self.assertIn("注意:参数没有W属性,数据无法修改！", read_only.problems)
        self.assertEqual(no_number.problem_lines, ['第 22 行 AL1报警延时: "soon" 不是数字，没有写入'])
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


class RefusalTest(CommandLineTest):
    """Every exception of the two framings, in the words of its table."""

    ASCII_WORDS = {"81": "指令错误，指令不被识别！", "82": "指令错误，指定地址(寄存器)无法执行该指令！",
                   "83": "指令错误，读/写数据超出上下限范围！", "84": "自诊断错误！",
                   "85": "指令错误，读取数据长度为零！", "86": "设置错误，写入数据时CLK必须等于 8 ！",
                   "87": "指令错误，写入的数据超出该参数的上下限范围！", "88": "仪表系统忙！"}
    RTU_WORDS = {"8101": "指令错误，指令不被识别！", "8202": "指令错误，指定地址(寄存器)无法执行该指令！",
                 "8302": "注意：读写指令中含有非法参数地址/长度超出范围 指令错误！",
                 "8303": "注意：非法的参数地址！该指令无效 指令错误！", "8301": "注意：指令错误！无效指令 指令错误！",
                 "8404": "自诊断错误！", "8501": "指令错误，读取数据长度为零！",
                 "8602": "注意：写入非法数值！ 该指令无效", "8603": "注意：非法的参数地址！该指令无效",
                 "8601": "注意：指令错误或多路表修改参数时,CLK = 8",
                 "8703": "指令错误，写入的数据超出该参数的上下限范围！", "8802": "板卡返回错误信息！"}

    def refused(self, instrument, reply):
        with ScriptedInstrument(reply) as peer:
            run = self.write(peer.device, FILTERS[instrument], 3, "--format", "json", instrument=instrument)
        self.assertEqual(run.status, 1)
        self.assertEqual(len(peer.requests), 1, "behind a refusal nothing more is asked")
        written, = run.json
        self.assertEqual((written["outcome"], written["read"]), ("refused", ""))
        return written

    def test_every_exception_of_an_ascii_instrument(self):
        for function, words in self.ASCII_WORDS.items():
            with self.subTest(function):
                self.assertEqual(self.refused(ASCII, ascii_frame(f"01{function}02"))["reason"], words)

    def test_every_exception_of_an_rtu_instrument(self):
        for exception, words in self.RTU_WORDS.items():
            with self.subTest(exception):
                self.assertEqual(self.refused(RTU, rtu_frame(f"01{exception}"))["reason"], words)


class ReadBackTest(CommandLineTest):
    # 滤波系数 of the ASCII instrument stands at 0022.
    TAKEN = ascii_frame("010600220003")

    def write_filter(self, *replies):
        with ScriptedInstrument(*replies) as peer:
            run = self.write(peer.device, FILTERS[ASCII], 3, instrument=ASCII)
        return run

    def test_exception_is_no_read_back(self):
        run = self.write_filter(self.TAKEN, ascii_frame("018802"))
        self.assertEqual(run.status, 1)
        self.assertEqual(run.problem_lines, ["第 13 行 滤波系数: 已写入 3，但没有读回。请用 poll 查看"])

    def test_row_decides_where_the_answer_is_missing(self):
        run = self.write_filter(b"", ascii_frame("0103020003"))
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertTrue(run.output.endswith("第 13 行 滤波系数: 已写入 3，读回 3，一致\n"))

    def test_row_decides_where_the_answer_is_corrupt(self):
        run = self.write_filter(b":010600220003FF\r\n", ascii_frame("0103020007"))
        self.assertEqual(run.status, 1)
        self.assertEqual(run.problem_lines,
                         ["第 13 行 滤波系数: 已写入 3，读回 7，不一致。请检查数值的小数位和上下限"])

    def test_neither_answer_nor_read_back_confirms(self):
        run = self.write_filter()
        self.assertEqual(run.status, 1)
        self.assertEqual(run.problem_lines,
                         ["第 13 行 滤波系数: 没有收到正确的回答，不知是否写入。请检查地址和接线"])

    def test_numbers_grouped_by_commas_are_numbers(self):
        # 4660 is 1234; each word of a ratio carries one byte, and each half of it goes out by itself.
        with ScriptedInstrument(ascii_frame("010601100012"), ascii_frame("010601110034"),
                                ascii_frame("01030400120034")) as peer:
            run = self.write(peer.device, RATIO, 4660, instrument=ASCII)
        self.assertEqual(run.status, 0)
        self.assertTrue(run.output.endswith("第 28 行 电压变比: 已写入 4660，读回 4,660，一致\n"), run.output)

    def test_constant_of_a_phase_instrument_cannot_be_compared(self):
        echo = rtu_frame("01060040" + "41200000")
        with ScriptedInstrument(echo) as peer:
            run = self.write(peer.device, PHASE_RATIO, 10, "--format", "json", instrument=PHASES)
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertEqual((run.json[0]["outcome"], run.json[0]["reason"]), ("sent", "此行显示的是常数，不能比较"))
        self.assertEqual(peer.requests, [echo])


class RepetitionTest(CommandLineTest):
    TAKEN = ascii_frame("010600220003")
    OLD = ascii_frame("0103020005")
    NEW = ascii_frame("0103020003")

    def write_filter(self, *replies):
        """The run, and whether each request was a write."""
        with ScriptedInstrument(*replies) as peer:
            run = self.write(peer.device, FILTERS[ASCII], 3, "--retries", 2, instrument=ASCII)
        return run, [request[3:5] == b"06" for request in peer.requests]

    def test_write_goes_out_again_where_the_row_still_shows_the_old_value(self):
        run, writes = self.write_filter(self.OLD, b"", self.OLD, self.TAKEN, self.NEW)
        self.assertEqual((run.status, writes), (0, [False, True, False, True, False]))
        self.assertEqual(run.problem_lines, ["第 13 行 滤波系数: 没有确认，仍是 5，重写第 1 次"])

    def test_write_that_was_taken_without_an_answer_goes_out_once(self):
        run, writes = self.write_filter(self.OLD, b"", self.NEW)
        self.assertEqual((run.status, writes), (0, [False, True, False]))

    def test_write_behind_which_a_third_value_stands_goes_out_once(self):
        run, writes = self.write_filter(self.OLD, b"", ascii_frame("0103020004"))
        self.assertEqual((run.status, writes), (1, [False, True, False]))

    def test_write_whose_row_was_not_read_goes_out_once(self):
        run, writes = self.write_filter(b"", b"", b"", b"", self.OLD)
        self.assertEqual((run.status, writes), (1, [False, False, False, True, False]))

    def test_read_back_is_repeated(self):
        run, writes = self.write_filter(self.OLD, self.TAKEN, b"", self.NEW)
        self.assertEqual((run.status, writes), (0, [False, True, False, False]))
        self.assertEqual(run.problem_lines, ["第 13 行 滤波系数: 没有读到，重复第 1 次"])


class SetTest(CommandLineTest):
    def set(self, device, *words, options=()):
        sets = [word for each in words for word in ("--set", each)]
        return self.finish(self.start("write", device, PLAIN, "--interval", 0, *sets, *options))


class SeveralRowsTest(SetTest):
    def test_rows_are_written_in_turn_and_each_is_told(self):
        with self.simulate(values={"小数点位置": 1}) as simulator:
            run = self.set(simulator.device, "22=42", "量程下限=-12.5", options=("--format", "json"))
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertEqual(faults(run.json, schema("write")), [])
        self.assertEqual([(each["row"], each["name"], each["outcome"], each["value"], each["code"], each["read"])
                          for each in run.json],
                         [(22, "AL1报警延时", "equal", "42", "2A", "42"),
                          (13, "量程下限", "equal", "-12.5", "7D80", "-12.5")])
        self.assertEqual(simulator.counts["writes_accepted"], 2)

    def test_all_are_judged_before_the_first_leaves(self):
        with self.simulate() as simulator:
            run = self.set(simulator.device, "22=42", "16=1.2345", options=("--format", "json"))
        self.assertEqual(run.status, 2)
        self.assertEqual([each["outcome"] for each in run.json], ["held", "held"])
        self.assertEqual(simulator.counts["requests"], 0)

    def test_first_that_fails_ends_the_run(self):
        with self.simulate() as simulator:
            run = self.set(simulator.device, "22=61", "16=1.5", options=("--format", "json", "--force"))
        self.assertEqual(run.status, 1)
        self.assertEqual([each["outcome"] for each in run.json], ["refused", "held"])
        self.assertEqual(simulator.counts["refusals"], 1)

    def test_command_is_sent_and_the_run_goes_on(self):
        with self.simulate() as simulator:
            run = self.set(simulator.device, "1=0", "22=5", options=("--format", "json", "--yes"))
        self.assertEqual((run.status, [each["outcome"] for each in run.json]), (0, ["sent", "equal"]))
        self.assertEqual(run.json[0]["reason"], "此行是命令")
        self.assertEqual(simulator.counts["writes_accepted"], 2)

    def test_one_row_is_an_array_too(self):
        with self.simulate() as simulator:
            run = self.write(simulator.device, DELAY, 42, "--format", "json")
        self.assertEqual(len(run.json), 1)


class NameTest(SetTest):
    def test_name_that_stands_twice_is_refused_with_its_rows(self):
        catalogue = sqlite3.connect(self.folder / "通讯数据.mdb")
        with catalogue:
            catalogue.execute("UPDATE 仪表_参数 SET 参数名称 = '量程' WHERE 参数名称 IN ('量程下限', '量程上限')")
        catalogue.close()
        run = self.set("/dev/no-port", "量程=1")
        self.assertEqual(run.status, 2)
        self.assertEqual(run.problem_lines, ['参数 "量程" 有多行: 13、14。请用行号'])

    def test_name_that_there_is_not_is_refused(self):
        run = self.set("/dev/no-port", "温度=1")
        self.assertEqual(run.problem_lines, ['没有参数 "温度"。名称和行号请看 commtest-cli list parameters'])


if __name__ == "__main__":
    unittest.main()
