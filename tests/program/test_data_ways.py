"""Whole ways of data: a schema to a COBOL program's file and back, and an EBCDIC file."""

from __future__ import annotations

import os
import shutil
import subprocess
from pathlib import Path

import pytest

FDMORPH = os.environ["FDMORPH"]
FDREC = os.environ["FDREC"]
EXAMPLE = Path(__file__).parents[2] / "example"


def run(*command: object, cwd: Path, status: int = 0) -> subprocess.CompletedProcess[bytes]:
    words = [str(word) for word in command]
    ran = subprocess.run(words, cwd=cwd, capture_output=True, check=False, timeout=120)
    assert ran.returncode == status, f"{words}\n{ran.stderr.decode()}"
    return ran


def totals(length: int, counts: int) -> str:
    """A program that reads a file of orders and their counts, and corrects the totals."""
    return f"""
       IDENTIFICATION DIVISION.
       PROGRAM-ID. TOTALS.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT ORDER-FILE ASSIGN TO "order.dat"
               ORGANIZATION SEQUENTIAL.
       DATA DIVISION.
       FILE SECTION.
       FD  ORDER-FILE.
       01  ORDER-RECORD.
           05  ORDER-PART  PIC X({length}).
           05  COUNTS-PART PIC X({counts}).
       WORKING-STORAGE SECTION.
       COPY "plain.cpy".
       01  I PIC 9(9) COMP-5.
       PROCEDURE DIVISION.
           OPEN I-O ORDER-FILE.
           READ ORDER-FILE.
           MOVE ORDER-PART TO PURCHASE-ORDER.
           MOVE COUNTS-PART TO RECORD-COUNTS.
           MOVE 0 TO TOTAL.
           PERFORM VARYING I FROM 1 BY 1 UNTIL I > LINE-COUNT
               ADD PRICE(I) TO TOTAL
           END-PERFORM.
           MOVE PURCHASE-ORDER TO ORDER-PART.
           REWRITE ORDER-RECORD.
           CLOSE ORDER-FILE.
           STOP RUN.
"""


@pytest.mark.skipif(shutil.which("cobc") is None, reason="cobc is not installed")
def test_from_a_schema_through_a_cobol_program_to_a_valid_document(tmp_path: Path) -> None:
    """The order has no total of its own; the program adds 1120.00 and 402.60.

    The schema allows prices of 11 integer digits, and the first record holds 9.
    """
    shutil.copy(EXAMPLE / "order.xsd", tmp_path)
    document = (EXAMPLE / "order.xml").read_text()
    (tmp_path / "order.xml").write_text(document.replace("1522.60", "0"))
    run(FDMORPH, "order.xsd", cwd=tmp_path)
    run(FDREC, "check", "order.xsd", "order.cpy", "--repair", "fit.cpy", cwd=tmp_path, status=1)
    run(FDREC, "check", "order.xsd", "fit.cpy", cwd=tmp_path)
    dialect = ("--dialect", "gnucobol")
    run(FDREC, "plain", "fit.cpy", *dialect, "-o", "plain.cpy", cwd=tmp_path)
    run(FDREC, "from-xml", "fit.cpy", "order.xml", *dialect, "-o", "alone.dat", cwd=tmp_path)
    counted = (*dialect, "--counts")
    run(FDREC, "from-xml", "fit.cpy", "order.xml", *counted, "-o", "order.dat", cwd=tmp_path)
    length = (tmp_path / "alone.dat").stat().st_size
    counts = (tmp_path / "order.dat").stat().st_size - length
    (tmp_path / "totals.cob").write_text(totals(length, counts))
    run("cobc", "-x", "totals.cob", cwd=tmp_path)
    run("./totals", cwd=tmp_path)
    run(FDREC, "to-xml", "fit.cpy", "order.dat", *counted, "--single", "-o", "new.xml",
        cwd=tmp_path)  # fmt: skip
    run("xmllint", "--noout", "--schema", "order.xsd", "new.xml", cwd=tmp_path)
    assert (tmp_path / "new.xml").read_text() == (
        '<?xml version="1.0" encoding="UTF-8"?>\n'
        '<purchase_order xmlns="urn:example:orders" number="1042" currency="EUR">'
        "<order_date>2026-03-02</order_date><status>N</status>"
        "<buyer><name>North Mill Bakery</name><city>Aarhus</city></buyer>"
        "<supplier><name>Flour and Grain</name><city>Vejle</city></supplier>"
        "<line><article>WHEAT-T55-25</article><quantity>40</quantity><price>1120.00</price>"
        "<remark>Deliver before six</remark></line>"
        "<line><article>RYE-T130-025</article><quantity>12</quantity><price>402.60</price>"
        "</line><total>1522.60</total></purchase_order>\n"
    )


