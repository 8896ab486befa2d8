"""Writes docs/performance.md and its charts from the figures."""

import math
import os

import charts
import measurements

PEERS = ["std", "Boost", "Poco", "LLVM", "Qt", "APR", "GLib", "libc"]
PACKAGES = {
    "std": "g++",
    "Boost": "libboost-filesystem-dev",
    "Poco": "libpoco-dev",
    "LLVM": "llvm-14-dev",
    "Qt": "qt6-base-dev",
    "APR": "libapr1-dev",
    "GLib": "libglib2.0-dev",
    "libc": "libc6-dev",
}
GROWTH = {
    "growth.simplify": "simplify, every third level is \"..\"",
    "growth.relative": "seen from a directory that shares half",
    "growth.less": "<, every third level is \"..\"",
    "growth.levels": "every level, by its index",
}


def number(value):
    """Three digits, and none that say nothing."""
    if value is None:
        return ""
    if value == 0:
        return "0"
    if value >= 1e6:
        return f"{value / 1e6:.3g}M"
    if value >= 1000:
        return f"{value:,.0f}"
    return f"{value:.3g}" if value >= 1 else f"{value:.2f}"


def table(heads, rows):
    lines = ["| " + " | ".join(heads) + " |", "|---" + "|---:" * (len(heads) - 1) + "|"]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows]) + "\n"


class Figures:
    def __init__(self, figures):
        self.titles = figures["registry"]["titles"]
        self.notes = figures["registry"]["notes"]
        self.versions = figures["versions"]
        self.texts = figures["machine_texts"]
        self.comparison = figures["comparison"]
        self.instructions = figures["instructions"]
        self.machine_instructions = figures["machine_instructions"]
        self.allocations = figures["allocations"]
        self.system_calls = figures["system_calls"]
        self.times = figures["times"]
        self.workloads = [name for name in self.titles if not name.startswith("growth.")]
        self.present = {name.split(":")[1] for name in self.notes}
        self.peers = [peer for peer in PEERS if peer in self.present]

    def ratio(self, workload, name):
        timing = self.times.get(f"{workload}:{name}")
        return timing and timing["ratio"]

    def nanoseconds(self, workload, name="fio"):
        return self.times[f"{workload}:{name}"]["nanoseconds"]

    def counted(self, workload, name="fio"):
        return self.instructions.get(f"{workload}:{name}")

    def counted_ratio(self, workload, name="fio", counts=None):
        counts = counts or self.instructions
        own, floor = counts.get(f"{workload}:{name}"), counts.get(f"{workload}:floor")
        return own / floor if own and floor else None

    def calls(self, workload, name="fio"):
        return sum(self.system_calls.get(f"{workload}:{name}", {}).values())


def setting(figures):
    texts, versions = figures.texts, figures.versions
    spreads = sorted(timing["spread"] for timing in figures.times.values())
    found = []
    for peer in PEERS:
        version = measurements.package_version(PACKAGES[peer])
        found.append(f"{peer} {version}" if peer in figures.present else f"{peer} left out: no {PACKAGES[peer]} here")
    return f"""
| | |
|---|---|
| processor | {versions["processor"]} |
| system | {versions["system"]}, {versions["libc"]} |
| compiler | {versions["compiler"]}, Release |
| peers, as packaged by Debian | {"; ".join(found)} |
| the machine's paths | {texts["count"]:,} paths of its file system, {texts["mean"]:.0f} characters on average |
| generated paths | 2,000 paths of a seeded generator, the same everywhere |
| files | in shared memory, where the system lets them be made |
| results of the library and the floor | {figures.comparison.removeprefix("benchmarks: ")} |
| repetitions of a time | differ by {spreads[len(spreads) // 2] - 1:.0%} in the median, {spreads[len(spreads) * 9 // 10] - 1:.0%} in nine of ten |
"""


def times_table(figures):
    rows = []
    for workload in figures.workloads:
        row = [f"`{workload}`", number(figures.nanoseconds(workload)), f"**{number(figures.ratio(workload, 'fio'))}**"]
        rows.append(row + [number(figures.ratio(workload, peer)) for peer in figures.peers])
    return table(["workload", "fio, ns", "fio", *figures.peers], rows)


