"""Makes records for the schemas of the corpus, from a working directory elsewhere.

The bundled compiler, the check of the record against its schema, and cobc judge the copybooks.
"""

from __future__ import annotations

import re
from pathlib import Path
from subprocess import CompletedProcess
from typing import NamedTuple

import pytest
from judges.cobc import NEEDS_COBC, program_with, run_cobc
from support import harness
from support.corpus import corpus_files, name_of, require_corpus

SCHEMAS = corpus_files("xsd", ".xsd")
ROOTS = re.compile(r"choose one with --root: (.*) \[root\]$", re.MULTILINE)
ERROR = re.compile(r"^.*: error: .*$", re.MULTILINE)
NO_ROOT = "fdrec: error: the schema has no global element [root]\n"
TOO_LARGE = re.compile(r"^fdrec: error: the record .* \[size\]$", re.MULTILINE)
EMPTY = re.compile(r"^fdrec: error: nothing is left of the record .* \[empty\]\n\Z")
SHALLOW = ["--depth", "2"]  # makes the largest records small

require_corpus(SCHEMAS)


class Record(NamedTuple):
    schema: Path
    args: list[str]
    copybook: Path
    result: CompletedProcess[bytes]

    def errors(self) -> list[str]:
        return ERROR.findall(harness.readable(self.result.stderr))


def run_fdrec(directory: Path, *args: str) -> CompletedProcess[bytes]:
    return harness.run(directory, harness.program_under_test("FDREC"), *args)


def is_fragment(schema: Path) -> bool:
    """Whether the schema is a part of DocBook, whose parts do not load by themselves."""
    return schema.parent.name == "docbook45" and schema.name != "docbook.xsd"


@pytest.fixture(
    name="record", scope="module", params=[pytest.param(path, id=name_of(path)) for path in SCHEMAS]
)
def fixture_record(
    request: pytest.FixtureRequest, tmp_path_factory: pytest.TempPathFactory
) -> Record:
    """The record of the first global element, without its deeper parts if it is too large."""
    schema: Path = request.param
    if is_fragment(schema):
        pytest.skip("the schema is a part of another one")
    directory = tmp_path_factory.mktemp("record")
    refusal = harness.readable(run_fdrec(directory, "copybook", str(schema), "--root", "?").stderr)
    if refusal == NO_ROOT:
        pytest.skip("the schema has no global element")
    listed = ROOTS.search(refusal)
    assert listed, refusal
    copybook = directory / "out.cpy"
    for root in listed[1].split(", "):
        args = ["copybook", str(schema), "--root", root]
        result = run_fdrec(directory, *args, "-o", copybook.name)
        if not EMPTY.match(harness.readable(result.stderr)):
            break  # the element may have content
    if TOO_LARGE.search(harness.readable(result.stderr)):
        assert not copybook.exists()
        args += SHALLOW
        result = run_fdrec(directory, *args, "-o", copybook.name)
    return Record(schema, args, copybook, result)


def test_the_record_is_written(record: Record) -> None:
    assert record.copybook.exists(), harness.readable(record.result.stderr)
    assert record.result.returncode == (1 if record.errors() else 0)
    assert record.result.stdout == b""


def test_the_bundled_compiler_accepts_it(record: Record) -> None:
    compiler = harness.program_under_test("ZBC")
    done = harness.run(record.copybook.parent, compiler, record.copybook.name)
    assert ERROR.findall(harness.readable(done.stderr)) == []
    assert done.returncode == 0


def test_the_check_finds_what_has_been_told(record: Record) -> None:
    done = run_fdrec(record.copybook.parent, "check", str(record.schema), record.copybook.name)
    assert ERROR.findall(harness.readable(done.stdout)) == record.errors()


@NEEDS_COBC
def test_cobc_accepts_the_plain_form(record: Record) -> None:
    directory = record.copybook.parent
    # Few occurrences, because the largest item of cobc has 256 MB.
    run_fdrec(directory, *record.args, "--plain", "--unbounded", "2", "-o", "plain.cpy")
    lines = (directory / "plain.cpy").read_text("utf-8").splitlines()
    source = directory / "plain.cbl"
    source.write_text(program_with(lines), "utf-8")
    status, printed = run_cobc(source, "-std=default")
    assert (status, [line for line in printed if "error" in line]) == (0, [])


def test_parts_that_are_skipped_are_not_written(record: Record) -> None:
    directory = record.copybook.parent
    whole = record.copybook.read_text("utf-8")
    done = run_fdrec(directory, *record.args, "--skip", "**/@*", "-o", "elements.cpy")
    if EMPTY.match(harness.readable(done.stderr)):
        return  # it has attributes alone
    elements = (directory / "elements.cpy").read_text("utf-8")
    assert not re.search(r"\bIS\s+ATTRIBUTE\b", elements)
    assert elements.upper().count("IDENTIFIED") <= whole.upper().count("IDENTIFIED")
