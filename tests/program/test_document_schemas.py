"""Judges documents by the schemas that `fdrec schema` writes.

The documents are written by hand: those that `fdrec to-xml` and `to-json` may write, and each with
one thing that they never have.
"""

from __future__ import annotations

import shutil
from pathlib import Path
from typing import NamedTuple

import pytest
from judges.document_schemas import XmlJudges, json_faults
from judges.xmllint import NEEDS_XMLLINT
from support import harness

RECORD = """
01 R.
   05 TXT PIC X(3).
   05 AMOUNT PIC S9(3)V99 COMP-3.
   05 WHOLE PIC 9(2).
   05 SCALED PIC 99PPP.
   05 SMALL PIC VPP9.
   05 NATIVE PIC S9(4) COMP-5.
   05 LONG PIC S9(30).
   05 SINGLE COMP-1.
   05 COUNTER PIC 9.
   05 T OCCURS 1 TO 3 DEPENDING ON COUNTER.
      10 A PIC X.
"""
RECORD_PARTS = {
    "TXT": "abc",
    "AMOUNT": "-123.45",
    "WHOLE": "0",
    "SCALED": "12000",
    "SMALL": "0.005",
    "NATIVE": "-32768",
    "LONG": "-123456789012345678901234567890",
    "SINGLE": "1e+05",
    "COUNTER": "2",
}
TABLE = "<T><A>x</A></T>"


def record(table: str = TABLE * 2, **changes: str) -> str:
    parts = {**RECORD_PARTS, **changes}
    return f"<R>{''.join(f'<{name}>{text}</{name}>' for name, text in parts.items())}{table}</R>"


VIEWS = """
01 R IDENTIFIED BY "r".
   05 KIND PIC X IDENTIFIED BY "kind" IS ATTRIBUTE.
   05 G1.
      10 A PIC X IDENTIFIED BY "a".
      10 B PIC X OCCURS 2 IDENTIFIED BY "b".
   05 G2 REDEFINES G1.
      10 B PIC 9 IDENTIFIED BY "b".
   05 C PIC X IDENTIFIED BY "b".
   05 H1.
      10 K PIC X IDENTIFIED BY "k".
      10 X PIC 9 IDENTIFIED BY "x".
   05 H2 REDEFINES H1.
      10 K PIC 9(2) IDENTIFIED BY "k".
      10 Y REDEFINES K PIC X IDENTIFIED BY "y".
"""
RULES = [f"--when={name}:" for name in ("G1", "G2", "H1", "H2")]
SPACES = """
01 R IDENTIFIED BY "r" NAMESPACE IS "urn:r".
   05 A PIC X IDENTIFIED BY "a" IS ATTRIBUTE NAMESPACE IS "urn:a".
   05 B IDENTIFIED BY "b" NAMESPACE IS "urn:b".
      10 C PIC 9 IDENTIFIED BY "c" NAMESPACE IS "urn:r".
      10 D PIC X IDENTIFIED BY "d" NAMESPACE IS "".
   05 E IDENTIFIED BY "e".
      10 B PIC 9 IDENTIFIED BY "b" NAMESPACE IS "urn:b".
   05 S1 PIC X IDENTIFIED BY "s" NAMESPACE IS "urn:b".
   05 S2 PIC 9 OCCURS 2 IDENTIFIED BY "s" NAMESPACE IS "urn:b".
"""
SPACES_DOCUMENT = (
    '<r xmlns="urn:r" xmlns:n1="urn:a" xmlns:n2="urn:b" n1:a="x"><n2:b><c>1</c><d xmlns="">x</d>'
    "</n2:b><e><n2:b>2</n2:b></e><n2:s>x</n2:s><n2:s>1</n2:s><n2:s>2</n2:s></r>"
)
OMITTED = """
01 R IDENTIFIED BY "r".
   05 A PIC X IDENTIFIED BY "a" IS ATTRIBUTE COUNT IN A-C.
   05 B PIC X(2) OCCURS 2 IDENTIFIED BY "b" COUNT IN B-C.
   05 C PIC 9 IDENTIFIED BY "c".
   05 D PIC 9 OCCURS 2 IDENTIFIED BY "d".
   05 E IDENTIFIED BY "e".
      10 U PIC X IDENTIFIED BY "u" IS ATTRIBUTE.
      10 V PIC 9.
      10 W REDEFINES V PIC X.
"""
OMITTED_PARTS = '<c>1</c><d>1</d><d>2</d><e u="x">1</e>'
SLOTS = """
01 R IDENTIFIED BY "r".
   05 N PIC 9 IDENTIFIED BY "n".
   05 S1 PIC X OCCURS 2 IDENTIFIED BY "s".
   05 B PIC X IDENTIFIED BY "b".
   05 S2 PIC X OCCURS 0 TO 3 DEPENDING ON N IDENTIFIED BY "s".
"""
LEVEL_88 = """
01 R.
   05 A PIC X(3).
      88 A1 VALUE "A" "BC".
   05 B PIC 9V9.
      88 B1 VALUE 1 2.5.
"""


