"""Messages on a terminal, and floods of messages."""

from __future__ import annotations

import os
import pty
import subprocess
from pathlib import Path

import pytest
from support.harness import TIME_LIMIT, environment, program_under_test, run

SCHEMA = '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">{}</xs:schema>'


def on_a_terminal(directory: Path, *args: str, locale: str) -> bytes:
    """What a terminal gets that is the output and the error stream of a run."""
    terminal, side = pty.openpty()
    with subprocess.Popen(
        [program_under_test(), *args],
        cwd=directory,
        stdin=subprocess.DEVNULL,
        stdout=side,
        stderr=side,
        env=environment(LC_ALL=locale),
    ) as process:
        os.close(side)
        shown = b""
        try:
            while piece := os.read(terminal, 4096):
                shown += piece
        except OSError:  # what Linux reports once the other side is closed
            pass
        process.wait(TIME_LIMIT)
    os.close(terminal)
    return shown


# XML 1.0 allows C1 characters and DEL in names of files and in values, but no ESC
# (Extensible Markup Language 1.0, 2.2); a file name may hold any.
NAME = "a\x1b[2J\u009b31m\u00db.xsd"


@pytest.mark.parametrize(
    ("locale", "shown"),
    [
        ("C.UTF-8", "a?[2J?31m\u00db.xsd".encode()),
        # Each byte is a character; two of them are in the range of C1.
        ("C", b"a?[2J\xc2?31m\xc3?.xsd"),
    ],
)
def test_a_terminal_gets_no_control_characters_of_names(
    tmp_path: Path, locale: str, shown: bytes
) -> None:
    output = on_a_terminal(tmp_path, "-v", NAME, locale=locale)
    assert b'Performing validation of "' + shown + b'", ignoring other options\r\n' in output
    assert b"\x1b" not in output


def test_a_terminal_gets_no_control_characters_of_values(tmp_path: Path) -> None:
    group = '<xs:group ref="g&#x9b;m"/>'
    element = f'<xs:element name="e"><xs:complexType>{group}</xs:complexType></xs:element>'
    (tmp_path / "a.xsd").write_text(SCHEMA.format(element))
    output = on_a_terminal(tmp_path, "a.xsd", locale="C.UTF-8")
    assert b"g?m" in output
    assert b"\xc2\x9b" not in output


def test_other_streams_get_every_byte(tmp_path: Path) -> None:
    result = run(tmp_path, program_under_test(), "-v", NAME)
    assert f'Performing validation of "{NAME}", '.encode() in result.stdout


@pytest.mark.skipif("FDMORPH_LONG_TESTS" not in os.environ, reason="takes a minute")
def test_five_million_messages_are_written_and_the_rest_is_counted(tmp_path: Path) -> None:
    # Each of two heads has 12 * 12 * 12 * 12 = 20,736 elements with 144 wildcards each, which have
    # a warning each; another warns of the second head.
    element = '<xs:element name="e{}" type="{}"/>'
    types = ""
    for layer in range(4):
        members = "".join(element.format(i, f"t{layer + 1}") for i in range(12))
        types += f'<xs:complexType name="t{layer}"><xs:sequence>{members}</xs:sequence>'
        types += "</xs:complexType>"
    wildcards = '<xs:any namespace="##other" processContents="skip"/>' * 144
    last = element.format("", "xs:string") + wildcards
    types += f'<xs:complexType name="t4"><xs:sequence>{last}</xs:sequence></xs:complexType>'
    heads = "".join(f'<xs:element name="h{i}" type="t0"/>' for i in range(2))
    (tmp_path / "a.xsd").write_text(SCHEMA.format(heads + types))
    with subprocess.Popen(
        [program_under_test(), "a.xsd"],
        cwd=tmp_path,
        stdin=subprocess.DEVNULL,
        stdout=subprocess.DEVNULL,
        stderr=subprocess.PIPE,
        env=environment(),
    ) as process:
        assert process.stderr is not None
        warnings, end = 0, b""
        for line in process.stderr:
            warnings += line.startswith(b"Warning : ")
            end = (end + line)[-200:]
    assert warnings == 5_000_001
    assert end.endswith(
        b"\nWarning : Further messages are counted but not shown\n"
        b"\nSuccessfully converted 2 of 2 schema head element(s).\n\n"
        b"0 error(s), 5971970 warning(s)\n"
    )
    assert process.returncode == 255
