#!/usr/bin/env python3
"""The settings for picture and sound over a running video: a window of another program, taken in and given back."""

import os
import shutil
import signal
import stat
import subprocess
import unittest

from console_driver import PICTURE_LEFT, PICTURE_TOP, ConsoleTest, Screen, films
from player import BIN, wait_briefly, wait_for

FORM, OWN = "Video Settings", "Tandrel Player - Video settings"
# Pixels inside the form: far to the right on the first slider, and the button below; the form's own are at its lower right.
BRIGHTER, APPLY = (470, 64), (560, 403)
TRY, EXIT = (-240, -28), (-64, -28)


class Codec(ConsoleTest):
    def up(self, slide="0", **environment):
        names = films(2, self.folder)
        player = self.start(*names, home=self.home(slide=slide, tips="0"), **environment)
        player.wait_ready(2)
        self.select(player, names[0])
        return player, names

    def select(self, player, name):
        self.select_video(player, name, 1 / 3)

    def form(self, player):
        return player.windows().get(FORM)

    def settings_process(self, player):
        """The id of the settings program that the player has started, or None."""
        found = subprocess.run(["pgrep", "-f", "tandrel-codec-settings configure"], capture_output=True, text=True).stdout.split()
        return next((int(one) for one in found if self.home_of(one) == player.home), None)

    def home_of(self, process):
        try:
            with open(f"/proc/{process}/environ", "rb") as file:
                return dict(one.partition(b"=")[::2] for one in file.read().split(b"\0")).get(b"TANDREL_HOME", b"").decode()
        except OSError:
            return None

    def open_settings(self, player):
        def opened():
            if not self.form(player):
                self.click_button(player, "imgVideo")
            return wait_briefly(lambda: self.form(player), 3)

        wait_for(opened, 20, "the form of the settings")
        return wait_for(lambda: self.settings_process(player), 20, "the settings program")

    def click_in_form(self, player, place):
        _, left, top, width, height = self.form(player)
        x, y = place
        self.click(left + (x if x >= 0 else width + x), top + (y if y >= 0 else height + y))

    def brightness(self, player):
        path = os.path.join(player.home, "codec.ini")
        if not os.path.exists(path):
            return None
        with open(path, encoding="utf-8") as file:
            lines = dict(line.strip().partition("=")[::2] for line in file)
        return next((int(value) for key, value in lines.items() if key.strip().lower() == "brightness"), None)

    def darkest(self, player, name):
        """The darkest green among pixels of the picture's black blocks and of its ground."""
        x, y, width, height = player.place(name)
        screen = Screen(self)
        row = y + PICTURE_TOP + height // 12
        return min(screen.green(x + PICTURE_LEFT + step * width // 64, row) for step in range(2, 60))

    def own_windows(self):
        return self.display.run("wmctrl", "-l").stdout

    def exit(self, player):
        def gone():
            if self.form(player):
                self.click_in_form(player, EXIT)
            return wait_briefly(lambda: not self.form(player), 2)

        wait_for(gone, 20, "the end of the form")

    def end_settings(self, process):
        self.addCleanup(lambda: os.path.exists(f"/proc/{process}") and os.kill(process, signal.SIGKILL))

    def test_changes_are_seen_at_the_videos_place_and_the_window_is_given_back(self):
        player, names = self.up()
        alias = f'"{names[0]}"'
        process = self.open_settings(player)
        self.end_settings(process)
        self.assertNotIn(OWN, self.own_windows(), "it stands in the form")
        self.assertLess(self.darkest(player, names[0]), 20)

        def applied():
            self.click_in_form(player, BRIGHTER)
            self.click_in_form(player, APPLY)
            # Clicks that come together would be a double click, which sets the slider back.
            return wait_briefly(lambda: (self.brightness(player) or 0) > 20)

        wait_for(applied, 20, "a brighter picture in the settings")
        begin = len(player.commands())
        self.click_in_form(player, TRY)
        wait_for(lambda: any(one.startswith(f"put {alias}") for one in player.commands()[begin:]), 20, "the reopening")
        rows = [row for row in player.trace()[begin:] if alias in row[0]]
        sent = [row[0] for row in rows]
        close = sent.index(f"Close {alias}")
        self.assertTrue(sent[close + 1].startswith(f"Open {alias} Type MPEGVideo"), sent)
        # Ticks may have asked before.
        place = [row[2] for row in rows[:close] if row[0] == f"status {alias} position"][-1]
        self.assertIn(f"seek {alias} to {place}", sent[close:])
        wait_for(lambda: self.darkest(player, names[0]) > 30, 20, "the brighter picture")
        self.assertLess(self.darkest(player, names[1]), 20, "the other one is as it was")
        self.exit(player)
        wait_for(lambda: OWN in self.own_windows(), 20, "the settings as a window of their own")
        self.assertEqual(self.settings_process(player), process)
        self.wait_for_movement(player, names[1:])

    def test_settings_that_crash_or_hang_hold_nobody_up(self):
        player, names = self.up()
        self.stopped = False
        for ending in (signal.SIGKILL, signal.SIGSTOP, signal.SIGKILL):
            process = self.open_settings(player)
            self.end_settings(process)
            stopped = ending == signal.SIGKILL and self.stopped
            self.assertEqual(self.own_windows().count(OWN), 1 if stopped else 0, "the new one stands in the form")
            self.stopped = ending == signal.SIGSTOP
            os.kill(process, ending)
            begin = len(player.commands())
            self.click_in_form(player, TRY)
            wait_for(lambda: any(one.startswith("Open ") for one in player.commands()[begin:]), 20, "the reopening")
            self.exit(player)
            self.wait_for_movement(player, names)
        self.assertTrue(player.alive())

    def test_a_player_that_ends_or_is_killed_leaves_the_window_to_the_desktop(self):
        for ending in (signal.SIGTERM, signal.SIGKILL):
            player, _ = self.up()
            process = self.open_settings(player)
            self.end_settings(process)
            player.process.send_signal(ending)
            player.process.wait(10)
            wait_for(lambda: OWN in self.own_windows(), 20, f"the window behind signal {ending}")
            os.kill(process, signal.SIGTERM)
            wait_for(lambda: OWN not in self.own_windows(), 20, "its end")

    def test_a_codec_in_a_told_place_is_used(self):
        programs = os.path.join(self.folder, "Program Files")
        module = os.path.join(programs, "K-Lite Codec Pack", "ffdshow", "ffdshow.ax")
        os.makedirs(os.path.dirname(module))
        note = os.path.join(self.folder, "entry")
        own = os.path.join(os.path.dirname(BIN), "lib", "tandrel-player", "tandrel-codec-settings")
        with open(module, "w", encoding="utf-8") as file:
            file.write(f'#!/bin/sh\necho "$1 $$" > "{note}"\nexec "{own}" "$1"\n')
        os.chmod(module, stat.S_IRWXU)
        player, _ = self.up(ProgramFiles=programs)
        process = self.open_settings(player)
        self.end_settings(process)
        with open(note, encoding="utf-8") as file:
            self.assertEqual(file.read().split(), ["configure", str(process)])
        self.exit(player)
        # Without quotes the line ends at the blank: nothing starts, and nothing is said.
        bare = os.path.join(programs, "ffdshow", "ffdshow.ax")
        os.makedirs(os.path.dirname(bare))
        shutil.copy(module, bare)
        os.remove(note)
        self.click_button(player, "imgVideo")
        wait_for(lambda: self.form(player), 20, "an empty form")
        self.assertFalse(os.path.exists(note))
        self.exit(player)

    def test_without_any_codec_a_message_says_so(self):
        alone = os.path.join(self.folder, "alone", "bin")
        os.makedirs(alone)
        program = shutil.copy2(os.path.join(BIN, "tandrel-player"), alone)
        player, names = self.up(program=program)
        windows = len(player.all_windows())
        self.click_button(player, "imgAudio")
        wait_for(lambda: len(player.all_windows()) > windows, 20, "the message")
        self.answer("Return", lambda: len(player.all_windows()) == windows, "the end of the message")
        self.wait_for_movement(player, names)


if __name__ == "__main__":
    unittest.main()
