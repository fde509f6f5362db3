"""Catalogues and settings that earlier builds have left, and a catalogue of a newer program."""

import json
import lzma
import re
import shutil
import sqlite3
import subprocess
import unittest
from contextlib import closing, contextmanager
from pathlib import Path

from desktop import PATIENCE, Desktop, wait_for
from programs import CLI
from window_case import WindowCase

CATALOGUE = "通讯数据.mdb"
UNFINISHED = re.compile(r"\.part")

# What a session in the window of each build has left; a folder is named by what had landed and its commit. Interval,
# address, count, protocol, instrument and mode that were chosen there last.
FORMER = sorted((Path(__file__).parent / "former").glob("*-*"))
CHOSEN = {"bus-dcab3a0": "1000 1 16 3 0 1", "tools-784752e": "1000 7 16 1 0 1", "window-e6eef39": "1000 7 16 1 0 1"}

LIST = "DEVICE  NEW\r\nTYPE 11000101\r\n001  PV  2010 0  R\r\nEND\r\nDEVICE   END\r\n"


def contents(file):
    """The rows of the tables that a catalogue has had from the first."""
    with closing(sqlite3.connect(file)) as database:
        return [database.execute(f"SELECT * FROM {table} ORDER BY rowid").fetchall()
                for table in ("仪表_类别", "仪表_名称", "仪表_参数", "仪表_芯片", "表格_设置", "字符_替换", "通讯_仿真")]


def say_version(file, version):
    with closing(sqlite3.connect(file)) as database:
        database.execute(f"PRAGMA user_version = {version}")
        database.commit()


class FolderCase(WindowCase):
    """A program folder with a catalogue that a test puts there."""

    @property
    def catalogue(self):
        return self.folder / CATALOGUE

    @property
    def help_text(self):
        return self.folder / "使用说明.ini"

    def lay(self, former):
        for copy in self.copies():
            copy.unlink()
        self.catalogue.write_bytes(lzma.decompress((former / "catalogue.xz").read_bytes()))
        shutil.copyfile(former / "settings.ini", self.settings)
        shutil.copyfile(former / "help.ini", self.help_text)
        return self.catalogue.read_bytes()

    def copies(self):
        return sorted(copy for copy in self.folder.glob(CATALOGUE + ".bak-*") if not UNFINISHED.search(copy.name))

    def run_verb(self, *words):
        return subprocess.run([CLI, *words, "--folder", self.folder], capture_output=True, encoding="utf-8",
                              timeout=PATIENCE, check=False)

    def list_to_import(self):
        file = self.scratch / "list.ini"
        file.write_text(LIST, encoding="gbk")
        return file

    @contextmanager
    def shown_window(self):
        """The program stands with its window, and is ended."""
        with Desktop() as desktop:
            process = self.start(desktop, "/dev/no-such-device")
            desktop.window(process)
            yield
            desktop.press("ctrl+q")
            self.assertEqual(process.wait(PATIENCE), 0)


