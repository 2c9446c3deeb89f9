"""Compares the values of items with those of GnuCOBOL programs.

One program moves values to items of all kinds and writes the records; their bytes are read. The
same texts are written as bytes, which are those of the program. Another program reads these and
compares its items with the values.
"""

from __future__ import annotations

import shutil
import subprocess
from decimal import Decimal
from pathlib import Path
from typing import NamedTuple

import pytest
from support import harness

NEEDS_COBC = pytest.mark.skipif(shutil.which("cobc") is None, reason="cobc is not installed")
TIME_LIMIT = 120  # seconds


class Item(NamedTuple):
    clauses: str
    scale: int  # decimal places; 0 also for scaling positions before the point
    values: list[str]  # one a record, as literals of COBOL


def numbers(clauses: str, scale: int, *values: str) -> Item:
    return Item(clauses, scale, list(values))


def texts(clauses: str, *values: str) -> Item:
    return Item(clauses, -1, [f'"{value}"' for value in values])


# Left out is what GnuCOBOL 3.1.2 has wrong: COMP-N is big-endian, 0.1 is not the nearest COMP-2,
# and a minus before a currency sign is shown of positive numbers as well.
#
# Zero, one, minus one, and the largest numbers, or others where there are no negative ones.
ITEMS = [
    texts("PIC X(5)", "", "A", "A B", "abcde", "  x"),
    texts("PIC X(5) JUSTIFIED RIGHT", "", "A", "A B", "abcde", "xy"),
    texts("PIC A(3)", "", "A", "AB", "abc", " x"),
    numbers("PIC 9(4)", 0, "0", "1", "7", "9999", "1234"),
    numbers("PIC S9(4)", 0, "0", "1", "-1", "9999", "-9999"),
    numbers("PIC S9(4) SIGN LEADING", 0, "0", "1", "-1", "9999", "-9999"),
    numbers("PIC S9(4) SIGN TRAILING SEPARATE", 0, "0", "1", "-1", "9999", "-9999"),
    numbers("PIC S9(4) SIGN LEADING SEPARATE", 0, "0", "1", "-1", "9999", "-9999"),
    numbers("PIC S9(3)V99", 2, "0", "0.01", "-0.01", "999.99", "-123.45"),
    numbers("PIC S9(3)PP", 0, "0", "100", "-100", "99900", "-99900"),
    numbers("PIC SVPP99", 4, "0", "0.0001", "-0.0001", "0.0099", "-0.0012"),
    numbers("PIC 9(3) BLANK WHEN ZERO", 0, "0", "1", "7", "999", "120"),
    numbers("PIC S9(38)", 0, "0", "1", "-1", "9" * 38, "-" + "1234567890" * 3),
    numbers("PIC S9(2) COMP", 0, "0", "1", "-1", "99", "-99"),
    numbers("PIC S9(4) COMP", 0, "0", "1", "-1", "9999", "-9999"),
    numbers("PIC 9(4) BINARY", 0, "0", "1", "256", "9999", "4660"),
    numbers("PIC S9(7)V99 COMP-4", 2, "0", "0.01", "-0.01", "9999999.99", "-12.5"),
    numbers("PIC S9(18) COMP", 0, "0", "1", "-1", "9" * 18, "-" + "9" * 18),
    numbers("PIC S9(2) COMP-5", 0, "0", "1", "-1", "99", "-99"),
    numbers("PIC 9(4) COMP-5", 0, "0", "1", "256", "9999", "4660"),
    numbers("PIC S9(9) COMP-5", 0, "0", "1", "-1", "999999999", "-999999999"),
    numbers("PIC S9(16)V99 COMP-5", 2, "0", "0.01", "-0.01", "9999999999999999.99", "-12.5"),
    numbers("PIC S9(5)V99 COMP-3", 2, "0", "0.01", "-0.01", "99999.99", "-123.45"),
    numbers("PIC S9(4) COMP-3", 0, "0", "1", "-1", "9999", "-9999"),
    numbers("PIC 9(4) COMP-3", 0, "0", "1", "7", "9999", "1234"),
    numbers("PIC S9(38) COMP-3", 0, "0", "1", "-1", "9" * 38, "-" + "1234567890" * 3),
    numbers("PIC 9(5) COMP-6", 0, "0", "1", "7", "99999", "12345"),
    numbers("PIC 9(4) COMP-6", 0, "0", "1", "7", "9999", "1234"),
    numbers("PIC 9(6) COMP-X", 0, "0", "1", "258", "999999", "65536"),
    numbers("PIC X(2) COMP-X", 0, "0", "1", "258", "65535", "4660"),
    numbers("USAGE BINARY-CHAR", 0, "0", "1", "-1", "127", "-128"),
    numbers("USAGE BINARY-SHORT UNSIGNED", 0, "0", "1", "258", "65535", "4660"),
    numbers("USAGE BINARY-LONG", 0, "0", "1", "-1", "2147483647", "-2147483648"),
    numbers("USAGE BINARY-DOUBLE", 0, "0", "1", "-1", "9" * 18, "-" + "9" * 18),
    numbers("USAGE SIGNED-INT", 0, "0", "1", "-1", "2147483647", "-2147483648"),
    numbers("USAGE COMP-1", -2, "0", "1", "-0.5", "0.1", "123456"),
    numbers("USAGE COMP-2", -2, "0", "1", "-0.5", "0.25", "-1234567.875"),
    numbers("PIC ZZ,ZZ9.99-", 2, "0", "1", "-0.05", "99999.99", "-1234.5"),
    numbers("PIC ZZZ.ZZ", 2, "0", "0.05", "1", "999.99", "12.3"),
    numbers("PIC **,***.**", 2, "0", "0.05", "1", "99999.99", "12.3"),
    numbers("PIC *(4)9.99CR", 2, "0", "0.05", "-1", "99999.99", "-12.3"),
    numbers("PIC $$,$$9.99CR", 2, "0", "0.05", "-1", "9999.99", "-12.3"),
    numbers("PIC ++,+++.++", 2, "0", "0.05", "-1", "9999.99", "-12.3"),
    numbers("PIC ---,--9.99", 2, "0", "0.05", "-1", "9999.99", "-12.3"),
    numbers("PIC $**,***.**", 2, "0", "0.05", "1", "9999.99", "12.3"),
    numbers("PIC +ZZ,ZZZ.ZZ", 2, "0", "0.05", "-1", "9999.99", "-12.3"),
    numbers("PIC /ZZ,ZZ9.99-", 2, "0", "0.05", "-1", "9999.99", "-12.3"),
    numbers("PIC ZZ/ZZ0.ZZ", 2, "0", "0.05", "1", "999.99", "12.3"),
    numbers("PIC 99B99/99", 0, "0", "1", "12", "999999", "123456"),
    numbers("PIC ZZBZZ9DB", 0, "0", "1", "-12", "99999", "-12345"),
    numbers("PIC Z(4)9V99", 2, "0", "1", "0.05", "99999.99", "12.3"),
    numbers("PIC ZZ9PP", 0, "0", "100", "1200", "99900", "12300"),
]
RECORDS = len(ITEMS[0].values)


