"""Makes record layouts at random, as copybooks with the options to read them.

A layout has groups, tables (also with DEPENDING ON), redefinitions with and without rules, and
items of all usages, in plain form or with XML clauses and counts. A file has one record type or
several, which rules choose. The offsets of the items are those that `fdrec show` tells.
"""

from __future__ import annotations

import json
from collections.abc import Iterator
from contextlib import contextmanager
from dataclasses import dataclass, replace
from pathlib import Path
from random import Random

from support import harness
from support.generated_bytes import Parts, RecordBytes
from support.generated_fields import DIALECTS, Dialect, Field, FieldMaker, FieldRules, unchanged
from support.generated_files import MOST_BYTES, Framing, RecordFile, choose_framing
from support.generated_items import likely

NAMESPACES = ["urn:a", "urn:b", ""]
KINDS = "ABC"  # of record types
MAX_DEPTH = 4
# Of values and documents. Canonical records come back with each of them.
OTHER_OPTIONS = [
    "--pretty",
    "--numbers=string",
    "--trim=none",
    "--edited=number",
    "--binary-range=full",
    "--blank-numbers=omit",
    "--blank-numbers=zero",
    "--blank-numbers=leading",
    "--controls=replace",
    "--strict-zones",
    "--any-namespace",
]


@dataclass
class Plan:
    """What the layout of a file is like."""

    dialect: Dialect
    framing: Framing
    is_enhanced: bool
    is_simple: bool  # every document of it is valid against the schema that fdmorph writes
    has_counts: bool
    omits_empty: bool
    namespace: str
    record_types: int
    others: list[str]

    def options(self) -> list[str]:
        options = [*self.framing.options, *self.others]
        if self.has_counts:
            options.append("--counts")
        if self.omits_empty:
            options.append("--omit-empty")
        if self.namespace and not self.is_enhanced:
            options += ["--namespace", self.namespace]
        return options


def make_plan(random: Random) -> Plan:
    is_simple = likely(random, 12)
    is_enhanced = not is_simple and likely(random, 55)
    dialect = random.choice(DIALECTS)
    framing = choose_framing(random, dialect)
    has_counts = not is_simple and framing.format != "lines" and likely(random, 35)
    has_namespace = not is_simple and likely(random, 40)
    return Plan(
        dialect,
        framing,
        is_enhanced,
        is_simple,
        has_counts,
        omits_empty=not is_simple and not has_counts and likely(random, 15),
        namespace="urn:r" if has_namespace else "",
        record_types=1 if is_simple or likely(random, 70) else random.randint(2, 3),
        others=[random.choice(OTHER_OPTIONS)] if likely(random, 35) else [],
    )


