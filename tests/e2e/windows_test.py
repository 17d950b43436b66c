#!/usr/bin/env python3
"""Single windows: selecting, sizing, full screen and back, with and without a window manager, on two monitors."""

import unittest

from player import PlayerTest, clips, wait_for


class Windows(PlayerTest):
    def two(self, **settings):
        names = clips(2, self.folder)
        player = self.start(*names, home=self.home(slide="0", **settings))
        player.wait_ready(2)
        # The open ends with the console in front: a click before that is one into the middle of it.
        wait_for(lambda: all(f'Play "{name}" ' in player.commands() for name in names), 20, "both to play")
        wait_for(lambda: self.in_front() == (player.console() or [None])[0], 20, "the console in front")
        return player, names

    def in_front(self):
        shown = self.display.run("xdotool", "getactivewindow").stdout.strip()
        return f"0x{int(shown):08x}" if shown.isdigit() else None

    def title_shows(self, player, part):
        return any(part in title for title in player.windows())

    def test_a_single_file_stands_in_its_fixed_place_and_plays(self):
        name = clips(1, self.folder)[0]
        player = self.start(name)
        player.wait_ready(1)
        self.assert_place(player, name, (27, 27, 788, 425))
        alias = f'"{name}"'
        picture = f"put {alias} window at 0 0 781 398"
        wait_for(lambda: picture in player.commands(), 20, "the picture to fill its window")
        commands = [one for one in player.commands() if not one.startswith("Open ")]
        self.assertEqual(commands[:4], [f"Pause {alias}", f"Where {alias} destination", f"set {alias} time format frames",
                                        f"status {alias} length"])
        player.wait_for_commands(f"Play {alias} ")

    def test_a_right_click_brings_full_screen_and_the_panel_leads_back(self):
        player, names = self.two()
        _, x, y, width, height = player.video(names[0])
        before = player.place(names[0])
        self.click(x + width // 2, y + height // 3, button=3)
        wait_for(lambda: player.place(names[0]) == (0, 0, 1920, 1080), 20, "full screen")
        panel = wait_for(lambda: self.panel(player), 20, "the panel")
        wait_for(lambda: self.panel(player)[1:] == (0, 1080 - 61, 1920, 61), 20, "the panel to stand")
        player.wait_for_commands(f'put "{names[0]}" window at 0 0 1920 1080')
        self.click(panel[1] + 835, 1080 - 61 + 34)
        wait_for(lambda: player.place(names[0]) == before, 20, "the old place")
        wait_for(lambda: not self.panel(player), 20, "the end of the panel")
        self.assertTrue(player.alive())

    def test_a_full_screen_window_that_is_closed_ends_full_screen(self):
        player, names = self.two()
        _, x, y, width, height = player.video(names[0])
        self.click(x + width // 2, y + height // 3, button=3)
        full = wait_for(lambda: player.place(names[0]) == (0, 0, 1920, 1080) and player.video(names[0]), 20, "full screen")
        self.display.run("wmctrl", "-ic", full[0])
        wait_for(lambda: player.video(names[0]) is None and not self.panel(player), 20, "the end of window and panel")
        _, x, y, width, height = player.video(names[1])
        self.click(x + width // 2, y + height // 3, button=3)
        wait_for(lambda: player.place(names[1]) == (0, 0, 1920, 1080), 20, "full screen of the other video")

    def panel(self, player):
        return player.windows().get("Panel", ())

    def test_the_wheel_sizes_the_window(self):
        player, names = self.two()
        _, x, y, width, height = player.video(names[0])
        self.click(x + 300, y + 200)
        self.click(x + 300, y + 200, button=5)
        smaller = (round(width * 0.9), round(height * 0.9))
        wait_for(lambda: player.size(names[0]) == smaller, 20, f"a window of {smaller}")
        self.click(x + 300, y + 200, button=4)
        wait_for(lambda: player.size(names[0])[0] > smaller[0], 20, "a larger window")

    def test_the_exit_button_ends_the_program_and_keeps_the_place(self):
        player, _ = self.two()
        _, x, y, _, _ = player.console()
        self.click(x + 864, y + 45)
        wait_for(lambda: not player.alive(), 20, "the end of the program")
        self.assertEqual(player.process.returncode, 0)
        self.assertEqual(player.commands()[-1], "Close all")
        with open(player.home + "/MsShareStuff.ini", encoding="utf-8") as settings:
            self.assertIn(f"left={x * 15}", settings.read())


class WithoutWindowManager(PlayerTest):
    window_manager = False

    def visible(self, player):
        """Names of windows that are on the screen, as no window manager keeps a list."""
        return self.display.run("xdotool", "search", "--onlyvisible", "--pid", str(player.process.pid), "--name", ".+").stdout.split()

    def window(self, player, name):
        found = self.display.run("xdotool", "search", "--onlyvisible", "--name", "^§.*" + name.rsplit("/", 1)[1]).stdout.split()
        return found[0] if found else None

    def test_clicks_select_and_a_right_click_brings_full_screen(self):
        names = clips(2, self.folder)
        player = self.start(*names, home=self.home(slide="0"))
        first = wait_for(lambda: self.window(player, names[0]), 20, "the first window")
        wait_for(lambda: self.window(player, names[1]), 20, "the second window")
        wait_for(lambda: f'Play "{names[1]}" ' in player.commands(), 20, "both to play")
        wait_for(lambda: player.geometry(first) == (0, 0, 960, 540), 20, "the place in the grid")
        self.press(300, 200, button=3)
        try:
            wait_for(lambda: player.geometry(first) == (0, 0, 1920, 1080), 20, "full screen")
        finally:
            self.release(button=3)
        self.assertTrue(player.alive())


class TwoMonitors(PlayerTest):
    display_size = "2560x1024"

    def setUp(self):
        super().setUp()
        for name, place in (("LEFT", "1280/320x1024/270+0+0"), ("*RIGHT", "1280/320x1024/270+1280+0")):
            done = self.display.run("xrandr", "--setmonitor", name, place, "screen" if name == "LEFT" else "none")
            self.assertEqual(done.returncode, 0, done.stderr)

    def test_all_videos_stand_on_the_consoles_monitor(self):
        names = clips(4, self.folder)
        player = self.start(*names, home=self.home(slide="0"))
        player.wait_ready(4)
        corners = [(1280, 0), (1920, 0), (1920, 512), (1280, 512)]
        for name, corner in zip(names, corners):
            self.assert_place(player, name, (*corner, 640, 512), name)
        self.click(1280 + 300, 200, button=3)
        wait_for(lambda: player.place(names[0]) == (1280, 0, 1280, 1024), 20, "full screen on the second monitor")


if __name__ == "__main__":
    unittest.main()
