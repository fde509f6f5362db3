"""What scripts/check-guide-messages finds, each on a small tree of its own."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).parent.parent / "check-guide-messages"

CODE = 'QString Refusal() { return Words::tr("没有打开 %1，%2"); }\n'


def entry(name, heading, says="It is not there. Look for it."):
    return f'<a name="{name}"></a>\n\n### {heading}\n\n{says}\n\n'


CHINESE = entry("not-open", "「没有打开 …，…」")
ENGLISH = entry("not-open", "“… is not open: …”")


def check(code=CODE, chinese=CHINESE, english=ENGLISH, file="window/pane.cpp"):
    """What the check prints of a tree with one file of code."""
    files = {f"src/{file}": code, "docs/guide/zh/messages.md": "# 提示\n\n" + chinese,
             "docs/guide/en/messages.md": "# Messages\n\n" + english,
             "translations/english.ts": "<TS><context><message><source>没有打开 %1，%2</source>"
                                        "<translation>%1 is not open: %2</translation></message></context></TS>"}
    with tempfile.TemporaryDirectory() as root:
        for name, text in files.items():
            Path(root, name).parent.mkdir(parents=True, exist_ok=True)
            Path(root, name).write_text(text, encoding="utf-8")
        run = subprocess.run([sys.executable, SCRIPT, root], capture_output=True, text=True, check=False)
        return [line for line in run.stderr.splitlines() if not line.startswith("scripts/check-guide-messages")]


class CheckGuideMessages(unittest.TestCase):
    def test_message_that_both_pages_quote_is_clean(self):
        self.assertEqual(check(), [])

    def test_message_without_an_entry_is_told_of_each_page(self):
        self.assertEqual(check(CODE + 'QString Other() { return Words::tr("磁盘上没有地方"); }\n'),
                         ['src/window/pane.cpp: "磁盘上没有地方" has no entry in docs/guide/zh/messages.md',
                          'src/window/pane.cpp: "磁盘上没有地方" has no entry in docs/guide/en/messages.md'])

    def test_entry_that_is_taken_away_is_missed(self):
        self.assertEqual(check(english=""), [
            'src/window/pane.cpp: "没有打开 %1，%2" has no entry in docs/guide/en/messages.md',
            "docs/guide/en/messages.md: has 0 entries, docs/guide/zh/messages.md 1"])

    def test_parts_that_stand_side_by_side_are_one_text(self):
        self.assertEqual(check('auto kRefusal = u"没有打开 %1，"\n    u"%2"_s;\n'), [])

    def test_comments_captions_and_help_of_the_command_line_are_no_messages(self):
        self.assertEqual(check(CODE + '// 磁盘上没有地方\nauto kCaption = u"打开文件夹";\n'), [])
        help_of_verb = 'Verb PollVerb() {\n    return {u"轮询仪表，逐条给出"};\n}\n'
        self.assertEqual(check(CODE + help_of_verb, file="cli/poll.cpp"), [])

    def test_refusals_of_the_simulator_are_messages(self):
        code = 'if (!in) throw UsageError(name + ": is not there at all");\nauto kOther = "no refusal at all";\n'
        self.assertEqual(check(code, chinese="", english="", file="simulator/main.cpp"), [
            'src/simulator/main.cpp: ": is not there at all" has no entry in docs/guide/zh/messages.md',
            'src/simulator/main.cpp: ": is not there at all" has no entry in docs/guide/en/messages.md'])

    def test_quotation_that_the_program_does_not_say_is_a_mistake(self):
        self.assertEqual(check(chinese=CHINESE + "见「从来没有的话」。\n"), [
            "docs/guide/zh/messages.md: 从来没有的话: 从来没有的话 is in no text of the program"])

    def test_entry_has_an_anchor_and_something_to_say(self):
        self.assertEqual(check(chinese=CHINESE + "### 「没有打开 …，…」\n\n请打开它。\n"), [
            "docs/guide/zh/messages.md: a heading of an entry lacks its anchor, or an empty line"])
        self.assertEqual(check(chinese=entry("not-open", "「没有打开 …，…」", "- 「没有打开」")),
                         ["docs/guide/zh/messages.md: not-open: says nothing"])

    def test_both_pages_have_the_same_entries(self):
        self.assertEqual(check(english=entry("is-closed", "“… is not open: …”")), [
            "docs/guide/en/messages.md: has is-closed where docs/guide/zh/messages.md has not-open"])


if __name__ == "__main__":
    unittest.main()
