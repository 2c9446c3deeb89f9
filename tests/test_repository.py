"""The rules of the repository that no compiler checks."""

from __future__ import annotations

import re
import subprocess
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parent.parent
MAX_LINES = 400  # of a source file
SOURCES = ("src/*.cpp", "src/*.h", "tests/*.cpp", "tests/*.h", "bench/*.cpp")


def tracked(*patterns: str) -> list[Path]:
    """The files of the repository, new ones included."""
    listing = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", *patterns],
        cwd=ROOT,
        capture_output=True,
        text=True,
        check=False,
    )
    if listing.returncode != 0:
        pytest.skip("not a git checkout")
    return [ROOT / name for name in listing.stdout.splitlines() if (ROOT / name).is_file()]


def names(paths: list[Path]) -> list[str]:
    return [path.relative_to(ROOT).as_posix() for path in paths]


def test_only_the_xml_folder_knows_the_xml_library() -> None:
    library = re.compile(r"#include <xercesc/|\bXMLCh\b|\bxercesc\b")
    users = [
        path
        for path in tracked("src/*.cpp", "src/*.h")
        if path.parent.name != "xml" and library.search(path.read_text(encoding="utf-8"))
    ]
    assert names(users) == []


def test_no_source_file_is_too_long() -> None:
    long = [
        path
        for path in tracked(*SOURCES, "tests/*.py")
        if len(path.read_text(encoding="utf-8").splitlines()) > MAX_LINES
    ]
    assert names(long) == []
