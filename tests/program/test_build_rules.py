"""The example project builds with CMake and with make, and again what a change reaches."""

from __future__ import annotations

import os
import shutil
import subprocess
from pathlib import Path

import pytest

BUILD = Path(os.environ["BUILD_FOLDER"])
EXAMPLE = Path(__file__).parents[2] / "example" / "project"

# What each input reaches: file, old and new text, and outputs that change with it.
# "book" is a program that GnuCOBOL compiles with the plain copybook.
CHANGES = [
    ("schemas/payment.xsd", 'value="140"', 'value="35"', "payment"),
    ("schemas/types/amounts.xsd", 'value="11"', 'value="9"', "payment"),
    ("standards/parties.xsd", 'value="34"', 'value="28"', "payment"),
    ("cobol/account.cbl", "PIC X(34)", "PIC X(28)", "account"),
    ("cobol/copy/HOLDER.cpy", "PIC X(40)", "PIC X(60)", "account"),
]
FACTS = {
    "payment": ("payment.cpy", "payment-plain.cpy", "book"),
    "account": ("account.xsd", "account-fdmorph.cpy"),
}


def run(*command: object, cwd: Path, env: dict[str, str]) -> str:
    words = [str(word) for word in command]
    ran = subprocess.run(
        words, cwd=cwd, env=env, capture_output=True, text=True, check=False, timeout=120
    )
    assert ran.returncode == 0, f"{words}\n{ran.stdout}{ran.stderr}"
    return ran.stdout + ran.stderr


@pytest.fixture(scope="module", name="env")
def fixture_env(tmp_path_factory: pytest.TempPathFactory) -> dict[str, str]:
    """An environment with the programs as they are installed, ahead of others."""
    prefix = tmp_path_factory.mktemp("prefix")
    run("cmake", "--install", BUILD, "--prefix", prefix, cwd=prefix, env=dict(os.environ))
    path = f"{prefix}/bin:{prefix}/libexec/fdmorph:{os.environ['PATH']}"
    return os.environ | {"PATH": path, "CMAKE_PREFIX_PATH": str(prefix)}


def with_cmake(generator: str):
    def build(project: Path, env: dict[str, str]) -> Path:
        out = project / "build"
        if not out.exists():
            run("cmake", "-S", project, "-B", out, "-G", generator, cwd=project, env=env)
        run("cmake", "--build", out, cwd=project, env=env)
        return out

    return build


def with_make(project: Path, env: dict[str, str]) -> Path:
    run("make", cwd=project, env=env)
    return project / "out"


BUILDS = {
    "ninja": with_cmake("Ninja"),
    "makefiles": with_cmake("Unix Makefiles"),
    "make": with_make,
}


def states(out: Path) -> dict[str, int]:
    """The times of the outputs."""
    return {name: (out / name).stat().st_mtime_ns for names in FACTS.values() for name in names}


@pytest.mark.parametrize("tool", BUILDS)
def test_each_change_rebuilds_what_depends_on_the_file(
    tool: str, env: dict[str, str], tmp_path: Path
) -> None:
    """Also of files that are included by address, and of copy members; nothing else."""
    project = tmp_path / "a project"
    shutil.copytree(EXAMPLE, project)
    out = BUILDS[tool](project, env)
    shown = run(out / "book", cwd=project, env=env)
    # AMOUNT is S9(9)V9(2): DISPLAY shows nine digits, a point and two.
    assert shown == "Ada pays Grace +000000012.50\n"
    before = states(out)
    assert states(BUILDS[tool](project, env) and out) == before, "nothing has changed"
    for name, old, new, reached in CHANGES:
        path = project / name
        text = path.read_text()
        assert old in text, name
        path.write_text(text.replace(old, new))
        BUILDS[tool](project, env)
        after = states(out)
        changed = {each for each in after if after[each] != before[each]}
        assert changed == set(FACTS[reached]), name
        before = after
    record = (out / "payment.cpy").read_text()
    for picture in ("X(35)", "S9(7)V9(2)", "X(28)"):
        assert f"PIC {picture} " in record
    assert 'value="60"' in (out / "account.xsd").read_text()
    assert sorted(each.name for each in (project / "cobol").iterdir()) == [
        "account.cbl",
        "book.cob",
        "copy",
    ], "nothing is written beside the sources"


# Two records, of which fdmorph converts the first.
TWO = """\
       01  A.
           05  A-1 PIC X.
       01  B.
           05  B-1 PIC X.
"""
ANY = """\
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:element name="a"><xs:complexType><xs:sequence><xs:any/></xs:sequence></xs:complexType>
  </xs:element>
</xs:schema>
"""


