"""Runs the program and the compiler over the COBOL sources of the corpus.

No expected outputs are kept for these inputs. The outputs have to agree with the data dictionary
of the compiler, and cobc judges the dictionary and the copybook.
"""

from __future__ import annotations

import re
import shutil
import xml.etree.ElementTree as ET
from collections.abc import Collection, Iterator
from pathlib import Path
from typing import Any

import pytest
from judges.cobc import NEEDS_COBC, program_with
from judges.cobc_listing import differences
from judges.cobc_sources import (
    EDITS,
    edit_pictures,
    list_edited,
    needless_edits,
    program_of,
    reserved_names,
    without_implied,
)
from judges.data_dictionary import (
    copybook_record,
    described_files,
    described_items,
    ranges,
    schema_faults,
    without_faults,
)
from judges.enhanced_copybook import read_enhanced
from support.cobol_runs import Conversion, compile_source, convert, errors_of, is_valid, run_on
from support.cobol_sources import (
    BEARING,
    EMPTY,
    MISSING,
    REFUSED,
    SOURCES,
    link_members,
    stage,
)
from support.corpus import name_of, require_corpus
from support.harness import FAKE_COMPILER, readable

SUMMARY = re.compile(r"^(\d+) error\(s\), (\d+) warning\(s\)\n\Z", re.MULTILINE)
WARNINGS = {
    "redefinitions": "Warning : The redefines clause is not supported ",
    "renames": "Warning : This version of FDMORPH does not support the RENAMES clause",
    "ranges": "Warning : Data range specifier ",
    "ranges again": "Warning : Due to non-support of data range specifiers",
}

require_corpus(SOURCES)


def sources(paths: list[Path]) -> list[Any]:
    return [pytest.param(path, id=name_of(path)) for path in paths]


def named(names: Collection[str]) -> list[Any]:
    return sources([path for path in SOURCES if name_of(path) in names])


@pytest.fixture(name="conversion", scope="module", params=sources(BEARING))
def fixture_conversion(
    request: pytest.FixtureRequest, tmp_path_factory: pytest.TempPathFactory
) -> Iterator[Conversion]:
    directory = tmp_path_factory.mktemp("source")
    yield run_on(request.param, directory)
    shutil.rmtree(directory)


def test_schema_copybook_and_mapping_file_are_written(conversion: Conversion) -> None:
    outputs = (conversion.schema, conversion.copybook, conversion.mapping)
    assert conversion.written == {output.name for output in outputs}
    assert all(output.stat().st_size > 0 for output in outputs)


def test_the_mapping_file_names_the_items_of_the_record(conversion: Conversion) -> None:
    names = ET.parse(conversion.mapping).getroot().iterfind("{*}xml-cobol-mapping/{*}cobol-name")
    named_items = [(name.text or "").rpartition(".")[2].upper() for name in names]
    assert named_items
    assert named_items == [
        item.name
        for item in copybook_record(conversion.program).items
        if not (item.is_group and item.name == "FILLER")
    ]


def test_only_what_the_outputs_cannot_hold_is_reported(conversion: Conversion) -> None:
    record = copybook_record(conversion.program)
    lost = ranges(conversion.program)
    expected = {
        "redefinitions": record.redefinitions,
        "renames": 2 * record.renames,
        "ranges": lost,
        "ranges again": lost,
    }
    stderr = readable(conversion.result.stderr)
    lines = [line for line in stderr.splitlines() if line.startswith(("Warning :", "Error :"))]
    reported = {
        what: sum(line.startswith(head) for line in lines) for what, head in WARNINGS.items()
    }
    assert reported == expected
    assert len(lines) == sum(expected.values()) == conversion.result.returncode
    summary = SUMMARY.search(stderr)
    assert summary and summary.groups() == ("0", str(len(lines)))


def test_the_schema_is_valid(conversion: Conversion, tmp_path: Path) -> None:
    """It is valid, or it becomes valid without the known causes in the data."""
    faults = schema_faults(conversion.program)
    assert is_valid(conversion.schema) == (not faults)
    if faults:
        dictionary = tmp_path / "dictionary.xml"
        ET.ElementTree(without_faults(conversion.program)).write(dictionary)
        source = stage(conversion.source, tmp_path)
        convert(source, FAKE_COMPILER.parent, FAKE_ZBC_DICTIONARY=str(dictionary))
        assert is_valid(source.with_suffix(".xsd"))


@NEEDS_COBC
def test_the_items_are_those_that_cobc_lists(conversion: Conversion) -> None:
    items = list(described_items(conversion.program))
    text = program_of(conversion.source)
    edits = EDITS.get(name_of(conversion.source), []) + reserved_names(items)
    listing = list_edited(text, edits, conversion.directory)
    assert listing.complaints == []
    assert items
    listed = without_implied(listing.items, items)
    assert differences(edit_pictures(items, edits), listed) == []
    assert described_files(conversion.program) == listing.files
    assert needless_edits(text, edits, conversion.directory) == []


@NEEDS_COBC
def test_the_copybook_describes_the_same_record(conversion: Conversion, tmp_path: Path) -> None:
    record = copybook_record(conversion.program)
    entries = read_enhanced(conversion.copybook.read_text("latin-1"))
    text = program_with([line for entry in entries for line in entry.mended_lines()])
    edits = [edit for edit in EDITS.get(name_of(conversion.source), []) if edit.applies_to(text)]
    edits += reserved_names(record.items)
    listing = list_edited(text, edits, tmp_path)
    assert listing.complaints == []
    assert record.items
    # A redefinition that is left out may have been the largest member of its group.
    any_group_size = record.redefinitions > 0
    assert differences(edit_pictures(record.items, edits), listing.items, any_group_size) == []
    assert needless_edits(text, edits, tmp_path) == []
    if any(entry.cut_value is not None for entry in entries):
        text = program_with([line for entry in entries for line in entry.lines])
        complaints = list_edited(text, edits, tmp_path).complaints
        assert any("continuation character expected" in complaint for complaint in complaints)


@pytest.mark.parametrize("source", named(EMPTY))
def test_a_program_without_an_item_has_no_dictionary(source: Path, tmp_path: Path) -> None:
    link_members(source, tmp_path, {})
    copy = stage(source, tmp_path)
    result = compile_source(copy)
    assert result.returncode == 1
    assert b"[no-data]" in result.stderr
    assert not copy.with_suffix(".xml").exists()


@pytest.mark.parametrize("source", named(REFUSED))
def test_a_source_without_data_descriptions_is_refused(source: Path, tmp_path: Path) -> None:
    refusal = REFUSED[name_of(source)]
    assert re.search(refusal.text, source.read_text("latin-1"))
    link_members(source, tmp_path, {})
    copy = stage(source, tmp_path)
    result = compile_source(copy)
    assert result.returncode == 1
    assert errors_of(result)[0][1] == refusal.code
    assert not copy.with_suffix(".xml").exists()
    if shutil.which("cobc"):
        assert list_edited(program_of(source), [], tmp_path).complaints


@pytest.mark.parametrize("source", named(MISSING))
def test_only_missing_members_have_a_stand_in(source: Path, tmp_path: Path) -> None:
    link_members(source, tmp_path, {})
    result = compile_source(stage(source, tmp_path))
    assert result.returncode == 1
    missing = {text.split("'")[1] for text, code in errors_of(result) if code == "copy-missing"}
    assert missing == set(MISSING[name_of(source)])
