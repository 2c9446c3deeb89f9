"""Mapping files and data dictionaries against their schemas, and what fdrec makes of them.

The schemas in share/ accept what the programs write, which the expected outputs of the cases
show, and reject what fdmorph does not read as it looks.
"""

from __future__ import annotations

import os
import re
import shutil
from pathlib import Path

import pytest
from judges.xmllint import NEEDS_XMLLINT
from support.cobol_runs import DIRECTIVES, MAPPING, convert
from support.cobol_sources import BEARING, COPY_PATH, MISSING, link_members, stage
from support.corpus import name_of
from support.generated_sources import SourceMaker
from support.harness import TESTS, program_under_test, readable, run

SHARE = TESTS.parent / "share"
MAPPING_SCHEMA = SHARE / "dmxmlmap.xsd"
DICTIONARY_SCHEMA = SHARE / "zbc-dictionary.xsd"
NAMESPACE = "http://www.tallmere.example/schema/xml/v1.0/dmxmlmap.xsd"
SEEDS = range(6)
STEP = 1 if "FDMORPH_LONG_TESTS" in os.environ else 20
SAMPLE = [pytest.param(path, id=name_of(path)) for path in BEARING[::STEP]]

# A group without items, which the bundled compiler never writes, spoils the file.
SPOILED = "an-empty-group-spoils-the-file"


def outputs(pattern: str, root: str) -> list[Path]:
    """The expected outputs of cases that have this root element."""
    tag = re.compile(rf"<{root}[ >]".encode())
    return [
        path
        for path in sorted((TESTS / "cases").glob(pattern))
        if tag.match(path.read_bytes().partition(b"?>")[2].lstrip())
    ]


MAPPINGS = [
    path
    for path in outputs("*/*/files/*.xml", "xml-cobol-mapping-file")
    if SPOILED not in str(path)
]
DICTIONARIES = outputs("compiler-*/*/files/*.xml", "program") + outputs(
    "dictionary-format/*/files/*.xml", "program"
)


def refused_by_xmllint(schema: Path, documents: list[Path]) -> list[Path]:
    command = ["xmllint", "--noout", "--nonet", "--schema", str(schema), *map(str, documents)]
    printed = readable(run(schema.parent, *command).stderr)
    verdicts = dict(re.findall(r"^(.+) (validates|fails to validate)$", printed, re.MULTILINE))
    assert set(verdicts) == set(map(str, documents)), printed
    return [path for path in documents if verdicts[str(path)] != "validates"]


def reports_of_fdmorph(document: Path) -> int:
    return run(document.parent, program_under_test(), "-v", document.name).returncode


@NEEDS_XMLLINT
def test_the_schema_of_mapping_files_accepts_what_fdmorph_and_fdrec_write() -> None:
    assert len(MAPPINGS) > 10
    assert refused_by_xmllint(MAPPING_SCHEMA, MAPPINGS) == []


@NEEDS_XMLLINT
def test_the_schema_of_dictionaries_accepts_what_the_compiler_writes() -> None:
    assert len(DICTIONARIES) > 10
    assert refused_by_xmllint(DICTIONARY_SCHEMA, DICTIONARIES) == []


def test_fdmorph_validates_with_a_schema_beside_the_file(tmp_path: Path) -> None:
    shutil.copy(MAPPING_SCHEMA, tmp_path)
    for number, path in enumerate(MAPPINGS[::4]):
        copy = tmp_path / f"{number}.xml"
        shutil.copy(path, copy)
        assert reports_of_fdmorph(copy) == 0, path
    shutil.copy(DICTIONARY_SCHEMA, tmp_path)
    for number, path in enumerate(DICTIONARIES[::10]):
        copy = tmp_path / f"{number}-dictionary.xml"
        location = (
            'program xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"'
            ' xsi:noNamespaceSchemaLocation="zbc-dictionary.xsd"'
        )
        text = path.read_text(encoding="utf-8")
        copy.write_text(text.replace("<program", f"<{location}", 1), encoding="utf-8")
        assert reports_of_fdmorph(copy) == 0, path


