"""Converts generated records of random layouts to documents and back.

Canonical records come back byte for byte, all others with a residue. The documents are valid
against the schemas that `fdrec schema` writes, and those of a layout without anything that
`fdmorph` does not know against the schema that it writes from the same source.

FDMORPH_ROUND_TRIPS has the number of layouts (default: 200), FDMORPH_RECORDS that of the records
of a layout (default: 10), and FDMORPH_SEED the first seed.
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
from support.generated_files import RecordFile
from support.generated_records import generate_file

LAYOUTS = int(os.environ.get("FDMORPH_ROUND_TRIPS", "200"))
RECORDS = int(os.environ.get("FDMORPH_RECORDS", "10")) // 2  # of each kind
FIRST = int(os.environ.get("FDMORPH_SEED", "0"))
BATCH = 20  # layouts of a test
JSON_LINES = 10  # that are validated


def lacks_commands() -> bool:
    help_text = harness.run(Path.cwd(), harness.program_under_test("FDREC"), "--help").stdout
    return b" from-json " not in help_text or b" to-xml " not in help_text


NEEDS_COMMANDS = pytest.mark.skipif(lacks_commands(), reason="fdrec does not convert data")


def fdrec(directory: Path, *args: str) -> tuple[int, str]:
    done = harness.run(directory, harness.program_under_test("FDREC"), *args)
    return done.returncode, harness.readable(done.stderr)


def without(records: list[bytes], rejected: list[bytes]) -> list[bytes]:
    """The records that are not left out; both lists are in the order of the file."""
    kept = []
    next_rejected = iter(rejected)
    left_out = next(next_rejected, None)
    for record in records:
        if record == left_out:
            left_out = next(next_rejected, None)
        else:
            kept.append(record)
    assert left_out is None
    return kept


class RoundTrip:
    """The files of one layout, in a folder of their own."""

    def __init__(self, seed: int, directory: Path) -> None:
        directory.mkdir()
        self.directory = directory
        self.random = Random(seed)
        self.file: RecordFile = generate_file(self.random, directory)
        self.story = f"seed {seed}: {self.file.options}\n{self.file.copybook}"

    def run(self, command: str, source: str, target: str, *options: str) -> tuple[int, str]:
        every = [*self.file.options, *options]
        return fdrec(self.directory, command, "a.cpy", source, "-o", target, *every)

    def check_canonical(self) -> None:
        records = [self.file.record(self.random) for _ in range(RECORDS)]
        data = self.file.join(records)
        (self.directory / "a.dat").write_bytes(data)
        for kind in "xml", "json":
            assert self.run(f"to-{kind}", "a.dat", f"a.{kind}") == (0, ""), self.story
            assert self.run(f"from-{kind}", f"a.{kind}", f"{kind}.dat") == (0, ""), self.story
            assert (self.directory / f"{kind}.dat").read_bytes() == data, f"{kind}: {self.story}"

    def check_residue(self, kind: str) -> None:
        """Any records: those that convert come back."""
        records = [self.file.record(self.random, is_dirty=True) for _ in range(RECORDS - 1)]
        nonsense = self.file.any_record(self.random)
        records += [nonsense] if nonsense is not None else []
        (self.directory / "b.dat").write_bytes(self.file.join(records))
        residue = ["--residue", "b.residue"]
        options = [*residue, "--max-errors", "0", "--rejects", "b.rejects"]
        status, reports = self.run(f"to-{kind}", "b.dat", f"b.{kind}", *options)
        assert status in (0, 1), self.story + reports
        rejects = (self.directory / "b.rejects").read_bytes() if status == 1 else b""
        kept = without(records, self.file.split(rejects))
        result = self.run(f"from-{kind}", f"b.{kind}", "c.dat", *residue)
        assert result == (0, ""), self.story
        assert (self.directory / "c.dat").read_bytes() == self.file.join(kept), self.story

    def check_xml(self, has_library: bool) -> None:
        options = ["-o", "schema/", *self.file.options]
        assert fdrec(self.directory, "schema", "a.cpy", *options) == (0, ""), self.story
        schema = self.directory / "schema" / "schema.xsd"
        for name in "a.xml", "b.xml":
            if not (self.directory / name).exists():
                continue
            status, reports = validate(schema, self.directory / name)
            assert status == VALID, self.story + reports
        if has_library:
            document = (self.directory / "a.xml").read_text("utf-8")
            location = 'xsi:noNamespaceSchemaLocation="schema.xsd"'
            assert library_reports(schema.parent, document, location) == "", self.story

    def check_json(self) -> None:
        options = ["--json", "-o", "schema.json", *self.file.options]
        assert fdrec(self.directory, "schema", "a.cpy", *options) == (0, ""), self.story
        schema = json.loads((self.directory / "schema.json").read_text("utf-8"))
        judge = Draft202012Validator(schema)
        for name in "a.json", "b.json":
            if not (self.directory / name).exists():
                continue
            lines = (self.directory / name).read_text("utf-8").split("\n")[:-1]
            for line in lines[:JSON_LINES]:
                faults = [error.message for error in judge.iter_errors(json.loads(line))]
                assert faults == [], self.story + line

    def check_source_schema(self) -> None:
        """The document of a record is valid against the schema of its source."""
        (self.directory / "source.cbl").write_text(self.file.copybook, "utf-8")
        (self.directory / "directives").write_text("SOURCEFORMAT(FREE)\n", "utf-8")
        compilers = self.directory / "compilers"
        compilers.mkdir()
        (compilers / "zbc").symlink_to(harness.program_under_test("ZBC"))
        command = [harness.program_under_test(), "-noprompt", "-d", "directives", "source.cbl"]
        done = harness.run(self.directory, *command, PATH=harness.path_with(compilers))
        assert done.returncode == 0, self.story + harness.readable(done.stderr)
        for number in range(min(RECORDS, JSON_LINES)):
            options = ["--single", "--skip", str(number), "--limit", "1"]
            assert self.run("to-xml", "a.dat", "single.xml", *options) == (0, ""), self.story
            schema = self.directory / "source.xsd"
            status, reports = validate(schema, self.directory / "single.xml")
            assert status == VALID, self.story + reports


def check_layout(seed: int, directory: Path) -> None:
    trip = RoundTrip(seed, directory)
    trip.check_canonical()
    trip.check_residue("xml" if seed % 2 == 0 else "json")
    trip.check_xml(has_library=seed % BATCH == 0)
    trip.check_json()
    if trip.file.is_simple:
        trip.check_source_schema()


@NEEDS_XMLLINT
@NEEDS_COMMANDS
@pytest.mark.parametrize("first", range(FIRST, FIRST + LAYOUTS, BATCH))
def test_records_come_back(first: int, tmp_path: Path) -> None:
    seeds = range(first, min(first + BATCH, FIRST + LAYOUTS))
    with ThreadPoolExecutor(2) as pool:
        list(pool.map(lambda seed: check_layout(seed, tmp_path / str(seed)), seeds))
