"""What scripts/check-floors finds, each on a small tree of its own."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).parent.parent / "check-floors"


def check(files):
    """Runs the check on a tree of these files; gives its exit status and the lines it printed."""
    with tempfile.TemporaryDirectory() as root:
        for name, text in files.items():
            path = Path(root, "src", name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        run = subprocess.run([sys.executable, SCRIPT, root], capture_output=True, text=True, check=False)
        return run.returncode, run.stderr.splitlines()


class CheckFloors(unittest.TestCase):
    def expect_mistake(self, line, files):
        self.assertEqual(check(files), (1, [line]))

    def expect_clean(self, files):
        self.assertEqual(check(files), (0, []))

    def test_includes_that_go_down_are_clean(self):
        self.expect_clean({
            "runtime/text.h": "#pragma once\n#include <string>\n",
            "session/main_form.h": '#include "runtime/text.h"\n',
            "cli/main.cpp": '#include <QCoreApplication>\n#include "session/main_form.h"\n',
        })

    def test_an_upward_include_is_a_mistake(self):
        self.expect_mistake("src/runtime/text.cpp:2: runtime/ may not use session/", {
            "runtime/text.cpp": '#include <string>\n#include "session/main_form.h"\n',
            "session/main_form.h": "",
        })

    def test_an_upward_include_by_a_relative_name_is_a_mistake(self):
        self.expect_mistake("src/numbers/codecs.h:1: numbers/ may not use host/", {
            "numbers/codecs.h": '#include "../host/clock.h"\n',
            "host/clock.h": "",
        })

    def test_an_upward_include_in_angle_brackets_is_a_mistake(self):
        self.expect_mistake("src/runtime/text.h:1: runtime/ may not use app/", {
            "runtime/text.h": "#include <app/table.h>\n",
            "app/table.h": "",
        })

    def test_families_may_not_include_each_other(self):
        self.expect_mistake("src/protocol_modbus/a.cpp:1: protocol_modbus/ may not use protocol_native/", {
            "protocol_modbus/a.cpp": '#include "protocol_native/b.h"\n',
            "protocol_native/b.h": "",
        })

    def test_faces_may_not_include_each_other(self):
        self.expect_mistake("src/window/a.cpp:1: window/ may not use cli/", {
            "window/a.cpp": '#include "cli/b.h"\n',
            "cli/b.h": "",
        })
        self.expect_mistake("src/cli/a.cpp:1: cli/ may not use window/", {
            "cli/a.cpp": '#include "window/b.h"\n',
            "window/b.h": "",
        })

    def test_the_simulator_may_include_nothing_of_the_program(self):
        self.expect_mistake("src/simulator/a.cpp:1: simulator/ may not use runtime/", {
            "simulator/a.cpp": '#include "runtime/hex_text.h"\n',
            "runtime/hex_text.h": "",
        })

    def test_the_simulator_may_include_the_headers_of_the_terminal(self):
        self.expect_clean({"simulator/main.cpp": "#include <pty.h>\n#include <string>\n"})

    def test_a_toolkit_header_below_the_faces_is_a_mistake(self):
        for header in ("QString", "QtCore/QString", "qglobal.h"):
            with self.subTest(header):
                self.expect_mistake(
                    f"src/app/a.cpp:1: <{header}>: app/ includes nothing but the standard library",
                    {"app/a.cpp": f"#include <{header}>\n"})

    def test_a_toolkit_header_in_quotes_is_a_mistake(self):
        self.expect_mistake(
            "src/host/a.h:1: <QString>: host/ includes nothing but the standard library",
            {"host/a.h": '#include "QString"\n'})

    def test_any_other_library_below_the_faces_is_a_mistake(self):
        self.expect_mistake(
            "src/catalogue/a.cpp:1: <sqlite3.h>: catalogue/ includes nothing but the standard library",
            {"catalogue/a.cpp": "#include <sqlite3.h>\n"})

    def test_only_the_lowest_floor_may_include_iconv(self):
        self.expect_clean({"runtime/code_page.cpp": "#include <iconv.h>\n"})
        self.expect_mistake(
            "src/session/a.cpp:1: <iconv.h>: session/ includes nothing but the standard library",
            {"session/a.cpp": "#include <iconv.h>\n"})

    def test_a_commented_include_is_no_include(self):
        self.expect_clean({"runtime/text.h": "// #include <QString>\n"})

    def test_a_link_to_a_toolkit_below_the_faces_is_a_mistake(self):
        self.expect_mistake("src/session/CMakeLists.txt:2: session/ may not link a toolkit", {
            "session/CMakeLists.txt": "commtest_library(commtest_session)\n"
                                      "target_link_libraries(commtest_session PUBLIC Qt6::Core)\n",
        })

    def test_a_link_to_a_toolkit_in_a_face_is_clean(self):
        self.expect_clean({"cli/CMakeLists.txt": "target_link_libraries(commtest_cli PUBLIC Qt6::Core)\n"})

    def test_an_upward_link_is_a_mistake(self):
        self.expect_mistake("src/numbers/CMakeLists.txt:1: numbers/ may not use session/", {
            "numbers/CMakeLists.txt": "commtest_library(commtest_numbers DEPENDS commtest_session)\n",
        })

    def test_two_files_that_include_each_other_are_a_loop(self):
        self.expect_mistake("src/host/b.h:1: a loop of includes: host/a.h -> host/b.h -> host/a.h", {
            "host/a.h": '#include "host/b.h"\n',
            "host/b.h": '#include "host/a.h"\n',
        })

    def test_a_longer_loop_is_shown_whole(self):
        self.expect_mistake(
            "src/host/c.h:2: a loop of includes: host/a.h -> host/b.h -> host/c.h -> host/a.h", {
                "host/a.h": '#include "host/b.h"\n',
                "host/b.h": '#include "c.h"\n',
                "host/c.h": '#pragma once\n#include "a.h"\n',
            })

    def test_a_header_included_on_two_ways_is_no_loop(self):
        self.expect_clean({
            "runtime/a.h": '#include "runtime/b.h"\n#include "runtime/c.h"\n',
            "runtime/b.h": '#include "runtime/c.h"\n',
            "runtime/c.h": "",
        })

    def test_an_unknown_folder_is_a_mistake(self):
        self.expect_mistake(
            "src/misc/a.h:1: misc stands on no floor of docs/architecture.md",
            {"misc/a.h": ""})


if __name__ == "__main__":
    unittest.main()
