"""Runs the compiler and the program on a source in a folder of its own."""

from __future__ import annotations

import os
import re
import shutil
import xml.etree.ElementTree as ET
from pathlib import Path
from subprocess import CompletedProcess
from typing import NamedTuple

import pytest
from cobol_sources import COPY_PATH, MISSING, link_members, name_of, stage
from harness import program_under_test, run_in_time

TIME_LIMIT = 120  # seconds
MAPPING = "mapping.xml"
DIRECTIVES = "directives"
NOT_VALID, NO_SCHEMA = 3, 5  # xmllint's status for a document, and for the schema itself
ERROR = re.compile(r"^.+:\d+:\d+: error: (.+) \[([a-z-]+)\]$", re.MULTILINE)


def run(directory: Path, *command: str, **environment: str) -> CompletedProcess[bytes]:
    variables = {**os.environ, "LC_ALL": "C.UTF-8", **environment}
    return run_in_time(list(command), b"", TIME_LIMIT, cwd=directory, env=variables)


def compile_source(source: Path) -> CompletedProcess[bytes]:
    return run(
        source.parent, program_under_test("ZBC"), "-C", "XMLGEN(WS)", COPY_PATH, source.name
    )


def convert(source: Path, compiler: Path, **environment: str) -> CompletedProcess[bytes]:
    """A run with a mapping file, whose compiler is the one in the folder."""
    (source.parent / DIRECTIVES).write_text(f"{COPY_PATH}\n", encoding="ascii")
    command = [
        program_under_test(), "-noprompt", "-M", MAPPING, "-d", DIRECTIVES, source.name,
    ]  # fmt: skip
    path = f"{compiler}{os.pathsep}{os.environ['PATH']}"
    return run(source.parent, *command, PATH=path, **environment)


def errors_of(compiled: CompletedProcess[bytes]) -> list[tuple[str, str]]:
    """The compiler's errors, each with its code."""
    return ERROR.findall(compiled.stderr.decode("utf-8", "backslashreplace"))


def is_valid(schema: Path) -> bool:
    """The program finds no fault in the schema; xmllint has to say the same.

    xmllint is given a document of which the schema can know nothing.
    """
    result = run(schema.parent, program_under_test(), "-V", schema.name)
    print(result.stderr.decode("utf-8", "backslashreplace"))  # pytest shows it with a failure
    valid = result.returncode == 0
    if shutil.which("xmllint"):
        document = schema.parent / "document.xml"
        document.write_text("<document/>\n", encoding="ascii")
        linted = run(schema.parent, "xmllint", "--noout", "--schema", schema.name, document.name)
        assert linted.returncode == (NOT_VALID if valid else NO_SCHEMA), linted.stderr.decode()
    return valid


class Conversion(NamedTuple):
    source: Path
    directory: Path  # where it was converted
    program: ET.Element  # the data dictionary's root
    result: CompletedProcess[bytes]
    schema: Path
    copybook: Path
    mapping: Path
    written: set[str]  # names of what the run left in the directory


def run_on(source: Path, directory: Path) -> Conversion:
    """Compiles the source for its dictionary, and converts it with the same compiler."""
    link_members(source, directory, MISSING.get(name_of(source), {}))
    copy = stage(source, directory)
    compiled = compile_source(copy)
    dictionary = copy.with_suffix(".xml")
    if compiled.returncode or not dictionary.exists():
        pytest.fail(compiled.stderr.decode("utf-8", "backslashreplace"), pytrace=False)
    program = ET.parse(dictionary).getroot()
    dictionary.unlink()
    compilers = directory / "compilers"
    compilers.mkdir()
    (compilers / "zbc").symlink_to(program_under_test("ZBC"))
    before = {*os.listdir(directory), DIRECTIVES}
    result = convert(copy, compilers)
    schema, copybook = copy.with_suffix(".xsd"), directory / f"{copy.stem}-fdmorph.cpy"
    return Conversion(
        source, directory, program, result, schema, copybook, directory / MAPPING,
        set(os.listdir(directory)) - before,
    )  # fmt: skip
