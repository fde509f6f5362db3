"""What the two roles of a server's catalogue may do."""

import subprocess
import unittest
from pathlib import Path

from programs import CLI, PLAIN
from server_case import ServerTest

ROLES = Path(__file__).resolve().parents[2] / "data/server/roles-postgresql.sql"
BREAKING = "x'; Delete From 仪表_名称; --"


class ServerRolesTest(ServerTest):
    def setUp(self):
        super().setUp()
        self.create()
        for _ in range(2):  # it may run again
            self.server.sql(ROLES.read_text(encoding="utf-8"))

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.settings = {}
        for role in ("reader", "importer"):
            file = cls.folder.parent / f"{role}.ini"
            file.write_text(cls.server.setup_ini(user=f"bench_{role}", password=f"Bench-{role}9"), encoding="utf-8")
            cls.settings[role] = file

    def log_in(self, role):
        self.server.sql(f"DROP ROLE IF EXISTS bench_{role}; "
                        f"CREATE ROLE bench_{role} LOGIN PASSWORD 'Bench-{role}9' IN ROLE commtest_{role}")
        return ["--server-settings", self.settings[role]]

    def run_as(self, role, *words):
        words = [CLI, *words, *self.log_in(role), "--folder", self.folder]
        return self.finish(self.start_words(words, stdin=subprocess.DEVNULL))

    def capture_as(self, role):
        with self.simulate() as simulator:
            return self.finish(self.start("capture", simulator.device, PLAIN, "--interval", 0, "--note", "A",
                                          "--exchanges", 60, *self.log_in(role)))

    def count(self, table):
        return int(self.server.sql(f"SELECT COUNT(*) FROM {table}"))

    def test_who_reads_also_captures(self):
        self.assertEqual(self.run_as("reader", "list", "instruments").problems, "")
        captured = self.capture_as("reader")
        self.assertEqual(captured.status, 0, captured.problems)
        self.assertGreater(self.count("通讯_仿真"), 0)
        self.assertEqual(self.run_as("reader", "recordings", "list").status, 0)

    def test_who_reads_changes_nothing(self):
        self.capture_as("reader")
        (self.folder / "TQ.ini").write_bytes(b"DEVICE   END\r\n")
        for words in (("catalogue", "import", "--yes"), ("recordings", "note", "--note", "A", "--to", "B", "--yes")):
            run = self.run_as("reader", *words)
            self.assertNotEqual(run.status, 0)
            self.assertIn("permission denied", run.problems)
        self.assertEqual(self.count("仪表_名称"), 19)
        self.assertEqual(self.count("通讯_仿真 WHERE 说明 = 'B'"), 0)

    def test_who_imports_also_copies_and_changes_recordings(self):
        self.capture_as("importer")
        (self.folder / "TQ.ini").write_bytes(b"DEVICE   END\r\n")
        for words in (("catalogue", "import", "--yes"), ("recordings", "note", "--note", "A", "--to", "B", "--yes")):
            run = self.run_as("importer", *words)
            self.assertEqual(run.status, 0, run.problems)
        self.assertEqual(self.count("仪表_名称"), 0)
        copied = self.copy(self.folder, "server", "--yes", *self.log_in("importer"))
        self.assertEqual(copied.status, 0, copied.problems)
        self.assertEqual(self.count("仪表_名称"), 19)

    def test_an_index_that_may_not_be_made_is_done_without(self):
        self.server.sql("DROP INDEX recordings_by_instrument")
        self.assertEqual(self.capture_as("importer").status, 0)
        self.assertEqual(self.count("pg_indexes WHERE indexname = 'recordings_by_instrument'"), 0)

    def test_a_name_that_breaks_its_statement_does_no_more_than_its_role(self):
        quoted = BREAKING.replace("'", "''")
        self.server.sql(f"UPDATE 仪表_名称 SET 仪表名称 = '{quoted}' WHERE 仪表ID = 1")
        run = self.run_as("reader", "list", "parameters", "--instrument", BREAKING)
        self.assertNotEqual(run.status, 0)
        self.assertIn("permission denied", run.problems)
        self.assertEqual(self.count("仪表_名称"), 19)


if __name__ == "__main__":
    unittest.main()
