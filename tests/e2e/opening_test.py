#!/usr/bin/env python3
"""Files opened by the console's open button, in its own dialog: where their windows stand, and what plays in them."""

import os
import shutil
import unittest

from console_driver import FRAMES, MULTIPLE, RATE, SINGLE, SINGLE_PLACE, ConsoleTest, beside_lead, films, grid
from player import MEDIA, wait_for
import file_dialog

OPEN = 'Open A Type MPEGVideo alias A parent HANDLE style child'
OPENED_PAUSED = [OPEN, "Pause A", "Where A destination", "set A time format frames", "status A length",
                 "set A time format ms", "status A length", "put A window at 0 0 320 240", "setaudio A Volume to 500"]
# A quarter of the five minutes of a film.
QUARTER_MS = 75000
QUARTER_FRAME = QUARTER_MS // 1000 * RATE % FRAMES


class Opening(ConsoleTest):
    def up(self, **settings):
        player = self.start(home=self.home(**settings))
        player.wait_ready()
        return player

    def opened(self, player, begin=0):
        """The paths in the order of their Open commands."""
        return [one.split('"')[1] for one in player.commands()[begin:] if one.startswith("Open ")]

    def sent(self, player, path, begin):
        """What is sent to one file, without the sizes that its picture gets whenever its window has changed."""
        return [one for one in self.commands_for(player, path, begin)
                if not one.startswith("put ") or one == "put A window at 0 0 320 240"]

    def recent(self, player):
        with open(os.path.join(player.home, "last.dat"), encoding="utf-8") as lines:
            return [line for line in lines.read().splitlines() if line]

    def grow(self, player, names, check):
        """Opens these files in four goes, so that 1, 4, 7 and 12 are there. Only the first go brings the tip."""
        done = 0
        for count in (1, 4, 7, 12):
            begin = len(player.commands())
            chosen = names[done:count]
            self.choose(player, MULTIPLE, *chosen)
            if done == 0:
                self.answer_tip(player)
            player.wait_ready(count)
            player.wait_for_commands(f'Play "{chosen[-1]}" ')
            self.wait_for_console_in_front(player)
            self.assertIsNone(self.tip(player))
            self.assertEqual(self.opened(player, begin), chosen)
            self.assertEqual(self.recent(player)[:len(chosen)], chosen)
            check(names[:count], done, begin)
            done = count
        self.assertEqual(self.recent(player), names[7:12] + names[4:7] + names[1:4] + names[:1])

    def test_in_playall_mode_all_stand_in_the_grid_and_play(self):
        names = films(12, self.folder)
        player = self.up(slide="0")

        def check(open_now, before, begin):
            places = grid(len(open_now))
            self.assert_places(player, open_now, places)
            for name, place in list(zip(open_now, places))[before:]:
                expected = OPENED_PAUSED + ["Where A destination", "Play A "]
                self.assertEqual(self.sent(player, name, begin)[:len(expected)], expected)
                width, height = place[2] - 7, place[3] - 27
                player.wait_for_commands(f'put "{name}" window at 0 0 {width} {height}')
            for name in open_now[:before]:
                self.assertFalse({"Play A ", "Pause A", "Close A"} & set(self.commands_for(player, name, begin)), name)
            self.wait_for_movement(player, open_now)

        self.grow(player, names, check)

    def test_in_playlist_mode_the_last_leads_and_the_others_rest_a_quarter_into_the_film(self):
        names = films(12, self.folder)
        player = self.up(slide="1", tips="0")

        def check(open_now, before, begin):
            lead = open_now[-1]
            self.assert_places(player, open_now, beside_lead(len(open_now)))
            player.wait_for_commands(f'Play "{lead}"')
            for name in open_now[before:]:
                expected = OPENED_PAUSED + ["setaudio A Volume to 0", "Where A destination"]
                commands = self.sent(player, name, begin)
                self.assertEqual(commands[:len(expected)], expected)
                self.assertIn("Play A ", commands)
            for name in open_now[:-1]:
                self.assertEqual(self.sent(player, name, begin)[-4:],
                                 ["set A time format ms", "status A length", f"seek A to {QUARTER_MS}", "Pause A"])
            wait_for(lambda: self.sent(player, lead, begin)[-2:] == ["Play A", "setaudio A Volume to 500"], 20, "the lead")
            self.assertRegex(self.sent(player, lead, begin)[-3], r"^seek A to \d+$")
            self.wait_for_movement(player, [lead])
            rest = open_now[:-1]
            resting = [QUARTER_FRAME] * len(rest)
            wait_for(lambda: self.numbers(player, rest) == resting, 20, "the others a quarter into their films")
            self.wait_for_movement(player, [lead])
            self.assertEqual(self.numbers(player, rest), resting)

        self.grow(player, names, check)

    def test_a_dialog_without_a_choice_changes_nothing(self):
        names = films(2, self.folder)
        player = self.start(*names, home=self.home(slide="0"))
        player.wait_ready(2)
        player.wait_for_commands(f'Play "{names[1]}" ')
        self.wait_for_console_in_front(player)
        windows = [(title, *window[1:]) for title, window in sorted(player.windows().items())]
        begin = len(player.commands())
        for title in (MULTIPLE, SINGLE):
            self.dialog_of(player, title)
            file_dialog.cancel(self.display, title)
            self.wait_for_console_in_front(player)
        self.wait_for_movement(player, names)
        self.assert_commands(player, begin, [])
        self.assertEqual([(title, *window[1:]) for title, window in sorted(player.windows().items())], windows)
        self.assertIsNone(self.tip(player))
        self.assertFalse(os.path.exists(os.path.join(player.home, "last.dat")))

    def test_what_cannot_be_played_is_left_out_of_the_grid(self):
        names = films(4, self.folder)
        broken = os.path.join(self.folder, "broken.avi")
        shutil.copy(os.path.join(MEDIA, "text.avi"), broken)
        player = self.up(slide="0")
        self.open_files(player, MULTIPLE, names[0], names[1], broken, names[2], names[3])
        player.wait_ready(4)
        player.wait_for_commands(f'Play "{names[3]}" ')
        self.assert_places(player, names, grid(4))
        self.wait_for_movement(player, names)
        self.assertIsNone(player.video(broken))
        self.assertEqual(self.opened(player), [names[0], names[1], broken, names[2], names[3]])
        self.assertNotIn("Play A ", self.commands_for(player, broken))
        self.wait_for_console_in_front(player)

    def test_no_more_than_twelve_are_taken(self):
        names = films(13, self.folder)
        player = self.up(slide="0")
        self.open_files(player, MULTIPLE, *names)
        player.wait_ready(12)
        player.wait_for_commands(f'Play "{names[11]}" ')
        self.assert_places(player, names[:12], grid(12))
        self.wait_for_console_in_front(player)
        self.assertEqual(self.opened(player), names[:12])

    def test_one_video_replaces_all_that_are_open(self):
        names = films(4, self.folder)
        player = self.start(*names[:3], home=self.home(slide="0"))
        player.wait_ready(3)
        player.wait_for_commands(f'Play "{names[2]}" ')
        begin = len(player.commands())
        self.open_files(player, SINGLE, names[3])
        wait_for(lambda: [title for title in player.windows() if title.startswith("§")] == ["§" + names[3]], 20,
                 "the one window")
        player.wait_for_commands(f'Play "{names[3]}" ')
        self.assert_place(player, names[3], SINGLE_PLACE)
        commands = self.commands(player, begin)
        for name in names[:3]:
            self.assertEqual(self.commands_for(player, name, begin)[0], "Close A")
        first_open = next(place for place, one in enumerate(commands) if one.startswith("Open "))
        self.assertEqual({one for one in commands[first_open:] if one.startswith("Close ")}, set())
        expected = [one for one in OPENED_PAUSED if one != "Pause A"] + ["Where A destination"]
        self.assertEqual(self.sent(player, names[3], begin)[:len(expected)], expected)
        self.assertEqual(self.recent(player), [names[3]])
        self.wait_for_movement(player, [names[3]])
        self.wait_for_console_in_front(player)

    def test_one_video_that_is_open_already_gets_the_focus(self):
        names = films(3, self.folder)
        player = self.start(*names, home=self.home(slide="0"))
        player.wait_ready(3)
        player.wait_for_commands(f'Play "{names[2]}" ')
        begin = len(player.commands())
        self.choose(player, SINGLE, names[0])
        wait_for(lambda: self.has_focus(player.video(names[0])), 20, "the focus for the window of that file")
        self.wait_for_movement(player, names)
        self.assert_commands(player, begin, [])
        self.assertTrue(self.has_focus(player.video(names[0])))
        self.assertIsNone(self.tip(player))

    def test_files_dropped_on_the_console_join_those_that_are_open(self):
        names = films(7, self.folder)
        player = self.start(*names[:4], home=self.home(slide="0"))
        player.wait_ready(4)
        player.wait_for_commands(f'Play "{names[3]}" ')
        self.wait_for_console_in_front(player)
        begin = len(player.commands())
        # What is open already, a folder and what isn't there are left out.
        self.drop(self.console(player), *names[3:6], self.folder, os.path.join(self.folder, "nowhere.avi"), names[6])
        player.wait_ready(7)
        player.wait_for_commands(*(f'Play "{name}" ' for name in names[4:]))
        self.assert_places(player, names, grid(7))
        self.assertEqual(self.opened(player, begin), names[4:])
        self.assertEqual([one for one in self.commands(player, begin) if one.startswith("Close ")], [])
        self.assertEqual(self.recent(player), names[4:])
        self.assertIsNone(self.tip(player))
        self.wait_for_movement(player, names)
        self.wait_for_console_in_front(player)

    def test_files_dropped_on_a_video_join_it(self):
        names = films(4, self.folder)
        player = self.start(names[0], home=self.home(slide="1", tips="0"))
        player.wait_ready(1)
        self.assert_place(player, names[0], SINGLE_PLACE)
        self.drop(player.video(names[0]), *names[1:])
        player.wait_ready(4)
        self.assert_places(player, names, beside_lead(4))
        wait_for(lambda: self.numbers(player, names[:3]) == 3 * [QUARTER_FRAME], 20, "the others a quarter into their films")
        self.wait_for_movement(player, names[3:])


if __name__ == "__main__":
    unittest.main()
