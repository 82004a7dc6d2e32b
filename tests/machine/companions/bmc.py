"""A BMC behind QEMU's ipmi-bmc-extern that misbehaves as it is told.

usage: bmc.py BMC_SOCKET CONTROL_SOCKET

Listens at both. What comes over the first are the messages of QEMU; over the second, lines that say what the BMC is to do with
Get Device ID from now on, each answered by "ok". It answers everything else as it should. Ends with its standard input.

  normal        manufacturer 2, product 43h, revision 1.17
  silent        no answer
  late N        the answer after N milliseconds
  short         cut off behind the manufacturer's first byte
  long          with 40 bytes more than there are
  busy N        C0h to the next N questions, then normal; of each kind of busy one after the other
  error N       completion code N
  otherNumber   an answer to a question of another number first, by another BMC
  otherCommand  an answer to another command
"""
import os
import selectors
import socket
import sys
import time

MESSAGE_END, COMMAND_END, ESCAPE = 0xA0, 0xA1, 0xAA
BUSY = [0xC0, 0xC3, 0xCE, 0xD0, 0xD1, 0xD2, 0xD5]
IDENTITY = bytes([0x20, 0x81, 0x01, 0x17, 0x02, 0xBF, 0x02, 0x00, 0x00, 0x43, 0x00, 0xDE, 0xAD, 0xBE, 0xEF])
OTHER = bytes([0x21, 0x01, 0x09, 0x99, 0x02, 0xBF, 0xFF, 0xFF, 0x0F, 0xFF, 0xFF])


def listening(path):
    server = socket.socket(socket.AF_UNIX)
    server.bind(path)
    server.listen(1)
    return server


class Bmc:
    def __init__(self, bmc_path, control_path):
        self.selector = selectors.DefaultSelector()
        self.server = listening(bmc_path)
        self.control_server = listening(control_path)
        self.line = self.control = None
        self.received, self.escaped, self.words = bytearray(), False, b""
        self.mode, self.number, self.busy = "normal", 0, 0
        self.later = []  # (when, bytes)
        self.selector.register(self.server, selectors.EVENT_READ, self.accept)
        self.selector.register(self.control_server, selectors.EVENT_READ, self.accept_control)
        self.selector.register(sys.stdin, selectors.EVENT_READ, lambda: None if os.read(0, 64) else sys.exit(0))

    def accept(self):
        connection, _ = self.server.accept()
        self.drop()
        self.line, self.received, self.escaped = connection, bytearray(), False
        self.selector.register(connection, selectors.EVENT_READ, self.read)

    def accept_control(self):
        self.control, _ = self.control_server.accept()
        self.selector.register(self.control, selectors.EVENT_READ, self.obey)

    def drop(self):
        if self.line:
            self.selector.unregister(self.line)
            self.line.close()
        self.line = None

    def read(self):
        data = self.line.recv(4096)
        if not data:
            self.drop()
            return
        for byte in data:
            if byte == ESCAPE:
                self.escaped = True
            elif byte in (MESSAGE_END, COMMAND_END):
                if byte == MESSAGE_END:
                    self.answer(bytes(self.received))
                self.received = bytearray()
            else:
                self.received.append(byte & ~0x10 if self.escaped else byte)
                self.escaped = False

    def send(self, sequence, function, command, data, delay=0.0):
        message = bytes([sequence, (function | 1) << 2, command]) + data
        message += bytes([-sum(message) & 0xFF])
        wire = bytearray()
        for byte in message:
            wire += bytes([ESCAPE, byte | 0x10]) if byte in (MESSAGE_END, COMMAND_END, ESCAPE) else bytes([byte])
        wire.append(MESSAGE_END)
        self.later.append((time.monotonic() + delay, bytes(wire)))

    def answer(self, message):
        if len(message) < 4 or sum(message) & 0xFF:
            return
        sequence, function, command = message[0], message[1] >> 2, message[2]
        if (function, command) == (6, 1):
            self.identify(sequence)
        elif (function, command) == (6, 0x37):  # its GUID
            self.send(sequence, function, command, bytes(17))
        elif (function, command) == (6, 0x31):  # message flags
            self.send(sequence, function, command, bytes(2))
        else:
            self.send(sequence, function, command, b"\xC1")

    def identify(self, sequence):
        whole, delay = b"\0" + IDENTITY, 0.0
        if self.mode == "silent":
            return
        if self.mode == "late":
            delay = self.number / 1000
        elif self.mode == "short":
            whole = whole[:8]
        elif self.mode == "long":
            whole += b"\x55" * 40
        elif self.mode == "error":
            whole = bytes([self.number])
        elif self.mode == "busy" and self.busy < self.number:
            whole = bytes([BUSY[self.busy % len(BUSY)]])
            self.busy += 1
        elif self.mode == "otherNumber":
            self.send((sequence + 7) & 0xFF, 6, 1, b"\0" + OTHER)
        elif self.mode == "otherCommand":
            self.send(sequence, 6, 2, b"\0" + OTHER)
            return
        self.send(sequence, 6, 1, whole, delay)

    def obey(self):
        data = self.control.recv(4096)
        if not data:
            self.selector.unregister(self.control)
            return
        self.words += data
        while b"\n" in self.words:
            line, self.words = self.words.split(b"\n", 1)
            words = line.decode("ascii", "replace").split() or ["normal"]
            self.mode, self.number, self.busy = words[0], int(words[1], 0) if len(words) > 1 else 0, 0
            self.control.sendall(b"ok\n")

    def run(self):
        while True:
            now = time.monotonic()
            due = [wire for when, wire in self.later if when <= now]
            self.later = [entry for entry in self.later if entry[0] > now]
            for wire in due:
                if self.line:
                    self.line.sendall(wire)
            wait = min((when for when, _ in self.later), default=now + 60) - now
            for key, _ in self.selector.select(wait):
                key.data()


Bmc(*sys.argv[1:3]).run()
