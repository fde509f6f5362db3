"""The program with its window on a desktop, all by the keyboard: a search finds the one instrument on the line, which is
taken over and polled; its exchanges are captured under a note and replayed without it."""

import re
import unittest

from desktop import PATIENCE, Desktop, wait_for
from programs import PLAIN, Simulator, description
from screen_reader import ScreenReader
from window_case import TABS_TO_THE_RECORD, WindowCase

GRID = "参数表"
SCALED = 9  # column
DELAY = 22  # row of AL1报警延时
ADDRESS = 2
TABS_TO_THE_END_ADDRESS = 2  # from the port of the search
TABS_TO_9600 = 6  # from there, over both buttons
TABS_TO_THE_CAPTURE = TABS_TO_THE_RECORD + 2  # beside it stands the replay


class WindowSearchTest(WindowCase):
    def test_instrument_is_found_polled_captured_and_replayed(self):
        self.store(SoftSeting="5 1 16 0 0 1", CommPort="9600,N,8,1 COM1")
        with Desktop() as desktop, ScreenReader(desktop) as reader:
            with Simulator(self.scratch, description(PLAIN[2], address=ADDRESS)) as simulator:
                program = self.start(desktop, simulator.device)
                desktop.window(program)
                self.search(desktop, reader)
                self.take_over(desktop, reader)
                desktop.press("F5")
                reader.wait_for_cell(GRID, DELAY, SCALED, "7")
                self.capture(desktop, reader)
                desktop.press("F5")
                wait_for(lambda: reader.description("通讯状态").startswith("已停止 按 停止通讯"), "the stop")
            self.replay(desktop, reader)
            desktop.press("ctrl+q")
            self.assertEqual(program.wait(PATIENCE), 0)

    def search(self, desktop, reader):
        """From address 1 to 3, at 9600 baud."""
        desktop.press("ctrl+f", *["Tab"] * TABS_TO_THE_END_ADDRESS, "ctrl+a")
        desktop.type("3")
        desktop.press(*["Tab"] * TABS_TO_9600, "space", *["shift+Tab"] * (TABS_TO_9600 - 1), "space")
        self.close_the_box(desktop, reader, "搜索可能将持续数分钟之久")
        wait_for(lambda: reader.description("搜索进度").startswith("正在搜索 地址 "), "the progress")
        reader.wait_for_focus("停止搜索", "")
        self.close_the_box(desktop, reader, "搜索结束！总计搜索到 1 台仪表！")

    def close_the_box(self, desktop, reader, beginning):
        wait_for(lambda: any(words.startswith(beginning) for words in reader.words("CommTest")), beginning)
        reader.wait_for_button("确定")
        desktop.press("Return")

    def take_over(self, desktop, reader):
        """The hits stand beside the record."""
        desktop.press("ctrl+1", "F6", "F6", "Tab")
        self.assertRegex(reader.cell("搜索结果", 1, 0), r"^地址 2，9600 波特，\d+ 毫秒，校验字正确$")
        desktop.press("Return")
        reader.wait_for_words("提示", "已采用：地址 2，9600 波特")

    def capture(self, desktop, reader):
        desktop.press("ctrl+1", "shift+F6", *["Tab"] * TABS_TO_THE_CAPTURE, "space")
        wait_for(lambda: reader.focus()[1:] == ["仪表：HX-D10智能数字显示控制仪，TQ仪表协议"], "the question")
        desktop.type("plant")
        desktop.press("Return")
        wait_for(lambda: re.fullmatch(r"采集 PLANT 新 [1-9]\d* 已有 [1-9]\d*", reader.description("采集计数")), "counts")

    def replay(self, desktop, reader):
        desktop.press("ctrl+1", "shift+F6", *["Tab"] * (TABS_TO_THE_CAPTURE + 1), "space")
        self.close_the_box(desktop, reader, "请在 演示数据 表格里")
        desktop.press("ctrl+4", "ctrl+Home", "Return")
        reader.wait_for_description("通讯状态", "数据演示，未接仪表 HX-D10智能数字显示控制仪，PLANT")
        desktop.press("F5")
        wait_for(lambda: any(re.match(r"第 [2-9] / ", words) for words in reader.words("通讯状态")), "the replay")


if __name__ == "__main__":
    unittest.main()
