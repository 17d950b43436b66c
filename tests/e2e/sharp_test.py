#!/usr/bin/env python3
"""Screens with more pixels: at a scale of 1.5 and of 2 everything is drawn with the pixels of the screen, and not enlarged."""

import os
import subprocess
import unittest

from console_driver import BUTTONS, CONSOLE, TWIPS, ConsoleTest, Screen, films
from player import PlayerTest, wait_briefly, wait_for

# Pixels of the console at a scale of 1: its display, the icons of the tools, the round buttons, its lower edge.
PARTS = {"display": (36, 45, 290, 105), "tools": (560, 60, 220, 85), "buttons": (370, 30, 170, 115),
         "lower edge": (40, 183, 820, 25)}
# How much steeper edges are than those of the enlarged picture. The enlarged one has 1.
STEEPER = 1.3
# Of what an enlargement by repeated pixels would leave of the differences between neighbours that it repeats: nothing.
REPEATED = 0.3
SCALES = (("1.5", 3, 2), ("2", 2, 1))


def energies(lines):
    """How much each line differs from the next."""
    return [sum((one - other) ** 2 for one, other in zip(line, after)) for line, after in zip(lines, lines[1:])]


def columns(rows):
    return [bytes(column) for column in zip(*rows)]


def steepness(rows):
    return (sum(energies(rows)) + sum(energies(columns(rows)))) ** 0.5


