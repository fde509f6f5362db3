"""The tables of a protocol go to spreadsheets by the window and the machine's own ssconvert, while the session polls."""

import json
import subprocess
import unittest
from pathlib import Path

from desktop import PATIENCE, Desktop, wait_for
from programs import PLAIN, Simulator, description
from screen_reader import ScreenReader
from window_case import WindowCase

READER = Path(__file__).resolve().parent / "peers/workbook_reader.py"
TEMPLATE = "参数地址表.xls"
GRID = "参数表"
SCALED_VALUE = 9  # column


def texts(path):
    read = subprocess.run(["/usr/bin/python3", READER, path, "参数表"], check=True, capture_output=True,
                          encoding="utf-8", timeout=PATIENCE)
    return [[cell["text"] for cell in row[:11]] for row in json.loads(read.stdout)["cells"]]


class WindowSpreadsheetTest(WindowCase):
    def test_all_tables_are_exported_while_the_session_polls(self):
        self.store(SoftSeting="5 1 16 0 0 1", CommPort="9600,N,8,1 COM1")
        with Desktop() as desktop, ScreenReader(desktop) as reader, \
                Simulator(self.scratch, description(PLAIN[2])) as simulator:
            program = self.start(desktop, simulator.device)
            desktop.window(program)
            desktop.press("F5")
            value = wait_for(lambda: reader.cell(GRID, 6, SCALED_VALUE), "a value")
            desktop.press("ctrl+e", "Down", "Down", "Return")
            reader.wait_for_focus("确定", "")
            self.assertIsNotNone(reader.words("已导出 4 台，失败 0 台。"))
            self.assertEqual(len(self.results()), 4)
            self.assertEqual(reader.cell(GRID, 6, SCALED_VALUE), value)
            rows = texts(self.folder / "自动保存通讯记录" / f"{PLAIN[1]}{TEMPLATE}")
            self.assertEqual(rows[1][0], "通讯协议:  TQ仪表协议")
            self.assertEqual(rows[2][0], f"Device  {PLAIN[1]}")
            self.assertEqual(rows[5][:6], ["001", "恢复出厂设置", "0000", "3", "W", "0"])
            self.assertEqual(rows[10][9], "")
            desktop.press("Return", "F5", "ctrl+q")
            self.assertEqual(program.wait(PATIENCE), 0)

    def results(self):
        return list((self.folder / "自动保存通讯记录").glob(f"*{TEMPLATE}"))


if __name__ == "__main__":
    unittest.main()
