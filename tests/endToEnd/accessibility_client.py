"""What a screen reader or the like does on the accessibility bus, as a command. What it learns is written as JSON.

Usage: /usr/bin/python3 accessibility_client.py read PROCESS
           the windows of the program with this number, each with all that is in it
       /usr/bin/python3 accessibility_client.py insert PROCESS NAME TEXT
           puts a text before the one in the field with this name
       /usr/bin/python3 accessibility_client.py act PROCESS NAME ACTION
           what the control with this name offers to do
       /usr/bin/python3 accessibility_client.py listen
           until it is killed, one line for each change of any program, with one that is empty when it is ready
Fails when the bus does not know the program or the control yet, or when it changes while it is read.
For the Python of the system, which alone has Debian's pyatspi.
"""

import json
import sys
import time

import pyatspi
from gi.repository import Gio, GLib

# A busy machine is no reason to give up, in milliseconds.
ANSWER_TIME = 20_000
START_TIME = 40_000
WAITING_STEP = 0.02  # in seconds
CHANGES = ("object:state-changed:focused", "object:state-changed:checked", "object:property-change:accessible-description",
           "object:announcement")


class Unknown(Exception):
    """What the bus does not know."""


def program(process):
    for found in pyatspi.Registry.getDesktop(0):
        if found is not None and found.get_process_id() == int(process):
            return found
    raise Unknown(f"process {process}")


def control(process, name):
    """What has this name: what is shown before what is not, such as the entries of closed menus."""
    found = pyatspi.findAllDescendants(program(process), lambda one: one is not None and one.name == name)
    if not found:
        raise Unknown(name)
    return next(filter(is_shown, found), found[0])


def is_shown(accessible):
    return accessible.getState().contains(pyatspi.STATE_SHOWING)


def described(accessible):
    """One object and all below it."""
    states = accessible.getState().getStates()
    return {
        "role": accessible.getRoleName(),
        "name": accessible.name,
        "description": accessible.description,
        "states": sorted(pyatspi.stateToString(state) for state in states),
        "text": text_of(accessible),
        "labels": [label.name for label in labels_of(accessible)],
        "children": [described(child) for child in accessible if child is not None],
    }


def text_of(accessible):
    """What stands in a text field; nothing for what is none."""
    try:
        return accessible.queryText().getText(0, -1)
    except NotImplementedError:
        return ""


def labels_of(accessible):
    """The labels beside a control that say what it is."""
    relations = [relation for relation in accessible.getRelationSet()
                 if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY]
    return [relation.getTarget(i) for relation in relations for i in range(relation.getNTargets())]


def read(process):
    json.dump([described(window) for window in program(process) if window is not None], sys.stdout)


def insert(process, name, text):
    control(process, name).queryEditableText().insertText(0, text, len(text))


def act(process, name, action):
    actions = control(process, name).queryAction()
    names = [actions.getName(i) for i in range(actions.nActions)]
    if action not in names:
        raise Unknown(f"{action} among {names}")
    actions.doAction(names.index(action))


def has_accessibility_bus():
    """Whether it was started. To ask for it would start another one."""
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    has_owner = bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
                              GLib.Variant("(s)", ["org.a11y.Bus"]), None, Gio.DBusCallFlags.NONE, -1)
    return has_owner.unpack()[0]


def listen():
    """A change is given with the number of its program, its kind, and what its object is, with the value after it."""
    def tell(event):
        source = event.source
        if source is None:
            return
        kind = str(event.type).split(":")[-1]
        values = {"accessible-description": lambda: source.description, "announcement": lambda: event.any_data}
        value = values.get(kind, lambda: bool(event.detail1))()
        print(json.dumps([source.get_process_id(), kind, source.getRoleName(), source.name, value]), flush=True)

    while not has_accessibility_bus():
        time.sleep(WAITING_STEP)
    pyatspi.Registry.registerEventListener(tell, *CHANGES)
    print(flush=True)
    pyatspi.Registry.start()


def main():
    pyatspi.Atspi.set_timeout(ANSWER_TIME, START_TIME)
    commands = {"read": read, "insert": insert, "act": act, "listen": listen}
    try:
        commands[sys.argv[1]](*sys.argv[2:])
    except Unknown as unknown:
        return f"the accessibility bus does not know {unknown}"
    return 0


if __name__ == "__main__":
    sys.exit(main())
