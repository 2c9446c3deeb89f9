"""The numbers of docs/limits.md, and of the limits in SECURITY.md, are those of the sources."""

from __future__ import annotations

import re
from collections.abc import Iterator
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parent.parent
SRC = ROOT / "src"
UNITS = {"KB": 1 << 10, "MB": 1 << 20, "GB": 1 << 30}
NONE = ""  # the row says that there is no limit

# The constant of each row, by the titles of the rows: a source, and the name or a text before
# the number.
RECORD = "cobol/record_builder.h"
DOCUMENT = "document/document_reader.h"
PATTERN = "xml/schema_check.h"
CONSTANTS = {
    "exit status": "text/console.cpp kMaxStatus",
    "errors and warnings that are written": "text/console.h kMaxShownMessages",
    "levels of a record": "cobol/DMCOBOLRecordItem.h kMaxLevel",
    "items made for a head element": f"{RECORD} items",
    "references followed for a head element": f"{RECORD} references",
    "names and values of a head element": f"{RECORD} textBytes",
    "items listed again by substitution groups": f"{RECORD} items",
    "references back into an open definition": "cobol/recursion.h kMaxReopened",
    "columns of a line of COBOL": "cobol/fixed_format.cpp kLastColumn",
    "characters of a name": "syntax/name_parser.cpp kMaxNameLength",
    "length of a text without `maxLength`": "cobol/record_builder.cpp pictureSize",
    "digits of a number without `totalDigits`": 'cobol/record_builder.cpp "9" :',
    "digits of a `decimal` before and after the point": "cobol/record_builder.cpp hasDecimal ?",
    "occurrences of an element that is `unbounded`": NONE,
    "files of a schema set": "schema/schema_preprocessing.h kMaxSchemaFiles",
    "entity expansions of a document": "xml/expansion_limit.h expansions",
    "text that entities expand to": "xml/expansion_limit.h text",
    "repetitions of a pattern, nested ones multiplied": f"{PATTERN} repetition",
    "patterns of a file, written out": f"{PATTERN} atoms",
    "nesting of a pattern": f"{PATTERN} depth",
    "redirections of a location in the network": "xml/network.cpp kMaxRedirections",
    "wait for another run in the folder": "driver/folder_lock.cpp kPatience",
    "characters of an answer that are read": "driver/file_helpers.cpp kMaxAnswerLength",
    "stack": "text/stack_guard.cpp kWantedStack",
    "size of a source or copy member": "source/source_files.h kMaxFileSize",
    "level of an item in a group": "semantics/data_item.h kMaxGroupLevel",
    "bytes of a literal, and of a compilation variable": "source/literals.h kMaxLiteralSize",
    "digits of a picture": "semantics/picture.h kMaxDigits",
    "digits of a binary item": "semantics/item_rules.cpp kMaxBinaryDigits",
    "repetitions in a picture": "semantics/picture_runs.cpp kMaxRepetitions",
    "occurrences of a table": "syntax/clauses.cpp kMaxOccurrences",
    "size of an item with its occurrences": "semantics/layout.h kMaxItemSize",
    "values of all items in a dictionary": "description/dictionary_writer.h kMaxValueText",
    "open files of nested COPY statements": "preprocess/text_manipulation.h kMaxCopyDepth",
    "files copied, repeats included": "preprocess/text_manipulation.h kMaxCopies",
    "text copied again, or that replaces other text": "preprocess/replacing.h kMaxText",
    "words compared by REPLACE and REPLACING": "preprocess/replacing.h kMaxComparisons",
    "levels of a compile-time condition": "preprocess/conditional_compilation.cpp kMaxDepth",
    "parentheses of a constant expression": "syntax/constant_expression.cpp kMaxParentheses",
    "folders of COPYPATH": "description/directives.cpp kMaxCopyFolders",
    "extensions of COPYEXT": "description/directives.cpp kMaxCopyExtensions",
    "columns of TABS": "description/directives.cpp kMaxTabs",
    "errors that are shown, and warnings, and notes": "source/diagnostics.h kMaxReports",
    "items of a record of `fdrec copybook`": "fdrec/schema_record.cpp kMaxItems",
    "characters of a name of `fdrec copybook`": "cobol/legal_record.h kMaxWordLength",
    "digits of a number of `fdrec copybook`": "cobol/legal_record.cpp kMaxPictureDigits",
    "characters of a name of `fdrec plain`": "copybook/name_scope.h kMaxNameSize",
    "files of a bundle": "bundle/closure.h kMaxFiles",
    "entities in entities of a file of a bundle": "bundle/reference_reader.cpp kMaxInputs",
    "findings of `fdrec check` that are kept": "fit/finding.h kMaxKept",
    "findings of `fdrec map-check` that are kept": "mapping/mapping_finding.h kMaxKept",
    "findings of a kind that `fdrec map-merge` shows": "fdrec/map_merge_command.cpp kMaxShown",
    "digits of a binary item of data": "record/storage_rules.cpp kMaxBinaryDigits",
    "bytes of a binary item of data": "record/storage_rules.cpp kMaxBinarySize",
    "characters of a numeric-edited picture": "values/edited_picture.h kMaxSize",
    "elements, or JSON objects and arrays, in one another": f"{DOCUMENT} depth",
    "attributes of an element": f"{DOCUMENT} attributes",
    "parts of a record in a document": f"{DOCUMENT} parts",
    "text of a record in a document": f"{DOCUMENT} recordBytes",
    "a tag, comment or processing instruction": f"{DOCUMENT} markupBytes",
    "different names in a document": f"{DOCUMENT} names",
    "bytes of all different names": f"{DOCUMENT} nameBytes",
    "errors that are shown of a record": "document/data_error.h kMaxErrorsPerRecord",
    "records with errors": "fdrec/data_options.h maxErrors",
    "bytes of a record with a descriptor": "framing/descriptor.cpp kMaxRecord",
    "bytes of a block that is written": "framing/framing_rules.h kMaxBlock",
    "bytes of a line of data": "framing/framing_rules.h kMinLineLimit",
    "parts of `--part`": "framing/parts.h kMaxParts",
    "threads of `--threads`": "fdrec/framing_options.cpp kMaxThreads",
}

