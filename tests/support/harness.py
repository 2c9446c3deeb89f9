"""Runs the programs under test and the tools that judge their output.

The environment variables FDMORPH, FDREC and ZBC name the programs under test.
"""

from __future__ import annotations

import os
import signal
import subprocess
from pathlib import Path
from subprocess import CompletedProcess
from typing import Any

import pytest

TESTS = Path(__file__).resolve().parent.parent
FAKE_COMPILER = TESTS / "fake_zbc" / "zbc"
TIME_LIMIT = 120  # seconds


def program_under_test(variable: str = "FDMORPH") -> str:
    path = os.environ.get(variable, "")
    if not os.access(path, os.X_OK):
        pytest.fail(f'{variable} must name the program under test; it is "{path}"', pytrace=False)
    return os.path.abspath(path)


def is_instrumented(program: str) -> bool:
    """Whether a sanitizer is in the program, which then needs terabytes of addresses, and
    cannot be traced."""
    return b"__asan_init" in Path(program).read_bytes()


def skip_if_instrumented() -> None:
    """Skips a test that takes a minute with a sanitizer, unless there is time for long ones."""
    if is_instrumented(program_under_test()) and "FDMORPH_LONG_TESTS" not in os.environ:
        pytest.skip("takes a minute with a sanitizer")


def environment(**additions: str) -> dict[str, str]:
    """The environment of a run, with a locale that is the same everywhere."""
    return {**os.environ, "LC_ALL": "C.UTF-8", **additions}


def run_in_time(
    command: list[str], stdin: bytes, seconds: int, **options: Any
) -> CompletedProcess[bytes]:
    """Runs the command in its own process group, which is killed after the given time."""
    pipes = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
    with subprocess.Popen(command, start_new_session=True, **pipes | options) as process:
        try:
            stdout, stderr = process.communicate(stdin, timeout=seconds)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            pytest.fail(f"still running after {seconds} s", pytrace=False)
    return CompletedProcess(command, process.returncode, stdout, stderr or b"")


def run(directory: Path, *command: str, **additions: str) -> CompletedProcess[bytes]:
    """Runs the command in the directory, without input, with additions to the environment."""
    variables = environment(**additions)
    return run_in_time(list(command), b"", TIME_LIMIT, cwd=directory, env=variables)


def readable(output: bytes) -> str:
    """The text of a stream; bytes that are not UTF-8 are shown as escapes."""
    return output.decode("utf-8", "backslashreplace")


def describe_signal(status: int) -> str:
    """The signal that killed the process, for a status below zero."""
    return f"killed by signal {-status} ({signal.strsignal(-status)})"


def path_with(folder: Path) -> str:
    """The search path for programs with the folder ahead of it."""
    return os.pathsep.join([str(folder), *os.get_exec_path()])
