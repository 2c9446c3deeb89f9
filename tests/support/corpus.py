"""The folder of real schemas and COBOL sources that FDMORPH_CORPUS names.

The corpus is not part of the repository. Tests that need it are skipped, with a visible reason,
where the variable is not set. A variable that names the wrong folder is an error.
"""

from __future__ import annotations

import os
from pathlib import Path

import pytest

VARIABLE = "FDMORPH_CORPUS"
CORPUS = Path(os.environ[VARIABLE]).resolve() if os.environ.get(VARIABLE) else None


def corpus_files(folder: str, *suffixes: str) -> list[Path]:
    """The files in a folder of the corpus whose extension, in lower case, is given."""
    if CORPUS is None:
        return []
    return [
        path for path in sorted((CORPUS / folder).rglob("*")) if path.suffix.lower() in suffixes
    ]


def name_of(path: Path) -> str:
    """The path below the first folder of the corpus."""
    assert CORPUS is not None
    return Path(*path.relative_to(CORPUS).parts[1:]).as_posix()


def require_corpus(files: list[Path]) -> None:
    """Skips the test module that calls this where there is no corpus."""
    if CORPUS is None:
        pytest.skip(f"{VARIABLE} is not set", allow_module_level=True)
    if not files:
        pytest.fail(f"{VARIABLE} names {CORPUS}, which has no such files", pytrace=False)