class Sample(NamedTuple):
    """Documents of a copybook and whether they are valid."""

    copybook: str
    options: list[str]
    valid: list[str]
    refused: list[str]
    namespace: str = ""


XML = {
    "values": Sample(
        RECORD,
        ["--lines"],
        [
            record(),
            record(TXT="", AMOUNT="0.00", SINGLE="NaN", SCALED="0", LONG="0"),
            record(table=TABLE, SINGLE="-0", NATIVE="32767", SMALL="0.000"),
        ],
        [
            record(TXT="abcd"),
            record(AMOUNT="1234.56"),
            record(AMOUNT="1.234"),
            record(AMOUNT=""),
            record(WHOLE="-1"),
            record(WHOLE="100"),
            record(SCALED="123456"),
            record(SMALL="0.0005"),
            record(NATIVE="32768"),
            record(LONG="1234567890123456789012345678901"),
            record(SINGLE="x"),
            record(table=""),
            record(table=TABLE * 4),
            record(table=TABLE + "<A>x</A>"),
            "<R/>",
        ],
    ),
    "wrapper": Sample(
        "01 R PIC X.\n01 S PIC 9.\n",
        ["--root", "all", "--record", "R", "--record", "S"],
        ["<all/>", "<all><R>x</R><S>1</S><R/></all>", "<R>x</R>"],
        ["<records/>", "<all><T/></all>", "<all><S>x</S></all>", "<all>x</all>"],
    ),
    "views": Sample(
        VIEWS,
        ["--single", *RULES],
        [
            '<r kind="1"><a>x</a><b>x</b><b>x</b><b>x</b><k>x</k><x>1</x></r>',
            '<r kind="2"><b>1</b><b>x</b><k>12</k></r>',
        ],
        [
            "<r><b>1</b><b>x</b><k>12</k></r>",
            '<r kind="1"><a>x</a><b>x</b><b>x</b><k>x</k><x>1</x></r>',
            '<r kind="1"><a>x</a><b>1</b><b>x</b><b>x</b><b>x</b><k>x</k></r>',
            '<r kind="1"><b>x</b><a>x</a><b>x</b><k>x</k></r>',
            '<r kind="1"><b>xy</b><b>x</b><k>x</k></r>',
            '<r kind="1"><b>x</b><b>x</b><y>x</y></r>',
        ],
    ),
    "namespaces": Sample(
        SPACES,
        ["--single"],
        [SPACES_DOCUMENT],
        [
            SPACES_DOCUMENT.replace("n1:a=", "a="),
            SPACES_DOCUMENT.replace(' xmlns=""', ""),
            SPACES_DOCUMENT.replace("<n2:b>2<", "<n2:b>x<"),
            SPACES_DOCUMENT.replace("<n2:s>2</n2:s>", ""),
            SPACES_DOCUMENT.replace("<n2:b>2</n2:b>", "<b>2</b>"),
        ],
        "urn:r",
    ),
    "namespaces-in-a-wrapper": Sample(
        SPACES, [], [f"<records>{SPACES_DOCUMENT}</records>"], ["<records><r/></records>"]
    ),
    "counts": Sample(
        OMITTED,
        ["--lines", "--counts"],
        [f"<r>{OMITTED_PARTS}</r>", f'<r a="x"><b/><b>x</b>{OMITTED_PARTS}</r>'],
        [
            f"<r><b/><b/><b/>{OMITTED_PARTS}</r>",
            f"<r>{OMITTED_PARTS.replace('<c>1</c>', '')}</r>",
            f"<r>{OMITTED_PARTS.replace('<d>1</d>', '')}</r>",
        ],
    ),
    "omit-empty": Sample(
        OMITTED,
        ["--lines", "--omit-empty"],
        ["<r/>", f"<r><b/>{OMITTED_PARTS}</r>", "<r><c>1</c><e>0</e></r>"],
        ["<r><e>x</e></r>", "<r><e/></r>", "<r><d>1</d><c>1</c></r>"],
    ),
    "blank-numbers": Sample(
        OMITTED,
        ["--lines", "--blank-numbers", "omit", "--when", "V:"],
        ['<r a="x"><b/><b/><d/><d>2</d><e u="x"/></r>'],
        ['<r a="x"><b/><b/><c/><d/><d/><e u="x"/></r>', '<r a="x"><b/><b/><d/><e u="x"/></r>'],
    ),
    "unions": Sample(
        OMITTED,
        ["--lines", "--omit-empty", "--when", "V:", "--when", "W:"],
        ['<r><e u="x">1</e></r>', "<r><e>x</e></r>", "<r><e/></r>"],
        ["<r><e>xy</e></r>"],
    ),
    "slots": Sample(
        SLOTS,
        ["--lines", "--omit-empty"],
        [
            "<r><s/><s/><b/><s/><s/><s/></r>",
            "<r><n>3</n><s/><s/><s/><s/><s/></r>",
            "<r><s/><s/><b/></r>",
        ],
        ["<r><s/><b/></r>", "<r><s/><s/><b/><b/></r>", "<r><b/><s/><s/></r>"],
    ),
    "enumerations": Sample(
        LEVEL_88,
        ["--lines", "--enumerate"],
        ["<R><A>A</A><B>1.0</B></R>", "<R><A>BC</A><B>2.5</B></R>"],
        ["<R><A>B</A><B>1.0</B></R>", "<R><A>A</A><B>2.0</B></R>"],
    ),
}
JSON = {
    "values": Sample(
        RECORD,
        [],
        [
            '{"TXT":"abc","AMOUNT":-123.45,"WHOLE":0,"SCALED":12000,"SMALL":0.005,"NATIVE":-32768,'
            '"LONG":-999999999999999999999999999999,"SINGLE":1e+05,"COUNTER":1,"T":[{"A":""}]}',
            '{"TXT":"","AMOUNT":999.99,"WHOLE":99,"SCALED":0,"SMALL":0.000,"NATIVE":32767,'
            '"LONG":999999999999999999999999999999,"SINGLE":"NaN","COUNTER":1,"T":[{"A":"x"}]}',
        ],
        [
            '{"TXT":"abcd","AMOUNT":-1000.00,"WHOLE":-1,"SCALED":12001,"SMALL":1.0,"NATIVE":32768,'
            '"LONG":1,"SINGLE":1,"COUNTER":1,"T":{"A":""}}',
            '{"TXT":"abc"}',
            "[]",
        ],
    ),
    "quoted": Sample(
        "01 R.\n05 A PIC S9(3)V9.\n05 B COMP-2.\n",
        ["--numbers", "string"],
        ['{"A":"-12.0","B":"1e+05"}', '{"A":"0.5","B":"INF"}'],
        ['{"A":1.5,"B":"1"}', '{"A":"01.5","B":"1"}', '{"A":"1.55","B":"1"}', '{"A":"1.5","B":1}'],
    ),
    "views": Sample(
        "01 R.\n05 A PIC X.\n05 B REDEFINES A PIC X.\n05 C PIC X.\n",
        ["--when", "A:", "--when", "B:"],
        ['{"A":"x","C":"x"}', '{"B":"x","C":"x"}'],
        ['{"A":"x","B":"x","C":"x"}', '{"C":"x"}', '{"A":"x"}'],
    ),
    "attributes": Sample(
        OMITTED,
        ["--counts"],
        ['{"c":1,"d":[1,2],"e":{"@u":"x","#text":3}}', '{"@a":"","b":[""],"c":1,"d":[1,2],'
         '"e":{"@u":"x","#text":3}}'],
        ['{"c":1,"d":[1,2],"e":3}', '{"c":1,"d":[1],"e":{"@u":"x","#text":3}}'],
    ),
    "several": Sample(
        "01 R PIC X.\n01 S.\n05 A PIC 9.\n",
        ["--record", "R", "--record", "S"],
        ['{"R":"x"}', '{"S":{"A":1}}'],
        ['"x"', '{"R":"x","S":{"A":1}}', '{"S":"x"}'],
    ),
}  # fmt: skip


