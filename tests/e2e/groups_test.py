#!/usr/bin/env python3
"""Groups of videos: the grid of PlayAll Mode, and PlayList Mode with its lead."""

import subprocess
import unittest

from console_driver import without_ticks
from player import GaveUp, PlayerTest, clips, long_clips, wait_for


class Groups(PlayerTest):
    def test_twelve_in_playall_mode_stand_in_the_grid_and_play(self):
        names = long_clips(12, self.folder)
        player = self.start(*names, home=self.home(slide="0"))
        player.wait_ready(12)
        for index, name in enumerate(names):
            row, column = divmod(index, 4)
            self.assert_place(player, name, (480 * column, 360 * row, 480, 360), name)
        player.wait_for_commands(*(f'Play "{name}" ' for name in names))
        self.wait_for_movement(player, names)

    def test_four_in_playall_mode_go_round_the_screen(self):
        names = clips(4, self.folder)
        player = self.start(*names, home=self.home(slide="0"))
        player.wait_ready(4)
        corners = [(0, 0), (960, 0), (960, 540), (0, 540)]
        for name, corner in zip(names, corners):
            self.assert_place(player, name, (*corner, 960, 540), name)

    def test_eight_in_playlist_mode_stand_beside_and_below_the_lead(self):
        names = clips(8, self.folder)
        player = self.start(*names, home=self.home(slide="1", tips="0"))
        player.wait_ready(8)
        self.assert_place(player, names[7], (0, 0, 1600, 900), "the last is the lead")
        for place, name in enumerate(names[:6]):
            self.assert_place(player, name, (1600, 180 * place, 320, 180), name)
        self.assert_place(player, names[6], (1280, 900, 320, 180), "the seventh small one begins the lower row")
        lead = names[7]
        led = [f'seek "{lead}" to 0', f'Play "{lead}"', f'setaudio "{lead}" Volume to 500']
        try:
            wait_for(lambda: without_ticks(player.commands())[-3:] == led, 20, "the lead")
        except GaveUp:
            self.assertEqual(without_ticks(player.commands())[-3:], led)
        commands = player.commands()
        for name in names[:7]:
            self.assertIn(f'seek "{name}" to 2500', commands)
            self.assertEqual([one for one in commands if f'"{name}"' in one][-1], f'Pause "{name}"')

    def test_a_thirteenth_file_is_left_out(self):
        names = clips(13, self.folder)
        player = self.start(*names, home=self.home(slide="0"))
        player.wait_ready(12)
        player.wait_for_commands(f'Play "{names[11]}" ')
        opened = [one for one in player.commands() if one.startswith("Open ")]
        self.assertEqual(len(opened), 12)
        self.assertNotIn(names[12], " ".join(opened))

    def test_a_closed_video_is_closed_in_the_service_and_the_rest_plays_on(self):
        names = long_clips(2, self.folder)
        player = self.start(*names, home=self.home(slide="0"))
        player.wait_ready(2)
        _, x, y, width, _ = player.video(names[0])
        self.click(x + 200, y + 200)
        wait_for(lambda: self.close_box_is_shown(x + width), 20, "the close box of the window that was clicked")
        self.click(x + 3 + width - 100 // 15 - 20 + 8, y + 25 + 2 + 8)
        wait_for(lambda: player.video(names[0]) is None, 20, "the end of the window")
        wait_for(lambda: player.commands().count(f'Close "{names[0]}"') == 2, 20, "both closes")
        self.assertTrue(player.alive())
        self.wait_for_movement(player, names[1:])

    def close_box_is_shown(self, right):
        red, green, blue = self.pixel(right - 7 - 20 + 3 + 8, 25 + 2 + 8)
        return red > 150 and red > green + 40 and red > blue + 40

    def wait_for_movement(self, player, names):
        """The blocks of the frame number change in every window of which the console leaves the upper edge free."""
        console = player.console()
        bands = {}
        for name in names:
            _, x, y, width, _ = player.video(name)
            band = (x + 3, y + 25 + 2, width - 8, 12)
            if not overlap(band, console[1:]):
                bands[name] = band
        self.assertGreaterEqual(len(bands), min(len(names), 9))
        first = self.screen()
        moving = set()

        def all_move():
            now = self.screen()
            moving.update(name for name, band in bands.items() if self.cut(now, band) != self.cut(first, band))
            return len(moving) == len(bands)

        wait_for(all_move, 20, "movement in every window")

    def screen(self):
        return subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], env=self.display.environment,
                              capture_output=True, check=True).stdout

    def cut(self, screen, rect):
        x, y, width, height = rect
        return b"".join(screen[3 * (1920 * line + x):3 * (1920 * line + x + width)] for line in range(y, y + height))


def overlap(one, other):
    return (one[0] < other[0] + other[2] and other[0] < one[0] + one[2] and one[1] < other[1] + other[3]
            and other[1] < one[1] + one[3])


if __name__ == "__main__":
    unittest.main()
