"""Reads a data dictionary and derives what the outputs of the program have to hold."""

from __future__ import annotations

import xml.etree.ElementTree as ET
from collections.abc import Iterator
from copy import deepcopy
from dataclasses import dataclass, field

from judges.cobc_listing import Item

ELEMENTARY = {"numeric", "alphanumeric", "alphanumericEdited", "numericEdited", "national"}
CONTAINERS = {"program", "dataItems", "fileSection", "fd"}
CONDITIONS = {"alphanumericCondition", "numericCondition"}
RANGES = {"alphanumericRange", "numericRange"}
# The names of usages in the listing of cobc, where they differ.
LISTED_USAGE = {"display": "", "national": "", "comp-4": "COMP", "index": "", "pointer": ""}


def is_item(element: ET.Element) -> bool:
    return element.tag == "group" or element.tag in ELEMENTARY


def is_filler(element: ET.Element) -> bool:
    return element.get("name", "").upper() == "FILLER"


def is_redefinition(element: ET.Element) -> bool:
    return element.get("redefines") == "true"


def describe(element: ET.Element, owner: str, level: int) -> Item:
    usage = element.get("usage", "display")
    return Item(
        owner,
        level,
        element.get("name", "").upper(),
        int(element.get("length", "")),
        element.get("picture", "").upper(),
        LISTED_USAGE.get(usage, usage.upper()),
        (int(element.get("minOccurs", "1")), int(element.get("maxOccurs", "1"))),
        is_redefinition(element) or element.get("renames") == "true",
        element.tag == "group",
    )


def described_items(element: ET.Element, owner: str = "") -> Iterator[Item]:
    """All items, with the levels of the source."""
    if element.tag == "fd":
        owner = element.get("name", "").upper()
    if is_item(element) and element.get("slack") != "true":  # slack bytes are not in the source
        yield describe(element, owner, int(element.get("level", "")))
    for child in element:
        yield from described_items(child, owner)


def described_files(program: ET.Element) -> list[str]:
    return [element.get("name", "").upper() for element in program.iter("fd")]


@dataclass
class Record:
    """The one record that the enhanced copybook holds."""

    items: list[Item] = field(default_factory=list)  # their level is their depth
    redefinitions: int = 0  # left out with their members
    renames: int = 0  # also left out

    def add(self, element: ET.Element, before: ET.Element | None, depth: int) -> bool:
        """Adds an item with its members, or the first member of a container that can be added."""
        if is_item(element):
            if element.get("renames") == "true":
                self.renames += 1
                return False
            if is_redefinition(element) and before is not None and before.get("name"):
                self.redefinitions += 1
                return False
            self.items.append(describe(element, "", depth)._replace(redefines=False))
            depth += 1
        elif element.tag not in CONTAINERS:
            return False
        previous = None
        for child in element:
            if self.add(child, previous, depth) and element.tag in CONTAINERS:
                break
            previous = child
        return True


def copybook_record(program: ET.Element) -> Record:
    record = Record()
    record.add(program, None, 1)
    return record


def schema_items(element: ET.Element) -> Iterator[ET.Element]:
    """The items in the schema of a run with a mapping file.

    Redefinitions with their members and elementary fillers are left out. Only the first section
    and the first file count, and the records up to the first one that is elementary or a filler
    with members.
    """
    for child in element:
        if child.tag in CONTAINERS:
            yield from schema_items(child)
            return
        if is_item(child) and not is_redefinition(child):
            is_group = child.tag == "group"
            if is_group or not is_filler(child):
                yield child
            yield from schema_items(child)
            if element.tag in CONTAINERS and is_group == is_filler(child):
                return


def conditions(item: ET.Element) -> list[ET.Element]:
    return [child for child in item if child.tag in CONDITIONS]


def ranges(program: ET.Element) -> int:
    """The number of ranges among the values of conditions, which the schema cannot hold."""
    found = (conditions(item) for item in schema_items(program))
    return sum(value.tag in RANGES for each in found for condition in each for value in condition)


def spoils_schema(item: ET.Element) -> bool:
    """Whether the conditions of the item leave misplaced text in the schema.

    An enumeration is written inside the restriction of the item, unless the first condition
    begins with a range. The conditions of a number leave a single bracket.
    """
    found = conditions(item)
    has_enumeration = any(len(each) for each in found) and not (
        len(found[0]) and found[0][0].tag in RANGES
    )
    return has_enumeration or (item.tag == "numeric" and found != [])


def schema_faults(program: ET.Element) -> set[str]:
    """The reasons why the schema is not valid."""
    faults = set()
    lifted: set[ET.Element] = set()  # fillers whose members are global elements
    parents = {child: parent for parent in program.iter() for child in parent}
    for item in schema_items(program):
        is_top = parents[item] in lifted
        if spoils_schema(item):
            faults.add("conditions")
        if is_filler(item):
            if is_top or parents[item].tag in CONTAINERS:
                lifted.add(item)
        elif is_top and (item.tag == "group" or item.get("maxOccurs")):
            faults.add("bounds of a global element")
    return faults


def without_faults(program: ET.Element) -> ET.Element:
    """A copy without conditions, in which records that are fillers have a name."""
    mended = deepcopy(program)
    for element in list(mended.iter()):
        for condition in conditions(element):
            element.remove(condition)
        if element.tag in CONTAINERS:
            for record in element.iterfind("group"):
                record.set("name", "RECORD" if is_filler(record) else record.get("name", ""))
    return mended
