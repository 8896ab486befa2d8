#!/usr/bin/python3
"""Asks whether the tests would notice a mistake: makes small ones in the library, one at a time, and runs the tests.

To be started by mutate.sh, which builds what it takes."""

import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import sys
import threading

from build import CAMPAIGNS, REPOSITORY, Failure, Original, Worker
from report import counts, read_reasons, summary, write_report
from rules import mutants_of

WORK = REPOSITORY / "build/mutation"
TEXTS = REPOSITORY / "tests/mutation"
SAVED_EVERY = 5


def log(text):
    print(text, file=sys.stderr, flush=True)


def digest_of(files):
    digest = hashlib.sha256()
    for file in sorted(files):
        digest.update(str(file.relative_to(REPOSITORY)).encode() + b"\0" + file.read_bytes())
    return digest.hexdigest()[:16]


def files_in(folder):
    return [file for file in (REPOSITORY / folder).rglob("*") if file.suffix in (".cpp", ".h", ".map")]


class Results:
    """What became of each mutant, kept in a file, with digests of what it was found from."""

    def __init__(self, path):
        self.path = path
        self.all = json.loads(path.read_text(encoding="utf-8")) if path.exists() else {}
        rules = REPOSITORY / "tests/mutation/rules.py"
        self.sources = digest_of([rules, *files_in("ccl")])
        self.tests = digest_of(files_in("tests"))
        self.digests = {str(file.relative_to(REPOSITORY)): digest_of([rules, file]) for file in files_in("ccl/fio")}
        self.lock = threading.Lock()
        self.unsaved = 0

    def is_known(self, mutant, options):
        """Whether nothing has changed since, or, for all but survivors, at least not the file with the mistake."""
        entry = self.all.get(mutant.name)
        if entry is None:
            return False
        same = (entry["sources"], entry["tests"]) == (self.sources, self.tests)
        if options.survivors:
            return entry["file"] == self.digests[mutant.file] and entry["result"] != "survives"
        return options.resume and same

    def add(self, mutant, result, killer):
        entry = {"result": result, "killer": killer, "file": self.digests[mutant.file], "sources": self.sources,
                 "tests": self.tests}
        with self.lock:
            self.all[mutant.name] = entry
            self.unsaved += 1
            if self.unsaved == SAVED_EVERY:
                self.save()

    def save(self):
        self.unsaved = 0
        new = self.path.with_suffix(".new")
        new.write_text(json.dumps(self.all, indent=0, sort_keys=True), encoding="utf-8")
        os.replace(new, self.path)


def checked_at_compile_time():
    """Functions that are there for a static assertion alone: a mistake in one makes no program, or the same one."""
    text = "".join(file.read_text(encoding="utf-8") for file in files_in("ccl/fio"))
    asserted = re.findall(r"(\w+)\(\)", "".join(re.findall(r"static_assert\([^;]*;", text)))
    return {name for name in asserted if len(re.findall(rf"\b{name}\b", text)) == 2}


def all_mutants(original):
    skipped = checked_at_compile_time()
    here = pathlib.Path.cwd()
    os.chdir(original.folder / "tree")
    mutants = []
    for file in sorted(original.units_of):
        if re.fullmatch(r"ccl/fio/(\w+\.cpp|internal/\w+\.h)", file):
            unit = original.units_of[file][0]
            command = original.tools.commands[unit]
            arguments = [argument for argument in command if argument.startswith(("-D", "-I", "-std"))]
            mutants += mutants_of(file, unit, ["-x", "c++", *arguments], skipped)
    os.chdir(here)
    return mutants


def chosen(mutants, options):
    if options.only:
        mutants = list(dict.fromkeys(mutant for part in options.only for mutant in mutants if part in mutant.name))
    if options.sample and options.sample < len(mutants):
        mutants = [mutants[i * len(mutants) // options.sample] for i in range(options.sample)]
    return mutants


def make_worker(original, sanitized, number):
    second = Worker(sanitized, WORK / f"sanitized-{number}") if sanitized is not None else None
    return Worker(original, WORK / f"worker-{number}", second)


def judge_all(mutants, original, sanitized, results, reasons, jobs):
    """Every worker takes the next mutant when it is done with one."""
    free = [make_worker(original, sanitized, number) for number in range(jobs)]

    def judge(mutant):
        worker = free.pop()
        try:
            result, killer = worker.judge(mutant, not reasons.of(mutant.name))
        finally:
            free.append(worker)
        results.add(mutant, result, killer)
        if result == "survives" and not reasons.of(mutant.name):
            log(f"survives: {mutant.name}")

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        try:
            for done in [pool.submit(judge, mutant) for mutant in mutants]:
                done.result()
        except BaseException:
            pool.shutdown(cancel_futures=True)
            raise
        finally:
            results.save()


def options_of(arguments):
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="how many mutants at a time")
    parser.add_argument("--only", action="append", metavar="TEXT", help="mutants with this in their name, as a file")
    parser.add_argument("--sample", type=int, metavar="N", help="this many mutants, evenly chosen")
    parser.add_argument("--resume", action="store_true", help="keep what is known for these sources and tests")
    parser.add_argument("--survivors", action="store_true", help="keep what is known but for survivors")
    parser.add_argument("--list", action="store_true", help="only print the names of the mutants")
    parser.add_argument("--report", action="store_true", help="write tests/mutation/report.md")
    parser.add_argument("--build", type=pathlib.Path, default=REPOSITORY / "build/release", help="a finished build")
    parser.add_argument("--sanitized", type=pathlib.Path, default=REPOSITORY / "build/asan",
                        help="a finished build with sanitizers, for what the tests do not see in the other")
    return parser.parse_args(arguments)


def main(arguments):
    options = options_of(arguments)
    WORK.mkdir(parents=True, exist_ok=True)
    results = Results(WORK / "results.json")
    reasons = read_reasons(TEXTS / "equivalent.txt")
    # A list may be asked for while mutants are judged.
    original = Original(options.build, WORK / ("listed" if options.list else "original"), log)
    mutants = chosen(all_mutants(original), options)
    if options.list:
        print("\n".join(mutant.name for mutant in mutants))
        return 0
    open_ones = [mutant for mutant in mutants if not results.is_known(mutant, options)]
    if open_ones:
        original.find_programs(CAMPAIGNS)
        sanitized = None
        if (options.sanitized / "tests/fio_test").exists():
            sanitized = Original(options.sanitized, WORK / "sanitized", log)
            sanitized.find_programs(())
        judge_all(open_ones, original, sanitized, results, reasons, options.jobs)
    if options.report:
        write_report(TEXTS / "report.md", mutants, results.all, reasons)
    print(summary(mutants, results.all, reasons))
    killed, _, survive = counts(mutants, results.all, reasons)
    return 0 if survive == 0 and killed != 0 else 1


if __name__ == "__main__":
    try:
        sys.exit(main(sys.argv[1:]))
    except Failure as failure:
        log(str(failure))
        sys.exit(2)
