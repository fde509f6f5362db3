"""A serial port that the user may not open: what the program says to do about it."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from programs import CLI, PLAIN

NOBODY = 65534
ADMINISTRATOR = "没有读写设备 {device} 的权限。请管理员放开它的权限"


@unittest.skipUnless(os.geteuid() == 0, "only the administrator becomes another user")
class RightsTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)
        self.folder.chmod(0o755)
        self.program = shutil.copy(CLI, self.folder)  # the build's folder may be closed to others
        self.home = self.folder / "home"
        self.home.mkdir()
        os.chown(self.home, NOBODY, NOBODY)

    def poll_as_nobody(self, device):
        protocol, instrument, _ = PLAIN
        return subprocess.run(
            ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", self.program, "poll",
             "--protocol", protocol, "--instrument", instrument, "--port", f"COM1={device}", "--exchanges", "1"],
            env={"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "HOME": str(self.home)}, cwd="/",
            capture_output=True, encoding="utf-8", check=False)

    def expect_told(self, group, mode, words):
        device = self.folder / f"line-{group}-{mode:o}"
        device.touch()
        shutil.chown(device, "root", group)
        device.chmod(mode)
        run = self.poll_as_nobody(device)
        self.assertEqual(run.returncode, 3)
        self.assertIn(words.format(device=device), run.stderr)

    def test_the_group_of_the_device_is_the_remedy(self):
        words = ("没有读写设备 {{device}} 的权限。请把用户加入 {0} 组 (sudo usermod -aG {0} 用户名)，重新登录后再试")
        for group in ("dialout", "tty"):
            self.expect_told(group, 0o660, words.format(group))

    def test_a_group_that_may_not_write_is_none(self):
        self.expect_told("dialout", 0o640, ADMINISTRATOR)
        self.expect_told("dialout", 0o600, ADMINISTRATOR)

    def test_nobody_is_told_to_join_the_group_of_the_administrator(self):
        self.expect_told("root", 0o660, ADMINISTRATOR)


if __name__ == "__main__":
    unittest.main()
