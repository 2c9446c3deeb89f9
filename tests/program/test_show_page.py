"""The page of `fdrec show --html` in a browser: what it does."""

from __future__ import annotations

from selenium.webdriver.common.keys import Keys
from support.browser import Browser
from support.shown_page import (
    ORDER_LENGTH,
    Opener,
    box,
    element_names,
    item_names,
    item_rows,
    many_items,
    marked,
    row_of,
    search,
)

pytest_plugins = ["support.page_fixtures"]

SCRIPT = "</script><script>window.hacked = 1</script>"


def test_head_names_the_record_and_its_bytes(browser: Browser, show: Opener) -> None:
    show()
    assert browser.one("h1").text == "ORDERS"
    assert browser.texts("#facts dd") == [
        f"{ORDER_LENGTH} bytes",
        "ibm",
        "cp037 (cp1047 has other brackets)",
        "order.cpy",
    ]
    assert browser.driver.title == "ORDERS - fdrec"


def test_items_have_columns(browser: Browser, show: Opener) -> None:
    show()
    cells = "span:not(.c-name, .twist, .name)"
    script = "return [...arguments[0].querySelectorAll(arguments[1])].map((e) => e.textContent)"
    balance = row_of(browser, "#items-rows", "BALANCE")
    assert browser.run(script, balance, cells) == ["10", "S9(9)V99", "display", "50", "11", ""]
    bulk = row_of(browser, "#items-rows", "IS-BULK")
    assert browser.run(script, bulk, cells) == ["88", '"B", "F" THRU "H", SPACE']


def test_elements_are_those_of_the_document(browser: Browser, show: Opener) -> None:
    show()
    assert element_names(browser) == (
        "order @id kind customer name balance card number transfer iban cheque line sku price"
    ).split(" ")


def test_search_finds_names_pictures_and_paths(browser: Browser, show: Opener) -> None:
    show()
    assert search(browser, "card") == ["CARD-DATA", "CARD-NUMBER", "CARD-EXPIRY"]
    assert browser.one("#found").text == "3 items found"
    assert search(browser, "s9(") == ["BALANCE", "PRICE"]
    assert search(browser, "customer/na") == ["CUSTOMER-NAME"]
    assert search(browser, "order/@i") == ["ORDER-ID"]
    assert search(browser, "is-rush") == ["ORDER-KIND"]
    assert search(browser, "iban") == ["IBAN"]
    assert element_names(browser) == ["order", "transfer", "iban"]
    assert search(browser, "nothing-like-it") == []
    browser.one("#search").send_keys(Keys.ESCAPE)
    assert "FILLER" in item_names(browser)


def test_keys_search_and_go_to_the_first_item_found(browser: Browser, show: Opener) -> None:
    show()
    browser.press("/")
    browser.press("sku", Keys.ENTER)
    assert browser.run("return document.activeElement.querySelector('.name').textContent") == "SKU"
    assert marked(browser, "#tree-rows") == ["sku"]


def test_groups_fold_and_say_so(browser: Browser, show: Opener) -> None:
    show()
    row = row_of(browser, "#items-rows", "CUSTOMER")
    assert row.get_attribute("aria-expanded") == "true"
    browser.focus(row)
    browser.press(Keys.ARROW_LEFT)
    assert "BALANCE" not in item_names(browser)
    assert any(each.endswith("CUSTOMERfolded, 2 items") for each in item_rows(browser))
    row = row_of(browser, "#items-rows", "CUSTOMER")
    assert row.get_attribute("aria-expanded") == "false"
    row.find_element("class name", "twist").click()
    assert "BALANCE" in item_names(browser)
    browser.one("#fold-all").click()
    assert item_names(browser) == ["ORDERS"] + [
        "ORDER-ID ORDER-KIND IS-RUSH IS-BULK CUSTOMER CARD-DATA TRANSFER-DATA CHEQUE-DATA"
        " LINE-COUNT ORDER-LINE FILLER"
    ][0].split(" ")
    assert element_names(browser) == (
        "order @id kind customer card transfer cheque line".split(" ")
    )
    browser.one("#open-all").click()
    assert "BALANCE" in item_names(browser)


