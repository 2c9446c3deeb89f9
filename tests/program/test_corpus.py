"""Runs the program over the schemas of the corpus.

The folder xsd/ of the corpus holds schemas, each with the files that it refers to, and instance
documents. Tables named INSTANCES.tsv list documents with their schemas and say which are valid.

No expected outputs are kept for these inputs. The tests check what holds for every schema, and
cobc judges the copybooks.
"""

from __future__ import annotations

import re
import shutil
from collections.abc import Iterator
from pathlib import Path
from typing import NamedTuple

import pytest
from judges.cobc import NEEDS_COBC, reserved_words
from judges.cobc_judge import judge
from judges.copybook import RIGHT_EDGE, Entry, read_copybook
from support import harness
from support.corpus import corpus_files, name_of, require_corpus
from judges.rejections import Judged
from support.schema_locations import (
    Instance,
    copy_with_schema,
    files_referred_to,
    needs_network,
    listed_instances,
    schema_locations,
)

SCHEMAS = corpus_files("xsd", ".xsd")
DOCUMENTS = [path for path in corpus_files("xsd", ".xml") if not needs_network(path)]
LISTS = [path for path in corpus_files("xsd", ".tsv") if path.name == "INSTANCES.tsv"]
INSTANCES = [instance for listing in LISTS for instance in listed_instances(listing)]
LARGEST_READ = 20_000_000  # bytes of a copybook
HIGHEST_STATUS = 255
MODES = {"plain": ("", []), "unique": ("X-", ["-unique", "-p", "X-"])}  # prefix and options
RECORD = b"       01 "

# What COBOL does not allow however a schema is written: names of words beyond 63 characters
# (COBOL 2014 has 31), and fractions with more digits than the number.
IMPOSSIBLE = re.compile(
    r"is longer than 63 characters \[name\]$"
    r"|expected a number or constant in parentheses, found '-\d+' \[picture\]$"
)

SUMMARY = re.compile(r"^(\d+) error\(s\), (\d+) warning\(s\)\n\Z", re.MULTILINE)
CONVERTED = re.compile(r"^Successfully converted (\d+) of (\d+) schema head element", re.MULTILINE)
NO_HEAD = "Error : No schema head element found in schema definition."

require_corpus(SCHEMAS)


class Result(NamedTuple):
    status: int
    stdout: str
    stderr: str
    errors: int
    warnings: int

    def status_by_counts(self) -> int:
        return min(HIGHEST_STATUS, self.errors + self.warnings)


class Conversion(NamedTuple):
    schema: Path
    prefix: str
    result: Result
    copybook: Path

    def refused(self) -> bool:
        """Whether the schema was not loaded, so there is no copybook."""
        return f"\nFailed to create {self.copybook}\n" in self.result.stdout


def run(directory: Path, *args: str) -> Result:
    """Runs the program, which has to exit by itself with a summary in its last line."""
    done = harness.run(directory, harness.program_under_test(), *args)
    stdout, stderr = harness.readable(done.stdout), harness.readable(done.stderr)
    if done.returncode < 0:
        pytest.fail(f"{harness.describe_signal(done.returncode)}\n{stderr}", pytrace=False)
    summary = SUMMARY.search(stderr)
    if summary is None:
        pytest.fail(f"the last line is no summary:\n{stderr}", pytrace=False)
    return Result(done.returncode, stdout, stderr, int(summary[1]), int(summary[2]))


def validate(path: Path) -> Result:
    return run(path.parent, "-v", path.name)


@pytest.fixture(
    name="conversion",
    scope="module",  # so that all tests of one conversion run in a row
    params=[
        pytest.param((schema, *options), id=f"{name_of(schema)}:{mode}")
        for schema in SCHEMAS
        for mode, options in MODES.items()
    ],
)
def fixture_conversion(
    request: pytest.FixtureRequest, tmp_path_factory: pytest.TempPathFactory
) -> Iterator[Conversion]:
    schema, prefix, options = request.param
    directory = tmp_path_factory.mktemp("conversion")
    copybook = directory / "out.cpy"
    args = [schema.name, "-c", str(copybook), "-noprompt", *options]
    yield Conversion(schema, prefix, run(schema.parent, *args), copybook)
    shutil.rmtree(directory)  # a copybook may be very large


