"""Feeds fdrec files and documents that are cut or changed at random.

No run crashes, the records without fault come out, and the summary is right. Other spellings of a
document give the same bytes.
"""

from __future__ import annotations

import random
import re
from pathlib import Path
from subprocess import CompletedProcess
from typing import NamedTuple

import pytest
from support import harness
from support.data_runs import check_summary, fdrec, run_all, write_copybook

# Files that are cut.

FORMATS = ["fixed", "rdw", "bdw", "gnucobol-variable", "lines"]
ASCII = ["--dialect", "gnucobol", "--encoding", "ascii"]


def cuts(first: int, last: int) -> range:
    """The places to cut at; every fourth with a sanitizer, which makes a run slow to start."""
    is_slow = harness.is_instrumented(harness.program_under_test("FDREC"))
    return range(first, last + 1, 4 if is_slow else 1)


class File(NamedTuple):
    data: bytes
    ends: list[int]  # of the records


def make_file(form: str, records: list[bytes]) -> File:
    """The records; with bdw the second and the third share a block."""
    data = b""
    ends = []
    for number, record in enumerate(records):
        size = len(record)
        if form == "bdw" and number != 2:
            block = (size + 8) + (size + 4 if number == 1 else 0)
            data += block.to_bytes(2, "big") + bytes(2)
        if form in ("rdw", "bdw"):
            data += (size + 4).to_bytes(2, "big") + bytes(2)
        if form == "gnucobol-variable":
            data += size.to_bytes(2, "big") + bytes(2)
        data += record
        if form == "lines":
            data += b"\n"
        ends.append(len(data))
    return File(data, ends)


@pytest.mark.parametrize("form", FORMATS)
def test_files_that_are_cut_give_their_complete_records(form: str, tmp_path: Path) -> None:
    write_copybook(tmp_path, "05 A PIC X", "05 N PIC 99")
    values = [("A", 10), ("B", 20), ("C", 30), ("D", 40)]
    file = make_file(form, [f"{a}{n}".encode() for a, n in values])
    texts = [f"<R><A>{a}</A><N>{n}</N></R>\n".encode() for a, n in values]

    def check(cut: int) -> None:
        options = ["--lines", "--format", form, *ASCII]
        result = fdrec(tmp_path, file.data[:cut], "to-xml", *options)
        complete = sum(end <= cut for end in file.ends)
        # The last line needs no line feed.
        if form == "lines" and cut + 1 in file.ends:
            complete += 1
        is_partial = cut not in (0, *file.ends) and not (form == "lines" and cut + 1 in file.ends)
        # Between the records of a block the rest of it is missing.
        is_partial |= form == "bdw" and complete == 2 and cut == file.ends[1]
        assert result.stdout == b"".join(texts[:complete]), cut
        assert result.returncode == int(is_partial), cut
        *errors, summary = result.stderr.decode().splitlines() or [""]
        if not is_partial:
            assert result.stderr == b""
            return
        assert summary == (
            f"fdrec: {complete + 1} record{'s' if complete else ''} read, 1 with errors"
        )
        assert len(errors) == 1
        assert errors[0].startswith(f"fdrec: -: record {complete + 1}, byte "), errors
        code = "digit" if form == "lines" else "frame"
        assert errors[0].endswith(f" [{code}]"), (cut, errors)

    run_all((lambda cut=cut: check(cut)) for cut in cuts(0, len(file.data)))


XML = """<?xml version="1.0"?>
<all xmlns:p="urn:p"><!-- c --><R><A>x</A><N>1</N></R>
<R><N>&#50;</N><A><![CDATA[y]]></A></R></all>
"""


