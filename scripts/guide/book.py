"""The user guide as a printed book, from its chapters in Markdown."""

import html
import pathlib
import re
import struct
import unicodedata

import markdown
import weasyprint

from guide.examples import FENCE, lines_of

# A pixel of the screen on paper. Pictures taken at scale 2 have "-2x" in their names.
MILLIMETRES_PER_PIXEL = 0.13

# What the title page shows: the program's own icon.
ICON = pathlib.Path(__file__).resolve().parents[2] / "packaging/icons/hicolor/scalable/apps/org.tallix.tallix.svg"

# What stays on one page: so many calculations of a session, so many rows of a table.
LONGEST_UNDIVIDED = 4
LONGEST_UNDIVIDED_TABLE = 11

KEY = re.compile(r"Alt|(?:(?:Ctrl|Alt|Shift)\+)*(?:F\d+|Return|Esc|Tab|Up|Down|End|PgUp|PgDown|(?<=\+).|(?<=\+)(?:Ins|Del|Up|Down))")
TITLE = "Tallix User Guide"
SUBJECT = "How to calculate with Tallix, in its window and in the terminal"


class Chapter:
    """A chapter as HTML, with its place in the contents."""

    def __init__(self, path):
        self.name = path.stem
        converter = markdown.Markdown(
            extensions=["tables", "toc", "smarty"],
            extension_configs={"toc": {"slugify": self.anchor}, "smarty": {"smart_dashes": False}})
        body = converter.convert(with_sessions(path.read_text(encoding="utf-8")))
        self.contents = converter.toc_tokens[0]
        body = re.sub(r'<h1 id="[^"]*">', f'<h1 id="{self.name}">', body, count=1)
        body = re.sub(r'href="([\w-]+)\.md"', r'href="#\1"', body)
        body = re.sub(r"<table>.*?</table>", lambda found: styled_table(found[0]), body, flags=re.DOTALL)
        body = re.sub(r"<code>(.*?)</code>", lambda found: key_or_code(found[1]), body)
        body = re.sub(r'<img alt="([^"]*)" src="([^"]*)" title="([^"]*)" />',
                      lambda found: figure(path.parent, *found.groups()), body)
        body = re.sub(r"<p>(<figure>.*?</figure>)</p>", r'<div class="figures">\1</div>', body, flags=re.DOTALL)
        # What leads to an example, a table or a picture stays with it.
        self.html = re.sub(r"<p>(?=(?:(?!</p>).)*</p>\s*<div)", '<p class="lead">', body, flags=re.DOTALL)

    def anchor(self, title, separator):
        """Where a section is found; sections of two chapters may have the same title."""
        plain = unicodedata.normalize("NFKD", title).encode("ascii", "ignore").decode().lower()
        return self.name + separator + re.sub(r"\W+", separator, plain).strip(separator)


def with_sessions(text):
    """Markdown in which the blocks of sessions and commands are already HTML."""
    return FENCE.sub(lambda found: {"tallix": session, "console": console}[found[1]](found[3], found[2].split()), text)


def session(block, options):
    """A session as the history shows it: equations in black, answers in blue, errors in red."""
    settings = ", ".join(setting_of(option) for option in options if option != "continued")
    rows = [f'<div class="settings">{settings}</div>'] if settings else []
    lines = lines_of(block)
    for line in lines:
        kept = f'<span class="kept">→ {html.escape(line.kept)}</span>' if line.kept != line.typed else ""
        kind = "error" if line.is_error else "answer"
        rows.append(f'<div class="calculation"><div class="typed">{html.escape(line.typed)}{kept}</div>'
                    f'<div class="{kind}">{html.escape(line.answer)}</div></div>')
    return f'<div class="session{" long" if len(lines) > LONGEST_UNDIVIDED else ""}">{"".join(rows)}</div>\n'


def setting_of(option):
    """An option of a session in the words of the window."""
    name, _, value = option.partition("=")
    words = {"degrees": "Degrees", "no-zeros": "No Zeros After Digits", "format": value.capitalize(),
             "figures": f"{value} Significant Figures", "places": f"{value} Decimal Places", "thousands": f"Thousands Separators: {value}"}
    return words[name]


def console(block, _):
    """Commands in bold, and what they write."""
    rows = []
    for line in block.splitlines():
        text = html.escape(line.expandtabs(4)) or " "
        kind = "command" if line.startswith("$ ") else "output"
        rows.append(f'<div class="{kind}">{text}</div>')
    return f'<div class="console">{"".join(rows)}</div>\n'


