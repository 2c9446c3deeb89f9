"""Has cobc list the items of a data division.

A line of the listing holds the size of an item in bytes, its kind, level and name, then picture
and usage, and after commas the OCCURS and REDEFINES clauses. A name is cut after 30 characters
if something follows it. The size of a group is that of all its occurrences, the size of an
elementary item that of one; both are read as the size of one occurrence.
"""

from __future__ import annotations

import re
from itertools import zip_longest
from pathlib import Path
from typing import NamedTuple

from judges.cobc import run_cobc

NAME_WIDTH = 30
LISTING = "items.lst"
LISTING_OPTIONS = [
    "-w",
    "-Werror=pending",
    "-ftsymbols",
    "--tlines=0",
    "-fno-theader",
    "-fno-tsource",
    "-fno-tmessages",
    "-T",
    LISTING,
]

SECTION = re.compile(r" {6}(\S+) SECTION")
FILE = re.compile(r"\d{5,} FILE +(\S+)")
ITEM = re.compile(r"(?P<size>\d{5,}) (?P<kind>[A-Z]+) +(?P<level>\d\d)   (?P<text>.+)")
OCCURS = re.compile(r"OCCURS (?:(\d+) TO )?(\d+)")
PASSED_OVER = re.compile(r"| {6}CONDITIONAL +88 .+| {6}NO FIELDS DEFINED\.")
SCOPES = {"GLOBAL", "EXTERNAL"}
OWN_PICTURE = {"COMP-1", "COMP-2"}  # usages for which cobc makes up a picture


class ListingError(Exception):
    """A line of the listing has an unknown form."""


class Item(NamedTuple):
    """What is compared of an item."""

    owner: str  # the file, or empty for working storage
    level: int
    name: str
    size: int  # bytes of one occurrence
    picture: str = ""  # empty for a group, and where the usage says it all
    usage: str = ""  # empty for DISPLAY
    occurs: tuple[int, int] = (1, 1)  # least and most
    redefines: bool = False
    is_group: bool = False


class Listing(NamedTuple):
    complaints: list[str]  # if there are any, the rest is empty
    items: list[Item]  # of the working storage, then of the files
    files: list[str]


def read_item(owner: str, line: str) -> Item:
    match = ITEM.fullmatch(line)
    if match is None:
        raise ListingError(line)
    head, *clauses = match["text"].split(", ")
    name, _, rest = head.partition(" ")
    rest = rest.strip()
    if rest.startswith("OCCURS "):
        clauses.insert(0, rest)
        rest = ""
    picture, *usages = [word for word in rest.split() if word not in SCOPES] or [""]
    occurs, redefines = (1, 1), False
    for clause in clauses:
        if found := OCCURS.fullmatch(clause):
            occurs = (int(found[1] or found[2]), int(found[2]))
        elif clause.startswith("REDEFINES "):
            redefines = True
        else:
            raise ListingError(line)
    usage = " ".join(usages)
    is_group = match["kind"] == "GROUP"
    return Item(
        owner,
        int(match["level"]),
        name,
        int(match["size"]) // (occurs[1] if is_group else 1),
        "" if usage in OWN_PICTURE else picture,
        usage,
        occurs,
        redefines,
        is_group,
    )


def read_listing(text: str) -> tuple[list[Item], list[str]]:
    """The items of working storage and files, and the files' names.

    The files come first in the listing and have no header.
    """
    section, owner = "FILE", ""
    items: list[Item] = []
    files: list[str] = []
    for line in text.upper().splitlines():
        if match := SECTION.fullmatch(line):
            section, owner = match[1], ""
        elif match := FILE.fullmatch(line):
            owner = match[1]
            files.append(owner)
        elif not PASSED_OVER.fullmatch(line):
            item = read_item(owner, line)
            if section in ("FILE", "WORKING-STORAGE"):
                items.append(item)
    return sorted(items, key=lambda item: item.owner != ""), files


def list_items(source: Path, *options: str) -> Listing:
    """The items of the source as cobc lists them."""
    listing = source.parent / LISTING
    listing.unlink(missing_ok=True)
    status, complaints = run_cobc(source, *LISTING_OPTIONS, *options)
    if status and not complaints:
        complaints.append(f"cobc ended with status {status}")
    if complaints:
        return Listing(complaints, [], [])
    return Listing([], *read_listing(listing.read_text("latin-1")))


def differences(
    described: list[Item], listed: list[Item], any_group_size: bool = False
) -> list[str]:
    """The items that differ, pair by pair; listed names may be cut."""
    found = []
    for ours, theirs in zip_longest(described, listed):
        if ours and theirs:
            if theirs.name == ours.name[:NAME_WIDTH]:
                theirs = theirs._replace(name=ours.name)
            if any_group_size and theirs.is_group:
                theirs = theirs._replace(size=ours.size)
        if ours != theirs:
            found.append(f"{ours} is listed as {theirs}")
    return found
