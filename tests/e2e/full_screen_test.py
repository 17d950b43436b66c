#!/usr/bin/env python3
"""Full screen as a user meets it: the right click, the panel, the wheel, the pointer that goes to rest, and the ways out."""

import subprocess
import time
import unittest

from console_driver import ConsoleTest, Screen, films
from player import wait_briefly, wait_for
from session_bus import ScreenSaverService

FULL = (0, 0, 1920, 1080)
PANEL_HEIGHT = 61
# Pixels inside the panel: the row of buttons begins here on a monitor of 1920.
ROW_LEFT = (28800 - 6060) // 2 // 15 - 33
LEAVE = (ROW_LEFT + 98 + 12, 8 + 26)
PAUSE = (ROW_LEFT + 179 + 23, 8 + 26)
MUTE = (ROW_LEFT + 288 + 12, 8 + 26)
PARKED = (1919, 150)


class FullScreenTest(ConsoleTest):
    full = FULL

    def up(self, count=2, slide="0"):
        names = films(count, self.folder)
        player = self.start(*names, home=self.home(slide=slide, tips="0"))
        player.wait_ready(count)
        return player, names

    def pointer(self):
        text = self.display.run("xdotool", "getmouselocation", "--shell").stdout
        values = dict(line.split("=") for line in text.split())
        return int(values["X"]), int(values["Y"])

    def move(self, x, y):
        self.display.run("xdotool", "mousemove", str(x), str(y))

    def panel(self, player):
        """Place and size of the panel while it is on the screen."""
        return tuple(player.windows().get("Panel", ()))[1:]

    def panel_place(self):
        left, top, width, height = self.full
        return left, top + height - PANEL_HEIGHT, width, PANEL_HEIGHT

    def wait_for_panel(self, player, up=True):
        place = self.panel_place() if up else ()
        wait_for(lambda: self.panel(player) == place, 20, f"the panel {'up' if up else 'away'}")

    def click_on_panel(self, place):
        left, top, _, _ = self.panel_place()
        self.click(left + place[0], top + place[1])

    def fill(self, player, name):
        """A click selects the video, the next one, of the other button, brings it to full screen."""
        x, y, width, height = player.place(name)
        self.select_video(player, name)
        time.sleep(0.3)
        self.click(x + width // 2, y + height // 3, button=3)
        # The panel is up for a moment only, so it is looked for first. Where it was missed the edge brings it.
        if not wait_briefly(lambda: self.panel(player) == self.panel_place(), 5):
            self.touch_the_edge()
            self.wait_for_panel(player)
            self.move(x + width // 2, y + height // 3)
        wait_for(lambda: player.place(name) == self.full, 20, "full screen")

    def touch_the_edge(self):
        left, top, _, height = self.full
        self.move(left + 600, top + height - 1)

    def double_click(self, x, y, gone):
        """Two presses count as one double click unless a tick of 750 ms ends between them: then they are made again."""
        def tried():
            self.display.run("xdotool", "mousemove", str(x), str(y), "click", "--repeat", "2", "--delay", "110", "1")
            return wait_briefly(gone, 1.5)

        wait_for(tried, 20, "a double click that counts")

    def full_frame(self):
        left, top, width, height = self.full
        return Screen(self).frame_number(left, top, width, height)


class FullScreen(FullScreenTest):
    def test_the_panel_comes_hides_by_itself_and_is_brought_back_by_a_touch(self):
        player, names = self.up()
        self.fill(player, names[1])
        wait_for(self.full_frame, 20, "a frame number on the whole screen")
        self.wait_for_panel(player, up=False)
        self.move(600, 1079)
        self.wait_for_panel(player)
        self.move(600, 400)
        self.wait_for_panel(player, up=False)
        self.assertEqual(player.place(names[1]), FULL)

    def test_a_double_click_on_the_picture_leads_back(self):
        player, names = self.up()
        before = player.place(names[1])
        self.fill(player, names[1])
        self.wait_for_panel(player, up=False)
        self.double_click(900, 500, lambda: player.place(names[1]) == before)
        self.assertEqual(self.panel(player), ())
        self.wait_for_movement(player, names)

    def test_the_panels_button_leads_back(self):
        player, names = self.up()
        before = player.place(names[0])
        self.fill(player, names[0])
        begun = time.monotonic()
        self.click_on_panel(LEAVE)
        wait_for(lambda: player.place(names[0]) == before, 20, "the old place")
        self.assertLess(time.monotonic() - begun, 5)
        wait_for(lambda: self.panel(player) == (), 20, "the end of the panel")
        wait_for(lambda: self.has_focus(player.video(names[0])), 20, "the focus")

    def test_the_strip_seeks_and_the_buttons_of_the_panel_pause_and_play(self):
        player, names = self.up()
        alias = f'"{names[1]}"'
        self.fill(player, names[1])
        begin = len(player.commands())
        self.click_on_panel((8 + 950, 4))
        wait_for(lambda: any(one.startswith(f"seek {alias} to 1") for one in player.commands()[begin:]), 20, "a seek")
        sought = int(next(one for one in player.commands()[begin:] if one.startswith(f"seek {alias}")).split()[-1])
        self.assertAlmostEqual(sought, 300000 * 958 / 1905, delta=400)
        wait_for(lambda: self.full_frame() is not None, 20, "its picture")
        self.click_on_panel(PAUSE)
        player.wait_for_commands(f"Pause {alias}")
        wait_for(lambda: self.full_frame() == self.still_frame(), 20, "a picture at rest")
        begin = len(player.commands())
        self.click_on_panel(PAUSE)
        wait_for(lambda: f"Play {alias}" in player.commands()[begin:], 20, "the play")

    def still_frame(self):
        first = self.full_frame()
        time.sleep(0.4)
        return first if self.full_frame() == first else None

    def test_the_wheel_sets_the_volume_and_shows_its_bar_for_two_seconds(self):
        player, names = self.up()
        self.fill(player, names[1])
        self.wait_for_panel(player, up=False)
        dark = self.place_of_the_bar()
        self.click(700, 400, button=4)
        player.wait_for_commands(f'setaudio "{names[1]}" Volume to 550')
        wait_for(lambda: self.place_of_the_bar() != dark, 20, "the bar")
        begun = time.monotonic()
        self.click(700, 400, button=5)
        self.click(700, 400, button=5)
        player.wait_for_commands(f'setaudio "{names[1]}" Volume to 450')
        wait_for(lambda: self.place_of_the_bar() == dark, 20, "the end of the bar")
        # Each turn begins the two seconds anew.
        self.assertGreater(time.monotonic() - begun, 1.9)
        self.assertLess(time.monotonic() - begun, 8)

    def place_of_the_bar(self):
        """Where the picture of the film is dark at all times."""
        screen = Screen(self)
        return [screen.green(30, y) for y in range(18, 36)]

    def test_mute_on_the_panel(self):
        player, names = self.up()
        self.fill(player, names[1])
        begin = len(player.commands())
        self.click_on_panel(MUTE)
        wait_for(lambda: f'setaudio "{names[1]}" Volume to 0' in player.commands()[begin:], 20, "silence")
        self.click_on_panel(MUTE)
        wait_for(lambda: f'setaudio "{names[1]}" Volume to 500' in player.commands()[begin:], 20, "the volume of before")

    def test_the_pointer_goes_to_rest_at_the_edge_and_comes_back_with_the_panel(self):
        player, names = self.up()
        self.fill(player, names[1])
        self.move(700, 420)
        self.wait_for_panel(player, up=False)
        wait_for(lambda: self.pointer() == PARKED, 20, "the parked pointer")
        self.move(900, 600)
        wait_for(lambda: self.pointer() == (700, 420), 20, "the pointer where it was")
        self.wait_for_panel(player)
        self.wait_for_panel(player, up=False)
        wait_for(lambda: self.pointer() == PARKED, 20, "the parked pointer again")
        self.display.run("xdotool", "click", "1")
        wait_for(lambda: self.pointer() == (700, 420), 20, "the pointer where it was, by a press")
        self.wait_for_panel(player)
        self.assertEqual(player.place(names[1]), FULL)

    def test_the_box_on_the_console_fills_the_screen_with_the_selected_video(self):
        player, names = self.up()
        _, x, y, _, _ = self.console(player)
        self.click(x + 11160 // 15 + 9, y + 2790 // 15 + 9)
        wait_for(lambda: FULL in (player.place(name) for name in names), 20, "full screen")
        self.wait_for_panel(player)

    def test_a_right_click_beside_the_windows_leaves_the_active_video_alone(self):
        player, names = self.up()
        x, y, width, height = player.place(names[1])
        self.click(x + width // 2, y + height // 3)
        wait_for(lambda: self.has_focus(player.video(names[1])), 20, "the focus")
        self.click(5, 1075, button=3)
        self.display.run("xdotool", "key", "Escape")
        self.wait_for_movement(player, names)
        self.assertEqual(player.place(names[1]), (x, y, width, height))

    def test_a_monitor_that_goes_takes_the_full_picture_back_within_reach(self):
        for name, place in (("LEFT", "960/250x1080/280+0+0"), ("RIGHT", "960/250x1080/280+960+0")):
            self.assertEqual(self.display.run("xrandr", "--setmonitor", name, place,
                                              "screen" if name == "LEFT" else "none").returncode, 0)
        self.full = (960, 0, 960, 1080)
        names = films(2, self.folder)
        player = self.start(*names, home=self.home(tips="0", left=str(0), top=str(820 * 15)))
        player.wait_ready(2)
        if player.place(names[0])[0] < 960:
            self.full = (0, 0, 960, 1080)
        self.fill(player, names[1])
        done = self.display.run("xrandr", "--delmonitor", "RIGHT" if self.full[0] else "LEFT")
        self.assertEqual(done.returncode, 0, done.stderr)
        wait_for(lambda: player.place(names[1]) != self.full, 20, "the end of full screen")
        self.assertTrue(player.alive())


class ScreenSaver(FullScreenTest):
    """The desktop's screen saver is held off while a video fills the screen."""

    def setUp(self):
        super().setUp()
        self.service = ScreenSaverService(self.folder)
        self.display.environment["DBUS_SESSION_BUS_ADDRESS"] = self.service.address

    def tearDown(self):
        super().tearDown()
        self.service.end()

    def calls(self):
        """All but the signs of life that come now and then meanwhile."""
        return [call for call in self.service.asked if call[0] != "SimulateUserActivity"]

    def test_it_is_held_off_in_full_screen_and_no_longer(self):
        player, names = self.up()
        before = player.place(names[1])
        self.wait_for_movement(player, names)
        self.assertEqual(self.calls(), [], "windows of their size hold nothing off")
        for cookie in (41, 42):
            begin = len(self.calls())
            self.fill(player, names[1])
            wait_for(lambda: self.service.held == [cookie], 20, "the hold")
            self.wait_for_panel(player, up=False)
            self.assertEqual(self.calls()[begin:], [("Inhibit", "Tandrel Player", "A video fills the screen")])
            self.double_click(900, 500, lambda: player.place(names[1]) == before)
            wait_for(lambda: self.service.held == [], 20, "the end of the hold")
            self.assertEqual(self.calls()[begin + 1:], [("UnInhibit", cookie)])

    def test_the_end_of_the_program_gives_it_back(self):
        player, names = self.up()
        self.fill(player, names[0])
        wait_for(lambda: self.service.held, 20, "the hold")
        self.assertEqual(player.end(), 0)
        wait_for(lambda: self.calls()[1:] == [("UnInhibit", 41)], 20, "the end of the hold")


class WithoutWindowManager(FullScreenTest):
    window_manager = False

    def visible(self, name):
        ids = self.display.run("xdotool", "search", "--onlyvisible", "--name", name).stdout.split()
        return ids[-1] if ids else None

    def place_of(self, player, name):
        window = self.visible(name)
        return player.geometry(window) if window else None

    def test_in_by_a_right_click_and_out_by_the_panel_and_by_a_double_click(self):
        names = films(1, self.folder)
        player = self.start(*names, home=self.home(tips="0"))
        wait_for(lambda: self.place_of(player, "^§"), 20, "the video")
        time.sleep(0.5)
        before = self.place_of(player, "^§")
        for way_out in ("panel", "double click"):
            x, y = before[0] + 300, before[1] + 150
            self.click(x, y)
            time.sleep(0.4)
            self.click(x, y, button=3)
            wait_for(lambda: self.place_of(player, "^§") == FULL, 20, "full screen")
            wait_for(lambda: self.place_of(player, "^Panel") == self.panel_place(), 20, "the panel")
            if way_out == "panel":
                self.click_on_panel(LEAVE)
                wait_for(lambda: self.place_of(player, "^§") == before, 20, "the old place")
                continue
            self.move(900, 400)
            wait_for(lambda: self.place_of(player, "^Panel") is None, 20, "the panel away")
            self.double_click(900, 400, lambda: self.place_of(player, "^§") == before)
        self.assertTrue(player.alive())


if __name__ == "__main__":
    unittest.main()
