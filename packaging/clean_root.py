#!/usr/bin/env python3
"""Installs the package in a fresh system, runs what it brings, and takes it away again: clean_root.py ROOT DEB DISC

ROOT is the folder of a fresh Debian with its mounts, as mmdebstrap gives it to its hooks; this process is administrator
there. What shows and watches the windows is the outer system's: the fresh one has the package, what it depends on, and
nothing else. The last line is OK; whatever goes wrong ends the process with another status.
"""

import os
import shutil
import signal
import subprocess
import sys
import time

TOP = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(TOP, "scripts", "lib"))
from player_display import Display, prepare_home, wait_for  # noqa: E402

PACKAGE = "tandrel-player"
USER = "viewer"
HOME = f"/home/{USER}"
DATA = HOME + "/data"
PRIVATE = "/usr/lib/tandrel-player"
PROGRAMS = {
    "/usr/bin/tandrel-player": "tandrel-player",
    "/usr/bin/tandrel-open": "tandrel-open",
    "/usr/bin/tandrel-mci": "tandrel-mci",
    PRIVATE + "/tandrel-codec-settings": "tandrel-codec-settings",
    PRIVATE + "/RunDLL32.exe": "RunDLL32.exe (Tandrel Player)",
}
COLOURS_OF_A_PICTURE = 200
# Where users keep what is theirs, and what the kernel shows.
NOT_OF_PACKAGES = {"home", "proc", "sys", "dev", "tmp", "run"}


def expect(condition, what):
    if not condition:
        raise AssertionError(what)


class Root:
    """The fresh system."""

    def __init__(self, folder):
        self.folder = folder

    def path(self, inside):
        return self.folder + inside

    def read(self, inside):
        with open(self.path(inside), encoding="utf-8", errors="replace") as file:
            return file.read()

    def administrate(self, *command):
        done = subprocess.run(["chroot", self.folder, *command], capture_output=True, text=True)
        expect(done.returncode == 0, f"{command}: {done.stdout}{done.stderr}")
        return done.stdout

    def apt(self, *arguments):
        """The outer system's apt, which knows how to reach the mirrors, at work in the fresh system."""
        environment = dict(os.environ, APT_CONFIG=os.environ["MMDEBSTRAP_APT_CONFIG"], DEBIAN_FRONTEND="noninteractive")
        command = [
            "apt-get",
            "-q",
            "--yes",
            "--no-install-recommends",
            f"-oDPkg::Chroot-Directory={self.folder}",
            *arguments,
        ]
        done = subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        expect(done.returncode == 0, f"{' '.join(command)}\n{done.stdout}")

    def start(self, *command, **environment):
        """Starts a program as a common user, with these variables and no others."""
        words = [f"{name}={value}" for name, value in {"HOME": HOME, "PATH": "/usr/bin:/bin", **environment}.items()]
        return subprocess.Popen(
            ["chroot", f"--userspec={USER}:{USER}", self.folder, "/usr/bin/env", "-i", "-C", HOME, *words, *command],
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            text=True,
        )

    def own(self, inside):
        self.administrate("chown", "-R", f"{USER}:{USER}", inside)


def install(root, deb):
    shutil.copy(deb, root.path("/tmp/package.deb"))
    root.apt("install", root.path("/tmp/package.deb"))
    root.administrate("useradd", "--create-home", USER)
    expect(
        root.administrate("dpkg-query", "-W", "-f=${db:Status-Status}", PACKAGE) == "installed", "it is not installed"
    )
    expect(
        f"{PACKAGE}.desktop" in root.read("/usr/share/applications/mimeinfo.cache"), "no type of file knows the player"
    )


def check_descriptions(root, version):
    for program, name in PROGRAMS.items():
        for argument, front in (
            ("--version", f"{name} {version}\n"),
            ("--help", "Usage: " + os.path.basename(program)),
        ):
            process = root.start(program, argument)
            said = process.communicate(timeout=120)[0]
            expect(process.returncode == 0 and said.startswith(front), f"{program} {argument}: {said}")


class Running:
    """A program of the package on the display; it has to end well when asked to."""

    def __init__(self, root, display, *command, **environment):
        self.root, self.display = root, display
        self.command = command
        self.process = root.start(
            *command, DISPLAY=display.name, TANDREL_HOME=DATA, TANDREL_REPORT=DATA + "/report", **environment
        )

    def __enter__(self):
        return self

    def __exit__(self, kind, *_):
        windows = self.display.run("wmctrl", "-l").stdout if kind else ""
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
        try:
            said = self.process.communicate(timeout=120)[0]
        except subprocess.TimeoutExpired:
            self.process.kill()
            raise
        if kind or self.process.returncode != 0:
            print(f"{self.command} ended with {self.process.returncode} and said:\n{said}\nbeside these windows:\n{windows}")
        if kind is None:
            expect(self.process.returncode == 0, f"{self.command} did not end well")

    def window(self, front):
        """The number of the window with a title that begins like this."""
        expect(self.process.poll() is None, f"{self.command} has ended by itself")
        for line in self.display.run("wmctrl", "-l").stdout.splitlines():
            fields = line.split(None, 3)
            if len(fields) == 4 and fields[3].startswith(front):
                return fields[0]
        return None

    def wait_for_window(self, front):
        return wait_for(lambda: self.window(front), 20, f"a window {front}")

    def report(self):
        """Rows of what is open, and what the console shows."""
        path = self.root.path(DATA + "/report")
        if os.path.exists(path):
            os.remove(path)
        self.process.send_signal(signal.SIGUSR1)
        wait_for(lambda: os.path.exists(path), 20, "a report")
        rows = [line.split("\t") for line in self.root.read(DATA + "/report").splitlines()]
        return [row for row in rows if not row[0].startswith("#")], next(row for row in rows if row[0] == "# console")

    def colours(self, window):
        """How many colours the middle of a window has."""
        counted = self.display.run(
            "import",
            "-silent",
            "-window",
            window,
            "-gravity",
            "center",
            "-crop",
            "50%x50%+0+0",
            "-format",
            "%k",
            "info:-",
        ).stdout
        return int(counted) if counted.isdigit() else 0


