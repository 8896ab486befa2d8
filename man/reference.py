#!/usr/bin/python3
"""Writes the manual pages of section 3 from what Doxygen read in the public headers.

usage: reference.py XML OUTPUT VERSION

XML is Doxygen's folder of XML, OUTPUT the folder for the pages. The date of the pages is SOURCE_DATE_EPOCH, if that is
set, and otherwise today.
"""

import glob
import os
import re
import sys
import textwrap
import time
import xml.etree.ElementTree

# Each page: its name, its description, and the headers it is made from.
PAGES = [
    ("FIO_PATH", "a file or directory name in components", ["fio_path.h"]),
    ("FIO_FILE_SYSTEM", "operations on files and directories", ["fio_file_sys.h"]),
    ("FIO_FIND", "find files over a search path", ["fio_find.h"]),
    ("FIO_DIRECTORY_ITERATOR", "iterate over directories and trees", ["fio_iterator.h"]),
    ("FIO_ERRC", "errors of the file operations", ["fio_errc_codes.h", "fio_errc.h"]),
    ("FIO_FILE_TYPE", "file types, their extensions and dialog filters",
     ["fio_file_ext_type_info.h", "fio_file_type_info.h", "fio_extension_type_info.h"]),
    ("FIO_CLSID", "class identifiers of documents", ["fio_clsid.h"]),
    ("FIO_BIN_FILE", "integers on binary streams", ["fio_file_bin.h"]),
]
WIDTH = 78
TITLES = {
    "enum": "Types",
    "var": "Constants",
    "func": "Functions",
    "public-type": "Types of {}",
    "public-attrib": "Members of {}",
    "public-func": "Operations of {}",
    "public-static-func": "Static operations of {}",
}
# What the constants of the document classes share says nothing of each.
LEFT_OUT = re.compile(r"^(VFC_CLSID_|CCL_|FIO_EXPORT|update_entry_)")


def escape(text):
    """Text in which nothing is a request or an escape."""
    text = text.replace("\\", "\\e").replace("-", "\\-").replace("`", "\\(ga").replace("'", "\\(aq")
    return text.replace("^", "\\(ha").replace("~", "\\(ti").replace("\u2013", "\\(en").replace("\u2014", "\\(em")


def guard(line):
    return "\\&" + line if line[:1] in (".", "'") else line


def inline(element):
    """The running text of an element, without the blocks in it."""
    parts = [escape(element.text or "")]
    for child in element:
        if child.tag in ("computeroutput", "bold"):
            parts.append(f"\\fB{inline(child)}\\fP")
        elif child.tag == "emphasis":
            parts.append(f"\\fI{inline(child)}\\fP")
        elif child.tag == "sp":
            parts.append(" ")
        elif child.tag not in BLOCKS:
            parts.append(inline(child))
        parts.append(escape(child.tail or ""))
    return "".join(parts)


def filled(text):
    """Running text in lines, each sentence on a line of its own, as formatters want it."""
    sentences = re.split(r"(?<=[\w)\"][.?!:]) +(?=[A-Z\\\"])", " ".join(text.split()))
    lines = []
    for sentence in sentences:
        lines += textwrap.wrap(sentence, WIDTH, break_long_words=False, break_on_hyphens=False)
    return [guard(line) for line in lines]


def literal(lines):
    margin = textwrap.dedent("\n".join(lines)).rstrip().split("\n")
    return [".Bd -literal -offset 2n"] + [guard(escape(line)) for line in margin] + [".Ed"]


def code(element):
    if element.tag == "verbatim":
        return (element.text or "").strip("\n").split("\n")
    lines = []
    for line in element.iter("codeline"):
        for blank in line.iter("sp"):
            blank.text = " "
        lines.append("".join(line.itertext()))
    return lines


def tagged(items):
    """A list of pairs of a tag and lines."""
    lines = [".Bl -tag -width Ds"]
    for tag, content in items:
        lines += [f".It {tag}"] + content
    return lines + [".El"]


def parameters(element):
    items = []
    for item in element.findall("parameteritem"):
        names = ", ".join(inline(name) for name in item.iter("parametername"))
        items.append((f"\\fB{names}\\fP", blocks(item.find("parameterdescription"))))
    word = "Throws:" if element.get("kind") == "exception" else "Parameters:"
    return [".Pp", word] + tagged(items)


def section(element):
    kind = element.get("kind")
    content = [line for part in element if part.tag != "title" for line in blocks(part)]
    while content and content[0] == ".Pp":
        content.pop(0)
    if kind == "par":
        return [f".Ss {inline(element.find('title'))}"] + content
    return [".Pp", {"return": "Returns:", "warning": "Warning:", "pre": "Precondition:"}.get(kind, "Note:")] + content


def listing(element):
    lines = [".Bl -bullet"]
    for item in element.findall("listitem"):
        lines += [".It"] + [line for line in blocks(item) if line != ".Pp"]
    return lines + [".El"]


BLOCKS = {
    "verbatim": lambda element: literal(code(element)),
    "programlisting": lambda element: literal(code(element)),
    "simplesect": section,
    "parameterlist": parameters,
    "itemizedlist": listing,
    "orderedlist": listing,
}


