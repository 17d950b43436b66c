"""The console driven as a user does: its image buttons by name, its menus by entry, the dialog behind them; and what the
screen shows of the videos."""

import os
import re
import subprocess
import sys

from player import MEDIA, GaveUp, PlayerTest, links, wait_briefly, wait_for
import file_dialog

TWIPS = 15
# Left, top, width and height in twips, as src/console/frm_media.h places them.
BUTTONS = {
    "imgPlay": (6180, 540, 1140, 1140), "imgPause": (6495, 1800, 510, 510), "imgRwd": (5550, 930, 540, 540),
    "imgFwd": (7410, 930, 540, 540), "imgReplay": (5910, 1665, 450, 450), "imgOpen": (7140, 1665, 450, 450),
    "imgBack": (8655, 1035, 450, 450), "imgPauseAll": (9270, 1035, 450, 450), "imgStep": (9885, 1035, 450, 450),
    "imgResync": (10500, 1035, 450, 450), "imgMute": (11115, 1035, 450, 450), "imgResize": (8505, 1725, 390, 390),
    "imgVideo": (8970, 1725, 390, 390), "imgAudio": (9435, 1725, 390, 390), "imgShare": (9900, 1725, 390, 390),
    "imgHelp": (10365, 1725, 390, 390), "imgFaceBook": (10965, 1755, 330, 330), "imgTwitter": (11385, 1755, 330, 330),
    "imgMax": (12945, 1065, 270, 270), "imgMin": (12945, 1875, 270, 270),
    "imgHide": (12015, 510, 330, 330), "imgDwn": (12405, 510, 330, 330), "imgExit": (12795, 510, 330, 330),
}
MULTIPLE, SINGLE = "Open Multiple Video...", "Open File Video..."
TIP, CONSOLE = (420, 166), (900, 212)
QUESTIONS = ('set "{0}" time format ms', 'status "{0}" position', 'status "{0}" length')
VOLUME = re.compile(r'setaudio "(.*)" Volume to ')
TICK = re.compile(r'set "(.*)" time format ms')
# The caption and the frame of a video window, beside and above its picture.
PICTURE_LEFT, PICTURE_TOP = 3, 27
BLOCKS, BANDS = 16, 6


DROP_SOURCE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "drop_source.py")
# 400 twips are 26.67 pixels.
SINGLE_PLACE = (27, 27, 788, 425)
FRAMES, RATE = 300, 30


def films(count, folder):
    """Silent files of five minutes: the same ten seconds thirty times, so that second S shows frame 30 * S modulo 300."""
    whole = os.path.join(folder, "minutes.mp4")
    if not os.path.exists(whole):
        once = os.path.join(MEDIA, "h264_30.mp4")
        subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-stream_loop", "29", "-i", once, "-an", "-c", "copy", whole],
                       check=True)
    return links([whole], count, folder)


def slow_films(count, folder):
    """The same ten seconds at a fifth of their speed: what a picture shows is its second times six, and nothing comes twice."""
    whole = os.path.join(folder, "slow.mp4")
    if not os.path.exists(whole):
        once = os.path.join(MEDIA, "h264_30.mp4")
        subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-itsscale", "5", "-i", once, "-an", "-c", "copy", whole],
                       check=True)
    return links([whole], count, folder)


