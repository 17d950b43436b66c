#!/usr/bin/env python3
"""Other programs that see and command the player over the session bus: a real client, on a bus of the test's own."""

import os
import shutil
import signal
import subprocess
import unittest

from player import MEDIA, PlayerTest, clips, long_clips, wait_briefly, wait_for
from session_bus import SessionBus

NAME = "org.mpris.MediaPlayer2.tandrel_player"
PLAYER = "org.mpris.MediaPlayer2.Player"
PATH = "/org/mpris/MediaPlayer2"
DISC = os.path.join(os.environ["TANDREL_TEST_DISC"], "disc.iso")


class MprisTest(PlayerTest):
    def setUp(self):
        super().setUp()
        self.bus = SessionBus(self.folder)
        self.display.environment["DBUS_SESSION_BUS_ADDRESS"] = self.bus.address

    def tearDown(self):
        try:
            super().tearDown()
        finally:
            self.bus.end()

    def client(self, *words, player="tandrel_player"):
        """What the client says to a command."""
        done = self.display.run("playerctl", "-p", player, *words, timeout=60)
        return done.stdout.strip() if done.returncode == 0 else "error: " + done.stderr.strip()

    def tell(self, *words, **options):
        self.assertEqual(self.client(*words, **options), "", words)

    def call(self, member, *arguments, name=NAME):
        """A call by a program that knows nothing of players. Gives what it said and whether that was an answer."""
        done = self.display.run("gdbus", "call", "--session", "--timeout", "40", "--dest", name, "--object-path", PATH,
                                "--method", member, *arguments)
        return done.returncode == 0, (done.stdout + done.stderr).strip()

    def names(self):
        return sorted(self.client("-l").splitlines())

    def wait_listed(self, *names):
        wait_for(lambda: self.names() == sorted(names), 20, f"the players {names}")

    def wait_said(self, expected, *words, **options):
        said = []

        def asked():
            said.append(self.client(*words, **options))
            return said[-1] == expected

        wait_for(asked, 20, f"{expected} from {words}")

    def status(self, expected, **options):
        self.wait_said(expected, "status", **options)

    def title(self, expected, **options):
        self.wait_said(expected, "metadata", "xesam:title", **options)

    def position(self):
        """Seconds; nothing where the client hears none."""
        said = self.client("position")
        return -1 if said.startswith("error") else float(said)

    def wait_position(self, low, high, what):
        wait_for(lambda: low <= self.position() <= high, 20, f"{what}, not {self.position()}")

    def up(self, *names, slide="0", **options):
        player = self.start(*names, home=self.home(slide=slide, tips="0"), **options)
        player.wait_ready(len(names))
        self.wait_listed("tandrel_player")
        return player


