"""COBOL sources for generate.py: one like that of a program, and one for each
construct, which repeats it many times."""

import itertools

HEAD = (
    "IDENTIFICATION DIVISION.",
    "PROGRAM-ID. BENCH.",
    "DATA DIVISION.",
    "WORKING-STORAGE SECTION.",
)
TAIL = ("PROCEDURE DIVISION.", "    STOP RUN.")

MARGIN = " " * 7
MAX_LEVEL = 49


def write_lines(path, lines):
    with open(path, "w", encoding="utf-8") as file:
        file.writelines(f"{MARGIN}{line}\n" for line in lines)
    return path


def write_program(path, entries, head=HEAD):
    """A program in fixed format; its lines begin in column 8."""
    return write_lines(path, itertools.chain(head, entries, TAIL))


# --- A program ---------------------------------------------------------------

RECORD_SIZE = 20  # entries of a record, its two conditions among them


def order_record(number):
    n = f"-{number}"
    yield f"01  ORDER{n}."
    yield f"    05  ORDER-KEY{n}."
    yield f'        10  REGION{n} PIC XX VALUE "EU".'
    yield f"        10  ORDER-NUMBER{n} PIC 9(8)."
    yield f"    05  KEY-TEXT{n} REDEFINES ORDER-KEY{n} PIC X(10)."
    yield f"    05  CUSTOMER{n}."
    yield f"        10  CUSTOMER-NAME{n} PIC X(30) VALUE SPACES."
    yield f"        10  DELIVERY{n}."
    yield f"            15  STREET{n} PIC X(40)."
    yield f"            15  ZIP-CODE{n} PIC 9(5)."
    yield f'    05  ORDER-STATE{n} PIC X VALUE "O".'
    yield f'        88  IS-OPEN{n} VALUE "O".'
    yield f'        88  IS-CLOSED{n} VALUES "S" "P" THRU "R".'
    yield f"    05  QUANTITY{n} PIC S9(4) COMP."
    yield f"    05  UNIT-PRICE{n} PIC S9(7)V99 COMP-3 VALUE ZERO."
    yield f"    05  TOTAL-SHOWN{n} PIC ZZZ,ZZ9.99-."
    yield f"    05  DISCOUNT{n} PIC S9(3)V99 OCCURS 12 TIMES."
    yield f"    05  LINE-COUNT{n} PIC 9(3) COMP-5."
    yield "    05  FILLER PIC X(6)."
    yield f"    05  ORDER-LINE{n} PIC X(12) OCCURS 1 TO 50 TIMES"
    yield f"            DEPENDING ON LINE-COUNT{n}."


