"""The worked examples of the user guide: how they are written in Markdown, and what the terminal program makes of them.

A block of kind `tallix` is a session. A line at the margin is typed, the indented one below it is its answer. Where the history
keeps the line in other words, an arrow and these words follow. Behind the kind stand options: `continued` goes on with the session
of the block before, the others say how answers are written.

    ```tallix format=scientific places=2
    1/3
        = 3.33e-1
    ans*3 → ans1*3
        = 1.00e0
    ```

A table with a column "Type" has in each row a line typed in a new session, and its answers in the columns that have a name below. A
block of kind `console` shows commands behind "$ ", and what they write.
"""

import re
from dataclasses import dataclass, field

ARROW = " → "
NOTHING = "–"  # in a cell
SEPARATORS = {"comma": ",", "blank": " ", "apostrophe": "'"}
FORMATS = ("decimal", "scientific", "engineering", "percent", "binary", "octal", "hexadecimal")

FENCE = re.compile(r"^```(\w+)([^\n]*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
COLUMN_OF_DIGITS = re.compile(r"(\d+) (figures|places)(, no zeros)?")
DIGITS = {"figures": "--significant-figures", "places": "--decimal-places"}


@dataclass
class Line:
    """A typed line, as the history keeps it, and the answer line below without its tab."""

    typed: str
    kept: str
    answer: str

    @property
    def is_error(self):
        return self.answer.startswith("Error: ")


@dataclass
class Session:
    """What is typed into one new document. `arguments` are those that make the terminal program write like it."""

    arguments: list
    lines: list = field(default_factory=list)


def arguments_of(options):
    """The terminal program's arguments for the options of a session."""
    arguments = []
    for option in options:
        name, _, value = option.partition("=")
        if name in ("degrees", "no-zeros"):
            arguments.append("--" + name)
        elif name == "format":
            arguments += ["--format", value]
        elif name in DIGITS:
            arguments += [DIGITS[name], value]
        elif name == "thousands":
            arguments += ["--thousands", SEPARATORS[value]]
        else:
            raise ValueError(f"no option of a session: {option}")
    return arguments


def lines_of(block):
    """The lines of a session's block."""
    lines = []
    for text in block.splitlines():
        if text.startswith(" "):
            lines[-1].answer = text.strip()
        else:
            typed, _, kept = text.partition(ARROW)
            lines.append(Line(typed, kept or typed, ""))
    return lines


def sessions_in_blocks(markdown):
    """The sessions of the `tallix` blocks, each with the blocks that continue it."""
    sessions = []
    for kind, options, block in FENCE.findall(markdown):
        if kind != "tallix":
            continue
        options = options.split()
        if "continued" in options:
            options.remove("continued")
            if arguments_of(options) not in ([], sessions[-1].arguments):
                raise ValueError("a session that is continued cannot change its options")
        else:
            sessions.append(Session(arguments_of(options)))
        sessions[-1].lines += lines_of(block)
    return sessions


def arguments_of_column(title):
    """The arguments for the answers below a title of a table; None where there are other things than answers."""
    if title in ("Answer", "Error", "Automatic"):
        return []
    if title.lower() in FORMATS:
        return ["--format", title.lower()]
    digits = COLUMN_OF_DIGITS.fullmatch(title)
    if digits is None:
        return None
    return [DIGITS[digits[2]], digits[1]] + (["--no-zeros"] if digits[3] else [])


def cells_of(row):
    """The texts of a table's row; a bar that belongs to a text has a backslash before it."""
    cells = re.split(r"(?<!\\)\|", row.strip().strip("|") if not row.rstrip().endswith(r"\|") else row.strip())
    return [cell.strip().replace(r"\|", "|") for cell in cells]


def tables_of(markdown):
    """Every table, as its titles and its rows of texts."""
    for table in re.findall(r"(?:^\|.*\n)+", markdown, re.MULTILINE):
        titles, _, *rows = map(cells_of, table.splitlines())
        yield titles, rows


def bare(cell):
    """A cell's text without the marks of code."""
    return cell.strip("`")


def sessions_in_tables(markdown):
    """A session of one line for each answer in a table."""
    sessions = []
    for titles, rows in tables_of(markdown):
        if "Type" not in titles:
            continue
        for row in rows:
            typed = bare(row[titles.index("Type")])
            if typed == NOTHING:
                continue
            for title, cell in zip(titles, row, strict=True):
                arguments = arguments_of_column(title)
                if arguments is not None:
                    sessions.append(Session(arguments, [Line(typed, typed, answer_in(title, bare(cell)))]))
    return sessions


def answer_in(title, text):
    """A cell's text as the history has it."""
    if title == "Error":
        return "Error: " + text
    return text if text.startswith("Error: ") else "= " + text


def console_blocks(markdown):
    """For each `console` block its commands, each with what it writes."""
    for kind, _, block in FENCE.findall(markdown):
        if kind == "console":
            commands = re.split(r"^\$ ", block, flags=re.MULTILINE)[1:]
            yield [command.split("\n", 1) for command in commands]
