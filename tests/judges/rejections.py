"""The reasons why a compiler may refuse a correctly generated entry.

The generator takes names, lengths and values from the schema unchanged, and not all of them fit
into COBOL. Each reason knows the message of the compiler, looks for its cause in the entry, and
corrects the entry so that the compiler can continue.
"""

from __future__ import annotations

import re
from collections.abc import Callable, Iterator
from typing import NamedTuple

from judges.copybook import CONDITION_NAME, Entry

MAX_LEVEL = 49
NO_WORD_CHARACTER = re.compile(r"[^A-Za-z0-9\x80-\xff_-]")
POSITIVE = re.compile(r"0*[1-9]\d{0,8}")


class Judged(NamedTuple):
    """What a reason may inspect besides the entry."""

    entries: list[Entry]
    prefix: str
    reserved: frozenset[str]
    reports: str  # the messages of the generator


class Reason(NamedTuple):
    name: str
    message: re.Pattern[str]
    holds: Callable[[Entry, re.Match[str], Judged], bool]
    mend: Callable[[Entry], None]


def redefinitions(entry: Entry) -> list[Entry]:
    siblings = entry.parent.children if entry.parent else []
    return [other for other in siblings if other.redefined is entry]


def rename(entry: Entry) -> None:
    entry.changed = True
    former, entry.name = entry.name, f"mended-{entry.index}"
    for other in redefinitions(entry):
        if other.redefines == former:
            other.redefines, other.changed = entry.name, True


def reformat(entry: Entry) -> None:
    entry.changed = True


def redefine(entry: Entry, target: Entry | None) -> None:
    entry.changed = True
    entry.redefined, entry.redefines = target, target.name if target else None


def origin(entry: Entry) -> Entry:
    while entry.redefined:
        entry = entry.redefined
    return entry


def stand_alone(entry: Entry) -> None:
    """Gives the item its own storage, which later redefinitions of the same item share."""
    for other in redefinitions(entry.redefined):
        if other.index > entry.index:
            redefine(other, entry)
    redefine(entry, None)


def groups_above(entry: Entry) -> Iterator[Entry]:
    while entry.parent:
        entry = entry.parent
        yield entry


def lacks_prefix(entry: Entry, match: re.Match[str], judged: Judged) -> bool:
    return (
        match[1] == entry.redefines
        and entry.redefined is not None
        and judged.prefix + entry.redefines == entry.redefined.original_name
    )


def add_picture(entry: Entry) -> None:
    entry.changed, entry.picture = True, "X(1)"


def has_no_storage(entry: Entry, match: re.Match[str], judged: Judged) -> bool:
    """Whether the members of the group were left out, are too deep, or follow on its level."""
    if entry.picture or entry.usage or entry.children or match[1] != entry.name:
        return False
    below = judged.entries[entry.index + 1 : entry.index + 2]
    return (
        "(empty structure)" in judged.reports
        or entry.level == MAX_LEVEL
        or any(item.level == CONDITION_NAME for item in below)
        or any(item.name.startswith(f"{entry.name}-union-value-") for item in below)
    )


def mend_counts(entry: Entry) -> None:
    entry.changed, entry.picture = True, "X(1)" if entry.picture[0] == "X" else "S9(1)"


def shrink(entry: Entry) -> None:
    if entry.picture:
        mend_counts(entry)
    entry.changed, entry.occurs = True, None
    for child in entry.children:
        shrink(child)


def take_usage_off_groups(entry: Entry) -> None:
    for group in groups_above(entry):
        if group.usage:
            group.changed, group.usage = True, None


SYNTAX = r"syntax error|PICTURE clause required"

REASONS = [
    Reason(
        "a reserved word as the name",
        re.compile(rf"{SYNTAX}|is a reserved word|PICTURE character|'FILLER' cannot have"),
        lambda entry, _, judged: entry.name.upper() in judged.reserved,
        rename,
    ),
    Reason(
        "a name longer than a COBOL word",
        re.compile(r"word length exceeds maximum of (\d+) characters"),
        lambda entry, match, _: len(entry.name) > int(match[1]),
        rename,
    ),
    Reason(
        "a name with a character that COBOL words do not have",
        re.compile(rf"{SYNTAX}|PROCEDURE DIVISION header missing|invalid symbol"),
        lambda entry, _, __: bool(NO_WORD_CHARACTER.search(entry.name)),
        rename,
    ),
    Reason(
        "a name that begins or ends with a hyphen",
        re.compile(SYNTAX),
        lambda entry, _, __: "-" in (entry.name[0], entry.name[-1]),
        rename,
    ),
    Reason(
        "a redefined name without its prefix",
        re.compile(r"'(.+)' is not defined in"),
        lacks_prefix,
        lambda entry: redefine(entry, entry.redefined),
    ),
    Reason(
        "a redefinition of a redefinition",
        re.compile(r"is not the original definition"),
        lambda entry, _, __: entry.redefined is not None and entry.redefined.redefines is not None,
        lambda entry: redefine(entry, origin(entry)),
    ),
    Reason(
        "a redefinition larger than what it redefines",
        re.compile(r"size of '.+' larger than size of"),
        lambda entry, _, __: entry.redefined is not None and entry.size() > entry.redefined.size(),
        stand_alone,
    ),
    Reason(
        "a group without an elementary item",
        re.compile(r"PICTURE clause required for '(.+)'"),
        has_no_storage,
        add_picture,
    ),
    Reason(
        "a floating-point item with members",
        re.compile(r"cannot have PICTURE clause"),
        lambda entry, _, __: any(group.usage for group in groups_above(entry)),
        take_usage_off_groups,
    ),
    Reason(
        "a picture's count that is not a positive number",
        re.compile(r"in parentheses|only up to 9 significant digits|unbalanced parentheses"),
        lambda entry, _, __: not all(map(POSITIVE.fullmatch, entry.counts())),
        mend_counts,
    ),
    Reason(
        "a picture with more digits than a number has",
        re.compile(r"numeric field cannot be larger than (\d+) digits"),
        lambda entry, match, _: entry.positions() > int(match[1]),
        mend_counts,
    ),
    Reason(
        "more storage than a record has",
        re.compile(r"cannot be larger than (\d+) bytes"),
        lambda entry, match, _: entry.size() >= int(match[1]),
        shrink,
    ),
    Reason(
        "a value that holds a quote",
        re.compile(r"syntax error|literal|continuation character expected|terminating"),
        lambda entry, _, __: '"' in (entry.value or ""),
        reformat,
    ),
    Reason(
        "a value cut at a blank",
        re.compile(r"continuation character expected"),
        lambda entry, _, __: "value" in entry.cut and " " in (entry.value or ""),
        reformat,
    ),
]
