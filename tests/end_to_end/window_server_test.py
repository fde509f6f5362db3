"""The window on a server's catalogue: it starts without a server that is silent, and polls on without one that dies."""

import os
import subprocess
import sys
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from desktop import PATIENCE, Desktop, wait_for  # noqa: E402
from fault_proxy import FaultProxy  # noqa: E402
from private_server import PrivateServer  # noqa: E402
from programs import CLI, PLAIN, Simulator, description  # noqa: E402
from window_case import WINDOW, WindowCase  # noqa: E402

GIVEN_UP = 5  # seconds
MARGIN = 20   # of a machine under load


class WindowServerTest(WindowCase):
    @classmethod
    def setUpClass(cls):
        cls.server = PrivateServer()
        cls.addClassCleanup(cls.server.end)
        cls.proxy = FaultProxy(f"{cls.server.server}/.s.PGSQL.5432")
        cls.addClassCleanup(cls.proxy.end)
        cls.environment = cls.server.environment | {"PGPORT": str(cls.proxy.port)}

    def setUp(self):
        super().setUp()
        self.proxy.speak()
        (self.folder / "Setup.ini").write_text(self.server.setup_ini(server="127.0.0.1"), encoding="utf-8")
        subprocess.run([CLI, "catalogue", "create", "--server", "--folder", self.folder], check=True,
                       env=os.environ | self.environment, stdout=subprocess.DEVNULL)
        self.store(SoftSeting="5 1 16 0 0 0", CommPort="9600,N,8,1 COM1")

    def start(self, desktop, device):
        return desktop.start([WINDOW, "--folder", self.folder, "--settings", self.settings, "--port", f"COM1={device}"],
                             XDG_RUNTIME_DIR=str(self.scratch), XDG_CONFIG_HOME=str(self.scratch), **self.environment)

    def mode(self):
        return self.stored()["SoftSeting"][-1]

    def test_a_silent_server_gives_way_to_the_local_file(self):
        with Desktop() as desktop, Simulator(self.scratch, description(PLAIN[2])) as simulator:
            self.proxy.be_silent()
            begin = time.monotonic()
            program = self.start(desktop, simulator.device)
            desktop.window(program)
            self.assertLess(time.monotonic() - begin, GIVEN_UP + MARGIN)
            self.tick_with_the_keyboard(desktop)
            desktop.press("F5")
            wait_for(lambda: len(self.records()) >= 1, "50 exchanges")
            desktop.press("F5", "ctrl+q")
            self.assertEqual(program.wait(PATIENCE), 0)
        self.assertEqual(self.mode(), "1")

    def test_polling_outlives_the_server(self):
        with Desktop() as desktop, Simulator(self.scratch, description(PLAIN[2])) as simulator:
            program = self.start(desktop, simulator.device)
            desktop.window(program)
            self.tick_with_the_keyboard(desktop)
            desktop.press("F5")
            wait_for(lambda: len(self.records()) >= 1, "50 exchanges")
            self.proxy.be_silent()
            known = len(self.records())
            wait_for(lambda: len(self.records()) >= known + 2, "100 exchanges without the server")
            desktop.press("F5", "ctrl+q")
            self.assertEqual(program.wait(PATIENCE), 0)
        self.assertEqual(self.mode(), "0")


if __name__ == "__main__":
    unittest.main()
