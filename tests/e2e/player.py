"""The real program on a display of its own, driven and watched from outside."""

import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile

TOP = os.environ["TANDREL_TOP"]
BIN = os.environ["TANDREL_BIN"]
MEDIA = os.environ["TANDREL_TEST_MEDIA"]
sys.path[:0] = [os.path.join(TOP, "scripts", "lib"), os.path.join(TOP, "tests", "support")]
import tries  # noqa: E402
from player_display import Display, GaveUp, prepare_home, wait_briefly, wait_for  # noqa: E402

CAPTION_BAND = 25


def clips(count, folder):
    """So many files of ten seconds to play: links to test media under names of their own."""
    return links([os.path.join(MEDIA, name) for name in ("h264_30.mp4", "h264_25.mp4")], count, folder)


def long_clips(count, folder):
    """The same over and over for minutes, so that even a machine under load finds them playing."""
    once = os.path.join(MEDIA, "h264_30.mp4")
    whole = os.path.join(folder, "minutes.mp4")
    subprocess.run(["ffmpeg", "-v", "error", "-stream_loop", "29", "-i", once, "-c", "copy", whole], check=True)
    return links([whole], count, folder)


def links(kinds, count, folder):
    names = []
    for index in range(count):
        name = os.path.join(folder, f"clip {index:02}.mp4")
        if not os.path.islink(name):
            os.symlink(kinds[index % len(kinds)], name)
        names.append(name)
    return names


class Player:
    """One running player. Times out rather than hangs."""

    def __init__(self, display, home, *arguments, program=os.path.join(BIN, "tandrel-player"), **environment):
        self.display = display
        self.home = home
        self.trace_file = tempfile.mktemp(prefix="trace-", dir=os.path.dirname(home))
        everything = dict(display.environment, TANDREL_HOME=home, TANDREL_MCI_TRACE=self.trace_file, **environment)
        self.process = subprocess.Popen([program, *arguments], env=everything,
                                        stderr=subprocess.DEVNULL)

    def trace(self):
        """Every command so far with its result and its answer."""
        if not os.path.exists(self.trace_file):
            return []
        with open(self.trace_file, encoding="utf-8", errors="surrogateescape", newline="\n") as lines:
            return [tuple(line.rstrip("\n").split("\t")) for line in lines if line.endswith("\n")]

    def commands(self):
        return [row[0] for row in self.trace()]

    def wait_for_commands(self, *commands):
        wait_for(lambda: set(commands) <= set(self.commands()), 20, f"the commands {commands}")

    def alive(self):
        return self.process.poll() is None

    def windows(self):
        """Title -> (id, x, y, width, height) of the program's windows on the screen. Of several of one title the last."""
        return {title: tuple(window) for title, *window in self.all_windows()}

    def all_windows(self):
        """(title, id, x, y, width, height) of each of them, those that came up first in front."""
        if not self.display.with_manager:
            return self.unmanaged_windows()
        found = []
        for line in self.display.run("wmctrl", "-lpG").stdout.splitlines():
            fields = line.split(None, 8)
            if len(fields) == 9 and int(fields[2]) == self.process.pid:
                place = self.geometry(fields[0])
                if place:  # Windows may go between the two questions.
                    found.append((fields[8], fields[0], *place))
        return found

    def unmanaged_windows(self):
        """The same where no window manager keeps a list: those in front come last."""
        own = self.display.run("xdotool", "search", "--onlyvisible", "--pid", str(self.process.pid)).stdout.split()
        places = {}
        for line in self.display.run("xwininfo", "-root", "-children").stdout.splitlines():
            found = re.match(r"\s+(0x[0-9a-f]+) .*\s(\d+)x(\d+)\+-?\d+\+-?\d+\s+\+(-?\d+)\+(-?\d+)$", line)
            if found and str(int(found.group(1), 16)) in own:
                width, height, x, y = (int(one) for one in found.groups()[1:])
                places[found.group(1)] = (x, y, width, height)
        # One question for all of them. Where one goes meanwhile, none is known.
        asked = [word for window in places for word in ("getwindowname", window)]
        titles = self.display.run("xdotool", *asked).stdout.splitlines() if asked else []
        if len(titles) != len(places):
            return []
        return [(title, window, *places[window]) for title, window in zip(titles, places)][::-1]

    def geometry(self, window):
        text = self.display.run("xwininfo", "-id", window).stdout
        keys = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        found = [re.search(key + r":\s+(-?\d+)", text) for key in keys]
        return tuple(int(one.group(1)) for one in found) if all(found) else None

    def video(self, path):
        return self.windows().get("§" + path)

    def place(self, path):
        """x, y, width and height of a video window; all None while it is off the screen."""
        return (self.video(path) or (None,) * 5)[1:]

    def size(self, path):
        """Width and height of a video window, (0, 0) while it is off the screen."""
        return (self.video(path) or (0,) * 5)[3:]

    def console(self):
        for title, window in self.windows().items():
            if title.startswith("Tandrel Player PRO"):
                return window
        return None

    def wait_ready(self, videos=0):
        wait_for(self.console, 20, "the console")
        wait_for(lambda: sum(title.startswith("§") for title in self.windows()) >= videos, 20, f"{videos} video windows")

    def end(self):
        if self.alive():
            self.process.send_signal(signal.SIGTERM)
            try:
                self.process.wait(40)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
                raise AssertionError("the player did not end when asked to")
        return self.process.returncode


