"""Writes the lines of a COBOL source in a random layout."""

from __future__ import annotations

from functools import partial
from random import Random

from support.generated_items import likely

SHARES = ("REDEFINES ", "RENAMES ")  # clauses that come first
LAST_COLUMN = 72
TEXT_WIDTH = 58
TIE = "~"  # between words that stay on one line


class SourceText:
    """Entries in fixed or free format, with comments and labels."""

    def __init__(self, random: Random, is_free: bool) -> None:
        self.random = random
        self.is_free = is_free
        self.likely = partial(likely, random)
        self.lines: list[str] = []

    def line(self, text: str, indent: int = 4) -> None:
        if self.is_free:
            self.lines.append(" " * indent + text)
            return
        number = f"{10 * len(self.lines):06}" if self.likely(20) else " " * 6
        line = f"{number} {' ' * indent}{text}"
        self.lines.append(f"{line:{LAST_COLUMN}}01 LABEL" if self.likely(10) else line)

    def header(self, text: str) -> None:
        self.line(text if self.likely(80) else text.lower(), indent=0)

    def comment(self) -> None:
        if self.likely(5):
            self.lines.append("*> 01 COMMENT." if self.is_free else "      * 01 COMMENT.")
        elif self.likely(3):
            self.lines.append("")

    def entry(self, level: int, name: str, clauses: list[str]) -> None:
        """Writes an entry with its clauses in random order, over any number of lines."""
        clauses = list(clauses)
        self.random.shuffle(clauses)
        clauses.sort(key=lambda clause: not clause.startswith(SHARES))
        clauses[:-1] = [each + self.random.choice(["", "", "", ",", ";"]) for each in clauses[:-1]]
        line = f"{level:02} {name}" if self.likely(80) else f"{level} {name}"
        self.comment()
        # cobc treats a line that begins with a dollar sign as a directive.
        for word in " ".join(clauses).replace(" $", f"{TIE}$").split():
            if len(line) + len(word) > TEXT_WIDTH or self.likely(4):
                self.line(line)
                line = "   "
            line += f" {word.replace(TIE, ' ')}"
        self.line(f"{line}." if self.likely(97) else f"{line} .")
