#!/usr/bin/env python3
"""Discs in the real program, on the control of newer systems and on that of older ones: menus, chapters, places, full
screen, drives, and discs that can't be played."""

import os
import shutil
import unittest

from console_driver import Screen
from other_media import DISC, OtherMediaTest, seconds_of
from player import wait_briefly, wait_for

IMAGE = os.path.join(DISC, "disc.iso")
FOLDER = os.path.join(DISC, "disc")
LABEL = "TANDREL_TEST"
OLDER = {"TANDREL_SYSTEM": "2.5.1"}
SIZE = (4, 3)
MENU, SECOND, RATE = 4000, 2000, 25
# The middle of the buttons in the menu's picture of 720 by 576.
BUTTONS = ((220, 360), (500, 360))


def in_menu(number):
    return MENU <= number < MENU + 100


def in_first(number):
    return number < 1500


def in_second(number):
    return SECOND <= number < SECOND + 500


class DiscsTest(OtherMediaTest):
    """Each test runs on the control of newer systems; `older` makes it the other one."""
    older = False

    @property
    def title(self):
        return "DVD" if self.older else LABEL

    def open(self, *arguments, discs=IMAGE):
        environment = dict(OLDER if self.older else {}, TANDREL_DISCS=discs)
        player = self.up(*(arguments or ("DVD",)), **environment)
        wait_for(lambda: self.window(player, self.title), 20, "the window of the disc")
        return player

    def see(self, player, wanted, what):
        return self.wait_for_frame(player, self.title, SIZE, wanted, what)

    def press_menu_button(self, player, number):
        left, top, width, height = self.picture(player, self.title, SIZE)
        x, y = BUTTONS[number - 1]
        self.display.run("xdotool", "mousemove", str(left + x * width // 720), str(top + y * height // 576 - 5))
        self.display.run("xdotool", "mousemove_relative", "0", "5")
        self.click(left + x * width // 720, top + y * height // 576)

    def key(self, *names):
        self.display.run("xdotool", "key", *names)

    def answer_message(self, player):
        wait_for(lambda: self.box(player), 20, "the message")
        self.answer("Return", lambda: not self.box(player), "the end of the message")

    def focus(self, player):
        window = self.window(player, self.title)
        self.display.run("xdotool", "windowactivate", "--sync", window[0])

    def play_title(self, player, number):
        self.see(player, in_menu, "the menu")

        def tried():
            self.press_menu_button(player, number)
            try:
                wanted = in_first if number == 1 else in_second
                return wait_for(lambda: (lambda seen: seen is not None and wanted(seen))(
                    self.frame(player, self.title, SIZE)), 3, "the title")
            except Exception:  # noqa: BLE001
                return False

        wait_for(tried, 20, f"title {number}")


class Discs(DiscsTest):
    def test_the_menu_comes_up_and_its_buttons_are_clicked(self):
        player = self.open()
        self.see(player, in_menu, "the menu")
        if not self.older:
            self.wait_for_shown(player, lambda shown: "NDREL_TEST" in shown[4], "the name of the disc")
        self.play_title(player, 2)

    def test_the_menu_is_worked_by_keys(self):
        player = self.open()
        self.see(player, in_menu, "the menu")
        self.focus(player)
        self.key("Right")

        def started():
            self.key("Return")
            return wait_briefly(lambda: (self.frame(player, self.title, SIZE) or 0) // SECOND == 1, 3)

        wait_for(started, 20, "title 2")

    def test_the_console_shows_the_time_of_the_picture(self):
        player = self.open()
        self.play_title(player, 1)
        for _ in range(3):
            self.click_button(player, "imgPause")
            frame = self.still_frame(player, self.title, SIZE)
            shown = self.shown(player)
            self.assertEqual(seconds_of(shown[1]), 60)
            self.assertEqual(seconds_of(shown[0]), shown[2])
            self.assertTrue(any(shown[2] == int(frame / RATE + beside) for beside in (-0.15, 0, 0.15)), (frame, shown))
            self.click_button(player, "imgPlay")
            self.wait_for_movement(player, self.title, SIZE)

    def test_the_slider_moves_the_film(self):
        player = self.open()
        self.play_title(player, 1)
        self.drag_slider(player, 0.5)
        self.see(player, lambda number: 700 <= number <= 900, "the middle")

    def test_to_the_menu_and_back(self):
        player = self.open()
        self.play_title(player, 1)
        self.drag_slider(player, 0.5)
        self.see(player, lambda number: 700 <= number <= 900, "the middle")
        self.click_button(player, "imgReplay")
        self.see(player, in_menu, "the menu")
        if not self.older:
            self.click_button(player, "imgPlay")
            self.see(player, lambda number: 650 <= number <= 1100, "the place before the menu")

    def test_full_screen_and_back(self):
        player = self.open()
        self.play_title(player, 1)
        before = self.place(player, self.title)
        self.fill(player, self.title)
        if self.older:
            wait_for(lambda: "Panel" in player.windows(), 20, "the panel")
            wait_for(lambda: "Panel" not in player.windows(), 20, "the end of the panel")
        self.wait_for_movement(player, self.title, SIZE)
        self.assertNotIn("Panel", player.windows())
        self.double_click(lambda: not self.is_full(player, self.title))
        wait_for(lambda: self.place(player, self.title)[:2] == before[:2], 20, "the old place")
        self.wait_for_movement(player, self.title, SIZE)

    def test_the_menu_works_in_full_screen(self):
        player = self.open()
        self.see(player, in_menu, "the menu")
        self.fill(player, self.title)
        if self.older:
            wait_for(lambda: "Panel" not in player.windows(), 20, "the end of the panel")
        self.play_title(player, 2)

    def test_hidden_with_the_console_it_plays_on_when_that_returns(self):
        player = self.open()
        self.play_title(player, 1)
        self.click_button(player, "imgHide")
        wait_for(lambda: not self.window(player, self.title), 20, "the end of the window")
        for line in self.display.run("wmctrl", "-lp").stdout.splitlines():
            if "Tandrel Player PRO" in line:
                self.display.run("xdotool", "windowactivate", line.split()[0])
        wait_for(lambda: self.window(player, self.title), 20, "the window again")
        self.wait_for_movement(player, self.title, SIZE)

    def test_a_folder_and_an_image_given_as_paths_and_dropped(self):
        player = self.up(os.path.join(FOLDER, "VIDEO_TS"), **(OLDER if self.older else {}))
        title = "DVD" if self.older else os.path.basename(FOLDER)
        self.wait_for_frame(player, title, SIZE, in_menu, "the menu of the folder")
        self.drop(self.console(player), IMAGE)
        self.see(player, in_menu, "the menu of the image")

    def test_exit_while_it_plays(self):
        player = self.open()
        self.play_title(player, 1)
        self.assertEqual(player.end(), 0)

    def test_the_disc_gives_way_to_a_film(self):
        player = self.open()
        self.see(player, in_menu, "the menu")
        self.display.run("wmctrl", "-ic", self.window(player, self.title)[0])
        wait_for(lambda: not self.window(player, self.title), 20, "the end of the window")
        self.assertTrue(player.alive())


class DiscsOnOlderSystems(Discs):
    older = True

    def test_chapters(self):
        player = self.open()
        self.play_title(player, 1)
        self.click_button(player, "imgFwd")
        self.see(player, lambda number: 375 <= number < 500, "chapter 2")
        self.click_button(player, "imgFwd")
        self.see(player, lambda number: 750 <= number < 900, "chapter 3")
        self.click_button(player, "imgRwd")
        self.see(player, lambda number: 375 <= number < 500, "chapter 2 again")

    def choose_over_picture(self, steps):
        """So many steps down in the menu that a right click brings up over the full picture."""
        def opened():
            self.click(960, 500, button=3)
            return wait_briefly(self.popup, 3)

        wait_for(opened, 20, "the menu over the picture")
        self.key(*["Down"] * steps, "Return")
        wait_for(lambda: not self.popup(), 20, "the end of the menu")

    def test_the_menu_over_the_full_picture(self):
        player = self.open()
        self.play_title(player, 1)
        self.fill(player, self.title)
        wait_for(lambda: "Panel" not in player.windows(), 20, "the end of the panel")
        self.choose_over_picture(5)
        width = round(960 * SIZE[0] / SIZE[1])
        flat = ((1920 - width) // 2, 60, width, 960)
        wait_for(lambda: (Screen(self).frame_number(*flat) or 0) > 0, 20, "the picture in the ultra flat format")
        self.choose_over_picture(2)
        self.wait_for_movement(player, self.title, SIZE)
        self.choose_over_picture(6)
        self.see(player, in_menu, "the menu of the disc")
        self.choose_over_picture(1)
        wait_for(lambda: not self.is_full(player, self.title), 20, "the way out of full screen")


class DiscsOnNewerSystems(DiscsTest):
    def test_fast_forward_and_back(self):
        player = self.open()
        self.play_title(player, 1)
        self.click_button(player, "imgFwd")
        self.see(player, lambda number: 400 < number < 1500, "far more than was played")
        self.click_button(player, "imgRwd")
        self.see(player, lambda number: number < 350, "further back")
        self.click_button(player, "imgPlay")
        self.wait_for_movement(player, self.title, SIZE)



class Drives(DiscsTest):
    def test_without_a_drive_a_message_says_so(self):
        player = self.start("DVD", TANDREL_DISCS="")
        self.answer_message(player)
        wait_for(lambda: self.console(player), 20, "the console")
        self.assertIsNone(self.window(player, "DVD"))
        self.assertTrue(player.alive())

    def test_of_several_drives_one_is_chosen(self):
        other = os.path.join(self.folder, "other.iso")
        os.symlink(IMAGE, other)
        player = self.start("DVD", TANDREL_DISCS=f"{self.folder}/missing.iso:{other}:{FOLDER}",
                            TANDREL_REPORT=os.path.join(self.folder, "report"))
        dialog = wait_for(lambda: self.box(player), 20, "the dialog")
        self.shot_of_dialog(dialog)
        self.key("Down")
        self.key("Down")
        self.answer("Return", lambda: self.window(player, LABEL), "the disc of the second drive")
        self.report = os.path.join(self.folder, "report")
        self.see(player, in_menu, "the menu")

    def shot_of_dialog(self, dialog):
        """It stands on the screen, large enough to read."""
        self.assertGreater(dialog[3], 200)
        self.assertGreater(dialog[4], 100)

    def test_a_cancel_leaves_no_window(self):
        player = self.start("DVD", TANDREL_DISCS=f"{IMAGE}:{FOLDER}")
        wait_for(lambda: self.box(player), 20, "the dialog")
        self.answer("Escape", lambda: not self.box(player), "the end of the dialog")
        wait_for(lambda: self.console(player), 20, "the console")
        self.assertIsNone(self.window(player, LABEL))

    def test_an_empty_drive_asks_for_a_disc(self):
        empty = os.path.join(self.folder, "empty.iso")
        open(empty, "wb").close()
        for older in (False, True):
            with self.subTest(older=older):
                self.older = older
                player = self.start("DVD", TANDREL_DISCS=empty, **(OLDER if older else {}))
                self.answer_message(player)
                wait_for(lambda: self.console(player), 20, "the console")
                self.assertTrue(player.alive())
                player.end()
                self.players.remove(player)


class BrokenDiscs(DiscsTest):
    def copy(self, name, change):
        path = os.path.join(self.folder, name)
        shutil.copy(IMAGE, path)
        with open(path, "r+b") as image:
            change(image, os.path.getsize(path))
        return path

    def test_an_encrypted_disc_says_so(self):
        def scramble(image, size):
            for sector in range(0, size, 2048):
                image.seek(sector)
                head = image.read(21)
                if head[:4] == b"\0\0\x01\xba" and head[14:17] == b"\0\0\x01" and head[17] in (0xE0, 0xBD):
                    image.seek(sector + 20)
                    image.write(bytes([head[20] | 0x10]))

        path = self.copy("scrambled.iso", scramble)
        for older in (False, True):
            with self.subTest(older=older):
                player = self.start(path, TANDREL_DISCS="", **(OLDER if older else {}))
                self.answer_message(player)
                self.assertTrue(player.alive())
                player.end()
                self.players.remove(player)

    def test_discs_that_are_cut_off_harm_nobody(self):
        size = os.path.getsize(IMAGE)
        for tenth in (0, 1, 3, 5, 7, 9):
            with self.subTest(tenth=tenth):
                path = self.copy(f"cut{tenth}.iso", lambda image, _: image.truncate(size * tenth // 10))
                player = self.start(path, TANDREL_DISCS="")
                if tenth == 0:
                    self.answer_message(player)
                wait_for(lambda: self.console(player), 20, "the console")
                for button in ("imgPlay", "imgFwd", "imgRwd", "imgReplay", "imgPause"):
                    self.click_button(player, button)
                self.assertTrue(player.alive())
                self.assertEqual(player.end(), 0)
                self.players.remove(player)

    def test_a_folder_without_tables_and_a_file_that_is_no_disc(self):
        folder = os.path.join(self.folder, "VIDEO_TS")
        os.makedirs(folder)
        text = os.path.join(self.folder, "text.iso")
        with open(text, "w", encoding="ascii") as file:
            file.write("no disc\n" * 5000)
        for path in (folder, text):
            with self.subTest(path=path):
                player = self.up(path, TANDREL_DISCS="")
                self.wait_for_shown(player, lambda shown: shown[1] in ("00:00", "0:00:00"), "no length")
                self.assertTrue(player.alive())
                self.assertEqual(player.end(), 0)
                self.players.remove(player)


if __name__ == "__main__":
    unittest.main()
