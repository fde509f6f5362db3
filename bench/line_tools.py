"""What the line benchmarks share: running commands, the simulator, a program folder."""

import atexit
import contextlib
import csv
import fcntl
import json
import os
import signal
import sqlite3
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PROTOCOL = "TQ仪表协议"
DESCRIPTION = ROOT / "data/catalogue/instruments/11_digital_indicator.txt"
KERNEL_WORKERS = Path("/sys/devices/virtual/workqueue/cpumask")


def pin_to_one_core():
    core = min(os.sched_getaffinity(0))
    os.sched_setaffinity(0, {core})
    return core


def mask_of(core):
    """As the kernel writes it: hexadecimal, a comma in front of each further 32."""
    return ",".join([f"{1 << core % 32:x}"] + ["00000000"] * (core // 32))


@contextlib.contextmanager
def all_on_one_core():
    """Pins this process and what it starts to one core, and the kernel's worker behind pseudo-terminals, too, whose
    place else moves a figure threefold. It is put back however the run ends; a second run waits for the first one.
    Gives whether the rights allow it."""
    core = pin_to_one_core()
    if not os.access(KERNEL_WORKERS, os.W_OK):
        yield False
        return
    for number in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, lambda number, _: sys.exit(128 + number))
    with KERNEL_WORKERS.open(encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        former = lock.read()
        try:
            KERNEL_WORKERS.write_text(mask_of(core), encoding="ascii")
            yield True
        finally:
            KERNEL_WORKERS.write_text(former, encoding="ascii")


def tell(name, value, unit):
    """A figure, as bench/report reads it."""
    print(f"{name:45} {value:10.2f} {unit}", flush=True)


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

    def __init__(self, build, folder, *faults, description=DESCRIPTION):
        self.link = folder / "line"
        command = [build / "bin/instrument-simulator", "--link", self.link, "--description", description]
        self.process = subprocess.Popen(words([*command, *faults]), stdout=subprocess.PIPE, encoding="utf-8")
        atexit.register(self.process.kill)
        self.process.stdout.readline()

    def stop(self):
        self.process.send_signal(signal.SIGTERM)
        return json.loads(self.process.communicate()[0])


class Bench:
    """A program folder with the shipped catalogue, and the command line over it."""

    protocol = PROTOCOL

    def __init__(self, build, folder):
        self.cli = build / "bin/commtest-cli"
        self.folder = folder
        run([self.cli, "catalogue", "create", folder])
        listing = run([self.cli, "list", "instruments", "--folder", folder, "--protocol", PROTOCOL,
                       "--format", "csv"])[3]
        self.instrument = next(csv.DictReader(listing.splitlines()))["name"]

    def poll(self, device, exchanges, *options):
        return words([self.cli, "poll", "--folder", self.folder, "--protocol", self.protocol,
                      "--instrument", self.instrument, "--port", f"COM1={device}", "--interval", "0",
                      "--exchanges", exchanges, *options])


class ModbusBench(Bench):
    """The same with an instrument of two thousand registers in a row, from 0100 on; `description` plays it."""

    protocol = "ModBus-RTU协议"
    rows = [("0000", "R")] * 5 + [(f"{0x0100 + n:04X}", "RW") for n in range(2000)]

    def __init__(self, build, folder):
        super().__init__(build, folder)
        self.instrument = "长表"
        self.description = folder / "long.txt"
        with sqlite3.connect(folder / "通讯数据.mdb") as catalogue:
            catalogue.execute("INSERT INTO 仪表_名称 (仪表ID, 仪表名称, 编号, 协议, 类别ID) VALUES (999, ?, '31019999', ?, 1)",
                              (self.instrument, self.protocol))
            catalogue.executemany(
                "INSERT INTO 仪表_参数 (仪表ID, 参数名称, 地址, 长度, 属性, 小数点) VALUES (999, '寄存器', ?, '2', ?, '0')",
                self.rows)
        lines = [f"寄存器 | {address} | 2 | {attribute} | 0 | | | constant 7" for address, attribute in self.rows]
        self.description.write_text("\n".join(["31019999 | 长表 | 1", *lines, ""]), encoding="utf-8")
