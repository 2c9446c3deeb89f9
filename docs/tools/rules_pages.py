"""Writes docs/rules.md, rules-schema.md and rules-cobol.md from rules.toml and the test cases.

    rules_pages.py

A rule of rules.toml names a construct, or several, and the case under tests/cases that shows
what becomes of it.  The pages have the sentence, the input and the expected output of the
case.  The keys of a rule:

  names     the constructs, as the heading of the example
  case      the folder of the case below tests/cases
  show      how the example is shown: "files" (the default), "entries" (a table of the entries
            of a data division), "elements" (a table of elements) or "types" (of their types)
  excerpts  of files that are too long: texts in the first and in the last line that is shown
  covers    what tests/test_rules.py looks for, such as "kind/element" or "clause/occurs"
"""

from __future__ import annotations

import sys
import textwrap
import tomllib
from dataclasses import dataclass, field
from pathlib import Path
from typing import Any

from markdown_page import slug
from rule_tables import elements_table, entries_table, types_table

TOOLS = Path(__file__).resolve().parent
ROOT = TOOLS.parent.parent
CASES = ROOT / "tests" / "cases"
BAR = "\\|"  # in a table
MAX_LINES = 36  # of a file that is shown as a whole
LANGUAGES = {".xsd": "xml", ".xml": "xml", ".map": "xml", ".cpy": "cobol", ".cbl": "cobol"}
TITLES = {"schema": "XML Schema to COBOL", "cobol": "COBOL to XML Schema"}
TABLES = {"entries": entries_table, "elements": elements_table, "types": types_table}
NOTE = "<!-- Written by docs/tools/rules_pages.py from the cases under tests/cases. -->"
INTRODUCTION = {
    "rules": """\
What `fdmorph` makes of each construct of a schema and of each clause of a data description.
Each sentence is the rule of a test that runs with every change; the examples are its input and
its expected output. Where there is a message, its first one is shown. `fdrec copybook` and
`fdrec schema` follow other rules, see their manual pages.

A *head element* is a global element that becomes a record. A *value item* holds the text of an
element that has attributes or condition names, too. A construct that *leaves no trace* is
accepted without a message and changes nothing. What is *refused* or *left out* has no item.
""",
    "schema": """\
The examples of [what becomes of what](rules.md#xml-schema-to-cobol), from schema to record. The
option `-nocountin` leaves out the `count in` clauses, to save room; apart from these clauses the
record is the same without it. COBOL is shown without the columns before its text.
""",
    "cobol": """\
The examples of [what becomes of what](rules.md#cobol-to-xml-schema), from a data division to a
schema and a copybook with XML clauses. The option `-nocountin` leaves out the `count in`
clauses, to save room. COBOL is shown without the columns before its text.
""",
}


@dataclass(frozen=True)
class Rule:
    names: list[str]
    case: str
    show: str = "files"
    excerpts: dict[str, list[str]] = field(default_factory=dict)
    covers: list[str] = field(default_factory=list)

    @property
    def title(self) -> str:
        return ", ".join(self.names)

    @property
    def folder(self) -> Path:
        return CASES / self.case

    def settings(self) -> dict[str, Any]:
        return tomllib.loads((self.folder / "case.toml").read_text(encoding="utf-8"))

    def sentence(self) -> str:
        return " ".join(self.settings()["rule"].split())

    def files(self, kind: str) -> list[Path]:
        """The files of the case, input or output; folders below are shown, too."""
        folder = self.folder / kind
        return sorted(path for path in folder.rglob("*") if path.is_file())


@dataclass(frozen=True)
class Topic:
    page: str  # "schema" or "cobol"
    title: str
    rules: list[Rule]


def read_topics(path: Path = TOOLS / "rules.toml") -> list[Topic]:
    data = tomllib.loads(path.read_text(encoding="utf-8"))
    return [
        Topic(each["page"], each["title"], [Rule(**rule) for rule in each["rule"]])
        for each in data["topic"]
    ]


def excerpt(name: str, lines: list[str], first: str, last: str) -> list[str]:
    """The lines from the first with the text `first` to the next with `last`, the same included;
    "..." is for lines that are left out."""
    start = next((i for i, line in enumerate(lines) if first in line), None)
    if start is None:
        raise ValueError(f"{name}: no line with '{first}'")
    end = next((i for i in range(start, len(lines)) if last in lines[i]), None)
    if end is None:
        raise ValueError(f"{name}: no line with '{last}' after '{first}'")
    before = ["..."] if start > 0 else []
    after = ["..."] if end + 1 < len(lines) else []
    return before + textwrap.dedent("\n".join(lines[start : end + 1])).splitlines() + after


