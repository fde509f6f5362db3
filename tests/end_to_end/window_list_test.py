"""A parameter list comes into the catalogue by the window, as a screen reader is told it, while the session polls; then
the former catalogue comes back."""

import unittest

from desktop import PATIENCE, Desktop, wait_for
from programs import PLAIN, Simulator, description
from screen_reader import ScreenReader
from window_case import WindowCase

GRID = "参数表"
NAME = 1  # column
INSTRUMENTS = 12000


def faulty_list():
    """The instrument that is polled, with a decimal point that is no number, and many others behind it."""
    lines = [f"DEVICE {PLAIN[1]}", "TYPE 11000101", "001 新测量值 3010 X D", "002 新设定值 3020 0 RW", "END"]
    for number in range(1, INSTRUMENTS):
        lines += [f"DEVICE 新表{number}", "TYPE 11000101", "001 测量值 3010 0 D", "002 设定值 3020 0 RW", "END"]
    return lines + ["DEVICE END"]


class WindowListTest(WindowCase):
    def test_list_is_imported_while_the_session_polls_and_the_former_catalogue_comes_back(self):
        self.store(SoftSeting="5 1 16 0 0 1", CommPort="9600,N,8,1 COM1")
        (self.folder / "TQ.ini").write_bytes("\r\n".join(["\ufeff" + faulty_list()[0], *faulty_list()[1:], ""]).encode())
        with Desktop() as desktop, ScreenReader(desktop) as reader, \
                Simulator(self.scratch, description(PLAIN[2])) as simulator:
            program = self.start(desktop, simulator.device)
            desktop.window(program)
            self.tick_with_the_keyboard(desktop)
            desktop.press("F5")
            reader.wait_for_cell(GRID, 1, NAME, self.first_parameter(reader))
            former = reader.cell(GRID, 1, NAME)
            self.read_the_question(desktop, reader)
            self.import_while_polling(desktop, reader)
            reader.wait_for_cell(GRID, 1, NAME, "新测量值")
            self.restore(desktop, reader, former)
            desktop.press("F5", "ctrl+q")
            self.assertEqual(program.wait(PATIENCE), 0)

    def first_parameter(self, reader):
        return wait_for(lambda: reader.cell(GRID, 1, NAME), "the first parameter")

    def read_the_question(self, desktop, reader):
        desktop.press("ctrl+i")
        reader.wait_for_focus("否(N)", "")
        said = reader.description("确定要重新导入仪表的参数地址表吗？")
        self.assertIn(f"内容 {INSTRUMENTS:,} 台仪表，{2 * INSTRUMENTS:,} 个参数，1 处问题", said)
        self.assertEqual(reader.cell("问题", 1, 0), "TQ.ini:3")
        self.assertEqual(reader.cell("问题", 1, 2), '"新测量值" 的小数点 "X" 不是十六进制数')

    def import_while_polling(self, desktop, reader):
        records = len(self.records())
        desktop.press("alt+y")
        reader.wait_for_focus("取消", "")
        wait_for(lambda: len(self.records()) > records + 1, "records that grow")

    def restore(self, desktop, reader, former):
        reader.wait_for_focus("确定", "")
        desktop.press("shift+Tab", "space")
        reader.wait_for_focus("否(N)", "")
        desktop.press("alt+y")
        reader.wait_for_cell(GRID, 1, NAME, former)
        self.assertEqual(len(list(self.folder.glob("通讯数据.mdb.bak-*"))), 2)


if __name__ == "__main__":
    unittest.main()
