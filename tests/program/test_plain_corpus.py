"""Makes plain copybooks of the records that fdmorph makes of the schemas of the corpus.

cobc compiles each of them with two standards and lists the same items, with the same storage, as
`fdrec show --json` of the original.
"""

from __future__ import annotations

import json
import re
import shutil
from collections.abc import Iterator
from pathlib import Path
from typing import Any, NamedTuple

import pytest
from judges.cobc import NEEDS_COBC, program_with, run_cobc
from judges.cobc_listing import list_items
from judges.plain_copybook import differences, place, shown_items
from support import harness
from support.corpus import corpus_files, name_of, require_corpus

STANDARDS = ["default", "ibm"]
LARGEST = 20_000_000  # bytes of a copybook; longer ones take minutes
RECORD = re.compile(r"^ {7}01 +([^ .]+)", re.MULTILINE)
COUNTS = re.compile(r"^ {7}01 (RECORD-COUNTS\S*)\.", re.MULTILINE)

# What the compiler refuses because no COBOL has it: names of more than 63 characters, and
# fractions with more digits than the number.
IMPOSSIBLE = re.compile(
    r"is longer than 63 characters \[name\]$"
    r"|expected a number or constant in parentheses, found '-\d+' \[picture\]$"
)

SCHEMAS = corpus_files("xsd", ".xsd")
MODES = {"plain": [], "unique": ["-unique", "-p", "X-"]}

require_corpus(SCHEMAS)


class Plain(NamedTuple):
    original: dict[str, Any]  # what fdrec shows
    text: str


def fdrec(directory: Path, *args: str) -> Any:
    return harness.run(directory, harness.program_under_test("FDREC"), *args)


@pytest.fixture(
    name="plain",
    scope="module",  # so that all tests of one copybook run in a row
    params=[
        pytest.param((schema, *options), id=f"{name_of(schema)}:{mode}")
        for schema in SCHEMAS
        for mode, options in MODES.items()
    ],
)
def fixture_plain(
    request: pytest.FixtureRequest, tmp_path_factory: pytest.TempPathFactory
) -> Iterator[Plain]:
    schema, *options = request.param
    directory = tmp_path_factory.mktemp("plain")
    copybook = directory / "out.cpy"
    harness.run(
        schema.parent,
        harness.program_under_test(),
        schema.name,
        "-c",
        str(copybook),
        "-noprompt",
        *options,
    )
    yield make_plain(directory, copybook)
    shutil.rmtree(directory)


def make_plain(directory: Path, copybook: Path) -> Plain:
    if not copybook.exists() or not 0 < copybook.stat().st_size <= LARGEST:
        pytest.skip("there is no copybook, or it is very large")
    names = dict.fromkeys(RECORD.findall(copybook.read_text("utf-8").upper()))
    choice = [f"--record={name}" for name in names]
    done = fdrec(directory, "plain", copybook.name, *choice)
    reports = harness.readable(done.stderr)
    errors = [line for line in reports.splitlines() if ": error: " in line]
    if errors and all(IMPOSSIBLE.search(line) for line in errors):
        pytest.skip("COBOL cannot have this record")
    assert (done.returncode, errors) == (0, [])
    shown = fdrec(directory, "show", "--json", copybook.name, *choice)
    return Plain(json.loads(shown.stdout), done.stdout.decode())


@NEEDS_COBC
@pytest.mark.parametrize("standard", STANDARDS)
def test_cobc_lists_the_items_of_the_original(plain: Plain, standard: str, tmp_path: Path) -> None:
    if not plain.text:
        pytest.skip("no item has storage")
    lines = plain.text.splitlines()
    assert [line for line in lines if len(line.encode()) > 72] == []
    source = tmp_path / "judge.cob"
    source.write_text(program_with(lines))
    listing = list_items(source, f"-std={standard}")
    assert listing.complaints == []
    counts = set(COUNTS.findall(plain.text.upper()))
    records: list[Any] = []
    for item in listing.items:
        if item.level == 1:
            records.append([])
        records[-1].append(item)
    originals = [each for record in records if record[0].name not in counts for each in record]
    assert differences(shown_items(plain.original), place(originals)) == []


@NEEDS_COBC
def test_cobc_warns_of_nothing_but_values(plain: Plain, tmp_path: Path) -> None:
    """A VALUE may be longer than its item, as it is in the schema."""
    source = tmp_path / "judge.cob"
    source.write_text(program_with(plain.text.splitlines()))
    reports = run_cobc(source, "-std=default")[1]
    assert [line for line in reports if not line.endswith("value size exceeds data size")] == []
