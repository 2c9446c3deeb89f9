"""Reads the entries of man pages: what stands after .TP, with its tags as plain text."""

from __future__ import annotations

import re
from dataclasses import dataclass
from pathlib import Path

_ESCAPES = {
    r"\-": "-",
    r"\(dq": '"',
    r"\e": "\\",
    r"\ ": " ",
    r"\&": "",
    r"\c": "",
}
_ESCAPE = re.compile(r"\\f[A-Z]|" + "|".join(re.escape(each) for each in _ESCAPES))
_WORD = re.compile(r'"((?:[^"]|"")*)"|(\S+)')
_ALTERNATING = ("BI", "BR", "IB", "IR", "RB", "RI")  # their words follow without blanks


@dataclass
class Entry:
    """A paragraph with a tag; .TQ adds tags."""

    tags: list[str]
    lines: list[str]  # of the text, as in the source
    is_literal: bool  # the first tag has no part that stands for something else

    @property
    def text(self) -> str:
        return " ".join(plain(line) for line in self.lines if plain(line))

    @property
    def first_sentence(self) -> str:
        """Without the full stop, and as part of a list."""
        sentence = re.split(r"[.;](?: |$)", self.text, maxsplit=1)[0]
        return sentence[0].lower() + sentence[1:]


def plain(line: str) -> str:
    """The text of a line of the source."""
    separator = " "
    if line.startswith("."):
        macro, _, rest = line[1:].partition(" ")
        if macro not in (*_ALTERNATING, "B", "I"):
            return ""
        separator = "" if macro in _ALTERNATING else " "
        line = separator.join(
            quoted.replace('""', '"') or word for quoted, word in _WORD.findall(rest)
        )
    return _ESCAPE.sub(lambda found: _ESCAPES.get(found[0], ""), line)


def section(source: str, name: str, level: str = "SH") -> list[str]:
    """The lines of a section; none if there is no such section."""
    ends = ("SH",) if level == "SH" else ("SH", "SS")
    lines: list[str] = []
    is_inside = False
    for line in source.splitlines():
        if line.startswith(tuple(f".{end} " for end in ends)):
            is_inside = line == f".{level} {name}"
        elif is_inside:
            lines.append(line)
    return lines


def entries(lines: list[str]) -> list[Entry]:
    """The entries of a section, without those within others."""
    found: list[Entry] = []
    depth = 0
    is_tag = False
    for line in lines:
        depth += line.startswith(".RS") - line.startswith(".RE")
        if depth > 0:
            continue
        if line == ".TP":
            found.append(Entry([], [], True))
            is_tag = True
        elif line == ".TQ":
            is_tag = True
        elif is_tag:
            if not found[-1].tags:
                found[-1].is_literal = line.startswith((".B ", ".BR "))
            found[-1].tags.append(plain(line))
            is_tag = False
        elif line.startswith((".SS", ".PP")):
            found.append(Entry([], [], True))  # text that belongs to no tag
        elif found:
            found[-1].lines.append(line)
    return [entry for entry in found if entry.tags]


def read(path: Path) -> str:
    return path.read_text(encoding="utf-8")
