#!/usr/bin/env python3
"""What a screen reader has of the player: every window with all its controls by name, role and action, and each control of
the console works when it is pressed that way."""

import os
import unittest

from console_driver import MULTIPLE, films
from films_test import film
from player import clips, wait_briefly, wait_for
from reach_bench import ReachTest
import file_dialog

CONSOLE = "Tandrel Player PRO"
GROUP = "[PlayAll Mode] "
BUTTONS = ("Play", "Pause", "Rewind", "Forward", "Restart", "Open...", GROUP + "Back by Frame All Videos",
           GROUP + "Pause/Play All Videos", GROUP + "Forward by Frame All Videos", GROUP + "Synchronize All Videos",
           "Mute All On/Off", "Reposition Video", "Video Settings", "Audio Settings", "Share", "Help", "Share On FaceBook",
           "Share On Twitter", "Volume +", "Volume -", "Save Pictures", "Minimize All Panels", "Minimize Control Panel",
           "Exit", "Resize +", "Resize -")
SLIDERS = ("Position", "Volume")
PANEL_BUTTONS = ("Pause", "Rewind", "Forward", "Fullscreen Off", "Mute On/Off")
HELP, KEYS, RECENT = "Help Control Panel - ", "Keys - ", "Tandrel Player - Open Multimedia"


class Reach(ReachTest):
    def up(self, count=2, make=films, **settings):
        self.names = make(count, self.folder)
        self.selected = self.names[-1]
        player = self.start(*self.names, home=self.home(**{"tips": "0", **settings}))
        player.wait_ready(count)
        self.wait_for_window_called(player, CONSOLE)
        return player

    def press(self, player, name, taken, what, window=CONSOLE, role="push button", action="Press"):
        """Presses a control; `taken` is asked with what was commanded since."""
        begin = len(player.commands())
        self.press_part(player, window, role, name, action)
        wait_for(lambda: taken(player.commands()[begin:]), 20, what)

    def sent(self, form, *names):
        """Holds where each of these files is sent a command that begins so."""
        return lambda commands: all(any(one.startswith(form.format(name)) for one in commands)
                                    for name in names or (self.selected,))

    def parts_of(self, player, window, role):
        return {part["name"]: part for part in self.wait_for_window_called(player, window) if part["role"] == role}

    def check(self, player, window):
        """The parts of a window, which are all told apart."""
        parts = self.wait_for_window_called(player, window)
        self.assert_told_apart(parts)
        return parts

    def entries(self, player):
        """The names in the menu that is up, all told apart."""
        parts = wait_for(lambda: self.menu_up(player), 20, "a menu")
        self.assert_told_apart(parts)
        found = [part for part in parts[1:] if part["role"] in ("menu item", "check menu item", "menu")]
        self.assertTrue(all("Press" in part["actions"] or part["role"] == "menu" for part in found), found)
        return [part["name"] for part in found]


