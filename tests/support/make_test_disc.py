#!/usr/bin/env python3
"""Makes a video disc for the tests: make_test_disc.py FOLDER

FOLDER/disc is a folder as it stands on a disc, FOLDER/disc.iso an image of it. Its pictures carry their numbers as those
of the test media do (make_test_media.py). What a test has to know of it stands in disc_bench.h as well:

menu     frame 4000, button 1 on the left leads to title 1, button 2 on the right to title 2; the chosen one is green
title 1  60 s, frames 0 to 1499, chapters at 0, 15, 30 and 45 s
title 2  20 s, frames 2000 to 2499, chapters at 0 and 9 s
both     sounds in English (440 Hz) and German (880 Hz), a subtitle from 4 to 8 s; they lead back to the menu
"""

import os
import pathlib
import shutil
import struct
import subprocess
import sys
import zlib

from make_test_media import HEIGHT, WIDTH, ffmpeg, picture

RATE = 25
SIZE = (720, 576)
MENU = 4000
# first frame, seconds, chapters
TITLES = [(0, 60, "0,15,30,45"), (2000, 20, "0,9")]
# left, top, right, bottom in the menu's picture
BUTTONS = [(120, 320, 320, 400), (400, 320, 600, 400)]
SUBTITLE = (160, 480, 560, 520)

MPEG2 = ["-target", "pal-dvd", "-aspect", "4:3", "-g", "15", "-q:v", "5", "-b:v", "3M", "-maxrate", "6M", "-threads", "1"]
# As far ahead of its time a picture is on the disc; on those for sale it is about as much.
SOON = ["-muxpreload", "0.2", "-muxdelay", "0.3"]
TONES = {"en": 440, "de": 880}

CLEAR, GREEN, RED, WHITE = b"\0\0\0\0", b"\0\xc0\0\xff", b"\xc0\0\0\xff", b"\xff\xff\xff\xff"

# A menu stays until a button is pressed, and a title gives way to the menu.
AUTHOR = """<dvdauthor dest="disc">
<vmgm><menus lang="en"><video format="pal" aspect="4:3"/><pgc entry="title">
<vob file="menu.mpg" pause="inf"/>
<button name="1">jump title 1;</button><button name="2">jump title 2;</button>
</pgc></menus></vmgm>
<titleset><menus><video format="pal" aspect="4:3"/><pgc entry="root"><pre>jump vmgm menu 1;</pre></pgc></menus>
<titles><video format="pal" aspect="4:3"/>
<audio lang="en"/><audio lang="de"/><subpicture lang="en"/>
{titles}
</titles></titleset>
</dvdauthor>"""
TITLE = '<pgc><vob file="title{number}.mpg" chapters="{chapters}"/><post>call vmgm menu;</post></pgc>'


def chunk(kind, content):
    return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))


def draw(path, boxes):
    """A PNG picture without anything but these boxes, each with its colour."""
    width, height = SIZE
    rows = [[CLEAR] * width for _ in range(height)]
    for (left, top, right, bottom), colour in boxes:
        for row in rows[top:bottom]:
            row[left:right] = [colour] * (right - left)
    pixels = b"".join(b"\0" + b"".join(row) for row in rows)
    head = struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(pixels)) + chunk(b"IEND", b""))


def overlay(folder, source, target, description):
    """Puts pictures in front of a film's."""
    (folder / "overlay.xml").write_text(description)
    with open(folder / source, "rb") as film, open(folder / target, "wb") as out:
        subprocess.run(["spumux", "-v", "0", "overlay.xml"], cwd=folder, stdin=film, stdout=out, stderr=subprocess.PIPE, check=True,
                       env={**os.environ, "VIDEO_FORMAT": "PAL"})


def encode(folder, target, numbers):
    """A film of the pictures with these numbers."""
    with open(folder / "pictures.raw", "wb") as out:
        for number in numbers:
            out.write(picture(number))
    seconds = len(numbers) / RATE
    arguments = ["-f", "rawvideo", "-pixel_format", "gray", "-video_size", f"{WIDTH}x{HEIGHT}", "-framerate", str(RATE),
                 "-i", str(folder / "pictures.raw")]
    for tone in TONES.values():
        arguments += ["-f", "lavfi", "-i", f"sine=frequency={tone}:sample_rate=48000:duration={seconds}"]
    arguments += ["-map", "0:v", "-map", "1:a", "-map", "2:a"] + MPEG2 + SOON + ["-b:a", "128k", "-ac", "2", str(folder / target)]
    ffmpeg(arguments)
    (folder / "pictures.raw").unlink()


def make_menu(folder):
    encode(folder, "plain.mpg", [MENU] * RATE)
    for name, colour in (("shown", WHITE), ("highlight", GREEN), ("pressed", RED)):
        draw(folder / f"{name}.png", [(box, colour) for box in BUTTONS])
    buttons = "".join(f'<button name="{number}" x0="{left}" y0="{top}" x1="{right}" y1="{bottom}" {way}/>'
                      for number, (left, top, right, bottom), way in zip((1, 2), BUTTONS, ('right="2"', 'left="1"')))
    overlay(folder, "plain.mpg", "menu.mpg",
            '<subpictures><stream><spu start="0" force="yes" image="shown.png" highlight="highlight.png" select="pressed.png">'
            f"{buttons}</spu></stream></subpictures>")


def make_titles(folder):
    draw(folder / "subtitle.png", [(SUBTITLE, WHITE)])
    for number, (first, seconds, _) in enumerate(TITLES, 1):
        encode(folder, "plain.mpg", range(first, first + seconds * RATE))
        overlay(folder, "plain.mpg", f"title{number}.mpg",
                '<subpictures><stream><spu start="4" end="8" image="subtitle.png"/></stream></subpictures>')


def author(folder):
    shutil.rmtree(folder / "disc", ignore_errors=True)
    titles = "".join(TITLE.format(number=number, chapters=chapters) for number, (_, _, chapters) in enumerate(TITLES, 1))
    (folder / "disc.xml").write_text(AUTHOR.format(titles=titles))
    subprocess.run(["dvdauthor", "-x", "disc.xml"], cwd=folder, check=True, capture_output=True)
    subprocess.run(["genisoimage", "-quiet", "-dvd-video", "-V", "TANDREL_TEST", "-o", "disc.iso", "disc"], cwd=folder, check=True,
                   capture_output=True)


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    make_menu(folder)
    make_titles(folder)
    author(folder)
    for path in folder.iterdir():
        if path.suffix in (".mpg", ".png", ".xml"):
            path.unlink()


if __name__ == "__main__":
    main()
