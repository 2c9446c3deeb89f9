#!/usr/bin/python3
"""Measures fdmorph against the bare XML library and against itself, and the
bundled compiler against a peer and against itself.

    run.py FDMORPH BARE_LIBRARY [options]

Prints one line per row as it is finished; README.md says what the rows mean.
A missed goal is only marked and does not change the exit status: the numbers
are for reading, not for tests.
"""

import argparse
import fnmatch
import os
import sys
import tempfile

sys.dont_write_bytecode = True
import check_rows  # noqa: E402
import compiler_rows  # noqa: E402
import data_rows  # noqa: E402
import dictionary_rows  # noqa: E402
import record_rows  # noqa: E402
import schemas  # noqa: E402
from measure import (  # noqa: E402
    GROWTH_GOAL,
    Bench,
    Result,
    RunFailed,
    compared,
    result_of,
)

LIBRARY_GOAL = 1.15
TINY_GOAL = 1.3
VALIDATION_GOAL = 1.1
VALIDATION_MEGABYTES = 64
BYTES_PER_ITEM = 700


def library_row(kind, goal, sizes, quick):
    """Our run against the library's reads of the same file."""

    def rows(bench, name):
        for size in quick if bench.quick else sizes:
            label = f"{name} {size:,}" if size else name
            yield compared(bench, label, bench.pairs(kind, size), goal)

    return rows


def growth_row(kind, small, quick, options=()):
    """Our own part (our run less the library's) at ten times the input."""

    def rows(bench, name):
        size = quick if bench.quick else small
        many = bench.pairs(kind, 10 * size, options)
        few = bench.pairs(kind, size, options)
        own_many, own_few = ([a.cost - b.cost for a, b in pairs] for pairs in (many, few))
        label = f"{name} {size:,} to {10 * size:,}"
        usages = [ours for ours, _ in many]
        yield result_of(bench, label, own_many, own_few, GROWTH_GOAL, usages)

    return rows


def memory_per_item_row(options=()):
    """Peak memory of a large record whose schema is small."""

    def rows(bench, name):
        if bench.counts_instructions:
            return
        items = 100_000 if bench.quick else 1_000_000
        usage = bench.measure(bench.convert(bench.input("nested-record", items), options))
        label = f"{name} {items:,}"
        yield Result(label, "B", usage.peak * 1e6 / items, 1, (), BYTES_PER_ITEM, usage)

    return rows


def validation_rows(bench, name):
    """-V on a document against the library's two passes over it."""
    file = bench.input("document", bench.megabytes)
    pairs = bench.alternate([bench.fdmorph, "-V", file], [bench.bare, "sax", file])
    label = f"{name} {bench.megabytes:,} MB"
    result = compared(bench, label, pairs, VALIDATION_GOAL)
    yield result
    if bench.counts_instructions:
        return
    peak, usage = result.usage.peak, result.usage
    yield Result(label + ", peak memory", "MB", peak, 1, (), VALIDATION_MEGABYTES, usage)


def files_rows(kind, count):
    """A set of files against the library's reads of each file by itself, and
    against its reads of the main file, in which each file comes once."""

    def rows(bench, name):
        main = bench.input(kind, count)
        every = [main, *schemas.parts_of(main)]
        ours = bench.convert(main)
        pairs = bench.alternate(ours, [bench.bare, "schema", *every])
        yield compared(bench, f"{name} {len(every)}, each by itself", pairs, LIBRARY_GOAL)
        pairs = bench.alternate(ours, [bench.bare, "schema", main])
        yield compared(bench, f"{name} {len(every)}, all at once", pairs, None)

    return rows


