#!/usr/bin/env python3
"""A long time of random use, after which nothing has grown and the screen shows what the program says.

What is done is drawn from a seed, so that a run can be repeated: TANDREL_SOAK_SEED, and TANDREL_SOAK_SECONDS for how long.
Each stretch opens videos, does things to them, and closes all; what the process holds then is compared.
"""

import ctypes
import ctypes.util
import os
import random
import signal
import time
import unittest

from console_driver import FRAMES, RATE, TIP, ConsoleTest, films, grid
from player import GaveUp, wait_briefly, wait_for

SECONDS = float(os.environ.get("TANDREL_SOAK_SECONDS", "45"))
SEED = int(os.environ.get("TANDREL_SOAK_SEED", "1"))
STRETCH = 14
# What a stretch may leave behind, against the one after the warm-up: allocators and caches breathe.
MOST_MORE = {"memory_mb": 60, "threads": 2, "files": 4, "x_resources": 60, "x_pixmap_mb": 12}
# The longest that a command may hold the program, and some for a machine under load.
LONGEST = 8
# Frames by which a picture and a report may differ.
SLACK = 10
HARMLESS = ["imgPlay", "imgPause", "imgRwd", "imgFwd", "imgReplay", "imgBack", "imgPauseAll", "imgStep", "imgResync",
            "imgMute", "imgMax", "imgMin"]


class XResources:
    """How many things the X server keeps for a client, told by one of its windows (X-Resource extension)."""

    class Type(ctypes.Structure):
        _fields_ = [("type", ctypes.c_ulong), ("count", ctypes.c_uint)]

    def __init__(self, name):
        self.x11 = ctypes.CDLL(ctypes.util.find_library("X11"))
        self.res = ctypes.CDLL("libXRes.so.1")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(name.encode()))

    def of(self, window):
        count, types = ctypes.c_int(), ctypes.POINTER(self.Type)()
        self.res.XResQueryClientResources(self.display, ctypes.c_ulong(window), ctypes.byref(count), ctypes.byref(types))
        whole = sum(types[index].count for index in range(count.value))
        size = ctypes.c_ulong()
        self.res.XResQueryClientPixmapBytes(self.display, ctypes.c_ulong(window), ctypes.byref(size))
        return whole, size.value / 1e6


