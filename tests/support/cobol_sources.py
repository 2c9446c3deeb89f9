"""The COBOL sources of the corpus, and the properties of single ones.

They are in the folder cobol/ of the corpus, each next to the members that it copies. Tests check
every entry of the tables below, so an entry that is no longer needed is found.
"""

from __future__ import annotations

import re
import shutil
from pathlib import Path
from typing import NamedTuple

from support.corpus import corpus_files, name_of

SUFFIXES = (".cbl", ".cpy", ".cob", ".cobol")
PROGRAM = re.compile(rb"^.{6} +PROGRAM-ID\b", re.IGNORECASE | re.MULTILINE)

MEMBERS = "members"  # the folder of the source
STAND_INS = "stand-ins"  # and one with the members that the corpus lacks
COPY_PATH = f"COPYPATH({MEMBERS}:{STAND_INS})"

# Programs without an item in the working-storage section or in a file.
EMPTY = {
    "proleap/DeformedLines.cbl",  # its data follow the header of the procedure division
    "proleap/EmptyLines.cbl",
    "proleap/LineContinuationDoubleQuotes.cbl",
    "proleap/LineContinuationEscapedQuotes.cbl",
    "proleap/LineContinuationMixed.cbl",
}


class Refusal(NamedTuple):
    code: str  # of the compiler's first error
    text: str  # a regular expression for the text that causes the error


STATEMENT = Refusal("syntax", r"(?m)^.{6} +MOVE ")
FILE_CLAUSE = Refusal("syntax", r"(?m)^.{6} +LABEL RECORDS ")
NO_PERIOD = Refusal("period", r"DATA DIVISION +\d+\r?\n")
NO_SECTION = Refusal("syntax", r"WORKI?NGSTORAGE SECTION")

# Sources that describe no data, neither for the compiler nor for cobc.
REFUSED = {
    "nist/K1FDA.CPY": FILE_CLAUSE,
    "nist/K3LGE.CPY": STATEMENT,
    "proleap/LineContinuation.cbl": NO_PERIOD,
    "proleap/LineContinuationMultiple.cbl": NO_SECTION,
    "proleap/LineContinuationWhitespace.cbl": NO_SECTION,
}

# Members that the corpus lacks, by the sources that copy them, and their stand-ins.
MISSING = {
    "carddemo/CBSTM03A.CBL": {"CUSTREC": "01 CUSTOMER-RECORD PIC X(500)."},
    "carddemo/COSGN00C.cbl": {"COTTL01Y": "", "CSMSG01Y": ""},
    "nist/SM101A.CBL": {
        "K101A": "PICTURE X(120).",
        "K1W01": "PICTURE 9(5).",
        "K1W02": "RCD-5 PICTURE 9(5) VALUE",
        "K1W03": "RCD-7 PICTURE 9(5)",
        "K1W04": "77 RCD-8 PICTURE 9(5).",
    },
}


def is_program(source: Path) -> bool:
    return PROGRAM.search(source.read_bytes()) is not None


SOURCES = corpus_files("cobol", *SUFFIXES)
BEARING = [path for path in SOURCES if name_of(path) not in EMPTY | REFUSED.keys()]


def link_members(source: Path, directory: Path, missing: dict[str, str]) -> None:
    """Makes the folders in which the members of the source are found."""
    (directory / MEMBERS).symlink_to(source.parent)
    (directory / STAND_INS).mkdir()
    for member, text in missing.items():
        path = directory / STAND_INS / f"{member}.cpy"
        path.write_text(f"{'':11}{text}\n", encoding="ascii")


def stage(source: Path, directory: Path) -> Path:
    """A copy of the source, with an extension that the program accepts."""
    suffix = source.suffix
    if suffix.lower() not in (".cbl", ".cpy"):
        suffix = ".cbl" if is_program(source) else ".cpy"
    copy = directory / f"{source.stem}{suffix}"
    shutil.copyfile(source, copy)
    return copy
