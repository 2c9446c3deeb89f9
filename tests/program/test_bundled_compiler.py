"""Which compiler fdmorph runs when it is installed: the one on the path, else the bundled one."""

from __future__ import annotations

import os
import shutil
from pathlib import Path
from subprocess import CompletedProcess

import pytest
from support.harness import TIME_LIMIT, environment, program_under_test, run_in_time

BANNER = "Tallmere FDMORPH Version 1.0\nConverts between COBOL data definitions and XML Schema\n\n"
CHECKING = "Checking a.cbl for errors\n"
NOT_STARTED = "Error : Failed to return from COBOL compiler execution\n"
FAILED = "Error : Failed to compile a.cbl.  Please correct the errors and try again.\n"
SOURCE = """\
       identification division.
       program-id. a.
       data division.
       working-storage section.
       01  customer.
           05  name pic x(20).
"""

# What the system takes where the variable PATH is not set must be without a compiler.
pytestmark = pytest.mark.skipif(
    shutil.which("zbc", path="/bin:/usr/bin") is not None, reason="the system has a compiler zbc"
)


def put(source: str | Path, target: Path) -> None:
    """The file at another place; as a link it takes no time, but not on another disk."""
    target.parent.mkdir(parents=True, exist_ok=True)
    try:
        os.link(source, target)
    except OSError:
        shutil.copy(source, target)


def compiler(path: Path, word: str) -> Path:
    """A compiler that fails, and says by a word that it has run."""
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(f"#!/bin/sh\necho {word}\nexit 7\n")
    path.chmod(0o755)
    return path


class Installation:
    """fdmorph in a folder of its own, and a folder to work in."""

    def __init__(self, folder: Path, name: str = "installed") -> None:
        self.work = folder / "work"
        self.program = folder / name / "bin" / "fdmorph"
        self.bundled = folder / name / "libexec" / "fdmorph" / "zbc"
        self.path_folder = folder / "other"
        put(program_under_test(), self.program)
        self.work.mkdir()
        (self.work / "a.cbl").write_text(SOURCE)

    def run(
        self, *options: str, path: str | None = "/usr/bin:/bin", program: str = ""
    ) -> CompletedProcess[bytes]:
        """Converts the source with this search path; None for a variable that is not set."""
        variables = environment()
        variables.pop("PATH", None)
        if path is not None:
            variables["PATH"] = path
        command = [program or str(self.program), *options, "a.cbl"]
        return run_in_time(command, b"", TIME_LIMIT, cwd=self.work, env=variables)


@pytest.fixture
def installation(tmp_path: Path) -> Installation:
    return Installation(tmp_path)


def expect(result: CompletedProcess[bytes], ran: str) -> None:
    """The run failed, and this compiler ran; an empty word for none."""
    shown = f"{ran}\n" if ran else NOT_STARTED
    assert result.stdout.decode() == BANNER + CHECKING + shown + FAILED
    assert (result.stderr, result.returncode) == (b"", 1)


def test_without_a_compiler_on_the_path_the_bundled_one_compiles(
    installation: Installation,
) -> None:
    put(program_under_test("ZBC"), installation.bundled)
    result = installation.run()
    assert (result.stderr, result.returncode) == (b"0 error(s), 0 warning(s)\n", 0)
    assert result.stdout.decode() == BANNER + CHECKING + "\n\n"
    assert sorted(os.listdir(installation.work)) == ["a-fdmorph.cpy", "a.cbl", "a.xsd"]


def test_a_compiler_on_the_path_goes_first(installation: Installation) -> None:
    compiler(installation.bundled, "bundled")
    other = compiler(installation.path_folder / "zbc", "other")
    expect(installation.run(path=f"/usr/bin:/bin:{other.parent}"), "other")


def test_a_compile_that_fails_is_not_tried_again(installation: Installation) -> None:
    put(program_under_test("ZBC"), installation.bundled)
    other = compiler(installation.path_folder / "zbc", "other")
    expect(installation.run(path=str(other.parent)), "other")
    assert os.listdir(installation.work) == ["a.cbl"]


@pytest.mark.parametrize("kind", ["file", "folder", "link"])
def test_what_cannot_be_run_is_no_compiler(installation: Installation, kind: str) -> None:
    compiler(installation.bundled, "bundled")
    other = installation.path_folder / "zbc"
    other.parent.mkdir()
    if kind == "file":
        other.write_text("#!/bin/sh\necho other\n")
        other.chmod(0o644)
    elif kind == "folder":
        other.mkdir()
    else:
        other.symlink_to("missing")
    expect(installation.run(path=str(other.parent)), "bundled")


def test_without_a_search_path_the_bundled_compiler_runs_too(installation: Installation) -> None:
    compiler(installation.work / "zbc", "current")
    compiler(installation.bundled, "bundled")
    expect(installation.run(path=None), "bundled")


# An empty part of the search path is the current folder (POSIX, Environment Variables).
def test_an_empty_search_path_still_means_the_current_folder(installation: Installation) -> None:
    compiler(installation.bundled, "bundled")
    expect(installation.run(path=""), "bundled")
    compiler(installation.work / "zbc", "current")
    expect(installation.run(path=""), "current")


def test_a_link_to_the_program_leads_to_its_compiler(installation: Installation) -> None:
    compiler(installation.bundled, "bundled")
    compiler(installation.work / "zbc", "current")
    compiler(installation.work / "libexec" / "fdmorph" / "zbc", "beside the link")
    link = installation.work / "bin" / "fdmorph"
    link.parent.mkdir()
    link.symlink_to(installation.program)
    expect(installation.run(program="bin/fdmorph"), "bundled")


def test_a_program_of_a_relative_name_finds_its_compiler(installation: Installation) -> None:
    compiler(installation.bundled, "bundled")
    program = os.path.relpath(installation.program, installation.work)
    expect(installation.run(program=program), "bundled")


def test_the_place_may_have_any_name(tmp_path: Path) -> None:
    installation = Installation(tmp_path, "a b:work;$c")
    compiler(installation.bundled, "bundled")
    expect(installation.run(), "bundled")


def test_without_any_compiler_the_run_fails(installation: Installation) -> None:
    expect(installation.run(), "")


def test_a_bundled_file_that_cannot_be_run_is_no_compiler(installation: Installation) -> None:
    compiler(installation.bundled, "bundled").chmod(0o644)
    expect(installation.run(), "")


# The shell stumbles over the parenthesis of the directive before it looks for a compiler.
@pytest.mark.parametrize("place", ["bundled", "path"])
def test_with_a_log_no_compiler_runs(installation: Installation, place: str) -> None:
    other = installation.path_folder / "zbc"
    compiler(installation.bundled if place == "bundled" else other, "compiler")
    result = installation.run("-log", path=f"/usr/bin:/bin:{other.parent}")
    assert (result.stdout, result.returncode) == (b"", 1)
    assert result.stderr == b'sh: 1: Syntax error: "(" unexpected\n'
    log = (installation.work / "fdmorph.log").read_text()
    assert log == BANNER + CHECKING + NOT_STARTED + FAILED