class Console(Reach):
    def test_all_controls_have_names_roles_and_actions(self):
        player = self.up()
        self.check(player, CONSOLE)
        buttons = self.parts_of(player, CONSOLE, "push button")
        self.assertEqual(sorted(buttons), sorted(BUTTONS))
        for name, part in buttons.items():
            self.assertIn("Press", part["actions"], name)
        self.assertEqual(sorted(self.parts_of(player, CONSOLE, "slider")), sorted(SLIDERS))
        box = self.parts_of(player, CONSOLE, "check box")["Fullscreen"]
        self.assertIn("Toggle", box["actions"])
        self.assertNotIn("checked", box["states"])
        labels = self.parts_of(player, CONSOLE, "label").values()
        self.assertLessEqual({"Current", "Total", "VOL"}, {label["description"] for label in labels})
        for name in self.names:
            self.assertIn("Picture", self.parts_of(player, os.path.basename(name), "image"))

    def test_the_buttons_of_a_video_do_what_they_say(self):
        player = self.up()
        sent = self.sent
        self.press(player, "Pause", sent('Pause "{}"'), "the pause")
        self.press(player, "Play", sent('Play "{}"'), "the play")
        self.press(player, "Restart", sent('seek "{}" to 0'), "the beginning")
        self.press(player, "Forward", sent('play "{}" from '), "jumps forward")
        # The other one ends them, and jumps back when it is pressed again.
        self.press(player, "Rewind", sent('setaudio "{}" Volume to 500'), "the end of the jumps")
        self.press(player, "Rewind", sent('play "{}" from '), "jumps back")
        self.press(player, "Forward", sent('setaudio "{}" Volume to 500'), "the end of the jumps")
        self.press(player, "Volume +", sent('setaudio "{}" Volume to 600'), "louder")
        self.press(player, "Volume -", sent('setaudio "{}" Volume to 500'), "less loud")
        shown = lambda percent: self.find(player, CONSOLE, "label", percent)
        self.press(player, "Resize +", lambda commands: shown("125 %") and self.sent('put "{}" window at')(commands),
                   "a larger picture")
        self.press(player, "Resize -", lambda commands: shown("100 %") and self.sent('put "{}" window at')(commands),
                   "the picture as before")

    def test_the_buttons_of_the_group_do_what_they_say(self):
        player = self.up()
        sent, names = self.sent, self.names
        self.press(player, GROUP + "Pause/Play All Videos", sent('Pause "{}"', *names), "the pause of all")
        self.press(player, GROUP + "Forward by Frame All Videos", sent('step "{}"', *names), "a step of all")
        self.press(player, GROUP + "Back by Frame All Videos", sent('step "{}" reverse', *names), "a step back of all")
        self.press(player, GROUP + "Pause/Play All Videos", sent('Play "{}" from ', *names), "the play of all")
        self.press(player, GROUP + "Synchronize All Videos", sent('seek "{}" to 0', *names), "all at their beginning")
        self.press(player, "Mute All On/Off", sent('setaudio "{}" Volume to 0', *names), "silence")
        self.press(player, "Mute All On/Off", sent('setaudio "{}" Volume to 500', *names), "sound")

    def test_sliders_tell_their_values_and_take_others(self):
        player = self.up()
        self.press(player, "Pause", self.sent('Pause "{}"'), "the pause")
        place = self.wait_for_part(player, CONSOLE, "slider", "Position")
        self.assertEqual((place["least"], place["most"]), (0, 300000))
        begin = len(player.commands())
        self.assertTrue(self.reader.set_value(place, 120000))
        wait_for(lambda: self.sent('seek "{}" to 120000')(player.commands()[begin:]), 20, "the seek")
        wait_for(lambda: abs(self.find(player, CONSOLE, "slider", "Position")["value"] - 120000) < 100, 20, "the place")
        volume = self.wait_for_part(player, CONSOLE, "slider", "Volume")
        self.assertEqual((volume["value"], volume["least"], volume["most"]), (50, 0, 100))
        begin = len(player.commands())
        self.assertTrue(self.reader.set_value(volume, 80))
        wait_for(lambda: self.sent('setaudio "{}" Volume to 800')(player.commands()[begin:]), 20, "the volume")
        wait_for(lambda: self.find(player, CONSOLE, "slider", "Volume")["value"] == 80, 20, "the new value")
        begin = len(player.commands())
        self.assertTrue(self.reader.act(self.find(player, CONSOLE, "slider", "Volume"), "Decrease"))
        wait_for(lambda: self.sent('setaudio "{}" Volume to 790')(player.commands()[begin:]), 20, "a step less")

    def test_hide_minimise_and_exit_do_what_they_say(self):
        player = self.up()
        console = self.console(player)[0]
        iconic = lambda: "Iconic" in self.display.run("xprop", "-id", console, "WM_STATE").stdout
        self.press(player, "Minimize Control Panel", lambda _: iconic(), "the console as an icon")
        self.assertTrue(player.video(self.selected))
        self.display.run("wmctrl", "-i", "-a", console)
        wait_for(lambda: self.find(player, CONSOLE, "push button", "Exit"), 20, "the console again")
        self.press(player, "Minimize All Panels", lambda _: iconic() and not player.video(self.selected), "all of them away")
        self.display.run("wmctrl", "-i", "-a", console)
        wait_for(lambda: player.video(self.selected), 20, "the videos again")
        self.press(player, "Exit", lambda _: not player.alive(), "the end")
        self.assertEqual(player.process.returncode, 0)

    def test_links_open_their_pages(self):
        asked = os.path.join(self.folder, "asked")
        opener = os.path.join(self.folder, "xdg-open")
        with open(opener, "w", encoding="ascii") as script:
            script.write(f'#!/bin/sh\necho "$@" >>"{asked}"\n')
        os.chmod(opener, 0o755)
        player = self.start(*clips(1, self.folder), home=self.home(tips="0"), PATH=f"{self.folder}:{os.environ['PATH']}")
        player.wait_ready(1)

        def pages():
            if not os.path.exists(asked):
                return []
            with open(asked, encoding="utf-8") as lines:
                return lines.read().splitlines()

        self.press(player, "Share On FaceBook", lambda _: len(pages()) == 1, "a page")
        self.press(player, "Share On Twitter", lambda _: len(pages()) == 2, "a page")
        self.press_part(player, CONSOLE, "push button", "Share")
        self.assertEqual(len(self.entries(player)), 3)
        self.choose_in_menu(player, "On Facebook")
        wait_for(lambda: len(pages()) == 3, 20, "a page by the menu")


