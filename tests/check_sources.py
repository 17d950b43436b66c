#!/usr/bin/env python3
"""Holds the sources to the rules of the house: who may include whom, and how large things may grow. check_sources.py TOP"""

import os
import re
import sys

# Folder below src/ -> folders whose headers it may include beside its own.
FORMS = {"console", "video", "fullscreen", "texts", "persist"}
BASE = {"platform", "toolkit"}
MAY_INCLUDE = {
    "platform": set(),
    "platform/mci": {"platform"},
    "platform/mci_tool": {"platform", "platform/mci", "platform/mpv"},
    "platform/codec": {"platform", "platform/xdg"},
    "platform/input": set(),
    "platform/mpv": {"platform", "platform/input", "platform/mci", "platform/output", "platform/codec"},
    "platform/stills": {"platform", "platform/input", "platform/xdg"},
    "platform/output": {"platform"},
    "platform/pictures": {"platform"},
    "platform/disc": {"platform"},
    "platform/vlc": {"platform", "platform/disc", "platform/output"},
    "platform/dbus": {"platform"},
    "platform/drives": {"platform", "platform/mci"},
    "platform/x11": {"platform"},
    "platform/xdg": {"platform"},
    "codec_launcher": set(),
    "codec_settings": {"platform", "platform/codec", "platform/x11", "platform/xdg", "toolkit/qt", "codec_settings"},
    "toolkit": {"platform"},
    "toolkit/qt": {"platform", "toolkit"},
    "desktop": BASE,
    "media": BASE | {"desktop"},
    "open_tool": {"platform", "platform/drives", "platform/xdg", "toolkit", "persist"},
    "persist": BASE | FORMS | {"desktop", "media"},
    "console": BASE | FORMS | {"desktop", "media"},
    "video": BASE | FORMS | {"desktop", "media"},
    "fullscreen": BASE | FORMS | {"desktop", "media"},
    "texts": BASE | FORMS | {"desktop", "media"},
    "app": BASE | {"console", "media", "toolkit/qt", "platform/mci", "platform/mpv", "platform/dbus", "platform/x11",
            "platform/xdg", "platform/codec", "platform/vlc", "platform/disc", "platform/drives", "platform/pictures", "platform/stills",
            "platform/input", "app"},
}
# Folders whose sources may name a library, by the beginning of the header's name.
LIBRARIES = {
    r"^Q[A-Za-z/]+$": {"toolkit/qt", "platform/dbus", "platform/pictures", "platform/x11", "platform/xdg", "app", "codec_settings"},
    r"^dbus/": {"platform/dbus"},
    r"^mpv/": {"platform/mpv"},
    r"^vlc/": {"platform/vlc"},
    r"^dvdread/": {"platform/disc"},
    r"^lib(av|sw)": {"platform/mpv", "platform/input", "platform/stills"},
}
# A form's header names the toolkit, plain types and what it owns; never another form.
FORM_HEADERS_MAY = {"toolkit", "desktop", "media", "platform"}

LONGEST_SOURCE = 400


def folder_of(path):
    """The folder of a header named as in an include, e.g. "toolkit/qt/style.h" -> "toolkit/qt"."""
    return os.path.dirname(path)


def sources(top):
    root = os.path.join(top, "src")
    for folder, _, names in os.walk(root):
        for name in sorted(names):
            if name.endswith((".cpp", ".h")):
                yield os.path.relpath(os.path.join(folder, name), root)


def includes(text):
    for line, content in enumerate(text.splitlines(), 1):
        found = re.match(r'\s*#\s*include\s*([<"])([^>"]+)[>"]', content)
        if found:
            yield line, found.group(1), found.group(2)


def check_include(path, kind, name):
    own = folder_of(path)
    if name.endswith(".cpp"):
        return "a source file is included"
    if kind == '"' and "/" in name:
        target = folder_of(name)
        if target != own and target not in MAY_INCLUDE.get(own, set()):
            return f"{own} may not include {target}"
        if path.endswith(".h") and own in FORMS and target not in FORM_HEADERS_MAY and target != own:
            return "a form's header includes another form's folder"
    for pattern, allowed in LIBRARIES.items():
        if re.match(pattern, name) and kind == "<" and own not in allowed:
            return f"{own} may not include <{name}>"
    return None


def circles(graph):
    """Headers that include each other in a circle, as chains."""
    state = {}
    found = []

    def visit(node, trail):
        state[node] = "open"
        for target in graph.get(node, ()):
            if state.get(target) == "open":
                found.append(" -> ".join(trail[trail.index(target):] + [target]))
            elif target not in state:
                visit(target, trail + [target])
        state[node] = "done"

    for node in list(graph):
        if node not in state:
            visit(node, [node])
    return found


def check(top):
    problems = []
    graph = {}
    count = 0
    for path in sources(top):
        count += 1
        with open(os.path.join(top, "src", path), encoding="utf-8") as file:
            text = file.read()
        if folder_of(path) not in MAY_INCLUDE:
            problems.append(f"src/{path}: a folder without rules")
        for line, kind, name in includes(text):
            reason = check_include(path, kind, name)
            if reason:
                problems.append(f"src/{path}:{line}: {reason}")
            if path.endswith(".h") and kind == '"':
                graph.setdefault(path, []).append(name)
        if path.endswith(".cpp") and text.count("\n") > LONGEST_SOURCE:
            problems.append(f"src/{path}: longer than {LONGEST_SOURCE} lines")
    problems += [f"headers in a circle: {circle}" for circle in circles(graph)]
    if count < 50:
        problems.append(f"only {count} sources found below {top}/src: is this the right folder?")
    return problems


def self_check():
    """The rules catch what they are for."""
    assert check_include("media/a.cpp", '"', "console/frm_media.h")
    assert check_include("video/a.cpp", "<", "QWidget")
    assert check_include("console/a.cpp", "<", "mpv/client.h")
    assert check_include("video/frm_child.h", '"', "console/frm_media.h")
    assert check_include("console/a.cpp", '"', "b.cpp")
    assert not check_include("video/a.cpp", '"', "console/frm_media.h")
    assert not check_include("toolkit/qt/a.cpp", "<", "QWidget")
    assert circles({"a.h": ["b.h"], "b.h": ["a.h"]}) and not circles({"a.h": ["b.h"], "b.h": []})


if __name__ == "__main__":
    self_check()
    faults = check(sys.argv[1])
    print("\n".join(faults) if faults else "Sources keep the rules.")
    sys.exit(1 if faults else 0)
