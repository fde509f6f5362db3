"""The tool window on a desktop, by the keyboard: a conversion, beside a session that goes on polling."""

import unittest

from desktop import PATIENCE, Desktop, wait_for
from programs import PLAIN, Simulator, description
from window_case import WindowCase

# Steps of the tabulator: from the tool's input back over the list of instruments and the protocols, from there to the
# button that copies the result, and in the main window from the list of protocols.
TABS_BACK_TO_THE_CONVERSIONS = 3
TABS_TO_THE_COPY = 6
TABS_TO_THE_ADDRESS = 2


class ToolWindowTest(WindowCase):
    def test_conversion_beside_a_session(self):
        """41C80000 is 25; copied, the result becomes the address of the instrument, which is stored at the end."""
        self.store(SoftSeting="5 1 16 0 0 1", CommPort="9600,N,8,1 COM1")
        with Desktop() as desktop, Simulator(self.scratch, description(PLAIN[2])) as simulator:
            program = self.start(desktop, simulator.device)
            main = desktop.window(program)
            self.tick_with_the_keyboard(desktop)
            desktop.press("F5", "ctrl+t")
            tool = wait_for(lambda: self.active_other_than(desktop, main), "the tool window")

            desktop.type("41C80000")
            desktop.press(*["shift+Tab"] * TABS_BACK_TO_THE_CONVERSIONS, "Up", "Return")
            desktop.press(*["Tab"] * TABS_TO_THE_COPY, "space")
            known = len(self.records())
            wait_for(lambda: len(self.records()) >= known + 2, "exchanges beside the tool")
            desktop.press("Escape")
            wait_for(lambda: self.active_other_than(desktop, tool), "the main window")

            desktop.press("F5", "ctrl+1", "shift+F6")
            desktop.press(*["Tab"] * TABS_TO_THE_ADDRESS, "ctrl+a", "ctrl+v", "ctrl+q")
            self.assertEqual(program.wait(PATIENCE), 0)
        self.assertEqual(self.stored()["SoftSeting"], "5 25 16 0 0 1")

    @staticmethod
    def active_other_than(desktop, window):
        active = desktop.active()
        return active if active not in ("", window) else None


if __name__ == "__main__":
    unittest.main()
