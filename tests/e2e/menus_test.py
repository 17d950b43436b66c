#!/usr/bin/env python3
"""The menu over a video that fills the screen: formats, a second video in front, and the ways out of it."""

import signal
import unittest

from console_driver import Screen
from full_screen_test import FULL, FullScreenTest
from player import wait_briefly, wait_for

# The higher letterbox is of the ultra flat format: 1920 by 960.
ULTRA_FLAT = (0, 60, 1920, 960)
LETTERBOX = (960, 20)


class Menus(FullScreenTest):
    def menu(self, player):
        """The menu by a right click on the picture."""
        def opened():
            if self.popup():
                return True
            self.click(1200, 400, button=3)
            return wait_briefly(self.popup, 3)

        wait_for(opened, 20, "the menu over the picture")

    def choose_by(self, player, keys, taken, what):
        """The letters, or a number of steps down, choose an entry."""
        self.menu(player)
        self.display.run("xdotool", "key", "--delay", "60", *keys)
        wait_for(taken, 20, what)

    def filled(self, count=2):
        player, names = self.up(count)
        self.fill(player, names[1])
        wait_for(self.full_frame, 20, "a frame number on the whole screen")
        return player, names

    def frame_in(self, place):
        return Screen(self).frame_number(*place)

    def test_the_formats_reshape_the_picture_and_the_default_one_brings_it_back(self):
        player, names = self.filled()
        alias = f'"{names[1]}"'
        # Behind "Full", two settings, "Play" and "Pause" the fourth format is the ninth entry.
        self.choose_by(player, ["Down"] * 9 + ["Return"],
                       lambda: f"put {alias} window at 0 0 1920 960" in player.commands(), "the ultra flat format")
        wait_for(lambda: self.frame_in(ULTRA_FLAT), 20, "a frame number in the reshaped picture")
        screen = Screen(self)
        self.assertLess(screen.green(*LETTERBOX), 40, "the letterbox is dark")
        self.assertLess(screen.green(LETTERBOX[0], 1080 - LETTERBOX[1]), 40)
        self.assertEqual(player.place(names[1]), FULL)
        self.choose_by(player, ["Down"] * 7 + ["Return"],
                       lambda: f"put {alias} window at 0 0 1920 2021" in player.commands(), "the extended format")
        begin = len(player.commands())
        self.choose_by(player, ["Down"] * 6 + ["Return"],
                       lambda: f"put {alias} window at 0 0 1920 1080" in player.commands()[begin:], "the default format")
        wait_for(self.full_frame, 20, "a frame number on the whole screen again")

    def test_both_settings_stand_before_the_full_picture_and_leave_it_as_it_was(self):
        player, names = self.filled()
        for steps, title in ((2, "Audio Settings"), (3, "Video Settings")):
            self.wait_for_panel(player, up=False)
            self.choose_by(player, ["Down"] * steps + ["Return"], lambda: title in player.windows(), title)
            wait_for(lambda: self.in_front() == int(player.windows()[title][0], 16), 20, "the form in front")
            wait_for(lambda: self.taken_in(player.windows()[title][0]), 20, "the dialog in the form")
            self.assertEqual(player.place(names[1]), FULL)
            # A touch of the edge, which would bring the panel.
            self.move(600, 1079)
            self.move(600, 1078)
            self.wait_for_full_movement()
            self.assertEqual(self.panel(player), ())
            _, left, top, width, height = player.windows()[title]
            self.click(left + width - 64, top + height - 28)
            wait_for(lambda: title not in player.windows(), 20, "the end of the form")
            self.assertEqual(player.place(names[1]), FULL)
            # The dialog is another program's, and goes on as a window of its own until the user ends it.
            own = f"Tandrel Player - {title.capitalize()}"
            wait_for(lambda: own in self.display.run("wmctrl", "-l").stdout, 20, "the dialog by itself")
            self.display.run("wmctrl", "-c", own)
            wait_for(lambda: self.video_has_focus(player, names[1]), 20, "the focus for the picture")
            self.move(700, 500)
        self.wait_for_full_movement()

    def taken_in(self, window):
        """True once a window of another program stands in this one."""
        return "Tandrel Player - " in self.display.run("xwininfo", "-id", window, "-tree").stdout.split("child", 1)[-1]

    def test_a_chosen_video_comes_in_front_of_the_full_one(self):
        player, names = self.filled()
        self.choose_by(player, ["i", "1"], lambda: self.has_focus(player.video(names[0])), "the focus for the other video")
        self.assertEqual(player.place(names[1]), FULL)
        self.all_numbers(player, names[:1])
        wait_for(lambda: self.numbers(player, names[:1])[0] is not None, 20, "its picture in front")

    def test_fullscreen_off_leads_back(self):
        player, names = self.up()
        before = player.place(names[1])
        self.fill(player, names[1])
        self.choose_by(player, ["o"], lambda: player.place(names[1]) == before, "the old place")
        wait_for(lambda: self.panel(player) == (), 20, "the end of the panel")

    def test_a_menu_that_is_left_by_escape_leaves_the_pointer_and_comes_again(self):
        player, names = self.filled()
        self.menu(player)
        place = self.pointer()
        self.answer("Escape", lambda: not self.popup(), "the end of the menu")
        self.assertEqual(self.pointer(), place)
        self.assertEqual(player.place(names[1]), FULL)
        self.choose_by(player, ["u"], lambda: f'Pause "{names[1]}"' in player.commands(), "the pause")
        self.choose_by(player, ["p"], lambda: f'Play "{names[1]}"' in player.commands()[-40:], "the play")
        self.wait_for_full_movement()

    def test_an_end_from_outside_closes_an_open_submenu(self):
        player, _ = self.filled()
        self.menu(player)
        self.display.run("xdotool", "key", "i")
        wait_for(lambda: self.display.run("xwininfo", "-root", "-children").stdout.count('"tandrel-player"') > 1, 20, "the submenu")
        player.process.send_signal(signal.SIGTERM)
        player.process.wait(30)
        self.assertEqual(player.process.returncode, 0)

    def wait_for_full_movement(self):
        first = wait_for(self.full_frame, 20, "a frame number")
        wait_for(lambda: self.full_frame() not in (None, first), 20, "movement")

    def test_the_panel_makes_way_for_the_menu(self):
        player, names = self.filled()
        self.wait_for_panel(player, up=False)
        self.move(600, 1079)
        self.wait_for_panel(player)
        self.menu(player)
        wait_for(lambda: self.panel(player) == (), 20, "the panel out of the menu's way")
        self.answer("Escape", lambda: not self.popup(), "the end of the menu")


if __name__ == "__main__":
    del FullScreenTest
    unittest.main()
