"""The fenced blocks of the Markdown pages, and how each is tried."""

import dataclasses
import re

FENCE = re.compile(r"^```+")


@dataclasses.dataclass
class Block:
    """A fenced block, or a cell of a table. `kind` says what is done with it: "program" and "compile" for C++, "qt" for
    C++ with Qt, "commands" for a shell, and "tcl"."""

    page: str
    line: int  # of the first line of its content
    language: str
    words: list  # behind the language
    text: str
    kind: str = ""
    expected: str = None  # standard output, from the block of text that follows
    shares_run: bool = False  # touches no file and prints one line: those of one kind run in one process

    @property
    def place(self):
        return f"{self.page}:{self.line}"

    @property
    def command(self):
        """The name under which the commands of the page start the program, or None."""
        names = [word[len("program="):] for word in self.words if word.startswith("program=")]
        return names[0] if names else None


def read_blocks(page, text):
    """All fenced blocks of a page, those of output apart."""
    blocks = []
    opened = None
    for number, line in enumerate(text.splitlines(), 1):
        fence = FENCE.match(line)
        if opened is None and fence:
            language, *words = line[fence.end():].split() or [""]
            opened = Block(page, number + 1, language, words, "")
            mark = fence.group()
        elif opened is not None and line.rstrip() == mark:
            blocks.append(opened)
            opened = None
        elif opened is not None:
            opened.text += line + "\n"
    if opened is not None:
        raise SystemExit(f"{opened.place}: the block has no end")
    return blocks


def first_command(text):
    """The first line of a block, without the remark behind it."""
    return text.split("\n", 1)[0].split(" #")[0].strip()


def classify(blocks, tested_elsewhere):
    """Gives each block its kind. The second result are the complaints about those that cannot be tried."""
    tried = []
    untested = []
    previous = None
    for block in blocks:
        if block.language == "cpp":
            block.kind = "compile" if "compile" in block.words else "program"
            untested += [f"{block.place}: <{name}> is missing" for name in missing_includes(block)]
        elif (block.page, first_command(block.text)) in tested_elsewhere:
            previous = None
            continue
        elif block.language in ("sh", "console"):
            block.kind = "commands"
        elif (block.language == "text" and previous is not None and previous.page == block.page
              and previous.kind != "compile" and not previous.command and "$ " not in previous.text[:2]):
            previous.expected = block.text
            previous = None
            continue
        else:
            untested.append(f"{block.place}: no test for a block of {block.language or 'no language'}")
            previous = None
            continue
        tried.append(block)
        previous = block
    return tried, untested


CELL = re.compile(r"`([^`]+)` → `([^`]+)`")
SYSTEMS = {"std::filesystem": ("program", "namespace fs = std::filesystem; fs::path p({});"),
           "Boost": ("program", "namespace bfs = boost::filesystem; bfs::path p({});"),
           "here": ("program", "FIO_PATH p({});"),
           "operation": ("program", "FIO_PATH p({});"),
           "Qt": ("qt", "QString const p(QStringLiteral({}));"),
           "Tcl": ("tcl", "set p {}")}


def read_cells(page, text):
    """The results in the tables of a page, `operation` → `result`, each as a block of its own.

    The head of a column says which library the operation belongs to. If the first column is called `p`, it has the
    text of the path on which the operations of its row work; an empty one repeats the one above.
    """
    cells = []
    heads = None
    for number, line in enumerate(text.splitlines(), 1):
        if not line.startswith("|"):
            heads = None
            continue
        row = [cell.strip() for cell in line.strip().strip("|").split("|")]
        if heads is None:
            heads = [cell.strip("`") for cell in row]
            given = ""
            continue
        if heads[0] == "p":
            given = row[0].strip("`") or given
        for head, cell in zip(heads, row):
            for operation, result in CELL.findall(cell):
                if head not in SYSTEMS:
                    raise SystemExit(f"{page}:{number}: no library is called {head}")
                kind, declaration = SYSTEMS[head]
                if kind == "tcl":
                    lines = f"puts [if {{[catch {{{operation}}} result]}} {{format error}} {{list $result}}]\n"
                    before = declaration.format("{" + given.strip('"') + "}") + "\n" if given else ""
                else:
                    path = f'R"~({given[1:-1]})~"' if heads[0] == "p" else '""'
                    before = declaration.format(path)
                    lines = f" guide::show([&]() -> decltype(auto) {{ return {operation}; }}, p);\n"
                cells.append(Block(page, number, head, [], before + lines, kind, result + "\n",
                                   heads[0] == "p"))
    return cells


