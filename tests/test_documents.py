"""The links of the documents, and the documents as HTML."""

from __future__ import annotations

import posixpath
import re
from functools import cache
from html.parser import HTMLParser
from pathlib import Path

import pytest
from html_site import site_pages, write_site
from markdown_page import Page

ROOT = Path(__file__).resolve().parent.parent
PAGES = sorted([*ROOT.glob("*.md"), *(ROOT / "docs").glob("*.md"), ROOT / "bench" / "README.md"])
OUTSIDE = re.compile(r"^[a-z]+:|^//")


def name_of(path: Path) -> str:
    return path.relative_to(ROOT).as_posix()


@cache
def anchors_of(path: Path) -> set[str]:
    return {heading.anchor for heading in Page(path).headings}


def broken_links(page: Page) -> list[str]:
    """The relative links of the page that lead to no file or to no heading."""
    broken = []
    for link in page.links:
        if OUTSIDE.match(link.target):
            continue
        path, _, anchor = link.target.partition("#")
        target = page.path.parent / path if path else page.path
        if not target.exists():
            broken.append(f"{page.path.name}:{link.line}: {link.target}")
        elif anchor and anchor not in anchors_of(target):
            broken.append(f"{page.path.name}:{link.line}: {link.target}: no such heading")
    return broken


@pytest.mark.parametrize("path", PAGES, ids=name_of)
def test_links_lead_somewhere(path: Path) -> None:
    assert broken_links(Page(path)) == []


def test_a_broken_link_is_found(tmp_path: Path) -> None:
    text = "# A\n\n[b](b.md) [c](#c) [a](#a) [d](a.md#d)\n[e](a.md#a) [f](https://f.example)\n"
    (tmp_path / "a.md").write_text(text, encoding="utf-8")
    assert broken_links(Page(tmp_path / "a.md")) == [
        "a.md:3: b.md",
        "a.md:3: #c: no such heading",
        "a.md:3: a.md#d: no such heading",
    ]


def test_a_heading_that_is_repeated_has_a_number(tmp_path: Path) -> None:
    path = tmp_path / "a.md"
    path.write_text("# A `b-c` (d)!\n\n## What, now?\n\n## What, now?\n", encoding="utf-8")
    anchors = [heading.anchor for heading in Page(path).headings]
    assert anchors == ["a-b-c-d", "what-now", "what-now-1"]


def test_each_document_is_in_the_index() -> None:
    linked = {posixpath.normpath(link.target) for link in Page(ROOT / "docs" / "index.md").links}
    documents = {path.name for path in (ROOT / "docs").glob("*.md")} - {"index.md"}
    assert documents - linked == set()


class Reader(HTMLParser):
    """Collects what a page refers to and its anchors, and checks that tags are balanced."""

    VOID = {"meta", "link", "br", "hr", "img"}

    def __init__(self) -> None:
        super().__init__()
        self.loaded: list[str] = []  # by the browser, without the reader
        self.links: list[str] = []
        self.anchors: set[str] = set()
        self.open: list[str] = []

    def handle_starttag(self, tag: str, attrs: list[tuple[str, str | None]]) -> None:
        values = {name: value or "" for name, value in attrs}
        if tag not in self.VOID:
            self.open.append(tag)
        self.anchors |= {values["id"]} if "id" in values else set()
        if "href" in values:
            (self.links if tag == "a" else self.loaded).append(values["href"])
        if "src" in values:
            self.loaded.append(values["src"])

    def handle_endtag(self, tag: str) -> None:
        assert self.open.pop() == tag


@pytest.fixture(scope="module")
def site(tmp_path_factory: pytest.TempPathFactory) -> dict[str, Reader]:
    folder = tmp_path_factory.mktemp("html")
    write_site(folder)
    readers = {}
    for path in folder.glob("*.html"):
        readers[path.name] = Reader()
        readers[path.name].feed(path.read_text(encoding="utf-8"))
    assert not OUTSIDE.search((folder / "style.css").read_text(encoding="utf-8"))
    assert "url(" not in (folder / "style.css").read_text(encoding="utf-8")
    return readers


def test_the_site_has_every_document(site: dict[str, Reader]) -> None:
    assert len(site) == len(site_pages())
    assert set(site) >= {f"{path.stem}.html" for path in (ROOT / "docs").glob("*.md")}
    assert "readme.html" in site


def test_pages_are_complete(site: dict[str, Reader]) -> None:
    assert [name for name, reader in site.items() if reader.open] == []


def test_pages_load_the_style_sheet_only(site: dict[str, Reader]) -> None:
    assert {name for reader in site.values() for name in reader.loaded} == {"style.css"}


def test_links_of_the_site_lead_somewhere(site: dict[str, Reader]) -> None:
    broken = []
    for name, reader in site.items():
        for link in reader.links:
            page, _, anchor = link.partition("#")
            target = site.get(page or name)
            if target is None or (anchor and anchor not in target.anchors):
                broken.append(f"{name}: {link}")
    assert broken == []
