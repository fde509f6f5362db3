"""What a screen reader is told of the window: the accessibility bus of a desktop, and one who listens there."""

import json
import os
import subprocess
from pathlib import Path

from desktop import PATIENCE, wait_for

LISTENER = Path(__file__).resolve().parent / "peers/accessibility_listener.py"


class ScreenReader:
    """It comes to the desktop before the program starts."""

    def __init__(self, desktop):
        reading, writing = os.pipe()
        self.bus = subprocess.Popen(
            ["dbus-daemon", "--session", "--nofork", "--nosyslog", f"--print-address={writing}"],
            env=desktop.environment, pass_fds=[writing], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as address:
            desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = address.readline().strip()
        desktop.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        # The bindings belong to the interpreter of the system.
        self.listener = subprocess.Popen(["/usr/bin/python3", LISTENER], env=desktop.environment, encoding="utf-8",
                                         stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        # An answer tells that it listens: a program that starts beside it may never hear of it.
        self.focus()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.listener.stdin.close()
        self.listener.wait(PATIENCE)
        self.listener.stdout.close()
        self.bus.terminate()
        self.bus.wait(PATIENCE)

    def ask(self, **question):
        self.listener.stdin.write(json.dumps(question) + "\n")
        self.listener.stdin.flush()
        return json.loads(self.listener.stdout.readline())

    def description(self, name):
        """Of the object that has the name; empty if there is none that is shown."""
        return self.ask(description=name)

    def focus(self):
        """Name and description of what has the keyboard; empty while nothing has it."""
        return self.ask(focus=True)

    def words(self, name):
        """The names of what stands within an object."""
        return self.ask(words=name)

    def cell(self, table, row, column):
        """The name of a cell; rows count from 1, columns from 0."""
        return self.ask(cell=table, row=row, column=column)

    def wait_for_description(self, name, description):
        wait_for(lambda: self.description(name) == description, f"{name}: {description}")

    def wait_for_focus(self, name, description):
        wait_for(lambda: self.focus() == [name, description], f"{name}: {description}")

    def wait_for_button(self, caption):
        wait_for(lambda: self.focus()[:1] == [caption], f"the button {caption}")

    def wait_for_cell(self, table, row, column, name):
        wait_for(lambda: self.cell(table, row, column) == name, f"cell {row}, {column}: {name}")

    def wait_for_words(self, name, words):
        wait_for(lambda: words in self.words(name), f"{name}: {words}")