def test_tables_show_their_first_occurrence_until_unfolded(browser: Browser, show: Opener) -> None:
    show()
    assert any("first of 12 shown" in each for each in item_rows(browser))
    assert item_names(browser).count("SKU") == 1
    row = row_of(browser, "#items-rows", "ORDER-LINE")
    row.find_element("class name", "occurrences").click()
    names = item_names(browser)
    first = names.index("ORDER-LINE [1]")
    assert names[first : first + 4] == ["ORDER-LINE [1]", "SKU", "PRICE", "ORDER-LINE [2]"]
    browser.run("document.querySelector('#items-rows').scrollTop = 1e9")
    last = browser.wait(lambda: row_of(browser, "#items-rows", "ORDER-LINE [12]"))
    # 94 bytes come before the table, 11 * 19 before its last occurrence.
    assert last.find_element("class name", "c-offset").text == str(94 + 11 * 19)
    browser.focus(last)
    browser.press(Keys.ARROW_RIGHT)
    names = item_names(browser)
    assert names[names.index("ORDER-LINE [12]") + 1] == "SKU"
    assert len(browser.all(".box.occurrence")) == 12
    browser.press(Keys.HOME)
    browser.focus(browser.wait(lambda: row_of(browser, "#items-rows", "ORDER-LINE")))
    browser.press(" ")
    assert item_names(browser).count("SKU") == 1
    assert len(browser.all(".box.folded")) == 1


def test_focus_marks_the_same_item_everywhere(browser: Browser, show: Opener) -> None:
    show()
    browser.focus(row_of(browser, "#items-rows", "IBAN"))
    assert marked(browser, "#tree-rows") == ["iban"]
    assert browser.texts(".box.marked .box-name") == ["IBAN"]
    browser.focus(row_of(browser, "#tree-rows", "balance"))
    assert marked(browser, "#items-rows") == ["BALANCE"]
    assert browser.texts(".box.marked .box-name") == ["BALANCE"]
    browser.focus(box(browser, "CUSTOMER-NAME,"))
    assert marked(browser, "#items-rows") == ["CUSTOMER-NAME"]
    assert marked(browser, "#tree-rows") == ["name"]


def test_hovering_marks_the_same_item_everywhere(browser: Browser, show: Opener) -> None:
    show()
    browser.hover(row_of(browser, "#items-rows", "IBAN"))
    assert marked(browser, "#tree-rows") == ["iban"]
    browser.hover(row_of(browser, "#tree-rows", "balance"))
    assert marked(browser, "#items-rows") == ["BALANCE"]
    browser.hover(box(browser, "CUSTOMER-NAME,"))
    assert marked(browser, "#tree-rows") == ["name"]
    browser.hover(browser.one("h1"))
    assert marked(browser, "#items-rows") == ["ORDERS"]


def test_the_text_of_an_element_is_marked_with_it(browser: Browser, show: Opener) -> None:
    show()
    browser.focus(row_of(browser, "#items-rows", "CHEQUE-TEXT"))
    assert marked(browser, "#tree-rows") == ["cheque"]
    browser.focus(row_of(browser, "#tree-rows", "cheque"))
    assert marked(browser, "#items-rows") == ["CHEQUE-DATA", "CHEQUE-TEXT"]
    browser.focus(row_of(browser, "#items-rows", "LINE-COUNT"))
    assert marked(browser, "#tree-rows") == []


def test_details_have_the_values_of_level_88(browser: Browser, show: Opener) -> None:
    show()
    browser.focus(row_of(browser, "#items-rows", "ORDER-KIND"))
    assert browser.texts("#details .conditions th") == ["IS-RUSH", "IS-BULK"]
    assert browser.texts("#details .conditions td") == ['"R"', '"B", "F" THRU "H", SPACE']
    facts = dict(zip(browser.texts("#details dt"), browser.texts("#details dd")))
    assert facts["Bytes"] == "8 to 19"
    assert facts["XML path"] == "order/kind"
    assert facts["Source"] == "order.cpy, line 3"