class Menus(Reach):
    def test_the_menus_of_the_console_are_read_and_chosen_from(self):
        player = self.up()
        self.press_part(player, CONSOLE, "push button", "Reposition Video")
        self.assertEqual(len(self.entries(player)), 2)
        place = player.place(self.selected)
        self.choose_in_menu(player, self.last_entry)
        wait_for(lambda: player.place(self.selected) not in (place, (None,) * 4), 20, "the other arrangement")
        self.press_part(player, CONSOLE, "push button", "Save Pictures")
        self.assertEqual(len(self.entries(player)), 2)
        self.close_menu()
        self.press_part(player, CONSOLE, "push button", "Open...")
        self.assertGreaterEqual(len(self.entries(player)), 4)
        self.choose_in_menu(player, "Open Miltiple")
        wait_for(lambda: file_dialog.window_of(self.display, MULTIPLE), 20, "the dialog for files")
        self.check(player, MULTIPLE)
        self.display.run("xdotool", "key", "Escape")

    def entries(self, player):
        found = super().entries(player)
        self.last_entry = found[-1]
        return found


class Forms(Reach):
    def test_help_and_the_list_of_keys(self):
        player = self.up(1, clips)
        self.press(player, "Help", lambda _: self.window_called(player, HELP), "the help")
        parts = self.check(player, HELP)
        self.assertEqual(parts[0]["role"], "dialog")
        self.assertGreater(sum(part["role"] == "label" for part in parts), 16)
        self.press(player, "Keys", lambda _: self.window_called(player, KEYS), "the list of keys", window=HELP)
        self.check(player, KEYS)
        self.press(player, "Close", lambda _: not self.window_called(player, KEYS), "the end of the list", window=KEYS)
        self.press(player, "Close", lambda _: not self.window_called(player, HELP), "the end of the help", window=HELP)

    def test_the_recent_files_and_the_question_behind_them(self):
        names = films(3, self.folder)
        home = self.home(tips="0")
        with open(os.path.join(home, "last.dat"), "wb") as file:
            file.write(b"".join(os.fsencode(name) + b"\r\n" for name in names))
        player = self.start(*names[:1], home=home)
        player.wait_ready(1)
        self.press_part(player, CONSOLE, "push button", "Open...")
        self.choose_in_menu(player, "Open Recent")
        parts = self.check(player, RECENT)
        files = [part for part in parts if part["role"] == "list item"]
        self.assertEqual([part["name"] for part in files], names)
        self.assertEqual(sum(part["role"] == "push button" for part in parts), 6, "three ways, and three buttons")
        self.press_part(player, RECENT, "push button", "Clear Recent")
        question = wait_for(lambda: next((window for window in self.windows(player) if any(
            part["name"] == "Yes" for part in window)), None), 20, "the question")
        self.assert_told_apart(question)
        self.assertTrue(self.reader.act(next(part for part in question if part["name"] == "Yes"), "Press"))
        wait_for(lambda: not os.path.exists(os.path.join(home, "last.dat")), 20, "the end of the list")
        self.press(player, "Cancel", lambda _: not self.window_called(player, RECENT), "the end of the dialog", window=RECENT)

    def test_the_message_of_the_first_open(self):
        player = self.up(1, films, tips="1")
        self.press_part(player, CONSOLE, "push button", "Open...")
        self.choose_in_menu(player, "Open Miltiple")
        file_dialog.choose(self.display, MULTIPLE, self.folder, *(os.path.basename(name) for name in films(2, self.folder)))
        message = wait_for(lambda: next((window for window in self.windows(player) if any(
            part["name"] == "OK" and part["role"] == "push button" for part in window)), None), 20, "the message")
        self.assert_told_apart(message)
        self.assertTrue(any("TIP" in part["name"] for part in message))
        self.assertTrue(self.reader.act(next(part for part in message if part["name"] == "OK"), "Press"))
        wait_for(lambda: not self.tip(player), 20, "the end of the message")

    def test_the_tip_of_playlist_mode(self):
        player = self.up(3, clips, tips="1", slide="1")
        is_tip = lambda window: any(part["role"] == "check box" and "again" in part["name"] for part in window)
        tip = wait_for(lambda: next((window for window in self.windows(player) if is_tip(window) and
                                     window[0]["role"] == "frame"), None), 20, "the tip")
        self.assert_told_apart(tip)
        box = next(part for part in tip if part["role"] == "check box")
        self.assertTrue(self.reader.act(box, "Toggle"))
        wait_for(lambda: any(part["role"] == "check box" and "again" in part["name"] and "checked" in part["states"]
                             for window in self.windows(player) for part in window), 20, "the tick")
        tip = next(window for window in self.windows(player) if is_tip(window))
        self.assertTrue(self.reader.act(next(part for part in tip if part["name"] == "Close"), "Press"))
        ini = os.path.join(player.home, "MsShareStuff.ini")

        def kept():
            with open(ini, encoding="utf-8") as settings:
                return "tips=0\n" in settings.read()

        wait_for(kept, 20, "the setting")

    def test_the_question_for_the_language(self):
        home = self.home()
        with open(os.path.join(home, "MsShareStuff.ini"), "w", encoding="utf-8") as settings:
            settings.write("[sys]\nslide=0\nvistaos=1\ntips=0\n[day]\nrun=999999\n")
        player = self.start(home=home)
        asks = lambda: next((window for window in self.windows(player) if any(
            part["role"] == "combo box" for part in window)), None)
        parts = wait_for(asks, 20, "the question")
        self.assert_told_apart(parts)
        box = next(part for part in parts if part["role"] == "combo box")
        self.assertEqual((box["name"], box["description"]), ("English", "Select Language:"))
        self.assertTrue(self.reader.act(next(part for part in parts if part["role"] == "push button"), "Press"))
        wait_for(lambda: not asks(), 20, "the end of the question")

    def test_the_settings_of_pictures_and_sounds(self):
        player = self.up(1)
        for button in ("Video Settings", "Audio Settings"):
            self.press(player, button, lambda _: self.window_called(player, button), "the form")
            self.check(player, button)
            dialog = wait_for(self.settings_window, 20, "the dialog in it")
            self.assert_told_apart(dialog)
            sliders = [part for part in dialog if part["role"] == "slider"]
            self.assertGreater(len(sliders), 3)
            slider = next(part for part in sliders if part["least"] < part["most"])
            wanted = slider["least"] if slider["value"] != slider["least"] else slider["most"]
            self.assertTrue(self.reader.set_value(slider, wanted))
            wait_for(lambda: any(part["role"] == "slider" and part["name"] == slider["name"] and part["value"] == wanted
                                 for part in self.settings_window() or []), 20, "the value")
            self.press(player, "Exit", lambda _: not self.window_called(player, button), "the end of the form", window=button)
            for title in ("Tandrel Player - Video settings", "Tandrel Player - Audio settings"):
                self.display.run("wmctrl", "-c", title)
            wait_for(lambda: not self.settings_window(), 20, "the end of the dialog")

    def settings_window(self):
        """The dialog, a program of its own."""
        for line in self.display.run("pgrep", "-f", "tandrel-codec-settings|RunDLL32.exe").stdout.split():
            try:
                with open(f"/proc/{line}/environ", "rb") as environment:
                    ours = os.fsencode(self.folder) in environment.read()
            except OSError:
                continue
            if ours:
                for parts in self.reader.windows(int(line)):
                    return [part for part in parts if "visible" in part["states"]]
        return None


