#!/usr/bin/python3
"""generate.py ROOT FOLDER UNITS TESTED_ELSEWHERE PAGE_OR_HEADER...

Writes the C++ blocks of the pages as sources blocks_1.cpp to blocks_UNITS.cpp into FOLDER, the examples of the headers
as header_examples.cpp, what the tables say of Qt as qt_blocks.cpp, and what the blocks are as blocks.json. main.cpp
calls run_block, which is in dispatch.cpp and, for Qt, in qt_blocks.cpp.
"""

import dataclasses
import json
import pathlib
import sys

import header_lines
import pages

DISPATCH = """int try_header_examples();
%s
int run_block(int number, int argc, char** argv);

int run_block(int number, int argc, char** argv) {
  if (number < 0) {
    return try_header_examples();
  }
  switch (number %% %d) {
%s  default: return 1;
  }
}
"""

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

int try_header_examples();

int try_header_examples() {
using namespace header_examples;
make_files();
%s
return failures == 0 ? 0 : 1;
}
"""


def unit_source(own, function, support):
    """A source with all these numbered blocks, and a function that runs the one with a number."""
    text = ""
    cases = ""
    lines = dict.fromkeys(pages.UNSAID_INCLUDES + [f'#include "tests/guide/{support}"'])
    for number, block in own:
        lines.update(dict.fromkeys(pages.split_includes(block.text)[0]))
        text += f"namespace block_{number} {{\n{pages.as_function(block, 'run')}}} // namespace\n"
        cases += f"  case {number}: return block_{number}::run(argc, argv);\n"
    return "\n".join(lines) + "\n" + text + RUN % (function, function, cases)


def main():
    root, folder, units, elsewhere, *names = sys.argv[1:]
    root, folder, units = pathlib.Path(root), pathlib.Path(folder), int(units)
    lines = pathlib.Path(elsewhere).read_text().splitlines()
    lines = [line.split(" | ") for line in lines if line[:1] not in ("", "#")]
    texts = {name: (root / name).read_text() for name in names}
    shown = {name: text for name, text in texts.items() if name.endswith(".md")}
    found = [block for name, text in shown.items() for block in pages.read_blocks(name, text)]
    blocks, untested = pages.classify(found, {(page, first_line) for page, first_line, _ in lines})
    blocks += [cell for name, text in shown.items() for cell in pages.read_cells(name, text)]

    numbered = list(enumerate(blocks))
    programs = [pair for pair in numbered if pair[1].kind in ("program", "compile")]
    for unit in range(units):
        own = [pair for pair in programs if pair[0] % units == unit]
        (folder / f"blocks_{unit + 1}.cpp").write_text(unit_source(own, f"run_block_{unit + 1}", "shown.h"))
    functions = [f"run_block_{unit + 1}" for unit in range(units)]
    (folder / "dispatch.cpp").write_text(DISPATCH % (
        "\n".join(f"int {function}(int number, int argc, char** argv);" for function in functions), units,
        "".join(f"  case {unit}: return {function}(number, argc, argv);\n" for unit, function in enumerate(functions))))
    by_qt = [pair for pair in numbered if pair[1].kind == "qt"]
    (folder / "qt_blocks.cpp").write_text(unit_source(by_qt, "run_block", "shown_by_qt.h"))
    support = (pathlib.Path(__file__).parent / "header_examples.h").read_text()
    statements = "".join(header_lines.source(name, text, support) for name, text in texts.items() if name not in shown)
    (folder / "header_examples.cpp").write_text(HEADER_EXAMPLES % statements)
    untested += [f"no such test: {test}" for _, _, test in lines if not (root / test).exists()]
    (folder / "blocks.json").write_text(json.dumps(
        {"blocks": [dataclasses.asdict(block) for block in blocks], "untested": untested}, indent=1))


if __name__ == "__main__":
    main()
