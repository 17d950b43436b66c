#!/usr/bin/env python3
"""tandrel-open: files for the player that runs, or for one that it starts."""

import os
import shutil
import signal
import subprocess
import time
import unittest

from player import BIN, Player, PlayerTest, clips, wait_for

OPEN = os.path.join(BIN, "tandrel-open")


def read(path):
    with open(path, "rb") as file:
        return file.read()


class Opens(PlayerTest):
    def environment(self, home):
        runtime = os.path.join(self.folder, "runtime")
        os.makedirs(runtime, mode=0o700, exist_ok=True)
        return dict(self.display.environment, TANDREL_HOME=home, XDG_RUNTIME_DIR=runtime)

    def begin_open(self, home, *arguments, **options):
        return subprocess.Popen([OPEN, *arguments], env=self.environment(home), stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True, **options)

    def open(self, home, *arguments, **options):
        """Exit code and what it said."""
        process = self.begin_open(home, *arguments, **options)
        _, said = process.communicate(timeout=90)
        return process.returncode, said

    def quick_home(self):
        """A first start shows no splash."""
        return self.home(slide="0", vistaos="")

    def owner(self):
        player = self.start(home=self.quick_home())
        player.wait_ready()
        wait_for(lambda: os.path.exists(player.home + "/pres.dat"), 20, "the mark of the owner")
        return player

    def started_by_open(self, home, *arguments, tool=OPEN):
        """A player that the tool has become."""
        runtime = self.environment(home)["XDG_RUNTIME_DIR"]
        player = Player(self.display, home, *arguments, program=tool, XDG_RUNTIME_DIR=runtime)
        self.players.append(player)
        return player

    def focus(self):
        return int(self.display.run("xdotool", "getwindowfocus").stdout.strip() or 0)

    def wait_taken(self, player, names):
        wait_for(lambda: all(player.video(name) for name in names), 20, "the windows of the files")
        wait_for(lambda: not os.path.exists(player.home + "/list.dat"), 20, "the end of the list")

    def other_program(self):
        self.display.run("bash", "-c", "xmessage -buttons ok hello >/dev/null 2>&1 &")
        window = wait_for(lambda: self.display.run("xdotool", "search", "--onlyvisible", "--name", "xmessage").stdout.split(), 20,
                          "another program")[0]
        self.display.run("xdotool", "windowactivate", "--sync", window)
        return int(window)

    def test_a_console_that_is_active_takes_files(self):
        player = self.owner()
        console = int(player.console()[0], 16)
        self.display.run("xdotool", "windowactivate", "--sync", str(console))
        wait_for(lambda: self.focus() == console, 20, "the focus for the console")
        names = clips(2, self.folder)
        self.assertEqual(self.open(player.home, *names), (0, ""))
        self.wait_taken(player, names)

    def test_a_console_behind_another_program_takes_files_and_comes_to_the_front(self):
        player = self.owner()
        other = self.other_program()
        wait_for(lambda: self.focus() == other, 20, "the focus for the other program")
        names = clips(3, self.folder)
        address = "file://" + names[2].replace(" ", "%20")
        self.assertEqual(self.open(player.home, os.path.basename(names[0]), "./" + os.path.basename(names[1]), address,
                                   cwd=self.folder), (0, ""))
        self.wait_taken(player, names)
        wait_for(lambda: self.focus() != other, 20, "the focus for the player")
        mine = [int(window[0], 16) for window in player.windows().values()]
        wait_for(lambda: self.focus() in mine, 20, "the focus for a window of the player")

    def test_a_minimised_console_takes_files(self):
        player = self.owner()
        console = player.console()[0]
        self.display.run("xdotool", "windowminimize", "--sync", console)
        wait_for(lambda: "IsViewable" not in self.display.run("xwininfo", "-id", console).stdout, 20, "the console to go")
        names = clips(1, self.folder)
        self.assertEqual(self.open(player.home, *names), (0, ""))
        self.wait_taken(player, names)
        wait_for(lambda: "IsViewable" in self.display.run("xwininfo", "-id", console).stdout, 20, "the console to come back")

    def test_files_go_to_what_is_open_already_and_later_ones_too(self):
        player = self.owner()
        names = clips(4, self.folder)
        for name in names:
            self.assertEqual(self.open(player.home, name), (0, ""))
        self.wait_taken(player, names)

    def test_a_hundred_files(self):
        player = self.owner()
        names = clips(100, self.folder)
        self.assertEqual(self.open(player.home, *names),
                         (1, "tandrel-open: 88 files were left out: a player shows 12 at most\n"))
        self.wait_taken(player, names[:12])

    def test_what_the_list_does_not_take_is_told_and_the_others_go_on(self):
        player = self.owner()
        name = clips(1, self.folder)[0]
        note = os.path.join(self.folder, "note.txt")
        shutil.copy(__file__, note)
        code, said = self.open(player.home, note, name, "http://host/a.mp4", self.folder + "/gone.mp4")
        self.assertEqual(code, 1)
        self.assertEqual(said.splitlines(), [
            "tandrel-open: http://host/a.mp4: not a file that can be named to the player",
            f"tandrel-open: {self.folder}/gone.mp4: no such file",
            f"tandrel-open: {note}: a running player takes no files of this kind"])
        self.wait_taken(player, [name])

    def test_a_name_of_any_bytes(self):
        player = self.owner()
        name = os.fsencode(self.folder) + b'/a "q" | \n \xff.mp4'
        os.symlink(os.path.realpath(clips(1, self.folder)[0]), name)
        process = subprocess.run([OPEN, name], env=self.environment(player.home), capture_output=True, timeout=90)
        self.assertEqual((process.returncode, process.stderr), (0, b""))
        wait_for(lambda: len([title for title in player.windows() if title.startswith("§")]) == 1, 20, "its window")
        wait_for(lambda: not os.path.exists(player.home + "/list.dat"), 20, "the end of the list")

    def test_without_files_the_console_comes_to_the_front(self):
        player = self.owner()
        console = int(player.console()[0], 16)
        other = self.other_program()
        wait_for(lambda: self.focus() == other, 20, "the focus for the other program")
        self.assertEqual(self.open(player.home), (0, ""))
        wait_for(lambda: self.focus() == console, 20, "the focus for the console")
        self.assertFalse(os.path.exists(player.home + "/list.dat"))

    def test_without_files_and_without_a_player_one_is_started(self):
        player = self.started_by_open(self.quick_home())
        player.wait_ready()

    def test_without_a_player_one_is_started_with_the_files(self):
        names = clips(3, self.folder)
        player = self.started_by_open(self.home(slide="0"), *names)
        player.wait_ready(3)
        self.assertTrue(all(player.video(name) for name in names))

    def test_the_mark_of_a_player_that_was_killed(self):
        first = self.owner()
        first.process.kill()
        first.process.wait()
        self.assertTrue(os.path.exists(first.home + "/pres.dat"))
        names = clips(2, self.folder)
        player = self.started_by_open(first.home, names[0])
        player.wait_ready(1)
        # The mark still names the window of the one that has gone.
        self.assertEqual(self.open(first.home, names[1]), (0, ""))
        self.wait_taken(player, names)

    def test_a_player_that_does_not_answer(self):
        player = self.owner()
        player.process.send_signal(signal.SIGSTOP)
        name = clips(1, self.folder)[0]
        try:
            begin = time.monotonic()
            self.assertEqual(self.open(player.home, name),
                             (2, "tandrel-open: the player doesn't answer; the files wait for it\n"))
            self.assertLess(time.monotonic() - begin, 20)
            self.assertEqual(read(player.home + "/list.dat"), f'"{name}"\r\n'.encode())
            self.assertEqual(self.open(player.home), (2, "tandrel-open: the player doesn't answer\n"))
        finally:
            player.process.send_signal(signal.SIGCONT)
        self.wait_taken(player, [name])

    def test_an_image_of_a_disc_plays_in_a_further_console(self):
        owner = self.owner()
        image = os.path.join(os.environ["TANDREL_TEST_DISC"], "disc.iso")
        further = self.started_by_open(owner.home, image)
        wait_for(lambda: "TANDREL_TEST" in further.windows(), 20, "the window of the disc")
        self.assertTrue(owner.alive())
        self.assertNotIn("TANDREL_TEST", owner.windows())
        self.assertFalse(os.path.exists(owner.home + "/list.dat"))

    def test_two_at_once_lose_nothing_of_a_running_player(self):
        player = self.owner()
        names = clips(6, self.folder)
        both = [self.begin_open(player.home, *names[:3]), self.begin_open(player.home, *names[3:])]
        for one in both:
            self.assertEqual(one.communicate(timeout=90)[1], "")
            self.assertEqual(one.returncode, 0)
        self.wait_taken(player, names)

    def test_several_at_once_start_one_player_for_all(self):
        names = clips(4, self.folder)
        home = self.home(slide="0")
        players = [self.started_by_open(home, name) for name in names]
        # All but one have left their file and ended.
        owner = wait_for(lambda: self.only_one_left(players), 30, "one player")
        wait_for(lambda: all(owner.video(name) for name in names), 30, "the windows of all files")
        self.assertFalse(os.path.exists(home + "/list.dat"))

    def only_one_left(self, players):
        staying = [player for player in players if player.alive()]
        return len(staying) == 1 and staying[0]

    def test_a_player_that_is_slow_to_start_gets_the_files_of_others(self):
        folder = os.path.join(self.folder, "bin")
        os.makedirs(folder)
        shutil.copy(OPEN, folder)
        starts, gate = os.path.join(folder, "starts"), os.path.join(folder, "gate")
        os.mkfifo(gate)
        # In place of the player stands one that waits before anybody can see that it runs.
        with open(folder + "/tandrel-player", "w", encoding="utf-8") as script:
            script.write(f"#!/bin/sh\necho >>{starts}\nread go <{gate}\nexec {BIN}/tandrel-player \"$@\"\n")
        os.chmod(folder + "/tandrel-player", 0o755)
        home = self.home(slide="0")
        first, second = clips(2, self.folder)
        player = self.started_by_open(home, first, tool=folder + "/tandrel-open")
        wait_for(lambda: os.path.exists(starts), 20, "the first start")
        later = subprocess.Popen([folder + "/tandrel-open", second], env=self.environment(home))
        self.addCleanup(later.wait)
        self.addCleanup(later.kill)
        with open(gate, "w", encoding="ascii") as go:
            go.write("\n")
        self.assertEqual(later.wait(20), 0)
        self.wait_taken(player, [first, second])
        self.assertEqual(read(starts), b"\n", "one player for both")

    def test_without_a_display(self):
        name = clips(1, self.folder)[0]
        process = subprocess.run([OPEN, name], env=dict(self.environment(self.home()), DISPLAY=":99999"),
                                 capture_output=True, text=True, timeout=90)
        self.assertEqual((process.returncode, process.stderr),
                         (1, "tandrel-open: there is no display to show anything on\n"))

    def test_help_and_version_need_no_display(self):
        for argument, said in (("--help", "Usage: tandrel-open"), ("--version", "tandrel-open 1.")):
            process = subprocess.run([OPEN, argument], env={}, capture_output=True, text=True, timeout=90)
            self.assertEqual(process.returncode, 0)
            self.assertTrue(process.stdout.startswith(said), process.stdout)
        self.assertEqual(self.open(self.home(), "--what")[0], 1)


class WithoutAWindowManager(PlayerTest):
    window_manager = False

    open = Opens.open
    begin_open = Opens.begin_open
    environment = Opens.environment
    owner = Opens.owner
    quick_home = Opens.quick_home
    wait_taken = Opens.wait_taken

    def test_the_console_takes_files_all_the_same(self):
        player = self.owner()
        names = clips(2, self.folder)
        self.assertEqual(self.open(player.home, *names), (0, ""))
        self.wait_taken(player, names)


if __name__ == "__main__":
    unittest.main()
