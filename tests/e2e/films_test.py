#!/usr/bin/env python3
"""HD films in the real program: all codings, times, places, full screen, sound and subtitles, and files that are broken."""

import os
import shutil
import unittest

from console_driver import SINGLE
from other_media import FULL, OtherMediaTest, seconds_of
from player import MEDIA, wait_briefly, wait_for

WIDE, SMALL = (1920, 1080), (640, 360)
TIP_BOX = (420, 166)


def film(name):
    return os.path.join(MEDIA, name)


class FilmsTest(OtherMediaTest):
    def open(self, name, **environment):
        """A player with the film on its command line, and the title of its window."""
        path = film(name) if os.path.basename(name) == name else name
        player = self.up(path, **environment)
        title = "HD|" + path
        wait_for(lambda: self.window(player, title), 20, "the window of the film")
        return player, title


class Films(FilmsTest):
    def test_every_coding_is_seen(self):
        for name, size in (("film_h264.mkv", WIDE), ("film_hevc.mkv", WIDE), ("film_vp9.mkv", WIDE),
                           ("film_av1.mkv", WIDE), ("film_10bit.mkv", WIDE), ("film.hdmov", SMALL)):
            with self.subTest(name=name):
                player, title = self.open(name)
                self.wait_for_frame(player, title, size, lambda _: True, name)
                self.wait_for_shown(player, lambda shown: shown[3] > 0, "the length")
                player.end()
                self.players.remove(player)

    def test_the_console_shows_the_time_of_the_picture(self):
        player, title = self.open("film_plain.mkv")
        self.wait_for_movement(player, title, SMALL)
        for _ in range(3):
            self.click_button(player, "imgPause")
            frame = self.still_frame(player, title, SMALL)
            shown = self.shown(player)
            self.assertEqual(shown[1], "00:10")
            self.assertEqual(seconds_of(shown[0]), shown[2])
            # A text that changes with the second may do so 100 ms beside the picture.
            self.assertTrue(any(shown[2] == int(frame / 25 + beside) for beside in (-0.1, 0, 0.1)), (frame, shown))
            self.click_button(player, "imgPlay")
            self.wait_for_movement(player, title, SMALL)

    def test_the_title_is_that_of_the_film_or_of_its_file(self):
        player, _ = self.open("film.hdmov")
        self.wait_for_shown(player, lambda shown: "film in a box" in shown[4], "the title")
        player.end()
        player, _ = self.open("film_plain.mkv")
        self.wait_for_shown(player, lambda shown: "plain.mkv" in shown[4], "the name of the file")

    def test_the_slider_moves_the_film_and_replay_begins_anew(self):
        player, title = self.open("film_long.mkv")
        self.wait_for_movement(player, title, SMALL)
        self.click_button(player, "imgPause")
        self.still_frame(player, title, SMALL)
        self.drag_slider(player, 0.5)
        self.wait_for_frame(player, title, SMALL, lambda number: 140 <= number <= 160, "the middle")
        frame = self.still_frame(player, title, SMALL)
        self.wait_for_shown(player, lambda shown: abs(shown[2] - frame / 5) <= 1, "the place of the picture")
        self.click_button(player, "imgReplay")
        self.wait_for_frame(player, title, SMALL, lambda number: number < 40, "the beginning")
        self.wait_for_movement(player, title, SMALL)

    def test_fast_forward_and_back_are_five_times_as_fast(self):
        player, title = self.open("film_long.mkv")
        self.wait_for_movement(player, title, SMALL)
        self.click_button(player, "imgFwd")
        self.wait_for_frame(player, title, SMALL, lambda number: number > 100, "far more than was played")
        self.click_button(player, "imgRwd")
        self.wait_for_frame(player, title, SMALL, lambda number: number < 60, "further back")
        self.click_button(player, "imgPlay")
        self.wait_for_movement(player, title, SMALL)

    def test_full_screen_by_the_right_button_and_the_ways_out(self):
        player, title = self.open("film_long.mkv")
        self.wait_for_movement(player, title, SMALL)
        before = self.place(player, title)
        for way in ("double click", "Escape"):
            with self.subTest(way=way):
                self.fill(player, title)
                self.wait_for_movement(player, title, SMALL)
                self.assertNotIn("Panel", player.windows())
                if way == "Escape":
                    self.answer("Escape", lambda: not self.is_full(player, title), "the end of full screen")
                else:
                    self.double_click(lambda: not self.is_full(player, title))
                wait_for(lambda: self.place(player, title) == before, 20, "the old place")
                self.wait_for_movement(player, title, SMALL)

    def test_in_full_screen_the_right_button_offers_sound_and_subtitles(self):
        player, title = self.open("film_tracks.mkv")
        wait_for(lambda: self.shown(player)[3] > 0, 20, "the length")
        x, y, width, height = self.place(player, title)
        self.display.run("xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "keydown", "ctrl", "click", "3",
                         "keyup", "ctrl")
        wait_for(self.popup, 20, "the menu in the window")
        self.assertFalse(self.is_full(player, title))
        self.answer("Escape", lambda: not self.popup(), "the end of the menu")
        self.fill(player, title)
        self.ask_for_tracks()
        self.answer("Escape", lambda: not self.popup(), "the end of the menu")
        self.assertTrue(self.is_full(player, title))

    def test_chosen_subtitles_are_seen(self):
        player, title = self.open("film_tracks.mkv", LANG="C.UTF-8", LC_ALL="C.UTF-8", LANGUAGE="")
        wait_for(lambda: self.shown(player)[3] > 0, 20, "the length")
        self.fill(player, title)
        self.assertFalse(self.lower_part_is_lit())
        self.ask_for_tracks()
        # The subtitles, the first of them behind "none".
        self.display.run("xdotool", "key", "u")
        self.display.run("xdotool", "key", "Down")
        self.display.run("xdotool", "key", "Return")
        wait_for(lambda: not self.popup(), 20, "the end of the menu")
        wait_for(self.lower_part_is_lit, 20, "subtitles")

    def ask_for_tracks(self):
        """The right button in full screen; a click right behind the one that led there may still count as that."""
        def tried():
            self.click(900, 500, button=3)
            return wait_briefly(self.popup)

        wait_for(tried, 20, "the menu in full screen")

    def lower_part_is_lit(self):
        """White letters on the black picture, above where the control's own bar comes."""
        whole = self.display.run("import", "-window", "root", "-crop", "1920x240+0+760", "-colorspace", "gray", "-format",
                                 "%[fx:maxima]", "info:").stdout
        return float(whole or 0) > 0.6

    def test_a_film_that_is_hidden_with_the_console_plays_on_when_it_returns(self):
        player, title = self.open("film_long.mkv")
        self.wait_for_movement(player, title, SMALL)
        self.click_button(player, "imgHide")
        wait_for(lambda: not self.window(player, title), 20, "the end of the window")
        self.display.run("xdotool", "windowactivate", self.hidden_console(player))
        wait_for(lambda: self.window(player, title), 20, "the window again")
        self.wait_for_movement(player, title, SMALL)

    def hidden_console(self, player):
        for line in self.display.run("wmctrl", "-lp").stdout.splitlines():
            fields = line.split(None, 4)
            if int(fields[2]) == player.process.pid and fields[4].startswith("Tandrel Player PRO"):
                return fields[0]
        raise AssertionError("the console has no window")

    def test_another_file_takes_the_place_of_the_film(self):
        player, title = self.open("film_long.mkv")
        self.wait_for_movement(player, title, SMALL)
        self.choose(player, SINGLE, film("h264_30.mp4"))
        self.answer_tip(player)
        wait_for(lambda: player.video(film("h264_30.mp4")), 20, "the video")
        self.assertIsNone(self.window(player, title))

    def test_a_film_chosen_in_the_dialog_has_its_window(self):
        player = self.up()
        name = os.path.join(self.folder, "a film.mkv")
        os.symlink(film("film_long.mkv"), name)
        self.choose(player, SINGLE, name)
        self.answer_tip(player)
        self.wait_for_movement(player, "HD|" + name, SMALL)

    def test_names_with_any_byte_play(self):
        name = os.path.join(self.folder, 'a "film" | with \udcff.mkv')
        shutil.copy(film("film_long.mkv"), name)
        player = self.up(name)
        wait_for(lambda: self.shown(player)[3] > 0, 20, "the length")

    def test_closing_the_window_leaves_the_console_alone(self):
        player, title = self.open("film_long.mkv")
        self.wait_for_movement(player, title, SMALL)
        self.display.run("wmctrl", "-ic", self.window(player, title)[0])
        wait_for(lambda: not self.window(player, title), 20, "the end of the window")
        self.wait_for_shown(player, lambda shown: shown[:2] == ["0:00:00", "0:00:00"] or shown[:2] == ("0:00:00", "0:00:00"),
                            "a console at rest")
        self.assertTrue(player.alive())

    def test_exit_while_it_plays_and_in_full_screen(self):
        for full in (False, True):
            player, title = self.open("film_long.mkv")
            self.wait_for_movement(player, title, SMALL)
            if full:
                self.fill(player, title)
            self.assertEqual(player.end(), 0)


