"""The server of the tests leaves nothing behind, however a test ends."""

import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from private_server import PrivateServer  # noqa: E402

USER = """
import sys, time
sys.path.insert(0, sys.argv[1])
from private_server import PrivateServer
server = PrivateServer()
print(server.server, flush=True)
time.sleep(600)
"""
PATIENCE = 60  # seconds


class PrivateServerTest(unittest.TestCase):
    def test_it_answers_and_is_gone_when_it_is_ended(self):
        server = PrivateServer()
        folder = Path(server.server)
        self.assertEqual(server.sql("SELECT '仪表' || 1"), "仪表1\n")
        server.end()
        self.assertFalse(folder.exists())

    def test_it_is_gone_when_its_test_is_killed(self):
        support = Path(__file__).resolve().parents[1] / "support"
        user = subprocess.Popen([sys.executable, "-B", "-c", USER, support], stdout=subprocess.PIPE, encoding="utf-8")
        folder = Path(user.stdout.readline().strip())
        pid = int((folder / "data/postmaster.pid").read_text(encoding="utf-8").split()[0])
        user.send_signal(signal.SIGKILL)
        user.communicate()
        deadline = time.monotonic() + PATIENCE
        while folder.exists() and time.monotonic() < deadline:
            time.sleep(0.05)
        self.assertFalse(folder.exists())
        self.assertFalse(Path(f"/proc/{pid}").exists())


if __name__ == "__main__":
    unittest.main()