def counts_table(figures):
    rows = []
    for workload in figures.workloads:
        def both(of, form=number):
            return f"{form(of(f'{workload}:fio'))} / {form(of(f'{workload}:floor'))}"

        rows.append([
            f"`{workload}`",
            figures.titles[workload],
            both(figures.instructions.get),
            f"**{number(figures.counted_ratio(workload))}**",
            number(figures.counted_ratio(workload, counts=figures.machine_instructions)),
            both(figures.allocations.get),
            both(lambda name: sum(figures.system_calls.get(name, {}).values())),
        ])
    return table(["workload", "an operation", "instructions, fio / floor", "ratio", "machine's paths",
                  "allocations, fio / floor", "system calls, fio / floor"], rows)


def calls_table(figures):
    names = ["fio", "floor", *figures.peers]
    areas = ("search.", "walk.", "copy.", "remove.")
    return table(["workload", *names], [
        [f"`{workload}`", *(number(figures.calls(workload, name)) if f"{workload}:{name}" in figures.system_calls else ""
                            for name in names)]
        for workload in figures.workloads if workload.startswith(areas)])


def differences_table(figures):
    rows = {}
    for name, note in figures.notes.items():
        workload, implementation = name.split(":")
        if note and implementation in PEERS + ["nftw"] and not workload.startswith("growth."):
            rows.setdefault((implementation, note), []).append(f"`{workload}`")
    return table(["peer", "what it does otherwise", "where"],
                 [[peer, note, ", ".join(where)] for (peer, note), where in sorted(rows.items())]).replace("---:", "---")


def floors_table(figures):
    rows = []
    for workload in figures.workloads:
        name = f"{workload}:bare"
        if name in figures.times:
            bare = figures.times[name]
            rows.append([f"`{workload}`", figures.notes[name], number(bare["nanoseconds"]),
                         number(figures.nanoseconds(workload, "floor")), number(1 / bare["ratio"]),
                         number(1 / figures.counted_ratio(workload, "bare"))])
    return table(["workload", "the bare calls", "bare, ns", "floor, ns", "floor / bare, time", "instructions"], rows)


def growth_sizes(figures):
    return sorted({int(name.split("/")[1]) for name in figures.titles if name.startswith("growth.")})


def growth_table(figures):
    sizes = growth_sizes(figures)
    first, last = sizes[-4], sizes[-1]
    rows = []
    for operation, title in GROWTH.items():
        row = [f"`{operation}`: {title}"]
        for name in ["fio", "floor", *figures.peers]:
            low, high = (figures.counted(f"{operation}/{size}", name) for size in (first, last))
            row.append(f"{math.log(high / low) / math.log(last / first):.2f}" if low and high else "")
        slopes = [(figures.counted(f"{operation}/{last}", name) - figures.counted(f"{operation}/{first}", name))
                  / (last - first) for name in ("fio", "floor")]
        rows.append(row + [f"{slopes[0]:.1f} / {slopes[1]:.1f}"])
    return table([f"exponent, {first} to {last} levels", "fio", "floor", *figures.peers,
                  "instructions a level, fio / floor"], rows)


