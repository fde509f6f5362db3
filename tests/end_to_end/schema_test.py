"""The JSON of each verb has a schema, its headings are the members, and text has captions in their place."""

import csv
import io
import json
import re
import subprocess
import unittest
from pathlib import Path

from programs import CLI, PATIENCE, PLAIN, CommandLineTest
from schemas import FOLDER, faults, schema

LIST = """Device  甲
Type    31010107
测量值  2010 0020 RW -1999 9999
B  2010 G R
名称☃  0030 0 RW
END
"""


class SchemaTest(CommandLineTest):
    def call(self, *words, status=0):
        done = subprocess.run([CLI, *map(str, words)], capture_output=True, encoding="utf-8", check=False,
                              timeout=PATIENCE)
        self.assertEqual(done.returncode, status, done.stderr)
        return done.stdout

    def assert_fits(self, text, name):
        value = json.loads(text)
        self.assertEqual(faults(value, schema(name)), [])
        return value

    def assert_table(self, words, name, least=1):
        """The same rows in the three forms, under the same words."""
        rows = self.assert_fits(self.call(*words, "--format", "json"), name)
        self.assertGreaterEqual(len(rows), least)
        headings, *lines = csv.reader(io.StringIO(self.call(*words, "--format", "csv")))
        self.assertEqual(sorted(headings), sorted(schema(name)["items"]["properties"]))
        self.assertEqual(len(lines), len(rows))
        captions = re.split(r" {2,}", self.call(*words, "--format", "text").splitlines()[0].strip())
        self.assertEqual(len(captions), len(headings))
        for caption in captions:
            self.assertRegex(caption, r"[\u4e00-\u9fff]")
        return rows

    def in_folder(self, *words):
        return (*words, "--folder", self.folder)

    def test_lists(self):
        for topic, least in (("protocols", 10), ("instruments", 10), ("chips", 10)):
            with self.subTest(topic):
                self.assert_table(self.in_folder("list", topic), topic, least)
        self.assert_table(self.in_folder("list", "parameters", "--instrument", PLAIN[1]), "parameters", 10)

    def test_search(self):
        with self.simulate() as simulator:
            words = self.in_folder("search", "--from", 1, "--to", 1, "--port", f"COM1={simulator.device}")
            rows = self.assert_table(words, "search")
        self.assertEqual((rows[0]["address"], rows[0]["baud"], rows[0]["checkWord"]), (1, 9600, "right"))

    def test_polled_values(self):
        with self.simulate() as simulator:
            words = self.words("poll", simulator.device, PLAIN, "--interval", 0, "--exchanges", 1, "--rows", 6)[1:]
            polled = self.assert_fits(self.call(*words, "--format", "json"), "poll")
            headings = self.call(*words, "--format", "csv").splitlines()[0].split(",")
            captions = self.call(*words, "--format", "text").splitlines()[-4].split()
            self.assert_fits(self.call(*words, "--format", "jsonl"), "exchange")
        self.assertEqual(sorted(headings), sorted(polled["parameters"][0]))
        self.assertEqual(captions, ["序号", "参数名称", "地址", "长度", "属性", "小数点", "RE", "读值", "RR/RD", "读值", "计算值",
                                    "小数点修正值"])

    def test_recordings(self):
        with self.simulate() as simulator:
            self.finish(self.start("capture", simulator.device, PLAIN, "--interval", 0, "--note", "A", "--exchanges", 2))
        self.assert_table(self.in_folder("recordings", "list"), "recordings-list")
        self.assert_table(self.in_folder("recordings", "show", "--instrument", PLAIN[1], "--note", "A"),
                          "recordings-show", 2)

    def test_lists_of_parameters(self):
        folder = self.folder.parent / "lists"
        subprocess.run([CLI, "catalogue", "create", folder], check=True, stdout=subprocess.DEVNULL)
        (folder / "TQ.ini").write_bytes(b"\xef\xbb\xbf" + LIST.encode())
        at = ("--folder", folder, "--format", "json")
        checked = self.assert_fits(self.call("catalogue", "check", *at, status=1), "catalogue-check")
        self.assertIn("decimalPointNoNumber", [finding["kind"] for finding in checked["findings"]])
        imported = self.assert_fits(self.call("catalogue", "import", "--yes", *at, status=1), "catalogue-import")
        self.assertEqual((imported["parameters"], imported["badParameters"]), (3, ["B"]))
        exported = self.assert_fits(self.call("catalogue", "export", *at, status=1), "catalogue-export")
        self.assertEqual([row["name"] for row in exported["lossyRows"]], ["名称☃"])
        self.assert_fits(self.call("catalogue", "restore", "--yes", *at), "catalogue-restore")

    def test_answers(self):
        for words, name in ((("convert", "--format", 6), "convert"), (("check", "--protocol", 3), "check")):
            with self.subTest(name):
                text = " 01 03" if name == "check" else "100"
                self.assert_fits(self.call(*words, "--format", "json", text), name)
                self.assertEqual(self.call(*words, "--format", "csv", text).splitlines()[0], "input,result")
        explained = self.assert_fits(self.call("convert", "--format", 6, "--format", "json", "--explain", "100"), "convert")
        self.assertEqual(sorted(explained[0]), ["explanation", "input", "notes", "result"])
        wrong = subprocess.run([CLI, "convert", "--format", "6", "--format", "json"], input="x\n", capture_output=True,
                               encoding="utf-8", check=False)
        self.assertEqual(sorted(self.assert_fits(wrong.stdout, "convert")[0]), ["error", "input"])

    def test_every_schema_holds_a_result(self):
        tests = "".join(file.read_text(encoding="utf-8") for file in Path(__file__).parent.glob("*_test.py"))
        self.assertEqual([file.stem for file in FOLDER.glob("*.json") if f'"{file.stem}"' not in tests], [])


if __name__ == "__main__":
    unittest.main()
