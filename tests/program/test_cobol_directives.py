"""Chooses a record and leaves conditions out, for the COBOL sources of the corpus.

With these directives every schema is valid, and a document made of it is accepted. Without them
conditions make most schemas invalid.
"""

from __future__ import annotations

import xml.etree.ElementTree as ET
from pathlib import Path

import pytest
from judges.xmllint import NEEDS_XMLLINT, VALID, validate
from support.cobol_sources import BEARING, COPY_PATH, MISSING, link_members, stage
from support.corpus import name_of, require_corpus
from support.harness import path_with, program_under_test, readable, run
from support.schema_instances import instance_of


require_corpus(BEARING)


def convert(source: Path, directives: str) -> str:
    """Runs the program with the bundled compiler. Returns what it prints as errors."""
    (source.parent / "directives").write_text(f"{COPY_PATH} {directives}\n", encoding="ascii")
    compiler = Path(program_under_test("ZBC")).parent
    command = [program_under_test(), "-noprompt", "-d", "directives", source.name]
    result = run(source.parent, *command, PATH=path_with(compiler))
    return readable(result.stderr)


def listed_records(listing: str) -> list[str]:
    """The names that are not indented: those of items that are in no group."""
    lines = listing.splitlines()
    column = lines[0].index("NAME")
    names = [line[column:].partition(" ")[0] for line in lines[1:] if line[column] != " "]
    return [name for name in names if name != "FILLER"]


@NEEDS_XMLLINT
@pytest.mark.parametrize("source", [pytest.param(path, id=name_of(path)) for path in BEARING])
def test_chosen_records_become_valid_schemas(source: Path, tmp_path: Path) -> None:
    link_members(source, tmp_path, MISSING.get(name_of(source), {}))
    copy = stage(source, tmp_path)
    listing = run(tmp_path, program_under_test("ZBC"), "-C", COPY_PATH, "LIST(-)", copy.name)
    assert listing.returncode == 0, readable(listing.stderr)
    records = listed_records(readable(listing.stdout))
    assert records
    schema = copy.with_suffix(".xsd")
    for record in dict.fromkeys([records[0], records[len(records) // 2], records[-1]]):
        schema.unlink(missing_ok=True)
        printed = convert(copy, f"RECORD({record}) CONDITIONS(OFF)")
        assert schema.exists(), printed
        document = tmp_path / "instance.xml"
        ET.ElementTree(instance_of(ET.parse(schema).getroot())).write(document)
        status, judged = validate(schema, document)
        assert status == VALID, f"{record}: {judged}"
