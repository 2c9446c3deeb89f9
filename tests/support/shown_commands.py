"""Runs the commands that a page of the documents shows.

A fenced block `console` holds commands, in lines that begin with "$ " and that lines
beginning with "> " continue, each followed by what it prints on both streams.  A line "..."
stands for any number of lines; blanks at the end of a line do not count.  A command that fails
is followed by "$ echo $?".  A block with the word file=NAME is a file, which is there when the
commands after it run.
"""

from __future__ import annotations

import difflib
import re
import shlex
from dataclasses import dataclass, field
from pathlib import Path

import pytest
from markdown_page import CodeBlock
from support.harness import environment, path_with, program_under_test, readable, run_in_time

TIME_LIMIT = 60  # seconds
MARK = "\x1e"  # around the exit status of each command
PROGRAMS = {"fdmorph": "FDMORPH", "fdrec": "FDREC", "zbc": "ZBC"}  # the variables that name them


@dataclass
class Command:
    text: str
    line: int
    output: list[str] = field(default_factory=list)


def commands_of(block: CodeBlock) -> list[Command]:
    commands: list[Command] = []
    for number, line in enumerate(block.text.splitlines(), block.line):
        if line.startswith("$ "):
            commands.append(Command(line[2:], number))
        elif not commands:
            raise ValueError(f"line {number}: output before the first command")
        elif line.startswith("> ") and not commands[-1].output:
            commands[-1].text += "\n" + line[2:]
        else:
            commands[-1].output.append(line)
    return commands


def pattern_of(lines: list[str]) -> re.Pattern[str]:
    parts = ["(?:.*\n)*?" if line == "..." else re.escape(line.rstrip()) + " *\n" for line in lines]
    return re.compile("".join(parts))


def write_file(folder: Path, block: CodeBlock) -> str:
    """The shell command that writes the file of the block."""
    path = folder / block.file
    return f"mkdir -p {shlex.quote(str(path.parent))}; printf %s {shlex.quote(block.text)} > " + (
        shlex.quote(str(path))
    )


def script_of(folder: Path, blocks: list[CodeBlock]) -> tuple[str, list[Command]]:
    """The shell script that runs the commands and marks the end of each, and the commands."""
    lines = ["exec 2>&1 < /dev/null", "last=0"]
    commands = []
    for block in blocks:
        if block.file:
            lines.append(write_file(folder, block))
        if block.language != "console":
            continue
        for command in commands_of(block):
            commands.append(command)
            lines.append(f"(exit $last); eval {shlex.quote(command.text)}")
            lines.append(f"last=$?; printf '{MARK}%d{MARK}' $last")
    return "\n".join(lines) + "\n", commands


def programs_folder(folder: Path) -> Path:
    """A folder with the programs under test, for the search path."""
    folder.mkdir(parents=True)
    for name, variable in PROGRAMS.items():
        (folder / name).symlink_to(program_under_test(variable))
    return folder


def difference(command: Command, found: str) -> str:
    lines = difflib.ndiff(command.output, found.splitlines())
    return "\n".join(line for line in lines if not line.startswith("?"))


def run_blocks(page: Path, blocks: list[CodeBlock], folder: Path) -> None:
    """Runs the commands of the blocks in the folder and compares what they print."""
    folder.mkdir(exist_ok=True)
    script, commands = script_of(folder, blocks)
    path = path_with(programs_folder(folder.parent / f"{folder.name}-programs"))
    result = run_in_time(
        ["bash", "-c", script],
        b"",
        TIME_LIMIT,
        cwd=folder,
        env=environment(PATH=path, HOME=str(folder)),
    )
    pieces = re.split(f"{MARK}([0-9]+){MARK}", readable(result.stdout))
    outputs, statuses = pieces[0::2], pieces[1::2]
    report = []
    if len(statuses) != len(commands):
        report.append(f"{page.name}: {len(statuses)} of {len(commands)} commands have ended")
    for index, (command, found, status) in enumerate(zip(commands, outputs, statuses)):
        place = f"{page.name}:{command.line}: {command.text}"
        if found and not found.endswith("\n"):
            found += "\n"
        if not pattern_of(command.output).fullmatch(found):
            report.append(f"{place}\n{difference(command, found)}")
        following = commands[index + 1].text if index + 1 < len(commands) else ""
        if status != "0" and following != "echo $?":
            report.append(f"{place}\nstatus {status}, and no `echo $?` after it")
    if report:
        pytest.fail("\n".join(report), pytrace=False)
