"""Runs the benchmark program in its several ways and gives the figures, each by the name WORKLOAD:IMPLEMENTATION."""

import collections
import dataclasses
import glob
import json
import os
import re
import statistics
import subprocess
import sys
import tempfile

COUNTED_TEXTS = "--generated-texts=2000"


@dataclasses.dataclass
class Timing:
    nanoseconds: float
    ratio: float  # to the floor; the median of the repetitions
    spread: float  # the largest ratio of a repetition over the smallest


@dataclasses.dataclass
class Registry:
    titles: dict  # of workloads, in the order of the report
    notes: dict  # of implementations: what they do otherwise than the library


def say(text):
    print("== " + text, file=sys.stderr, flush=True)


def run(command, **options):
    return subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE, **options).stdout


def registry(program):
    titles, notes = {}, {}
    for line in run([program, "--list"]).splitlines():
        kind, workload, *rest = line.split("\t")
        if kind == "workload":
            titles[workload] = rest[0]
        else:
            notes[f"{workload}:{rest[0]}"] = rest[1]
    return Registry(titles, notes)


def allocations(program):
    """Allocations an operation."""
    lines = run([program, "--count", COUNTED_TEXTS]).splitlines()
    return {name: float(calls) for name, calls, _ in (line.split("\t") for line in lines)}


def instructions(program, only=".", texts=COUNTED_TEXTS):
    """Instructions an operation, those of the kernel excepted."""
    with tempfile.TemporaryDirectory() as folder:
        run(
            ["valgrind", "--tool=callgrind", f"--callgrind-out-file={folder}/counts", program, "--count", texts,
             f"--only={only}"],
            stderr=subprocess.DEVNULL,
        )
        return dict(filter(None, map(read_counts, glob.glob(folder + "/counts.*"))))


def read_counts(file):
    label = None
    with open(file, errors="replace") as lines:
        for line in lines:
            if line.startswith("desc: Trigger: Client Request:"):
                label = line.split("Client Request:", 1)[1].strip()
            elif label and line.startswith(("totals:", "summary:")):
                name, operations = label.rsplit(None, 1)
                return name, int(line.split()[1]) / int(operations)
    return None


def system_calls(program, only):
    """Calls of the system an operation, by their names."""
    with tempfile.NamedTemporaryFile("r", errors="replace") as trace:
        run(["strace", "-qq", "-f", "-s", "200", "-e", "signal=none", "-o", trace.name, program, "--count",
             "--generated-texts=300", f"--only={only}"])
        result, calls = {}, None
        for line in trace:
            begun = re.search(r'write\(-1, "begin\\t(.*)\\t(\d+)"', line)
            if begun:
                name, operations, calls = begun[1], int(begun[2]), collections.Counter()
            elif 'write(-1, "end"' in line:
                result[name] = {call: count / operations for call, count in calls.items()}
                calls = None
            elif calls is not None:
                call = re.match(r"(?:\d+ +)?(\w+)\(", line)
                if call:
                    calls[call[1]] += 1
        return result


def times(program, workloads, texts, repetitions, minimum):
    """Processor time, in a process of its own for each workload: in a heap that others have aged, data lie scattered."""
    result = {}
    for number, workload in enumerate(workloads, 1):
        say(f"time: {workload} ({number} of {len(workloads)})")
        report = run(
            [program, f"--texts={texts}", f"--only=^{re.escape(workload)}:", "--benchmark_format=json",
             f"--benchmark_repetitions={repetitions}", f"--benchmark_min_time={minimum}",
             "--benchmark_enable_random_interleaving=true"],
            stderr=subprocess.DEVNULL,
        )
        runs = collections.defaultdict(list)
        for one in json.loads(report)["benchmarks"]:
            if one["run_type"] == "iteration":
                runs[re.sub(r"/manual_time$", "", one["run_name"])].append(one)
        for name, all_runs in runs.items():
            ratios = [one["ratio"] for one in all_runs]
            result[name] = Timing(
                statistics.median(one["nanoseconds"] for one in all_runs),
                statistics.median(ratios),
                max(ratios) / min(ratios),
            )
    return result


def machine_texts(program, file, count):
    with open(file, "w") as out:
        subprocess.run([program, f"--machine-texts={count}"], check=True, stdout=out)


def versions():
    """What the figures rest on."""
    processor = "unknown"
    with open("/proc/cpuinfo") as lines:
        for line in lines:
            if line.startswith("model name"):
                processor = line.split(":", 1)[1].strip()
                break
    return {
        "processor": f"{processor}, {os.cpu_count()} in use",
        "system": f"{os.uname().sysname} {os.uname().release.split('-')[0]}",
        "libc": run(["getconf", "GNU_LIBC_VERSION"]).strip(),
        "compiler": run([os.environ.get("CXX", "c++"), "--version"]).splitlines()[0],
    }


def package_version(package):
    found = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], text=True, capture_output=True)
    return found.stdout if found.returncode == 0 else None
