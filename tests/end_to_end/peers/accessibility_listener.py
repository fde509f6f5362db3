#!/usr/bin/python3
"""Answers what the objects of CommTest's window are called on the accessibility bus: a question a line and an answer a
line, both in JSON. See screen_reader.py."""

import json
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LARGEST = 100  # children of an object that is looked into: not the cells of a table


focused = []  # the object that has the keyboard, as the window has told


def note_focus(event):
    if event.detail1:
        focused[:] = [event.source]


def hear_what_was_told():
    context = GLib.MainContext.default()
    while context.iteration(False):
        pass


def program():
    desktop = Atspi.get_desktop(0)
    desktop.set_cache_mask(Atspi.Cache.NONE)
    for index in range(desktop.get_child_count()):
        child = desktop.get_child_at_index(index)
        if child is not None and child.get_name() == "commtest":
            child.set_cache_mask(Atspi.Cache.NONE)
            return child
    return None


def inside(parent):
    """What is shown within an object, itself ahead."""
    if parent is None:
        return
    yield parent
    count = parent.get_child_count()
    for index in range(count if count <= LARGEST else 0):
        child = parent.get_child_at_index(index)
        if child is not None and child.get_state_set().contains(Atspi.StateType.SHOWING):
            yield from inside(child)


def find(name):
    return next((thing for thing in inside(program()) if thing.get_name() == name), None)


def answer(question):
    if "focus" in question:
        if not focused:
            return []
        focused[0].set_cache_mask(Atspi.Cache.NONE)
        return [focused[0].get_name(), focused[0].get_description()]
    if "description" in question:
        found = find(question["description"])
        return found.get_description() if found else ""
    if "words" in question:
        return [thing.get_name() for thing in inside(find(question["words"]))]
    table = find(question["cell"])
    cell = table.get_table_iface().get_accessible_at(question["row"] - 1, question["column"]) if table else None
    return cell.get_name() if cell else ""


def patient_answer(question):
    try:
        return answer(question)
    except GLib.Error:  # an object that has gone meanwhile
        return ""


listener = Atspi.EventListener.new(note_focus)
listener.register("object:state-changed:focused")
for line in sys.stdin:
    hear_what_was_told()
    print(json.dumps(patient_answer(json.loads(line))), flush=True)
