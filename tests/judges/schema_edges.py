"""Documents at the edges of a schema: longest texts, most digits, most occurrences, each
alternative of a choice.

A generator makes one document after the other. Choices and values take turns, so that many
documents show all of them. A document is as deep as the record; what the record lacks is made
once and as small as possible.
"""

from __future__ import annotations

import xml.etree.ElementTree as ET
from collections import Counter
from decimal import Decimal, InvalidOperation

from judges.regular_texts import longest_match
from judges.schema_reading import (
    Complex,
    Element,
    Name,
    Particle,
    Schemas,
    Simple,
)

MAX_TEXT = 5000  # characters of a text without a smaller bound
MAX_DEPTH = 60
DEFAULT_DIGITS = 12
DATES = {
    "date": ["2004-12-31+14:00"],
    "dateTime": ["2004-12-31T12:00:00+14:00"],
    "time": ["12:00:00+14:00"],
    "gYear": ["2004+14:00"],
    "gYearMonth": ["2004-12+14:00"],
    "gMonth": ["--12+14:00"],
    "gMonthDay": ["--12-31+14:00"],
    "gDay": ["---31+14:00"],
    "duration": ["P1D"],
}
OTHERS = {
    "boolean": ["false", "true"],
    "float": ["-1.17549435E-38", "1"],
    "double": ["-2.2250738585072014E-308", "1"],
    "language": ["en"],
}


def is_within(value: str, facets: dict[str, str]) -> bool:
    number = Decimal(value)
    digits = value.lstrip("-").replace(".", "").lstrip("0")
    fraction = value.partition(".")[2]
    return (
        number >= Decimal(facets.get("minInclusive", "-Infinity"))
        and number <= Decimal(facets.get("maxInclusive", "Infinity"))
        and number > Decimal(facets.get("minExclusive", "-Infinity"))
        and number < Decimal(facets.get("maxExclusive", "Infinity"))
        and len(digits) <= int(facets.get("totalDigits", 10**6))
        and len(fraction) <= int(facets.get("fractionDigits", 10**6))
    )


def numbers(facets: dict[str, str]) -> list[str]:
    is_bounded = "totalDigits" in facets or any(each.endswith("clusive") for each in facets)
    total = int(facets.get("totalDigits", DEFAULT_DIGITS if is_bounded else 1))
    fraction = int(facets.get("fractionDigits", min(total, 2)))
    candidates = [facets[each] for each in facets if each.endswith("clusive")]
    for decimals in range(min(total, fraction) + 1):
        for integers in range(total - decimals, -1, -1):
            digits = "9" * integers or "0"
            candidates.append(digits + ("." + "9" * decimals if decimals else ""))
    # Those at the edges: the most digits on each side of the point.
    allowed = [each for each in candidates if is_within(each, facets)]
    negative = ["-" + each for each in candidates if not each.startswith("-")]
    allowed += [each for each in negative if is_within(each, facets) and Decimal(each) != 0]

    def digits_of(each: str) -> tuple[int, int]:
        integer, _, decimals = each.lstrip("-").partition(".")
        return len(integer.lstrip("0")), len(decimals.rstrip("0"))

    edges = []
    for sign in ("", "-"):
        signed = [each for each in allowed if each.startswith("-") == bool(sign)]
        if signed:
            edges.append(max(signed, key=lambda each: digits_of(each)[0]))
            edges.append(max(signed, key=lambda each: digits_of(each)[1]))
            edges.append(max(signed, key=len))
    return list(dict.fromkeys(edges)) or ["0"]


