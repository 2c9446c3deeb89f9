"""The rows of fdrec, for run.py."""

from compiler_rows import compiler_command
from measure import GROWTH_GOAL, compared, result_of

COMMAND_GOAL = 3  # of the compiler's run on the same source

SHOW_FORMATS = {"table": ("show",), "JSON": ("show", "--json"), "page": ("show", "--html")}
PLAIN_FORMATS = {"fixed": ("plain",), "free": ("plain", "--free")}


def record_command(bench, source, words):
    output = bench.folder / "written"
    bench.outputs.add(output)
    return [bench.fdrec, *words, "-o", output, source]


def rows_of(formats):
    """Each output of a command against the compiler, and ten times the items."""

    def rows(bench, name):
        size = 10_000 if bench.quick else 100_000
        many = bench.input("one-record", size)
        few = bench.input("one-record", size // 10)
        for label, words in formats.items():
            pairs = bench.alternate(
                record_command(bench, many, words), compiler_command(bench, many)
            )
            yield compared(bench, f"{name} {size:,}, {label}", pairs, COMMAND_GOAL)
            ours = [usage for usage, _ in pairs]
            others = bench.alternate(record_command(bench, few, words))
            costs = [usage.cost for usage in ours], [usage.cost for (usage,) in others]
            growth = f"{name} {size // 10:,} to {size:,}, {label}"
            yield result_of(bench, growth, *costs, GROWTH_GOAL, ours)

    return rows


ROWS = {"fdrec-show": rows_of(SHOW_FORMATS), "fdrec-plain": rows_of(PLAIN_FORMATS)}