def entry(**changes: str | None) -> str:
    """An entry with changed values; None leaves one out."""
    values: dict[str, str | None] = {
        "cobol-name": "REC.A",
        "cobol-count-in": "true",
        "xml-name": "a",
        "xml-type": "token",
        "xml-attribute": "false",
        "xml-namespace": "",
    }
    values |= {name.replace("_", "-"): value for name, value in changes.items()}
    lines = "".join(
        f"<{name}>{value}</{name}>" for name, value in values.items() if value is not None
    )
    return f"<xml-cobol-mapping>{lines}</xml-cobol-mapping>"


def mapping(content: str) -> str:
    location = f'xsi:schemaLocation="{NAMESPACE} dmxmlmap.xsd"'
    instance = 'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"'
    return (
        f'<xml-cobol-mapping-file xmlns="{NAMESPACE}" {instance} {location}>{content}'
        "</xml-cobol-mapping-file>"
    )


ACCEPTED = {
    "a usual entry": mapping(entry()),
    "no entry": mapping(""),
    "values that may be missing": mapping(
        entry(cobol_count_in=None, xml_type=None, xml_attribute=None, xml_namespace=None)
    ),
    "an item that is left out": mapping(entry(xml_name="")),
    "a comment": mapping("<!-- mine -->" + entry()),
    "another order": mapping(
        "<xml-cobol-mapping><xml-name/><cobol-name>A</cobol-name></xml-cobol-mapping>"
    ),
}
REJECTED = {
    "an unknown element": mapping("<mapping/>"),
    "a misspelt value": mapping(entry(**{"xml-typ": "token"})),
    "no name of an item": mapping(entry(cobol_name=None)),
    "no name": mapping(entry(xml_name=None)),
    "a name with blanks": mapping(entry(xml_name="a b")),
    "a name with a prefix": mapping(entry(xml_name="p:a")),
    "white space around a name": mapping(entry(xml_name=" a")),
    "white space around an item": mapping(entry(cobol_name="REC.A ")),
    "an unknown type": mapping(entry(xml_type="strng")),
    "a type with a prefix": mapping(entry(xml_type="xs:string")),
    "a flag in capitals": mapping(entry(xml_attribute="TRUE")),
    "a flag as a number": mapping(entry(cobol_count_in="1")),
    "a namespace with blanks": mapping(entry(xml_namespace="urn: a")),
    "a value twice": mapping(entry().replace("<xml-type>", "<xml-name>b</xml-name><xml-type>")),
    "text between entries": mapping("text" + entry()),
    "no namespace": mapping(entry()).replace(f'xmlns="{NAMESPACE}" ', ""),
    "another root": mapping(entry()).replace("mapping-file", "mappings"),
}


@NEEDS_XMLLINT
def test_the_schema_of_mapping_files_rejects_wrong_ones(tmp_path: Path) -> None:
    shutil.copy(MAPPING_SCHEMA, tmp_path)
    files = {}
    for number, (what, text) in enumerate((ACCEPTED | REJECTED).items()):
        files[tmp_path / f"{number}.xml"] = what
        (tmp_path / f"{number}.xml").write_text(text, encoding="ascii")
    refused = refused_by_xmllint(MAPPING_SCHEMA, list(files))
    assert [files[path] for path in refused] == list(REJECTED)
    assert [files[path] for path in files if reports_of_fdmorph(path) != 0] == list(REJECTED)


