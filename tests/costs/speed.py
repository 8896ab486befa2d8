#!/usr/bin/env python3
"""The table of the guide's page on speed, from the tables of docs/performance.md.

    speed.py PERFORMANCE PAGE            compares
    speed.py --renew PERFORMANCE PAGE    writes the table into the page
"""

import pathlib
import re
import sys

# What a row of the page is about, and the workload that has its figures.
ROWS = [
    ("`FIO_PATH(string)`", "path.construct"),
    ("a copy of a path", "path.copy"),
    ("moving a path away and back", "path.move"),
    ("assigning a string to a path", "path.assign"),
    ("`filename(\"memory/fifo.v\")`, which appends a directory", "edit.append"),
    ("`filename(name)`", "edit.filename"),
    ("`extension(string, \"\")`", "edit.extension"),
    ("a copy and `become_simplified()`, nothing to do", "simplify.clean"),
    ("a copy and `become_simplified()`, with \".\" or \"..\"", "simplify.dotted"),
    ("a copy and `become_absolute(\"\")`", "absolute.current"),
    ("a copy and `become_absolute(directory)`", "absolute.given"),
    ("`get_relative_to(directory)`", "relative"),
    ("`==`, mostly different file names", "compare.other_name"),
    ("`==`, two spellings of one path", "compare.same_place"),
    ("`<`", "compare.less"),
    ("a sort of 100 paths by `<`", "compare.sort"),
    ("`same_file(name, \"*.v\")`", "wildcard.suffix"),
    ("`same_file(name, \"*_core*\")`", "wildcard.middle"),
    ("`fio_get_file_type(name)`", "vocabulary.type_by_name"),
    ("`find_first` over 50 directories, a hit", "search.hit"),
    ("`find_first` over 50 directories, a miss", "search.miss"),
    ("a scan of `dir/*`, an entry", "walk.all"),
    ("a scan of `dir/*.v`, an entry of which every tenth matches", "walk.matches"),
    ("`FIO_RECURSIVE_DIRECTORY_ITERATOR`, an entry", "walk.tree"),
    ("`copy_dir`, an entry", "copy.tree"),
    ("`remove_recursively`, an entry", "remove.tree"),
    ("`FIO_BIN_OFILE << int`", "streams.write"),
    ("`FIO_BIN_IFILE >> int`", "streams.read"),
]
START = "<!-- costs: written by tests/costs/speed.py -->\n"
END = "<!-- end of costs -->\n"


def cells_of(text, workload, columns):
    """The cells of the row of a workload in the table that has so many columns."""
    for line in text.splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if cells[0] == f"`{workload}`" and len(cells) == columns:
            return cells
    sys.exit(f"no row of {workload} with {columns} columns")


def table_from(performance):
    table = "| | ns | instructions | allocations | system calls |\n|---|---:|---:|---:|---:|\n"
    for words, workload in ROWS:
        time = cells_of(performance, workload, 11)[1]
        counts = cells_of(performance, workload, 7)
        own = [cell.split(" / ")[0] for cell in (counts[2], counts[5], counts[6])]
        table += f"| {words} | {time} | {' | '.join(own)} |\n"
    return table


def main():
    renew = "--renew" in sys.argv
    performance, page = [pathlib.Path(argument) for argument in sys.argv[1:] if argument != "--renew"]
    before = page.read_text()
    table = START + "\n" + table_from(performance.read_text()) + "\n" + END
    now, places = re.subn(re.escape(START) + ".*?" + re.escape(END), lambda _: table, before, flags=re.DOTALL)
    if places != 1:
        sys.exit(f"{page} has no place for the table")
    if renew:
        page.write_text(now)
    elif now != before:
        sys.exit(f"The table of {page} is not that of {performance}: tests/costs/speed.py --renew {performance} {page}")


main()
