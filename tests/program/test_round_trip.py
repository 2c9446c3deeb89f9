"""Converts generated records of random layouts to documents and back.

Canonical records come back byte for byte, all others with a residue. The documents are valid
against the schemas that `fdrec schema` writes.

FDMORPH_ROUND_TRIPS has the number of layouts (default: 200) and FDMORPH_SEED the first seed.
"""

from __future__ import annotations

import json
import os
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from random import Random

import pytest
from judges.document_schemas import library_reports
from judges.xmllint import NEEDS_XMLLINT, VALID, validate
from jsonschema import Draft202012Validator
from support import harness
from support.generated_records import RecordLayout, generate_layout

RECORDS = 5  # of each kind
LAYOUTS = int(os.environ.get("FDMORPH_ROUND_TRIPS", "200"))
FIRST = int(os.environ.get("FDMORPH_SEED", "0"))
BATCH = 20  # layouts of a test


def lacks_commands() -> bool:
    help_text = harness.run(Path.cwd(), harness.program_under_test("FDREC"), "--help").stdout
    return b" from-json " not in help_text or b" to-xml " not in help_text


NEEDS_COMMANDS = pytest.mark.skipif(lacks_commands(), reason="fdrec does not convert data")


def fdrec(directory: Path, *args: str) -> tuple[int, str]:
    done = harness.run(directory, harness.program_under_test("FDREC"), *args)
    return done.returncode, harness.readable(done.stderr)


def check_canonical(directory: Path, layout: RecordLayout, records: list[bytes]) -> None:
    data = b"".join(records)
    (directory / "a.dat").write_bytes(data)
    for kind in "xml", "json":
        document, back = f"a.{kind}", f"{kind}.dat"
        result = fdrec(directory, f"to-{kind}", "a.cpy", "a.dat", "-o", document, *layout.options)
        assert result == (0, ""), layout.copybook
        result = fdrec(directory, f"from-{kind}", "a.cpy", document, "-o", back, *layout.options)
        assert result == (0, ""), layout.copybook
        assert (directory / back).read_bytes() == data, layout.copybook


def check_valid(directory: Path, layout: RecordLayout, has_library: bool) -> None:
    for options in ["-o", "schema/"], ["--json", "-o", "schema.json"]:
        assert fdrec(directory, "schema", "a.cpy", *options, *layout.options) == (0, "")
    schema = directory / "schema" / "schema.xsd"
    status, reports = validate(schema, directory / "a.xml")
    assert status == VALID, layout.copybook + reports
    if has_library:
        document = (directory / "a.xml").read_text("utf-8")
        location = 'xsi:noNamespaceSchemaLocation="schema.xsd"'
        assert library_reports(schema.parent, document, location) == "", layout.copybook
    judge = Draft202012Validator(json.loads((directory / "schema.json").read_text("utf-8")))
    for line in (directory / "a.json").read_text("utf-8").split("\n")[:-1]:
        faults = [error.message for error in judge.iter_errors(json.loads(line))]
        assert faults == [], layout.copybook + line


def check_residue(directory: Path, layout: RecordLayout, records: list[bytes]) -> None:
    (directory / "b.dat").write_bytes(b"".join(records))
    saved = ["--residue", "b.residue"]
    options = [*layout.options, *saved, "--max-errors", "0", "--rejects", "b.rejects"]
    status, reports = fdrec(directory, "to-xml", "a.cpy", "b.dat", "-o", "b.xml", *options)
    assert status in (0, 1), reports
    rejected = (directory / "b.rejects").read_bytes() if status == 1 else b""
    kept = list(records)
    for begin in range(0, len(rejected), layout.size):
        kept.remove(rejected[begin : begin + layout.size])
    options = [*layout.options, *saved]
    result = fdrec(directory, "from-xml", "a.cpy", "b.xml", "-o", "c.dat", *options)
    assert result == (0, ""), layout.copybook
    assert (directory / "c.dat").read_bytes() == b"".join(kept), layout.copybook


def check_layout(seed: int, directory: Path) -> None:
    directory.mkdir()
    random = Random(seed)
    layout = generate_layout(random, directory)
    check_canonical(directory, layout, [layout.record(random) for _ in range(RECORDS)])
    check_valid(directory, layout, has_library=seed % BATCH == 0)
    dirty = [layout.record(random, is_dirty=True) for _ in range(RECORDS - 1)]
    check_residue(directory, layout, [*dirty, random.randbytes(layout.size)])


@NEEDS_XMLLINT
@NEEDS_COMMANDS
@pytest.mark.parametrize("first", range(FIRST, FIRST + LAYOUTS, BATCH))
def test_records_come_back(first: int, tmp_path: Path) -> None:
    seeds = range(first, min(first + BATCH, FIRST + LAYOUTS))
    with ThreadPoolExecutor(2) as pool:
        list(pool.map(lambda seed: check_layout(seed, tmp_path / str(seed)), seeds))