class UpgradeTest(FolderCase):
    def test_there_is_what_three_builds_have_left(self):
        self.assertEqual([former.name for former in FORMER], list(CHOSEN))

    def test_an_older_catalogue_is_read_as_it_is(self):
        for former in FORMER:
            with self.subTest(former.name):
                before = self.lay(former)
                run = self.run_verb("list", "instruments", "--protocol", "TQ仪表协议", "--format", "json")
                self.assertEqual((run.returncode, run.stderr), (0, ""))
                self.assertIn("HX-D10智能数字显示控制仪", run.stdout)
                self.assertEqual(self.catalogue.read_bytes(), before)
                self.assertEqual(self.copies(), [])

    def test_an_older_catalogue_is_brought_up_behind_a_copy_by_who_first_writes(self):
        for former in FORMER:
            with self.subTest(former.name):
                self.lay(former)
                rows = contents(self.catalogue)
                run = self.run_verb("recordings", "note", "--note", "无", "--to", "甲", "--yes")
                copy, = self.copies()
                self.assertIn(f"目录的表结构已由第 1 版升级到第 2 版，升级前的目录存为 {copy.name}\n", run.stderr)
                self.assertEqual(contents(copy), rows)
                self.assertEqual(contents(self.catalogue), rows)
                info = json.loads(self.run_verb("catalogue", "info", "--format", "json").stdout)
                self.assertEqual(info["schema"], 2)
                self.assertIn("表格-设置", [table["name"] for table in info["tables"]])
                copy.unlink()
                again = self.run_verb("recordings", "note", "--note", "无", "--to", "甲", "--yes")
                self.assertNotIn("升级", again.stderr)
                self.assertEqual(self.copies(), [])

    def test_the_copy_that_is_to_be_restored_outlives_the_upgrade(self):
        self.lay(FORMER[0])
        rows = contents(self.catalogue)
        for second in (1, 2, 3):
            shutil.copyfile(self.catalogue, f"{self.catalogue}.bak-20240506-07080{second}")
        oldest = f"{CATALOGUE}.bak-20240506-070801"
        run = self.run_verb("catalogue", "restore", oldest, "--yes")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn(oldest, [copy.name for copy in self.copies()])
        self.assertEqual(contents(self.catalogue), rows)

    def test_the_window_takes_over_catalogue_and_settings_of_an_older_build(self):
        present = self.help_text.read_bytes()
        for former in FORMER:
            with self.subTest(former.name):
                self.lay(former)
                rows = contents(self.catalogue)
                with self.shown_window():
                    copy, = wait_for(self.copies, "the copy")
                self.assertEqual(contents(copy), rows)
                self.assertEqual(contents(self.catalogue), rows)
                self.assertEqual(self.stored()["SoftSeting"].strip(), CHOSEN[former.name])
                self.assertEqual(self.help_text.read_bytes(), present)

    def test_a_help_text_that_somebody_has_changed_stays(self):
        self.lay(FORMER[0])
        changed = self.help_text.read_bytes() + b"mine"
        self.help_text.write_bytes(changed)
        with self.shown_window():
            wait_for(self.copies, "the copy")
        self.assertEqual(self.help_text.read_bytes(), changed)


class NewerTest(FolderCase):
    def setUp(self):
        super().setUp()
        say_version(self.catalogue, 3)
        self.before = self.catalogue.read_bytes()

    def tearDown(self):
        self.assertEqual(self.catalogue.read_bytes(), self.before)
        self.assertEqual(self.copies(), [])

    def test_a_newer_catalogue_is_read_with_a_line_that_says_so(self):
        run = self.run_verb("list", "instruments", "--protocol", "TQ仪表协议")
        self.assertEqual(run.returncode, 0)
        self.assertIn("HX-D10智能数字显示控制仪", run.stdout)
        self.assertEqual(run.stderr, "目录是较新的程序建立的 (表结构第 3 版，本程序到第 2 版)，只读取它，不改写\n")

    def test_who_would_write_a_newer_catalogue_ends_and_changes_nothing(self):
        for words in (("catalogue", "import", self.list_to_import(), "--yes"),
                      ("recordings", "note", "--note", "无", "--to", "甲", "--yes"),
                      ("capture", "--protocol", "TQ仪表协议", "--instrument", "HX-D10智能数字显示控制仪", "--port",
                       "/dev/no-such-device", "--note", "N", "--exchanges", "1")):
            with self.subTest(words[0]):
                run = self.run_verb(*words)
                self.assertEqual(run.returncode, 3)
                self.assertIn("目录是较新的程序建立的，没有改动。请升级程序", run.stderr)

    def test_the_window_opens_a_newer_catalogue_and_leaves_it_as_it_is(self):
        with self.shown_window():
            pass
        self.assertEqual(len(self.stored()["SoftSeting"].split()), 6)


if __name__ == "__main__":
    unittest.main()
