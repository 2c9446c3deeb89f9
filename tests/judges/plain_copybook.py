"""Compares the items of a plain copybook, as cobc lists them, with those of its source.

The items of the source are those of `fdrec show --json`. Names may differ: those that COBOL does
not allow are changed. Items of 0 bytes are left out, and an item that is smaller than one that
redefines it has an area before it, which both redefine.
"""

from __future__ import annotations

from typing import Any, NamedTuple

from judges.cobc_listing import Item

RENAMES = 66


class Stored(NamedTuple):
    """Where an item is stored."""

    level: int
    offset: int  # from the beginning of the record, in its first occurrence
    size: int  # bytes of one occurrence
    most: int  # occurrences


class Placed(NamedTuple):
    stored: Stored
    name: str
    redefines: bool


class Group(NamedTuple):
    level: int
    offset: int


def place(items: list[Item]) -> list[Placed]:
    """Adds offsets to the items that cobc lists, which must have no slack bytes."""
    groups: list[Group] = []
    ends: list[int] = []  # the end of the storage in each group
    bases: list[int] = []  # the offset of the last item in each group that redefines no other
    placed = []
    for item in items:
        if item.level == RENAMES:
            continue
        if item.level == 1:
            groups, ends, bases = [], [0], [0]
        while groups and groups[-1].level >= item.level:
            groups.pop()
            ends.pop()
            bases.pop()
        if not item.redefines:
            bases[-1] = ends[-1]
        offset = bases[-1]
        ends[-1] = max(ends[-1], offset + item.size * item.occurs[1])
        placed.append(
            Placed(Stored(item.level, offset, item.size, item.occurs[1]), item.name, item.redefines)
        )
        groups.append(Group(item.level, offset))
        ends.append(offset)
        bases.append(offset)
    return placed


def shown_items(shown: dict[str, Any]) -> list[Placed]:
    """The items that take storage, from the output of `fdrec show --json`."""
    found = []
    for record in shown["records"]:
        empty = 0  # the depth of a group of 0 bytes that is open, or 0
        for item in record["items"]:
            most = item.get("occurs", {}).get("max", 1)
            if item["level"] == RENAMES or (empty and item["depth"] >= empty):
                continue
            empty = 0
            if item["length"] * most == 0:
                empty = item["depth"] + 1
                continue
            stored = Stored(item["level"], item["offset"], item["length"], most)
            found.append(Placed(stored, item["name"], "redefines" in item))
    return found


def differences(shown: list[Placed], listed: list[Placed]) -> list[str]:
    """The items whose level, offset, size or occurrences differ, pair by pair."""
    expected = iter(shown)
    pairs = []
    ours = next(expected, None)
    for index, theirs in enumerate(listed):
        following = listed[index + 1] if index + 1 < len(listed) else None
        is_area = (
            ours is not None
            and following is not None
            and following.redefines
            and not ours.redefines
            and following.stored == ours.stored
            and theirs.stored != ours.stored
        )
        if is_area:
            continue
        pairs.append((ours, theirs))
        ours = next(expected, None)
    pairs += [(each, None) for each in ([ours] if ours else []) + list(expected)]
    return [
        f"{ours} is listed as {theirs}"
        for ours, theirs in pairs
        if ours is None or theirs is None or ours.stored != theirs.stored
    ]
