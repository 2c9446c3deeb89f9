"""Runs cobc on data divisions, without generating code."""

from __future__ import annotations

import os
import re
import shutil
import subprocess
from functools import cache
from pathlib import Path

import pytest

HEAD = [
    "       IDENTIFICATION DIVISION.",
    "       PROGRAM-ID. JUDGE.",
    "       DATA DIVISION.",
    "       WORKING-STORAGE SECTION.",
]
TAIL = ["       PROCEDURE DIVISION.", "           STOP RUN."]
OPTIONS = ["-fsyntax-only", "-fixed", "-fmax-errors=1000000"]
TIME_LIMIT = 120  # seconds
NEEDS_COBC = pytest.mark.skipif(shutil.which("cobc") is None, reason="cobc is not installed")


def program_with(lines: list[str]) -> str:
    """A program whose working storage holds the lines."""
    return "\n".join([*HEAD, *lines, *TAIL, ""])


def run_cobc(source: Path, *options: str) -> tuple[int, list[str]]:
    """The status and the printed lines of cobc, run in the folder of the source."""
    result = subprocess.run(
        ["cobc", *OPTIONS, *options, source.name],
        cwd=source.parent,
        env={**os.environ, "LC_ALL": "C"},
        capture_output=True,
        encoding="latin-1",
        check=False,
        timeout=TIME_LIMIT,
    )
    return result.returncode, [*filter(None, (result.stdout + result.stderr).split("\n"))]


@cache
def reserved_words() -> frozenset[str]:
    """The words that cobc does not accept as data names; context-sensitive words are left out."""
    listing = subprocess.run(
        ["cobc", "--list-reserved"], capture_output=True, text=True, check=True
    ).stdout
    words = re.findall(r"^([A-Z0-9-]+) +(?:Yes|No)(?! \(Context)", listing, re.MULTILINE)
    return frozenset(words)
