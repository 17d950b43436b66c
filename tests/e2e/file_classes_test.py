#!/usr/bin/env python3
"""The player as the desktop knows it: what starts leave for it, and what the desktop's own programs make of that."""

import os
import subprocess
import unittest

from player import BIN, PlayerTest, clips, wait_for

ENTRIES = ("tandrel-player.desktop", "tandrel-player-disc.desktop")
TYPES = {"a.avi": "video/x-msvideo", "a.DivX": "video/x-msvideo", "a.xvid": "video/x-msvideo", "a.mp4": "video/mp4",
         "a.mkv": "video/x-matroska", "a.webm": "video/webm", "a.MPG": "video/mpeg", "a.mpeg": "video/mpeg",
         "a.wmv": "video/x-ms-wmv", "a.asf": "application/vnd.ms-asf", "a.mov": "video/quicktime", "a.flv": "video/x-flv",
         "a.3gp": "video/3gpp", "a.ogm": "video/x-ogm+ogg"}


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def stamps(folder):
    found = {}
    for where, _, names in os.walk(folder):
        for name in names:
            facts = os.lstat(os.path.join(where, name))
            found[os.path.join(where, name)] = (facts.st_ino, facts.st_mtime_ns)
    return found


class FileClasses(PlayerTest):
    def unasked_home(self):
        home = self.home()
        os.remove(os.path.join(home, "ext.dat"))
        return home

    def answered(self, key, home):
        """A start whose question gets this answer; it goes on behind it."""
        player = self.start(home=home)
        wait_for(lambda: any("PRO" in title for title in player.windows()), 20, "the question")
        self.answer(key, lambda: os.path.exists(home + "/ext.dat") and read(home + "/ext.dat") != "0\n", "the answer")
        wait_for(lambda: os.path.exists(home + "/config/mimeapps.list"), 20, "the associations")
        wait_for(lambda: os.path.exists(home + "/share/applications/mimeinfo.cache"), 20, "the desktop's own programs")
        return player

    def desktop(self, home, *command):
        """What a program of the desktop says that looks into these folders, and no others of a user."""
        environment = dict(self.display.environment, XDG_DATA_HOME=home + "/share", XDG_CONFIG_HOME=home + "/config",
                           XDG_CURRENT_DESKTOP="none", HOME=self.folder)
        done = subprocess.run(command, env=environment, capture_output=True, text=True, timeout=120)
        self.assertEqual(done.returncode, 0, f"{command}: {done.stdout}{done.stderr}")
        return done.stdout

    def test_yes_makes_the_player_the_first_choice(self):
        home = self.unasked_home()
        player = self.answered("alt+y", home)
        for entry in ENTRIES:
            # It says nothing, hints included, where nothing is wrong.
            self.assertEqual(self.desktop(home, "desktop-file-validate", f"{home}/share/applications/{entry}"), "")
        self.assertIn(f"\nExec={BIN}/tandrel-open %F\n", read(f"{home}/share/applications/{ENTRIES[0]}"))
        for name, kind in TYPES.items():
            path = os.path.join(self.folder, name)
            with open(path, "w", encoding="ascii") as file:
                file.write("The name alone tells.")
            said = self.desktop(home, "gio", "info", "-a", "standard::fast-content-type", path)
            self.assertIn(f"standard::fast-content-type: {kind}\n", said)
            self.assertEqual(self.desktop(home, "xdg-mime", "query", "default", kind).strip(), ENTRIES[0])
            self.assertIn(f"“{kind}”: {ENTRIES[0]}", self.desktop(home, "gio", "mime", kind))
        self.assertIn(ENTRIES[1], self.desktop(home, "gio", "mime", "x-content/video-dvd"))
        icon = read(home + "/share/icons/hicolor/scalable/apps/tandrel-player.svg")
        self.assertIn("<svg", icon)
        player.end()

    def test_no_makes_it_known_and_nothing_else(self):
        home = self.unasked_home()
        self.answered("alt+n", home)
        said = self.desktop(home, "gio", "mime", "video/mp4")
        self.assertIn(ENTRIES[0], said)
        self.assertNotIn("Default Applications", read(home + "/config/mimeapps.list"))

    def test_a_second_start_touches_nothing(self):
        home = self.unasked_home()
        self.answered("alt+y", home).end()
        before = {folder: stamps(home + folder) for folder in ("/share", "/config")}
        again = self.start(home=home)
        again.wait_ready()
        wait_for(lambda: os.path.exists(home + "/pres.dat"), 20, "the mark of the owner")
        self.assertEqual({folder: stamps(home + folder) for folder in ("/share", "/config")}, before)

    def test_a_start_with_a_file_leaves_nothing(self):
        home = self.home()
        with open(home + "/ext.dat", "w", encoding="ascii") as answer:
            answer.write("2\r\n")
        player = self.start(*clips(1, self.folder), home=home)
        player.wait_ready(1)
        self.assertFalse(os.path.exists(home + "/share") or os.path.exists(home + "/config"))


if __name__ == "__main__":
    unittest.main()
