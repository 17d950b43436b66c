#!/usr/bin/env python3
"""Starts of the program: the first one, later ones beside it, hand-over of files, and starts after a crash."""

import os
import signal
import socket
import unittest

from player import PlayerTest, clips, prepare_home, wait_briefly, wait_for


def read(path):
    with open(path, "rb") as file:
        return file.read()


class Starts(PlayerTest):
    def test_a_plain_start_shows_the_console_and_marks_the_owner(self):
        player = self.start()
        player.wait_ready()
        mark = os.path.join(player.home, "pres.dat")
        wait_for(lambda: os.path.exists(mark), 20, "the mark of the owner")
        console = int(player.console()[0], 16)
        self.assertEqual(read(mark), f" {console} \r\n".encode())
        _, x, y, width, height = player.console()
        self.assertEqual((x, y, width, height), (384, 720, 900, 212))
        self.assertEqual(player.end(), 0)
        self.assertFalse(os.path.exists(mark))

    def test_a_first_start_asks_for_language_and_primary_player(self):
        home = os.path.join(self.folder, "fresh")
        player = self.start(home=home)
        wait_for(lambda: "Tandrel Player" in " ".join(player.windows()), 20, "the question for the language")
        settings = os.path.join(home, "MsShareStuff.ini")
        self.answer("Return", lambda: os.path.exists(settings) and b"langos=EN" in read(settings), "the language")
        wait_for(lambda: any("PRO" in title for title in player.windows()), 20, "the question for the primary player")
        self.answer("alt+n", lambda: read(os.path.join(home, "ext.dat")) == b"1\r\n", "the answer")
        wait_for(lambda: b"vistaos=1" in read(settings), 20, "the mark of the first run")
        player.wait_ready()

    def test_a_file_is_handed_over_while_the_owner_starts(self):
        first, second = clips(2, self.folder)
        owner = self.start(home=self.home(slide="0"))
        owner.wait_ready()
        wait_for(lambda: os.path.exists(owner.home + "/pres.dat"), 20, "the mark of the owner")
        os.remove(owner.home + "/pres.dat")
        for name in (first, second):
            later = self.start(name, home=owner.home)
            wait_for(lambda: not later.alive(), 20, "the end of the later process")
            self.assertEqual(later.process.returncode, 0)
        self.assertEqual(read(owner.home + "/list.dat"), f'"{first}"\r\n"{second}"\r\n'.encode())
        wait_for(lambda: self.took_after_coming_back(owner), 20, "the activation that takes the files")
        wait_for(lambda: owner.video(first) and owner.video(second), 20, "both windows")
        self.assertFalse(os.path.exists(owner.home + "/list.dat"))
        self.assert_place(owner, first, (0, 0, 960, 540))
        owner.wait_for_commands(*(f'Play "{name}" from 0' for name in (first, second)))

    def test_of_files_opened_together_none_is_lost(self):
        names = clips(4, self.folder)
        home = self.home(slide="0")
        players = [self.start(name, home=home) for name in names]
        owner = wait_for(lambda: self.first_when_all_are_up(players), 30, "the processes that stay to have their consoles")
        wait_for(lambda: self.none_is_lost(players, names, home), 30, "every file shown, or with a console of its own")
        self.assertFalse(os.path.exists(home + "/list.dat"))
        self.assertTrue(owner.alive())

    def first_when_all_are_up(self, players):
        staying = [player for player in players if player.alive()]
        return all(player.console() for player in staying) and staying and staying[0]

    def none_is_lost(self, players, names, home):
        """A file is shown by some process, or its process came up as a second console beside an owner that was ready."""
        if os.path.exists(home + "/list.dat"):
            return False
        shown = {name for name in names for player in players if player.alive() and player.video(name)}
        seconds = sum(player.alive() for player in players) - 1
        return len(shown) + seconds >= len(names)

    def took_after_coming_back(self, player):
        """Leaves and comes back. Somebody who does both between two events of the program has never left, for it."""
        self.leave_and_come_back(player)
        return wait_briefly(lambda: not os.path.exists(player.home + "/list.dat"))

    def leave_and_come_back(self, player):
        """Another program takes the focus, then the user clicks the console."""
        other = self.display.run("bash", "-c", "xmessage -buttons ok hello >/dev/null 2>&1 & echo $!")
        window = wait_for(lambda: self.display.run("xdotool", "search", "--onlyvisible", "--name", "xmessage").stdout.split(), 20,
                          "another program")[0]
        self.display.run("xdotool", "windowactivate", "--sync", window)
        console = player.console()[0]
        self.display.run("xdotool", "windowactivate", "--sync", console)
        self.display.run("kill", other.stdout.strip())

    def test_an_end_from_outside_closes_an_open_question_too(self):
        home = os.path.join(self.folder, "fresh")
        prepare_home(home)
        os.remove(os.path.join(home, "ext.dat"))
        player = self.start(home=home)
        wait_for(lambda: any("PRO" in title for title in player.windows()), 20, "the question")
        self.assertEqual(player.end(), 0)

    def test_beside_an_owner_a_file_start_is_a_second_console(self):
        name = clips(1, self.folder)[0]
        owner = self.start(home=self.home(slide="0", top="1500", left="1500"))
        owner.wait_ready()
        wait_for(lambda: os.path.exists(owner.home + "/pres.dat"), 20, "the mark of the owner")
        second = self.start(name, home=owner.home)
        second.wait_ready()
        _, x, y, _, _ = second.console()
        self.assertEqual((x, y), (round(1700 / 15), round(1700 / 15)))
        self.assertEqual(second.commands(), [], "it does not take the file")
        second.end()
        self.assertTrue(os.path.exists(owner.home + "/pres.dat"), "the mark is the owner's")

    def test_killed_in_the_middle_and_started_again(self):
        names = clips(3, self.folder)
        home = self.home(slide="0")
        player = self.start(*names, home=home)
        player.wait_ready(3)
        player.process.send_signal(signal.SIGKILL)
        player.process.wait(10)
        again = self.start(*names, home=home)
        again.wait_ready(3)
        self.assert_place(again, names[0], (0, 0, 960, 540))

    def test_a_session_bus_that_never_answers(self):
        name, = clips(1, self.folder)
        path = os.path.join(self.folder, "bus")
        with socket.socket(socket.AF_UNIX) as bus:
            bus.bind(path)
            bus.listen()
            player = self.start(name, DBUS_SESSION_BUS_ADDRESS="unix:path=" + path)
            player.wait_ready(videos=1)
            bus.settimeout(5)
            bus.accept()[0].close()
            self.assertEqual(player.end(), 0)

    def test_a_session_bus_whose_queue_is_full(self):
        name, = clips(1, self.folder)
        path = os.path.join(self.folder, "full-bus")
        callers = []
        with socket.socket(socket.AF_UNIX) as bus:
            bus.bind(path)
            bus.listen(0)
            try:
                while True:
                    callers.append(socket.socket(socket.AF_UNIX))
                    callers[-1].setblocking(False)
                    callers[-1].connect(path)
            except BlockingIOError:
                pass  # Nobody else can get in now.
            player = self.start(name, DBUS_SESSION_BUS_ADDRESS="unix:path=" + path)
            player.wait_ready(videos=1)
            self.assertEqual(player.end(), 0)
        for caller in callers:
            caller.close()

    def test_a_data_folder_that_cannot_be_written(self):
        blocked = os.path.join(self.folder, "a file")
        with open(blocked, "w", encoding="ascii") as file:
            file.write("x")
        name = clips(1, self.folder)[0]
        player = self.start(name, home=os.path.join(blocked, "home"), XDG_CONFIG_HOME=self.folder)
        wait_for(lambda: player.windows(), 20, "a first question")
        self.answer("Return", lambda: any("PRO" in title for title in player.windows()), "the second question")
        self.answer("alt+n", lambda: player.video(name), "the video")
        self.assertEqual(read(blocked), b"x")


if __name__ == "__main__":
    unittest.main()
