"""The Debian packages of the build: what they hold, what lintian finds, and whether the
programs and the library work where they are unpacked."""

from __future__ import annotations

import gzip
import os
import re
import shutil
import subprocess
from functools import cache
from pathlib import Path

import pytest
from judges.lintian import NEEDS_LINTIAN, complaints

BUILD = Path(os.environ["BUILD_FOLDER"])
ROOT = Path(__file__).parents[2]
PROGRAMS, LIBRARY, DEVELOPMENT = "fdmorph", "libfdrec1", "libfdrec-dev"
VERSION = re.search(
    r"^project\(fdmorph VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text(), re.MULTILINE
)[1]

pytestmark = pytest.mark.skipif(
    shutil.which("dpkg-gensymbols") is None, reason="dpkg-dev is not installed"
)


def run(*command: object, **options: object) -> str:
    words = [str(word) for word in command]
    ran = subprocess.run(words, capture_output=True, text=True, check=False, timeout=120, **options)
    assert ran.returncode == 0, f"{words}\n{ran.stdout}{ran.stderr}"
    return ran.stdout


def make_packages(folder: Path) -> dict[str, Path]:
    """The packages by their names. They are packed fast, not small."""
    run(
        *("cpack", "--config", BUILD / "CPackConfig.cmake", "-B", folder),
        *("-D", "CPACK_DEBIAN_COMPRESSION_TYPE=gzip"),
        cwd=folder,
    )
    return {path.name.partition("_")[0]: path for path in folder.glob("*.deb")}


@pytest.fixture(scope="module", name="packages")
def fixture_packages(tmp_path_factory: pytest.TempPathFactory) -> dict[str, Path]:
    return make_packages(tmp_path_factory.mktemp("packages"))


@pytest.fixture(scope="module", name="root")
def fixture_root(packages: dict[str, Path], tmp_path_factory: pytest.TempPathFactory) -> Path:
    """Where the packages are unpacked."""
    root = tmp_path_factory.mktemp("root")
    for package in packages.values():
        run("dpkg-deb", "-x", package, root)
    return root


def files(folder: Path) -> set[str]:
    return {path.relative_to(folder).as_posix() for path in folder.rglob("*") if not path.is_dir()}


def field(package: Path, name: str) -> str:
    return run("dpkg-deb", "-f", package, name).strip()


def control_file(package: Path, name: str) -> str:
    return run("dpkg-deb", "-I", package, name)


@cache
def architecture() -> str:
    return run("dpkg-architecture", "-q", "DEB_HOST_MULTIARCH").strip()


def test_there_are_three_packages_of_the_version(packages: dict[str, Path]) -> None:
    assert set(packages) == {PROGRAMS, LIBRARY, DEVELOPMENT}
    for package in packages.values():
        assert field(package, "Version") == f"{VERSION}-1"


def test_each_package_needs_what_its_files_need(packages: dict[str, Path]) -> None:
    def needs(name: str) -> set[str]:
        return {word.split()[0] for word in field(packages[name], "Depends").split(",")}

    data = {"libc6", "libexpat1", "libgcc-s1", "libicu72", "libstdc++6"}
    assert needs(LIBRARY) == data
    assert needs(PROGRAMS) == data | {"libcurl3-gnutls", "libsigsegv2", "libxerces-c3.2"}
    assert field(packages[DEVELOPMENT], "Depends") == f"{LIBRARY} (= {VERSION}-1)"


def test_programs_that_use_the_library_need_its_package(packages: dict[str, Path]) -> None:
    library = packages[LIBRARY]
    assert control_file(library, "shlibs") == f"libfdrec 1 {LIBRARY} (>= {VERSION})\n"
    assert control_file(library, "triggers") == "activate-noawait ldconfig\n"
    symbols = control_file(library, "symbols")
    assert symbols.startswith(f"libfdrec.so.1 {LIBRARY} #MINVER#\n")
    assert f" fdrec_to_xml@FDREC_1 {VERSION}\n" in symbols


