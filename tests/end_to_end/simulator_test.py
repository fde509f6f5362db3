"""The simulator: what a script asks of its instruments, beside answering."""

import subprocess
import unittest

from programs import ASCII, NOVAX, RTU, SIMULATOR, CommandLineTest, Simulator, description

FILTER = {ASCII: 13, RTU: 16}  # row of 滤波系数
ADDRESS, BAUD_RATE = 27, 28    # rows of the RTU instrument
RATE_CODE_OF_19200 = 4


def of_row(text, name, ending):
    """A description with one row that goes on."""
    return "".join(f"{line} {ending}\n" if line.startswith(name) else f"{line}\n" for line in text.splitlines())


class IndicatorTest(CommandLineTest):
    def answers(self, device, *options):
        run = self.poll(device, "--command", 20, "--exchanges", 1, "--strict", *options, instrument=RTU)
        return run.status == 0


class SettingsTest(IndicatorTest):
    def test_written_address_is_that_of_the_instrument_from_then_on(self):
        with self.simulate(instrument=RTU) as simulator:
            run = self.write(simulator.device, ADDRESS, 2, instrument=RTU)
            old, new = self.answers(simulator.device), self.answers(simulator.device, "--address", 2)
        self.assertEqual(run.status, 1)
        self.assertEqual(run.problem_lines, ["第 27 行 仪表地址: 已写入 2，但没有读回。请用 poll 查看"])
        self.assertEqual((old, new), (False, True))
        self.assertEqual(simulator.counts["instruments"][0]["address"], 2)
        self.assertEqual(simulator.counts["writes_accepted"], 1)

    def test_written_baud_rate_is_that_of_the_instrument_from_then_on(self):
        with self.simulate(instrument=RTU) as simulator:
            self.assertTrue(self.answers(simulator.device, "--settings", "9600,N,8,1"))
            self.write(simulator.device, BAUD_RATE, RATE_CODE_OF_19200, instrument=RTU)
            old = self.answers(simulator.device, "--settings", "9600,N,8,1")
            new = self.answers(simulator.device, "--settings", "19200,N,8,1")
        self.assertEqual((old, new), (False, True))


class PowerTest(IndicatorTest):
    def filter_of(self, device):
        row_after_row = ("--command", 50, "--exchanges", FILTER[RTU])
        return self.poll(device, *row_after_row, "--format", "json", instrument=RTU).row(FILTER[RTU])["value"]

    def test_signals_take_the_power_off_and_on_and_volatile_rows_forget(self):
        for ending, kept in (("", "3"), ("| volatile", "7")):
            text = of_row(description(RTU[2]), "滤波系数", ending)
            with self.subTest(ending), Simulator(self.outer.name, text) as simulator:
                self.assertEqual(self.write(simulator.device, FILTER[RTU], 3, instrument=RTU).status, 0)
                simulator.take_power()
                answers_without = self.answers(simulator.device)
                simulator.give_power()
                value = self.filter_of(simulator.device)
            self.assertEqual((answers_without, value), (False, kept))


class RefusalTest(CommandLineTest):
    def reason(self, instrument, *options):
        with self.simulate(*options, instrument=instrument) as simulator:
            run = self.write(simulator.device, FILTER[instrument], 3, "--format", "json", instrument=instrument)
        written, = run.json
        self.assertEqual((run.status, written["outcome"]), (1, "refused"))
        self.assertEqual(simulator.counts["refusals"], 1)
        self.assertEqual(simulator.counts["writes_accepted"], 0)
        return written["reason"]

    def test_modbus_instruments_refuse_with_the_exception_of_the_option(self):
        for instrument, option, words in ((ASCII, "86:1", "设置错误，写入数据时CLK必须等于 8 ！"),
                                          (ASCII, "88:1", "仪表系统忙！"), (ASCII, "1", "仪表系统忙！"),
                                          (RTU, "8603:1", "注意：非法的参数地址！该指令无效"),
                                          (RTU, "1", "板卡返回错误信息！")):
            with self.subTest(instrument[0] + option):
                self.assertEqual(self.reason(instrument, "--refuse", option), words)

    def test_parameter_lock_refuses_writes(self):
        text = description(ASCII[2]).replace("参数锁 ", "CLK ")
        with Simulator(self.outer.name, text) as simulator:
            locked = self.write(simulator.device, FILTER[ASCII], 3, "--format", "json", instrument=ASCII)
            unlocked = self.write(simulator.device, "27", 8, instrument=ASCII)
            written = self.write(simulator.device, FILTER[ASCII], 3, instrument=ASCII)
        self.assertEqual(locked.json[0]["reason"], "设置错误，写入数据时CLK必须等于 8 ！")
        self.assertEqual((unlocked.status, written.status), (0, 0))

    def test_novax_instrument_that_refuses_is_found_out_by_the_read_back(self):
        with self.simulate("--refuse", "1", instrument=NOVAX) as simulator:
            run = self.write(simulator.device, 12, 5, "--format", "json", instrument=NOVAX)
        self.assertEqual(run.json[0]["outcome"], "different")
        self.assertEqual(simulator.counts["refusals"], 1)

    def test_some_of_many_reads_are_refused_and_counted(self):
        with self.simulate("--refuse", "0.5", instrument=ASCII) as simulator:
            run = self.poll(simulator.device, "--exchanges", 20, "--format", "jsonl", instrument=ASCII)
        refused = run.output.count('"verdict": "refused"')
        self.assertEqual(run.status, 0)
        self.assertTrue(1 < refused < 19)
        self.assertEqual(simulator.counts["refusals"], refused)

    def test_refusal_that_the_instruments_do_not_know_is_wrong_usage(self):
        for option, message in (("0.5x", '--refuse: "0.5x" is no number from 0 to 1; --help tells the options'),
                                ("7F:1", '--refuse: "7F:1" begins with no exception from 81 to FF; --help tells the'
                                 ' options'),
                                ("88:1", '--refuse: expected a Modbus instrument for an exception, found'
                                 ' "HX-N41电炉控制仪"')):
            source = self.folder.parent / "novax.txt"
            source.write_text(description(NOVAX[2]), encoding="utf-8")
            run = subprocess.run([SIMULATOR, "--description", source, "--refuse", option], capture_output=True,
                                 encoding="utf-8", check=False)
            self.assertEqual((run.returncode, run.stderr), (2, f"instrument-simulator: {message}\n"))


class WholeLineTest(CommandLineTest):
    def test_two_hundred_and_forty_seven_instruments_share_a_line(self):
        text = "".join(description(RTU[2], values={"测量值": 1000 + address}, address=address)
                       for address in range(1, 248))
        with Simulator(self.outer.name, text) as simulator:
            for address in (1, 128, 247):
                run = self.poll(simulator.device, "--exchanges", 2, "--format", "json", "--address", address,
                                instrument=RTU)
                self.assertEqual(run.row(6)["value"], str(1000 + address))
        self.assertEqual(len(simulator.counts["instruments"]), 247)
        self.assertEqual(simulator.counts["requests"], 6)


if __name__ == "__main__":
    unittest.main()
