"""Operations on files: what they do, and the exceptions of their failures."""

import errno
import os
import pickle
import stat

import ccl_fio as fio
import pytest


def test_questions(design):
    os.symlink("top.v", "rtl/link")
    assert fio.exists("rtl/top.v") and fio.exists("rtl/*.v") and not fio.exists("rtl/*.none")
    assert fio.is_directory("rtl") and not fio.is_directory("rtl/top.v")
    assert fio.is_regular_file("rtl/link") and not fio.is_regular_file("rtl")
    assert fio.is_older("rtl/top.v", 2**40) and not fio.is_older("rtl/top.v", 0) and not fio.is_older("none", 2**40)
    os.mkdir("empty")
    assert fio.is_directory_empty("empty") and not fio.is_directory_empty("rtl")


@pytest.mark.parametrize(
    "name, pattern, same",
    [("abcdef", "abc", True), ("a.txt.bak", "*.txt", False), ("ab", "ab*", False), ("abc", "ab*c", True), ("", "*", True)],
)
def test_names_match_by_the_rules_of_the_library(name, pattern, same):
    assert fio.same_file(name, pattern) is same


def test_texts():
    assert fio.splitpath("a\\b//c.tar.gz") == ("a\\b//", "c.tar", ".gz")
    assert fio.splitpath("") == ("", "", "")
    assert fio.makepath("a\\", "b", ".c") == "a\\b.c" and fio.makepath("a", "b") == "a/b"
    assert len(fio.makepath("d" * 5000, "b" * 5000, "e" * 5000)) == 15002
    with pytest.raises(OSError) as refused:
        fio.splitpath("x" * 1024)
    assert refused.value.errno == errno.ENAMETOOLONG


def test_making_and_removing(scratch):
    fio.mkdir("one")
    fio.create("two/three")
    fio.create("two/three")
    fio.touch("two/three/file")
    fio.chmod("two/three/file", 0o600)
    assert stat.S_IMODE(os.stat("two/three/file").st_mode) == 0o600
    fio.rename("two/three/file", "one/file")
    fio.rmdir("two/three")
    fio.remove("two")
    fio.remove_if_exists("two")
    fio.touch("one/file.v")
    fio.remove_files("one/*.v")
    assert os.listdir("one") == ["file"]
    fio.remove_recursively("one")
    assert os.listdir(".") == []


def test_the_current_directory(scratch):
    (scratch / "below").mkdir()
    fio.set_current_directory("below")
    assert fio.get_current_directory() == os.getcwd() == str(scratch / "below")


@pytest.mark.parametrize("preserve_time", [False, True])
def test_copies_keep_times_on_request(scratch, preserve_time):
    (scratch / "source").write_text("text")
    os.utime("source", (1000, 2000))
    fio.copy("source", "target", preserve_time=preserve_time)
    assert (scratch / "target").read_text() == "text"
    assert (int(os.stat("target").st_mtime) == 2000) is preserve_time


def test_copies_overwrite_on_request(scratch):
    (scratch / "source").write_text("new")
    (scratch / "target").write_text("old")
    fio.copy("source", "target")
    assert (scratch / "target").read_text() == "old"
    fio.copy("source", "target", overwrite=True)
    assert (scratch / "target").read_text() == "new"
    fio.move("source", "moved")
    assert sorted(os.listdir(".")) == ["moved", "target"]


def test_trees_and_patterns_are_copied(design):
    fio.copy_dir("lib", "copy/lib")
    fio.copy_files("rtl/core/*.sv", "copy/sv")
    assert sorted(os.listdir("copy/lib")) == sorted(os.listdir("lib"))
    assert sorted(os.listdir("copy/sv")) == ["core.sv", "core_pkg.sv"]


def test_temporary_files(scratch):
    name = fio.tmp_path(f"{scratch}/")
    assert os.path.dirname(name) == str(scratch) and name != fio.tmp_path(f"{scratch}/")
    for old in (name, "keep"):
        with open(old, "w"):
            os.utime(old, (1000, 1000))
    fio.remove_temp_files(scratch, 60)
    assert os.listdir(".") == ["keep"]
    fio.remove_temp_files(scratch, 60, "k*p")
    assert os.listdir(".") == []


def test_removal_by_pattern_and_age(scratch):
    for name in ("tree/a.v", "tree/b.v", "tree/c.h"):
        fio.touch(name)
    os.utime("tree/a.v", (1000, 1000))
    fio.remove_recursively("tree", pattern="*.v", limit=2000)
    assert sorted(os.listdir("tree")) == ["b.v", "c.h"]


def test_files_are_removed_by_pattern_without_what_links_lead_to(scratch):
    fio.touch("outside/file")
    fio.create("tree")
    os.symlink("../outside", "tree/link")
    fio.remove_files("tree/*link")
    assert os.listdir("tree") == [] and os.listdir("outside") == ["file"]


def test_empty_directories_are_removed(scratch):
    fio.create("tree/a/b")
    fio.touch("tree/c/file")
    fio.remove_empty_subdirectories("tree")
    assert os.listdir("tree") == ["c"]
    fio.remove("tree/c/file")
    fio.remove_empty_subdirectories("tree", remove_root=True)
    assert os.listdir(".") == []


