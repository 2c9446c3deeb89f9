"""Runs the whole-program cases under tests/cases.

A case is a folder tests/cases/<group>/<case> that holds

  case.toml       rule     which rule the case shows, in a sentence or two
                  args     the command line, without the program's name
                  status   the exit status; 0 if absent
                  stdin    what the program reads; at end of input if absent
                  env      additions to the environment; LC_ALL is C.UTF-8 if absent
                  removed  the input files that the run removes
                  modes    octal permissions of input files during the run; they mean
                           nothing to root, for whom such a case is skipped
                  merged   true: both streams go to one pipe and are compared, in the
                           order of writing, with stdout
  input/          copied into the empty directory where the program is run
  stdout, stderr  the expected streams; empty if absent
  files/          what the run leaves behind besides the unchanged input

Everything is compared byte for byte.  In stdout, stderr and files/ the text @DIR@ stands
for the absolute path of the directory where the program is run.  The environment variable
FDMORPH names the program under test.
"""

from __future__ import annotations

import difflib
import os
import shutil
import subprocess
import tomllib
from pathlib import Path
from typing import Any

import pytest
from harness import describe_signal, program_under_test, run_in_time

CASES = Path(__file__).resolve().parent / "cases"
FOLDERS = sorted(path for path in CASES.glob("*/*") if path.is_dir())
ENTRIES = {"case.toml", "input", "stdout", "stderr", "files"}
DEFAULTS: dict[str, Any] = {
    "rule": "", "args": [], "status": 0, "stdin": "", "env": {}, "removed": [], "modes": {},
    "merged": False,
}  # fmt: skip
TIME_LIMIT = 30  # seconds

Tree = dict[str, bytes]  # content by relative path; a directory's path ends in a slash


class CaseError(Exception):
    """The case itself is not well written."""


def load_case(folder: Path) -> dict[str, Any]:
    """The keys of case.toml, with their defaults; a slip in the case is never passed over."""
    if stray := sorted(set(os.listdir(folder)) - ENTRIES):
        raise CaseError(f"a case has no {', '.join(stray)}")
    case = tomllib.loads((folder / "case.toml").read_text(encoding="utf-8"))
    for key, value in case.items():
        if key not in DEFAULTS:
            raise CaseError(f"case.toml: unknown key {key}")
        if type(value) is not type(DEFAULTS[key]):
            raise CaseError(f"case.toml: {key} is no {type(DEFAULTS[key]).__name__}")
    if not case.get("rule") or "args" not in case:
        raise CaseError("case.toml: rule and args are required")
    return DEFAULTS | case


def read_tree(root: Path) -> Tree:
    """Everything below root; nothing if there is no root."""
    tree: Tree = {}
    for path in root.rglob("*"):
        name = path.relative_to(root).as_posix()
        tree |= {name + "/": b""} if path.is_dir() else {name: path.read_bytes()}
    return tree


def expand(content: bytes, directory: Path) -> bytes:
    return content.replace(b"@DIR@", os.fsencode(directory))


def expected_stream(path: Path, directory: Path) -> bytes:
    return expand(path.read_bytes(), directory) if path.exists() else b""


def expected_tree(folder: Path, removed: list[str], directory: Path) -> Tree:
    tree = read_tree(folder / "input")
    for name in removed:
        if tree.pop(name, None) is None:
            raise CaseError(f"case.toml: removed names {name}, which is no input file")
    written = read_tree(folder / "files")
    return tree | {name: expand(content, directory) for name, content in written.items()}


def run(program: str, case: dict[str, Any], directory: Path) -> subprocess.CompletedProcess[bytes]:
    modes = {directory / name: int(mode, 8) for name, mode in case["modes"].items()}
    for path, mode in modes.items():
        path.chmod(mode)
    try:
        return run_in_time(
            [program, *case["args"]],
            case["stdin"].encode(),
            TIME_LIMIT,
            stderr=subprocess.STDOUT if case["merged"] else subprocess.PIPE,
            cwd=directory,
            env={**os.environ, "LC_ALL": "C.UTF-8", **case["env"]},
        )
    finally:
        for path in filter(Path.exists, modes):
            path.chmod(0o700)  # so that the result can be read and removed


def visible_lines(content: bytes) -> list[str]:
    """Lines to be read by people: a $ marks each line end, so that trailing blanks show."""
    *lines, rest = content.decode("utf-8", "backslashreplace").split("\n")
    return [line + "$" for line in lines] + ([rest] if rest else [])


def compare(name: str, expected: bytes, found: bytes) -> list[str]:
    """The unified diff of one stream or file; empty if both are the same."""
    if expected == found:
        return []
    before, after = visible_lines(expected), visible_lines(found)
    diff = difflib.unified_diff(before, after, f"{name} expected", f"{name} found", lineterm="")
    return list(diff) or [f"{name} differs in bytes that are no text"]


def compare_trees(expected: Tree, found: Tree) -> list[str]:
    report = [f"{name} is missing" for name in sorted(expected.keys() - found.keys())]
    report += [f"{name} should not be there" for name in sorted(found.keys() - expected.keys())]
    for name, content in sorted(found.items()):
        report += compare(name, expected.get(name, b""), content)
    return report


def compare_status(expected: int, found: int) -> list[str]:
    if found < 0:
        return [describe_signal(found)]
    return [] if found == expected else [f"status {found}, expected {expected}"]


@pytest.fixture(name="program", scope="session")
def fixture_program() -> str:
    return program_under_test()


@pytest.mark.parametrize("folder", FOLDERS, ids=lambda path: f"{path.parent.name}/{path.name}")
def test_case(folder: Path, program: str, tmp_path: Path) -> None:
    case = load_case(folder)
    if case["modes"] and os.geteuid() == 0:
        pytest.skip("permissions mean nothing to root")
    directory = tmp_path.resolve()
    if (folder / "input").exists():
        shutil.copytree(folder / "input", directory, dirs_exist_ok=True)
    result = run(program, case, directory)
    report = compare_status(case["status"], result.returncode)
    report += compare("stdout", expected_stream(folder / "stdout", directory), result.stdout)
    report += compare("stderr", expected_stream(folder / "stderr", directory), result.stderr)
    report += compare_trees(expected_tree(folder, case["removed"], directory), read_tree(directory))
    if report:
        pytest.fail("\n".join([case["rule"], *report]), pytrace=False)
