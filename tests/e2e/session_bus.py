"""A session bus of a test's own, and on it the desktop's screen saver, played by the test."""

import os
import socket
import struct
import subprocess
import threading

from player import wait_for

NAME = "org.freedesktop.ScreenSaver"
PATH = "/org/freedesktop/ScreenSaver"
# It starts no services, whatever is installed.
CONFIGURATION = """<busconfig>
  <type>session</type>
  <listen>unix:path={0}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
CALL, ANSWER, ERROR = 1, 2, 3
PATH_FIELD, INTERFACE, MEMBER, REPLY_TO, DESTINATION, SENDER, SIGNATURE = 1, 2, 3, 5, 6, 7, 8
KINDS = {PATH_FIELD: "o", INTERFACE: "s", MEMBER: "s", REPLY_TO: "u", DESTINATION: "s", SENDER: "s", SIGNATURE: "g"}
FIRST_COOKIE = 41


def packed(kind, value, place):
    """The bytes of one value that stands `place` bytes behind the beginning of its message."""
    if kind == "g":
        return bytes([len(value)]) + value.encode() + b"\0"
    gap = b"\0" * (-place % 4)
    if kind == "u":
        return gap + struct.pack("<I", value)
    return gap + struct.pack("<I", len(value.encode())) + value.encode() + b"\0"


def unpacked(kind, data, place):
    """The value, and the place behind it."""
    if kind == "g":
        return data[place + 1:place + 1 + data[place]].decode(), place + 2 + data[place]
    place += -place % 4
    number, = struct.unpack_from("<I", data, place)
    if kind == "u":
        return number, place + 4
    return data[place + 4:place + 4 + number].decode(), place + 5 + number


class SessionBus:
    """Runs until `end`."""

    def __init__(self, folder):
        self.path = os.path.join(folder, "bus")
        configuration = os.path.join(folder, "bus.conf")
        with open(configuration, "w", encoding="ascii") as file:
            file.write(CONFIGURATION.format(self.path))
        self.address = "unix:path=" + self.path
        self.daemon = subprocess.Popen(["dbus-daemon", "--config-file=" + configuration, "--nofork", "--nopidfile"],
                                       stderr=subprocess.DEVNULL)
        wait_for(self.is_up, 10, "the bus")

    def is_up(self):
        with socket.socket(socket.AF_UNIX) as caller:
            return caller.connect_ex(self.path) == 0

    def end(self):
        self.daemon.terminate()
        self.daemon.wait()


class ScreenSaverService(SessionBus):
    """Answers on a thread of its own. `asked` are the calls and their arguments, `held` the cookies not given back."""

    def __init__(self, folder):
        super().__init__(folder)
        self.asked = []
        self.held = []
        self.cookie = FIRST_COOKIE
        self.serial = 0
        self.named = threading.Event()
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(self.path)
        self.socket.sendall(b"\0AUTH EXTERNAL " + str(os.getuid()).encode().hex().encode() + b"\r\n")
        if not self.socket.recv(1000).startswith(b"OK "):
            raise AssertionError("the bus lets nobody in")
        self.socket.sendall(b"BEGIN\r\n")
        self.thread = threading.Thread(target=self.serve)
        self.thread.start()
        self.call_bus("Hello", "", b"")
        self.call_bus("RequestName", "su", packed("s", NAME, 0) + packed("u", 0, len(NAME) + 5))
        if not self.named.wait(10):
            raise AssertionError("the bus gives the name to nobody")

    def end(self):
        self.socket.shutdown(socket.SHUT_RDWR)
        self.thread.join()
        self.socket.close()
        super().end()

    def send(self, kind, fields, body):
        self.serial += 1
        head = b""
        for field, value in fields.items():
            # The array of fields begins 16 bytes behind the beginning, each of them at a multiple of 8.
            head += b"\0" * (-len(head) % 8)
            head += bytes([field, 1]) + KINDS[field].encode() + b"\0"
            head += packed(KINDS[field], value, len(head))
        message = struct.pack("<cBBBIII", b"l", kind, 0, 1, len(body), self.serial, len(head)) + head
        self.socket.sendall(message + b"\0" * (-len(message) % 8) + body)

    def call_bus(self, member, signature, body):
        bus = "org.freedesktop.DBus"
        fields = {PATH_FIELD: "/org/freedesktop/DBus", INTERFACE: bus, MEMBER: member, DESTINATION: bus}
        self.send(CALL, fields | ({SIGNATURE: signature} if signature else {}), body)

    def exactly(self, count):
        data = b""
        while len(data) < count:
            more = self.socket.recv(count - len(data))
            if not more:
                raise EOFError
            data += more
        return data

    def receive(self):
        start = self.exactly(16)
        kind = start[1]
        length, serial, fields_length = struct.unpack_from("<III", start, 4)
        head = self.exactly(fields_length + -fields_length % 8)
        fields, place = {}, 0
        while place < fields_length:
            place += -place % 8
            field, value_kind = head[place], chr(head[place + 2])
            fields[field], place = unpacked(value_kind, head, place + 4)
        return kind, serial, fields, self.exactly(length)

    def serve(self):
        try:
            while True:
                kind, serial, fields, body = self.receive()
                if kind == CALL:
                    self.answer(serial, fields, body)
                elif kind == ANSWER and fields.get(SIGNATURE) == "u" and struct.unpack("<I", body)[0] == 1:
                    self.named.set()
        except (EOFError, OSError):
            pass

    def answer(self, serial, fields, body):
        place, values = 0, []
        for kind in fields.get(SIGNATURE, ""):
            value, place = unpacked(kind, body, place)
            values.append(value)
        back = {REPLY_TO: serial, DESTINATION: fields[SENDER]}
        if fields[PATH_FIELD] != PATH or fields.get(INTERFACE) != NAME:
            return self.send(ANSWER, back, b"")
        member = fields[MEMBER]
        if member == "Inhibit":
            self.held.append(self.cookie)
            self.send(ANSWER, back | {SIGNATURE: "u"}, packed("u", self.cookie, 0))
            self.cookie += 1
        else:
            if member == "UnInhibit" and values[0] in self.held:
                self.held.remove(values[0])
            self.send(ANSWER, back, b"")
        self.asked.append((member, *values))
        return None
