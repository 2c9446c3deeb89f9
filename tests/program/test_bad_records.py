"""Feeds fdrec records that are wrong as a whole, or in how their parts go together.

What is wrong is no value, but the length of a record, its frame, its counts, its tables, its views,
or what a schema says of it. Each is put into the first, a middle and the last record: it is told at
its place, the record is left out, and the others are not.
"""

from __future__ import annotations

from pathlib import Path
from typing import NamedTuple

import pytest
from support.data_runs import fdrec, write_copybook

TEXT = ("05 A PIC X(2)",)
TABLE = ("05 N PIC 9", "05 T OCCURS 1 TO 3 DEPENDING ON N PIC X")
OPTIONAL = ("05 A PIC X COUNT IN A-C",)
COUNTED = ("05 N PIC 9", "05 T OCCURS 0 TO 3 DEPENDING ON N PIC X COUNT IN T-C")
VIEWS = ("05 K PIC X", "05 A PIC X(2)", "05 B REDEFINES A PIC 9(2)")
WHEN = ("--when", "A: K = 'A'", "--when", "B: K = 'B'")
COUNTS = ("--counts",)
LINES = ("--format", "lines", "--encoding", "ascii")
VARIABLE = ("--format", "gnucobol-variable")
RDW = ("--format", "rdw")
BDW = ("--format", "bdw")


class Stored(NamedTuple):
    """A record in a file, with its descriptors, and a wrong one; in hexadecimal."""

    items: tuple[str, ...]
    options: tuple[str, ...]
    good: str
    bad: str
    offset: int  # of the error in the wrong record, in bytes
    shown: str
    path: str  # empty: none is told
    code: str


WRONG_RECORDS = [
    Stored(TEXT, RDW, "00060000C1C2", "00070000C1C2C3", 4, "C1C2C3", "", "long"),
    Stored(TEXT, RDW, "00060000C1C2", "00050000C1", 4, "C1", "", "short"),
    Stored(TEXT, VARIABLE, "00020000C1C2", "00030000C1C2C3", 4, "C1C2C3", "", "long"),
    Stored(TEXT, VARIABLE, "00020000C1C2", "00010000C1", 4, "C1", "", "short"),
    Stored(TEXT, BDW, "000A000000060000C1C2", "000B000000070000C1C2C3", 8, "C1C2C3", "", "long"),
    Stored(TEXT, BDW, "000A000000060000C1C2", "0009000000050000C1", 8, "C1", "", "short"),
    Stored(TEXT, LINES, "41420A", "4142430A", 0, "414243", "", "long"),
    # The counter says 3, and there is one.
    Stored(TABLE, RDW, "00070000F2C1C2", "00060000F3C1", 4, "F3C1", "", "short"),
    Stored(TABLE, (), "F2C1C240", "F4C1C240", 0, "F4", "R/T", "odo"),
    Stored(TABLE, (), "F2C1C240", "F0C1C240", 0, "F0", "R/T", "odo"),
    Stored(TABLE, RDW, "00070000F2C1C2", "00070000F4C1C2", 4, "F4", "R/T", "odo"),
    # More than the item holds, and more than its counter says.
    Stored(OPTIONAL, COUNTS, "C100000001", "C100000002", 0, "C1", "R/A", "count"),
    Stored(COUNTED, COUNTS, "F2C1C24000000001", "F2C1C24000000003", 1, "C1", "R/T", "count"),
    Stored(VIEWS, WHEN, "C1C1C2", "C3C1C2", 1, "C1C2", "R", "view"),
    Stored(("05 A PIC X",), ("--when", "R: A = 'A'"), "C1", "C2", 0, "C2", "", "view"),
]


