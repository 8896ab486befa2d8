"""The stubs have what the module has."""

import ast
import os
import pathlib
import subprocess
import sys

import ccl_fio
import pytest

PACKAGE = pathlib.Path(ccl_fio.__file__).parent


def test_the_stubs_name_what_the_module_has():
    stubs = ast.parse((PACKAGE / "_native.pyi").read_text())
    named = {node.name for node in stubs.body if isinstance(node, (ast.ClassDef, ast.FunctionDef))}
    there = {name for name in dir(ccl_fio._native) if not name.startswith("__")}
    assert named == there
    for node in stubs.body:
        if isinstance(node, ast.ClassDef):
            members = {member.name for member in node.body if isinstance(member, ast.FunctionDef)}
            own = {name for name in vars(getattr(ccl_fio._native, node.name)) if not name.startswith("__")}
            assert {name for name in members if not name.startswith("__")} == own, node.name


def test_the_package_offers_what_it_imports():
    private = {"_errors", "_native", "_vocabulary"}
    assert set(ccl_fio.__all__) == {name for name in dir(ccl_fio) if not name.startswith("__")} - private | {"__version__"}
    assert (PACKAGE / "py.typed").exists()


def test_everything_is_documented():
    for name in ccl_fio.__all__:
        member = getattr(ccl_fio, name)
        assert name == "__version__" or member.__doc__, name
        for inner, value in vars(member).items() if isinstance(member, type) else ():
            if not inner.startswith("_") and (callable(value) or isinstance(value, property)):
                assert value.__doc__, f"{name}.{inner}"


@pytest.mark.skipif(not os.path.exists("/usr/bin/stubtest"), reason="left out: stubtest is missing (Debian: mypy)")
def test_a_checker_of_stubs_is_content(tmp_path):
    # Not known to it: the metaclass of the native classes, and that some are made by the module alone.
    allowed = tmp_path / "allowed"
    allowed.write_text(
        r"ccl_fio(\._native)?\.(Path|Find|FindWalk|DirectoryEntry|Match|(Recursive)?DirectoryIterator|WildcardIterator)"
        "\n"
        r"ccl_fio(\._native)?\.(DirectoryEntry|FindWalk|Match)\.__init__"
        "\n"
    )
    environment = {**os.environ, "MYPYPATH": str(PACKAGE.parent), "MYPY_CACHE_DIR": str(tmp_path / "cache")}
    checked = subprocess.run(
        [sys.executable, "-B", "/usr/bin/stubtest", "ccl_fio", "--allowlist", allowed, "--ignore-unused-allowlist"],
        cwd=tmp_path,
        env=environment,
        capture_output=True,
        text=True,
    )
    assert checked.returncode == 0, checked.stdout + checked.stderr