def name(number: int) -> str:
    return f"ITEM-{number}"


def copybook() -> str:
    lines = ["       01  R."]
    for number, item in enumerate(ITEMS):
        lines += [f"           05  {name(number)}", f"               {item.clauses}."]
    return "\n".join(lines) + "\n"


def expected_text(item: Item, value: str) -> str:
    if item.scale == -1:
        return value[1:-1]
    if item.scale == -2:
        return value
    return f"{Decimal(value):.{item.scale}f}"


def program(opening: str, record: str, statements: list[str]) -> str:
    return "\n".join(
        [
            "       IDENTIFICATION DIVISION.",
            "       PROGRAM-ID. JUDGE.",
            "       ENVIRONMENT DIVISION.",
            "       INPUT-OUTPUT SECTION.",
            "       FILE-CONTROL.",
            '           SELECT F ASSIGN TO "records.dat"',
            "               ORGANIZATION IS SEQUENTIAL.",
            "       DATA DIVISION.",
            "       FILE SECTION.",
            "       FD  F.",
            record.rstrip(),
            "       PROCEDURE DIVISION.",
            f"           OPEN {opening} F.",
            *(f"           {statement}" for statement in statements),
            "           CLOSE F.",
            "           STOP RUN.",
            "",
        ]
    )


def compile_and_run(directory: Path, source: str) -> str:
    (directory / "judge.cob").write_text(source)
    built = subprocess.run(
        ["cobc", "-x", "-std=default", "judge.cob"],
        cwd=directory,
        capture_output=True,
        text=True,
        check=False,
        timeout=TIME_LIMIT,
    )
    assert built.returncode == 0, built.stdout + built.stderr
    done = subprocess.run(
        ["./judge"], cwd=directory, capture_output=True, text=True, check=True, timeout=TIME_LIMIT
    )
    return done.stdout


