#!/usr/bin/python3
"""A Modbus ASCII server on a pseudo-terminal, for the whole-program tests: modbus_ascii_server.py ADDRESS

Framing, requests and registers are pymodbus'. Holding register n starts with (n * 257 + 3) modulo 65536. Prints
the device; a line "N" on standard input is answered with the value of holding register N; ends with its input.
"""

import os
import pty
import select
import sys
import tty

from pymodbus.datastore import ModbusSequentialDataBlock, ModbusServerContext, ModbusSlaveContext
from pymodbus.factory import ServerDecoder
from pymodbus.framer.ascii_framer import ModbusAsciiFramer

HOLDING = 3  # function code under which a store is asked for its holding registers
REGISTERS = 65536


def main():
    address = int(sys.argv[1])
    registers = ModbusSequentialDataBlock(0, [(n * 257 + 3) % 65536 for n in range(REGISTERS)])
    store = ModbusSlaveContext(hr=registers, zero_mode=True)
    context = ModbusServerContext(slaves={address: store}, single=False)
    framer = ModbusAsciiFramer(ServerDecoder())
    line, device = pty.openpty()
    tty.setraw(device)
    print(os.ttyname(device), flush=True)

    def answer(request):
        response = request.execute(context[request.unit_id])
        response.unit_id = request.unit_id
        os.write(line, framer.buildPacket(response))

    while True:
        ready, _, _ = select.select([line, sys.stdin], [], [])
        if line in ready:
            try:
                framer.processIncomingPacket(os.read(line, 4096), answer, [address])
            except ValueError:  # two requests in one, the first without its line feed
                framer.resetFrame()
        if sys.stdin in ready:
            word = sys.stdin.readline()
            if not word:
                return
            print(store.getValues(HOLDING, int(word), 1)[0], flush=True)


if __name__ == "__main__":
    main()
