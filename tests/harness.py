"""What the tests that run the whole program share.

The environment variables FDMORPH and ZBC name the programs under test.
"""

from __future__ import annotations

import os
import signal
import subprocess
from typing import Any

import pytest


def program_under_test(variable: str = "FDMORPH") -> str:
    path = os.environ.get(variable, "")
    if not os.access(path, os.X_OK):
        pytest.fail(f'{variable} must name the program under test; it is "{path}"', pytrace=False)
    return os.path.abspath(path)


def run_in_time(
    command: list[str], stdin: bytes, seconds: int, **options: Any
) -> subprocess.CompletedProcess[bytes]:
    """Runs the command in a process group of its own, which ends with it when time is up."""
    pipes = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
    with subprocess.Popen(command, start_new_session=True, **pipes | options) as process:
        try:
            stdout, stderr = process.communicate(stdin, timeout=seconds)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            pytest.fail(f"still running after {seconds} s", pytrace=False)
    return subprocess.CompletedProcess(command, process.returncode, stdout, stderr or b"")


def describe_signal(status: int) -> str:
    """What killed the process, for a status below zero."""
    return f"killed by signal {-status} ({signal.strsignal(-status)})"
