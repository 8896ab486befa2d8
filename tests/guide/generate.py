#!/usr/bin/python3
"""generate.py ROOT FOLDER UNITS TESTED_ELSEWHERE PAGE_OR_HEADER...

Writes the C++ blocks of the pages as sources blocks_1.cpp to blocks_UNITS.cpp into FOLDER, the examples of the headers
as header_examples.cpp, what the tables say of Qt as qt_blocks.cpp, and what the blocks are as blocks.json.
"""

import dataclasses
import json
import pathlib
import sys

import header_lines
import pages


RUN = """#line 1 "the numbers of the blocks"
int %s(int number, int argc, char** argv);

int %s(int number, [[maybe_unused]] int argc, [[maybe_unused]] char** argv) {
  switch (number) {
%s  default: return 1;
  }
}
"""

HEADER_EXAMPLES = """#include <tests/guide/header_examples.h>

int header_examples::failures = 0;

int try_header_examples() {
using namespace header_examples;
make_files();
%s
return failures;
}
"""


def write_if_changed(path, text):
    if not path.exists() or path.read_text() != text:
        path.write_text(text)


def unit_source(own, function, includes):
    """A source with all these numbered blocks, and a function that runs the one with a number."""
    text = ""
    cases = ""
    lines = dict.fromkeys(pages.UNSAID_INCLUDES + [f"#include {name}" for name in includes])
    for number, block in own:
        lines.update(dict.fromkeys(pages.split_includes(block.text)[0]))
        text += f"namespace block_{number} {{\n{pages.as_function(block, 'run')}}} // namespace\n"
        cases += f"  case {number}: return block_{number}::run(argc, argv);\n"
    return "\n".join(lines) + "\n" + text + RUN % (function, function, cases)


def main():
    root, folder, units, elsewhere, *names = sys.argv[1:]
    root, folder, units = pathlib.Path(root), pathlib.Path(folder), int(units)
    lines = [line.split(" | ") for line in pathlib.Path(elsewhere).read_text().splitlines() if line[:1] not in ("", "#")]
    found = [block for name in names if name.endswith(".md") for block in pages.read_blocks(name, (root / name).read_text())]
    blocks, untested = pages.classify(found, {(page, first_line) for page, first_line, _ in lines})
    for name in names:
        blocks += pages.read_cells(name, (root / name).read_text()) if name.endswith(".md") else []

    numbered = list(enumerate(blocks))
    programs = [pair for pair in numbered if pair[1].kind in ("program", "compile")]
    for unit in range(units):
        own = [pair for pair in programs if pair[0] % units == unit]
        write_if_changed(folder / f"blocks_{unit + 1}.cpp",
                         unit_source(own, f"run_block_{unit + 1}", ['"tests/guide/shown.h"']))
    write_if_changed(folder / "qt_blocks.cpp",
                     unit_source([pair for pair in numbered if pair[1].kind == "qt"], "run_qt_block",
                                 ['"tests/guide/shown_by_qt.h"']))
    support = (pathlib.Path(__file__).parent / "header_examples.h").read_text()
    statements = "".join(header_lines.source(name, (root / name).read_text(), support) for name in names
                         if name.endswith(".h"))
    write_if_changed(folder / "header_examples.cpp", HEADER_EXAMPLES % statements)
    untested += [f"no such test: {test}" for _, _, test in lines if not (root / test).exists()]
    write_if_changed(folder / "blocks.json", json.dumps(
        {"blocks": [dataclasses.asdict(block) for block in blocks], "untested": untested}, indent=1))


if __name__ == "__main__":
    main()
