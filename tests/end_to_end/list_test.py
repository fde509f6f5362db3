"""Parameter lists in and out of a catalogue, and what stops an import on its way."""

import json
import os
import pty
import re
import resource
import select
import signal
import sqlite3
import subprocess
import tempfile
import time
import unittest
from contextlib import closing
from pathlib import Path

from programs import CLI, PATIENCE

KILLS = 50
NOBODY = 65534
NOTHING_CHANGED = "。目录没有改变\n"

LIST = """; a list with findings
Device  EXAMPLE-METER
Type    31010107
001  测量值    2010 0020  R
002  LOW:ALARM  2011 0  RW  -1999  9999
003  TREND  2012 0  R
004  LOST  2013 0  R
END

Device  OTHER
Type    11010201
001  VALUE  2010 0  X
END
DEVICE   END
""".replace("\n", "\r\n").encode("gbk")

WRITTEN = "".join(line + "\r\n" for line in (
    "Device  EXAMPLE-METER",
    "Type    31010107",
    "001  测量值                                  2010 0020  R                             ",
    "002  LOW:  ALARM                             2011 0     RW    -1999       9999        ",
    "END",
    "",
    "Device  OTHER",
    "Type    11010201",
    "001  VALUE                                   2010 0     X                             ",
    "END",
    "DEVICE   END")).encode("gbk")


def long_list(name, rows):
    """Instruments of 100 rows each."""
    lines = []
    for row in range(rows):
        if row % 100 == 0:
            lines += ["END"] * (row > 0) + [f"Device  {name}{row // 100}", "Type    31010107"]
        lines.append(f"{row % 100:03}  {name}{row}  2{row % 4096:03X} 0 R")
    return "\r\n".join([*lines, "END", ""]).encode()


