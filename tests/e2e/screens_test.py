#!/usr/bin/env python3
"""A small screen and a large one: every window and every menu lies on the screen, and groups of videos fill it."""

import os
import unittest

from console_driver import BUTTONS, CONSOLE, TWIPS, ConsoleTest, films
from player import PlayerTest, wait_briefly, wait_for
import file_dialog

MENUS = ("imgOpen", "imgResize", "imgShare", "imgStill")
STILL = (7500, 2715, 390, 390)


def overlap(one, other):
    return (one[0] < other[0] + other[2] and other[0] < one[0] + one[2] and
            one[1] < other[1] + other[3] and other[1] < one[1] + one[3])


def settled(read):
    """What is read once it is the same three times in a row."""
    seen = []

    def same():
        seen.append(read())
        return len(seen) > 2 and seen[-3:] == 3 * seen[-1:]

    wait_for(same, 20, "places that stay")
    return seen[-1]


class ScreenTest(ConsoleTest):
    def setUp(self):
        super().setUp()
        self.width, self.height = (int(length) for length in self.display_size.split("x"))

    def home(self, name="home", **settings):
        """The console comes up where it does for somebody who never moved it."""
        return PlayerTest.home(self, name, **settings)

    def up(self, *arguments, language="EN", **settings):
        home = self.home("home-" + language, langos=language, **{"tips": "0", **settings})
        player = self.start(*arguments, home=home)
        wait_for(lambda: self.console(player), 20, "the console")
        wait_for(lambda: "Tandrel Player" not in player.windows(), 20, "the end of the splash")
        return player

    def assert_on_screen(self, place, what):
        x, y, width, height = place
        self.assertTrue(0 <= x and 0 <= y and x + width <= self.width and y + height <= self.height and width * height > 0,
                        f"{what} at {place} on {self.display_size}")

    def click_spot(self, player, name):
        left, top, width, height = BUTTONS.get(name, STILL)
        _, x, y, _, _ = wait_for(lambda: self.console(player), 20, "the console")
        self.click(x + (left + width // 2) // TWIPS, y + (top + height // 2) // TWIPS)

    def menu_of(self, player, name):
        """Place of the menu that the button brings."""
        def opened():
            self.click_spot(player, name)
            return wait_briefly(self.popup)

        wait_for(opened, 20, f"the menu of {name}")
        width, height, x, y = wait_for(self.popup, 20, f"the menu of {name}")
        return x, y, width, height

    def others(self, player):
        """Windows beside the console and the videos."""
        return [(title, tuple(window[1:])) for title, *window in player.all_windows()
                if tuple(window[3:]) != CONSOLE and not title.startswith("§")]

    def new_window(self, player, act, what):
        """The window that comes by `act`, at rest."""
        def came():
            if not self.others(player):
                act()
            return wait_briefly(lambda: self.others(player))

        wait_for(came, 20, what)
        return settled(lambda: self.others(player))[-1]

    def close_new(self, player):
        """By Escape; a settings window, which is another program's inside, by its window manager's close."""
        def gone():
            for title, _ in self.others(player):
                self.display.run("wmctrl", "-c", title)
            return wait_briefly(lambda: not self.others(player))

        wait_for(gone, 20, "the end of the window")

    def key(self, *names):
        self.display.run("xdotool", "key", *names)


class Groups:
    def test_twelve_videos_fill_the_screen_side_by_side(self):
        names = films(12, self.folder)
        player = self.up(*names)
        player.wait_ready(12)
        places = settled(lambda: [player.place(name) for name in names])
        for index, place in enumerate(places):
            self.assert_on_screen(place, names[index])
            for other in places[:index]:
                self.assertFalse(overlap(place, other), f"{place} over {other}")
        self.assertEqual(len({place[2:] for place in places}), 1, "all of one size")
        covered = sum(place[2] * place[3] for place in places)
        self.assertGreater(covered, 0.98 * self.width * self.height)
        self.assert_on_screen(self.console(player)[1:], "the console")

    def test_in_playlist_mode_the_others_stand_beside_the_lead(self):
        names = films(12, self.folder)
        player = self.up(*names, slide="1")
        player.wait_ready(12)
        places = settled(lambda: [player.place(name) for name in names])
        lead = max(places, key=lambda place: place[2] * place[3])
        for index, place in enumerate(places):
            self.assert_on_screen(place, names[index])
            for other in places[:index]:
                self.assertFalse(overlap(place, other), f"{place} over {other}")
        self.assertGreater(lead[2] * lead[3], 0.6 * self.width * self.height)
        self.assertEqual(len({place[2:] for place in places}), 2, "the lead, and the others in one size")

    def test_every_number_of_videos_stays_on_the_screen(self):
        for count in (1, 2, 3, 5, 7, 10):
            with self.subTest(count=count):
                names = films(count, self.folder)
                player = self.up(*names)
                player.wait_ready(count)
                places = settled(lambda: [player.place(name) for name in names])
                for index, place in enumerate(places):
                    self.assert_on_screen(place, names[index])
                    for other in places[:index]:
                        self.assertFalse(overlap(place, other), f"{place} over {other}")
                self.assertEqual(player.end(), 0)


class Windows:
    def test_console_and_splash_lie_on_the_screen(self):
        player = self.start(home=self.home())
        splash = wait_for(lambda: next((tuple(window[1:]) for title, *window in player.all_windows()
                                        if title == "Tandrel Player"), None), 20, "the splash")
        self.assert_on_screen(splash, "the splash")
        wait_for(lambda: self.console(player), 20, "the console")
        self.assert_on_screen(self.console(player)[1:], "the console")

    def test_the_question_for_the_language_lies_on_the_screen(self):
        home = self.home()
        with open(os.path.join(home, "MsShareStuff.ini"), "w", encoding="utf-8") as settings:
            settings.write("[sys]\nslide=0\nvistaos=1\ntips=0\n[day]\nrun=999999\n")
        player = self.start(home=home)
        question = wait_for(lambda: next((tuple(window[1:]) for _, *window in player.all_windows()
                                          if tuple(window[3:]) == (330, 162)), None), 20, "the question")
        self.assert_on_screen(question, "the question")

    def test_every_form_lies_on_the_screen(self):
        for language in ("EN", "ES", "FR", "IT", "DE", "PT"):
            player = self.up(language=language)
            for what, act in (("help", lambda: self.click_spot(player, "imgHelp")),
                              ("keys", lambda: self.keyed(player, "ctrl+k")),
                              ("recent", lambda: self.keyed(player, "ctrl+r"))):
                with self.subTest(language=language, form=what):
                    title, place = self.new_window(player, act, what)
                    self.assert_on_screen(place, title)
                    self.close_new(player)
            self.assertEqual(player.end(), 0)

    def test_the_settings_of_a_video_lie_on_the_screen(self):
        names = films(1, self.folder)
        player = self.up(*names)
        player.wait_ready(1)
        for button, title in (("imgVideo", "Video Settings"), ("imgAudio", "Audio Settings")):
            with self.subTest(title):
                found = self.new_window(player, lambda: self.click_spot(player, button), title)
                self.assert_on_screen(found[1], title)
                self.close_new(player)

    def keyed(self, player, key):
        self.display.run("timeout", "5", "xdotool", "windowactivate", "--sync", self.console(player)[0])
        self.key(key)

    def test_menus_lie_on_the_screen_wherever_the_console_stands(self):
        for left, top in ((0, 0), (self.width - CONSOLE[0], self.height - CONSOLE[1])):
            player = self.up(top=str(top * TWIPS), left=str(left * TWIPS))
            for name in MENUS:
                with self.subTest(left=left, top=top, menu=name):
                    self.assert_on_screen(self.menu_of(player, name), name)
                    self.answer("Escape", lambda: not self.popup(), "the end of the menu")
            self.assertEqual(player.end(), 0)

    def test_the_dialog_for_files_and_the_first_message_lie_on_the_screen(self):
        names = films(1, self.folder)
        player = self.up(tips="1")
        title = "Open Multiple Video..."
        self.dialog_of(player, title)
        place = settled(lambda: next((tuple(window[1:]) for name, *window in player.all_windows() if name == title), None))
        self.assert_on_screen(place, title)
        file_dialog.choose(self.display, title, self.folder, os.path.basename(names[0]))
        message = wait_for(lambda: self.tip(player), 20, "the message")
        self.assert_on_screen(message[1:], "the message")
        self.answer("Return", lambda: not self.tip(player), "the end of the message")

    def test_panel_and_menu_of_full_screen_lie_on_the_screen(self):
        names = films(2, self.folder)
        player = self.up(*names)
        player.wait_ready(2)
        self.select_video(player, names[0])
        x, y, width, height = player.place(names[0])
        full = (0, 0, self.width, self.height)

        def filled():
            self.click(x + width // 2, y + height // 3, button=3)
            return wait_briefly(lambda: player.place(names[0]) == full)

        wait_for(filled, 20, "full screen")

        def panel():
            self.display.run("xdotool", "mousemove", str(self.width // 2), str(self.height - 2),
                             "mousemove", str(self.width // 2), str(self.height - 1))
            return wait_briefly(lambda: player.windows().get("Panel", (0, 0, 0, 0, 0))[1:] ==
                                (0, self.height - 61, self.width, 61))

        wait_for(panel, 20, "the whole panel at the lower edge")

        def menu():
            self.click(self.width - 3, self.height // 2, button=3)
            return wait_briefly(self.popup)

        width, height, x, y = wait_for(menu, 20, "the menu")
        self.assert_on_screen((x, y, width, height), "the menu at the right edge")
        self.answer("Escape", lambda: not self.popup(), "the end of the menu")


class SmallGroups(Groups, ScreenTest):
    display_size = "1366x768"


class SmallWindows(Windows, ScreenTest):
    display_size = "1366x768"


class LargeGroups(Groups, ScreenTest):
    display_size = "3840x2160"


class LargeWindows(Windows, ScreenTest):
    display_size = "3840x2160"


if __name__ == "__main__":
    unittest.main()
