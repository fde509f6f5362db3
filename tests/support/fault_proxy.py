#!/usr/bin/env python3
"""A way to a database server with the faults of a network, which a test turns on and off while it is used.

As a program it leads to the socket given and delays each round trip by so many seconds. It prints the port, and
for each line of its standard input, with which it ends, how many round trips there have been:
    fault_proxy.py SOCKET SECONDS
"""

import collections
import queue
import socket
import sys
import threading
import time

PIECE = 65536
GARBLED = bytes(range(255, -1, -1))  # each byte becomes another one


class Way:
    """One connection of a program, and that to the server which serves it."""

    def __init__(self, proxy, near, far):
        self.proxy = proxy
        self.near, self.far = near, far
        self.waiting = queue.Queue()
        self.server_spoke_last = True
        for work in (self.take_from_the_program, self.give_to_the_server, self.take_from_the_server):
            threading.Thread(target=work, daemon=True).start()

    def take_from_the_program(self):
        while piece := self.take(self.near):
            if self.server_spoke_last:
                self.server_spoke_last = False
                self.proxy.round_trips += 1
            self.waiting.put((time.monotonic() + self.proxy.delay, piece))
        self.waiting.put((0, None))

    def give_to_the_server(self):
        while True:
            due, piece = self.waiting.get()
            if piece is None:
                return self.close()
            time.sleep(max(0, due - time.monotonic()))
            self.proxy.speaks.wait()
            self.give(self.far, piece)

    def take_from_the_server(self):
        while piece := self.take(self.far):
            self.proxy.speaks.wait()
            self.server_spoke_last = True
            self.give(self.near, piece.translate(GARBLED) if self.proxy.garbles else piece)
        self.close()

    def take(self, end):
        try:
            return end.recv(PIECE)
        except OSError:
            return b""

    def give(self, end, piece):
        try:
            end.sendall(piece)
        except OSError:
            pass

    def close(self):
        for end in (self.near, self.far):
            try:
                end.shutdown(socket.SHUT_RDWR)
                end.close()
            except OSError:
                pass


class FaultProxy:
    """Leads from a port of the loopback to the socket of a server."""

    def __init__(self, target):
        self.target = target
        self.delay = 0.0  # seconds a round trip
        self.garbles = False
        self.round_trips = 0
        self.connections = 0
        self.speaks = threading.Event()
        self.speaks.set()
        self.ways = collections.deque()
        self.door = None
        self.port = 0
        self.begin()

    def begin(self):
        """Takes connections, at the same port as before."""
        self.door = socket.create_server(("127.0.0.1", self.port), reuse_port=True)
        self.port = self.door.getsockname()[1]
        threading.Thread(target=self.serve, args=(self.door,), daemon=True).start()

    def serve(self, door):
        while True:
            try:
                near, _ = door.accept()
            except OSError:
                return
            self.connections += 1
            near.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            far = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
            far.connect(self.target)
            self.ways.append(Way(self, near, far))

    def cut(self):
        """Every connection breaks; new ones are taken."""
        while self.ways:
            self.ways.popleft().close()

    def die(self):
        """Every connection breaks, and none is taken, until it begins again."""
        self.door.shutdown(socket.SHUT_RDWR)
        self.door.close()
        self.cut()

    def be_silent(self):
        self.speaks.clear()

    def speak(self):
        self.speaks.set()

    def end(self):
        self.speak()
        self.die()


def main():
    proxy = FaultProxy(sys.argv[1])
    proxy.delay = float(sys.argv[2])
    print(proxy.port, flush=True)
    for _ in sys.stdin:
        print(proxy.round_trips, flush=True)


if __name__ == "__main__":
    main()