def repeated(lines, numerator, denominator):
    """An enlargement that repeats pixels has lines that are as the ones before: how much such lines differ in comparison
    with the others, for the way of repeating that fits best."""
    found = []
    differences = energies(lines)
    for phase in range(numerator):
        source = [(line + phase) * denominator // numerator for line in range(len(lines))]
        pairs = list(zip(differences, source, source[1:]))
        same = [one for one, before, after in pairs if before == after]
        other = [one for one, before, after in pairs if before != after]
        found.append(sum(same) / len(same) / max(1e-9, sum(other) / len(other)))
    return min(found)


def grey(*command, size, **options):
    """The rows of the picture that the command of ImageMagick makes."""
    raw = subprocess.run([*command, "-colorspace", "gray", "-depth", "8", "gray:-"], capture_output=True, check=True,
                         **options).stdout
    width, height = size
    assert len(raw) == width * height, (len(raw), size)
    return [raw[row * width:(row + 1) * width] for row in range(height)]


class SharpTest(ConsoleTest):
    display_size = "3840x2160"

    def home(self, name="home", **settings):
        return PlayerTest.home(self, name, **settings)

    def up(self, scale, *arguments):
        player = self.start(*arguments, home=self.home("home-" + scale, tips="0"), QT_SCALE_FACTOR=scale)
        wait_for(lambda: self.console_at(player, float(scale)), 20, "the console in the size of its scale")
        wait_for(lambda: "Tandrel Player" not in player.windows(), 20, "the end of the splash")
        return player

    def console_at(self, player, scale):
        size = tuple(round(length * scale) for length in CONSOLE)
        return next((tuple(window) for _, *window in player.all_windows() if tuple(window[3:]) == size), None)

    def click_at(self, player, name, scale):
        left, top, width, height = BUTTONS[name]
        _, x, y, _, _ = wait_for(lambda: self.console_at(player, scale), 20, "the console")
        self.click(x + round((left + width / 2) / TWIPS * scale), y + round((top + height / 2) / TWIPS * scale))

    def picture_of(self, name, place):
        """A file with this part of the screen, once two pictures of it in a row are the same."""
        x, y, width, height = place
        file = os.path.join(self.folder, name + ".png")
        self.display.run("xdotool", "mousemove", "3830", "5")
        seen = []

        def still():
            subprocess.run(["import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "+repage", file],
                           env=self.display.environment, check=True)
            with open(file, "rb") as picture:
                seen.append(subprocess.run(["convert", file, "rgb:-"], capture_output=True, check=True).stdout)
            return len(seen) > 1 and seen[-1] == seen[-2]

        wait_for(still, 20, "a picture that stays")
        return file

    def window_place(self, player, start):
        return next((window[1:] for title, *window in player.all_windows() if title.startswith(start)), None)

    def pictures(self, scale):
        """The console, its help and its menu in files, with their sizes."""
        player = self.up(scale)
        factor = float(scale)
        found = {"console": self.console_at(player, factor)[1:]}
        files = {"console": self.picture_of("console" + scale, found["console"])}
        self.click_at(player, "imgHelp", factor)
        found["help"] = wait_for(lambda: self.window_place(player, "Help Control Panel"), 20, "the help")
        files["help"] = self.picture_of("help" + scale, found["help"])
        self.answer("Escape", lambda: not self.window_place(player, "Help Control Panel"), "the end of the help")

        def menu():
            self.click_at(player, "imgShare", factor)
            return wait_briefly(self.popup)

        width, height, x, y = wait_for(menu, 20, "the menu")
        found["menu"] = (x, y, width, height)
        files["menu"] = self.picture_of("menu" + scale, found["menu"])
        self.answer("Escape", lambda: not self.popup(), "the end of the menu")
        self.assertEqual(player.end(), 0)
        return {name: (files[name], found[name][2:]) for name in files}

    def assert_sharp(self, what, plain, scaled, part, ratio):
        """`part` of a file is drawn anew in another, and neither enlarged softly nor by repetition of pixels."""
        numerator, denominator = ratio
        left, top, width, height = part
        size = (width * numerator // denominator, height * numerator // denominator)
        crop = f"{size[0]}x{size[1]}+{left * numerator // denominator}+{top * numerator // denominator}"
        enlarged = [grey("convert", plain, "-crop", f"{width}x{height}+{left}+{top}", "+repage", "-filter", way,
                         "-resize", f"{size[0]}x{size[1]}!", size=size) for way in ("Triangle", "Point")]
        real = grey("convert", scaled, "-crop", crop, "+repage", size=size)
        self.assertGreater(steepness(real), STEEPER * steepness(enlarged[0]), f"{what}: soft edges")
        for rows, turned in ((real, enlarged[1]), (columns(real), columns(enlarged[1]))):
            self.assertLess(repeated(turned, *ratio), REPEATED / 3, f"{what}: the measure sees no repetition")
            self.assertGreater(repeated(rows, *ratio), REPEATED, f"{what}: repeated pixels")


class Sharp(SharpTest):
    def test_skin_icons_and_texts_are_drawn_with_the_pixels_of_the_screen(self):
        plain = self.pictures("1")
        for scale, *ratio in SCALES:
            scaled = self.pictures(scale)
            for name, (file, size) in scaled.items():
                wanted = [length * float(scale) for length in plain[name][1]]
                # A menu is as wide as its longest text, which is set a little tighter or wider.
                for length, expected in zip(size, wanted):
                    self.assertAlmostEqual(length, expected, delta=0.03 * expected if name == "menu" else 2, msg=name)
                parts = PARTS if name == "console" else {name: (4, 4, min(plain[name][1][0], int(size[0] / float(scale))) - 8,
                                                               min(plain[name][1][1], int(size[1] / float(scale))) - 8)}
                for part, place in parts.items():
                    with self.subTest(scale=scale, part=f"{name}, {part}"):
                        self.assert_sharp(f"{part} at {scale}", plain[name][0], file, place, ratio)

    def test_video_windows_keep_their_places_and_show_their_pictures(self):
        names = films(4, self.folder)
        for scale, *_ in (("1",), *SCALES):
            with self.subTest(scale=scale):
                player = self.up(scale, *names)
                frame = float(scale)
                for index, name in enumerate(names):
                    column, row = ((0, 0), (1, 0), (1, 1), (0, 1))[index]
                    self.assert_place(player, name, (1920 * column, 1080 * row, 1920, 1080), name)
                seen = {}

                def moved():
                    screen = Screen(self)
                    for name in names:
                        number = self.number_in(screen, player.place(name), frame)
                        if number is not None:
                            seen.setdefault(name, set()).add(number)
                    return all(len(seen.get(name, ())) > 1 for name in names)

                wait_for(moved, 20, "movement in every window")
                self.assertEqual(player.end(), 0)

    def number_in(self, screen, place, scale):
        """The frame number in a window whose frame is so much thicker."""
        if place[0] is None:
            return None
        x, y, width, height = place
        return screen.frame_number(round(x + 3 * scale), round(y + 27 * scale), round(width - 6 * scale),
                                   round(height - 30 * scale))


class OneScreenScaled(SharpTest):
    """The same told for the screen, as desktops do."""

    def start(self, *arguments, QT_SCALE_FACTOR="1", **options):
        return super().start(*arguments, QT_SCREEN_SCALE_FACTORS=QT_SCALE_FACTOR, **options)

    def test_the_console_is_drawn_with_the_pixels_of_the_screen(self):
        plain, scaled = self.pictures("1")["console"][0], self.pictures("2")["console"][0]
        for part, place in PARTS.items():
            with self.subTest(part=part):
                self.assert_sharp(part, plain, scaled, place, (2, 1))


if __name__ == "__main__":
    del SharpTest
    unittest.main()
