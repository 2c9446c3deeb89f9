"""Files are whole or untouched: failed copies and writes, signals, links, two runs at once.

FDMORPH_PAIRS is the number of pairs of runs at once; 300 take some minutes.
"""

from __future__ import annotations

import os
import re
import resource
import signal
import subprocess
import sys
import time
from pathlib import Path

import pytest
from support.comparison import read_tree
from support.harness import environment, path_with, program_under_test, run_in_time

TIME_LIMIT = 60
PAIRS = int(os.environ.get("FDMORPH_PAIRS", "5"))

BANNER = "Tallmere FDMORPH Version 1.0\nConverts between COBOL data definitions and XML Schema\n\n"
SCHEMA = '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">{}</xs:schema>'
TINY = SCHEMA.format('<xs:element name="code" type="xs:string"/>')
RECORD = '       01 code PIC X(80) identified by "code" count in code-count.\n\n'
COPYBOOK = "       01  {}.\n           05  CODE PIC X(5).\n"
TEMPORARY = re.compile(r"\./file[a-z0-9]{6}")


@pytest.fixture(name="compiler")
def compiler_folder(tmp_path_factory: pytest.TempPathFactory) -> Path:
    """A folder with the bundled compiler as zbc."""
    folder = tmp_path_factory.mktemp("bin")
    (folder / "zbc").symlink_to(program_under_test("ZBC"))
    return folder


def variables(compiler: Path | None = None) -> dict[str, str]:
    return environment(**({"PATH": path_with(compiler)} if compiler else {}))


def run(directory: Path, *args: str, compiler: Path | None = None, **options: object):
    """Runs the program and returns its status and its streams, as text."""
    stdin = str(options.pop("stdin", "")).encode()
    command = [program_under_test(), *args]
    options = {"cwd": directory, "env": variables(compiler), **options}
    result = run_in_time(command, stdin, TIME_LIMIT, **options)
    return result.returncode, result.stdout.decode(), result.stderr.decode()


def make_missing(_: Path) -> None:
    pass


def make_folder(path: Path) -> None:
    path.mkdir()


def make_unreadable(path: Path) -> None:
    path.symlink_to("/proc/self/mem")  # opens, and fails when it is read


@pytest.mark.parametrize("make", [make_missing, make_folder, make_unreadable])
def test_a_copybook_that_cannot_be_read_stops_the_run(
    tmp_path: Path, compiler: Path, make: object
) -> None:
    for name in ("g.xsd", "g-fdmorph.cpy"):
        (tmp_path / name).write_text("of an earlier run\n")
    make(tmp_path / "g.cpy")  # type: ignore[operator]
    before = sorted(os.listdir(tmp_path))
    status, stdout, stderr = run(tmp_path, "-noprompt", "g.cpy", compiler=compiler)
    assert status == 1
    assert TEMPORARY.sub("@TEMP@", stdout) == BANNER + (
        "Error : Unable to copy file contents of g.cpy to @TEMP@.cbl\n"
        "Checking g.cpy for errors\n"
        "Error : Failed to compile g.cpy.  Please correct the errors and try again.\n"
    )
    assert "error: cannot read 'g.cpy'" in stderr
    assert sorted(os.listdir(tmp_path)) == before
    assert (tmp_path / "g.xsd").read_text() == "of an earlier run\n"


def limit_file_size(size: int) -> object:
    return lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))


def wide_schema(count: int) -> str:
    elements = "".join(f'<xs:element name="e{i}" type="xs:string"/>' for i in range(count))
    content = f"<xs:complexType><xs:sequence>{elements}</xs:sequence></xs:complexType>"
    return SCHEMA.format(f'<xs:element name="h">{content}</xs:element>')