def contract(figures):
    """What sentences of the contract cost, each measured beside doing without."""
    time, counted = figures.nanoseconds, figures.counted
    environment, current = time("simplify.clean", "bare"), time("absolute.current", "bare")
    rows = [
        ["five strings in a path, each a string of its own",
         f"construct {time('path.construct', 'floor'):.0f} ns for the floor and "
         f"{time('path.construct', 'one string'):.0f} with one string; copy {time('path.copy', 'floor'):.0f} and "
         f"{time('path.copy', 'one string'):.0f}; allocations {figures.allocations['path.copy:floor']:.2f} and "
         f"{figures.allocations['path.copy:one string']:.2f}",
         "hand paths on by reference, or move them; assign to a path that exists, which allocates nothing: "
         f"{time('path.assign'):.0f} ns in the place of {time('path.construct'):.0f}"],
        ["the environment is read at each simplification",
         f"{environment:.0f} ns, {counted('simplify.clean', 'bare'):.0f} instructions, more in an environment of more "
         f"variables; a whole simplification of a clean path takes {time('simplify.clean'):.0f} ns",
         "simplify once, when a path is read, and compare strings from there on"],
        ["a comparison reads the current directory once for each operand, absolute ones too",
         f"{current:.0f} ns each, by a system call; `<` takes {time('compare.less'):.0f} ns, of which "
         f"{2 * current / time('compare.less'):.0%} are these two",
         "compare the strings of paths that are absolute and simplified: `os_specific_comparison` takes "
         f"{time('compare.less', 'by text'):.1f} ns, and a sort of 100 "
         f"{time('compare.sort', 'by text') / 1000:.0f} µs in the place of {time('compare.sort') / 1000:.0f}"],
        ["a search tests each directory before the file in it",
         f"a miss over 50 directories takes {time('search.miss') / 1000:.0f} µs and {figures.calls('search.miss'):.0f} "
         f"system calls; with one test it would be {time('search.miss', 'one question') / 1000:.0f} µs",
         f"`find` tests the file alone and returns a string: {time('search.miss', 'find') / 1000:.0f} µs; leave "
         "directories that do not exist out of the list"],
        ["`findfirst` and `findnext` read status and permission of each match",
         f"an entry takes {time('walk.all'):.0f} ns; the directory alone takes "
         f"{time('walk.all', 'no status'):.0f}",
         "where names and kinds are enough, use the directory iterator"],
        ["a copied file is forced to stable storage",
         f"in shared memory, where these figures were taken, {time('copy.tree', 'floor') / 1000:.1f} µs an entry and "
         f"{time('copy.tree', 'not forced out') / 1000:.1f} without it; on a disk, the time of the disk for every file",
         "copy scratch data to a file system in memory"],
        ["binary streams hand over one byte a call",
         f"{time('streams.write'):.0f} ns for four bytes written, {time('streams.read'):.0f} read; past the state of "
         f"the stream {time('streams.write', 'bare'):.1f} and {time('streams.read', 'bare'):.1f}",
         "read and write blocks of bytes on the stream itself where the order of bytes is no matter"],
        ["a type is found by a scan of the vocabulary, with no index to be built or kept",
         f"{time('vocabulary.type_by_name'):.0f} ns a name, {time('vocabulary.type_by_name', 'hash table'):.0f} with a "
         "table that is built first",
         "for very many names, keep the types of the extensions that were seen"],
    ]
    return table(["sentence", "what it costs", "what a caller does about it"], rows).replace("---:", "---")


TEXT = """# Performance

Written by `scripts/bench.sh`, which builds and measures everything again; nothing here is by hand.

Each workload is done by the library (fio), by its **floor**, and by every peer that has the operation. The floor is the
least code that has the same results, byte for byte, and makes the same system calls: five strings of its own for a
path, the environment and the current directory read as often. The figures of this page are multiples of the floor: 1 is
the least that the contract allows, and a peer below 1 does less, as the table under "What peers do otherwise"
lists. `benchmarks/areas` and `benchmarks/peers` have each workload as it is written for the library and for its peers.
{setting}
## Time

![Processor time of the library and its peers, in multiples of the floor]({ratios})

Processor time on the machine's paths: each run is paired with a run of the floor, and each figure is the
median of the ratios of the pairs. The first column is the library's own time for an operation.

{times}
## Instructions, allocations and system calls

Counted by callgrind, which leaves out the kernel, by the allocator and by strace. These figures are the same on every
run, and `scripts/bench.sh --check` compares the library's with `benchmarks/instructions.txt`.

{counts}
## How the cost grows

![Instructions by the number of levels]({growth})

An exponent of 1 is linear. Reading every level by its index is a square by its interface.

{growths}
## What peers do otherwise

Where this table has no line, a peer does the same work.

{differences}
System calls an operation, where files are read or written: a library that makes fewer reads less.

{calls}
## The floors

The cost of the floor itself, compared with that of the bare system or string calls that it needs: the difference is what
the rest of the contract costs.

{floors}
## What the contract costs

{contract}"""


def write(data, folder):
    figures = Figures(data)
    charts.ratios(os.path.join(folder, "performance_ratios.svg"), figures.workloads, figures.ratio, figures.peers)
    charts.growth(os.path.join(folder, "performance_growth.svg"), GROWTH, growth_sizes(figures),
                  lambda operation, size, name: figures.counted(f"{operation}/{size}", name), figures.peers)
    with open(os.path.join(folder, "performance.md"), "w") as out:
        out.write(TEXT.format(
            setting=setting(figures), ratios="performance_ratios.svg", growth="performance_growth.svg",
            times=times_table(figures), counts=counts_table(figures), growths=growth_table(figures), calls=calls_table(figures),
            differences=differences_table(figures), floors=floors_table(figures), contract=contract(figures)))
