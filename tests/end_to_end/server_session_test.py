"""A whole session on the catalogue of a server gives what it gives on that of a file, byte for byte."""

import sqlite3
import subprocess
import unittest

from programs import CLI, PLAIN, Simulator, description
from server_case import ServerTest

PROTOCOL, SHIPPED_NAME, LIST = PLAIN
NAME = "HX-𠮷10数字显示控制仪😀"
NOTE = "现场𠮷 甲"
EXCHANGES = 120
# What other tools have left: a name that no list can hold, nulls, empty texts.
CHANGES = (f"UPDATE 仪表_名称 SET 仪表名称 = '{NAME}' WHERE 仪表ID = 1",
           "UPDATE 仪表_参数 SET 上限值 = NULL, 下限值 = '' WHERE ID = 3",
           "UPDATE 仪表_参数 SET 下限值 = NULL, 上限值 = NULL WHERE ID = 4",
           "UPDATE 仪表_名称 SET 类别ID = NULL, 类别 = NULL WHERE 仪表ID = 1",
           "INSERT INTO 仪表_芯片 (芯片ID, 编号, 文件名) VALUES (99, '11000101', '固件𠮷.BIN')",
           "INSERT INTO 通讯_仿真 (仪表名称, 协议, 说明, 编码, 采集日期, 地址, 指令, 回送) "
           f"VALUES ('{NAME}', '{PROTOCOL}', '空', NULL, '2024-05-06', '1', ' 40', '')")


def values_of_its_own(parameter_list):
    names = [line.split("|")[0].strip() for line in description(parameter_list).splitlines()[1:]]
    return {name: number for number, name in enumerate(names, start=1)}


class Session:
    """What each step of a session has given, of one catalogue."""

    def __init__(self, test, on_server):
        self.test = test
        self.on_server = on_server
        self.given = {}

    def run(self, step, *words):
        run = self.test.run_verb(*words, server=self.on_server)
        self.given[step] = (run.status, run.output, run.problems)
        return run

    def change(self, statements):
        if self.on_server:
            self.test.server.sql(";".join(statements))
        else:
            with sqlite3.connect(self.test.folder / "通讯数据.mdb") as file:
                for statement in statements:
                    file.execute(statement)

    def import_list(self):
        listed = self.test.folder.parent / "list.ini"
        run = self.run("the list of the instrument", "catalogue", "export", "--instrument", SHIPPED_NAME, "--output",
                       listed, "--format", "json")
        self.test.assertEqual(run.status, 0, run.problems)
        imported = self.test.run_verb("catalogue", "import", listed, "--yes", server=self.on_server)
        self.given["import"] = (imported.status, imported.output.splitlines()[1])
        listed.unlink()

    def talk(self, verb, device, *options):
        on_server = ["--server"] if self.on_server else []
        run = self.test.finish(self.test.start(verb, device, (PROTOCOL, NAME, LIST), "--interval", 0, "--exchanges",
                                               EXCHANGES, "--format", "json", *options, *on_server))
        self.test.assertEqual(run.status, 0, run.problems)
        self.given[verb] = (run.json["parameters"], run.json["statistics"]["noReply"])
        return run

    def go(self):
        self.import_list()
        self.change(CHANGES)
        self.run("instruments", "list", "instruments", "--format", "json")
        self.run("parameters", "list", "parameters", "--instrument", NAME, "--format", "json")
        text = description(LIST, values=values_of_its_own(LIST))
        with Simulator(self.test.outer.name, text) as simulator:
            self.talk("poll", simulator.device)
        with Simulator(self.test.outer.name, text) as simulator:
            captured = self.talk("capture", simulator.device, "--note", NOTE)
        self.given["captured"] = captured.problems
        with Simulator(self.test.outer.name, text) as simulator:
            self.given["captured again"] = self.talk("capture", simulator.device, "--note", NOTE).problems
        replayed = self.run("replay", "replay", "--instrument", NAME, "--note", NOTE.upper(), "--speed", "max",
                            "--exchanges", EXCHANGES, "--format", "json")
        self.test.assertEqual(replayed.json["parameters"], captured.json["parameters"])
        self.run("recordings", "recordings", "list", "--format", "json")
        recording = self.test.folder.parent / "recording.jsonl"
        self.run("recording", "recordings", "export", recording, "--instrument", NAME, "--note", NOTE)
        self.given["recording's file"] = recording.read_bytes()
        self.run("rename", "recordings", "rename", "--instrument", NAME, "--to", "另一台😀", "--yes")
        self.run("recording back", "recordings", "import", recording, "--yes")
        self.run("recordings behind", "recordings", "list", "--format", "json")
        recording.unlink()
        listed = self.test.folder.parent / "out.ini"
        self.run("export", "catalogue", "export", "--output", listed)
        self.given["exported list"] = listed.read_bytes()
        listed.unlink()
        return self.given


class ServerSessionTest(ServerTest):
    def test_a_session_on_a_server_is_one_on_a_file(self):
        self.create()
        self.maxDiff = 4000
        here = Session(self, on_server=False).go()
        there = Session(self, on_server=True).go()
        for step, given in here.items():
            with self.subTest(step):
                self.assertEqual(there[step], given)
        self.assertEqual(here["captured again"].split("新采集 ")[1].split(" 条")[0], "0")
        self.assertIn(NAME, here["instruments"][1])


if __name__ == "__main__":
    unittest.main()
