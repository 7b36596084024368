"""The small changes that the mutation run makes in C++ text: operators, constants and conditions.

A source is read as tokens, without a grammar. What a "<" or a "*" means is told by the blanks around it: the
project's formatting puts them around operators and leaves them out in templates and declarations.
"""

import dataclasses
import random
import re

TOKEN = re.compile(
    r"""(?P<blank>[ \t\r\n\f\v]+|\\\n)
      | (?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
      | (?P<text>(?:u8|[uUL])?R"(?P<mark>[^(\s"]*)\(.*?\)(?P=mark)"|(?:u8|[uUL])?"(?:\\.|[^"\\\n])*")
      | (?P<character>(?:u8|[uUL])?'(?:\\[^']+|\\'|[^'\\\n])')
      | (?P<number>\.?[0-9](?:[eEpP][+-]|'(?=[0-9a-fA-F])|[0-9a-zA-Z_.])*)
      | (?P<name>[A-Za-z_]\w*)
      | (?P<operator><=>|->\*|<<=|>>=|\.\.\.|::|->|\+\+|--|&&|\|\||<<|>>|[-+*/%&|^=!<>]=|[-+*/%&|^=!<>~?:;,.(){}\[\]\#])""",
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)

# What takes the place of an operator between two operands.
BINARY = {
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"],
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"], "==": ["!="], "!=": ["=="],
    "&&": ["||"], "||": ["&&"], "&": ["|"], "|": ["&"], "^": ["&"], "<<": [">>"], ">>": ["<<"],
    "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "%=": ["*="],
    "&=": ["|="], "|=": ["&="], "^=": ["&="], "<<=": [">>="], ">>=": ["<<="],
}  # fmt: skip
WORDS = {"true": "false", "false": "true"}
STEPS = {"++": "--", "--": "++"}

RELATIONS = {"<", "<=", ">", ">=", "==", "!="}

# Nothing a program does depends on what stands in their parentheses.
UNSEEN = {"static_assert", "assert", "noexcept", "alignas", "sizeof", "decltype"}
OPENING, CLOSING = {"(": ")", "[": "]", "{": "}"}, {")", "]", "}"}
# To the left of a condition in "condition ? a : b".
BEFORE_CONDITION = {",", ";", "?", ":", "=", "+=", "-=", "*=", "/=", "|=", "&=", "^=", "<<=", ">>=", "return"}


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int

    @property
    def end(self):
        return self.start + len(self.text)


@dataclasses.dataclass(frozen=True)
class Change:
    """One change of one file."""

    file: str  # below the project's folder
    line: int
    before: str  # the lines concerned, as one line and without comments
    after: str
    edits: tuple  # (start, end, new text), in order

    @property
    def identity(self):
        """What stays the same while the lines around it move."""
        return self.file, self.before, self.after

    def applied(self, text):
        for start, end, new in reversed(self.edits):
            text = text[:start] + new + text[end:]
        return text


def tokens_of(text):
    """The tokens that mean something to a compiler; directives, attributes and blanks are left out."""
    found, at = [], 0
    while at < len(text):
        match = TOKEN.match(text, at)
        if match is None:
            raise ValueError(f"no token at {text[at:at + 20]!r}")
        if match.lastgroup not in ("blank", "comment", "directive"):
            found.append(Token(match.lastgroup if match.lastgroup != "mark" else "text", match[0], at))
        at = match.end()
    return found


def changes_of(file, text):
    """All changes of one source, from its beginning to its end."""
    tokens = tokens_of(text)
    partners = partners_of(tokens)
    seen = [True] * len(tokens)
    for index, token in enumerate(tokens[:-1]):
        if token.text in UNSEEN and tokens[index + 1].text == "(":
            seen[index : partners[index + 1]] = [False] * (partners[index + 1] - index)
    bare = without_comments(text)
    found = []
    for index in range(len(tokens)):
        if seen[index]:
            found += [change(file, bare, edits) for edits in edits_at(text, tokens, partners, index)]
    return found


def without_comments(text):
    """The text with blanks in place of its comments."""
    return TOKEN.sub(lambda match: re.sub(r"[^\n]", " ", match[0]) if match.lastgroup == "comment" else match[0], text)


def partners_of(tokens):
    """For each bracket the position of the one that belongs to it."""
    partners, open_ones = {}, []
    for index, token in enumerate(tokens):
        if token.kind != "operator":
            continue
        if token.text in OPENING:
            open_ones.append(index)
        elif token.text in CLOSING and open_ones:
            partner = open_ones.pop()
            partners[partner], partners[index] = index, partner
    return partners