@pytest.mark.parametrize("command", ["to-xml", "to-json"])
@pytest.mark.parametrize("case", WRONG_RECORDS, ids=lambda case: f"{case.code}: {case.bad}")
def test_wrong_records_are_left_out(case: Stored, command: str, tmp_path: Path) -> None:
    write_copybook(tmp_path, *case.items)
    options = (command, "--lines", *case.options)
    good, bad = bytes.fromhex(case.good), bytes.fromhex(case.bad)
    one = fdrec(tmp_path, good, *options)
    assert (one.returncode, one.stderr) == (0, b"")
    result = fdrec(tmp_path, bad + good + bad + good + bad, *options)
    *errors, summary = result.stderr.decode().splitlines()
    assert summary == "fdrec: 5 records read, 3 with errors"
    assert len(errors) == 3
    for number, line in zip((1, 3, 5), errors):
        offset = (number - 1) // 2 * (len(good) + len(bad)) + case.offset
        path = f", {case.path}" if case.path else ""
        assert line.startswith(
            f"fdrec: -: record {number}, byte {offset} (x'{case.shown}'){path}: error: "
        )
        assert line.endswith(f" [{case.code}]")
    assert result.returncode == 1
    assert result.stdout == one.stdout * 2


class Frame(NamedTuple):
    """What ends the run: bytes where a record is expected, in hexadecimal."""

    options: tuple[str, ...]
    good: str
    bad: str
    shown: str  # the descriptor, or the partial record


WRONG_FRAMES = [
    Frame(RDW, "00060000C1C2", "00030000C1C2", "00030000"),
    Frame(RDW, "00060000C1C2", "00060100C1C2", "00060100"),
    Frame(RDW, "00060000C1C2", "7FFF0000C1C2", "7FFF0000"),
    Frame((*RDW, "--rdw", "little"), "00000600C1C2", "00000300C1C2", "00000300"),
    Frame(VARIABLE, "00020000C1C2", "00020001C1C2", "00020001"),
    Frame(VARIABLE, "00020000C1C2", "7FFF0000C1C2", "7FFF0000"),
    Frame(BDW, "000A000000060000C1C2", "800A000000060000C1C2", "800A0000"),
    Frame(BDW, "000A000000060000C1C2", "0003000000060000C1C2", "00030000"),
]
# A file that ends in a record or descriptor.
CUT_FRAMES = [
    Frame((), "C1C2", "C1", "C1"),
    Frame(RDW, "00060000C1C2", "000600", "000600"),
    Frame(RDW, "00060000C1C2", "00060000C1", "00060000"),
    Frame(VARIABLE, "00020000C1C2", "00", "00"),
    Frame(BDW, "000A000000060000C1C2", "000A0000", "000A0000"),
]


@pytest.mark.parametrize("command", ["to-xml", "to-json"])
@pytest.mark.parametrize("before", [0, 1, 2])
@pytest.mark.parametrize("case", WRONG_FRAMES + CUT_FRAMES, ids=lambda case: case.bad)
def test_wrong_frames_end_the_run(case: Frame, before: int, command: str, tmp_path: Path) -> None:
    write_copybook(tmp_path, *TEXT)
    options = (command, "--lines", *case.options)
    good, bad = bytes.fromhex(case.good), bytes.fromhex(case.bad)
    one = fdrec(tmp_path, good, *options)
    assert (one.returncode, one.stderr) == (0, b"")
    after = b"" if case in CUT_FRAMES else good * (2 - before)
    result = fdrec(tmp_path, good * before + bad + after, *options)
    error, summary = result.stderr.decode().splitlines()
    assert error.startswith(
        f"fdrec: -: record {before + 1}, byte {before * len(good)} (x'{case.shown}'): error: "
    )
    assert error.endswith(" [frame]")
    assert summary == f"fdrec: {before + 1} record{'s' if before else ''} read, 1 with errors"
    assert result.returncode == 1
    assert result.stdout == one.stdout * before


class Documents(NamedTuple):
    """A document of a record and a wrong one, and where it is wrong."""

    items: tuple[str, ...]
    options: tuple[str, ...]
    good: str
    bad: str
    column: int
    path: str  # empty: none is told
    code: str


