"""The rules of the repository that no compiler checks."""

from __future__ import annotations

import json
import re
import shutil
import subprocess
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parent.parent
MAX_LINES = 400  # of a source file
SOURCES = ("src/*.cpp", "src/*.h", "tests/*.cpp", "tests/*.h", "bench/*.cpp")


def tracked(*patterns: str) -> list[Path]:
    """The files of the repository, new ones included."""
    listing = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", *patterns],
        cwd=ROOT,
        capture_output=True,
        text=True,
        check=False,
    )
    if listing.returncode != 0:
        pytest.skip("not a git checkout")
    return [ROOT / name for name in listing.stdout.splitlines() if (ROOT / name).is_file()]


def names(paths: list[Path]) -> list[str]:
    return [path.relative_to(ROOT).as_posix() for path in paths]


def test_only_the_xml_folder_knows_the_xml_library() -> None:
    library = re.compile(r"#include <xercesc/|\bXMLCh\b|\bxercesc\b")
    users = [
        path
        for path in tracked("src/*.cpp", "src/*.h")
        if path.parent.name != "xml" and library.search(path.read_text(encoding="utf-8"))
    ]
    assert names(users) == []


def headers_with_the_library(name: str, seen: set[str]) -> list[str]:
    """The headers of src/xml that the header `name` leads to, itself included,
    and that include the XML library."""
    if name in seen:
        return []
    seen.add(name)
    text = (ROOT / "src" / name).read_text(encoding="utf-8")
    found = [name] if "#include <xercesc/" in text else []
    for included in re.findall(r'#include "(xml/[^"]+)"', text):
        found += headers_with_the_library(included, seen)
    return found


def test_other_folders_reach_no_header_of_the_xml_library() -> None:
    reached = []
    for path in tracked("src/*.cpp", "src/*.h"):
        if path.parent.name != "xml":
            for name in re.findall(r'#include "(xml/[^"]+)"', path.read_text(encoding="utf-8")):
                reached += headers_with_the_library(name, set())
    assert reached == []


def test_no_source_file_is_too_long() -> None:
    long = [
        path
        for path in tracked(*SOURCES, "tests/*.py", "bench/*.py")
        if len(path.read_text(encoding="utf-8").splitlines()) > MAX_LINES
    ]
    assert names(long) == []


def test_no_file_includes_a_source() -> None:
    source = re.compile(r'#include\s*[<"][^>"]+\.cpp[>"]')
    users = [path for path in tracked(*SOURCES) if source.search(path.read_text(encoding="utf-8"))]
    assert names(users) == []


def test_each_using_declaration_of_a_source_is_used() -> None:
    """clang-tidy takes another source of a batch for a user."""
    declaration = re.compile(r"^ *using [\w:]+::(\w+);$", re.MULTILINE)
    unused = []
    for path in tracked("src/*.cpp"):
        text = path.read_text(encoding="utf-8")
        others = set(re.findall(r"\w+", declaration.sub("", text)))
        for name in declaration.findall(text):
            if name not in others:
                unused.append((path.relative_to(ROOT).as_posix(), name))
    assert unused == []


def limits() -> list[list[str]]:
    """The rows of the table of limits in SECURITY.md, a list of cells each."""
    text = (ROOT / "SECURITY.md").read_text(encoding="utf-8")
    table = text.partition("\n## Limits\n")[2].partition("\n## ")[0]
    rows = [line.strip("| ").split(" | ") for line in table.splitlines() if line.startswith("|")]
    return rows[2:]


def test_each_limit_has_a_value_a_line_and_a_test_that_exists() -> None:
    files = {path.name for path in tracked("tests/*")}
    assert limits()
    for cells in limits():
        assert len(cells) == 5, cells
        assert all(cells), cells
        named = re.findall(r"`([^`]+)`", cells[4])
        assert named, cells
        assert set(named) <= files, cells


def test_the_version_is_in_one_place() -> None:
    """project() has it. The newest release of the changelog has the same, and what is
    configured takes it from there."""
    project = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    version = re.search(r"^project\(fdmorph VERSION (\S+) ", project, re.MULTILINE)
    changelog = (ROOT / "CHANGELOG.md").read_text(encoding="utf-8")
    releases = re.findall(r"^## \[(\d[^]]*)\] - \d{4}-\d\d-\d\d$", changelog, re.MULTILINE)
    assert version is not None
    assert releases[0] == version[1]
    pages = tracked("man/*.in")
    assert pages
    others = [
        path
        for path in pages
        if not re.search(r"^\.TH .*@PROJECT_VERSION@", path.read_text(), re.M)
    ]
    assert names(others) == []


@pytest.mark.skipif(shutil.which("clang-tidy") is None, reason="clang-tidy is not installed")
@pytest.mark.parametrize(
    ("declaration", "finding"),
    [
        ("int goodName();", None),
        ("int bad_name();", "function 'bad_name'"),
        ("inline int* goodName() { return 0; }", "use nullptr"),
    ],
)
def test_clang_tidy_checks_headers_behind_the_include_roots(
    tmp_path: Path, declaration: str, finding: str | None
) -> None:
    folder, root = tmp_path / "src" / "part", tmp_path / "build" / "check" / "include" / "part"
    folder.mkdir(parents=True)
    root.mkdir(parents=True)
    (root / "part").symlink_to(folder)
    source = folder / "unit.cpp"
    source.write_text('#include "part/unit.h"\n', encoding="utf-8")
    (folder / "unit.h").write_text(f"#pragma once\n{declaration}\n", encoding="utf-8")
    shutil.copy(ROOT / ".clang-tidy", tmp_path)
    command = {
        "directory": str(tmp_path),
        "file": str(source),
        "command": f"c++ -std=c++20 -I{root} -c {source}",
    }
    commands = tmp_path / "build" / "check" / "compile_commands.json"
    commands.write_text(json.dumps([command]), encoding="utf-8")
    result = subprocess.run(
        [ROOT / "scripts" / "tidy", commands.parent, source],
        capture_output=True,
        text=True,
        check=False,
    )
    if finding is None:
        assert result.returncode == 0, result.stdout
    else:
        assert result.returncode != 0
        assert f"{root}/part/unit.h:2:" in result.stdout
        assert finding in result.stdout
