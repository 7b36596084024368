"""Lists of changes in files: those that were shown to make no difference, and those that survived a run."""


def read_equivalents(path):
    """As `read_changes`, where every entry has a reason."""
    found = read_changes(path)
    for (file, before, after), reason in found.items():
        if not reason:
            raise ValueError(f"{path}: no reason given for\n{entry(file, before, after)}")
    return found


def read_changes(path):
    """The identities of the changes listed in a file, each with its reason.

    An entry is a file's name, the line before the change behind a "-", the line after it behind a "+", and the reason;
    a blank line ends it. Lines are compared without comments and with single blanks, wherever in the file they stand.
    """
    found = {}
    for block in path.read_text().split("\n\n"):
        lines = [line for line in block.splitlines() if line and not line.startswith("#")]
        if not lines:
            continue
        if len(lines) < 3 or lines[1][:2] != "- " or lines[2][:2] != "+ ":
            raise ValueError(f"{path}: not a file, a line before and a line after:\n{block}")
        found[lines[0], lines[1][2:], lines[2][2:]] = " ".join(lines[3:])
    return found


def entry(file, before, after):
    return f"{file}\n- {before}\n+ {after}\n"
