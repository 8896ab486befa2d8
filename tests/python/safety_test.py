"""No use from Python ends the process, whatever the order and from whichever thread."""

import copy
import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

import ccl_fio as fio
import pytest

CLASSES = [
    fio.Path,
    fio.Find,
    fio.FindWalk,
    fio.DirectoryEntry,
    fio.Match,
    fio.DirectoryIterator,
    fio.RecursiveDirectoryIterator,
    fio.WildcardIterator,
]


@pytest.mark.parametrize("one", CLASSES)
def test_no_object_is_without_a_value(one):
    for make in (
        lambda: one.__new__(one, 3),
        lambda: one.__base__.__new__(one),
        lambda: object.__new__(one),
        lambda: type("Derived", (one,), {}),
        lambda: setattr(one, "attribute", 1),
        lambda: setattr(fio.Path("a"), "__class__", one),
    ):
        with pytest.raises(TypeError):
            make()
    if one is not fio.Path:
        with pytest.raises(TypeError):
            one.__new__(one)
        with pytest.raises(TypeError):
            copy.copy(fio.Find("a"))
    assert fio.Path.__new__(fio.Path) == fio.Path("")


def test_a_second_constructor_changes_nothing():
    path = fio.Path("a")
    path.__init__("b")
    assert str(path) == "a"


def test_members_refuse_other_objects(design):
    for one in CLASSES:
        for name, member in vars(one).items():
            function = getattr(member, "fget", member)
            if name not in ("__new__", "__init__", "__doc__", "__module__", "__hash__") and callable(function):
                for other in (object(), None, 3):
                    try:
                        result = function(other)
                    except TypeError:
                        continue
                    assert name in ("__iter__", "__reduce__") or result is NotImplemented, (one, name, other)


def test_an_iterator_outlives_what_made_it(design):
    walk = fio.Find("rtl/*.v").walk()
    entry = next(iter(fio.DirectoryIterator("lib/memory")))
    match = next(fio.WildcardIterator("rtl/top.v"))
    found = fio.Find("rtl").find_first("top.v")
    assert list(walk) == ["top.v"] and entry.path.startswith("lib/memory/") and match.name == "top.v"
    assert found == fio.Path("rtl/top.v")


@pytest.mark.parametrize("kind", [fio.DirectoryIterator, fio.RecursiveDirectoryIterator, fio.WildcardIterator])
def test_threads_share_an_iterator(scratch, kind):
    names = {f"{number:04}" for number in range(300)}
    (scratch / "many").mkdir()
    for name in names:
        (scratch / "many" / name).touch()
    iterator = kind("many/*" if kind is fio.WildcardIterator else "many")
    with ThreadPoolExecutor(8) as threads:
        lists = list(threads.map(lambda _: [getattr(e, "name", None) or os.path.basename(e) for e in iterator], range(8)))
    found = [name for one in lists for name in one if name not in (".", "..")]
    assert len(found) == len(names) and set(found) == names


def test_threads_share_a_search(design):
    find = fio.Find("rtl;lib", recursive=True)

    def work(number: int) -> None:
        for _ in range(100):
            if number % 2:
                assert find.find_first("fifo.v") == fio.Path("lib/memory/fifo.v")
                assert list(find.walk()) == []
            else:
                find.init("rtl;lib")
                find.push("rtl")

    with ThreadPoolExecutor(6) as threads:
        list(threads.map(work, range(6)))
    assert len(find.directories) >= 300


# Each waits until another thread of Python opens the pipe.
@pytest.mark.parametrize("operation", ["copy('pipe', 'target')", "move('pipe', 'target')", "copy_files('pip?', 'target')"])
def test_other_threads_run_while_the_disk_is_waited_for(scratch, operation):
    os.mkfifo("pipe")
    program = f"""
import threading, ccl_fio
thread = threading.Thread(target=lambda: ccl_fio.{operation})
thread.start()
with open('pipe', 'w') as pipe:
    pipe.write('text')
thread.join()
"""
    subprocess.run([sys.executable, "-B", "-c", program], timeout=60, check=True)
    copies = [os.path.join(top, name) for top, _, names in os.walk(".") for name in names]
    assert [os.path.getsize(copy) for copy in copies if copy != "./pipe"] == [4]


def test_nothing_is_kept_of_what_is_dropped(design):
    def work() -> None:
        for _ in range(200):
            fio.Path("a/b.c").with_extension("d").levels
            list(fio.RecursiveDirectoryIterator("rtl"))
            fio.Find("rtl;lib", True).find_all("alu", ["v"])
            with pytest.raises(OSError):
                fio.Path("x" * 5000)
            with pytest.raises(TypeError):
                fio.Path(3)
            with pytest.raises(fio.Error):
                fio.remove_empty_subdirectories("none")

    work()
    before = sys.getallocatedblocks()
    work()
    assert sys.getallocatedblocks() - before < 200


def test_interpreter_ends_while_threads_are_at_work(scratch):
    for number in range(2000):
        (scratch / str(number)).touch()
    program = """
import sys, threading, time, ccl_fio
sys.setswitchinterval(1e-5)
def work():
    while True:
        ccl_fio.Find(".").find_all("*", ["v"])
        list(ccl_fio.DirectoryIterator("."))
for _ in range(4):
    threading.Thread(target=work, daemon=True).start()
time.sleep(0.2)
"""
    subprocess.run([sys.executable, "-B", "-c", program], check=True, timeout=60)


def test_interpreter_ends_with_iterators_open(design):
    program = """
import threading, ccl_fio
walk = ccl_fio.RecursiveDirectoryIterator(".")
next(walk)
find = ccl_fio.Find("*").walk()
next(find)
"""
    subprocess.run([sys.executable, "-B", "-c", program], check=True, timeout=60)
