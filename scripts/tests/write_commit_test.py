"""What cmake/WriteCommit.cmake tells of a tree, each a small one of its own."""

import subprocess
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).parents[2] / "cmake/WriteCommit.cmake"


def git(folder, *words):
    identity = ["-c", "user.name=A", "-c", "user.email=a@example.invalid"]
    run = subprocess.run(["git", *identity, "-C", folder, *words], capture_output=True, text=True, check=True)
    return run.stdout.strip()


class WriteCommit(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.tree = Path(scratch.name, "tree")
        self.tree.mkdir()
        self.source = self.tree / "source.txt"
        self.source.write_text("a\n", encoding="utf-8")
        self.output = Path(scratch.name, "commit.cpp")

    def make_checkout(self, folder):
        git(folder, "init", "--quiet")
        git(folder, "add", ".")
        git(folder, "commit", "--quiet", "--message", "One")
        return git(folder, "rev-parse", "HEAD")[:12]

    def written(self, tree=None):
        subprocess.run(["cmake", f"-DSOURCE={tree or self.tree}", f"-DOUTPUT={self.output}", "-P", SCRIPT], check=True)
        return self.output.read_text(encoding="utf-8")

    def test_a_checkout_tells_twelve_digits_of_its_commit(self):
        commit = self.make_checkout(self.tree)
        self.assertIn(f'return "{commit}";', self.written())

    def test_a_tag_takes_nothing_from_the_commit(self):
        commit = self.make_checkout(self.tree)
        git(self.tree, "tag", "--annotate", "v1", "--message", "One")
        self.assertIn(f'return "{commit}";', self.written())

    def test_a_changed_checkout_says_so(self):
        commit = self.make_checkout(self.tree)
        self.source.write_text("b\n", encoding="utf-8")
        self.assertIn(f'return "{commit}-dirty";', self.written())

    def test_an_unpacked_archive_has_none(self):
        self.assertIn('return "none";', self.written())

    def test_an_archive_unpacked_in_a_foreign_checkout_has_none(self):
        self.make_checkout(self.tree)
        inner = self.tree / "inner"
        inner.mkdir()
        self.assertIn('return "none";', self.written(inner))

    def test_the_same_commit_is_not_written_again(self):
        self.make_checkout(self.tree)
        self.written()
        before = self.output.stat().st_mtime_ns
        self.written()
        self.assertEqual(self.output.stat().st_mtime_ns, before)


if __name__ == "__main__":
    unittest.main()
