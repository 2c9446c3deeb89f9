"""Runs the compiler and the program on a source, in a folder for this source only."""

from __future__ import annotations

import os
import re
import shutil
import xml.etree.ElementTree as ET
from pathlib import Path
from subprocess import CompletedProcess
from typing import NamedTuple

import pytest
from judges.xmllint import DOCUMENT_REFUSED, SCHEMA_REFUSED, validate
from support.cobol_sources import COPY_PATH, MISSING, link_members, stage
from support.corpus import name_of
from support.harness import path_with, program_under_test, readable, run

MAPPING = "mapping.xml"
DIRECTIVES = "directives"
ERROR = re.compile(r"^.+:\d+:\d+: error: (.+) \[([a-z-]+)\]$", re.MULTILINE)


def compile_source(source: Path) -> CompletedProcess[bytes]:
    return run(source.parent, program_under_test("ZBC"), "-C", "XMLGEN(WS)", COPY_PATH, source.name)


def convert(source: Path, compiler: Path, **environment: str) -> CompletedProcess[bytes]:
    """Runs the program with a mapping file and the compiler in the given folder."""
    (source.parent / DIRECTIVES).write_text(f"{COPY_PATH}\n", encoding="ascii")
    command = [
        program_under_test(),
        "-noprompt",
        "-M",
        MAPPING,
        "-d",
        DIRECTIVES,
        source.name,
    ]
    return run(source.parent, *command, PATH=path_with(compiler), **environment)


def errors_of(compiled: CompletedProcess[bytes]) -> list[tuple[str, str]]:
    """The compiler's errors, each with its code."""
    return ERROR.findall(readable(compiled.stderr))


def is_valid(schema: Path) -> bool:
    """Whether the program accepts the schema; xmllint, where installed, has to agree.

    xmllint validates a document that no schema describes.
    """
    result = run(schema.parent, program_under_test(), "-V", schema.name)
    print(readable(result.stderr))  # pytest shows it with a failure
    valid = result.returncode == 0
    if shutil.which("xmllint"):
        document = schema.parent / "document.xml"
        document.write_text("<document/>\n", encoding="ascii")
        status, printed = validate(schema, document)
        assert status == (DOCUMENT_REFUSED if valid else SCHEMA_REFUSED), printed
    return valid


class Conversion(NamedTuple):
    source: Path
    directory: Path  # where it was converted
    program: ET.Element  # the data dictionary's root
    result: CompletedProcess[bytes]
    schema: Path
    copybook: Path
    mapping: Path
    written: set[str]  # names of the files that the run left in the directory


def run_on(source: Path, directory: Path) -> Conversion:
    """Compiles the source to get its dictionary, and converts it with the same compiler."""
    link_members(source, directory, MISSING.get(name_of(source), {}))
    copy = stage(source, directory)
    compiled = compile_source(copy)
    dictionary = copy.with_suffix(".xml")
    if compiled.returncode or not dictionary.exists():
        pytest.fail(readable(compiled.stderr), pytrace=False)
    program = ET.parse(dictionary).getroot()
    dictionary.unlink()
    compilers = directory / "compilers"
    compilers.mkdir()
    (compilers / "zbc").symlink_to(program_under_test("ZBC"))
    before = {*os.listdir(directory), DIRECTIVES}
    result = convert(copy, compilers)
    schema, copybook = copy.with_suffix(".xsd"), directory / f"{copy.stem}-fdmorph.cpy"
    return Conversion(
        source,
        directory,
        program,
        result,
        schema,
        copybook,
        directory / MAPPING,
        set(os.listdir(directory)) - before,
    )
