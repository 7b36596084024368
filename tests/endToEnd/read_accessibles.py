"""Writes what the accessibility bus says about a program, as JSON: its windows, each with all that is in it.

Usage: /usr/bin/python3 read_accessibles.py PROCESS
PROCESS is the program's number. Fails when the bus does not know the program yet, or when it changes while it is read.
For the Python of the system, which alone has Debian's pyatspi.
"""

import json
import sys

import pyatspi

# A busy machine is no reason to give up, in milliseconds.
ANSWER_TIME = 20_000
START_TIME = 40_000


def described(accessible):
    """One object and all below it."""
    states = accessible.getState().getStates()
    return {
        "role": accessible.getRoleName(),
        "name": accessible.name,
        "description": accessible.description,
        "states": sorted(pyatspi.stateToString(state) for state in states),
        "text": text_of(accessible),
        "children": [described(child) for child in accessible if child is not None],
    }


def text_of(accessible):
    """What stands in a text field; nothing for what is none."""
    try:
        return accessible.queryText().getText(0, -1)
    except NotImplementedError:
        return ""


def main():
    process = int(sys.argv[1])
    pyatspi.Atspi.set_timeout(ANSWER_TIME, START_TIME)
    programs = [program for program in pyatspi.Registry.getDesktop(0)
                if program is not None and program.get_process_id() == process]
    if not programs:
        return f"the accessibility bus does not know process {process}"
    json.dump([described(window) for window in programs[0] if window is not None], sys.stdout)
    return 0


if __name__ == "__main__":
    sys.exit(main())
