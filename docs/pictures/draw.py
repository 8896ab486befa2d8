#!/usr/bin/python3
"""Draws the pictures of the documentation as SVG that can be read on a light and on a dark ground.

usage: draw.py [--check] PROGRAM

PROGRAM is picture_data of the tests, run in examples/design. With --check nothing is written: the exit status is 1 if a
picture in this folder is not what would be drawn.
"""

import html
import os
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
FLOORS = os.path.join(os.path.dirname(HERE), "floors.txt")
STYLE = """<style>
:root { color-scheme: light dark }
text { font: 14px sans-serif; fill: #1f2328 }
.code { font-family: monospace; white-space: pre }
.note { font-size: 12px; fill: #59636e }
.box { fill: #f6f8fa; stroke: #8b949e }
.hit { fill: #dafbe1; stroke: #1a7f37 }
.line { fill: none; stroke: #8b949e }
@media (prefers-color-scheme: dark) {
text { fill: #f0f6fc }
.note { fill: #9198a1 }
.box { fill: #151b23; stroke: #8b949e }
.hit { fill: #12261e; stroke: #3fb950 }
}
</style>"""
CELL = 15  # the width of a character in its cell


class Picture:
    def __init__(self, width, height, title):
        self.parts = [
            f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
            f'viewBox="0 0 {width} {height}" role="img">', f"<title>{html.escape(title)}</title>", STYLE]

    def text(self, x, y, content, kind="", anchor="middle"):
        self.parts.append(f'<text x="{x}" y="{y}" text-anchor="{anchor}" class="{kind}">{html.escape(content)}</text>')

    def box(self, x, y, width, height, kind="box"):
        self.parts.append(f'<rect x="{x}" y="{y}" width="{width}" height="{height}" rx="4" class="{kind}"/>')

    def line(self, *points):
        path = " ".join(f"{x},{y}" for x, y in points)
        self.parts.append(f'<polyline points="{path}" class="line"/>')

    def cells(self, x, y, content):
        for index, character in enumerate(content):
            self.box(x + index * CELL, y, CELL, 24)
            self.text(x + index * CELL + CELL / 2, y + 17, character, "code")

    def brace(self, x, y, characters, above, below=""):
        """A brace under some cells, with what it stands for."""
        end = x + characters * CELL
        self.line((x + 2, y), (x + 2, y + 6), (end - 2, y + 6), (end - 2, y))
        self.text((x + end) / 2, y + 22, above, "code")
        self.text((x + end) / 2, y + 38, below, "note")

    def finish(self):
        return "\n".join(self.parts) + "\n</svg>\n"


def read_data(program):
    values = {}
    for line in subprocess.run([program], check=True, capture_output=True, text=True).stdout.splitlines():
        key, value = line.split("\t", 1)
        values.setdefault(key, []).append(value)
    return values


def draw_components(data):
    given, full = data["given"][0], data["fullpath"][0]
    picture = Picture(440, 190, f"The components of {full}")
    x = 130
    picture.text(x - 10, 27, "given", "note", "end")
    picture.cells(x, 10, given)
    picture.text(x - 10, 77, "fullpath()", "code", "end")
    picture.cells(x, 60, full)
    start = x
    for name, value, note in (
            ("directory", data["directory"][0], ", ".join(f"[{i}] {level}" for i, level in enumerate(data["level"]))),
            ("base", data["base"][0], "to the last dot"), ("ext.", data["extension"][0], "")):
        picture.brace(start, 88, len(value), name, note)
        start += len(value) * CELL
    picture.text(x, 160, f'extension() returns "{data["extension"][0][1:]}", without the dot', "note", "start")
    picture.text(x, 178, f'tail() returns "{data["level"][-1]}", the last level', "note", "start")
    return picture.finish()


def draw_lists(data):
    name = data["name"][0]
    searched = list(zip(data["m_search_list"], data["hit"]))
    row, top = 40, 96
    bottom = top + row * max(len(searched), len(data["m_directories"])) + row
    picture = Picture(600, bottom + 48, "The two lists of a search path")
    picture.text(300, 24, f'FIO_FIND find("{data["search_path"][0]}", recursive)', "code")
    for x, title, users in ((20, "m_search_list", "all searches but find()"), (320, "m_directories", "find() alone")):
        picture.line((300, 32), (x + 130, 48))
        picture.text(x + 130, 64, title, "code")
        picture.text(x + 130, 82, users, "note")
    first = True
    for index, (directory, hit) in enumerate(searched):
        found = hit == "yes"
        y = top + index * row
        picture.box(20, y, 260, 30, "hit" if found and first else "box")
        picture.text(30, y + 20, f'"{directory}"', "code", "start")
        picture.text(270, y + 20, f"{name}: found" if found and first else f"{name}: shadowed" if found else f"no {name}",
                     "note", "end")
        first = first and not found
    picture.text(30, top + len(searched) * row + 20, "then all subdirectories, if recursive", "note", "start")
    for index, directory in enumerate(data["m_directories"]):
        y = top + index * row
        picture.box(320, y, 260, 30)
        picture.text(330, y + 20, f'"{directory}"', "code", "start")
    y = top + len(data["m_directories"]) * row + 20
    picture.text(330, y, "white space is kept;", "note", "start")
    picture.text(330, y + 16, "what follows the last \";\" is no element", "note", "start")
    picture.text(300, bottom + 24, f'find.find_first("{name}") returns "{data["find_first"][0]}"', "code")
    return picture.finish()


def draw_floors():
    with open(FLOORS) as lines:
        rows = [[field.strip() for field in line.split(":")] for line in lines if line[:1].isalpha()]
    height = 46
    picture = Picture(720, height * len(rows) + 66, "The floors of the library")
    for index, (name, below, files) in enumerate(reversed(rows)):
        y = 10 + height * index
        names = [part.removeprefix("ccl/").removeprefix("fio/").removeprefix("fio_").rstrip("./") for part in files.split()
                 if "/internal/" not in part]
        picture.box(10, y, 700, height - 8)
        picture.text(24, y + 24, name, "", "start")
        picture.text(120, y + 17, ", ".join(names), "code note", "start")
        picture.text(120, y + 32, f"includes {', '.join(below.split())}" if below else "includes the system's headers",
                     "note", "start")
    y = 10 + height * len(rows)
    picture.text(24, y + 18, "A file includes headers of its own floor and of the floors that are named, which lie below.",
                 "note", "start")
    picture.text(24, y + 36, "Tools, bindings and examples include public headers alone.", "note", "start")
    return picture.finish()


def main():
    arguments = sys.argv[1:]
    check = arguments[:1] == ["--check"]
    if len(arguments) != 1 + check:
        sys.exit(__doc__.strip())
    data = read_data(os.path.abspath(arguments[-1]))
    pictures = {
        "path_components.svg": draw_components(data),
        "search_lists.svg": draw_lists(data),
        "floors.svg": draw_floors(),
    }
    stale = []
    for name, content in pictures.items():
        path = os.path.join(HERE, name)
        if check:
            with open(path) as file:
                stale += [name] if file.read() != content else []
        else:
            with open(path, "w") as file:
                file.write(content)
    for name in stale:
        print(f"docs/pictures/{name} is not what docs/pictures/draw.py draws", file=sys.stderr)
    sys.exit(1 if stale else 0)


if __name__ == "__main__":
    main()
