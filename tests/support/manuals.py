"""The man pages as they are installed, and the examples on them."""

from __future__ import annotations

import os
import re
from dataclasses import dataclass
from pathlib import Path

from completions import man_pages

ROOT = Path(__file__).resolve().parents[2]
FOLDER = Path(os.environ.get("BUILD_FOLDER", ROOT / "build" / "check")) / "man"


def path_of(name: str, number: int = 1) -> Path:
    return FOLDER / f"man{number}" / f"{name}.{number}"


def page(name: str, number: int = 1) -> str:
    """The source of a page."""
    return man_pages.read(path_of(name, number))


def all_pages() -> list[Path]:
    return sorted(FOLDER.glob("man[1-8]/*.[1-8]"))


def entries(name: str, section: str, number: int = 1, level: str = "SH") -> list[man_pages.Entry]:
    return man_pages.entries(man_pages.section(page(name, number), section, level))


def text(lines: list[str]) -> str:
    """Lines of a page as plain text, with single blanks."""
    return " ".join(" ".join(man_pages.plain(line) for line in lines).split())


@dataclass
class Example:
    """A command with what it prints."""

    command: str
    output: str
    status: int


def blocks(source: str) -> list[str]:
    """The texts between .EX and .EE."""
    found = re.findall(r"^\.EX\n(.*?)^\.EE$", source, re.MULTILINE | re.DOTALL)
    return ["\n".join(map(man_pages.plain, block.splitlines())) + "\n" for block in found]


def examples(source: str) -> list[Example]:
    """The commands on a page: lines that begin with a prompt."""
    found: list[Example] = []
    for block in blocks(source):
        for each in re.split(r"^\$ ", block, flags=re.MULTILINE)[1:]:
            lines = re.match(r"(?:.*\\\n)*.*\n", each)  # a command may go on
            assert lines
            command, output = lines[0].rstrip("\n"), each[lines.end() :]
            status = re.search(r"^\[status (\d+)\]\n", output, re.MULTILINE)
            if status:
                output = output.replace(status[0], "")
            found.append(Example(command, output, int(status[1]) if status else 0))
    return found
