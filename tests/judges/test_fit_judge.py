"""The judge of fdrec check: what it reads, makes and rejects."""

from __future__ import annotations

import xml.etree.ElementTree as ET
from pathlib import Path
from typing import Any

import pytest
from judges.record_fit import Fault, Record, faults_of
from judges.regular_texts import longest_match
from judges.schema_edges import Generator, edges_of
from judges.schema_reading import Name, Schemas, Simple

SCHEMA = """<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:element name="r">
    <xs:complexType>
      <xs:sequence>
        <xs:element name="a" maxOccurs="3">
          <xs:simpleType>
            <xs:restriction base="xs:string"><xs:maxLength value="4"/></xs:restriction>
          </xs:simpleType>
        </xs:element>
        <xs:choice><xs:element name="b" type="xs:byte"/><xs:element name="c"/></xs:choice>
      </xs:sequence>
      <xs:attribute name="x" type="xs:boolean"/>
    </xs:complexType>
  </xs:element>
</xs:schema>
"""
GOOD: list[dict[str, Any]] = [
    {"path": "r", "role": "element", "length": 20},
    {"path": "r/a", "role": "element", "length": 4, "picture": "X(4)", "occurs": {"max": 3}},
    {"path": "r/b", "role": "element", "length": 3, "picture": "S999"},
    {"path": "r/c", "role": "element", "length": 9, "picture": "X(9)"},
    {"path": "r/@x", "role": "attribute", "length": 5, "picture": "X(5)"},
]


def changed(path: str, **changes: Any) -> list[dict[str, Any]]:
    return [item | changes if item["path"] == path else item for item in GOOD]


def judged(schema: Path, items: list[dict[str, Any]]) -> set[Fault]:
    record = Record.of(items)
    generator = Generator(Schemas(schema), Name("", "r"), dict(record.capacities))
    documents = [generator.document() for _ in range(12)]
    documents += [generator.document(path) for path in list(generator.repeatable)]
    faults: set[Fault] = set()
    for document in documents:
        record.judge(document, "r", faults)
    return faults


@pytest.fixture(name="schema")
def fixture_schema(tmp_path: Path) -> Path:
    path = tmp_path / "a.xsd"
    path.write_text(SCHEMA)
    return path


def test_a_record_that_fits_has_no_faults(schema: Path) -> None:
    assert judged(schema, GOOD) == set()


@pytest.mark.parametrize(
    ("items", "fault"),
    [
        (changed("r/a", picture="X(3)"), ("r/a", "length")),
        (changed("r/a", occurs={"max": 2}), ("r/a", "occurs")),
        (changed("r/b", picture="S99"), ("r/b", "digits")),
        (changed("r/b", picture="999"), ("r/b", "sign")),
        (changed("r/@x", picture="X(4)"), ("r/@x", "length")),
        (changed("r/@x", picture="9"), ("r/@x", "category")),
        ([item for item in GOOD if item["path"] != "r/c"], ("r/c", "no-item")),
        ([item for item in GOOD if item["path"] != "r/@x"], ("r/@x", "no-item")),
        (changed("r/b", length=0), ("r/b", "text")),
    ],
)
def test_each_planted_fault_is_found(
    schema: Path, items: list[dict[str, Any]], fault: Fault
) -> None:
    assert judged(schema, items) == {fault}


def test_values_are_at_the_edges_of_their_type() -> None:
    amount = Simple("decimal", {"totalDigits": "5", "fractionDigits": "2", "minInclusive": "0"})
    assert edges_of(amount) == ["99999", "999.99", "9999.9"]
    assert edges_of(Simple("string", {"maxLength": "3"})) == ["xxx"]
    assert edges_of(Simple("hexBinary", {"maxLength": "2"})) == ["0A0A"]
    assert edges_of(Simple("", item=Simple("string", {"length": "2"}))) == ["xx xx"]


@pytest.mark.parametrize(
    ("pattern", "text"),
    [
        ("[A-Z]{2,2}[0-9]{1,3}", "AA000"),
        ("a|bcd|ef", "bcd"),
        (r"(CAN|CVE)\-\d{4}", "CAN-7777"),
        (r"[^a]x?\.", "~x."),
        (r"\p{Lu}+", "AAA"),
    ],
)
def test_texts_match_their_patterns(pattern: str, text: str) -> None:
    assert longest_match(pattern) == text


def test_texts_are_stored_as_the_item_takes_them() -> None:
    assert faults_of("007.50", {"length": 3, "picture": "9V9"}) == []
    assert faults_of("12.345", {"length": 3, "picture": "9V99"}) == ["digits", "fraction"]
    assert faults_of("-0", {"length": 1, "picture": "9"}) == []
    assert faults_of("ab  ", {"length": 2, "picture": "XX"}) == []
    assert faults_of("1E5", {"length": 4, "usage": "comp-1"}) == []
    assert faults_of("x", {"length": 4, "usage": "comp-1"}) == ["category"]


def test_a_document_has_the_elements_that_are_repeated(schema: Path) -> None:
    generator = Generator(Schemas(schema), Name("", "r"), dict(Record.of(GOOD).capacities))
    document: ET.Element = generator.document("r/a")
    assert [child.tag for child in document][:3] == ["a", "a", "a"]
