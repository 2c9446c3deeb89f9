"""Inputs and devices at their limits: deep nesting, a full disk, closed streams.

These tests need generated inputs or special files, so they are not in tests/cases.
"""

from __future__ import annotations

import os
import resource
import subprocess
from pathlib import Path

import pytest
from support.harness import (
    TIME_LIMIT,
    environment,
    is_instrumented,
    program_under_test,
    skip_if_instrumented,
)

SMALL_STACK = 512 * 1024  # bytes

SCHEMA = '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">{}</xs:schema>'
TINY = SCHEMA.format('<xs:element name="code" type="xs:string"/>')
RECORD = '       01 code PIC X(80) identified by "code" count in code-count.\n\n'


def run(directory: Path, *args: str, **options: object) -> subprocess.CompletedProcess[str]:
    return subprocess.run(
        [program_under_test(), *args],
        cwd=directory,
        capture_output="stdout" not in options,
        text=True,
        stdin=options.pop("stdin", subprocess.DEVNULL),
        timeout=TIME_LIMIT,
        check=False,
        env=environment(),
        **options,  # type: ignore[arg-type]
    )


def nested_elements(depth: int) -> str:
    opening = '<xs:element name="e"><xs:complexType><xs:sequence>'
    closing = "</xs:sequence></xs:complexType></xs:element>"
    leaf = '<xs:element name="leaf" type="xs:string"/>'
    return SCHEMA.format(opening * depth + leaf + closing * depth)


def use_small_stack() -> None:
    resource.setrlimit(resource.RLIMIT_STACK, (SMALL_STACK, SMALL_STACK))


