"""Lets cobc judge the data division of a copybook.

A complaint is explained if its cause, a name or a size that comes from the schema, is found in
the entry. Such an entry is corrected and cobc runs again, because one complaint hides others.
The complaints that remain when nothing can be corrected are unexplained.
"""

from __future__ import annotations

import re
from pathlib import Path
from typing import NamedTuple

from judges.cobc import HEAD, TAIL, run_cobc
from judges.copybook import Entry
from judges.rejections import REASONS, Judged

REPORT = re.compile(r"[^:]+:(?P<line>\d+): (?P<kind>error|warning): (?P<message>.*)")


class Complaint(NamedTuple):
    entry: Entry | None  # None outside the records
    message: str

    def describe(self) -> str:
        text = " ".join(" ".join(self.entry.lines).split()) if self.entry else "outside the records"
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
    # cobc warns of a word that is continued on the next line.
    status, printed = run_cobc(source, "-Wno-dialect")
    found = []
    for line in printed:
        match = REPORT.fullmatch(line)
        owner = owners[int(match["line"]) - 1] if match else None
        found.append(Complaint(owner, match["message"] if match else line))
    if status < 0 or (status and not found):
        found.append(Complaint(None, f"cobc ended with status {status}"))
    return found


def mend(complaint: Complaint, judged: Judged, mended: set[tuple[Entry, str]]) -> str | None:
    """The name of the reason that explains the complaint; the entry is corrected."""
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
