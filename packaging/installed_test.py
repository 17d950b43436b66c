#!/usr/bin/env python3
"""What `cmake --install` leaves works wherever it lies, and as the desktop knows it: installed_test.py BUILD MEDIA"""

import glob
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
TOP = os.path.dirname(HERE)
sys.path.insert(0, os.path.join(TOP, "scripts", "lib"))
from player_display import Display, prepare_home, wait_briefly, wait_for  # noqa: E402

# The middle of the console's button for pictures, in pixels.
SETTINGS = (611, 128)
ENTRIES = ("tandrel-player.desktop", "tandrel-player-disc.desktop")


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


class Installed(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="tandrel-installed-", ignore_cleanup_errors=True)
        self.addCleanup(holder.cleanup)
        self.folder = holder.name
        self.processes = []
        self.addCleanup(self.end_all)

    def end_all(self):
        for process in self.processes:
            if process.poll() is None:
                process.kill()
            process.wait()

    def install(self, *arguments, **environment):
        subprocess.run(
            ["cmake", "--install", BUILD, *arguments],
            env=dict(os.environ, **environment),
            check=True,
            stdout=subprocess.DEVNULL,
        )

    def show(self):
        display = Display()
        display.__enter__()
        self.addCleanup(display.__exit__)
        return display

    def start(self, display, *command, **environment):
        runtime = os.path.join(self.folder, "runtime")
        os.makedirs(runtime, mode=0o700, exist_ok=True)
        process = subprocess.Popen(
            command,
            env=dict(display.environment, XDG_RUNTIME_DIR=runtime, **environment),
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        self.processes.append(process)
        return process

    def wait_for_title(self, display, process, front):
        def there():
            self.assertIsNone(process.poll(), "the program has ended by itself")
            lines = [line.split(None, 4) for line in display.run("wmctrl", "-lp").stdout.splitlines()]
            return next(
                (
                    line[0]
                    for line in lines
                    if len(line) == 5 and line[2] == str(process.pid) and line[4].startswith(front)
                ),
                None,
            )

        return wait_for(there, 20, f"a window {front}")

    def end(self, process):
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(120), 0)

    def home(self):
        home = os.path.join(self.folder, "data")
        prepare_home(home)
        return home

    def test_a_prefix_that_was_moved_finds_its_own_programs(self):
        before, after = self.folder + "/first place", self.folder + "/second"
        self.install("--prefix", before)
        os.rename(before, after)
        display = self.show()
        trace = self.folder + "/calls"
        # The player starts what lies in the folder beside its own: one that takes a note stands in for the dialog.
        note = os.path.join(after, "lib", "tandrel-player", "tandrel-codec-settings")
        with open(note, "w", encoding="utf-8") as script:
            script.write(f'#!/bin/sh\necho "$0 $1" >>"{trace}"\n')
        film = os.path.join(MEDIA, "h264_30.mp4")
        player = self.start(display, after + "/bin/tandrel-player", film, TANDREL_HOME=self.home())
        console = self.wait_for_title(display, player, "Tandrel Player PRO")
        self.wait_for_title(display, player, "§" + film)
        self.press_settings(display, console, trace)
        self.assertEqual(read(trace).splitlines()[0], f"{note} configure")
        self.end(player)

    def press_settings(self, display, console, trace):
        """Presses the console's button for pictures until it has been heard."""
        place = display.run("xwininfo", "-id", console).stdout
        left, top = (int(place.split(f"Absolute upper-left {axis}:")[1].split()[0]) for axis in "XY")

        def pressed():
            display.run("xdotool", "mousemove", str(left + SETTINGS[0]), str(top + SETTINGS[1]), "click", "1")
            return wait_briefly(lambda: os.path.exists(trace))

        wait_for(pressed, 20, "the start of the dialog")

    def test_a_folder_of_an_image_starts_from_wherever_it_lies(self):
        subprocess.run([os.path.join(HERE, "appimage", "build"), BUILD, self.folder, "--folder-only"], check=True)
        moved = self.folder + "/moved"
        os.rename(self.folder + "/AppDir", moved)
        for link in ("tandrel-player.desktop", "tandrel-player.png", ".DirIcon"):
            self.assertTrue(os.path.isfile(os.path.join(moved, link)), link)
        for name, front in (
            ("anything.AppImage", "tandrel-player "),
            ("tandrel-open", "tandrel-open "),
            ("tandrel-mci", "tandrel-mci "),
        ):
            said = subprocess.run(
                [moved + "/AppRun", "--version"],
                env=dict(os.environ, ARGV0="/a b/" + name),
                capture_output=True,
                text=True,
                check=True,
            ).stdout
            self.assertTrue(said.startswith(front), said)
        os.symlink(moved + "/AppRun", self.folder + "/player")
        display = self.show()
        player = self.start(display, self.folder + "/player", TANDREL_HOME=self.home())
        self.wait_for_title(display, player, "Tandrel Player PRO")
        self.end(player)

    def test_the_users_entries_stand_in_the_place_of_the_installed_ones(self):
        prefix, user = self.folder + "/usr", self.folder + "/user"
        self.install("--prefix", prefix)
        os.makedirs(user + "/config")
        subprocess.run(["update-desktop-database", prefix + "/share/applications"], check=True)
        display = self.show()
        own = {
            "XDG_DATA_HOME": user + "/share",
            "XDG_CONFIG_HOME": user + "/config",
            "XDG_CACHE_HOME": user + "/cache",
            "HOME": user,
            "XDG_DATA_DIRS": prefix + "/share:/usr/local/share:/usr/share",
            "XDG_CURRENT_DESKTOP": "none",
            "PATH": prefix + "/bin:" + os.environ["PATH"],
        }

        def offered():
            said = subprocess.run(
                ["gio", "mime", "video/mp4"],
                env=dict(os.environ, LC_ALL="C.UTF-8", **own),
                capture_output=True,
                text=True,
            ).stdout
            registered = said.split("Registered applications:")[-1].split("Recommended applications:")[0]
            return [line.strip() for line in registered.splitlines() if "tandrel" in line]

        self.assertEqual(offered(), [ENTRIES[0]], "as it is installed")
        prepare_home(user + "/share/tandrel-player")
        shutil.move(user + "/share/tandrel-player/MsShareStuff.ini", user + "/config/MsShareStuff.ini")
        player = self.start(display, prefix + "/bin/tandrel-player", **own)
        wait_for(lambda: os.path.exists(user + "/share/applications/mimeinfo.cache"), 20, "the user's entries")
        self.end(player)
        self.assertEqual(offered(), [ENTRIES[0]], "with the entries that a start has written")
        for entry in ENTRIES:
            mine, installed = (read(folder + "/share/applications/" + entry) for folder in (user, prefix))
            self.assertEqual(mine.replace(prefix + "/bin/", ""), installed)
        self.assertEqual(*(read(folder + "/share/mime/packages/tandrel-player.xml") for folder in (user, prefix)))
        # When the package has gone, what the user is left with names a program that isn't there: it is not offered.
        for file in glob.glob(prefix + "/bin/tandrel-*") + glob.glob(prefix + "/share/applications/*"):
            os.remove(file)
        self.assertEqual(offered(), [])

    def test_programs_tell_what_they_are_without_a_display(self):
        self.install("--prefix", self.folder)
        environment = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        programs = glob.glob(self.folder + "/bin/*") + glob.glob(self.folder + "/lib/tandrel-player/*")
        self.assertEqual(len(programs), 5)
        for program in programs:
            name = os.path.basename(program)
            for argument, front in (("--version", name + " "), ("--help", "Usage: " + name)):
                done = subprocess.run([program, argument], env=environment, capture_output=True, text=True, timeout=120)
                self.assertEqual((done.returncode, done.stderr), (0, ""), program)
                self.assertTrue(done.stdout.startswith(front), done.stdout)


if __name__ == "__main__":
    BUILD, MEDIA = (os.path.abspath(sys.argv.pop(1)) for _ in range(2))
    unittest.main()
