"""Several programs on one server: readers beside an import, two imports, four captures at once."""

import re
import subprocess
import time
import unittest

from programs import CLI, PATIENCE, PLAIN, Simulator, description
from server_case import ServerTest

from fault_proxy import FaultProxy

PROTOCOL, NAME, LIST = PLAIN
READERS = 8
TIMES = 6  # the shipped list, for an import that takes its time
CAPTURES = 4


class TogetherTest(ServerTest):
    def setUp(self):
        super().setUp()
        self.create()
        proxy = FaultProxy(f"{self.server.server}/.s.PGSQL.5432")
        self.addCleanup(proxy.end)
        proxy.delay = 0.03
        self.far = {"PGPORT": str(proxy.port)}
        self.settings = self.folder.parent / "far.ini"
        self.settings.write_text(self.server.setup_ini(server="127.0.0.1"), encoding="utf-8")
        self.lists = self.folder.parent / "lists.ini"
        self.make_list()

    def make_list(self):
        one = self.folder.parent / "one.ini"
        run = self.run_verb("catalogue", "export", "--output", one)
        self.assertEqual(run.status, 0, run.problems)
        text = one.read_bytes()
        self.former = text.decode("gb18030").replace("\r\n", "\n")
        one.unlink()
        end = text.rindex(b"DEVICE")
        self.lists.write_bytes(text[:end] * TIMES + text[end:])

    def begin_import(self):
        """One over a long way, and it has the catalogue."""
        self.server.environment, near = self.server.environment | self.far, self.server.environment
        process = self.start_words([CLI, "catalogue", "import", self.lists, "--yes", "--folder", self.folder,
                                    "--server-settings", self.settings], stdin=subprocess.DEVNULL)
        self.server.environment = near
        limit = time.monotonic() + PATIENCE
        while self.server.sql("SELECT COUNT(*) FROM pg_locks WHERE locktype = 'advisory' AND granted") == "0\n":
            self.assertLess(time.monotonic(), limit)
        return process

    def read_until(self, process):
        """What eight readers have seen while the process ran, and once more behind it."""
        seen = []
        while True:
            is_over = process.poll() is not None
            readers = [self.start_words([CLI, "catalogue", "export", "--output", "-", "--server", "--folder",
                                         self.folder], stdin=subprocess.DEVNULL, encoding="gb18030")
                       for _ in range(READERS)]
            for run in map(self.finish, readers):
                self.assertEqual((run.status, run.problems), (0, ""))
                seen.append(run.output)
            if is_over:
                return seen

    def test_readers_never_see_half_a_catalogue(self):
        process = self.begin_import()
        seen = self.read_until(process)
        self.assertEqual(self.finish(process).status, 0)
        former, new = seen[0], seen[-1]
        self.assertTrue(former == self.former)
        self.assertGreater(len(new), 3 * len(former))
        self.assertTrue(set(seen) == {former, new})
        self.assertTrue(set(seen[-READERS:]) == {new})

    def test_the_second_of_two_imports_ends_with_a_clear_line_and_changes_nothing(self):
        first = self.begin_import()
        second = self.run_verb("catalogue", "import", self.lists, "--yes")
        copy = self.copy(self.folder, "server", "--yes")
        self.assertIsNone(first.poll())
        for run in (second, copy):
            self.assertEqual(run.status, 3)
            self.assertIn("另一个程序正在改写服务器上的目录，请等它结束后再试", run.problems)
        self.assertEqual(self.finish(first).status, 0)
        self.assertEqual(self.server.sql("SELECT COUNT(*) FROM 仪表_名称"), f"{19 * TIMES}\n")

    def test_captures_at_once_lose_no_row_and_use_no_key_twice(self):
        texts = [description(LIST, address=address) for address in range(1, CAPTURES + 1)]
        simulators, captures = [], []
        for number, text in enumerate(texts):
            folder = self.folder.parent / f"bench{number}"
            folder.mkdir(exist_ok=True)
            simulators.append(Simulator(folder, text))
            captures.append(self.start("capture", simulators[-1].device, PLAIN, "--address", number + 1, "--note",
                                       f"N{number}", "--interval", 0, "--exchanges", 150, "--server"))
        runs = [self.finish(capture) for capture in captures]
        for simulator in simulators:
            simulator.__exit__()
        for number, run in enumerate(runs):
            self.assertEqual(run.status, 0, run.problems)
            self.assertNotIn("未采集", run.problems)
            new, whole = re.search(r"新采集 (\d+) 条，共 (\d+) 条", run.problems).groups()
            rows = self.server.sql(f"SELECT COUNT(*) FROM 通讯_仿真 WHERE 说明 = 'N{number}'").strip()
            self.assertEqual((new, whole), (rows, rows))
            self.assertGreater(int(rows), 1)
        self.assertEqual(self.server.sql("SELECT COUNT(*) - COUNT(DISTINCT ID) FROM 通讯_仿真"), "0\n")

    def test_a_capture_goes_on_beside_an_import(self):
        process = self.begin_import()
        with Simulator(self.outer.name, description(LIST)) as simulator:
            run = self.finish(self.start("capture", simulator.device, PLAIN, "--note", "A", "--interval", 0,
                                         "--exchanges", 20, "--server"))
        self.assertIsNone(process.poll())
        self.assertEqual(run.status, 0, run.problems)
        self.assertNotIn("未采集", run.problems)
        self.assertEqual(self.finish(process).status, 0)


if __name__ == "__main__":
    unittest.main()
