"""Data dictionaries as the COBOL compiler leaves them, for generate.py."""

import itertools

GROUP_SIZE = 10  # a group and its elementary items


def condition(indent, name, values):
    yield f'{indent}<alphanumericCondition name="{name}">\n'
    yield from (f'{indent}   <alphanumericConstant value="{value}"/>\n' for value in values)
    yield f"{indent}</alphanumericCondition>\n"


def numeric(name, usage, picture, digits, length, alignment=0, more=""):
    return (
        f'<numeric name="{name}" usage="{usage}" alignment="{alignment}" digits="{digits}"'
        f' length="{length}" picture="{picture}"{more}/>\n'
    )


def text(name, length, more="/>"):
    return (
        f'<alphanumeric name="{name}" usage="display" length="{length}"'
        f' picture="X({length})"{more}\n'
    )


def elementary_items(group, indent):
    """The nine items of a group. Their names differ from group to group, as
    the prefixes of a program do."""
    yield indent + numeric(f"ORDER-NUMBER-{group}", "display", "9(8)", 8, 8)
    yield indent + text(f"CUSTOMER-NAME-{group}", 30)
    yield indent + text(f"DELIVERY-STREET-{group}", 40)
    yield indent + numeric(f"QUANTITY-{group}", "comp-4", "S9(4)", 4, 2)
    yield indent + numeric(f"UNIT-PRICE-{group}", "comp-3", "S9(7)V99", 9, 5, alignment=2)
    yield indent + text(f"ORDER-STATE-{group}", 1, ">")
    yield from condition(indent + "   ", f"ORDER-OPEN-{group}", ["O"])
    yield from condition(indent + "   ", f"ORDER-CLOSED-{group}", ["S", "P"])
    yield f"{indent}</alphanumeric>\n"
    bounds = ' minOccurs="5" maxOccurs="5"'
    yield indent + numeric(f"DISCOUNT-{group}", "comp-3", "9(3)V99", 5, 3, alignment=2, more=bounds)
    yield (
        f'{indent}<numericEdited name="TOTAL-SHOWN-{group}" usage="display" length="11"'
        ' picture="ZZZ,ZZ9.99-"/>\n'
    )
    yield indent + text("FILLER", 6)


def groups(count, indent):
    """Groups of ten items, down to the last whole ten."""
    for group in range(count // GROUP_SIZE):
        yield f'{indent}<group name="ORDER-LINE-{group}">\n'
        yield from elementary_items(group, indent + "   ")
        yield f"{indent}</group>\n"


def write_dictionary(path, record):
    """The dictionary of a program with one record."""
    with open(path, "w", encoding="utf-8") as file:
        file.write('<?xml version="1.0" encoding="UTF-8"?>\n<program name="BENCH">\n')
        file.write("   <properties/>\n   <dataItems>\n")
        file.writelines(record)
        file.write("   </dataItems>\n</program>\n")
    return path


def flat_dictionary(path, count):
    """One record of about `count` items in groups of ten."""
    head = ['      <group name="BENCH-RECORD">\n']
    return write_dictionary(
        path, itertools.chain(head, groups(count, " " * 9), ["      </group>\n"])
    )


def deep_dictionary(path, levels):
    """Groups nested `levels` deep with ten items in the innermost. There is no
    indentation, which would make the file grow with the square of the depth."""
    heads = (f'<group name="LEVEL-{level}">\n' for level in range(levels))
    tails = itertools.repeat("</group>\n", levels)
    return write_dictionary(path, itertools.chain(heads, groups(GROUP_SIZE, ""), tails))
