"""GnuCOBOL programs read the files of records that we write, and the other way round."""

from __future__ import annotations

import os
import shutil
import subprocess
from pathlib import Path

import pytest

FRAME_COPY = os.environ["FRAME_COPY"]
FDREC = os.environ["FDREC"]
LENGTH = 40
COUNT = 50
LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"

pytestmark = pytest.mark.skipif(shutil.which("cobc") is None, reason="cobc is not installed")

FILES = f"""
       IDENTIFICATION DIVISION.
       PROGRAM-ID. FILES.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT VARYING-FILE ASSIGN TO "variable.dat" ORGANIZATION SEQUENTIAL.
           SELECT LINE-FILE ASSIGN TO "lines.dat" ORGANIZATION LINE SEQUENTIAL.
           SELECT FIXED-FILE ASSIGN TO "fixed.dat" ORGANIZATION SEQUENTIAL.
       DATA DIVISION.
       FILE SECTION.
       FD  VARYING-FILE RECORD IS VARYING IN SIZE FROM 1 TO {LENGTH} CHARACTERS
           DEPENDING ON RECORD-SIZE.
       01  VARYING-RECORD PIC X({LENGTH}).
       FD  LINE-FILE.
       01  LINE-RECORD PIC X({LENGTH}).
       FD  FIXED-FILE.
       01  FIXED-RECORD PIC X({LENGTH}).
       WORKING-STORAGE SECTION.
       01  RECORD-SIZE PIC 9(4) COMP-5.
       01  I PIC 9(4) COMP-5.
       01  J PIC 9(4) COMP-5.
       01  K PIC 9(4) COMP-5.
       01  LETTERS PIC X(26) VALUE "{LETTERS}".
       01  END-SEEN PIC 9 VALUE 0.
"""

# Record I has as many letters as text_of(I).
WRITER = f"""
       PROCEDURE DIVISION.
           OPEN OUTPUT VARYING-FILE LINE-FILE FIXED-FILE.
           PERFORM VARYING I FROM 1 BY 1 UNTIL I > {COUNT}
               COMPUTE RECORD-SIZE = FUNCTION MOD(I * 7, {LENGTH}) + 1
               MOVE SPACES TO VARYING-RECORD LINE-RECORD FIXED-RECORD
               PERFORM VARYING J FROM 1 BY 1 UNTIL J > RECORD-SIZE
                   COMPUTE K = FUNCTION MOD(I + J, 26) + 1
                   MOVE LETTERS(K:1) TO VARYING-RECORD(J:1)
               END-PERFORM
               MOVE VARYING-RECORD TO LINE-RECORD FIXED-RECORD
               WRITE VARYING-RECORD
               WRITE LINE-RECORD
               WRITE FIXED-RECORD
           END-PERFORM.
           CLOSE VARYING-FILE LINE-FILE FIXED-FILE.
           STOP RUN.
"""


def reader_of(name: str, shown: str) -> str:
    """Shows the records of one file."""
    return f"""
       PROCEDURE DIVISION.
           OPEN INPUT {name}-FILE.
           PERFORM UNTIL END-SEEN = 1
               READ {name}-FILE
                   AT END MOVE 1 TO END-SEEN
                   NOT AT END DISPLAY {shown}
               END-READ
           END-PERFORM.
           CLOSE {name}-FILE.
           STOP RUN.
"""


READERS = {
    "variable": reader_of("VARYING", "VARYING-RECORD(1:RECORD-SIZE)"),
    "lines": reader_of("LINE", "LINE-RECORD"),
    "fixed": reader_of("FIXED", "FIXED-RECORD"),
}
FORMATS = {"variable": "gnucobol-variable", "lines": "lines", "fixed": "fixed"}


def text_of(number: int) -> str:
    size = number * 7 % LENGTH + 1
    return "".join(LETTERS[(number + j) % 26] for j in range(1, size + 1))


TEXTS = [text_of(number) for number in range(1, COUNT + 1)]
LINES = "".join(f"{text}\n" for text in TEXTS).encode()


def compile_program(folder: Path, name: str, procedure: str) -> Path:
    (folder / f"{name}.cob").write_text(FILES + procedure)
    subprocess.run(
        ["cobc", "-x", "-free", "-o", name, f"{name}.cob"], cwd=folder, check=True, timeout=120
    )
    return folder / name


def copy(source: str, target: str, content: bytes) -> bytes:
    """The records of a file in another format."""
    command = [FRAME_COPY, source, target, str(LENGTH)]
    return subprocess.run(command, input=content, capture_output=True, check=True).stdout


@pytest.fixture(scope="module", name="cobol_files")
def fixture_cobol_files(tmp_path_factory: pytest.TempPathFactory) -> Path:
    """The folder in which a COBOL program has written the files."""
    folder = tmp_path_factory.mktemp("written")
    subprocess.run([compile_program(folder, "writer", WRITER)], cwd=folder, check=True, timeout=60)
    return folder


@pytest.mark.parametrize("name", FORMATS)
def test_files_of_cobol_are_read(cobol_files: Path, name: str) -> None:
    content = (cobol_files / f"{name}.dat").read_bytes()
    assert copy(FORMATS[name], "lines", content) == LINES


@pytest.mark.parametrize("name", FORMATS)
def test_files_are_written_as_cobol_writes_them(cobol_files: Path, name: str) -> None:
    content = (cobol_files / f"{name}.dat").read_bytes()
    assert copy("lines", FORMATS[name], LINES) == content


@pytest.mark.parametrize("name", FORMATS)
def test_cobol_reads_what_is_written(tmp_path: Path, name: str) -> None:
    reader = compile_program(tmp_path, "reader", READERS[name])
    (tmp_path / f"{name}.dat").write_bytes(copy("lines", FORMATS[name], LINES))
    shown = subprocess.run([reader], cwd=tmp_path, check=True, capture_output=True, timeout=60)
    assert [line.rstrip() for line in shown.stdout.decode().splitlines()] == TEXTS


@pytest.mark.parametrize("name", FORMATS)
def test_index_of_a_file_of_cobol_counts_its_records(cobol_files: Path, name: str) -> None:
    copybook = cobol_files / "record.cpy"
    copybook.write_text(f"       01  TEXT-RECORD PIC X({LENGTH}).\n")
    data = cobol_files / f"{name}.dat"
    command = [FDREC, "index", "--format", FORMATS[name], "--encoding", "ascii", copybook, data]
    lines = subprocess.run(command, check=True, capture_output=True).stdout.decode().splitlines()
    assert lines[1:] == [f"records {COUNT}", f"end {data.stat().st_size}", "1 0"]