class Commands(MprisTest):
    def held_place(self):
        """Where it stays; the place of the very picture may be told a little later than that it is held."""

        def stays():
            place = self.position()
            return None if wait_briefly(lambda: self.position() != place, 1) else (place,)

        return wait_for(stays, 20, "a place that stays")[0]

    def test_a_client_sees_a_video_and_commands_it(self):
        name, = long_clips(1, self.folder)
        player = self.up(name)
        self.status("Playing")
        self.title("clip 00.mp4")
        self.assertEqual(self.client("metadata", "xesam:url"), "file://" + name.replace(" ", "%20"))
        self.assertGreater(int(self.client("metadata", "mpris:length")), 250_000_000)
        first = self.position()
        wait_for(lambda: self.position() > first, 20, "the place to go on")
        self.tell("pause")
        self.status("Paused")
        player.wait_for_commands(f'Pause "{name}"')
        self.held_place()
        self.tell("play-pause")
        self.status("Playing")
        self.tell("play-pause")
        self.status("Paused")
        self.tell("play")
        self.status("Playing")
        self.tell("position", "60")
        self.wait_position(60, 120, "a minute")
        self.tell("pause")
        self.status("Paused")
        begin = self.held_place()
        self.tell("position", "30-")
        self.wait_position(begin - 31, begin - 29, "half a minute back")
        self.tell("position", "1000-")
        self.wait_position(0, 0, "the beginning")
        self.tell("volume", "0.3")
        self.wait_said("0.300000", "volume")
        player.wait_for_commands(f'setaudio "{name}" Volume to 300')
        self.tell("play")
        self.status("Playing")
        self.tell("stop")
        self.status("Stopped")
        self.wait_position(0, 0, "the beginning")
        self.tell("play")
        self.status("Playing")
        wait_for(lambda: self.position() > 0.5, 20, "the place to go on")

    def test_changes_are_told_to_those_who_listen(self):
        names = long_clips(2, self.folder)
        self.up(*names)
        self.status("Playing")
        with open(os.path.join(self.folder, "told"), "w+", encoding="utf-8") as told:
            listener = subprocess.Popen(["playerctl", "-F", "-p", "tandrel_player", "metadata", "--format",
                                         "{{status}} {{title}} {{volume}}"], env=self.display.environment, stdout=told)
            try:
                def last():
                    told.seek(0)
                    return told.read().splitlines()[-1:]

                wait_for(lambda: last() == ["Playing clip 01.mp4 0.5"], 20, "the beginning")
                self.tell("pause")
                wait_for(lambda: last() == ["Paused clip 01.mp4 0.5"], 20, "the pause")
                self.tell("next")
                wait_for(lambda: last() == ["Playing clip 00.mp4 0.5"], 20, "the other one")
                self.tell("volume", "0.75")
                wait_for(lambda: last() == ["Playing clip 00.mp4 0.75"], 20, f"the volume, not {last()}")
            finally:
                listener.terminate()
                listener.wait()

    def test_next_and_previous_go_round_in_play_all_mode(self):
        self.up(*long_clips(3, self.folder))
        self.title("clip 02.mp4")
        for expected in (0, 1, 2):
            self.tell("next")
            self.title(f"clip {expected:02}.mp4")
        for expected in (1, 0, 2):
            self.tell("previous")
            self.title(f"clip {expected:02}.mp4")
        self.status("Playing")

    def test_in_play_list_mode_the_next_takes_the_large_place(self):
        names = long_clips(3, self.folder)
        player = self.up(*names, slide="1")
        self.title("clip 02.mp4")
        wait_for(lambda: player.size(names[2]) > player.size(names[0]), 20, "the large place")
        for direction, expected in (("next", 0), ("next", 1), ("previous", 0)):
            self.tell(direction)
            self.title(f"clip {expected:02}.mp4")
            others = [name for name in names if name != names[expected]]
            wait_for(lambda: all(player.size(names[expected]) > player.size(one) for one in others), 20, "the large place")
            self.status("Playing")

    def test_in_full_screen_the_next_fills_it(self):
        names = long_clips(2, self.folder)
        player = self.up(*names)
        self.title("clip 01.mp4")
        full = (0, 0, 1920, 1080)
        before = player.place(names[1])

        def filled():
            x, y, width, height = player.place(names[1])
            if x is None or (x, y, width, height) == full:
                return x is not None
            self.click(x + width // 2, y + height // 2)
            self.click(x + width // 2, y + height // 2, button=3)
            return wait_briefly(lambda: player.place(names[1]) == full)

        wait_for(filled, 20, "full screen")
        self.tell("next")
        self.title("clip 00.mp4")
        wait_for(lambda: player.place(names[0]) == full, 20, "the other one in full screen")
        wait_for(lambda: player.place(names[1]) == before, 20, "the old place of the first")

    def test_files_are_opened(self):
        player = self.up()
        self.status("Stopped")
        _, metadata = self.call("org.freedesktop.DBus.Properties.Get", PLAYER, "Metadata")
        self.assertIn("'mpris:trackid': <objectpath '/org/mpris/MediaPlayer2/TrackList/NoTrack'>", metadata)
        first, second = long_clips(2, self.folder)
        self.tell("open", first)
        self.title("clip 00.mp4")
        self.status("Playing")
        odd = os.fsencode(self.folder) + b'/a "q" | \n \xff.mp4'
        os.symlink(os.path.realpath(second), odd)
        address = "file://" + "".join(f"%{byte:02X}" for byte in odd).replace("%2F", "/")
        self.assertEqual(self.call(PLAYER + ".OpenUri", address), (True, "()"))
        wait_for(lambda: self.client("metadata", "xesam:url").lower().endswith("%ff.mp4"), 20, "the odd name")
        self.assertTrue(self.client("metadata", "xesam:title").endswith("?.mp4"))
        wait_for(lambda: sum(title.startswith("§") for title in player.windows()) == 2, 20, "two windows")
        for wrong in ("/no/address.mp4", "http://host/a.mp4", "file://elsewhere.invalid/a.mp4"):
            answered, said = self.call(PLAYER + ".OpenUri", wrong)
            self.assertFalse(answered)
            self.assertIn("InvalidArgs", said)
        self.assertEqual(self.call(PLAYER + ".OpenUri", "file:///gone.mp4"), (True, "()"))
        self.status("Playing")

    def test_two_players(self):
        names = long_clips(2, self.folder)
        first = self.up(names[0])
        second = self.start(names[1], home=self.home("second", tips="0"))
        second.wait_ready(1)
        own = f"tandrel_player.instance{second.process.pid}"
        self.wait_listed("tandrel_player", own)
        self.title("clip 00.mp4")
        self.title("clip 01.mp4", player=own)
        pauses = first.commands().count(f'Pause "{names[0]}"')
        self.tell("pause", player=own)
        self.status("Paused", player=own)
        self.status("Playing")
        self.assertEqual(first.commands().count(f'Pause "{names[0]}"'), pauses)
        self.assertEqual(first.end(), 0)
        self.wait_listed(own)

    def test_absurd_calls(self):
        name, = long_clips(1, self.folder)
        player = self.up(name)
        self.status("Playing")
        interface = PLAYER + "."
        for offset in (2**63 - 1, -2**63):
            self.assertTrue(self.call(interface + "Seek", f"int64 {offset}")[0])
        self.wait_position(0, 60, "the beginning")
        for track in ("/", "/tandrel_player/medium/999", "/org/mpris/MediaPlayer2/TrackList/NoTrack"):
            self.assertTrue(self.call(interface + "SetPosition", f"objectpath '{track}'", "int64 200000000")[0])
        for value in ("<nan>", "<inf>", "<-1.0>"):
            self.assertTrue(self.call("org.freedesktop.DBus.Properties.Set", PLAYER, "Volume", value)[0])
        for wrong in (("Dance",), ("Seek", "'text'"), ("Seek",), ("Play", "1")):
            self.assertFalse(self.call(interface + wrong[0], *wrong[1:])[0], wrong)
        callers = [subprocess.Popen(["playerctl", "-p", "tandrel_player", "play-pause"], env=self.display.environment)
                   for _ in range(40)]
        for caller in callers:
            self.assertEqual(caller.wait(60), 0)
        self.tell("play")
        self.status("Playing")
        self.assertLess(self.position(), 190)
        self.assertEqual(player.end(), 0)


class OtherMedia(MprisTest):
    def test_an_hd_film(self):
        film = os.path.join(MEDIA, "film_long.mkv")
        self.start(film, home=self.home(tips="0"))
        self.wait_listed("tandrel_player")
        self.status("Playing")
        self.title("film_long.mkv")
        wait_for(lambda: self.client("metadata", "mpris:length").isdigit(), 20, "the length")
        self.assertEqual(self.client("metadata", "xesam:url"), "file://" + film)
        self.tell("pause")
        self.status("Paused")
        self.tell("position", "20")
        self.wait_position(19.5, 20.5, "the place")
        self.tell("volume", "0.2")
        self.wait_said("0.200000", "volume")
        self.tell("play")
        wait_for(lambda: self.position() > 20.6, 20, "the film to go on")
        self.tell("stop")
        self.status("Stopped")

    def test_a_disc(self):
        self.start("DVD", home=self.home(tips="0"), TANDREL_DISCS=DISC)
        self.wait_listed("tandrel_player")
        self.title("TANDREL_TEST")
        self.status("Playing")
        self.tell("pause")
        self.status("Paused")
        self.tell("play")
        self.status("Playing")
        self.tell("next")
        self.tell("previous")
        self.status("Playing")


class Windows(MprisTest):
    def box(self, player):
        return player.windows().get("Tandrel Player") or next(
            (tuple(window) for title, *window in player.all_windows()
             if title.startswith("Tandrel Player") and window[3] < 700), None)

    def focus(self):
        return int(self.display.run("xdotool", "getwindowfocus").stdout.strip() or 0)

    def with_box(self):
        """A player whose message waits for the user: its file can't be played."""
        bad = os.path.join(self.folder, "bad.avi")
        shutil.copy(__file__, bad)
        player = self.start(bad, home=self.home(tips="0"))
        wait_for(lambda: self.box(player), 20, "the message")
        self.wait_listed("tandrel_player")
        return player

    def test_commands_wait_while_a_message_is_up(self):
        player = self.with_box()
        name, = long_clips(1, self.folder)
        self.tell("open", name)
        self.tell("volume", "0.9")
        self.assertFalse(wait_briefly(lambda: player.video(name), 1))
        self.assertTrue(self.box(player))
        self.answer("Return", lambda: not self.box(player), "the end of the message")
        wait_for(lambda: player.video(name), 20, "the video")
        self.status("Playing")
        self.wait_said("0.900000", "volume")

    def test_quit_ends_a_player_whose_message_is_up(self):
        player = self.with_box()
        answered, said = self.call("org.mpris.MediaPlayer2.Quit")
        self.assertTrue(answered, said)
        self.assertEqual(player.process.wait(40), 0)

    def test_quit_ends_the_player_and_keeps_its_place(self):
        player = self.up(*clips(2, self.folder))
        self.display.run("xdotool", "windowmove", "--sync", player.console()[0], "200", "300")
        wait_for(lambda: player.console()[1] in range(190, 211), 20, "the console in its place")
        answered, said = self.call("org.mpris.MediaPlayer2.Quit")
        self.assertTrue(answered, said)
        self.assertEqual(player.process.wait(40), 0)
        self.wait_listed()
        with open(player.home + "/MsShareStuff.ini", encoding="utf-8") as settings:
            self.assertRegex(settings.read(), r"left=\d+")

    def test_raise_brings_the_console_to_the_front(self):
        player = self.up(*clips(1, self.folder))
        self.display.run("bash", "-c", "xmessage -buttons ok hello >/dev/null 2>&1 &")
        other = wait_for(lambda: self.display.run("xdotool", "search", "--onlyvisible", "--name", "xmessage").stdout.split(), 20,
                         "another program")[0]
        for hide in (("windowactivate", "--sync", other), ("windowminimize", "--sync", player.console()[0])):
            console = int(player.console()[0], 16)
            self.display.run("xdotool", *hide)
            self.display.run("xdotool", "windowactivate", "--sync", other)
            wait_for(lambda: self.focus() == int(other), 20, "the focus for the other program")
            self.assertTrue(self.call("org.mpris.MediaPlayer2.Raise")[0])
            wait_for(lambda: self.focus() == console, 20, "the focus for the console")
            wait_for(player.console, 20, "the console on the screen")

    def test_raise_brings_a_message_to_the_front(self):
        player = self.with_box()
        self.display.run("bash", "-c", "xmessage -buttons ok hello >/dev/null 2>&1 &")
        other = wait_for(lambda: self.display.run("xdotool", "search", "--onlyvisible", "--name", "xmessage").stdout.split(), 20,
                         "another program")[0]
        self.display.run("xdotool", "windowactivate", "--sync", other)
        wait_for(lambda: self.focus() == int(other), 20, "the focus for the other program")
        self.assertTrue(self.call("org.mpris.MediaPlayer2.Raise")[0])
        wait_for(lambda: self.focus() == int(self.box(player)[0], 16), 20, "the focus for the message")


class Bus(MprisTest):
    def test_a_bus_that_dies_and_comes_back(self):
        name, = long_clips(1, self.folder)
        player = self.up(name)
        self.status("Playing")
        self.bus.end()
        wait_for(lambda: player.commands()[-1:] == [f'status "{name}" length'], 20, "the ticks to go on")
        self.bus = SessionBus(self.folder)
        self.wait_listed("tandrel_player")
        self.status("Playing")
        self.assertEqual(player.end(), 0)

    def test_without_a_bus_the_player_plays(self):
        name, = clips(1, self.folder)
        player = self.start(name, home=self.home(tips="0"), DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere")
        player.wait_ready(1)
        self.assertEqual(self.names(), [])
        self.assertEqual(player.end(), 0)

    def test_a_bus_that_stops_answering_holds_nobody_up(self):
        name, = clips(1, self.folder)
        player = self.up(name)
        self.bus.daemon.send_signal(signal.SIGSTOP)
        try:
            self.assertEqual(player.end(), 0)
        finally:
            self.bus.daemon.send_signal(signal.SIGCONT)


if __name__ == "__main__":
    unittest.main()