def edits_at(text, tokens, partners, index):
    """The changes that begin at one token, each as its edits."""
    token = tokens[index]
    previous = tokens[index - 1].text if index > 0 else ""
    if token.kind == "number":
        return [replaced(token, next_number(token.text))] if next_number(token.text) else []
    if token.kind == "character":
        return [replaced(token, next_character(token.text))]
    if token.text in WORDS:
        return [replaced(token, WORDS[token.text])]
    if token.text in ("if", "while"):
        return negations(tokens, partners, index)
    if token.kind != "operator" or previous in ("operator", "template"):
        return []
    if token.text == "?":
        first = start_of_condition(tokens, partners, index)
        return opposite(tokens[first:index])
    if token.text in STEPS:
        return [replaced(token, STEPS[token.text])]
    if is_spaced(text, token):
        return [replaced(token, new) for new in BINARY.get(token.text, [])]
    is_prefix = token.text in ("!", "-") and text[token.end : token.end + 1].strip() and not is_operand(tokens, index - 1)
    return [replaced(token, "")] if is_prefix else []


def replaced(token, new):
    return ((token.start, token.end, new),)


def opposite(condition):
    """The change of a condition, given as its tokens, into its opposite."""
    depth, operators = 0, []
    for token in condition:
        depth += (token.text in OPENING) - (token.text in CLOSING)
        if depth == 0 and token.text in RELATIONS | {"!", "&&", "||"}:
            operators.append(token.text)
    if not condition or (len(operators) == 1 and operators[0] in RELATIONS | {"!"}):
        return []  # the change of that operator is the same
    return [((condition[0].start, condition[0].start, "!("), (condition[-1].end, condition[-1].end, ")"))]


def negations(tokens, partners, index):
    opening = index + 1
    while opening < len(tokens) and tokens[opening].text == "constexpr":
        opening += 1
    if opening not in partners:
        return []
    first = opening + 1
    for inside in range(opening + 1, partners[opening]):
        if tokens[inside].text == ";":  # if (declaration; condition)
            first = inside + 1
    return opposite(tokens[first : partners[opening]])


def start_of_condition(tokens, partners, index):
    """Where the condition in front of the "?" at `index` begins."""
    first = index
    while first > 0:
        before = first - 1
        if tokens[before].text in CLOSING and before in partners:
            first = partners[before]
        elif tokens[before].text in OPENING or tokens[before].text in BEFORE_CONDITION:
            break
        else:
            first = before
    return first


def is_spaced(text, token):
    return text[token.start - 1 : token.start].isspace() and text[token.end : token.end + 1].isspace()


def is_operand(tokens, index):
    """Whether an operand ends here, so that a minus behind it subtracts."""
    if index < 0:
        return False
    token = tokens[index]
    return token.kind in ("number", "character", "text") or token.text in (")", "]") or (
        token.kind == "name" and token.text not in ("return", "case", "co_return")
    )


def next_number(text):
    """0 for 1, 1 for 0, and otherwise the number and one; twice the number where one is lost in it."""
    digits = text.replace("'", "")
    if match := re.fullmatch(r"(0[xX][0-9a-fA-F]+|0[bB][01]+|[0-9]+)([uUlLzZ]*)", digits):
        value, suffix = int(match[1], 0 if match[1][:2].lower() in ("0x", "0b") else 10), match[2]
        changed = value ^ 1 if value < 2 else value + 1
        return (hex(changed) if match[1][:2].lower() == "0x" else str(changed)) + suffix
    if match := re.fullmatch(r"((?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?)([fFlL]?)", digits):
        value, suffix = float(match[1]), match[2]
        if value in (0.0, 1.0):
            return str(1.0 - value) + suffix
        return f"({text} * 2)" if value + 1 == value else f"({text} + 1)"
    return None


def next_character(text):
    """The character behind it."""
    prefix, body = text[: text.index("'")], text[text.index("'") + 1 : -1]
    if len(body) > 1 and body != r"\\":
        return f"({text} + 1)"
    following = chr(ord(body[-1]) + 1)
    return f"{prefix}'{chr(92) if following in chr(39) + chr(92) else ''}{following}'"


def change(file, text, edits):
    first = text.rfind("\n", 0, edits[0][0]) + 1
    last = text.find("\n", edits[-1][1])
    last = len(text) if last < 0 else last
    changed = Change(file, text.count("\n", 0, first) + 1, " ".join(text[first:last].split()), "", edits)
    after = changed.applied(text)
    after = after[first : last + len(after) - len(text)]
    return dataclasses.replace(changed, after=" ".join(after.split()))


def sample_of(changes, size, seed):
    """`size` draws spread evenly over the changes: each a list in the order in which its changes are to be tried.

    The changes are cut into `size` runs of neighbours, and the order within each is drawn. The same changes and the
    same seed give the same sample.
    """
    size = min(size, len(changes))
    draws = []
    for number in range(size):
        run = changes[number * len(changes) // size : (number + 1) * len(changes) // size]
        chance = random.Random(f"{seed}:{number}")
        draws.append([run[place] for _, place in sorted((chance.random(), place) for place in range(len(run)))])
    return draws