class BrokenFilms(FilmsTest):
    def test_a_missing_codec_is_told(self):
        player, _ = self.open("film_unknown_all.mkv")
        wait_for(lambda: self.box(player), 20, "the message")
        self.answer("Return", lambda: not self.box(player), "the end of the message")
        self.assertTrue(player.alive())

    def test_what_is_left_of_a_film_plays(self):
        for name in ("film_truncated.mkv", "film_without_cues.mkv", "film_too_long.mkv", "film_too_short.mkv",
                     "film_10000_chapters.mkv"):
            with self.subTest(name=name):
                player, title = self.open(name)
                self.wait_for_frame(player, title, SMALL, lambda _: True, name)
                player.end()
                self.players.remove(player)

    def test_a_file_that_is_no_film_has_no_length_and_brings_no_message(self):
        empty = os.path.join(self.folder, "empty.mkv")
        open(empty, "wb").close()
        for path in (film("film_nothing_left.mkv"), empty, os.path.join(self.folder, "missing.mkv")):
            with self.subTest(path=path):
                player, title = self.open(path)
                self.wait_for_shown(player, lambda shown: shown[1] == "00:00", "no length")
                self.assertIsNone(self.box(player))
                self.click_button(player, "imgPlay")
                self.click_button(player, "imgFwd")
                self.assertTrue(player.alive())
                player.end()
                self.players.remove(player)


class FilmsWithoutAManager(FilmsTest):
    window_manager = False

    def test_full_screen_and_back(self):
        player, title = self.open("film_long.mkv")
        self.wait_for_movement(player, title, SMALL)
        before = self.place(player, title)
        self.fill(player, title)
        self.wait_for_movement(player, title, SMALL)
        self.double_click(lambda: self.place(player, title) == before)
        self.wait_for_movement(player, title, SMALL)


if __name__ == "__main__":
    unittest.main()
