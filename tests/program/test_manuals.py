"""The man pages agree with the programs: options, commands, codes, functions, examples."""

from __future__ import annotations

import os
import re
import shutil
import subprocess
from pathlib import Path

import pytest
from completions import man_pages, program_options
from completions.program_options import Command, Option
from support import harness, manuals

SOURCES = manuals.ROOT / "src"
FDREC = Path(harness.program_under_test("FDREC"))
PROGRAM, COMMANDS = program_options.read_fdrec(FDREC)
PAGES = manuals.all_pages()
LINKS = [path for path in PAGES if man_pages.read(path).startswith(".so ")]

Row = tuple[tuple[str, ...], frozenset[str]]


def row(option: Option) -> Row:
    """Names and value of an option; the order of words does not matter."""
    value = option.value.name.split("|") if option.value else []
    return tuple(sorted(option.names)), frozenset(value)


def rows(options: list[Option]) -> list[Row]:
    return sorted(map(row, options), key=str)


def documented(entries: list[man_pages.Entry]) -> list[Row]:
    """The options in the tags of entries. Names of one tag are one option."""
    found = []
    for tag in (tag for entry in entries for tag in entry.tags):
        pairs = program_options.options_of_tag(tag)
        if pairs:
            value = frozenset(pairs[0][1].split("|")) if pairs[0][1] else frozenset()
            found.append((tuple(sorted(name for name, _ in pairs)), value))
    return sorted(found, key=str)


def names_of(commands: list[Command]) -> list[str]:
    return [command.name for command in commands]


def test_fdmorph_has_the_options_of_the_table() -> None:
    table = re.findall(
        r'^    \{"(-[^"]+)", (?:true|false), (\w+)(?:::(\w+))?',
        (SOURCES / "driver" / "options.h").read_text(encoding="utf-8"),
        re.MULTILINE,
    )
    expected = {
        name.lower(): kind in ("FileNameOption", "TextOption") or action == "validate"
        for name, kind, action in table
    }
    page = {
        name: option.value is not None
        for option in program_options.read_fdmorph().options
        for name in option.names
    }
    assert len(table) == 13
    assert page == expected


def test_the_overview_has_each_command_with_its_summary() -> None:
    entries = manuals.entries("fdrec", "COMMANDS")
    listed = [(entry.tags[0], entry.text) for entry in entries]
    assert listed == [
        (f"fdrec-{each.name}(1)", f"{each.summary[0].upper()}{each.summary[1:]}.")
        for each in COMMANDS
    ]


def test_the_overview_has_the_options_of_all_commands() -> None:
    assert documented(manuals.entries("fdrec", "OPTIONS")) == rows(PROGRAM.options)


@pytest.mark.parametrize("command", COMMANDS, ids=names_of(COMMANDS))
def test_the_page_of_a_command_has_its_options(command: Command) -> None:
    page = manuals.page(f"fdrec-{command.name}")
    assert documented(manuals.entries(f"fdrec-{command.name}", "OPTIONS")) == rows(command.own)
    assert not command.data or ".BR fdrec\\-data (7)" in page


@pytest.mark.parametrize("command", COMMANDS, ids=names_of(COMMANDS))
def test_the_page_of_a_command_has_its_name_and_arguments(command: Command) -> None:
    page = manuals.page(f"fdrec-{command.name}")
    name = manuals.text(man_pages.section(page, "NAME"))
    assert name == f"fdrec-{command.name} - {command.summary}"
    usage = subprocess.run(
        [FDREC, command.name, "--help"], capture_output=True, text=True, check=True, timeout=60
    ).stdout.splitlines()[1]
    synopsis = manuals.text(man_pages.section(page, "SYNOPSIS"))
    assert f"Usage: {synopsis}" == usage.replace("[OPTIONS]", "[OPTION]...")


@pytest.mark.parametrize("command", COMMANDS, ids=names_of(COMMANDS))
def test_the_page_of_a_command_has_all_sections(command: Command) -> None:
    source = manuals.page(f"fdrec-{command.name}")
    for section in ("DESCRIPTION", "OPTIONS", "EXIT STATUS", "EXAMPLES", "SEE ALSO"):
        assert man_pages.section(source, section), section