class ListTest(unittest.TestCase):
    def setUp(self):
        self.outer = tempfile.TemporaryDirectory()
        self.addCleanup(self.outer.cleanup)
        self.folder = Path(self.outer.name) / "程序 folder"
        subprocess.run([CLI, "catalogue", "create", self.folder], check=True, stdout=subprocess.DEVNULL)
        self.catalogue = self.folder / "通讯数据.mdb"
        self.list = self.folder / "TQ.ini"
        self.shipped = self.rows()

    def words(self, *words):
        return [CLI, *words, "--folder", self.folder]

    def run_cli(self, *words, **details):
        return subprocess.run(self.words(*words), stdin=subprocess.DEVNULL, capture_output=True, encoding="utf-8",
                              timeout=PATIENCE, check=False, **details)

    def rows(self):
        """Instruments and parameters of the catalogue, which has to be whole."""
        with closing(sqlite3.connect(self.catalogue)) as store:
            self.assertEqual(store.execute("PRAGMA integrity_check").fetchall(), [("ok",)])
            return store.execute("SELECT * FROM 仪表_名称 ORDER BY 仪表ID").fetchall(), store.execute(
                "SELECT * FROM 仪表_参数 ORDER BY ID").fetchall()

    def copies(self):
        return sorted(self.folder.glob("通讯数据.mdb.bak-*"))

    def assert_untouched(self, run):
        self.assertEqual(run.returncode, 3)
        self.assertTrue(run.stderr.endswith(NOTHING_CHANGED), run.stderr)
        self.assertEqual(run.stderr.count("\n"), 1)
        self.assertEqual(self.rows(), self.shipped)
        self.assertFalse((self.folder / "OutTQ.ini").exists())

    def test_list_with_findings_is_imported_and_written(self):
        self.list.write_bytes(LIST)
        check = self.run_cli("catalogue", "check", "--format", "json")
        self.assertEqual(check.returncode, 1)
        self.assertEqual([(finding["line"], finding["kind"]) for finding in json.loads(check.stdout)["findings"]],
                         [(6, "nameEndsBlock"), (12, "attributeUnknown")])
        run = self.run_cli("catalogue", "import", "--yes")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertIn("\n已导入 2 台仪表，3 个参数\n数据库重置完毕！\n", run.stdout)
        self.assertEqual((self.folder / "OutTQ.ini").read_bytes(), WRITTEN)
        listed = self.run_cli("list", "parameters", "--instrument", "EXAMPLE-METER", "--format", "csv")
        self.assertEqual(listed.stdout, "row,name,address,length,attribute,decimals,upperLimit,lowerLimit\n"
                         "1,测量值,0010,2,R,0020,,\n2,LOW:  ALARM,0011,2,RW,0,9999,-1999\n")

    def test_restore_brings_the_former_catalogue_back(self):
        self.list.write_bytes(LIST)
        self.assertEqual(self.run_cli("catalogue", "import", "--yes").returncode, 0)
        imported = self.rows()
        self.assertEqual(self.run_cli("catalogue", "restore", "--yes").returncode, 0)
        self.assertEqual(self.rows(), self.shipped)
        self.assertEqual(self.run_cli("catalogue", "restore", "--yes").returncode, 0)
        self.assertEqual(self.rows(), imported)

    def test_killed_at_any_moment_the_catalogue_holds_the_old_rows_or_the_new_ones(self):
        lists = []
        for name in ("M", "N"):
            self.list.write_bytes(long_list(name, 2000))
            started = time.monotonic()
            self.assertEqual(self.run_cli("catalogue", "import", "--yes").returncode, 0)
            duration = time.monotonic() - started
            lists.append((self.list.read_bytes(), self.rows()))
        for turn in range(KILLS):
            present = self.rows()
            content, wanted = lists[0] if present == lists[1][1] else lists[1]
            self.list.write_bytes(content)
            process = subprocess.Popen(self.words("catalogue", "import", "--yes"), stdin=subprocess.DEVNULL,
                                       stdout=subprocess.DEVNULL)
            time.sleep(duration * (turn + 1) / KILLS)
            process.kill()
            process.wait()
            self.assertIn(self.rows(), (present, wanted), f"killed at moment {turn}")
            (self.folder / "OutTQ.ini").unlink(missing_ok=True)

    def test_lock_of_another_program_is_told_after_five_seconds(self):
        self.list.write_bytes(LIST)
        with closing(sqlite3.connect(self.catalogue, isolation_level=None)) as other:
            other.execute("BEGIN EXCLUSIVE")
            started = time.monotonic()
            run = self.run_cli("catalogue", "import", "--yes")
            waited = time.monotonic() - started
            other.execute("ROLLBACK")
        self.assertGreater(waited, 4)
        self.assertLess(waited, 10)
        self.assertIn("结束占用目录的其他程序", run.stderr)
        self.assert_untouched(run)

    def run_with_files_up_to(self, size, *words):
        """As on a disk that is full: no file grows beyond `size`."""
        return self.run_cli(*words, restore_signals=False,
                            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (size, size)))

    def test_no_room_for_the_copy(self):
        self.list.write_bytes(LIST)
        run = self.run_with_files_up_to(16384, "catalogue", "import", "--yes")
        self.assertIn("目录不能备份", run.stderr)
        self.assert_untouched(run)
        self.assertEqual(self.copies(), [])

    def test_no_room_for_the_new_rows(self):
        self.list.write_bytes(long_list("M", 20_000))
        run = self.run_with_files_up_to(self.catalogue.stat().st_size + 65536, "catalogue", "import", "--yes")
        self.assertTrue(run.stderr.startswith("数据库错误: "), run.stderr)
        self.assert_untouched(run)

    def test_folder_that_cannot_be_written(self):
        self.list.write_bytes(LIST)
        if os.geteuid() == 0:
            user = {"user": NOBODY, "group": NOBODY, "extra_groups": []}
            os.chmod(self.outer.name, 0o755)
            if subprocess.run(["test", "-x", CLI], check=False, **user).returncode != 0:
                self.skipTest("the program is out of reach for another user")
        else:
            user = {}
        os.chmod(self.catalogue, 0o444)
        os.chmod(self.folder, 0o555)
        self.addCleanup(os.chmod, self.folder, 0o755)
        self.assert_untouched(self.run_cli("catalogue", "import", "--yes", **user))
        self.assertEqual(self.copies(), [])

    def test_interrupt_on_a_terminal_leaves_the_former_catalogue(self):
        self.list.write_bytes(long_list("M", 50_000))
        master, slave = pty.openpty()
        process = subprocess.Popen(self.words("catalogue", "import"), stdin=slave, stdout=slave, stderr=slave)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        os.close(slave)
        shown = self.read_until(master, re.escape("[y/N] "))
        self.assertIn("TQ.ini: 500 台仪表，50000 个参数，", shown)
        self.assertIn("目录现有 19 台仪表，825 个参数", shown)
        os.write(master, b"y\n")
        self.read_until(master, "目录已备份到 .*\\d+ 行，\\d+ 台仪表，\\d+%")
        process.send_signal(signal.SIGINT)
        self.read_until(master, "已中断，没有导入" + NOTHING_CHANGED.strip())
        self.assertEqual(process.wait(PATIENCE), 3)
        os.close(master)
        self.assertEqual(self.rows(), self.shipped)

    def read_until(self, terminal, pattern):
        content = b""
        while not re.search(pattern, content.decode("utf-8", "ignore"), re.DOTALL):
            ready, _, _ = select.select([terminal], [], [], PATIENCE / 4)
            self.assertTrue(ready, content.decode("utf-8", "ignore"))
            content += os.read(terminal, 4096)
        return content.decode("utf-8", "ignore")


if __name__ == "__main__":
    unittest.main()
