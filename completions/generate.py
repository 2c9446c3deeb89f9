"""Writes the completions of the programs for bash, zsh and fish.

    python3 -m completions.generate FDREC [FOLDER]

in the folder above this one. FDREC is the program as built; its help has its options.
Those of fdmorph and zbc are on their man pages. The files go into the folders bash, zsh
and fish of FOLDER, by default of this one."""

from __future__ import annotations

import sys
from pathlib import Path

from completions import bash_completion, fish_completion, program_options, zsh_completion

_HERE = Path(__file__).resolve().parent


def scripts(fdrec: Path) -> dict[str, str]:
    """The files with their contents."""
    files = {}
    for shell, form, writer in (
        ("bash", "{}", bash_completion),
        ("zsh", "_{}", zsh_completion),
        ("fish", "{}.fish", fish_completion),
    ):
        for name, text in (
            ("fdmorph", writer.fdmorph(program_options.read_fdmorph())),
            ("fdrec", writer.fdrec(*program_options.read_fdrec(fdrec))),
            ("zbc", writer.zbc(*program_options.read_zbc())),
        ):
            files[f"{shell}/{form.format(name)}"] = text
    return files


def main() -> None:
    fdrec = Path(sys.argv[1]).absolute()
    folder = Path(sys.argv[2]) if len(sys.argv) > 2 else _HERE
    for name, text in scripts(fdrec).items():
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
