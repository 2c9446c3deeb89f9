"""Groups sources that one translation unit can include.

    source_batches.py MAX_SOURCES MAX_LINES SOURCE...

Prints a group on each line, its sources apart by semicolons. Two sources are
not in one group if both declare a name for themselves, in an unnamed namespace
or as a macro, or have different using-declarations or aliases for it. This
reads words rather than C++. Where a name of one source hides or is ambiguous
with another that its neighbour uses, the compiler reports it; such a name is
better changed.
"""

from __future__ import annotations

import re
import sys
from dataclasses import dataclass, field
from pathlib import Path

NO_CODE = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n]){1,4}\'',
    re.DOTALL,
)
LIBRARY = re.compile(r"^#include <(\w+/.*)>", re.MULTILINE)
INCLUDE = re.compile(r"^\s*#\s*include[^\n]*", re.MULTILINE)
MACRO = re.compile(r"^\s*#\s*define\s+(\w+)", re.MULTILINE)
USING = re.compile(r"^using\s+([\w:]+::(\w+));", re.MULTILINE)
TYPE = re.compile(r"(?:class|struct|enum(?: class)?|union|concept)\s+(\w+)")
ALIAS = re.compile(r"(?:using|namespace)\s+(\w+)\s*=")
SIMPLE_ALIAS = re.compile(r"^using\s+(\w+)\s*=\s*([\w:]+);", re.MULTILINE)
LOCAL_ALIAS = re.compile(r"^\s+using\s+(\w+)\s*=", re.MULTILINE)
LOCAL = re.compile(r"^\s+(?:static\s+)?constexpr\b[^;={(]*\b(\w+)\s*[={]", re.MULTILINE)
# A function or a value, before its parameters, its value or its end.
NAME = re.compile(r"(?<!::)\b(?!const\b)([A-Za-z_]\w*)\s*(?:\[\]\s*)*(?:[({=;]|$)")
NO_NAME = re.compile(r"(?:using|static_assert|TEST|TEST_F|TEST_P|INSTANTIATE_TEST_SUITE_P)\b")


@dataclass
class Source:
    path: str
    lines: int
    libraries: list[str]  # their headers
    own_names: set[str]
    local_names: set[str]  # of constants and types in functions and classes
    usings: dict[str, str]  # by the name they declare; aliases of a type as well

    def clashes_with(self, other: Source) -> bool:
        if self.hides(other) or other.hides(self):
            return True
        return any(other.usings.get(name, whole) != whole for name, whole in self.usings.items())

    def hides(self, other: Source) -> bool:
        declared = self.own_names | self.usings.keys()
        return bool(self.own_names & (other.own_names | other.usings.keys())) or bool(
            declared & other.local_names
        )


@dataclass
class Batch:
    sources: list[Source] = field(default_factory=list)

    def takes(self, source: Source, max_sources: int, max_lines: int) -> bool:
        lines = sum(other.lines for other in self.sources)
        return (
            len(self.sources) < max_sources
            and lines + source.lines <= max_lines
            and not any(source.clashes_with(other) for other in self.sources)
        )


def end_of_bracket(code: str, begin: int) -> int:
    """The place of the bracket that closes the one at `begin`."""
    opening, closing = code[begin], {"{": "}", "(": ")", "[": "]"}[code[begin]]
    depth = 0
    for bracket in re.compile(re.escape(opening) + "|" + re.escape(closing)).finditer(code, begin):
        depth += 1 if bracket[0] == opening else -1
        if depth == 0:
            return bracket.start()
    return len(code)


def without_contents(code: str) -> str:
    """Without what is in brackets, and with a semicolon after each block."""
    result, place = "", 0
    for opening in re.finditer(r"[{(\[]", code):
        if opening.start() < place:
            continue
        end = end_of_bracket(code, opening.start())
        result += code[place : opening.end()] + code[end : end + 1]
        result += ";" if opening[0] == "{" else ""
        place = end + 1
    result += code[place:]
    while (shorter := re.sub(r"<[^<>;]*>", "", result)) != result:
        result = shorter
    return result


def declared_names(code: str) -> set[str]:
    """The names that the declarations in `code` declare, outside of brackets."""
    names = set()
    for declaration in without_contents(code).split(";"):
        declaration = re.sub(r"^(\s|template\b|static\b|inline\b|constexpr\b)+", "", declaration)
        name = TYPE.match(declaration) or ALIAS.match(declaration)
        if not name and not NO_NAME.match(declaration):
            name = NAME.search(declaration)
        if name:
            names.add(name[1])
    return names


def unnamed_namespaces(code: str) -> list[str]:
    return [
        code[opening.end() : end_of_bracket(code, opening.end() - 1)]
        for opening in re.finditer(r"\bnamespace\s*\{", code)
    ]


def read_source(path: str) -> Source:
    text = Path(path).read_text(encoding="utf-8")
    code = INCLUDE.sub("", NO_CODE.sub(" ", text))
    own_names = set(MACRO.findall(code))
    for content in unnamed_namespaces(code):
        own_names |= declared_names(content)
    usings = {name: whole for whole, name in USING.findall(code)}
    usings |= SIMPLE_ALIAS.findall(code)
    own_names -= usings.keys()
    local_names = set(LOCAL.findall(code)) | set(LOCAL_ALIAS.findall(code))
    libraries = sorted(LIBRARY.findall(text))
    return Source(path, text.count("\n"), libraries, own_names, local_names, usings)


def batches(sources: list[Source], max_sources: int, max_lines: int) -> list[Batch]:
    result: list[Batch] = []
    # The headers of libraries take longest, so what has them comes together.
    for source in sorted(sources, key=lambda source: source.libraries, reverse=True):
        for batch in result:
            if batch.takes(source, max_sources, max_lines):
                break
        else:
            batch = Batch()
            result.append(batch)
        batch.sources.append(source)
    return result


def main() -> None:
    max_sources, max_lines, *paths = sys.argv[1:]
    for batch in batches([read_source(path) for path in paths], int(max_sources), int(max_lines)):
        print(";".join(source.path for source in batch.sources))


if __name__ == "__main__":
    main()
