#!/usr/bin/env python3
"""Makes the media files for the tests: make_test_media.py FOLDER

Every picture carries its number in the top sixth, as sixteen blocks, white for one: twelve bits of the number, the
highest first, then four check bits. A test reads from the screen which frame is shown (test_media.h).
"""

import concurrent.futures
import os
import pathlib
import subprocess
import sys

import film_media

WIDTH, HEIGHT, BAND, BLOCK = 320, 240, 40, 20
FRAMES = 300

SINE = ["-f", "lavfi", "-i", "sine=frequency=440:sample_rate=44100:duration={seconds}"]
H264 = ["-c:v", "libx264", "-preset", "veryfast", "-bf", "2", "-g", "250", "-pix_fmt", "yuv420p", "-threads", "1"]
NO_B = ["-c:v", "libx264", "-preset", "ultrafast", "-bf", "0", "-g", "50", "-pix_fmt", "yuv420p", "-threads", "1"]
AAC = ["-c:a", "aac", "-b:a", "64k"]
# Frame N is shown from N * 40 + 20 * (N mod 2) milliseconds on.
UNEVEN = ["-vf", "settb=1/1000,setpts=N*40+20*mod(N\\,2)", "-enc_time_base", "1:1000", "-vsync", "vfr"]

# One frame stays for 0.44 ms more, and the rate that the file tells is lower than the one that most of its frames keep.
STRETCHED = ["-vf", "settb=1/90000,setpts=N*3000+40*gte(N\\,140)", "-enc_time_base", "1:90000", "-video_track_timescale",
             "90000", "-vsync", "vfr"]

# name, frame rate, frames, seconds of sound (0: none), arguments for the encoder
VIDEOS = [
    ("h264_30.mp4", "30", 300, 10, H264 + AAC + ["-movflags", "+faststart"]),
    ("h264_25.mp4", "25", 250, 0, H264),
    ("ntsc.mp4", "30000/1001", 150, 5, H264 + AAC),
    ("short.mp4", "30", 60, 2, H264 + AAC),
    ("long_sound.mp4", "25", FRAMES, 2, H264 + AAC + ["-vf", "trim=end_frame=25"]),
    ("sound_behind.mp4", "25", FRAMES, 5, H264 + AAC + ["-vf", "trim=end_frame=75"]),
    ("anamorphic.mp4", "25", 25, 0, ["-vf", "setsar=4/3"] + NO_B),
    ("anamorphic.mkv", "25", 25, 0, ["-vf", "setsar=3/4"] + NO_B),
    ("anamorphic.mpg", "25", 25, 0, ["-vf", "setdar=16/9", "-c:v", "mpeg2video", "-q:v", "4"]),
    ("anamorphic.avi", "25", 25, 0, ["-vf", "setsar=4/3", "-c:v", "mpeg4", "-q:v", "4"]),
    ("video.avi", "25", 75, 3, ["-c:v", "mpeg4", "-q:v", "4", "-c:a", "pcm_s16le"]),
    ("video.mpg", "25", 75, 3, ["-c:v", "mpeg2video", "-q:v", "4", "-bf", "2", "-c:a", "mp2"]),
    ("video.webm", "30", 90, 3, ["-c:v", "libvpx", "-b:v", "1M", "-deadline", "realtime", "-c:a", "libvorbis"]),
    ("video.wmv", "25", 75, 3, ["-c:v", "wmv2", "-b:v", "1M", "-c:a", "wmav2"]),
    ("video.flv", "25", 75, 3, ["-c:v", "flv", "-b:v", "1M", "-c:a", "libmp3lame"]),
    ("video.mov", "25", 75, 3, NO_B + AAC),
    ("video.mkv", "24000/1001", 72, 3, H264 + AAC),
    ("video.ogm", "25", 75, 3, ["-c:v", "libtheora", "-q:v", "7", "-c:a", "libvorbis", "-f", "ogg"]),
    ("offset.ts", "25", 75, 3, NO_B + AAC + ["-output_ts_offset", "10"]),
    ("uneven.mkv", "25", 75, 0, NO_B + UNEVEN),
    ("stretched.mp4", "30", 150, 0, H264 + STRETCHED),
    ("live.mkv", "25", 75, 0, NO_B + ["-f", "matroska", "-live", "1"]),
    # Several key frames, for steps across them.
    ("gops.mp4", "30", 150, 5, H264 + AAC + ["-g", "40", "-keyint_min", "40", "-sc_threshold", "0"]),
    ("gops_late.mp4", "30", 90, 0, H264 + ["-g", "30", "-sc_threshold", "0", "-output_ts_offset", "2"]),
    ("gops_open.mkv", "25", 100, 0, H264 + ["-x264-params", "open-gop=1:keyint=25:min-keyint=25:scenecut=0:bframes=3"]),
    ("gops_uneven.mkv", "25", 75, 0, H264 + ["-g", "20", "-sc_threshold", "0"] + UNEVEN),
    ("gops.ts", "25", 75, 3, ["-c:v", "mpeg2video", "-q:v", "4", "-bf", "2", "-c:a", "mp2", "-output_ts_offset", "10"]),
    ("gops_h264.ts", "25", 100, 0, H264 + ["-g", "25", "-sc_threshold", "0", "-output_ts_offset", "3"]),
    ("gops_vp9.webm", "30", 90, 0, ["-c:v", "libvpx-vp9", "-pix_fmt", "yuv420p", "-b:v", "500k", "-g", "30", "-deadline", "realtime",
                                    "-cpu-used", "8"]),
    ("gops_hevc.mp4", "25", 75, 0, ["-c:v", "libx265", "-preset", "ultrafast", "-x265-params",
                                    "keyint=25:log-level=error", "-pix_fmt", "yuv420p"]),
    ("gops_cut.mp4", "25", 100, 0, H264 + ["-g", "30", "-sc_threshold", "0", "-movflags", "+faststart"]),
    # Long ones. The decoder of the first two can halve pictures, and no graphics card decodes the last.
    ("mpeg4.mkv", "10", 300, 0, ["-c:v", "mpeg4", "-q:v", "4", "-bf", "2"]),
    ("mpeg4_wide.mkv", "10", 300, 0, ["-vf", "setsar=2", "-c:v", "mpeg4", "-q:v", "4", "-bf", "2"]),
    ("theora.mkv", "10", 300, 0, ["-c:v", "libtheora", "-q:v", "7"]),
    ("raw.h264", "25", 75, 0, NO_B + ["-f", "h264"]),
]
SOUNDS = [("sound.mp3", ["-c:a", "libmp3lame"]), ("sound.m4a", AAC)]

