"""What scripts/check-translations finds, each on a small tree of its own."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).parent.parent / "check-translations"

WORDS = '''class Words {
    Q_DECLARE_TR_FUNCTIONS(Words)
};
'''


def entry(source, translation, state=""):
    return f"<message><source>{source}</source><translation{state}>{translation}</translation></message>"


def check(said, *entries):
    """The lines that the check prints of a tree whose code says the one text."""
    with tempfile.TemporaryDirectory() as root:
        for folder in ("src", "translations"):
            Path(root, folder).mkdir()
        Path(root, "src/words.h").write_text(WORDS, encoding="utf-8")
        Path(root, "src/pane.cpp").write_text(f'#include "words.h"\nQString Said() {{ return Words::tr("{said}"); }}\n',
                                              encoding="utf-8")
        Path(root, "translations/english.ts").write_text(
            '<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n<TS version="2.1" language="en">\n'
            f'<context><name>Words</name>{"".join(entries)}</context></TS>\n', encoding="utf-8")
        run = subprocess.run([sys.executable, SCRIPT, root], capture_output=True, text=True, check=False)
        return run.stderr.replace("translations/english.ts: ", "").splitlines()


class CheckTranslations(unittest.TestCase):
    def test_text_with_its_translation_is_clean(self):
        self.assertEqual(check("已停止", entry("已停止", "Stopped")), [])

    def test_text_without_an_entry_is_missing(self):
        self.assertEqual(check("已停止"), ['"已停止" is missing'])

    def test_entry_without_a_translation_is_a_mistake(self):
        self.assertEqual(check("已停止", entry("已停止", "")), ['"已停止" is not translated'])
        self.assertEqual(check("已停止", entry("已停止", "Stopped", ' type="unfinished"')),
                         ['"已停止" is not translated'])

    def test_entry_of_no_text_is_stale(self):
        self.assertEqual(check("已停止", entry("已停止", "Stopped"), entry("继续", "Continue")), ['"继续" is stale'])

    def test_translation_fills_in_what_its_source_does(self):
        self.assertEqual(check("第 %1 次，%2", entry("第 %1 次，%2", "exchange %1")),
                         ['"第 %1 次，%2" has other places to be filled in: exchange %1'])
        self.assertEqual(check("第 %1 次，%2", entry("第 %1 次，%2", "%2 of exchange %1")), [])

    def test_translation_is_not_in_the_language_of_its_source(self):
        self.assertEqual(check("已停止", entry("已停止", "Stopped，")), ['"已停止" is in Chinese: Stopped，'])
        self.assertEqual(check("文件", entry("文件", "The file 通讯数据.mdb")), [])


if __name__ == "__main__":
    unittest.main()
