"""Feeds fdrec items that are wrong.

Each error is put into the first, a middle and the last record of a file: it is told at its place,
the record is left out, and the others are not.
"""

from __future__ import annotations

from pathlib import Path
from typing import NamedTuple

import pytest
from support.data_runs import fdrec, write_copybook

JSON_START = '{"A":"A",'

# Bytes that are wrong.


class Bytes(NamedTuple):
    """An item, in cp037, with right bytes for 1, or wrong ones."""

    clauses: str
    good: str  # hexadecimal
    bad: str
    code: str
    path: str = "I"
    options: tuple[str, ...] = ()


WORDS = {
    "digit": "invalid digit",
    "range": "more digits than the picture",
    "character": "invalid character",
}
WRONG_BYTES = [
    Bytes("05 I PIC X(3)", "F14040", "F100F1", "character"),
    Bytes("05 I PIC X(3)", "F14040", "F127F1", "character"),  # U+001B
    Bytes("05 I PIC X(3) JUSTIFIED", "4040F1", "F10000", "character"),
    Bytes("05 I PIC A(2)", "C140", "00C1", "character"),
    Bytes("05 I PIC ZZ9", "4040F1", "F100F1", "character", options=("--trim", "none")),
    Bytes("05 I PIC ZZ9", "4040F1", "404040", "digit", options=("--edited", "number")),
    Bytes("05 I PIC N(2)", "00310020", "D8000041", "character"),
    Bytes("05 I PIC N(2)", "00310020", "0041DC00", "character"),
    Bytes("05 I PIC N(2)", "00310020", "FFFE0041", "character"),
    Bytes("05 I PIC 9(3)", "F0F0F1", "F0F040", "digit"),
    Bytes("05 I PIC 9(3)", "F0F0F1", "F0FAF1", "digit"),
    Bytes("05 I PIC 9(3)", "F0F0F1", "F0F0D1", "digit"),
    Bytes("05 I PIC 9(3)", "F0F0F1", "F0C0F1", "digit", options=("--strict-zones",)),
    Bytes("05 I PIC 9(3) BLANK WHEN ZERO", "F0F0F1", "40F0F1", "digit"),
    Bytes("05 I PIC S9(3)", "F0F0C1", "F0F091", "digit"),
    Bytes("05 I PIC S9(3)", "F0F0C1", "F0F0DB", "digit"),
    Bytes("05 I PIC S9(3) SIGN LEADING", "C0F0F1", "00F0F1", "digit"),
    Bytes("05 I PIC S9(2) SIGN LEADING SEPARATE", "4EF0F1", "F1F0F1", "digit"),
    Bytes("05 I PIC S9(2) SIGN TRAILING SEPARATE", "F0F14E", "F0F140", "digit"),
    Bytes("05 I PIC S9(3) COMP-3", "001C", "A01C", "digit"),
    Bytes("05 I PIC S9(3) COMP-3", "001C", "0014", "digit"),
    Bytes("05 I PIC S9(3) COMP-3", "001C", "4040", "digit"),
    Bytes("05 I PIC 9(3) COMP-3", "001F", "001D", "digit"),
    Bytes("05 I PIC S9(4) COMP-3", "00001C", "10001C", "range"),
    Bytes("05 I PIC S9(4) COMP-3", "00001C", "A0001C", "digit"),
    Bytes("05 I PIC 9(3) COMP-6", "0001", "1001", "range"),
    Bytes("05 I PIC 9(3) COMP-6", "0001", "00F1", "digit"),
    Bytes("05 I PIC S9(4) COMP", "0001", "2710", "range"),
    Bytes("05 I PIC S9(4) COMP", "0001", "D8F0", "range"),
    Bytes("05 I PIC 9(4) COMP", "0001", "FFFF", "range"),
    Bytes("05 I PIC S9(9) BINARY", "00000001", "3B9ACA00", "range"),
    Bytes("05 I PIC S9(18) COMP-4", "0000000000000001", "0DE0B6B3A7640000", "range"),
    Bytes("05 I OCCURS 2 PIC 99", "F0F1F0F1", "F0F140F1", "digit", "I[2]"),
    Bytes("05 I OCCURS 2. 10 J OCCURS 2 PIC 9", "F1F1F1F1", "F1F1F100", "digit", "I[2]/J[2]"),
    Bytes("05 G. 10 I PIC 99", "F0F1", "F0FF", "digit", "G/I"),
]