def check_video(root, display):
    with Running(root, display, "tandrel-player", "film.mp4") as player:
        console = player.wait_for_window("Tandrel Player PRO")
        player.wait_for_window(f"§{HOME}/film.mp4")
        entry = root.read(f"/usr/share/applications/{PACKAGE}.desktop")
        name = next(line.split("=")[1] for line in entry.splitlines() if line.startswith("StartupWMClass="))
        said = display.run("xprop", "-id", console, "WM_CLASS").stdout
        expect(f'"{name}"' in said, f"the desktop would not know the window as the entry's: {said}")
        seen = set()

        def plays():
            rows, _ = player.report()
            if rows:
                expect(rows[0][1:3] == ["640", "360"], f"another film than that: {rows}")
                seen.add((rows[0][4], rows[0][5]))
            return len({place for place, _ in seen}) >= 3 and len({shown for _, shown in seen}) >= 3

        wait_for(plays, 20, "pictures that follow each other")


def check_disc(root, display):
    with Running(root, display, "tandrel-player", "DVD", TANDREL_DISCS=HOME + "/disc.iso") as player:
        player.wait_for_window("Tandrel Player PRO")
        window = player.wait_for_window("TANDREL_TEST")
        # Black without a picture, or black with a line of text.
        wait_for(lambda: player.colours(window) >= COLOURS_OF_A_PICTURE, 20, "the menu of the disc")


def check_dialog(root, display):
    for command in (
        [PRIVATE + "/tandrel-codec-settings"],
        [PRIVATE + "/RunDLL32.exe", PRIVATE + "/tandrel-codec-settings,configure"],
    ):
        with Running(root, display, *command) as dialog:
            wait_for(
                lambda: display.run("xdotool", "search", "--onlyvisible", "--class", "tandrel-codec-settings").stdout,
                20,
                "the dialog",
            )
            dialog.process.send_signal(signal.SIGTERM)


def run_programs(root, disc):
    # What makes the video is no part of what is tested.
    film = root.path(HOME + "/film.mp4")
    subprocess.run(
        [
            "ffmpeg",
            "-v",
            "error",
            "-f",
            "lavfi",
            "-i",
            "testsrc2=size=640x360:rate=25:duration=20",
            "-f",
            "lavfi",
            "-i",
            "sine=duration=20",
            "-c:v",
            "libx264",
            "-preset",
            "ultrafast",
            "-pix_fmt",
            "yuv420p",
            "-c:a",
            "aac",
            film,
        ],
        check=True,
    )
    shutil.copy(disc, root.path(HOME + "/disc.iso"))
    prepare_home(root.path(DATA))
    root.own(HOME)
    with Display() as display:
        check_video(root, display)
        check_disc(root, display)
        check_dialog(root, display)


def remains(root, files):
    """What is there of the package's files, and what has its name anywhere."""
    found = [file for file in files if PACKAGE in file and os.path.lexists(root.path(file))]
    for folder, folders, names in os.walk(root.folder):
        if folder == root.folder:
            folders[:] = [name for name in folders if name not in NOT_OF_PACKAGES]
        found += [os.path.join(folder, name) for name in (*folders, *names) if "tandrel" in name.lower()]
    return found


def remove(root):
    files = root.administrate("dpkg-query", "-L", PACKAGE).split("\n")
    expect(len([file for file in files if PACKAGE in file]) > 20, f"the package has hardly any files: {files}")
    root.apt("purge", PACKAGE)
    kept = [file for file in files if file and os.path.isfile(root.path(file))]
    # Apt's notes of what was installed name it, which is what they are for.
    rest = [path for path in remains(root, files) if not path.startswith(root.path("/var/log/"))]
    expect(not kept and not rest, f"left behind: {kept + rest}")
    expect(PACKAGE not in root.read("/var/lib/dpkg/status"), "dpkg still knows it")
    expect(PACKAGE not in root.read("/usr/share/applications/mimeinfo.cache"), "types of file still know the player")


def main(folder, deb, disc):
    root = Root(folder)
    version = subprocess.run(
        ["dpkg-deb", "-f", deb, "Version"], capture_output=True, text=True, check=True
    ).stdout.split("-")[0]
    steps = (
        ("installed", lambda: install(root, deb)),
        ("told its version", lambda: check_descriptions(root, version)),
        ("played", lambda: run_programs(root, disc)),
        ("removed", lambda: remove(root)),
    )
    for name, step in steps:
        begin = time.monotonic()
        step()
        print(f"{name} in {time.monotonic() - begin:.1f} s", flush=True)
    print("OK")


if __name__ == "__main__":
    main(*sys.argv[1:4])
