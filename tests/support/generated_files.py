"""Makes files of random records in every format, and takes them apart."""

from __future__ import annotations

from dataclasses import dataclass, field
from random import Random

from support.generated_bytes import RecordBytes, Shape
from support.generated_fields import Dialect
from support.generated_items import likely

BLOCK = 32760  # bytes, with the descriptor
DESCRIPTOR = 4  # bytes
MOST_BYTES = 15000  # of a record


@dataclass
class Framing:
    """How records stand in a file."""

    format: str
    shifts: bool  # tables take only what their counters say
    is_exclusive: bool = False  # descriptors do not count their own bytes
    is_little: bool = False
    extra: int = 0  # bytes after the longest record
    has_short: bool = False  # records that are not canonical may end anywhere
    options: list[str] = field(default_factory=list)

    @property
    def is_described(self) -> bool:
        return self.format not in ("fixed", "lines")

    def descriptor(self, size: int) -> bytes:
        if self.format == "gnucobol-variable":
            return size.to_bytes(2, "big") + bytes(2)
        size += 0 if self.is_exclusive else DESCRIPTOR
        number = size.to_bytes(2, "little" if self.is_little else "big")
        return bytes(2) + number if self.is_little else number + bytes(2)

    def size_of(self, descriptor: bytes) -> int:
        number = descriptor[2:] if self.is_little else descriptor[:2]
        size = int.from_bytes(number, "little" if self.is_little else "big")
        counts_itself = self.format != "gnucobol-variable" and not self.is_exclusive
        return size - (DESCRIPTOR if counts_itself else 0)


def choose_framing(random: Random, dialect: Dialect) -> Framing:
    formats = ["fixed"] * 4 + ["rdw"] * 2 + ["bdw", "gnucobol-variable"]
    framing = Framing(random.choice(formats + ([] if dialect.is_ibm else ["lines"])), False)
    may_shift = framing.format in ("rdw", "bdw")
    framing.shifts = likely(random, 70 if may_shift else 25)
    if framing.format != "fixed":
        framing.options += ["--format", framing.format]
    if framing.shifts != may_shift:
        framing.options += ["--odo", "shift" if framing.shifts else "max"]
    if may_shift and likely(random, 30):
        framing.is_exclusive = True
        framing.options += ["--rdw", "exclusive"]
    if may_shift and likely(random, 30):
        framing.is_little = True
        framing.options += ["--rdw", "little"]
    if framing.is_described and likely(random, 40):
        framing.has_short = True
        framing.options.append("--pad-short")
    if framing.format == "fixed" and likely(random, 15):
        framing.extra = random.randint(1, 5)
    return framing


class RecordFile:
    """Files of one layout, canonical or dirty."""

    def __init__(
        self,
        copybook: str,
        options: list[str],
        records: list[RecordBytes],
        framing: Framing,
        has_counts: bool,
        is_simple: bool,
    ) -> None:
        self.copybook = copybook
        self.options = options
        self.records = records
        self.framing = framing
        self.has_counts = has_counts
        self.is_simple = is_simple
        self.blank = records[0].dialect.text(" ")
        self.length = max(record.size for record in records) + framing.extra
        if framing.extra:
            self.options += ["--length", str(self.length)]
        self.count_size = 0
        if has_counts:
            self.count_size = max(record.count_size for record in records)

    def record(self, random: Random, is_dirty: bool = False) -> bytes:
        """A record as it is in a file, without a descriptor or line end."""
        shape, data, counts = random.choice(self.records).record(random, is_dirty)
        kept = self._kept(shape, data)
        if self.framing.format == "lines":
            return kept.rstrip(self.blank)
        if self.framing.is_described:
            stored = kept + counts
            is_short = is_dirty and self.framing.has_short and likely(random, 30)
            return stored[: random.randint(0, len(stored))] if is_short else stored
        rest = self.length - len(kept)
        tail = random.randbytes(rest) if is_dirty and likely(random, 30) else self.blank * rest
        filled = kept + tail + counts
        return filled.ljust(self.length + self.count_size, b"\0")

    def any_record(self, random: Random) -> bytes | None:
        """Bytes without any sense; nothing if they cannot be a record of the format."""
        if self.framing.format == "lines":
            return None
        return random.randbytes(self.length + self.count_size)

    def _kept(self, shape: Shape, data: bytearray) -> bytes:
        end = shape.end if self.framing.is_described else len(data)
        if not self.framing.shifts:
            return bytes(data[:end])
        kept = b""
        begin = 0
        for unused, unused_end in sorted(shape.unused):
            if unused > begin:
                kept += data[begin : min(unused, end)]
            begin = max(begin, unused_end)
        return kept + data[begin:end]

    def join(self, records: list[bytes]) -> bytes:
        framing = self.framing
        if framing.format == "fixed":
            return b"".join(records)
        if framing.format == "lines":
            return b"".join(record + b"\n" for record in records)
        framed = [framing.descriptor(len(record)) + record for record in records]
        return b"".join(framed if framing.format != "bdw" else self._blocks(framed))

    def _blocks(self, framed: list[bytes]) -> list[bytes]:
        blocks = [b""]
        for record in framed:
            if blocks[-1] and DESCRIPTOR + len(blocks[-1]) + len(record) > BLOCK:
                blocks.append(b"")
            blocks[-1] += record
        return [self.framing.descriptor(len(block)) + block for block in blocks if block]

    def split(self, data: bytes) -> list[bytes]:
        framing = self.framing
        if framing.format == "fixed":
            size = self.length + self.count_size
            return [data[at : at + size] for at in range(0, len(data), size)]
        if framing.format == "lines":
            return data.split(b"\n")[:-1]
        if framing.format == "bdw":
            data = b"".join(self._described(data))
        return self._described(data)

    def _described(self, data: bytes) -> list[bytes]:
        found = []
        at = 0
        while at < len(data):
            size = self.framing.size_of(data[at : at + DESCRIPTOR])
            found.append(data[at + DESCRIPTOR : at + DESCRIPTOR + size])
            at += DESCRIPTOR + size
        return found