def try_rules(project: Path, rules: str, env: dict[str, str]) -> tuple[bool, str]:
    """Whether a project with these rules builds, and what CMake prints."""
    head = "cmake_minimum_required(VERSION 3.25)\nproject(p LANGUAGES NONE)\n"
    (project / "CMakeLists.txt").write_text(f"{head}find_package(fdmorph REQUIRED)\n{rules}\n")
    shutil.rmtree(project / "b", ignore_errors=True)
    printed = ""
    for words in (["cmake", "-B", "b", "-G", "Ninja"], ["cmake", "--build", "b"]):
        ran = subprocess.run(
            words, cwd=project, env=env, capture_output=True, text=True, check=False, timeout=120
        )
        printed += ran.stdout + ran.stderr
        if ran.returncode != 0:
            return False, printed
    return True, printed


def test_warnings_of_the_compiler_fail_a_rule(env: dict[str, str], tmp_path: Path) -> None:
    """Unless they are allowed; an output may be in a new folder. The source is named."""
    (tmp_path / "two.cpy").write_text(TWO)
    call = "fdmorph_cobol_to_schema(SOURCE two.cpy SCHEMA new/two.xsd {})\n"
    target = "add_custom_target(t ALL DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/new/two.xsd)"
    builds, printed = try_rules(tmp_path, call.format("") + target, env)
    assert not builds and f"{tmp_path}/two.cpy:3:12: warning: " in printed
    assert not (tmp_path / "b" / "new" / "two.xsd").exists()
    builds, printed = try_rules(tmp_path, call.format("ALLOW_WARNINGS") + target, env)
    assert builds and "[lost-records]" in printed
    assert (tmp_path / "b" / "new" / "two.xsd").exists()


def test_a_rule_without_a_result_fails(env: dict[str, str], tmp_path: Path) -> None:
    """Whatever is allowed: a wildcard makes no item, and the record is empty."""
    (tmp_path / "any.xsd").write_text(ANY)
    call = "fdmorph_schema_to_cobol(SCHEMA any.xsd ALLOW_WARNINGS)\n"
    target = "add_custom_target(t ALL DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/any.cpy)"
    builds, printed = try_rules(tmp_path, call + target, env)
    assert not builds and "fdmorph has converted nothing" in printed


@pytest.mark.parametrize(
    ("rules", "told"),
    [
        ("fdmorph_cobol_to_schema(SOURCE a.cpy DIRECTIVES RECORD(A))", "directives in quotes"),
        ('fdmorph_cobol_to_schema(SOURCE a.cpy DIRECTIVES "DEPFILE(d)")', "a depfile of its own"),
        ("fdrec_plain_copybook(COPYBOOK a.cpy)\n" * 2, "another rule has the output"),
        ("fdmorph_schema_to_cobol(OUTPUT a.cpy)", "expected SCHEMA and a file"),
        ("fdmorph_schema_to_cobol(SCHEMA a.xsd CATALOGUE a.xml)", "unknown arguments: CATALOGUE"),
    ],
)
def test_wrong_arguments_are_told(
    rules: str, told: str, env: dict[str, str], tmp_path: Path
) -> None:
    builds, printed = try_rules(tmp_path, rules, env)
    assert not builds and told in " ".join(printed.split())


MAPPING = """\
<xml-cobol-mapping-file>
   <xml-cobol-mapping>
      <cobol-name>B</cobol-name>
      <xml-name>Other</xml-name>
   </xml-cobol-mapping>
</xml-cobol-mapping-file>
"""
SHORT = """\
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:element name="a" type="xs:string"/>
</xs:schema>
"""


def test_arguments_are_options_of_fdmorph(env: dict[str, str], tmp_path: Path) -> None:
    """A directive chooses the record, a mapping file names it, a prefix begins data names."""
    (tmp_path / "two.cpy").write_text(TWO)
    (tmp_path / "map.xml").write_text(MAPPING)
    (tmp_path / "short.xsd").write_text(SHORT)
    rules = (
        "fdmorph_cobol_to_schema(SOURCE two.cpy MAPPING map.xml PREFIX X- NO_COUNT_IN\n"
        '  DIRECTIVES "RECORD(B)")\n'
        "fdmorph_schema_to_cobol(SCHEMA short.xsd PREFIX Y- UNIQUE)\n"
        "add_custom_target(t ALL DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/two.xsd\n"
        "  ${CMAKE_CURRENT_BINARY_DIR}/short.cpy)"
    )
    builds, printed = try_rules(tmp_path, rules, env)
    assert builds, printed
    assert 'name="Other"' in (tmp_path / "b" / "two.xsd").read_text()
    copybook = (tmp_path / "b" / "two-fdmorph.cpy").read_text()
    assert '01 X-B identified by "Other".' in copybook
    record = (tmp_path / "b" / "short.cpy").read_text()
    assert "01 Y-a PIC X(80)" in record and "Y-a-count" in record