def test_ten_thousand_nested_elements_are_converted_or_refused(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(nested_elements(10_000))
    result = run(tmp_path, "a.xsd", "-nocountin")
    if result.returncode == 0:
        # Levels above 49 are left out of the record without a message.
        words = [line.split()[0] for line in (tmp_path / "a.cpy").read_text().splitlines() if line]
        levels = [word for word in words if word.isdigit()]  # other lines continue the one above
        assert levels == [f"{level:02}" for level in range(1, 50)]
        assert "Successfully converted 1 of 1 schema head element(s)." in result.stderr
    else:
        assert result.returncode == 1
        assert result.stderr.startswith("Internal Error : ") and result.stderr.count("\n") == 1


@pytest.mark.parametrize("args", [["a.xsd", "-noprompt"], ["-v", "a.xsd"]])
def test_a_stack_overflow_is_one_line_and_status_1(tmp_path: Path, args: list[str]) -> None:
    (tmp_path / "a.xsd").write_text(nested_elements(5_000))
    result = run(tmp_path, *args, preexec_fn=use_small_stack)
    assert result.returncode == 1
    assert result.stderr == "Internal Error : Input is nested too deeply\n"


def test_an_invalid_memory_access_of_the_library_is_one_line_and_status_1(tmp_path: Path) -> None:
    if is_instrumented(program_under_test()):
        pytest.skip("a sanitizer reports the access itself")
    # A restriction of a mixed type needs a simple type in it (XML Schema: Structures, 3.4.2). The
    # library does not report that and follows a null pointer.
    base = (
        '<xs:complexType name="base" mixed="true"><xs:sequence><xs:element name="e" minOccurs="0"/>'
    )
    base += "</xs:sequence></xs:complexType>"
    derived = '<xs:complexType name="t"><xs:simpleContent><xs:restriction base="base"/>'
    derived += "</xs:simpleContent></xs:complexType>"
    (tmp_path / "a.xsd").write_text(SCHEMA.format(derived + base))
    (tmp_path / "a.cpy").write_text("older\n")
    result = run(tmp_path, "a.xsd", "-noprompt")
    assert result.returncode == 1
    assert result.stderr == "Internal Error : Invalid memory access\n"
    assert (tmp_path / "a.cpy").read_text() == "older\n"


def test_with_a_log_a_stack_overflow_is_reported_there(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(nested_elements(5_000))
    result = run(tmp_path, "a.xsd", "-noprompt", "-log", preexec_fn=use_small_stack)
    assert (result.returncode, result.stdout, result.stderr) == (1, "", "")
    log = (tmp_path / "fdmorph.log").read_text()
    assert log.endswith("\nInternal Error : Input is nested too deeply\n")


def test_a_full_disk_is_reported_with_the_files_name_and_counted(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    result = run(tmp_path, "a.xsd", "-c", "/dev/full", "-noprompt")
    assert result.returncode == 1
    assert result.stderr == (
        "\nSuccessfully converted 1 of 1 schema head element(s).\n\n"
        "Error : Unable to write output file /dev/full\n"
        "1 error(s), 0 warning(s)\n"
    )


def test_a_console_that_cannot_be_written_makes_the_status_1(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    with open("/dev/full", "w", encoding="ascii") as full:
        result = run(tmp_path, "a.xsd", stdout=full, stderr=subprocess.PIPE)
    assert result.returncode == 1
    assert result.stderr.endswith("Error : Unable to write output file standard output\n")
    assert (tmp_path / "a.cpy").read_text() == RECORD


def test_messages_that_cannot_be_written_make_the_status_1(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    with open("/dev/full", "w", encoding="ascii") as full:
        result = run(tmp_path, "a.xsd", stdout=subprocess.DEVNULL, stderr=full)
    assert result.returncode == 1
    assert (tmp_path / "a.cpy").read_text() == RECORD


def test_a_log_on_a_full_disk_is_reported_on_the_console(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    (tmp_path / "fdmorph.log").symlink_to("/dev/full")
    result = run(tmp_path, "a.xsd", "-log")
    assert result.returncode == 1
    assert result.stderr == "Error : Unable to write output file ./fdmorph.log\n"
    assert (tmp_path / "a.cpy").read_text() == RECORD


def test_the_exit_status_is_at_most_255(tmp_path: Path) -> None:
    # One warning for each element of a type that has no COBOL form.
    member = '<xs:element name="e{}" type="xs:IDREFS"/>'
    content = "".join(member.format(i) for i in range(256))
    head = f'<xs:element name="h"><xs:complexType><xs:sequence>{content}'
    (tmp_path / "a.xsd").write_text(
        SCHEMA.format(head + "</xs:sequence></xs:complexType></xs:element>")
    )
    result = run(tmp_path, "a.xsd")
    assert result.stderr.endswith("0 error(s), 256 warning(s)\n")
    assert result.returncode == 255


def test_a_closed_error_stream_leaves_no_message_in_an_output(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    result = run(tmp_path, "a.xsd", preexec_fn=lambda: os.close(2))
    assert result.returncode == 0
    assert (tmp_path / "a.cpy").read_text() == RECORD


def test_a_closed_output_stream_makes_the_status_1(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    result = run(tmp_path, "a.xsd", preexec_fn=lambda: os.close(1))
    assert result.returncode == 1
    assert result.stderr.endswith("Error : Unable to write output file standard output\n")
    assert (tmp_path / "a.cpy").read_text() == RECORD


def test_a_reader_that_goes_away_does_not_end_the_conversion(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    reading, writing = os.pipe()
    os.close(reading)
    with open(writing, "w", encoding="ascii") as pipe:
        result = run(tmp_path, "a.xsd", stdout=pipe, stderr=subprocess.PIPE)
    assert result.returncode == 1
    assert (tmp_path / "a.cpy").read_text() == RECORD


def test_a_closed_standard_input_counts_as_no(tmp_path: Path) -> None:
    (tmp_path / "a.xsd").write_text(TINY)
    (tmp_path / "a.cpy").write_text("mine\n")
    result = run(tmp_path, "a.xsd", stdin=None, preexec_fn=lambda: os.close(0))
    assert result.returncode == 1
    assert result.stderr == (
        '\nWarning : The file "a.cpy" already exists\nWould you like to overwrite a.cpy? (y/n) '
    )
    assert (tmp_path / "a.cpy").read_text() == "mine\n"


def test_a_record_of_too_many_items_is_abandoned_and_the_next_is_converted(tmp_path: Path) -> None:
    skip_if_instrumented()
    # Seven layers of types, each with ten elements of the next: ten million items.
    element = '<xs:element name="e{}" type="{}"/>'
    types = ""
    for layer in range(7):
        below = f"t{layer + 1}" if layer < 6 else "xs:string"
        members = "".join(element.format(i, below) for i in range(10))
        types += f'<xs:complexType name="t{layer}"><xs:sequence>{members}</xs:sequence>'
        types += "</xs:complexType>"
    heads = element.format("large", "t0") + '<xs:element name="code" type="xs:string"/>'
    (tmp_path / "a.xsd").write_text(SCHEMA.format(heads + types))
    result = run(tmp_path, "a.xsd")
    assert result.returncode == 2
    assert result.stderr == (
        "Warning : More than one head element was found in the schema definition."
        " Attempting to generate multiple file definitions\n"
        "Error : Record of elarge exceeds 5000000 items\n"
        "\nSuccessfully converted 1 of 2 schema head element(s).\n\n"
        "1 error(s), 1 warning(s)\n"
    )
    assert (tmp_path / "a.cpy").read_text() == RECORD


def converted_under_a_limit(directory: Path, components: str) -> tuple[bool, str]:
    """Converts the head element large, and the head element code after it. Returns whether
    large is below the limits, and the copybook.
    """
    tiny = '<xs:element name="code" type="xs:string"/>'
    (directory / "a.xsd").write_text(SCHEMA.format(components + tiny))
    result = run(directory, "a.xsd", "-nocountin")
    error = "Error : Record of large exceeds 5000000 items\n"
    is_below = error not in result.stderr
    heads = 2 if is_below else 1
    assert result.stderr == (
        "Warning : More than one head element was found in the schema definition."
        " Attempting to generate multiple file definitions\n"
        + ("" if is_below else error)
        + f"\nSuccessfully converted {heads} of 2 schema head element(s).\n\n"
        f"{2 - heads} error(s), 1 warning(s)\n"
    )
    assert result.returncode == 3 - heads
    return is_below, (directory / "a.cpy").read_text()


CODE = '       01 code PIC X(80) identified by "code".\n\n'


@pytest.mark.parametrize(("layers", "is_below"), [(21, True), (22, False)])
def test_references_to_empty_groups_are_counted(
    tmp_path: Path, layers: int, is_below: bool
) -> None:
    skip_if_instrumented()
    # Each layer refers twice to the next: 4,194,302 references with 21 layers, twice that with 22.
    reference = '<xs:group ref="g{}"/>'
    leaf = '<xs:element name="leaf" type="xs:string"/>'
    content = f"<xs:sequence>{leaf}{reference.format(0) * 2}</xs:sequence>"
    components = f'<xs:element name="large"><xs:complexType>{content}</xs:complexType></xs:element>'
    for layer in range(layers):
        below = reference.format(layer + 1) * 2 if layer + 1 < layers else ""
        components += f'<xs:group name="g{layer}"><xs:sequence>{below}</xs:sequence></xs:group>'
    record = (
        '       01 large identified by "large".\n'
        '        02 leaf PIC X(80) identified by "leaf".\n\n'
    )
    expected = (True, record + CODE) if is_below else (False, CODE)
    assert converted_under_a_limit(tmp_path, components) == expected


def test_bytes_of_values_are_counted(tmp_path: Path) -> None:
    # A value of a megabyte, and a thousand elements that can have it: with their names, and
    # those of the values, this is more than a gigabyte.
    value = f'<xs:enumeration value="{"v" * 1_000_000}"/><xs:maxLength value="9"/>'
    members = "".join(f'<xs:element name="e{i}" type="t"/>' for i in range(1000))
    content = f"<xs:complexType><xs:sequence>{members}</xs:sequence></xs:complexType>"
    components = f'<xs:element name="large">{content}</xs:element>'
    components += f'<xs:simpleType name="t"><xs:restriction base="xs:string">{value}'
    components += "</xs:restriction></xs:simpleType>"
    assert converted_under_a_limit(tmp_path, components) == (False, CODE)


def test_names_that_grow_with_each_union_are_counted(tmp_path: Path) -> None:
    # The name of a union's item repeats that of the union around it: 20 bytes more each time.
    types = "".join(
        f'<xs:simpleType name="t{i}"><xs:union memberTypes="t{i + 1}"/></xs:simpleType>'
        for i in range(15_000)
    )
    types += '<xs:simpleType name="t15000"><xs:restriction base="xs:string"/></xs:simpleType>'
    components = f'<xs:element name="large" type="t0"/>{types}'
    assert converted_under_a_limit(tmp_path, components) == (False, CODE)


@pytest.mark.parametrize(("heads", "is_below"), [(18, True), (30, False)])
def test_members_that_are_listed_twice_are_counted(
    tmp_path: Path, heads: int, is_below: bool
) -> None:
    # Each member is listed twice, and so are the members in it: 2 to the power of the heads.
    member = '<xs:element name="{}" type="xs:string"/>'
    content = f"<xs:complexType><xs:sequence>{member}</xs:sequence></xs:complexType>"
    components = f'<xs:element name="large">{content.format("h0")}</xs:element>'
    for i in range(heads):
        components += f'<xs:element name="h{i}" type="xs:anyType" abstract="true"/>'
        components += f'<xs:element name="m{i}" substitutionGroup="h{i}">'
        components += content.format(f"h{i + 1}") + "</xs:element>"
    was_below, copybook = converted_under_a_limit(tmp_path, components)
    assert was_below == is_below
    innermost = f'identified by "h{heads}".'
    assert copybook.count(innermost) == (2**heads if is_below else 0)


def entity_bomb() -> str:
    """A schema of a few hundred bytes whose documentation expands to 100,000,000,000 characters."""
    entities = "".join(f'<!ENTITY e{i} "{f"&e{i - 1};" * 10 if i else "x"}">' for i in range(12))
    annotation = "<xs:annotation><xs:documentation>&e11;</xs:documentation></xs:annotation>"
    element = '<xs:element name="code" type="xs:string"/>'
    return f"<!DOCTYPE xs:schema [{entities}]>" + SCHEMA.format(annotation + element)


@pytest.mark.parametrize(
    ("args", "files"),
    [
        (["a.xsd"], {}),
        (["-v", "a.xsd"], {}),
        (["b.xsd"], {"b.xsd": SCHEMA.format('<xs:include schemaLocation="a.xsd"/>')}),
        (
            ["-v", "b.xml"],
            {
                "b.xml": '<code xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"'
                ' xsi:noNamespaceSchemaLocation="a.xsd"/>'
            },
        ),
    ],
)
def test_a_schema_whose_entities_expand_too_far_is_refused(
    tmp_path: Path, args: list[str], files: dict[str, str]
) -> None:
    (tmp_path / "a.xsd").write_text(entity_bomb())
    for name, content in files.items():
        (tmp_path / name).write_text(content)
    result = run(tmp_path, *args)
    assert result.returncode >= 1
    assert result.stderr.startswith(f"Fatal Error : {tmp_path}/a.xsd(Line 1, Col ")
    assert "more than '50000' entity expansions" in result.stderr


def test_an_included_file_reached_many_times_is_announced_each_time(tmp_path: Path) -> None:
    # Ten layers of two files, each of which includes both of the next layer.
    layers = 10
    for layer in range(layers):
        for side in "ab":
            content = f'<xs:simpleType name="t{layer}{side}"><xs:restriction base="xs:string"/>'
            below = "".join(f'<xs:include schemaLocation="{layer + 1}{s}.xsd"/>' for s in "ab")
            (tmp_path / f"{layer}{side}.xsd").write_text(
                SCHEMA.format((below if layer + 1 < layers else "") + content + "</xs:simpleType>")
            )
    (tmp_path / "m.xsd").write_text(
        SCHEMA.format('<xs:include schemaLocation="0a.xsd"/><xs:element name="m" type="t9b"/>')
    )
    result = run(tmp_path, "m.xsd")
    assert result.returncode == 0
    # The main file, the top of the layers, and twice as many loads a layer down.
    assert result.stdout.count("Validating ") == 1 + sum(2**layer for layer in range(layers))
