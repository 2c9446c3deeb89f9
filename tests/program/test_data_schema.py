"""Records of a generated copybook become documents that are valid against its schema."""

from __future__ import annotations

import os
import subprocess
from pathlib import Path

FDREC = os.environ["FDREC"]
EXAMPLE = Path(__file__).parents[2] / "example"


def fdrec(folder: Path, *arguments: str) -> subprocess.CompletedProcess[str]:
    command = [FDREC, *arguments]
    return subprocess.run(command, cwd=folder, capture_output=True, text=True, timeout=60)


def test_order_becomes_a_record_and_a_valid_document_again(tmp_path: Path) -> None:
    schema = str(EXAMPLE / "order.xsd")
    made = fdrec(tmp_path, "copybook", schema, "-o", "order.cpy")
    assert made.returncode == 0, made.stderr
    common = ["--dialect", "gnucobol", "--schema", schema, "order.cpy"]
    read = fdrec(tmp_path, "from-xml", *common, str(EXAMPLE / "order.xml"), "-o", "order.dat")
    assert (read.returncode, read.stderr) == (0, "")
    written = fdrec(tmp_path, "to-xml", "--single", *common, "order.dat", "-o", "again.xml")
    assert (written.returncode, written.stderr) == (0, "")
    judged = subprocess.run(
        ["xmllint", "--noout", "--nonet", "--schema", schema, "again.xml"],
        cwd=tmp_path,
        capture_output=True,
        text=True,
        timeout=60,
    )
    assert judged.returncode == 0, judged.stderr

    # Blanks in place of the status are none of its values.
    data = (tmp_path / "order.dat").read_bytes()
    (tmp_path / "blank.dat").write_bytes(b" " * len(data))
    refused = fdrec(tmp_path, "to-xml", *common, "--blank-numbers", "zero", "blank.dat")
    assert refused.returncode == 1
    assert "record 1, " in refused.stderr
    assert "[schema]" in refused.stderr
