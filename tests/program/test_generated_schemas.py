"""Validators agree on which documents the generated schemas accept.

A folder tests/generated_schemas/<name> holds

  dictionary.xml  the data dictionary that the compiler leaves for a.cbl
  map.xml         the mapping file of the run; there is none if absent
  good*.xml       documents that the generated schema a.xsd accepts; they name it
  bad-<why>.xml   documents that it refuses

Both the validation run of the program, which uses Xerces-C, and xmllint validate each document.
"""

from __future__ import annotations

import shutil
from pathlib import Path

import pytest
from judges.xmllint import DOCUMENT_REFUSED, NEEDS_XMLLINT, VALID, validate
from support.harness import FAKE_COMPILER, TESTS, path_with, program_under_test, readable, run

PAIRS = TESTS / "generated_schemas"
FOLDERS = sorted(path for path in PAIRS.iterdir() if path.is_dir())
DOCUMENTS = sorted(
    path for folder in FOLDERS for kind in ("good*.xml", "bad-*.xml") for path in folder.glob(kind)
)


def run_program(directory: Path, *args: str, **additions: str) -> tuple[int, str]:
    """The status and all that was printed."""
    result = run(directory, program_under_test(), *args, **additions)
    return result.returncode, readable(result.stdout + result.stderr)


def generate(folder: Path, directory: Path) -> None:
    """Makes the directory and lets the program write the schema of the dictionary there."""
    directory.mkdir()
    (directory / "a.cbl").write_text("       IDENTIFICATION DIVISION.\n", encoding="utf-8")
    args = ["a.cbl", "-noprompt"]
    if (folder / "map.xml").exists():
        shutil.copy(folder / "map.xml", directory)
        args += ["-m", "map.xml"]
    compiler = {"PATH": path_with(FAKE_COMPILER.parent)}
    dictionary = str(folder / "dictionary.xml")
    status, printed = run_program(directory, *args, FAKE_ZBC_DICTIONARY=dictionary, **compiler)
    assert status == 0, printed


def test_each_pair_has_documents_of_both_kinds() -> None:
    for folder in FOLDERS:
        names = [path.name for path in DOCUMENTS if path.parent == folder]
        assert any(name.startswith("good") for name in names), folder.name
        assert any(name.startswith("bad-") for name in names), folder.name


@pytest.mark.parametrize("folder", FOLDERS, ids=lambda path: path.name)
def test_the_program_finds_no_error_in_its_own_schema(folder: Path, tmp_path: Path) -> None:
    generate(folder, tmp_path / "run")
    status, printed = run_program(tmp_path / "run", "-v", "a.xsd")
    assert status == 0, printed
    assert printed.endswith("0 error(s), 0 warning(s)\n")


@pytest.mark.parametrize("document", DOCUMENTS, ids=lambda path: f"{path.parent.name}/{path.stem}")
def test_the_validation_run_judges(document: Path, tmp_path: Path) -> None:
    generate(document.parent, tmp_path / "run")
    shutil.copy(document, tmp_path / "run")
    status, printed = run_program(tmp_path / "run", "-v", document.name)
    if document.name.startswith("good"):
        assert status == 0, printed
    else:
        assert status > 0, printed
        assert f"Error : {tmp_path.resolve()}/run/{document.name}(" in printed


@NEEDS_XMLLINT
@pytest.mark.parametrize("document", DOCUMENTS, ids=lambda path: f"{path.parent.name}/{path.stem}")
def test_xmllint_judges(document: Path, tmp_path: Path) -> None:
    generate(document.parent, tmp_path / "run")
    status, printed = validate(tmp_path / "run" / "a.xsd", document)
    is_good = document.name.startswith("good")
    assert status == (VALID if is_good else DOCUMENT_REFUSED), printed
