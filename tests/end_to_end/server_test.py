"""The catalogue on a database server, from the command line."""

import json
import os
import sqlite3
import unittest
from pathlib import Path

from programs import CLI
from server_case import ServerTest

SHIPPED = {"仪表_类别": 7, "仪表_名称": 19, "仪表_参数": 825, "仪表_芯片": 14, "表格_设置": 36, "字符_替换": 14, "通讯_仿真": 0,
           "表格-设置": 31}
MOVED = "已复制 " + "，".join(f"{table} {rows} 行" for table, rows in SHIPPED.items()) + "\n"
FILE = "通讯数据.mdb"
KEYS = {"仪表_类别": "类别ID", "仪表_名称": "仪表ID", "仪表_参数": "ID", "仪表_芯片": "芯片ID", "表格_设置": "rowid",
        "字符_替换": "rowid", "通讯_仿真": "ID", "表格-设置": "rowid"}
READING = (("list", "protocols"), ("catalogue", "info"), ("recordings", "list"), ("catalogue", "check", "TQ.ini"))
TEXTS = ("仪表", "𠮷😀", "", None, "㎡ ℃ €", " 两端 ", 'a"b,c')


def contents(folder):
    """All rows of the local catalogue, with the kinds of their values."""
    with sqlite3.connect(folder / FILE) as file:
        return {table: file.execute(f'SELECT * FROM "{table}" ORDER BY {key}').fetchall() for table, key in KEYS.items()}


def change(folder, *statements):
    with sqlite3.connect(folder / FILE) as file:
        for statement, *values in statements:
            file.execute(statement, values)


class ServerCatalogueTest(ServerTest):
    def test_create_makes_the_shipped_catalogue_once(self):
        self.create()
        info = json.loads(self.run_verb("catalogue", "info", "--format", "json").output)
        self.assertEqual(info["engine"], "PostgreSQL")
        self.assertRegex(info["version"], r"^\d+\.\d+")
        self.assertGreater(info["bytes"], 1000000)
        self.assertEqual({table["name"]: table["rows"] for table in info["tables"]}, SHIPPED)
        again = self.run_verb("catalogue", "create")
        self.assertEqual((again.status, again.output), (0, "服务器上已有目录，没有改动\n"))

    def test_info_tells_of_the_local_file_without_the_option(self):
        info = json.loads(self.run_verb("catalogue", "info", "--format", "json", server=False).output)
        self.assertEqual((info["engine"], info["bytes"]), ("SQLite", (self.folder / FILE).stat().st_size))
        self.assertEqual({table["name"]: table["rows"] for table in info["tables"]}, SHIPPED)

    def test_another_file_names_the_server(self):
        self.create()
        settings = self.folder.parent / "other.ini"
        settings.write_text(self.server.setup_ini(), encoding="utf-8")
        (self.folder / "Setup.ini").rename(self.folder / "away.ini")
        try:
            run = self.run_verb("catalogue", "info", "--server-settings", settings, server=False)
            self.assertIn("PostgreSQL", run.output)
            self.assertIn("改用本地目录", self.run_verb("catalogue", "info").problems)
        finally:
            (self.folder / "away.ini").rename(self.folder / "Setup.ini")

    def test_blanks_around_a_line_of_setup_ini_do_not_count(self):
        self.create()
        settings = self.folder.parent / "blanks.ini"
        padded = self.server.setup_ini(server=f"  {self.server.server}  ", database=f"{self.server.database}   ")
        settings.write_text(padded, encoding="utf-8")
        run = self.run_verb("catalogue", "info", "--server-settings", settings, server=False)
        self.assertIn("PostgreSQL", run.output)

    def test_lists_of_the_server_are_those_of_the_file(self):
        self.create()
        for words in (("list", "protocols"), ("list", "instruments"),
                      ("list", "parameters", "--instrument", "HX-D10智能数字显示控制仪")):
            here, there = self.run_verb(*words, server=False), self.run_verb(*words)
            self.assertEqual((there.status, there.output, there.problems), (0, here.output, ""))

    def test_what_the_server_does_not_give_is_read_from_the_local_file(self):
        (self.folder / "TQ.ini").write_bytes(b"")
        for words in READING:
            here, there = self.run_verb(*words, server=False), self.run_verb(*words)
            self.assertEqual((there.status, there.output), (here.status, here.output))
            self.assertRegex(there.problem_lines[0], "服务器上的目录打不开，请检查 .*Setup.ini 和服务器。改用本地目录$")

    def test_what_writes_ends_and_touches_nothing_where_the_server_does_not_give_it(self):
        (self.folder / "TQ.ini").write_bytes(b"DEVICE   END\r\n")
        (self.folder / "a.jsonl").write_bytes(b"")
        before = {path.name: path.read_bytes() for path in self.folder.iterdir() if path.is_file()}
        for words in (("catalogue", "import", "--yes"), ("catalogue", "restore", "--yes"),
                      ("recordings", "import", self.folder / "a.jsonl", "--yes"),
                      ("recordings", "note", "--note", "A", "--to", "B", "--yes"),
                      ("capture", "--protocol", "TQ仪表协议", "--instrument", "HX-D10智能数字显示控制仪", "--note", "A")):
            run = self.run_verb(*words)
            self.assertIn(run.status, (2, 3) if "restore" in words else (3,), words)
        self.assertEqual({path.name: path.read_bytes() for path in self.folder.iterdir() if path.is_file()}, before)


