#!/usr/bin/env python3
"""Holds the drawings of the skin to the program's palette and to the list of its resources. check_skin.py TOP"""

import os
import re
import sys
import xml.etree.ElementTree as xml

SVG = "{http://www.w3.org/2000/svg}"
COLOURED = {"fill", "stroke", "stop-color", "flood-color", "lighting-color", "color"}
FEWEST_DRAWINGS = 40


def palette_of(text):
    """The colours that the header names, as "#RRGGBB"."""
    found = set()
    for name, numbers in re.findall(r"QColor\s+(k\w+)\(([^)]*)\)", text):
        parts = [int(number, 0) for number in numbers.split(",")]
        if len(parts) not in (3, 4) or any(not 0 <= part <= 255 for part in parts):
            raise ValueError(f"{name} is no colour")
        found.add("#%02X%02X%02X" % tuple(parts[:3]))
    return found


def colours_of(element):
    """What an element is painted with, by attribute or by style."""
    for name, value in element.attrib.items():
        if name in COLOURED:
            yield name, value.strip()
    for part in element.get("style", "").split(";"):
        name, _, value = part.partition(":")
        if name.strip() in COLOURED:
            yield name.strip(), value.strip()


def check_view_box(root):
    numbers = re.split(r"[\s,]+", root.get("viewBox", "").strip())
    try:
        _, _, width, height = [float(number) for number in numbers]
    except ValueError:
        return "has no viewBox of four numbers"
    return None if width > 0 and height > 0 else "has an empty viewBox"


def check_colour(value, palette, ids):
    """What is wrong with one paint, or None."""
    if value == "none":
        return None
    reference = re.fullmatch(r"url\(#([^)]+)\)", value)
    if reference:
        return None if reference.group(1) in ids else f"{value} is painted with, and is not there"
    if not re.fullmatch(r"#[0-9A-F]{6}", value):
        return f"{value} is not written as #RRGGBB in capitals"
    return None if value in palette else f"{value} is not in the palette"


def check_drawing(text, palette):
    """What is wrong with one drawing."""
    try:
        root = xml.fromstring(text)
    except xml.ParseError as error:
        return [f"is not well-formed: {error}"]
    problems = []
    if root.tag != SVG + "svg":
        problems.append("is no svg")
    problems.append(check_view_box(root))
    ids = {element.get("id") for element in root.iter() if element.get("id")}
    for element in root.iter():
        for name, value in colours_of(element):
            reason = check_colour(value, palette, ids)
            problems.append(reason and f"{name} {reason}")
    return [problem for problem in problems if problem]


def resources_of(text):
    """The files that a resource list names."""
    return [(file.text or "").strip() for file in xml.fromstring(text).iter("file")]


def check_list(listed, there):
    """What the list of resources and the folder of drawings don't have in common."""
    problems = [f"{name}: not in the list of resources" for name in sorted(set(there) - set(listed))]
    problems += [f"{name}: in the list of resources, and not there" for name in sorted(set(listed) - set(there))]
    problems += [f"{name}: more than once in the list of resources" for name in sorted(set(listed)) if listed.count(name) > 1]
    return problems


def read(*path):
    with open(os.path.join(*path), encoding="utf-8") as file:
        return file.read()


def check(top):
    palette = palette_of(read(top, "src/toolkit/qt/palette.h"))
    there = ["skin/" + name for name in os.listdir(os.path.join(top, "assets/skin"))]
    problems = check_list(resources_of(read(top, "assets/assets.qrc")), there)
    for name in sorted(there):
        problems += [f"{name}: {problem}" for problem in check_drawing(read(top, "assets", name), palette)]
    if len(there) < FEWEST_DRAWINGS:
        problems.append(f"only {len(there)} drawings found below {top}/assets/skin: is this the right folder?")
    return problems


def self_check():
    """The rules catch what they are for."""
    palette = palette_of("const QColor kOne(0x0A, 0x21, 0x3E);\nconst QColor kTwo(14, 45, 81, 89);")
    assert palette == {"#0A213E", "#0E2D51"}

    def drawing(inside, box='viewBox="0 0 24 24"', space="http://www.w3.org/2000/svg"):
        return check_drawing(f'<svg xmlns="{space}" {box}>{inside}</svg>', palette)

    assert not drawing('<g id="a"/><path fill="#0A213E" stroke="none" style="stroke:url(#a)"/>')
    assert drawing('<path fill="#0A213F"/>')
    assert drawing('<path stroke="white"/>')
    assert drawing('<path fill="#0a213e"/>')
    assert drawing('<path fill="#FFF"/>')
    assert drawing('<stop stop-color="#123456"/>')
    assert drawing('<path style="opacity:1; fill: #123456"/>')
    assert drawing('<path fill="url(#a)"/>')
    assert drawing("<path>")
    assert drawing("", box="")
    assert drawing("", box='viewBox="0 0 24"')
    assert drawing("", box='viewBox="0 0 0 24"')
    assert drawing("", space="elsewhere")
    assert resources_of("<RCC><qresource><file>skin/a.svg</file></qresource></RCC>") == ["skin/a.svg"]
    assert not check_list(["a", "b"], ["b", "a"])
    assert check_list(["a"], ["a", "b"]) and check_list(["a", "b"], ["a"]) and check_list(["a", "a"], ["a"])


if __name__ == "__main__":
    self_check()
    faults = check(sys.argv[1])
    print("\n".join(faults) if faults else "The skin keeps the palette.")
    sys.exit(1 if faults else 0)
