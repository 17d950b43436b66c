"""The media for the tests of HD films; make_test_media.py makes them together with the others.

Pictures carry their number as those of the other media do. Some are as large as films are, with noise that keeps a
decoder busy; what only its container makes interesting is small.
"""

import struct

GREY = ["-f", "rawvideo", "-pixel_format", "gray", "-video_size", "320x240"]
# Noise below the band with the number.
LARGE = "scale=1920:1080:flags=neighbor,format=yuv420p,noise=alls=12:allf=t:all_seed=7"
SMALL = "scale=640:360:flags=neighbor,format=yuv420p"
X264 = ["-c:v", "libx264", "-preset", "veryfast", "-crf", "27", "-threads", "2"]
QUICK = ["-c:v", "libx264", "-preset", "ultrafast", "-threads", "1"]
LONG_GOP = ["-g", "250", "-keyint_min", "250", "-sc_threshold", "0", "-bf", "2"]
SOUND = ["-c:a", "aac", "-b:a", "64k"]

# name, frame rate, frames, seconds of sound, filter, arguments for the encoder
FILMS = [
    ("film_h264.mkv", "30", 300, 10, LARGE, X264 + LONG_GOP + SOUND),
    ("film_hevc.mkv", "25", 50, 0, LARGE, ["-c:v", "libx265", "-preset", "ultrafast", "-x265-params", "log-level=error"]),
    ("film_vp9.mkv", "25", 50, 0, LARGE, ["-c:v", "libvpx-vp9", "-b:v", "0", "-crf", "34", "-qmin", "34", "-deadline", "realtime", "-cpu-used", "8",
                                         "-row-mt", "1", "-threads", "2"]),
    ("film_av1.mkv", "25", 50, 0, LARGE, ["-c:v", "libsvtav1", "-preset", "12", "-crf", "40"]),
    ("film_10bit.mkv", "25", 50, 0, LARGE, X264 + ["-pix_fmt", "yuv420p10le"]),
    ("film_wide.mkv", "25", 50, 0, "scale=640:272:flags=neighbor,setsar=1", QUICK + ["-pix_fmt", "yuv420p"]),
    ("film_plain.mkv", "25", 250, 10, SMALL, QUICK + ["-g", "50"] + SOUND),
    ("film.hdmov", "25", 100, 4, SMALL, QUICK + SOUND + ["-metadata", "title=A film in a box", "-f", "mov"]),
    # A minute, at five pictures a second.
    ("film_long.mkv", "5", 300, 60, SMALL, QUICK + ["-g", "10"] + SOUND),
]

CHAPTERS = 10000
SUBTITLES_DE = "1\n00:00:00,200 --> 00:00:03,800\nIIIIIIIIIIIII\n"
SUBTITLES_EN = """[Script Info]
ScriptType: v4.00+
PlayResX: 640
PlayResY: 360
[V4+ Styles]
Format: Name, Fontname, Fontsize, PrimaryColour, Bold, Alignment, MarginL, MarginR, MarginV
Style: Default,Sans,48,&H00FFFFFF,1,2,10,10,10
[Events]
Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text
Dialogue: 0,0:00:00.20,0:00:03.80,Default,,0,0,0,,MMMMMMMMMMMM
"""


def make_film(folder, row, ffmpeg):
    name, rate, frames, sound, picture_filter, codec = row
    arguments = GREY + ["-framerate", rate, "-i", str(folder / "pictures.raw")]
    if sound:
        arguments += ["-f", "lavfi", "-i", f"sine=frequency=440:sample_rate=44100:duration={sound}"]
    ffmpeg(arguments + ["-vf", picture_filter, "-frames:v", str(frames)] + codec + [str(folder / name)])


