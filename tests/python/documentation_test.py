"""What the documentation shows is what a reader gets."""

import doctest
import os
import subprocess
import sys

SOURCES = """\
lib/alu.v               Verilog HDL File                  Text Files
lib/include/defs.vh     Verilog Include File              Text Files
lib/memory/fifo.v       Verilog HDL File                  Text Files
lib/memory/rom.v        Verilog HDL File                  Text Files
memory/boot.hex         Hexadecimal (Merak-Format) File   Memory Files
memory/boot.mif         Memory Initialization File        Memory Files
rtl/core/alu.v          Verilog HDL File                  Text Files
rtl/core/core.sv        SystemVerilog HDL File            Text Files
rtl/core/core_pkg.sv    SystemVerilog HDL File            Text Files
rtl/include/defs.vh     Verilog Include File              Text Files
rtl/top.v               Verilog HDL File                  Text Files
rtl/uart/uart_tx.vhd    VHDL File                         Text Files
"""


def archive(repository, *arguments):
    program = repository / "examples" / "archive_sources.py"
    return subprocess.run([sys.executable, "-B", program, *arguments], capture_output=True, text=True)


def test_the_transcript_is_what_a_console_shows(repository, design):
    page = (repository / "docs" / "python.md").read_text().replace("```", "\n")
    transcript = doctest.DocTestParser().get_doctest(page, {}, "python.md", None, 0)
    failed, tried = doctest.DocTestRunner().run(transcript)
    assert failed == 0 and tried > 10


def test_the_flow_archives_the_sources_of_a_design(repository, design, tmp_path):
    for top, _, names in os.walk("."):
        for number, name in enumerate(names):
            os.utime(os.path.join(top, name), (10**9, 10**9 + number))
    done = archive(repository, ".", tmp_path / "an archive")
    assert (done.returncode, done.stdout, done.stderr) == (0, SOURCES + "12 files archived\n", "")
    expected = [line.split()[0] for line in SOURCES.splitlines()]
    archived = sorted(
        os.path.relpath(os.path.join(top, name), tmp_path / "an archive")
        for top, _, names in os.walk(tmp_path / "an archive")
        for name in names
    )
    assert archived == expected
    for name in expected:
        copy = tmp_path / "an archive" / name
        assert copy.read_bytes() == (design / name).read_bytes()
        assert os.stat(copy).st_mtime == os.stat(design / name).st_mtime


def test_the_flow_says_what_it_cannot_do(repository, design):
    assert archive(repository).returncode == 2
    missing = archive(repository, "nowhere", "archive")
    assert missing.returncode == 1 and "nowhere: not a directory that can be read" in missing.stderr
    blocked = archive(repository, ".", "rtl/top.v")
    assert blocked.returncode == 1 and "Not a directory" in blocked.stderr
