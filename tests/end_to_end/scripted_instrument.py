"""An instrument that answers its requests in turn with what it was told to."""

import os
import pty
import select
import threading
import tty

GAP = 0.05  # seconds of silence that end a request


class ScriptedInstrument:
    """A far end on a pseudo-terminal. `replies` are bytes, an empty one is silence; behind the last it is silent."""

    def __init__(self, *replies):
        self.replies = list(replies)
        self.requests = []

    def __enter__(self):
        self.line, self.slave = pty.openpty()
        tty.setraw(self.slave)
        self.device = os.ttyname(self.slave)
        self.end_read, self.end_write = os.pipe()
        self.thread = threading.Thread(target=self.serve)
        self.thread.start()
        return self

    def __exit__(self, *_):
        os.write(self.end_write, b".")
        self.thread.join()
        for end in (self.line, self.slave, self.end_read, self.end_write):
            os.close(end)

    def serve(self):
        while True:
            request = self.next_request()
            if not request:
                return
            self.requests.append(request)
            reply = self.replies.pop(0) if self.replies else b""
            if reply:
                os.write(self.line, reply)

    def next_request(self):
        """The bytes up to a gap; none where the end was asked for."""
        request = b""
        while True:
            ready, _, _ = select.select([self.line, self.end_read], [], [], GAP if request else None)
            if self.end_read in ready:
                return b""
            if not ready:
                return request
            request += os.read(self.line, 4096)


def ascii_frame(digits):
    """":010602..." with its check word: the two's complement of the sum of its bytes."""
    check = -sum(bytes.fromhex(digits)) & 0xFF
    return f":{digits}{check:02X}\r\n".encode()


def rtu_frame(digits):
    """Bytes with their CRC-16, worked bit by bit."""
    content = bytes.fromhex(digits)
    crc = 0xFFFF
    for byte in content:
        crc ^= byte
        for _ in range(8):
            crc = (crc >> 1) ^ 0xA001 if crc & 1 else crc >> 1
    return content + bytes([crc & 0xFF, crc >> 8])
