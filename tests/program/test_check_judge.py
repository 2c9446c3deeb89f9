"""Compares the findings of `fdrec check` with those of a judge that stores documents.

For each schema of the corpus, and for the copybook that the converter makes of it, documents at the
edges of the schema are made: longest texts, most digits, most occurrences, each alternative. Those
that xmllint finds valid are stored in the record, value by value. What does not fit must be
exactly what the program finds.
"""

from __future__ import annotations

import json
import subprocess
import xml.etree.ElementTree as ET
from pathlib import Path
from typing import Any, NamedTuple

import pytest
from judges.record_fit import Fault, Record
from judges.schema_edges import Generator
from judges.schema_reading import Name, Schemas
from judges.xmllint import NEEDS_XMLLINT
from support import harness
from support.corpus import corpus_files, name_of, require_corpus

SCHEMAS = corpus_files("xsd", ".xsd")
ROUNDS = 60  # documents without repetitions, at least
JUDGED = {"no-item", "occurs", "length", "digits", "fraction", "sign", "category"}
MENDED = {"occurs", "length", "digits", "fraction", "sign"}
MAX_REPEATED = 150  # documents, each with one element that repeats

require_corpus(SCHEMAS)


class Checked(NamedTuple):
    schema: Path
    copybook: Path
    roots: list[str]


def records_of(copybook: Path) -> list[dict[str, Any]]:
    found = []
    names = [
        line.split()[1] for line in copybook.read_text("utf-8").split("\n") if line[7:10] == "01 "
    ]
    for name in dict.fromkeys(names):
        args = ["show", "--json", "--record", name, str(copybook)]
        shown = harness.run(copybook.parent, harness.program_under_test("FDREC"), *args)
        if shown.stdout:
            found += json.loads(shown.stdout)["records"]
    return found


def findings_of(schema: Path, copybook: Path, *args: str) -> list[dict[str, Any]]:
    command = [harness.program_under_test("FDREC"), "check", "--json", *args]
    done = harness.run(schema.parent, *command, schema.name, str(copybook))
    assert done.returncode in (0, 1), done.stderr
    return list(json.loads(done.stdout)["findings"])


def as_faults(findings: list[dict[str, Any]]) -> set[Fault]:
    """A text without an item, or with one of 0 bytes, is one and the same to the judge."""
    faults = set()
    for each in findings:
        code = each["code"]
        if each["message"] in ("the text has no item", "there may be a text, the item holds none"):
            code = "text"
        if code in JUDGED | {"text"}:
            faults.add((each["path"], code))
    return faults


def valid_ones(schema: Path, documents: list[ET.Element], folder: Path) -> list[ET.Element]:
    names = []
    for number, document in enumerate(documents):
        name = folder / f"{number}.xml"
        ET.ElementTree(document).write(name, "utf-8")
        names.append(str(name))
    command = ["xmllint", "--noout", "--nonet", "--schema", schema.name, *names]
    done = subprocess.run(command, cwd=schema.parent, capture_output=True, check=False)
    valid = {line[:-10] for line in done.stderr.decode().split("\n") if line.endswith(" validates")}
    return [document for name, document in zip(names, documents) if name in valid]


def judged(schema: Path, items: list[dict[str, Any]], folder: Path) -> tuple[set[Fault], int, int]:
    """What does not fit, and the numbers of documents made and of valid ones."""
    record = Record.of(items)
    root = items[0]["path"]
    name = Name(items[0]["namespace"], root)
    generator = Generator(Schemas(schema), name, dict(record.capacities))
    documents = [generator.document() for _ in range(ROUNDS)]
    repeated = list(generator.repeatable)[:MAX_REPEATED]
    documents += [generator.document(path) for path in repeated]
    valid = valid_ones(schema, documents, folder)
    faults: set[Fault] = set()
    for document in valid:
        record.judge(document, root, faults)
    return faults, len(documents), len(valid)


def copybook_of(schema: Path, folder: Path) -> Path:
    copybook = folder / "record.cpy"
    args = [schema.name, "-c", str(copybook), "-noprompt"]
    harness.run(schema.parent, harness.program_under_test(), *args)
    if not copybook.exists() or not copybook.stat().st_size:
        pytest.skip("there is no copybook")
    return copybook


@NEEDS_XMLLINT
@pytest.mark.parametrize("schema", SCHEMAS, ids=name_of)
def test_findings_are_those_of_the_judge(schema: Path, tmp_path: Path) -> None:
    copybook = copybook_of(schema, tmp_path)
    for number, shown in enumerate(records_of(copybook)):
        items = shown["items"]
        folder = tmp_path / str(number)
        folder.mkdir()
        found = as_faults(findings_of(schema, copybook, "--record", shown["name"]))
        expected, made, valid = judged(schema, items, folder)
        print(f"{shown['name']}: {made} documents, {valid} of them valid")
        assert valid > 0, "no document is valid"
        assert found - expected == set(), "found without a document"
        assert expected - found == set(), "not found"


@pytest.mark.parametrize("options", [[], ["--unbounded", "3", "--text", "40"]], ids=["", "limits"])
@pytest.mark.parametrize("schema", SCHEMAS, ids=name_of)
def test_repair_leaves_nothing_of_what_it_mends(
    schema: Path, options: list[str], tmp_path: Path
) -> None:
    copybook = copybook_of(schema, tmp_path)
    repaired = tmp_path / "repaired.cpy"
    findings_of(schema, copybook, "--repair", str(repaired), *options)
    left = findings_of(schema, repaired)
    assert [each for each in left if each["code"] in MENDED] == []
    compiled = harness.run(tmp_path, harness.program_under_test("ZBC"), repaired.name)
    assert compiled.returncode == 0, harness.readable(compiled.stderr)
