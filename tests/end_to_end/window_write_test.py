"""What the window says, as a screen reader is told it: of a value that does not fit, one that is refused and one that
is taken, and of a port that is pulled out and comes back."""

import unittest

from desktop import PATIENCE, Desktop, wait_for
from programs import PLAIN, Simulator, description
from screen_reader import ScreenReader
from window_case import WindowCase

GRID = "参数表"
SCALED, NEW_VALUE = 9, 10  # columns
DECIMALS, LOWER_LIMIT, DELAY = 11, 13, 22  # rows; the limits of the last ones: -199.9 to 999.9, 0 to 60
LIMITS = "允许 -199.9 … 999.9，小数 1 位"
AGAIN = "再按一次回车仍写入，Esc 放弃"


class WindowWriteTest(WindowCase):
    def setUp(self):
        super().setUp()
        self.adapter = self.scratch / "adapter"

    def test_outcome_of_each_write_and_of_a_pulled_port_is_told(self):
        self.store(SoftSeting="5 1 16 0 0 1", CommPort="9600,N,8,1 COM1")
        with Desktop() as desktop, ScreenReader(desktop) as reader:
            with self.simulate() as simulator:
                program = self.start(desktop, self.adapter)
                desktop.window(program)
                self.tick_with_the_keyboard(desktop)
                desktop.press("F5")
                reader.wait_for_cell(GRID, DECIMALS, SCALED, "1")
                self.write_what_does_not_fit(desktop, reader)
                self.write_what_is_refused(desktop, reader)
                self.write_what_is_taken(desktop, reader)
            self.close_the_message_of_the_lost_port(desktop, reader)
            with self.simulate() as simulator_again:
                self.go_on_when_it_is_back(desktop, reader, simulator_again.device)
                desktop.press("ctrl+q")
                self.assertEqual(program.wait(PATIENCE), 0)
        self.assertEqual((simulator.counts["writes_accepted"], simulator.counts["refusals"]), (2, 1))

    def simulate(self):
        """An instrument behind the adapter, whatever pseudo-terminal it has got."""
        self.adapter.unlink(missing_ok=True)
        source = description(PLAIN[2], values={"小数点位置": 1})
        return Simulator(self.scratch, source, "--link", self.adapter)

    def edit(self, desktop, row, value):
        desktop.press("ctrl+1", "ctrl+Home", *["Down"] * (row - 1), "End", "F2")
        desktop.type(value)

    def write_what_does_not_fit(self, desktop, reader):
        editor = "修改值 量程下限"
        self.edit(desktop, LOWER_LIMIT, "20000")
        objection = f"{LIMITS}；超出上限；两字节放不下，仪表将收到 339.2"
        reader.wait_for_focus(editor, objection)
        reader.wait_for_description("通讯状态", "编辑时通讯已停止，回车写入并继续")
        desktop.press("Return")
        reader.wait_for_focus(editor, f"{objection}；{AGAIN}")
        desktop.press("Return")
        reader.wait_for_cell(GRID, LOWER_LIMIT, NEW_VALUE, "量程下限，20000，写入 20000，读回 339.2")
        reader.wait_for_words("提示", "013 量程下限：写入 20000，读回 339.2")

    def write_what_is_refused(self, desktop, reader):
        self.edit(desktop, DELAY, "61")
        reader.wait_for_focus("修改值 AL1报警延时", "允许 0 … 60；超出上限")
        desktop.press("Return", "Return")
        reader.wait_for_cell(GRID, DELAY, NEW_VALUE, "AL1报警延时，61，被拒绝：1# 仪表的通讯出错")
        reader.wait_for_words("提示", "022 AL1报警延时：被拒绝：1# 仪表的通讯出错")

    def write_what_is_taken(self, desktop, reader):
        self.edit(desktop, DELAY, "42")
        desktop.press("Return")
        reader.wait_for_words("提示", "022 AL1报警延时：已写入 42，读回一致")
        reader.wait_for_cell(GRID, DELAY, NEW_VALUE, "AL1报警延时，42，已写入 42，读回一致")
        self.assertEqual(reader.cell(GRID, LOWER_LIMIT, NEW_VALUE), "量程下限，20000，写入 20000，读回 339.2",
                         "the other row keeps what is said of it")

    def close_the_message_of_the_lost_port(self, desktop, reader):
        """The message has the keyboard when its button says so; a key before that would be lost."""
        reader.wait_for_button("确定")
        self.assertIn("串口已断开,通讯停止！", reader.words("CommTest"))
        self.adapter.unlink(missing_ok=True)
        desktop.press("Return")
        reader.wait_for_description("通讯状态", f"已停止 COM1 ({self.adapter}) 已断开，插回后可继续")

    def go_on_when_it_is_back(self, desktop, reader, device):
        """The state line's action comes first in the strip."""
        reader.wait_for_description("通讯状态", f"COM1 已恢复 ({device})")
        reader.wait_for_words("提示", "COM1 已恢复")
        desktop.press("ctrl+1", "F6")
        reader.wait_for_focus("继续", "")
        known = len(self.records())
        desktop.press("space")
        reader.wait_for_description("通讯状态", "操作 读取动/静态数据(RR/RD)")
        wait_for(lambda: len(self.records()) > known, "exchanges behind the return")


if __name__ == "__main__":
    unittest.main()
