"""Names of files are bytes, and every byte survives."""

import os
import subprocess
import sys

import ccl_fio as fio
import pytest

# Every byte that stands for itself in a name: no NUL and no separator of the library, and no wildcard.
EVERY_BYTE = bytes(set(range(1, 256)) - set(b"/\\*?"))


@pytest.fixture
def odd_name(scratch) -> bytes:
    (scratch / "dir").mkdir()
    name = b"dir/" + EVERY_BYTE
    with open(name, "wb") as file:
        file.write(b"text")
    return name


def test_every_byte_survives_in_a_path(odd_name):
    path = fio.Path(odd_name)
    assert os.fsencode(path) == bytes(path) == odd_name
    assert fio.Path(os.fsdecode(odd_name)) == path
    assert os.fsencode(path.filename) == EVERY_BYTE
    assert os.fsencode(path.canonical()).endswith(odd_name)


def test_every_byte_survives_in_a_walk(odd_name):
    (entry,) = fio.DirectoryIterator("dir")
    assert os.fsencode(entry) == odd_name
    (entry,) = fio.RecursiveDirectoryIterator(b"dir")
    assert os.fsencode(entry.derive_path()) == odd_name
    assert [os.fsencode(match.name) for match in fio.WildcardIterator(b"dir/\x01*")] == [EVERY_BYTE]


def test_every_byte_survives_in_a_search(odd_name):
    name = os.path.basename(odd_name)
    assert os.fsencode(fio.Find(["dir"]).find_first(name)) == odd_name
    assert [os.fsencode(name) for name in fio.Find(b"dir/\x01*").walk()] == [name]


def test_every_byte_survives_in_an_operation(odd_name):
    fio.copy(odd_name, odd_name + b"2", preserve_time=True)
    fio.rename(odd_name + b"2", os.fsdecode(odd_name) + "3")
    assert fio.exists(odd_name + b"3")
    fio.remove(os.fsdecode(odd_name + b"3"))
    with pytest.raises(FileNotFoundError) as failed:
        fio.remove(odd_name + b"3")
    assert os.fsencode(failed.value.filename) == odd_name + b"3"


def test_every_byte_survives_without_a_character_set(odd_name):
    program = "import os, ccl_fio; [print(os.fsencode(e).hex()) for e in ccl_fio.DirectoryIterator('dir')]"
    environment = {**os.environ, "LC_ALL": "C", "PYTHONCOERCECLOCALE": "0", "PYTHONUTF8": "0"}
    printed = subprocess.run(
        [sys.executable, "-B", "-c", program], env=environment, check=True, capture_output=True, text=True
    ).stdout
    assert bytes.fromhex(printed) == odd_name


def calls_with(name):
    """Everything that takes a name, called with it."""
    path, find = fio.Path("a/b"), fio.Find("a")
    for make in (fio.Path, fio.Find, fio.DirectoryIterator, fio.RecursiveDirectoryIterator, fio.WildcardIterator):
        yield lambda make=make: make(name)
    for method in ("with_directory", "with_base", "with_filename", "with_tail", "with_extension", "cd", "absolute",
                   "relative_to", "same_place", "precedes"):
        yield lambda method=method: getattr(path, method)(name)
    yield lambda: fio.Find(["a", name])
    yield lambda: fio.Path(name, "a")
    yield lambda: fio.Path("a", name)
    for method in ("init", "push", "find", "find_first", "find_first_relative_path"):
        yield lambda method=method: getattr(find, method)(name)
    yield lambda: find.find_all(name, [])
    yield lambda: find.find_all("a", [name])
    yield lambda: setattr(find, "absolute_to", name)
    yield lambda: fio.FileType.of(name)
    yield lambda: fio.ExtensionType.of(name)
    for one in (fio.exists, fio.is_directory, fio.is_regular_file, fio.is_directory_empty, fio.splitpath, fio.tmp_path,
                fio.mkdir, fio.rmdir, fio.remove, fio.remove_if_exists, fio.remove_files, fio.touch, fio.create,
                fio.set_current_directory, fio.remove_recursively, fio.remove_empty_subdirectories):
        yield lambda one=one: one(name)
    for two in (fio.same_file, fio.makepath, fio.rename, fio.copy, fio.move, fio.copy_files, fio.copy_dir):
        yield lambda two=two: two(name, "a")
        yield lambda two=two: two("a", name)
    yield lambda: fio.chmod(name, 0)
    yield lambda: fio.is_older(name, 0)
    yield lambda: fio.remove_temp_files(name, 0)


def test_a_nul_is_refused_as_the_functions_of_os_refuse_it(scratch):
    for call in calls_with("a\0b"):
        with pytest.raises(ValueError, match="embedded null byte"):
            call()
    assert os.listdir(".") == []


def test_characters_that_no_name_has_are_refused(scratch):
    for call in calls_with("\ud800"):
        with pytest.raises(UnicodeEncodeError):
            call()
    assert os.listdir(".") == []


@pytest.mark.parametrize("value", [3, None, 2.5, object()])
def test_what_is_no_name_is_refused(scratch, value):
    for call in calls_with(value):
        with pytest.raises(TypeError):
            call()
    assert os.listdir(".") == []