class FullScreen(Reach):
    def test_the_box_leads_there_and_the_panel_leads_back(self):
        player = self.up()
        place = player.place(self.selected)
        self.press(player, "Fullscreen", lambda _: player.place(self.selected) == (0, 0, 1920, 1080), "full screen",
                   role="check box", action="Toggle")

        def panel():
            self.display.run("xdotool", "mousemove", "600", "500", "mousemove", "600", "1078", "mousemove", "601", "1079")
            return wait_briefly(lambda: self.window_called(player, "Panel"))

        parts = wait_for(panel, 20, "the panel")
        self.assert_told_apart(parts)
        self.assertLessEqual(set(PANEL_BUTTONS), {part["name"] for part in parts if part["role"] == "push button"})
        self.press(player, "Pause", self.sent('Pause "{}"'), "the pause", window="Panel")
        self.press(player, "Play", self.sent('Play "{}"'), "the play", window="Panel")
        strip = self.wait_for_part(player, "Panel", "slider", "Position")
        begin = len(player.commands())
        self.assertTrue(self.reader.set_value(strip, 150000))
        wait_for(lambda: self.sent('seek "{}" to 1')(player.commands()[begin:]), 20, "a seek")
        volume = self.wait_for_part(player, "Panel", "slider", "Volume")
        begin = len(player.commands())
        self.assertTrue(self.reader.set_value(volume, 30))
        wait_for(lambda: self.sent('setaudio "{}" Volume to 300')(player.commands()[begin:]), 20, "the volume")
        self.press(player, "Fullscreen Off", lambda _: player.place(self.selected) == place, "the old place", window="Panel")


