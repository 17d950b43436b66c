#!/usr/bin/env python3
"""The dialog of recent files as a user meets it, with lists of all kinds behind it."""

import os
import unittest

from console_driver import ConsoleTest, films
from player import wait_briefly, wait_for

TITLE = "Tandrel Player - Open Multimedia ..."
SIZE = (619, 469)
# Pixels inside the dialog: the first row of the list, and how far each is from the next.
ROW, PITCH, CLEAR = (200, 213), 42, (390, 438)


class Recent(ConsoleTest):
    def remember(self, *lines):
        home = self.home(slide="0", tips="0")
        with open(os.path.join(home, "last.dat"), "wb") as file:
            file.write(b"".join(os.fsencode(line) + b"\r\n" for line in lines))
        return home

    def kept(self, home):
        path = os.path.join(home, "last.dat")
        if not os.path.exists(path):
            return None
        with open(path, "rb") as file:
            return [os.fsdecode(line) for line in file.read().split(b"\r\n") if line]

    def dialog(self, player):
        return next((window for title, *window in player.all_windows() if title == TITLE), None)

    def up(self, home):
        player = self.start(home=home)
        player.wait_ready()
        # A start without a file shows the program's name for about five seconds.
        wait_for(lambda: len(player.all_windows()) == 1, 20, "the end of the splash")
        self.open_recent(player)
        return player

    def open_recent(self, player):
        self.open_menu(player, "imgOpen")
        self.choose_entry("r", lambda: self.dialog(player), "the dialog of recent files")

    def row(self, player, index):
        _, x, y, width, height = self.dialog(player)
        self.assertEqual((width, height), SIZE)
        return str(x + ROW[0]), str(y + ROW[1] + PITCH * index)

    def test_a_double_click_opens_a_file(self):
        names = films(3, self.folder)
        player = self.up(self.remember(*names))
        self.display.run("xdotool", "mousemove", *self.row(player, 1), "click", "--repeat", "2", "--delay", "90", "1")
        self.answer_tip(player)
        wait_for(lambda: player.video(names[1]), 20, "the second film")
        self.assertIsNone(self.dialog(player))
        self.wait_for_movement(player, names[1:2])

    def test_several_are_opened_as_a_group(self):
        names = films(3, self.folder)
        home = self.remember(*names)
        player = self.up(home)
        self.display.run("xdotool", "mousemove", *self.row(player, 0), "click", "1", "keydown", "ctrl",
                         "mousemove", *self.row(player, 2), "click", "1", "keyup", "ctrl")
        self.answer("Return", lambda: self.tip(player), "the tip of the first open")
        self.answer_tip(player)
        wait_for(lambda: player.video(names[0]) and player.video(names[2]), 20, "both films")
        self.assertIsNone(player.video(names[1]))
        self.assertEqual(self.kept(home), names, "what is opened from the list does not change it")

    def test_the_list_is_cleared_when_asked_for(self):
        home = self.remember(*films(2, self.folder))
        player = self.up(home)
        _, x, y, _, _ = self.dialog(player)
        windows = len(player.all_windows())
        self.click(x + CLEAR[0], y + CLEAR[1])
        wait_for(lambda: len(player.all_windows()) > windows, 20, "the question")
        self.answer("y", lambda: self.kept(home) is None, "the end of the list")
        wait_for(lambda: len(player.all_windows()) == windows, 20, "the end of the question")
        self.assertTrue(self.dialog(player))

    def test_a_list_of_what_is_no_file_does_no_harm(self):
        names = films(1, self.folder)
        pipe = os.path.join(self.folder, "pipe.avi")
        os.mkfifo(pipe)
        many = [os.path.join(self.folder, f"gone {number}") for number in range(10000)]
        garbage = [self.folder, "/dev/zero", "/dev/tty", pipe, "\udcff\udcfe", "x" * 5000]
        player = self.up(self.remember(*garbage, *many, *names))
        place = self.row(player, 0)

        def opened():
            # Behind so many lines the file may turn up a little later than the dialog. A double click that it comes in
            # the middle of chooses nothing, and ends the dialog as any other does.
            if not self.dialog(player):
                self.open_recent(player)
            self.display.run("xdotool", "mousemove", *place, "click", "--repeat", "2", "--delay", "90", "1")
            return wait_briefly(lambda: self.tip(player), 10)

        wait_for(opened, 20, "the tip of the first open")
        self.answer_tip(player)
        wait_for(lambda: player.video(names[0]), 20, "the only file among them")
        self.assertTrue(player.alive())


if __name__ == "__main__":
    unittest.main()
