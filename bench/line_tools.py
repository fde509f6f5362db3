"""What the line benchmarks share: running commands, the simulator, a program folder."""

import csv
import json
import os
import signal
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PROTOCOL = "TQ仪表协议"
DESCRIPTION = ROOT / "data/catalogue/instruments/11_digital_indicator.txt"


def pin_to_one_core():
    os.sched_setaffinity(0, {min(os.sched_getaffinity(0))})


def words(command):
    return [str(word) for word in command]


def run(command):
    """Wall seconds, processor seconds, peak kilobytes and output of a command."""
    start = time.monotonic()
    child = subprocess.Popen(words(command), stdout=subprocess.PIPE, encoding="utf-8")
    output = child.stdout.read()
    _, status, usage = os.wait4(child.pid, 0)
    wall = time.monotonic() - start
    if status != 0:
        sys.exit(f"{command[0]} failed with status {status}")
    return wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss, output


class Simulator:
    """The simulated instrument behind a pseudo-terminal; `stop` gives its counts."""

    def __init__(self, build, folder, *faults):
        self.link = folder / "line"
        command = [build / "bin/instrument-simulator", "--link", self.link, "--description", DESCRIPTION]
        self.process = subprocess.Popen(words([*command, *faults]), stdout=subprocess.PIPE, encoding="utf-8")
        self.process.stdout.readline()

    def stop(self):
        self.process.send_signal(signal.SIGTERM)
        return json.loads(self.process.communicate()[0])


class Bench:
    """A program folder with the shipped catalogue, and the command line over it."""

    def __init__(self, build, folder):
        self.cli = build / "bin/commtest-cli"
        self.folder = folder
        run([self.cli, "catalogue", "create", folder])
        listing = run([self.cli, "list", "instruments", "--folder", folder, "--protocol", PROTOCOL,
                       "--format", "csv"])[3]
        self.instrument = next(csv.DictReader(listing.splitlines()))["仪表名称"]

    def poll(self, device, exchanges, *options):
        return words([self.cli, "poll", "--folder", self.folder, "--protocol", PROTOCOL,
                      "--instrument", self.instrument, "--port", f"COM1={device}", "--interval", "0",
                      "--exchanges", exchanges, *options])