def varied(path, count):
    """About `count` entries in records of twenty; at least one."""
    if count < RECORD_SIZE:
        return write_program(path, (f"01  ITEM-{i} PIC X(8)." for i in range(count)))
    records = map(order_record, range(count // RECORD_SIZE))
    return write_program(path, itertools.chain.from_iterable(records))


def one_record(path, count):
    """About `count` entries of the same kind in one record."""

    def entries():
        yield "01  ALL-ORDERS."
        for i in range(count // RECORD_SIZE):
            for line in order_record(i):
                yield line.replace("01  ", "  03  ", 1) if line.startswith("01") else line

    return write_program(path, entries())


# --- One construct, many times -----------------------------------------------


def in_record(items):
    return itertools.chain(["01  RECORD-OF-ALL."], items)


def redefines_one(path, count):
    """`count` items that redefine the same one."""
    aliases = (f"    05  ALIAS-{i} REDEFINES FIRST-ITEM PIC 9(8)." for i in range(count))
    items = itertools.chain(["    05  FIRST-ITEM PIC X(8)."], aliases)
    return write_program(path, in_record(items))


def redefines_chain(path, count):
    """`count` items, each of which redefines the one before."""
    aliases = (f"    05  ALIAS-{i + 1} REDEFINES ALIAS-{i} PIC 9(8)." for i in range(count))
    items = itertools.chain(["    05  ALIAS-0 PIC X(8)."], aliases)
    return write_program(path, in_record(items))


def renames(path, count):
    """`count` items of level 66 over the same two items."""
    head = ["    05  FIRST-ITEM PIC X.", "    05  LAST-ITEM PIC X."]
    aliases = (f"66  ALIAS-{i} RENAMES FIRST-ITEM THRU LAST-ITEM." for i in range(count))
    return write_program(path, in_record(itertools.chain(head, aliases)))


def table(name, depends_on):
    yield f"    05  {name} PIC X OCCURS 1 TO 9 TIMES"
    yield f"            DEPENDING ON {depends_on}."


def depending_on_one(path, count):
    """`count` tables that depend on the same item, each in a record of its own."""

    def entries():
        yield "01  SIZE-OF-ALL PIC 9."
        for i in range(count):
            yield f"01  RECORD-{i}."
            yield from table(f"SLOT-{i}", "SIZE-OF-ALL")

    return write_program(path, entries())


def qualified_in_own_record(path, count):
    """`count` records with items of the same names: the size of each table is
    the one in its own record."""

    def entries():
        for i in range(count):
            yield f"01  RECORD-{i}."
            yield "    05  SLOTS PIC 9."
            yield from table("SLOT", f"SLOTS OF RECORD-{i}")

    return write_program(path, entries())


def qualified_in_other_record(path, count):
    """The same with each table in a record apart from its size."""

    def entries():
        for i in range(count):
            yield f"01  SIZES-{i}."
            yield "    05  SLOTS PIC 9."
        for i in range(count):
            yield f"01  RECORD-{i}."
            yield from table("SLOT", f"SLOTS OF SIZES-{i}")

    return write_program(path, entries())


def qualified_in_one_record(path, count):
    """The same with all sizes in one record, a group for each, and the tables
    in its other groups."""

    def entries():
        for i in range(count):
            yield f"  03  GROUP-{i}."
            yield "    05  SLOTS PIC 9."
        for i in range(count):
            yield f"  03  TABLE-{i}."
            yield from table("SLOT", f"SLOTS OF GROUP-{i}")

    return write_program(path, in_record(entries()))


def same_names(path, count):
    """One record of `count` items of one name, and a reference to another."""
    items = itertools.repeat("    05  ITEM PIC X.", count)
    ends = itertools.chain(["    05  SLOTS PIC 9."], items, table("SLOT", "SLOTS"))
    return write_program(path, in_record(ends))


def conditions(path, count):
    """One item with `count` conditions."""
    each = (f'    88  STATE-{i} VALUE "{i:08}".' for i in range(count))
    return write_program(path, itertools.chain(["01  STATE PIC X(8)."], each))


def condition_values(path, count):
    """One condition with `count` values."""

    def entries():
        yield "01  STATE PIC X(8)."
        yield "    88  IS-KNOWN VALUES"
        yield from (f'        "{i:08}"' for i in range(count))
        yield "        ."

    return write_program(path, entries())


def deep_groups(path, count):
    """About `count` items in records as deep as level numbers go."""

    def entries():
        for record in range(count // MAX_LEVEL):
            for level in range(1, MAX_LEVEL):
                yield f"{level:02}  LEVEL-{level}-{record}."
            yield f"{MAX_LEVEL}  LAST-{record} PIC X."

    return write_program(path, entries())


def pictures(path, count):
    """`count` items, each with a picture of its own."""
    items = (f"01  ITEM-{i} PIC X({i + 1})." for i in range(count))
    return write_program(path, items)


def constants(path, count):
    """`count` constants, each worked out from the one before."""

    def entries():
        yield "78  CONSTANT-0 VALUE 1."
        yield from (f"78  CONSTANT-{i + 1} VALUE CONSTANT-{i} + 1." for i in range(count))
        yield f"01  ITEM PIC X(CONSTANT-{count})."

    return write_program(path, entries())


def lengths(path, count):
    """`count` records, each followed by a constant that is its length."""

    def entries():
        for i in range(count):
            yield f"01  ITEM-{i} PIC X(8)."
            yield f"78  LENGTH-{i} VALUE LENGTH OF ITEM-{i}."

    return write_program(path, entries())


def lengths_in_record(path, count):
    """The same with all items in one record."""

    def entries():
        for i in range(count):
            yield f"    05  ITEM-{i} PIC X(8)."
            yield f"78  LENGTH-{i} VALUE LENGTH OF ITEM-{i}."

    return write_program(path, in_record(entries()))


def table_keys(path, count):
    """A table of `count` items, each of which is a key."""

    def entries():
        yield "    05  LINES-OF-ALL OCCURS 9 TIMES"
        yield from (f"            ASCENDING KEY IS ITEM-{i}" for i in range(count))
        yield "            ."
        yield from (f"        10  ITEM-{i} PIC X(8)." for i in range(count))

    return write_program(path, in_record(entries()))


def conditional_lines(path, count):
    """`count` items in branches of conditional compilation, half of which are
    taken, and as many variables."""

    def entries():
        for i in range(count):
            yield f">>DEFINE VARIABLE-{i} AS {i % 2}"
            yield f">>IF VARIABLE-{i} = 1"
            yield f"01  ITEM-{i} PIC X(8)."
            yield ">>ELSE"
            yield f"01  OTHER-{i} PIC X(9)."
            yield ">>END-IF"

    return write_program(path, entries())


def file_descriptions(path, count):
    """`count` files of one record."""

    def entries():
        for i in range(count):
            yield f"FD  FILE-{i}."
            yield f"01  RECORD-{i} PIC X(80)."

    return write_program(path, entries(), (*HEAD[:-1], "FILE SECTION."))


def mistakes(path, count):
    """`count` entries, each with an error."""
    return write_program(path, (f"01  ITEM-{i} PIC X(0)." for i in range(count)))


# Writer and file extension.
KINDS = {
    kind: (writer, ".cbl")
    for kind, writer in {
        "source": varied,
        "one-record": one_record,
        "redefines-one": redefines_one,
        "redefines-chain": redefines_chain,
        "renames": renames,
        "depending-on-one": depending_on_one,
        "qualified-in-own-record": qualified_in_own_record,
        "qualified-in-other-record": qualified_in_other_record,
        "qualified-in-one-record": qualified_in_one_record,
        "same-names": same_names,
        "conditions": conditions,
        "condition-values": condition_values,
        "deep-groups": deep_groups,
        "pictures": pictures,
        "constants": constants,
        "lengths": lengths,
        "lengths-in-record": lengths_in_record,
        "table-keys": table_keys,
        "conditional-lines": conditional_lines,
        "file-descriptions": file_descriptions,
        "mistakes": mistakes,
    }.items()
}
