"""Stores documents in a record, value by value, and says which values do not fit.

The items are those of `fdrec show --json`.
"""

from __future__ import annotations

import re
import xml.etree.ElementTree as ET
from collections import Counter, defaultdict
from dataclasses import dataclass, field
from typing import Any

NUMBER = re.compile(r"[+-]?(\d+\.?\d*|\.\d+)\Z")
FLOAT = re.compile(r"([+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?|-?INF|NaN)\Z")
RUN = re.compile(r"(.)\((\d+)\)")
PRECISION = {"comp-1": 6, "comp-2": 15}
WRONG_CATEGORY = 100

Fault = tuple[str, str]  # path and code


def written_out(picture: str) -> str:
    return RUN.sub(lambda run: run[1] * int(run[2]), picture.upper())


def faults_of_number(text: str, picture: str) -> list[str]:
    text = text.strip()
    if not NUMBER.match(text):
        return ["digits" if FLOAT.match(text) else "category"]
    integer, _, fraction = text.lstrip("+-").partition(".")
    integer, fraction = integer.lstrip("0"), fraction.rstrip("0")
    before, _, after = picture.lstrip("S").partition("V")
    faults = []
    if len(integer) > before.count("9"):
        faults.append("digits")
    if len(fraction) > after.count("9"):
        faults.append("fraction")
    if text.startswith("-") and (integer or fraction) and not picture.startswith("S"):
        faults.append("sign")
    return faults


def faults_of(text: str, item: dict[str, Any]) -> list[str]:
    """The codes of what is wrong with a text in an elementary item."""
    usage = item.get("usage", "display")
    if item["length"] == 0:
        return ["text"] if text else []
    if usage in PRECISION:
        if not FLOAT.match(text.strip()):
            return ["category"]
        digits = text.strip().lstrip("+-0.").replace(".", "")
        is_long = NUMBER.match(text.strip()) and len(digits) > PRECISION[usage]
        is_double = "E-308" in text and usage == "comp-1"
        return ["digits"] if is_long or is_double else []
    picture = written_out(item["picture"])
    if "9" in picture:
        return faults_of_number(text, picture)
    return ["length"] if len(text.rstrip(" ")) > len(picture) else []


def local(tag: str) -> str:
    return tag.rpartition("}")[2]


@dataclass
class Record:
    """The items of a record by the path of what they hold."""

    texts: dict[str, list[dict[str, Any]]] = field(default_factory=lambda: defaultdict(list))
    capacities: Counter[str] = field(default_factory=Counter)  # of elements
    attributes: set[str] = field(default_factory=set)

    @classmethod
    def of(cls, items: list[dict[str, Any]]) -> "Record":
        record = cls()
        for item in items:
            path, role = item.get("path", ""), item["role"]
            is_group = "picture" not in item and item["length"] > 0 and "usage" not in item
            if role == "element":
                record.capacities[path] += item.get("occurs", {}).get("max", 1)
            if role == "attribute":
                record.attributes.add(path)
            if role == "text" or (role in ("element", "attribute") and not is_group):
                record.texts[path].append(item)
        return record

    def faults_of_text(self, path: str, text: str) -> list[str]:
        """Those of the view that takes it best."""
        if path not in self.texts:
            return ["text"] if text else []
        views = [faults_of(text, item) for item in self.texts[path]]
        return min(views, key=lambda each: len(each) + WRONG_CATEGORY * each.count("category"))

    def judge(self, node: ET.Element, path: str, found: set[Fault]) -> None:
        """Adds what is wrong with an element that has an item."""
        for name, value in node.attrib.items():
            inner = f"{path}/@{local(name)}"
            if inner not in self.attributes:
                found.add((inner, "no-item"))
                continue
            found.update((inner, code) for code in self.faults_of_text(inner, value))
        if node.text:
            found.update((path, code) for code in self.faults_of_text(path, node.text))
        counts = Counter(local(child.tag) for child in node)
        for name, count in counts.items():
            inner = f"{path}/{name}"
            if inner not in self.capacities:
                found.add((inner, "no-item"))
            elif count > self.capacities[inner]:
                found.add((inner, "occurs"))
        for child in node:
            inner = f"{path}/{local(child.tag)}"
            if inner in self.capacities:
                self.judge(child, inner, found)