def write_schema(directory: Path, sample: Sample, *options: str) -> None:
    (directory / "a.cpy").write_text(sample.copybook, "utf-8")
    options = ("--source-format", "free", "--dialect", "gnucobol", *options)
    program = harness.program_under_test("FDREC")
    done = harness.run(directory, program, "schema", "a.cpy", *options, *sample.options)
    assert (done.returncode, harness.readable(done.stderr)) == (0, "")


@NEEDS_XMLLINT
@pytest.mark.parametrize("name", XML)
def test_xml_documents_are_judged(name: str, tmp_path: Path) -> None:
    sample = XML[name]
    write_schema(tmp_path, sample, "-o", "schema/")
    judges = XmlJudges(tmp_path / "schema" / "schema.xsd", sample.namespace)
    assert [judges.faults(document) for document in sample.valid] == [""] * len(sample.valid)
    assert [document for document in sample.refused if not judges.faults(document)] == []


@pytest.mark.parametrize("name", JSON)
def test_lines_of_json_are_judged(name: str, tmp_path: Path) -> None:
    sample = JSON[name]
    write_schema(tmp_path, sample, "--json", "-o", "schema.json")
    schema = tmp_path / "schema.json"
    assert [json_faults(schema, line) for line in sample.valid] == [""] * len(sample.valid)
    assert [line for line in sample.refused if not json_faults(schema, line)] == []


@NEEDS_XMLLINT
def test_a_large_table_is_no_burden(tmp_path: Path) -> None:
    """Validators that write out each occurrence take long, or refuse the schema."""
    sample = Sample("01 R.\n05 A PIC X.\n05 T OCCURS 20000.\n10 B PIC X.\n", ["--lines"], [], [])
    write_schema(tmp_path, sample, "-o", "schema/")
    judges = XmlJudges(tmp_path / "schema" / "schema.xsd")
    table = "<T><B>x</B></T>"
    assert judges.faults(f"<R><A/>{table * 20000}</R>") == ""
    assert judges.faults(f"<R><A/>{table * 19999}</R>") != ""
    shutil.rmtree(tmp_path / "schema")