@pytest.fixture(name="folder", scope="module")
def fixture_folder(tmp_path_factory: pytest.TempPathFactory) -> Path:
    """A folder with the copybook and the records that a program has written."""
    folder = tmp_path_factory.mktemp("values")
    (folder / "record.cpy").write_text(copybook())
    statements = []
    for record in range(RECORDS):
        for number, item in enumerate(ITEMS):
            value = item.values[record] if item.values[record] != '""' else "SPACES"
            statements += [f"MOVE {value}", f"    TO {name(number)}."]
        statements.append("WRITE R.")
    compile_and_run(folder, program("OUTPUT", copybook(), statements))
    return folder


def run_values(folder: Path, command: str, stdin: bytes) -> bytes:
    judge = harness.program_under_test("ITEM_VALUES")
    arguments = [judge, command, "record.cpy", "utf-8"]
    done = harness.run_in_time(arguments, stdin, TIME_LIMIT, cwd=folder)
    assert done.returncode == 0, harness.readable(done.stderr)
    return done.stdout


def is_compared(item: Item) -> bool:
    """Whether the program can compare an item with the value that was moved to it: not floats,
    edited numbers (BLANK WHEN ZERO is one), and justified texts, nor COMP-6, where GnuCOBOL 3.1.2
    is wrong."""
    picture = item.clauses.split()[1]
    is_edited = any(symbol in picture for symbol in "Z$*/+-")
    is_other = any(word in item.clauses for word in ["BLANK", "COMP-6", "JUSTIFIED"])
    return item.scale != -2 and not is_edited and not is_other


def expected_lines() -> list[str]:
    return [
        "\t".join(
            f"{name(number)}={expected_text(item, item.values[record])}"
            for number, item in enumerate(ITEMS)
        )
        for record in range(RECORDS)
    ]


@NEEDS_COBC
def test_records_of_the_program_are_read(folder: Path) -> None:
    lines = run_values(folder, "texts", (folder / "records.dat").read_bytes()).decode()
    for ours, expected in zip(lines.splitlines(), expected_lines(), strict=True):
        assert ours.split("\t") == expected.split("\t")


@NEEDS_COBC
def test_records_are_written_as_the_program_writes_them(folder: Path) -> None:
    data = "\n".join(expected_lines()) + "\n"
    ours = run_values(folder, "bytes", data.encode())
    theirs = (folder / "records.dat").read_bytes()
    assert len(ours) == len(theirs)
    differences = [at for at in range(len(ours)) if ours[at] != theirs[at]]
    assert differences == []


@NEEDS_COBC
def test_records_are_read_by_a_program(folder: Path, tmp_path: Path) -> None:
    data = "\n".join(expected_lines()) + "\n"
    (tmp_path / "records.dat").write_bytes(run_values(folder, "bytes", data.encode()))
    statements = []
    for record in range(RECORDS):
        statements.append("READ F.")
        for number, item in enumerate(ITEMS):
            if not is_compared(item):
                continue
            value = item.values[record] if item.values[record] != '""' else "SPACES"
            statements += [
                f"IF {name(number)} NOT =",
                f"    {value}",
                f'    DISPLAY "{record} {name(number)}" END-IF.',
            ]
    statements.append('DISPLAY "DONE".')
    assert compile_and_run(tmp_path, program("INPUT", copybook(), statements)) == "DONE\n"
