"""The judge tells what the XML library accepts from what it reports."""

from __future__ import annotations

from pathlib import Path

import pytest
from judges.xml_library import library_verdict

SCHEMA = (
    '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">'
    '<xs:element name="count" type="xs:{}"/></xs:schema>'
)
INSTANCE = 'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"'
LOCATION = f'{INSTANCE} xsi:noNamespaceSchemaLocation="a.xsd"'
UNREACHABLE = f'{INSTANCE} xsi:noNamespaceSchemaLocation="http://127.0.0.1:9/a.xsd"'


@pytest.mark.parametrize(("type_name", "is_clean"), [("int", True), ("nothing", False)])
def test_a_schema_is_clean_if_its_types_are_known(
    tmp_path: Path, type_name: str, is_clean: bool
) -> None:
    schema = tmp_path / "a.xsd"
    schema.write_text(SCHEMA.format(type_name), encoding="utf-8")
    assert (sum(library_verdict(schema)) == 0) == is_clean


@pytest.mark.parametrize(
    ("document", "errors"),
    [
        (f"<count {LOCATION}>1</count>", 0),
        (f"<count {LOCATION}>one</count>", 1),
        (f"<count {LOCATION}>1", 2),  # each of the two readings finds that it is not closed
    ],
)
def test_a_document_is_clean_if_its_schema_is_met(
    tmp_path: Path, document: str, errors: int
) -> None:
    (tmp_path / "a.xsd").write_text(SCHEMA.format("int"), encoding="utf-8")
    file = tmp_path / "a.xml"
    file.write_text(document, encoding="utf-8")
    assert library_verdict(file).errors == errors


def test_no_host_can_be_reached(tmp_path: Path) -> None:
    file = tmp_path / "a.xml"
    file.write_text(f"<count {UNREACHABLE}>1</count>", encoding="utf-8")
    assert library_verdict(file) == (2, 0)  # the host, and the schema that is missing
