"""The line that shows on a terminal what a run of fdmorph is at, from the second second on.

Time passes while a question waits for its answer, or while a compiler runs.
"""

from __future__ import annotations

import fcntl
import os
import pty
import re
import signal
import struct
import subprocess
import sys
import termios
import time
from collections.abc import Iterator
from contextlib import contextmanager
from pathlib import Path
from typing import Any

import pytest
from support.harness import TIME_LIMIT, environment, path_with, program_under_test

BANNER = """\
Tallmere FDMORPH Version 1.0
Converts between COBOL data definitions and XML Schema
"""
BEFORE = f"""{BANNER}
Checking a.xsd for errors

Validating a.xsd for well-formedness.
No schema errors found, processing XML schema a.xsd
"""
AFTER = """
Successfully converted 1 of 1 schema head element(s).

0 error(s), {} warning(s)
"""
QUESTION = """
Warning : The file "a.cpy" already exists
Would you like to overwrite a.cpy? (y/n) y
"""
SCHEMA = """\
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:element name="{}" type="xs:string"/>
</xs:schema>
"""
SOURCE = """\
       identification division.
       program-id. a.
       data division.
       working-storage section.
       01  customer pic x(20).
"""
CONTROL = re.compile(rb"[^\n\r\x1b]+|\n|\r|\x1b\[K")
SECOND = 1.1  # and a little more, since the clocks of two processes are compared
COLUMNS = 80


def screen(written: bytes) -> str:
    """What a terminal shows in the end."""
    lines, column = [""], 0
    assert b"".join(CONTROL.findall(written)) == written, "an unknown control sequence"
    for piece in CONTROL.findall(written):
        if piece == b"\n":
            lines.append("")
        elif piece == b"\r":
            column = 0
        elif piece == b"\x1b[K":
            lines[-1] = lines[-1][:column]
        else:
            text = piece.decode()
            lines[-1] = lines[-1][:column] + text + lines[-1][column + len(text) :]
            column += len(text)
    return "\n".join(lines)


