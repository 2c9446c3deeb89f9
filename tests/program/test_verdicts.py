"""Compares the verdicts of the program with those of the XML library by itself.

The files are the schemas and instance documents of the corpus, with W3C's test suite among them,
which has schemas that break each rule. Whatever a file holds, the program ends by itself, its
reports are as many as those of the library, and so they are where it converts a schema.

Of a large corpus a sample is taken, spread evenly, unless the environment has FDMORPH_LONG_TESTS.
"""

from __future__ import annotations

import os
import re
from pathlib import Path

import pytest
from judges.xml_library import Verdict, library_verdict
from support import harness
from support.corpus import corpus_files, name_of, require_corpus
from support.schema_locations import copy_with_schema, listed_instances

SAMPLE = 150  # files of each kind
HIGHEST_STATUS = 255
SUMMARY = re.compile(r"^(\d+) error\(s\), (\d+) warning\(s\)\n\Z", re.MULTILINE)


def sample(files: list[Path]) -> list[Path]:
    if "FDMORPH_LONG_TESTS" in os.environ or len(files) <= SAMPLE:
        return files
    return [files[i * len(files) // SAMPLE] for i in range(SAMPLE)]


SCHEMAS = sample(corpus_files("xsd", ".xsd"))
DOCUMENTS = sample(corpus_files("xsd", ".xml"))
LISTS = [path for path in corpus_files("xsd", ".tsv") if path.name == "INSTANCES.tsv"]
INSTANCES = [instance for listing in LISTS for instance in listed_instances(listing)]

require_corpus(SCHEMAS)


def run(file: Path, *args: str) -> tuple[int, str]:
    """Runs the program beside the file. It has to end by itself, and in time."""
    done = harness.run(file.parent, harness.program_under_test(), *args)
    stderr = harness.readable(done.stderr)
    assert done.returncode >= 0, harness.describe_signal(done.returncode) + stderr
    return done.returncode, stderr


def verdict_of(file: Path) -> Verdict:
    status, stderr = run(file, "-v", file.name)
    summary = SUMMARY.search(stderr)
    assert summary, stderr
    verdict = Verdict(int(summary[1]), int(summary[2]))
    assert status == min(HIGHEST_STATUS, sum(verdict))
    return verdict


def has_document_type(file: Path) -> bool:
    return b"<!DOCTYPE" in file.read_bytes()


@pytest.mark.parametrize("schema", [pytest.param(path, id=name_of(path)) for path in SCHEMAS])
def test_a_schema_is_judged_as_by_the_library(schema: Path) -> None:
    verdict = verdict_of(schema)
    # A document type may be refused ahead of everything else.
    if has_document_type(schema) and sum(verdict):
        pytest.skip("the schema has a document type")
    assert verdict == library_verdict(schema)


@pytest.mark.parametrize("document", [pytest.param(path, id=name_of(path)) for path in DOCUMENTS])
def test_a_document_is_judged_as_by_the_library(document: Path) -> None:
    assert verdict_of(document) == library_verdict(document)


@pytest.mark.parametrize(
    "instance", [pytest.param(item, id=name_of(item.document)) for item in INSTANCES]
)
def test_an_instance_of_a_schema_is_judged_as_by_the_library(instance, tmp_path: Path) -> None:
    document = copy_with_schema(instance, tmp_path)
    assert verdict_of(document) == library_verdict(document)


@pytest.mark.parametrize("schema", [pytest.param(path, id=name_of(path)) for path in SCHEMAS])
def test_a_conversion_ends_by_itself(schema: Path, tmp_path: Path) -> None:
    copybook = tmp_path / "out.cpy"
    status, stderr = run(schema, schema.name, "-c", str(copybook), "-noprompt")
    summary = SUMMARY.search(stderr)
    assert summary, stderr
    verdict = library_verdict(schema)
    # A schema that only its second reading warns of may be converted.
    if verdict.errors:
        assert status == 1
        assert not copybook.exists()
    elif not has_document_type(schema):
        assert copybook.exists() or verdict.warnings
