"""The page of `fdrec show --html` in a browser: how it looks, on the screen and printed."""

from __future__ import annotations

import pytest
from selenium.webdriver.common.keys import Keys
from support.browser import Browser
from support.shown_page import (
    BOXES,
    CONTRASTS,
    ORDER_LENGTH,
    Opener,
    item_names,
    overlaps,
    row_of,
)

pytest_plugins = ["support.page_fixtures"]


def test_boxes_are_in_scale(browser: Browser, show: Opener) -> None:
    show()
    boxes = browser.run(BOXES)
    assert len(boxes) > 12
    for each in boxes:
        offset, length = each["label"].split(", ")[-2:]
        scale = each["mapWidth"] / ORDER_LENGTH
        left = each["mapLeft"] + int(offset.split(" ")[1]) * scale
        assert each["left"] == pytest.approx(left, abs=0.1), each
        assert each["right"] - each["left"] == pytest.approx(
            int(length.split(" ")[0]) * scale, abs=0.1
        )


def test_boxes_of_a_level_do_not_overlap(browser: Browser, show: Opener) -> None:
    show()
    boxes = browser.run(BOXES)
    for i, one in enumerate(boxes):
        for other in boxes[i + 1 :]:
            if one["level"] == other["level"]:
                assert not overlaps(one, other), (one, other)


def test_redefinitions_are_side_by_side(browser: Browser, show: Opener) -> None:
    show()
    by_name = {each["label"].split(",")[0]: each for each in browser.run(BOXES)}
    card = by_name["CARD-DATA"]
    transfer = by_name["TRANSFER-DATA redefines CARD-DATA"]
    cheque = by_name["CHEQUE-DATA redefines CARD-DATA"]
    assert card["left"] == transfer["left"] == cheque["left"]
    assert card["bottom"] < transfer["top"] < transfer["bottom"] < cheque["top"]
    browser.focus(row_of(browser, "#items-rows", "CARD-NUMBER"))
    assert browser.texts(".view-column h4") == ["CARD-DATA", "TRANSFER-DATA", "CHEQUE-DATA"]
    assert browser.texts(".view-column .current .mono") == ["CARD-NUMBER", "9(16)"]
    columns = browser.all(".view-column")
    assert len({each.rect["y"] for each in columns}) == 1
    assert columns[0].rect["x"] + columns[0].rect["width"] < columns[1].rect["x"]


@pytest.mark.parametrize("colors", ["light", "dark"])
def test_text_has_enough_contrast(browser: Browser, show: Opener, colors: str) -> None:
    show()
    browser.emulate(colors=colors)
    browser.focus(row_of(browser, "#items-rows", "ORDER-KIND"))
    ratios = browser.run(CONTRASTS)
    assert len(ratios) > 100
    assert [each for each in ratios if each[0] < 4.5] == []


def test_colors_follow_the_system_and_the_switch(browser: Browser, show: Opener) -> None:
    background = "return getComputedStyle(document.body).backgroundColor"
    show()
    light = browser.run(background)
    browser.emulate(colors="dark")
    dark = browser.run(background)
    assert light != dark
    browser.one("#theme [value=light]").click()
    assert browser.run(background) == light
    browser.emulate(colors="light")
    browser.one("#theme [value=dark]").click()
    assert browser.run(background) == dark


@pytest.mark.parametrize("width", [360, 700, 1000, 2400])
def test_nothing_is_cut_at_any_width(browser: Browser, show: Opener, width: int) -> None:
    show(width=width)
    assert browser.run("return document.documentElement.scrollWidth") <= width
    panes = browser.run(
        """return [...document.querySelectorAll(".head, .pane")].map((pane) => {
          const { left, right, top, bottom, height } = pane.getBoundingClientRect();
          return { left, right, top, bottom, height };
        })"""
    )
    for i, one in enumerate(panes):
        assert one["height"] > 60
        assert one["left"] >= 0 and one["right"] <= width
        assert not any(overlaps(one, other) for other in panes[i + 1 :])
    assert len(item_names(browser)) > 5


def test_print_has_all_rows_and_says_what_is_folded(browser: Browser, show: Opener) -> None:
    show()
    browser.focus(row_of(browser, "#items-rows", "CUSTOMER"))
    browser.press(Keys.ARROW_LEFT)
    browser.run(
        """window.addEventListener("beforeprint", () => {
          window.printed = document.querySelector("#print-copy").innerText;
          window.rows = document.querySelectorAll(".printed-items tbody tr").length;
        });"""
    )
    browser.print_page()
    printed = browser.run("return window.printed")
    assert "CUSTOMER folded, 2 items" in printed
    assert "CUSTOMER-NAME" not in printed
    assert "ORDER-LINE first of 12 shown" in printed
    assert '"B", "F" THRU "H", SPACE' in printed
    # The record, 15 of the 17 items in it, and two conditions.
    assert browser.run("return window.rows") == 18
    assert browser.run("return document.querySelector('#print-copy').childElementCount") == 0


def test_print_leaves_out_the_controls(browser: Browser, show: Opener) -> None:
    show()
    browser.emulate(media="print", colors="dark")
    browser.run("window.dispatchEvent(new Event('beforeprint'))")
    visible = """return [...document.querySelectorAll(arguments[0])]
      .filter((each) => each.checkVisibility()).length"""
    assert browser.run(visible, ".tools, .items-pane, .tree-pane, .details-pane") == 0
    assert browser.run(visible, ".printed-items, .printed-elements, #map") == 3
    assert browser.run("return getComputedStyle(document.body).color") == "rgb(29, 35, 41)"
