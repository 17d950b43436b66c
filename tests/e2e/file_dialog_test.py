"""The dialog for files on a real display, shown by the gallery: what is typed and clicked comes out as paths."""

import os
import subprocess
import tempfile
import unittest

from player import BIN, Display, wait_for
import file_dialog
import tries

TITLE = "Open Multiple Video..."


class FileDialogTest(tries.SeveralTries):
    window_manager = True
    display_size = "1280x800"

    def setUp(self):
        self.holder = tempfile.TemporaryDirectory(prefix="tandrel-dialog-")
        self.folder = self.holder.name
        for name in ("a.avi", "b c.mp4", "say 'hi'|.mkv"):
            with open(os.path.join(self.folder, name), "w", encoding="ascii") as film:
                film.write("film")
        self.display = Display(self.display_size, self.window_manager).__enter__()
        self.gallery = None

    def tearDown(self):
        if self.gallery and self.gallery.poll() is None:
            self.gallery.kill()
        if self.gallery:
            self.gallery.wait()
            self.gallery.stdout.close()
        self.display.__exit__()
        self.holder.cleanup()

    def show(self, window="fileDialog"):
        environment = dict(self.display.environment, TANDREL_FILE_DIALOG="toolkit", TMPDIR=self.folder)
        self.gallery = subprocess.Popen([os.path.join(BIN, "tandrel-gallery"), window], env=environment,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def chosen(self):
        out, _ = self.gallery.communicate(timeout=90)
        self.assertEqual(self.gallery.returncode, 0)
        return out.decode("utf-8", "surrogateescape").splitlines()

    def in_folder(self, *names):
        return [os.path.join(self.folder, name) for name in names]

    def test_one_file(self):
        self.show()
        file_dialog.choose(self.display, TITLE, self.folder, "a.avi")
        self.assertEqual(self.chosen(), self.in_folder("a.avi"))

    def test_several_files(self):
        self.show()
        file_dialog.choose(self.display, TITLE, self.folder, "b c.mp4", "a.avi")
        self.assertEqual(self.chosen(), self.in_folder("b c.mp4", "a.avi"))

    def test_a_name_with_marks(self):
        self.show()
        file_dialog.choose(self.display, TITLE, self.folder, "say 'hi'|.mkv")
        self.assertEqual(self.chosen(), self.in_folder("say 'hi'\uf07c.mkv"))

    def test_a_folder(self):
        self.show("folderDialog")
        file_dialog.choose_folder(self.display, "Choose a folder", self.folder)
        self.assertEqual(self.chosen(), [self.folder])

    def test_cancel(self):
        self.show()
        file_dialog.cancel(self.display, TITLE)
        self.assertEqual(self.chosen(), [])

    def test_double_click_on_the_first_film(self):
        self.show()
        window = file_dialog.wait_for_dialog(self.display, TITLE)
        files = os.path.join(self.folder, "tandrel-gallery", "home", "Videos")

        def geometry():
            shell = self.display.run("xdotool", "getwindowgeometry", "--shell", window).stdout
            return dict(line.split("=") for line in shell.split())

        # Clicked until it is there to be clicked: the rows come a little after the window.
        def taken():
            if self.gallery.poll() is not None:
                return True
            place = geometry()
            if "X" in place:
                # The third row: two folders stand before the films.
                x, y = int(place["X"]) + 260, int(place["Y"]) + 170
                self.display.run("xdotool", "mousemove", str(x), str(y), "click", "--repeat", "2", "--delay", "60", "1")
            return False

        wait_for(taken, 20, "the choice of a double click")
        self.assertEqual(self.chosen(), [os.path.join(files, "Crossing the strait.mp4")])

    def test_it_stands_before_a_window_that_covers_the_screen(self):
        self.show("coveredDialog")
        file_dialog.wait_for_dialog(self.display, TITLE)
        wait_for(self.is_seen, 10, "the dialog before the cover")
        self.display.run("xdotool", "mousemove", "3", "3", "click", "1")
        # What a click beside it does is done when the dialog takes keys again.
        file_dialog.enter(self.display, "none.avi")
        wait_for(self.is_seen, 10, "the dialog before the cover, whatever is clicked")
        file_dialog.choose(self.display, TITLE, self.folder, "a.avi")
        self.assertEqual(self.chosen(), self.in_folder("a.avi"))

    def is_seen(self):
        """The glass of its list is what the screen shows in its middle."""
        middle = [int(size) // 2 for size in self.display_size.split("x")]
        crop = f"1x1+{middle[0] + 60}+{middle[1] + 80}"
        raw = subprocess.run(["import", "-window", "root", "-crop", crop, "-depth", "8", "rgb:-"],
                             env=self.display.environment, capture_output=True, check=True).stdout
        return tuple(raw[:3]) == (0x0A, 0x1E, 0x36)

    def test_dragged_and_resized(self):
        self.show()
        window = file_dialog.wait_for_dialog(self.display, TITLE)

        def place():
            shell = self.display.run("xdotool", "getwindowgeometry", "--shell", window).stdout
            found = dict(line.split("=") for line in shell.split())
            return tuple(int(found[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))

        x, y, width, height = place()
        # Near the end of an edge: the very corner is cut off.
        self.drag((x + width - 4, y + height - 10), (-100, -50))
        wait_for(lambda: place() == (x, y, width - 100, height - 50), 10, "a smaller window")
        self.drag((x + 100, y + 12), (60, 40))
        wait_for(lambda: place() == (x + 60, y + 40, width - 100, height - 50), 10, f"the window 60, 40 away from {x}, {y}")
        file_dialog.cancel(self.display, TITLE)

    def drag(self, start, by):
        run = self.display.run
        run("xdotool", "mousemove", str(start[0]), str(start[1]), "mousedown", "1")
        run("xdotool", "mousemove", str(start[0] + by[0] // 2), str(start[1] + by[1] // 2))
        run("xdotool", "mousemove", str(start[0] + by[0]), str(start[1] + by[1]), "mouseup", "1")


class WithoutManager(FileDialogTest):
    """No window manager gives the dialog its keys."""

    window_manager = False


class SmallScreen(FileDialogTest):
    display_size = "800x600"


if __name__ == "__main__":
    unittest.main()
