"""A server that is dead, silent, slow or garbled, that dies and comes back: what the command line makes of it."""

import sqlite3
import subprocess
import time
import unittest

from programs import CLI, PATIENCE, PLAIN, Simulator, description
from server_case import ServerTest

from fault_proxy import FaultProxy

PROTOCOL, NAME, LIST = PLAIN
GIVEN_UP = 5  # seconds
MARGIN = 10   # of a machine under load
MISSED = "，服务器没有应答而未采集 "
READING = (("list", "instruments"), ("catalogue", "info"), ("recordings", "list"))
WRITING = (("catalogue", "create"), ("catalogue", "import", "--yes"), ("recordings", "note", "--note", "A", "--to", "B", "--yes"),
           ("capture", "--protocol", PROTOCOL, "--instrument", NAME, "--note", "A"))


class FaultTest(ServerTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.proxy = FaultProxy(f"{cls.server.server}/.s.PGSQL.5432")
        cls.addClassCleanup(cls.proxy.end)
        cls.server.environment = cls.server.environment | {"PGPORT": str(cls.proxy.port)}
        (cls.folder / "Setup.ini").write_text(cls.server.setup_ini(server="127.0.0.1"), encoding="utf-8")
        (cls.folder / "TQ.ini").write_bytes(b"DEVICE   END\r\n")
        (cls.folder.parent / "a.jsonl").write_bytes(b"")

    def setUp(self):
        super().setUp()
        self.create()
        self.server.sql("UPDATE 仪表_类别 SET 类别 = '服务器的' WHERE 类别ID = 1")
        self.addCleanup(self.heal)

    def heal(self):
        self.proxy.delay, self.proxy.garbles = 0.0, False
        self.proxy.speak()

    def at_once(self, calls):
        """What the calls give that are begun together, each with the server."""
        begin = time.monotonic()
        processes = [self.start_words([CLI, *words, "--server", "--folder", self.folder], stdin=subprocess.DEVNULL)
                     for words in calls]
        runs = [self.finish(process) for process in processes]
        self.assertLess(time.monotonic() - begin, GIVEN_UP + MARGIN)
        return runs

    def expect_that_reading_takes_the_local_file(self):
        for words, there in zip(READING, self.at_once(READING)):
            here = self.run_verb(*words, server=False)
            self.assertEqual((there.status, there.output), (0, here.output))
            self.assertEqual(len(there.problem_lines), 1, there.problems)
            self.assertIn("改用本地目录", there.problems)

    def expect_that_writing_ends_and_touches_nothing(self):
        before = {path.name: path.read_bytes() for path in self.folder.iterdir() if path.is_file()}
        calls = (*WRITING, ("recordings", "import", self.folder.parent / "a.jsonl", "--yes"))
        for words, run in zip(calls, self.at_once(calls)):
            self.assertEqual((run.status, run.output), (3, ""), words)
        self.assertEqual({path.name: path.read_bytes() for path in self.folder.iterdir() if path.is_file()}, before)

    def expect_that_polling_takes_the_local_file(self):
        with Simulator(self.outer.name, description(LIST)) as simulator:
            run = self.finish(self.start("poll", simulator.device, PLAIN, "--interval", 0, "--exchanges", 3, "--server"))
        self.assertEqual(run.status, 0, run.problems)
        self.assertIn("改用本地目录", run.problem_lines[0])

    def test_a_dead_server_at_the_start(self):
        self.proxy.die()
        self.addCleanup(self.proxy.begin)
        self.expect_that_reading_takes_the_local_file()
        self.expect_that_polling_takes_the_local_file()
        self.expect_that_writing_ends_and_touches_nothing()

    def test_a_silent_server_at_the_start(self):
        self.proxy.be_silent()
        self.expect_that_reading_takes_the_local_file()
        self.expect_that_polling_takes_the_local_file()
        self.expect_that_writing_ends_and_touches_nothing()

    def test_a_slow_server(self):
        self.proxy.delay = 2.0
        self.expect_that_reading_takes_the_local_file()
        self.expect_that_writing_ends_and_touches_nothing()

    def test_a_garbled_server(self):
        self.proxy.garbles = True
        self.expect_that_reading_takes_the_local_file()
        self.expect_that_writing_ends_and_touches_nothing()

    def test_the_server_is_taken_again_once_it_is_back(self):
        self.proxy.die()
        try:
            self.assertIn("改用本地目录", self.run_verb("catalogue", "info").problems)
        finally:
            self.proxy.begin()
        run = self.run_verb("catalogue", "info")
        self.assertEqual(run.problems, "")
        self.assertIn("PostgreSQL", run.output)

    def test_polling_outlives_its_server(self):
        with Simulator(self.outer.name, description(LIST)) as simulator:
            process = self.start("poll", simulator.device, PLAIN, "--interval", 10, "--exchanges", 60, "--server")
            self.assertNotEqual(process.stdout.readline(), "")
            self.proxy.die()
            self.addCleanup(self.proxy.begin)
            run = self.finish(process)
        self.assertEqual((run.status, run.problems), (0, ""))

    def captured_through(self, fault):
        """A capture during which the server has a fault and is well again; how many rows stood before it."""
        with Simulator(self.outer.name, description(LIST)) as simulator:
            process = self.start("capture", simulator.device, PLAIN, "--note", "A", "--interval", 10, "--exchanges", 120,
                                 "--server")
            self.wait_for(lambda: self.rows() > 0)
            fault()
            run = self.finish(process)
        self.assertEqual(run.status, 0, run.problems)
        return run

    def rows(self):
        return int(self.server.sql("SELECT COUNT(*) FROM 通讯_仿真"))

    def wait_for(self, condition):
        limit = time.monotonic() + PATIENCE
        while not condition():
            self.assertLess(time.monotonic(), limit, "it has not come")
            time.sleep(0.01)

    def test_a_capture_misses_what_a_silent_server_does_not_take_and_goes_on_behind_it(self):
        def fault():
            before = self.proxy.connections
            self.proxy.be_silent()
            self.wait_for(lambda: self.proxy.connections > before)  # it has been given up, and connects anew
            self.proxy.speak()
        run = self.captured_through(fault)
        self.assertIn(MISSED, run.problems)
        self.assertIn("新采集 ", run.problems)
        self.assertNotIn("Error", run.problems)

    def test_a_capture_misses_what_a_dead_server_does_not_take_and_ends_without_it(self):
        self.addCleanup(self.proxy.begin)
        run = self.captured_through(self.proxy.die)
        self.assertIn(MISSED, run.problems)

    def test_a_capture_misses_what_is_garbled_and_goes_on_behind_it(self):
        def fault():
            before = self.proxy.connections
            self.proxy.garbles = True
            self.wait_for(lambda: self.proxy.connections > before)
            self.proxy.garbles = False
        self.assertIn(MISSED, self.captured_through(fault).problems)

    def test_a_copy_that_loses_its_server_leaves_it_as_it_was(self):
        folder = self.another_folder("big")
        (folder / "Setup.ini").write_text(self.server.setup_ini(server="127.0.0.1"), encoding="utf-8")
        with sqlite3.connect(folder / "通讯数据.mdb") as file:
            file.executemany("INSERT INTO 通讯_仿真 (仪表名称, 回送) VALUES (?, ?)",
                             [(f"仪表{number}", " 41" * 50) for number in range(20000)])
        self.proxy.delay = 0.05
        before = self.proxy.round_trips
        process = self.start_words([CLI, "catalogue", "copy", "--from", folder, "--to", "server", "--yes"])
        self.wait_for(lambda: self.proxy.round_trips > before + 60)
        self.proxy.cut()
        run = self.finish(process)
        self.assertEqual(run.status, 3, run.problems)
        self.assertIn("没有复制", run.problems)
        self.assertEqual(self.server.sql("SELECT COUNT(*) FROM 仪表_类别 WHERE 类别 = '服务器的'"), "1\n")
        self.assertEqual(self.rows(), 0)


if __name__ == "__main__":
    unittest.main()
