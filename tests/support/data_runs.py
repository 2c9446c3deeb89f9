"""Runs fdrec on a copybook and data, and checks what it says of the run."""

from __future__ import annotations

import re
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from subprocess import CompletedProcess
from typing import Callable, Iterable

from support import harness

TIME_LIMIT = 60  # seconds
SUMMARY = re.compile(r"^fdrec: (\d+) records? read, (\d+) with errors$", re.MULTILINE)
CODES = (
    "digit range character number overflow precision length occurs odo count view "
    "frame short long unknown text xml json"
).split()
ERROR = re.compile(rf"^fdrec: -:.*: error: .+ \[({'|'.join(CODES)})\]$")
COPYBOOK = "r.cpy"


def fdrec(directory: Path, data: bytes, *arguments: str) -> CompletedProcess[bytes]:
    """Runs a command on the copybook; the data is the standard input."""
    command, *options = arguments
    return harness.run_in_time(
        [harness.program_under_test("FDREC"), command, *options, COPYBOOK],
        data,
        TIME_LIMIT,
        cwd=directory,
        env=harness.environment(),
    )


def write_copybook(directory: Path, *items: str) -> None:
    lines = ["       01  R.", *(f"           {item}." for item in items)]
    (directory / COPYBOOK).write_text("\n".join(lines) + "\n", encoding="ascii")


def check_summary(result: CompletedProcess[bytes], converted: int) -> None:
    """The run ended by itself, told each error, and counted those that were converted."""
    *messages, summary = result.stderr.decode().splitlines() or [""]
    if result.returncode == 0:
        assert result.stderr == b""
        return
    assert result.returncode == 1, harness.readable(result.stderr)
    found = SUMMARY.fullmatch(summary)
    assert found, harness.readable(result.stderr)
    assert int(found[1]) - int(found[2]) == converted
    assert all(map(ERROR.match, messages)), harness.readable(result.stderr)
    assert len(messages) >= int(found[2])


def run_all(runs: Iterable[Callable[[], None]]) -> None:
    with ThreadPoolExecutor(2) as threads:
        for each in [threads.submit(run) for run in runs]:
            each.result()
