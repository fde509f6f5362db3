"""Spreadsheets of the catalogue, read back by another hand than the one that wrote them."""

import json
import os
import pty
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from programs import CLI, LISTS, PATIENCE, PLAIN

ROOT = Path(__file__).resolve().parents[2]
READER = Path(__file__).resolve().parent / "peers/workbook_reader.py"
TEMPLATE = "参数地址表.xls"
HEADINGS = ["序号", "参数名称", "地址", "长度", "属性", "小数点", "RE 读值", "RR/RD 读值", "计算值", "小数点修正值", "修改值"]
MANY = 40  # instruments
PARAMETERS = 46  # of each
NOBODY = 65534


def read(path, sheet="参数表"):
    return json.loads(subprocess.run(["/usr/bin/python3", READER, path, sheet], check=True, capture_output=True,
                                     encoding="utf-8", timeout=PATIENCE).stdout)


def texts(book):
    return [[cell["text"] for cell in row[:11]] for row in book["cells"]]


def shipped_rows(name):
    """Name, address, length, attribute and decimals of each parameter of a shipped list."""
    lines = (line for line in (LISTS / name).read_text(encoding="utf-8").splitlines()
             if line.strip() and not line.startswith("#"))
    next(lines)
    return [[field.strip() for field in line.split("|")][:5] for line in lines]


class SpreadsheetTest(unittest.TestCase):
    def setUp(self):
        self.outer = tempfile.TemporaryDirectory()
        self.addCleanup(self.outer.cleanup)
        self.folder = Path(self.outer.name) / "程序 folder"
        subprocess.run([CLI, "catalogue", "create", self.folder], check=True, stdout=subprocess.DEVNULL)
        self.results = self.folder / "自动保存通讯记录"

    def words(self, *words):
        return [CLI, "catalogue", "spreadsheet", *words, "--folder", self.folder]

    def run_cli(self, *words, **details):
        return subprocess.run(self.words(*words), stdin=subprocess.DEVNULL, capture_output=True, encoding="utf-8",
                              timeout=PATIENCE, check=False, **details)

    def result(self, instrument=PLAIN[1]):
        return self.results / f"{instrument}{TEMPLATE}"

    def write(self, instrument=PLAIN[1]):
        run = self.run_cli("--instrument", instrument)
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        return read(self.result(instrument))

    def import_list(self, *lines):
        path = self.folder / "list.ini"
        path.write_bytes("".join(line + "\r\n" for line in lines).encode("gbk"))
        subprocess.run([CLI, "catalogue", "import", path, "--yes", "--folder", self.folder], check=True,
                       stdout=subprocess.DEVNULL, timeout=PATIENCE)

    def stand_in(self, script):
        """The environment of a machine whose ssconvert is this script."""
        programs = Path(self.outer.name) / "bin"
        programs.mkdir(exist_ok=True)
        (programs / "ssconvert").write_text(f"#!/bin/sh\n{script}\n", encoding="utf-8")
        (programs / "ssconvert").chmod(0o755)
        return {**os.environ, "PATH": f"{programs}:{os.environ['PATH']}"}


class CellsTest(SpreadsheetTest):
    def test_every_cell_stands_where_it_belongs(self):
        rows = texts(self.write())
        parameters = shipped_rows(PLAIN[2])
        self.assertEqual(rows[0], ["仪表参数地址表"] + [""] * 10)
        self.assertEqual(rows[1], ["通讯协议:  TQ仪表协议"] + [""] * 10)
        self.assertEqual(rows[2], ["Device  HX-D10智能数字显示控制仪"] + [""] * 10)
        self.assertEqual(rows[3], [""] * 11)
        self.assertEqual(rows[4], HEADINGS)
        for serial, (row, parameter) in enumerate(zip(rows[5:], parameters), start=1):
            preset = str(serial - 1) if serial <= 5 else ""
            self.assertEqual(row, [f"{serial:03}", *parameter, "", preset, "", "", ""])
        self.assertEqual(rows[5 + len(parameters):], [["END"] + [""] * 10])

    def test_digits_stay_the_text_that_they_are(self):
        self.import_list("Device  EXAMPLE", "Type    11010107", "001  5                             2001 0010  RW",
                         "END", "DEVICE   END")
        book = self.write("EXAMPLE")
        self.assertEqual([cell["text"] for cell in book["cells"][5][:6]], ["001", "5", "0001", "2", "RW", "0010"])
        kinds = {cell["kind"] for row in book["cells"] for cell in row}
        self.assertEqual(kinds, {"text", "empty"})

    def test_short_list_has_fourteen_rows_and_its_end(self):
        self.import_list("Device  EXAMPLE", "Type    11010107", "001  NAME                          2001 0  RW",
                         "END", "DEVICE   END")
        rows = texts(self.write("EXAMPLE"))
        self.assertEqual([row[0] for row in rows[5:]], [f"{serial:03}" for serial in range(1, 15)] + ["END"])

    def test_long_list_is_whole(self):
        lines = [f"{n % 1000:03}  P{n // 100}-{n % 100:<30}  2{n:04X} 0  RW" for n in range(1, 1201)]
        self.import_list("Device  EXAMPLE", "Type    11010107", *lines, "END", "DEVICE   END")
        rows = texts(self.write("EXAMPLE"))
        self.assertEqual(len(rows), 1206)
        self.assertEqual(rows[1204][0], "1200")
        self.assertEqual(rows[1204][1], "P12-0")
        self.assertEqual(rows[1205][0], "END")

    def test_slash_of_a_name_is_turned_in_the_file_name_alone(self):
        self.import_list("Device  A/B/C", "Type    11010107", "001  NAME                          2001 0  RW", "END",
                         "DEVICE   END")
        self.assertEqual(self.run_cli("--instrument", "A/B/C").returncode, 0)
        self.assertEqual(os.listdir(self.results), ["A-B-C参数地址表.xls"])
        self.assertEqual(texts(read(self.result("A-B-C")))[2][0], "Device  A/B/C")


