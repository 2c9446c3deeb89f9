"""Checks Debian packages with lintian."""

from __future__ import annotations

import os
import re
import shutil
from pathlib import Path

import pytest
from support.harness import readable, run_in_time

NEEDS_LINTIAN = pytest.mark.skipif(
    shutil.which("lintian") is None, reason="lintian is not installed"
)
TIME_LIMIT = 600  # seconds; it starts many processes
# They take two thirds of the time. test_manuals.py checks the man pages, too.
SLOW_CHECKS = (
    "binaries/spelling",
    "documentation/manual",
    "files/compressed/gz",
    "files/contents",
    "files/encoding",
    "files/privacy-breach",
    "files/unicode/trojan",
    "libraries/embedded",
)
COMPLAINT = re.compile(r"^([EW]): ([a-z0-9.+-]+): (.*)$", re.MULTILINE)


def complaints(packages: list[Path]) -> dict[str, list[str]]:
    """The errors and warnings about each package: the letter E or W, the name of the tag, and
    what it is about. Runs that are not long leave out slow checks."""
    options = ["--allow-root", "--no-cfg", "--tag-display-limit=0", "--fail-on=none"]
    if "FDMORPH_LONG_TESTS" not in os.environ:
        options += ["-X", ",".join(SLOW_CHECKS)]
    command = ["lintian", *options, *map(str, packages)]
    result = run_in_time(command, b"", TIME_LIMIT, cwd=packages[0].parent)
    assert result.returncode == 0, readable(result.stderr)
    found: dict[str, list[str]] = {}
    for severity, package, tag in COMPLAINT.findall(readable(result.stdout)):
        found.setdefault(package, []).append(f"{severity}: {tag}")
    return found