@pytest.mark.parametrize("old", [None, "of an earlier run\n"])
def test_a_record_larger_than_a_file_may_be_leaves_the_old_one(
    tmp_path: Path, old: str | None
) -> None:
    (tmp_path / "a.xsd").write_text(wide_schema(2000))
    if old:
        (tmp_path / "a.cpy").write_text(old)
    before = read_tree(tmp_path)
    status, _, stderr = run(tmp_path, "-noprompt", "a.xsd", preexec_fn=limit_file_size(65536))
    assert status == 1
    assert stderr.endswith("Error : Unable to write output file a.cpy\n1 error(s), 0 warning(s)\n")
    assert read_tree(tmp_path) == before


@pytest.mark.parametrize("source", ["a.cpy", "a.cbl"])
def test_a_dictionary_larger_than_a_file_may_be_leaves_nothing(
    tmp_path: Path, compiler: Path, source: str
) -> None:
    (tmp_path / source).write_text(COPYBOOK.format("ORDER"))
    (tmp_path / "a.xsd").write_text("of an earlier run\n")
    before = read_tree(tmp_path)
    limit = limit_file_size(120)  # more than the source has, less than the dictionary
    status, _, stderr = run(tmp_path, "-noprompt", source, compiler=compiler, preexec_fn=limit)
    assert status == 1
    assert re.search(r"zbc: error: cannot write \S+\.xml: File too large \[file\]\n", stderr)
    # The copy of a copybook that does not compile stays.
    found = {name: text for name, text in read_tree(tmp_path).items() if "file" not in name}
    assert found == before


