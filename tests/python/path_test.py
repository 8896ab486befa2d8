"""Paths: values that are their texts, divided and edited as the library does it."""

import copy
import errno
import os
import pathlib
import pickle

import pytest
from ccl_fio import Path

TOO_LONG = "x" * 1024


@pytest.mark.parametrize(
    "text, directory, base, extension",
    [
        ("", "", "", ""),
        ("a.b.c", "", "a.b", "c"),
        (".profile", "", "", "profile"),
        ("dir/..", "dir/", ".", ""),
        ("dir.d/name", "dir.d/", "name", ""),
        ("C:\\x\\y.txt", "C:/x/", "y", "txt"),
        ("a///b\\\\c", "a/b/", "c", ""),
        (b"\xe9/\xff.v", "\udce9/", "\udcff", "v"),
        (pathlib.PurePosixPath("rtl/top.v"), "rtl/", "top", "v"),
    ],
)
def test_is_divided_into_components(text, directory, base, extension):
    path = Path(text)
    assert (path.directory, path.base, path.extension) == (directory, base, extension)


def test_has_the_properties_of_the_library():
    path = Path("/a/b/c.txt")
    assert path.filename == "c.txt"
    assert path.tail == "b"
    assert path.levels == ("a", "b")
    assert path.is_absolute and path.has_directory and path.has_extension
    assert not path.is_directory_path and Path("a/").is_directory_path
    assert not Path("C:/x").is_absolute
    assert Path("name").levels == () and Path("/").levels == ()


@pytest.mark.parametrize(
    "path, edit, result",
    [
        ("a/b/c.txt", lambda path: path.with_directory("x\\y"), "x/y/c.txt"),
        ("a/b/c.txt", lambda path: path.with_directory(""), "c.txt"),
        ("a/b/c.txt", lambda path: path.with_base("d.e"), "a/b/d.e.txt"),
        ("a/b/c.txt", lambda path: path.with_filename("x/d.h"), "a/b/x/d.h"),
        ("a/b/c.txt", lambda path: path.with_tail("z"), "a/z/c.txt"),
        ("/c.txt", lambda path: path.with_tail("z"), "z/c.txt"),
        ("a/b/c.txt", lambda path: path.with_extension("h"), "a/b/c.h"),
        ("a/b/c.txt", lambda path: path.with_extension("tar", ".gz"), "a/b/c.tar.gz"),
        ("a/b/c.txt", lambda path: path.with_extension("", ".gz"), "a/b/c"),
        ("a/b/c.txt", lambda path: path.without_extension(), "a/b/c"),
        ("/a/b/f.t", lambda path: path.cd(".."), "/a/f.t"),
        ("a/../f.t", lambda path: path.cd(""), "a/../f.t"),
        ("/a/./b/../c", lambda path: path.simplified(), "/a/c"),
        ("a/../../b", lambda path: path.flattened(), "../b"),
        ("../a", lambda path: path.absolute("/x/y"), "/x/a"),
        ("/a/../b", lambda path: path.absolute("/x"), "/a/../b"),
        ("/a/b/f.t", lambda path: path.relative_to("/a/c"), "../b/f.t"),
        ("/x/f.t", lambda path: path.relative_to("/a/b"), "/x/f.t"),
    ],
)
def test_an_edit_returns_another_path(path, edit, result):
    before = Path(path)
    assert str(edit(before)) == result
    assert str(before) == path


def test_two_texts_are_joined_without_dividing_the_name():
    path = Path("a", "sub.d/f")
    assert (str(path), path.base, path.extension) == ("a/sub.d/f", "sub", "d/f")


def test_is_equal_hashed_and_sorted_by_its_text():
    assert Path("a/b") == Path("a//b") and hash(Path("a/b")) == hash(Path("a//b"))
    assert Path("a/b") != Path("a/./b") and Path("a/b") != "a/b" and "a/b" != Path("a/b")
    assert {Path("a"), Path("a"), Path("b")} == {Path("b"), Path("a")}
    assert sorted([Path("b"), Path("a/b"), Path("a")]) == [Path("a"), Path("a/b"), Path("b")]
    assert Path("a") <= Path("a") and Path("b") > Path("a") and Path("b") >= Path("a")
    with pytest.raises(TypeError):
        Path("a") < "b"


def test_the_same_place_is_compared_simplified_and_anchored(scratch):
    assert Path("a/b").same_place(scratch / "a" / "b")
    assert Path("/a/b/../c").same_place(Path("/a/c"))
    assert not Path("/a/").same_place("/a")
    assert Path("/a").precedes("/a/") and not Path("/a/").precedes("/a")


def test_the_real_location_resolves_links(scratch):
    (scratch / "real").mkdir()
    (scratch / "link").symlink_to("real")
    assert Path("link").canonical() == Path(scratch / "real")
    assert Path("nowhere").canonical() is None


def test_is_a_name_for_everything_that_takes_one(scratch):
    (scratch / "file").write_bytes(b"text")
    with open(Path("file"), "rb") as file:
        assert file.read() == b"text"
    assert os.path.join("a", Path("b/c")) == "a/b/c"
    assert os.fspath(Path("a\\b")) == "a/b" == str(Path("a/b"))


def test_is_written_as_it_is_made():
    assert repr(Path("a/it's.v")) == """Path("a/it's.v")"""
    assert repr(Path(b"\xff")) == r"Path('\udcff')"


@pytest.mark.parametrize("text", ["", "rtl/top.v", b"\xff\xfe"])
def test_survives_pickling_and_copying(text):
    path = Path(text)
    for other in (pickle.loads(pickle.dumps(path)), copy.copy(path), copy.deepcopy(path), Path(path)):
        assert other == path and bytes(other) == bytes(path)


def test_is_true_if_there_is_a_text():
    assert Path("a") and not Path("") and not Path()


@pytest.mark.parametrize(
    "make",
    [
        lambda: Path(TOO_LONG),
        lambda: Path("x" * 600, "y" * 600),
        lambda: Path("a").with_directory(TOO_LONG),
        lambda: Path("a").with_base(TOO_LONG),
        lambda: Path("a").with_filename(TOO_LONG),
        lambda: Path("a").with_extension(TOO_LONG),
        lambda: Path("a/b").with_tail(TOO_LONG),
        lambda: Path("a").absolute("/" + TOO_LONG),
        lambda: Path("a").absolute("/" + "d" * 1022),
        lambda: Path("a").relative_to(TOO_LONG),
        lambda: Path("a").cd(TOO_LONG),
        lambda: Path("a").same_place(TOO_LONG),
        lambda: Path("a").precedes(TOO_LONG),
    ],
)
def test_a_text_that_is_too_long_is_refused(make):
    with pytest.raises(OSError) as refused:
        make()
    assert refused.value.errno == errno.ENAMETOOLONG


def test_the_longest_text_is_taken():
    assert len(str(Path("x" * 1023))) == 1023
