#!/usr/bin/env python3
"""Holds the table of texts to the program: no row without a user. check_texts.py TOP"""

import os
import re
import sys

# Rows whose keys are put together from the names of controls.
BUILT = re.compile(r"frmHelp\.Label(?:[1-9]|1[0-4]|16|17)$")


def keys_of(table):
    return re.findall(r'^\s*\{"(\w+\.\w+)"', table, re.M)


def check_rows(keys, sources):
    return [f"nobody uses the text {key}" for key in keys if not BUILT.match(key) and f'"{key}"' not in sources]


def check(top):
    folder = os.path.join(top, "src")
    keys, sources = [], []
    for parent, _, names in os.walk(folder):
        for name in sorted(names):
            if not name.endswith((".cpp", ".h")):
                continue
            with open(os.path.join(parent, name), encoding="utf-8") as file:
                text = file.read()
            if name.startswith("localised_table_"):
                keys += keys_of(text)
            else:
                sources.append(text)
    if len(keys) < 70:
        return [f"only {len(keys)} rows found below {folder}: is this the right folder?"]
    return check_rows(keys, "\n".join(sources))


def self_check():
    """The rules catch what they are for."""
    everything = ["box.yes", "frmHelp.Label4"]
    assert keys_of('    {"box.yes",\n     {\n         "&Yes",\n') == ["box.yes"]
    assert not check_rows(everything, 'localised("box.yes")')
    assert check_rows(everything, "")
    assert check_rows([*everything, "frmHelp.Label15"], '"box.yes"')


if __name__ == "__main__":
    self_check()
    faults = check(sys.argv[1])
    print("\n".join(faults) if faults else "Every text has its place.")
    sys.exit(1 if faults else 0)