class CatalogueCopyTest(ServerTest):
    def test_a_catalogue_comes_back_as_it_went(self):
        folder = self.another_folder("copied")
        change(folder, ("DELETE FROM 仪表_参数 WHERE ID % 7 = 0",), ("DELETE FROM 仪表_参数 WHERE 仪表ID = 3",),
               ("DELETE FROM 仪表_名称 WHERE 仪表ID = 3",))
        for number, text in enumerate(TEXTS):
            change(folder, ("INSERT INTO 字符_替换 VALUES (?,?)", text, TEXTS[-number]),
                   ("INSERT INTO 通讯_仿真 (ID,仪表名称,说明,回送) VALUES (?,?,?,?)", 1000 - number, text, text, text),
                   ("INSERT INTO 仪表_名称 (仪表ID,仪表名称,类别ID) VALUES (?,?,NULL)", 500 - number, text),
                   ("INSERT INTO 仪表_芯片 (芯片ID,编号,功能简述) VALUES (?,?,?)", 70 - number, text, "长" * 3000))
        there = self.copy(folder, "server")
        self.assertEqual((there.status, there.problems), (0, ""))
        back = self.copy("server", self.folder.parent / "back", "--server-settings", folder / "Setup.ini")
        self.assertEqual((back.status, back.output), (0, there.output))
        self.assertEqual(contents(self.folder.parent / "back"), contents(folder))

    def test_copy_says_what_it_moved(self):
        run = self.copy(self.folder, "server")
        self.assertEqual((run.status, run.output), (0, MOVED))

    def test_new_keys_stand_behind_those_that_were_copied(self):
        folder = self.another_folder("keys")
        change(folder, ("INSERT INTO 通讯_仿真 (ID,仪表名称) VALUES (4711,'A')",))
        self.assertEqual(self.copy(folder, "server").status, 0)
        self.server.sql("INSERT INTO 通讯_仿真 (仪表名称) VALUES ('B'); INSERT INTO 仪表_芯片 (编号) VALUES ('C')")
        self.assertEqual(self.server.sql("SELECT ID FROM 通讯_仿真 WHERE 仪表名称 = 'B'"), "4712\n")
        self.assertEqual(self.server.sql("SELECT 芯片ID FROM 仪表_芯片 WHERE 编号 = 'C'"), "15\n")

    def test_a_target_with_rows_is_asked_for_and_kept(self):
        self.create()
        folder = self.another_folder("asks")
        self.server.sql("INSERT INTO 仪表_类别 VALUES ('只在服务器', 99)")
        refused = self.copy(folder, "server")
        self.assertEqual(refused.status, 2)
        self.assertIn("--yes", refused.problems)
        self.assertEqual(self.server.sql("SELECT COUNT(*) FROM 仪表_类别"), "8\n")
        taken = self.copy(folder, "server", "--yes")
        copy, = folder.glob(f"{FILE}.bak-*")
        self.assertEqual(taken.output, f"目标已备份到 {copy.name}\n{MOVED}")
        self.assertEqual(self.server.sql("SELECT COUNT(*) FROM 仪表_类别"), "7\n")
        with sqlite3.connect(copy) as kept:
            self.assertEqual(kept.execute("SELECT 类别 FROM 仪表_类别 WHERE 类别ID = 99").fetchall(), [("只在服务器",)])

    def test_a_copy_that_fails_leaves_the_target_as_it_was(self):
        self.create()
        folder = self.another_folder("fails")
        change(folder, ("INSERT INTO 通讯_仿真 (ID) VALUES (5000000000)",))
        run = self.copy(folder, "server", "--yes")
        self.assertEqual(run.status, 3)
        self.assertIn("没有复制", run.problems)
        self.assertEqual(self.server.sql("SELECT COUNT(*) FROM 仪表_名称"), "19\n")

    def test_one_end_is_a_server(self):
        for source, target in (("server", "server"), (self.folder, self.folder)):
            run = self.copy(source, target)
            self.assertEqual(run.status, 2)
            self.assertIn("--from 和 --to 一个是文件夹，另一个是 server", run.problems)


class SecretTest(ServerTest):
    def test_the_password_is_in_nothing_that_was_printed_or_written_nor_in_the_environment(self):
        secret = self.server.password
        self.run_verb("list", "protocols")
        self.create()
        self.assertEqual(self.copy(self.folder, "server", "--yes").status, 0)
        self.run_verb("catalogue", "info", "--format", "json")
        wrong = self.folder.parent / "wrong.ini"
        wrong.write_text(self.server.setup_ini(user="nobody_here"), encoding="utf-8")
        for words in (("list", "protocols"), ("recordings", "note", "--note", "A", "--to", "B", "--yes")):
            self.run_verb(*words, "--server-settings", wrong, server=False)
        process = self.start_words([CLI, "catalogue", "export", "--output", "-", "--server", "--folder", self.folder],
                                   encoding="gb18030")
        first = process.stdout.read(1)
        for part in ("environ", "cmdline"):
            self.assertNotIn(secret.encode(), Path(f"/proc/{process.pid}/{part}").read_bytes())
        run = self.finish(process)
        self.assertEqual((run.status, bool(first)), (0, True))
        self.assertNotIn(secret, "".join(self.said))
        for path in self.folder.parent.rglob("*"):
            if path.is_file() and path.name not in ("Setup.ini", "wrong.ini"):
                self.assertNotIn(secret.encode(), path.read_bytes(), path)
        self.assertNotIn(secret, "".join(os.environ.values()))


if __name__ == "__main__":
    unittest.main()
