"""The rows of `fdrec check`, for run.py.

It may cost 1.3 times the library's load of the schema and three runs of the
compiler on the copybook. Its own part is the cost of the run less the load."""

from measure import GROWTH_GOAL, result_of

LOAD_FACTOR = 1.3
COMPILER_FACTOR = 3
UNIQUE = ("-unique",)


def copybook_of(bench, schema):
    """The copybook that fdmorph makes of the schema, made once."""
    copybook = schema.with_suffix(".cpy")
    if not copybook.exists():
        bench.measure([bench.fdmorph, *UNIQUE, "-noprompt", "-c", copybook, schema])
    return copybook


def samples(bench, kind, size):
    """Usages of the check, of the load and of the compiler."""
    schema = bench.input(kind, size)
    copybook = copybook_of(bench, schema)
    return bench.alternate(
        [bench.fdrec, "check", schema, copybook],
        [bench.bare, "schema", schema],
        [bench.zbc, copybook],
    )


def allowed(load, compiler):
    return LOAD_FACTOR * load.cost + COMPILER_FACTOR * compiler.cost


def check_row(kind, sizes, quick):
    """A check against what it may cost."""

    def rows(bench, name):
        for size in quick if bench.quick else sizes:
            found = samples(bench, kind, size)
            ours = [check.cost for check, _, _ in found]
            base = [allowed(load, compiler) for _, load, compiler in found]
            usages = [check for check, _, _ in found]
            yield result_of(bench, f"{name} {size:,}", ours, base, 1, usages)

    return rows


def growth_row(kind, size, quick):
    """The own part at ten times the input."""

    def rows(bench, name):
        few = quick if bench.quick else size
        parts = []
        for each in (10 * few, few):
            found = samples(bench, kind, each)
            parts.append([check.cost - load.cost for check, load, _ in found])
            if each != few:
                usages = [check for check, _, _ in found]
        label = f"{name} {few:,} to {10 * few:,}"
        yield result_of(bench, label, *parts, GROWTH_GOAL, usages)

    return rows


ROWS = {
    "check-nested": check_row("nested-record", (100_000,), (10_000,)),
    "check-flat": check_row("flat-record", (10_000,), (2_000,)),
    "check-types": check_row("many-types", (1_000,), (300,)),
    "own-check": growth_row("nested-record", 10_000, 2_000),
}