class Terminal:
    """A terminal, and a run on it."""

    def __init__(self, columns: int = COLUMNS) -> None:
        self.end, self.side = pty.openpty()
        fcntl.ioctl(self.side, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        self.written = b""

    def start(self, directory: Path, *command: str, **options: Any) -> None:
        """Starts a run whose streams are the terminal, but for those of the options."""
        variables = environment(TERM="xterm") | options.pop("env", {})
        streams = {"stdin": self.side, "stdout": self.side, "stderr": self.side}
        self.started = time.monotonic()
        self.process = subprocess.Popen(
            command,
            cwd=directory,
            env={name: value for name, value in variables.items() if value is not None},
            **streams | options,
        )
        os.close(self.side)

    def read(self) -> bool:
        """Reads what has been written. False at the end of the run."""
        try:
            piece = os.read(self.end, 4096)
        except OSError:  # what Linux reports once the other side is closed
            piece = b""
        self.written += piece
        return piece != b""

    def read_until(self, text: bytes) -> None:
        while text not in self.written:
            assert self.read(), f"{text!r} is not in {self.written!r}"

    def answer(self, text: str) -> None:
        os.write(self.end, text.encode())

    def wait_a_second(self) -> None:
        time.sleep(max(0, self.started + SECOND - time.monotonic()))

    def finish(self) -> int:
        while self.read():
            pass
        return self.process.wait(TIME_LIMIT)


@contextmanager
def terminal(columns: int = COLUMNS) -> Iterator[Terminal]:
    opened = Terminal(columns)
    try:
        yield opened
    finally:
        if opened.process.poll() is None:
            opened.process.kill()
            opened.process.wait()
        for stream in filter(None, [opened.process.stdout, opened.process.stderr]):
            stream.close()
        os.close(opened.end)


def write_schema(directory: Path, head: str = "Order") -> None:
    """A schema, and an earlier copybook of it, so that there is a question."""
    directory.mkdir(exist_ok=True)
    (directory / "a.xsd").write_text(SCHEMA.format(head))
    (directory / "a.cpy").write_text("")


def start_with_question(run: Terminal, directory: Path, *options: str, **streams: Any) -> None:
    write_schema(directory)
    run.start(directory, program_under_test(), *options, "a.xsd", **streams)


def test_a_run_of_less_than_a_second_shows_nothing(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(SCHEMA.format("Order"))
    with terminal() as run:
        run.start(tmp_path, program_under_test(), "a.xsd")
        assert run.finish() == 0
    if time.monotonic() - run.started < 1:
        assert run.written.decode() == (BEFORE + AFTER.format(0)).replace("\n", "\r\n")


def test_the_line_is_drawn_and_is_gone_before_the_next_text(tmp_path: Path) -> None:
    with terminal() as run:
        start_with_question(run, tmp_path)
        run.read_until(b"(y/n) ")
        run.wait_a_second()
        run.answer("y\n")
        assert run.finish() == 1
    shown = rb"\(y/n\) y\r\n\rfdmorph: converting Order \(1 of 1\), \d+ s\x1b\[K\r"
    assert re.search(shown, run.written)
    assert screen(run.written) == BEFORE + QUESTION + AFTER.format(1)


# U+00E9 has two bytes. "fdmorph: converting " and " (1 of 1), 1 s" leave 10 of 44 columns.
def test_a_long_name_is_cut_at_a_character(tmp_path: Path) -> None:
    with terminal(columns=45) as run:
        write_schema(tmp_path, "\u00e9" * 30)
        run.start(tmp_path, program_under_test(), "a.xsd")
        run.read_until(b"(y/n) ")
        run.wait_a_second()
        run.answer("y\n")
        assert run.finish() == 1
    shown = r"\rfdmorph: converting \u00e9{7}\.\.\. \(1 of 1\), \d s\x1b\[K\r"
    assert re.search(shown, run.written.decode())


def test_nothing_is_shown_to_those_who_do_not_see_it(tmp_path: Path) -> None:
    pipe = subprocess.PIPE
    ways: dict[str, tuple[list[str], dict[str, Any]]] = {
        "quiet": (["-q"], {}),
        "log": (["-log"], {}),
        "dumb": ([], {"env": {"TERM": "dumb"}}),
        "unknown": ([], {"env": {"TERM": None}}),
        "piped": ([], {"stdout": pipe}),
        "errors": ([], {"stderr": pipe}),
    }
    runs: dict[str, Terminal] = {}
    for name, (options, streams) in ways.items():
        runs[name] = Terminal()
        start_with_question(runs[name], tmp_path / name, *options, **streams)
    for name, run in runs.items():
        if name == "errors":
            assert run.process.stderr is not None
            while not (errors := run.process.stderr.readline()).startswith(b"Warning"):
                assert errors
            run.read_until(b"No schema errors")
        else:
            run.read_until(b"(y/n) ")
    for run in runs.values():
        run.wait_a_second()
        run.answer("y\n")
    for name, run in runs.items():
        assert run.finish() == 1, name
        for stream in filter(None, [run.process.stdout, run.process.stderr]):
            assert b"\x1b" not in stream.read(), name
            stream.close()
        os.close(run.end)
        assert b"\x1b" not in run.written, name
        assert b"fdmorph: " not in run.written, name


# An output that goes to the terminal itself is text, too.
def test_nothing_is_drawn_into_an_output_on_the_terminal(tmp_path: Path) -> None:
    with terminal() as run:
        start_with_question(run, tmp_path, "-c", "/dev/stderr")
        run.read_until(b"(y/n) ")
        run.wait_a_second()
        run.answer("y\n")
        assert run.finish() == 1
    record = '       01 Order PIC X(80) identified by "Order" count in Order-count.\n'
    question = QUESTION.replace("a.cpy", "/dev/stderr")
    assert screen(run.written) == BEFORE + question + record + "\n" + AFTER.format(1)
    assert b"converting" not in run.written


LEADER = """
import fcntl, subprocess, sys, termios
fcntl.ioctl(0, termios.TIOCSCTTY, 0)
group = 0 if sys.argv[1] == "background" else None
sys.exit(subprocess.run(sys.argv[2:], process_group=group).returncode)
"""


def run_in_session(run: Terminal, directory: Path, place: str) -> None:
    """Runs on a terminal that controls the run, with a compiler that takes a second and does
    not end its line."""
    (directory / "bin").mkdir(parents=True)
    compiler = directory / "bin" / "zbc"
    zbc = program_under_test("ZBC")
    compiler.write_text(f'#!/bin/sh\nsleep {SECOND}\nprintf half\nexec {zbc} "$@"\n')
    compiler.chmod(0o755)
    (directory / "a.cbl").write_text(SOURCE)
    command = [sys.executable, "-c", LEADER, place, program_under_test(), "a.cbl"]
    path = path_with(compiler.parent)
    run.start(directory, *command, start_new_session=True, env={"PATH": path})


def test_the_line_is_for_the_foreground_and_for_what_the_parent_does(tmp_path: Path) -> None:
    with terminal() as run, terminal() as background:
        run_in_session(run, tmp_path / "foreground", "foreground")
        run_in_session(background, tmp_path / "background", "background")
        assert run.finish() == 0
        assert background.finish() == 0
    text = f"{BANNER}\nChecking a.cbl for errors\nhalf\n\n0 error(s), 0 warning(s)\n"
    assert re.search(rb"half\r\n\rfdmorph: reading a.xml, \d+ s\x1b\[K\r", run.written)
    assert screen(run.written) == text
    assert background.written.decode() == text.replace("\n", "\r\n")


def large_schema(width: int, depth: int) -> str:
    """A schema whose record has width to the power of depth items, and more."""
    head = '<xs:element name="Large" type="t0"/>'
    types = ""
    for layer in range(depth):
        kind = f"t{layer + 1}" if layer + 1 < depth else "xs:string"
        members = "".join(f'<xs:element name="e{i}" type="{kind}"/>' for i in range(width))
        types += f'<xs:complexType name="t{layer}"><xs:sequence>{members}</xs:sequence>'
        types += "</xs:complexType>"
    schema = '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">{}</xs:schema>'
    return schema.format(head + types)


# The group of the run must have a parent outside, or the system ignores SIGTSTP for it
# (POSIX, General Terminal Interface, Orphaned Process Groups).
def test_the_line_goes_when_the_run_is_stopped_or_ended(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(large_schema(8, 8))
    with terminal() as run:
        run.start(tmp_path, program_under_test(), "a.xsd", process_group=0)
        run.read_until(b"\rfdmorph: converting Large (1 of 1), ")
        assert time.monotonic() - run.started >= 1
        run.process.send_signal(signal.SIGTSTP)
        _, status = os.waitpid(run.process.pid, os.WUNTRACED)
        assert os.WIFSTOPPED(status)
        run.read_until(b"\x1b[K\r\x1b[K")
        assert screen(run.written) == BEFORE
        stopped = len(run.written)
        run.process.send_signal(signal.SIGCONT)
        while run.written.find(b" s\x1b[K", stopped) < 0:
            assert run.read()
        run.process.send_signal(signal.SIGINT)
        assert run.finish() == -signal.SIGINT
    assert screen(run.written) == BEFORE + "Error : Interrupted by a signal\n"


# The library checks all these types without a call of ours.
def test_a_long_check_of_a_schema_is_alive(tmp_path: Path) -> None:
    types = "".join(
        f'<xs:complexType name="t{i}"><xs:sequence><xs:element name="e" type="xs:string"/>'
        "</xs:sequence></xs:complexType>"
        for i in range(20_000)
    )
    schema = '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">{}</xs:schema>'
    (tmp_path / "a.xsd").write_text(schema.format(types))
    with terminal() as run:
        run.start(tmp_path, program_under_test(), "a.xsd")
        run.read_until(b"\rfdmorph: checking a.xsd, 1 file, 1 s\x1b[K")
        run.read_until(b"\rfdmorph: checking a.xsd, 1 file, 2 s\x1b[K")


@pytest.mark.skipif("FDMORPH_LONG_TESTS" not in os.environ, reason="takes half a minute")
@pytest.mark.parametrize("errors", ["terminal", "pipe"])
def test_a_long_run_shows_how_far_it_is(tmp_path: Path, errors: str) -> None:
    (tmp_path / "a.xsd").write_text(large_schema(13, 5))  # 371,293 items at the lowest level
    options = {} if errors == "terminal" else {"stderr": subprocess.DEVNULL}
    with terminal() as run:
        run.start(tmp_path, program_under_test(), "a.xsd", "-unique", **options)
        assert run.finish() == 0
    text = BEFORE + AFTER.format(0) if errors == "terminal" else BEFORE
    assert screen(run.written) == text
    counts = [
        int(each) for each in re.findall(rb"converting Large \(1 of 1\), (\d+) item", run.written)
    ]
    if errors == "terminal":
        assert counts == sorted(counts)
        assert b"writing Large (1 of 1), " in run.written
    else:
        assert b"fdmorph: " not in run.written
