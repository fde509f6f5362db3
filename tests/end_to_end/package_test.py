"""The package of the programs under test: what is in it, what it runs like, what the checkers of packages say."""

import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from programs import CLI, PLAIN, Simulator

ROOT = Path(__file__).resolve().parents[2]
PROGRAMS = ("commtest", "commtest-cli", "instrument-simulator")


def output_of(*command, **options):
    run = subprocess.run([*map(str, command)], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8",
                         check=False, **options)
    return run.stdout


class PackageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.outer = tempfile.TemporaryDirectory()
        cls.package = Path(output_of(sys.executable, "-B", ROOT / "packaging/make-deb", "--build",
                                     Path(CLI).parents[1], "--output", cls.outer.name).strip())
        cls.tree = Path(cls.outer.name, "tree")
        subprocess.run(["dpkg-deb", "--raw-extract", cls.package, cls.tree], check=True)
        cls.share = cls.tree / "usr/share"

    @classmethod
    def tearDownClass(cls):
        cls.outer.cleanup()

    def run_cli(self, *words):
        """Of the package, as a user of whom there is nothing yet."""
        with tempfile.TemporaryDirectory() as home:
            user = {"HOME": home, "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8"}
            return output_of(self.tree / "usr/bin/commtest-cli", *words, env=user)

    def field(self, name):
        return output_of("dpkg-deb", "--field", self.package, name).strip()

    def test_its_version_is_that_of_its_programs(self):
        version = self.field("Version")
        self.assertRegex(version, r"^\d+\.\d+\.\d+$")
        for name in PROGRAMS:
            told = output_of(self.tree / "usr/bin" / name, "--version").splitlines()[0]
            self.assertEqual(told, f"{name} {version}")

    def test_it_depends_on_what_its_programs_load_and_recommends_fonts(self):
        for package in ("libqt6widgets6", "libqt6serialport6", "libqt6sql6-sqlite", "libqt6svg6"):
            self.assertRegex(self.field("Depends"), rf"\b{package}\b")
        self.assertRegex(self.field("Recommends"), r"\bfonts-dejavu-core, fonts-wqy-microhei\b")
        self.assertEqual(self.field("Suggests"), "gnumeric, odbc-postgresql, tdsodbc")

    def test_the_page_of_libraries_names_what_it_depends_on_and_recommends(self):
        page = (self.share / "doc/commtest/html/libraries.html").read_text(encoding="utf-8")
        for field in ("Depends", "Recommends", "Suggests"):
            for package in re.findall(r"[a-z][\w.+-]*(?=[ ,|(]|$)", re.sub(r"\(.*?\)", "", self.field(field))):
                self.assertIn(f"<code>{package}</code>", page)

    def test_a_new_user_polls_the_simulator_with_what_is_in_it(self):
        protocol, instrument, _ = PLAIN
        description = (self.share / "commtest/simulator/indicator.txt").read_text(encoding="utf-8")
        with tempfile.TemporaryDirectory() as folder, Simulator(folder, description) as simulator:
            output = self.run_cli("poll", "--protocol", protocol, "--instrument", instrument, "--exchanges", 2,
                                  "--port", f"COM1={simulator.device}")
        self.assertIn("总计通讯: 2 次         数据不完整 0 次;校验出错 0 次;无应答 0 次; 错误率 0.00 %", output)

    def test_a_new_program_folder_begins_with_the_shared_files(self):
        with tempfile.TemporaryDirectory() as folder:
            self.run_cli("catalogue", "create", folder)
            for name in ("使用说明.ini", "参数地址表.xls"):
                self.assertEqual(Path(folder, name).read_bytes(), (self.share / "commtest" / name).read_bytes())
            instruments = self.run_cli("list", "instruments", "--folder", folder)
            self.assertIn("HX-D10", instruments)
            self.assertEqual(self.run_cli("list", "instruments", "--folder", self.share / "commtest"), instruments)

    def test_entries_of_the_desktop_have_their_program_and_icon(self):
        entries = list((self.share / "applications").glob("*.desktop"))
        self.assertEqual({entry.stem for entry in entries}, {"commtest", "commtest-english"})
        for entry in entries:
            text = entry.read_text(encoding="utf-8")
            for call in re.findall(r"(?m)^Exec=commtest\b(.*)$", text):
                told = output_of(self.tree / "usr/bin/commtest", *call.split(), "--help")
                self.assertIn("commtest [", told.splitlines()[0], call)
            self.assertRegex(text, r"(?m)^Icon=commtest$")
        sizes = {icon.parts[-3] for icon in (self.share / "icons/hicolor").glob("*/apps/commtest.*")}
        self.assertEqual(sizes, {"16x16", "22x22", "24x24", "32x32", "48x48", "64x64", "128x128", "256x256", "scalable"})

    def test_each_program_has_its_manual_and_completions(self):
        for name in PROGRAMS:
            self.assertTrue((self.share / f"man/man1/{name}.1.gz").is_file())
            self.assertEqual(output_of("bash", "-n", self.share / "bash-completion/completions" / name), "")
        for name in ("_commtest", "_commtest-cli"):
            self.assertEqual(output_of("zsh", "-n", self.share / "zsh/vendor-completions" / name), "")

    def test_links_of_the_pages_lead_somewhere(self):
        pages = list((self.share / "doc/commtest/html").rglob("*.html"))
        self.assertGreater(len(pages), 5)
        for page in pages:
            for link in re.findall(r'(?:href|src)="([^":#]+)', page.read_text(encoding="utf-8")):
                target = self.tree / link[1:] if link.startswith("/") else page.parent / link
                self.assertTrue(target.is_file(), f"{page.name}: {link}")

    def test_the_first_installation_tells_the_group_of_serial_ports(self):
        script = self.tree / "DEBIAN/postinst"
        self.assertIn("usermod -aG dialout USER", output_of(script, "configure", ""))
        self.assertEqual(output_of(script, "configure", "0.9.0"), "")

    def test_checkers_of_packages_have_nothing_to_say(self):
        self.assertEqual(output_of("lintian", "--pedantic", "--allow-root", self.package), "")
        self.assertEqual(output_of("desktop-file-validate", *(self.share / "applications").glob("*.desktop")), "")
        metadata = self.share / "metainfo/org.example.commtest.metainfo.xml"
        self.assertRegex(output_of("appstreamcli", "validate", "--pedantic", "--no-net", "--no-color", metadata),
                         r"^\W*Validation was successful\.\s*$")


if __name__ == "__main__":
    unittest.main()