class OtherMedia(Reach):
    def test_a_film_has_its_own_controls(self):
        path = film("film_long.mkv")
        player = self.start(path, home=self.home(tips="0"))
        title = "HD|" + path
        wait_for(lambda: self.window(player, title), 20, "the window of the film")
        self.check(player, title)
        first = self.wait_for_frame(player, title, (640, 360), lambda _: True, "a picture")
        self.wait_for_frame(player, title, (640, 360), lambda number: number != first, "movement")
        place = self.wait_for_part(player, title, "slider", "Position")
        self.assertGreater(place["most"], 0)
        self.press_part(player, title, "push button", "Play / Pause")
        self.still_frame(player, title, (640, 360))
        self.assertTrue(self.reader.set_value(place, place["most"] / 2))
        self.wait_for_frame(player, title, (640, 360), lambda number: number > 100, "the middle")
        self.press_part(player, title, "push button", "Full screen on/off")
        wait_for(lambda: self.is_full(player, title), 20, "full screen")

    def test_a_disc_has_its_own_controls_on_both_kinds_of_system(self):
        for title, environment in (("TANDREL_TEST", {}), ("DVD", {"TANDREL_SYSTEM": "2.5.1"})):
            with self.subTest(title=title):
                home = self.home("home-" + title, tips="0")
                player = self.start("DVD", home=home, TANDREL_DISCS=self.image(), **environment)
                wait_for(lambda: self.window(player, title), 20, "the window of the disc")
                parts = self.check(player, title)
                self.assertIn("Picture", [part["name"] for part in parts])
                self.check(player, CONSOLE)
                self.assertEqual(player.end(), 0)

    def image(self):
        return os.path.join(os.environ["TANDREL_TEST_DISC"], "disc.iso")


if __name__ == "__main__":
    del Reach
    unittest.main()