def shown_lines(rule: Rule, path: Path) -> list[str]:
    text = path.read_text(encoding="utf-8")
    lines = [line.rstrip() for line in textwrap.dedent(text).splitlines()]
    while lines and not lines[-1]:
        lines.pop()
    name = path.relative_to(rule.folder).as_posix()
    if name in rule.excerpts:
        return excerpt(f"{rule.case}/{name}", lines, *rule.excerpts[name])
    if len(lines) > MAX_LINES:
        raise ValueError(f"{rule.case}/{name}: {len(lines)} lines, and no excerpt")
    return lines


def file_block(rule: Rule, path: Path, kind: str) -> list[str]:
    name = path.relative_to(rule.folder / kind).as_posix()
    language = LANGUAGES.get(path.suffix, "text")
    return ["", f"```{language} file={name}", *shown_lines(rule, path), "```"]


def message_lines(rule: Rule) -> list[str]:
    """What the run says about the input, without its summary."""
    path = rule.folder / "stderr"
    lines = path.read_text(encoding="utf-8").splitlines() if path.exists() else []
    lines = [line.replace("@DIR@/", "") for line in lines]
    ends = ("Successfully converted", "0 error(s)", "1 error(s)", "zbc: ")
    kept = [line.rstrip() for line in lines if line and not line.startswith(ends)]
    return [line for line in kept if " error(s), " not in line]


def messages(rule: Rule) -> list[str]:
    lines = message_lines(rule)
    return ["", "Messages:", "", "```text", *lines, "```"] if lines else []


def command(rule: Rule) -> str:
    settings = rule.settings()
    return " ".join([settings.get("program", "fdmorph"), *settings["args"]])


def example(rule: Rule) -> list[str]:
    lines = ["", f"### {rule.title}", "", *textwrap.wrap(rule.sentence(), 90)]
    if rule.show in TABLES:
        return lines + ["", *TABLES[rule.show](rule.folder), *messages(rule)]
    for path in rule.files("input"):
        lines += file_block(rule, path, "input")
    lines += ["", f"`{command(rule)}` writes:" if rule.files("files") else f"`{command(rule)}`"]
    for path in rule.files("files"):
        lines += file_block(rule, path, "files")
    return lines + messages(rule)


def examples_page(page: str, topics: list[Topic]) -> str:
    lines = [f"# {TITLES[page]}", "", NOTE, "", INTRODUCTION[page].rstrip()]
    for topic in topics:
        if topic.page == page:
            lines += ["", f"## {topic.title}"]
            for rule in topic.rules:
                lines += example(rule)
    return "\n".join(lines) + "\n"


def overview_table(topic: Topic) -> list[str]:
    lines = ["", f"### {topic.title}", "", "| Construct | What becomes of it |", "| --- | --- |"]
    for rule in topic.rules:
        link = f"rules-{topic.page}.md#{slug(rule.title.replace('`', ''))}"
        text = rule.sentence()
        if found := message_lines(rule):
            text += f" `{found[0]}`"
        lines.append(f"| [{rule.title}]({link}) | {text.replace('|', BAR)} |")
    return lines


def overview_page(topics: list[Topic]) -> str:
    lines = ["# What becomes of what", "", NOTE, "", INTRODUCTION["rules"].rstrip()]
    for page, title in TITLES.items():
        lines += ["", f"## {title}"]
        for topic in topics:
            if topic.page == page:
                lines += overview_table(topic)
    return "\n".join(lines) + "\n"


def pages(topics: list[Topic]) -> dict[str, str]:
    """The texts of the pages by name."""
    return {
        "rules.md": overview_page(topics),
        "rules-schema.md": examples_page("schema", topics),
        "rules-cobol.md": examples_page("cobol", topics),
    }


if __name__ == "__main__":
    if len(sys.argv) != 1:
        sys.exit("usage: rules_pages.py")
    for page_name, page_text in pages(read_topics()).items():
        (ROOT / "docs" / page_name).write_text(page_text, encoding="utf-8")