class PlayerTest(tries.SeveralTries):
    """A display and a folder for each test, and more than one try; a screenshot is left where one fails."""

    display_size = "1920x1080"
    window_manager = True

    def crashed(self):
        return any(player.process.returncode in tries.CRASHES for player in self.players)

    def setUp(self):
        self.folder_holder = tempfile.TemporaryDirectory(prefix="tandrel-e2e-")
        self.folder = self.folder_holder.name
        self.display = Display(self.display_size, self.window_manager).__enter__()
        self.players = []

    def tearDown(self):
        result = self._outcome.result
        failed = any(test is self for test, _ in result.failures + result.errors)
        try:
            # What has crashed is known before anything else may go wrong here.
            for player in self.players:
                player.alive()
            if failed:
                shot = os.path.join(TOP, "build", f"e2e-failed-{self.id()}.png")
                os.makedirs(os.path.dirname(shot), exist_ok=True)
                self.display.screenshot(shot)
                print(f"Screenshot of the failure: {shot}")
            for player in self.players:
                player.end()
        finally:
            self.display.__exit__()
            self.remove_folder()
        self.assertFalse(self.crashed(), "a player has crashed")

    def remove_folder(self):
        """Programs of the desktop that a start has called may still be at work in it."""

        def gone():
            shutil.rmtree(self.folder, ignore_errors=True)
            return not os.path.exists(self.folder)

        wait_for(gone, 10, "the end of the test's folder")
        self.folder_holder.cleanup()

    def home(self, name="home", **settings):
        home = os.path.join(self.folder, name)
        prepare_home(home, **settings)
        return home

    def start(self, *arguments, home=None, **environment):
        runtime = os.path.join(self.folder, "runtime")
        os.makedirs(runtime, mode=0o700, exist_ok=True)
        player = Player(self.display, home or self.home(), *arguments, XDG_RUNTIME_DIR=runtime, **environment)
        self.players.append(player)
        return player

    def assert_place(self, player, path, expected, message=None):
        """A video window stands there, or does so soon."""
        try:
            wait_for(lambda: player.place(path) == expected, 20, "a place")
        except GaveUp:
            self.assertEqual(player.place(path), expected, message)

    def click(self, x, y, button=1):
        self.display.run("xdotool", "mousemove", str(x), str(y), "click", str(button))

    def answer(self, key, taken, what):
        """Presses a key in the window that has the focus, again and again until it was taken: a new box may be on the
        screen before it has the keys."""

        def pressed():
            if taken():
                return True
            self.display.run("xdotool", "key", key)
            return wait_briefly(taken)

        wait_for(pressed, 20, what)

    def press(self, x, y, button=1):
        self.display.run("xdotool", "mousemove", str(x), str(y), "mousedown", str(button))

    def release(self, button=1):
        self.display.run("xdotool", "mouseup", str(button))

    def pixel(self, x, y):
        """Red, green and blue at a place of the screen, 0 to 255."""
        raw = subprocess.run(["import", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "rgb:-"],
                             env=self.display.environment, capture_output=True, check=True).stdout
        return tuple(raw[:3])

    def popup(self):
        """Place and size of the menu on the screen, or None."""
        tree = self.display.run("xwininfo", "-root", "-children").stdout
        for line in tree.splitlines():
            found = re.search(r'"tandrel-player".*?(\d+)x(\d+)\+-?\d+\+-?\d+\s+\+(-?\d+)\+(-?\d+)', line)
            if not found or int(found.group(1)) < 40:
                continue
            facts = self.display.run("xwininfo", "-id", line.split()[0]).stdout
            if "IsViewable" in facts and "Override Redirect State: yes" in facts and not self.is_tip(line.split()[0]):
                return tuple(int(one) for one in found.groups())
        return None

    def is_tip(self, window):
        return "TOOLTIP" in self.display.run("xprop", "-id", window, "_NET_WM_WINDOW_TYPE").stdout
