#!/usr/bin/env python3
"""Still pictures of what the screen shows, saved by the console's button."""

import os
import subprocess
import tempfile
import unittest

from console_driver import ConsoleTest
from player import clips, wait_for

CAMERA = (7695, 2910)


class Pictures(ConsoleTest):
    def folder_of(self, home):
        return os.path.join(home, "Pictures", "Tandrel Player")

    def files(self, home):
        folder = self.folder_of(home)
        return sorted(name for name in os.listdir(folder) if name.endswith(".png")) if os.path.isdir(folder) else []

    def press_camera(self, player, entry):
        """The button, and so many times Down in its menu."""
        console = player.console()
        self.click(console[1] + CAMERA[0] // 15, console[2] + CAMERA[1] // 15)
        wait_for(self.popup, 10, "the menu of the button")
        self.display.run("xdotool", "key", *["Down"] * entry, "Return")

    def size_of(self, path):
        found = subprocess.run(["identify", "-format", "%w %h", path], capture_output=True, text=True, check=True)
        return tuple(int(one) for one in found.stdout.split())

    def test_all_videos_at_one_instant_with_a_contact_sheet(self):
        names = clips(4, self.folder)
        home = self.home(slide="0", tips="0")
        player = self.start(*names, home=home)
        player.wait_ready(4)
        self.press_camera(player, 2)
        wait_for(lambda: len(self.files(home)) == 5, 20, "five files")
        found = self.files(home)
        self.assertEqual(len([name for name in found if name.startswith("Contact sheet ")]), 1, found)
        for name in names:
            title = os.path.splitext(os.path.basename(name))[0]
            own = [one for one in found if one.startswith(title + " 0-00-")]
            self.assertEqual(len(own), 1, found)
            self.assertEqual(self.size_of(os.path.join(self.folder_of(home), own[0])), (320, 240))

    def test_only_the_selected_one(self):
        names = clips(2, self.folder)
        home = self.home(slide="0", tips="0")
        player = self.start(*names, home=home)
        player.wait_ready(2)
        self.select_video(player, names[0])
        self.press_camera(player, 1)
        wait_for(lambda: len(self.files(home)) == 1, 20, "a file")
        self.assertTrue(self.files(home)[0].startswith("clip 00 0-00-"), self.files(home))

    def test_a_folder_that_cannot_be_written_is_told(self):
        names = clips(1, self.folder)
        home = self.home(slide="0", tips="0")
        with open(os.path.join(home, "Pictures"), "w", encoding="ascii") as file:
            file.write("in the way")
        player = self.start(*names, home=home)
        player.wait_ready(1)
        self.select_video(player, names[0])
        before = len(player.all_windows())
        self.press_camera(player, 1)
        wait_for(lambda: len(player.all_windows()) == before + 1, 20, "the message")
        self.answer("Return", lambda: len(player.all_windows()) == before, "the end of the message")

    def test_a_full_disk_is_told_and_keeps_nothing_of_the_picture(self):
        names = clips(1, self.folder)
        home = self.home(slide="0", tips="0")
        # It is there for longer than the folder of the test.
        disk = tempfile.mkdtemp(prefix="tandrel-e2e-disk-")
        self.addCleanup(os.rmdir, disk)
        if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=4k", "none", disk], stderr=subprocess.DEVNULL).returncode:
            self.skipTest("nothing can be mounted here")
        self.addCleanup(subprocess.run, ["umount", disk], check=True)
        with open(os.path.join(disk, "all there is room for"), "wb") as file:
            file.write(bytes(4096))
        os.symlink(disk, os.path.join(home, "Pictures"))
        player = self.start(*names, home=home)
        player.wait_ready(1)
        self.select_video(player, names[0])
        before = len(player.all_windows())
        self.press_camera(player, 1)
        wait_for(lambda: len(player.all_windows()) == before + 1, 20, "the message")
        self.assertEqual(os.listdir(self.folder_of(home)), [])
        self.answer("Return", lambda: len(player.all_windows()) == before, "the end of the message")
        self.assertEqual(player.end(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
