"""Compares the results of a run with the expected results, byte by byte."""

from __future__ import annotations

import difflib
from pathlib import Path

Tree = dict[str, bytes]  # content by relative path; a directory's path ends in a slash


def read_tree(root: Path) -> Tree:
    """All files and directories below the root; empty if there is no root."""
    tree: Tree = {}
    for path in root.rglob("*"):
        name = path.relative_to(root).as_posix()
        tree |= {name + "/": b""} if path.is_dir() else {name: path.read_bytes()}
    return tree


def visible_lines(content: bytes) -> list[str]:
    """The lines, each with a $ at its end that makes trailing blanks visible."""
    *lines, rest = content.decode("utf-8", "backslashreplace").split("\n")
    return [line + "$" for line in lines] + ([rest] if rest else [])


def compare(name: str, expected: bytes, found: bytes) -> list[str]:
    """The unified diff of one stream or file; empty if they are equal."""
    if expected == found:
        return []
    before, after = visible_lines(expected), visible_lines(found)
    diff = difflib.unified_diff(before, after, f"{name} expected", f"{name} found", lineterm="")
    return list(diff) or [f"{name} differs in bytes that are not text"]


def compare_trees(expected: Tree, found: Tree) -> list[str]:
    report = [f"{name} is missing" for name in sorted(expected.keys() - found.keys())]
    report += [f"{name} should not be there" for name in sorted(found.keys() - expected.keys())]
    for name, content in sorted(found.items()):
        report += compare(name, expected.get(name, b""), content)
    return report
