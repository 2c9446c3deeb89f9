"""xmllint reads the schemas of documents of the COBOL sources in the corpus, and of the records
that fdmorph makes of its schemas.

Every redefinition is a possible view in them, so that choices of views are frequent.
"""

from __future__ import annotations

import json
import os
from pathlib import Path

import pytest
from judges.xmllint import DOCUMENT_REFUSED, NEEDS_XMLLINT, validate
from support import harness
from support.cobol_sources import SOURCES
from support.corpus import corpus_files, name_of, require_corpus

LARGEST = 3_000_000  # bytes of a copybook
SCHEMAS = corpus_files("xsd", ".xsd")
SAMPLE = 60

require_corpus(SCHEMAS)


def sample(files: list[Path]) -> list[Path]:
    if "FDMORPH_LONG_TESTS" in os.environ or len(files) <= SAMPLE:
        return files
    return [files[i * len(files) // SAMPLE] for i in range(SAMPLE)]


def rules_of(copybook: Path) -> list[str]:
    """A rule for each item that redefines or is redefined, if its name is clear."""
    program = harness.program_under_test("FDREC")
    done = harness.run(copybook.parent, program, "show", "--json", copybook.name)
    if not done.stdout:
        return []
    names: list[str] = []
    views: set[str] = set()
    for record in json.loads(done.stdout)["records"]:
        for item in record["items"]:
            names.append(item["name"].upper())
            if "redefines" in item:
                views.update((names[-1], item["redefines"].upper()))
    return [f"--when={name}:" for name in sorted(views) if names.count(name) == 1]


def check_schema(copybook: Path, folder: Path) -> None:
    program = harness.program_under_test("FDREC")
    for rules in [], rules_of(copybook):
        options = ["--lines", "--omit-empty", *rules, "-o", f"{folder}/"]
        done = harness.run(copybook.parent, program, "schema", copybook.name, *options)
        reports = harness.readable(done.stderr)
        assert done.returncode in (0, 1), reports
        if done.returncode == 1:
            assert ": error: " in reports
            pytest.skip("the source has an error, or its records cannot be documents")
        document = folder / "a.xml"
        document.write_text("<no-such-element/>")
        assert validate(folder / "schema.xsd", document)[0] == DOCUMENT_REFUSED


@NEEDS_XMLLINT
@pytest.mark.parametrize("source", [pytest.param(path, id=name_of(path)) for path in SOURCES])
def test_the_schema_of_a_source_is_accepted(source: Path, tmp_path: Path) -> None:
    check_schema(source, tmp_path)


@NEEDS_XMLLINT
@pytest.mark.parametrize(
    "schema", [pytest.param(path, id=name_of(path)) for path in sample(SCHEMAS)]
)
def test_the_schema_of_a_generated_record_is_accepted(schema: Path, tmp_path: Path) -> None:
    copybook = tmp_path / "a.cpy"
    options = [schema.name, "-c", str(copybook), "-noprompt"]
    harness.run(schema.parent, harness.program_under_test(), *options)
    if not copybook.exists() or not 0 < copybook.stat().st_size <= LARGEST:
        pytest.skip("there is no copybook, or it is very large")
    check_schema(copybook, tmp_path / "schema")