UNIQUE = ("-unique",)
ROWS = {
    "tiny": library_row("tiny", TINY_GOAL, (0,), (0,)),
    "types": library_row("many-types", LIBRARY_GOAL, (1_000, 10_000), (1_000,)),
    "own-types": growth_row("many-types", 1_000, 300),
    "own-elements": growth_row("elements-without-references", 2_000, 1_000),
    "own-references": growth_row("elements-with-references", 2_000, 1_000),
    "own-record": growth_row("flat-record", 10_000, 2_000),
    "own-record-unique": growth_row("flat-record", 10_000, 2_000, UNIQUE),
    "own-shared-unique": growth_row("shared-names-record", 10_000, 2_000, UNIQUE),
    "own-nested": growth_row("nested-record", 10_000, 10_000),
    "own-nested-unique": growth_row("nested-record", 10_000, 10_000, UNIQUE),
    "own-enumeration": growth_row("enumeration", 1_000, 1_000),
    "own-refused": growth_row("refused-items", 2_000, 2_000),
    "own-type-chain": growth_row("type-chain", 1_000, 1_000),
    "own-restriction-chain": growth_row("restriction-chain", 1_000, 1_000),
    "own-extension-chain": growth_row("extension-chain", 200, 200),
    "own-anonymous-types": growth_row("nested-anonymous-types", 1_000, 300),
    "own-model-groups": growth_row("nested-model-groups", 1_000, 300),
    "layered-files": files_rows("layered-files", 124),
    "circular-files": files_rows("circular-files", 40),
    "item-memory": memory_per_item_row(),
    "item-memory-unique": memory_per_item_row(UNIQUE),
    "validation": validation_rows,
    **dictionary_rows.ROWS,
    **compiler_rows.ROWS,
    **check_rows.ROWS,
    **record_rows.ROWS,
    **data_rows.ROWS,
}


def number(value):
    return f"{value:,.0f}" if abs(value) >= 100 else f"{value:.3g}"


COLUMNS = "{:<42} {:>12} {:>9} {:>7} {:>13} {:>6} {:<4} {:>8} {:>8}"


def print_header(bench):
    heads = ("row", "ours", "base", "ratio", "pairs", "goal", "", "wall s", "peak MB")
    if bench.counts_instructions:
        heads = (*heads[:-2], "", "")
    print(COLUMNS.format(*heads), flush=True)


def print_result(result):
    is_missed = result.goal is not None and not result.ratio <= result.goal
    spread = f"{min(result.ratios):.2f}-{max(result.ratios):.2f}" if result.ratios else ""
    is_quotient = bool(result.ratios)
    timed = result.usage.wall > 0
    print(
        COLUMNS.format(
            result.name,
            f"{number(result.ours)} {result.unit}",
            number(result.base) if is_quotient else "",
            f"{result.ratio:.2f}" if is_quotient else "",
            spread,
            "-" if result.goal is None else f"{result.goal:g}",
            "miss" if is_missed else "",
            f"{result.usage.wall:.2f}" if timed else "",
            f"{result.usage.peak:.0f}" if timed else "",
        ).rstrip(),
        flush=True,
    )


def parse_arguments():
    parser = argparse.ArgumentParser(description="Measures fdmorph against the bare library.")
    parser.add_argument("fdmorph")
    parser.add_argument("bare_library")
    parser.add_argument("--zbc", help="the compiler (of the build that fdmorph is of)")
    parser.add_argument("--fdrec", help="the program for records (of the same build)")
    parser.add_argument("--only", metavar="NAME", action="append", help='a row, or rows: "own-*"')
    parser.add_argument("--quick", action="store_true", help="three pairs, smaller inputs")
    parser.add_argument("--runs", type=int, metavar="N", help="pairs of samples (7)")
    parser.add_argument("--document-size", type=int, metavar="MB", help="for validation (100)")
    parser.add_argument("--instructions", action="store_true", help="count with valgrind, one run")
    arguments = parser.parse_args()
    for pattern in arguments.only or ():
        if not fnmatch.filter(ROWS, pattern):
            parser.error(f"no row is named {pattern}")
    build = os.path.dirname(os.path.dirname(os.path.abspath(arguments.fdmorph)))
    if arguments.zbc is None:
        arguments.zbc = os.path.join(build, "compiler", "zbc")
    if arguments.fdrec is None:
        arguments.fdrec = os.path.join(build, "fdrec", "fdrec")
    if arguments.runs is None:
        arguments.runs = 3 if arguments.quick else 7
    if arguments.document_size is None:
        arguments.document_size = 10 if arguments.quick else 100
    return arguments


def selected_rows(patterns):
    return [name for pattern in patterns for name in fnmatch.filter(ROWS, pattern)]


def main():
    arguments = parse_arguments()
    with tempfile.TemporaryDirectory(prefix="fdmorph-bench-") as folder:
        bench = Bench(arguments, folder)
        print_header(bench)
        for name in selected_rows(arguments.only or ["*"]):
            try:
                for result in ROWS[name](bench, name):
                    print_result(result)
            except RunFailed as failure:
                print(f"{name}: {failure}", flush=True)


if __name__ == "__main__":
    main()
