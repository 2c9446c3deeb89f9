"""The rows of data, for run.py: fdrec on files of records and documents."""

import shutil
import subprocess

import data_files
from measure import Result, RunFailed, compared, result_of

RECORDS = 200_000
QUICK_RECORDS = 20_000

# Rates are given as costs: three times as fast is a third of the cost.
GENERATE_GOALS = {"packed": 1 / 15, "text": 1 / 5}
EXPAT_GOAL = 1 / 3
FOREIGN_GOAL = 1 / 0.6
THREADS_GOAL = 1 / 1.7
MEMORY_MEGABYTES = 32
START_ITEMS = 1000
START_MILLISECONDS = 10

# 300 MB/s of records where memory is copied at 10 GB/s.
COPIES = 33

OPTIONS = ("--dialect", "gnucobol", "--encoding", "ascii")


def count_of(bench):
    return QUICK_RECORDS if bench.quick else RECORDS


def files_of(bench, shape):
    return data_files.write(bench.folder, shape, count_of(bench))


def command(bench, word, copybook, data, *options):
    return [bench.fdrec, word, *OPTIONS, *options, "-o", "/dev/null", copybook, data]


def document_of(bench, shape):
    """The records of a shape as a document."""
    copybook, data = files_of(bench, shape)
    document = data.with_suffix(".xml")
    if not document.exists():
        subprocess.run(
            [bench.fdrec, "to-xml", *OPTIONS, "-o", document, copybook, data], check=True
        )
    return copybook, document


def foreign(document):
    """The same document with line ends between elements, and the last part of each record
    first."""
    path = document.with_name("foreign-" + document.name)
    if path.exists():
        return path
    with document.open("rb") as source, path.open("wb") as out:
        for line in source:
            if line.startswith(b"<REC>"):
                body, last = line.rsplit(b"<REMARK", 1)
                remark = b"<REMARK" + last.removesuffix(b"</REC>\n")
                line = b"<REC>" + remark + body.removeprefix(b"<REC>") + b"</REC>\n"
                line = line.replace(b"><", b">\n  <")
            out.write(line)
    return path


def generate_rows(bench, name):
    """to-xml with GnuCOBOL's XML GENERATE on the same records."""
    cobc = shutil.which("cobc")
    if cobc is None:
        raise RunFailed("there is no cobc on the path")
    for shape, goal in GENERATE_GOALS.items():
        copybook, data = files_of(bench, shape)
        source = data_files.write_program(bench.folder, shape, data)
        program = source.with_suffix("")
        subprocess.run([cobc, "-x", "-free", "-O2", "-o", program, source], check=True)
        pairs = bench.alternate(command(bench, "to-xml", copybook, data), [program])
        yield compared(bench, f"{name} {shape}", pairs, goal)


def copy_rows(bench, name):
    """to-xml with copies of the same bytes."""
    copybook, data = files_of(bench, "mixed")
    base = [bench.reading, "copy", data, COPIES]
    pairs = bench.alternate(command(bench, "to-xml", copybook, data), base)
    yield compared(bench, f"{name} mixed", pairs, 1)


def expat_rows(bench, name):
    """from-xml with expat alone on the same document, as to-xml writes it and spelled in
    another way, and with the XML library's SAX2 parser."""
    copybook, document = document_of(bench, "mixed")
    ours = command(bench, "from-xml", copybook, document)
    pairs = bench.alternate(ours, [bench.reading, "expat", document])
    yield compared(bench, f"{name} mixed", pairs, EXPAT_GOAL)
    other = foreign(document)
    ours = command(bench, "from-xml", copybook, other)
    pairs = bench.alternate(ours, [bench.reading, "expat", other])
    yield compared(bench, f"{name} mixed, foreign spelling", pairs, FOREIGN_GOAL)
    pairs = bench.alternate(ours, [bench.bare, "parse", other])
    yield compared(bench, f"{name} mixed, foreign, with SAX2", pairs, None)


def json_rows(bench, name):
    """JSON with XML, both ways."""
    copybook, data = files_of(bench, "mixed")
    pairs = bench.alternate(
        command(bench, "to-json", copybook, data), command(bench, "to-xml", copybook, data)
    )
    yield compared(bench, f"{name} mixed, to-json with to-xml", pairs, None)


def thread_rows(bench, name):
    """Two threads with one, by the time on the clock."""
    if bench.counts_instructions:
        return
    copybook, data = files_of(bench, "mixed")
    one = command(bench, "to-xml", copybook, data)
    pairs = bench.alternate([*one, "--threads", "2"], one)
    walls = [[usage.wall for usage in usages] for usages in zip(*pairs)]
    ours = [ours for ours, _ in pairs]
    yield result_of(bench, f"{name} mixed", *walls, THREADS_GOAL, ours)
    peak = max(usage.peak for usage in ours)
    yield Result(f"{name}, peak memory", "MB", peak, 1, (), MEMORY_MEGABYTES, ours[0])


def start_rows(bench, name):
    """A run on an empty file with an empty program, for many items."""
    copybook = bench.folder / "start.cpy"
    items = "".join(f"           05 ITEM-{i} PIC X(8).\n" for i in range(START_ITEMS))
    copybook.write_text("       01 REC.\n" + items)
    data = bench.folder / "start.dat"
    data.write_bytes(b"")
    pairs = bench.alternate(command(bench, "to-xml", copybook, data), [bench.empty])
    if bench.counts_instructions:
        yield compared(bench, f"{name} {START_ITEMS:,}", pairs, None)
        return
    over = min((ours.wall - base.wall) * 1000 for ours, base in pairs)
    usage = pairs[0][0]
    yield Result(f"{name} {START_ITEMS:,}", "ms", over, 1, (), START_MILLISECONDS, usage)


ROWS = {
    "data-generate": generate_rows,
    "data-copy": copy_rows,
    "data-expat": expat_rows,
    "data-json": json_rows,
    "data-threads": thread_rows,
    "data-start": start_rows,
}
