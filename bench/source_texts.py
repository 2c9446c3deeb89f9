"""COBOL sources for generate.py that have long literals, odd layouts or copy members."""

import itertools

from sources import HEAD, MARGIN, TAIL, write_lines, write_program

# --- Texts -------------------------------------------------------------------

LAST_COLUMN = 72
TEXT = "and so on "


def joined_literal(path, count):
    """A literal of `count` pieces with & between them."""

    def entries():
        yield "01  ITEM PIC X(80) VALUE"
        yield from itertools.repeat(f'        "{TEXT * 4}" &', count - 1)
        yield f'        "{TEXT}".'

    return write_program(path, entries())


def continued_lines(first, count):
    """A literal over `count` lines, the first of which is `first`."""
    room = LAST_COLUMN - len(MARGIN)
    yield (first + '"' + TEXT * 7)[:room]
    for _ in range(count - 2):
        yield ('    "' + TEXT * 7)[:room]
    yield '    "the end".'


def write_continued(path, literals):
    """A program of literals that are continued: lines of which all but the
    first have the mark of continuation in column 7."""

    def lines():
        yield from HEAD
        for literal in literals:
            yield from literal
        yield from TAIL

    with open(path, "w", encoding="utf-8") as file:
        for line in lines():
            is_continued = line.startswith('    "')
            file.write(f"      {'-' if is_continued else ' '}{line}\n")
    return path


def continued_literal(path, count):
    """One literal of `count` lines."""
    return write_continued(path, [continued_lines("01  ITEM PIC X(80) VALUE ", count)])


def continued_literals(path, count):
    """`count` literals of three lines."""
    literals = (continued_lines(f"01  ITEM-{i} PIC X(150) VALUE ", 3) for i in range(count))
    return write_continued(path, literals)


def one_line(path, count):
    """`count` items on one line of free format."""
    with open(path, "w", encoding="utf-8") as file:
        file.write(f'{MARGIN}$SET SOURCEFORMAT"FREE"\n')
        file.writelines(f"01 ITEM-{i} PIC X. " for i in range(count))
        file.write("\n")
    return path


def comment_lines(path, count):
    """A paragraph of `count` lines of comment, past area A, ahead of one item."""

    def lines():
        yield "PROGRAM-ID. P."
        yield "REMARKS."
        yield from itertools.repeat(f"    {TEXT}.", count)
        yield "DATA DIVISION."
        yield "WORKING-STORAGE SECTION."
        yield "01 A PIC X."

    return write_lines(path, lines())


def tabs(path, count):
    """`count` items with tabs in their lines."""
    return write_program(path, (f"01\tITEM-{i}\tPIC X(8)\tVALUE SPACES." for i in range(count)))


# --- Copy members ------------------------------------------------------------

MEMBER_LINES = 10_000


def copy_statements(path, count):
    """`count` COPY statements for one member, each with a tag of its own."""
    member = ["01  :TAG:-RECORD."] + [f"    05  :TAG:-ITEM-{i} PIC X(8)." for i in range(4)]
    write_lines(path.parent / "MEMBER.cpy", member)
    return write_program(
        path, (f"COPY MEMBER REPLACING ==:TAG:== BY ==T{i}==." for i in range(count))
    )


def copy_members(path, count):
    """`count` members of one item, and a COPY statement for each."""
    for i in range(count):
        write_lines(path.parent / f"M{i}.cpy", [f"01  ITEM-{i} PIC X(8)."])
    return write_program(path, (f"COPY M{i}." for i in range(count)))


def replacing(operand, name):
    """A writer of a long member that is copied with `size` operands. `operand`
    is the text of one with its number, `name` that of a name in the member. A
    tag in it is the number of an operand."""

    def write(path, size):
        lines = (
            f"01  {name.format(line=i, tag=i % size)} PIC X(8) VALUE SPACES."
            for i in range(MEMBER_LINES)
        )
        write_lines(path.parent / "MEMBER.cpy", lines)
        operands = ("    " + operand.format(i) for i in range(size))
        return write_program(path, itertools.chain(["COPY MEMBER REPLACING"], operands, ["    ."]))

    return write


# Writer and file extension. The size is that of the text, or the number of operands.
KINDS = {
    kind: (writer, ".cbl")
    for kind, writer in {
        "joined-literal": joined_literal,
        "continued-literal": continued_literal,
        "continued-literals": continued_literals,
        "one-line": one_line,
        "comment-lines": comment_lines,
        "tabs": tabs,
        "copy-statements": copy_statements,
        "copy-members": copy_members,
        "replacing-words": replacing("NAME-{0} BY NEW-{0}", "NAME-{line}"),
        "replacing-entries": replacing("==01 NAME-{0}== BY ==01 NEW-{0}==", "NAME-{line}"),
        "replacing-tags": replacing("==:TAG-{0}:== BY ==NEW-{0}==", ":TAG-{tag}:-{line}"),
        "replacing-parts": replacing("LEADING ==OLD-{0}-== BY ==NEW-{0}-==", "OLD-{tag}-{line}"),
    }.items()
}
