"""What scripts/check-quirks finds, each on a small tree of its own."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).parent.parent / "check-quirks"

GOOD = {
    "docs/quirks.md": "# Quirks\n\n"
                      "| number | where | what | why it must stay | test |\n"
                      "|---|---|---|---|---|\n"
                      "| Q1 | Frames | A thing. | A reason. | `Frame.HasIt` |\n",
    "src/runtime/frame.cpp": "// Q1: a thing.\n",
    "tests/runtime/frame_test.cpp": "TEST(Frame, HasIt) {}\n",
}


def check(files):
    """Runs the check on a tree of these files; gives its exit status and the lines it printed."""
    with tempfile.TemporaryDirectory() as root:
        for name, text in files.items():
            path = Path(root, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        run = subprocess.run([sys.executable, SCRIPT, root], capture_output=True, text=True, check=False)
        return run.returncode, run.stderr.splitlines()


def page(*lines):
    return "".join(f"| {line} |\n" for line in lines)


class CheckQuirks(unittest.TestCase):
    def expect_mistakes(self, lines, files):
        self.assertEqual(check({**GOOD, **files}), (1, lines))

    def expect_clean(self, files):
        self.assertEqual(check({**GOOD, **files}), (0, []))

    def expect_test_to_be_found(self, name, path, text):
        page_of_it = page(f"Q1 | Frames | A thing. | A reason. | `{name}`")
        self.expect_clean({"docs/quirks.md": page_of_it, path: text})
        self.expect_mistakes([f"docs/quirks.md:1: Q1: there is no test {name}"],
                             {"docs/quirks.md": page_of_it})

    def test_a_line_that_is_cited_and_tested_is_clean(self):
        self.expect_clean({})

    def test_a_number_without_a_line_is_a_mistake(self):
        self.expect_mistakes(["src/runtime/text.h:2: Q17 has no line in docs/quirks.md"],
                             {"src/runtime/text.h": "#pragma once\nint a;  // as Q1 and Q17 have it\n"})

    def test_only_comments_of_the_code_cite(self):
        self.expect_clean({"src/runtime/text.h": 'auto Q17 = "Q18";\n',
                           "src/window/words.txt": "/* Q19 */ // Q19\n",
                           "tests/runtime/text_test.cpp": "// Q20\n"})

    def test_a_number_is_a_word_of_its_own(self):
        self.expect_clean({"src/runtime/text.h": "// Q17a, aQ18, Q_19\n"})

    def test_a_line_that_nothing_cites_is_a_mistake(self):
        self.expect_mistakes(["docs/quirks.md:5: Q1 is cited nowhere under src/"],
                             {"src/runtime/frame.cpp": "// A thing.\n"})

    def test_a_gap_in_the_numbers_is_a_mistake(self):
        self.expect_mistakes(["docs/quirks.md:2: expected Q2, found Q3"], {
            "docs/quirks.md": page("Q1 | a | b | c | `Frame.HasIt`", "Q3 | a | b | c | `Frame.HasIt`",
                                   "Q4 | a | b | c | `Frame.HasIt`"),
            "src/runtime/frame.cpp": "// Q1, Q3, Q4\n",
        })

    def test_numbers_begin_with_one(self):
        self.expect_mistakes(["docs/quirks.md:1: expected Q1, found Q2"], {
            "docs/quirks.md": page("Q2 | a | b | c | `Frame.HasIt`"),
            "src/runtime/frame.cpp": "// Q2\n",
        })

    def test_a_number_given_twice_is_a_mistake(self):
        self.expect_mistakes(["docs/quirks.md:2: expected Q2, found Q1"], {
            "docs/quirks.md": page("Q1 | a | b | c | `Frame.HasIt`", "Q1 | a | b | c | `Frame.HasIt`"),
        })

    def test_a_line_needs_all_of_its_cells(self):
        for line in ("Q1 | a | b | `Frame.HasIt`", "Q1 | a | | c | `Frame.HasIt`",
                     "Q1 | a | b | c | d | `Frame.HasIt`"):
            with self.subTest(line):
                self.expect_mistakes(["docs/quirks.md:1: Q1: expected 5 cells with a text each"],
                                     {"docs/quirks.md": page(line)})

    def test_a_line_needs_a_test(self):
        self.expect_mistakes(["docs/quirks.md:1: Q1 names no test"],
                             {"docs/quirks.md": page("Q1 | a | b | c | Frame.HasIt")})

    def test_each_of_several_tests_has_to_exist(self):
        self.expect_mistakes(["docs/quirks.md:1: Q1: there is no test Frame.HasNot"],
                             {"docs/quirks.md": page("Q1 | a | b | c | `Frame.HasIt`, `Frame.HasNot`")})

    def test_tests_of_a_fixture_and_of_parameters_are_found(self):
        self.expect_test_to_be_found("Bench.Sends", "tests/session/a_test.cpp", "TEST_F(Bench, Sends) {}\n")
        self.expect_test_to_be_found("Bench.Sends", "tests/session/a_test.cpp", "TEST_P(Bench, Sends) {}\n")

    def test_a_test_whose_name_stands_on_two_lines_is_found(self):
        self.expect_test_to_be_found("Bench.Sends", "tests/session/a_test.cpp",
                                     "TEST_F(Bench,\n       Sends) {}\n")

    def test_cases_are_found_by_their_files(self):
        self.expect_test_to_be_found("vectors.hextext", "tests/cases/vectors/hextext.jsonl", "")
        self.expect_test_to_be_found("dialogues.native.p11-c10",
                                     "tests/cases/dialogues/native/p11-c10.json", "")

    def test_whole_program_tests_are_found_by_class_and_method(self):
        source = "class WindowTest:\n    def test_session(self):\n        pass\n"
        self.expect_test_to_be_found("end_to_end/window_test.py::WindowTest.test_session",
                                     "tests/end_to_end/window_test.py", source)

    def test_a_method_of_another_class_is_another_test(self):
        name = "end_to_end/window_test.py::WindowTest.test_session"
        source = "class OtherTest:\n    def test_session(self):\n        pass\n"
        self.expect_mistakes([f"docs/quirks.md:1: Q1: there is no test {name}"], {
            "docs/quirks.md": page(f"Q1 | a | b | c | `{name}`"),
            "tests/end_to_end/window_test.py": source,
        })


if __name__ == "__main__":
    unittest.main()
