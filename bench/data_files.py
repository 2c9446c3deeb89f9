"""Files of records for the rows of data, in the forms of GnuCOBOL."""

import random

SEED = 1


def text(chance, length):
    """Words, and blanks at the end."""
    used = chance.randint(0, length)
    return "".join(chance.choices("ABCDEFGHIJ abcdefghij", k=used)).ljust(length).encode()


def packed(value, size):
    digits = str(abs(value)).zfill(2 * size - 1)
    return bytes.fromhex(digits + ("D" if value < 0 else "C"))


def zoned(value, length):
    """A sign in the last digit."""
    digits = bytearray(str(abs(value)).zfill(length).encode())
    if value < 0:
        digits[-1] += 0x40
    return bytes(digits)


def binary(value, size):
    return value.to_bytes(size, "big", signed=True)


def text_record(chance):
    return b"".join(text(chance, 50) for _ in range(10))


def packed_record(chance):
    return b"".join(packed(chance.randint(-(10**11) + 1, 10**11 - 1), 6) for _ in range(10))


def mixed_record(chance):
    lines = (
        text(chance, 8)
        + binary(chance.randint(-9999, 9999), 2)
        + packed(chance.randint(-(10**9) + 1, 10**9 - 1), 5)
        for _ in range(5)
    )
    return (
        binary(chance.randint(0, 10**9 - 1), 4)
        + text(chance, 30)
        + text(chance, 40)
        + text(chance, 30)
        + str(chance.randint(0, 99999)).zfill(5).encode()
        + packed(chance.randint(-(10**11) + 1, 10**11 - 1), 6)
        + zoned(chance.randint(-(10**13) + 1, 10**13 - 1), 13)
        + text(chance, 26)
        + text(chance, 4)
        + binary(chance.randint(-9999, 9999), 2)
        + b"".join(lines)
        + text(chance, 18)
    )


def repeated(picture):
    return "".join(f"           05 ITEM-{i} {picture}.\n" for i in range(10))


MIXED_ITEMS = """\
           05 ID PIC 9(9) COMP.
           05 NAME PIC X(30).
           05 STREET PIC X(40).
           05 CITY PIC X(30).
           05 ZIP PIC 9(5).
           05 AMOUNT PIC S9(9)V99 COMP-3.
           05 BALANCE PIC S9(11)V99.
           05 STAMP PIC X(26).
           05 FLAGS PIC X(4).
           05 NUMBER-OF PIC S9(4) COMP.
           05 LINE-ITEM OCCURS 5.
              10 SKU PIC X(8).
              10 QUANTITY PIC S9(4) COMP.
              10 PRICE PIC S9(7)V99 COMP-3.
           05 REMARK PIC X(18).
"""

SHAPES = {
    "text": (repeated("PIC X(50)"), text_record),
    "packed": (repeated("PIC S9(9)V99 COMP-3"), packed_record),
    "mixed": (MIXED_ITEMS, mixed_record),
}

GENERATING = """\
       IDENTIFICATION DIVISION.
       PROGRAM-ID. GENERATING.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT RECORD-FILE ASSIGN TO "{data}"
               ORGANIZATION SEQUENTIAL FILE STATUS RESULT.
       DATA DIVISION.
       FILE SECTION.
       FD RECORD-FILE.
       01 REC.
{items}       WORKING-STORAGE SECTION.
       01 RESULT PIC XX.
       01 DOCUMENT PIC X(8000).
       01 DOCUMENT-SIZE PIC 9(9) COMP-5.
       PROCEDURE DIVISION.
           OPEN INPUT RECORD-FILE
           PERFORM UNTIL RESULT NOT = "00"
               READ RECORD-FILE
               IF RESULT = "00"
                   XML GENERATE DOCUMENT FROM REC COUNT IN DOCUMENT-SIZE
               END-IF
           END-PERFORM
           CLOSE RECORD-FILE
           STOP RUN.
"""


def write(folder, shape, count):
    """Writes a copybook and so many records, of which at most 2,000 differ. The result
    is their paths."""
    items, make = SHAPES[shape]
    chance = random.Random(SEED)
    records = [make(chance) for _ in range(min(count, 2000))]
    copybook = folder / f"{shape}.cpy"
    copybook.write_text("       01 REC.\n" + items)
    data = folder / f"{shape}-{count}.dat"
    with data.open("wb") as file:
        for begin in range(0, count, len(records)):
            file.write(b"".join(records[: count - begin]))
    return copybook, data


def write_program(folder, shape, data):
    """A program that does XML GENERATE on each record of a file. The result is its path."""
    program = folder / f"generating-{shape}.cob"
    program.write_text(GENERATING.format(data=data, items=SHAPES[shape][0]))
    return program