def test_the_options_of_data_are_on_one_page() -> None:
    data = program_options.data_options(COMMANDS)
    assert data
    for group in {option.group for option in data}:
        entries = manuals.entries("fdrec-data", group, 7, "SS")
        assert documented(entries) == rows([each for each in data if each.group == group]), group
    for command in COMMANDS:
        assert not command.data or rows(command.data) == rows(data)


def test_zbc_has_the_options_of_its_help() -> None:
    help_text = subprocess.run(
        [harness.program_under_test("ZBC"), "--help"], capture_output=True, text=True, check=True
    ).stdout
    options, directives = program_options.read_zbc()
    listed = re.findall(r"^  (-[-\w]+)", help_text, re.MULTILINE)
    assert [name for option in options.options for name in option.names] == listed
    named = re.findall(r"^  ([A-Z][-A-Z]*)(?:\([^)]*\))?(?:, ([A-Z]+))?  ", help_text, re.MULTILINE)
    expected = {name for pair in named for name in pair if name} - {"SOURCE", "FILE"}
    table = (SOURCES / "description" / "directives.cpp").read_text(encoding="utf-8")
    known = set(re.findall(r'Entry\{"([A-Z-]+)", \w+\}', table))
    assert expected <= known
    assert {directive.partition("(")[0] for directive in directives} == known


def test_zbc_knows_each_directive_of_the_page(tmp_path: Path) -> None:
    source = tmp_path / "a.cpy"
    source.write_text("       01  A PIC X.\n", encoding="ascii")
    values = {"SECTION(": "FILE", "TABS(": "4", "REDEFINES(": "A", "RECORD(": "A", "LIST(": "-"}
    for directive in program_options.read_zbc()[1]:
        full = directive + values.get(directive, "x") + ")" if directive[-1] == "(" else directive
        result = harness.run(tmp_path, harness.program_under_test("ZBC"), "-C", full, str(source))
        assert b"[directive]" not in result.stderr, full
        assert result.returncode != 2, full


def test_each_part_of_a_dictionary_is_documented() -> None:
    writer = "".join(map(man_pages.read, SOURCES.glob("*/dictionary_writer.cpp")))
    names = set(re.findall(r'm_xml\.(?:begin|attribute)\("(\w+)"', writer))
    names |= set(re.findall(r'      return "(\w+)";', writer))
    assert {"dataItems", "odo", "numericEdited"} <= names
    page = manuals.page("zbc-dictionary", 5)
    described = manuals.text([line for line in page.splitlines() if line.startswith(".B")])
    assert names - set(re.split(r"[ ,:.]+", described)) == set()


def codes_of(table: Path) -> dict[str, str]:
    """Codes and severities in the rows of a table."""
    found = re.findall(r'Code::\w+, "([a-z-]+)", Severity::(\w+)', table.read_text("utf-8"))
    assert found
    return dict(found)


def severity_of(entry: man_pages.Entry) -> str:
    return entry.text.partition(" ")[0].strip(".,").lower()


def tagged(entries: list[man_pages.Entry]) -> dict[str, man_pages.Entry]:
    return {code: entry for entry in entries for code in entry.tags[0].split(", ")}


def test_each_code_of_a_compilation_is_documented() -> None:
    """Those of records are on the page of fdrec, the others on that of zbc."""
    codes = codes_of(SOURCES / "source" / "diagnostics.cpp")
    on_zbc = {
        code: severity
        for title, severity in (("Errors", "error"), ("Warnings", "warning"), ("Notes", "note"))
        for code in tagged(manuals.entries("zbc", title, level="SS"))
    }
    on_fdrec = tagged(manuals.entries("fdrec", "DIAGNOSTICS"))
    assert {code: on_zbc[code] for code in on_zbc if code not in codes} == {}
    for code, severity in codes.items():
        found = on_zbc.get(code) or severity_of(on_fdrec[code])
        assert found == severity, code


def test_each_code_of_a_check_is_documented() -> None:
    codes = codes_of(SOURCES / "fit" / "finding.cpp")
    entries = tagged(manuals.entries("fdrec-check", "DIAGNOSTICS"))
    assert {code: severity_of(entry) for code, entry in entries.items()} == codes
    assert listed_codes("fdrec-check") == sorted(codes)


