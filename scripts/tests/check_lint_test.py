"""What scripts/check-lint finds, each on a small tree of its own."""

import json
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECKOUT = Path(__file__).parent.parent.parent
NULL_AS_A_NUMBER = "int* Null() {\n    return 0;\n}\n"


class Tree:
    """A checkout of these files, all under src/numbers, with a build folder."""

    def __init__(self, folder, files):
        self.folder = Path(folder).resolve()
        self.sources = self.folder / "src/numbers"
        for name in ("scripts/check-lint", ".clang-tidy"):
            (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(CHECKOUT / name, self.folder / name)
        self.sources.mkdir(parents=True)
        (self.folder / "build").mkdir()
        for name, text in files.items():
            self.write(name, text)
        self.write_commands("a_target")

    def write_commands(self, *targets):
        """Each source is compiled by each of the targets."""
        commands = [{"directory": str(self.folder), "file": str(source),
                     "command": f"launcher c++ -I{self.folder}/src -Werror -std=c++20 -include none.hxx "
                                f"-o {target}/{source.stem}.o -c {source}"}
                    for target in targets for source in sorted(self.sources.glob("*.cpp"))]
        (self.folder / "build/compile_commands.json").write_text(json.dumps(commands), encoding="utf-8")

    def write(self, name, text):
        (self.sources / name).write_text(text, encoding="utf-8")

    def lint(self):
        """Exit status, what is printed at the end, what is found."""
        run = subprocess.run([sys.executable, self.folder / "scripts/check-lint", self.folder / "build"],
                             capture_output=True, text=True, check=False)
        return run.returncode, run.stdout, run.stderr


class CheckLint(unittest.TestCase):
    def tree(self, files):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        return Tree(folder.name, files)

    def expect_finding(self, tree, place, what):
        status, _, found = tree.lint()
        self.assertEqual(status, 1)
        self.assertIn(f"{tree.sources}/{place}", found)
        self.assertIn(what, found)

    def test_sources_whose_own_names_clash_are_clean(self):
        width = "namespace {\nint Width() { return 2; }\n}\n"
        tree = self.tree({"a.cpp": width + "int A() { return Width(); }\n",
                          "b.cpp": width + "int B() { return Width(); }\n",
                          "c.cpp": width + "int C() { return Width(); }\n"})
        self.assertEqual(tree.lint(), (0, "3 of 3 files looked at\n", ""))

    def test_sources_whose_headers_clash_are_clean(self):
        tree = self.tree({"a.cpp": "#include <termios.h>\nint A() { return B0; }\n",
                          "b.cpp": "#include <asm/termbits.h>\nint B() { return B0; }\n"})
        self.assertEqual(tree.lint(), (0, "2 of 2 files looked at\n", ""))

    def test_a_source_that_two_targets_compile_alike_is_looked_at_once(self):
        tree = self.tree({"a.cpp": "int A() { return 1; }\n", "b.cpp": "int B() { return 1; }\n"})
        tree.write_commands("one", "another")
        self.assertEqual(tree.lint(), (0, "2 of 2 files looked at\n", ""))
        self.assertEqual(tree.lint(), (0, "0 of 2 files looked at\n", ""))

    def test_a_finding_names_the_line_of_its_source(self):
        tree = self.tree({"a.cpp": "int A() { return 1; }\n", "b.cpp": NULL_AS_A_NUMBER})
        self.expect_finding(tree, "b.cpp:2:12: error", "modernize-use-nullptr")

    def test_a_finding_in_a_source_that_clashes_is_found(self):
        tree = self.tree({"a.cpp": "static int Width() { return 2; }\nint A() { return Width(); }\n",
                          "b.cpp": "static int Width() { return 3; }\nint B() { return Width(); }\n" + NULL_AS_A_NUMBER})
        self.expect_finding(tree, "b.cpp:4:12: error", "modernize-use-nullptr")

    def test_a_finding_in_a_header_is_found(self):
        tree = self.tree({"codes.h": "inline " + NULL_AS_A_NUMBER, "a.cpp": '#include "numbers/codes.h"\n'})
        self.expect_finding(tree, "codes.h:2:12: error", "modernize-use-nullptr")

    def test_a_source_that_does_not_compile_is_not_clean(self):
        tree = self.tree({"a.cpp": "int A() { return 1; }\n", "b.cpp": "int B() { return nothing; }\n"})
        self.expect_finding(tree, "b.cpp:1:18: error", "undeclared identifier")

    def test_what_was_clean_is_looked_at_again_when_a_header_changes(self):
        tree = self.tree({"codes.h": "#pragma once\n", "a.cpp": '#include "numbers/codes.h"\n',
                          "b.cpp": "int B() { return 2; }\n"})
        self.assertEqual(tree.lint(), (0, "2 of 2 files looked at\n", ""))
        self.assertEqual(tree.lint(), (0, "0 of 2 files looked at\n", ""))
        tree.write("codes.h", "#pragma once\nint A();\n")
        self.assertEqual(tree.lint(), (0, "1 of 2 files looked at\n", ""))


if __name__ == "__main__":
    unittest.main()