def test_the_status_is_the_number_of_reports(conversion: Conversion) -> None:
    result = conversion.result
    if conversion.refused():
        assert result.status == 1
        assert result.errors + result.warnings > 0
        assert not conversion.copybook.exists()
    else:
        assert result.status == result.status_by_counts()


def test_only_a_part_of_a_loadable_schema_may_be_refused(conversion: Conversion) -> None:
    if conversion.refused():
        users = [schema for schema in SCHEMAS if conversion.schema in files_referred_to(schema)]
        assert any(validate(schema).errors == 0 for schema in users)


def test_validation_reports_what_loading_reports(conversion: Conversion) -> None:
    result = validate(conversion.schema)
    assert result.status == result.status_by_counts()
    if conversion.refused():
        assert (result.errors, result.warnings) == conversion.result[3:]
    else:
        assert result.errors == 0


def test_there_is_a_record_for_each_converted_head_element(conversion: Conversion) -> None:
    if conversion.refused():
        pytest.skip("the schema is refused")
    with conversion.copybook.open("rb") as lines:
        records = sum(line.startswith(RECORD) for line in lines)
    converted = CONVERTED.search(conversion.result.stderr)
    if converted is None:
        assert NO_HEAD in conversion.result.stderr
        assert records == 0
    else:
        assert records == int(converted[1]) <= int(converted[2])


def test_no_line_passes_column_72(conversion: Conversion) -> None:
    if conversion.refused():
        pytest.skip("the schema is refused")
    with conversion.copybook.open("rb") as lines:
        assert [line for line in lines if len(line.rstrip(b"\n")) > RIGHT_EDGE] == []


def entries_of(conversion: Conversion) -> list[Entry]:
    if conversion.refused() or conversion.copybook.stat().st_size > LARGEST_READ:
        pytest.skip("the schema is refused, or its copybook takes too long to read")
    return read_copybook(conversion.copybook.read_bytes().decode("latin-1"), conversion.prefix)


def test_prefix_and_unique_names_are_as_asked_for(conversion: Conversion) -> None:
    earlier: dict[str, list[str]] = {}
    for entry in entries_of(conversion):
        assert entry.name.startswith(conversion.prefix)
        if entry.level == 1:
            earlier = {}
        # A member of a substitution group may be written twice, which is one item then.
        if conversion.prefix:
            assert earlier.setdefault(entry.name, entry.lines) == entry.lines


@NEEDS_COBC
def test_cobc_accepts_the_data_division(conversion: Conversion, tmp_path: Path) -> None:
    judged = Judged(
        entries_of(conversion), conversion.prefix, reserved_words(), conversion.result.stderr
    )
    explained, unexplained = judge(judged, tmp_path)
    for reason, complaint in explained:
        print(f"{reason}: {complaint.describe()}")  # pytest -rP shows it
    if unexplained:
        report = [complaint.describe() for complaint in unexplained]
        pytest.fail("\n".join([name_of(conversion.schema), *report]), pytrace=False)


def test_the_bundled_compiler_accepts_the_copybook(conversion: Conversion) -> None:
    if conversion.refused() or conversion.copybook.stat().st_size == 0:
        pytest.skip("the schema is refused, or gives no record")
    compiler = harness.program_under_test("ZBC")
    done = harness.run(conversion.copybook.parent, compiler, conversion.copybook.name)
    reports = harness.readable(done.stderr)
    errors = [line for line in reports.splitlines() if ": error: " in line]
    assert [line for line in errors if not IMPOSSIBLE.search(line)] == []
    assert done.returncode == (1 if errors else 0)


@pytest.mark.parametrize(
    "instance", [pytest.param(item, id=name_of(item.document)) for item in INSTANCES]
)
def test_valid_documents_and_no_others_pass(instance: Instance, tmp_path: Path) -> None:
    named = schema_locations(instance.document)
    document = instance.document if named else copy_with_schema(instance, tmp_path)
    result = validate(document)
    assert result.status == result.status_by_counts()
    assert (result.errors + result.warnings == 0) == instance.valid


@pytest.mark.parametrize("document", [pytest.param(path, id=name_of(path)) for path in DOCUMENTS])
def test_any_document_is_validated(document: Path) -> None:
    result = validate(document)
    assert result.status == result.status_by_counts()
