#!/usr/bin/env python3
"""What happens by itself while videos play, and what the mouse does with their windows."""

import os
import shutil
import time
import unittest

from console_driver import ConsoleTest, Screen, films
from player import MEDIA, wait_for

LEAD = (0, 0, 1600, 900)


class Playing(ConsoleTest):
    def up(self, names, slide="0", count=None):
        player = self.start(*names, home=self.home(slide=slide, tips="0"))
        player.wait_ready(len(names) if count is None else count)
        return player

    def copies(self, source, *names):
        paths = [os.path.join(self.folder, name) for name in names]
        for path in paths:
            shutil.copy(os.path.join(MEDIA, source), path)
        return paths

    def said(self, player, command, begin=0):
        wait_for(lambda: command in player.commands()[begin:], 20, command)

    def frame(self, player, name):
        return self.numbers(player, [name])[0]

    def drag(self, start, *places, until=None):
        """Lets go once the condition holds, where there is one."""
        self.press(*start)
        time.sleep(0.3)
        for place in places:
            self.display.run("xdotool", "mousemove", str(place[0]), str(place[1]))
            time.sleep(0.1)
        try:
            if until:
                wait_for(until, 20, "what a drag leads to")
        finally:
            self.release()

    def test_a_click_selects_a_video_whose_volume_is_kept_from_then_on(self):
        names = films(3, self.folder)
        player = self.up(names)
        for name in (names[0], names[2], names[1]):
            x, y, width, height = player.place(name)
            begin = len(player.commands())
            self.click(x + width // 2, y + height // 2)
            self.said(player, f'setaudio "{name}" Volume to 500', begin)

    def test_a_window_follows_the_pointer_that_holds_its_picture(self):
        names = films(2, self.folder)
        player = self.up(names)
        x, y, width, height = player.place(names[1])
        grip = (x + 300, y + 200)
        wanted = (x - 120, y + 40, width, height)
        self.drag(grip, (grip[0] - 50, grip[1] + 10), (grip[0] - 120, grip[1] + 40),
                  until=lambda: player.place(names[1]) == wanted)
        self.assert_place(player, names[1], wanted)
        # What is let go stays where it is.
        self.display.run("xdotool", "mousemove", "200", "900")
        self.assert_place(player, names[1], (x - 120, y + 40, width, height))
        self.wait_for_movement(player, names)

    def test_each_strip_sizes_the_window_its_own_way(self):
        names = films(1, self.folder)
        player = self.up(names)
        x, y, width, height = player.place(names[0])
        self.click(x + 300, y + 200)
        time.sleep(0.3)
        for dx, dy, grip in ((90, 60, (width - 3, height - 3)), (0, 40, (200, height + 54)), (30, 0, (width + 84, 200))):
            start = (x + grip[0], y + grip[1])
            before = player.size(names[0])
            wanted = (grip[0] + dx if dx else before[0], grip[1] + dy if dy else before[1])
            self.drag(start, (start[0] + dx // 2, start[1] + dy // 2), (start[0] + dx, start[1] + dy),
                      until=lambda: player.size(names[0]) == wanted)
        self.assertEqual(player.place(names[0])[:2], (x, y))

    def test_in_playall_mode_each_video_begins_again_at_its_own_end(self):
        names = self.copies("short.mp4", "one.mp4") + self.copies("h264_25.mp4", "two.mp4")
        player = self.up(names)
        begin = {name: len(player.commands()) for name in names}
        for name in (names[0], names[0], names[1]):
            self.said(player, f'Play "{name}" from 0', begin[name])
            begin[name] = len(player.commands())
            # It shows its beginning, and goes on from there.
            wait_for(lambda: 0 <= self.shown(player, name) < 40, 20, "its first pictures")
            wait_for(lambda: self.shown(player, name) > 40, 20, "its later pictures")
        self.assertTrue(player.alive())

    def shown(self, player, name):
        """The number of its picture, -1 where none can be read."""
        number = self.frame(player, name)
        return -1 if number is None else number

    def test_in_playlist_mode_the_next_takes_over_at_the_end_of_the_lead(self):
        names = self.copies("short.mp4", "one.mp4", "two.mp4", "three.mp4")
        player = self.up(names, slide="1")
        self.assert_place(player, names[2], LEAD)
        for lead in (names[0], names[1], names[2]):
            self.assert_place(player, lead, LEAD, "the next one")
            wait_for(lambda: (self.number_at(Screen(self), player.place(lead)) or 0) > 3, 20, "the lead plays")

    def test_a_lead_that_was_dragged_keeps_its_place(self):
        names = self.copies("short.mp4", "one.mp4", "two.mp4")
        player = self.up(names, slide="1")
        self.assert_place(player, names[1], LEAD)
        # Not for long: the lead is about to end.
        self.drag((700, 300), (720, 310), (760, 330))
        self.assert_place(player, names[1], (60, 30, 1600, 900))
        wait_for(lambda: player.commands().count(f'status "{names[1]}" position') > 60, 20, "ticks beyond its end")
        self.assert_place(player, names[1], (60, 30, 1600, 900))

    def test_a_double_click_brings_a_small_one_into_the_large_place(self):
        names = films(3, self.folder)
        player = self.up(names, slide="1")
        self.assert_place(player, names[2], LEAD)

        def tried():
            x, y, width, height = player.place(names[0])
            self.display.run("xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "click", "--repeat", "2",
                             "--delay", "110", "1")
            time.sleep(1)
            return player.place(names[0]) == LEAD

        wait_for(tried, 20, "the large place")
        wait_for(lambda: player.place(names[2])[2:] == (320, 180), 20, "the former lead beside it")

    def test_a_double_click_that_ends_in_a_move_leaves_the_new_one_in_its_place(self):
        names = films(3, self.folder)
        player = self.up(names, slide="1")
        self.assert_place(player, names[2], LEAD)

        def tried():
            x, y, width, height = player.place(names[0])
            self.display.run("xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "click", "1", "sleep", "0.11",
                             "mousedown", "1", "sleep", "0.2", "mousemove_relative", "3", "2", "sleep", "0.2", "mouseup", "1")
            time.sleep(0.5)
            return player.place(names[0])[2:] == LEAD[2:]

        wait_for(tried, 20, "the large size")
        self.assertEqual(player.place(names[0]), LEAD)

    def test_the_second_disc_goes_on_in_the_same_window(self):
        first, = self.copies("short.mp4", "film CD1.mp4")
        second, = self.copies("h264_25.mp4", "film CD2.mp4")
        player = self.up([first])
        before = player.place(first)
        self.said(player, f'Close "{first}"')
        wait_for(lambda: player.video(second), 20, "the window of the second disc")
        self.assertEqual(player.place(second)[:3], before[:3])
        self.assertEqual(player.place(second)[3], before[3] - 1)
        wait_for(lambda: (self.frame(player, second) or 0) > 70, 20, "its pictures, beyond those of the first")
        self.assertIsNone(player.video(first))

    def test_the_second_disc_goes_on_in_full_screen(self):
        first, = self.copies("short.mp4", "film cd1.mp4")
        second, = self.copies("h264_25.mp4", "film cd2.mp4")
        player = self.up([first])
        x, y, _, _ = player.place(first)
        self.click(x + 300, y + 200)
        time.sleep(0.3)
        self.click(x + 300, y + 200, button=3)
        wait_for(lambda: player.size(first) == (1920, 1080) or player.size(second) == (1920, 1080), 20, "full screen")
        wait_for(lambda: player.video(second), 20, "the second disc")
        wait_for(lambda: player.place(second) == (0, 0, 1920, 1080), 20, "the whole screen again")
        wait_for(lambda: (Screen(self).frame_number(0, 0, 1920, 1080) or 0) > 70, 20, "its pictures")

    def test_files_that_vanish_shrink_or_grow_disturb_nobody(self):
        names = self.copies("short.mp4", "gone.mp4", "cut.mp4", "grown.mp4") + films(1, self.folder)
        player = self.up(names)
        os.remove(names[0])
        os.truncate(names[1], os.path.getsize(names[1]) // 2)
        with open(names[2], "ab") as file:
            file.write(os.urandom(200000))
        # Long enough for each of them to come to its end.
        asked = player.commands().count(f'status "{names[1]}" position')
        wait_for(lambda: player.commands().count(f'status "{names[1]}" position') > asked + 8, 30, "ticks")
        self.wait_for_movement(player, names[3:])
        begin = len(player.commands())
        x, y, width, height = player.place(names[3])
        self.click(x + width // 2, y + height // 2)
        self.said(player, f'setaudio "{names[3]}" Volume to 500', begin)

    def test_a_window_that_is_closed_at_its_end_leaves_the_others_alone(self):
        names = self.copies("short.mp4", "one.mp4") + films(2, self.folder)
        player = self.up(names)
        x, y, width, height = player.place(names[0])
        self.click(x + width // 2, y + height // 2)
        self.said(player, f'Play "{names[0]}" from 0')
        self.display.run("wmctrl", "-ic", player.video(names[0])[0])
        self.said(player, f'Close "{names[0]}"')
        self.wait_for_movement(player, names[1:])

    def test_two_consoles_side_by_side(self):
        names = films(2, self.folder)
        player = self.start(names[0], home=self.home("one", tips="0"))
        player.wait_ready(1)
        other = self.start(names[1], home=self.home("two", tips="0", left=str(700 * 15), top=str(600 * 15)))
        other.wait_ready(1)
        x, y, width, height = other.place(names[1])
        wanted = (x + 600, y + 100, width, height)
        self.drag((x + 300, y + 200), (x + 500, y + 260), (x + 900, y + 300), until=lambda: other.place(names[1]) == wanted)
        self.assert_place(other, names[1], wanted)
        self.click(x + 900, y + 300, button=3)
        wait_for(lambda: other.size(names[1]) == (1920, 1080), 20, "full screen of the one")
        self.assertEqual(player.size(names[0]), (width, height))
        begin = len(player.commands())
        self.said(player, f'status "{names[0]}" position', begin)
        other.end()
        self.wait_for_movement(player, names[:1])


class WithoutWindowManager(Playing):
    window_manager = False
    # Nobody is there to close it.
    test_a_window_that_is_closed_at_its_end_leaves_the_others_alone = None


class TwoMonitors(ConsoleTest):
    """The console stands on the first of two, which begins at the corner of the desktop."""

    display_size = "2560x1900"
    # The right one stands lower.
    monitors = {"LEFT": (0, 0), "RIGHT": (1280, 876)}
    first = "LEFT"

    def setUp(self):
        super().setUp()
        for name, (left, top) in sorted(self.monitors.items(), key=lambda one: one[0] != self.first):
            mark = "*" if name == self.first else ""
            done = self.display.run("xrandr", "--setmonitor", mark + name, f"1280/320x1024/270+{left}+{top}",
                                    "screen" if name == self.first else "none")
            self.assertEqual(done.returncode, 0, done.stderr)

    def test_everything_happens_on_the_consoles_monitor(self):
        names = films(2, self.folder)
        home = self.home(tips="0", left="0", top=str(700 * 15))
        player = self.start(*names, home=home)
        player.wait_ready(2)
        left, top = self.monitors[self.first]
        full = (left, top, 1280, 1024)
        x, y, width, height = player.place(names[0])
        self.assertTrue(left <= x < left + 1280 and top <= y < top + 1024)
        self.click(x + 200, y + 200)
        time.sleep(0.3)
        self.click(x + 200, y + 200, button=3)
        wait_for(lambda: player.place(names[0]) == full, 20, "full screen on that monitor")

        def panel():
            return tuple(player.windows().get("Panel", ()))[1:]

        standing = (left, top + 1024 - 61, 1280, 61)
        wait_for(lambda: panel() == standing, 20, "the panel")
        self.display.run("xdotool", "mousemove", str(left + 600), str(top + 300))
        wait_for(lambda: panel() == (), 20, "the panel away by itself")
        time.sleep(2)
        self.assertEqual(panel(), (), "it comes back by a touch of the edge only")
        self.display.run("xdotool", "mousemove", str(left + 600), str(top + 1023))
        wait_for(lambda: panel() == standing, 20, "the panel by a touch")
        self.display.run("xdotool", "mousemove", str(left + 600), str(top + 300))
        wait_for(lambda: panel() == (), 20, "the panel away again")

        def pointer():
            text = self.display.run("xdotool", "getmouselocation", "--shell").stdout
            values = dict(line.split("=") for line in text.split())
            return int(values["X"]), int(values["Y"])

        wait_for(lambda: pointer() != (left + 600, top + 300), 20, "the parked pointer")
        parked = pointer()
        self.assertTrue(left <= parked[0] < left + 1280 and top <= parked[1] < top + 1024, parked)
        self.display.run("xdotool", "mousemove", str(left + 300), str(top + 500))
        wait_for(lambda: pointer() == (left + 600, top + 300), 20, "the pointer where it was")
        wait_for(lambda: panel() == standing, 20, "the panel with it")
        self.click(left + (19200 - 6060) // 2 // 15 - 33 + 98 + 12, top + 1024 - 61 + 34)
        wait_for(lambda: player.place(names[0]) == (x, y, width, height), 20, "the old place")


class LowerMonitor(TwoMonitors):
    """The same on the one that begins further right and lower."""

    first = "RIGHT"


if __name__ == "__main__":
    unittest.main()
