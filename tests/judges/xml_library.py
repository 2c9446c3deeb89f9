"""Asks the XML library by itself what it reports of a schema or a document.

The environment variable LIBRARY_VERDICT names the program that asks it.
"""

from __future__ import annotations

from functools import cache
from pathlib import Path
from typing import NamedTuple

from support import harness


class Verdict(NamedTuple):
    errors: int
    warnings: int


@cache
def library_verdict(file: Path) -> Verdict:
    """What is reported of the file, which is a schema if its extension is .xsd."""
    kind = "schema" if file.suffix.lower() == ".xsd" else "document"
    judge = harness.program_under_test("LIBRARY_VERDICT")
    done = harness.run(file.parent, judge, kind, file.name)
    assert done.returncode == 0, harness.readable(done.stderr)
    errors, warnings = done.stdout.split()
    return Verdict(int(errors), int(warnings))
