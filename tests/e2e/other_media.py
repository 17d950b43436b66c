"""HD films and discs, as the screen and the console show them."""

import os
import re
import signal

from console_driver import PICTURE_LEFT, PICTURE_TOP, ConsoleTest, Screen
from player import GaveUp, wait_briefly, wait_for

DISC = os.environ["TANDREL_TEST_DISC"]
# The caption that full screen of the media player control has is that of its window.
FULL = (0, 0, 1920, 1080)
# The console's seek slider in pixels, and half of its thumb.
SLIDER, THUMB = (24, 160, 852, 20), 8


def picture_in(window, size):
    """Left, top, width and height of a picture of this shape in a window at this place."""
    x, y, width, height = window
    if window != FULL:
        x, y = x + PICTURE_LEFT, y + PICTURE_TOP - 2
        width, height = width - 2 * PICTURE_LEFT - 1, height - 27
    shown = min(width, height * size[0] / size[1])
    tall = shown * size[1] / size[0]
    return round(x + (width - shown) / 2), round(y + (height - tall) / 2), round(shown), round(tall)


class OtherMediaTest(ConsoleTest):
    def up(self, *arguments, **environment):
        self.report = os.path.join(self.folder, "report")
        player = self.start(*arguments, TANDREL_REPORT=self.report, **environment)
        wait_for(lambda: self.console(player), 20, "the console")
        return player

    def window(self, player, title):
        """(id, x, y, width, height) of the window with this title, full screen before the window itself."""
        found = [tuple(rest) for name, *rest in player.all_windows() if name == title]
        return next((one for one in found if one[1:] == FULL), found[0] if found else None)

    def place(self, player, title):
        return (self.window(player, title) or (None,) * 5)[1:]

    def is_full(self, player, title):
        return self.place(player, title) == FULL

    def picture(self, player, title, size):
        """Left, top, width and height of a picture of this shape in its window."""
        place = self.place(player, title)
        return None if place[0] is None else picture_in(place, size)

    def frame(self, player, title, size):
        place = self.picture(player, title, size)
        return Screen(self).frame_number(*place) if place else None

    def wait_for_frame(self, player, title, size, wanted, what):
        """A frame number for which `wanted` holds."""
        def there():
            number = self.frame(player, title, size)
            return number is not None and wanted(number) and [number]

        try:
            return wait_for(there, 20, what)[0]
        except GaveUp:
            raise AssertionError(f"{what}: the picture shows {self.frame(player, title, size)}") from None

    def still_frame(self, player, title, size):
        seen = []

        def same():
            seen.append(self.frame(player, title, size))
            return seen[-1] is not None and len(seen) > 2 and seen[-3:] == 3 * seen[-1:]

        wait_for(same, 20, "a picture that stands still")
        return seen[-1]

    def wait_for_movement(self, player, title, size):
        first = self.wait_for_frame(player, title, size, lambda _: True, "a picture")
        return self.wait_for_frame(player, title, size, lambda number: number != first, "movement")

    def shown(self, player):
        """What the console shows: place and length as texts, slider and its maximum, the title."""
        if os.path.exists(self.report):
            os.remove(self.report)
        player.process.send_signal(signal.SIGUSR1)

        def row():
            if not os.path.exists(self.report):
                return None
            with open(self.report, encoding="utf-8", errors="surrogateescape") as lines:
                return next((line.rstrip("\n").split("\t")[1:] for line in lines if line.startswith("# console\t")), None)

        place, length, value, most, title = wait_for(row, 20, "the report")
        return place, length, int(value), int(most), title

    def wait_for_shown(self, player, wanted, what):
        def there():
            found = self.shown(player)
            return wanted(found) and found

        try:
            return wait_for(there, 20, what)
        except GaveUp:
            raise AssertionError(f"{what}: the console shows {self.shown(player)}") from None

    def drag_slider(self, player, part):
        """The thumb of the seek slider is dragged to this part of its way, and let go there."""
        _, _, value, most, _ = self.shown(player)
        _, x, y, _, _ = self.console(player)
        row = y + SLIDER[1] + SLIDER[3] // 2

        def column(share):
            return round(x + SLIDER[0] + THUMB + share * (SLIDER[2] - 2 * THUMB))

        self.press(column(value / max(1, most)), row)
        self.display.run("xdotool", "mousemove", str(column(part)), str(row))
        self.release()

    def fill(self, player, title):
        """The right button on the picture brings it to full screen."""
        x, y, width, height = self.place(player, title)

        def tried():
            self.click(x + width // 2, y + height // 2)
            self.click(x + width // 2, y + height // 2, button=3)
            return wait_briefly(lambda: self.is_full(player, title), 2)

        wait_for(tried, 20, "full screen")

    def double_click(self, gone, place=(900, 500)):
        def tried():
            self.display.run("xdotool", "mousemove", *map(str, place), "click", "--repeat", "2", "--delay", "110", "1")
            return wait_briefly(gone, 1.5)

        wait_for(tried, 20, "a double click that counts")

    def box(self, player):
        """A message box or a notice: a window with the program's title that isn't the console."""
        console = self.console(player)
        for title, *window in player.all_windows():
            if title.startswith("Tandrel Player PRO") and (console is None or tuple(window) != console):
                return tuple(window)
        return None


def seconds_of(text):
    seconds = 0
    for part in re.split("[:.]", text):
        seconds = seconds * 60 + int(part)
    return seconds
