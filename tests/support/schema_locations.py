"""Finds the schemas that a document or a schema names, and adds such a name to a document."""

from __future__ import annotations

import csv
import re
from functools import cache
from pathlib import Path
from typing import NamedTuple
from xml.etree import ElementTree

LOCATION = re.compile(r"""[sS]chemaLocation\s*=\s*(["'])(.*?)\1""", re.DOTALL)
ROOT_TAG = re.compile(r"(?:\s|<!--.*?-->|<\?.*?\?>|<![A-Z][^>]*>)*<[^\s/>!?]+", re.DOTALL)
INSTANCE_NAMESPACE = "http://www.w3.org/2001/XMLSchema-instance"


class Instance(NamedTuple):
    document: Path
    schema: Path
    valid: bool


def listed_instances(listing: Path) -> list[Instance]:
    """The rows of a table of instance documents. Their paths are relative to the table."""
    with listing.open(encoding="utf-8", newline="") as rows:
        return [
            Instance(
                listing.parent / row["instance"],
                listing.parent / row["schema"],
                row["expected"] == "valid",
            )
            for row in csv.DictReader(rows, delimiter="\t")
        ]


def schema_locations(path: Path) -> list[str]:
    text = path.read_text(encoding="utf-8", errors="replace")
    values = [match[2].split() for match in LOCATION.finditer(text)]
    # A list of pairs of namespace and location, or a location alone.
    return [location for value in values for location in value[1::2] or value]


def needs_network(path: Path) -> bool:
    """Whether the file names a schema that has to be fetched from elsewhere."""
    return any("://" in location for location in schema_locations(path))


@cache
def files_referred_to(schema: Path) -> frozenset[Path]:
    """All files that the schema refers to, directly or through other files."""
    reached: set[Path] = set()
    waiting = [schema]
    while waiting:
        path = waiting.pop()
        named = {(path.parent / location).resolve() for location in schema_locations(path)}
        found = {target for target in named - reached if target.is_file()}
        reached |= found
        waiting += found
    return frozenset(reached)


def copy_with_schema(instance: Instance, directory: Path) -> Path:
    """Makes a copy of the document that names the schema."""
    namespace = ElementTree.parse(instance.schema).getroot().get("targetNamespace")
    location = instance.schema.as_uri()
    named = (
        f'xsi:schemaLocation="{namespace} {location}"'
        if namespace
        else f'xsi:noNamespaceSchemaLocation="{location}"'
    )
    text = instance.document.read_text(encoding="utf-8")
    root = ROOT_TAG.match(text)
    assert root, f"{instance.document} has no root element"
    copy = directory / instance.document.name
    copy.write_text(
        f'{root[0]} xmlns:xsi="{INSTANCE_NAMESPACE}" {named}{text[root.end() :]}', encoding="utf-8"
    )
    return copy