class Generator(FieldMaker):
    """Writes the items of the records of a file."""

    def __init__(self, random: Random, plan: Plan) -> None:
        super().__init__(random, plan.dialect)
        self.plan = plan
        self.is_enhanced = plan.is_enhanced
        self.field_rules = FieldRules(
            has_sync=not plan.framing.shifts,
            has_native=not plan.is_simple,
            is_text=plan.framing.format == "lines",
        )
        self.lines: list[str] = []
        self.parts_known = Parts()
        self.rules: list[str] = []
        self.number = 0
        self.may_count = True

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

    def counted(self, name: str) -> str:
        """At times a clause for the count of an item."""
        if not self.plan.has_counts or not self.may_count or not likely(self.random, 40):
            return ""
        self.parts_known.counted.add(name)
        return f" COUNT IN {self.name('COUNT')}"

    @contextmanager
    def uncounted(self) -> Iterator[None]:
        before, self.may_count = self.may_count, False
        yield
        self.may_count = before

    def unaligned_field(self) -> Field:
        """An item that may begin anywhere."""
        before = self.field_rules
        self.field_rules = replace(before, has_sync=False)
        known = self.field()
        self.field_rules = before
        return known

    def set_field(self, name: str, absent: bytes) -> None:
        self.parts_known.fields[name] = Field("", lambda _: absent, absent, unchanged)

    # Groups and records.

    def elementary(self, level: int, xml: str | None = None, extra: str = "") -> str:
        name = self.name("E")
        known = self.field()
        self.parts_known.fields[name] = known
        clauses = known.clauses + extra + self.counted(name)
        self.add(level, name, clauses, self.identified(name) if xml is None else xml)
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
        self.set_field(name, text)
        self.add(level, name, f"PIC X({size}){value}")

    def text_group(self, level: int, extra: str = "") -> None:
        """An element with attributes and a text."""
        group = self.name("G")
        self.add(level, group, extra + self.counted(group), self.identified(group))
        for _ in range(self.random.randint(1, 2)):
            name = self.name("A")
            known = self.parts_known.fields[name] = self.field()
            xml = self.identified(name, is_attribute=self.is_enhanced)
            self.add(level + 5, name, known.clauses + self.counted(name), xml)
        if self.is_enhanced and likely(self.random, 30):
            self.texts(level + 5)
        else:
            self.elementary(level + 5, "")

    def texts(self, level: int) -> None:
        """Two views of one text, and an attribute that chooses."""
        tag = self.tag(level, is_attribute=True)
        first, second = self.name("U"), self.name("U")
        known = self.parts_known.fields[first] = self.long_text()
        self.add(level, first, known.clauses)
        known = self.parts_known.fields[second] = self.unaligned_field()
        self.add(level, second, f"REDEFINES {first} {known.clauses}")
        self.choose(tag, first, second)

    def group(self, level: int, extra: str = "", xml: str | None = None) -> str:
        name = self.name("G")
        clauses = extra + self.counted(name)
        self.add(level, name, clauses, self.identified(name) if xml is None else xml)
        self.parts(level + 5)
        return name

    def value_group(self, level: int) -> None:
        """A group with a value, which is that of its items."""
        group, first, second = self.name("G"), self.name("E"), self.name("E")
        text = "".join(self.random.choices("ABC123", k=6))
        self.add(level, group, f'VALUE "{text}"' + self.counted(group), self.identified(group))
        for name, part in (first, text[:2]), (second, text[2:]):
            known = Field("", self.text_values(len(part)), self.dialect.text(part), unchanged)
            self.parts_known.fields[name] = known
            clauses = f"PIC X({len(part)})" + self.counted(name)
            self.add(level + 5, name, clauses, self.identified(name))

    def slots(self, level: int) -> None:
        """Parts of one name. Only the last may have a count."""
        xml = self.identified(self.name("S"))
        with self.uncounted():
            self.elementary(level, xml)
            if likely(self.random, 50):
                self.elementary(level)
        self.elementary(level, xml, f" OCCURS {self.random.randint(1, 3)}")

    def tag(self, level: int, is_attribute: bool = False) -> str:
        tag = self.name("TAG")
        self.set_field(tag, self.dialect.text("00"))
        self.add(level, tag, "PIC 99", self.identified(tag, is_attribute))
        return tag

    def choose(self, tag: str, first: str, second: str) -> None:
        self.parts_known.views[tag] = [first, second]
        self.rules += ["--when", f"{first}: {tag} = 0"]
        self.rules += [
            "--when",
            f"{second}: {tag} = 1" if likely(self.random, 50) else f"{second}:",
        ]

    def area(self, level: int) -> None:
        """An item and one that redefines it."""
        kind = self.random.randrange(4)
        if kind == 0:
            self.preset_area(level)
            return
        tag = self.tag(level)
        first, second = self.name("V"), self.name("V")
        if kind == 1:
            known = self.parts_known.fields[first] = self.long_text()
            self.add(level, first, f'{known.clauses} VALUE "FIRST"', self.identified(first))
            known.absent = self.dialect.text("FIRST".ljust(40))
            known = self.parts_known.fields[second] = self.unaligned_field()
            clauses = f"REDEFINES {first} {known.clauses}"
            self.add(level, second, clauses, self.identified(second))
        else:
            is_named = kind == 2 or not self.is_enhanced
            self.add(level, first, "", self.identified(first) if is_named else "")
            with self.uncounted():
                self.elementary(level + 5)
            long = self.name("LONG")
            known = self.parts_known.fields[long] = self.long_text()
            self.add(level + 5, long, known.clauses, self.identified(long))
            clauses = f"REDEFINES {first}"
            self.add(level, second, clauses, self.identified(second) if is_named else "")
            with self.uncounted():
                self.elementary(level + 5)
            if likely(self.random, 50):
                self.elementary(level + 5)
        self.choose(tag, first, second)

    def preset_area(self, level: int) -> None:
        """An area without rules: its view is the first that has a role."""
        first, second = self.name("V"), self.name("V")
        known = self.parts_known.fields[first] = self.long_text()
        is_first = not self.is_enhanced or likely(self.random, 50)
        self.add(level, first, known.clauses, self.identified(first) if is_first else "")
        known = self.parts_known.fields[second] = self.unaligned_field()
        self.add(level, second, f"REDEFINES {first} {known.clauses}", self.identified(second))
        self.parts_known.views[f"area of {first}"] = [first, second]
        self.parts_known.presets[f"area of {first}"] = 0 if is_first else 1

    def counted_table(self, level: int) -> None:
        counter = self.name("N")
        most = self.random.randint(1, 5)
        least = self.random.randint(0, most - 1)
        self.set_field(counter, self.dialect.text(f"{least:02d}"))
        self.add(level, counter, "PIC 99", self.identified(counter) if self.is_known() else "")
        self.parts_known.counters[counter] = (least, most)
        extra = f" OCCURS {least} TO {most} DEPENDING ON {counter}"
        name = (
            self.group(level, extra)
            if likely(self.random, 50)
            else self.elementary(level, extra=extra)
        )
        self.parts_known.tables[name] = counter
        if likely(self.random, 15):
            other = self.elementary(level, extra=extra)
            self.parts_known.tables[other] = counter

    def is_known(self) -> bool:
        """Whether a counter is in the document: mostly."""
        return likely(self.random, 80)

    def parts(self, level: int) -> None:
        depth = level // 5
        for _ in range(self.random.randint(1, 6)):
            kind = self.random.randrange(13)
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
            elif kind == 5 and not is_deep and not self.plan.is_simple:
                self.area(level)
            elif kind in (6, 7) and not is_deep and likely(self.random, 70):
                self.counted_table(level)
            elif kind == 8 and not is_deep:
                self.value_group(level)
            else:
                self.elementary(level, extra=table)
        self.elementary(level)

    def record(self, name: str, kind: str) -> list[str]:
        """Writes a record, and returns the rule that chooses it."""
        space = f' NAMESPACE IS "{self.plan.namespace}"' if self.plan.namespace else ""
        count = self.counted(name)
        self.add(1, name, count, f'IDENTIFIED BY "{name.lower()}"{space}')
        rule = []
        if self.plan.record_types > 1:
            item = self.name("KIND")
            self.set_field(item, self.blank(1))
            self.parts_known.fixed[item] = self.dialect.text(kind)
            self.add(5, item, "PIC X", self.identified(item))
            rule = ["--when", f'{name}: {item} = "{kind}"']
        self.parts(5)
        if not self.plan.is_simple and likely(self.random, 20):
            self.area(5)
        return rule


