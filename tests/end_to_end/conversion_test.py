"""The verbs without a line: numbers and frames through a pipe."""

import json
import os
import pty
import select
import sqlite3
import signal
import subprocess
import tempfile
import unittest
from pathlib import Path

from programs import CLI, PATIENCE
from schemas import faults, schema

CONVERT = [CLI, "convert", "--format", "0"]
CHECK = [CLI, "check", "--protocol", "11"]
VERIFY = [CLI, "check", "--family", "modbus-rtu", "--verify"]
TO_VALUE = [CLI, "convert", "--format", "9", "--to-value"]


def run(words, text=""):
    return subprocess.run(words, input=text, capture_output=True, encoding="utf-8", timeout=PATIENCE, check=False)


def peak_memory(words, lines):
    """In KB, of a call with so many lines of input."""
    with tempfile.TemporaryFile() as source:
        source.write(b"".join(b"%d\n" % number for number in range(lines)))
        source.seek(0)
        process = subprocess.Popen(words, stdin=source, stdout=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
    assert process.returncode == 0
    return usage.ru_maxrss


class ConversionTest(unittest.TestCase):
    def test_lines_through_a_pipe(self):
        done = run(CONVERT, "1234\n-1234\nx\n7")
        self.assertEqual((done.returncode, done.stdout, done.stderr),
                         (2, "D204\nD284\n\n0700\n", '第 3 行: "x" 不是数值\n'))

    def test_one_negative_number(self):
        done = run(CONVERT + ["-1234"])
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "D284\n", ""))

    def test_frames_through_a_pipe(self):
        done = run(CHECK, "@01RD\r\n\nx7#\n")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "@01RD17\\0D\n\n@7#14\\0D\n", ""))

    def test_check_word_of_a_family_stands_as_on_the_wire(self):
        done = run([CLI, "check", "--family", "modbus-rtu", "01 03 00 10 00 01"])
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "85 CF\n", ""))

    def test_frames_are_verified_through_a_pipe(self):
        done = run(VERIFY, "01 03 00 10 00 01 85 CF\n01 03 00 10 00 01 85 CE\n")
        self.assertEqual((done.returncode, done.stdout, done.stderr),
                         (1, "正确\n错误，帧中为 85 CE，应为 85 CF\n", ""))

    def test_codes_without_their_digits_are_refused_or_read_as_the_grid_does(self):
        done = run(TO_VALUE, "1G\nFF\n")
        self.assertEqual((done.returncode, done.stdout, done.stderr),
                         (2, "\n255\n", '第 1 行: "1G" 不是格式 9 的代码：第 2 个字符 "G" 不是十六进制数字。'
                          '仍要换算请加 --lenient\n'))
        done = run(TO_VALUE + ["--lenient"], "1G\nFF\n")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "1\n255\n", ""))

    def test_json_is_as_its_schemas_say(self):
        for words, text, name in (
                (VERIFY, "01 03 00 10 00 01 85 CF\n01 03 00 10 00 01 85 CE\nx\n", "check-verify"),
                (CHECK, "@01RD\n", "check"), (TO_VALUE + ["--explain"], "FF\n1G\n", "convert")):
            done = run([*words, "--format", "json"], text)
            self.assertEqual(faults(json.loads(done.stdout), schema(name)), [])

    def test_row_of_the_catalogue_adds_a_protocol_of_the_tool(self):
        with tempfile.TemporaryDirectory() as outer:
            folder = Path(outer) / "folder"
            run([CLI, "catalogue", "create", folder]).check_returncode()
            catalogue = sqlite3.connect(folder / "通讯数据.mdb")
            with catalogue:
                catalogue.execute("INSERT INTO 表格_设置 (使用, 列号, 字段, 宽度) VALUES ('协议规定', 14, '双字节校验', 3)")
            catalogue.close()
            done = run([CLI, "list", "protocols", "--folder", folder, "--format", "csv"])
        self.assertEqual(done.stdout.splitlines()[-1], "3,双字节校验,否")

    def test_line_is_answered_while_the_pipe_stays_open(self):
        with subprocess.Popen(CONVERT, stdin=subprocess.PIPE, stdout=subprocess.PIPE, encoding="utf-8") as process:
            for value, code in (("1234", "D204\n"), ("1", "0100\n")):
                process.stdin.write(value + "\n")
                process.stdin.flush()
                self.assertEqual(process.stdout.readline(), code)

    def test_line_is_answered_while_half_of_the_next_one_is_there(self):
        with subprocess.Popen(CONVERT, stdin=subprocess.PIPE, stdout=subprocess.PIPE) as process:
            process.stdin.write(b"4\n5")
            process.stdin.flush()
            ready, _, _ = select.select([process.stdout], [], [], PATIENCE)
            self.assertTrue(ready)
            self.assertEqual(process.stdout.readline(), b"0400\n")
            process.stdin.close()
            self.assertEqual(process.stdout.read(), b"0500\n")

    def test_reader_that_goes_away_ends_the_program_quietly(self):
        with subprocess.Popen(["yes", "1234"], stdout=subprocess.PIPE) as source:
            process = subprocess.Popen(CONVERT, stdin=source.stdout, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                       encoding="utf-8")
            source.stdout.close()
            self.assertEqual(process.stdout.readline(), "D204\n")
            process.stdout.close()
            problems = process.stderr.read()
            process.stderr.close()
            self.assertEqual(process.wait(PATIENCE), -signal.SIGPIPE)
        self.assertEqual(problems, "")

    def test_input_that_cannot_be_read(self):
        folder = os.open("/", os.O_RDONLY)
        done = subprocess.run(CONVERT, stdin=folder, capture_output=True, encoding="utf-8", check=False)
        os.close(folder)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (3, "", "标准输入读不出来，请检查它的来源\n"))

    def test_terminal_is_told_what_is_expected(self):
        master, slave = pty.openpty()
        process = subprocess.Popen(CHECK, stdin=slave, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   encoding="utf-8")
        os.close(slave)
        os.write(master, b"@01RD\n")
        self.assertEqual(process.stdout.readline(), "@01RD17\\0D\n")
        os.write(master, b"\x04")
        _, problems = process.communicate(timeout=PATIENCE)
        os.close(master)
        self.assertEqual((process.returncode, problems), (0, "每行输入一帧，Ctrl-D 结束\n"))

    def test_many_lines_take_no_more_memory_than_few(self):
        words = CONVERT + ["--format", "json"]
        self.assertLess(peak_memory(words, 300_000), peak_memory(words, 10) + 4_000)


if __name__ == "__main__":
    unittest.main()