def test_each_code_of_a_mapping_file_is_documented() -> None:
    codes = codes_of(SOURCES / "mapping" / "mapping_finding.cpp")
    documented_codes = {}
    for page in ("fdrec-map-check", "fdrec-map-merge"):
        entries = tagged(manuals.entries(page, "DIAGNOSTICS"))
        documented_codes |= {code: severity_of(entry) for code, entry in entries.items()}
        assert listed_codes(page) == sorted(entries)
    assert documented_codes == codes


def listed_codes(page: str) -> list[str]:
    """The codes that the overview lists before it refers to a page."""
    text = manuals.text(man_pages.section(manuals.page("fdrec"), "DIAGNOSTICS"))
    sentence = re.findall(rf"[^.]* are ([^.]*), see {page}\(\d\)\.", text)
    assert len(sentence) == 1
    return sorted(re.split(r", | and ", sentence[0]))


def test_each_code_of_an_error_in_data_is_documented() -> None:
    source = (SOURCES / "document" / "data_error.cpp").read_text(encoding="utf-8")
    table = re.search(r"kNames\{(.*?)\};", source, re.DOTALL)
    assert table
    codes = sorted([*re.findall(r'"([a-z]+)"', table[1]), "residue"])
    assert sorted(tagged(manuals.entries("fdrec-data", "ERRORS IN DATA", 7))) == codes
    assert listed_codes("fdrec-data") == codes


def test_each_code_that_fdrec_prints_itself_is_documented() -> None:
    known = tagged(manuals.entries("fdrec", "DIAGNOSTICS"))
    known |= tagged(manuals.entries("fdrec-data", "ERRORS IN DATA", 7))
    printed = set()
    for path in sorted((SOURCES / "fdrec").glob("*.cpp")):
        text = path.read_text(encoding="utf-8")
        calls = r'(?:print(?:Error|Warning|Fault)|refusePart)\((?:[^;]*?)"([a-z-]+)"\)'
        printed |= set(re.findall(calls, text))
        printed |= set(re.findall(r"\[([a-z-]+)\]\\n", text))
    assert {"file", "frame", "lines", "usage"} <= printed
    assert printed - set(known) == set()


def prototypes(text: str) -> list[str]:
    found = re.findall(r"\b(?:int|size_t|void) fdrec_\w+\([^)]*\);", " ".join(text.split()))
    return [re.sub(r" ?\* ?", "*", each) for each in found]


def test_the_library_has_the_functions_and_statuses_of_the_header() -> None:
    header = (SOURCES / "library" / "fdrec.h").read_text(encoding="utf-8")
    source = manuals.page("fdrec", 3)
    declared = prototypes(header)
    assert prototypes(manuals.text(man_pages.section(source, "SYNOPSIS"))) == declared
    functions = re.findall(r"fdrec_\w+(?=\()", " ".join(declared))
    assert len(functions) == 7
    name = manuals.text(man_pages.section(source, "NAME"))
    assert name.partition(" - ")[0].split(", ") == ["fdrec", *functions]
    assert [path.stem for path in LINKS] == sorted(functions)
    statuses = [f"{name} ({value})" for name, value in re.findall(r"(FDREC_\w+) = (\d)", header)]
    assert [entry.tags[0] for entry in manuals.entries("fdrec", "RETURN VALUE", 3)] == statuses


def lint(*paths: Path) -> str:
    """What mandoc and groff complain about."""
    names = [str(path) for path in paths]
    complaints = ""
    for tool in (
        ["mandoc", "-T", "lint", "-W", "warning"],
        ["groff", "-ww", "-man", "-Tutf8", "-z"],
    ):
        result = subprocess.run([*tool, *names], capture_output=True, text=True, check=False)
        complaints += result.stdout + result.stderr
    return complaints


def test_the_pages_are_correct() -> None:
    assert len(PAGES) > 20
    assert lint(*(path for path in PAGES if path not in LINKS)) == ""


