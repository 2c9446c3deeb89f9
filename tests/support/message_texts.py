"""The texts of messages: as the sources have them, and as docs/messages.md has them.

Both are compared by their literals. What a run puts between them stands on the page as one of
PLACEHOLDERS, in apostrophes where the message has them.
"""

from __future__ import annotations

import re
from collections.abc import Iterable, Iterator
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
SRC = ROOT / "src"

PLACEHOLDERS = (
    "ADDRESS BYTES CODE COLUMN FACET FILE FOLDER LINE LIST N NAME PATH PLACE REASON TEXT URI"
).split()
PLACEHOLDER = re.compile(rf"'?(?<![A-Za-z<:=-])(?:{'|'.join(PLACEHOLDERS)})(?![A-Za-z>:=-])'?")

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<string>"(?:[^"\\\n]|\\.)*")
      | (?P<character>'(?:[^'\\\n]|\\.)+')
      | (?P<word>[A-Za-z_0-9]+)
      | (?P<sign><<|::|->|[^\s])
    """,
    re.VERBOSE | re.DOTALL,
)
INCLUDE = re.compile(r"^\s*#.*$", re.MULTILINE)
ESCAPES = {"n": "\n", "t": "\t", '"': '"', "\\": "\\", "'": "'"}
WORD = re.compile(r"[A-Za-z]{2,}")


class Token(str):
    """A token of C++. `literal` is the text of a string literal, adjacent ones joined."""

    literal: str | None = None


def tokens(source: str) -> Iterator[Token]:
    waiting: Token | None = None
    for found in TOKEN.finditer(INCLUDE.sub("", source)):
        if found["comment"] is not None:
            continue
        token = Token(found[0])
        if found["string"] is not None:
            text = re.sub(r"\\(.)", lambda each: ESCAPES.get(each[1], each[0]), found[0][1:-1])
            if waiting is None:
                waiting = token
                waiting.literal = text
            else:
                waiting.literal = (waiting.literal or "") + text
            continue
        if waiting is not None:
            yield waiting
            waiting = None
        yield token


def sources(folders: str) -> Iterator[Path]:
    for folder in folders.split():
        yield from sorted((SRC / folder).glob("*.cpp"))
        yield from sorted((SRC / folder).glob("*.h"))


def is_text(literal: str) -> bool:
    """Whether a literal has words, as those of messages have."""
    return " " in literal.strip() and WORD.search(literal) is not None


# What fdmorph prints: its console, the error stream of its XML layer, and reports of that.
STATEMENT = re.compile(
    r"(?:\b(?:out|err)\([^()]*\)|\bmessage|std::c(?:err|out))\s*<<(?P<stream>.*?);"
    r"|\breport\(\s*Kind::(?P<report>.*?)\);",
    re.DOTALL,
)


def statement_lines(statement: str) -> Iterator[re.Pattern[str]]:
    """The lines that a statement prints. Anything may stand for what is no literal."""
    text = ""
    for token in tokens(statement):
        if token.literal is not None:
            text += token.literal
        elif token in ("endLine", "endl"):
            text += "\n"
        elif token not in ("<<", "+"):
            text += "\0"
    for line in text.split("\n"):
        if is_text(line.replace("\0", "")):
            pieces = re.split("\0+", line.strip(" \0"))
            yield re.compile(".+?".join(map(re.escape, pieces)))


def fdmorph_lines() -> Iterator[tuple[str, re.Pattern[str]]]:
    """The lines that fdmorph prints, with the sources that print them."""
    for path in sources("driver text cobol schema dictionary xml"):
        for found in STATEMENT.finditer(path.read_text(encoding="utf-8")):
            for line in statement_lines(found["stream"] or found["report"]):
                yield path.name, line


HEAD = re.compile(r"(?:Fatal |Internal )?Error : |Warning : ")


def fdmorph_heads() -> Iterator[tuple[str, str]]:
    """The literals that begin a message that counts, wherever they are."""
    for path in sources("driver text cobol schema dictionary xml"):
        for token in tokens(path.read_text(encoding="utf-8")):
            if token.literal is not None and HEAD.match(token.literal.lstrip("\n")):
                yield path.name, token.literal.strip().split("\n")[0]


def without_functions(source: Iterable[Token], skipped: re.Pattern[str]) -> Iterator[Token]:
    """The tokens that are not in the bodies of the functions of these names."""
    name, depth, parentheses = "", 0, 0
    for token in source:
        if depth > 0:
            depth += {"{": 1, "}": -1}.get(token, 0)
            continue
        if name and token == "{" and parentheses == 0:
            name, depth = "", 1
            continue
        if parentheses == 0 and skipped.fullmatch(token):
            name = token
        elif name:
            parentheses += {"(": 1, ")": -1}.get(token, 0)
            if token == ";":
                name = ""
        yield token


# The texts of options and of help.
OTHER_FUNCTIONS = re.compile(r"declare\w*|allCommands|dataCommands|helpText")
# Folders with messages that end in a code, and sources in them that write something else.
CODE_FOLDERS = (
    "source preprocess semantics syntax frontend description compiler charset values record layout"
    " document framing fit copybook bundle mapping fdrec library"
)
OTHER_SOURCES = {
    "description/dictionary_writer.h",  # dictionaries
    "copybook/entry_words.cpp",  # the words of a copybook
    "copybook/plain_copybook.cpp",
    "document/document_reader.h",  # documents
    "document/namespace_prefixes.cpp",
    "document/record_line.cpp",
    "document/xml_program.cpp",
    "document/residue.cpp",  # residues
    "fit/item_capacity.cpp",  # what types and items are, after a finding
    "fit/node_types.cpp",
    "fit/repair.cpp",
    "fit/value_demand.cpp",
    "mapping/merged_file.cpp",  # mapping files
    "framing/progress.cpp",  # the progress line
    "framing/record_index.cpp",  # indexes
    "semantics/usage.cpp",  # the words of COBOL
}
# Pieces of lines that have no text of their own.
COMMON_PIECES = {
    ": warning: ",
    "; schema: ",
    "; item: ",
    " and ",
    " more",
    "any number of times",
    " or more",
    ", unbounded",
    "s are",
    " is",
    "Common options",  # headings of the help
    "Options of files",
    "Shows COBOL records, checks them against schemas, and converts their data.",
    "Source name: ",  # a comment of a copybook
    "Error : ",  # what fdrec takes off the messages of fdmorph
    "Warning : ",
}


def code_pieces() -> Iterator[tuple[str, str]]:
    """The literals of messages that end in a code, with the sources that have them."""
    for path in sources(CODE_FOLDERS):
        name = path.relative_to(SRC).as_posix()
        if name in OTHER_SOURCES:
            continue
        for token in without_functions(tokens(path.read_text(encoding="utf-8")), OTHER_FUNCTIONS):
            literal = text_of(token.literal or "")
            if literal in COMMON_PIECES or not is_text(literal):
                continue
            if not literal.lstrip().startswith(("<", "xmlns")):
                yield name, literal


REPORT = re.compile(r"print(?:Error|Warning|Fault)|refusePart")  # calls with a code at the end
CODE = re.compile(r"[a-z]+(?:-[a-z]+)*")


def codes() -> set[str]:
    """The codes in brackets, from the tables, and where a program prints one itself."""
    found: set[str] = set()
    for name in ("source/diagnostics.cpp", "fit/finding.cpp", "mapping/mapping_finding.cpp"):
        text = (SRC / name).read_text(encoding="utf-8")
        found.update(re.findall(r'Code::\w+,\s*"([a-z-]+)",\s*(?:\w+::)*Severity', text))
    table = (SRC / "document" / "data_error.cpp").read_text(encoding="utf-8")
    names = re.search(r"kNames\{(.*?)\}", table, re.DOTALL)
    assert names is not None
    found.update(re.findall(r'"([a-z]+)"', names[1]))
    for path in sources("compiler fdrec library"):
        all_tokens = list(tokens(path.read_text(encoding="utf-8")))
        for index, token in enumerate(all_tokens):
            found.update(re.findall(r" \[([a-z-]+)\]\n?$", token.literal or ""))
            if REPORT.fullmatch(token):
                found.update(filter(CODE.fullmatch, last_argument(all_tokens[index + 1 :])))
    return found


def last_argument(call: list[Token]) -> Iterator[str]:
    """The last argument of a call, if that is a literal. The call begins with a parenthesis."""
    depth = 0
    for before, token in zip(call, call[1:]):
        depth += {"(": 1, ")": -1}.get(before, 0)
        if depth == 0:
            return
        if depth == 1 and token == ")" and before.literal is not None:
            yield before.literal


def unquoted(text: str) -> str:
    return text.strip().strip("'")


def literal_parts(text: str) -> list[str]:
    """What is left of a text of the page without its placeholders."""
    return [part for part in PLACEHOLDER.split(text) if WORD.search(part)]


def forms_of(lines: Iterable[str]) -> set[str]:
    """The lines, and what they are at the border of a placeholder."""
    found: set[str] = set()
    for line in lines:
        found.update({line, line.rstrip(), line.lstrip(), line.strip()})
        found.update({line.rstrip(" '"), line.lstrip(" '"), line.strip(" '")})
        found.update({line.rstrip("'"), line.lstrip("'"), line.strip("'")})
    return found - {""}


FRAME = re.compile(r"^(?:zbc: |fdrec: |: )?error: |\s*\[[a-z]+\]$")


def text_of(literal: str) -> str:
    """A literal without the name of its program and its code."""
    return FRAME.sub("", literal)


def all_literals(folders: str) -> set[str]:
    """The forms of the lines of all literals."""
    lines: set[str] = set()
    for path in sources(folders):
        for token in tokens(path.read_text(encoding="utf-8")):
            for line in (token.literal or "").split("\n"):
                lines.update([line, *PLACEHOLDER.split(text_of(line))])
    return forms_of(lines)


def is_made_of(part: str, literals: set[str]) -> bool:
    """Whether a text is a row of literals."""
    longest = max(map(len, literals))
    reached = {0}
    for begin in range(len(part)):
        if begin in reached:
            ends = range(begin + 1, min(len(part), begin + longest) + 1)
            reached.update(end for end in ends if part[begin:end] in literals)
    return len(part) in reached
