"""A page of `fdrec show --html` that is open in a browser."""

from __future__ import annotations

from collections.abc import Callable

from selenium.webdriver.common.keys import Keys
from selenium.webdriver.remote.webelement import WebElement
from support.browser import Browser

Opener = Callable[..., None]  # opens the page of a source

ORDER = """\
01  ORDERS IDENTIFIED BY "order" NAMESPACE IS "urn:o".
  05  ORDER-ID PIC 9(8) IDENTIFIED BY "id" IS ATTRIBUTE.
  05  ORDER-KIND PIC X(12) IDENTIFIED BY "kind".
    88  IS-RUSH VALUE "R".
    88  IS-BULK VALUES "B" "F" THRU "H" SPACE.
  05  CUSTOMER IDENTIFIED BY "customer".
    10  CUSTOMER-NAME PIC X(30) IDENTIFIED BY "name".
    10  BALANCE PIC S9(9)V99 IDENTIFIED BY "balance".
  05  CARD-DATA IDENTIFIED BY "card".
    10  CARD-NUMBER PIC 9(16) IDENTIFIED BY "number".
    10  CARD-EXPIRY PIC 9(24) COMP-3.
  05  TRANSFER-DATA REDEFINES CARD-DATA IDENTIFIED BY "transfer".
    10  IBAN PIC X(29) IDENTIFIED BY "iban".
  05  CHEQUE-DATA REDEFINES CARD-DATA IDENTIFIED BY "cheque".
    10  CHEQUE-TEXT PIC X(20).
  05  LINE-COUNT PIC 9(4).
  05  ORDER-LINE OCCURS 0 TO 12 TIMES DEPENDING ON LINE-COUNT IDENTIFIED BY "line".
    10  SKU PIC X(10) IDENTIFIED BY "sku".
    10  PRICE PIC S9(7)V99 IDENTIFIED BY "price".
  05  FILLER PIC X(15).
"""
# 8 + 12 + (30 + 11) + (16 + 13) + 4 + 12 * (10 + 9) + 15
ORDER_LENGTH = 337

BOXES = """return [...document.querySelectorAll(".box")].map((box) => {
  const { left, right, top, bottom } = box.getBoundingClientRect();
  const map = document.querySelector("#map").getBoundingClientRect();
  return { label: box.getAttribute("aria-label"), level: box.ariaLevel, left, right, top, bottom,
           mapLeft: map.left, mapWidth: map.width };
})"""

# The contrast of each text with the first background around it that has a color (Web
# Content Accessibility Guidelines 2.1, contrast ratio).
CONTRASTS = """
const canvas = document.createElement("canvas").getContext("2d", { willReadFrequently: true });
const rgb = (color) => {
  canvas.clearRect(0, 0, 1, 1);
  canvas.fillStyle = color;
  canvas.fillRect(0, 0, 1, 1);
  return [...canvas.getImageData(0, 0, 1, 1).data];
};
const luminance = ([r, g, b]) => [r, g, b].map((each) => each / 255)
  .map((each) => (each <= 0.04045 ? each / 12.92 : ((each + 0.055) / 1.055) ** 2.4))
  .reduce((sum, each, i) => sum + each * [0.2126, 0.7152, 0.0722][i], 0);
const behind = (element) => {
  for (let at = element; at; at = at.parentElement) {
    const color = rgb(getComputedStyle(at).backgroundColor);
    if (color[3] === 255) return color;
  }
  return rgb("Canvas");
};
const found = [];
for (const element of document.querySelectorAll("body *")) {
  const hasText = [...element.childNodes].some((each) => each.nodeType === 3 && each.data.trim());
  if (!hasText || !element.checkVisibility() || element.closest("script")) continue;
  const pair = [rgb(getComputedStyle(element).color), behind(element)].map(luminance);
  const ratio = (Math.max(...pair) + 0.05) / (Math.min(...pair) + 0.05);
  found.push([ratio, element.className, element.textContent.slice(0, 30)]);
}
return found;
"""


def many_items(count: int) -> str:
    return "01 BIG-RECORD.\n" + "".join(f"02 ITEM-{i} PIC X(7).\n" for i in range(count))


def overlaps(one: dict[str, float], other: dict[str, float]) -> bool:
    width = min(one["right"], other["right"]) - max(one["left"], other["left"])
    height = min(one["bottom"], other["bottom"]) - max(one["top"], other["top"])
    return width > 0.1 and height > 0.1


def item_rows(browser: Browser) -> list[str]:
    """The names and remarks of the rows of items."""
    return browser.texts("#items-rows .spacer .row .c-name")


def item_names(browser: Browser) -> list[str]:
    return browser.texts("#items-rows .spacer .name")


def element_names(browser: Browser) -> list[str]:
    return browser.texts("#tree-rows .name")


def row_of(browser: Browser, pane: str, name: str) -> WebElement:
    script = """return [...document.querySelectorAll(arguments[0] + " .row")].find(
      (row) => row.querySelector(".name")?.textContent === arguments[1])"""
    return browser.run(script, pane, name)


def marked(browser: Browser, pane: str) -> list[str]:
    return browser.texts(f"{pane} .row.marked .name")


def box(browser: Browser, name: str) -> WebElement:
    return browser.one(f'.box[aria-label^="{name}"]')


def search(browser: Browser, words: str) -> list[str]:
    """The names of the rows that stay, those around what is found excepted."""
    field = browser.one("#search")
    field.send_keys(Keys.ESCAPE)
    assert browser.one("#found").text == ""
    field.send_keys(words)
    browser.wait(lambda: browser.one("#found").text != "")
    return browser.texts("#items-rows .spacer .row:not(.around, .condition) .name")
