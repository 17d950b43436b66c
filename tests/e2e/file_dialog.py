"""The program's dialog for files, driven as a user does: by keys, in the window that its title names.

The display comes from player_display; the program has to run with TANDREL_FILE_DIALOG=toolkit where the machine's
desktop might offer a dialog of its own.
"""

import re

from player_display import wait_for


def window_of(display, title):
    """The id of the dialog's window on the screen, or None."""
    exactly = "^" + re.escape(title) + "$"
    found = display.run("xdotool", "search", "--onlyvisible", "--name", exactly).stdout.split()
    return found[-1] if found else None


def has_focus(display, window):
    return display.run("xdotool", "getwindowfocus").stdout.strip() == window


def wait_for_dialog(display, title, limit=20):
    """The window of the dialog, once it takes the keys."""
    window = wait_for(lambda: window_of(display, title), limit, f"the dialog {title!r}")
    wait_for(lambda: has_focus(display, window), limit, f"the keys for the dialog {title!r}")
    return window


def wait_gone(display, window, limit=20):
    def gone():
        return "IsViewable" not in display.run("xwininfo", "-id", window).stdout

    wait_for(gone, limit, "the end of the dialog")


def type_name(display, text):
    """Puts a text into the field of the name. Alt+N leads into the field in all languages; where a folder is asked for it
    begins there."""
    display.run("xdotool", "key", "--clearmodifiers", "alt+n")
    display.run("xdotool", "key", "--clearmodifiers", "ctrl+a")
    display.run("xdotool", "type", "--clearmodifiers", "--delay", "4", text)


def enter(display, text):
    """Puts a text into the field of the name and presses Enter."""
    type_name(display, text)
    display.run("xdotool", "key", "--clearmodifiers", "Return")


def selection_of(names):
    """What is typed for files of one folder. A name in quotes can't hold one."""
    if len(names) == 1:
        return names[0]
    if any('"' in name for name in names):
        raise ValueError("a name with a quote has to be chosen alone")
    return " ".join(f'"{name}"' for name in names)


def choose(display, title, folder, *names):
    """Chooses files of one folder in the dialog of this title, and waits until it is gone. ASCII names."""
    window = wait_for_dialog(display, title)
    enter(display, folder.rstrip("/") + "/")
    enter(display, selection_of(names))
    wait_gone(display, window)


def choose_folder(display, title, folder):
    window = wait_for_dialog(display, title)
    enter(display, folder)
    wait_gone(display, window)


def cancel(display, title):
    window = wait_for_dialog(display, title)
    display.run("xdotool", "key", "Escape")
    wait_gone(display, window)
