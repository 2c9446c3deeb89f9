"""Reads schemas into declarations, types and particles, without a library for schemas."""

from __future__ import annotations

import xml.etree.ElementTree as ET
from dataclasses import dataclass, field
from pathlib import Path
from typing import NamedTuple

XS = "{http://www.w3.org/2001/XMLSchema}"
XSD = "http://www.w3.org/2001/XMLSchema"
XML = "http://www.w3.org/XML/1998/namespace"
UNBOUNDED = 10**9
GLOBALS = ("element", "attribute", "complexType", "simpleType", "group", "attributeGroup")
INTEGERS: dict[str, tuple[int | None, int | None]] = {
    "integer": (None, None),
    "long": (-(2**63), 2**63 - 1),
    "int": (-(2**31), 2**31 - 1),
    "short": (-(2**15), 2**15 - 1),
    "byte": (-128, 127),
    "nonNegativeInteger": (0, None),
    "positiveInteger": (1, None),
    "nonPositiveInteger": (None, 0),
    "negativeInteger": (None, -1),
    "unsignedLong": (0, 2**64 - 1),
    "unsignedInt": (0, 2**32 - 1),
    "unsignedShort": (0, 2**16 - 1),
    "unsignedByte": (0, 255),
}
LISTS = {"NMTOKENS": "NMTOKEN", "IDREFS": "IDREF", "ENTITIES": "ENTITY"}


class Name(NamedTuple):
    space: str
    local: str


@dataclass
class Simple:
    """A simple type; `built_in` is the nearest built-in type, empty for lists and unions."""

    built_in: str = "string"
    facets: dict[str, str] = field(default_factory=dict)
    patterns: list[list[str]] = field(default_factory=list)  # a list for each step
    values: list[str] = field(default_factory=list)
    members: list["Simple"] = field(default_factory=list)
    item: "Simple | None" = None


@dataclass
class Attribute:
    name: Name
    type: Simple
    required: bool
    fixed: str | None


@dataclass
class Element:
    name: Name
    node: ET.Element
    fixed: str | None


@dataclass
class Particle:
    kind: str  # element, any, sequence, choice or all
    least: int = 1
    most: int = 1
    element: Element | None = None
    parts: list["Particle"] = field(default_factory=list)


@dataclass
class Complex:
    text: Simple | None = None
    content: list[Particle] = field(default_factory=list)  # one after the other
    attributes: dict[Name, Attribute] = field(default_factory=dict)
    mixed: bool = False


