"""The pictures of the guide: the window at its tasks, in both faces, as small as a guide may have them."""

import json
import subprocess
import tempfile
import time
from pathlib import Path

from desktop import Desktop

ROOT = Path(__file__).resolve().parent.parent
PICTURES = ROOT / "docs/guide/pictures"
FACES = {"chinese": "zh", "english": "en"}
SCREEN = (1366, 768)
COLOURS = "128"

LIMIT = 14  # row of a parameter that can be written
ROW_OF_THE_MENU = 3
TABS_TO_THE_END_ADDRESS = 2  # of the search, from its port
TABS_TO_9600 = 6  # from there, over both buttons
INSTRUMENT = "HX-D10智能数字显示控制仪"

TABS_TO_THE_CONVERSIONS = 3  # of the tool window, back from its input
LIST = """Device  HX-D20
Type    11000101
001  测量值    2010 0020  D
002  量程上限  2022 G     RW    -1999  9999
003  TREND     2024 0020  R
END
DEVICE  END
"""

# What is shown of the screen: width, height, left, top.
PORT_PAGE = (900, 320, 264, 44)
UPPER_GRID = (1102, 418, 264, 44)
FEW_ROWS = (1102, 140, 264, 44)
SEARCH_PANEL = (1102, 240, 264, 44)
UNDER_THE_GRID = (1102, 278, 264, 462)


def recording(note, exchanges):
    head = {"format": 1, "instrument": INSTRUMENT, "protocol": "TQ仪表协议", "code": "11000101", "note": note}
    lines = [{"date": "2026-11-20", "row": 6, "request": " 40 30 31 0D", "reply": f" 40 30 31 {40 + each} 0D",
              "valid": True} for each in range(exchanges)]
    return "\n".join(json.dumps(line, ensure_ascii=False) for line in [head, *lines])


class GuidePhotographer:
    def __init__(self, build, face):
        self.build = build
        self.face = face
        self.folder = PICTURES / FACES[face]
        self.folder.mkdir(parents=True, exist_ok=True)

    def photograph(self):
        with tempfile.TemporaryDirectory() as scratch, Desktop(*SCREEN) as desktop:
            self.scratch = Path(scratch)
            self.desktop = desktop
            self.fill_folder()
            instrument = self.start_instrument()
            program = self.start()
            self.walk()
            desktop.press("ctrl+q")
            program.wait()
            instrument.terminate()
            instrument.wait()

    def run(self, *words):
        subprocess.run([str(self.build / "bin/commtest-cli"), *map(str, words)], check=True, stdout=subprocess.DEVNULL)

    def fill_folder(self):
        self.program_folder = self.scratch / "CommTest"
        self.run("catalogue", "create", self.program_folder)
        (self.program_folder / "TQ.ini").write_text(LIST, encoding="utf-8-sig", newline="\r\n")
        for note, exchanges in (("BENCH", 46), ("FURNACE", 12)):
            file = self.scratch / "recording.jsonl"
            file.write_text(recording(note, exchanges), encoding="utf-8")
            self.run("recordings", "import", file, "--folder", self.program_folder, "--yes")

    def start_instrument(self):
        """At a port that is called as an adapter is."""
        instrument = subprocess.Popen(
            [self.build / "bin/instrument-simulator", "--description", ROOT / "data/simulator/indicator.txt", "--link",
             "ttyUSB0"], cwd=self.scratch, stdout=subprocess.PIPE, encoding="utf-8")
        instrument.stdout.readline()
        return instrument

    def start(self):
        settings = self.scratch / "settings.ini"
        settings.write_text('[SystemSetting]\nSoftSeting="150 1 16 0 0 1"\nCommPort="9600,N,8,1 COM1"\n'
                            "[Window]\nTheme=light\n")
        program = subprocess.Popen(
            [self.build / "bin/commtest", "--port", "COM1=ttyUSB0", "--port", "COM2=/dev/ttyUSB1", "--folder",
             self.program_folder, "--settings", settings, "--face", self.face], cwd=self.scratch,
            env={**self.desktop.environment, "XDG_RUNTIME_DIR": str(self.scratch),
                 "XDG_CONFIG_HOME": str(self.scratch)})
        window = self.desktop.window(program)
        self.desktop.fill(window)
        time.sleep(1)
        return program

    def take(self, name, part=None, window="root"):
        time.sleep(0.6)
        taken = self.scratch / "taken.png"
        self.desktop.picture(taken, window)
        crop = ["-crop", "{}x{}+{}+{}".format(*part), "+repage"] if part else []
        subprocess.run(["convert", taken, *crop, "+dither", "-colors", COLOURS, "-strip",
                        f"PNG8:{self.folder / name}.png"], check=True)

    def walk(self):
        press = self.desktop.press
        self.take("first-steps")
        press("ctrl+2", "alt+Down")
        self.take("port", PORT_PAGE)
        press("Escape", "ctrl+3")
        self.take("list", UPPER_GRID)
        press("ctrl+4")
        self.take("recordings", FEW_ROWS)
        press("ctrl+1", "F5")
        time.sleep(4)
        self.take("polling")
        press("ctrl+1", "ctrl+Home", *["Down"] * (ROW_OF_THE_MENU - 1), "shift+F10")
        self.take("menu", UPPER_GRID)
        press("Escape", *["Down"] * (LIMIT - ROW_OF_THE_MENU), "End", "F2")
        self.desktop.type("1500")
        self.take("editing", UPPER_GRID)
        press("Escape")
        self.import_question()
        self.search()
        self.tool()

    def import_question(self):
        self.desktop.press("ctrl+i")
        time.sleep(1.5)
        self.take("import", window=self.desktop.active())
        self.desktop.press("Escape")

    def search(self):
        press = self.desktop.press
        press("ctrl+f", *["Tab"] * TABS_TO_THE_END_ADDRESS, "ctrl+a")
        self.desktop.type("3")
        press(*["Tab"] * TABS_TO_9600, "space", *["shift+Tab"] * (TABS_TO_9600 - 1), "space")
        time.sleep(1)
        press("Return")
        self.take("search", SEARCH_PANEL)
        time.sleep(6)
        press("Return")
        self.take("hits", UNDER_THE_GRID)
        press("Escape")

    def tool(self):
        self.desktop.press("ctrl+t")
        time.sleep(1)
        self.desktop.type("41C80000")
        self.desktop.press(*["shift+Tab"] * TABS_TO_THE_CONVERSIONS, "Up", "Return")
        self.take("tool", window=self.desktop.active())
        self.desktop.press("Escape")


def photograph_guide(build):
    for face in FACES:
        GuidePhotographer(build, face).photograph()
