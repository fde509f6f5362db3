"""Peers of another hand: servers that know nothing of this program and its dialects."""

import os
import subprocess
import unittest
from pathlib import Path

from null_modem import NullModem
from programs import ASCII, PATIENCE, RTU, CommandLineTest

RTU_SERVER = os.environ["MODBUS_RTU_SERVER"]
ASCII_SERVER = Path(__file__).parent / "peers/modbus_ascii_server.py"

THREE_PHASES = ("ModBus-RTU协议", "HX-E30三相电量表", None)
FLOW_METER = ("ModBus-RTU协议", "HX-L31电磁流量计", None)
FLOW_DISPLAY = ("ModBus-RTU协议-标准流量表", "HX-F35标准流量表", None)

FIRST_ROW = 6
DECIMALS, LOWER_LIMIT, FILTER = 11, 13, 16  # rows of the indicator
FLOW_FACTOR = 13                            # row of the flow display, at address 0040


def holding(register):
    """What a server holds at first."""
    return (register * 257 + 3) % 65536


def input_register(register):
    return (register * 3 + 1) % 65536


class Server:
    """A server that tells what a register of it holds."""

    def start(self, *command):
        self.process = subprocess.Popen([str(word) for word in command], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, encoding="utf-8")
        self.greeting = self.process.stdout.readline().strip()

    def holds(self, register):
        self.process.stdin.write(f"{register}\n")
        self.process.stdin.flush()
        return int(self.process.stdout.readline())

    def stop(self):
        self.process.communicate(timeout=PATIENCE)


class RtuServer(Server):
    def __enter__(self):
        self.cable = NullModem()
        self.cable.__enter__()
        far, self.device = self.cable.devices
        self.start(RTU_SERVER, far, 1)
        return self

    def __exit__(self, *_):
        self.stop()
        self.cable.__exit__()


class AsciiServer(Server):
    def __enter__(self):
        self.start("/usr/bin/python3", ASCII_SERVER, 1)
        self.device = self.greeting
        return self

    def __exit__(self, *_):
        self.stop()


class PeerTest(CommandLineTest):
    def read(self, server, instrument, command, exchanges, *options):
        run = self.poll(server.device, "--command", command, "--exchanges", exchanges, "--format", "json", *options,
                        instrument=instrument)
        self.assertEqual((run.status, run.problems), (0, ""))
        failures = {name: run.json["statistics"][name] for name in ("incomplete", "checkErrors", "noReply")}
        self.assertEqual(failures, {"incomplete": 0, "checkErrors": 0, "noReply": 0})
        return [row for row in run.json["parameters"] if row["row"] >= FIRST_ROW and row["name"]]


class RtuPeerTest(PeerTest):
    def test_every_row_read_alone_equals_its_register(self):
        with RtuServer() as server:
            rows = self.read(server, RTU, 50, 30)
        self.assertGreater(len(rows), 20)
        for row in rows:
            held = holding(int(row["address"], 16))
            self.assertEqual((row["singleRead"], row["value"]), (f"{held:04X}", str(held)), row["name"])

    def test_rows_read_together_equal_their_registers(self):
        with RtuServer() as server:
            rows = self.read(server, RTU, 60, 30, "--count", 5)
        for row in rows:
            self.assertEqual(row["groupRead"], f"{holding(int(row['address'], 16)):04X}", row["name"])

    def test_last_register_of_a_group_fills_no_row(self):
        with RtuServer() as server:
            rows = self.read(server, RTU, 60, 1, "--count", 5)
        self.assertEqual([row["row"] for row in rows if row["groupRead"]], [6, 7, 8, 9])

    def test_written_value_is_in_the_register(self):
        with RtuServer() as server:
            run = self.write(server.device, FILTER, 7, instrument=RTU)
            held = server.holds(0x0025)
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertTrue(run.output.endswith("第 16 行 滤波系数: 已写入 7，读回 7，一致\n"))
        self.assertEqual(held, 7)

    def test_written_value_is_scaled_by_the_decimals_of_the_peer(self):
        with RtuServer() as server:
            self.write(server.device, DECIMALS, 1, instrument=RTU)
            run = self.write(server.device, LOWER_LIMIT, "12.5", instrument=RTU)
            held = server.holds(0x0022)
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertTrue(run.output.endswith("已写入 12.5，读回 12.5，一致\n"))
        self.assertEqual(held, 125)

    def test_four_byte_value_of_a_phase_shows_the_constant(self):
        with RtuServer() as server:
            rows = self.read(server, THREE_PHASES, 50, 30)
        for row in rows:
            register = int(row["address"], 16)
            self.assertEqual(row["singleRead"], f"{holding(register):04X}{holding(register + 1):04X}")
            self.assertEqual(row["value"], "49.5")

    def test_reply_of_a_flow_meter_fills_every_row(self):
        with RtuServer() as server:
            rows = self.read(server, FLOW_METER, 50, 3)
        first = f"{input_register(0x10):04X}{input_register(0x11):04X}"
        self.assertEqual({row["singleRead"] for row in rows}, {first})

    def test_both_steps_of_a_write_reach_the_registers(self):
        with RtuServer() as server:
            run = self.write(server.device, FLOW_FACTOR, 100, "--write-type", 0, instrument=FLOW_DISPLAY)
            held = [server.holds(0x40), server.holds(0x41)]
        self.assertEqual(run.status, 0)
        self.assertIn("由于 流量系数 参数占用了4个字节的地址,所以修改完成后,请再操作一次,修改方可全部完成！", run.problems)
        self.assertTrue(run.output.endswith("已写入 100，读回 100，一致\n"))
        self.assertEqual(held, [0x42C8, 0x0000])

    def test_write_of_several_registers_is_proved_by_the_row_though_its_answer_counts_as_incomplete(self):
        with RtuServer() as server:
            run = self.write(server.device, FLOW_FACTOR, 100, "--write-type", 2, instrument=FLOW_DISPLAY)
            held = [server.holds(0x40), server.holds(0x41)]
        self.assertEqual((run.status, run.problems), (0, ""))
        self.assertIn("数据不完整", run.output)
        self.assertTrue(run.output.endswith("第 13 行 流量系数: 已写入 100，读回 100，一致\n"))
        self.assertEqual(held, [0x42C8, 0x0000])


class AsciiPeerTest(PeerTest):
    def test_readable_rows_equal_their_registers(self):
        with AsciiServer() as server:
            rows = self.read(server, ASCII, 50, 30)
        readings = [row for row in rows if row["attribute"] == "R"]
        self.assertEqual(len(readings), 5)
        for row in readings:
            held = holding(int(row["address"], 16))
            self.assertEqual((row["singleRead"], row["value"]), (f"{held:04X}", str(held)), row["name"])

    def test_writable_rows_show_the_low_byte(self):
        with AsciiServer() as server:
            rows = self.read(server, ASCII, 50, 30)
        row = next(row for row in rows if row["name"] == "滤波系数")
        self.assertEqual((row["singleRead"], row["value"]), ("2225", str(0x25)))

    def test_write_without_a_line_feed_is_not_heard_by_a_strict_peer(self):
        with AsciiServer() as server:
            run = self.write(server.device, DECIMALS, 2, instrument=ASCII)
            held = server.holds(0x0020)
        self.assertEqual(run.status, 1)
        self.assertIn("仪表无应答", run.output)
        self.assertEqual(held, holding(0x0020))


if __name__ == "__main__":
    unittest.main()
