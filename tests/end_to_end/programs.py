"""The programs under test, for the tests of this folder."""

import json
import os
import signal
import subprocess
import tempfile
import unittest
from pathlib import Path

CLI = os.environ["COMMTEST_CLI"]
SIMULATOR = os.environ["INSTRUMENT_SIMULATOR"]
LISTS = Path(__file__).resolve().parents[2] / "data/catalogue/instruments"

PLAIN = ("TQ仪表协议", "HX-D10智能数字显示控制仪", "11_digital_indicator.txt")
SUM = ("TQ仪表协议-定制累加和", "HX-D12智能光柱显示仪", "12_bar_indicator.txt")
FILLED = ("TQ仪表协议-定制异或和", "HX-D13智能双回路显示仪", "13_two_loop_indicator.txt")

RTU = ("ModBus-RTU协议", "HX-M31智能数显表", "31_rtu_indicator.txt")
ASCII = ("ModBus-Ascii协议", "HX-M21智能数显表", "21_ascii_indicator.txt")
NOVAX = ("TQ特殊仪表协议-NOVAX", "HX-N41电炉控制仪", "41_furnace_controller.txt")
FLOW_METER = ("TQ特殊仪表协议-HCT615D", "HX-H42超声波流量表", "42_ultrasonic_meter.txt")

PATIENCE = 60  # seconds


def description(parameter_list, values=None, address=1, part_length=0):
    """A shipped parameter list as a simulated instrument; `values` by parameter name, every other value is 7."""
    head = None
    lines = []
    for line in (LISTS / parameter_list).read_text(encoding="utf-8").splitlines():
        fields = [field.strip() for field in line.split("|")]
        if line.startswith("#") or not line.strip():
            continue
        if head is None:
            head = f"{fields[0]} | {fields[1]} | {address} | {part_length}"
            lines.append(head)
        else:
            lines.append(f"{line} | constant {(values or {}).get(fields[0], 7)}")
    return "\n".join(lines) + "\n"


class Simulator:
    """A simulated instrument on a pseudo-terminal; its counts are there once it has ended."""

    def __init__(self, folder, text, *options):
        source = Path(folder) / "instrument.txt"
        source.write_text(text, encoding="utf-8")
        self.process = subprocess.Popen([SIMULATOR, "--description", source, *options], stdout=subprocess.PIPE,
                                        encoding="utf-8")
        self.device = self.process.stdout.readline().strip()
        self.counts = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.send_signal(signal.SIGTERM)
        output, _ = self.process.communicate(timeout=PATIENCE)
        self.counts = json.loads(output) if output else None

    def pull_the_cable(self):
        self.process.kill()

    def take_power(self):
        self.process.send_signal(signal.SIGUSR1)

    def give_power(self):
        self.process.send_signal(signal.SIGUSR2)


class Run:
    """What a call of the command line has given."""

    def __init__(self, status, output, problems):
        self.status = status
        self.output = output
        self.problems = problems

    @property
    def problem_lines(self):
        return self.problems.splitlines()

    @property
    def json(self):
        return json.loads(self.output)

    def row(self, number):
        return next(row for row in self.json["parameters"] if row["row"] == number)


class CommandLineTest(unittest.TestCase):
    """A program folder with the shipped catalogue, and ways to run the command line with it."""

    @classmethod
    def setUpClass(cls):
        cls.outer = tempfile.TemporaryDirectory()
        cls.folder = Path(cls.outer.name) / "程序 folder"
        subprocess.run([CLI, "catalogue", "create", cls.folder], check=True, stdout=subprocess.DEVNULL)

    @classmethod
    def tearDownClass(cls):
        cls.outer.cleanup()

    def words(self, verb, device, instrument, *options):
        protocol, name, _ = instrument
        return [CLI, verb, "--folder", self.folder, "--protocol", protocol, "--instrument", name,
                "--port", f"COM1={device}", *map(str, options)]

    def start(self, verb, device, instrument, *options, **streams):
        return self.start_words(self.words(verb, device, instrument, *options), **streams)

    def start_words(self, words, **streams):
        streams = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, "encoding": "utf-8"} | streams
        return subprocess.Popen([*map(str, words)], **streams)

    def finish(self, process):
        output, problems = process.communicate(timeout=PATIENCE)
        return Run(process.returncode, output, problems)

    def poll(self, device, *options, instrument=PLAIN):
        return self.finish(self.start("poll", device, instrument, "--interval", 0, *options))

    def write(self, device, row, value, *options, instrument=PLAIN):
        return self.finish(self.start("write", device, instrument, "--interval", 0, "--row", row, "--value", value,
                                      *options))

    def simulate(self, *options, instrument=PLAIN, **details):
        return Simulator(self.outer.name, description(instrument[2], **details), *options)
