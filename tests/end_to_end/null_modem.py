"""Two serial devices with a cable between them: what one program writes the other one reads."""

import os
import pty
import select
import threading
import tty


class NullModem:
    def __init__(self):
        self.ends = [pty.openpty(), pty.openpty()]
        for _, device in self.ends:
            tty.setraw(device)
        self.devices = [os.ttyname(device) for _, device in self.ends]
        self.stop_reading, self.stop = os.pipe()
        self.cable = threading.Thread(target=self._carry, daemon=True)

    def __enter__(self):
        self.cable.start()
        return self

    def __exit__(self, *_):
        os.close(self.stop)
        self.cable.join()
        for end in self.ends:
            for descriptor in end:
                os.close(descriptor)
        os.close(self.stop_reading)

    def _carry(self):
        first, second = self.ends[0][0], self.ends[1][0]
        other = {first: second, second: first}
        while True:
            ready, _, _ = select.select([first, second, self.stop_reading], [], [])
            if self.stop_reading in ready:
                return
            for source in ready:
                os.write(other[source], os.read(source, 4096))
