"""Looks at single pixels of an X display, fast enough to see when a picture comes up."""

import ctypes
import ctypes.util

ALL_PLANES = ctypes.c_ulong(-1).value
Z_PIXMAP = 2


class ScreenPixels:
    """A connection to the display `name`, such as ":1"."""

    def __init__(self, name):
        self.x11 = ctypes.CDLL(ctypes.util.find_library("X11"))
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint,
                                       ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]
        self.x11.XGetImage.restype = ctypes.c_void_p
        self.x11.XGetPixel.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_int]
        self.x11.XGetPixel.restype = ctypes.c_ulong
        self.x11.XDestroyImage.argtypes = [ctypes.c_void_p]
        self.x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
        self.display = self.x11.XOpenDisplay(name.encode())
        if not self.display:
            raise OSError(f"no display {name}")
        self.root = self.x11.XDefaultRootWindow(self.display)

    def at(self, x, y):
        """The colour as 0xRRGGBB."""
        image = self.x11.XGetImage(self.display, self.root, x, y, 1, 1, ALL_PLANES, Z_PIXMAP)
        colour = self.x11.XGetPixel(image, 0, 0) & 0xFFFFFF
        self.x11.XDestroyImage(image)
        return colour

    def of_row(self, y, width, columns):
        """The colours at these columns of one row, by one question."""
        image = self.x11.XGetImage(self.display, self.root, 0, y, width, 1, ALL_PLANES, Z_PIXMAP)
        colours = [self.x11.XGetPixel(image, x, 0) & 0xFFFFFF for x in columns]
        self.x11.XDestroyImage(image)
        return colours

    def close(self):
        self.x11.XCloseDisplay(self.display)
