"""The rows of fdrec, for run.py."""

from compiler_rows import compiler_command
from measure import GROWTH_GOAL, compared, result_of

SHOW_GOAL = 3  # of the compiler's run on the same source

FORMATS = {"table": (), "JSON": ("--json",), "page": ("--html",)}


def show_command(bench, source, options):
    output = bench.folder / "shown"
    bench.outputs.add(output)
    return [bench.fdrec, "show", *options, "-o", output, source]


def show_rows(bench, name):
    """Each format of `show` against the compiler, and ten times the items."""
    size = 10_000 if bench.quick else 100_000
    many = bench.input("one-record", size)
    few = bench.input("one-record", size // 10)
    for label, options in FORMATS.items():
        pairs = bench.alternate(show_command(bench, many, options), compiler_command(bench, many))
        yield compared(bench, f"{name} {size:,}, {label}", pairs, SHOW_GOAL)
        ours = [usage for usage, _ in pairs]
        others = bench.alternate(show_command(bench, few, options))
        costs = [usage.cost for usage in ours], [usage.cost for (usage,) in others]
        growth = f"{name} {size // 10:,} to {size:,}, {label}"
        yield result_of(bench, growth, *costs, GROWTH_GOAL, ours)


ROWS = {"fdrec-show": show_rows}