# The limits of SECURITY.md that are numbers of the sources.
HOSTILE = {
    "errors and warnings that are written": "text/console.h kMaxShownMessages",
    "entity expansions of a document": "xml/expansion_limit.h expansions",
    "text that the entities of a document expand to": "xml/expansion_limit.h text",
    "nested repetition counts of a pattern, multiplied": f"{PATTERN} repetition",
    "patterns of a file with their repetitions written out": f"{PATTERN} atoms",
    "nesting of a pattern": f"{PATTERN} depth",
    "files of a schema set, each repeat counted": "schema/schema_preprocessing.h kMaxSchemaFiles",
    "`zbc`: nested COPY statements": "preprocess/text_manipulation.h kMaxCopyDepth",
    "`zbc`: name": "syntax/name_parser.cpp kMaxNameLength",
    "`zbc`: digits of a picture": "semantics/picture.h kMaxDigits",
    "`fdrec`: parts of a record": f"{DOCUMENT} parts",
    "`fdrec`: text of a record": f"{DOCUMENT} recordBytes",
    "`fdrec`: attributes of an element": f"{DOCUMENT} attributes",
    "stack": "text/stack_guard.cpp kWantedStack",
}


def rows(name: str) -> Iterator[tuple[str, str]]:
    """The titles and values of the rows of the tables of limits."""
    text = (ROOT / name).read_text(encoding="utf-8")
    for line in text[text.index("# Limits") :].splitlines():
        cells = [cell.strip() for cell in line.split("|")[1:-1]]
        if len(cells) > 2 and cells[0].lower() not in ("limit", "---"):
            yield cells[0], cells[1]


def number_of(value: str) -> int:
    """The number at the beginning of a cell, with its unit."""
    found = re.match(r"([\d,]+)(?: (KB|MB|GB)\b)?", value)
    assert found is not None, value
    return int(found[1].replace(",", "")) * UNITS.get(found[2], 1)


def constants_of(place: str) -> set[int]:
    """The values that a source gives to a name, or has after a text."""
    source, name = place.split(" ", 1)
    text = (SRC / source).read_text(encoding="utf-8")
    begin = rf"\b{name}\b\s*=?" if name[0].isalpha() and name[-1].isalpha() else re.escape(name)
    found = re.findall(rf'{begin}[\s"{{]*([^;"]+)[;"]', text)
    return {evaluated(each) for each in found if is_number(each)}


def plain(expression: str) -> str:
    text = re.sub(r"std::\w+\{(\d+)\}|rlim_t\{(\d+)\}", r"\1\2", expression)
    text = re.sub(r"(?<=\d)U?L{0,2}\b|'|\}", "", text)
    return text.replace("UINT16_MAX", "65535").strip()


def is_number(expression: str) -> bool:
    return re.fullmatch(r"(0x[0-9A-F]+|\d+)( *<< *\d+)?", plain(expression)) is not None


def evaluated(expression: str) -> int:
    number, _, shift = plain(expression).partition("<<")
    return int(number, 0) << int(shift or "0")


def test_every_row_has_a_constant() -> None:
    titles = [title for title, _ in rows("docs/limits.md")]
    assert sorted(set(titles)) == sorted(CONSTANTS)


@pytest.mark.parametrize(
    ("title", "value"), list(rows("docs/limits.md")), ids=lambda each: each.replace(" ", "-")
)
def test_limit(title: str, value: str) -> None:
    if value == "none" or CONSTANTS[title] == NONE:
        return
    assert number_of(value) in constants_of(CONSTANTS[title])


@pytest.mark.parametrize("title", HOSTILE)
def test_limit_on_hostile_input(title: str) -> None:
    values = dict(rows("SECURITY.md"))
    assert number_of(values[title]) in constants_of(HOSTILE[title])


def test_a_wrong_number_is_found() -> None:
    assert constants_of("text/console.cpp kMaxStatus") == {255}
    assert constants_of("xml/expansion_limit.h text") == {64 << 20}
    assert constants_of("syntax/clauses.cpp kMaxOccurrences") == {2147483647}
    assert constants_of("text/console.cpp kNoSuchName") == set()
    assert number_of("64 MB; bytes") == 64 << 20
    assert number_of("1,000 levels") == 1000
