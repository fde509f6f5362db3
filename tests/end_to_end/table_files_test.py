"""A catalogue as a file a table, and one in a format that is only known by its head."""

import sqlite3
import subprocess
import unittest

from programs import CLI
from server_case import ServerTest

FILE = "通讯数据.mdb"
TABLES = ("仪表_类别", "仪表_名称", "仪表_参数", "仪表_芯片", "表格_设置", "字符_替换", "通讯_仿真")
OLDER_HEADS = (b"\x00\x01\x00\x00Standard Jet DB\x00", b"\x00\x01\x00\x00Standard ACE DB\x00")


class TableFilesTest(ServerTest):
    def new_folder(self, name):
        folder = self.folder.parent / name
        folder.mkdir()
        return folder

    def load(self, folder, tables):
        return self.finish(self.start_words([CLI, "catalogue", "load", folder, "--tables", tables]))

    def dump(self, tables, folder=None, *options):
        return self.finish(self.start_words([CLI, "catalogue", "dump", "--tables", tables, "--folder",
                                             folder or self.folder, *options]))

    def bytes_of(self, folder):
        return {table: (folder / f"{table}.csv").read_bytes() for table in TABLES}

    def test_a_catalogue_goes_out_and_comes_back(self):
        tables, again = self.new_folder("tables"), self.new_folder("again")
        with sqlite3.connect(self.folder / FILE) as file:
            file.execute("INSERT INTO 通讯_仿真 (ID, 仪表名称, 说明, 回送) VALUES (7, '𠮷\"', '', NULL)")
        dumped = self.dump(tables)
        self.assertEqual((dumped.status, dumped.output.splitlines()[1]), (0, "仪表_名称 19 行"))
        loaded = self.load(self.folder.parent / "loaded", tables)
        self.assertEqual((loaded.status, loaded.output, loaded.problems), (0, dumped.output, ""))
        self.dump(again, self.folder.parent / "loaded")
        self.assertEqual(self.bytes_of(again), self.bytes_of(tables))

    def test_a_server_gives_the_same_files(self):
        here, there = self.new_folder("here"), self.new_folder("there")
        self.dump(here)
        self.assertEqual(self.copy(self.folder, "server").status, 0)
        self.assertEqual(self.dump(there, None, "--server").status, 0)
        self.assertEqual(self.bytes_of(there), self.bytes_of(here))

    def test_what_is_left_out_is_listed(self):
        tables = self.new_folder("bad")
        (tables / "仪表_名称.csv").write_text("仪表ID,仪表名称,编号,协议,编码,类别,类别ID\n1,A,,,,,x\n1,B,,,,,\n",
                                              encoding="gb18030")
        run = self.load(self.folder.parent / "partly", tables)
        self.assertEqual(run.status, 1)
        self.assertIn('仪表_名称.csv:2: 类别ID "x" 不是整数；读成空值\n', run.output)
        self.assertIn('仪表_名称.csv:3: 编号 仪表ID "1" 已经有了；没有读入\n', run.output)
        self.assertIn("仪表_参数.csv: 没有这个文件；表是空的\n", run.output)
        self.assertIn("仪表_名称 1 行\n", run.output)

    def test_what_stands_there_stays(self):
        tables = self.new_folder("kept")
        self.dump(tables)
        before, catalogue = self.bytes_of(tables), (self.folder / FILE).read_bytes()
        again, over, empty = self.dump(tables), self.load(self.folder, tables), self.load("x", self.new_folder("empty"))
        self.assertEqual((again.status, over.status, empty.status), (3, 3, 3))
        self.assertIn("已存在，没有改动", again.problems)
        self.assertIn("中已有目录，没有改动", over.problems)
        self.assertIn("没有一张表的文件", empty.problems)
        self.assertEqual((self.bytes_of(tables), (self.folder / FILE).read_bytes()), (before, catalogue))

    def test_the_older_desktop_format_is_refused_with_two_lines(self):
        for head in OLDER_HEADS:
            folder = self.new_folder(f"older {head[13:16].decode()}")
            (folder / FILE).write_bytes(head + bytes(4096))
            for words in (("list", "protocols"), ("catalogue", "info"), ("catalogue", "import", "--yes")):
                (folder / "TQ.ini").write_bytes(b"DEVICE   END\r\n")
                run = self.finish(self.start_words([CLI, *words, "--folder", folder], stdin=subprocess.DEVNULL))
                self.assertEqual((run.status, run.output), (3, ""))
                first, second = run.problem_lines
                self.assertEqual(first, f"{folder / FILE} 是旧格式的桌面数据库，不能直接使用，没有改动")
                self.assertIn("mdb-tables", second)
                self.assertIn("mdb-export", second)
                self.assertIn("catalogue load", second)
            self.assertEqual((folder / FILE).read_bytes(), head + bytes(4096))
        file = self.new_folder("another")
        (file / FILE).write_bytes(b"\x00\x01\x00\x00Standard Jet" + bytes(4096))
        run = self.finish(self.start_words([CLI, "list", "protocols", "--folder", file]))
        self.assertNotIn("mdb-export", run.problems)


if __name__ == "__main__":
    unittest.main()
