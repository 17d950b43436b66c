#!/usr/bin/env python3
"""The console's buttons over four videos: what each sends, and what is seen of it."""

import os
import subprocess
import unittest

from console_driver import FRAMES, ConsoleTest, beside_lead, films, grid, slow_films
from player import wait_for

PAGES = (("imgFaceBook", "https://www.facebook.com/sharer.php?"), ("imgTwitter", "https://twitter.com/share?"))
# The label of the speed, in pixels of the console.
SPEED = (4140 // 15, 1485 // 15, 630 // 15, 270 // 15)


def paused(names):
    """What pauses them all and keeps their places."""
    return [part.format(name) for name in names
            for part in ('Pause "{}"', 'set "{}" time format ms', 'status "{}" position')]


def stepped(names, mark):
    return [part.format(name, mark) for name in names
            for part in ('step "{}"{}', 'setaudio "{}" Volume to 0', 'Play "{}"', 'Pause "{}"',
                         'setaudio "{}" Volume to 500', 'set "{}" time format ms', 'status "{}" position')]


def resumed(name, level=500):
    """What brings a video back that was hidden."""
    return [part.format(name, level) for part in ('set "{}" time format ms', 'status "{}" position', 'seek "{}" to N',
                                                  'Play "{}"', 'setaudio "{}" Volume to {}')]


class Transport(ConsoleTest):
    """The fourth of the videos is the selected one."""

    def up(self, make=films, slide="0", count=4, **environment):
        self.names = make(count, self.folder)
        self.selected = self.names[-1]
        player = self.start(*self.names, home=self.home(slide=slide, tips="0"), **environment)
        player.wait_ready(count)
        self.assert_places(player, self.names, grid(count) if slide == "0" else beside_lead(count))
        player.wait_for_commands(f'setaudio "{self.selected}" Volume to 500' if slide == "1" else f'Play "{self.selected}" ')
        self.wait_for_console_in_front(player)
        wait_for(lambda: f'status "{self.selected}" position' in player.commands()[-3:], 20, "the ticks of the selected one")
        return player

    def press_button(self, player, name, *expected):
        """Clicks once; these commands follow and no others. Gives where they begin in the trace."""
        begin = len(player.commands())
        self.click_button(player, name)
        self.assert_commands(player, begin, list(expected))
        return begin

    def pause_all(self, player):
        self.press_button(player, "imgPauseAll", *paused(self.names))
        return self.still_numbers(player, self.names)

    def kept_place(self, player, name, begin):
        """What the service answered to the question for the place behind the pause of a video."""
        rows = player.trace()[begin:]
        pause = [row[0] for row in rows].index(f'Pause "{name}"')
        self.assertEqual(rows[pause + 2][0], f'status "{name}" position')
        return rows[pause + 2][2]

    def state(self, window):
        return self.display.run("xprop", "-id", window, "WM_STATE").stdout

    def videos(self, player):
        return sorted(title[1:] for title in player.windows() if title.startswith("§"))

    def speed(self, player):
        """The label of the speed as it is seen."""
        _, x, y, _, _ = self.console(player)
        left, top, width, height = SPEED
        return subprocess.run(["import", "-window", "root", "-crop", f"{width}x{height}+{x + left}+{y + top}", "-depth", "8",
                               "rgb:-"], env=self.display.environment, capture_output=True, check=True).stdout

    def test_pause_all_holds_every_video_and_lets_it_go_on_from_its_place(self):
        player = self.up()
        self.wait_for_movement(player, self.names)
        begin = self.press_button(player, "imgPauseAll", *paused(self.names))
        self.still_numbers(player, self.names)
        places = [self.kept_place(player, name, begin) for name in self.names]
        self.press_button(player, "imgPauseAll", *(f'Play "{name}" from {place}' for name, place in zip(self.names, places)))
        self.wait_for_movement(player, self.names)
        self.pause_all(player)

    def test_step_shows_exactly_the_next_frame_everywhere(self):
        player = self.up()
        numbers = self.pause_all(player)
        for _ in range(3):
            self.press_button(player, "imgStep", *stepped(self.names, ""))
            numbers = [(number + 1) % FRAMES for number in numbers]
            wait_for(lambda: self.numbers(player, self.names) == numbers, 20, f"the next frames {numbers}")
            self.assertEqual(self.still_numbers(player, self.names), numbers)
        self.press_button(player, "imgPauseAll", *(f'Play "{name}" from N' for name in self.names))
        self.wait_for_movement(player, self.names)

    def test_back_shows_exactly_the_frame_before_as_often_as_it_is_clicked(self):
        player = self.up()
        self.wait_for_movement(player, self.names)
        numbers = self.pause_all(player)
        for _ in range(3):
            self.press_button(player, "imgBack", *stepped(self.names, " reverse"))
            numbers = [(number - 1) % FRAMES for number in numbers]
            wait_for(lambda: self.numbers(player, self.names) == numbers, 20, f"the frames before {numbers}")
            self.assertEqual(self.still_numbers(player, self.names), numbers)
        begin = len(player.commands())
        for _ in range(5):
            self.click_button(player, "imgBack")
        self.assert_commands(player, begin, 5 * stepped(self.names, " reverse"))
        numbers = [(number - 5) % FRAMES for number in numbers]
        wait_for(lambda: self.numbers(player, self.names) == numbers, 20, f"five frames before, {numbers}")
        self.press_button(player, "imgStep", *stepped(self.names, ""))
        numbers = [(number + 1) % FRAMES for number in numbers]
        wait_for(lambda: self.numbers(player, self.names) == numbers, 20, f"one on again, {numbers}")
        self.assertEqual(self.still_numbers(player, self.names), numbers)

    def test_resync_starts_all_from_their_beginning(self):
        player = self.up(slow_films)
        wait_for(lambda: all((number or 0) >= 30 for number in self.numbers(player, self.names)), 30, "five seconds played")
        begin = len(player.commands())
        self.click_button(player, "imgResync")

        def together():
            found = self.numbers(player, self.names)
            return None not in found and max(found) < 20 and max(found) - min(found) <= 2

        wait_for(together, 20, "all near their beginning")
        commands = self.commands(player, begin)
        restarted = [one for one in commands if one.startswith("seek ")]
        self.assertEqual(restarted, [f'seek "{name}" to 0' for name in self.names])
        for name in self.names:
            place = commands.index(f'seek "{name}" to 0')
            self.assertEqual(commands[place + 1:place + 3], [f'Play "{name}"', f'setaudio "{name}" Volume to 500'])
        self.assert_places(player, self.names, grid(4))
        self.wait_for_movement(player, self.names)

    def test_mute_silences_all_and_brings_their_volume_back(self):
        player = self.up()
        for level in (0, 500, 0, 500):
            self.press_button(player, "imgMute", *(f'setaudio "{name}" Volume to {level}' for name in self.names))

    def test_pause_and_play_act_on_the_selected_video_alone(self):
        player = self.up()
        rest = self.names[:-1]
        self.press_button(player, "imgPause", f'Pause "{self.selected}"')
        held = self.still_numbers(player, [self.selected])
        self.wait_for_movement(player, rest)
        self.assertEqual(self.numbers(player, [self.selected]), held)
        self.press_button(player, "imgPlay", f'set "{self.selected}" time format ms', f'seek "{self.selected}" to N',
                          f'Play "{self.selected}"', f'setaudio "{self.selected}" Volume to 500')
        self.wait_for_movement(player, self.names)

    def test_replay_starts_the_selected_video_alone_from_its_beginning(self):
        player = self.up(slow_films)
        wait_for(lambda: all((number or 0) >= 30 for number in self.numbers(player, self.names)), 30, "five seconds played")
        self.press_button(player, "imgReplay", f'set "{self.selected}" time format ms', f'seek "{self.selected}" to 0',
                          f'Play "{self.selected}"')

        def restarted():
            *rest, last = self.numbers(player, self.names)
            return None not in (*rest, last) and last < 20 and min(rest) >= 30

        wait_for(restarted, 20, "the selected one near its beginning, the others where they were")
        self.wait_for_movement(player, self.names)

    def jumps(self, player, begin):
        sent = [one for one in player.commands()[begin:] if one.startswith("play ")]
        self.assertEqual([one for one in sent if not one.startswith(f'play "{self.selected}" from ')], [])
        return [int(one.rsplit(" ", 1)[1]) for one in sent]

    def test_forward_and_rewind_jump_through_the_selected_video(self):
        player = self.up()
        resting = self.speed(player)
        begin = len(player.commands())
        self.click_button(player, "imgFwd")
        wait_for(lambda: (self.jumps(player, begin) or [0])[-1] > 10000, 30, "jumps forward, ten seconds into the film")
        forward = self.jumps(player, begin)
        self.assertEqual(forward, sorted(forward))
        wait_for(lambda: self.speed(player) != resting, 20, "the speed on the display")
        at_double = self.speed(player)
        # The other button stops them; pressed again it goes the other way, to the beginning, and stops there.
        begin = len(player.commands())
        self.click_button(player, "imgRwd")
        player.wait_for_commands(f'setaudio "{self.selected}" Volume to 500')
        wait_for(lambda: self.speed(player) == resting, 20, "the speed at rest")
        begin = len(player.commands())
        self.click_button(player, "imgRwd")
        wait_for(lambda: self.speed(player) not in (resting, at_double), 20, "the speed backwards")
        wait_for(lambda: f'Pause "{self.selected}"' in player.commands()[begin:], 40, "the stop at the beginning")
        back = self.jumps(player, begin)
        self.assertGreater(len(back), 3)
        self.assertEqual(back, sorted(back, reverse=True))
        self.assertLess(back[-1], 1000)
        wait_for(lambda: self.speed(player) == resting, 20, "the speed at rest again")
        self.assertEqual({name for name in self.names[:-1] if self.commands_for(player, name, begin)}, set())

    def test_plus_and_minus_change_the_volume_of_the_selected_video(self):
        player = self.up()

        def levels(begin):
            """Between those of the buttons the ticks bring back the window's own, which they leave as it is."""
            set_to = f'setaudio "{self.selected}" Volume to '
            sent = [one.removeprefix(set_to) for one in player.commands()[begin:] if one.startswith(set_to)]
            return [int(level) for level in sent if level != "500"]

        begin = len(player.commands())
        for level in (600, 700, 800, 900, 1000):
            self.click_button(player, "imgMax")
            wait_for(lambda: levels(begin)[-1:] == [level], 20, f"the volume {level}")
        # There is nothing above; the next that is heard of is the button below.
        self.click_button(player, "imgMax")
        self.click_button(player, "imgMin")
        wait_for(lambda: levels(begin)[-1:] == [900], 20, "the volume 900")
        self.assertEqual(levels(begin), [600, 700, 800, 900, 1000, 900])

    def test_hide_takes_all_windows_away_and_the_console_brings_them_back(self):
        player = self.up()
        self.press_button(player, "imgPause", f'Pause "{self.selected}"')
        held = self.still_numbers(player, [self.selected])
        console = self.console(player)[0]
        self.press_button(player, "imgHide", *(f'Pause "{name}"' for name in self.names))
        wait_for(lambda: not self.videos(player), 20, "the videos off the screen")
        wait_for(lambda: "Iconic" in self.state(console), 20, "the console as an icon")
        begin = len(player.commands())
        self.display.run("wmctrl", "-i", "-a", console)
        wait_for(lambda: self.videos(player) == sorted(self.names), 20, "the videos back on the screen")
        self.assert_commands(player, begin, sum((resumed(name) for name in self.names), []) + [f'Pause "{self.selected}"'])
        wait_for(lambda: "Normal" in self.state(console), 20, "the console on the screen")
        self.assert_places(player, self.names, grid(4))
        self.wait_for_movement(player, self.names[:-1])
        self.assertEqual(self.still_numbers(player, [self.selected]), held)

    def test_hide_right_behind_an_open_takes_the_console_away_too(self):
        """The open asks for the focus at its end, which would bring the console back without the videos."""
        player = self.start(home=self.home(tips="0"))
        player.wait_ready()
        console = self.console(player)
        self.names = films(8, self.folder)
        self.drop(console, *self.names)
        self.click_button(player, "imgHide")
        wait_for(lambda: "Iconic" in self.state(console[0]), 20, "the console as an icon")
        self.assertEqual(self.videos(player), [])
        self.display.run("wmctrl", "-i", "-a", console[0])
        wait_for(lambda: self.videos(player) == self.names, 20, "the videos on the screen")

    def test_minimise_takes_the_console_alone_away(self):
        player = self.up()
        console = self.console(player)[0]
        begin = len(player.commands())
        self.click_button(player, "imgDwn")
        wait_for(lambda: "Iconic" in self.state(console), 20, "the console as an icon")
        self.assertEqual(self.videos(player), sorted(self.names))
        self.wait_for_movement(player, self.names)
        self.display.run("wmctrl", "-i", "-a", console)
        wait_for(lambda: "Normal" in self.state(console), 20, "the console on the screen")
        self.wait_for_movement(player, self.names)
        self.assert_commands(player, begin, [])

    def test_help_and_menus_come_and_go_and_leave_the_videos_alone(self):
        player = self.up()
        begin = len(player.commands())
        self.click_button(player, "imgHelp")
        helped = lambda: any(title.startswith("Help Control Panel - ") for title in player.windows())
        wait_for(helped, 20, "the help")
        self.answer("Escape", lambda: not helped(), "the end of the help")
        for button in ("imgOpen", "imgResize", "imgShare"):
            self.open_menu(player, button)
            self.answer("Escape", lambda: not self.popup(), f"the end of the menu of {button}")
        self.click_button(player, "imgMax")
        louder, own = (f'setaudio "{self.selected}" Volume to {level}' for level in (600, 500))
        wait_for(lambda: self.commands(player, begin)[:1] == [louder], 20, "a louder video, and nothing before")
        self.wait_for_movement(player, self.names)
        # A tick brings the window's own volume back.
        self.assertLessEqual(set(self.commands(player, begin)[1:]), {own})

    def test_the_buttons_of_two_services_open_their_pages(self):
        asked = os.path.join(self.folder, "asked")
        opener = os.path.join(self.folder, "xdg-open")
        with open(opener, "w", encoding="ascii") as script:
            script.write(f'#!/bin/sh\necho "$@" >>"{asked}"\n')
        os.chmod(opener, 0o755)
        player = self.up(PATH=f"{self.folder}:{os.environ['PATH']}")

        def pages():
            if not os.path.exists(asked):
                return []
            with open(asked, encoding="utf-8") as lines:
                return lines.read().splitlines()

        for count, (button, page) in enumerate(PAGES, 1):
            self.click_button(player, button)
            wait_for(lambda: len(pages()) == count, 20, f"the page of {button}")
            self.assertTrue(pages()[-1].startswith(page), pages())

    def setting(self, player, line):
        with open(os.path.join(player.home, "MsShareStuff.ini"), encoding="utf-8") as settings:
            return line in settings.read().splitlines()

    def test_the_layout_menu_changes_between_the_two_arrangements(self):
        player = self.up()
        self.open_menu(player, "imgResize")
        begin = len(player.commands())
        self.answer("s", lambda: self.setting(player, "slide=1"), "the entry for PlayList Mode")
        self.assert_places(player, self.names, beside_lead(4))
        player.wait_for_commands(f'seek "{self.selected}" to 0')
        for name in self.names[:-1]:
            self.assertEqual([one for one in self.commands_for(player, name, begin) if one[0] in "Ps"], ["Pause A"])
        self.wait_for_movement(player, [self.selected])
        rest = self.still_numbers(player, self.names[:3])
        self.wait_for_movement(player, [self.selected])
        self.assertEqual(self.numbers(player, self.names[:3]), rest)
        self.open_menu(player, "imgResize")
        self.answer("c", lambda: self.setting(player, "slide=0"), "the entry for PlayAll Mode")
        self.assert_places(player, self.names, grid(4))
        self.wait_for_movement(player, self.names)

    def test_exit_pauses_and_closes_all_and_ends_the_program(self):
        player = self.up()
        begin = len(player.commands())
        self.click_button(player, "imgExit")
        wait_for(lambda: not player.alive(), 20, "the end of the program")
        self.assertEqual(player.process.returncode, 0)
        self.assert_commands(player, begin, [f'Pause "{name}"' for name in self.names] + ["Close all"])
        self.assertTrue(self.setting(player, f"top={820 * 15}") and self.setting(player, f"left={300 * 15}"))

    def test_in_playlist_mode_the_group_buttons_leave_every_device_alone(self):
        player = self.up(slide="1")
        begin = len(player.commands())
        for button in ("imgPauseAll", "imgStep", "imgBack", "imgResync", "imgPauseAll"):
            self.click_button(player, button)
        self.click_button(player, "imgMute")
        self.assert_commands(player, begin, [f'setaudio "{self.selected}" Volume to 0'])
        self.assert_places(player, self.names, beside_lead(4))
        rest = self.still_numbers(player, self.names[:3])
        self.wait_for_movement(player, [self.selected])
        self.assertEqual(self.numbers(player, self.names[:3]), rest)


if __name__ == "__main__":
    unittest.main()
