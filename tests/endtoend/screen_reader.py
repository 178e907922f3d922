#!/usr/bin/python3
"""screen_reader.py list | press NAME: what a screen reader finds of the player, one control a line
as "role|name|description|value|states", what it holds between quotation marks for a text; or presses
the control of this name. Waits for the player for ten seconds, exits 1 without it or without such a
control."""

import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

ROWS_OF_A_LIST = 3  # a song list may have 100,000 entries


def player():
    """The program on the accessibility bus, or None while it is not there."""
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(i)
        if program and program.get_name() == "velmarion" and program.get_child_count() > 0:
            return program
    return None


def below(node):
    yield node
    most = ROWS_OF_A_LIST if node.get_role() == Atspi.Role.LIST else 1000
    for i in range(min(node.get_child_count(), most)):
        child = node.get_child_at_index(i)
        if child:
            yield from below(child)


def value_of(node):
    if "Value" in node.get_interfaces():
        return f"{node.get_current_value():g}"
    if node.get_role() == Atspi.Role.TEXT and "Text" in node.get_interfaces():
        return f'"{node.get_text(0, node.get_character_count())}"'
    return ""


def line_of(node):
    states = node.get_state_set()
    words = [word for word, state in (("checked", Atspi.StateType.CHECKED),
                                      ("focusable", Atspi.StateType.FOCUSABLE),
                                      ("enabled", Atspi.StateType.ENABLED),
                                      ("showing", Atspi.StateType.SHOWING))
             if states.contains(state)]
    return "|".join((node.get_role_name(), node.get_name(), node.get_description(), value_of(node),
                     " ".join(words)))


def press(program, name):
    for node in below(program):
        if node.get_name() != name or "Action" not in node.get_interfaces():
            continue
        actions = [node.get_action_name(action) for action in range(node.get_n_actions())]
        for action, word in enumerate(actions):
            if word in ("Press", "Toggle"):
                return node.do_action(action)
        print(f"{line_of(node)} can only {actions}")
    return False


def main(arguments):
    until = time.monotonic() + 10
    program = player()
    while not program and time.monotonic() < until:
        time.sleep(0.05)
        program = player()
    if not program:
        return 1
    if arguments[0] == "press":
        return 0 if press(program, arguments[1]) else 1
    for node in below(program):
        print(line_of(node))
    return 0


sys.exit(main(sys.argv[1:]))