TYPES = """\
       01  BILL.
           05  KIND        PIC X.
           05  CUSTOMER    PIC X(8).
           05  AMOUNT      PIC S9(7)V99 COMP-3.
           05  LINE-COUNT  PIC 9(3) COMP-3.
           05  ENTRY-LINE  OCCURS 1 TO 5 TIMES DEPENDING ON LINE-COUNT.
               10  ARTICLE PIC X(4).
               10  PRICE   PIC S9(5)V99 COMP-3.
       01  CLOSING.
           05  KIND        PIC X.
           05  BILLS       PIC 9(5) COMP-3.
"""


def ebcdic(text: str) -> bytes:
    return text.encode("cp037")


def framed(*parts: bytes) -> bytes:
    """A record with its descriptor, which counts its own 4 bytes."""
    data = b"".join(parts)
    return (len(data) + 4).to_bytes(2, "big") + b"\0\0" + data


# Amounts have 5 bytes, prices 4, with C or D as sign; numbers without sign have F.
FILE = (
    framed(
        *(ebcdic("HMILLER  "), bytes.fromhex("000001250D"), bytes.fromhex("002F")),
        *(ebcdic("A1  "), bytes.fromhex("0000100C"), ebcdic("B22 "), bytes.fromhex("0001350D")),
    )
    + framed(
        *(ebcdic("HO'NEIL& "), bytes.fromhex("123456789C"), bytes.fromhex("001F")),
        *(ebcdic("<C> "), bytes.fromhex("1234567C")),
    )
    + framed(ebcdic("T"), bytes.fromhex("00002F"))
)

LINES = (
    "<BILL><KIND>H</KIND><CUSTOMER>MILLER</CUSTOMER><AMOUNT>-12.50</AMOUNT>"
    "<LINE-COUNT>2</LINE-COUNT>"
    "<ENTRY-LINE><ARTICLE>A1</ARTICLE><PRICE>1.00</PRICE></ENTRY-LINE>"
    "<ENTRY-LINE><ARTICLE>B22</ARTICLE><PRICE>-13.50</PRICE></ENTRY-LINE></BILL>\n"
    "<BILL><KIND>H</KIND><CUSTOMER>O'NEIL&amp;</CUSTOMER><AMOUNT>1234567.89</AMOUNT>"
    "<LINE-COUNT>1</LINE-COUNT>"
    "<ENTRY-LINE><ARTICLE>&lt;C&gt;</ARTICLE><PRICE>12345.67</PRICE></ENTRY-LINE></BILL>\n"
    "<CLOSING><KIND>T</KIND><BILLS>2</BILLS></CLOSING>\n"
)


def test_an_ebcdic_file_of_two_record_types_to_xml_lines_and_back(tmp_path: Path) -> None:
    """Tables take what their counter says, and the first byte chooses the record."""
    (tmp_path / "bills.cpy").write_text(TYPES)
    (tmp_path / "bills.dat").write_bytes(FILE)
    options = (
        *("--format", "rdw", "--record", "BILL", "--record", "CLOSING", "--lines"),
        *("--when", 'BILL: KIND = "H"', "--when", 'CLOSING: KIND = "T"'),
    )
    run(FDREC, "to-xml", "bills.cpy", "bills.dat", *options, "-o", "bills.xml", cwd=tmp_path)
    assert (tmp_path / "bills.xml").read_text() == LINES
    run(FDREC, "from-xml", "bills.cpy", "bills.xml", *options, "-o", "new.dat", cwd=tmp_path)
    assert (tmp_path / "new.dat").read_bytes() == FILE
