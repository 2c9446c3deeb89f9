"""Makes elementary items of records at random, with the bytes that they may have."""

from __future__ import annotations

import struct
from collections.abc import Callable
from dataclasses import dataclass, replace
from random import Random
from typing import Any

from support.generated_items import likely

LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789&<>'-"
Bytes = Callable[[Random], bytes]
Numbers = Callable[[int], bytes]  # the bytes of a number


@dataclass
class Dialect:
    name: str
    encoding: str  # of Python
    is_ibm: bool

    def text(self, text: str) -> bytes:
        return text.encode(self.encoding)

    @property
    def options(self) -> list[str]:
        return ["--dialect", self.name, "--encoding", "cp037" if self.is_ibm else "latin-1"]


DIALECTS = [Dialect("gnucobol", "latin-1", False), Dialect("ibm", "cp037", True)]


@dataclass
class Field:
    """An elementary item: its canonical bytes, and those where it is absent."""

    clauses: str
    value: Bytes
    absent: bytes
    dirty: Callable[[Random, bytes], bytes]
    without_value: bytes | None = None  # where it is absent and its VALUE does not count

    @property
    def empty(self) -> bytes:
        return self.absent if self.without_value is None else self.without_value


def unchanged(_: Random, value: bytes) -> bytes:
    return value


@dataclass
class Picture:
    text: str  # without S
    digits: int  # that are stored
    scale: int | None  # digits after the point; None with scaling positions

    def literal(self, number: int) -> str:
        """The number that has these digits."""
        digits = f"{abs(number):0{self.digits}d}"
        sign = "-" if number < 0 else ""
        if not self.scale:
            return sign + digits
        return f"{sign}{digits[: -self.scale] or '0'}.{digits[-self.scale :]}"


@dataclass
class FieldRules:
    """Which items may be made."""

    has_sync: bool = True
    has_native: bool = True  # numbers that hold more than their picture, or have none
    is_text: bool = False  # only those whose bytes are characters


