#!/usr/bin/python3
"""Inputs of growing size for the benchmarks.

    generate.py KIND SIZE FOLDER

writes one input of a kind into a folder and prints the name of its main file.
The same arguments always give the same bytes. KINDS lists the kinds. Inputs are
written piece by piece, so this process stays small whatever their size.
"""

import sys
from pathlib import Path

import dictionaries
import schema_chains
import schemas
import source_texts
import sources

# Writer and file extension. The docstring of the writer says what the size counts.
KINDS = {
    **schemas.KINDS,
    **schema_chains.KINDS,
    "flat-dictionary": (dictionaries.flat_dictionary, ".xml"),
    "deep-dictionary": (dictionaries.deep_dictionary, ".xml"),
    **sources.KINDS,
    **source_texts.KINDS,
}


def generate(kind, size, folder):
    """Writes an input into a folder of its own below `folder`."""
    writer, extension = KINDS[kind]
    place = Path(folder) / f"{kind}-{size}"
    place.mkdir(parents=True, exist_ok=True)
    return writer(place / ("main" + extension), size)


def main(arguments):
    if len(arguments) != 3 or arguments[0] not in KINDS or not arguments[1].isdigit():
        print("Usage: generate.py KIND SIZE FOLDER\nKinds:", ", ".join(KINDS), file=sys.stderr)
        return 1
    print(generate(arguments[0], int(arguments[1]), arguments[2]))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