def shown(data: bytes) -> str:
    return f"x'{data[:16].hex().upper()}'" + ("..." if len(data) > 16 else "")


def offset_in(case: Bytes) -> int:
    """Where the wrong occurrence of a table begins."""
    return {"I[2]": 2, "I[2]/J[2]": 3}.get(case.path, 0)


@pytest.mark.parametrize("case", WRONG_BYTES, ids=lambda case: f"{case.clauses}: {case.bad}")
def test_wrong_bytes_are_told_at_their_place(case: Bytes, tmp_path: Path) -> None:
    items = [f"{each.strip()}" for each in case.clauses.split(". ")]
    write_copybook(tmp_path, "05 A PIC X", *items, "05 Z PIC X")
    good = b"\xc1" + bytes.fromhex(case.good) + b"\xe9"
    bad = b"\xc1" + bytes.fromhex(case.bad) + b"\xe9"
    assert len(good) == len(bad)
    result = fdrec(tmp_path, good, "to-xml", "--lines", *case.options)
    assert (result.returncode, result.stderr) == (0, b"")
    record = result.stdout
    result = fdrec(tmp_path, bad + good + bad + good + bad, "to-xml", "--lines", *case.options)
    size = offset_in(case)
    width = len(bytes.fromhex(case.bad)) if size == 0 else len(bytes.fromhex(case.bad)) - size
    wrong = shown(bytes.fromhex(case.bad)[size : size + width])
    expected = [
        f"fdrec: -: record {number}, byte {(number - 1) * len(bad) + 1 + size} ({wrong}), "
        f"R/{case.path}: error: {WORDS[case.code]} [{case.code}]"
        for number in (1, 3, 5)
    ]
    expected.append("fdrec: 5 records read, 3 with errors")
    assert result.stderr.decode().splitlines() == expected
    assert result.returncode == 1
    assert result.stdout == record * 2


# Texts that are wrong.


class Text(NamedTuple):
    clauses: str
    good: str
    bad: str
    code: str


WRONG_TEXTS = [
    Text("PIC X(3)", "abc", "abcd", "length"),
    Text("PIC X(3)", "abc", "a\u20ac", "character"),
    Text("PIC X(3) JUSTIFIED", "abc", "abcd", "length"),
    Text("PIC A(3)", "abc", "abcd", "length"),
    Text("PIC ZZ9", "  1", "   1x", "length"),
    Text("PIC N(2)", "ab", "abc", "length"),
    Text("PIC N(2)", "ab", "a\U0001f600", "length"),
    Text("PIC 9(3)", "1", "x", "number"),
    Text("PIC 9(3)", "1", "", "number"),
    Text("PIC 9(3)", "1", "1 2", "number"),
    Text("PIC 9(3)", "1", ".", "number"),
    Text("PIC 9(3)", "1", "1e1x", "number"),
    Text("PIC 9(3)", "1", "1000", "overflow"),
    Text("PIC 9(3)", "1", "-1", "overflow"),
    Text("PIC 9(3)", "1", "1.5", "precision"),
    Text("PIC 9(3)PP", "100", "10", "precision"),
    Text("PIC VPP9", "0.001", "0.01", "overflow"),
    Text("PIC 9(3) BLANK WHEN ZERO", "0", "1000", "overflow"),
    Text("PIC S9V99", "-1.25", "1.255", "precision"),
    Text("PIC S9(2) SIGN LEADING SEPARATE", "-1", "100", "overflow"),
    Text("PIC S9(3) COMP-3", "-1", "1000", "overflow"),
    Text("PIC S9(4) COMP-3", "-1", "10000", "overflow"),
    Text("PIC 9(3) COMP-3", "1", "-1", "overflow"),
    Text("PIC 9(3) COMP-6", "1", "1000", "overflow"),
    Text("PIC S9(4) COMP", "-1", "10000", "overflow"),
    Text("PIC S9(4) COMP", "-1", "0.1", "precision"),
    Text("PIC S9(4) COMP-5", "-1", "32768", "overflow"),
    Text("PIC 9(4) COMP-5", "1", "-1", "overflow"),
    Text("PIC S9(18) COMP", "1", "1000000000000000000", "overflow"),
    Text("COMP-1", "1", "NaN", "number"),
    Text("COMP-1", "1", "1e76", "overflow"),
    Text("COMP-2", "1", "1e", "number"),
    Text("COMP-2", "1", "-1e76", "overflow"),
]


