"""The judge of generated copybooks explains the known complaints and no others."""

from __future__ import annotations

from pathlib import Path

import pytest
from judges.cobc import NEEDS_COBC, reserved_words
from judges.cobc_judge import judge
from judges.copybook import CopybookError, read_copybook
from judges.rejections import REASONS, Judged

pytestmark = NEEDS_COBC

EMPTY = 'Warning : Unable to convert schema element "m" to COBOL (empty structure)\n'
UNION = """\
       01 u.
        02 u-union-value-0.
         03 u-union-value-0-data PIC X(8).
        02 u-union-value-1 redefines u-union-value-0.
         03 u-union-value-1-data PIC X(8).
"""
EXPLAINED = {
    "a reserved word as the name": [
        "       01 r.\n        02 value PIC X(80).\n",
        "       01 r.\n        02 index PIC S9(18).\n",
        "       01 Status.\n        02 Method PIC X(1).\n        02 a PIC X(1).\n",
        "       01 r.\n        02 PIC PIC X(80).\n",
    ],
    "a name longer than a COBOL word": [
        f"       01 {'a' * 62}\n      -   aa PIC X(1).\n",
    ],
    "a name with a character that COBOL words do not have": [
        "       01 r.\n        02 a.b PIC X(80).\n        02 c PIC X(1).\n",
        "       01 r.\n        02 a.b.\n         03 c PIC X(1).\n",
    ],
    "a name that begins or ends with a hyphen": [
        "       01 r.\n        02 -a PIC X(80).\n",
        "       01 r.\n        02 -1 PIC X(80).\n",
        "       01 r.\n        02 a- PIC X(80).\n",
    ],
    "a redefined name without its prefix": [
        UNION.replace(" u", " X-u").replace("redefines X-", "redefines "),
    ],
    "a redefinition of a redefinition": [
        UNION + "        02 u-union-value-2 redefines u-union-value-1.\n"
        "         03 u-union-value-2-data PIC X(8).\n",
    ],
    "a redefinition larger than what it redefines": [
        UNION.replace("1-data PIC X(8)", "1-data PIC X(9)"),
        UNION.replace("1-data PIC X(8)", "1-data USAGE COMP-2").replace("X(8)", "X(7)"),
    ],
    "a group without an elementary item": [
        "       01 r.\n        02 g.\n        02 a PIC X(1).\n",
        '       01 r.\n        02 g.\n         88 enumerator-0 value is "a".\n',
    ],
    "a floating-point item with members": [
        "       01 r.\n        02 f USAGE COMP-1.\n         03 a PIC X(1).\n",
    ],
    "a picture's count that is not a positive number": [
        "       01 r.\n        02 a PIC S9(18)V9(0).\n",
        "       01 r.\n        02 a PIC S9(-2)V9(4).\n",
        "       01 r.\n        02 a PIC X( 8 ).\n",
        "       01 r.\n        02 a PIC X(2147483647).\n",
    ],
    "a picture with more digits than a number has": [
        "       01 r.\n        02 a PIC S9(30)V9(9).\n",
    ],
    "more storage than a record has": [
        "       01 r.\n        02 a PIC X(999999999).\n",
        "       01 r.\n        02 a occurs 9000000 times.\n         03 b PIC X(80).\n",
    ],
    "a value that holds a quote": [
        '       01 r PIC X(80).\n        88 enumerator-0 value is "a"b".\n',
        '       01 r PIC X(80).\n        88 enumerator-0 value is """.\n',
    ],
    "a value cut at a blank": [
        '       01 r PIC X(80).\n        88 enumerator-0 value is "the first of \n'
        '           all words".\n',
        f'       01 r PIC X(80).\n        88 enumerator-0 value is "{"a " * 19}\n'
        f'           {"a " * 20}a".\n',
    ],
}

UNEXPLAINED = {
    "a group that lost its members without a report": "       01 r.\n        02 g.\n",
    "a level that was never opened": (
        "       01 r.\n        02 g.\n         04 a PIC X(1).\n         03 b PIC X(1).\n"
    ),
    "a redefinition of nothing": UNION.replace("redefines u-union-value-0", "redefines other"),
    "a redefinition elsewhere": UNION.replace(
        "        02 u-union-value-1", "        02 a PIC X(1).\n        02 u-union-value-1"
    ),
    "a picture beside members": "       01 r PIC X(1).\n        02 a PIC X(1).\n",
    "a record that begins below": "        02 a PIC X(1).\n",
}

UNREADABLE = {
    "no period": "       01 r PIC X(1)\n",
    "clauses in another order": "       01 r occurs 2 times PIC X(1).\n",
    "a name of two words": "       01 a b PIC X(1).\n",
    "a picture of no item": "       01 r PIC Z(1).\n",
    "a token that is continued without being cut": "       01 aaa\n      -   bbb PIC X(1).\n",
    "a literal that is not reopened": (
        f'       01 r PIC X(1) identified by "{"b" * 37}\n      -   bbb".\n'
    ),
}


def read_and_judge(text: str, directory: Path, reports: str) -> tuple[set[str], list[str]]:
    prefix = "X-" if " X-u" in text else ""
    judged = Judged(read_copybook(text, prefix), prefix, reserved_words(), reports)
    explained, unexplained = judge(judged, directory)
    return {reason for reason, _ in explained}, [message for _, message in unexplained]


def test_each_reason_has_an_example() -> None:
    assert list(EXPLAINED) == [reason.name for reason in REASONS]


@pytest.mark.parametrize(
    "reason, text", [(reason, text) for reason, texts in EXPLAINED.items() for text in texts]
)
def test_a_reason_in_the_entry_explains_the_complaint(
    reason: str, text: str, tmp_path: Path
) -> None:
    assert read_and_judge(text, tmp_path, EMPTY) == ({reason}, [])


@pytest.mark.parametrize("text", UNEXPLAINED.values(), ids=UNEXPLAINED)
def test_a_complaint_without_a_reason_stays(text: str, tmp_path: Path) -> None:
    _, unexplained = read_and_judge(text, tmp_path, "")
    assert unexplained


@pytest.mark.parametrize("text", UNREADABLE.values(), ids=UNREADABLE)
def test_text_that_is_not_an_entry_is_refused(text: str) -> None:
    with pytest.raises(CopybookError):
        read_copybook(text, "")


@pytest.mark.parametrize("text", [UNION, f"       01 {'a' * 62}\n      -   a PIC X(1).\n"])
def test_a_correct_copybook_has_no_complaint(text: str, tmp_path: Path) -> None:
    assert read_and_judge(text, tmp_path, "") == (set(), [])


def test_xml_clauses_become_blanks_with_their_marks() -> None:
    text = (
        "       01 r occurs 2 times identified by \n"
        f"          \"{'b' * 61}\n"
        '      -   "bbb" is attribute count in \n'
        "          r-count.\n"
    )
    (entry,) = read_copybook(text, "")
    assert entry.lines == ["       01 r occurs 2 times", "", "", f"{'':17}."]
    assert (entry.name, entry.occurs, entry.cut) == ("r", "2", set())


def test_a_cut_literal_is_joined() -> None:
    text = (
        f"       01 r PIC X(80).\n        88 enumerator-0 value is \"{'b' * 38}\n"
        '      -    "cc".\n'
    )
    _, condition = read_copybook(text, "")
    assert (condition.value, condition.cut) == ("b" * 38 + "cc", {"value"})
    assert condition.lines[1] == '      -    "cc".'
