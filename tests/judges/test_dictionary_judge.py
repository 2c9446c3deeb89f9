"""Data dictionaries and enhanced copybooks are read correctly."""

from __future__ import annotations

import xml.etree.ElementTree as ET

import pytest
from judges.cobc_listing import Item
from judges.copybook import CopybookError
from judges.data_dictionary import (
    copybook_record,
    described_files,
    described_items,
    ranges,
    schema_faults,
    without_faults,
)
from judges.enhanced_copybook import read_enhanced

DICTIONARY = """
<program name="P">
  <dataItems>
    <alphanumeric name="FILLER" level="1" length="1" usage="display" picture="x" redefines="true"/>
    <group name="Rec" level="1" length="15">
      <alphanumeric name="a" level="5" length="4" usage="display" picture="x(4)">
        <alphanumericCondition name="c"><alphanumericConstant value="1"/></alphanumericCondition>
      </alphanumeric>
      <group name="b" level="7" length="4" redefines="true">
        <numeric name="b1" level="9" length="4" usage="display" picture="9(4)"/>
      </group>
      <numeric name="d" level="5" length="2" usage="comp-4" picture="9" minOccurs="0" maxOccurs="4">
        <numericCondition name="e"><numericRange from="1" to="2"/></numericCondition>
      </numeric>
    </group>
    <numeric name="last" level="77" length="4" usage="comp-1"/>
    <group name="unseen" level="1" length="1">
      <numericCondition name="f"><numericRange from="1" to="2"/></numericCondition>
    </group>
  </dataItems>
  <fileSection>
    <fd name="f"><alphanumeric name="r" level="1" length="3" usage="display" picture="x(3)"/></fd>
  </fileSection>
</program>
"""
FILLER = '<group name="filler" level="1" length="1">{}</group>'
CONDITION = "<numericCondition>{}</numericCondition>"
CONSTANT, RANGE = '<numericConstant value="1"/>', '<numericRange from="1" to="2"/>'


def test_a_dictionary_is_described() -> None:
    program = ET.fromstring(DICTIONARY)
    items = list(described_items(program))
    assert [item.name for item in items] == "FILLER REC A B B1 D LAST UNSEEN R".split()
    assert items[2] == Item("", 5, "A", 4, "X(4)")
    assert items[3] == Item("", 7, "B", 4, redefines=True, is_group=True)
    assert items[5] == Item("", 5, "D", 2, "9", "COMP", (0, 4))
    assert items[6] == Item("", 77, "LAST", 4, usage="COMP-1")
    assert items[8] == Item("F", 1, "R", 3, "X(3)")
    assert described_files(program) == ["F"]


def test_the_first_record_is_the_copybook() -> None:
    record = copybook_record(ET.fromstring(DICTIONARY))
    # A redefinition without an item before it counts as an ordinary item.
    assert record.items == [Item("", 1, "FILLER", 1, "X")]
    program = ET.fromstring(DICTIONARY)
    program[0].remove(program[0][0])
    record = copybook_record(program)
    assert [(item.level, item.name) for item in record.items] == [(1, "REC"), (2, "A"), (2, "D")]
    assert (record.redefinitions, record.renames) == (1, 0)


def test_the_schema_holds_the_records_up_to_an_elementary_one() -> None:
    assert ranges(ET.fromstring(DICTIONARY)) == 1
    assert schema_faults(ET.fromstring(DICTIONARY)) == {"conditions"}


@pytest.mark.parametrize(
    "item, faults",
    [
        ('<group name="A"><group name="B"/></group>', set()),
        ('<group name="A"><alphanumeric name="B" maxOccurs="2"/></group>', set()),
        (FILLER.format('<alphanumeric name="B"/>'), set()),
        (FILLER.format('<group name="B"/>'), {"bounds of a global element"}),
        (FILLER.format(FILLER.format('<group name="B"/>')), {"bounds of a global element"}),
        (FILLER.format('<group name="B" redefines="true"/>'), set()),
        (FILLER.format('<numeric name="B" maxOccurs="2"/>'), {"bounds of a global element"}),
        (f'<alphanumeric name="A">{CONDITION.format(CONSTANT)}</alphanumeric>', {"conditions"}),
        (f'<alphanumeric name="A">{CONDITION.format(RANGE)}</alphanumeric>', set()),
        (f'<numeric name="A">{CONDITION.format(RANGE)}</numeric>', {"conditions"}),
        (f'<alphanumeric name="filler">{CONDITION.format(CONSTANT)}</alphanumeric>', set()),
    ],
)
def test_a_schema_has_faults_for_known_reasons_only(item: str, faults: set[str]) -> None:
    program = ET.fromstring(f"<program><dataItems>{item}</dataItems></program>")
    assert schema_faults(program) == faults
    assert schema_faults(without_faults(program)) == set()


def test_xml_clauses_are_taken_out_of_an_enhanced_copybook() -> None:
    text = (
        '        01 R identified by "R" namespace is "urn:r" is attribute count \n'
        "           in R-count.\n"
        '         02 A pic X value is "a" identified by "A".\n'
        "         02 FILLER pic X.\n"
    )
    entries = read_enhanced(text)
    assert [entry.lines for entry in entries] == [
        ["        01 R", f"{'':21}."],
        [f'         02 A pic X value is "a"{"":18}.'],
        ["         02 FILLER pic X."],
    ]
    assert [entry.cut_value for entry in entries] == [None, None, None]


def test_a_value_that_is_cut_at_a_blank_is_joined() -> None:
    text = f'         02 A pic X(50) value is "{"a " * 15}\n{"":12}b" identified by "A".\n'
    (entry,) = read_enhanced(text)
    assert entry.cut_value == f"{'a ' * 15}b"
    assert [line.strip() for line in entry.mended_lines()] == [
        "02",
        "A",
        "pic",
        "X(50)",
        "value",
        '"a a a a a a a a a a a a a" &',
        '" a a b"',
        ".",
    ]


def test_an_entry_without_a_period_is_not_read() -> None:
    with pytest.raises((CopybookError, ValueError)):
        read_enhanced('        01 R identified by "R"\n')
