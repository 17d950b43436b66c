#!/usr/bin/env python3
"""Twelve videos of 1080p60 at once: more than a small machine can do."""

import os
import signal
import subprocess
import time
import unittest

from player import PlayerTest, links, wait_for

RATE = 60


class Overload(PlayerTest):
    def large_clips(self):
        """Twelve of 1080p60, for minutes, so that they don't end on the way."""
        once = os.path.join(self.folder, "once.mp4")
        whole = os.path.join(self.folder, "whole.mp4")
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", f"testsrc2=size=1920x1080:rate={RATE}", "-t", "4",
                        "-c:v", "libx264", "-preset", "veryfast", "-bf", "3", "-g", "60", "-pix_fmt", "yuv420p", once],
                       check=True)
        subprocess.run(["ffmpeg", "-v", "error", "-stream_loop", "59", "-i", once, "-c", "copy", whole], check=True)
        return links([whole], 12, self.folder)

    def start_large(self, slide):
        self.report_file = os.path.join(self.folder, "report")
        player = self.start(*self.large_clips(), home=self.home(slide=slide, tips="0"), TANDREL_REPORT=self.report_file)
        player.wait_ready(12)
        return player

    def report(self, player):
        """Place in ms and how much is left out, of each video in the order of their opening."""
        if os.path.exists(self.report_file):
            os.remove(self.report_file)
        player.process.send_signal(signal.SIGUSR1)
        wait_for(lambda: os.path.exists(self.report_file), 10, "the report")
        with open(self.report_file, encoding="utf-8") as lines:
            rows = [line.rstrip("\n").split("\t") for line in lines if not line.startswith("# ")]
        return [int(row[4]) for row in rows], [int(row[7]) for row in rows]

    def wait_until_all_move(self, player):
        before, _ = self.report(player)

        def moved():
            places, _ = self.report(player)
            return all(place > was for was, place in zip(before, places))

        wait_for(moved, 10, "movement of all twelve")

    def help_opens(self, player):
        console = player.console()
        self.click(console[1] + 704, console[2] + 128)
        wait_for(lambda: any("help" in title.lower() for title in player.windows()), 10, "the help")
        self.display.run("xdotool", "key", "Escape")
        wait_for(lambda: not any("help" in title.lower() for title in player.windows()), 10, "the end of the help")

    def test_all_twelve_live_and_the_console_answers(self):
        player = self.start_large("0")
        for _ in range(3):
            self.wait_until_all_move(player)
        self.help_opens(player)

        # Where the machine can't do all of it, videos are made cheaper; a machine that can leaves them as they are.
        started = time.monotonic()
        first, _ = self.report(player)

        def keeps_up_or_eases():
            places, eased = self.report(player)
            passed = (time.monotonic() - started) * 1000
            return any(eased) or (passed > 3000 and min(b - a for a, b in zip(first, places)) > 0.9 * passed)

        wait_for(keeps_up_or_eases, 15, "videos that keep up, or are made cheaper")
        self.wait_until_all_move(player)
        self.assertTrue(player.alive())

    def test_the_lead_has_all_of_its_pictures_and_the_others_rest(self):
        player = self.start_large("1")

        def lead_alone_in_full():
            first, _ = self.report(player)
            second, eased = self.report(player)
            moving = [index for index, (one, other) in enumerate(zip(first, second)) if other > one]
            return moving == [11] and eased[11] == 0

        wait_for(lead_alone_in_full, 20, "a lead in full, and eleven at rest")
        self.help_opens(player)


if __name__ == "__main__":
    unittest.main(verbosity=2)
