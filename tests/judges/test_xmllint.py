"""xmllint tells valid documents, refused documents and refused schemas apart."""

from __future__ import annotations

from pathlib import Path

import pytest
from judges.xmllint import DOCUMENT_REFUSED, NEEDS_XMLLINT, SCHEMA_REFUSED, VALID, validate

SCHEMA = (
    '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">'
    '<xs:element name="count" type="xs:{}"/></xs:schema>'
)


@NEEDS_XMLLINT
@pytest.mark.parametrize(
    ("type_name", "document", "status"),
    [
        ("int", "<count>1</count>", VALID),
        ("int", "<count>one</count>", DOCUMENT_REFUSED),
        ("int", "<other/>", DOCUMENT_REFUSED),
        ("nothing", "<count>1</count>", SCHEMA_REFUSED),
    ],
)
def test_the_status_names_the_cause(
    tmp_path: Path, type_name: str, document: str, status: int
) -> None:
    schema, file = tmp_path / "a.xsd", tmp_path / "a.xml"
    schema.write_text(SCHEMA.format(type_name), encoding="utf-8")
    file.write_text(document, encoding="utf-8")
    assert validate(schema, file)[0] == status
