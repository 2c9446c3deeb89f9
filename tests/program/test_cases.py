"""Runs the whole-program cases under tests/cases.

A case is a folder tests/cases/<group>/<case> that holds

  case.toml       rule     the rule that the case shows, in a sentence or two
                  program  the program to run: "fdmorph" (the default), "fdrec" or "zbc"
                  args     the command line, without the name of the program
                  status   the exit status; 0 if absent
                  stdin    the standard input; empty if absent
                  env      additions to the environment; LC_ALL is C.UTF-8 if absent
                  removed  the input files that the run removes
                  modes    octal permissions of input files during the run; such a case
                           is skipped for root, whom permissions do not restrict
                  merged   true: both streams go to one pipe and are compared, in the
                           order of writing, with stdout
                  zbc      what the fake compiler fake_zbc/zbc does: status, signal (a
                           name without SIG), output (what it prints), missing (true: no
                           compiler is on the path), real (true: zbc is on the path
                           instead of the fake compiler)
  dictionary.xml  the data dictionary that the compiler leaves; none if absent
  zbc.arguments   the compiler's arguments, one on a line; not compared if absent
  input/          copied into the empty directory in which the program runs
  stdout, stderr  the expected streams; empty if absent
  files/          the files after the run, without the unchanged input

Everything is compared byte for byte.  In stdout, stderr, zbc.arguments and files/ the text
@DIR@ stands for the absolute path of the directory in which the program runs, and @TEMP@,
also in the names of files, for the temporary copy's name without its extension: ./file and
six characters, or the same without ./ after another slash.  The environment variables
FDMORPH, FDREC and ZBC name the programs.
"""

from __future__ import annotations

import os
import re
import shutil
import subprocess
import tomllib
from pathlib import Path
from typing import Any

import pytest
from support.comparison import Tree, compare, compare_trees, read_tree
from support.harness import (
    FAKE_COMPILER,
    TESTS,
    describe_signal,
    environment,
    path_with,
    program_under_test,
    run_in_time,
)

FOLDERS = sorted(path for path in (TESTS / "cases").glob("*/*") if path.is_dir())
ENTRIES = {
    "case.toml",
    "dictionary.xml",
    "zbc.arguments",
    "input",
    "stdout",
    "stderr",
    "files",
}
DEFAULTS: dict[str, Any] = {
    "rule": "",
    "program": "fdmorph",
    "args": [],
    "status": 0,
    "stdin": "",
    "env": {},
    "removed": [],
    "modes": {},
    "merged": False,
    "zbc": {},
}
ZBC_DEFAULTS: dict[str, Any] = {
    "status": 0,
    "signal": "",
    "output": "",
    "missing": False,
    "real": False,
}
PROGRAMS = {"fdmorph": "FDMORPH", "fdrec": "FDREC", "zbc": "ZBC"}  # the variables that name them
TIME_LIMIT = 30  # seconds
TEMPORARY_NAME = re.compile(rb"\bfile[a-z0-9]{6}(?=\.)")


class CaseError(Exception):
    """The files of the case are wrong."""


def with_defaults(given: dict[str, Any], defaults: dict[str, Any]) -> dict[str, Any]:
    for key, value in given.items():
        if key not in defaults:
            raise CaseError(f"case.toml: unknown key {key}")
        if not isinstance(value, type(defaults[key])):
            raise CaseError(f"case.toml: {key} is not a {type(defaults[key]).__name__}")
    return defaults | given


def load_case(folder: Path) -> dict[str, Any]:
    """The keys of case.toml, with their defaults. Unknown keys and files are errors."""
    if stray := sorted(set(os.listdir(folder)) - ENTRIES):
        raise CaseError(f"unexpected files in the case: {', '.join(stray)}")
    case = tomllib.loads((folder / "case.toml").read_text(encoding="utf-8"))
    if not case.get("rule") or "args" not in case:
        raise CaseError("case.toml: rule and args are required")
    case = with_defaults(case, DEFAULTS)
    if case["program"] not in PROGRAMS:
        raise CaseError(f"case.toml: unknown program {case['program']}")
    if case["zbc"].get("real") and (folder / "dictionary.xml").exists():
        raise CaseError("the real compiler writes its own dictionary")
    return case | {"zbc": with_defaults(case["zbc"], ZBC_DEFAULTS)}


