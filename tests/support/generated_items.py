"""Makes elementary items at random: a picture with its usage, and what goes with them.

Two things are left out because cobc, the judge, treats them differently: BLANK WHEN ZERO with a
number that has decimal places, and CR, DB or a sign after a number that consists of floating
currency signs only.
"""

from __future__ import annotations

from dataclasses import dataclass, field
from itertools import groupby
from random import Random

MAX_BINARY_DIGITS = 18  # digits
MAX_DIGITS = 38
MAX_VALUE_DIGITS = 12
PACKED = {"COMP-3", "COMP-6", "PACKED-DECIMAL", "COMPUTATIONAL-3"}
PICTURED_USAGES = [
    *sorted(PACKED),
    "COMP",
    "COMP-4",
    "COMP-5",
    "COMP-X",
    "COMP-N",
    "BINARY",
    "COMPUTATIONAL",
]
UNSIGNED_USAGE = "COMP-6"
NUMBERS_WITHOUT_PICTURE = [
    "COMP-1",
    "COMP-2",
    "FLOAT-SHORT",
    "FLOAT-LONG",
    "BINARY-CHAR",
    "BINARY-SHORT",
    "BINARY-LONG",
    "BINARY-DOUBLE",
    "SIGNED-INT",
    "SIGNED-LONG",
    "UNSIGNED-SHORT",
    "UNSIGNED-INT",
]
PLACES = ["INDEX", "POINTER", "PROGRAM-POINTER", "PROCEDURE-POINTER"]
SYNCHRONIZED = ["SYNC", "SYNCHRONIZED", "SYNC LEFT"]
SIGN_HEADS = ["LEADING", "TRAILING", "SIGN LEADING", "SIGN IS TRAILING"]
SIGN_ENDS = ["", " SEPARATE", " SEPARATE CHARACTER"]
EXCHANGED = {",": ".", ".": ","}  # by DECIMAL-POINT IS COMMA


def likely(random: Random, percent: int) -> bool:
    return random.randrange(100) < percent


@dataclass
class Elementary:
    """The clauses of an item, without VALUE, OCCURS and the like."""

    clauses: list[str]
    values: list[str] = field(default_factory=list)  # literals that fit, in ascending order
    is_place: bool = False  # an index or a pointer


