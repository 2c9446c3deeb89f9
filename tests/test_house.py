"""The rules of the house that no compiler checks."""

from __future__ import annotations

import re
import subprocess
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parent.parent
LONGEST_FILE = 500  # lines


def tracked(*patterns: str) -> list[Path]:
    listing = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", *patterns],
        cwd=ROOT, capture_output=True, text=True, check=False,
    )  # fmt: skip
    if listing.returncode != 0:
        pytest.skip("not a git checkout")
    return [ROOT / name for name in listing.stdout.splitlines() if (ROOT / name).is_file()]


def test_only_the_xml_folder_knows_the_xml_library() -> None:
    knows = re.compile(r"#include <xercesc/|\bXMLCh\b|\bxercesc\b")
    strangers = [
        path.relative_to(ROOT).as_posix()
        for path in tracked("src/*.cpp", "src/*.h")
        if path.parent.name != "xml" and knows.search(path.read_text(encoding="utf-8"))
    ]
    assert strangers == []


def test_no_source_file_needs_scrolling_for_ever() -> None:
    long = [
        path.relative_to(ROOT).as_posix()
        for path in tracked("src/*.cpp", "src/*.h", "tests/*.cpp", "tests/*.py", "bench/*.cpp")
        if len(path.read_text(encoding="utf-8").splitlines()) > LONGEST_FILE
    ]
    assert long == []
