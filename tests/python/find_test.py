"""Searches over lists of directories."""

import errno
import os

import pytest
from ccl_fio import Find, Path


def test_an_earlier_directory_shadows_a_later_one(design):
    find = Find("rtl;rtl/core;lib")
    assert find.find_first("alu.v") == Path("rtl/core/alu.v")
    assert find.find_first("sub/alu.v") == Path("rtl/core/alu.v")
    assert find.find_first("nowhere.v") is None
    assert find.find_first_relative_path("include/defs.vh") == Path("rtl/include/defs.vh")
    assert find.find_all("alu", ["v", ".sv"]) == [Path("rtl/core/alu.v"), Path("lib/alu.v")]


@pytest.mark.parametrize("directories", [["rtl", "lib"], ("rtl", "lib"), [Path("rtl"), b"lib"]])
def test_a_list_of_directories_is_searched_like_a_search_path(design, directories):
    assert Find(directories).search_list == [Path("rtl/"), Path("lib/")]
    assert Find(directories).find_first("alu.v") == Path("lib/alu.v")


def test_subdirectories_follow_all_directories(design):
    find = Find("rtl;lib", recursive=True)
    assert find.recursive and find.search_list[:2] == [Path("rtl/"), Path("lib/")]
    assert find.find_first("fifo.v") == Path("lib/memory/fifo.v")
    (design / "rtl" / "late").mkdir()
    (design / "rtl" / "late" / "late.v").touch()
    assert find.find_first("late.v") is None
    find.init("rtl")
    assert find.search_path == "rtl" and find.find_first("late.v") == Path("rtl/late/late.v")
    find.init(["lib"])
    find.add_subdirs()
    assert find.find_first("late.v") is None


def test_the_two_lists_grow_by_rules_of_their_own(design):
    find = Find(" rtl ; lib;constraints")
    assert find.search_list == [Path("rtl/"), Path("lib/"), Path("constraints/")]
    assert find.directories == [" rtl /", " lib/"]
    find.push("lib")
    assert find.directories[-1] == "lib/"
    assert find.find("alu.v") == "lib/alu.v" and find.find("top.v") is None
    find.parse_dirs()
    assert find.directories[-2:] == [" rtl /", " lib/"]


def test_results_become_absolute_to_an_absolute_directory(design):
    find = Find("rtl")
    find.absolute_to = "/proj"
    assert find.absolute_to == "/proj" and find.find_first("top.v") == Path("/proj/rtl/top.v")
    with pytest.raises(ValueError):
        find.absolute_to = "rel"
    find.absolute_to = ""
    assert find.find_first("top.v") == Path("rtl/top.v")


@pytest.mark.parametrize(
    "search",
    [
        lambda find: find.find_first("top.v"),
        lambda find: find.find_first_relative_path("top.v"),
        lambda find: find.find_all("top", ["v"]),
        lambda find: setattr(find, "absolute_to", "/" + "x" * 1023),
    ],
)
def test_what_is_found_is_not_lost_where_it_becomes_too_long(design, search):
    find = Find("rtl")
    find.absolute_to = "/" + "x" * 1020
    with pytest.raises(OSError) as failed:
        search(find)
    assert failed.value.errno == errno.ENAMETOOLONG
    assert find.find_first("nothing.v") is None and find.find_all("nothing", ["v"]) == []


def test_the_search_path_is_walked_as_one_pattern(design):
    find = Find("rtl/core/*.sv")
    walk, other = find.walk(), find.walk()
    del find
    assert sorted(walk) == sorted(other) == ["core.sv", "core_pkg.sv"]
    assert list(walk) == []
    assert list(Find("nowhere/*").walk()) == []


def test_names_are_folded_to_lower_case_on_request(design):
    assert Find("rtl").find_all("TOP", ["V"]) == []
    assert Find("rtl").find_all("TOP", ["V"], try_lower_case=True) == [Path("rtl/top.v")]


@pytest.mark.skipif(os.geteuid() == 0, reason="nothing is closed to root")
def test_a_tree_that_cannot_be_read_is_an_error(scratch):
    (scratch / "closed").mkdir(mode=0)
    with pytest.raises(PermissionError):
        Find(".", recursive=True)


def test_mistakes_are_refused():
    for make in (lambda: Find(3), lambda: Find(["a", 3]), lambda: Find("a").find_all("a", "v"), lambda: Find()):
        with pytest.raises(TypeError):
            make()
    with pytest.raises(ValueError):
        Find("a").push("")