def test_keys_move_through_the_boxes(browser: Browser, show: Opener) -> None:
    show()
    label = "return document.activeElement.getAttribute('aria-label').split(',')[0]"
    browser.focus(box(browser, "ORDERS,"))
    browser.press(Keys.ARROW_DOWN, Keys.ARROW_RIGHT, Keys.ARROW_RIGHT)
    assert browser.run(label) == "CUSTOMER"
    browser.press(Keys.ENTER)
    assert browser.texts("#crumbs .crumb") == ["ORDERS", "CUSTOMER"]
    assert browser.one("#crumbs .range").text == "bytes 20 to 60"
    browser.press(Keys.ARROW_DOWN)
    assert browser.run(label) == "CUSTOMER-NAME"
    browser.press(Keys.ESCAPE)
    assert browser.texts("#crumbs .crumb") == ["ORDERS"]


def test_keys_move_through_the_rows(browser: Browser, show: Opener) -> None:
    show()
    name = "return document.activeElement.querySelector('.name').textContent"
    browser.focus(row_of(browser, "#items-rows", "ORDERS"))
    for key, expected in [
        (Keys.END, "FILLER"),
        (Keys.ARROW_UP, "PRICE"),
        (Keys.ARROW_LEFT, "ORDER-LINE"),
        (Keys.HOME, "ORDERS"),
        (Keys.ARROW_RIGHT, "ORDER-ID"),
        (Keys.ARROW_DOWN, "ORDER-KIND"),
    ]:
        browser.press(key)
        assert browser.run(name) == expected
    browser.press(Keys.TAB)
    assert browser.run("return document.activeElement.closest('#tree-rows') !== null")


def test_several_records_have_tabs(browser: Browser, show: Opener) -> None:
    text = "\n".join(
        [
            "IDENTIFICATION DIVISION. PROGRAM-ID. P.",
            'ENVIRONMENT DIVISION. INPUT-OUTPUT SECTION. FILE-CONTROL. SELECT F ASSIGN TO "f".',
            "DATA DIVISION. FILE SECTION. FD F.",
            "01 HEAD-RECORD PIC X(4).",
            "01 BODY-RECORD. 02 AMOUNT PIC 9(3).",
        ]
    )
    show(text, "p.cbl")
    assert browser.texts("#records [role=tab]") == ["HEAD-RECORD", "BODY-RECORD"]
    browser.focus(browser.one("#records [aria-selected=true]"))
    browser.press(Keys.ARROW_RIGHT)
    assert browser.one("h1").text == "BODY-RECORD"
    assert item_names(browser) == ["BODY-RECORD", "AMOUNT"]


def test_controls_have_names_and_roles(browser: Browser, show: Opener) -> None:
    show()
    for element in browser.all("button, input, select, .box, #details"):
        if element.is_displayed():
            assert element.accessible_name, element.get_attribute("outerHTML")
    roles = {
        "#items": "treegrid",
        "#items-rows .spacer .row": "row",
        "#items-rows .spacer .c-name": "gridcell",
        "#tree-rows": "tree",
        "#tree-rows .row": "treeitem",
        "#map": "tree",
        ".box": "treeitem",
    }
    for selector, role in roles.items():
        assert browser.one(selector).get_attribute("role") == role
    # One row of a list, and one box, takes the focus from the keyboard.
    for pane in ["#items-rows", "#tree-rows", "#map"]:
        assert len(browser.all(f'{pane} [tabindex="0"]')) == 1


SCHEMA = """\
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:element name="order">
    <xs:complexType>
      <xs:sequence>
        <xs:element name="line" type="xs:byte" maxOccurs="9"/>
      </xs:sequence>
    </xs:complexType>
  </xs:element>
</xs:schema>
"""


