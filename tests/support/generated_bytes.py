"""Makes the bytes of records at random, for a layout that was made at random.

A canonical record is one that the way to a document and back does not change; a dirty one has
signs, zones, blanks, fillers and counts that documents do not tell apart.

The same counters, views and counts are used for many records: their bytes are made once, and each
record gets values of its own.
"""

from __future__ import annotations

from collections.abc import Callable
from dataclasses import dataclass, field
from random import Random
from typing import Any

from support.generated_fields import Dialect, Field
from support.generated_items import likely

MOST_SHAPES = 40
VALUES = 50  # of an item, for all records
COUNT_SIZE = 4  # bytes
Item = dict[str, Any]
Dirty = Callable[[Random, bytes], bytes]


@dataclass
class Parts:
    """What a layout adds to its items, by their names."""

    fields: dict[str, Field] = field(default_factory=dict)
    counters: dict[str, tuple[int, int]] = field(default_factory=dict)  # their bounds
    tables: dict[str, str] = field(default_factory=dict)  # the counters of tables
    views: dict[str, list[str]] = field(default_factory=dict)  # by the item that chooses
    presets: dict[str, int] = field(default_factory=dict)  # the views of areas without rules
    counted: set[str] = field(default_factory=set)  # those with a count
    fixed: dict[str, bytes] = field(default_factory=dict)  # those that choose the record


@dataclass
class Slot:
    begin: int
    end: int
    values: list[bytes]  # empty for what is not in the document
    soil: Dirty | None


@dataclass
class Shape:
    """A record but for the values of its items."""

    data: bytearray
    slots: list[Slot] = field(default_factory=list)
    unused: list[tuple[int, int]] = field(default_factory=list)  # what shifting leaves out
    end: int = 0  # of the items and views that are there
    counts: bytearray = field(default_factory=bytearray)
    idle_counts: list[int] = field(default_factory=list)  # offsets of those of no part


def random_bytes(random: Random, old: bytes) -> bytes:
    return random.randbytes(len(old))


def random_text(random: Random, old: bytes) -> bytes:
    return bytes(random.choices(b"abc XYZ019", k=len(old)))


