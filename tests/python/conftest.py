import os
import pathlib
import shutil

import pytest

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]


@pytest.fixture
def repository() -> pathlib.Path:
    return REPOSITORY


@pytest.fixture
def scratch(tmp_path, monkeypatch) -> pathlib.Path:
    """An empty directory, which is the current one."""
    monkeypatch.chdir(tmp_path)
    return tmp_path


@pytest.fixture
def design(tmp_path, monkeypatch) -> pathlib.Path:
    """A copy of the design of the examples, which is the current directory."""
    copy = tmp_path / "design"
    shutil.copytree(REPOSITORY / "examples" / "design", copy)
    monkeypatch.chdir(copy)
    return copy


def pytest_report_header() -> str:
    import ccl_fio

    return f"ccl_fio {ccl_fio.__version__} in {os.path.dirname(ccl_fio.__file__)}"
