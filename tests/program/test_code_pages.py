"""Compares the tables of single-byte character sets with those of iconv, byte for byte."""

from __future__ import annotations

import shutil
import subprocess
from pathlib import Path

import pytest
from support import harness

NEEDS_ICONV = pytest.mark.skipif(shutil.which("iconv") is None, reason="iconv is not installed")

# The names of both libraries.
PAGES = {
    "cp037": "IBM037",
    "cp273": "IBM273",
    "cp500": "IBM500",
    "cp1047": "IBM1047",
    "cp1140": "IBM1140",
    "cp1141": "IBM1141",
    "latin-1": "ISO-8859-1",
    "ascii": "ASCII",
}


def iconv_character(name: str, byte: int) -> int | None:
    done = subprocess.run(
        ["iconv", "-f", name, "-t", "UTF-32BE"], input=bytes([byte]), capture_output=True
    )
    return int.from_bytes(done.stdout, "big") if done.returncode == 0 else None


def our_characters(directory: Path, name: str) -> list[int | None]:
    program = harness.program_under_test("ITEM_VALUES")
    done = harness.run(directory, program, "characters", name)
    assert done.returncode == 0, harness.readable(done.stderr)
    return [None if word == b"-" else int(word) for word in done.stdout.split()]


@NEEDS_ICONV
@pytest.mark.parametrize("name", PAGES)
def test_characters_are_those_of_iconv(name: str, tmp_path: Path) -> None:
    ours = our_characters(tmp_path, name)
    theirs = [iconv_character(PAGES[name], byte) for byte in range(256)]
    differences = {
        hex(byte): (ours[byte], theirs[byte]) for byte in range(256) if ours[byte] != theirs[byte]
    }
    assert differences == {}


# The judge tells the brackets of these two apart.
@NEEDS_ICONV
def test_iconv_tells_code_pages_apart() -> None:
    assert iconv_character("IBM037", 0xAD) != iconv_character("IBM1047", 0xAD)
