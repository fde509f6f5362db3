"""Ports by their device, and the list of them."""

import json
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


if __name__ == "__main__":
    unittest.main()
