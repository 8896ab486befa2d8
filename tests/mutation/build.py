"""Compiles and links the library with a mistake in it, in a copy of the sources, and runs the tests over it."""

import contextlib
import json
import math
import os
import pathlib
import re
import resource
import shlex
import shutil
import signal
import subprocess
import time

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
SANDBOX = pathlib.Path(__file__).with_name("sandbox.py")

# The suites that a mistake in a file shows in first. All others follow.
SUITES = {
    "clsid": ("class_identifiers", "vocabulary_queries"),
    "ext": ("vocabulary_queries", "dialog_filter"),
    "type_": ("vocabulary_queries", "dialog_filter"),
    "filter": ("dialog_filter",),
    "find": ("search_list", "searching"),
    "search": ("find_handle", "searching", "recursive_removal"),
    "iterator": ("directory_iterator",),
    "bin": ("binary_stream",),
    "file_sys": ("file_system", "find_handle", "creating_and_copying", "recursive_removal", "temporary_files"),
    "path": ("path_*",),
    "module": ("module_frame",),
}

# What is run over a mistake that the tests do not see, in the build's folder, as far as it is there.
CAMPAIGNS = (
    *((f"tests/fuzz/replay_{name}", f"tests/fuzz/corpus/{name}")
      for name in ("path_sequence", "wildcard", "search_path", "class_identifier", "binary_stream")),
    ("tests/sweeps/allocation_sweep",),
    ("tests/model/random_sequences", "--rounds", "3000"),
    ("tests/sweeps/system_call_sweep",),
)


class Failure(Exception):
    """Something that has to be right before mistakes can be looked for."""


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                          check=False, **options)


class Toolchain:
    """The commands of a build, changed to work with relative paths in any copy of the sources."""

    def __init__(self, build):
        self.build = build
        text = (build / "compile_commands.json").read_text(encoding="utf-8")
        self.root = re.search(r"-fmacro-prefix-map=(\S+?)/= ", text)[1]
        self.commands = {}
        for entry in json.loads(text):
            unit = os.path.relpath(entry["file"], self.root)
            if re.fullmatch(r"ccl/fio/\w+\.cpp", unit):
                self.commands[unit] = self.plain(shlex.split(entry["command"]))
        self.linking = self.find_link_command()
        self.library = re.search(r"-soname,(\S+)", " ".join(self.linking))[1]
        self.sanitizes = any("-fsanitize" in argument for argument in next(iter(self.commands.values())))

    def plain(self, command):
        dropped = re.compile(r"-W|-O|-I|-fmacro-prefix-map|-g|-c$")
        kept, skip = [], False
        for argument in command:
            if not skip and not dropped.match(argument) and argument != "-o" and not argument.endswith(".cpp"):
                kept.append(argument)
            skip = argument == "-o"
        return [*kept, "-w", "-I.", "-fmacro-prefix-map=./="]

    def find_link_command(self):
        answer = run(["ninja", "-C", str(self.build), "-t", "commands", "ccl/libccl_fio.so"])
        line = next((line for line in answer.stdout.splitlines() if "-soname,libccl_fio" in line), None)
        if line is None:
            raise Failure(f"no command that links the library in {self.build}")
        return shlex.split(line.removeprefix(": && ").split(" && ")[0])

    def link_command(self, library, folder):
        """The build's own command, with the objects of a folder."""
        command, previous = [], ""
        for argument in self.linking:
            found = re.fullmatch(r"ccl/CMakeFiles/ccl_fio\.dir/fio/(\w+)\.cpp\.o", argument)
            if previous == "-o":
                command.append(str(library))
            elif found:
                command.append(str(folder / f"{found[1]}.o"))
            elif "libccl_platform" in argument:
                command.append(str(library.parent / pathlib.PurePath(argument).name))
            elif not argument.startswith("-Wl,-rpath"):
                command.append(argument.replace(f"{self.root}/", ""))
            previous = argument
        return command


