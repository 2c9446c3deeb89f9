"""The comparison of plain copybooks with their sources accepts what is right and nothing else."""

from __future__ import annotations

from judges.cobc_listing import Item
from judges.plain_copybook import differences, place, shown_items

LISTED = [
    Item("", 1, "R", 15, is_group=True),
    Item("", 5, "A-AREA", 4),
    Item("", 5, "A", 2, redefines=True),
    Item("", 5, "B", 4, redefines=True),
    Item("", 5, "T", 3, occurs=(3, 3), is_group=True),
    Item("", 10, "C", 3),
    Item("", 5, "D", 2),
]


def entry(level: int, name: str, offset: int, length: int, **others: object) -> dict[str, object]:
    depth = {1: 0, 5: 1, 10: 2}[level]
    return {
        "level": level,
        "depth": depth,
        "name": name,
        "offset": offset,
        "length": length,
        **others,
    }


def shown(*, offset: int = 13, size: int = 3) -> dict[str, object]:
    items = [
        entry(1, "R", 0, 15),
        entry(5, "EMPTY", 0, 0),
        entry(10, "NOTHING", 0, 0),
        entry(5, "A", 0, 2),
        entry(5, "B", 0, 4, redefines="A"),
        entry(5, "T", 4, size, occurs={"min": 3, "max": 3}),
        entry(10, "C", 4, size),
        entry(5, "D", offset, 2),
    ]
    return {"records": [{"items": items}]}


def compare(original: dict[str, object], listed: list[Item]) -> list[str]:
    return differences(shown_items(original), place(listed))


def test_the_same_storage_is_accepted() -> None:
    assert compare(shown(), LISTED) == []


def test_another_offset_is_rejected() -> None:
    assert len(compare(shown(offset=12), LISTED)) == 1


def test_another_size_is_rejected() -> None:
    assert len(compare(shown(size=2), LISTED)) == 2


def test_another_level_is_rejected() -> None:
    assert compare(shown(), [*LISTED[:-1], LISTED[-1]._replace(level=4)]) != []


def test_a_missing_item_is_rejected() -> None:
    assert len(compare(shown(), LISTED[:-1])) == 1


def test_an_item_too_many_is_rejected() -> None:
    assert len(compare(shown(), [*LISTED, Item("", 5, "E", 1)])) == 1
