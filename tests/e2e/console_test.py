#!/usr/bin/env python3
"""The console and the small windows: outline, looks, keys, menus, languages, and settings that make no sense."""

import os
import signal
import subprocess
import time
import unittest

from player import PlayerTest, clips, long_clips, wait_briefly, wait_for

BACKGROUND = (51, 102, 153)
WIDTH, HEIGHT = 900, 212
# Middle of each, in pixels of the console.
EXIT, MINIMISE, HELP, PLAY, SHARE, RESIZE = (864, 45), (838, 45), (704, 128), (450, 74), (673, 128), (580, 128)
# A free place of the body.
BODY = (350, 120)


class Console(PlayerTest):
    def setUp(self):
        super().setUp()
        self.display.run("xsetroot", "-solid", "#%02x%02x%02x" % BACKGROUND)

    def up(self, *arguments, **options):
        """A player with its console, which has got the keys."""
        player = self.start(*(arguments or clips(1, self.folder)), **options)
        player.wait_ready()
        return player

    def at(self, player, place):
        _, x, y, _, _ = player.console()
        return x + place[0], y + place[1]

    def picture(self, player, place, half=10):
        x, y = self.at(player, place)
        return subprocess.run(["import", "-window", "root", "-crop", f"{2 * half}x{2 * half}+{x - half}+{y - half}",
                               "-depth", "8", "rgb:-"], env=self.display.environment, capture_output=True, check=True).stdout

    def still_picture(self, player, place):
        """The picture of a place once two in a row are the same."""
        seen = []

        def settled():
            seen.append(self.picture(player, place))
            return len(seen) > 1 and seen[-1] == seen[-2]

        wait_for(settled, 20, "a picture that stays")
        return seen[-1]

    def window_named(self, player, start):
        return next((window for title, window in player.windows().items() if title.startswith(start)), None)

    def wait_for_window(self, player, start):
        return wait_for(lambda: self.window_named(player, start), 20, f"the window {start}")

    def activate(self, window):
        """Gives a window the focus. The tool that does it waits for ever where something else takes it meanwhile."""
        self.display.run("timeout", "5", "xdotool", "windowactivate", "--sync", window)

    def test_outside_of_its_outline_the_screen_is_seen_and_clicked(self):
        player = self.up()
        wait_for(lambda: self.pixel(*self.at(player, PLAY)) != BACKGROUND, 20, "the console on the screen")
        for corner in ((1, 1), (200, 10), (898, 2), (2, 210), (898, 210)):
            self.assertEqual(self.pixel(*self.at(player, corner)), BACKGROUND, corner)
        for inside in ((450, 8), (40, 120), (450, 204), (890, 100)):
            self.assertNotEqual(self.pixel(*self.at(player, inside)), BACKGROUND, inside)
        _, x, y, _, _ = player.console()
        below = self.display.run("xdotool", "mousemove", str(x + 5), str(y + 5), "getmouselocation").stdout
        self.assertNotIn(str(int(player.console()[0], 16)), below)

    def test_buttons_lift_under_the_pointer_and_sink_while_pressed(self):
        player = self.up()
        self.display.run("xdotool", "mousemove", "5", "5")
        resting = self.still_picture(player, SHARE)
        self.display.run("xdotool", "mousemove", *map(str, self.at(player, SHARE)))
        wait_for(lambda: self.picture(player, SHARE) != resting, 20, "the look under the pointer")
        lifted = self.still_picture(player, SHARE)
        self.display.run("xdotool", "mousedown", "1")
        wait_for(lambda: self.picture(player, SHARE) not in (resting, lifted), 20, "the look of a press")
        # Released somewhere else it is no click.
        self.display.run("xdotool", "mousemove", "5", "5", "mouseup", "1")
        wait_for(lambda: self.picture(player, SHARE) == resting, 20, "the look as before")
        self.assertIsNone(self.popup())

    def test_the_body_drags_the_console(self):
        player = self.up()
        _, x, y, _, _ = player.console()

        def dragged():
            if player.console()[1:3] == (x - 120, y - 80):
                return True
            px, py = self.at(player, BODY)
            dx, dy = x - 120 - player.console()[1], y - 80 - player.console()[2]
            self.press(px, py)
            self.display.run("xdotool", "mousemove", str(px + dx // 2), str(py + dy // 2), "mousemove", str(px + dx), str(py + dy))
            wait_briefly(lambda: player.console()[1:3] == (x - 120, y - 80))
            self.release()
            return player.console()[1:3] == (x - 120, y - 80)

        wait_for(dragged, 20, "the console at its new place")
        self.assertEqual(player.end(), 0)
        with open(os.path.join(player.home, "MsShareStuff.ini"), encoding="utf-8") as settings:
            text = settings.read()
        self.assertIn(f"top={(y - 80) * 15}\n", text)
        self.assertIn(f"left={(x - 120) * 15}\n", text)

    def test_a_short_click_on_the_body_does_not_tie_the_console_to_the_pointer(self):
        player = self.up()
        before = player.console()
        self.click(*self.at(player, (60, 62)))
        self.display.run("xdotool", "mousemove", "900", "300")
        # The menu comes up where the pointer is now, so that the click and what came of it are over.
        self.activate(before[0])
        self.display.run("xdotool", "key", "Menu")
        wait_for(self.popup, 20, "the menu")
        self.assertEqual(player.console(), before)
        self.answer("Escape", lambda: not self.popup(), "the end of the menu")

    def test_a_right_click_brings_the_menu_whose_last_entry_ends_the_program(self):
        player = self.up()
        self.click(*self.at(player, BODY), button=3)
        width, height, x, y = wait_for(self.popup, 20, "the menu")
        self.assertGreater(width, 80)

        def ended():
            if not player.alive():
                return True
            self.click(x + width // 2, y + height - 18)
            return wait_briefly(lambda: not player.alive())

        wait_for(ended, 20, "the end of the program")
        self.assertEqual(player.process.returncode, 0)

    def test_keys_reach_and_press_every_button(self):
        player = self.up()
        self.activate(player.console()[0])

        # The keys begin at the volume; three stops before it is the help.
        def helped():
            if self.window_named(player, "Help Control Panel - "):
                return True
            self.activate(player.console()[0])
            self.display.run("xdotool", "key", "shift+Tab", "shift+Tab", "shift+Tab", "Return")
            return wait_briefly(lambda: self.window_named(player, "Help Control Panel - "))

        wait_for(helped, 20, "the help")
        self.answer("Escape", lambda: not self.window_named(player, "Help Control Panel - "), "the end of the help")
        self.assertTrue(player.alive())

    def test_each_language_speaks_in_the_help(self):
        for code, title in (("ES", "Ayuda del Panel"), ("FR", "Aide du Panneau"), ("IT", "Aiuto del Pannello"),
                            ("DE", "Hilfe zum Control"), ("PT", "Ajuda do Painel"), ("XX", "Help Control Panel")):
            with self.subTest(code):
                player = self.up(home=self.home("home-" + code, langos=code))
                wait_for(lambda: self.window_named(player, title) or self.click(*self.at(player, HELP)) or
                         wait_briefly(lambda: self.window_named(player, title)), 20, f"the help in {code}")
                self.assertEqual(player.end(), 0)

    def test_a_plain_start_shows_the_splash_for_about_five_seconds(self):
        begin = time.monotonic()
        player = self.start()
        splash = wait_for(lambda: next((window for title, window in player.windows().items()
                                        if title == "Tandrel Player" and window[3:] == (600, 220)), None), 20, "the splash")
        self.assertEqual(splash[1:3], ((1920 - 600) // 2, (1080 - 220) // 2))
        player.wait_ready()
        self.assertGreater(time.monotonic() - begin, 4)
        self.assertFalse([title for title in player.windows() if title == "Tandrel Player"])

    def test_an_end_from_outside_does_not_wait_for_the_splash(self):
        player = self.start()
        wait_for(lambda: "Tandrel Player" in player.windows(), 20, "the splash")
        begin = time.monotonic()
        player.process.send_signal(signal.SIGTERM)
        wait_for(lambda: not player.alive(), 20, "the end")
        self.assertLess(time.monotonic() - begin, 4)
        self.assertEqual(player.process.returncode, 0)

    def test_the_tip_stays_away_once_the_user_says_so(self):
        player = self.start(*clips(3, self.folder), home=self.home(slide="1"))
        player.wait_ready(3)
        tip = wait_for(lambda: next((window for window in player.windows().values() if window[3:] == (382, 118)), None),
                       20, "the tip")
        ini = os.path.join(player.home, "MsShareStuff.ini")

        def dismissed():
            with open(ini, encoding="utf-8") as settings:
                if "tips=0\n" in settings.read():
                    return True
            self.click(tip[1] + 52 + 8, tip[2] + 91 + 9)
            self.click(tip[1] + 338 + 9, tip[2] + 7 + 9)
            return False

        wait_for(dismissed, 20, "the setting")

    def test_a_global_key_pauses_whichever_program_has_the_focus(self):
        player = self.start(*long_clips(1, self.folder), home=self.home(slide="0"))
        player.wait_ready(1)
        self.display.run("bash", "-c", "xmessage -buttons ok hello >/dev/null 2>&1 &")
        other = wait_for(lambda: self.display.run("xdotool", "search", "--onlyvisible", "--name", "xmessage").stdout.split(),
                         20, "another program")[0]
        self.activate(other)
        self.answer("ctrl+alt+shift+p", lambda: any(command.startswith("Pause ") for command in player.commands()),
                    "the pause")
        self.display.run("xdotool", "windowkill", other)

    def test_a_global_key_that_ends_full_screen_brings_the_window_back(self):
        name, = long_clips(1, self.folder)
        player = self.start(name, home=self.home(slide="0"))
        player.wait_ready(1)
        place = player.place(name)
        self.activate(player.console()[0])

        def full():
            if player.size(name) == (1920, 1080):
                return True
            self.activate(player.console()[0])
            self.click(place[0] + place[2] // 2, place[1] + place[3] // 3, button=3)
            return wait_briefly(lambda: player.size(name) == (1920, 1080))

        wait_for(full, 20, "full screen")
        self.answer("ctrl+alt+shift+c", lambda: player.size(name) == place[2:], "the window as before")
        self.assert_place(player, name, place)

    def test_the_menu_key_brings_the_menu(self):
        player = self.up()

        def opened():
            # A second press would send away a menu that came late.
            if not self.popup():
                self.activate(player.console()[0])
                self.display.run("xdotool", "key", "Menu")
            return wait_briefly(self.popup)

        width, _, x, y = wait_for(opened, 20, "the menu")
        _, left, top, _, _ = player.console()
        self.assertTrue(left <= x <= left + WIDTH and top <= y + 200, (x, y, width))

    def test_help_and_menus_come_up_without_a_window_manager_too(self):
        self.display.processes[-1].terminate()
        player = self.start(*clips(1, self.folder))
        shown = lambda: self.display.run("xdotool", "search", "--onlyvisible", "--name", "^Tandrel Player PRO").stdout.split()
        console = wait_for(shown, 20, "the console")[0]
        x, y, _, _ = player.geometry(console)
        help_window = lambda: self.display.run("xdotool", "search", "--onlyvisible", "--name", "^Help Control").stdout.split()
        wait_for(lambda: help_window() or self.click(x + HELP[0], y + HELP[1]) or wait_briefly(help_window), 20, "the help")


class OddSettings(PlayerTest):
    def place_of_console(self, **settings):
        player = self.start(*clips(1, self.folder), home=self.home(**settings))
        player.wait_ready()
        return player.console()[1:3]

    def test_places_beyond_reason_are_within_reach(self):
        for top, left in (("-99999999", "-99999999"), ("99999999999999999999", "1e300"), ("here", "there"), ("", "nan"),
                          ("0x7f", "--5")):
            with self.subTest(top=top, left=left):
                x, y = self.place_of_console(top=top, left=left)
                self.assertTrue(0 <= x <= 1920 - WIDTH and 0 <= y <= 1080 - HEIGHT, (x, y))
                self.players.pop().end()

    def test_settings_of_nonsense_are_defaults(self):
        home = self.home()
        with open(os.path.join(home, "MsShareStuff.ini"), "wb") as settings:
            settings.write(b"\x00\xff\xfe[sys\nlangos==\n]]\r\r\n" + os.urandom(5000) + b"\n[sys]\nlangos=EN\nslide=7\n[day]\nrun=999999\n")
        player = self.start(*clips(1, self.folder), home=home)
        player.wait_ready()
        self.assertEqual(player.end(), 0)

    def test_a_list_of_recent_files_full_of_garbage_does_no_harm(self):
        home = self.home()
        garbage = os.urandom(1 << 20)
        with open(os.path.join(home, "last.dat"), "wb") as recent:
            recent.write(garbage)
        player = self.start(*clips(1, self.folder), home=home)
        player.wait_ready()
        self.assertEqual(player.end(), 0)
        with open(os.path.join(home, "last.dat"), "rb") as recent:
            self.assertEqual(recent.read(), garbage)

    def test_no_bus_and_no_fonts_of_ours_are_no_hindrance(self):
        fonts = os.path.join(self.folder, "fonts.conf")
        with open(fonts, "w", encoding="ascii") as file:
            file.write('<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig>'
                       f'<dir>/usr/share/fonts/truetype/dejavu</dir><cachedir>{self.folder}</cachedir></fontconfig>')
        player = self.start(*clips(1, self.folder), FONTCONFIG_FILE=fonts, DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere")
        player.wait_ready()
        self.assertEqual(player.end(), 0)


class SmallMonitor(PlayerTest):
    display_size = "640x480"

    def test_the_console_stays_within_reach(self):
        player = self.start(*clips(1, self.folder), home=self.home(top="7000", left="9000"))
        player.wait_ready()
        _, x, y, width, height = player.console()
        self.assertTrue(x < 640 - 50 and x + width > 50 and 0 <= y < 480 - 50, (x, y, width, height))


if __name__ == "__main__":
    unittest.main()
