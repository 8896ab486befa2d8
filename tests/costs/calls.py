#!/usr/bin/env python3
"""The table of the system calls, docs/calls.md, from a trace of the operations.

    calls.py PROGRAM PAGE            compares the page with what is traced now; status 77 where no trace can be made, and
                                     where the C library or Boost are not those of the page
    calls.py --renew PROGRAM PAGE    writes the page
"""

import difflib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import typing

NAMES = {"newfstatat": "stat", "openat": "open", "getdents64": "getdents"}
# What the C and C++ libraries call by themselves: memory and locks.
LEFT_OUT = re.compile(r"brk|mmap|munmap|mremap|mprotect|madvise|futex|rt_sig.*|getrandom|prlimit64")

HEAD = """# System calls by operation

Written by `scripts/calls.sh` from a trace with {libc} and {boost}; nothing here is by hand.

Each operation ran once, in a directory of its own on tmpfs. The third column counts the calls that are given a name;
the others are given a descriptor, shown with the name that was opened, or nothing. A call that failed is shown with its
error. `N` replaces the number of a temporary name. A directory that is read to its end takes two `getdents` or more,
of which the last finds no more entries. Calls for memory and locks are left out.
"""


class Call(typing.NamedTuple):
    words: str
    by_name: bool


def skip(reason):
    print(reason)
    sys.exit(77)


def traced(program):
    """The lines of a trace of the program."""
    # Entries come in the same order there each time.
    if not os.access("/dev/shm", os.W_OK):
        skip("/dev/shm is missing")
    with tempfile.TemporaryDirectory(dir="/dev/shm") as folder:
        work = pathlib.Path(folder, "work")
        work.mkdir()
        log = pathlib.Path(folder, "log")
        run = subprocess.run(["strace", "-qq", "-y", "-s", "4096", "-e", "signal=none", "-o", log, program, work],
                             capture_output=True, text=True)
        if run.returncode != 0:
            if not log.exists() or not log.read_text().strip():
                skip("this process may not trace: " + run.stderr.strip())
            sys.exit("the operations failed: " + run.stderr)
        return log.read_text().splitlines()


def call_in(line, place):
    """How the table has a call, or None for one that is left out."""
    name, arguments, rest = re.fullmatch(r"(\w+)\((.*)\)\s+= (.*)", line).groups()
    if LEFT_OUT.fullmatch(name):
        return None
    texts = re.findall(r'"((?:[^"\\]|\\.)*)"', arguments)
    descriptors = re.findall(r"\d+<([^>]*)>", arguments)
    by_name = re.match(r'AT_FDCWD<[^>]*>, "|"', arguments) and name != "getcwd"
    if name == "newfstatat":
        name = "lstat" if "AT_SYMLINK_NOFOLLOW" in arguments else "fstat" if "AT_EMPTY_PATH" in arguments else name
    names = texts if by_name else descriptors if name != "getcwd" else []
    names = [re.sub(re.escape(place) + "/?", "", text) or "." for text in names]
    names = [re.sub(r"\.korvane\.[0-9A-F]+\.tmp", ".korvane.N.tmp", text) for text in names]
    error = re.match(r"-1 (E\w+)", rest)
    words = " ".join([NAMES.get(name, name)] + names)
    return Call(words + (f" ({error.group(1)})" if error else ""), bool(by_name))


def rows(lines):
    """The operations with their group, their words and their calls."""
    marks = []
    calls = None
    place = ""
    for line in lines:
        moved = re.match(r'chdir\("(.*?)"\)', line)
        if moved and calls is None:
            place = moved.group(1)
        mark = re.match(r'write\(-1, "(.*)", \d+\)\s+= -1 EBADF', line)
        if mark and calls is not None:
            yield marks[0], marks[1], calls
            marks, calls = [], None
        elif mark:
            marks.append(mark.group(1).replace('\\"', '"').replace("\\\\", "\\"))
            calls = [] if len(marks) == 2 else None
        elif calls is not None:
            call = call_in(line, place)
            if call:
                calls.append(call)


def together(calls):
    """The calls in their order, and a run of the same call once, with its number."""
    result = []
    for call in calls:
        if result and result[-1][0] == call.words:
            result[-1][1] += 1
        else:
            result.append([call.words, 1])
    return ", ".join(f"`{words}`" + (f" × {times}" if times > 1 else "") for words, times in result) or "none"


def versions(program):
    libraries = subprocess.run(["ldd", program], capture_output=True, text=True, check=True).stdout
    boost = re.search(r"libboost_filesystem\.so\.(\d+\.\d+)", libraries)
    libc = subprocess.run(["getconf", "GNU_LIBC_VERSION"], capture_output=True, text=True).stdout.strip()
    return {"libc": libc, "boost": "Boost " + boost.group(1) if boost else "another Boost"}


def page_of(program):
    text = HEAD.format(**versions(program))
    group = ""
    for row_group, words, calls in rows(traced(program)):
        if row_group != group:
            group = row_group
            text += f"\n## {group}\n\n| operation | calls | by name | which |\n|---|---:|---:|---|\n"
        text += f"| {words} | {len(calls)} | {sum(call.by_name for call in calls)} | {together(calls)} |\n"
    return text


def main():
    renew = "--renew" in sys.argv
    program, page = [argument for argument in sys.argv[1:] if argument != "--renew"]
    page = pathlib.Path(page)
    if shutil.which("strace") is None:
        skip("strace is missing")
    if not renew and not page.read_text().startswith(HEAD.format(**versions(program))):
        skip("the page has other versions of the C library or of Boost than this machine")
    made = page_of(program)
    if renew:
        page.write_text(made)
    elif made != page.read_text():
        before, now = page.read_text().splitlines(True), made.splitlines(True)
        sys.stdout.writelines(difflib.unified_diff(before, now, str(page), "now"))
        sys.exit(1)


main()