ONE_OF_TABLE = "<R><N>1</N><T>a</T></R>"
VIEW_A = "<R><K>A</K><A>xy</A></R>"
JSON_OF_TABLE = '{"N":1,"T":["a"]}'
JSON_VIEW_A = '{"K":"A","A":"xy"}'
WHEN_RECORD = ("--when", "R: A = 'A'")
LONG_TABLE = ("05 N PIC 9", "05 T OCCURS 0 TO 9 DEPENDING ON N PIC X(8000)")
WRONG_XML = [
    # At the first element of the table; without one, at the element around it.
    Documents(TABLE, (), ONE_OF_TABLE, "<R><N>2</N><T>a</T></R>", 12, "R/T", "odo"),
    Documents(TABLE, RDW, ONE_OF_TABLE, "<R><N>2</N><T>a</T></R>", 12, "R/T", "odo"),
    Documents(TABLE, (), ONE_OF_TABLE, "<R><N>1</N></R>", 1, "R/T", "odo"),
    # The first part of the area; without one, the element around it.
    Documents(VIEWS, WHEN, VIEW_A, "<R><K>B</K><A>xy</A></R>", 12, "R/A", "view"),
    Documents(VIEWS, WHEN, VIEW_A, "<R><K>A</K><B>12</B></R>", 12, "R/B", "view"),
    Documents(VIEWS, WHEN, VIEW_A, "<R><K>C</K></R>", 1, "R", "view"),
    Documents(TEXT, WHEN_RECORD, "<R><A>A</A></R>", "<R><A>B</A></R>", 1, "R", "view"),
    Documents(TEXT, LINES, "<R><A>a</A></R>", "<R><A>&#10;</A></R>", 1, "", "frame"),
    # 72,001 bytes, more than two bytes can count.
    Documents(LONG_TABLE, RDW, "<R><T/></R>", f"<R>{'<T/>' * 9}</R>", 1, "", "frame"),
]
WRONG_JSON = [
    Documents(TABLE, (), JSON_OF_TABLE, '{"N":2,"T":["a"]}', 13, "R/T", "odo"),
    Documents(TABLE, (), JSON_OF_TABLE, '{"N":1}', 1, "R/T", "odo"),
    Documents(VIEWS, WHEN, JSON_VIEW_A, '{"K":"B","A":"xy"}', 14, "R/A", "view"),
    Documents(VIEWS, WHEN, JSON_VIEW_A, '{"K":"C"}', 1, "R", "view"),
    Documents(TEXT, WHEN_RECORD, '{"A":"A"}', '{"A":"B"}', 1, "R", "view"),
    Documents(TEXT, LINES, '{"A":"a"}', '{"A":"\\n"}', 1, "", "frame"),
    # Malformed: where the first byte is that does not fit.
    Documents(TEXT, (), '{"A":"a"}', '{"A" "a"}', 6, "", "json"),
    Documents(TEXT, (), '{"A":"a"}', '{"A":"a"', 9, "", "json"),
    Documents(TEXT, (), '{"A":"a"}', '{"A":a}', 6, "", "json"),
]


@pytest.mark.parametrize("case", WRONG_XML + WRONG_JSON, ids=lambda case: case.bad[:30])
def test_wrong_documents_are_left_out(case: Documents, tmp_path: Path) -> None:
    write_copybook(tmp_path, *case.items)
    is_xml = case in WRONG_XML
    options = ("from-xml" if is_xml else "from-json", *case.options)
    one = fdrec(tmp_path, case.good.encode(), *options)
    assert (one.returncode, one.stderr) == (0, b"")
    lines = [case.bad, case.good, case.bad, case.good, case.bad]
    if is_xml:
        lines = ["<all>", *lines, "</all>"]
    result = fdrec(tmp_path, "\n".join(lines).encode(), *options)
    *errors, summary = result.stderr.decode().splitlines()
    assert summary == "fdrec: 5 records read, 3 with errors"
    assert len(errors) == 3
    for number, line in zip((1, 3, 5), errors):
        place = f"-:{number + int(is_xml)}:{case.column}, record {number}"
        path = f", {case.path}" if case.path else ""
        assert line.startswith(f"fdrec: {place}{path}: error: ")
        assert line.endswith(f" [{case.code}]")
    assert result.returncode == 1
    assert result.stdout == one.stdout * 2