def test_xml_that_is_cut_gives_its_complete_records(tmp_path: Path) -> None:
    write_copybook(tmp_path, "05 A PIC X", "05 N PIC 9")
    ends = [match.end() for match in re.finditer("</R>", XML)]
    root_end = XML.index("</all>") + len("</all>")

    def check(cut: int) -> None:
        result = fdrec(tmp_path, XML[:cut].encode(), "from-xml", *ASCII)
        complete = sum(end <= cut for end in ends)
        assert result.stdout == b"x1y2"[: 2 * complete], cut
        if cut >= root_end:
            assert (result.returncode, result.stderr) == (0, b""), cut
            return
        check_summary(result, complete)
        assert result.stderr.decode().splitlines()[-1].endswith(" 1 with errors"), cut
        assert b" [xml]\n" in result.stderr, cut

    run_all((lambda cut=cut: check(cut)) for cut in cuts(1, len(XML)))


JSON = '{"A":"x","N":1}\n{"N": "2" , "A":"\\u0079"}\n'


def test_json_that_is_cut_gives_its_complete_records(tmp_path: Path) -> None:
    write_copybook(tmp_path, "05 A PIC X", "05 N PIC 9")
    ends = [at for at, character in enumerate(JSON) if character == "\n"]

    def check(cut: int) -> None:
        result = fdrec(tmp_path, JSON[:cut].encode(), "from-json", *ASCII)
        complete = sum(end <= cut for end in ends)
        assert result.stdout == b"x1y2"[: 2 * complete], cut
        is_partial = cut != 0 and cut not in ends and cut - 1 not in ends
        assert result.returncode == int(is_partial), cut
        check_summary(result, complete)
        assert result.stderr.count(b" [json]\n") == int(is_partial), cut

    run_all((lambda cut=cut: check(cut)) for cut in cuts(0, len(JSON)))


# Random bytes.

KINDS = [
    "05 A PIC X(3)",
    "05 B PIC S9(3)V9",
    "05 C PIC S9(5) COMP-3",
    "05 D PIC S9(4) COMP",
    "05 E COMP-1",
    "05 F PIC N(2)",
    "05 K PIC 9",
    "05 T OCCURS 0 TO 3 DEPENDING ON K",
    "10 U PIC 9(2)",
    "05 V PIC X(2)",
    "05 W REDEFINES V PIC 9(3) COMP-3",
]
RULES = ["--when", "W: A = 'ABC'", "--when", "V:"]
GOOD = bytes.fromhex("C1C2C3F0F1F2C300123C0001411000000041004202F1F2F3F4F5F6F7C3")


def mutated(random_source: random.Random, data: bytes, count: int) -> bytes:
    changed = bytearray(data)
    for _ in range(count):
        changed[random_source.randrange(len(changed))] = random_source.randrange(256)
    return bytes(changed)


@pytest.mark.parametrize("form", FORMATS)
def test_random_bytes_are_converted_or_told(form: str, tmp_path: Path) -> None:
    write_copybook(tmp_path, *KINDS)
    source = random.Random(form)
    options = ["--format", form, "--max-errors", "0", *RULES]
    if form == "lines":
        options += ["--encoding", "latin-1"]
    inputs = []
    for _ in range(4):
        records = [source.randbytes(source.randrange(40)) for _ in range(60)]
        inputs.append(b"".join(records))
        inputs.append(make_file(form, records).data)
        records = [mutated(source, GOOD, source.randrange(3)) for _ in range(60)]
        inputs.append(make_file(form, records).data)

    def check(data: bytes) -> None:
        result = fdrec(tmp_path, data, "to-json", *options)
        stderr = result.stderr
        if form == "lines":
            warning, _, stderr = stderr.partition(b"\n")
            assert warning.endswith(b"[lines]")
        converted = result.stdout.count(b"\n")
        check_summary(CompletedProcess([], result.returncode, b"", stderr), converted)
        back = fdrec(tmp_path, result.stdout, "from-json", *options)
        again = fdrec(tmp_path, back.stdout, "to-json", *options)
        if form != "lines":  # where a line feed may be in a number
            assert back.returncode == 0, harness.readable(back.stderr)
            assert again.stdout == result.stdout

    run_all((lambda data=data: check(data)) for data in inputs)