def test_files_are_where_the_policy_wants_them(root: Path) -> None:
    """Each package also has its own copyright and changelogs."""
    libraries = f"usr/lib/{architecture()}"
    expected = {
        "usr/bin/fdmorph",
        "usr/bin/fdrec",
        "usr/include/fdrec.h",
        "usr/libexec/fdmorph/fdrec-all",
        "usr/libexec/fdmorph/zbc",
        "usr/share/doc/fdmorph/README.md",
        "usr/share/doc/fdmorph/docs/many-machines.md",
        "usr/share/doc/fdmorph/examples/order.xsd",
        "usr/share/cmake/fdmorph/fdmorph-config.cmake",
        "usr/share/fdmorph/dmxmlmap.xsd",
        "usr/share/fdrec/fdrec.cpy",
        "usr/share/man/man1/fdmorph.1.gz",
        "usr/share/man/man3/fdrec_open.3.gz",
        "usr/share/man/man5/zbc-dictionary.5.gz",
        f"{libraries}/libfdrec.so",
        f"{libraries}/libfdrec.so.1",
        f"{libraries}/libfdrec.so.{VERSION}",
        f"{libraries}/cmake/fdrec/fdrec-config.cmake",
        f"{libraries}/pkgconfig/fdrec.pc",
    }
    for package in (PROGRAMS, LIBRARY, DEVELOPMENT):
        for name in ("changelog.Debian.gz", "changelog.gz", "copyright"):
            expected.add(f"usr/share/doc/{package}/{name}")
    assert expected - files(root) == set()


def as_installed(name: str) -> str:
    """The name that a file of a package has where it is installed without one."""
    name = name.removeprefix("usr/").replace(f"lib/{architecture()}/", "lib/")
    name = name.replace("/vendor-completions/", "/site-functions/")
    name = name.replace("doc/fdmorph/changelog.gz", "doc/fdmorph/CHANGELOG.md")
    return name.removesuffix(".gz") if "/man/" in name else name


def test_an_installation_has_the_files_of_all_packages(root: Path, tmp_path: Path) -> None:
    run("cmake", "--install", BUILD, "--prefix", tmp_path)
    packaged = {as_installed(name) for name in files(root)}
    own = re.compile(r"share/(doc/.*/(copyright|changelog(\.Debian)?\.gz)|lintian/.*)")
    assert {name for name in packaged if not own.fullmatch(name)} == files(tmp_path)


def test_all_parts_have_one_version(root: Path) -> None:
    programs = {
        "usr/bin/fdrec": f"fdrec {VERSION}\n",
        "usr/libexec/fdmorph/fdrec-all": f"fdrec {VERSION}\n",
        "usr/libexec/fdmorph/zbc": f"zbc {VERSION}\n",
    }
    assert {name: run(root / name, "--version") for name in programs} == programs
    usage = run(root / "usr/bin/fdmorph").splitlines()
    assert usage[0].endswith(f" Version {VERSION}")
    libraries = root / "usr/lib" / architecture()
    dynamic = run("readelf", "-d", libraries / f"libfdrec.so.{VERSION}")
    assert f"Library soname: [libfdrec.so.{VERSION.split('.', maxsplit=1)[0]}]" in dynamic
    assert f"\nVersion: {VERSION}\n" in (libraries / "pkgconfig/fdrec.pc").read_text()
    heading = rf'^\.TH .* "\w+ {re.escape(VERSION)}" "'
    for page in (root / "usr/share/man").rglob("*.gz"):
        text = gzip.decompress(page.read_bytes()).decode()
        assert text.startswith(".so ") or re.search(heading, text, re.MULTILINE), page.name


@NEEDS_LINTIAN
def test_lintian_finds_nothing(packages: dict[str, Path], tmp_path: Path) -> None:
    """And it finds what is wrong in a package: no copyright, and a file for everybody."""
    broken = tmp_path / "broken"
    run("dpkg-deb", "-R", packages[DEVELOPMENT], broken)
    control = broken / "DEBIAN/control"
    control.write_text(re.sub("(?m)^Package: .*", "Package: libbroken-dev", control.read_text()))
    (broken / "usr/share/doc" / DEVELOPMENT).rename(broken / "usr/share/doc/libbroken-dev")
    (broken / "usr/share/doc/libbroken-dev/copyright").unlink()
    (broken / "usr/include/fdrec.h").chmod(0o666)
    run("dpkg-deb", "-Zgzip", "--root-owner-group", "-b", broken, tmp_path / "broken.deb")

    found = complaints([*packages.values(), tmp_path / "broken.deb"])
    tags = [complaint.partition(" [")[0] for complaint in found.pop("libbroken-dev")]
    assert "E: no-copyright-file" in tags
    assert "W: non-standard-file-perm 0666 != 0644" in tags
    assert found == {}


def test_everything_works_where_it_is_unpacked(root: Path) -> None:
    steps = run(ROOT / "packaging" / "smoke-test", "--no-compilers", root / "usr")
    assert steps.endswith("passed\n")


@pytest.mark.skipif("FDMORPH_LONG_TESTS" not in os.environ, reason="takes some seconds")
def test_packages_of_a_build_are_always_the_same(packages: dict[str, Path], tmp_path: Path) -> None:
    again = make_packages(tmp_path)
    assert {name: path.read_bytes() for name, path in again.items()} == {
        name: path.read_bytes() for name, path in packages.items()
    }