class TemplateTest(SpreadsheetTest):
    def test_fonts_fills_frames_and_widths_of_the_template_stay(self):
        template = read(self.folder / TEMPLATE)
        book = self.write()
        for row in range(5):
            for column in range(11):
                self.assertEqual(book["cells"][row][column]["look"], template["cells"][row][column]["look"])
        for row in book["cells"][5:51]:
            for column in range(11):
                self.assertEqual(row[column]["look"], template["cells"][5][column]["look"])
        for what in ("widths", "heights", "merged", "names"):
            self.assertEqual(book[what], template[what])

    def test_looks_as_its_text_says(self):
        book = read(self.folder / TEMPLATE)
        title, heading, serial, name = (book["cells"][row][column]["look"]
                                        for row, column in ((0, 0), (4, 3), (5, 0), (5, 1)))
        self.assertEqual((title["font"], title["size"], title["bold"]), ("黑体", 16, True))
        self.assertEqual((heading["font"], heading["bold"], heading["fill"], heading["frame"]),
                         ("宋体", True, [0xDD, 0xE6, 0xEE], 1))
        self.assertEqual((serial["align"], name["align"], name["format"]), ("center", "left", "@"))
        self.assertEqual(book["merged"], [[0, 1, 0, 11]])
        # A1:K65536 is printed, rows 1 to 5 are repeated.
        self.assertEqual(book["names"]["Print_Area"], "3b00000000ffff00000a00")
        self.assertEqual(book["names"]["Print_Titles"], "3b00000000040000" "00ff00")

    def test_is_the_one_that_its_script_makes(self):
        made = Path(self.outer.name) / "made.xls"
        subprocess.run([sys.executable, "-B", ROOT / "scripts/make-spreadsheet-template", made], check=True,
                       stdout=subprocess.DEVNULL)
        self.assertEqual(read(made), read(ROOT / "data/spreadsheet" / TEMPLATE))

    def test_of_the_users_own_gives_the_look(self):
        wide = (ROOT / "data/spreadsheet/template.txt").read_text(encoding="utf-8")
        own = Path(self.outer.name) / "data/spreadsheet"
        own.mkdir(parents=True)
        (own / "template.txt").write_text(wide.replace("width B 142", "width B 200").replace("DDE6EE", "FFFF00"),
                                          encoding="utf-8")
        script = Path(self.outer.name) / "scripts/make"
        script.parent.mkdir()
        shutil.copy(ROOT / "scripts/make-spreadsheet-template", script)
        subprocess.run([sys.executable, "-B", script, self.folder / TEMPLATE], check=True, stdout=subprocess.DEVNULL)
        book = self.write()
        self.assertEqual(book["cells"][4][0]["look"]["fill"], [0xFF, 0xFF, 0x00])
        self.assertGreater(book["widths"][1], 9000)


class AllTest(SpreadsheetTest):
    def test_writes_one_for_each_instrument_of_every_protocol(self):
        run = self.run_cli("--all")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertEqual(run.stdout, f"19 个表格已写入 {self.results}\n")
        self.assertEqual(len(os.listdir(self.results)), 19)
        rows = texts(read(self.result("HX-M31智能数显表")))
        self.assertEqual(rows[1][0], "通讯协议:  ModBus-RTU协议")
        self.assertEqual(rows[5][1:6], shipped_rows("31_rtu_indicator.txt")[0])

    def test_takes_so_little_that_two_hundred_need_no_minute(self):
        lines = []
        for n in range(MANY):
            lines += ["END"] * (n > 0) + [f"Device  M{n}", "Type    11010107"]
            lines += [f"{p:03}  P{p:<36}2{p:04X} 0  RW" for p in range(PARAMETERS)]
        self.import_list(*lines, "END", "DEVICE   END")
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        self.assertEqual(self.run_cli("--all").returncode, 0)
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        self.assertEqual(len(os.listdir(self.results)), MANY)
        # Of one core, whatever else the machine does; there are two.
        self.assertLess((after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime) * 200 / MANY, 60)

    def test_goes_into_another_folder(self):
        other = Path(self.outer.name) / "other"
        run = self.run_cli("--all", "--output", other)
        self.assertEqual((run.returncode, run.stderr), (3, f"没有文件夹 {other}，请先建立\n"))
        other.mkdir()
        self.assertEqual(self.run_cli("--all", "--output", other).returncode, 0)
        self.assertEqual(len(os.listdir(other)), 19)
        self.assertEqual(os.listdir(self.results), [])

    def test_progress_lives_on_a_terminal(self):
        master, slave = pty.openpty()
        with subprocess.Popen(self.words("--all"), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=slave) as process:
            os.close(slave)
            seen = b""
            while True:
                try:
                    seen += os.read(master, 4096)
                except OSError:
                    break
            process.wait(PATIENCE)
        os.close(master)
        self.assertIn("0 / 19", seen.decode("utf-8", "replace"))
        self.assertIn("18 / 19", seen.decode("utf-8", "replace"))