INCLUDE = re.compile(r"^\s*#\s*include\b")
MAIN = re.compile(r"^int main\(([^)]*)\)", re.MULTILINE)
FUNCTION = re.compile(r"^(?!(?:if|for|while|do|switch|try|else|return)\b)[A-Za-z_][\w:<>&*, ]*\([^;=]*\)[^;=]*\{$",
                      re.MULTILINE)


def split_includes(text):
    """The lines of inclusion, and the rest, whose lines keep their numbers."""
    lines = text.split("\n")
    includes = [line for line in lines if INCLUDE.match(line)]
    return includes, "\n".join("" if INCLUDE.match(line) else line for line in lines)


# What stands before each block that includes nothing of the library.
UNSAID_INCLUDES = ["#include <ccl/fio/fio.h>", "#include <cstdio>", "#include <iostream>", "#include <string>",
                   "#include <vector>"]

# What a block must include for the names that it uses, since its neighbours would bring them too. What the operations
# of the library return or take comes with their headers.
NAMES = {"algorithm": r"std::(sort|find_if|find|any_of|count_if|min|max|copy)\b", "cerrno": r"\berrno\b",
         "chrono": r"std::chrono\b", "cstdio": r"std::(FILE|printf|puts|fputs|fprintf|perror|fclose|snprintf|fread)\b",
         "cstdlib": r"std::(getenv|exit|abort|strtol)\b", "cstring": r"std::(strerror|strlen|strcmp)\b",
         "ctime": r"std::(time|difftime)\(", "fcntl.h": r"\bO_[A-Z]+\b", "filesystem": r"std::filesystem\b",
         "fstream": r"std::[io]?fstream\b", "functional": r"std::function\b",
         "iostream": r"std::(cout|cerr|cin)\b", "map": r"std::map\b",
         "mutex": r"std::(mutex|lock_guard)\b",
         "set": r"std::set\b", "sstream": r"std::[io]?stringstream\b", "string": r"std::(string|to_string)\b",
         "system_error": r"std::(error_code|errc|system_error)\b", "thread": r"std::thread\b",
         "unistd.h": r"(?<![\w>])::(close|write|read|fsync|getpid|fork|unlink|symlink|access|dup2?)\(",
         "unordered_map": r"std::unordered_map\b", "unordered_set": r"std::unordered_set\b",
         "vector": r"std::vector\b"}


def missing_includes(block):
    """The headers of standard names that a block uses and does not include."""
    includes, rest = split_includes(block.text)
    if "ccl/" not in block.text:
        includes = includes + UNSAID_INCLUDES
    present = " ".join(includes)
    return [name for name, pattern in NAMES.items() if f"<{name}>" not in present and re.search(pattern, rest)]


def as_function(block, name):
    """The block as a function `int name(int, char**)`, without its includes."""
    text = split_includes(block.text)[1]
    here = f'#line {block.line} "{block.page}"\n'
    main = MAIN.search(text)
    if main is None:
        if block.kind == "compile" and FUNCTION.search(text):
            return here + text + f"int {name}(int, char**) {{ return 0; }}\n"
        return f"int {name}(int, char**) {{\n{here}{text}return 0;\n}}\n"
    # Only the real main returns 0 by itself: its last brace is that of its own line, or one alone on a later line.
    end_of_line = text.index("\n", main.start())
    one_line = text[main.start():end_of_line].rstrip().endswith("}")
    end = text.rindex("}", main.start(), end_of_line) if one_line else text.index("\n}", main.start()) + 1
    parameters = main.group(1).strip() or "int, char**"
    return (here + text[:main.start()] + f"int {name}({parameters})" + text[main.end():end] + "return 0; " + text[end:])