def test_an_output_keeps_its_mode_and_its_link(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    (tmp_path / "sub").mkdir()
    target = tmp_path / "sub" / "record"
    target.write_text("of an earlier run\n")
    target.chmod(0o640)
    (tmp_path / "a.cpy").symlink_to("sub/record")
    assert run(tmp_path, "-noprompt", "a.xsd")[0] == 0
    assert (tmp_path / "a.cpy").is_symlink()
    assert target.read_text() == RECORD
    assert target.stat().st_mode & 0o7777 == 0o640
    assert os.listdir(tmp_path / "sub") == ["record"]


def test_an_output_may_be_the_standard_output(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    with open(tmp_path / "out", "wb") as out:
        before = os.fstat(out.fileno()).st_ino
        subprocess.run(
            [program_under_test(), "-noprompt", "-c", "/dev/stdout", "a.xsd"],
            cwd=tmp_path,
            env=variables(),
            stdout=out,
            timeout=TIME_LIMIT,
            check=True,
        )
    assert (tmp_path / "out").read_text() == RECORD
    assert (tmp_path / "out").stat().st_ino == before


def test_an_output_may_be_a_pipe(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    os.mkfifo(tmp_path / "pipe")
    pipe = os.open(tmp_path / "pipe", os.O_RDWR)
    assert run(tmp_path, "-noprompt", "-c", "pipe", "a.xsd")[0] == 0
    assert os.read(pipe, 1000).decode() == RECORD
    os.close(pipe)
    assert (tmp_path / "pipe").is_fifo()


@pytest.mark.skipif(os.geteuid() == 0, reason="permissions do not restrict root")
def test_an_output_in_a_closed_folder_is_written_directly(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    folder = tmp_path / "sub"
    folder.mkdir()
    (folder / "a.cpy").write_text("of an earlier run\n")
    folder.chmod(0o500)
    try:
        assert run(tmp_path, "-noprompt", "-c", "sub/a.cpy", "a.xsd")[0] == 0
    finally:
        folder.chmod(0o700)
    assert (folder / "a.cpy").read_text() == RECORD


# Signals

SLEEPING = """#!{python}
import os, sys, time
base = os.path.splitext(sys.argv[-1])[0]
for extension in (".dbi", ".xml", ".int"):
    open(base + extension, "w").write("part")
open("compiler.pid.new", "w").write(str(os.getpid()))
os.rename("compiler.pid.new", "compiler.pid")
time.sleep(60)
"""


def wait_for(condition: object) -> None:
    end = time.monotonic() + TIME_LIMIT
    while not condition():  # type: ignore[operator]
        assert time.monotonic() < end
        time.sleep(0.01)


def is_running(pid: int) -> bool:
    try:
        os.kill(pid, 0)
    except ProcessLookupError:
        return False
    return True


@pytest.mark.parametrize("number", [signal.SIGINT, signal.SIGTERM, signal.SIGHUP])
@pytest.mark.parametrize("source", ["a.cpy", "a.cbl"])
def test_a_signal_ends_the_compiler_and_removes_its_files(
    tmp_path: Path, number: signal.Signals, source: str
) -> None:
    binaries = tmp_path / "bin"
    binaries.mkdir()
    (binaries / "zbc").write_text(SLEEPING.format(python=sys.executable))
    (binaries / "zbc").chmod(0o755)
    work = tmp_path / "work"
    work.mkdir()
    (work / source).write_text(COPYBOOK.format("ORDER"))
    (work / "a.int").write_text("of an earlier run\n")
    before = read_tree(work)
    with subprocess.Popen(
        [program_under_test(), "-noprompt", source],
        cwd=work,
        env=variables(binaries),
        stdout=subprocess.DEVNULL,
        stderr=subprocess.PIPE,
    ) as process:
        wait_for((work / "compiler.pid").exists)
        process.send_signal(number)
        _, stderr = process.communicate(timeout=TIME_LIMIT)
    assert process.returncode == -number
    assert stderr == b"Error : Interrupted by a signal\n"
    assert not is_running(int((work / "compiler.pid").read_text()))
    (work / "compiler.pid").unlink()
    if source == "a.cbl":  # compiled where it is, so the compiler has replaced it
        before.pop("a.int")
    assert read_tree(work) == before


def test_a_signal_in_the_middle_of_an_output_leaves_the_old_one(tmp_path: Path) -> None:
    # The run stands still as soon as nobody reads its error messages.
    member = '<xs:element name="e{}" type="xs:IDREFS"/>'
    content = "".join(member.format(i) for i in range(5000))
    head = f'<xs:element name="h"><xs:complexType><xs:sequence>{content}'
    text = SCHEMA.format(head + "</xs:sequence></xs:complexType></xs:element>")
    (tmp_path / "a.xsd").write_text(text)
    (tmp_path / "a.cpy").write_text("of an earlier run\n")
    before = read_tree(tmp_path)
    with subprocess.Popen(
        [program_under_test(), "-noprompt", "a.xsd"],
        cwd=tmp_path,
        env=variables(),
        stdout=subprocess.DEVNULL,
        stderr=subprocess.PIPE,
    ) as process:
        wait_for(lambda: len(os.listdir(tmp_path)) == 3)
        process.send_signal(signal.SIGTERM)
        assert process.wait(TIME_LIMIT) == -signal.SIGTERM
    assert read_tree(tmp_path) == before


# One file in two roles


@pytest.mark.parametrize("make", [os.link, os.symlink])
@pytest.mark.parametrize(
    ("source", "option"), [("a.xsd", "-c"), ("a.cpy", "-c"), ("a.cpy", "-x"), ("a.cbl", "-c")]
)
def test_an_output_that_is_the_source_is_refused(
    tmp_path: Path, compiler: Path, make: object, source: str, option: str
) -> None:
    (tmp_path / source).write_text(TINY if source == "a.xsd" else COPYBOOK.format("ORDER"))
    make(tmp_path / source, tmp_path / "other")  # type: ignore[operator]
    before = read_tree(tmp_path)
    status, stdout, _ = run(tmp_path, "-noprompt", option, "./other", source, compiler=compiler)
    assert status == 1
    assert stdout == BANNER + f"Error : Output file ./other is the same file as {source}\n"
    assert read_tree(tmp_path) == before


def test_a_schema_is_not_overwritten_with_its_record_after_a_yes(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    status, stdout, _ = run(tmp_path, "-c", "a.xsd", "a.xsd", stdin="y\n")
    assert status == 1
    assert stdout.endswith("\nError : Output file a.xsd is the same file as a.xsd\n")
    assert (tmp_path / "a.xsd").read_text() == TINY


def test_an_output_that_is_the_log_is_refused(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    status, stdout, stderr = run(tmp_path, "-noprompt", "-log", "-c", "fdmorph.log", "a.xsd")
    assert (status, stdout, stderr) == (1, "", "")
    assert (tmp_path / "fdmorph.log").read_text() == BANNER + (
        "Error : Output file fdmorph.log is the same file as ./fdmorph.log\n"
    )


def test_a_log_that_is_the_schema_is_refused(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    (tmp_path / "fdmorph.log").hardlink_to(tmp_path / "a.xsd")
    status, stdout, _ = run(tmp_path, "-log", "-v", "a.xsd")
    assert status == 1
    assert stdout == BANNER + "Error : The log ./fdmorph.log is a file of the command line\n"
    assert (tmp_path / "a.xsd").read_text() == TINY


# The dictionary


def test_a_link_in_place_of_the_dictionary_is_left_alone(tmp_path: Path, compiler: Path) -> None:
    (tmp_path / "a.cbl").write_text(COPYBOOK.format("ORDER"))
    (tmp_path / "a.xml").symlink_to("nowhere")
    assert run(tmp_path, "a.cbl", compiler=compiler)[0] == 0
    assert os.readlink(tmp_path / "a.xml") == "nowhere"
    assert sorted(os.listdir(tmp_path)) == ["a-fdmorph.cpy", "a.cbl", "a.xml", "a.xsd"]


@pytest.mark.parametrize("sources", [("a.cbl", "a.cpy"), ("a.cbl", "b.cbl"), ("a.cpy", "b.cpy")])
def test_two_runs_at_once_do_not_share_a_dictionary(
    tmp_path: Path, compiler: Path, sources: tuple[str, str]
) -> None:
    for number in range(PAIRS):
        folder = tmp_path / str(number)
        folder.mkdir()
        runs = []
        for i, source in enumerate(sources):
            (folder / source).write_text(COPYBOOK.format(f"RECORD-{i}"))
            command = [program_under_test(), "-noprompt", source, "-x", f"{i}.xsd", "-c", f"{i}"]
            runs.append(
                subprocess.Popen(
                    command,
                    cwd=folder,
                    env=variables(compiler),
                    stdout=subprocess.PIPE,
                    stderr=subprocess.STDOUT,
                )
            )
        for each in runs:
            stdout, _ = each.communicate(timeout=TIME_LIMIT)
            assert each.returncode == 0, stdout.decode()
        for i in range(2):
            assert f'name="RECORD-{i}"' in (folder / f"{i}.xsd").read_text()
            assert f"01 RECORD-{i} " in (folder / str(i)).read_text()
        assert sorted(os.listdir(folder)) == sorted(["0", "1", "0.xsd", "1.xsd", *sources])


def test_a_run_that_waits_says_so_and_can_be_interrupted(tmp_path: Path, compiler: Path) -> None:
    (tmp_path / "a.cpy").write_text(COPYBOOK.format("ORDER"))
    holder = subprocess.Popen(["flock", str(tmp_path), "sleep", "60"])
    try:
        wait_for(lambda: subprocess.run(["flock", "-n", tmp_path, "true"], check=False).returncode)
        with subprocess.Popen(
            [program_under_test(), "-noprompt", "a.cpy"],
            cwd=tmp_path,
            env=variables(compiler),
            stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL,
        ) as process:
            assert process.stdout is not None
            lines = [process.stdout.readline() for _ in range(4)]
            process.send_signal(signal.SIGTERM)
            assert process.wait(TIME_LIMIT) == -signal.SIGTERM
    finally:
        holder.kill()
        holder.wait()
    assert b"".join(lines).decode() == BANNER + "Waiting for another run in ./\n"
    assert os.listdir(tmp_path) == ["a.cpy"]