def generate_file(random: Random, directory: Path) -> RecordFile:
    """Makes the layout of a file and writes its copybook, a.cpy, into a folder."""
    while True:
        made = try_file(random, directory)
        if made.length + made.count_size < MOST_BYTES:
            return made


def try_file(random: Random, directory: Path) -> RecordFile:
    plan = make_plan(random)
    made = Generator(random, plan)
    chosen = []
    for kind in KINDS[: plan.record_types]:
        rule = made.record(f"R{kind}", kind)
        chosen += ["--record", f"R{kind}"] if rule else []
        made.rules += rule
    copybook = "\n".join(made.lines) + "\n"
    (directory / "a.cpy").write_text(copybook, "utf-8")
    program = harness.program_under_test("FDREC")
    options = ["--source-format", "free", *plan.dialect.options, *chosen]
    shown = harness.run(directory, program, "show", "--json", "a.cpy", *options)
    assert (shown.returncode, shown.stderr) == (0, b""), copybook + harness.readable(shown.stderr)
    is_text = plan.framing.format == "lines"
    records = [
        RecordBytes(record["items"], made.parts_known, plan.dialect, plan.has_counts, is_text)
        for record in json.loads(shown.stdout)["records"]
    ]
    options += [*plan.options(), *made.rules]
    return RecordFile(copybook, options, records, plan.framing, plan.has_counts, plan.is_simple)