class FieldMaker:
    """Makes items for a dialect."""

    def __init__(self, random: Random, dialect: Dialect) -> None:
        self.random = random
        self.dialect = dialect
        self.field_rules = FieldRules()

    def with_value(self, known: Field, picture: Picture, numbers: Numbers) -> Field:
        """The item, at times with a VALUE clause."""
        if picture.scale is None or not likely(self.random, 25):
            return known
        number = self.random.randrange(10**picture.digits)
        if "PIC S" in known.clauses and likely(self.random, 50):
            number = -number
        clauses = f"{known.clauses} VALUE {picture.literal(number)}"
        return replace(known, clauses=clauses, absent=numbers(number), without_value=known.absent)

    def blank(self, size: int) -> bytes:
        return self.dialect.text(" ") * size

    def text_field(self) -> Field:
        size = self.random.randint(1, 12)
        is_right = likely(self.random, 15)

        def value(random: Random) -> bytes:
            text = "".join(random.choices(LETTERS, k=random.randint(0, size)))
            if likely(random, 20) and len(text) > 2:
                text = text[0] + " " + text[2:]
            return self.dialect.text(text.rjust(size) if is_right else text.ljust(size))

        def dirty(random: Random, old: bytes) -> bytes:
            return old[:-1] + b"\0" if not is_right else b"\0" + old[1:]

        clauses = f"PIC X({size})" + (" JUSTIFIED RIGHT" if is_right else "")
        if not likely(self.random, 25):
            return Field(clauses, value, self.blank(size), dirty)
        text = "".join(self.random.choices(LETTERS[:40], k=self.random.randint(1, size)))
        absent = self.dialect.text(text.ljust(size))
        return Field(f'{clauses} VALUE "{text}"', value, absent, dirty, self.blank(size))

    def text_values(self, size: int) -> Bytes:
        def value(random: Random) -> bytes:
            text = "".join(random.choices(LETTERS, k=random.randint(0, size)))
            return self.dialect.text(text.ljust(size))

        return value

    def edited_field(self) -> Field:
        size = self.random.randint(2, 5)

        def value(random: Random) -> bytes:
            return self.dialect.text(f"{random.randrange(10**size):{size}d}")

        return Field(f"PIC {'Z' * (size - 1)}9", value, self.blank(size), unchanged)

    def national_field(self) -> Field:
        size = self.random.randint(1, 6)
        encoding = "utf-16-be" if self.dialect.is_ibm else "utf-16-le"

        def value(random: Random) -> bytes:
            text = "".join(random.choices(LETTERS + "äßЖ字", k=random.randint(0, size)))
            return text.ljust(size).encode(encoding)

        return Field(
            f"PIC N({size}) USAGE NATIONAL", value, (" " * size).encode(encoding), unchanged
        )

    def picture(self, most: int) -> Picture:
        digits = self.random.randint(1, most)
        kind = self.random.randrange(5)
        if kind == 0 and digits > 1:
            scale = self.random.randint(1, digits - 1)
            return Picture(f"9({digits - scale})V9({scale})", digits, scale)
        if kind == 1:
            scaling = "P" * self.random.randint(1, 3)
            is_above = likely(self.random, 50)
            text = f"9({digits}){scaling}" if is_above else f"V{scaling}9({digits})"
            return Picture(text, digits, None)
        return Picture(f"9({digits})", digits, 0)

    def zoned_bytes(self, number: int, digits: int, sign: str) -> bytes:
        text = bytearray(self.dialect.text(f"{abs(number):0{digits}d}"))
        if "SEPARATE" in sign:
            mark = self.dialect.text("-" if number < 0 else "+")
            return mark + bytes(text) if "LEADING" in sign else bytes(text) + mark
        if sign:
            at = 0 if "LEADING" in sign else -1
            low = text[at] & 0x0F
            if self.dialect.is_ibm:
                text[at] = low | (0xD0 if number < 0 else 0xC0)
            elif number < 0:
                text[at] = low | 0x70
        return bytes(text)

    def zoned_field(self) -> Field:
        picture = self.picture(18)
        digits = picture.digits
        is_signed = likely(self.random, 60)
        sign = ""
        if is_signed:
            sign = self.random.choice(
                ["SIGN TRAILING", "SIGN LEADING", "SIGN LEADING SEPARATE", "SIGN TRAILING SEPARATE"]
            )
        is_blank = not is_signed and picture.scale is not None and likely(self.random, 20)

        def value(random: Random) -> bytes:
            number = random.randrange(10 ** random.randint(0, digits))
            if is_blank and number == 0:
                return self.blank(digits)
            return self.zoned_bytes(
                -number if is_signed and likely(random, 50) else number, digits, sign
            )

        def dirty(random: Random, old: bytes) -> bytes:
            if "SEPARATE" in sign or is_blank or not self.dialect.is_ibm:
                return old
            at = 0 if "LEADING" in sign else -1  # another positive zone
            changed = bytearray(old)
            if changed[at] & 0xF0 in (0xC0, 0xF0):
                changed[at] = (changed[at] & 0x0F) | random.choice([0xA0, 0xC0, 0xE0, 0xF0])
            return bytes(changed)

        def numbers(number: int) -> bytes:
            return self.zoned_bytes(number, digits, sign)

        clauses = f"PIC {'S' if is_signed else ''}{picture.text} {sign}"
        if is_blank:
            return Field(clauses + " BLANK WHEN ZERO", value, self.blank(digits), dirty)
        return self.with_value(Field(clauses, value, numbers(0), dirty), picture, numbers)

    def packed_field(self) -> Field:
        picture = self.picture(18)
        digits = picture.digits
        is_signed = likely(self.random, 60)

        def pack(number: int) -> bytes:
            mark = "F" if not is_signed else "D" if number < 0 else "C"
            text = f"{abs(number):0{digits}d}{mark}"
            return bytes.fromhex(text if len(text) % 2 == 0 else "0" + text)

        def value(random: Random) -> bytes:
            number = random.randrange(10 ** random.randint(0, digits))
            return pack(-number if is_signed and likely(random, 50) else number)

        def dirty(random: Random, old: bytes) -> bytes:
            if old[-1] & 0x0F == 0x0D:
                return old
            return old[:-1] + bytes([(old[-1] & 0xF0) | random.choice([0x0A, 0x0C, 0x0E, 0x0F])])

        clauses = f"PIC {'S' if is_signed else ''}{picture.text} COMP-3"
        return self.with_value(Field(clauses, value, pack(0), dirty), picture, pack)

    def unsigned_packed_field(self) -> Field:
        digits = self.random.randint(1, 12)

        def pack(number: int) -> bytes:
            return bytes.fromhex(f"{number:0{digits + digits % 2}d}")

        return Field(
            f"PIC 9({digits}) COMP-6",
            lambda random: pack(random.randrange(10**digits)),
            pack(0),
            unchanged,
        )

    def binary_field(self) -> Field:
        picture = self.picture(18)
        digits = picture.digits
        is_signed = likely(self.random, 60)
        usages = ["COMP", "COMP-4", "BINARY", "COMP-5"]
        usage = self.random.choice(usages[: None if self.field_rules.has_native else 3])
        smallest = 2 if self.dialect.is_ibm else 1
        size = max(smallest, 1 if digits < 3 else 2 if digits < 5 else 4 if digits < 10 else 8)
        order: Any = "little" if usage == "COMP-5" and not self.dialect.is_ibm else "big"
        is_sync = self.field_rules.has_sync and likely(self.random, 30)

        def numbers(number: int) -> bytes:
            return number.to_bytes(size, order, signed=is_signed)

        def value(random: Random) -> bytes:
            if usage == "COMP-5":
                return random.randbytes(size)
            number = random.randrange(10 ** random.randint(0, digits))
            return numbers(-number if is_signed and likely(random, 50) else number)

        clauses = f"PIC {'S' if is_signed else ''}{picture.text} {usage}"
        clauses += " SYNCHRONIZED" if is_sync else ""
        return self.with_value(Field(clauses, value, bytes(size), unchanged), picture, numbers)

    def native_field(self) -> Field:
        usage, size = self.random.choice(
            [("BINARY-CHAR", 1), ("BINARY-SHORT", 2), ("BINARY-LONG UNSIGNED", 4),
             ("BINARY-DOUBLE", 8), ("SIGNED-INT", 4), ("UNSIGNED-SHORT", 2), ("PIC X(3) COMP-X", 3),
             ("PIC X(2) COMP-5", 2), ("PIC 9(7) COMP-X", 3)]
        )  # fmt: skip
        return Field(usage, lambda random: random.randbytes(size), bytes(size), unchanged)

    def float_field(self) -> Field:
        is_single = likely(self.random, 50)
        size = 4 if is_single else 8

        def value(random: Random) -> bytes:
            if likely(random, 10):
                return bytes(size)
            if self.dialect.is_ibm:
                # Normalised, and no more digits than a double has.
                head = random.choice([0, 0x80]) | random.randint(0x20, 0x60)
                digits = bytes([random.randint(0x10, 0xFF)]) + random.randbytes(size - 2)
                tail = random.randbytes(0 if is_single else 0)
                digits = (digits + tail)[: size - 1]
                return bytes([head]) + (digits if is_single else digits[:-1] + b"\0")
            number = random.uniform(-1e6, 1e6) * 10 ** random.randint(-20, 20)
            return struct.pack("<f" if is_single else "<d", number)

        return Field("COMP-1" if is_single else "COMP-2", value, bytes(size), unchanged)

    def field(self) -> Field:
        makers = [self.text_field] * 4 + [self.zoned_field] * 3 + [self.edited_field]
        if not self.field_rules.is_text:
            makers += [self.packed_field] * 2 + [self.binary_field] * 2
            makers += [self.national_field, self.unsigned_packed_field, self.float_field]
            makers += [self.native_field] if self.field_rules.has_native else []
        return self.random.choice(makers)()

    def long_text(self) -> Field:
        def value(random: Random) -> bytes:
            return self.dialect.text("".join(random.choices(LETTERS, k=40)))

        return Field("PIC X(40)", value, self.blank(40), unchanged)
