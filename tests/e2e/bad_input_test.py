#!/usr/bin/env python3
"""Files that are no videos, names with any byte in them, broken data files: told or shown, never a crash or a hang."""

import os
import shutil
import unittest

from player import MEDIA, PlayerTest, clips, wait_for

MESSAGE_KEY = "Return"


def bytes_of(window_file):
    with open(window_file, "rb") as file:
        return file.read()


class BadInput(PlayerTest):
    def good(self, name):
        """A playable file of this name, bytes as they stand."""
        path = os.path.join(os.fsencode(self.folder), name if isinstance(name, bytes) else os.fsencode(name))
        shutil.copy(os.fsencode(os.path.join(MEDIA, "short.mp4")), path)
        return path

    def results(self, player, verb):
        return [int(row[1]) for row in player.trace() if row[0].startswith(verb)]

    def console_is_up(self, player):
        """The console itself, not a box of the same title."""
        console = player.console()
        return console is not None and console[3:] == (900, 212)

    def refuses(self, path):
        """A start with one unplayable file: the message, then an empty window that stays."""
        player = self.start(path)
        wait_for(lambda: self.results(player, "Open "), 20, f"the open of {path}")
        self.assertNotEqual(self.results(player, "Open "), [0], path)
        wait_for(lambda: any(title.startswith("Tandrel Player PRO") for title in player.windows()), 20, "the message")
        self.answer(MESSAGE_KEY, lambda: self.console_is_up(player) and player.video(path),
                    f"the console, and the empty window of {path}")
        self.assert_place(player, path, (27, 27, 788, 425))
        wait_for(lambda: len(player.trace()) >= 2, 20, "the commands of the open")
        after = [row[0] for row in player.trace()]
        self.assertEqual([one.split(" ")[0] for one in after], ["Open", "Pause"], "it is sent nothing further")
        self.assertEqual(player.end(), 0)

    def test_a_missing_file(self):
        self.refuses(os.path.join(self.folder, "nowhere.avi"))

    def test_a_text_file(self):
        self.refuses(os.path.join(MEDIA, "text.avi"))

    def test_a_directory(self):
        self.refuses(self.folder)

    def test_a_cut_file_without_index(self):
        self.refuses(os.path.join(MEDIA, "cut_without_index.mp4"))

    def test_a_mixed_group_plays_what_can_be_played(self):
        bad = ["empty.avi", "text.avi", "list.m3u8", "plain.m3u"]
        good = ["h264_30.mp4", "cut_with_index.mp4", "picture.png", "sound.mp3", "video.avi"]
        paths = [os.path.join(MEDIA, name) for name in bad + good]
        player = self.start(*paths, home=self.home(slide="0"))
        player.wait_ready(len(good))
        wait_for(lambda: len(self.results(player, "Open ")) == len(paths), 20, "all to be tried")
        self.assertEqual([result == 0 for result in self.results(player, "Open ")], [False] * 4 + [True] * 5)
        wait_for(lambda: len([title for title in player.windows() if title.startswith("§")]) == len(good), 20,
                 "the windows of the good ones alone")
        self.assert_place(player, paths[4], (0, 0, 640, 540), "five stand in a grid for six")
        self.assertTrue(player.alive())

    def test_names_with_any_byte(self):
        names = ["with blanks  two.mp4", 'quo"te.mp4', "b|ar.mp4", "per%20cent%s.mp4", "line\nend\r.mp4", "-dash.mp4",
                 b"latin-\xe9\xff.mp4", "x" * 251 + ".mp4", "ümläut €.mp4", "semi;colon&amp.mp4", "tab\there.mp4"]
        paths = [self.good(name) for name in names]
        player = self.start(*paths, home=self.home(slide="0"))
        wait_for(lambda: sum(title.startswith("§") for title in player.windows()) >= 8, 30, "the windows")
        wait_for(lambda: len(self.results(player, "Open ")) >= len(paths), 30, "all to be opened")
        opened = [row for row in player.trace() if row[0].startswith("Open ")]
        self.assertEqual(len(opened), len(paths))
        self.assertEqual([row[-2] for row in opened], ["0"] * len(paths))
        self.assertTrue(player.alive())

    def test_a_leading_dash_is_a_relative_name(self):
        self.good("-v.mp4")
        os.chdir(self.folder)
        player = self.start("-v.mp4")
        player.wait_ready(1)
        self.assertEqual(self.results(player, "Open "), [0])

    def test_broken_data_files_do_no_harm(self):
        broken = [b"", b"\x00\xff\xfe\x80garbage", b"no line end", b"x\r\n" * 10000]
        for index, content in enumerate(broken):
            home = self.home(f"home{index}", slide="0")
            for name in ("list.dat", "pres.dat", "ext.dat"):
                with open(os.path.join(home, name), "wb") as file:
                    file.write(content)
            player = self.start(home=home)
            if content == b"":
                self.answer("alt+n", lambda p=player: self.console_is_up(p), "the question that an empty answer file brings")
            player.wait_ready()
            wait_for(lambda h=home: not os.path.exists(os.path.join(h, "list.dat")), 20, "the list to be taken")
            self.assertEqual(bytes_of(os.path.join(home, "pres.dat")), content, "the mark of another owner stays")
            self.assertEqual(player.end(), 0)

    def test_a_lost_display_is_no_crash(self):
        files = clips(12, self.folder)
        player = self.start(*files, home=self.home(tips="0"))
        player.wait_ready(12)
        self.display.end_server()
        wait_for(lambda: not player.alive(), 20, "the end of the program")
        self.assertEqual(player.process.returncode, 1)


if __name__ == "__main__":
    unittest.main()
