#!/usr/bin/env python3
"""Keys that stand for commands: in the console, in a video's window and over a full picture, and the file that changes
them."""

import os
import unittest

from console_driver import ConsoleTest
from player import clips, long_clips, wait_for

LIST_TITLE = "Keys - "


class Keys(ConsoleTest):
    def up(self, count=2, home=None):
        names = long_clips(count, self.folder)
        player = self.start(*names, home=home or self.home(slide="0", tips="0"))
        player.wait_ready(count)
        self.select_video(player, names[0])
        self.wait_for_movement(player, names)
        return player, names

    def key(self, *names):
        self.display.run("xdotool", "key", *names)

    def sent(self, player, begin, *expected):
        """All of these commands have been sent since."""
        wait_for(lambda: set(expected) <= set(player.commands()[begin:]), 20, f"the commands {expected}")

    def focus_console(self, player):
        self.display.run("wmctrl", "-ia", player.console()[0])
        wait_for(lambda: self.has_focus(player.console()), 20, "the focus for the console")

    def titles(self, player):
        return [title for title, *_ in player.all_windows()]

    def test_a_videos_window_hears_them(self):
        player, names = self.up()
        begin = len(player.commands())
        self.key("p")
        self.sent(player, begin, f'Pause "{names[0]}"')
        begin = len(player.commands())
        self.key("l")
        self.sent(player, begin, f'Play "{names[0]}"')
        begin = len(player.commands())
        self.key("Up")
        self.sent(player, begin, f'setaudio "{names[0]}" Volume to 600')
        self.key("2")
        wait_for(lambda: self.video_has_focus(player, names[1]), 20, "the focus for the second video")
        self.key("ctrl+Tab")
        wait_for(lambda: self.video_has_focus(player, names[0]), 20, "the focus for the first video")

    def test_the_console_hears_them(self):
        player, names = self.up()
        self.focus_console(player)
        begin = len(player.commands())
        self.key("period")
        self.sent(player, begin, f'step "{names[0]}"', f'step "{names[1]}"')
        self.still_numbers(player, names)
        self.key("a")
        self.wait_for_movement(player, names)
        self.key("o")
        menu = wait_for(self.popup, 20, "the menu")
        console = player.console()
        self.assertTrue(console[1] < menu[2] < console[1] + 600 and console[2] < menu[3] + menu[1], (console, menu))
        self.answer("Escape", lambda: not self.popup(), "the end of the menu")

    def test_the_list_of_keys(self):
        player, _ = self.up()
        self.focus_console(player)
        self.key("ctrl+k")
        wait_for(lambda: any(title.startswith(LIST_TITLE) for title in self.titles(player)), 20, "the list")
        self.answer("Escape", lambda: not any(title.startswith(LIST_TITLE) for title in self.titles(player)),
                    "the end of the list")

    def test_full_screen_and_back(self):
        player, names = self.up()
        before = player.place(names[0])
        self.key("F11")
        wait_for(lambda: player.place(names[0]) == (0, 0, 1920, 1080), 20, "full screen")
        begin = len(player.commands())
        self.key("p")
        self.sent(player, begin, f'Pause "{names[0]}"')
        self.key("Escape")
        wait_for(lambda: player.place(names[0]) == before, 20, "the window")

    def test_the_users_file_counts_and_its_nonsense_is_named(self):
        home = self.home(slide="0", tips="0")
        path = os.path.join(home, "keys.ini")
        with open(path, "wb") as file:
            file.write(b"pause = X\nplya = Q\nmute = Fuo\n")
        names = long_clips(1, self.folder)
        player = self.start(*names, home=home)
        player.wait_ready(1)
        wait_for(lambda: len(player.all_windows()) == 3, 20, "the message")
        self.answer("Return", lambda: len(player.all_windows()) == 2, "the end of the message")
        self.select_video(player, names[0])
        begin = len(player.commands())
        self.key("p")
        self.key("x")
        self.sent(player, begin, f'Pause "{names[0]}"')
        self.assertEqual(player.commands()[begin:].count(f'Pause "{names[0]}"'), 1)
        with open(path, "rb") as file:
            self.assertEqual(file.read(), b"pause = X\nplya = Q\nmute = Fuo\n")

    def test_a_start_leaves_a_file_that_can_be_changed(self):
        player, names = self.up(1)
        path = os.path.join(player.home, "keys.ini")
        with open(path, encoding="utf-8") as file:
            lines = file.read().splitlines()
        self.assertIn("# pause = P", lines)
        self.assertEqual(player.end(), 0)
        with open(path, "w", encoding="utf-8") as file:
            file.write("\n".join(lines).replace("# pause = P", "pause = F5"))
        player = self.start(*names, home=player.home)
        player.wait_ready(1)
        self.select_video(player, names[0])
        begin = len(player.commands())
        self.key("F5")
        self.sent(player, begin, f'Pause "{names[0]}"')

    def test_a_home_in_which_nothing_can_be_written(self):
        home = self.home(slide="0", tips="0")
        # In the place of the file even root can't write one.
        os.mkdir(os.path.join(home, "keys.ini"))
        names = clips(1, self.folder)
        player = self.start(*names, home=home)
        player.wait_ready(1)
        wait_for(lambda: len(player.all_windows()) == 3, 20, "the message that it can't be read")
        self.answer("Return", lambda: len(player.all_windows()) == 2, "the end of the message")
        self.select_video(player, names[0])
        begin = len(player.commands())
        self.key("p")
        wait_for(lambda: f'Pause "{names[0]}"' in player.commands()[begin:], 20, "the standard key")


if __name__ == "__main__":
    unittest.main(verbosity=2)
