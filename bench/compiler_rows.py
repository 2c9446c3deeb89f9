"""The rows of the bundled compiler, for run.py.

Its own part of a run is the cost of the run less the cost of
`zbc --version`, which only starts."""

import shutil
import statistics

from measure import (
    GROWTH_GOAL,
    Result,
    RunFailed,
    compared,
    measure_time,
    median_usage,
    result_of,
)

PEER_GOAL = 1
START_GOAL = 2  # milliseconds over the empty program
OPERANDS_GOAL = 2  # for ten times the operands on the same text

# The largest input that valgrind can count in some minutes.
MAX_COUNTED = 100_000


def compiler_command(bench, source, status=0):
    """Compiles a source; the dictionary is removed before each run. A run with
    another status than expected is an error."""
    bench.outputs.add(source.with_suffix(".xml"))
    command = [bench.zbc, "-C", "XMLGEN(WS)", source]
    got, _ = measure_time([str(word) for word in command])
    if got != status:
        raise RunFailed(f"zbc on {source.parent.name} ended with status {got}, not {status}")
    return command


def walls_of(pairs):
    return tuple(zip(*((ours.wall, base.wall) for ours, base in pairs)))


def peer_rows(sizes, quick):
    """A program against cobc, which only checks it."""

    def rows(bench, name):
        peer = shutil.which("cobc")
        if peer is None:
            raise RunFailed("cobc is not installed")
        for size in quick if bench.quick else sizes:
            source = bench.input("source", size)
            pairs = bench.alternate(
                compiler_command(bench, source), [peer, "-fsyntax-only", source]
            )
            label = f"{name} {size:,}"
            yield compared(bench, label, pairs, PEER_GOAL)
            if not bench.counts_instructions:
                usages = [ours for ours, _ in pairs]
                label += ", wall time"
                yield result_of(bench, label, *walls_of(pairs), PEER_GOAL, usages)

    return rows


def own_parts(bench, kind, size, status):
    """Usages of the runs, and the own part of each."""
    command = compiler_command(bench, bench.input(kind, size), status)
    pairs = bench.alternate(command, [bench.zbc, "--version"])
    return [run for run, _ in pairs], [run.cost - start.cost for run, start in pairs]


def growth_row(kind, sizes, quick, status=0, goal=GROWTH_GOAL):
    """The own part at ten times the input."""

    def rows(bench, name):
        for size in quick if bench.quick else sizes:
            if bench.counts_instructions and 10 * size > MAX_COUNTED:
                continue
            usages, many = own_parts(bench, kind, 10 * size, status)
            _, few = own_parts(bench, kind, size, status)
            label = f"{name} {size:,} to {10 * size:,}"
            yield result_of(bench, label, many, few, goal, usages)

    return rows


def memory_rows(bench, name):
    """Peak memory over the entries of a large program."""
    if bench.counts_instructions:
        return
    for size in (10_000, 100_000) if bench.quick else (100_000, 1_000_000):
        usage = bench.measure(compiler_command(bench, bench.input("source", size)))
        yield Result(f"{name} {size:,}", "B", usage.peak * 1e6 / size, 1, (), None, usage)


def start_rows(bench, name):
    """The cost of a short run less that of an empty program."""
    commands = {
        "--version": [bench.zbc, "--version"],
        "one item": compiler_command(bench, bench.input("source", 1)),
    }
    for label, command in commands.items():
        pairs = bench.alternate(command, [bench.empty])
        if bench.counts_instructions:
            unit, goal = bench.unit, None
            differences = [ours.cost - base.cost for ours, base in pairs]
        else:
            unit, goal = "ms", START_GOAL
            differences = [(ours.wall - base.wall) * 1000 for ours, base in pairs]
        usage = median_usage([ours for ours, _ in pairs])
        median = statistics.median(differences)
        yield Result(f"{name} {label}", unit, median, 1, (), goal, usage)


def shape_row(kind, small=10_000, quick=1_000, status=0):
    return growth_row(kind, (small,), (quick,), status)


def operands_row(kind):
    return growth_row(kind, (100,), (100,), goal=OPERANDS_GOAL)


ROWS = {
    "zbc-start": start_rows,
    "zbc-cobc": peer_rows((1_000, 10_000), (1_000,)),
    "zbc-source": growth_row("source", (1_000, 10_000, 100_000), (1_000,)),
    "zbc-memory": memory_rows,
    "zbc-redefines-one": shape_row("redefines-one"),
    "zbc-redefines-chain": shape_row("redefines-chain"),
    "zbc-renames": shape_row("renames"),
    "zbc-depending-on-one": shape_row("depending-on-one"),
    "zbc-qualified-own": shape_row("qualified-in-own-record"),
    "zbc-qualified-other": shape_row("qualified-in-other-record"),
    "zbc-qualified-one": shape_row("qualified-in-one-record"),
    "zbc-same-names": shape_row("same-names"),
    "zbc-conditions": shape_row("conditions"),
    "zbc-condition-values": shape_row("condition-values"),
    "zbc-deep": shape_row("deep-groups"),
    "zbc-pictures": shape_row("pictures"),
    "zbc-constants": shape_row("constants"),
    "zbc-lengths": shape_row("lengths"),
    "zbc-lengths-in-record": shape_row("lengths-in-record"),
    "zbc-table-keys": shape_row("table-keys"),
    "zbc-conditional": shape_row("conditional-lines"),
    "zbc-files": shape_row("file-descriptions"),
    "zbc-mistakes": shape_row("mistakes", status=1),
    "zbc-joined-literal": shape_row("joined-literal", status=1),
    "zbc-continued-literal": shape_row("continued-literal", status=1),
    "zbc-continued-literals": shape_row("continued-literals"),
    "zbc-one-line": shape_row("one-line"),
    "zbc-comment-lines": shape_row("comment-lines"),
    "zbc-tabs": shape_row("tabs"),
    "zbc-copy-statements": shape_row("copy-statements", 1_000, 300),
    "zbc-copy-members": shape_row("copy-members", 1_000, 300),
    "zbc-replacing-words": operands_row("replacing-words"),
    "zbc-replacing-entries": operands_row("replacing-entries"),
    "zbc-replacing-tags": operands_row("replacing-tags"),
    "zbc-replacing-parts": operands_row("replacing-parts"),
}
