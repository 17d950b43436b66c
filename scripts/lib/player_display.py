"""An X display of one's own to run the player on, and waiting for conditions."""

import os
import subprocess
import time


class GaveUp(Exception):
    """What was waited for did not come."""


# A machine that is busy elsewhere, or reads from a slow disk, may take so many times as long as one that is idle.
PATIENCE = 4


def wait_briefly(condition, limit=2.5):
    """The first true value of `condition`, asked again and again for `limit` seconds; else its last value."""
    end = time.monotonic() + limit
    while True:
        result = condition()
        if result or time.monotonic() >= end:
            return result
        time.sleep(0.05)


def wait_for(condition, limit, what):
    """The same for what must come: in `limit` seconds on a machine that is idle, later on one that isn't."""
    result = wait_briefly(condition, limit * PATIENCE)
    if not result:
        raise GaveUp(f"Gave up after {limit * PATIENCE} s: {what}")
    return result


class Display:
    """An X server, by default with a window manager, for the time of a with statement. `name` is its DISPLAY."""

    def __init__(self, size="1920x1080", manager=True):
        self.size = size
        self.with_manager = manager
        self.processes = []

    def __enter__(self):
        read, write = os.pipe()
        server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", self.size + "x24", "-nolisten", "tcp",
                                   "-noreset"],
                                  pass_fds=[write], stderr=subprocess.DEVNULL)
        self.processes.append(server)
        os.close(write)
        with os.fdopen(read) as answer:
            number = answer.readline().strip()
        if not number:
            raise GaveUp("Xvfb did not start")
        self.name = ":" + number
        self.environment = {key: value for key, value in os.environ.items() if key != "WAYLAND_DISPLAY"}
        self.environment["DISPLAY"] = self.name
        # A desktop outside would show its dialogs on its own display.
        self.environment["TANDREL_FILE_DIALOG"] = "toolkit"
        if self.with_manager:
            self.processes.append(subprocess.Popen(["openbox"], env=self.environment, stdout=subprocess.DEVNULL,
                                                   stderr=subprocess.DEVNULL))
            wait_for(lambda: self.run("wmctrl", "-m").returncode == 0, 10, "the window manager")
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()

    def end_server(self):
        """Takes the display away under everything that is shown on it."""
        self.processes[0].kill()
        self.processes[0].wait()

    def run(self, *command, **options):
        """Runs a command on this display and gives what it printed."""
        return subprocess.run(command, env=self.environment, capture_output=True, text=True, errors="replace", **options)

    def screenshot(self, path):
        subprocess.run(["import", "-window", "root", path], env=self.environment, check=True)


def prepare_home(home, slide="0", **more):
    """A data folder of somebody who has been asked everything, so that nothing asks. `more` are settings of "sys"."""
    os.makedirs(home, exist_ok=True)
    values = {"langos": "EN", "slide": slide, "vistaos": "1", "tips": "1", **more}
    with open(os.path.join(home, "MsShareStuff.ini"), "w", encoding="utf-8") as settings:
        settings.write("[sys]\n" + "".join(f"{key}={value}\n" for key, value in values.items()) + "[day]\nrun=999999\n")
    with open(os.path.join(home, "ext.dat"), "w", encoding="ascii") as answer:
        answer.write("1\r\n")
