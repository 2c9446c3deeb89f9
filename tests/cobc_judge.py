"""Lets cobc judge the data division of a copybook.

A complaint is explained when a reason that lies in the schema's names and sizes stands in
the entry itself.  Such an entry is mended and cobc asked again, because one complaint hides
others; what is left when nothing can be mended any more is unexplained.
"""

from __future__ import annotations

import os
import re
import subprocess
from functools import cache
from pathlib import Path
from typing import NamedTuple

from copybook import Entry
from rejections import REASONS, Judged

HEAD = [
    "       IDENTIFICATION DIVISION.",
    "       PROGRAM-ID. JUDGE.",
    "       DATA DIVISION.",
    "       WORKING-STORAGE SECTION.",
]
TAIL = ["       PROCEDURE DIVISION.", "           STOP RUN."]
# A long word may go on on the next line, of which cobc would warn.
COMMAND = ["cobc", "-fsyntax-only", "-fixed", "-Wno-dialect", "-fmax-errors=1000000"]
REPORT = re.compile(r"[^:]+:(?P<line>\d+): (?P<kind>error|warning): (?P<message>.*)")
TIME_LIMIT = 120  # seconds


class Complaint(NamedTuple):
    entry: Entry | None  # None outside of the records
    message: str

    def describe(self) -> str:
        text = " ".join(" ".join(self.entry.lines).split()) if self.entry else "outside of records"
        return f"{text}: {self.message}"


class Explained(NamedTuple):
    reason: str
    complaint: Complaint


def complaints(entries: list[Entry], directory: Path) -> list[Complaint]:
    owners: list[Entry | None] = [None] * len(HEAD)
    program = list(HEAD)
    for entry in entries:
        lines = entry.data_division_lines()
        program += lines
        owners += [entry] * len(lines)
    program += TAIL
    owners += [None] * (len(TAIL) + 1)  # the end of the file is a line too
    source = directory / "judge.cob"
    source.write_bytes("\n".join([*program, ""]).encode("latin-1"))
    result = subprocess.run(
        [*COMMAND, source.name], cwd=directory, env={**os.environ, "LC_ALL": "C"},
        capture_output=True, encoding="latin-1", check=False, timeout=TIME_LIMIT,
    )  # fmt: skip
    found = []
    for line in filter(None, (result.stdout + result.stderr).split("\n")):
        match = REPORT.fullmatch(line)
        owner = owners[int(match["line"]) - 1] if match else None
        found.append(Complaint(owner, match["message"] if match else line))
    if result.returncode < 0 or (result.returncode and not found):
        found.append(Complaint(None, f"cobc ended with status {result.returncode}"))
    return found


def mend(complaint: Complaint, judged: Judged, mended: set[tuple[Entry, str]]) -> str | None:
    """The name of the reason that explains the complaint, with the entry mended."""
    entry = complaint.entry
    if entry is None:
        return None
    for reason in REASONS:
        if (entry, reason.name) in mended:
            continue
        match = reason.message.search(complaint.message)
        if match and reason.holds(entry, match, judged):
            reason.mend(entry)
            mended.add((entry, reason.name))
            return reason.name
    return None


def judge(judged: Judged, directory: Path) -> tuple[list[Explained], list[Complaint]]:
    """The complaints that have a reason, and those that have none."""
    mended: set[tuple[Entry, str]] = set()
    explained: list[Explained] = []
    while found := complaints(judged.entries, directory):
        before = len(explained)
        for complaint in found:
            if reason := mend(complaint, judged, mended):
                explained.append(Explained(reason, complaint))
        if len(explained) == before:
            return explained, found
    return explained, []


@cache
def reserved_words() -> frozenset[str]:
    """The words that cobc takes for no data name; those that depend on context are none."""
    listing = subprocess.run(
        ["cobc", "--list-reserved"], capture_output=True, text=True, check=True
    ).stdout
    words = re.findall(r"^([A-Z0-9-]+) +(?:Yes|No)(?! \(Context)", listing, re.MULTILINE)
    return frozenset(words)