class Schemas:
    """The schema of a file and all that it refers to by a relative location."""

    def __init__(self, path: Path) -> None:
        self.globals: dict[str, dict[Name, ET.Element]] = {kind: {} for kind in GLOBALS}
        self.scopes: dict[ET.Element, tuple[dict[str, str], str, ET.Element]] = {}
        self.types: dict[ET.Element, Simple | Complex] = {}
        self.built_ins: dict[str, Simple | Complex] = {}
        self.no_type = Simple()
        self.seen: set[tuple[Path, str]] = set()
        self.read(path.resolve(), None)

    def read(self, path: Path, taken_on: str | None) -> None:
        if (path, taken_on or "") in self.seen or not path.is_file():
            return
        self.seen.add((path, taken_on or ""))
        prefixes: dict[str, str] = {}
        events = ET.iterparse(path, ["start-ns", "start"])
        for event, value in events:
            if event == "start-ns":
                prefixes.setdefault(value[0], value[1])
        root = events.root  # type: ignore[attr-defined]
        target = root.get("targetNamespace") or taken_on or ""
        for node in root.iter():
            self.scopes[node] = (prefixes, target, root)
        for child in root:
            kind = str(child.tag).removeprefix(XS)
            location = child.get("schemaLocation")
            if kind in ("include", "redefine", "import") and location:
                self.read((path.parent / location).resolve(), None if kind == "import" else target)
            if kind == "redefine":
                for each in child:
                    self.redefine(each, target)
            elif kind in GLOBALS:
                self.globals[kind].setdefault(Name(target, child.get("name", "")), child)

    def redefine(self, node: ET.Element, target: str) -> None:
        """Puts a definition in the place of another one, which keeps a name of its own."""
        kind, name = str(node.tag).removeprefix(XS), Name(target, node.get("name", ""))
        if kind not in GLOBALS or name not in self.globals[kind]:
            return
        first = Name(target, name.local + ".redefined")
        self.globals[kind][first] = self.globals[kind][name]
        self.globals[kind][name] = node
        for inner in node.iter():
            for attribute in ("base", "ref"):
                if self.qualified(inner, inner.get(attribute, "")) == name:
                    prefix, colon, _ = inner.get(attribute, "").rpartition(":")
                    inner.set(attribute, prefix + colon + first.local)

    def qualified(self, node: ET.Element, name: str) -> Name:
        prefixes, target, _ = self.scopes[node]
        prefix, colon, local = name.rpartition(":")
        if prefix == "xml":
            return Name(XML, local)
        space = prefixes.get(prefix, target if not colon else "")
        return Name(space, local)

    def find(self, kind: str, name: Name) -> ET.Element:
        return self.globals[kind][name]

    def root_element(self, name: Name) -> Element:
        node = self.find("element", name)
        return Element(name, node, node.get("fixed"))

    def type_of(self, element: Element) -> Simple | Complex:
        node = element.node
        if "type" in node.attrib:
            return self.named_type(node, node.get("type", ""))
        for child in node:
            if child.tag in (XS + "simpleType", XS + "complexType"):
                return self.type_at(child)
        if head := node.get("substitutionGroup"):
            name = self.qualified(node, head)
            return self.type_of(Element(name, self.find("element", name), None))
        return Complex(mixed=True)

    def named_type(self, node: ET.Element, name: str) -> Simple | Complex:
        qualified = self.qualified(node, name)
        if qualified.space == XSD:
            return self.built_in(qualified.local)
        for kind in ("simpleType", "complexType"):
            if qualified in self.globals[kind]:
                return self.type_at(self.globals[kind][qualified])
        raise KeyError(qualified)

    def built_in(self, local: str) -> Simple | Complex:
        if local not in self.built_ins:
            self.built_ins[local] = self.make_built_in(local)
        return self.built_ins[local]

    def make_built_in(self, local: str) -> Simple | Complex:
        if local == "anyType":
            return Complex(mixed=True)
        if local in LISTS:
            item = self.built_in(LISTS[local])
            assert isinstance(item, Simple)
            return Simple("", item=item)
        simple = Simple(local)
        if local in INTEGERS:
            simple.facets["fractionDigits"] = "0"
            for facet, bound in zip(("minInclusive", "maxInclusive"), INTEGERS[local]):
                if bound is not None:
                    simple.facets[facet] = str(bound)
        return simple

    def type_at(self, node: ET.Element) -> Simple | Complex:
        if node not in self.types:
            is_simple = node.tag == XS + "simpleType"
            self.types[node] = self.simple_at(node) if is_simple else self.complex_at(node)
        return self.types[node]

    def simple(self, found: Simple | Complex) -> Simple:
        if isinstance(found, Simple):
            return found
        return found.text or self.no_type

    def simple_at(self, node: ET.Element) -> Simple:
        child = next(each for each in node if each.tag != XS + "annotation")
        inner = [self.simple(self.type_at(each)) for each in child.findall(XS + "simpleType")]
        if child.tag == XS + "list":
            item = inner[0] if inner else self.named_type(child, child.get("itemType", ""))
            return Simple("", item=self.simple(item))
        if child.tag == XS + "union":
            named = [
                self.simple(self.named_type(child, each))
                for each in child.get("memberTypes", "").split()
            ]
            return Simple("", members=named + inner)
        base = inner[0] if inner else self.simple(self.named_type(child, child.get("base", "")))
        return self.restricted(base, child)

    def restricted(self, base: Simple, restriction: ET.Element) -> Simple:
        facets, patterns, values = dict(base.facets), [], []
        for facet in restriction:
            kind, value = str(facet.tag).removeprefix(XS), facet.get("value", "")
            if kind == "pattern":
                patterns.append(value)
            elif kind == "enumeration":
                values.append(value)
            elif value:
                facets[kind] = value
        steps = base.patterns + ([patterns] if patterns else [])
        return Simple(base.built_in, facets, steps, values or base.values, base.members, base.item)

    def complex_at(self, node: ET.Element) -> Complex:
        result = Complex(mixed=node.get("mixed") == "true")
        self.types[node] = result  # types may contain themselves
        for child in node:
            if child.tag in (XS + "simpleContent", XS + "complexContent"):
                derivation = next(
                    e for e in child if e.tag in (XS + "extension", XS + "restriction")
                )
                self.derive(result, child, derivation)
                return result
        self.add_content(result, node)
        return result

    def derive(self, result: Complex, content: ET.Element, derivation: ET.Element) -> None:
        base = self.named_type(derivation, derivation.get("base", ""))
        is_extension = derivation.tag == XS + "extension"
        if isinstance(base, Complex):
            result.attributes.update(base.attributes)
        if content.tag == XS + "simpleContent":
            inner = [self.type_at(each) for each in derivation.findall(XS + "simpleType")]
            text = self.simple(inner[0] if inner else base)
            result.text = text if is_extension else self.restricted(text, derivation)
        else:
            assert isinstance(base, Complex)
            result.mixed = content.get("mixed") == "true" or (is_extension and base.mixed)
            result.content = list(base.content) if is_extension else []
        self.add_content(result, derivation)

    def add_content(self, result: Complex, node: ET.Element) -> None:
        for child in node:
            kind = str(child.tag).removeprefix(XS)
            if kind in ("sequence", "choice", "all", "group"):
                result.content.append(self.particle(child))
            elif kind == "attribute":
                self.add_attribute(result, child)
            elif kind == "attributeGroup":
                name = self.qualified(child, child.get("ref", ""))
                self.add_content(result, self.find("attributeGroup", name))

    def add_attribute(self, result: Complex, node: ET.Element) -> None:
        declared, name = node, Name(self.local_space(node, "attribute"), node.get("name", ""))
        if "ref" in node.attrib:
            name = self.qualified(node, node.get("ref", ""))
            if name not in self.globals["attribute"]:
                return
            declared = self.find("attribute", name)
        if node.get("use") == "prohibited":
            result.attributes.pop(name, None)
            return
        inner = declared.find(XS + "simpleType")
        if inner is not None:
            found = self.type_at(inner)
        else:
            given = declared.get("type")
            found = self.named_type(declared, given) if given else self.no_type
        fixed = node.get("fixed") or declared.get("fixed")
        required = node.get("use") == "required"
        result.attributes[name] = Attribute(name, self.simple(found), required, fixed)

    def local_space(self, node: ET.Element, kind: str) -> str:
        _, target, root = self.scopes[node]
        form = node.get("form") or root.get(f"{kind}FormDefault") or "unqualified"
        return target if form == "qualified" else ""

    def particle(self, node: ET.Element) -> Particle:
        kind = str(node.tag).removeprefix(XS)
        most = node.get("maxOccurs", "1")
        least = int(node.get("minOccurs", "1"))
        particle = Particle(kind, least, UNBOUNDED if most == "unbounded" else int(most))
        if kind == "element":
            declared, name = node, Name(self.local_space(node, "element"), node.get("name", ""))
            if "ref" in node.attrib:
                name = self.qualified(node, node.get("ref", ""))
                declared = self.find("element", name)
            particle.element = Element(name, declared, declared.get("fixed"))
        elif kind == "group":
            particle.kind = "sequence"
            group = self.find("group", self.qualified(node, node.get("ref", "")))
            particle.parts = self.particles_in(group)
        else:
            particle.parts = self.particles_in(node)
        return particle

    def particles_in(self, node: ET.Element) -> list[Particle]:
        kinds = {XS + kind for kind in ("element", "any", "sequence", "choice", "all", "group")}
        return [self.particle(child) for child in node if child.tag in kinds]