def test_random_documents_are_converted_or_told(tmp_path: Path) -> None:
    write_copybook(tmp_path, *KINDS)
    source = random.Random(1)
    records = "".join(
        f"<R><A>AB</A><B>{at}.5</B><C>-{at}</C><D>{at}</D><E>1.5</E><F>x</F><K>1</K>"
        f"<T><U>{at % 100}</U></T><V>v</V></R>\n"
        for at in range(20)
    )
    lines = "".join(
        f'{{"A":"AB","B":{at}.5,"C":-{at},"D":{at},"E":1.5,"F":"x","K":1,"T":[{{"U":{at}}}],'
        '"V":"v"}\n'
        for at in range(100)
    )
    options = ["--max-errors", "0", *RULES]
    runs = []
    for _ in range(40):
        runs.append(("from-xml", mutated(source, f"<a>{records}</a>".encode(), 1)))
    for _ in range(10):
        runs.append(("from-xml", source.randbytes(500)))
        runs.append(("from-json", mutated(source, lines.encode(), 60)))
        runs.append(("from-json", source.randbytes(5000)))

    def check(command: str, data: bytes) -> None:
        result = fdrec(tmp_path, data, command, *options)
        assert len(result.stdout) % len(GOOD) == 0
        check_summary(result, len(result.stdout) // len(GOOD))

    run_all((lambda run=run: check(*run)) for run in runs)


# Other spellings of one document.

PLAIN = "<r:R xmlns:r='urn:r'><r:A>\u00e4&amp;</r:A><r:N>12</r:N><r:G><r:B>b</r:B></r:G></r:R>"
SPELLINGS = {
    "default namespace": "<R xmlns='urn:r'><A>\u00e4&amp;</A><N>12</N><G><B>b</B></G></R>",
    "other prefixes": "<x:R xmlns:x='urn:r' xmlns:y='urn:r'><y:A>\u00e4&amp;</y:A><x:N>12</x:N>"
    "<G xmlns='urn:r'><B>b</B></G></x:R>",
    "other order": "<R xmlns='urn:r'><G><B>b</B></G><N>12</N><A>\u00e4&amp;</A></R>",
    "blanks": "\n<R\txmlns = 'urn:r' >\n <A\n>\u00e4&amp;</A >\n"
    "<N> 12\n</N><G>\n<B>b</B> </G></R\n>",
    "references": "<R xmlns='urn&#58;r'><A>&#xE4;&#38;</A><N>&#49;2</N><G><B>&#98;</B></G></R>",
    "sections": "<R xmlns='urn:r'><A><![CDATA[\u00e4&]]></A>"
    "<N>1<![CDATA[2]]></N><G><B>b</B></G></R>",
    "comments": "<?p x?><R xmlns='urn:r'><!-- A --><A>\u00e4<!-- < -->&amp;</A><N>1<?p?>2</N>"
    "<G><B>b</B></G></R><!-- end -->",
    "wrapper": "<w><R xmlns='urn:r'><A>\u00e4&amp;</A><N>12</N><G><B>b</B></G></R></w>",
}


@pytest.mark.parametrize("encoding", ["utf-8", "utf-16", "iso-8859-1", "windows-1252"])
def test_spellings_of_a_document_give_the_same_bytes(encoding: str, tmp_path: Path) -> None:
    write_copybook(tmp_path, "05 A PIC X(4)", "05 N PIC 9(4)", "05 G", "10 B PIC X(2)")
    expected = bytes.fromhex("43504040F0F0F1F28240")
    for name, text in {"plain": PLAIN, **SPELLINGS}.items():
        document = f"<?xml version='1.0' encoding='{encoding}'?>{text}".encode(encoding)
        result = fdrec(tmp_path, document, "from-xml", "--namespace", "urn:r")
        assert (result.returncode, result.stderr) == (0, b""), name
        assert result.stdout == expected, name
