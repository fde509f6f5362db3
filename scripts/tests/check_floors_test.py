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

    def test_families_may_not_include_the_hosts_of_a_toolkit(self):
        for family in ("native", "modbus", "special"):
            with self.subTest(family):
                self.expect_mistake(f"src/protocol_{family}/a.cpp:1: protocol_{family}/ may not use host_qt/", {
                    f"protocol_{family}/a.cpp": '#include "host_qt/b.h"\n',
                    "host_qt/b.h": "",
                })

    def test_commands_stand_above_the_catalogue_and_below_app(self):
        self.expect_clean({
            "app/session.cpp": '#include "commands/startup.h"\n',
            "cli/main.cpp": '#include "commands/startup.h"\n',
            "commands/startup.h": '#include "catalogue/lists.h"\n#include "search/walk.h"\n',
            "catalogue/lists.h": "",
            "search/walk.h": "",
        })
        self.expect_mistake("src/commands/startup.h:1: commands/ may not use app/", {
            "commands/startup.h": '#include "app/session.h"\n',
            "app/session.h": "",
        })
        self.expect_mistake("src/commands/startup.h:1: commands/ may not use tools/", {
            "commands/startup.h": '#include "tools/data_tools.h"\n',
            "tools/data_tools.h": "",
        })
        self.expect_mistake("src/catalogue/lists.h:1: catalogue/ may not use commands/", {
            "catalogue/lists.h": '#include "commands/startup.h"\n',
            "commands/startup.h": "",
        })

    def test_commissioning_stands_above_the_tools_and_below_the_faces(self):
        self.expect_clean({
            "cli/main.cpp": '#include "commissioning/protocol.h"\n',
            "window/page.cpp": '#include "commissioning/protocol.h"\n',
            "commissioning/protocol.h": '#include "tools/data_tools.h"\n#include "replay/script.h"\n',
            "tools/data_tools.h": "",
            "replay/script.h": "",
        })
        self.expect_mistake("src/app/session.cpp:1: app/ may not use commissioning/", {
            "app/session.cpp": '#include "commissioning/protocol.h"\n',
            "commissioning/protocol.h": "",
        })
        self.expect_mistake("src/commissioning/protocol.h:1: commissioning/ may not use window/", {
            "commissioning/protocol.h": '#include "window/page.h"\n',
            "window/page.h": "",
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

    # --- The reply side of a family ---

    def test_the_reply_side_names_nothing_that_the_session_does(self):
        for name in ("LogLine", "SendCount", "IncompleteCount", "NoReplyCount", "CheckErrorCount",
                     "SearchFoundCount", "Timer1", "PollTimer", "Dialogs", "RecordPane", "ConCommString",
                     "Record()"):
            for file in ("protocol_native/reply_rows.cpp", "protocol_modbus/rtu_reply_verdicts.h",
                         "protocol_special/verdicts.cpp"):
                with self.subTest(name=name, file=file):
                    self.expect_mistake(
                        f"src/{file}:2: a reply's verdict and rows know no {name}",
                        {file: f"void Judge() {{\n    talk.{name};\n}}\n"})

    def test_the_request_side_may_count_and_ask(self):
        self.expect_clean({"protocol_native/read_requests.cpp": "if (talk.SendCount) Ask(Dialogs());\n"})

    def test_the_reply_side_may_speak_of_the_session_in_comments_and_texts(self):
        self.expect_clean({"protocol_native/reply_rows.cpp": '// LogLine\n/* Timer1\n */ f("SendCount", \'"\');\n'})

    def test_a_longer_name_is_another_name(self):
        self.expect_clean({"protocol_native/reply_rows.cpp": "int ResendCount = MyDialogs + DialogsOf + Record;\n"})

    # --- The faces ---

    def test_a_face_reads_no_line_of_the_record(self):
        for face in ("cli", "window"):
            with self.subTest(face):
                self.expect_mistake(
                    f"src/{face}/a.cpp:1: a face shows blocks of the record and reads no LogLine",
                    {f"{face}/a.cpp": "Print(form.LogLine);\n"})
        self.expect_clean({"session/a.cpp": "Print(form.LogLine);\n"})

    def test_a_face_holds_no_words_of_the_verdicts(self):
        for page in ("protocol_modbus/rtu_reply_verdicts.cpp", "protocol_modbus/modbus_words.cpp",
                     "session/verdict_words.cpp"):
            for face in ("cli", "window"):
                with self.subTest(page=page, face=face):
                    self.expect_mistake(f"src/{face}/a.cpp:2: words of a verdict: 校验错误", {
                        page: 'Text words = u"  校验错误 ";\n',
                        f"{face}/a.cpp": 'int a = 1\'000;\nif (Contains(u"行校验错误!")) return 3;\n',
                    })

    def test_words_that_are_broken_over_lines_are_found_whole(self):
        self.expect_mistake("src/cli/a.cpp:1: words of a verdict: 指令错误，无效指令", {
            "protocol_modbus/rtu_reply_verdicts.cpp": 'u"指令错误，"\n    u"无效指令"\n',
            "cli/a.cpp": 'u"指令"\n    u"错误，无效指令"\n',
        })

    def test_short_words_words_in_letters_and_comments_are_free(self):
        self.expect_clean({
            "protocol_native/reply_verdicts.cpp": 'u"测试"; u"refused";  // "读取错误"\n',
            "cli/a.cpp": 'u"测试"; u"refused"; u"读取错误";  // 校验错误\n',
        })
        self.expect_clean({
            "session/verdict_words.cpp": 'u"校验错误"\n',
            "cli/a.cpp": '// "校验错误"\n',
            "app/a.cpp": 'u"校验错误"\n',
        })


if __name__ == "__main__":
    unittest.main()
