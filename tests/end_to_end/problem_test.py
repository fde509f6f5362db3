"""What goes wrong outside: one clear line and its exit status, never a trace."""

import os
import subprocess
import time
import unittest
from pathlib import Path

from programs import CLI, PLAIN, CommandLineTest


class ProblemTest(CommandLineTest):
    def test_port_that_is_not_there(self):
        run = self.poll("/dev/no-port-to-tell")
        self.assertEqual((run.status, run.output), (3, ""))
        self.assertEqual(run.problem_lines,
                         ["系统串口被占用,无法打开！ 设备 /dev/no-port-to-tell 不存在。请检查接线和设备名"])

    def test_port_that_another_program_holds(self):
        with self.simulate() as simulator:
            holder = self.start("poll", simulator.device, PLAIN)
            holder.stdout.readline()
            run = self.poll(simulator.device, "--exchanges", 1)
            holder.terminate()
            self.finish(holder)
        self.assertEqual((run.status, run.output), (3, ""))
        self.assertEqual(run.problem_lines,
                         [f"系统串口被占用,无法打开！ 设备 {simulator.device} 正被程序 commtest-cli (进程 {holder.pid}) "
                          "使用。请先结束那个程序"])

    def test_unknown_instrument(self):
        run = self.poll("/dev/null", instrument=("TQ仪表协议", "none", ""))
        self.assertEqual((run.status, run.output), (2, ""))
        self.assertEqual(run.problem_lines, ["目录中没有仪表 \"none\"。可用名称请看 commtest-cli list instruments"])

    def test_folder_without_a_catalogue(self):
        empty = Path(self.outer.name) / "empty"
        empty.mkdir()
        run = subprocess.run([CLI, "poll", "--folder", empty, "--protocol", PLAIN[0], "--instrument", PLAIN[1]],
                             capture_output=True, encoding="utf-8", check=False)
        self.assertEqual((run.returncode, run.stdout), (3, ""))
        self.assertEqual(run.stderr.count("\n"), 1)
        self.assertTrue(run.stderr.startswith(f"数据库错误: {empty}/通讯数据.mdb"))
        self.assertEqual(list(empty.iterdir()), [])

    def test_cable_that_is_pulled_out(self):
        record = self.folder / "record.txt"
        with self.simulate() as simulator:
            process = self.start("poll", simulator.device, PLAIN, "--interval", 10, "--record", record)
            process.stdout.readline()
            simulator.pull_the_cable()
            pulled = time.monotonic()
            run = self.finish(process)
            self.assertLess(time.monotonic() - pulled, 1)
        self.assertEqual(run.status, 3)
        self.assertEqual(run.problem_lines, [f"串口已断开,通讯停止！ COM1 ({simulator.device}) 已断开。请检查接线后重新开始"])
        self.assertIn("\n总计通讯: ", run.output)
        self.assertTrue(record.read_text(encoding="utf-8").startswith("第 1 次, 向 HX-D10智能数字显示控制仪 发送: @01RD17"))

    def test_cable_that_is_pulled_out_leaves_the_processor_alone(self):
        with self.simulate("--drop", "1") as simulator:
            process = self.start("poll", simulator.device, PLAIN, stdout=subprocess.DEVNULL)
            time.sleep(0.6)
            simulator.pull_the_cable()
            _, status, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
            process.stderr.close()
        self.assertEqual(process.returncode, 3)
        self.assertLess(usage.ru_utime + usage.ru_stime, 0.3)

    def test_results_that_cannot_be_written(self):
        with open("/dev/full", "w", encoding="utf-8") as full:
            run = subprocess.run([CLI, "list", "protocols", "--folder", self.folder], stdout=full,
                                 stderr=subprocess.PIPE, encoding="utf-8", check=False)
        self.assertEqual((run.returncode, run.stderr), (3, "结果写不出去: 磁盘已满，请检查标准输出\n"))

    def test_locale_of_another_character_set(self):
        run = subprocess.run([CLI, "list", "instruments", "--folder", self.folder, "--protocol", PLAIN[0]],
                             env=os.environ | {"LC_ALL": "C"}, capture_output=True, encoding="utf-8", check=False)
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertIn(PLAIN[1], run.stdout)


if __name__ == "__main__":
    unittest.main()
