"""The lines `input => output` in the comments of the public headers, as a source that tries them.

A block of such lines is either C++, whose lines run in their order, or a table, each line of which lists the arguments
of the operation that the comment belongs to. What a table calls, and what stands before a block of C++, is in
header_examples.h, under the names of the header and of the operation.
"""

import re

STRING = r'"[^"]*"'
VALUE = re.compile(r'"[^"]*"|0x[0-9a-f]+|\d+|true\b|false\b|null\b|all zero\b|(?:FIO|VFC)_[A-Z0-9_]+')
LABEL = re.compile(r'([A-Za-z]\w*)( is)? (?=["0])')
BYTES = re.compile(r'[0-9a-f]{2}( [0-9a-f]{2})+$')
REMARK = re.compile(r'$|:|\.\.\.| if |, (?:of|though|and) ')


def raw(text):
    return f'R"~({text})~"'


def comments(lines):
    """Each comment as the numbers and texts of its lines, with the declaration behind it."""
    comment = []
    for number, line in enumerate(lines, 1):
        text = line.strip()
        if text.startswith("///") and not text.startswith("///<"):
            comment.append((number, text[3:]))
        elif comment:
            rest = " ".join(lines[number - 1:number + 4])
            yield comment, rest
            comment = []


def operation(comment, declaration):
    """The name of what is declared, for the names in header_examples.h."""
    if any("@file" in text for _, text in comment):
        return "file"
    declaration = re.sub(r"\[\[.*?\]\]", "", declaration)
    name = re.search(r"(operator\W+|\w+) ?\(", declaration)
    return re.sub(r"\W", "", name.group(1).replace("operator[]", "level")) if name else "nothing"


def blocks(comment):
    """The indented blocks of a comment that show a result. A line that begins with the arrow continues the last one."""
    block = []
    for number, text in comment + [(0, "")]:
        if text.startswith("     "):
            text = text[5:]
            if text.lstrip().startswith("=>") and block:
                block[-1] = (block[-1][0], block[-1][1] + " " + text.strip())
            else:
                block.append((number, text))
        else:
            if any("=>" in line for _, line in block):
                yield block
            block = []


def split_line(text):
    """The input and the output of a line; None for a line without an output."""
    arrow = re.search(r"\s*=> ", re.sub(STRING, lambda match: "x" * len(match.group()), text))
    if arrow is None and "=>" in text and "<=>" not in text:
        raise SystemExit(f"there is no result in this line: {text}")
    return (text[:arrow.start()], text[arrow.end():]) if arrow else None


def is_code(block):
    bare = [re.sub(r"`[^`]*`|" + STRING, "", line.split("=>")[0]) for _, line in block]
    return any("(" in line or ";" in line for line in bare)


def parse_output(text, place):
    """A list of label, separator of the label, and value; and whether the text is to be taken whole."""
    if BYTES.match(text):
        return [("", "", text)], True
    segments = []
    position = 0
    while True:
        label = LABEL.match(text, position)
        start = label.end() if label else position
        value = VALUE.match(text, start)
        if value is None:
            break
        segments.append((label.group(1) if label else "", label.group(2) or "" if label else "", value.group()))
        position = value.end()
        gap = re.compile(r", (?=[\w\"])| {2,}(?=\S)").match(text, position)
        following = gap and (LABEL.match(text, gap.end()) or VALUE.match(text, gap.end()))
        if not following:
            break
        if gap.group() != ", ":
            segments.append(("", "", "|"))
        position = gap.end()
    if not segments:
        return [("", "", text)], True
    if not REMARK.match(text, position):
        raise SystemExit(f"{place}: this output cannot be read: {text[position:]}")
    return segments, False


def as_expected(values):
    """C++ that makes the text that the values have when they are shown."""
    parts = []
    for value in values:
        constant = re.match(r"(?:FIO|VFC)_|0x|all zero", value)
        parts.append(f"shown({value.replace(' ', '_')})" if constant else f"std::string({raw(value)})")
    return ' + ", " + '.join(parts).replace(' + ", " + std::string(R"~(|)~") + ", " + ', ' + " | " + ')


def checks(place, call, output, alone):
    """Statements that compare the parts of an output. `alone` stands for the value of a named result."""
    segments, words = parse_output(output, place)
    if words:
        return f'check("{place}", words({call}), {raw(segments[0][2])});\n'
    text = ""
    values = [value for label, _, value in segments if not label]
    if values:
        text += f'check("{place}", shown({call}), {as_expected(values)});\n'
    for label, is_member, value in segments:
        if label:
            part = label if alone else f"({call}).{label}" + ("" if is_member else "()")
            text += f'check("{place}", shown({part}), {as_expected([value])});\n'
    return text


def arguments(text):
    """The left side of a line of a table as arguments in C++."""
    kept = []

    def keep(code):
        kept.append(code)
        return f"\0{len(kept) - 1}\0"

    text = re.sub(r" with `(\w+)\('(.)'\)`",
                  lambda match: keep(f".{match.group(1)}('{match.group(2)}')".replace("'\\'", "'\\\\'")), text)
    text = re.sub(r"'(.)'", lambda match: keep(f"'{match.group(1)}'".replace("'\\'", "'\\\\'")), text)
    text = re.sub(STRING, lambda match: keep(raw(match.group()[1:-1])), text)
    text = re.sub(r"\s+(?:in|or|by)\s+", ", ", text).replace("{", "strings{")
    pieces = [re.sub(r"\W+", "_", piece) if re.match(r"[a-z]\w* ", piece) and "\0" not in piece else piece
              for piece in re.split(r", *", text.strip())]
    text = re.sub(r"\bnull\b", "nullptr", ", ".join(pieces))
    text = re.sub(r"(\0\d+\0)(?=\0)", r"FIO_PATH(\1)", text)
    return re.sub(r"\0(\d+)\0", lambda match: kept[int(match.group(1))], text)


def source(header, text, support):
    """The statements that try all lines of one header."""
    statements = ""
    stem = header.rsplit("/", 1)[1][:-2]
    for comment, declaration in comments(text.splitlines()):
        name = f"{stem}_{operation(comment, declaration)}"
        for block in blocks(comment):
            code = is_code(block)
            statements += "{\n"
            if code and f"#define BEFORE_{name}\n" in support or f"#define BEFORE_{name} " in support:
                statements += f"BEFORE_{name}\n"
            for number, line in block:
                place = f"{header}:{number}"
                statements += f'#line {number} "{header}"\n'
                if code and "=>" not in line:
                    line = re.sub(r'"(/proj[^"]*)"', r'in_scratch("\1")', line)
                parts = split_line(line)
                if not code and parts:
                    statements += checks(place, f"of::{name}({arguments(parts[0])})", parts[1], False)
                elif not parts:
                    statements += line + "\n" if code else ""
                elif "// " in parts[0]:
                    statement, expression = parts[0].split("// ")
                    statements += statement + "\n" + checks(place, expression, parts[1], False)
                elif parts[0].endswith(";"):
                    statements += parts[0] + "\n" + checks(place, f"RESULT_{name}", parts[1], False)
                elif re.match(r"\w+ is ", parts[1]):
                    statements += parts[0] + ";\n" + checks(place, "", parts[1], True)
                else:
                    statements += checks(place, parts[0], parts[1], False)
            statements += "}\n"
    return statements
