"""Makes record layouts at random, as copybooks, and the bytes of records for them.

A layout has groups, tables (also with DEPENDING ON), redefinitions with rules, and items of all
usages, in plain form or with XML clauses. The offsets of the items are those that `fdrec show`
tells. A canonical record is one that the way to a document and back does not change; a dirty one
has signs, zones, blanks and fillers that documents do not tell apart.
"""

from __future__ import annotations

import json
from dataclasses import dataclass, field
from pathlib import Path
from random import Random
from typing import Any

from support import harness
from support.generated_fields import DIALECTS, Dialect, Field, FieldMaker, unchanged
from support.generated_items import likely

NAMESPACES = ["urn:a", "urn:b", ""]
MAX_DEPTH = 4


@dataclass
class RecordLayout:
    copybook: str
    options: list[str]
    namespace: str
    size: int
    items: list[dict[str, Any]]
    fields: dict[str, Field]
    counters: dict[str, tuple[int, int]]
    tables: dict[str, str]  # the counters of tables
    areas: dict[str, list[str]]  # the views by the item that chooses among them
    has_role: set[str]
    dialect: Dialect
    children: dict[int, list[int]] = field(default_factory=dict)

    def __post_init__(self) -> None:
        path: list[int] = []
        for number, item in enumerate(self.items):
            del path[item["depth"] :]
            self.children.setdefault(path[-1] if path else -1, []).append(number)
            path.append(number)

    def record(self, random: Random, is_dirty: bool = False) -> bytes:
        data = bytearray(self.size)
        chosen: dict[str, int] = {}
        for counter, (least, most) in self.counters.items():
            chosen[counter] = random.randint(least, most)
        for tag, views in self.areas.items():
            chosen[tag] = random.randrange(len(views))
        self._fill(data, 0, 0, chosen, random, is_there=True)
        if is_dirty:
            self._soil(data, 0, 0, chosen, random)
        return bytes(data)

    def _views(self, number: int, chosen: dict[str, int]) -> bool:
        """Whether a view is the one of its area."""
        name = self.items[number]["name"]
        for tag, views in self.areas.items():
            if name in views:
                return views[chosen[tag]] == name
        return "redefines" not in self.items[number]

    def _places(self, number: int, shift: int) -> list[int]:
        item = self.items[number]
        count = item.get("occurs", {}).get("max", 1)
        return [shift + k * item["length"] for k in range(count)]

    def _fill(
        self,
        data: bytearray,
        number: int,
        shift: int,
        chosen: dict[str, int],
        random: Random,
        is_there: bool,
    ) -> None:
        item = self.items[number]
        name = item["name"]
        counter = self.tables.get(name)
        for k, place in enumerate(self._places(number, shift)):
            is_part = is_there and (counter is None or k < chosen[counter])
            for child in self.children.get(number, []):
                is_first = "redefines" not in self.items[child]
                if is_first:
                    # What a view does not cover is as if the first one were absent.
                    is_chosen = self._views(child, chosen)
                    self._fill(data, child, place, chosen, random, is_part and is_chosen)
                elif is_part and self._views(child, chosen):
                    view = self.items[child]
                    begin = view["offset"] + place
                    data[begin : begin + view["length"]] = bytes(view["length"])  # slack
                    self._fill(data, child, place, chosen, random, True)
            if number in self.children:
                continue
            known = self.fields[name]
            value = known.absent
            if is_part and name in self.has_role:
                value = known.value(random)
            if name in chosen and is_there:
                value = self.dialect.text(f"{chosen[name]:02d}")
            begin = item["offset"] + place
            data[begin : begin + len(value)] = value

    def _soil(
        self, data: bytearray, number: int, shift: int, chosen: dict[str, int], random: Random
    ) -> None:
        item = self.items[number]
        for place in self._places(number, shift):
            for child in self.children.get(number, []):
                self._soil(data, child, place, chosen, random)
            if number in self.children or item["name"] in chosen or not likely(random, 40):
                continue
            if "redefines" in item:
                continue
            begin = item["offset"] + place
            end = begin + item["length"]
            known = self.fields[item["name"]]
            if item["name"] in self.has_role:
                data[begin:end] = known.dirty(random, bytes(data[begin:end]))
            else:
                data[begin:end] = random.randbytes(end - begin)


