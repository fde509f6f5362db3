"""What keeps a file from being opened or written is told as it is, with its path."""

import os
import resource
import shutil
import subprocess
import unittest

from programs import CLI, PATIENCE, PLAIN, CommandLineTest, Run

NOBODY = 65534
ROOM_ON_A_SMALL_DISK = 48 * 1024  # bytes, less than the shipped catalogue


def has_small_disks():
    """Whether a file system of one's own may be mounted."""
    probe = ["unshare", "-rm", "mount", "-t", "tmpfs", "tmpfs", "/mnt"]
    return shutil.which("unshare") is not None and subprocess.run(probe, capture_output=True, check=False).returncode == 0


class CauseTest(CommandLineTest):
    def setUp(self):
        self.place = self.folder.parent / self.id().rsplit(".", 1)[1]
        self.place.mkdir()
        self.folder.parent.chmod(0o755)
        self.catalogue = self.place / "通讯数据.mdb"

    def call(self, *words, **options):
        done = subprocess.run([CLI, *map(str, words)], capture_output=True, encoding="utf-8", check=False,
                              timeout=PATIENCE, **options)
        return Run(done.returncode, done.stdout, done.stderr)

    def call_as_somebody(self, *words):
        """As one whom the modes of files hold for."""
        return self.call(*words, **({"user": NOBODY, "group": NOBODY} if os.geteuid() == 0 else {}))

    def assert_problem(self, run, status, *lines):
        self.assertEqual((run.status, run.output, run.problem_lines), (status, "", list(lines)))

    def copy_catalogue(self):
        shutil.copy(self.folder / "通讯数据.mdb", self.catalogue)

    # --- Rights ---

    def test_folder_that_may_not_be_entered(self):
        closed = self.place / "closed"
        closed.mkdir()
        closed.chmod(0)
        why = f"没有进入文件夹 {closed} 的权限"
        cases = (
            (("list", "protocols", "--folder", closed),
             f"数据库错误: {closed}/通讯数据.mdb：{why} 请检查 --folder"),
            (("recordings", "import", closed / "a.jsonl", "--folder", self.folder), f"文件 {closed}/a.jsonl 打不开: {why}"),
            (("catalogue", "check", closed / "TQ.ini", "--folder", self.folder), f"{closed}/TQ.ini 读不出来: {why}"),
            (("catalogue", "create", closed / "new"), f"不能建立 {closed}/new: {why}"),
            (("catalogue", "export", "--output", closed / "list.ini", "--folder", self.folder),
             f"{closed}/list.ini 写不进去: {why}"),
        )
        for words, line in cases:
            with self.subTest(words[0] + " " + words[1]):
                self.assert_problem(self.call_as_somebody(*words), 3, line)
        closed.chmod(0o755)

    def test_file_that_may_not_be_read(self):
        secret = self.place / "TQ.ini"
        secret.write_text("END", encoding="ascii")
        secret.chmod(0)
        self.assert_problem(self.call_as_somebody("catalogue", "check", secret, "--folder", self.folder), 3,
                            f"{secret} 读不出来: 没有读 {secret} 的权限")

    # --- A folder where a file should be, and the other way round ---

    def test_folder_where_a_file_should_be(self):
        self.catalogue.mkdir()
        self.assert_problem(self.call("list", "protocols", "--folder", self.place), 3,
                            f"数据库错误: {self.catalogue}：{self.catalogue} 是文件夹，不是文件 请检查 --folder")
        self.assert_problem(self.call("recordings", "import", self.place, "--folder", self.folder), 3,
                            f"文件 {self.place} 打不开: {self.place} 是文件夹，不是文件")

    def test_file_where_a_folder_should_be(self):
        notes = self.place / "notes"
        notes.write_text("notes", encoding="ascii")
        self.assert_problem(self.call("list", "protocols", "--folder", notes), 3,
                            f"数据库错误: {notes}/通讯数据.mdb：{notes} 是文件，不是文件夹 请检查 --folder")
        with self.simulate() as simulator:
            self.assert_problem(self.poll(simulator.device, "--exchanges", 1, "--record", notes / "record.txt"), 3,
                                f"{notes}/record.txt 写不进去: {notes} 是文件，不是文件夹")

    def test_folder_that_is_not_there(self):
        record = self.place / "none/record.txt"
        with self.simulate() as simulator:
            self.assert_problem(self.poll(simulator.device, "--exchanges", 1, "--record", record), 3,
                                f"{record} 写不进去: 没有文件夹 {self.place}/none")

    # --- Damage ---

    def test_damaged_catalogue(self):
        whole = (self.folder / "通讯数据.mdb").read_bytes()
        advice = "请放回完好的一份，或用 commtest-cli catalogue create 在另一个文件夹新建目录"
        self.catalogue.write_bytes(whole[:100] + b"x" * (len(whole) - 100))
        self.assert_problem(self.call("list", "protocols", "--folder", self.place), 3,
                            f"数据库错误: {self.catalogue}：数据库文件已损坏（database disk image is malformed） {advice}")

    def test_damage_that_shows_later(self):
        whole = bytearray((self.folder / "通讯数据.mdb").read_bytes())
        page = 4096
        for at in range(20 * page, len(whole), page):
            whole[at:at + page] = b"\xff" * page
        self.catalogue.write_bytes(whole)
        run = self.call("list", "parameters", "--instrument", PLAIN[1], "--folder", self.place)
        self.assertEqual((run.status, run.output, len(run.problem_lines)), (3, "", 1))
        self.assertTrue(run.problems.startswith(
            f"数据库错误: {self.catalogue}：数据库文件已损坏（database disk image is malformed） "), run.problems)

    # --- No room ---

    def test_record_that_may_not_grow(self):
        record = self.place / "record.txt"
        most = 4000
        many = 1000000  # it is noticed within a tenth of a second
        with self.simulate() as simulator:
            process = self.start("poll", simulator.device, PLAIN, "--interval", 0, "--exchanges", many, "--record", record,
                                 "--format", "json",
                                 preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (most, most)))
            run = self.finish(process)
        self.assertEqual((run.status, run.problem_lines), (3, [f"{record} 写不进去: 文件已到系统允许的最大长度"]))
        self.assertEqual(record.stat().st_size, most)
        self.assertLess(run.json["statistics"]["exchanges"], many)

    def call_on_a_small_disk(self, *words):
        mounted = f'mount -t tmpfs -o size={ROOM_ON_A_SMALL_DISK} tmpfs "$0" && exec "$@"'
        done = subprocess.run(["unshare", "-rm", "sh", "-c", mounted, self.place, CLI, *map(str, words)],
                              capture_output=True, encoding="utf-8", check=False, timeout=PATIENCE)
        return Run(done.returncode, done.stdout, done.stderr)

    @unittest.skipUnless(has_small_disks(), "no file system may be mounted here")
    def test_full_disk(self):
        run = self.call_on_a_small_disk("catalogue", "create", self.place)
        self.assertEqual((run.status, run.output), (3, ""))
        self.assertRegex(run.problems,
                         rf"\A不能建立 {self.place}: 数据库错误: {self.catalogue}\.\w+：磁盘已满（.*）\n\Z")
        with self.simulate() as simulator:
            record = self.place / "record.txt"
            words = self.words("poll", simulator.device, PLAIN, "--interval", 0, "--exchanges", 5000, "--record", record,
                               "--format", "json")
            run = self.call_on_a_small_disk(*words[1:])
        self.assertEqual((run.status, run.problem_lines), (3, [f"{record} 写不进去: 磁盘已满"]))


if __name__ == "__main__":
    unittest.main()