class Original:
    """The library as it is: a copy of its sources, compiled, and of the programs that test it."""

    def __init__(self, build, folder, log):
        """`build` is a finished build, with or without sanitizers."""
        self.build, self.folder, self.log = build, folder, log
        self.tools = Toolchain(build)
        shutil.rmtree(folder, ignore_errors=True)
        shutil.copytree(REPOSITORY / "ccl", folder / "tree/ccl")
        self.make_libraries()
        self.units_of = self.find_units()
        self.programs = []

    def make_libraries(self):
        (self.folder / "objects").mkdir()
        (self.folder / "lib").mkdir()
        for library in self.build.glob("ccl/libccl_platform.so*"):
            shutil.copy(library, self.folder / "lib")
        self.precompile()
        for unit in self.tools.commands:
            answer = self.compile(unit, self.folder / "tree", self.object_of(unit))
            if answer.returncode != 0:
                raise Failure(f"{unit} does not compile:\n{answer.stdout}")
        answer = self.link(self.folder / "lib", self.folder / "objects", self.folder / "tree")
        if answer.returncode != 0:
            raise Failure(f"the library cannot be linked:\n{answer.stdout}")

    def precompile(self):
        """One header of all that is not the library's own, compiled once."""
        includes = set()
        for file in (self.folder / "tree/ccl").rglob("*"):
            if file.suffix in (".h", ".cpp"):
                includes |= set(re.findall(r"^#include <[^>]+>", file.read_text(encoding="utf-8"), re.M))
        (self.folder / "tree/all.h").write_text("\n".join(sorted(includes)) + "\n", encoding="utf-8")
        command = [*next(iter(self.tools.commands.values())), "-O0", "-x", "c++-header", "all.h", "-o", "all.h.gch"]
        answer = run(command, cwd=self.folder / "tree")
        if answer.returncode != 0:
            raise Failure(f"the system's headers do not compile:\n{answer.stdout}")

    def object_of(self, unit):
        return self.folder / "objects" / (pathlib.PurePath(unit).stem + ".o")

    def compile(self, unit, tree, target, optimise=False):
        how = ["-O2"] if optimise else ["-O0", "-include", "all.h"]
        return run([*self.tools.commands[unit], *how, "-c", unit, "-o", str(target)], cwd=tree)

    def link(self, libraries, objects, tree):
        return run(self.tools.link_command(libraries / self.tools.library, objects), cwd=tree)

    def find_units(self):
        units = {}
        for unit, command in self.tools.commands.items():
            answer = run([*command, "-MM", unit], cwd=self.folder / "tree")
            for file in re.findall(r"ccl/fio/\S+", answer.stdout):
                units.setdefault(file, []).append(unit)
        return units

    def find_programs(self, campaigns):
        """Copies the programs that are there, and leaves out those that would not see a mistake in the library."""
        for program, *arguments in [("tests/fio_test",), *campaigns]:
            if not (self.build / program).exists():
                continue
            copy = self.folder / "programs" / pathlib.PurePath(program).name
            copy.parent.mkdir(exist_ok=True)
            shutil.copy(self.build / program, copy)
            arguments = [str(REPOSITORY / argument) if "/" in argument else argument for argument in arguments]
            self.consider(Program(program, copy, arguments, 0 if self.tools.sanitizes else 4096))
        if not self.programs or self.programs[0].name != "tests/fio_test":
            raise Failure("the tests do not pass over the library as it is")

    def consider(self, program):
        empty = self.folder / "no library"
        empty.mkdir(exist_ok=True)
        (empty / self.tools.library).write_text("")
        if program.run(empty, program.arguments)[0] == 0:
            self.log(f"left out: {program.name} does not use the shared library")
            return
        before, started = resource.getrusage(resource.RUSAGE_CHILDREN), time.monotonic()
        status, output = program.run(self.folder / "lib", program.arguments)
        if status != 0:
            self.log(f"left out: {program.name} fails over the library as it is ({status})")
            self.log("\n".join(output.splitlines()[-20:]))
            return
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        cpu = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        program.cpu_seconds = math.ceil(2 * cpu) + 2
        program.seconds = 6 * (time.monotonic() - started) + 30
        self.programs.append(program)


