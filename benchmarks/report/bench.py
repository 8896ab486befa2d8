#!/usr/bin/python3
"""Measures the library and writes the report, or compares its instruction counts with those in the repository.

usage: bench.py report|check|renew PROGRAM [--quick]

scripts/bench.sh builds the program and calls this.
"""

import dataclasses
import json
import os
import sys

import measurements
from measurements import say

HERE = os.path.dirname(os.path.abspath(__file__))
REPOSITORY = os.path.dirname(os.path.dirname(HERE))
COUNTS = os.path.join(REPOSITORY, "benchmarks", "instructions.txt")
TOLERANCE = 0.03


def read_counts():
    with open(COUNTS) as lines:
        pairs = [line.split() for line in lines if line.strip() and not line.startswith("#")]
    return {workload: float(count) for workload, count in pairs}


def library_counts(program):
    counts = measurements.instructions(program, ":fio$")
    return {name.removesuffix(":fio"): count for name, count in counts.items()}


def renew(program):
    counts = library_counts(program)
    versions = measurements.versions()
    with open(COUNTS, "w") as out:
        out.write("# Instructions an operation of the library takes, counted by callgrind on the generated paths.\n"
                  "# scripts/bench.sh --check fails when a workload has become dearer; --renew writes them anew.\n"
                  f"# {versions['compiler']}; {versions['libc']}\n")
        for workload in measurements.registry(program).titles:
            out.write(f"{workload:30} {counts[workload]:12.1f}\n")
    say(f"{len(counts)} counts written")


def check(program):
    """Whether no workload is dearer than it was, beyond the tolerance."""
    old, new = read_counts(), library_counts(program)
    failures = [f"{workload}: counted now, and not in the table" for workload in new.keys() - old.keys()]
    failures += [f"{workload}: in the table, and not counted any more" for workload in old.keys() - new.keys()]
    cheaper = 0
    for workload in sorted(old.keys() & new.keys()):
        change = new[workload] / old[workload] - 1
        cheaper += change < -TOLERANCE
        if change > TOLERANCE:
            failures.append(f"{workload}: {old[workload]:.1f} instructions before, {new[workload]:.1f} now, {change:+.1%}")
    for failure in failures:
        print(failure)
    if cheaper:
        print(f"{cheaper} workloads are more than {TOLERANCE:.0%} cheaper than the table says")
    print(f"instructions: {len(new)} workloads, {len(failures)} not as they were")
    if failures:
        say("if this is wanted: scripts/bench.sh --renew; the table was counted with "
            + open(COUNTS).readlines()[2].lstrip("# ").strip())
    return not failures


def measure(program, quick):
    folder = os.path.dirname(program)
    figures = {"registry": dataclasses.asdict(measurements.registry(program)), "versions": measurements.versions()}
    workloads = [name for name in figures["registry"]["titles"] if not name.startswith("growth.")]
    say("allocations")
    figures["allocations"] = measurements.allocations(program)
    say("system calls")
    figures["system_calls"] = measurements.system_calls(program, r"^(?!growth)")
    say("instructions, generated paths")
    figures["instructions"] = measurements.instructions(program)
    texts = os.path.join(folder, "machine_texts.txt")
    measurements.machine_texts(program, texts, 10000)
    say("instructions, the machine's paths")
    figures["machine_instructions"] = measurements.instructions(
        program, r"^(path|edit|simplify|absolute|relative|compare|wildcard|vocabulary)\b.*:(fio|floor)$",
        f"--texts={texts}")
    say("results, the machine's paths")
    figures["comparison"] = measurements.run([os.path.join(folder, "benchmark_smoke"), texts]).strip()
    repetitions, minimum = (2, 0.001) if quick else (7, 0.02)
    times = measurements.times(program, workloads, texts, repetitions, minimum)
    figures["times"] = {name: dataclasses.asdict(time) for name, time in times.items()}
    with open(texts, errors="replace") as lines:
        lengths = [len(line.rstrip("\n")) for line in lines]
    figures["machine_texts"] = {"count": len(lengths), "mean": sum(lengths) / len(lengths)}
    return figures


def report(program, quick):
    import document  # which needs a package that checking does not

    figures = measure(program, quick)
    with open(os.path.join(os.path.dirname(program), "figures.json"), "w") as out:
        json.dump(figures, out, indent=1)
    document.write(figures, os.path.join(REPOSITORY, "docs"))
    say("docs/performance.md")


def main():
    action, program = sys.argv[1], os.path.abspath(sys.argv[2])
    if action == "report":
        report(program, "--quick" in sys.argv)
    elif action == "renew":
        renew(program)
    elif action == "check":
        return 0 if check(program) else 1
    else:
        sys.exit(__doc__)
    return 0


if __name__ == "__main__":
    sys.exit(main())