def grid(count):
    """The places of so many videos in PlayAll Mode, in the order in which they were opened."""
    if count == 1:
        return [SINGLE_PLACE]
    if count == 4:
        return [(0, 0, 960, 540), (960, 0, 960, 540), (960, 540, 960, 540), (0, 540, 960, 540)]
    columns, width = (3, 640) if count <= 9 else (4, 480)
    return [(width * (place % columns), 360 * (place // columns), width, 360) for place in range(count)]


def beside_lead(count):
    """The same in PlayList Mode, where the last one leads: the others stand beside it from the top, then below it from
    the right."""
    if count == 1:
        return [SINGLE_PLACE]
    beside = count - 1 if count <= 7 else 6
    tiles = [(1600, 180 * tile, 320, 180) for tile in range(beside)]
    tiles += [(1280 - 320 * tile, 900, 320, 180) for tile in range(count - 1 - beside)]
    return tiles + [(0, 0, 1600, 900)]


def without_ticks(commands, begin=0):
    """Those from `begin` on, without what the console's ticks send: three questions about a video, and behind them its
    present volume once more, or a new start where it has ended."""
    kept, place, volumes = [], 0, {}
    while place < len(commands):
        asked = TICK.fullmatch(commands[place])
        questions = [part.format(asked.group(1)) for part in QUESTIONS] if asked else []
        # The last tick may be under way.
        if asked and commands[place:place + 3] == questions[:len(commands) - place]:
            place += 3
            name = asked.group(1)
            if commands[place:place + 1] == [f'Play "{name}" from 0']:
                place += 1
            if commands[place:place + 1] == [volumes.get(name)]:
                place += 1
            continue
        volume = VOLUME.match(commands[place])
        if volume:
            volumes[volume.group(1)] = commands[place]
        if place >= begin:
            kept.append(commands[place])
        place += 1
    return kept


def frame_number_of(bits):
    """The number of a picture from its blocks from left to right, or None where their check bits say that it is none."""
    whole = 0
    for bit in bits:
        whole = 2 * whole + bool(bit)
    number = whole >> 4
    return number if (number ^ number >> 4 ^ number >> 8 ^ 0xA) & 0xF == whole & 0xF else None


def frame_number_spots(left, top, width, height):
    """The row and the columns of the screen in which a picture in this place has the middles of its blocks."""
    return top + height // BANDS // 2, [left + (2 * block + 1) * width // (2 * BLOCKS) for block in range(BLOCKS)]


class Screen:
    """One picture of the whole screen."""

    def __init__(self, test):
        self.width = int(test.display_size.split("x")[0])
        self.bytes = subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], env=test.display.environment,
                                    capture_output=True, check=True).stdout

    def green(self, x, y):
        offset = 3 * (self.width * y + x) + 1
        return self.bytes[offset] if offset < len(self.bytes) else 0

    def frame_number(self, left, top, width, height):
        """The number that a picture in this place carries as sixteen blocks, or None."""
        row, columns = frame_number_spots(left, top, width, height)
        return frame_number_of(self.green(x, row) >= 128 for x in columns)


class ConsoleTest(PlayerTest):
    """Tests that click on the console."""

    def home(self, name="home", **settings):
        """The console stands where it hides no frame number of the mode's arrangements."""
        playlist = settings.get("slide") == "1"
        places = {"top": str((400 if playlist else 820) * TWIPS), "left": str(300 * TWIPS)}
        return super().home(name, **{**places, **settings})

    def console(self, player):
        """The console itself: its messages have the same title."""
        return next((tuple(window) for _, *window in player.all_windows() if tuple(window[3:]) == CONSOLE), None)

    def commands(self, player, begin=0):
        return without_ticks(player.commands(), begin)

    def assert_commands(self, player, begin, expected):
        """These and no others are sent from `begin` on; a number at the end of one may be any where it stands as N. The
        sizes of pictures, which follow those of the windows, don't count."""
        def sent():
            return [one for one in self.commands(player, begin) if not one.startswith("put ")]

        wanted = [re.escape(one[:-1]) + r"\d+" if one.endswith(" N") else re.escape(one) for one in expected]

        def come():
            found = sent()
            return len(found) == len(wanted) and all(map(re.fullmatch, wanted, found))

        try:
            wait_for(come, 20, "the commands")
        except GaveUp:
            self.assertEqual(sent(), expected)

    def assert_places(self, player, names, places):
        for name, place in zip(names, places):
            self.assert_place(player, name, place, name)

    def commands_for(self, player, path, begin=0):
        """What is sent to one file, with `A` for its alias, and `HANDLE` for any window."""
        return [re.sub(r"parent \d+", "parent HANDLE", one.replace(f'"{path}"', "A"))
                for one in self.commands(player, begin) if f'"{path}"' in one]

    def click_button(self, player, name):
        left, top, width, height = BUTTONS[name]
        _, x, y, _, _ = wait_for(lambda: self.console(player), 20, "the console")
        self.click(x + (left + width // 2) // TWIPS, y + (top + height // 2) // TWIPS)

    def open_menu(self, player, button):
        def opened():
            if self.popup():
                return True
            self.click_button(player, button)
            return wait_briefly(self.popup)

        wait_for(opened, 20, f"the menu of {button}")

    def choose_entry(self, key, taken, what):
        """Presses the letter of an entry until it was taken."""
        self.answer(key, taken, what)

    def dialog_of(self, player, title):
        """The open button's dialog of this title."""
        self.open_menu(player, "imgOpen")
        self.choose_entry("m" if title == MULTIPLE else "s", lambda: file_dialog.window_of(self.display, title),
                          f"the dialog {title}")

    def choose(self, player, title, *paths):
        self.dialog_of(player, title)
        file_dialog.choose(self.display, title, os.path.dirname(paths[0]), *(os.path.basename(path) for path in paths))

    def drop(self, window, *paths):
        """Drops files in the middle of a window, as a file manager does."""
        x, y = window[1] + window[3] // 2, window[2] + window[4] // 2
        done = self.display.run(sys.executable, DROP_SOURCE, window[0], str(x), str(y), *paths, timeout=120)
        self.assertEqual(done.returncode, 0, done.stderr)

    def tip(self, player):
        """The message of the first open."""
        return next((window for _, *window in player.all_windows() if tuple(window[3:]) == TIP), None)

    def answer_tip(self, player):
        wait_for(lambda: self.tip(player), 20, "the tip of the first open")
        self.answer("Return", lambda: not self.tip(player), "the end of the tip")

    def open_files(self, player, title, *paths):
        """The first open of a player, with its tip."""
        self.choose(player, title, *paths)
        self.answer_tip(player)

    def in_front(self):
        """The id of the window that stands before all others."""
        found = self.display.run("xprop", "-root", "_NET_CLIENT_LIST_STACKING").stdout
        return int(re.findall(r"0x[0-9a-f]+", found)[-1], 16)

    def wait_for_console_in_front(self, player):
        wait_for(lambda: self.console(player) and self.has_focus(self.console(player)), 20, "the focus for the console")
        wait_for(lambda: self.in_front() == int(self.console(player)[0], 16), 20, "the console before the videos")

    def video_has_focus(self, player, name):
        window = player.video(name)
        return window and self.has_focus(window)

    def select_video(self, player, name, across=1 / 2):
        """A click on its upper half; again where the first one came too early."""
        x, y, width, height = player.place(name)

        def tried():
            self.click(x + round(across * width), y + height // 3)
            return wait_briefly(lambda: self.video_has_focus(player, name), 5)

        wait_for(tried, 20, "the focus")

    def has_focus(self, window):
        return int(self.display.run("xdotool", "getwindowfocus").stdout.strip() or 0) == int(window[0], 16)

    def numbers(self, player, paths):
        """The frame numbers of all these videos, from one picture of the screen; None where none can be read."""
        places = [player.place(path) for path in paths]
        screen = Screen(self)
        return [self.number_at(screen, place) for place in places]

    def number_at(self, screen, place):
        if place[0] is None:
            return None
        x, y, width, height = place
        return screen.frame_number(x + PICTURE_LEFT, y + PICTURE_TOP, width - 2 * PICTURE_LEFT, height - PICTURE_TOP - PICTURE_LEFT)

    def all_numbers(self, player, paths):
        """The same once every picture can be read."""
        def read():
            found = self.numbers(player, paths)
            return None not in found and found
        return wait_for(read, 20, "a frame number in every window")

    def still_numbers(self, player, paths):
        """The same once several pictures of the screen in a row show the same."""
        seen = []

        def same():
            seen.append(self.numbers(player, paths))
            return None not in seen[-1] and seen[-3:] == 3 * seen[-1:]

        wait_for(same, 20, "pictures that stand still")
        return seen[-1]

    def wait_for_movement(self, player, paths):
        first = self.all_numbers(player, paths)
        moved = set()

        def all_moved():
            now = self.numbers(player, paths)
            moved.update(path for path, one, other in zip(paths, first, now) if other not in (None, one))
            return len(moved) == len(paths)

        wait_for(all_moved, 20, "movement in every window")