class Program:
    """A program that tests the library, and the time it may take over a mistake."""

    def __init__(self, name, path, arguments, mebibytes):
        self.name, self.path, self.arguments, self.mebibytes = name, path, arguments, mebibytes
        self.cpu_seconds, self.seconds = 300, 600

    def run(self, library, arguments):
        """The exit status, or "time", and the output."""
        environment = {**os.environ, "LD_LIBRARY_PATH": str(library), "ASAN_OPTIONS": "hard_rss_limit_mb=3000"}
        limits = [str(self.cpu_seconds), str(self.mebibytes)]
        command = ["/usr/bin/python3", "-I", str(SANDBOX), str(REPOSITORY), *limits, str(self.path), *arguments]
        report = library.parent / "output.txt"
        with open(report, "wb") as output:
            process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=output, stderr=output, env=environment,
                                       start_new_session=True)
            try:
                status = process.wait(self.seconds)
            except subprocess.TimeoutExpired:
                process.kill()  # all that it started goes with it
                process.wait()
                status = "time"
        text = report.read_text(encoding="utf-8", errors="replace")
        if status == 125 and "sandbox: " in text:
            raise Failure(f"no safe place for the tests: {text}")
        if status in (128 + signal.SIGXCPU, 128 + signal.SIGKILL):
            status = "time"
        return status, text


class Worker:
    """A copy of the library's sources and objects, into which one mistake after the other is put."""

    def __init__(self, original, folder, sanitized=None):
        """`sanitized` is a worker with another build of the same, which looks at what the tests do not see."""
        self.original, self.folder, self.sanitized = original, folder, sanitized
        self.tree, self.objects, self.library = folder / "tree", folder / "objects", folder / "lib"
        shutil.rmtree(folder, ignore_errors=True)
        shutil.copytree(original.folder / "tree", self.tree, copy_function=os.link)
        shutil.copytree(original.folder / "objects", self.objects)
        shutil.copytree(original.folder / "lib", self.library)
        (folder / "optimised").mkdir()

    def judge(self, mutant, with_campaigns):
        """What becomes of a mutant: a word, and what killed it."""
        units = self.original.units_of[mutant.file]
        with self.mistake(mutant):
            if not self.make(units):
                return "no program", ""
            killer = self.run_tests(mutant.file)
            if killer:
                return "killed", killer
            if all(self.is_identical(unit) for unit in units):
                return "identical", ""
            killer = self.sanitized.kill(mutant) if self.sanitized is not None else ""
            if not killer and with_campaigns:
                killer = self.run_campaigns()
            return ("killed", killer) if killer else ("survives", "")

    def kill(self, mutant):
        """The test that fails over a mutant of which it is known that there is a program."""
        with self.mistake(mutant):
            self.make(self.original.units_of[mutant.file])
            killer = self.run_tests(mutant.file)
            return f"sanitizers.{killer}" if killer else ""

    def make(self, units):
        for unit in units:
            if self.original.compile(unit, self.tree, self.object_of(unit)).returncode != 0:
                return False
        return self.original.link(self.library, self.objects, self.tree).returncode == 0

    @contextlib.contextmanager
    def mistake(self, mutant):
        source = (self.original.folder / "tree" / mutant.file).read_bytes()
        self.put(mutant.file, mutant.apply(source))
        try:
            yield
        finally:
            self.put(mutant.file, source)
            for unit in self.original.units_of[mutant.file]:
                shutil.copy(self.original.object_of(unit), self.object_of(unit))

    def put(self, file, source):
        (self.tree / file).unlink()
        (self.tree / file).write_bytes(source)

    def object_of(self, unit):
        return self.objects / self.original.object_of(unit).name

    def is_identical(self, unit):
        """Whether the optimiser makes the same of the unit with and without the mistake."""
        mine = self.folder / "optimised" / "mutant.o"
        true = self.folder / "optimised" / self.original.object_of(unit).name
        if not true.exists():
            self.original.compile(unit, self.original.folder / "tree", true, optimise=True)
        return (self.original.compile(unit, self.tree, mine, optimise=True).returncode == 0 and
                mine.read_bytes() == true.read_bytes())

    def run_tests(self, file):
        """The test that fails, those of the file's own suites first."""
        tests = self.original.programs[0]
        own = next((suites for part, suites in SUITES.items() if part in pathlib.PurePath(file).stem), ())
        first = ":".join(f"{suite}.*" for suite in own)
        for chosen in ([first] if first else []) + [f"-{first}"]:
            arguments = ["--gtest_brief=1", "--gtest_fail_fast", f"--gtest_filter={chosen}"]
            status, output = tests.run(self.library, arguments)
            if status != 0:
                failed = re.search(r"\[  FAILED  \] (\S+)", output)
                return "time" if status == "time" else failed[1] if failed else f"status {status}"
        return ""

    def run_campaigns(self):
        for program in self.original.programs[1:]:
            status, _ = program.run(self.library, program.arguments)
            if status != 0:
                return program.name
        return ""