@pytest.mark.parametrize("before", [0, 1, 2])
def test_malformed_xml_ends_the_run(before: int, tmp_path: Path) -> None:
    write_copybook(tmp_path, *TEXT)
    good, bad = "<R><A>a</A></R>\n", "<R><A>a</B></R>\n"
    document = "<all>\n" + good * before + bad + good * (2 - before) + "</all>\n"
    result = fdrec(tmp_path, document.encode(), "from-xml")
    error, summary = result.stderr.decode().splitlines()
    # The name in the end tag does not fit; it follows "<R><A>a</".
    assert error.startswith(f"fdrec: -:{before + 2}:10, record {before + 1}: error: ")
    assert error.endswith(" [xml]")
    assert summary == f"fdrec: {before + 1} record{'s' if before else ''} read, 1 with errors"
    assert result.returncode == 1
    assert result.stdout == b"\x81\x40" * before


@pytest.mark.parametrize("records", [0, 2, 3])
def test_a_single_document_has_one_record(records: int, tmp_path: Path) -> None:
    write_copybook(tmp_path, *TEXT)
    result = fdrec(tmp_path, b"\xc1\xc2" * records, "to-xml", "--single")
    errors = result.stderr.decode().splitlines()
    declaration = b'<?xml version="1.0" encoding="UTF-8"?>\n'
    if records == 0:  # none that could have an error
        assert errors == ["fdrec: -: error: expected one record, found none [single]"]
        assert result.stdout == declaration
    else:  # it is told at the second, which ends the run
        *errors, summary = errors
        assert len(errors) == 1
        assert errors[0].startswith("fdrec: -: record 2, byte 2: error: ")
        assert errors[0].endswith(" [single]")
        assert summary == "fdrec: 2 records read, 1 with errors"
        assert result.stdout == declaration + b"<R><A>AB</A></R>\n"
    assert result.returncode == 1


SCHEMA = """<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:element name="R"><xs:complexType><xs:sequence>
    <xs:element name="A"><xs:simpleType><xs:restriction base="xs:string">
      <xs:enumeration value="AB"/></xs:restriction></xs:simpleType></xs:element>
  </xs:sequence></xs:complexType></xs:element>
</xs:schema>
"""


def test_invalid_records_are_left_out(tmp_path: Path) -> None:
    write_copybook(tmp_path, *TEXT)
    (tmp_path / "a.xsd").write_text(SCHEMA, encoding="ascii")
    good, bad = b"<R><A>AB</A></R>\n", b"<R><A>CD</A></R>\n"
    result = fdrec(
        tmp_path, b"\xc3\xc4\xc1\xc2" * 2 + b"\xc3\xc4", "to-xml", "--lines", "--schema", "a.xsd"
    )
    *errors, summary = result.stderr.decode().splitlines()
    assert summary == "fdrec: 5 records read, 3 with errors"
    for number, line in zip((1, 3, 5), errors):
        place = f"record {number}, byte {2 * (number - 1)} (x'C3C4'), R/A"
        assert line.startswith(f"fdrec: -: {place}: error: ")
        assert line.endswith(" [schema]")
    assert (result.returncode, len(errors), result.stdout) == (1, 3, good * 2)
    document = b"<all>\n" + bad + good + bad + good + bad + b"</all>\n"
    result = fdrec(tmp_path, document, "from-xml", "--schema", "a.xsd")
    *errors, summary = result.stderr.decode().splitlines()
    assert summary == "fdrec: 5 records read, 3 with errors"
    for number, line in zip((1, 3, 5), errors):
        assert line.startswith(f"fdrec: -:{number + 1}:4, record {number}, R/A: error: ")
        assert line.endswith(" [schema]")
    assert (result.returncode, len(errors), result.stdout) == (1, 3, b"\xc1\xc2" * 2)
