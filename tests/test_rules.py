"""The pages of rules are those that the generator writes, and leave nothing out."""

from __future__ import annotations

import re
from collections.abc import Iterable
from pathlib import Path

import pytest
from rules_pages import ROOT, Rule, excerpt, pages, read_topics

TOPICS = read_topics()
RULES = [rule for topic in TOPICS for rule in topic.rules]
# Names in the sources that differ from the words in schemas and programs.
WORDS = {
    "unionOf": "union",
    "appInfo": "appinfo",
    "keyRef": "keyref",
    "other": "annotation|notation",
    "countIn": "COUNT IN",
    "identifiedBy": "IDENTIFIED BY",
    "namespaceName": "NAMESPACE",
    "picture": "PIC",
    "justified": "JUST",
    "synchronized": "SYNC",
    "volatileStorage": "VOLATILE",
    "display1": "DISPLAY-1",
}


def source(name: str) -> str:
    return (ROOT / "src" / name).read_text(encoding="utf-8")


def enumerators(text: str, beginning: str) -> set[str]:
    body = text.partition(beginning)[2].partition("};")[0]
    return set(re.findall(r"^\s+(\w+)(?: = \d+)?,", body, re.MULTILINE))


def covered(kind: str) -> set[str]:
    covers = [each.partition("/") for rule in RULES for each in rule.covers]
    return {name for found, _, name in covers if found == kind}


def texts(rules: Iterable[Rule], kind: str) -> str:
    files = [path for rule in rules for path in rule.files(kind)]
    return "\n".join(path.read_text(encoding="utf-8") for path in files)


@pytest.mark.parametrize("name", ["rules.md", "rules-schema.md", "rules-cobol.md"])
def test_pages_are_those_of_the_generator(name: str) -> None:
    message = "run docs/tools/rules_pages.py"
    assert (ROOT / "docs" / name).read_text(encoding="utf-8") == pages(TOPICS)[name], message


def test_each_example_has_a_heading_of_its_own() -> None:
    titles = [(topic.page, rule.title) for topic in TOPICS for rule in topic.rules]
    assert len(titles) == len(set(titles))


@pytest.mark.parametrize("rule", RULES, ids=lambda rule: rule.title)
def test_what_a_rule_covers_is_in_its_input(rule: Rule) -> None:
    text = texts([rule], "input")
    for cover in rule.covers:
        kind, _, name = cover.partition("/")
        word = WORDS.get(name, name)
        if kind in ("kind", "facet"):
            assert re.search(rf"<(\w+:)?({word})[\s/>]", text), cover
        elif kind == "type":
            assert re.search(rf'"(\w+:)?{word}"', text), cover
        elif kind == "level":
            assert re.search(rf"^ +0?{word} ", text, re.MULTILINE), cover
        else:
            assert word.upper() in text.upper(), cover


def test_every_element_of_a_schema_has_a_rule() -> None:
    kinds = enumerators(source("schema/element_kind.h"), "enum class SchemaElementKind {")
    assert len(kinds) == 29
    assert covered("kind") == kinds


def test_every_facet_has_a_rule() -> None:
    table = source("cobol/facets.cpp").partition("kFacetNames{")[2].partition("};")[0]
    facets = set(re.findall(r'"(\w+)"', table))
    assert len(facets) == 12
    assert covered("facet") == facets


def test_every_built_in_type_has_a_rule() -> None:
    types = set(re.findall(r'^    \{"(\w+)", ', source("cobol/builtin_types.cpp"), re.MULTILINE))
    shown = texts([rule for rule in RULES if rule.show == "types"], "input")
    assert len(types) == 44
    assert types - covered("type") - set(re.findall(r'type="\w+:(\w+)"', shown)) == set()


def test_every_clause_has_a_rule() -> None:
    clauses = enumerators(source("syntax/clauses.cpp"), "enum Kind : std::uint8_t {")
    assert len(clauses) == 18
    assert covered("clause") == clauses


def test_every_usage_has_a_rule() -> None:
    table = re.findall(r'UsageEntry\{(\w+), "([\w -]+)"', source("semantics/usage.cpp"))
    usages = dict(table)
    del usages["none"]
    assert len(usages) == 39
    written = texts([rule for rule in RULES if "usages" in rule.case], "files")
    found = set(re.findall(r"usage is ([\w -]+?)(?: unsigned)? identified", written))
    assert {name for name, text in usages.items() if text not in found} <= covered("usage")


def test_every_special_level_has_a_rule() -> None:
    levels = set(re.findall(r"Level = (\d+);", source("semantics/data_item.h")))
    assert len(levels) == 5
    assert covered("level") == levels | {"1"}


def test_an_excerpt_says_what_is_left_out() -> None:
    lines = ["a", "  b", "  c", "d"]
    assert excerpt("f", lines, "b", "c") == ["...", "b", "c", "..."]
    assert excerpt("f", lines, "a", "a") == ["a", "..."]
    with pytest.raises(ValueError, match="no line with 'x'"):
        excerpt("f", lines, "x", "c")
    with pytest.raises(ValueError, match="no line with 'a' after 'b'"):
        excerpt("f", lines, "b", "a")


def test_a_page_of_rules_names_cases_that_exist() -> None:
    assert [rule.case for rule in RULES if not Path(rule.folder, "case.toml").is_file()] == []
