"""Validates documents with xmllint."""

from __future__ import annotations

import shutil
from pathlib import Path

import pytest
from support.harness import readable, run

VALID, DOCUMENT_REFUSED, SCHEMA_REFUSED = 0, 3, 5  # exit statuses
NEEDS_XMLLINT = pytest.mark.skipif(
    shutil.which("xmllint") is None, reason="xmllint is not installed"
)


def validate(schema: Path, document: Path) -> tuple[int, str]:
    """The status and all that xmllint prints; it loads nothing from the network."""
    command = ["xmllint", "--noout", "--nonet", "--schema", schema.name, str(document.resolve())]
    result = run(schema.parent, *command)
    return result.returncode, readable(result.stdout + result.stderr)
