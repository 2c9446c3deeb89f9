"""A conversion comes to an end by itself, whatever circles its schema has.

The seeds are fixed, so a schema that fails can be made again. FDMORPH_RECURSIVE_SCHEMAS names
other ones: "1000:11000" runs the seeds from 1,000 to 10,999.
"""

from __future__ import annotations

import os
from pathlib import Path

import pytest
from support.harness import describe_signal, program_under_test, readable, run
from support.recursive_schemas import MAIN, RecursiveSchemaMaker

BATCH_SIZE = 10
FIRST, END = map(int, os.environ.get("FDMORPH_RECURSIVE_SCHEMAS", "0:200").split(":"))


def complaint(directory: Path) -> str:
    """What is wrong with the run on the schema in the directory; "" if nothing is."""
    result = run(directory, program_under_test(), MAIN, "-noprompt")
    if result.returncode < 0:
        return describe_signal(result.returncode)
    lines = readable(result.stderr).splitlines()
    internal = [line for line in lines if line.startswith("Internal Error")]
    return internal[0] if internal else ""


@pytest.mark.parametrize("first", range(FIRST, END, BATCH_SIZE))
def test_every_walk_ends(first: int, tmp_path: Path) -> None:
    for seed in range(first, min(first + BATCH_SIZE, END)):
        directory = tmp_path / str(seed)
        directory.mkdir()
        RecursiveSchemaMaker(seed).write(directory)
        assert complaint(directory) == "", f"seed {seed}"


def test_some_of_the_schemas_are_recursive(tmp_path: Path) -> None:
    refused = 0
    for seed in range(50):
        directory = tmp_path / str(seed)
        directory.mkdir()
        RecursiveSchemaMaker(seed).write(directory)
        result = run(directory, program_under_test(), MAIN, "-noprompt")
        refused += b"Error : Cannot convert recursive reference of " in result.stderr
    assert refused >= 10
