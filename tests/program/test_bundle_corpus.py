"""Bundles the schemas of the corpus, from a working directory elsewhere.

The converter makes the same copybook from a bundle as from the schema in its own folder, and
accepts the bundle as it accepts the schema. Of a large corpus a sample is taken, unless the
environment has FDMORPH_LONG_TESTS.
"""

from __future__ import annotations

import os
import re
from pathlib import Path
from subprocess import CompletedProcess

import pytest
from support import harness
from support.corpus import corpus_files, name_of, require_corpus
from support.schema_locations import files_referred_to

SAMPLE = 12
SUMMARY = re.compile(r"^\d+ error\(s\), \d+ warning\(s\)\n\Z", re.MULTILINE)


def sample(files: list[Path]) -> list[Path]:
    """Those that refer to other files, before those that do not."""
    ordered = sorted(files, key=lambda path: not files_referred_to(path))
    return ordered if "FDMORPH_LONG_TESTS" in os.environ else ordered[:SAMPLE]


SCHEMAS = sample(corpus_files("xsd", ".xsd"))

require_corpus(SCHEMAS)


def convert(schema: Path, copybook: Path) -> str:
    """The summary of the conversion in the schema's folder."""
    args = [schema.name, "-c", str(copybook), "-noprompt"]
    done = harness.run(schema.parent, harness.program_under_test(), *args)
    summary = SUMMARY.search(harness.readable(done.stderr))
    assert summary, harness.readable(done.stderr)
    return summary[0]


def validate(schema: Path) -> int:
    return harness.run(schema.parent, harness.program_under_test(), "-v", schema.name).returncode


@pytest.mark.parametrize("schema", SCHEMAS, ids=name_of)
def test_a_bundle_gives_the_same_record(schema: Path, tmp_path: Path) -> None:
    folder = tmp_path / "bundle"
    args = ["bundle", str(schema), "-o", folder.name]
    done: CompletedProcess[bytes] = harness.run(
        tmp_path, harness.program_under_test("FDREC"), *args
    )
    errors = [line for line in harness.readable(done.stderr).splitlines() if "error: " in line]
    assert (done.returncode, errors) == (0, [])
    listed = dict(line.split(" <- ") for line in harness.readable(done.stdout).splitlines())
    assert Path(listed[schema.name]) == schema
    assert sorted([*listed, "fdrec-bundle.txt"]) == sorted(os.listdir(folder))

    before, after = tmp_path / "before.cpy", tmp_path / "after.cpy"
    assert convert(folder / schema.name, after) == convert(schema, before)
    assert after.exists() == before.exists()
    if before.exists():
        assert after.read_bytes() == before.read_bytes()
    assert validate(folder / schema.name) == validate(schema)
