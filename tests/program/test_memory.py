"""Runs with little memory end in order, or with one line and status 1.

The environment variable FDMORPH_MEMORY_STEP makes it all limits from 50 to 500 MB in steps of that
many; 10 takes minutes.
"""

from __future__ import annotations

import os
import resource
import subprocess
from pathlib import Path

import pytest
from support.comparison import read_tree
from support.harness import environment, is_instrumented, path_with, program_under_test

TIME_LIMIT = 120
STEP = int(os.environ.get("FDMORPH_MEMORY_STEP", "0"))
LIMITS = list(range(50, 501, STEP)) if STEP else [50, 60, 65, 75, 90, 500]  # MB
MEGABYTE = 1_000_000

SCHEMA = '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">{}</xs:schema>'
ELEMENT = '<xs:element name="{}" type="{}"/>'
COMPLEX = "<xs:complexType{}><xs:sequence>{}</xs:sequence></xs:complexType>"
OLD = "of an earlier run\n"
LINES = {"Error : Out of memory", "zbc: error: out of memory [size]"}


def with_many_items() -> str:
    """A small schema with a record of 100,000 items."""
    types = ""
    for layer in range(5):
        below = f"t{layer + 1}" if layer < 4 else "xs:string"
        members = "".join(ELEMENT.format(f"e{i}", below) for i in range(10))
        types += COMPLEX.format(f' name="t{layer}"', members)
    return SCHEMA.format(ELEMENT.format("h", "t0") + types)


def with_many_elements() -> str:
    members = "".join(ELEMENT.format(f"e{i}", "xs:string") for i in range(8_000))
    return SCHEMA.format(f'<xs:element name="h">{COMPLEX.format("", members)}</xs:element>')


def nested(depth: int) -> str:
    opening = '<xs:element name="e"><xs:complexType><xs:sequence>'
    closing = "</xs:sequence></xs:complexType></xs:element>"
    return SCHEMA.format(opening * depth + ELEMENT.format("leaf", "xs:string") + closing * depth)


def copybook() -> str:
    return "       01  R.\n" + "".join(f"           05  I{i} PIC X.\n" for i in range(8_000))


RUNS = {
    "items": (["-noprompt", "a.xsd"], "a.xsd", with_many_items),
    "elements": (["-noprompt", "a.xsd"], "a.xsd", with_many_elements),
    "nested": (["-noprompt", "a.xsd"], "a.xsd", lambda: nested(2000)),
    "validation": (["-v", "a.xsd"], "a.xsd", with_many_elements),
    "copybook": (["-noprompt", "-m", "a.map", "a.cpy"], "a.cpy", copybook),
}
OUTPUTS = ["a.cpy", "a.xsd", "a-fdmorph.cpy", "a.map"]


def run_with(limit: int, directory: Path, command: list[str], path: Path):
    size = limit * MEGABYTE
    return subprocess.run(
        command,
        cwd=directory,
        env=environment(PATH=path_with(path)),
        stdin=subprocess.DEVNULL,
        capture_output=True,
        text=True,
        timeout=TIME_LIMIT,
        check=False,
        preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (size, size)),
    )


def check_end(result: subprocess.CompletedProcess[str]) -> bool:
    """Whether the run came to its end; if not, it has to say why."""
    if result.returncode == 0:
        return True
    if result.returncode == 127:  # the system did not get as far as the program
        assert "error while loading shared libraries" in result.stderr
    else:
        assert result.returncode == 1, result.stderr
        assert LINES & set(result.stderr.splitlines()), result.stderr
    return False


@pytest.mark.parametrize("name", RUNS)
def test_the_converter_ends_in_order(tmp_path: Path, name: str) -> None:
    program = program_under_test()
    if is_instrumented(program):
        pytest.skip("a sanitizer needs more addresses")
    arguments, source, text = RUNS[name]
    binaries = tmp_path / "bin"
    binaries.mkdir()
    (binaries / "zbc").symlink_to(program_under_test("ZBC"))
    work = tmp_path / "work"
    work.mkdir()
    (work / source).write_text(text())
    good = set()
    for limit in LIMITS:
        for output in OUTPUTS:
            if output not in (source, "a.map"):
                (work / output).write_text(OLD)
        (work / "a.map").unlink(missing_ok=True)
        before = read_tree(work)
        result = run_with(limit, work, [program, *arguments], binaries)
        after = read_tree(work)
        if check_end(result):
            good.add(limit)
        elif "Failed to compile" in result.stdout:  # the copy of the source stays
            after = {each: text for each, text in after.items() if "file" not in each}
            assert after == before, limit
        else:
            for each, content in after.items():
                assert content == before.get(each) or is_whole(each, content), (limit, each)
    assert good and 60 not in good


def is_whole(name: str, content: bytes) -> bool:
    """Whether an output that was put in place before memory was out is complete."""
    ends = {"a.xsd": b"</schema>\n", "a.map": b"</xml-cobol-mapping-file>\n"}
    return name in ends and content.endswith(ends[name])


def test_the_compiler_ends_in_order(tmp_path: Path) -> None:
    program = program_under_test("ZBC")
    if is_instrumented(program):
        pytest.skip("a sanitizer needs more addresses")
    (tmp_path / "a.cpy").write_text(copybook())
    (tmp_path / "a.xml").write_text(OLD)
    good = set()
    for limit in [8, 12, 16, 20, *LIMITS]:
        result = run_with(limit, tmp_path, [program, "-C", "XMLGEN(WS)", "a.cpy"], tmp_path)
        if check_end(result):
            good.add(limit)
        elif not good:
            assert (tmp_path / "a.xml").read_text() == OLD, limit
        assert sorted(read_tree(tmp_path)) == ["a.cpy", "a.xml"]
    assert good and 8 not in good
