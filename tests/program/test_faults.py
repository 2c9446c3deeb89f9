"""Each system call that writes, opens, renames, forks, removes or allocates fails at its n-th use.

strace makes it fail. Whatever fails, no signal ends the process, each output is the old one or
the new one as a whole, and a status of 0 means that nothing is missing.

Calls that a run repeats often are sampled, and so are those of its start, which belong to the
system's loader; with FDMORPH_FAULTS=all each of them fails. The loader may end by a signal.
"""

from __future__ import annotations

import os
import re
import shutil
import subprocess
from pathlib import Path
from typing import NamedTuple

import pytest
from support.comparison import Tree, read_tree
from support.harness import environment, is_instrumented, path_with, program_under_test

TIME_LIMIT = 60
IS_SAMPLED = os.environ.get("FDMORPH_FAULTS") != "all"
SAMPLES_OF_START = 3
SAMPLES = 10

NO_ROOM = "error=ENOSPC"
NO_MEMORY = "error=ENOMEM"
FAULTS = {  # the calls, and how they fail
    "write": NO_ROOM,
    "openat": NO_ROOM,
    "rename": NO_ROOM,
    "unlink": "error=EIO",
    "close": "error=EIO",
    "fchmod": "error=EIO",
    "ftruncate": NO_ROOM,
    "clone": "error=EAGAIN",
    "fork": "error=EAGAIN",
    "vfork": "error=EAGAIN",
    "clone3": "error=EAGAIN",
    "execve": NO_MEMORY,
    "mmap": NO_MEMORY,
    "brk": "retval=0",  # the kernel reports an unchanged break, not an error
    "mremap": NO_MEMORY,
    "flock": "error=ENOLCK",
}
# fdmorph and zbc begin with it; what is before it, the system does.
FIRST_CALL = re.compile(r"^(?:\d+ +)?rt_sigaction\(SIG(?:PIPE|INT), ")
CALL = re.compile(r"^(?:\d+ +)?(\w+)\(")
TEMPORARY = re.compile(r"^file[a-z0-9]{6}\.(cbl|dbi|int|xml)$")

OLD = b"of an earlier run\n"
SCHEMA = """<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema"><xs:element name="h">
<xs:complexType><xs:sequence>{}</xs:sequence></xs:complexType></xs:element></xs:schema>
"""
COPYBOOK = "       01  ORDER.\n" + "".join(f"           05  I{i} PIC X(5).\n" for i in range(1500))


class Program(NamedTuple):
    """A command, its input, and the outputs, with the streams that may take them instead."""

    variable: str  # names the program
    arguments: list[str]
    inputs: dict[str, str]
    outputs: list[str]


MEMBERS = "".join(f'<xs:element name="e{i}" type="xs:string"/>' for i in range(1500))
PROGRAMS = {
    "schema": Program(
        "FDMORPH", ["-noprompt", "a.xsd"], {"a.xsd": SCHEMA.format(MEMBERS)}, ["a.cpy"]
    ),
    "copybook": Program(
        "FDMORPH",
        ["-noprompt", "-m", "a.map", "a.cpy"],
        {"a.cpy": COPYBOOK},
        ["a.map", "a.xsd", "a-fdmorph.cpy"],
    ),
    "program": Program(
        "FDMORPH", ["-noprompt", "a.cbl"], {"a.cbl": COPYBOOK}, ["a.xsd", "a-fdmorph.cpy"]
    ),
    "compiler": Program("ZBC", ["-C", "XMLGEN(WS)", "a.cpy"], {"a.cpy": COPYBOOK}, ["a.xml"]),
}


