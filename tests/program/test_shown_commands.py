"""Runs the commands of the README, the tutorials and the cookbook and compares what they print.

The commands of a tutorial run in one folder, from its top to its end, those of each section
of the cookbook in a folder of their own.  support/shown_commands.py says how a page shows
commands, outputs and files.
"""

from __future__ import annotations

import os
import shutil
from pathlib import Path

import pytest
from markdown_page import CodeBlock, Page
from support.harness import TESTS
from support.shown_commands import Command, commands_of, pattern_of, run_blocks

DOCUMENTS = TESTS.parent / "docs"
COOKBOOK = Page(DOCUMENTS / "cookbook.md")
# The tutorials, and the schema that the user of one downloads.
TUTORIALS = {
    "tutorial-schema-to-cobol.md": "pain.008.001.09.xsd",
    "tutorial-cobol-to-schema.md": "",
}


def blocks_of_section(page: Page, anchor: str) -> list[CodeBlock]:
    starts = [heading for heading in page.headings if heading.level == 2]
    index = [heading.anchor for heading in starts].index(anchor)
    end = starts[index + 1].line if index + 1 < len(starts) else page.text.count("\n") + 1
    return [block for block in page.blocks if starts[index].line < block.line <= end]


def sections_with_commands(page: Page) -> list[str]:
    anchors = [heading.anchor for heading in page.headings if heading.level == 2]
    return [
        anchor
        for anchor in anchors
        if any(block.language == "console" for block in blocks_of_section(page, anchor))
    ]


def schema_of_the_corpus(name: str) -> Path | None:
    corpus = os.environ.get("FDMORPH_CORPUS")
    found = sorted(Path(corpus, "xsd").rglob(name)) if corpus else []
    return found[0] if found else None


@pytest.mark.parametrize("name", TUTORIALS)
def test_tutorial(name: str, tmp_path: Path) -> None:
    folder = tmp_path / "tutorial"
    folder.mkdir()
    if download := TUTORIALS[name]:
        schema = schema_of_the_corpus(download)
        if schema is None:
            pytest.skip(f"{download} is not in FDMORPH_CORPUS")
        shutil.copy(schema, folder)
    page = Page(DOCUMENTS / name)
    run_blocks(page.path, page.blocks, folder)


@pytest.mark.parametrize("anchor", sections_with_commands(COOKBOOK))
def test_section_of_the_cookbook(anchor: str, tmp_path: Path) -> None:
    run_blocks(COOKBOOK.path, blocks_of_section(COOKBOOK, anchor), tmp_path / "section")


def test_readme(tmp_path: Path) -> None:
    """In a folder with the example, which its first steps take."""
    root = TESTS.parent
    folder = tmp_path / "example"
    shutil.copytree(root / "example", folder)
    page = Page(root / "README.md")
    run_blocks(page.path, page.blocks, folder)


def test_a_block_holds_commands_and_what_they_print() -> None:
    block = CodeBlock(("console",), "$ printf '%s\\n' \\\n> a\na\n...\n$ true\n", 7)
    assert commands_of(block) == [
        Command("printf '%s\\n' \\\na", 7, ["a", "..."]),
        Command("true", 11),
    ]


@pytest.mark.parametrize(
    ("lines", "printed", "fits"),
    [
        (["a", "...", "d"], "a\nb\nc\nd\n", True),
        (["a", "...", "d"], "a\nd\n", True),
        (["a", "...", "d"], "a\nb\n", False),
        (["a.c"], "abc\n", False),
        ([], "a\n", False),
    ],
)
def test_three_dots_stand_for_any_lines(lines: list[str], printed: str, fits: bool) -> None:
    assert (pattern_of(lines).fullmatch(printed) is not None) == fits


@pytest.mark.parametrize(
    "text",
    [
        "$ echo a\nb\n",
        "$ false\n",
        "$ echo a\n",
        "$ true\nb\n",
        "$ echo 'a\n",
        "$ exit 0\n$ true\n",
    ],
)
def test_a_difference_is_reported(text: str, tmp_path: Path) -> None:
    with pytest.raises(pytest.fail.Exception):
        run_blocks(Path("page.md"), [CodeBlock(("console",), text, 1)], tmp_path / "folder")


def test_a_file_is_there_and_a_failure_is_told(tmp_path: Path) -> None:
    blocks = [
        CodeBlock(("cobol", "file=in/a.cpy"), "a\nb\n", 1),
        CodeBlock(("console",), "$ cat in/a.cpy\na\nb\n$ cd in; grep c a.cpy\n$ echo $?\n1\n", 5),
    ]
    run_blocks(Path("page.md"), blocks, tmp_path / "folder")