@pytest.mark.parametrize(
    "operation, exception, code, names",
    [
        (lambda: fio.mkdir("dir"), FileExistsError, errno.EEXIST, ("dir", None)),
        (lambda: fio.rmdir("none"), FileNotFoundError, errno.ENOENT, ("none", None)),
        (lambda: fio.remove("none"), FileNotFoundError, errno.ENOENT, ("none", None)),
        (lambda: fio.remove("full"), OSError, errno.ENOTEMPTY, ("full", None)),
        (lambda: fio.chmod("none", 0o600), FileNotFoundError, errno.ENOENT, ("none", None)),
        (lambda: fio.rename("none", "other"), FileNotFoundError, errno.ENOENT, ("none", "other")),
        (lambda: fio.copy("none", "other"), FileNotFoundError, errno.ENOENT, ("none", "other")),
        (lambda: fio.move("none", "other"), FileNotFoundError, errno.ENOENT, ("none", "other")),
        (lambda: fio.create("full/file/below"), NotADirectoryError, errno.ENOTDIR, ("full/file/below", None)),
        (lambda: fio.create("full/file/below/it"), NotADirectoryError, errno.ENOTDIR, ("full/file/below/it", None)),
        (lambda: fio.touch("full/file/below"), NotADirectoryError, errno.ENOTDIR, ("full/file/below", None)),
        (lambda: fio.touch("n" * 300 + "/f"), OSError, errno.ENAMETOOLONG, ("n" * 300 + "/f", None)),
        (lambda: fio.copy_dir("full", "n" * 300), OSError, errno.ENAMETOOLONG, ("full", "n" * 300)),
        (lambda: fio.copy_files("full/*", "n" * 300), OSError, errno.ENAMETOOLONG, ("full/*", "n" * 300)),
        (lambda: fio.copy("full/file", "n" * 1024), OSError, errno.ENAMETOOLONG, ("full/file", "n" * 1024)),
        (lambda: fio.remove_recursively("n" * 1024), OSError, errno.ENAMETOOLONG, ("n" * 1024, None)),
        (lambda: fio.set_current_directory("none"), FileNotFoundError, errno.ENOENT, ("none", None)),
        (lambda: fio.remove_recursively("none"), OSError, errno.ENOENT, ("none", None)),
    ],
)
def test_a_failure_is_the_exception_of_its_errno(scratch, operation, exception, code, names):
    fio.mkdir("dir")
    fio.touch("full/file")
    with pytest.raises(exception) as failed:
        operation()
    assert failed.value.errno == code
    assert (failed.value.filename, failed.value.filename2) == names


@pytest.mark.skipif(os.geteuid() == 0, reason="nothing is closed to root")
@pytest.mark.parametrize(
    "operation",
    [
        lambda: fio.create("closed/a/b"),
        lambda: fio.touch("closed/a/file"),
        lambda: fio.touch("closed/file"),
        lambda: fio.copy_dir("full", "closed/a"),
        lambda: fio.copy_files("full/*", "closed/a"),
    ],
)
def test_a_directory_that_must_not_be_made_is_not_called_missing(scratch, operation):
    fio.touch("full/file")
    (scratch / "closed").mkdir(mode=0o500)
    with pytest.raises(PermissionError):
        operation()


@pytest.mark.parametrize("name", ["a\\b", "w*/x", "d/" * 511 + "d"])
def test_a_directory_that_cannot_be_made_is_not_made_by_another_rule(scratch, name):
    fio.create("with")
    fio.create("a/b")
    with pytest.raises(OSError):
        fio.create(name)
    assert not os.path.exists(name) and not os.path.exists("d") and sorted(os.listdir(".")) == ["a", "with"]


def test_a_failure_without_an_errno_has_words(scratch):
    with pytest.raises(fio.Error) as failed:
        fio.touch("name")
    assert failed.value.errno is None and failed.value.filename == "name"
    assert str(failed.value) == "has no directory or cannot be made: 'name'"


def test_an_error_has_the_lines_of_its_message(scratch):
    with pytest.raises(fio.NotADirectory) as failed:
        fio.remove_empty_subdirectories(b"no\xff%s")
    line = 'The given path "no\udcff%s" is not a valid directory.'
    assert failed.value.lines == (line,) and str(failed.value) == line
    assert failed.value.filename == "no\udcff%s"
    assert isinstance(failed.value, NotADirectoryError) and isinstance(failed.value, fio.Error)
    again = pickle.loads(pickle.dumps(failed.value))
    assert (type(again), again.lines, again.filename) == (fio.NotADirectory, (line,), "no\udcff%s")


@pytest.mark.skipif(os.geteuid() == 0, reason="nothing is closed to root")
def test_a_directory_that_cannot_be_listed_or_removed_has_an_error_of_its_own(scratch):
    fio.create("tree/closed")
    os.chmod("tree/closed", 0)
    with pytest.raises(fio.FailedToOpenDirectory, match='Failed to open "tree/closed" as a directory.'):
        fio.remove_empty_subdirectories("tree")
    os.chmod("tree/closed", 0o700)
    os.chmod("tree", 0o500)
    with pytest.raises(fio.FailedToRemoveDirectory, match='Failed to remove directory "tree/closed".'):
        fio.remove_empty_subdirectories("tree")
    os.chmod("tree", 0o700)
