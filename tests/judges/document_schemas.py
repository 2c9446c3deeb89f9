"""Validates documents against the schemas that `fdrec schema` writes.

XML documents are judged by xmllint and by the XML library, JSON by python3-jsonschema. The two
judges of XML must agree.
"""

from __future__ import annotations

import json
import re
from pathlib import Path
from typing import Any

from judges.xmllint import DOCUMENT_REFUSED, VALID, validate
from jsonschema import Draft202012Validator
from support import harness

XSI = "http://www.w3.org/2001/XMLSchema-instance"
ROOT = re.compile(r"<(?![?!])[^\s/>]+")
SUMMARY = re.compile(r"^(\d+) error\(s\), (\d+) warning\(s\)$", re.MULTILINE)


def located(document: str, location: str) -> str:
    """The document with a hint for the schema in its root element."""
    return ROOT.sub(lambda found: f'{found[0]} xmlns:xsi="{XSI}" {location}', document, count=1)


def library_reports(directory: Path, document: str, location: str) -> str:
    """What the XML library reports of a document; empty if nothing."""
    file = directory / "judged-by-the-library.xml"
    file.write_text(located(document, location), "utf-8")
    done = harness.run(directory, harness.program_under_test(), "-V", file.name)
    reports = harness.readable(done.stderr)
    summary = SUMMARY.search(reports)
    assert summary, reports
    return "" if summary[0].startswith("0 error(s), 0 ") else reports


class XmlJudges:
    """Both judges of a schema, a file of which is the main one."""

    def __init__(self, schema: Path, namespace: str = "") -> None:
        self.schema = schema
        self.location = f'xsi:noNamespaceSchemaLocation="{schema.name}"'
        if namespace:
            self.location = f'xsi:schemaLocation="{namespace} {schema.name}"'

    def faults(self, document: str) -> str:
        """What is wrong with a document; empty if nothing."""
        file = self.schema.parent / "judged.xml"
        file.write_text(document, "utf-8")
        status, reports = validate(self.schema, file)
        assert status in (VALID, DOCUMENT_REFUSED), reports
        other = library_reports(self.schema.parent, document, self.location)
        assert (status == VALID) == (not other), f"{document}\n{reports}\n{other}"
        return other and f"{reports}\n{other}"


def json_faults(schema: Path, line: str) -> str:
    """What is wrong with a line of JSON; empty if nothing."""
    rules: Any = json.loads(schema.read_text("utf-8"))
    Draft202012Validator.check_schema(rules)
    return "\n".join(
        error.message for error in Draft202012Validator(rules).iter_errors(json.loads(line))
    )
