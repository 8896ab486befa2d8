#!/usr/bin/python3
"""Runs each block of the pages and compares what it prints with what the page shows, and tries the examples of the
headers. Each block runs in a fresh copy of the design.
"""

import argparse
import concurrent.futures
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


class Runner:
    def __init__(self, options, scratch):
        self.program = options.blocks
        self.design = options.design
        self.scratch = scratch
        self.commands = scratch / "bin"
        self.commands.mkdir()
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
        script = self.scratch / f"{number}.tcl"
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

    def start(self, arguments, folder, **settings):
        temporary = folder.with_suffix(".tmp")
        temporary.mkdir(exist_ok=True)
        path = f"{folder.with_suffix('.bin')}:{self.commands}:/usr/bin:/bin"
        environment = {"PATH": path, "TMPDIR": str(temporary), "HOME": str(temporary), "LC_ALL": "C.UTF-8",
                       "COLUMNS": "80"}
        for name in ("LD_LIBRARY_PATH", "LD_PRELOAD"):
            if name in os.environ:
                environment[name] = os.environ[name]
        return subprocess.run(arguments, cwd=folder, env=environment, stdin=subprocess.DEVNULL, text=True,
                              errors="replace", timeout=TIME_LIMIT, **settings)

    def outcome(self, number, block):
        """What the block should print, what it prints, and what else is wrong."""
        folder = self.scratch / f"{number}"
        shutil.copytree(self.design, folder)
        if block.kind == "commands" and any(line.startswith("$ ") for line in block.text.splitlines()):
            return block.text, self.transcript(block, folder), ""
        ended = self.start(self.starters[block.kind](str(number), block.text), folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        wrong = f"ends with {ended.returncode}\n{ended.stderr}" if ended.returncode else ""
        if block.kind == "commands" and block.expected is None:
            return "", "", wrong  # a page need not show what a script says
        if not wrong and block.expected is None and ended.stderr:
            wrong = f"writes to standard error: {ended.stderr}"
        return block.expected or "", ended.stdout, wrong

    def try_headers(self):
        """What the program says of the examples of the headers."""
        folder = self.scratch / "headers"
        shutil.copytree(self.design, folder)
        ended = subprocess.run([self.program], cwd=folder, capture_output=True, text=True, timeout=TIME_LIMIT)
        said = ended.stdout.splitlines()
        return said if ended.returncode in (0, 1) else said + [f"the examples of the headers: {ended.stderr}"]

    def transcript(self, block, folder):
        """The commands of a block, each with what it writes to standard output and standard error."""
        said = ""
        for line in block.text.splitlines():
            if line.startswith("$ "):
                ended = self.start(["sh", "-c", line[2:]], folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
                said += line + "\n" + ended.stdout
        return said


def complaint(block, expected, printed, wrong):
    if expected != printed:
        lines = difflib.unified_diff(expected.splitlines(), printed.splitlines(), "the page", "the program",
                                     lineterm="", n=1)
        wrong = "prints something else\n" + "\n".join(lines) + "\n" + wrong
    return f"{block.place}: {wrong}" if wrong else None


def existing_tests():
    listed = subprocess.run(["ctest", "--show-only=json-v1"], capture_output=True, text=True, check=True).stdout
    return {test["name"] for test in json.loads(listed)["tests"]}


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
    missing = set(record["elsewhere"]) - existing_tests() if record["elsewhere"] else set()
    complaints += [f"no such test: {name}" for name in sorted(missing)]
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
        with concurrent.futures.ThreadPoolExecutor(2) as threads:
            for (_, block), outcome in zip(to_run, threads.map(lambda pair: runner.outcome(*pair), to_run)):
                complaints.append(complaint(block, *outcome))
    complaints = [text for text in complaints if text]
    print("\n".join(complaints))
    print(f"{len(to_run)} ran, {left_out} need what is not here, {len(complaints)} complaints")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
