"""The options of the programs, as their help and man pages have them."""

from __future__ import annotations

import re
import subprocess
from dataclasses import dataclass, field
from pathlib import Path

from completions import man_pages

_HELP_COLUMN = 28  # where texts begin in the help of fdrec
COMMON_GROUP = "Common options"
OWN_GROUP = "Options"
_MAN = Path(__file__).resolve().parent.parent / "man"

# What the names of values stand for. Others are no files.
_FILES = {
    "COPYBOOK": ("cpy", "cbl", "cob"),
    "DATA": (),
    "DOCUMENT": ("xml",),
    "FILE": (),
    "LINES": (),
    "MAPPING": ("xml",),
    "SCHEMA": ("xsd",),
}
_SOURCES = ("xsd", *_FILES["COPYBOOK"])  # of an argument FILE
_FOLDERS = ("DIR", "FOLDER")
# Options with a FILE of one kind.
_FILES_OF_OPTIONS = {
    "--catalog": ("xml",),
    "--schema": ("xsd",),
    "-c": ("cpy",),
    "-m": ("xml",),
    "-v": ("xsd", "xml"),
    "-x": ("xsd",),
}


@dataclass(frozen=True)
class Value:
    """What can stand for the value of an option, or for an argument."""

    name: str
    words: tuple[str, ...] = ()
    extensions: tuple[str, ...] | None = None  # of files; empty: any; None: no file
    is_folder: bool = False

    @staticmethod
    def of(name: str, options: tuple[str, ...] = ()) -> Value:
        if re.fullmatch(r"[a-z0-9-]+(\|[a-z0-9-]+)+", name):
            return Value(name, words=tuple(name.split("|")))
        if name in _FOLDERS:
            return Value(name, is_folder=True)
        extensions = _FILES.get(name)
        for option in options:
            extensions = _FILES_OF_OPTIONS.get(option, extensions)
        return Value(name, extensions=extensions)


@dataclass(frozen=True)
class Option:
    names: tuple[str, ...]
    value: Value | None
    text: str
    group: str = OWN_GROUP


@dataclass
class Command:
    """A command of fdrec, or a program."""

    name: str
    summary: str
    options: list[Option] = field(default_factory=list)
    arguments: list[Value] = field(default_factory=list)

    @property
    def own(self) -> list[Option]:
        """Those of this command alone."""
        return [option for option in self.options if option.group == OWN_GROUP]

    @property
    def data(self) -> list[Option]:
        """Those that the commands on data share."""
        return [option for option in self.options if option.group not in (OWN_GROUP, COMMON_GROUP)]


def _rows(help_text: str) -> list[tuple[str, str, str]]:
    """Group, left and right column of each entry of the help."""
    rows: list[tuple[str, str, str]] = []
    group = ""
    for line in help_text.splitlines():
        if re.fullmatch(r"[A-Z][^:]*:", line):
            group = line[:-1]
        elif group and line.startswith(" "):
            left, right = line[:_HELP_COLUMN], line[_HELP_COLUMN:]
            if not left.endswith(" "):  # a long one has a line of its own
                left, right = line, ""
            if left.strip():
                rows.append((group, left.strip(), right))
            else:
                row = rows[-1]
                rows[-1] = (*row[:2], f"{row[2]} {right}".strip())
    return rows


def _options(help_text: str) -> list[Option]:
    options = []
    for group, left, text in _rows(help_text):
        if not left.startswith("-"):
            continue
        names_text, _, value = left.partition(" Excludes:")[0].partition(" ")
        names = tuple(names_text.split(","))
        options.append(Option(names, Value.of(value, names) if value else None, text, group))
    return options


def _argument(name: str) -> Value:
    return Value(name, extensions=_SOURCES) if name == "FILE" else Value.of(name)


def _help_of(fdrec: Path, *command: str) -> str:
    return subprocess.run(
        [fdrec, *command, "--help"], capture_output=True, text=True, check=True, timeout=60
    ).stdout


def read_fdrec(fdrec: Path) -> tuple[Command, list[Command]]:
    """The program with the options of all commands, and the commands with their others."""
    text = _help_of(fdrec)
    program = Command("fdrec", text.splitlines()[0], _options(text))
    commands = []
    known = {name for option in program.options for name in option.names}
    for group, name, summary in _rows(text):
        if group == "Subcommands":
            help_text = _help_of(fdrec, name)
            arguments = [
                _argument(left) for each, left, _ in _rows(help_text) if each == "Positionals"
            ]
            options = [each for each in _options(help_text) if not known & set(each.names)]
            commands.append(Command(name, summary, options, arguments))
    return program, commands


def data_options(commands: list[Command]) -> list[Option]:
    """The options that the commands on data share."""
    return next((each.data for each in commands if each.data), [])


def options_of_tag(tag: str) -> list[tuple[str, str]]:
    """The names and values in the tag of a man page. Names before the last have its value
    if they have none."""
    found = re.findall(r"(?:^|, )(-[-\w]*[\w?])(?:[ =]([^,]+))?", tag)
    return [(name, value or found[-1][1]) for name, value in found]


def read_fdmorph() -> Command:
    """The options on the man page, which has those that the usage text leaves out, too."""
    page = man_pages.read(_MAN / "fdmorph.1.in")
    options = []
    for entry in man_pages.entries(man_pages.section(page, "OPTIONS")):
        tags = [each for tag in entry.tags for each in options_of_tag(tag)]
        names = tuple(name for name, _ in tags)
        value = Value.of(tags[0][1], names)
        options.append(Option(names, value if tags[0][1] else None, entry.first_sentence))
    arguments = [Value("FILE", extensions=("xsd", "cbl", "cpy"))]
    return Command("fdmorph", "", options, arguments)


def read_zbc() -> tuple[Command, list[str]]:
    """The options and directives on the man page. A directive that has a value ends after
    the parenthesis."""
    page = man_pages.read(_MAN / "zbc.1.in")
    options = []
    for entry in man_pages.entries(man_pages.section(page, "OPTIONS")):
        for name, value in options_of_tag(entry.tags[0]):
            options.append(
                Option((name,), Value.of(value) if value else None, entry.first_sentence)
            )
    directives = []
    for entry in man_pages.entries(man_pages.section(page, "DIRECTIVES")):
        for directive in entry.tags[0].split(", "):
            directives.append(directive if entry.is_literal else directive.partition("(")[0] + "(")
    return Command("zbc", "", options, [Value.of("COPYBOOK")]), directives
