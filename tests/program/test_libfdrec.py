"""Programs in C and in COBOL convert records through the library, as it is installed."""

from __future__ import annotations

import os
import re
import shutil
import subprocess
from pathlib import Path

import pytest

BUILD = Path(os.environ["BUILD_FOLDER"])
FDREC = os.environ["FDREC"]
ROOT = Path(__file__).parents[2]
CLIENT = Path(__file__).with_name("library_client.c")
EXAMPLE = ROOT / "example"
CFLAGS = ["-std=c99", "-pedantic", "-Wall", "-Wextra", "-Werror", "-pthread"]

# 18 bytes. Its count record is one number.
COPYBOOK = """\
       01  ORDER.
           05  KIND   PIC X.
           05  PRICE  PIC 9(3)V99.
           05  PART   PIC X(4) OCCURS 3 TIMES COUNT IN PART-COUNT.
"""
WRONG = "       01  ORDER PIC X(.\n"

PROJECT = """\
cmake_minimum_required(VERSION 3.25)
project(client LANGUAGES C)
find_package(fdrec 1.0 REQUIRED)
find_package(Threads REQUIRED)
add_executable(client client.c)
target_link_libraries(client PRIVATE fdrec::fdrec Threads::Threads)
"""


def run(*command: object, cwd: Path, **options: object) -> subprocess.CompletedProcess[str]:
    words = [str(word) for word in command]
    ran = subprocess.run(
        words, cwd=cwd, capture_output=True, text=True, check=False, timeout=120, **options
    )
    assert ran.returncode == 0, f"{words}\n{ran.stdout}{ran.stderr}"
    return ran


@pytest.fixture(scope="module", name="prefix")
def fixture_prefix(tmp_path_factory: pytest.TempPathFactory) -> Path:
    """Where the library is installed."""
    prefix = tmp_path_factory.mktemp("prefix")
    for component in ("library", "development"):
        run("cmake", "--install", BUILD, "--component", component, "--prefix", prefix, cwd=prefix)
    return prefix


def library_folder(prefix: Path) -> Path:
    return next(iter(prefix.rglob("libfdrec.so"))).parent


def at_run_time(prefix: Path, **names: str) -> dict[str, str]:
    return os.environ | {"LD_LIBRARY_PATH": str(library_folder(prefix))} | names


def run_client(client: Path, prefix: Path, folder: Path) -> None:
    (folder / "order.cpy").write_text(COPYBOOK)
    (folder / "wrong.cpy").write_text(WRONG)
    ran = run(client, "order.cpy", "wrong.cpy", cwd=folder, env=at_run_time(prefix))
    assert ran.stdout + ran.stderr == "", "the library prints nothing"


def test_only_its_functions_are_exported(prefix: Path) -> None:
    """And the name that the program loads does not change with the version."""
    library = library_folder(prefix) / "libfdrec.so.1"
    symbols = run("nm", "-D", "--defined-only", library, cwd=prefix).stdout.splitlines()
    names = {line.split()[-1].partition("@")[0] for line in symbols} - {"FDREC_1"}
    assert names == {
        "fdrec_close",
        "fdrec_from_json",
        "fdrec_from_xml",
        "fdrec_message",
        "fdrec_open",
        "fdrec_to_json",
        "fdrec_to_xml",
    }
    dynamic = run("readelf", "-d", library, cwd=prefix).stdout
    assert "Library soname: [libfdrec.so.1]" in dynamic


def test_the_header_is_also_for_cpp(prefix: Path) -> None:
    header = prefix / "include" / "fdrec.h"
    run("c++", "-std=c++11", "-Wall", "-Werror", "-fsyntax-only", "-x", "c++", header, cwd=prefix)


def test_c_program_by_pkg_config(prefix: Path, tmp_path: Path) -> None:
    path = {"PKG_CONFIG_PATH": str(library_folder(prefix) / "pkgconfig")}
    words = run(
        "pkg-config", "--cflags", "--libs", "fdrec", cwd=tmp_path, env=os.environ | path
    ).stdout.split()
    run("cc", *CFLAGS, "-o", "client", CLIENT, *words, cwd=tmp_path)
    run_client(tmp_path / "client", prefix, tmp_path)


def test_c_program_by_cmake(prefix: Path, tmp_path: Path) -> None:
    (tmp_path / "CMakeLists.txt").write_text(PROJECT)
    shutil.copy(CLIENT, tmp_path / "client.c")
    run("cmake", "-B", "build", f"-DCMAKE_PREFIX_PATH={prefix}", cwd=tmp_path)
    run("cmake", "--build", "build", cwd=tmp_path)
    run_client(tmp_path / "build" / "client", prefix, tmp_path)


@pytest.mark.parametrize("standard", ["default", "ibm"])
def test_cobol_program(prefix: Path, tmp_path: Path, standard: str) -> None:
    """The example: its lines are 1120.00 for 40 pieces, and 402.60 for 12.

    From 20 pieces on there is a discount of 5 percent: 1064.00. The sum is 1466.60. The
    order has a remark then, which stands after the total.
    """
    if shutil.which("cobc") is None:
        pytest.skip("cobc is not installed")
    shutil.copy(EXAMPLE / "order-service.cob", tmp_path)
    dialect = ("--dialect", "gnucobol")
    run(FDREC, "copybook", EXAMPLE / "order.xsd", *dialect, "-o", "order.cpy", cwd=tmp_path)
    run(FDREC, "plain", "order.cpy", *dialect, "-o", "order-plain.cpy", cwd=tmp_path)
    copies = prefix / "share" / "fdrec"
    libraries = library_folder(prefix)
    run(
        *(
            "cobc",
            "-x",
            "-fstatic-call",
            f"-std={standard}",
            "-I",
            copies,
            "-L",
            libraries,
            "-lfdrec",
        ),
        "order-service.cob",
        cwd=tmp_path,
    )
    document = (EXAMPLE / "order.xml").read_text()
    ran = run("./order-service", cwd=tmp_path, env=at_run_time(prefix), input=document)
    (tmp_path / "new.xml").write_text(ran.stdout)
    run("xmllint", "--noout", "--schema", EXAMPLE / "order.xsd", "new.xml", cwd=tmp_path)
    text = ran.stdout
    assert re.findall("<price>(.*?)</price>", text) == ["1064.00", "402.60"]
    assert re.findall("<total>(.*?)</total>", text) == ["1466.60"]
    assert re.findall("<status>(.*?)</status>", text) == ["P"]
    assert text.endswith("</total><remark>Discount of 5 percent</remark></purchase_order>\n")

    ran = subprocess.run(
        ["./order-service"],
        cwd=tmp_path,
        env=at_run_time(prefix),
        input=document.replace("402.60", "much"),
        capture_output=True,
        text=True,
        check=False,
        timeout=60,
    )
    assert (ran.returncode, ran.stdout) == (1, "")
    assert ran.stderr == (
        "25:5, purchase_order/line[2]/price: error: 'much' is not a number [number]\n"
    )