class Soak(ConsoleTest):
    def setUp(self):
        super().setUp()
        self.dice = random.Random(SEED)
        self.report = os.path.join(self.folder, "report")
        self.names = films(12, self.folder)
        with open(os.path.join(self.folder, "no film.avi"), "w", encoding="ascii") as file:
            file.write("This is no film.\n" * 100)
        self.bad = os.path.join(self.folder, "no film.avi")
        self.player = self.start(home=self.home(tips="0"), TANDREL_REPORT=self.report)
        self.player.wait_ready()
        self.resources = XResources(self.display.name)
        self.done = []

    def answers(self):
        """The rows of the report: the program has come round to write it."""
        if os.path.exists(self.report):
            os.remove(self.report)
        self.player.process.send_signal(signal.SIGUSR1)
        wait_for(lambda: os.path.exists(self.report) or not self.player.alive(), LONGEST, f"an answer behind {self.done[-5:]}")
        self.assertTrue(self.player.alive(), f"it ended with {self.player.process.returncode} behind {self.done[-5:]}")
        with open(self.report, encoding="utf-8", errors="surrogateescape") as lines:
            return [line.rstrip("\n").split("\t") for line in lines if not line.startswith("#")]

    def videos(self):
        return [tuple(window) for title, *window in self.player.all_windows() if title.startswith("§")]

    def some_video(self):
        found = self.videos()
        return self.dice.choice(found) if found else None

    def key(self, *keys):
        self.display.run("xdotool", "key", *keys)

    def point_into(self, window):
        _, x, y, width, height = window
        at = (x + self.dice.randrange(20, max(21, width - 20)), y + self.dice.randrange(40, max(41, height - 20)))
        self.display.run("xdotool", "mousemove", str(at[0]), str(at[1]))
        return at

    def bring_back(self):
        """What a user does who finds the console away, or a message in front of it."""
        for _, *window in self.player.all_windows():
            if tuple(window[3:]) == TIP:
                self.display.run("wmctrl", "-ia", window[0])
                # It may have gone meanwhile, and the key would press a button of the console.
                if self.display.run("xdotool", "getactivewindow").stdout.strip() == str(int(window[0], 16)):
                    self.key("Return")
        if self.popup():
            self.key("Escape")
        console = self.console(self.player)
        # One that is minimised is known by its place all the same.
        if not console or "IsViewable" not in self.display.run("xwininfo", "-id", console[0]).stdout:
            self.display.run("wmctrl", "-a", "Tandrel Player PRO")

    # What can be done. Each is one line of what happens, and may come at any time.

    def press_a_button(self):
        name = self.dice.choice(HARMLESS)
        if self.console(self.player):
            self.click_button(self.player, name)
        return name

    def change_layout(self):
        mode = ["Down"] * self.dice.choice((1, 2))
        if self.console(self.player):
            self.click_button(self.player, "imgResize")
            # Without a menu to take them the keys would press buttons of the console.
            if wait_briefly(self.popup):
                self.key(*mode, "Return")
        return "layout"

    def select(self):
        window = self.some_video()
        if window:
            self.point_into(window)
            self.display.run("xdotool", "click", "--repeat", str(self.dice.choice((1, 1, 2))), "--delay", "100", "1")
        return "select"

    def turn_the_wheel(self):
        window = self.some_video()
        if window:
            self.point_into(window)
            self.display.run("xdotool", "click", self.dice.choice("45"))
        return "wheel"

    def drag(self):
        window = self.some_video()
        if window:
            x, y = self.point_into(window)
            self.display.run("xdotool", "mousedown", "1")
            for step in range(4):
                self.display.run("xdotool", "mousemove", str(x + 9 * step), str(y + 7 * step))
                time.sleep(0.03)
            self.display.run("xdotool", "mouseup", "1")
        return "drag"

    def size(self):
        window = self.some_video()
        if window:
            _, x, y, width, height = window
            self.display.run("xdotool", "mousemove", str(x + width - 3), str(y + height - 3), "mousedown", "1")
            time.sleep(0.12)
            self.display.run("xdotool", "mousemove", str(x + width - 30), str(y + height - 20))
            time.sleep(0.12)
            self.display.run("xdotool", "mouseup", "1")
        return "size"

    def seek(self):
        console = self.console(self.player)
        if console:
            x, y = console[1] + 24 + self.dice.randrange(10, 840), console[2] + 170
            self.display.run("xdotool", "mousemove", str(x), str(y), "mousedown", "1")
            for step in range(self.dice.choice((0, 12))):
                self.display.run("xdotool", "mousemove", str(x + 5 * step), str(y))
            self.display.run("xdotool", "mouseup", "1")
        return "seek"

    def fill_the_screen(self):
        window = self.some_video()
        if not window:
            return "no full screen"
        self.point_into(window)
        self.display.run("xdotool", "click", "1")
        time.sleep(0.3)
        self.display.run("xdotool", "click", "3")
        time.sleep(0.8)
        for _ in range(self.dice.randrange(4)):
            what = self.dice.choice(("key", "wheel", "strip"))
            if what == "key":
                self.key(self.dice.choice("lprf12"))
            elif what == "wheel":
                self.display.run("xdotool", "mousemove", "800", "300", "click", self.dice.choice("45"))
            else:
                self.display.run("xdotool", "mousemove", str(self.dice.randrange(20, 1900)), "1023", "click", "1")
            time.sleep(0.1)
        self.leave_full_screen()
        return "full screen"

    def leave_full_screen(self):
        def left():
            if all(window[3:] != (1920, 1080) for window in self.videos()):
                return True
            if self.player.windows().get("Panel"):
                self.display.run("xdotool", "mousemove", "835", "1053", "click", "1")
            else:
                self.display.run("xdotool", "mousemove", "600", "1079")
            time.sleep(0.9)
            return False

        wait_for(left, 20, "the way out of full screen")

    def close_one(self):
        window = self.some_video()
        if window:
            self.display.run("wmctrl", "-ic", window[0])
        return "close"

    def open_more(self):
        console = self.console(self.player)
        if console:
            chosen = self.dice.sample(self.names, self.dice.randrange(1, 5)) + ([self.bad] if self.dice.random() < 0.3 else [])
            self.drop(console, *chosen)
        return "open"

    def hide(self):
        if self.console(self.player):
            self.click_button(self.player, "imgHide")
            time.sleep(0.4)
        return "hide"

    def close_all(self):
        def closed():
            self.bring_back()
            for window in self.videos():
                self.display.run("wmctrl", "-ic", window[0])
            time.sleep(0.2)
            return not self.videos() and not self.answers()

        wait_for(closed, 60, "the end of all videos")

    def holds(self, most_threads):
        """What the process and the X server keep, once that no longer changes: windows are made ahead meanwhile. Threads of
        what was closed last may take their time to end."""
        seen = []

        def steady():
            with open(f"/proc/{self.player.process.pid}/status", encoding="ascii") as lines:
                status = dict(line.split(":", 1) for line in lines)
            things, pixmaps = self.resources.of(int(self.console(self.player)[0], 16))
            seen.append({"memory_mb": int(status["VmRSS"].split()[0]) / 1024, "threads": int(status["Threads"]),
                         "files": len(os.listdir(f"/proc/{self.player.process.pid}/fd")), "x_resources": things,
                         "x_pixmap_mb": pixmaps})
            time.sleep(0.25)
            last = [(one["threads"], one["files"], one["x_resources"]) for one in seen[-4:]]
            return len(last) == 4 and len(set(last)) == 1

        wait_for(steady, 30, "rest")
        try:
            wait_for(lambda: steady() and seen[-1]["threads"] <= most_threads, 30, "the end of threads")
        except GaveUp:
            pass  # The comparison says so.
        return seen[-1]

    def stretch(self):
        deeds = ([self.press_a_button] * 8 + [self.select] * 3 + [self.seek] * 3 + [self.turn_the_wheel, self.drag, self.size]
                 * 2 + [self.fill_the_screen, self.change_layout, self.close_one, self.open_more, self.hide])
        end = time.monotonic() + STRETCH
        self.bring_back()
        self.drop(wait_for(lambda: self.console(self.player), 20, "the console"),
                  *self.dice.sample(self.names, self.dice.randrange(1, 13)))
        while time.monotonic() < end:
            self.done.append(self.dice.choice(deeds)())
            self.bring_back()
            if len(self.done) % 8 == 0:
                self.answers()
        self.close_all()

    def test_nothing_grows_and_the_screen_agrees(self):
        begun = time.monotonic()
        held = []
        while len(held) < 3 or time.monotonic() - begun < SECONDS:
            self.stretch()
            most = max((one["threads"] for one in held[:2]), default=1000)
            held.append(self.holds(most + MOST_MORE["threads"]))
        first = {key: max(one[key] for one in held[:2]) for key in held[0]}
        memory = [round(one["memory_mb"]) for one in held[::max(1, len(held) // 12)]]
        print(f"{len(self.done)} deeds in {len(held)} stretches, seed {SEED}; first {first}, last {held[-1]}; MB {memory}")
        for key, most in MOST_MORE.items():
            self.assertLessEqual(held[-1][key], first[key] + most, f"{key} has grown: {[one[key] for one in held]}")
        self.check_agreement()

    def check_agreement(self):
        """Four more in PlayAll Mode: as many windows and devices, and each picture is the one of the place reported."""
        self.open_menu(self.player, "imgResize")
        self.key("Down", "Return")
        names = self.names[:4]
        self.drop(self.console(self.player), *names)
        self.assert_places(self.player, names, grid(4))
        self.wait_for_movement(self.player, names)

        def frames():
            return {row[0].strip('"'): int(row[4]) * RATE // 1000 for row in self.answers()}

        def agrees():
            before, shown, after = frames(), self.numbers(self.player, names), frames()
            if sorted(before) != sorted(names) or sorted(after) != sorted(names) or None in shown:
                return False
            # They play on while the screen is looked at, and a report is a few frames old.
            return all((number - before[name] + SLACK) % FRAMES <= after[name] - before[name] + 2 * SLACK
                       for name, number in zip(names, shown))

        wait_for(agrees, 20, "a screen that agrees with the report")


if __name__ == "__main__":
    unittest.main()
