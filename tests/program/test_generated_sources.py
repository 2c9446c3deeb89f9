"""The compiler and cobc describe the same items in sources that are made at random.

The seeds are fixed, so a source that fails can be made again.
"""

from __future__ import annotations

import re
import xml.etree.ElementTree as ET
from pathlib import Path

import pytest
from judges.cobc import NEEDS_COBC, program_with
from judges.cobc_listing import Item, differences, list_items
from judges.data_dictionary import described_items
from support.generated_items import NUMBERS_WITHOUT_PICTURE, PICTURED_USAGES, PLACES
from support.generated_sources import SourceMaker
from support.harness import program_under_test, readable, run

BATCHES, BATCH_SIZE = 15, 10
RENAMES_LEVEL = 66
COUNT = re.compile(r"\(([^()]+)\)")
# Picture and usage that cobc lists for usages without a picture, where it uses other names.
LISTED = {
    "FLOAT-SHORT": ("", "COMP-1"),
    "FLOAT-LONG": ("", "COMP-2"),
    "BINARY-CHAR": ("BINARY-CHAR", "COMP-5"),
    "BINARY-SHORT": ("BINARY-SHORT", "COMP-5"),
    "BINARY-LONG": ("BINARY-LONG", "COMP-5"),
    "BINARY-DOUBLE": ("BINARY-DOUBLE", "COMP-5"),
    "UNSIGNED-SHORT": ("BINARY-SHORT", "COMP-5"),
    "SIGNED-INT": ("BINARY-LONG", "COMP-5"),
    "UNSIGNED-INT": ("BINARY-LONG", "COMP-5"),
    "SIGNED-LONG": ("BINARY-DOUBLE", "COMP-5"),
    "PROGRAM-POINTER": ("", ""),
    "PROCEDURE-POINTER": ("", ""),
}


def described(source: Path, is_free: bool) -> list[Item]:
    """The items in the compiler's dictionary, with the usages that cobc lists."""
    form = f"SOURCEFORMAT({'FREE' if is_free else 'FIXED'})"
    compiler = program_under_test("ZBC")
    result = run(source.parent, compiler, "-C", "XMLGEN(WS)", form, source.name)
    assert result.returncode == 0, readable(result.stderr)
    items = []
    for item in described_items(ET.parse(source.with_suffix(".xml")).getroot()):
        if not item.picture:
            picture, usage = LISTED.get(item.usage, ("", item.usage))
            item = item._replace(picture=picture, usage=usage)
        items.append(item)
    return items


def listed(source: Path, is_free: bool, constants: dict[str, int]) -> list[Item]:
    """The items that cobc lists, with the values of constants in their pictures."""
    listing = list_items(source, "-flarger-redefines-ok", *["-free"] * is_free)
    assert listing.complaints == []
    values = {name.upper(): str(value) for name, value in constants.items()}

    def with_value(match: re.Match[str]) -> str:
        return f"({values.get(match[1], match[1])})"

    return [item._replace(picture=COUNT.sub(with_value, item.picture)) for item in listing.items]


def without_details_of_renames(items: list[Item]) -> list[Item]:
    """Leaves out what cobc does not list, or lists as a picture, for level 66."""
    return [
        item._replace(picture="", usage="") if item.level == RENAMES_LEVEL else item
        for item in items
    ]


def disagreements(maker: SourceMaker, directory: Path) -> list[str]:
    is_free = maker.text.is_free
    source = directory / "a.cob"
    source.write_text(maker.source(), encoding="ascii")
    ours = described(source, is_free)
    theirs = listed(source, is_free, maker.items.constants)
    return differences(without_details_of_renames(ours), without_details_of_renames(theirs))


@NEEDS_COBC
@pytest.mark.parametrize("batch", range(BATCHES))
def test_the_compiler_and_cobc_see_the_same_items(batch: int, tmp_path: Path) -> None:
    found = {}
    for seed in range(batch * BATCH_SIZE, (batch + 1) * BATCH_SIZE):
        if lines := disagreements(SourceMaker(seed), tmp_path):
            found[seed] = lines
    assert found == {}


def test_the_sources_are_varied() -> None:
    """All usages and clauses occur, and no source occurs twice."""
    sources = [SourceMaker(seed).source() for seed in range(BATCHES * BATCH_SIZE)]
    assert len(set(sources)) == len(sources)
    words = set(re.split(r"[\s.,;~]+", "\n".join(sources).upper()))
    clauses = """FD 66 77 78 88 REDEFINES RENAMES THRU OCCURS DEPENDING INDEXED SEPARATE BLANK JUST
        SYNC VALUE VALUES NATIONAL FILLER CURRENCY COMMA"""
    expected = {*clauses.split(), *PICTURED_USAGES, *NUMBERS_WITHOUT_PICTURE, *PLACES}
    assert expected - words == set()


def test_a_seed_makes_the_same_source_again() -> None:
    assert SourceMaker(1).source() == SourceMaker(1).source()


ITEM = "05 A PIC 9(4) COMP OCCURS 3 TIMES"


@NEEDS_COBC
@pytest.mark.parametrize(
    "change",
    [
        "06 A PIC 9(4) COMP OCCURS 3 TIMES",
        "05 B PIC 9(4) COMP OCCURS 3 TIMES",
        "05 A PIC 9(3) COMP OCCURS 3 TIMES",
        "05 A PIC 9(5) COMP OCCURS 3 TIMES",
        "05 A PIC 9(4) COMP-5 OCCURS 3 TIMES",
        "05 A PIC 9(4) COMP OCCURS 4 TIMES",
        "05 A PIC 9(4) COMP OCCURS 3 TIMES. 05 B PIC X",
    ],
)
def test_a_change_is_a_difference(change: str, tmp_path: Path) -> None:
    source = tmp_path / "a.cob"
    source.write_text(program_with(["       01 R.", f"           {ITEM}."]), encoding="ascii")
    ours = described(source, is_free=False)
    assert differences(ours, listed(source, False, {})) == []
    source.write_text(program_with(["       01 R.", f"           {change}."]), encoding="ascii")
    assert differences(ours, listed(source, False, {})) != []
