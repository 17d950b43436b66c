#!/usr/bin/env python3
"""What `./run` starts once everything is built: the player on the files it is given, or on clips of its own."""

import os
import re
import signal
import subprocess
import tempfile
import unittest

from player import MEDIA, TOP, Display, prepare_home, tries, wait_for

DEMO = os.path.join(TOP, "scripts", "demo")
BUILD = os.path.join(TOP, "build")
SHOTS = [os.path.join(BUILD, name) for name in ("demo-playall.png", "demo-playlist.png")]
TABLES = ("PlayAll Mode", "PlayAll Mode, two seconds later", "PlayList Mode")
# A line of a table: a name, a size, a length, a place, and three counts.
ROW = re.compile(r"^(.+?) +\d+x\d+ +[\d.]+s +[\d.]+s +\d+ +\d+ +\d+$")


class Demo(tries.SeveralTries):
    def run_alone(self, *files):
        """Its status, what it says, and the names in each of its tables."""
        for shot in SHOTS:
            if os.path.exists(shot):
                os.remove(shot)
        environment = {key: value for key, value in os.environ.items() if key not in ("DISPLAY", "WAYLAND_DISPLAY")}
        done = subprocess.run([DEMO, *files], env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              text=True, errors="replace", timeout=400)
        tables = {title: [] for title in TABLES}
        title = None
        for line in done.stdout.splitlines():
            row = ROW.match(line)
            title = line if line in tables else title
            if row and title:
                tables[title].append(row.group(1))
        return done.returncode, done.stdout, tables

    def expect_shots(self):
        for shot in SHOTS:
            colours = subprocess.run(["identify", "-format", "%wx%h %k", shot], capture_output=True, text=True)
            size, count = colours.stdout.split()
            self.assertEqual(size, "1920x1080")
            self.assertGreater(int(count), 1000, f"{shot} shows videos")

    def test_without_files_it_plays_twelve_clips_of_its_own(self):
        status, said, tables = self.run_alone()
        self.assertEqual(status, 0, said)
        self.assertIn("All videos play.", said)
        for title, names in tables.items():
            self.assertEqual(len(set(names)), 12, f"{title}: {said}")
        self.expect_shots()

    def test_a_file_that_is_none_is_told(self):
        good = [os.path.join(MEDIA, name) for name in ("h264_30.mp4", "h264_25.mp4")]
        status, said, tables = self.run_alone(*good, os.path.join(MEDIA, "text.avi"))
        self.assertEqual(status, 1, said)
        self.assertIn("Could not be played: 1 of 3 files", said)
        for title, names in tables.items():
            self.assertEqual(sorted(names), ["h264_25.mp4", "h264_30.mp4"], f"{title}: {said}")

    def test_with_a_display_it_is_the_player(self):
        with tempfile.TemporaryDirectory(prefix="tandrel-demo-", ignore_cleanup_errors=True) as home, Display() as display:
            prepare_home(home)
            process = subprocess.Popen([DEMO, os.path.join(MEDIA, "h264_30.mp4")],
                                       env=dict(display.environment, TANDREL_HOME=home), stderr=subprocess.DEVNULL)
            try:
                wait_for(lambda: "h264_30" in display.run("wmctrl", "-l").stdout, 20, "the window of the file")
                process.send_signal(signal.SIGTERM)
                self.assertEqual(process.wait(60), 0)
            finally:
                if process.poll() is None:
                    process.kill()
                process.wait()


if __name__ == "__main__":
    unittest.main(verbosity=2)
