"""Sets of schemas: how many files they may have, and where these may come from."""

from __future__ import annotations

import http.server
import os
import threading
import time
from collections.abc import Iterator
from pathlib import Path

import pytest
from support.harness import program_under_test, readable, run

SCHEMA = '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">{}</xs:schema>'
ELEMENT = '<xs:element name="a" type="xs:int"/>'
CODE = '<xs:simpleType name="code"><xs:restriction base="xs:string"/></xs:simpleType>'
DOCUMENT = "<!DOCTYPE a [<!ELEMENT a EMPTY>]><a/>"
MAX_FILES = 100_000
SECONDS_TO_READ = 2


@pytest.fixture(name="server")
def serve_a_schema() -> Iterator[http.server.HTTPServer]:
    """Serves code.xsd on the loopback interface, and counts the requests."""

    class Handler(http.server.BaseHTTPRequestHandler):
        requests = 0

        def do_GET(self) -> None:
            Handler.requests += 1
            self.send_response(200)
            self.end_headers()
            self.wfile.write(SCHEMA.format(CODE).encode())

        def log_message(self, format: str, *args: object) -> None:
            pass

    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    thread = threading.Thread(target=server.serve_forever)
    thread.start()
    yield server
    server.shutdown()
    thread.join()
    server.server_close()


def location(server: http.server.HTTPServer) -> str:
    return f"http://127.0.0.1:{server.server_address[1]}/code.xsd"


def write_inclusions(folder: Path, count: int) -> None:
    """a.xsd includes a file so many times."""
    (folder / "code.xsd").write_text(SCHEMA.format(CODE))
    inclusions = '<xs:include schemaLocation="code.xsd"/>' * count
    (folder / "a.xsd").write_text(SCHEMA.format(inclusions + ELEMENT))


def test_a_set_above_the_limit_fails_to_load(tmp_path: Path) -> None:
    write_inclusions(tmp_path, MAX_FILES + 1)
    result = run(tmp_path, program_under_test(), "a.xsd")
    assert result.returncode == 1
    assert readable(result.stderr) == (
        f"Error : Schema set exceeds {MAX_FILES} files\n1 error(s), 0 warning(s)\n"
    )
    assert result.stdout.endswith(b"\n\nFailed to create a.cpy\n")
    assert not (tmp_path / "a.cpy").exists()


def test_nothing_is_fetched_without_permission(
    tmp_path: Path, server: http.server.HTTPServer
) -> None:
    (tmp_path / "a.xsd").write_text(
        SCHEMA.format(f'<xs:include schemaLocation="{location(server)}"/>' + ELEMENT)
    )
    for value in ("", "no", "YES", "yes please"):
        result = run(tmp_path, program_under_test(), "a.xsd", FDMORPH_NETWORK=value)
        assert result.returncode == 1
        assert readable(result.stderr).startswith(
            "Fatal Error : (Line 0, Col 0) : unable to connect socket for URL "
            f"'{location(server)}'\n"
        )
    assert server.RequestHandlerClass.requests == 0  # type: ignore[attr-defined]


def test_with_permission_a_schema_is_fetched(
    tmp_path: Path, server: http.server.HTTPServer
) -> None:
    (tmp_path / "a.xsd").write_text(
        SCHEMA.format(
            f'<xs:include schemaLocation="{location(server)}"/><xs:element name="a" type="code"/>'
        )
    )
    result = run(tmp_path, program_under_test(), "a.xsd", FDMORPH_NETWORK="yes")
    assert readable(result.stderr).endswith("0 error(s), 0 warning(s)\n")
    assert result.returncode == 0


@pytest.mark.parametrize(("name", "text"), [("a.xml", DOCUMENT), ("a.xsd", SCHEMA.format(ELEMENT))])
def test_a_main_file_may_be_a_pipe(tmp_path: Path, name: str, text: str) -> None:
    os.mkfifo(tmp_path / name)

    def write_twice() -> None:
        (tmp_path / name).write_text(text)
        time.sleep(SECONDS_TO_READ)  # or the first reading would get both texts
        (tmp_path / name).write_text(text)

    writer = threading.Thread(target=write_twice)
    writer.start()
    result = run(tmp_path, program_under_test(), "-v", name)
    writer.join()
    assert readable(result.stderr) == "0 error(s), 0 warning(s)\n"
    assert result.returncode == 0


def test_an_included_fifo_is_not_waited_for(tmp_path: Path) -> None:
    os.mkfifo(tmp_path / "b.xsd")
    (tmp_path / "a.xsd").write_text(SCHEMA.format('<xs:include schemaLocation="b.xsd"/>' + ELEMENT))
    result = run(tmp_path, program_under_test(), "-v", "a.xsd")
    assert result.returncode == 1
    assert readable(result.stderr) == (
        "Warning : (Line 0, Col 0) : unable to open primary document entity "
        f"'{tmp_path}/b.xsd'\n0 error(s), 1 warning(s)\n"
    )
