#!/usr/bin/env python3
"""Drops files on a window as a file manager does: drop_source.py WINDOW X Y FILE...

Speaks the drag-and-drop protocol of X as its source, without a pointer that is held. Ends with 0 once the window has
taken the files, with 1 if it wants none.
"""

import ctypes
import pathlib
import sys

LONG, ULONG, INT, POINTER = ctypes.c_long, ctypes.c_ulong, ctypes.c_int, ctypes.c_void_p
SELECTION_REQUEST, SELECTION_NOTIFY, CLIENT_MESSAGE = 30, 31, 33
VERSION = 5
ATOM_BITS, BYTE_BITS = 32, 8


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", INT), ("serial", ULONG), ("sent", INT), ("display", POINTER), ("window", ULONG), ("message", ULONG),
                ("format", INT), ("data", LONG * 5)]


class SelectionRequest(ctypes.Structure):
    _fields_ = [("type", INT), ("serial", ULONG), ("sent", INT), ("display", POINTER), ("owner", ULONG), ("requestor", ULONG),
                ("selection", ULONG), ("target", ULONG), ("property", ULONG), ("time", ULONG)]


class SelectionNotify(ctypes.Structure):
    _fields_ = [("type", INT), ("serial", ULONG), ("sent", INT), ("display", POINTER), ("requestor", ULONG),
                ("selection", ULONG), ("target", ULONG), ("property", ULONG), ("time", ULONG)]


class Event(ctypes.Union):
    _fields_ = [("type", INT), ("client", ClientMessage), ("request", SelectionRequest), ("notify", SelectionNotify),
                ("room", LONG * 24)]


def library():
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = POINTER
    x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
    x11.XInternAtom.restype = ULONG
    x11.XInternAtom.argtypes = [POINTER, ctypes.c_char_p, INT]
    x11.XDefaultRootWindow.restype = ULONG
    x11.XDefaultRootWindow.argtypes = [POINTER]
    x11.XCreateSimpleWindow.restype = ULONG
    x11.XCreateSimpleWindow.argtypes = [POINTER, ULONG, INT, INT, INT, INT, INT, ULONG, ULONG]
    x11.XSetSelectionOwner.argtypes = [POINTER, ULONG, ULONG, ULONG]
    x11.XChangeProperty.argtypes = [POINTER, ULONG, ULONG, ULONG, INT, INT, ctypes.c_char_p, INT]
    x11.XSendEvent.argtypes = [POINTER, ULONG, INT, LONG, POINTER]
    x11.XNextEvent.argtypes = [POINTER, POINTER]
    x11.XFlush.argtypes = [POINTER]
    return x11


class Source:
    def __init__(self, target, files):
        self.x11 = library()
        self.display = self.x11.XOpenDisplay(None)
        root = self.x11.XDefaultRootWindow(self.display)
        self.window = self.x11.XCreateSimpleWindow(self.display, root, 0, 0, 1, 1, 0, 0, 0)
        self.target = target
        self.list = "".join(pathlib.Path(file).as_uri() + "\r\n" for file in files).encode("ascii")
        self.x11.XSetSelectionOwner(self.display, self.atom("XdndSelection"), self.window, 0)

    def atom(self, name):
        return self.x11.XInternAtom(self.display, name.encode("ascii"), 0)

    def tell(self, message, *data):
        event = Event()
        event.client.type, event.client.window, event.client.format = CLIENT_MESSAGE, self.target, ATOM_BITS
        event.client.message = self.atom(message)
        for place, value in enumerate((self.window, *data)):
            event.client.data[place] = value
        self.x11.XSendEvent(self.display, self.target, 0, 0, ctypes.byref(event))
        self.x11.XFlush(self.display)

    def answer(self, message):
        """The data of the next message of this name; gives the files to whoever asks for them meanwhile."""
        event = Event()
        while True:
            self.x11.XNextEvent(self.display, ctypes.byref(event))
            if event.type == SELECTION_REQUEST:
                self.give(event.request)
            elif event.type == CLIENT_MESSAGE and event.client.message == self.atom(message):
                return list(event.client.data)

    def give(self, request):
        self.x11.XChangeProperty(self.display, request.requestor, request.property, request.target, BYTE_BITS, 0, self.list,
                                 len(self.list))
        event = Event()
        event.notify.type, event.notify.requestor, event.notify.selection = SELECTION_NOTIFY, request.requestor, request.selection
        event.notify.target, event.notify.property, event.notify.time = request.target, request.property, request.time
        self.x11.XSendEvent(self.display, request.requestor, 0, 0, ctypes.byref(event))
        self.x11.XFlush(self.display)

    def drop(self, x, y):
        copy = self.atom("XdndActionCopy")
        self.tell("XdndEnter", VERSION << 24, self.atom("text/uri-list"), 0, 0)
        self.tell("XdndPosition", 0, x << 16 | y, 0, copy)
        if not self.answer("XdndStatus")[1] & 1:
            self.tell("XdndLeave", 0, 0, 0, 0)
            return 1
        self.tell("XdndDrop", 0, 0, 0, 0)
        return 0 if self.answer("XdndFinished")[1] & 1 else 1


if __name__ == "__main__":
    sys.exit(Source(int(sys.argv[1], 0), sys.argv[4:]).drop(int(sys.argv[2]), int(sys.argv[3])))