class RecordBytes:
    """The bytes of one record type."""

    def __init__(
        self, items: list[Item], parts: Parts, dialect: Dialect, has_counts: bool, is_text: bool
    ) -> None:
        self.items = items
        self.parts = parts
        self.dialect = dialect
        self.has_counts = has_counts
        self.garbage = random_text if is_text else random_bytes
        self.size: int = items[0]["length"]
        self.children: dict[int, list[int]] = {}
        self.shapes: list[Shape] = []
        self.pools: dict[str, list[bytes]] = {}
        self.chosen: dict[str, int] = {}
        self.is_in_later_view = False
        path: list[int] = []
        for number, item in enumerate(items):
            del path[item["depth"] :]
            self.children.setdefault(path[-1] if path else -1, []).append(number)
            path.append(number)
        self.with_areas = {
            group
            for group in self.children
            if any("redefines" in item for item in self._items_below(group))
        }

    def _items_below(self, group: int) -> list[Item]:
        below = []
        for child in self.children.get(group, []):
            below += [self.items[child], *self._items_below(child)]
        return below

    def record(self, random: Random, is_dirty: bool) -> tuple[Shape, bytearray, bytearray]:
        """The shape of a record, its bytes in the largest form, and its counts."""
        if len(self.shapes) < MOST_SHAPES and likely(random, 50) or not self.shapes:
            self.shapes.append(self._make_shape(random))
        shape = random.choice(self.shapes)
        data = bytearray(shape.data)
        for slot in shape.slots:
            if slot.values:
                data[slot.begin : slot.end] = random.choice(slot.values)
            if is_dirty and slot.soil is not None and likely(random, 40):
                old = bytes(data[slot.begin : slot.end])
                data[slot.begin : slot.end] = slot.soil(random, old)
        counts = bytearray(shape.counts)
        for begin in shape.idle_counts:
            if is_dirty and likely(random, 20):
                counts[begin : begin + COUNT_SIZE] = random.randbytes(COUNT_SIZE)
        return shape, data, counts

    def _make_shape(self, random: Random) -> Shape:
        self.chosen = {}
        for counter, (least, most) in self.parts.counters.items():
            self.chosen[counter] = random.randint(least, most)
        for tag, views in self.parts.views.items():
            preset = self.parts.presets.get(tag)
            self.chosen[tag] = random.randrange(len(views)) if preset is None else preset
        for item in self.items:
            if item["name"] in self.parts.counted:
                self.chosen[f"count {item['name']}"] = random.randint(0, self._most(item))
        shape = Shape(bytearray(self.size))
        self._fill(shape, 0, 0, random, True)
        if self.has_counts:
            self._count(shape, 0, True)
        return shape

    @property
    def count_size(self) -> int:
        return len(self._make_shape(Random(0)).counts)

    def _most(self, item: Item) -> int:
        most: int = item.get("occurs", {}).get("max", 1)
        return most

    def _is_chosen(self, item: Item) -> bool:
        """Whether an item is in no area, or the view that is taken."""
        for tag, views in self.parts.views.items():
            if item["name"] in views:
                return views[self.chosen[tag]] == item["name"]
        return "redefines" not in item

    def _occurrences(self, item: Item) -> int:
        """How many are in the document."""
        name = item["name"]
        if name in self.parts.tables:
            return self.chosen[self.parts.tables[name]]
        if name in self.parts.counted and self._is_part(item):
            return self.chosen[f"count {name}"]
        return self._most(item)

    def _is_part(self, item: Item) -> bool:
        """Whether documents have as many of it as its count says."""
        return item is not self.items[0] and item["role"] in ("element", "attribute")

    def _fill(self, shape: Shape, number: int, shift: int, random: Random, is_there: bool) -> None:
        """Fills one item, whose offset is moved by `shift` bytes, with all its occurrences."""
        item = self.items[number]
        begin = item["offset"] + shift
        end = begin + self._most(item) * item["length"]
        count = self._occurrences(item)
        for k in range(self._most(item)):
            moved = shift + k * item["length"]
            if number in self.children:
                self._fill_parts(shape, number, moved, random, is_there and k < count)
            else:
                self._fill_leaf(shape, item, moved, random, is_there and k < count)
        if item["name"] in self.parts.tables:
            # An absent table has its lower bound.
            counter = self.parts.tables[item["name"]]
            used = count if is_there else self.parts.counters[counter][0]
            shape.unused.append((begin + used * item["length"], end))
        if number not in self.with_areas:
            shape.end = max(shape.end, end)

    def _fill_parts(
        self, shape: Shape, group: int, shift: int, random: Random, is_there: bool
    ) -> None:
        for child in self.children[group]:
            item = self.items[child]
            is_chosen = self._is_chosen(item)
            if "redefines" not in item:
                # What a view does not cover is as if the first one were absent.
                end = shape.end
                self._fill(shape, child, shift, random, is_there and is_chosen)
                if not is_chosen:
                    shape.end = end
            elif is_there and is_chosen:
                begin = item["offset"] + shift
                shape.data[begin : begin + item["length"]] = bytes(item["length"])  # slack
                self.is_in_later_view = True
                self._fill(shape, child, shift, random, True)
                self.is_in_later_view = False

    def _fill_leaf(
        self, shape: Shape, item: Item, shift: int, random: Random, is_there: bool
    ) -> None:
        name = item["name"]
        known = self.parts.fields[name]
        begin = item["offset"] + shift
        end = begin + item["length"]
        # Values of clauses do not count in redefinitions.
        shape.data[begin:end] = known.empty if self.is_in_later_view else known.absent
        if name in self.parts.fixed:
            shape.data[begin:end] = self.parts.fixed[name]
        elif name in self.chosen:
            if is_there:
                shape.data[begin:end] = self.dialect.text(f"{self.chosen[name]:02d}")
        elif is_there and item["role"] != "none":
            if name not in self.pools:
                self.pools[name] = [known.value(random) for _ in range(VALUES)]
            shape.slots.append(Slot(begin, end, self.pools[name], known.dirty))
        elif self._is_clear_of_areas(item):
            shape.slots.append(Slot(begin, end, [], self.garbage))

    def _is_clear_of_areas(self, item: Item) -> bool:
        """Whether no view shares the bytes of an item that is not in the document."""
        number = self.items.index(item)
        while number > 0:
            name = self.items[number]["name"]
            if any(name in views for views in self.parts.views.values()):
                return False
            number = next(at for at, parts in self.children.items() if number in parts)
        return True

    def _count(self, shape: Shape, number: int, is_there: bool) -> None:
        """Appends the count of an item and those below it."""
        item = self.items[number]
        occurrences = self._occurrences(item)
        if item["name"] in self.parts.counted:
            is_part = self._is_part(item)
            if not is_part:
                shape.idle_counts.append(len(shape.counts))
            value = (occurrences if is_part else 1) if is_there else 0
            order: Any = "big" if self.dialect.is_ibm else "little"
            shape.counts += value.to_bytes(COUNT_SIZE, order)
        for k in range(self._most(item)):
            for child in self.children.get(number, []):
                is_chosen = self._is_chosen(self.items[child])
                self._count(shape, child, is_there and k < occurrences and is_chosen)
