"""Outside judges agree with the generated schemas that are meant to be well formed.

A folder tests/generated_schemas/<name> holds

  dictionary.xml  the data dictionary that the compiler leaves for a.cbl
  map.xml         the mapping file of the run; there is none if absent
  good*.xml       documents that the generated schema a.xsd, which they name, accepts
  bad-<why>.xml   documents that it refuses

Each document is judged by the validation run of the program, which rests on Xerces-C, and
by xmllint.
"""

from __future__ import annotations

import shutil
from pathlib import Path

import pytest
from harness import program_under_test, run_in_time
from test_cases import ZBC_DEFAULTS, compiler_environment

PAIRS = Path(__file__).resolve().parent / "generated_schemas"
FOLDERS = sorted(path for path in PAIRS.iterdir() if path.is_dir())
DOCUMENTS = sorted(path for folder in FOLDERS for kind in ("good*.xml", "bad-*.xml")
                   for path in folder.glob(kind))  # fmt: skip
REFUSED = 3  # xmllint's status for a document that its schema refuses
TIME_LIMIT = 30  # seconds

needs_xmllint = pytest.mark.skipif(shutil.which("xmllint") is None, reason="no xmllint")


def run(command: list[str], directory: Path, **options: object) -> tuple[int, str]:
    """The status and all that was printed."""
    result = run_in_time(command, b"", TIME_LIMIT, cwd=directory, **options)
    return result.returncode, (result.stdout + result.stderr).decode("utf-8", "replace")


def generate(folder: Path, directory: Path) -> None:
    """Leaves the schema that the program makes of the folder's dictionary."""
    directory.mkdir()
    (directory / "a.cbl").write_text("       IDENTIFICATION DIVISION.\n", encoding="utf-8")
    command = [program_under_test(), "a.cbl", "-noprompt"]
    if (folder / "map.xml").exists():
        shutil.copy(folder / "map.xml", directory)
        command += ["-m", "map.xml"]
    compiler = compiler_environment(folder, ZBC_DEFAULTS, directory.parent / "arguments")
    status, printed = run(command, directory, env={"LC_ALL": "C.UTF-8", **compiler})
    assert status == 0, printed


def test_each_pair_has_documents_of_both_kinds() -> None:
    for folder in FOLDERS:
        names = [path.name for path in DOCUMENTS if path.parent == folder]
        assert any(name.startswith("good") for name in names), folder.name
        assert any(name.startswith("bad-") for name in names), folder.name


@pytest.mark.parametrize("folder", FOLDERS, ids=lambda path: path.name)
def test_the_program_finds_no_error_in_its_own_schema(folder: Path, tmp_path: Path) -> None:
    generate(folder, tmp_path / "run")
    status, printed = run([program_under_test(), "-v", "a.xsd"], tmp_path / "run")
    assert status == 0, printed
    assert printed.endswith("0 error(s), 0 warning(s)\n")


@pytest.mark.parametrize("document", DOCUMENTS, ids=lambda path: f"{path.parent.name}/{path.stem}")
def test_the_validation_run_judges(document: Path, tmp_path: Path) -> None:
    generate(document.parent, tmp_path / "run")
    shutil.copy(document, tmp_path / "run")
    status, printed = run([program_under_test(), "-v", document.name], tmp_path / "run")
    if document.name.startswith("good"):
        assert status == 0, printed
    else:
        assert status > 0, printed
        assert f"Error : {tmp_path.resolve()}/run/{document.name}(" in printed


@needs_xmllint
@pytest.mark.parametrize("document", DOCUMENTS, ids=lambda path: f"{path.parent.name}/{path.stem}")
def test_xmllint_judges(document: Path, tmp_path: Path) -> None:
    generate(document.parent, tmp_path / "run")
    command = ["xmllint", "--noout", "--nonet", "--schema", "a.xsd", str(document)]
    status, printed = run(command, tmp_path / "run")
    assert status == (0 if document.name.startswith("good") else REFUSED), printed