# name, size, arguments for the encoder: twenty pictures in colour
COLOURS = [
    ("colours_720.mp4", "1280x720", NO_B),
    ("colours_240.mp4", "320x240", NO_B),
    ("colours_709.mp4", "320x240", NO_B + ["-colorspace", "bt709"]),
    ("colours_full.mp4", "320x240", NO_B + ["-pix_fmt", "yuvj420p"]),
]

TEXTS = {
    "empty.avi": "",
    "text.avi": "This is no video.\n" * 200,
    "list.m3u": "#EXTM3U\n#EXTINF:10,video\nh264_30.mp4\n",
    "plain.m3u": "h264_30.mp4\n",
    "list.m3u8": "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:4\n#EXTINF:3.0,\noffset.ts\n#EXT-X-ENDLIST\n",
    "list.pls": "[playlist]\nFile1=h264_30.mp4\nNumberOfEntries=1\n",
    "list.cue": 'FILE "sound.mp3" MP3\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n',
    "list.edl": "# mpv EDL v0\nh264_30.mp4,0,5\n",
    "list.ffconcat": "ffconcat version 1.0\nfile h264_30.mp4\n",
    "subtitles.srt": "1\n00:00:01,000 --> 00:00:02,000\nHello\n",
}


def picture(number):
    check = (number ^ (number >> 4) ^ (number >> 8) ^ 0xA) & 0xF
    bits = (number << 4) | check
    band = b"".join((b"\xff" if bits >> (15 - place) & 1 else b"\x00") * BLOCK for place in range(16))
    body = bytes((x + 3 * number) & 0xFF for x in range(WIDTH))
    return band * BAND + body * (HEIGHT - BAND)


def ffmpeg(arguments):
    return subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-y"] + arguments, check=True, capture_output=True).stdout


def make_video(folder, row):
    name, rate, frames, sound, codec = row
    arguments = ["-f", "rawvideo", "-pixel_format", "gray", "-video_size", f"{WIDTH}x{HEIGHT}"]
    arguments += ["-framerate", rate, "-i", str(folder / "pictures.raw")]
    if sound:
        arguments += [part.format(seconds=sound) for part in SINE]
    arguments += ["-frames:v", str(frames)] + codec
    if name == "live.mkv":
        # A file that is written to a pipe never learns its length.
        (folder / name).write_bytes(ffmpeg(arguments + ["pipe:1"]))
    else:
        ffmpeg(arguments + [str(folder / name)])


def make_colours(folder, row):
    name, size, codec = row
    ffmpeg(["-f", "lavfi", "-i", f"testsrc2=size={size}:rate=25", "-frames:v", "20"] + codec + [str(folder / name)])


def make_sound(folder, row):
    ffmpeg([part.format(seconds=3) for part in SINE] + row[1] + [str(folder / row[0])])


def cut(folder, source, target, part):
    data = (folder / source).read_bytes()
    (folder / target).write_bytes(data[: int(len(data) * part)])


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    with open(folder / "pictures.raw", "wb") as out:
        for number in range(FRAMES):
            out.write(picture(number))

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        jobs = [pool.submit(make_video, folder, row) for row in VIDEOS]
        jobs += [pool.submit(make_sound, folder, row) for row in SOUNDS]
        jobs += [pool.submit(make_colours, folder, row) for row in COLOURS]
        for job in jobs:
            job.result()
        film_media.make_films(folder, pool, ffmpeg)

    short = str(folder / "short.mp4")
    ffmpeg(["-i", short, "-c", "copy", "-metadata:s:v", "rotate=90", str(folder / "turned.mp4")])
    ffmpeg(["-i", short, "-frames:v", "1", str(folder / "picture.png")])
    cut(folder, "h264_30.mp4", "cut_with_index.mp4", 0.6)
    ffmpeg(["-i", str(folder / "gops.mp4"), "-c", "copy", "-metadata:s:v", "rotate=180", str(folder / "gops_turned.mp4")])
    cut(folder, "gops_cut.mp4", "gops_cut.mp4", 0.6)
    cut(folder, "short.mp4", "cut_without_index.mp4", 0.5)
    for name, text in TEXTS.items():
        (folder / name).write_text(text)
    (folder / "pictures.raw").unlink()


if __name__ == "__main__":
    main()
