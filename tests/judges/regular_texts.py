"""Texts that match a regular expression of XML Schema, as long as possible.

Enough of the language for the schemas of the corpus: alternatives, groups, sets, escapes and
repetitions. An open repetition repeats a few times. The caller has the texts validated.
"""

from __future__ import annotations

OPEN_REPETITION = 3
ESCAPES = {"d": "7", "w": "A", "s": " ", "i": "A", "c": "A", "n": "\n", "t": "\t", "r": "\r"}
CATEGORIES = {"L": "A", "Lu": "A", "Ll": "a", "N": "7", "Nd": "7", "P": "-", "Z": " ", "S": "+"}


class Reader:
    def __init__(self, pattern: str) -> None:
        self.rest = pattern

    def take(self) -> str:
        first, self.rest = self.rest[0], self.rest[1:]
        return first

    def alternatives(self) -> str:
        """The longest text of the alternatives up to a closing parenthesis or the end."""
        longest, present = "", ""
        while self.rest and self.rest[0] != ")":
            if self.rest[0] == "|":
                self.take()
                longest, present = max(longest, present, key=len), ""
            else:
                present += self.piece()
        return max(longest, present, key=len)

    def piece(self) -> str:
        first = self.take()
        if first == "(":
            atom = self.alternatives()
            self.take()
        elif first == "[":
            atom = self.character_set()
        elif first == "\\":
            atom = self.escape()
        else:
            atom = "A" if first == "." else first
        return atom * self.repetitions()

    def escape(self) -> str:
        kind = self.take()
        if kind in "pP":
            name, _, self.rest = self.rest[1:].partition("}")
            return CATEGORIES.get(name, "A") if kind == "p" else "~"
        return ESCAPES.get(kind, kind)

    def character_set(self) -> str:
        if self.rest[0] == "^":
            self.take()
            self.members()
            return "~"
        return self.members()[0]

    def members(self) -> list[str]:
        members = []
        while self.rest[0] != "]":
            member = self.take()
            if member == "\\":
                member = self.escape()
            elif member == "-" and self.rest[0] == "[":
                self.take()
                self.members()
                continue
            members.append(member)
        self.take()
        return members

    def repetitions(self) -> int:
        sign = self.rest[:1]
        if sign in ("*", "+", "?") and sign:
            self.take()
            return 1 if sign == "?" else OPEN_REPETITION
        if sign != "{":
            return 1
        bounds, _, self.rest = self.rest[1:].partition("}")
        least, comma, most = bounds.partition(",")
        if comma and not most:
            return int(least) + OPEN_REPETITION
        return int(most or least)


def longest_match(pattern: str) -> str:
    return Reader(pattern).alternatives()