@pytest.mark.parametrize(
    ("line", "complaint"), [(".BX bold", "BX"), (".PP\n.PP", "paragraph"), (r"a \(zz b", "zz")]
)
def test_an_incorrect_page_is_rejected(tmp_path: Path, line: str, complaint: str) -> None:
    path = tmp_path / "a.1"
    head = '.TH A 1 "2026-11-22" "a 1.0" "User Commands"\n.SH NAME\na \\- b\n.SH DESCRIPTION\n'
    path.write_text(f"{head}{line}\nText.\n", encoding="ascii")
    assert complaint in lint(path)


def test_each_page_that_is_referred_to_exists() -> None:
    ours = re.compile(r"^\.BR ((?:fdmorph|fdrec|zbc)[^ ]*) \((\d)\)", re.MULTILINE)
    for path in PAGES:
        for name, number in ours.findall(man_pages.read(path)):
            name = name.replace("\\-", "-")
            assert manuals.path_of(name, int(number)) in PAGES, f"{path.name}: {name}({number})"


@pytest.fixture(scope="module", name="environment")
def fixture_environment(tmp_path_factory: pytest.TempPathFactory) -> dict[str, str]:
    """The programs on the path, and the library as it is installed."""
    prefix = tmp_path_factory.mktemp("prefix")
    build = os.environ["BUILD_FOLDER"]
    for component in ("library", "development"):
        subprocess.run(
            ["cmake", "--install", build, "--component", component, "--prefix", prefix],
            check=True,
            capture_output=True,
        )
    library = next(iter(prefix.rglob("libfdrec.so"))).parent
    programs = ("FDMORPH", "ZBC", "FDREC")
    folders = [str(Path(harness.program_under_test(name)).parent) for name in programs]
    return harness.environment(
        PATH=":".join([*folders, os.environ["PATH"]]),
        LC_ALL="C.UTF-8",
        PKG_CONFIG_PATH=str(library / "pkgconfig"),
        LD_LIBRARY_PATH=str(library),
    )


def run_example(
    folder: Path, example: manuals.Example, environment: dict[str, str]
) -> tuple[str, int]:
    shown = re.fullmatch(r"cat ([\w./-]+)", example.command)
    if shown and not (folder / shown[1]).exists():
        (folder / shown[1]).write_text(example.output, encoding="utf-8")
    result = subprocess.run(
        ["bash", "-c", example.command],
        cwd=folder,
        env=environment,
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
        check=False,
        timeout=60,
    )
    return result.stdout, result.returncode


WITH_EXAMPLES = [path for path in PAGES if manuals.examples(man_pages.read(path))]


def test_pages_have_examples() -> None:
    assert {"fdmorph.1", "fdrec.1", "fdrec-data.7", "fdrec.3"} <= {
        path.name for path in WITH_EXAMPLES
    }


@pytest.mark.parametrize("path", WITH_EXAMPLES, ids=lambda path: path.name)
def test_examples_do_what_the_page_shows(
    path: Path, tmp_path: Path, environment: dict[str, str]
) -> None:
    shutil.copytree(manuals.ROOT / "example", tmp_path, dirs_exist_ok=True)
    for example in manuals.examples(man_pages.read(path)):
        found = run_example(tmp_path, example, environment)
        assert found == (example.output, example.status), example.command


def test_the_rule_for_make_tells_warnings_from_errors(
    tmp_path: Path, environment: dict[str, str]
) -> None:
    block = next(each for each in manuals.blocks(manuals.page("fdmorph")) if "%.cpy" in each)
    (tmp_path / "Makefile").write_text(block, encoding="utf-8")
    schema = '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">{}</xs:schema>'
    elements = "".join(f'<xs:element name="{name}" type="xs:int"/>' for name in "ab")
    (tmp_path / "warned.xsd").write_text(schema.format(elements), encoding="utf-8")
    (tmp_path / "wrong.xsd").write_text(schema.format("<xs:element/>"), encoding="utf-8")
    include = '<xs:include schemaLocation="none.xsd"/>'  # a warning that ends the run
    (tmp_path / "ended.xsd").write_text(schema.format(include), encoding="utf-8")
    for target, status in (("warned.cpy", 0), ("wrong.cpy", 2), ("ended.cpy", 2)):
        result = subprocess.run(
            ["make", target], cwd=tmp_path, env=environment, capture_output=True, check=False
        )
        assert result.returncode == status, result.stderr
    assert (tmp_path / "warned.cpy").exists()