@NEEDS_XMLLINT
@pytest.mark.parametrize(
    "old, new",
    [
        ("<group ", "<groups "),
        (' level="1"', ' level="50"'),
        (' name="a"', ""),
        (' length="1"', ' length="-1"'),
        ('redefines="true"', 'redefines="yes"'),
        ("<alphanumericConstant", "<numericConstant"),
        ('usage="display"', 'usage="DISPLAY"'),
        ("<dataItems>", "<dataItems/><dataItems>"),
    ],
)
def test_the_schema_of_dictionaries_rejects_wrong_ones(old: str, new: str, tmp_path: Path) -> None:
    text = (
        '<program name="a"><dataItems><group name="A" level="1" length="1"><alphanumeric name="B"'
        ' level="5" usage="display" picture="X" length="1"><alphanumericCondition name="C">'
        '<alphanumericConstant value="c"/></alphanumericCondition></alphanumeric>'
        '<numeric name="D" level="5" usage="display" digits="1" alignment="0" picture="9"'
        ' length="1" redefines="true"/></group></dataItems></program>'
    )
    assert old in text
    accepted, rejected = tmp_path / "a.xml", tmp_path / "b.xml"
    accepted.write_text(text, encoding="ascii")
    changed = text.replace(old, new)
    if new == "<groups ":
        changed = changed.replace("</group>", "</groups>")
    rejected.write_text(changed, encoding="ascii")
    assert refused_by_xmllint(DICTIONARY_SCHEMA, [accepted, rejected]) == [rejected]


def assert_merged_unchanged(source: Path, *options: str) -> None:
    """The mapping file of a run, merged for the same source, is that file."""
    directory = source.parent
    command = [program_under_test("FDREC"), "map-merge", *options, source.name, MAPPING]
    merged = run(directory, *command)
    assert merged.returncode == 0, readable(merged.stderr)
    assert merged.stdout == (directory / MAPPING).read_bytes()
    # The source may have two items of one name in a group, but nothing else is wrong.
    check = [program_under_test("FDREC"), "map-check", *options, source.name, MAPPING]
    findings = readable(run(directory, *check).stdout)
    assert set(re.findall(r"\[([a-z-]+)\]$", findings, re.MULTILINE)) <= {"same-name"}


@pytest.mark.parametrize("seed", SEEDS)
def test_merging_for_the_same_generated_source_changes_nothing(seed: int, tmp_path: Path) -> None:
    maker = SourceMaker(seed)
    source = tmp_path / "a.cbl"
    source.write_text(maker.source(), encoding="ascii")
    form = "FREE" if maker.text.is_free else "FIXED"
    (tmp_path / DIRECTIVES).write_text(f"SOURCEFORMAT({form})\n", encoding="ascii")
    command = ["-noprompt", "-M", MAPPING, "-d", DIRECTIVES, source.name]
    path = f"{Path(program_under_test('ZBC')).parent}:{os.environ['PATH']}"
    run(tmp_path, program_under_test(), *command, PATH=path)
    assert_merged_unchanged(source, "--directives", DIRECTIVES)


@pytest.mark.parametrize("path", SAMPLE)
def test_merging_for_the_same_source_changes_nothing(path: Path, tmp_path: Path) -> None:
    link_members(path, tmp_path, MISSING.get(name_of(path), {}))
    source = stage(path, tmp_path)
    convert(source, Path(program_under_test("ZBC")).parent)
    assert COPY_PATH in (tmp_path / DIRECTIVES).read_text(encoding="ascii")
    assert_merged_unchanged(source, "--directives", DIRECTIVES)


@NEEDS_XMLLINT
@pytest.mark.parametrize("path", SAMPLE[:4])
def test_schemas_accept_the_outputs_for_real_sources(path: Path, tmp_path: Path) -> None:
    link_members(path, tmp_path, MISSING.get(name_of(path), {}))
    source = stage(path, tmp_path)
    convert(source, Path(program_under_test("ZBC")).parent)
    compiler = program_under_test("ZBC")
    run(tmp_path, compiler, "-C", "XMLGEN(WS)", COPY_PATH, source.name)
    dictionary = source.with_suffix(".xml")
    assert refused_by_xmllint(DICTIONARY_SCHEMA, [dictionary]) == []
    assert refused_by_xmllint(MAPPING_SCHEMA, [tmp_path / MAPPING]) == []
