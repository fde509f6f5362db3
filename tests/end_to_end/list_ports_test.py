"""Ports by their device, and the list of them."""

import json
import os
import subprocess
import unittest

from programs import CLI, PLAIN, CommandLineTest
from schemas import faults, schema


class ListPortsTest(CommandLineTest):
    def ports(self, *options):
        run = subprocess.run([CLI, "list", "ports", "--format", "json", *options], capture_output=True, encoding="utf-8",
                             check=True)
        self.assertEqual(faults(json.loads(run.stdout), schema("ports")), [])
        return {port["name"]: port for port in json.loads(run.stdout)}

    def test_port_is_named_by_its_device_alone(self):
        with self.simulate() as simulator:
            run = subprocess.run([CLI, "poll", "--folder", self.folder, "--protocol", PLAIN[0], "--instrument", PLAIN[1],
                                  "--port", simulator.device, "--exchanges", "2", "--strict", "--format", "json"],
                                 capture_output=True, encoding="utf-8", check=True)
        self.assertEqual(json.loads(run.stdout)["port"], "COM1")
        self.assertEqual(simulator.counts["requests"], 2)

    def test_list_tells_who_holds_a_port(self):
        with self.simulate() as simulator:
            process = self.start("poll", simulator.device, PLAIN)
            process.stdout.readline()
            port = self.ports("--port", f"COM7={simulator.device}")["COM7"]
            process.terminate()
            self.finish(process)
        self.assertEqual((port["device"], port["holder"]), (simulator.device, f"commtest-cli (进程 {process.pid})"))

    def test_port_that_is_not_there_is_held_by_nobody(self):
        port = self.ports("--port", "COM7=/dev/no-port-to-list")["COM7"]
        self.assertEqual(port, {"name": "COM7", "device": "/dev/no-port-to-list", "description": "", "holder": ""})

    def test_program_that_reads_the_port_without_a_lock_is_told_at_the_opening(self):
        with self.simulate() as simulator:
            end = os.open(simulator.device, os.O_RDONLY | os.O_NOCTTY)
            reader = subprocess.Popen(["sleep", "60"], stdin=end)
            os.close(end)
            watched = self.poll(simulator.device, "--exchanges", 2, "--strict", "--format", "json")
            reader.kill()
            reader.wait()
            alone = self.poll(simulator.device, "--exchanges", 2, "--strict", "--format", "json")
        self.assertEqual((watched.status, alone.status, alone.problems), (0, 0, ""))
        self.assertEqual(watched.problem_lines,
                         [f"程序 sleep (进程 {reader.pid}) 没有锁住串口，也在读它，会取走应答，请先结束它"])


if __name__ == "__main__":
    unittest.main()
