"""Reads the report of gcovr as JSON, and the list of branches that no test can reach.

A line of the list is FILE, a tab, the source line without its indentation, a tab, and the reason. Prints the lines that
no test reaches, the unreached branches that are not on the list, and what on the list is reached after all.
"""

import json
import sys


def read_reasons(path):
    reasons = {}
    with open(path, encoding="utf-8") as reasons_file:
        for entry in reasons_file:
            if entry.strip() and not entry.startswith("#"):
                file, source, reason = entry.rstrip("\n").split("\t")
                reasons[file, source] = reason
    return reasons


def main(report_path, reasons_path):
    with open(report_path, encoding="utf-8") as report_file:
        report = json.load(report_file)
    reasons = read_reasons(reasons_path)
    unused = set(reasons)
    lines = reached_lines = branches = reached_branches = explained = 0
    complaints = []
    for file in report["files"]:
        with open(file["file"], encoding="utf-8") as source_file:
            sources = source_file.read().splitlines()
        for line in file["lines"]:
            if line.get("gcovr/noncode") or line.get("gcovr/excluded"):
                continue
            place = f"{file['file']}:{line['line_number']}"
            source = sources[line["line_number"] - 1].strip()
            lines += 1
            if line["count"]:
                reached_lines += 1
            else:
                complaints.append(f"{place}: not reached: {source}")
            # Nearly every call may throw: what becomes of that is the sweeps' affair.
            counts = [branch["count"] for branch in line["branches"] if not branch["throw"]]
            branches += len(counts)
            reached_branches += sum(1 for count in counts if count)
            missing = counts.count(0)
            if missing and (file["file"], source) in reasons:
                explained += missing
                unused.discard((file["file"], source))
            elif missing:
                complaints.append(f"{place}: {missing} of {len(counts)} branches not reached: {source}")
    complaints += [f"{file}: reached after all, or gone: {source}" for file, source in sorted(unused)]
    for complaint in complaints:
        print(complaint)
    print(
        f"coverage: {reached_lines} of {lines} lines, {reached_branches} of {branches} branches, "
        f"{explained} explained, {branches - reached_branches - explained} unexplained"
    )
    return 1 if complaints else 0


sys.exit(main(*sys.argv[1:]))