@dataclass
class ItemMaker:
    """Makes random items. The settings of the program decide how they are written."""

    random: Random
    currency: str = "$"
    decimal_comma: bool = False
    constants: dict[str, int] = field(default_factory=dict)

    def likely(self, percent: int) -> bool:
        return likely(self.random, percent)

    def repeated(self, symbol: str, count: int) -> str:
        """The repeated symbol, in one of the ways to write it."""
        ways = [f"{symbol}({count})", f"{symbol}({count:02})"]
        ways += [symbol * count] if count <= 6 else []
        ways += [f"{symbol}{symbol}({count - 1})"] if count > 1 else []
        ways += [f"{symbol}({name})" for name, value in self.constants.items() if value == count]
        return self.random.choice(ways)

    def picture(self, text: str) -> str:
        word = self.random.choice(["PIC", "PICTURE", "PIC IS", "Pic"])
        return f"{word} {text.lower() if self.likely(10) else text}"

    def usage(self, word: str) -> str:
        return self.random.choice(["", "USAGE ", "USAGE IS "]) + word

    def sign(self) -> str:
        return self.random.choice(SIGN_HEADS) + self.random.choice(SIGN_ENDS)

    def literal(self, whole: int, part: int, sign: str) -> str:
        digits = "".join(str(self.random.randint(1, 9)) for _ in range(whole + part))
        point = "," if self.decimal_comma else "."
        return f"{sign}{digits[:whole] or '0'}" + (f"{point}{digits[whole:]}" if part else "")

    def number(self, usage: str = "") -> Elementary:
        """A number with a picture."""
        largest = MAX_DIGITS if usage in PACKED | {""} else MAX_BINARY_DIGITS
        digits = self.random.randint(1, self.random.choice([4, 9, 18, largest]))
        part = self.random.randint(0, digits) if self.likely(35) else 0
        whole = digits - part
        is_signed = usage != UNSIGNED_USAGE and self.likely(50)
        is_scaled = not part and digits <= MAX_VALUE_DIGITS and self.likely(8)
        text = self.repeated("9", whole) if whole else ""
        text += f"V{self.repeated('9', part)}" if part else ""
        if is_scaled:
            scale = self.repeated("P", self.random.randint(1, 4))
            text = text + scale if self.likely(50) else scale + text
        clauses = [self.picture("S" * is_signed + text)]
        if usage:
            clauses.append(self.usage(usage))
            if usage not in PACKED and self.likely(15):
                clauses.append(self.random.choice(SYNCHRONIZED))
        elif is_signed and self.likely(40):
            clauses.append(self.sign())
        elif not (is_signed or part or is_scaled) and self.likely(10):
            clauses.append(self.random.choice(["BLANK WHEN ZERO", "BLANK ZEROS"]))
        if is_scaled or digits > MAX_VALUE_DIGITS:
            return Elementary(clauses)
        lowest = [self.literal(whole, part, "-")] if is_signed else []
        return Elementary(clauses, [*lowest, "ZERO", self.literal(whole, part, "")])

    def number_with_usage(self) -> Elementary:
        return self.number(self.random.choice(PICTURED_USAGES))

    def number_without_picture(self) -> Elementary:
        clauses = [self.usage(self.random.choice(NUMBERS_WITHOUT_PICTURE))]
        return Elementary(clauses + ["SYNC"] * self.likely(15))

    def place(self) -> Elementary:
        clauses = [self.usage(self.random.choice(PLACES))]
        return Elementary(clauses + ["SYNC"] * self.likely(15), is_place=True)

    def text(self) -> Elementary:
        size = self.random.choice([1, 2, 3, 5, 8, 20, 80, 500, *self.constants.values()])
        symbol = self.random.choice("XXXXA")
        text = self.repeated(symbol, size)
        text += self.random.choice(["9(3)", "XX", "AX"]) if self.likely(10) else ""
        clauses = [self.picture(text)]
        clauses += [self.random.choice(["JUST RIGHT", "JUSTIFIED"])] if self.likely(8) else []
        clauses += [self.usage("DISPLAY")] if self.likely(5) else []
        return Elementary(clauses, ['"A"', "'B'", '"C"'] if symbol == "X" else ["SPACES"])

    def edited_text(self) -> Elementary:
        parts = [self.random.choice(["X", "X(3)", "B", "/", "0", "XX", "B(2)"]) for _ in range(4)]
        return Elementary([self.picture("".join(["X", *parts, "B"]))])

    def national(self) -> Elementary:
        text = self.repeated("N", self.random.randint(1, 30))
        return Elementary([self.picture(text), *[self.usage("NATIONAL")] * self.likely(40)])

    def with_insertions(self, symbols: str) -> str:
        """The symbols in groups, with insertion symbols between the groups."""
        insertion = self.random.choice([",", ",", ",", "", "", "/", "B", "0"])
        size = self.random.choice([3, 3, 2, 4])
        groups = [symbols[max(0, end - size) : end] for end in range(len(symbols), 0, -size)]
        return insertion.join(reversed(groups))

    def edited_number(self) -> Elementary:
        """Suppressed zeros, a floating symbol or digits, with a point and signs."""
        kind = self.random.choice("9ZZ*$+-")
        rest = 0 if kind == "9" else self.random.randint(0, 3)
        text = self.with_insertions(kind * self.random.randint(2, 6) + "9" * rest)
        if self.likely(60):
            symbol = "9" if rest or self.likely(60) else kind
            text += f".{symbol * self.random.randint(1, 3)}"
        text = f"${text}" if kind in "9Z*" and self.likely(25) else text
        if kind in "9Z*" and self.likely(20):
            text = self.random.choice("+-") + text
        elif kind not in "+-" and "9" in text and self.likely(35):
            text += self.random.choice(["+", "-", "CR", "DB"])
        text = "".join(self.run(symbol, len(list(run))) for symbol, run in groupby(text))
        if self.decimal_comma:
            text = "".join(EXCHANGED.get(symbol, symbol) for symbol in text)
        is_blank = kind != "*" and self.likely(10)
        clauses = ["BLANK WHEN ZERO"] * is_blank
        return Elementary([self.picture(text.replace("$", self.currency)), *clauses])

    def run(self, symbol: str, count: int) -> str:
        return f"{symbol}({count})" if count > 2 and self.likely(50) else symbol * count

    def signable(self) -> Elementary:
        """An item for which zbc and cobc agree on the SIGN clause of its group."""
        return self.random.choice([self.number, self.text])()

    def any_item(self) -> Elementary:
        makers = [
            *[self.number, self.text] * 3,
            *[self.number_with_usage, self.edited_number] * 2,
            self.number_without_picture,
            self.edited_text,
            self.national,
            self.place,
        ]
        return self.random.choice(makers)()
