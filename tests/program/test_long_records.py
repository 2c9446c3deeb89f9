"""A record of 32 MB takes little more memory than twice its length, in all directions.

Its document is longer. What counts are the bytes in memory (ru_maxrss), since the
libraries alone take many addresses. Those of this process count for its children, so that it has no
record in memory either.
"""

from __future__ import annotations

import filecmp
import os
from pathlib import Path

import pytest
from support.harness import is_instrumented, program_under_test

FDREC = program_under_test("FDREC")
OPTIONS = ["--dialect", "gnucobol", "--encoding", "ascii"]
MEGABYTE = 1 << 20
ROW = 64
ROWS = MEGABYTE // 2
MOST = 32 * MEGABYTE + 2 * ROW * ROWS

COPYBOOK = f"""\
       01  R.
           05  HEAD PIC X(8).
           05  ROW OCCURS {ROWS}.
               10  NAME PIC X(40).
               10  AMOUNT PIC S9(7)V99.
               10  PART OCCURS 3 PIC X(5).
"""

pytestmark = pytest.mark.skipif(is_instrumented(FDREC), reason="a sanitizer takes memory")


def row(number: int) -> bytes:
    """Bytes of a row; every second amount is negative, which its last digit says."""
    sign = 0x70 if number % 2 else 0x30
    amount = f"{number % 1000:08}".encode() + bytes([sign + number % 10])
    return f"name {number:035}".encode() + amount + f"{'ab':5}{number % 7:<5}{'':5}".encode()


def run(folder: Path, *arguments: str) -> tuple[int, int]:
    """The status of a run, and the bytes of memory that it has had at most."""
    command = [FDREC, *arguments]
    errors = os.open(folder / "stderr", os.O_WRONLY | os.O_CREAT | os.O_TRUNC)
    directory = os.getcwd()
    os.chdir(folder)
    try:
        actions = [(os.POSIX_SPAWN_DUP2, errors, 2)]
        child = os.posix_spawn(command[0], command, os.environ, file_actions=actions)
    finally:
        os.chdir(directory)
        os.close(errors)
    _, status, usage = os.wait4(child, 0)
    return os.waitstatus_to_exitcode(status), usage.ru_maxrss * 1024


def check(folder: Path, *arguments: str, status: int = 0) -> None:
    """Checks the status and the memory of a run."""
    found, peak = run(folder, *arguments)
    assert found == status, (folder / "stderr").read_text()
    assert peak <= MOST, f"{peak / MEGABYTE:.0f} MB"


def change(path: Path, at: int, content: bytes) -> None:
    with path.open("r+b") as file:
        file.seek(at)
        file.write(content)


def tail(path: Path, size: int) -> bytes:
    with path.open("rb") as file:
        file.seek(-size, os.SEEK_END)
        return file.read()


@pytest.fixture(name="folder", scope="module")
def make_folder(tmp_path_factory: pytest.TempPathFactory) -> Path:
    """A folder with one record."""
    path = tmp_path_factory.mktemp("long")
    (path / "r.cpy").write_text(COPYBOOK)
    cycle = b"".join(row(number) for number in range(1024))
    with (path / "r.dat").open("wb") as file:
        file.write(b"HEAD    ")
        for _ in range(ROWS // 1024):
            file.write(cycle)
    return path


@pytest.mark.parametrize(("name", "options"), [("xml", []), ("xml", ["--pretty"]), ("json", [])])
def test_the_document_gives_the_record(folder: Path, name: str, options: list[str]) -> None:
    to = ["to-" + name, *OPTIONS, *options, "-o", "document", "r.cpy", "r.dat"]
    check(folder, *to)
    assert (folder / "document").stat().st_size > ROW * ROWS
    check(folder, "from-" + name, *OPTIONS, "-o", "back.dat", "r.cpy", "document")
    assert filecmp.cmp(folder / "r.dat", folder / "back.dat", shallow=False)


def test_an_error_in_the_last_row_leaves_no_document(folder: Path) -> None:
    at = 8 + ROW * (ROWS - 1) + 40
    change(folder / "r.dat", at, b"?")
    try:
        check(folder, "to-xml", *OPTIONS, "-o", "none", "r.cpy", "r.dat", status=1)
    finally:
        change(folder / "r.dat", at, b"0")
    assert (folder / "none").read_bytes().endswith(b"<records>\n</records>\n")
    place = f"record 1, byte {at} "
    assert place in (folder / "stderr").read_text()


@pytest.mark.parametrize("name", ["xml", "json"])
def test_a_document_with_an_error_at_its_end_goes_to_the_rejects(folder: Path, name: str) -> None:
    check(folder, "to-" + name, *OPTIONS, "--lines", "-o", "document", "r.cpy", "r.dat")
    end = tail(folder / "document", 200)
    # The digit before the point in the last amount.
    at = (folder / "document").stat().st_size - 200 + end.rindex(b".") - 1
    change(folder / "document", at, b"x")
    arguments = ["from-" + name, *OPTIONS, "--rejects", "bad", "-o", "none", "r.cpy", "document"]
    check(folder, *arguments, status=1)
    assert (folder / "none").read_bytes() == b""
    assert filecmp.cmp(folder / "document", folder / "bad", shallow=False)
    code = "number" if name == "xml" else "json"
    assert f"[{code}]" in (folder / "stderr").read_text()


def test_verify_reads_the_document_back(folder: Path) -> None:
    check(folder, "verify", *OPTIONS, "-o", "result", "r.cpy", "r.dat")
    assert (folder / "result").read_text() == "1 records, 0 differ\n"