def make_tracks(folder, ffmpeg):
    """Two languages of sound, subtitles in two codings, chapters, a title. The picture is black."""
    (folder / "film_de.srt").write_text(SUBTITLES_DE)
    (folder / "film_en.ass").write_text(SUBTITLES_EN)
    (folder / "film_chapters.txt").write_text(";FFMETADATA1\ntitle=Zwei Stra\u00dfen\n" + "".join(
        f"[CHAPTER]\nTIMEBASE=1/1000\nSTART={start}\nEND={start + 1000}\ntitle=Part {start // 1000 + 1}\n"
        for start in range(0, 4000, 1000)))
    ffmpeg(["-f", "lavfi", "-i", "color=black:size=640x360:rate=25:duration=4",
            "-f", "lavfi", "-i", "sine=frequency=440:duration=4", "-f", "lavfi", "-i", "sine=frequency=880:duration=4",
            "-i", str(folder / "film_de.srt"), "-i", str(folder / "film_en.ass"), "-i", str(folder / "film_chapters.txt"),
            "-map", "0:v", "-map", "1:a", "-map", "2:a", "-map", "3:s", "-map", "4:s", "-map_metadata", "5", "-map_chapters", "5",
            "-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt", "yuv420p", "-c:a:0", "aac", "-c:a:1", "ac3",
            "-c:s:0", "srt", "-c:s:1", "ass",
            "-metadata:s:a:0", "language=eng", "-metadata:s:a:0", "title=Stereo", "-metadata:s:a:1", "language=ger",
            "-metadata:s:s:0", "language=ger", "-metadata:s:s:0", "title=Untertitel", "-metadata:s:s:1", "language=eng",
            "-disposition:a:0", "default", "-disposition:a:1", "0", "-disposition:s:0", "0", "-disposition:s:1", "0",
            str(folder / "film_tracks.mkv")])


def make_chapters(folder, ffmpeg):
    (folder / "film_chapters.txt").write_text(";FFMETADATA1\n" + "".join(
        f"[CHAPTER]\nTIMEBASE=1/1000\nSTART={number}\nEND={number + 1}\ntitle=Part {number + 1}\n"
        for number in range(CHAPTERS)))
    ffmpeg(["-i", str(folder / "film_plain.mkv"), "-i", str(folder / "film_chapters.txt"), "-map", "0", "-map_chapters", "1",
            "-c", "copy", str(folder / "film_10000_chapters.mkv")])


def patched(folder, source, target, change):
    """A copy of a file with one change, which must have something to change."""
    before = (folder / source).read_bytes()
    after = change(before)
    if after == before:
        raise ValueError(f"{target}: nothing was changed in {source}")
    (folder / target).write_bytes(after)


def with_duration(seconds):
    """The length that the segment tells, which is an eight-byte float of milliseconds."""
    def change(data):
        place = data.index(b"\x44\x89\x88") + 3
        return data[:place] + struct.pack(">d", seconds * 1000) + data[place + 8:]
    return change


def make_damaged(folder):
    plain = "film_plain.mkv"
    patched(folder, plain, "film_too_long.mkv", with_duration(1000))
    patched(folder, plain, "film_too_short.mkv", with_duration(2))
    patched(folder, plain, "film_without_cues.mkv", lambda data: data.replace(b"\x1c\x53\xbb\x6b", b"\x1c\x53\xbb\x6c"))
    patched(folder, plain, "film_truncated.mkv", lambda data: data[: len(data) * 6 // 10])
    patched(folder, plain, "film_nothing_left.mkv", lambda data: data[:100])
    patched(folder, plain, "film_unknown_picture.mkv", lambda data: data.replace(b"V_MPEG4/ISO/AVC", b"V_UNKNOWN/CODEC"))
    patched(folder, "film_unknown_picture.mkv", "film_unknown_all.mkv", lambda data: data.replace(b"A_AAC", b"A_XYZ"))


def make_films(folder, pool, ffmpeg):
    jobs = [pool.submit(make_film, folder, row, ffmpeg) for row in FILMS]
    jobs.append(pool.submit(make_tracks, folder, ffmpeg))
    for job in jobs:
        job.result()
    make_chapters(folder, ffmpeg)
    make_damaged(folder)
    for name in ("film_de.srt", "film_en.ass", "film_chapters.txt"):
        (folder / name).unlink()
