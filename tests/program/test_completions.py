"""The completions are up to date, and do in each shell what they are for."""

from __future__ import annotations

import os
import re
import subprocess
from pathlib import Path
from typing import Callable

import pytest
from completions import generate
from support import harness, manuals

FOLDER = manuals.ROOT / "completions"
SUPPORT = manuals.ROOT / "tests" / "support"

# A command line up to the cursor, and what completes its last word. Other proposals are
# wrong. A file is there for each kind, see `folder`.
FIRST = {"show", "schema"}
COPYBOOKS = {"b.cpy", "c.CBL", "sub"}
SOURCES = COPYBOOKS | {"a.xsd"}
ALL = SOURCES | {"d.xml", "e.txt"}
WORDS: list[tuple[str, set[str]]] = [
    ("fdrec s", FIRST),
    ("fdrec --dialect ibm s", FIRST),
    ("fdrec --werror s", FIRST),
    ("fdrec --dialect ", {"gnucobol", "ibm"}),
    ("fdrec to-xml --format=b", {"bdw"}),
    ("fdrec to-xml --trim ", {"both", "none", "right"}),
    ("fdrec to-xml --tr", {"--trailer", "--trim", "--truncate"}),
    ("fdrec show --tr", set()),
    ("fdrec copybook --pr", {"--prefix"}),
    ("fdrec plain --sec", {"--section"}),
    ("fdrec check ", {"a.xsd", "sub"}),
    ("fdrec check a.xsd ", COPYBOOKS),
    ("fdrec check --json --text 9 a.xsd ", COPYBOOKS),
    ("fdrec to-xml b.cpy ", ALL),
    ("fdrec from-xml b.cpy ", {"d.xml", "sub"}),
    ("fdrec deps ", SOURCES),
    ("fdrec show b.cpy -o ", ALL),
    ("fdrec show b.cpy --schema ", {"a.xsd", "sub"}),
    ("fdrec check --import-path ", {"sub"}),
    ("fdrec show --record ", set()),
    ("fdmorph ", SOURCES),
    ("fdmorph -n", {"-noprompt", "-nocountin"}),
    ("fdmorph -v ", {"a.xsd", "d.xml", "sub"}),
    ("fdmorph -noprompt -c ", {"b.cpy", "sub"}),
    ("fdmorph -p ", set()),
    ("zbc ", COPYBOOKS),
    ("zbc --v", {"--version"}),
    ("zbc --diagnostics=", {"json", "text"}),
    ("zbc -C DIA", {"DIALECT(GNUCOBOL)", "DIALECT(IBM)"}),
    ("zbc -C DBGI COPYM", {"COPYMISSING(WARN)", "COPYMISSING(ERROR)"}),
    ("zbc -C COPYP", {"COPYPATH("}),
    ("zbc @e", {"@e.txt"}),
]


@pytest.fixture(scope="module", name="folder")
def fixture_folder(tmp_path_factory: pytest.TempPathFactory) -> Path:
    folder = tmp_path_factory.mktemp("files")
    for name in ("a.xsd", "b.cpy", "c.CBL", "d.xml", "e.txt"):
        (folder / name).touch()
    (folder / "sub").mkdir()
    return folder


def run(folder: Path, *command: object, lines: str = "") -> str:
    return subprocess.run(
        [str(word) for word in command],
        cwd=folder,
        input=lines,
        env=harness.environment(LC_ALL="C.UTF-8", HOME=str(folder), TERM="xterm"),
        capture_output=True,
        text=True,
        check=True,
        timeout=60,
    ).stdout


def parts(output: str) -> list[set[str]]:
    """The words before each line with a full stop, as they are without quoting."""
    found: list[set[str]] = [set()]
    for line in output.splitlines():
        if line == ".":
            found.append(set())
        elif line:
            found[-1].add(line.replace("\\", "").removesuffix("/"))
    return found[:-1]


def in_bash(folder: Path, lines: list[str]) -> list[set[str]]:
    """Calls the functions as bash does, with the words that it makes of a line."""
    script = "\n".join(f"source {path}" for path in sorted((FOLDER / "bash").iterdir()))
    for line in lines:
        words = re.sub("([=@])", r" \1 ", line).replace("  ", " ").split(" ")
        script += f"""
COMP_WORDS=({' '.join(f"'{word}'" for word in words)})
COMP_CWORD={len(words) - 1}
_{words[0]}
printf '%s\\n' "${{COMPREPLY[@]}}" .
"""
    return parts(run(folder, "bash", "--norc", "-c", script))


def in_fish(folder: Path, lines: list[str]) -> list[set[str]]:
    script = "".join(f"source {path}\n" for path in sorted((FOLDER / "fish").iterdir()))
    for line in lines:
        script += f"complete -C '{line}' | string replace -r '\\t.*' ''\necho .\n"
    found = parts(run(folder, "fish", "--no-config", "-c", script))
    # It proposes the whole word.
    begun = [line.rpartition(" ")[2].rpartition("=") for line in lines]
    return [
        {word.removeprefix("".join(before[:2])) for word in words}
        for words, before in zip(found, begun)
    ]


def in_zsh(folder: Path, lines: list[str]) -> list[set[str]]:
    text = run(
        folder,
        *("zsh", "-f", SUPPORT / "zsh_completions.zsh", FOLDER / "zsh", folder / ".dump"),
        lines="".join(f"{line}\n" for line in lines),
    )
    return [  # what is proposed for an argument @FILE stands after the @
        {"@" + word if line.rpartition(" ")[2].startswith("@") else word for word in words}
        for line, words in zip(lines, parts(text))
    ]


def test_the_files_are_those_of_the_programs_as_they_are() -> None:
    made = generate.scripts(Path(harness.program_under_test("FDREC")))
    kept = {name: (FOLDER / name).read_text(encoding="utf-8") for name in made}
    stale = [name for name, text in made.items() if kept[name] != text]
    assert stale == [], "run: python3 -m completions.generate FDREC"
    installed = (FOLDER / "CMakeLists.txt").read_text(encoding="utf-8")
    assert all(name in installed for name in made)


@pytest.mark.parametrize("shell", [in_bash, in_zsh, in_fish], ids=["bash", "zsh", "fish"])
def test_each_word_is_completed(
    shell: Callable[[Path, list[str]], list[set[str]]], folder: Path
) -> None:
    lines = [line for line, _ in WORDS]
    found = shell(folder, lines)
    assert len(found) == len(WORDS)
    wrong = {
        line: (sorted(words), sorted(expected))
        for (line, expected), words in zip(WORDS, found)
        if words != expected
    }
    assert wrong == {}


def test_all_shells_accept_the_files() -> None:
    for shell in ("bash", "zsh", "fish"):
        for path in sorted((FOLDER / shell).iterdir()):
            assert run(Path(os.sep), shell, "-n", path) == ""