def texts(simple: Simple) -> list[str]:
    bounds = simple.facets
    if simple.patterns:
        found = [longest_match(each) for each in simple.patterns[-1]]
        return [max(found, key=len)]
    most = bounds.get("maxLength", bounds.get("length"))
    least = int(bounds.get("minLength", bounds.get("length", 1)))
    if simple.built_in == "hexBinary":
        return ["0A" * int(most or max(least, 1))]
    if simple.built_in == "base64Binary":
        size = int(most or max(least, 3))
        return ["A" * (size // 3 * 4) + {0: "", 1: "AA==", 2: "AAA="}[size % 3]]
    return ["x" * (min(int(most), MAX_TEXT) if most else max(least, 1))]


def dates(candidates: list[str], facets: dict[str, str]) -> list[str]:
    """Dates of one form compare as texts."""
    bounds = [facets[each] for each in facets if each.endswith("Inclusive")]
    years = [each.replace("2004", year) for each in candidates for year in ("1999", "2001")]

    def may_be_allowed(each: str) -> bool:
        return all(
            each >= bound if facet.startswith("min") else each < bound
            for facet, bound in facets.items()
            if facet.endswith("clusive")
        )

    return bounds or [each for each in [*candidates, *years] if may_be_allowed(each)]


def edges_of(simple: Simple) -> list[str]:
    """Values at the edges of a type; the first of them are the most telling ones."""
    if simple.values:
        most = int(simple.facets.get("maxLength", simple.facets.get("length", MAX_TEXT)))
        values = [each for each in simple.values if len(each) <= most or simple.item]
        return list(dict.fromkeys([max(values, key=len), *values[:2]])) if values else []
    if simple.members:
        return [value for member in simple.members for value in edges_of(member)]
    if simple.item is not None:
        longest = max(edges_of(simple.item), key=len)
        count = int(simple.facets.get("maxLength", simple.facets.get("length", 2)))
        return [" ".join([longest] * count)]
    if "fractionDigits" in simple.facets or simple.built_in == "decimal":
        try:
            return numbers(simple.facets)
        except InvalidOperation:
            return ["0"]
    if simple.built_in in DATES and not simple.patterns:
        return dates(DATES[simple.built_in], simple.facets)
    found = OTHERS.get(simple.built_in)
    return found if found and not simple.patterns else texts(simple)


class Generator:
    """`capacities` has the elements of the record by path, and how many of them it holds."""

    def __init__(self, schemas: Schemas, root: Name, capacities: dict[str, int]) -> None:
        self.schemas = schemas
        self.root = schemas.root_element(root)
        self.capacities = capacities
        self.turns: Counter[str] = Counter()
        self.repeated: str | None = None
        self.repeatable: dict[str, None] = {}  # in the order of finding
        self.count = 0
        self.last_id = ""
        self.edges: dict[int, list[str]] = {}  # by type
        self.heads = self.substitution_groups()

    def document(self, repeated: str | None = None) -> ET.Element:
        """One document, in which the elements at one path occur as often as they may."""
        self.repeated = repeated
        return self.element(self.root, self.root.name.local, 0)

    def turn(self, key: str, count: int) -> int:
        self.turns[key] += 1
        return (self.turns[key] - 1) % count

    def value(self, simple: Simple, path: str, fixed: str | None) -> str:
        if fixed is not None:
            return fixed
        if simple.built_in == "ID":
            self.last_id = self.identifier(simple)
            return self.last_id
        if simple.built_in == "string" and not (simple.facets or simple.patterns or simple.values):
            self.count += 1
            return f"x{self.count}"  # keys are unique
        if simple.built_in == "IDREF" and self.last_id:
            return self.last_id
        edges = self.edges.setdefault(id(simple), []) or edges_of(simple)
        self.edges[id(simple)] = edges
        return edges[self.turn("value " + path, len(edges))]

    def identifier(self, simple: Simple) -> str:
        """A new one; a pattern is kept by a number in the place of its last digits."""
        self.count += 1
        if not simple.patterns:
            return f"id{self.count}"
        text = texts(simple)[0]
        digits = len(text) - len(text.rstrip("0123456789"))
        return text[: len(text) - digits] + str(self.count).zfill(digits)

    def element(self, element: Element, path: str, depth: int) -> ET.Element:
        node = ET.Element(f"{{{element.name.space}}}{element.name.local}".removeprefix("{}"))
        found = self.schemas.type_of(element)
        if isinstance(found, Simple):
            node.text = self.value(found, path, element.fixed)
            return node
        is_known = path in self.capacities
        for name, attribute in found.attributes.items():
            if attribute.required or is_known:
                key = f"{{{name.space}}}{name.local}".removeprefix("{}")
                value = self.value(attribute.type, f"{path}/@{name.local}", attribute.fixed)
                node.set(key, value)
        if found.text is not None:
            node.text = self.value(found.text, path, element.fixed)
        self.fill(node, found, path, depth + 1)
        return node

    def fill(self, node: ET.Element, found: Complex, path: str, depth: int) -> None:
        if depth < MAX_DEPTH:
            for particle in found.content:
                self.emit(node, particle, path, depth)

    def leads(self, path: str) -> bool:
        """Whether the element is, or is around, the one that is repeated."""
        return f"{self.repeated}/".startswith(f"{path}/")

    def holds(self, particle: Particle, path: str) -> bool:
        """Whether the elements that are repeated are made by the particle itself."""
        if particle.element is not None:
            return f"{path}/{particle.element.name.local}" == self.repeated
        return any(self.holds(part, path) for part in particle.parts)

    def is_around(self, particle: Particle, path: str) -> bool:
        """Whether the particle has an element around the one that is repeated."""
        if particle.element is not None:
            return self.leads(f"{path}/{particle.element.name.local}")
        return any(self.is_around(part, path) for part in particle.parts)

    def emit(
        self,
        node: ET.Element,
        particle: Particle,
        path: str,
        depth: int,
        is_repeated: bool = False,
    ) -> None:
        is_repeated = is_repeated or particle.most > 1
        if particle.most == 0:
            return
        if particle.kind == "any":
            node.extend([ET.Element("{urn:other}other") for _ in range(particle.least)])
            return
        if particle.element is not None:
            inner = self.substituted(particle.element, path)
            if is_repeated:
                self.repeatable.setdefault(f"{path}/{inner.name.local}")
            self.emit_elements(node, particle, inner, path, depth)
            return
        is_known = path in self.capacities
        count = max(particle.least, 1 if is_known else 0)
        if self.repeated and particle.most > 1 and self.holds(particle, path):
            count = min(particle.most, self.capacities.get(self.repeated, 1) + 1)
        for _ in range(count):
            if particle.kind == "choice" and particle.parts:
                self.emit(node, self.chosen(particle, path), path, depth, is_repeated)
            else:
                for part in particle.parts:
                    self.emit(node, part, path, depth, is_repeated)

    def chosen(self, particle: Particle, path: str) -> Particle:
        if self.repeated:
            for part in particle.parts:
                if self.holds(part, path) or self.is_around(part, path):
                    return part
        return particle.parts[self.turn(f"choice {id(particle)} {path}", len(particle.parts))]

    def emit_elements(
        self, node: ET.Element, particle: Particle, element: Element, path: str, depth: int
    ) -> None:
        inner = f"{path}/{element.name.local}"
        count = max(particle.least, 1)
        if self.repeated and particle.least == 0 and not self.leads(inner):
            return
        if inner in self.capacities:
            if inner == self.repeated:
                count = min(particle.most, self.capacities[inner] + 1)
        elif particle.least == 0:
            # Once, and only where the record goes on around it.
            if path not in self.capacities or self.turns["lost " + inner]:
                return
            self.turns["lost " + inner] = 1
        for _ in range(count):
            node.append(self.element(element, inner, depth))

    def substituted(self, element: Element, path: str) -> Element:
        """The element or one that may stand for it."""
        if element.name not in self.heads:
            return element
        members = self.heads[element.name]
        return members[self.turn(f"head {element.name} {path}", len(members))]

    def substitution_groups(self) -> dict[Name, list[Element]]:
        """By the name of the head, what may stand in its place."""
        declared = self.schemas.globals["element"]
        direct: dict[Name, list[Name]] = {}
        for name, node in declared.items():
            if given := node.get("substitutionGroup"):
                direct.setdefault(self.schemas.qualified(node, given), []).append(name)
        groups = {}
        for head in direct:
            pending, names = [head], []
            while pending:
                names.append(pending.pop())
                pending += direct.get(names[-1], [])
            groups[head] = [
                Element(name, declared[name], declared[name].get("fixed"))
                for name in names
                if name in declared and declared[name].get("abstract") != "true"
            ]
        return {head: members for head, members in groups.items() if members}