class Expectation:
    """The expected results of a case, with the placeholders filled in."""

    def __init__(self, folder: Path, directory: Path, *traces: bytes) -> None:
        self.folder = folder
        self.directory = os.fsencode(directory)
        names = map(os.fsencode, sorted(os.listdir(directory)))
        found = TEMPORARY_NAME.search(b"\n".join([*traces, *names]))
        self.temporary = found[0] if found else None

    def expand(self, content: bytes) -> bytes:
        content = content.replace(b"@DIR@", self.directory)
        if self.temporary is None:
            return content
        content = content.replace(b"/@TEMP@", b"/" + self.temporary)
        return content.replace(b"@TEMP@", b"./" + self.temporary)

    def text(self, name: str) -> bytes:
        path = self.folder / name
        return self.expand(path.read_bytes()) if path.exists() else b""

    def tree(self, removed: list[str]) -> Tree:
        tree = read_tree(self.folder / "input")
        for name in removed:
            if tree.pop(name, None) is None:
                raise CaseError(f"case.toml: removed names {name}, which is not an input file")
        for name, content in read_tree(self.folder / "files").items():
            tree[self.expand(name.encode()).decode().removeprefix("./")] = self.expand(content)
        return tree


def compiler_environment(folder: Path, zbc: dict[str, Any], arguments: Path) -> dict[str, str]:
    """Puts the compiler of the case on the path, and describes what the fake one does."""
    if zbc["real"]:
        link = arguments.parent / "bin" / "zbc"
        link.parent.mkdir()
        link.symlink_to(program_under_test("ZBC"))
        return {"PATH": path_with(link.parent)}
    if zbc["missing"]:
        name = FAKE_COMPILER.name
        folders = [path for path in os.get_exec_path() if not os.path.exists(f"{path}/{name}")]
        return {"PATH": os.pathsep.join(folders)}
    variables = {
        "PATH": path_with(FAKE_COMPILER.parent),
        "FAKE_ZBC_ARGUMENTS": str(arguments),
        "FAKE_ZBC_OUTPUT": zbc["output"],
        "FAKE_ZBC_STATUS": str(zbc["status"]),
        "FAKE_ZBC_SIGNAL": zbc["signal"],
    }
    dictionary = folder / "dictionary.xml"
    return variables | ({"FAKE_ZBC_DICTIONARY": str(dictionary)} if dictionary.exists() else {})


def run(
    case: dict[str, Any], directory: Path, compiler: dict[str, str]
) -> subprocess.CompletedProcess[bytes]:
    program = program_under_test(PROGRAMS[case["program"]])
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
            env=environment(**compiler | case["env"]),
        )
    finally:
        for path in filter(Path.exists, modes):
            path.chmod(0o700)  # so that the result can be read and removed


def compare_status(expected: int, found: int) -> list[str]:
    if found < 0:
        return [describe_signal(found)]
    return [] if found == expected else [f"status {found}, expected {expected}"]


@pytest.mark.parametrize("folder", FOLDERS, ids=lambda path: f"{path.parent.name}/{path.name}")
def test_case(folder: Path, tmp_path: Path) -> None:
    case = load_case(folder)
    if case["modes"] and os.geteuid() == 0:
        pytest.skip("permissions do not restrict root")
    directory = tmp_path.resolve() / "run"
    directory.mkdir()
    if (folder / "input").exists():
        shutil.copytree(folder / "input", directory, dirs_exist_ok=True)
    calls = tmp_path / "arguments"
    calls.touch()
    result = run(case, directory, compiler_environment(folder, case["zbc"], calls))
    arguments = calls.read_bytes()
    expected = Expectation(folder, directory, arguments, result.stderr)
    report = compare_status(case["status"], result.returncode)
    report += compare("stdout", expected.text("stdout"), result.stdout)
    report += compare("stderr", expected.text("stderr"), result.stderr)
    if (folder / "zbc.arguments").exists():
        report += compare("zbc.arguments", expected.text("zbc.arguments"), arguments)
    report += compare_trees(expected.tree(case["removed"]), read_tree(directory))
    if report:
        pytest.fail("\n".join([case["rule"], *report]), pytrace=False)
