"""The first call of a user: nothing is made for a call that is wrong, and several calls may be the first."""

import os
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from programs import CLI, PATIENCE

CATALOGUE = "通讯数据.mdb"


class StartUpTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.home = Path(scratch.name)

    def start(self, *words):
        environment = os.environ | {"XDG_DATA_HOME": str(self.home), "HOME": str(self.home)}
        return subprocess.Popen([CLI, *map(str, words)], env=environment, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, stdin=subprocess.DEVNULL, encoding="utf-8")

    def run_cli(self, *words):
        process = self.start(*words)
        output, problems = process.communicate(timeout=PATIENCE)
        return process.returncode, output, problems

    def test_four_first_calls_at_once_all_succeed(self):
        calls = [self.start("list", "protocols") for _ in range(4)]
        results = [(*call.communicate(timeout=PATIENCE), call.returncode) for call in calls]
        self.assertEqual([status for _, _, status in results], [0] * 4, results)
        self.assertEqual(len({output for output, _, _ in results}), 1)
        self.assertEqual(sorted(path.name for path in (self.home / "CommTest").iterdir()),
                         sorted([CATALOGUE, "使用说明.ini", "参数地址表.xls", "自动保存通讯记录"]))

    def test_wrong_calls_make_nothing(self):
        line = ("--protocol", "TQ仪表协议", "--instrument", "HX-D10智能数字显示控制仪")
        calls = (("poll", *line, "--exchanges", "0"), ("poll", *line, "--colour"), ("poll", *line, "--format", "xml"),
                 ("poll", *line, "--append"), ("search", "--from", "9", "--to", "3"), ("list", "protocols", "--format", "x"),
                 ("list", "parameters"), ("list", "ports-of-call"), ("recordings", "burn"), ("recordings", "show"),
                 ("recordings", "list", "--format", "x"), ("write", *line, "--row", "0", "--value", "1"),
                 ("replay", "--instrument", "x", "--note", "y", "--speed", "0"), ("catalogue", "import", "--format", "csv"),
                 ("catalogue", "export", "--format", "csv"), ("catalogue", "channels", "--output", ""),
                 ("help", "dance"))
        for words in calls:
            with self.subTest(words):
                status, output, problems = self.run_cli(*words)
                self.assertEqual((status, output, problems.count("\n")), (2, "", 1))
                self.assertEqual(list(self.home.iterdir()), [])

    def test_what_a_killed_call_left_is_cleared_by_the_next_one(self):
        folder = self.home / "folder"
        process = self.start("catalogue", "create", folder)
        limit = time.monotonic() + PATIENCE
        while not (folder.is_dir() and any(folder.iterdir())) and time.monotonic() < limit:
            pass
        process.send_signal(signal.SIGKILL)
        process.communicate(timeout=PATIENCE)
        self.assertEqual(self.run_cli("catalogue", "create", folder)[0], 0)
        self.assertEqual(sorted(path.name for path in folder.iterdir()),
                         sorted([CATALOGUE, "使用说明.ini", "参数地址表.xls", "自动保存通讯记录"]))

    def test_help_and_the_meant_word(self):
        self.assertEqual(self.run_cli("help", "poll"), self.run_cli("poll", "--help"))
        self.assertEqual(self.run_cli("pol")[2], "没有动词 \"pol\"，是不是 \"poll\"？用法请看 commtest-cli --help\n")
        self.assertEqual(self.run_cli("list", "instruments", "--protocol", "TQ仪表协义")[2].splitlines()[-1],
                         "目录中没有协议 \"TQ仪表协义\"，是不是 \"TQ仪表协议\"？可用名称请看 commtest-cli list protocols")


if __name__ == "__main__":
    unittest.main()
