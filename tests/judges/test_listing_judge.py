"""The comparison with the listing of cobc finds every difference."""

from __future__ import annotations

from pathlib import Path

import pytest
from judges.cobc import NEEDS_COBC, program_with
from judges.cobc_listing import Item, ListingError, differences, read_listing
from judges.cobc_sources import Edit, edit_pictures, list_edited, needless_edits, reserved_names


LISTING = """
00004 FILE                ORDERS
00004 ALPHANUMERIC   01   ORDER-RECORD                   X(4)

      WORKING-STORAGE SECTION

00034 GROUP          01   REC EXTERNAL
00006 GROUP          05   PAIR                           OCCURS 2
00002 NUMERIC        10   PRICE                          S9(3) COMP-3, OCCURS 1 TO 3
      CONDITIONAL    88   FREE
00006 GROUP          05   FILLER, REDEFINES PAIR
00006 NUMERIC        10   TOTAL                          ZZ,ZZ9 GLOBAL, REDEFINES PRICE
00004 NUMERIC        05   FACTOR                         S9(7)V9(8) COMP-1
00008 POINTER        05   PLACE
00001 ALPHANUMERIC   05   A-NAME-OF-THIRTY-ONE-CHARACTER X

      LINKAGE SECTION

00001 ALPHANUMERIC   01   PARAMETER                      X

"""
ITEMS = [
    Item("", 1, "REC", 34, is_group=True),
    Item("", 5, "PAIR", 3, occurs=(2, 2), is_group=True),
    Item("", 10, "PRICE", 2, "S9(3)", "COMP-3", (1, 3)),
    Item("", 5, "FILLER", 6, redefines=True, is_group=True),
    Item("", 10, "TOTAL", 6, "ZZ,ZZ9", redefines=True),
    Item("", 5, "FACTOR", 4, usage="COMP-1"),
    Item("", 5, "PLACE", 8),
    Item("", 5, "A-NAME-OF-THIRTY-ONE-CHARACTER", 1, "X"),
    Item("ORDERS", 1, "ORDER-RECORD", 4, "X(4)"),
]
LONG_NAME = ITEMS[7]._replace(name="A-NAME-OF-THIRTY-ONE-CHARACTERS")


def test_a_listing_is_read() -> None:
    assert read_listing(LISTING) == (ITEMS, ["ORDERS"])


@pytest.mark.parametrize(
    "line",
    [
        "00001 ALPHANUMERIC   05   A                              X, SOMEHOW",
        "????? ALPHANUMERIC   05   A                              X",
        "a line of another kind",
    ],
)
def test_an_unknown_line_of_a_listing_is_an_error(line: str) -> None:
    with pytest.raises(ListingError):
        read_listing(f"{LISTING}{line}\n")


@pytest.mark.parametrize(
    "change",
    [
        {"owner": "ORDERS"},
        {"level": 6},
        {"name": "PRIC"},
        {"size": 3},
        {"picture": "S9(4)"},
        {"usage": "COMP"},
        {"occurs": (1, 2)},
        {"redefines": True},
        {"is_group": True},
    ],
    ids=lambda change: next(iter(change)),
)
def test_any_difference_is_found(change: dict[str, object]) -> None:
    changed = [*ITEMS[:2], ITEMS[2]._replace(**change), *ITEMS[3:]]  # type: ignore[arg-type]
    assert differences(ITEMS, ITEMS) == []
    assert len(differences(changed, ITEMS)) == 1
    assert len(differences(ITEMS, changed, True)) == 1


def test_missing_items_are_found() -> None:
    assert len(differences(ITEMS, ITEMS[:-1])) == len(differences(ITEMS[:-1], ITEMS)) == 1


def test_only_a_name_of_full_width_may_be_cut() -> None:
    assert differences([LONG_NAME], [ITEMS[7]]) == []
    assert differences([ITEMS[7]], [LONG_NAME]) != []
    assert differences([ITEMS[2]], [ITEMS[2]._replace(name="PRIC")]) != []


def test_only_group_sizes_can_be_left_out_of_the_comparison() -> None:
    group, item = (found._replace(size=99) for found in (ITEMS[0], ITEMS[2]))
    assert differences([group], [ITEMS[0]]) != []
    assert differences([group], [ITEMS[0]], True) == []
    assert differences([item], [ITEMS[2]], True) != []


def test_edits_change_pictures_too() -> None:
    edit = Edit("", r"9\(19\)(?= COMP$)", "9(18)")
    wide = ITEMS[2]._replace(picture="S9(19)", usage="COMP")
    assert edit_pictures([wide, ITEMS[2]], [edit]) == [wide._replace(picture="S9(18)"), ITEMS[2]]


@NEEDS_COBC
def test_cobc_lists_sizes(tmp_path: Path) -> None:
    text = program_with(["       01 R.", "        02 A PIC S9(4) COMP OCCURS 3."])
    listing = list_edited(text, [], tmp_path)
    right = [
        Item("", 1, "R", 6, is_group=True),
        Item("", 2, "A", 2, "S9(4)", "COMP", (3, 3)),
    ]
    assert (listing.complaints, listing.items) == ([], right)
    assert differences([right[0]._replace(size=7), right[1]], listing.items) != []


@NEEDS_COBC
def test_an_edit_that_cobc_does_not_need_is_found(tmp_path: Path) -> None:
    text = program_with(["       01 R.", "        02 ADDRESS PIC X."])
    needed = reserved_names([Item("", 2, "ADDRESS", 1), Item("", 2, "A", 1)])
    needless = Edit("syntax error, unexpected ", "PIC X", "PIC 9")
    assert needless_edits(text, [*needed, needless], tmp_path) == [needless]
    assert list_edited(text, [], tmp_path).complaints
    assert list_edited(text, needed, tmp_path).complaints == []
