"""The shells complete the words of commtest-cli, as its help tells them."""

import re
import subprocess
import tempfile
import unittest
from pathlib import Path

from programs import CLI

BASH = """
source "$1"; shift
COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
_commtest_cli
printf '%s\\n' "${COMPREPLY[@]}"
"""

# In the place of zsh's own functions stand some that print what they are asked to offer.
ZSH = """
_arguments() { print -rl -- "$@" }
_describe() { print -rl -- "${(@P)4}" }
words=("${@:2}"); CURRENT=$#words
source "$1"
"""


def output_of(*command, folder=None):
    return subprocess.run([*map(str, command)], capture_output=True, encoding="utf-8", check=True, cwd=folder).stdout


def help_of(*words):
    """(what the help lists in front of the options, the options) of a call."""
    text = output_of(CLI, *words, "--help")
    return text, re.findall(r"^  (--[a-z-]+)", text, re.MULTILINE)


def calls():
    """Each verb, and each action with its verb in front."""
    return [words.split() for words in re.findall(r"^  ([a-z]+(?: (?:%s))?) " % "|".join(actions()),
                                                  output_of(CLI, "--help"), re.MULTILINE)]


def actions():
    return re.findall(r"^  catalogue ([a-z]+)", output_of(CLI, "catalogue", "--help"), re.MULTILINE)


class CompletionTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.outer = tempfile.TemporaryDirectory()
        cls.scripts = {}
        for shell in ("bash", "zsh"):
            cls.scripts[shell] = Path(cls.outer.name, shell)
            cls.scripts[shell].write_text(output_of(CLI, "completion", shell), encoding="utf-8")

    @classmethod
    def tearDownClass(cls):
        cls.outer.cleanup()

    def in_bash(self, *words, folder=None):
        return output_of("bash", "-c", BASH, "bash", self.scripts["bash"], "commtest-cli", *words,
                         folder=folder).split()

    def in_zsh(self, *words):
        return output_of("zsh", "-f", "-c", ZSH, "zsh", self.scripts["zsh"], "commtest-cli", *words).splitlines()

    def test_there_are_verbs_with_and_without_actions(self):
        self.assertIn(["poll"], calls())
        self.assertIn(["catalogue", "import"], calls())

    def test_each_option_of_the_help_is_offered(self):
        for words in calls():
            _, options = help_of(*words)
            self.assertEqual(sorted(set(options) - set(self.in_bash(*words, "--"))), [], f"bash: {words}")
            offered = {re.sub(r"^\*|\[.*", "", line) for line in self.in_zsh(*words, "--")}
            self.assertEqual(sorted(set(options) - offered), [], f"zsh: {words}")

    def test_the_first_word_is_a_verb(self):
        self.assertEqual(self.in_bash("re"), ["replay", "recordings"])
        self.assertIn("replay:不用串口，重放存在目录中的演示数据，结果和 poll 一样", self.in_zsh("re"))

    def test_an_action_stands_behind_its_verb(self):
        self.assertEqual(self.in_bash("catalogue", "c"), ["create", "channels", "check", "copy"])
        self.assertTrue(any(line.startswith("channels:") for line in self.in_zsh("catalogue", "c")))

    def test_topics_of_a_verb_are_offered(self):
        self.assertEqual(self.in_bash("list", "p"), ["ports", "protocols", "parameters"])
        self.assertIn("1:动作:(ports protocols instruments parameters chips)", self.in_zsh("list", "p"))

    def test_one_of_a_few_words_stands_behind_its_option(self):
        self.assertEqual(self.in_bash("poll", "--format", ""), ["text", "csv", "json", "jsonl"])
        self.assertIn("--format[结果的格式]:text|csv|json:(text csv json)", self.in_zsh("search", ""))

    def test_what_the_user_has_to_think_of_is_not_guessed(self):
        self.assertEqual(self.in_bash("poll", "--address", ""), [])

    def test_a_face_in_front_of_the_verb_is_passed_over(self):
        self.assertEqual(self.in_bash("--face", ""), ["chinese", "english"])
        self.assertEqual(self.in_bash("--face", "english", "pol"), ["poll"])
        self.assertIn("--strict", self.in_bash("--face", "english", "poll", "--s"))
        self.assertTrue(any(line.startswith("--strict") for line in self.in_zsh("--face", "english", "poll", "--s")))

    def test_a_folder_is_one_and_a_file_anything(self):
        with tempfile.TemporaryDirectory() as folder:
            Path(folder, "part").mkdir()
            Path(folder, "part.txt").touch()
            self.assertEqual(self.in_bash("poll", "--folder", "pa", folder=folder), ["part"])
            self.assertEqual(sorted(self.in_bash("poll", "--record", "pa", folder=folder)), ["part", "part.txt"])
            self.assertEqual(sorted(self.in_bash("catalogue", "check", "pa", folder=folder)), ["part", "part.txt"])


if __name__ == "__main__":
    unittest.main()