def test_a_schema_adds_types_and_findings(browser: Browser, show: Opener) -> None:
    text = """\
01 ORDERS IDENTIFIED BY "order".
 02 A-LINE PIC S9(3) OCCURS 5 IDENTIFIED BY "line".
"""
    show(text, schema=SCHEMA)
    assert browser.texts("#facts dd")[-1] == "a.xsd"
    row = row_of(browser, "#tree-rows", "line")
    assert row.find_element("class name", "badge").text == "1"
    assert "byte, from -128 to 127" in row.find_element("class name", "remark").text
    browser.focus(row)
    assert browser.texts("#details .findings code") == ["occurs"]
    (finding,) = browser.texts("#details .findings li")
    assert finding.startswith("error there may be more occurrences")
    facts = dict(zip(browser.texts("#details dt"), browser.texts("#details dd")))
    assert facts["Type"] == "byte, from -128 to 127"


def test_100000_items_stay_usable(browser: Browser, show: Opener) -> None:
    show(many_items(100_000), "big.cpy")
    count = "return document.querySelectorAll('*').length"
    limit = 1500
    assert browser.run(count) < limit
    browser.run("document.querySelector('#items-rows').scrollTop = 1e9")
    browser.wait(lambda: "ITEM-99999" in item_names(browser))
    assert browser.run(count) < limit
    assert search(browser, "ITEM-4711") == ["ITEM-4711"] + [f"ITEM-4711{i}" for i in range(10)]
    assert marked(browser, "#tree-rows") == ["ITEM-4711"]
    browser.one("#search").send_keys(Keys.ESCAPE)
    browser.focus(browser.one("#items-rows [tabindex='0']"))
    browser.press(Keys.END)
    assert marked(browser, "#tree-rows") == ["ITEM-99999"]
    assert browser.run(count) < limit


def test_narrow_items_are_enlarged_step_by_step(browser: Browser, show: Opener) -> None:
    show(many_items(100_000), "big.cpy")
    for _ in range(10):
        boxes = browser.all(".box.run")
        if not boxes:
            break
        browser.focus(boxes[0])
        browser.press(Keys.ENTER)
    assert browser.texts(".box-name")[:2] == ["BIG-RECORD", "ITEM-0"]
    assert len(browser.all(".box")) < 400


def test_texts_of_the_source_are_no_markup(browser: Browser, show: Opener) -> None:
    values = [SCRIPT, "<img src=x onerror='window.hacked = 1'>", "<!--", "\u2028\u2029&amp;"]
    literals = " ".join('"' + each.replace('"', '""') + '"' for each in values)
    text = f"01 A-RECORD. 02 A-TEXT PIC X(60). 88 IS-ODD VALUES {literals}.\n"
    show(text, "a<b>&quot;'.cpy")
    assert browser.texts("#items-rows .c-values") == [", ".join(f'"{each}"' for each in values)]
    assert browser.texts("#facts dd")[3] == "a<b>&quot;'.cpy"
    assert browser.run("return window.hacked") is None
    assert len(browser.all("script")) == 2


def test_the_policy_forbids_scripts_and_the_network(browser: Browser, show: Opener) -> None:
    show()
    browser.run(
        """window.refused = [];
        document.addEventListener("securitypolicyviolation", (event) => {
          window.refused.push(event.effectiveDirective);
        });
        const script = document.createElement("script");
        script.textContent = "window.hacked = 1";
        const image = document.createElement("img");
        image.src = "http://localhost:9/a.png";
        document.body.append(script, image);
        fetch("http://localhost:9/").catch(() => {});"""
    )
    browser.wait(lambda: len(browser.run("return window.refused")) == 3)
    refused = {"script-src-elem", "img-src", "connect-src"}
    assert set(browser.run("return window.refused")) == refused
    assert browser.run("return window.hacked") is None
    # Both logs have what was refused.
    browser.console()
    browser.requests()