class Runner:
    """Runs a program in fresh folders, under strace."""

    def __init__(self, program: Program, folder: Path) -> None:
        self.program = program
        self.folder = folder
        (folder / "bin").mkdir()
        (folder / "bin" / "zbc").symlink_to(program_under_test("ZBC"))
        self.new: Tree = {}  # the outputs of a good run
        self.streams = (b"", b"")  # what it prints

    def run(self, options: list[str]) -> tuple[subprocess.CompletedProcess[bytes], Tree]:
        work = self.folder / "work"
        shutil.rmtree(work, ignore_errors=True)
        work.mkdir()
        for name, text in self.program.inputs.items():
            (work / name).write_text(text)
        for name in self.program.outputs:
            if name != "a.map":  # read if it exists
                (work / name).write_bytes(OLD)
        trace = self.folder / "trace"
        command = ["strace", "-o", str(trace), *options, program_under_test(self.program.variable)]
        result = subprocess.run(
            [*command, *self.program.arguments],
            cwd=work,
            env=environment(PATH=path_with(self.folder / "bin")),
            stdin=subprocess.DEVNULL,
            capture_output=True,
            timeout=TIME_LIMIT,
            check=False,
        )
        return result, read_tree(work)

    def measure(self) -> dict[str, tuple[int, int]]:
        """Of each call: how often the start uses it, and how often the whole run."""
        result, tree = self.run(["-e", "trace=" + ",".join(["rt_sigaction", *FAULTS])])
        assert result.returncode == 0, result.stderr.decode()
        self.streams = (result.stdout, result.stderr)
        self.new = {name: tree[name] for name in self.program.outputs}
        assert sorted(tree) == sorted([*self.program.inputs, *self.program.outputs])
        counts: dict[str, list[int]] = {}
        is_start = True
        for line in (self.folder / "trace").read_text(errors="replace").splitlines():
            is_start = is_start and not FIRST_CALL.match(line)
            if call := CALL.match(line):
                count = counts.setdefault(call[1], [0, 0])
                count[0] += is_start
                count[1] += 1
        assert not is_start
        counts.pop("rt_sigaction")
        return {name: (count[0], count[1]) for name, count in counts.items()}

    def check(self, call: str, number: int, is_start: bool) -> None:
        fault = f"inject={call}:{FAULTS[call]}:when={number}"
        result, tree = self.run(["-e", "trace=" + call, "-e", fault])
        where = f"{fault}: status {result.returncode}\n{result.stdout.decode()[:2000]}"
        where += result.stderr.decode()[:2000]
        assert is_start or 0 <= result.returncode < 128, where
        is_redirected = False
        for name in self.program.outputs:
            content = tree.pop(name, None)
            old = None if name == "a.map" else OLD
            if content == self.new[name]:
                continue
            assert content == old, f"{name} is not whole; {where}"
            # An output whose name cannot be opened goes to the standard output.
            is_redirected = self.new[name] in result.stdout
            assert result.returncode != 0 or is_redirected, f"{name} is missing; {where}"
        if result.returncode == 0 and not is_redirected and not is_start:
            assert (result.stdout, result.stderr) == self.streams, f"messages are lost; {where}"
        for name in self.program.inputs:
            assert tree.pop(name) == self.program.inputs[name].encode(), where
        # Nobody can remove a file when that fails, and a failed compile leaves the copy.
        is_left = call == "unlink" or re.search(rb"Failed to |Unable to create ", result.stdout)
        left = [each for each in tree if not (is_left and self.is_by_product(each))]
        assert not left, f"{left} stay; {where}"

    @staticmethod
    def is_by_product(name: str) -> bool:
        return bool(TEMPORARY.match(name)) or name == "a.xml" or name.startswith(".fdmorph-")


def sample(numbers: list[int], count: int) -> list[int]:
    """The first and the last of the numbers, and others at equal distances."""
    if not IS_SAMPLED or len(numbers) <= count:
        return numbers
    return [numbers[i * (len(numbers) - 1) // (count - 1)] for i in range(count)]


@pytest.mark.parametrize("name", PROGRAMS)
def test_a_fault_leaves_no_half_file(tmp_path: Path, name: str) -> None:
    if is_instrumented(program_under_test()):
        pytest.skip("a sanitizer cannot be traced")
    runner = Runner(PROGRAMS[name], tmp_path)
    counts = runner.measure()
    for call, (start, total) in sorted(counts.items()):
        of_start = sample(list(range(1, start + 1)), SAMPLES_OF_START)
        for number in of_start + sample(list(range(start + 1, total + 1)), SAMPLES):
            runner.check(call, number, number <= start)
    assert {"write", "openat", "rename", "mmap", "brk"} <= set(counts)
