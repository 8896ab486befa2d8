"""Walks over directories, trees and wildcards."""

import os

import pytest
from ccl_fio import DirectoryIterator, FileType, Path, RecursiveDirectoryIterator, WildcardIterator


def test_a_directory_is_walked(design):
    entries = {entry.path: entry.is_directory for entry in DirectoryIterator("rtl")}
    assert entries == {"rtl/core": True, "rtl/include": True, "rtl/uart": True, "rtl/top.v": False}


def test_a_tree_is_walked_a_directory_before_its_contents(design):
    paths = [entry.path for entry in RecursiveDirectoryIterator("rtl")]
    assert sorted(paths) == sorted(os.path.join(top, name) for top, *lists in os.walk("rtl") for names in lists for name in names)
    assert paths.index("rtl/core") < paths.index("rtl/core/alu.v")


def test_an_entry_is_a_name(design):
    entry = next(DirectoryIterator("lib/memory"))
    assert os.fspath(entry) == entry.path
    assert entry.derive_path() == Path(entry)
    assert FileType.of(entry) == FileType.VERILOG_HDL_FILE
    assert repr(entry) == f"DirectoryEntry(path={entry.path!r}, is_directory=False)"


def test_a_wildcard_is_walked(design):
    matches = {match.name: match for match in WildcardIterator("rtl/*")}
    assert set(matches) == {".", "..", "core", "include", "uart", "top.v"}
    top = matches["top.v"]
    status = os.stat("rtl/top.v")
    assert (top.size, top.time_write, top.is_directory) == (status.st_size, int(status.st_mtime), False)
    assert matches["core"].is_directory and not matches["core"].read_only
    assert [match.name for match in WildcardIterator("rtl/top.v")] == ["top.v"]
    assert list(WildcardIterator("rtl/*.none")) == list(WildcardIterator("nowhere/*")) == []


@pytest.mark.parametrize("kind", [DirectoryIterator, RecursiveDirectoryIterator, WildcardIterator])
def test_an_iterator_that_has_ended_stays_so(design, kind):
    iterator = kind("rtl/*.v" if kind is WildcardIterator else "lib/memory")
    assert iter(iterator) is iterator
    assert list(iterator)
    for _ in range(3):
        with pytest.raises(StopIteration):
            next(iterator)


def open_descriptors() -> int:
    count = 0
    for descriptor in range(512):
        try:
            os.fstat(descriptor)
            count += 1
        except OSError:
            pass
    return count


@pytest.mark.parametrize("kind", [DirectoryIterator, RecursiveDirectoryIterator, WildcardIterator])
def test_an_iterator_that_is_dropped_closes_its_directories(design, kind):
    before = open_descriptors()
    iterators = [kind("*" if kind is WildcardIterator else ".") for _ in range(10)]
    for iterator in iterators:
        next(iterator)
    assert open_descriptors() == before + 10
    del iterator, iterators
    assert open_descriptors() == before


def test_what_cannot_be_opened_looks_empty(scratch):
    (scratch / "file").touch()
    for name in ("nowhere", "file", ""):
        assert list(DirectoryIterator(name)) == list(RecursiveDirectoryIterator(name)) == []


def test_a_deep_tree_needs_no_deep_stack_of_python(scratch):
    os.makedirs("/".join(["d"] * 300))
    assert len(list(RecursiveDirectoryIterator("d"))) == 299
