"""Recordings travel by the window, all by the keyboard: one of the list goes into a file, and a file comes in, under a note
that is there already and under one that is not."""

import json
import subprocess
import unittest

from desktop import PATIENCE, Desktop
from programs import CLI, PLAIN
from screen_reader import ScreenReader
from window_case import WindowCase

FILE_NAME = "文件名称(N)："  # of the toolkit's own dialog
NO_PORT = "/dev/null"


def recording(note, *replies):
    head = {"format": 1, "instrument": PLAIN[1], "protocol": PLAIN[0], "code": "11000101", "note": note}
    pairs = [{"date": "2024-05-06", "row": 6, "request": " 40", "reply": f" {reply}", "valid": True}
             for reply in replies]
    return "".join(json.dumps(line, ensure_ascii=False) + "\n" for line in [head, *pairs])


class WindowRecordingTest(WindowCase):
    def setUp(self):
        super().setUp()
        self.put("former.jsonl", recording("BENCH", "41", "42"))
        subprocess.run(self.recordings("import", self.scratch / "former.jsonl"), check=True, stdout=subprocess.DEVNULL)

    def put(self, name, text):
        (self.scratch / name).write_text(text, encoding="utf-8")

    def recordings(self, *words):
        return [CLI, "recordings", *words, "--folder", self.folder]

    def stored(self):
        listed = subprocess.run(self.recordings("list", "--format", "json"), check=True, capture_output=True)
        return {row["note"]: row["exchanges"] for row in json.loads(listed.stdout)}

    def test_recording_goes_into_a_file_and_others_come_in(self):
        self.put("more.jsonl", recording("bench", "42", "43"))
        self.put("other.jsonl", recording("plant", "41"))
        self.put("faulty.jsonl", recording("plant", "41", "4"))
        with Desktop() as desktop, ScreenReader(desktop) as reader:
            program = self.start(desktop, NO_PORT)
            desktop.window(program)
            desktop.press("ctrl+4", "ctrl+Home")
            self.choose(desktop, reader, "导出录制......", 2, "out.jsonl")
            reader.wait_for_words("提示", f"已导出 2 条：{self.scratch}/out.jsonl")
            self.assertEqual((self.scratch / "out.jsonl").read_text(encoding="utf-8"), recording("BENCH", "41", "42"))
            self.choose(desktop, reader, "导入录制......", 1, "more.jsonl")
            reader.wait_for_focus("否(N)", "")
            self.assertEqual(self.stored(), {"BENCH": 2})
            desktop.press("alt+y")
            reader.wait_for_words("提示", f"已导入 1 条，1 条已有：{PLAIN[1]}，BENCH")
            self.choose(desktop, reader, "导入录制......", 1, "faulty.jsonl")
            reader.wait_for_words("CommTest", 'faulty.jsonl 第 3 行："reply" 的值不对')
            desktop.press("Return")
            self.choose(desktop, reader, "导入录制......", 1, "other.jsonl")
            reader.wait_for_words("提示", f"已导入 1 条，0 条已有：{PLAIN[1]}，PLANT")
            desktop.press("ctrl+q")
            self.assertEqual(program.wait(PATIENCE), 0)
        self.assertEqual(self.stored(), {"BENCH": 3, "PLANT": 1})

    def choose(self, desktop, reader, entry, steps_from_the_end, name):
        """An entry of the menu of the list, and a file."""
        desktop.press("shift+F10", *["Up"] * steps_from_the_end)
        reader.wait_for_focus(entry, "")
        desktop.press("Return")
        reader.wait_for_focus(FILE_NAME, "")
        desktop.press("ctrl+a")
        desktop.type(str(self.scratch / name))
        desktop.press("Return")


if __name__ == "__main__":
    unittest.main()
