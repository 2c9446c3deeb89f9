"""Makes random schemas of several files whose components refer to each other in circles.

Most of them are valid. The others show what a library that reports no error lets through.
"""

from __future__ import annotations

from collections.abc import Callable, Iterable
from pathlib import Path
from random import Random

MAIN = "main.xsd"
HEAD = '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema"'
NAMESPACES = {"a": "urn:a", "b": "urn:b"}
BUILTINS = ["xs:string", "xs:int", "xs:decimal"]
UNCONVERTIBLE = "xs:NMTOKENS"  # an element of this type is left out of the record
KINDS = {"complexType": "t", "simpleType": "s", "group": "g", "attributeGroup": "h"}
KINDS |= {"element": "e", "attribute": "u"}


class RecursiveSchemaMaker:
    """Makes the files of one schema. The same seed makes the same files."""

    def __init__(self, seed: int) -> None:
        self.random = Random(seed)
        self.has_namespaces = self.likely(60)
        self.files = [MAIN] + [f"a{i}.xsd" for i in range(self.random.randint(0, 2))]
        self.imported = self.random.choice([[], ["b0.xsd"], ["b0.xsd", "b1.xsd"]])
        if not self.has_namespaces:
            self.imported = []
        self.redefined = self.files[-1] if len(self.files) > 1 and self.likely(40) else ""
        # For each kind, the file of each component. The number is part of its name.
        self.owners = {kind: self.some_owners(kind) for kind in KINDS}
        self.file = MAIN  # that is being written
        self.locals = 0
        # Complex types with simple content, and simple types that take facets of texts.
        self.simple_content = {i for i in self.numbers("complexType") if self.likely(30)}
        self.texts = {i for i in self.numbers("simpleType") if self.likely(50)}
        self.heads = self.some_heads()
        self.element_types = self.some_element_types()

    def likely(self, percent: int) -> bool:
        return self.random.randrange(100) < percent

    def some_owners(self, kind: str) -> list[str]:
        count = self.random.randint(2, 7) if kind == "complexType" else self.random.randint(1, 3)
        return [self.random.choice(self.files + self.imported) for _ in range(count)]

    def prefix(self, file: str) -> str:
        return f"{file[0] if file != MAIN else 'a'}:" if self.has_namespaces else ""

    def numbers(self, kind: str) -> range:
        return range(len(self.owners[kind]))

    def name(self, kind: str, number: int) -> str:
        return self.prefix(self.owners[kind][number]) + f"{KINDS[kind]}{number}"

    def visible(self) -> list[str]:
        """The files whose components the file can name."""
        if self.file in self.imported:
            return self.imported
        own = [self.redefined] if self.file == self.redefined else self.files
        return own + self.imported

    def some_name(self, kind: str, numbers: Iterable[int], otherwise: str = "") -> str:
        """One of the components of these numbers that the file may refer to."""
        known = [
            self.name(kind, number)
            for number in numbers
            if self.owners[kind][number] in self.visible()
        ]
        return self.random.choice(known) if known else otherwise

    def any_name(self, kind: str, otherwise: str = "") -> str:
        return self.some_name(kind, self.numbers(kind), otherwise)

    def lower_name(self, kind: str, number: int, otherwise: str = "") -> str:
        """A component before the one of this number, as the library wants no circles here."""
        numbers = self.numbers(kind) if self.likely(1) else range(number)
        return self.some_name(kind, numbers, otherwise)

    def some_heads(self) -> dict[int, int]:
        """The elements that are in a substitution group, with the heads."""
        return {
            i: self.random.randrange(i) for i in self.numbers("element") if i and self.likely(40)
        }

    def some_element_types(self) -> list[str]:
        """The types of the global elements; those of a substitution group have one type."""
        types: list[str] = []
        for number, owner in enumerate(self.owners["element"]):
            self.file = owner
            own = "" if self.likely(30) else self.any_type()
            types.append(types[self.heads[number]] if number in self.heads else own)
        return types

    def repeat(self, most: int, part: Callable[[], str]) -> str:
        return "".join(part() for _ in range(self.random.randint(0, most)))

    # Declarations

    def any_type(self) -> str:
        if self.likely(60):
            return self.any_name("complexType", "xs:string")
        if self.likely(30):
            return self.any_name("simpleType", "xs:string")
        return UNCONVERTIBLE if self.likely(40) else self.random.choice(BUILTINS)

    def local_element(self, depth: int) -> str:
        self.locals += 1
        name = f"l{self.locals}"
        if self.likely(10):  # named as a head of a substitution group may be
            name = f"e{self.random.randrange(3)}"
        start = f'<xs:element name="{name}" minOccurs="0"'
        if depth < 3 and self.likely(25):
            return f"{start}>{self.inline_type(depth + 1)}</xs:element>"
        return f'{start} type="{self.any_type()}"/>'

    def element_reference(self) -> str:
        name = self.any_name("element")
        return f'<xs:element ref="{name}" minOccurs="0"/>' if name else ""

    def group_reference(self, number: int) -> str:
        name = self.lower_name("group", number)
        return f'<xs:group ref="{name}" minOccurs="0"/>' if name else ""

    def particle(self, depth: int, groups: int) -> str:
        choice = self.random.randrange(100)
        if choice < 50:
            return self.local_element(depth)
        if choice < 65:
            return self.element_reference()
        if choice < 85:
            return self.group_reference(groups)
        return self.model(depth + 1, groups) if depth < 3 else ""

    def model(self, depth: int, groups: int | None = None) -> str:
        """A model group that refers to groups of lower numbers."""
        numbers = len(self.owners["group"]) if groups is None else groups
        kind = self.random.choice(["sequence", "sequence", "choice"])
        return f"<xs:{kind}>{self.repeat(3, lambda: self.particle(depth, numbers))}</xs:{kind}>"

    def attribute(self, groups: int) -> str:
        if self.likely(30):
            name = self.lower_name("attributeGroup", groups)
            return f'<xs:attributeGroup ref="{name}"/>' if name else ""
        if self.likely(20):
            name = self.any_name("attribute")
            return f'<xs:attribute ref="{name}"/>' if name else ""
        self.locals += 1
        kind = self.random.choice(BUILTINS)
        if self.likely(50):
            kind = self.any_name("simpleType", kind)
        return f'<xs:attribute name="l{self.locals}" type="{kind}"/>'

    def attributes(self) -> str:
        return self.repeat(1, lambda: self.attribute(len(self.owners["attributeGroup"])))

    # Type definitions

    def inline_type(self, depth: int) -> str:
        content = self.complex_content(len(self.owners["complexType"]), depth)
        return f"<xs:complexType>{content}</xs:complexType>"

    def complex_type(self, number: int) -> str:
        is_simple = number in self.simple_content
        content = self.simple_content_of(number) if is_simple else self.complex_content(number, 0)
        return f'<xs:complexType name="t{number}">{content}</xs:complexType>'

    def simple_content_of(self, number: int) -> str:
        base = self.some_name("complexType", self.simple_content & set(range(number)))
        if base and self.likely(40):
            return derived("simpleContent", "restriction", base, "")
        if not base or self.likely(50):
            base = self.any_name("simpleType", "xs:string") if self.likely(40) else "xs:string"
        return derived("simpleContent", "extension", base, self.attributes())

    def complex_content(self, number: int, depth: int) -> str:
        own = self.model(depth) + self.attributes()
        base = self.lower_name("complexType", number)
        if base and self.likely(55):
            return derived("complexContent", "extension", base, own)
        base = self.some_name("complexType", set(range(number)) - self.simple_content)
        if base and self.likely(20):
            own = self.model(depth) if self.likely(70) else ""
            return derived("complexContent", "restriction", base, own)
        return own

    def simple_type(self, number: int, is_inline: bool = False) -> str:
        naming = "" if is_inline else f' name="s{number}"'
        base = self.lower_name("simpleType", number, "xs:string")
        if number in self.texts:
            base = self.some_name("simpleType", self.texts & set(range(number)), "xs:string")
            inner = f'<xs:restriction base="{base}">{self.facets()}</xs:restriction>'
        elif self.likely(40):
            other = self.lower_name("simpleType", number, "xs:int")
            inner = f'<xs:union memberTypes="{base} {other}"/>'
        elif self.likely(60):
            own = self.simple_type(number, is_inline=True) if self.likely(60) else ""
            inner = f'<xs:union memberTypes="{base}">{own}</xs:union>'
        else:
            inner = f'<xs:list itemType="{self.random.choice(BUILTINS)}"/>'
        return f"<xs:simpleType{naming}>{inner}</xs:simpleType>"

    def facets(self) -> str:
        values = [f'<xs:enumeration value="{c}"/>' for c in "abc"] if self.likely(40) else []
        return "".join(values) + ('<xs:maxLength value="9"/>' if self.likely(30) else "")

    # Global components

    def global_element(self, number: int) -> str:
        start = f'<xs:element name="e{number}"'
        if number in self.heads:
            start += f' substitutionGroup="{self.name("element", self.heads[number])}"'
        kind = self.element_types[number]
        if kind:
            return f'{start} type="{kind}"/>'
        return (
            f"{start}/>" if number in self.heads else f"{start}>{self.inline_type(0)}</xs:element>"
        )

    def component(self, kind: str, number: int) -> str:
        if kind == "complexType":
            return self.complex_type(number)
        if kind == "simpleType":
            return self.simple_type(number)
        if kind == "element":
            return self.global_element(number)
        if kind == "attribute":
            own = self.any_name("simpleType", "xs:string")
            return f'<xs:attribute name="u{number}" type="{own}"/>'
        inner = self.attribute(number) if kind == "attributeGroup" else self.model(1, number)
        return f'<xs:{kind} name="{KINDS[kind]}{number}">{inner}</xs:{kind}>'

    def redefinition(self) -> str:
        """A redefine of the file with new versions of some of its types and groups."""
        inner = ""
        for kind in ("complexType", "group"):
            for number, owner in enumerate(self.owners[kind]):
                if owner != self.redefined or not self.likely(50):
                    continue
                name = self.name(kind, number)
                content = self.model(0, number if kind == "group" else None)
                if kind == "group":
                    content = f'<xs:sequence><xs:group ref="{name}"/>{content}</xs:sequence>'
                else:
                    content = derived("complexContent", "extension", name, content)
                inner += f'<xs:{kind} name="{KINDS[kind]}{number}">{content}</xs:{kind}>'
        return f'<xs:redefine schemaLocation="{self.redefined}">{inner}</xs:redefine>'

    def references(self, file: str) -> str:
        """The includes, imports and redefines of a file."""
        if file in self.imported:
            others = [each for each in self.imported if each != file]
            return "".join(f'<xs:include schemaLocation="{other}"/>' for other in others)
        text = ""
        for other in self.files if file != self.redefined else []:
            if other == self.redefined:
                text += self.redefinition() if file == MAIN else ""
            elif other != file and (file == MAIN or other == MAIN or self.likely(50)):
                text += f'<xs:include schemaLocation="{other}"/>'
        for other in self.imported[:1]:
            text += f'<xs:import namespace="{NAMESPACES["b"]}" schemaLocation="{other}"/>'
        return text

    def schema(self, file: str) -> str:
        self.file = file
        text = HEAD
        if self.has_namespaces:
            text += "".join(f' xmlns:{key}="{uri}"' for key, uri in NAMESPACES.items())
            text += f' targetNamespace="{NAMESPACES[self.prefix(file)[0]]}"'
        text += f">{self.references(file)}"
        head = f'<xs:element name="head" type="{self.any_type()}"/>'
        components = [head, '<xs:element name="plain" type="xs:string"/>'] if file == MAIN else []
        for kind, owners in self.owners.items():
            for number, owner in enumerate(owners):
                if owner == file:
                    components.append(self.component(kind, number))
        self.random.shuffle(components)
        return text + "\n".join(["", *components, "</xs:schema>", ""])

    def write(self, directory: Path) -> None:
        for file in self.files + self.imported:
            (directory / file).write_text(self.schema(file), encoding="utf-8")


def derived(content: str, derivation: str, base: str, inner: str) -> str:
    return f'<xs:{content}><xs:{derivation} base="{base}">{inner}</xs:{derivation}></xs:{content}>'
