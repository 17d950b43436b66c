"""Hears when windows come up on an X display."""

import ctypes
import ctypes.util
import time

SUBSTRUCTURE_NOTIFY = 1 << 19
MAP_NOTIFY = 19


class MapEvent(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("event", ctypes.c_ulong), ("window", ctypes.c_ulong),
                ("override_redirect", ctypes.c_int)]


class AnyEvent(ctypes.Union):
    _fields_ = [("map", MapEvent), ("room", ctypes.c_long * 24)]


class WindowWatch:
    """From now on, on the display `name`, such as ":1"."""

    def __init__(self, name):
        self.x11 = ctypes.CDLL(ctypes.util.find_library("X11"))
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(name.encode()))
        if not self.display:
            raise OSError(f"no display {name}")
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        # A window may go between its event and the question about its place.
        self.handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda *_: 0)
        self.x11.XSetErrorHandler(self.handler)
        self.x11.XSelectInput(self.display, self.root, ctypes.c_long(SUBSTRUCTURE_NOTIFY))
        self.x11.XSync(self.display, 0)

    def place(self, window):
        """Left, top, width and height; empty for a window that has gone."""
        root, left, top = ctypes.c_ulong(), ctypes.c_int(), ctypes.c_int()
        width, height, border, depth = (ctypes.c_uint() for _ in range(4))
        there = self.x11.XGetGeometry(self.display, ctypes.c_ulong(window), *map(ctypes.byref, (root, left, top, width, height,
                                                                                               border, depth)))
        return (left.value, top.value, width.value, height.value) if there else ()

    def wait(self, wanted, limit):
        """When the first window came up whose place is `wanted`, by the monotonic clock, and that place."""
        end = time.monotonic() + limit
        event = AnyEvent()
        while time.monotonic() < end:
            if not self.x11.XPending(self.display):
                time.sleep(0.001)
                continue
            self.x11.XNextEvent(self.display, ctypes.byref(event))
            heard = time.monotonic()
            if event.map.type != MAP_NOTIFY:
                continue
            place = self.place(event.map.window)
            if place and wanted(place):
                return heard, place
        raise SystemExit("the window did not come up")

    def close(self):
        self.x11.XCloseDisplay(self.display)
