"""A desktop of its own: an X server in memory with a window manager, and hands for its keyboard and mouse."""

import os
import subprocess
import time

PATIENCE = 30  # seconds


def wait_for(condition, what):
    """The first true value of `condition`, within PATIENCE."""
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        value = condition()
        if value:
            return value
        time.sleep(0.05)
    raise TimeoutError(what)


class Desktop:
    def __init__(self, width=1366, height=768):
        self.size = (width, height)
        reading, writing = os.pipe()
        # Without -noreset the server starts anew whenever its last client goes: the first question of xprop would
        # take the window manager's connection with it if it came between.
        self.server = subprocess.Popen(
            ["Xvfb", "-noreset", "-displayfd", str(writing), "-screen", "0", f"{width}x{height}x24",
             "-nolisten", "tcp"], pass_fds=[writing], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as number:
            self.display = f":{number.readline().strip()}"
        self.environment = {**os.environ, "DISPLAY": self.display, "QT_QPA_PLATFORM": "xcb"}
        self.manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.environment,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            wait_for(lambda: "_NET_SUPPORTING_WM_CHECK(WINDOW)" in self._output("xprop", "-root"),
                     "the window manager")
        except BaseException:
            self._end()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._end()

    def _end(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait(PATIENCE)

    def _output(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True, check=False).stdout

    def start(self, command, **environment):
        return subprocess.Popen([str(word) for word in command], env={**self.environment, **environment})

    def window(self, process):
        """The window of a program, once it is there and has the focus."""
        find = ["xdotool", "search", "--onlyvisible", "--pid", str(process.pid)]
        window = wait_for(lambda: self._output(*find).split()[:1], "the window")[0]
        subprocess.run(["xdotool", "windowfocus", "--sync", window], env=self.environment, check=True)
        return window

    def title(self, window):
        return self._output("xdotool", "getwindowname", window).strip()

    def active(self):
        """The window that has the focus of the window manager; empty if there is none."""
        return self._output("xdotool", "getactivewindow").strip()

    def fill(self, window):
        """Lets the window fill the screen, without a frame."""
        self.do("windowmove", "--sync", window, 0, 0)
        self.do("windowsize", window, *self.size)
        self.do("windowmove", window, 0, 0)

    def do(self, *words):
        subprocess.run(["xdotool", *[str(word) for word in words]], env=self.environment, check=True)

    def press(self, *keys):
        self.do("key", "--delay", 40, *keys)

    def type(self, text):
        self.do("type", "--delay", 40, text)

    def click(self, x, y, button=1):
        self.do("mousemove", x, y, "click", button)

    def picture(self, path, window="root"):
        subprocess.run(["import", "-window", window, str(path)], env=self.environment, check=True)
