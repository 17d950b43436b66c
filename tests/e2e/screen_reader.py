#!/usr/bin/env python3
"""The eyes and the hand of a screen reader: sees the player over the bus of assistive technology, and presses what it sees.

Run by the system's own Python, which has the bindings, as a program of its own: an order in JSON per line, an answer per
line. `Reader` is the other end."""

import json
import os
import subprocess
import sys

SYSTEM_PYTHON = "/usr/bin/python3"
LAUNCHER = "/usr/libexec/at-spi-bus-launcher"


class Reader:
    """Runs until `end`, with the environment of the display and its bus."""

    def __init__(self, environment):
        self.process = subprocess.Popen([SYSTEM_PYTHON, os.path.abspath(__file__)], env=environment, text=True,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def ask(self, **order):
        self.process.stdin.write(json.dumps(order) + "\n")
        self.process.stdin.flush()
        line = self.process.stdout.readline()
        if not line:
            raise AssertionError(f"the screen reader has ended at {order}")
        return json.loads(line)

    def windows(self, pid):
        """The windows of this process that are showing: each a list of its parts, the window itself first. A part has id,
        parent, role, name, description, states, actions and place; what has a value, value, least and most."""
        return self.ask(do="look", pid=pid)["windows"]

    def act(self, part, action):
        """True if the part took the order."""
        return self.ask(do="act", id=part["id"], action=action)["done"]

    def set_value(self, part, value):
        return self.ask(do="value", id=part["id"], value=value)["done"]

    def end(self):
        self.process.stdin.close()
        self.process.wait()
        self.process.stdout.close()


class Eyes:
    """What runs in the system's Python."""

    def __init__(self, atspi):
        self.atspi = atspi
        self.known = []

    def look(self, pid):
        self.known = []
        windows = []
        desktop = self.atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            program = desktop.get_child_at_index(index)
            if program is None or program.get_process_id() != pid:
                continue
            # Nothing tells this side of changes, so nothing may be remembered.
            program.set_cache_mask(self.atspi.Cache.NONE)
            for number in range(program.get_child_count()):
                parts = []
                self.note(program.get_child_at_index(number), None, parts)
                if parts and "showing" in parts[0]["states"]:
                    windows.append(parts)
        return windows

    def note(self, part, parent, parts):
        """The part and all below it. Windows may go while they are looked at."""
        try:
            found = self.describe(part, parent)
            children = [part.get_child_at_index(index) for index in range(min(part.get_child_count(), 300))]
        except Exception:  # noqa: BLE001: whatever the bindings raise for what has gone
            return
        parts.append(found)
        for child in children:
            if child is not None:
                self.note(child, found["id"], parts)

    def describe(self, part, parent):
        self.known.append(part)
        states = part.get_state_set().get_states()
        place = part.get_component_iface().get_extents(self.atspi.CoordType.SCREEN) if part.get_component_iface() else None
        found = {"id": len(self.known) - 1, "parent": parent, "role": part.get_role_name(), "name": part.get_name(),
                 "description": part.get_description(), "states": [state.value_nick for state in states],
                 "actions": self.actions(part),
                 "place": place and [place.x, place.y, place.width, place.height]}
        if "Value" in part.get_interfaces():
            value = part.get_value_iface()
            found.update(value=value.get_current_value(), least=value.get_minimum_value(), most=value.get_maximum_value())
        return found

    @staticmethod
    def actions(part):
        face = part.get_action_iface()
        return [face.get_action_name(index) for index in range(face.get_n_actions())] if face else []

    def act(self, number, action):
        names = self.actions(self.known[number])
        return action in names and bool(self.known[number].get_action_iface().do_action(names.index(action)))

    def set_value(self, number, value):
        return bool(self.known[number].get_value_iface().set_current_value(value))

    def obey(self, order):
        if order["do"] == "look":
            return {"windows": self.look(order["pid"])}
        try:
            if order["do"] == "act":
                return {"done": self.act(order["id"], order["action"])}
            return {"done": self.set_value(order["id"], order["value"])}
        except Exception as trouble:  # noqa: BLE001: the same
            return {"done": False, "trouble": str(trouble)}


def main():
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi
    Atspi.init()
    eyes = Eyes(Atspi)
    for line in sys.stdin:
        print(json.dumps(eyes.obey(json.loads(line))), flush=True)


if __name__ == "__main__":
    main()
