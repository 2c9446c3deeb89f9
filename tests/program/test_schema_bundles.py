"""Bundles of schemas: what the other programs make of them, and how the folder comes about."""

from __future__ import annotations

import os
import resource
import signal
import subprocess
from pathlib import Path

import pytest
from judges.xmllint import NEEDS_XMLLINT, VALID, validate
from support.harness import environment, program_under_test, readable, run

SCHEMA = (
    '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" xmlns:m="urn:money"{}>{}</xs:schema>\n'
)
ELEMENT = '<xs:element name="a" type="xs:int"/>'
MANIFEST = "fdrec-bundle.txt"


def schema(content: str, space: str = "") -> str:
    names = f' xmlns="{space}" targetNamespace="{space}"' if space else ""
    return SCHEMA.format(names, content)


def write(folder: Path, files: dict[str, str]) -> None:
    for name, text in files.items():
        (folder / name).parent.mkdir(parents=True, exist_ok=True)
        (folder / name).write_text(text, "utf-8")


def bundle(directory: Path, *args: str) -> subprocess.CompletedProcess[bytes]:
    return run(directory, program_under_test("FDREC"), "bundle", *args)


@pytest.fixture(name="order")
def fixture_order(tmp_path: Path) -> Path:
    """The bundle of a schema that fdmorph itself reads from no folder: it imports by address."""
    write(
        tmp_path,
        {
            "main/order.xsd": schema(
                '<xs:include schemaLocation="../parts/line.xsd"/>'
                '<xs:element name="order"><xs:complexType><xs:sequence>'
                '<xs:element name="line" type="Line"/>'
                "</xs:sequence></xs:complexType></xs:element>",
                "urn:order",
            ),
            "parts/line.xsd": schema(
                '<xs:import namespace="urn:money" schemaLocation="https://x.invalid/money.xsd"/>'
                '<xs:complexType name="Line"><xs:sequence>'
                '<xs:element name="price" type="m:Amount"/>'
                "</xs:sequence></xs:complexType>",
                "urn:order",
            ),
            "lib/money.xsd": schema(
                '<xs:simpleType name="Amount"><xs:restriction base="xs:decimal">'
                '<xs:totalDigits value="9"/><xs:fractionDigits value="2"/>'
                "</xs:restriction></xs:simpleType>",
                "urn:money",
            ),
        },
    )
    done = bundle(tmp_path, "main/order.xsd", "--import-path", "lib", "-o", "out")
    assert (done.returncode, done.stderr) == (0, b"")
    return tmp_path / "out"


def test_the_converter_reads_a_bundle(order: Path) -> None:
    done = run(order, program_under_test(), "order.xsd", "-c", "../order.cpy", "-noprompt")
    assert done.returncode == 0
    assert readable(done.stderr).endswith("0 error(s), 0 warning(s)\n")
    assert " price PIC S9(7)V9(2)" in (order.parent / "order.cpy").read_text("utf-8")


@NEEDS_XMLLINT
def test_the_outside_judge_reads_a_bundle(order: Path) -> None:
    document = order.parent / "order.xml"
    price = "<price>{}</price>"
    for text, is_valid in (("1.25", True), ("1.255", False)):
        line = f"<line>{price.format(text)}</line>"
        document.write_text(f'<o:order xmlns:o="urn:order">{line}</o:order>', "utf-8")
        status, printed = validate(order / "order.xsd", document)
        assert (status == VALID) == is_valid, printed


def test_a_bundle_of_a_bundle_is_the_same(order: Path) -> None:
    done = bundle(order.parent, "out/order.xsd", "-o", "again")
    assert done.returncode == 0
    files = {path.name: path.read_bytes() for path in order.iterdir()}
    assert {path.name: path.read_bytes() for path in (order.parent / "again").iterdir()} == files


def test_many_files_in_a_circle(tmp_path: Path) -> None:
    count = 400
    for i in range(count):
        following = f'<xs:include schemaLocation="../f{(i + 1) % count}/x.xsd"/>'
        back = '<xs:include schemaLocation="../f0/x.xsd"/>'
        write(tmp_path, {f"f{i}/x.xsd": schema(following + back)})
    done = bundle(tmp_path, "f0/x.xsd", "-o", "out")
    assert (done.returncode, done.stderr) == (0, b"")
    names = [line.split()[0] for line in readable(done.stdout).splitlines()]
    assert names == ["x.xsd", *(f"x-{i}.xsd" for i in range(2, count + 1))]
    assert sorted(os.listdir(tmp_path / "out")) == sorted([*names, MANIFEST])
    assert 'schemaLocation="x-3.xsd"' in (tmp_path / "out/x-2.xsd").read_text("utf-8")


def test_special_files_are_not_waited_for(tmp_path: Path) -> None:
    os.mkfifo(tmp_path / "b.xsd")
    write(tmp_path, {"a.xsd": schema('<xs:include schemaLocation="b.xsd"/>')})
    done = bundle(tmp_path, "a.xsd", "-o", "out")
    assert done.returncode == 1
    assert readable(done.stderr).endswith("cannot find the included file 'b.xsd' [schema]\n")
    assert bundle(tmp_path, "b.xsd", "-o", "out").returncode == 3
    assert sorted(os.listdir(tmp_path)) == ["a.xsd", "b.xsd"]


def test_nothing_is_left_where_files_cannot_be_written(tmp_path: Path) -> None:
    size = 100_000
    write(tmp_path, {"a.xsd": schema(ELEMENT)})
    assert bundle(tmp_path, "a.xsd", "-o", "out").returncode == 0
    before = {path.name: path.read_bytes() for path in (tmp_path / "out").iterdir()}
    write(tmp_path, {"a.xsd": schema(f"<!--{'x' * size}-->")})
    done = subprocess.run(
        [program_under_test("FDREC"), "bundle", "a.xsd", "-o", "out"],
        cwd=tmp_path,
        env=environment(),
        capture_output=True,
        check=False,
        preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (size // 2, size // 2)),
    )
    assert done.returncode == 3
    assert readable(done.stderr) == (
        "fdrec: error: cannot write 'out': cannot write 'a.xsd': File too large [file]\n"
    )
    assert {path.name: path.read_bytes() for path in (tmp_path / "out").iterdir()} == before
    assert sorted(os.listdir(tmp_path)) == ["a.xsd", "out"]


def test_a_signal_leaves_the_old_folder_or_the_new_one(tmp_path: Path) -> None:
    write(tmp_path, {"a.xsd": schema('<xs:include schemaLocation="x/b.xsd"/>')})
    write(tmp_path, {"x/b.xsd": schema("".join(f"<!--{i}-->" for i in range(10_000)))})
    for delay in (0.0, 0.01, 0.03):
        with subprocess.Popen(
            [program_under_test("FDREC"), "bundle", "a.xsd", "-o", "out"],
            cwd=tmp_path,
            env=environment(),
            stdout=subprocess.DEVNULL,
        ) as process:
            try:
                process.wait(delay)
            except subprocess.TimeoutExpired:
                process.send_signal(signal.SIGTERM)
        assert process.returncode in (0, -signal.SIGTERM)
        assert set(os.listdir(tmp_path)) <= {"a.xsd", "x", "out"}
        if (tmp_path / "out").exists():
            assert sorted(os.listdir(tmp_path / "out")) == ["a.xsd", "b.xsd", MANIFEST]