class FailureTest(SpreadsheetTest):
    def setUp(self):
        super().setUp()
        self.result().write_bytes(b"former")

    def expect_former(self, run, status, *lines):
        self.assertEqual((run.returncode, run.stderr.splitlines()), (status, list(lines)))
        self.assertEqual(self.result().read_bytes(), b"former")
        self.assertEqual([name for name in os.listdir(self.results) if not name.startswith(".~lock")],
                         [self.result().name])

    def test_without_a_program_says_what_to_install(self):
        run = self.run_cli("--instrument", PLAIN[1], env={**os.environ, "PATH": "/nonexistent"})
        self.expect_former(run, 3, "没有能写表格的程序，请安装 gnumeric 或 LibreOffice")

    def test_missing_template(self):
        (self.folder / TEMPLATE).unlink()
        run = self.run_cli("--instrument", PLAIN[1])
        self.expect_former(run, 3, f"没有模板 {self.folder / TEMPLATE}，"
                                   "请放回；commtest-cli catalogue create 会补上缺少的文件")
        subprocess.run([CLI, "catalogue", "create", self.folder], check=True, stdout=subprocess.DEVNULL)
        self.assertEqual(self.run_cli("--instrument", PLAIN[1]).returncode, 0)

    def test_template_without_the_sheet(self):
        table = self.folder / "other.csv"
        table.write_text("1,2\n", encoding="utf-8")
        subprocess.run(["ssconvert", "--export-type=Gnumeric_Excel:excel_biff8", table, self.folder / TEMPLATE],
                       check=True, capture_output=True)
        self.expect_former(self.run_cli("--all"), 3, '模板中没有工作表 "参数表"，请检查 参数地址表.xls')

    def test_result_that_is_open_elsewhere(self):
        mark = self.results / f".~lock.{self.result().name}#"
        mark.write_text(",user,", encoding="utf-8")
        run = self.run_cli("--instrument", PLAIN[1])
        self.expect_former(run, 1, f'仪表 "{PLAIN[1]}" 没有写成: 结果在另一个程序中打开，请先关闭: {mark}')
        self.assertEqual(run.stdout, f"0 个表格已写入 {self.results}，1 个没有写成\n")

    def test_folder_that_may_not_be_written(self):
        user = {}
        if os.geteuid() == 0:
            user = {"user": NOBODY, "group": NOBODY, "extra_groups": []}
            os.chmod(self.outer.name, 0o755)
            if subprocess.run(["test", "-x", CLI], check=False, **user).returncode != 0:
                self.skipTest("the program is out of reach for another user")
        os.chmod(self.results, 0o555)
        self.addCleanup(os.chmod, self.results, 0o755)
        run = self.run_cli("--instrument", PLAIN[1], **user)
        self.expect_former(run, 1, f'仪表 "{PLAIN[1]}" 没有写成: 没有写入的权限: {self.result()}')

    def test_the_others_are_written_where_one_fails(self):
        self.result("HX-M31智能数显表").mkdir()
        run = self.run_cli("--all")
        self.assertEqual(run.returncode, 1)
        self.assertEqual(len(run.stderr.splitlines()), 1)
        self.assertTrue(run.stderr.startswith('仪表 "HX-M31智能数显表" 没有写成: 结果写不进去: '))
        self.assertEqual(run.stdout, f"18 个表格已写入 {self.results}，1 个没有写成\n")

    def test_interrupt_ends_it_and_leaves_no_program_and_no_half_file(self):
        mark = Path(self.outer.name) / "mark"
        real = shutil.which("ssconvert")
        environment = self.stand_in(f'case "$*" in *filled.xls) echo $$ >"{mark}"; exec sleep 600;; esac\nexec {real} "$@"')
        with subprocess.Popen(self.words("--all"), env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, encoding="utf-8") as process:
            end = time.monotonic() + PATIENCE
            while not (mark.exists() and mark.read_text()) and time.monotonic() < end:
                time.sleep(0.01)
            process.send_signal(signal.SIGINT)
            output, problems = process.communicate(timeout=PATIENCE)
        self.assertEqual((process.returncode, problems), (3, "已中断，还有 19 个没有写\n"))
        self.assertEqual(output, f"0 个表格已写入 {self.results}\n")
        self.assertEqual(os.listdir(self.results), [self.result().name])
        self.assertFalse(Path(f"/proc/{mark.read_text().strip()}").exists())


if __name__ == "__main__":
    unittest.main()
