#!/usr/bin/env python3
"""Twelve videos of 1080p60 at once: more than a small machine can do."""

import os
import signal
import subprocess
import time
import unittest

from console_driver import ConsoleTest
from player import links, wait_for

RATE = 60
LOW_RATE = 3
KEY_PICTURES = 4


class Overload(ConsoleTest):
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
        self.names = self.large_clips()
        player = self.start(*self.names, home=self.home(slide=slide, tips="0"), TANDREL_REPORT=self.report_file)
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

    def run_on(self, player, processors):
        """All of the player's threads, and those to come."""
        for _ in range(2):
            for thread in os.listdir(f"/proc/{player.process.pid}/task"):
                try:
                    os.sched_setaffinity(int(thread), processors)
                except ProcessLookupError:
                    pass

    def pause(self, player, name, key):
        self.display.run("xdotool", "key", key)
        wait_for(lambda: self.video_has_focus(player, name), 20, "the focus for the video")
        self.display.run("xdotool", "key", "p")
        wait_for(lambda: f'Pause "{name}"' in player.commands(), 20, "its pause")

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

    def test_what_nobody_sees_gives_first_the_selected_one_last_and_all_comes_back(self):
        processors = os.sched_getaffinity(0)
        player = self.start_large("0")
        names = self.names
        self.run_on(player, {min(processors)})
        # The windows of the first three lie below that of the fourth, which is selected.
        _, x, y, *_ = player.video(names[3])
        for name in names[:3]:
            self.display.run("xdotool", "windowmove", player.video(name)[0], str(x), str(y))
            self.assert_over(player, name, names[3])
        self.display.run("wmctrl", "-ia", player.video(names[3])[0])
        wait_for(lambda: self.video_has_focus(player, names[3]), 20, "the focus for the fourth video")

        def in_order():
            _, eased = self.report(player)
            seen = eased[4:]
            return eased[:3] == [KEY_PICTURES] * 3 and seen[-1] and max(seen) <= LOW_RATE and eased[3] <= min(seen)

        wait_for(in_order, 60, "covered videos that show key pictures, and a selected one with no less than the others")
        self.help_opens(player)

        # Alone, with the whole machine again, the last one has room for everything.
        self.run_on(player, processors)
        for name, key in zip(names, [*"1234567890", "alt+1"]):
            self.pause(player, name, key)
        wait_for(lambda: self.report(player)[1][-1] == 0, 90, "all pictures of the last one")

    def assert_over(self, player, name, other):
        wait_for(lambda: player.place(name)[:2] == player.place(other)[:2], 20, "one window over the other")

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
