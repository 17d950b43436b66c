#!/usr/bin/env python3
"""Holds the recipe for flatpak to its form, and to the rest of the packaging: check_manifest.py"""

import os
import re
import sys

import yaml

HERE = os.path.dirname(os.path.abspath(__file__))
NAME = "io.github.tandrel_player.tandrel_player"


def faults_of(text, cmake, metainfo):
    manifest = yaml.safe_load(text)
    faults = [f"{key} is missing" for key in ("runtime", "runtime-version", "sdk", "modules") if key not in manifest]
    if faults:
        return faults
    if manifest.get("id") != NAME or f"<id>{NAME}</id>" not in metainfo:
        faults.append("the name is not that of the metainfo")
    if not re.search(rf"install\(TARGETS [^)]*\b{re.escape(manifest.get('command', '-'))}\b", cmake):
        faults.append("the command is none that is installed")
    faults += reasons_missing(text)
    for module in manifest["modules"]:
        for source in module["sources"]:
            archive = source["type"] == "archive"
            if archive and not (
                source["url"].startswith("https://") and re.fullmatch("[0-9a-f]{64}", str(source.get("sha256")))
            ):
                faults.append(f"{module['name']}: a source without an address or its sum")
            if source["type"] == "dir" and not os.path.exists(
                os.path.join(HERE, source["path"], "src", "CMakeLists.txt")
            ):
                faults.append(f"{module['name']}: there are no sources in {source['path']}")
    return faults


# What a program that shows windows and plays sounds has to have anyway.
NEEDS_NO_REASON = {"--socket=pulseaudio"}


def reasons_missing(text):
    """Every right stands behind a line that tells what it is for."""
    lines = text.splitlines()
    rights = [
        (lines[at - 1].strip(), line.strip()[2:]) for at, line in enumerate(lines) if line.strip().startswith("- --")
    ]
    return (
        ["no right is asked for"]
        if not rights
        else [
            f"{right} without a reason"
            for before, right in rights
            if not before.startswith("#") and right not in NEEDS_NO_REASON
        ]
    )


def self_check(text, cmake, metainfo):
    """The rules catch what they are for."""
    for old, new in (
        (f"id: {NAME}", "id: a.b.c"),
        ("command: tandrel-player", "command: other"),
        ("sha256: d6", "sha256: "),
        ("  # Pictures reach the X server through shared memory.\n", ""),
        ("path: ../..", "path: .."),
    ):
        assert old in text and faults_of(text.replace(old, new), cmake, metainfo), old


def read(*parts):
    with open(os.path.join(HERE, *parts), encoding="utf-8") as file:
        return file.read()


if __name__ == "__main__":
    everything = read(NAME + ".yml"), read("..", "CMakeLists.txt"), read("..", NAME + ".metainfo.xml")
    self_check(*everything)
    found = faults_of(*everything)
    print("\n".join(found) if found else "The recipe keeps its form.")
    sys.exit(1 if found else 0)
