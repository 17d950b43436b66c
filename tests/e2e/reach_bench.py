"""The player with assistive technology beside it: a session bus, the bus of that, and a screen reader."""

import os
import subprocess

from other_media import OtherMediaTest
from player import wait_briefly, wait_for
from screen_reader import LAUNCHER, Reader
from session_bus import SessionBus

# Parts that hold others, or are there for the eye alone as the icon of a message is, or say nothing at present, and need
# no name. None of them can be pressed.
STRUCTURE = {"filler", "panel", "separator", "viewport", "scroll pane", "scroll bar", "redundant object", "image", "frame",
             "label", "layered pane"}


def showing(parts):
    return [part for part in parts if "showing" in part["states"] and "visible" in part["states"]]


class ReachTest(OtherMediaTest):
    def setUp(self):
        super().setUp()
        self.bus = SessionBus(self.folder)
        self.environment = dict(self.display.environment, DBUS_SESSION_BUS_ADDRESS=self.bus.address,
                                XDG_RUNTIME_DIR=os.path.join(self.folder, "runtime"))
        os.makedirs(self.environment["XDG_RUNTIME_DIR"], mode=0o700, exist_ok=True)
        self.launcher = subprocess.Popen([LAUNCHER, "--launch-immediately"], env=self.environment,
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for(lambda: "org.a11y.Bus" in self.names_on_the_bus(), 10, "the bus of assistive technology")
        self.reader = Reader(self.environment)

    def names_on_the_bus(self):
        return self.display.run("gdbus", "call", "--address", self.bus.address, "--dest", "org.freedesktop.DBus",
                                "--object-path", "/org/freedesktop/DBus", "--method",
                                "org.freedesktop.DBus.ListNames").stdout

    def tearDown(self):
        try:
            super().tearDown()
        finally:
            self.reader.end()
            self.launcher.terminate()
            self.launcher.wait()
            self.bus.end()

    def start(self, *arguments, **options):
        return super().start(*arguments, DBUS_SESSION_BUS_ADDRESS=self.bus.address, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                             **options)

    def windows(self, player):
        return [showing(parts) for parts in self.reader.windows(player.process.pid)]

    def window_called(self, player, start):
        """The parts of the window whose name begins so, or None."""
        return next((parts for parts in self.windows(player) if parts and parts[0]["name"].startswith(start)), None)

    def wait_for_window_called(self, player, start):
        return wait_for(lambda: self.window_called(player, start), 20, f"the window {start}")

    def find(self, player, window, role, name):
        """The part of this role, whose name is this one."""
        parts = self.window_called(player, window) or []
        return next((part for part in parts if part["role"] == role and part["name"] == name), None)

    def wait_for_part(self, player, window, role, name):
        return wait_for(lambda: self.find(player, window, role, name), 20, f"the {role} {name} in {window}")

    def press_part(self, player, window, role, name, action="Press"):
        part = self.wait_for_part(player, window, role, name)
        self.assertTrue(self.reader.act(part, action), f"{name}: {part['actions']}")

    def menu_up(self, player):
        """The parts of the menu that is up."""
        return next((parts for parts in self.windows(player) if parts and parts[0]["role"] == "popup menu"), None)

    def choose_in_menu(self, player, name):
        def entry():
            return next((part for part in self.menu_up(player) or [] if part["name"].startswith(name)), None)

        part = wait_for(entry, 20, f"the entry {name}")
        self.assertTrue(self.reader.act(part, "Press"), part)
        wait_for(lambda: not self.menu_up(player), 20, "the end of the menu")

    def close_menu(self):
        wait_for(lambda: not self.popup() or self.display.run("xdotool", "key", "Escape") and
                 wait_briefly(lambda: not self.popup()), 20, "the end of the menu")

    def assert_told_apart(self, parts):
        """No control is without a name, and no two are told the same way."""
        self.assertTrue(parts)
        self.assertTrue(parts[0]["name"] or parts[0]["role"] == "popup menu", f"a window without a name: {parts[0]}")
        seen = {}
        for part in parts[1:]:
            if part["role"] in STRUCTURE and not part["name"]:
                self.assertFalse(set(part["actions"]) - {"SetFocus"}, f"it can be pressed and has no name: {part}")
                continue
            self.assertTrue(part["name"], f"a control without a name in {parts[0]['name']}: {part}")
            told = (part["role"], part["name"], part["description"], part["parent"])
            self.assertNotIn(told, seen, f"two of them in {parts[0]['name']}")
            seen[told] = part