class Generator(FieldMaker):
    """Writes the items of one record."""

    def __init__(self, random: Random) -> None:
        super().__init__(random, random.choice(DIALECTS))
        self.is_enhanced = likely(random, 50)
        self.lines: list[str] = []
        self.fields: dict[str, Field] = {}
        self.counters: dict[str, tuple[int, int]] = {}
        self.tables: dict[str, str] = {}
        self.areas: dict[str, list[str]] = {}
        self.has_role: set[str] = set()
        self.rules: list[str] = []
        self.number = 0

    def name(self, head: str) -> str:
        self.number += 1
        return f"{head}{self.number}"

    def add(self, level: int, name: str, clauses: str, xml: str = "") -> None:
        words = f"{level:02d} {name} {clauses}".split()
        if xml and self.is_enhanced:
            words += xml.split()
        self.lines.append("   " * (level // 5) + " ".join(words) + ".")

    def identified(self, name: str, is_attribute: bool = False) -> str:
        text = f'IDENTIFIED BY "{name.lower()}"'
        if is_attribute:
            text += " IS ATTRIBUTE"
        if likely(self.random, 10):
            text += f' NAMESPACE IS "{self.random.choice(NAMESPACES)}"'
        return text

    # Groups and records.

    def elementary(self, level: int, xml: str | None = None, extra: str = "") -> str:
        name = self.name("E")
        known = self.field()
        self.fields[name] = known
        self.add(level, name, known.clauses + extra, self.identified(name) if xml is None else xml)
        self.has_role.add(name)
        return name

    def filler(self, level: int) -> None:
        size = self.random.randint(1, 4)
        name = self.name("NO-ROLE-") if self.is_enhanced else "FILLER"
        value, text = "", self.blank(size)
        if likely(self.random, 40):
            value, text = f' VALUE "{"*" * size}"', self.dialect.text("*" * size)
        if name == "FILLER":
            # All fillers of a record share their name, so they share their bytes as well.
            value, text, size = "", self.blank(2), 2
        self.fields[name] = Field("", lambda _: text, text, unchanged)
        self.add(level, name, f"PIC X({size}){value}")

    def text_group(self, level: int, extra: str = "") -> None:
        """An element with attributes and a text."""
        group = self.name("G")
        self.add(level, group, extra, self.identified(group))
        for _ in range(self.random.randint(1, 2)):
            name = self.name("A")
            self.fields[name] = self.field()
            xml = self.identified(name, is_attribute=self.is_enhanced)
            self.add(level + 5, name, self.fields[name].clauses, xml)
            self.has_role.add(name)
        self.elementary(level + 5, "")

    def group(self, level: int, extra: str = "", xml: str | None = None) -> str:
        name = self.name("G")
        self.add(level, name, extra, self.identified(name) if xml is None else xml)
        self.parts(level + 5)
        return name

    def slots(self, level: int) -> None:
        xml = self.identified(self.name("S"))
        self.elementary(level, xml)
        if likely(self.random, 50):
            self.elementary(level)
        self.elementary(level, xml, f" OCCURS {self.random.randint(1, 3)}")

    def area(self, level: int) -> None:
        """A group and one that redefines it, with rules."""
        tag = self.name("TAG")
        self.fields[tag] = Field("", lambda _: b"", b"", unchanged)
        self.add(level, tag, "PIC 99", self.identified(tag))
        self.fields[tag].absent = self.dialect.text("00")
        self.has_role.add(tag)
        first, second = self.name("V"), self.name("V")
        self.add(level, first, "", self.identified(first))
        self.elementary(level + 5)
        self.add(level + 5, self.name("LONG"), "PIC X(40)", self.identified(f"long{self.number}"))
        long = f"LONG{self.number}"
        self.fields[long] = self.long_text()
        self.has_role.add(long)
        self.add(level, second, f"REDEFINES {first}", self.identified(second))
        self.elementary(level + 5)
        self.areas[tag] = [first, second]
        self.rules += ["--when", f"{first}: {tag} = 0", "--when", f"{second}: {tag} = 1"]

    def counted_table(self, level: int) -> None:
        counter = self.name("N")
        self.fields[counter] = Field("", lambda _: b"", self.dialect.text("00"), unchanged)
        self.add(level, counter, "PIC 99", self.identified(counter))
        self.has_role.add(counter)
        most = self.random.randint(1, 5)
        least = self.random.randint(0, most - 1)
        self.counters[counter] = (least, most)
        extra = f" OCCURS {least} TO {most} DEPENDING ON {counter}"
        name = (
            self.group(level, extra)
            if likely(self.random, 50)
            else self.elementary(level, extra=extra)
        )
        self.tables[name] = counter

    def parts(self, level: int) -> None:
        depth = level // 5
        for _ in range(self.random.randint(1, 6)):
            kind = self.random.randrange(12)
            is_deep = depth >= MAX_DEPTH
            table = f" OCCURS {self.random.randint(1, 4)}" if likely(self.random, 20) else ""
            if kind == 0:
                self.filler(level)
            elif kind == 1 and not is_deep:
                self.text_group(level, table)
            elif kind == 2 and not is_deep:
                self.group(level, table)
            elif kind == 3 and not is_deep and self.is_enhanced:
                self.group(level, "", "")
            elif kind == 4 and self.is_enhanced:
                self.slots(level)
            elif kind == 5 and depth == 1:
                self.area(level)
            elif kind == 6 and depth == 1:
                self.counted_table(level)
            else:
                self.elementary(level, extra=table)
        self.elementary(level)


def generate_layout(random: Random, directory: Path) -> RecordLayout:
    """Makes a layout and writes its copybook, a.cpy, into a folder."""
    made = Generator(random)
    namespace = random.choice(["", "urn:r"]) if made.is_enhanced else ""
    space = f' NAMESPACE IS "{namespace}"' if namespace else ""
    made.add(1, "R", "", f'IDENTIFIED BY "r"{space}')
    made.parts(5)
    copybook = "\n".join(made.lines) + "\n"
    (directory / "a.cpy").write_text(copybook, "utf-8")
    options = ["--source-format", "free", *made.dialect.options]
    program = harness.program_under_test("FDREC")
    shown = harness.run(directory, program, "show", "--json", "a.cpy", *options)
    assert shown.returncode == 0, copybook + harness.readable(shown.stderr)
    record = json.loads(shown.stdout)["records"][0]
    # Only what has a role is in a document, whatever was planned.
    roles = {item["name"] for item in record["items"] if item["role"] != "none"}
    return RecordLayout(
        copybook,
        [*options, *made.rules],
        namespace,
        record["length"],
        record["items"],
        made.fields,
        made.counters,
        made.tables,
        made.areas,
        made.has_role & roles,
        made.dialect,
    )
