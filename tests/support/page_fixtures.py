"""Fixtures for tests of the page of `fdrec show --html`."""

from __future__ import annotations

from collections.abc import Callable, Iterator
from pathlib import Path

import pytest
from support.browser import Browser
from support.harness import program_under_test, run
from support.shown_page import ORDER, Opener

Maker = Callable[[str, str, str], Path]


@pytest.fixture(scope="module")
def browser() -> Iterator[Browser]:
    browser = Browser()
    yield browser
    browser.close()


@pytest.fixture(scope="module")
def page_of(tmp_path_factory: pytest.TempPathFactory) -> Maker:
    """Makes the page of a source in free format, each once."""
    pages: dict[tuple[str, str, str], Path] = {}

    def make(text: str, name: str, schema: str) -> Path:
        if (text, name, schema) not in pages:
            folder = tmp_path_factory.mktemp("page")
            (folder / name).write_text(text, encoding="utf-8")
            command = [program_under_test("FDREC"), "show", "--html", "--source-format", "free"]
            if schema:
                (folder / "a.xsd").write_text(schema, encoding="utf-8")
                command += ["--schema", "a.xsd"]
            result = run(folder, *command, "-o", "page.html", name)
            assert result.stderr == b""
            pages[text, name, schema] = folder / "page.html"
        return pages[text, name, schema]

    return make


@pytest.fixture
def show(browser: Browser, page_of: Maker) -> Iterator[Opener]:
    """Opens pages. None of them may print to the console or load anything but itself."""
    opened = []

    def opener(
        text: str = ORDER, name: str = "order.cpy", width: int = 1400, schema: str = ""
    ) -> None:
        path = page_of(text, name, schema)
        opened.append(path.as_uri())
        browser.open(path, width)

    browser.console()
    browser.requests()
    yield opener
    assert browser.console() == []
    assert [each for each in browser.requests() if each not in opened] == []
