"""A file that processes convert in parts, as GNU parallel and Slurm start them."""

from __future__ import annotations

import hashlib
import os
import shlex
import shutil
import subprocess
from pathlib import Path
from typing import BinaryIO

import pytest

FDREC = os.environ["FDREC"]
GIGABYTE = 1 << 30
PARTS = 5  # do not divide the number of records

# A Slurm cluster takes minutes to install; FDMORPH_SLURM=yes says that there is one.
HAS_SLURM = os.environ.get("FDMORPH_SLURM") == "yes"

needs_parallel = pytest.mark.skipif(
    shutil.which("parallel") is None, reason="GNU parallel is not installed"
)


def run(directory: Path, *command: str) -> bytes:
    return subprocess.run(
        command, cwd=directory, stdin=subprocess.DEVNULL, capture_output=True, check=True
    ).stdout


def digest(file: BinaryIO) -> tuple[int, str]:
    """The number of lines and a checksum."""
    checksum = hashlib.sha256()
    lines = 0
    while block := file.read(1 << 20):
        checksum.update(block)
        lines += block.count(b"\n")
    return lines, checksum.hexdigest()


def digest_of(directory: Path, *command: str) -> tuple[int, str]:
    with subprocess.Popen(command, cwd=directory, stdout=subprocess.PIPE) as process:
        assert process.stdout
        result = digest(process.stdout)
    assert process.returncode == 0
    return result


def in_parallel(part: str, seen: str) -> tuple[str, ...]:
    """Runs a command for each part, two at a time; the output is in the order of the parts.
    Each adds the number of its process to a file."""
    command = f"echo $$ >> {shlex.quote(seen)}; {part}"
    numbers = map(str, range(1, PARTS + 1))
    return "parallel", "--will-cite", "-j2", "-k", command, ":::", *numbers


@needs_parallel
def test_parts_of_two_gigabytes_make_the_output_of_one_run(tmp_path: Path) -> None:
    """The records hold their numbers where their texts are not x'00', so that each line
    differs from its neighbours. The file is sparse: what is not written takes no room."""
    length = 4096
    count = 2 * GIGABYTE // length
    (tmp_path / "r.cpy").write_text(
        "       01 R.\n           05 N PIC 9(9) COMP.\n           05 T PIC X(4092).\n"
    )
    step = 1000
    with (tmp_path / "r.dat").open("wb") as file:
        for number in range(0, count, step):
            file.seek(number * length)
            file.write(number.to_bytes(4, "big") + b"record %d" % number)
        file.truncate(count * length)

    options = "to-xml r.cpy r.dat --encoding ascii --lines".split()
    lines, checksum = digest_of(tmp_path, FDREC, *options)
    assert lines == count
    part = shlex.join([FDREC, *options]) + f" --part {{}}/{PARTS}"
    assert digest_of(tmp_path, *in_parallel(part, "seen")) == (lines, checksum)
    assert len((tmp_path / "seen").read_text().split()) == PARTS


@needs_parallel
def test_an_index_splits_a_file_with_descriptors(tmp_path: Path) -> None:
    """An index has an entry for every 16 MB: 40 MB have three, and two of five parts are
    empty."""
    length = 32000
    (tmp_path / "r.cpy").write_text(
        "       01 R.\n           05 N PIC 9(5).\n           05 T PIC X(31995).\n"
    )
    count = 40 * (1 << 20) // length
    with (tmp_path / "r.dat").open("wb") as file:
        for number in range(count):
            file.write((length + 4).to_bytes(2, "big") + bytes(2))
            file.write(b"%05d" % number + b" " * (length - 5))

    options = "r.cpy r.dat --encoding ascii --format rdw".split()
    index = run(tmp_path, FDREC, "index", *options).decode()
    (tmp_path / "r.idx").write_text(index)
    one = run(tmp_path, FDREC, "to-json", *options)
    assert one.splitlines()[7] == b'{"N":7,"T":""}'
    assert len(one.splitlines()) == count
    part = shlex.join([FDREC, "to-json", *options]) + f" --index r.idx --part {{}}/{PARTS}"
    assert run(tmp_path, *in_parallel(part, "seen")) == one


def test_a_pipe_of_parts_makes_the_output_of_one_run(tmp_path: Path) -> None:
    """A system that feeds programs with lines starts them without a shell, and reads lines."""
    (tmp_path / "r.cpy").write_text("       01 R.\n           05 N PIC 9(9).\n")
    (tmp_path / "r.dat").write_bytes(b"".join(b"%09d" % i for i in range(1000)))
    command = [FDREC, "to-json", "r.cpy", "r.dat", "--encoding", "ascii"]
    output = b""
    for number in range(1, PARTS + 1):
        pipe = ["xargs", "-I", "{}", *command, "--part", "{}"]
        lines = f"{number}/{PARTS}\n".encode()
        output += subprocess.run(
            pipe, cwd=tmp_path, input=lines, capture_output=True, check=True
        ).stdout
    assert output == run(tmp_path, *command)


@pytest.mark.skipif(not HAS_SLURM, reason="FDMORPH_SLURM is not yes")
def test_an_array_of_jobs_makes_the_output_of_one_run(tmp_path: Path) -> None:
    """Slurm numbers the jobs of an array, each of which converts the part of its number."""
    (tmp_path / "r.cpy").write_text("       01 R.\n           05 N PIC 9(9).\n")
    (tmp_path / "r.dat").write_bytes(b"".join(b"%09d" % i for i in range(100_000)))
    options = "to-json r.cpy r.dat --encoding ascii".split()
    part = shlex.join([FDREC, *options])
    (tmp_path / "parts.sh").write_text(
        f"#!/bin/sh\n#SBATCH --array=1-{PARTS}\n"
        f"{part} --part $SLURM_ARRAY_TASK_ID/$SLURM_ARRAY_TASK_COUNT"
        " -o part-$SLURM_ARRAY_TASK_ID\n"
    )
    run(tmp_path, "sbatch", "--wait", "parts.sh")
    parts = [(tmp_path / f"part-{k}").read_bytes() for k in range(1, PARTS + 1)]
    assert all(parts)
    assert b"".join(parts) == run(tmp_path, FDREC, *options)