def styled_table(table):
    """The table with a class for each column's title, and with errors as errors."""
    titles = [re.sub(r"\W+", "-", title.lower()).strip("-") for title in re.findall(r"<th[^>]*>(.*?)</th>", table)]

    def styled_row(row):
        kinds = iter(titles)
        return re.sub(r"<(td|th)[^>]*>", lambda cell: f'<{cell[1]} class="{next(kinds)}">', row[0])

    table = re.sub(r"<tr>.*?</tr>", styled_row, table, flags=re.DOTALL)
    table = table.replace("<code>Error: ", '<code class="error">Error: ').replace(r"\|", "|")
    if table.count("<tr>") > LONGEST_UNDIVIDED_TABLE:
        table = table.replace("<table>", '<table class="long">')
    halves = in_two_columns(table) if titles == ["command", "keys"] else table
    return f'<div class="{"-".join(titles)}">{halves}</div>'


def in_two_columns(table):
    """A table of groups, each below a row with its title alone, as two beside each other."""
    rows = re.findall(r"<tr>.*?</tr>", table.split("<tbody>")[1], re.DOTALL)
    starts = [i for i, row in enumerate(rows) if "<strong>" in row]
    middle = min(starts, key=lambda start: abs(2 * start - len(rows)))
    for i in starts:
        rows[i] = rows[i].replace("<tr>", '<tr class="group">')
    return "".join(f'<div class="half"><table>{"".join(half)}</table></div>' for half in (rows[:middle], rows[middle:]))


def key_or_code(text):
    """Keys look like keys."""
    tag = "kbd" if KEY.fullmatch(html.unescape(text)) else "code"
    return f"<{tag}>{text}</{tag}>"


def figure(folder, alternative, source, caption):
    """A picture as wide as its window would be, with its caption. "#crop=LEFT,TOP,WIDTH,HEIGHT" behind its name says in
    pixels what is shown of it."""
    name, _, crop = source.partition("#crop=")
    path = (folder / name).resolve()
    pixel = MILLIMETRES_PER_PIXEL / (2 if path.stem.endswith("-2x") else 1)
    whole = struct.unpack(">II", path.read_bytes()[16:24])
    left, top, width, height = map(int, crop.split(",")) if crop else (0, 0, *whole)
    return (f'<figure><div class="picture" style="width: {width * pixel:.2f}mm; height: {height * pixel:.2f}mm">'
            f'<img src="{path.as_uri()}" alt="{alternative}" style="width: {whole[0] * pixel:.2f}mm; '
            f'margin-left: {-left * pixel:.2f}mm; margin-top: {-top * pixel:.2f}mm"/></div>'
            f"<figcaption>{caption}</figcaption></figure>")


def contents_of(chapters):
    """The table of contents, linked."""
    rows = []
    for number, chapter in enumerate(chapters, 1):
        sections = "".join(f'<li><a href="#{section["id"]}">{section["name"]}</a></li>'
                           for section in chapter.contents["children"])
        title = f'<span class="number">{number}</span>\u2002{chapter.contents["name"]}'
        rows.append(f'<li><a href="#{chapter.name}">{title}</a><ol>{sections}</ol></li>')
    middle = middle_of([row.count("<li>") for row in rows])
    lists = "".join(f'<ol>{"".join(half)}</ol>' for half in (rows[:middle], rows[middle:]))
    return f'<nav><h1 class="contents">Contents</h1>{lists}</nav>'


def middle_of(sizes):
    """How many of these make up one half of all, as nearly as can be."""
    return min(range(len(sizes)), key=lambda count: abs(2 * sum(sizes[:count]) - sum(sizes)))


def page_of(folder, version):
    """The whole guide as one HTML text."""
    chapters = [Chapter(path) for path in sorted(folder.glob("[0-9]*.md"))]
    body = "".join(f'<section class="{chapter.name}">{chapter.html}</section>' for chapter in chapters)
    icon = ICON.read_text(encoding="utf-8")
    return f"""<!DOCTYPE html>
<html lang="en-GB"><head><meta charset="utf-8"><title>{TITLE}</title>
<meta name="author" content="Tallix"><meta name="description" content="{SUBJECT}">
<meta name="keywords" content="calculator, equations, variables, manual"></head><body>
<div class="title">{icon}<p class="name">Tallix</p><p class="kind">User Guide</p>
<p class="version">Version {html.escape(version)}</p></div>
{contents_of(chapters)}
{body}</body></html>"""


def render(folder, version, output):
    """Writes the guide of `folder` as a PDF file."""
    style = weasyprint.CSS(filename=str(folder / "guide.css"))
    page = weasyprint.HTML(string=page_of(folder, version), base_url=str(folder))
    pathlib.Path(output).parent.mkdir(parents=True, exist_ok=True)
    page.write_pdf(output, stylesheets=[style], optimize_size=("fonts", "images"))
