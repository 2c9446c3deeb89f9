"""The pages of the documents: their headings, links and code blocks.

The pages are CommonMark with tables. Anchors of headings are those of GitHub.
"""

from __future__ import annotations

import re
from dataclasses import dataclass
from functools import cached_property
from pathlib import Path

from markdown_it import MarkdownIt
from markdown_it.token import Token

PARSER = MarkdownIt("commonmark").enable("table")


@dataclass(frozen=True)
class Heading:
    level: int
    title: str
    anchor: str
    line: int  # from 1


@dataclass(frozen=True)
class Link:
    target: str
    line: int  # from 1, of the paragraph or table row


@dataclass(frozen=True)
class CodeBlock:
    """A fenced block. The words are those after the backquotes; the first is the language."""

    words: tuple[str, ...]
    text: str
    line: int  # from 1, of its first line of text

    @property
    def language(self) -> str:
        return self.words[0] if self.words else ""

    @property
    def file(self) -> str:
        """The name of the file whose content it shows: the word file=NAME."""
        for word in self.words[1:]:
            if word.startswith("file="):
                return word.removeprefix("file=")
        return ""


def plain_text(inline: Token) -> str:
    children = inline.children or []
    return "".join(each.content for each in children if each.type in ("text", "code_inline"))


def slug(title: str) -> str:
    return re.sub(r"[^\w\- ]", "", title.strip().lower()).replace(" ", "-")


class Page:
    def __init__(self, path: Path) -> None:
        self.path = path
        self.text = path.read_text(encoding="utf-8")
        self.tokens = PARSER.parse(self.text)

    @cached_property
    def headings(self) -> list[Heading]:
        found: list[Heading] = []
        uses: dict[str, int] = {}
        for opening, inline in zip(self.tokens, self.tokens[1:]):
            if opening.type != "heading_open":
                continue
            title = plain_text(inline)
            anchor = slug(title)
            number = uses.get(anchor, 0)
            uses[anchor] = number + 1
            if number:
                anchor = f"{anchor}-{number}"
            line = opening.map[0] + 1 if opening.map else 0
            found.append(Heading(int(opening.tag[1:]), title, anchor, line))
        return found

    @property
    def title(self) -> str:
        return self.headings[0].title if self.headings else self.path.stem

    @cached_property
    def links(self) -> list[Link]:
        found = []
        for token in self.tokens:
            line = token.map[0] + 1 if token.map else 0
            for child in token.children or []:
                target = child.attrGet("href") if child.type == "link_open" else None
                if target is None and child.type == "image":
                    target = child.attrGet("src")
                if target is not None:
                    found.append(Link(str(target), line))
        return found

    @cached_property
    def blocks(self) -> list[CodeBlock]:
        return [
            CodeBlock(tuple(token.info.split()), token.content, token.map[0] + 2)
            for token in self.tokens
            if token.type == "fence" and token.map
        ]
