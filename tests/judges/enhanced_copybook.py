"""Removes the XML clauses from an enhanced copybook.

The layout is that of a copybook made from a schema. The XML clauses are the last clauses of an
entry, and the value comes before them.
"""

from __future__ import annotations

import re
from typing import NamedTuple

from judges.copybook import blank_out, is_continuation, group_lines, join_lines, value_lines

XML_CLAUSES = re.compile(
    r'(?: identified by "[^"]*")?(?: namespace is "[^"]*")?(?: is attribute)?'
    r"(?: count in [^ ]+)?\.\Z"
)
VALUE = re.compile(r' value is "([^"]*)"\Z')


class EnhancedEntry(NamedTuple):
    """An entry without its XML clauses."""

    lines: list[str]  # unchanged, with blanks in place of the clauses
    head: str  # the text before the value
    cut_value: str | None  # a value that continues on another line without a mark

    def mended_lines(self) -> list[str]:
        if self.cut_value is None:
            return self.lines
        words = [f"{'':11}{word}" for word in self.head.split()]
        return [*words, *value_lines(self.cut_value), f"{'':11}."]


def read_entry(lines: list[str]) -> EnhancedEntry:
    text, places = join_lines(lines)
    clauses = XML_CLAUSES.search(text)
    if clauses is None:
        raise ValueError(f"no period ends the entry: {text}")
    kept = blank_out(lines, places, clauses.start(), clauses.end() - 1)
    head, cut_value = text[: clauses.start()], None
    if value := VALUE.search(head):
        first, last = places[value.start(1) - 1][0], places[value.end(1)][0]
        if not all(is_continuation(line) for line in lines[first + 1 : last + 1]):
            head, cut_value = head[: value.start()], value[1]
    return EnhancedEntry(kept, head, cut_value)


def read_enhanced(text: str) -> list[EnhancedEntry]:
    return [read_entry(lines) for lines in group_lines(text.removesuffix("\n").split("\n"))]
