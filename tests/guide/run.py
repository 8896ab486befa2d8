#!/usr/bin/python3
"""Runs each block of the pages and compares what it prints with what the page shows, and tries the examples of the
headers. Each block runs in a fresh copy of the design.
"""

import argparse
import concurrent.futures
import contextlib
import difflib
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

import pages

TIME_LIMIT = 60


def state_of(folder):
    """What a block could have changed in a folder."""
    state = []
    for path, folders, files in os.walk(folder):
        for name in folders + files:
            status = os.lstat(os.path.join(path, name))
            state.append((path, name, status.st_ino, status.st_mode, status.st_size, status.st_mtime_ns))
    return sorted(state)


class Runner:
    def __init__(self, options, scratch):
        self.program = options.blocks
        self.design = options.design
        self.scratch = scratch
        self.commands = scratch / "bin"
        self.commands.mkdir()
        self.copies = []
        if options.ccl_fio:
            os.symlink(options.ccl_fio, self.commands / "ccl-fio")
        # How each kind of block is started, with its number and its text.
        self.starters = {"program": lambda number, text: [options.blocks, number],
                         "commands": lambda number, text: ["sh", "-e", "-c", text]}
        if options.qt:
            self.starters["qt"] = lambda number, text: [options.qt, number]
        if options.tcl:
            self.starters["tcl"] = self.tcl_script
        self.options = options

    def tcl_script(self, number, text):
        script = self.scratch / f"{number.split(',')[0]}.tcl"
        script.write_text(text)
        return [self.options.tcl, str(script)]

    def can_run(self, block):
        return block.kind in self.starters and (self.options.ccl_fio or block.kind != "commands"
                                                or "ccl-fio" not in block.text)

    def add_commands(self, number, programs):
        """Lets the block with this number start programs, each given as its name and the number of its block."""
        folder = self.scratch / f"{number}.bin"
        folder.mkdir()
        for name, its_number in programs.items():
            (folder / name).write_text(f'#!/bin/sh\nexec "{self.program}" {its_number} "$@"\n')
            (folder / name).chmod(0o755)

    @contextlib.contextmanager
    def design_copy(self):
        """A copy of the design as it is in the repository. One that a block has left as it was serves the next one."""
        try:
            folder, state = self.copies.pop()
        except IndexError:
            folder = pathlib.Path(tempfile.mkdtemp(dir=self.scratch)) / "design"
            shutil.copytree(self.design, folder)
            state = state_of(folder)
        yield folder
        if state_of(folder) == state:
            self.copies.append((folder, state))

    def start(self, number, arguments, folder, **settings):
        temporary = self.scratch / f"{number}.tmp"
        temporary.mkdir(exist_ok=True)
        path = f"{self.scratch}/{number}.bin:{self.commands}:/usr/bin:/bin"
        environment = {"PATH": path, "TMPDIR": str(temporary), "HOME": str(temporary), "LC_ALL": "C.UTF-8",
                       "COLUMNS": "80"}
        for name in ("LD_LIBRARY_PATH", "LD_PRELOAD"):
            if name in os.environ:
                environment[name] = os.environ[name]
        return subprocess.run(arguments, cwd=folder, env=environment, stdin=subprocess.DEVNULL, text=True,
                              errors="replace", timeout=TIME_LIMIT, **settings)

    def outcome(self, number, block):
        """What the block should print, what it prints, and what else is wrong."""
        with self.design_copy() as folder:
            return self.outcome_in(folder, number, block)

    def outcome_in(self, folder, number, block):
        if block.kind == "commands" and any(line.startswith("$ ") for line in block.text.splitlines()):
            return block.text, self.transcript(number, block, folder), ""
        ended = self.start(number, self.starters[block.kind](str(number), block.text), folder, stdout=subprocess.PIPE,
                           stderr=subprocess.PIPE)
        wrong = f"ends with {ended.returncode}\n{ended.stderr}" if ended.returncode else ""
        if block.kind == "commands" and block.expected is None:
            return "", "", wrong  # a page need not show what a script says
        if not wrong and block.expected is None and ended.stderr:
            wrong = f"writes to standard error: {ended.stderr}"
        return block.expected or "", ended.stdout, wrong

    def shared_run(self, kind, pairs):
        """The complaints about blocks of one kind that run together, each of which prints a line."""
        numbers = ",".join(str(number) for number, _ in pairs)
        folder = self.scratch / f"shared_{kind}"
        folder.mkdir()
        command = self.starters[kind](numbers, "".join(block.text for _, block in pairs))
        ended = self.start(kind, command, folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        printed = ended.stdout.splitlines(keepends=True) + [""] * len(pairs)
        complaints = [complaint(block, block.expected, line, "") for (_, block), line in zip(pairs, printed)]
        return complaints + ([f"ends with {ended.returncode}\n{ended.stderr}"] if ended.returncode else [])

    def try_headers(self):
        """What the program says of the examples of the headers."""
        with self.design_copy() as folder:
            ended = self.start("headers", [self.program, "-1"], folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        said = ended.stdout.splitlines()
        return said if ended.returncode in (0, 1) else said + [f"the examples of the headers: {ended.stderr}"]

    def transcript(self, number, block, folder):
        """The commands of a block, each with what it writes to standard output and standard error."""
        said = ""
        for line in block.text.splitlines():
            if line.startswith("$ "):
                ended = self.start(number, ["sh", "-c", line[2:]], folder, stdout=subprocess.PIPE,
                                   stderr=subprocess.STDOUT)
                said += line + "\n" + ended.stdout
        return said


def complaint(block, expected, printed, wrong):
    if expected != printed:
        lines = difflib.unified_diff(expected.splitlines(), printed.splitlines(), "the page", "the program",
                                     lineterm="", n=1)
        wrong = "prints something else\n" + "\n".join(lines) + "\n" + wrong
    return f"{block.place}: {wrong}" if wrong else None


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--blocks", required=True, help="the program of the blocks")
    parser.add_argument("--ccl-fio", help="the command, if it is built")
    parser.add_argument("--qt", help="the program of what the tables say of Qt, if it is built")
    parser.add_argument("--tcl", help="tclsh, if there is one")
    parser.add_argument("record", help="blocks.json, as generate.py writes it")
    parser.add_argument("design", help="the folder of which each block gets a copy")
    parser.add_argument("places", nargs="*", help="the blocks to run, as in docs/recipes.md:10; all without this")
    options = parser.parse_args()

    record = json.loads(pathlib.Path(options.record).read_text())
    blocks = [pages.Block(**fields) for fields in record["blocks"]]
    complaints = list(record["untested"])
    with tempfile.TemporaryDirectory(prefix="guide.") as scratch:
        runner = Runner(options, pathlib.Path(scratch))
        to_run = []
        left_out = 0
        programs = {}  # of each page, the last of each name so far
        for number, block in enumerate(blocks):
            if block.kind == "commands":
                runner.add_commands(number, programs.get(block.page, {}))
            if block.command:
                programs.setdefault(block.page, {})[block.command] = number
            elif block.kind != "compile" and (not options.places or block.place in options.places):
                if runner.can_run(block):
                    to_run.append((number, block))
                else:
                    left_out += 1
        if not options.places:
            complaints += runner.try_headers()
        alone = [pair for pair in to_run if not pair[1].shares_run]
        for kind in ("program", "qt", "tcl"):
            together = [pair for pair in to_run if pair[1].shares_run and pair[1].kind == kind]
            complaints += runner.shared_run(kind, together) if together else []
        with concurrent.futures.ThreadPoolExecutor(2) as threads:
            for (_, block), outcome in zip(alone, threads.map(lambda pair: runner.outcome(*pair), alone)):
                complaints.append(complaint(block, *outcome))
    complaints = [text for text in complaints if text]
    print("\n".join(complaints))
    print(f"{len(to_run)} ran, {left_out} need what is not here, {len(complaints)} complaints")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
