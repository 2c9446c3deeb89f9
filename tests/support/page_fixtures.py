"""Fixtures for tests of the page of `fdrec show --html`."""

from __future__ import annotations

from collections.abc import Callable, Iterator
from pathlib import Path

import pytest
from support.browser import Browser
from support.harness import program_under_test, run
from support.shown_page import ORDER, Opener


@pytest.fixture(scope="module")
def browser() -> Iterator[Browser]:
    browser = Browser()
    yield browser
    browser.close()


@pytest.fixture(scope="module")
def page_of(tmp_path_factory: pytest.TempPathFactory) -> Callable[[str, str], Path]:
    """Makes the page of a source in free format, each once."""
    pages: dict[tuple[str, str], Path] = {}

    def make(text: str, name: str) -> Path:
        if (text, name) not in pages:
            folder = tmp_path_factory.mktemp("page")
            (folder / name).write_text(text, encoding="utf-8")
            command = [program_under_test("FDREC"), "show", "--html", "--source-format", "free"]
            result = run(folder, *command, "-o", "page.html", name)
            assert result.returncode == 0, result.stderr
            pages[text, name] = folder / "page.html"
        return pages[text, name]

    return make


@pytest.fixture
def show(browser: Browser, page_of: Callable[[str, str], Path]) -> Iterator[Opener]:
    """Opens pages. None of them may print to the console or load anything but itself."""
    opened = []

    def opener(text: str = ORDER, name: str = "order.cpy", width: int = 1400) -> None:
        path = page_of(text, name)
        opened.append(path.as_uri())
        browser.open(path, width)

    browser.console()
    browser.requests()
    yield opener
    assert browser.console() == []
    assert [each for each in browser.requests() if each not in opened] == []
