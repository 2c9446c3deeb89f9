"""Tables that put input and expected output of a case side by side."""

from __future__ import annotations

import re
import xml.etree.ElementTree as ElementTree
from pathlib import Path

SCHEMA = "{http://www.w3.org/2001/XMLSchema}"
MARGIN = 7  # columns before the text of a line in fixed format
CLAUSES = {"PIC", "PICTURE", "USAGE", "OCCURS", "VALUE", "REDEFINES"}


def code(text: str) -> str:
    return f"`{text}`" if text else ""


def table(head: list[str], rows: list[list[str]]) -> list[str]:
    lines = [head, ["---"] * len(head), *rows]
    return ["| " + " | ".join(cell.replace("|", "\\|") for cell in row) + " |" for row in lines]


def logical_lines(text: str) -> list[str]:
    """The entries of COBOL text in fixed format, each on one line."""
    words = " ".join(" ".join(line[MARGIN:].split()) for line in text.splitlines() if line[MARGIN:])
    return [entry + "." for entry in re.split(r"\.(?:\s+|$)", words) if entry]


def name_of(entry: str) -> str:
    words = entry.rstrip(".").split()
    if len(words) < 2 or words[1].upper() in CLAUSES:
        return "FILLER"
    return words[1]


def describe(element: ElementTree.Element) -> str:
    """What a schema says of an element or attribute, in words."""
    parts = []
    restriction = element.find(f"{SCHEMA}simpleType/{SCHEMA}restriction")
    if "type" in element.attrib:
        parts.append(element.attrib["type"])
    elif restriction is not None:
        parts.append(restriction.attrib["base"])
        parts += [
            f"{facet.tag.removeprefix(SCHEMA)} {facet.attrib['value']}" for facet in restriction
        ]
    elif element.find(f"{SCHEMA}complexType") is not None:
        parts.append("sequence")
    parts += [
        f"{name} {element.attrib[name]}"
        for name in ("minOccurs", "maxOccurs")
        if name in element.attrib
    ]
    return ", ".join(parts)


def descriptions(schema: Path) -> dict[str, str]:
    """What the schema says of each element, by name."""
    root = ElementTree.parse(schema).getroot()
    return {each.attrib["name"]: describe(each) for each in root.iter(f"{SCHEMA}element")}


def entries_table(folder: Path) -> list[str]:
    """Each entry of a copybook with its element and its entry in the copybook that is written."""
    files = folder / "files"
    elements = descriptions(files / "a.xsd")
    written: dict[str, list[str]] = {}
    for entry in logical_lines((files / "a-fdmorph.cpy").read_text(encoding="utf-8")):
        written.setdefault(name_of(entry), []).append(entry)
    rows = []
    for entry in logical_lines((folder / "input" / "a.cpy").read_text(encoding="utf-8")):
        name = name_of(entry)
        copy = written[name].pop(0) if written.get(name) else ""
        rows.append([code(entry), elements.get(name, ""), code(copy)])
    return table(["COBOL", "XML Schema", "Copybook with XML clauses"], rows)


def items_of_elements(folder: Path) -> list[tuple[ElementTree.Element, str]]:
    """The elements of a schema below the first, with level and clauses of their items."""
    written = logical_lines((folder / "files" / "a.cpy").read_text(encoding="utf-8"))
    found = {name_of(entry): entry.split(" identified by ")[0] for entry in written[1:]}
    root = ElementTree.parse(folder / "input" / "a.xsd").getroot()
    elements = list(root.iter(f"{SCHEMA}element"))
    return [(each, found[each.attrib["name"]]) for each in elements if each.get("name") in found]


def elements_table(folder: Path) -> list[str]:
    """What a schema says of each element, with its item."""
    rows = []
    for element, entry in items_of_elements(folder):
        name = code(element.attrib["name"])
        rows.append([name, describe(element).replace("xsd:", "").replace("xs:", ""), code(entry)])
    return table(["Element", "Type", "Item"], rows)


def types_table(folder: Path) -> list[str]:
    """The types of elements by the clause of their items."""
    clauses: dict[str, list[str]] = {}
    for element, entry in items_of_elements(folder):
        clause = entry.split(" ", 2)[2]
        clauses.setdefault(clause, []).append(element.attrib["type"].partition(":")[2])
    rows = [
        [", ".join(code(each) for each in types), code(clause)] for clause, types in clauses.items()
    ]
    return table(["Types", "Item"], rows)
