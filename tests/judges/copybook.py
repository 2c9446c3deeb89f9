"""Reads a generated copybook back into its data description entries.

The layout: an entry starts on a new line. Its continuation lines are indented by three more
columns. A token that is cut at column 72 continues on a line with a hyphen in column 7, and a
literal is reopened there with a quote. An empty line ends a record. So the text of an entry can
be restored exactly, and the place of each character is known. Columns count bytes, so the text
is held as one character per byte, and only the blank counts as a blank.
"""

from __future__ import annotations

import re
from dataclasses import dataclass, field

RIGHT_EDGE = 72  # last column of text
INDICATOR = 6  # offset of column 7
PIECE = 25  # of a literal; it fits on a line even if it holds only quotes
CONDITION_NAME = 88  # the level that has no storage

ENTRY = re.compile(
    r'(?P<level>\d\d) (?P<name>[^ ]+)(?: value is "(?P<value>.+)")?'
    r"(?: redefines (?P<redefines>[^ ]+))?"
    r"(?: PIC (?P<picture>(?:X|S?9)\([^()]+\)(?:V9\([^()]+\))?))?"
    r"(?: USAGE (?P<usage>COMP-[12]))?(?: occurs (?P<occurs>[^ ]+) times)?"
    r'(?P<xml>(?: identified by "[^"]*")?(?: namespace is "[^"]*")?'
    r"(?: is attribute)?(?: count in [^ ]+)?)\."
)
COUNT = re.compile(r"\(([^()]+)\)")
USAGE_SIZE = {"COMP-1": 4, "COMP-2": 8}  # bytes


class CopybookError(Exception):
    """The text does not have the layout of a copybook."""


@dataclass(eq=False)
class Entry:
    """One data description entry; its clauses may be changed after reading."""

    lines: list[str]  # unchanged, with blanks in place of the XML clauses
    cut: set[str]  # the clauses that continue on another line
    level: int
    name: str
    value: str | None
    redefines: str | None
    picture: str | None
    usage: str | None
    occurs: str | None
    original_name: str
    index: int  # in the copybook
    children: list[Entry] = field(default_factory=list)  # without condition names
    parent: Entry | None = None
    redefined: Entry | None = None
    changed: bool = False

    def counts(self) -> list[str]:
        """The repeat counts of the picture as written, the whole part first."""
        return COUNT.findall(self.picture or "")

    def positions(self) -> int:
        """The length of the picture. Counts that are not numbers count as zero."""
        return sum(map(number, self.counts()))

    def size(self) -> int:
        """Bytes of storage."""
        if self.children:
            size = sum(child.size() for child in self.children if not child.redefines)
        elif self.usage:
            size = USAGE_SIZE[self.usage]
        else:
            size = self.positions()
        return size * (number(self.occurs) if self.occurs else 1)

    def data_division_lines(self) -> list[str]:
        return self.fresh_lines() if self.changed else self.lines

    def fresh_lines(self) -> list[str]:
        """The entry in a new layout, with one clause on each line."""
        indent = f"{'':11}"
        lines = [f"{indent}{self.level:02} {self.name}"]
        if self.value:
            lines += value_lines(self.value)
        if self.redefines:
            lines.append(f"{indent}redefines {self.redefines}")
        for word, clause in (("PIC", self.picture), ("USAGE", self.usage), ("occurs", self.occurs)):
            lines += [f"{indent}{word} {clause}"] if clause else []
        return [*lines, f"{indent}."]


def number(text: str) -> int:
    return int(text) if text.isdecimal() else 0


def value_lines(text: str) -> list[str]:
    """A value clause of short literals, with quotes doubled."""
    pieces = [text[i : i + PIECE].replace('"', '""') for i in range(0, len(text), PIECE)]
    literals = " &\n".join(f'{"":11}"{piece}"' for piece in pieces)
    return [f"{'':11}value", *literals.split("\n")]


def indent_of(line: str) -> int:
    return len(line) - len(line.lstrip(" "))


def is_continuation(line: str) -> bool:
    return line[INDICATOR : INDICATOR + 1] == "-"


def group_lines(lines: list[str]) -> list[list[str]]:
    """The lines of each entry."""
    groups: list[list[str]] = []
    start = 0  # offset of the entry's level number; 0 between two records
    for line in lines:
        if not line:
            start = 0
        elif start and (
            is_continuation(line) or not line.strip(" ") or indent_of(line) >= start + 3
        ):
            groups[-1].append(line)
        else:
            start = indent_of(line)
            groups.append([line])
    return groups


def join_lines(lines: list[str]) -> tuple[str, list[tuple[int, int]]]:
    """The entry's text, and for each of its characters the line and the offset in it."""
    start = indent_of(lines[0])
    text = lines[0][start:]
    places = [(0, offset) for offset in range(start, len(lines[0]))]
    for index, line in enumerate(lines[1:], 1):
        begin = start + 3
        if is_continuation(line):
            if len(lines[index - 1]) != RIGHT_EDGE:
                raise CopybookError(f"a token that was not cut is continued: {line}")
            if text.rpartition(" ")[2].startswith('"'):
                if line[begin] != '"':
                    raise CopybookError(f"a literal is continued without a quote: {line}")
                begin += 1
        elif line[:begin].strip(" "):
            raise CopybookError(f"text before the margin: {line}")
        text += line[begin:]
        places += [(index, offset) for offset in range(begin, len(line))]
    return text, places


def blank_out(lines: list[str], places: list[tuple[int, int]], begin: int, end: int) -> list[str]:
    """The lines with blanks for the text from begin to end, and for the marks before it."""
    cleared = list(lines)
    first = dict(reversed(places))
    for index, offset in places[begin:end]:
        start = 0 if offset == first[index] else offset
        line = cleared[index]
        cleared[index] = line[:start] + " " * (offset + 1 - start) + line[offset + 1 :]
    return [line.rstrip(" ") for line in cleared]


def read_entry(index: int, lines: list[str]) -> Entry:
    text, places = join_lines(lines)
    match = ENTRY.fullmatch(text)
    if match is None:
        raise CopybookError(f"unreadable entry: {text}")
    clauses = match.groupdict()
    del clauses["xml"]
    cut = {
        clause
        for clause, found in clauses.items()
        if found and places[match.start(clause)][0] != places[match.end(clause) - 1][0]
    }
    clauses["level"] = int(clauses["level"])
    cleared = blank_out(lines, places, *match.span("xml"))
    return Entry(lines=cleared, cut=cut, original_name=clauses["name"], index=index, **clauses)


def read_copybook(text: str, prefix: str) -> list[Entry]:
    """The entries, each linked to its group and to the item that it redefines."""
    entries = [read_entry(*item) for item in enumerate(group_lines(text.split("\n")))]
    open_groups: list[Entry] = []
    for entry in entries:
        if entry.level == CONDITION_NAME:
            continue
        while open_groups and open_groups[-1].level >= entry.level:
            open_groups.pop()
        if open_groups:
            entry.parent = open_groups[-1]
            if entry.redefines:
                # The name of the redefined item is written without the prefix.
                names = (entry.redefines, prefix + entry.redefines)
                earlier = (item for item in reversed(entry.parent.children) if item.name in names)
                entry.redefined = next(earlier, None)
            entry.parent.children.append(entry)
        open_groups.append(entry)
    return entries