@pytest.mark.parametrize("case", WRONG_TEXTS, ids=lambda case: f"{case.clauses}: {case.bad}")
def test_wrong_texts_are_told_at_their_place(case: Text, tmp_path: Path) -> None:
    write_copybook(tmp_path, "05 A PIC X", f"05 I {case.clauses}", "05 Z PIC X")

    def xml(text: str) -> str:
        return f"<R><A>A</A>\t<I>{text}</I><Z>Z</Z></R>\n"

    def json(text: str) -> str:
        return f'{JSON_START}"I":"{text}","Z":"Z"}}\n'

    one = fdrec(tmp_path, xml(case.good).encode(), "from-xml")
    assert (one.returncode, one.stderr) == (0, b"")
    for command, make, column in (("from-xml", xml, 13), ("from-json", json, len(JSON_START) + 5)):
        document = "".join(make(case.bad if at % 2 == 0 else case.good) for at in range(5))
        result = fdrec(tmp_path, document.encode(), command)
        lines = result.stderr.decode().splitlines()
        assert lines[-1] == "fdrec: 5 records read, 3 with errors"
        assert len(lines) == 4
        for number, line in zip((1, 3, 5), lines):
            assert line.startswith(f"fdrec: -:{number}:{column}, record {number}, R/I: error: ")
            assert line.endswith(f" [{case.code}]")
        assert result.returncode == 1
        assert result.stdout == one.stdout * 2


class Part(NamedTuple):
    """What is wrong in a record of A and the table T of 2, at a column, and the path."""

    document: str
    code: str
    column: int
    path: str


WRONG_XML = [
    Part("<R><A>A</A><X/></R>", "unknown", 12, "R/X"),
    Part("<R><A b=''>A</A></R>", "unknown", 4, "R/A/@b"),
    Part("<R c='1'><A>A</A></R>", "unknown", 1, "R/@c"),
    Part("<R>x<A>A</A></R>", "text", 1, "R"),
    Part("<R><A>A</A><A>B</A></R>", "occurs", 12, "R/A"),
    Part("<R><A><B/></A></R>", "unknown", 7, "R/A/B"),
    Part("<R><T>1</T><T>2</T><T>3</T></R>", "occurs", 20, "R/T[3]"),
    Part("<R xmlns='urn:x'><A>A</A></R>", "unknown", 1, "R"),
    Part("<S/>", "unknown", 1, "S"),
]
WRONG_JSON = [
    Part('{"A":"A","X":1}', "unknown", 14, "R/X"),
    Part('{"T":1}', "json", 6, "R/T"),
    Part('{"A":["A"]}', "json", 6, "R/A"),
    Part('{"A":{}}', "json", 6, "R/A"),
    Part('{"A":"A","A":"B"}', "json", 14, "R/A"),
    Part('{"T":[1,2,3]}', "occurs", 11, "R/T[3]"),
    Part('{"T":[1,[]]}', "json", 9, "R/T[2]"),
    Part('{"A":"\\ud800"}', "character", 6, "R/A"),
    Part("[]", "json", 1, "R"),
    Part('"A"', "json", 1, "R"),
]


@pytest.mark.parametrize("case", WRONG_XML + WRONG_JSON, ids=lambda case: case.document)
def test_wrong_parts_are_told_at_their_place(case: Part, tmp_path: Path) -> None:
    write_copybook(tmp_path, "05 A PIC X", "05 T OCCURS 2 PIC 9")
    is_xml = case in WRONG_XML
    good = "<R><A>A</A><T>1</T></R>" if is_xml else '{"A":"A","T":[1]}'
    lines = [case.document, good, case.document, good, case.document]
    first = 1
    if is_xml:
        lines = ["<all>", *lines, "</all>"]
        first = 2
    document = "\n".join(lines) + "\n"
    result = fdrec(tmp_path, document.encode(), "from-xml" if is_xml else "from-json")
    *errors, summary = result.stderr.decode().splitlines()
    assert summary == "fdrec: 5 records read, 3 with errors"
    assert len(errors) == 3
    for number, line in zip((1, 3, 5), errors):
        place = (
            f"fdrec: -:{number + first - 1}:{case.column}, record {number}, {case.path}: error: "
        )
        assert line.startswith(place)
        assert line.endswith(f" [{case.code}]")
    assert result.returncode == 1
    assert result.stdout == bytes.fromhex("C1F1F0") * 2
