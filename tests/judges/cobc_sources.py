"""Edits sources that cobc refuses for reasons of its own until it accepts them."""

from __future__ import annotations

import re
from pathlib import Path
from typing import NamedTuple

from judges.cobc import HEAD, TAIL, reserved_words
from judges.cobc_listing import Item, Listing, list_items
from support.cobol_sources import MEMBERS, STAND_INS, is_program

PROCEDURE = re.compile(r"^.{6} +PROCEDURE +DIVISION\b", re.IGNORECASE | re.MULTILINE)
FIRST_LEVEL = re.compile(r"^.{6} +(\d\d?) ", re.MULTILINE)
RECORD_LEVELS = {"1", "01", "77"}
IMPLIED = "COPYBOOK"  # the record around the items of a copybook that has none
MEMBER_OPTIONS = ["-I", MEMBERS, "-I", STAND_INS]


class Edit(NamedTuple):
    """A change of the text, or an option, without which cobc refuses a source."""

    complaint: str  # a regular expression for the message of cobc
    text: str = ""  # another for the text to replace, also in a picture with its usage
    replacement: str = ""
    option: str = ""

    def applies_to(self, text: str) -> bool:
        return self.text != "" and re.search(self.text, text) is not None

    def apply(self, text: str) -> str:
        return re.sub(self.text, self.replacement, text) if self.text else text


LARGER_REDEFINITION = Edit(r"size of '[^']+' larger than size of", option="-flarger-redefines-ok")
NO_PERIOD = Edit("unexpected ENVIRONMENT", r"(PROGRAM-ID\. +CBL\w+)", r"\1.")
SIGN_IN_EDITED = Edit(r"\. cannot follow S", r"S(9\(\d\)\.9)", r"\1")
SIGN_CLAUSE = Edit("must have S in PICTURE", r"(99V99) SIGN\s[^.]+", r"\1")
NINETEEN_DIGITS = Edit(
    "larger than 18 digits",
    r"(?i)9(?:\(19\)|\(20\)|\(37\)|\(17\)V99|\(18\)V9\(10\))"
    r"(?=\s+(?:usage is )?(?:COMP|COMP-4|BINARY)\b(?!-))",
    "9(18)",
)
COMP_0 = Edit("COMP-0 is not implemented", r"COMP-0\.", "COMP.")
TAG = Edit("unexpected :", ":TAG:", "TAG")
# Members that come with the translator for the transaction monitor.
CICS = [
    Edit("DFHAID: No such file", r"COPY DFHAID\."),
    Edit("DFHBMSCA: No such file", r"COPY DFHBMSCA\."),
    Edit("'EIBCALEN' is not defined", "( {7}01  DFHCOMMAREA)", r"       01 EIBCALEN PIC 9.\n\1"),
]
EXEC = Edit("SQLCA: No such file", r"(?s)EXEC SQL.*?END-EXEC\.?")
INPUT_OUTPUT_CONTROL = Edit(
    "unexpected Identifier", r"(?ms)^.{6} I-O-CONTROL\..*?XXXXX053\.[^\n]*\n"
)
LABEL = Edit("expecting OMITTED or STANDARD", "XXXXX084", "STANDARD")
LETTER_IN_MEMBER = Edit(
    "invalid indicator 'C'", r"TEST-FILE( +)COPY K1FDA\.", rf"TEST-FILE.\1{'':10}"
)

# A test shows that each of them is needed.
EDITS = {
    "carddemo/COMEN02Y.cpy": [LARGER_REDEFINITION],
    "carddemo/COSGN00C.cbl": CICS,
    "cobrix/data_types.cpy": [SIGN_IN_EDITED, SIGN_CLAUSE, NINETEEN_DIGITS],
    "cobrix/test17_hierarchical.cob": [LARGER_REDEFINITION],
    "cobrix/test6_copybook.cob": [SIGN_IN_EDITED, SIGN_CLAUSE, NINETEEN_DIGITS, COMP_0],
    "cobrix/test7_fillers.cob": [LARGER_REDEFINITION],
    "course/CBL0001.cobol": [NO_PERIOD],
    "course/CBL0008.cobol": [NO_PERIOD],
    "course/CBL0010.cobol": [NO_PERIOD],
    "course/CBLDB21.cbl": [NO_PERIOD, EXEC],
    "nist/IX302M.CBL": [INPUT_OUTPUT_CONTROL],
    "nist/NC104A.CBL": [LABEL],
    "nist/SM101A.CBL": [LETTER_IN_MEMBER],
    "zopeneditor/CUSTCOPY.cpy": [TAG],
}


def reserved_names(items: list[Item]) -> list[Edit]:
    """For each reserved word that names an item, the option that makes it an ordinary word."""
    names = {item.name for item in items} - {"FILLER"}
    return [
        Edit("syntax error, unexpected ", option=f"-fnot-reserved={name}")
        for name in sorted(names & reserved_words())
    ]


def list_edited(text: str, edits: list[Edit], directory: Path) -> Listing:
    for edit in edits:
        text = edit.apply(text)
    path = directory / "judge.cob"
    path.write_text(text, encoding="latin-1")
    return list_items(path, *MEMBER_OPTIONS, *filter(None, (edit.option for edit in edits)))


def needless_edits(text: str, edits: list[Edit], directory: Path) -> list[Edit]:
    """The edits that can be left out without the complaint that they name."""
    found = []
    for edit in edits:
        others = [other for other in edits if other != edit]
        complaints = "\n".join(list_edited(text, others, directory).complaints)
        if not re.search(edit.complaint, complaints):
            found.append(edit)
    return found


def edit_pictures(items: list[Item], edits: list[Edit]) -> list[Item]:
    """The items as they are after the edits."""
    edited = []
    for item in items:
        text = f"{item.picture} {item.usage}"
        for edit in edits:
            text = edit.apply(text)
        picture, _, usage = text.partition(" ")
        edited.append(item._replace(picture=picture, usage=usage))
    return edited


def program_of(source: Path) -> str:
    """The source as a program that ends with the header of its procedure division."""
    text = source.read_text("latin-1")
    if is_program(source):
        procedure = PROCEDURE.search(text)
        return "\n".join([text[: procedure.start()], *TAIL, ""]) if procedure else text
    first = FIRST_LEVEL.search(text)
    implied = [] if first and first[1] in RECORD_LEVELS else [f"       01 {IMPLIED}."]
    return "\n".join([*HEAD, *implied, text, *TAIL, ""])


def without_implied(listed: list[Item], items: list[Item]) -> list[Item]:
    """The listed items, without the implied record if a copybook has only one item."""
    is_needless = listed[0].name == IMPLIED and items[0].name != IMPLIED
    return listed[1:] if is_needless else listed
