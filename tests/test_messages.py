"""docs/messages.md has every message of the three programs, and no other."""

from __future__ import annotations

import re
from collections.abc import Iterator

import pytest
from markdown_page import CodeBlock, Heading, Page
from support import message_texts
from support.message_texts import PLACEHOLDER, ROOT, is_made_of, literal_parts, unquoted

PAGE = Page(ROOT / "docs" / "messages.md")
FDMORPH = "Messages of fdmorph"
ALL_FOLDERS = "driver text cobol schema dictionary xml docschema " + message_texts.CODE_FOLDERS


def blocks_of(of_fdmorph: bool) -> list[CodeBlock]:
    """The blocks with messages. Those of fdmorph are in the first section."""
    sections = [heading for heading in PAGE.headings if heading.level == 2]
    assert [heading.title for heading in sections] == [FDMORPH, "Messages of zbc and fdrec"]
    return [block for block in PAGE.blocks if (block.line < sections[1].line) == of_fdmorph]


def lines_of(of_fdmorph: bool) -> list[str]:
    return [line for block in blocks_of(of_fdmorph) for line in block.text.splitlines() if line]


def is_known(text: str, literals: set[str]) -> bool:
    """Whether all of a text of the page comes from literals."""
    return all(is_made_of(part.strip(" '"), literals) for part in literal_parts(text))


def test_every_line_of_fdmorph_is_there() -> None:
    lines = [line.strip() for line in lines_of(of_fdmorph=True)]
    missing = [
        f"{name}: {pattern.pattern}"
        for name, pattern in message_texts.fdmorph_lines()
        if is_message(pattern.pattern) and not any(pattern.search(line) for line in lines)
    ]
    assert missing == []


# The usage has lines of its own, and some functions write items of a record.
def is_message(pattern: str) -> bool:
    return not re.match(r"\\?\.?\+?\??(fdmorph|identified|is\\ attribute)", pattern)


def test_every_message_of_fdmorph_that_counts_is_there() -> None:
    lines = [line.strip() for line in lines_of(of_fdmorph=True)]
    missing = [
        f"{name}: {head}"
        for name, head in message_texts.fdmorph_heads()
        if not any(head in line for line in lines)
    ]
    assert missing == []


def test_every_text_with_a_code_is_there() -> None:
    lines = [without_quotes(line) for line in lines_of(of_fdmorph=False)]
    missing = [
        f"{name}: {piece}"
        for name, piece in message_texts.code_pieces()
        if not any(unquoted(piece) in line for line in lines)
    ]
    assert missing == []


def without_quotes(text: str) -> str:
    """The text with its placeholders out of their apostrophes."""
    return PLACEHOLDER.sub(lambda found: unquoted(found[0]), text)


@pytest.mark.parametrize("of_fdmorph", [True, False])
def test_no_text_is_there_that_no_program_has(of_fdmorph: bool) -> None:
    literals = message_texts.all_literals(ALL_FOLDERS)
    assert [line for line in lines_of(of_fdmorph) if not is_known(line, literals)] == []


def test_every_code_has_a_section_and_no_section_is_of_another() -> None:
    named: set[str] = set()
    for heading in PAGE.headings:
        if heading.level == 4:
            named.update(re.sub(r", (an? |with ).*", "", heading.title).split(", "))
    assert sorted(named) == sorted(message_texts.codes())


def sections() -> Iterator[tuple[Heading, str]]:
    """The headings, each with the text up to the next one."""
    lines = PAGE.text.splitlines()
    ends = [heading.line - 1 for heading in PAGE.headings[1:]] + [len(lines)]
    for heading, end in zip(PAGE.headings, ends):
        yield heading, "\n".join(lines[heading.line : end])


def test_every_message_has_a_cause_and_a_cure() -> None:
    for heading, text in sections():
        if heading.level < 3:
            continue
        blocks = text.count("\n```\n")
        causes = re.findall(r"^- (Cause: |See )", text, re.MULTILINE)
        cures = re.findall(r"^- (Cure: |See )", text, re.MULTILINE)
        assert len(causes) == len(cures), heading.title
        assert len(causes) == blocks or heading.level == 4 and causes, heading.title


def test_a_message_that_is_not_there_is_found() -> None:
    literals = message_texts.forms_of(["Error : Cannot find ", "group reference ", ", found "])
    assert is_known("Error : Cannot find group reference NAME, found NAME", literals)
    assert not is_known("Error : Cannot find type NAME", literals)
    statement = 'out() << "Error : No " << name << " here" << endLine;'
    (line,) = message_texts.statement_lines(statement)
    assert line.search("Error : No FILE here")
    assert not line.search("Error : No FILE there")