def blocks(element):
    """The lines of a description: each paragraph after a request, and the blocks that paragraphs hold."""
    if element is None:
        return []
    if element.tag in BLOCKS:
        return BLOCKS[element.tag](element)
    if element.tag != "para":
        return [line for child in element for line in blocks(child)]
    lines = []
    run = xml.etree.ElementTree.Element("para")
    run.text = element.text

    def end_run():
        text = filled(inline(run))
        if text:
            lines.extend([".Pp"] + text)

    for child in element:
        if child.tag in BLOCKS:
            end_run()
            lines.extend(BLOCKS[child.tag](child))
            run = xml.etree.ElementTree.Element("para")
            run.text = child.tail
        else:
            run.append(child)
    end_run()
    return lines


def declaration(member):
    words = "".join((member.findtext("definition") or "").split("\n"))
    if member.get("kind") == "enum":
        words = "enum " + (member.findtext("qualifiedname") or member.findtext("name"))
        words += " { " + ", ".join(value.findtext("name") for value in member.findall("enumvalue")) + " }"
    if member.get("kind") == "function":
        words += member.findtext("argsstring")
    words = re.sub(r"< (.*?) >", r"<\1>", words)
    words = re.sub(r" +([*&]+) *", r"\1 ", words).replace("& )", "&)")
    # The heading has the class.
    words = re.sub(r"\b(FIO_\w+)::(?=\1\(|~|operator|\w+\(|\w+$)", "", words, count=1)
    return "\\fB" + escape(" ".join(words.split())) + "\\fP"


def members(compound):
    """The operations of a class or header, by the groups of its comments."""
    lines = []
    if compound.findtext("compoundname").endswith("_IMPL"):
        return []
    bases = [base.text for base in compound.findall("basecompoundref")]
    for part in compound.findall("sectiondef"):
        if part.get("kind").startswith(("private", "protected")):
            continue
        items = []
        for member in part.findall("memberdef"):
            # The page of the base has its constructors.
            if LEFT_OUT.match(member.findtext("name")) or member.findtext("name") in bases or member.get("kind") == "friend":
                continue
            content = blocks(member.find("briefdescription")) + blocks(member.find("detaileddescription"))
            if content[:1] == [".Pp"]:
                content.pop(0)
            # A heading would end the list of operations.
            content = [re.sub(r"^\.Ss (.*)", r".Pp\n\\fB\1\\fP", line) for line in content]
            if content:
                items.append((declaration(member), content))
        if items:
            title = part.findtext("header") or TITLES[part.get("kind")].format(compound.findtext("compoundname"))
            lines += [f".Ss {escape(title)}"] + blocks(part.find("description")) + tagged(items)
    return lines


def page(name, brief, headers, compounds, version, date):
    lines = [f".Dd {date}", f".Dt {name} 3", f".Os ccl {version}", ".Sh NAME", f".Nm {name}", f".Nd {brief}",
             ".Sh LIBRARY", "libccl_fio", ".Pq \\-lccl_fio", ".Sh SYNOPSIS"]
    lines += [f".In ccl/fio/{header}" for header in headers]
    lines += [".Sh DESCRIPTION"]
    operations = []
    for header in headers:
        file = next(compound for compound in compounds if compound.findtext("compoundname") == header)
        lines += blocks(file.find("briefdescription")) + blocks(file.find("detaileddescription"))
        classes = [compound for compound in compounds if compound.get("kind") in ("class", "struct")
                   and compound.find("location").get("file") == f"ccl/fio/{header}"]
        for compound in sorted(classes, key=lambda compound: int(compound.find("location").get("line"))):
            operations += members(compound)
        operations += members(file)
    others = [other for other, _, _ in PAGES if other != name]
    see = [f".Xr {other} 3 ," for other in sorted(others)]
    return lines + [".Sh OPERATIONS"] + operations + [".Sh SEE ALSO", ".Xr ccl-fio 1 ,"] + see + [".Xr ccl-fio 7"]


def tidy(lines):
    """Without the paragraph requests that have no effect."""
    result = []
    for line in lines:
        if line == ".Pp" and (not result or re.match(r"\.(Sh|Ss|It|Pp)\b", result[-1])):
            continue
        if re.match(r"\.(Sh|Ss|Bd|El)\b", line) and result and result[-1] == ".Pp":
            result.pop()
        result.append(line)
    return result


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__.strip())
    folder, output, version = sys.argv[1:]
    compounds = [xml.etree.ElementTree.parse(path).getroot().find("compounddef")
                 for path in sorted(glob.glob(os.path.join(folder, "*.xml")))
                 if os.path.basename(path) not in ("index.xml", "Doxyfile.xml")]
    day = time.gmtime(int(os.environ.get("SOURCE_DATE_EPOCH", time.time())))
    date = f"{time.strftime('%B', day)} {day.tm_mday}, {day.tm_year}"
    os.makedirs(output, exist_ok=True)
    for name, brief, headers in PAGES:
        lines = tidy(page(name, brief, headers, compounds, version, date))
        with open(os.path.join(output, f"{name}.3"), "w", encoding="utf-8") as file:
            file.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
