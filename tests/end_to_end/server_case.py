"""A program folder whose Setup.ini leads to a database server of the test's own."""

import os
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from private_server import PrivateServer  # noqa: E402
from programs import CLI, CommandLineTest  # noqa: E402


class ServerTest(CommandLineTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.server = PrivateServer()
        cls.addClassCleanup(cls.server.end)
        cls.said = []
        (cls.folder / "Setup.ini").write_bytes(cls.server.setup_ini().encode("utf-8"))

    def setUp(self):
        self.server.sql("DROP SCHEMA public CASCADE; CREATE SCHEMA public")

    def start_words(self, words, **streams):
        return super().start_words(words, env=os.environ | self.server.environment, **streams)

    def finish(self, process):
        run = super().finish(process)
        self.said += [run.output or "", run.problems or ""]
        return run

    def run_verb(self, *words, server=True):
        return self.finish(self.start_words([CLI, *words, *(["--server"] if server else []), "--folder", self.folder],
                                            stdin=subprocess.DEVNULL))

    def copy(self, source, target, *options):
        return self.finish(self.start_words([CLI, "catalogue", "copy", "--from", source, "--to", target, *options],
                                            stdin=subprocess.DEVNULL))

    def create(self):
        run = self.run_verb("catalogue", "create")
        self.assertEqual((run.status, run.output, run.problems), (0, "已在服务器上建立目录\n", ""))

    def another_folder(self, name):
        folder = self.folder.parent / name
        subprocess.run([CLI, "catalogue", "create", folder], check=True, stdout=subprocess.DEVNULL)
        (folder / "Setup.ini").write_bytes(self.server.setup_ini().encode("utf-8"))
        return folder
