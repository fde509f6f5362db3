"""What the tests of the program with its window share."""

import configparser
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

from programs import CLI

WINDOW = os.environ["COMMTEST"]

# Steps of the tabulator from the list of protocols: instrument, address, count, format, options, any length,
# no scrolling, record.
TABS_TO_THE_RECORD = 8


class WindowCase(unittest.TestCase):
    """A program folder with the shipped catalogue, and the program with its window over it."""

    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.scratch = Path(scratch.name)
        self.folder = self.scratch / "folder"
        self.settings = self.scratch / "settings.ini"
        subprocess.run([CLI, "catalogue", "create", str(self.folder)], check=True, stdout=subprocess.DEVNULL)

    def store(self, **settings):
        lines = [f'{key}="{value}"' for key, value in settings.items()]
        self.settings.write_text("\n".join(["[SystemSetting]", *lines, ""]), encoding="utf-8")

    def stored(self):
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        parser.read(self.settings, encoding="utf-8")
        return {key: value.strip('"') for key, value in parser["SystemSetting"].items()}

    def start(self, desktop, device, *options):
        return desktop.start([WINDOW, "--folder", self.folder, "--settings", self.settings, "--port", f"COM1={device}",
                              *options],
                             XDG_RUNTIME_DIR=str(self.scratch), XDG_CONFIG_HOME=str(self.scratch))

    def records(self):
        return sorted((self.folder / "自动保存通讯记录").glob("记录*.rtf"))

    def tick_with_the_keyboard(self, desktop):
        """自动保存记录 and, beside it, 保存错误记录, on the left side of the window."""
        desktop.press("shift+F6")
        desktop.press(*["Tab"] * TABS_TO_THE_RECORD, "space", "Tab", "space")
