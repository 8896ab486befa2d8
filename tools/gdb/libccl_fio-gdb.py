"""Shows the objects of libccl_fio in gdb as what they mean to a reader.

It is installed under the name of the library, so that gdb loads it together with it. Everything is read from memory and
from debug information and nothing of the program is called: a core file serves as well as a process. An object may have
any content, as one that is not constructed yet, so what is read is bounded, and what cannot be read is said to be
unreadable in its place.

Names come from the enumerations. The descriptions of types and the names of document classes come from the tables of
the library, for which its debug symbols are needed; without them they are left out.
"""

import os

import gdb
import gdb.printing
import gdb.types

# What is read at most where the setting `print elements` is unlimited.
FIO_MOST_ELEMENTS = 10000
# The longest text of a path that the library accepts.
FIO_LONGEST_PATH = 1023


# Reading what may be anything


def fio_guarded(show, *arguments):
    """What `show` returns, or why it could not."""
    try:
        return show(*arguments)
    except Exception as error:  # gdb raises more than its own errors, and printing must go on
        return "<unreadable: %s>" % error


def fio_limit():
    """The number of characters or elements to show at most."""
    if hasattr(gdb, "print_options"):  # from gdb 13 on, with the options of this one command
        limit = gdb.print_options()["max_elements"]
    else:
        limit = gdb.parameter("print elements")
    return min(limit or FIO_MOST_ELEMENTS, FIO_MOST_ELEMENTS)


def fio_quoted(start, size):
    """The first `size` characters behind a pointer, as gdb writes a string."""
    shown = min(size, fio_limit())
    if shown == 0:
        return '""' + "..." * (size > 0)
    text = start.cast(gdb.lookup_type("char").array(shown - 1).pointer()).dereference()
    return text.format_string(repeat_threshold=0, max_elements=0) + "..." * (shown < size)


def fio_text(value):
    """A `std::string`, which has a NUL behind its text. Fails if it has not."""
    start = value["_M_dataplus"]["_M_p"]
    size = int(value["_M_string_length"])
    if size >> 47 or (start + size).dereference() != 0:  # more than the address space, or no end
        raise ValueError("no string")
    return fio_quoted(start, size)


def fio_string(value):
    """A `std::string`, or why it cannot be shown."""
    return fio_guarded(fio_text, value)


def fio_braces(values, show):
    """The texts of a sequence, up to what is not to be shown or cannot be read."""
    texts = []

    def read():
        for value in values:
            if len(texts) == fio_limit():
                texts.append("...")
                return
            texts.append(show(value))

    end = fio_guarded(read)
    return "{%s}" % ", ".join(texts if end is None else texts + [end])


def fio_members(**members):
    """Members with their names, as gdb writes them."""
    return "{%s}" % ", ".join("%s = %s" % member for member in members.items())


def fio_list(value, show):
    """The elements of a `std::list`."""

    def nodes():
        header = value["_M_impl"]["_M_node"]
        element = value.type.strip_typedefs().template_argument(0).pointer()
        node = header["_M_next"]
        for _ in range(int(header["_M_size"])):
            yield (node + 1).cast(element).dereference()
            node = node["_M_next"]
        if int(node) != int(header.address):
            raise ValueError("no end")

    return fio_braces(nodes(), show)


def fio_dynamic(value):
    """The whole object, where the value is a base of it."""
    try:
        return value.address.cast(value.dynamic_type.pointer()).dereference()
    except (AttributeError, gdb.error):
        return value  # in no memory, or without a usable table of virtual functions


# The library's own tables


def fio_from_tables(look_up, key):
    """What the tables have for a key, or None. A core file has no tables, and the library may not be at hand."""
    try:
        return look_up(key)
    except gdb.error:
        return None


def fio_library_symbol(name):
    """A variable of the library, or None without its debug symbols."""
    for objfile in gdb.objfiles():
        if os.path.basename(objfile.filename or "").startswith("libccl_fio.so"):
            symbol = objfile.lookup_global_symbol(name) or objfile.lookup_static_symbol(name)
            if symbol is not None:
                return symbol
    return None


def fio_rows(table):
    """The rows of an array."""
    first, last = table.type.range()
    return (table[i] for i in range(first, last + 1))


def fio_file_type_description(number):
    """What people call a file type, or None."""
    symbol = fio_library_symbol("fio_tables::fio_file_type_datas")
    if symbol is None:
        return None
    table = symbol.value()
    for row in fio_rows(table["rows"]):
        if int(row["file_type"]) == number:
            size = table["descriptions"].type.sizeof
            return table["descriptions"].string(length=size)[int(row["description"]) :].split("\0")[0]
    return None


def fio_extension_description(number):
    """The text of an extension type and the description of the file type that it stands for, or None."""
    symbol = fio_library_symbol("fio_tables::fio_extension_type_datas")
    if symbol is None:
        return None
    for row in fio_rows(symbol.value()):
        if int(row["extension_type"]) == number:
            # The library prefers a type that has the extension for its default, which has always been the first.
            return "%s, %s" % (row["extension"].string(), fio_file_type_description(int(row["file_type"])))
    return None


def fio_guid_text(value):
    """An identifier in the text form that the library reads."""
    tail = "".join("%02x" % int(value["Data4"][i]) for i in range(8))
    numbers = tuple(int(value[field]) for field in ("Data1", "Data2", "Data3")) + (tail[:4], tail[4:])
    return "{%08x-%04x-%04x-%s-%s}" % numbers


def fio_class_name(text, names={}):
    """The constant that has an identifier, or None. The names are read once."""
    symbol = None if names else fio_library_symbol("FIO_CLSID_NULL")
    if symbol is not None:
        for constant in symbol.symtab.global_block():
            if constant.is_variable and constant.type.unqualified().name == "_GUID":
                names[fio_guid_text(constant.value())] = constant.name
    return names.get(text)


# The types: for each a function that returns the text of a value


def fio_path(value):
    text = fio_text(value["m_full_path"])
    if int(value["m_full_path"]["_M_string_length"]) > FIO_LONGEST_PATH:
        return text + " (too long)"
    return text + " (too long, or moved from)" * (not value["m_legal_length"])


def fio_find(value):
    return fio_members(
        m_search_path=fio_string(value["m_search_path"]),
        m_search_list=fio_list(value["m_search_list"], fio_path),
        m_directories=fio_list(value["m_directories"], fio_text),
        m_absolute_to=fio_string(value["m_absolute_to"]),
        m_recursive=value["m_recursive"],
        m_find_handle=value["m_find_handle"],
    )


def fio_entry(value):
    return fio_text(value["path"]) + " (directory)" * bool(value["is_directory"])


def fio_found_entry(value):
    name = value["name"]
    size = next((i for i in range(name.type.sizeof) if name[i] == 0), name.type.sizeof)
    return fio_members(
        name=fio_quoted(name[0].address, size),
        attrib=value["attrib"],
        time_write=value["time_write"],
        size=value["size"],
    )


def fio_open_directory(value):
    return "%s in {%s}" % (fio_entry(value["entry"]), fio_text(value["directory"]))


def fio_iterator(value):
    value = fio_dynamic(value)
    state = value["m_impl"]["_M_ptr"]
    if not state:
        return "the end"

    def levels():
        yield state
        below = value
        while gdb.types.has_field(below.type, "m_subdir_iter") and below["m_subdir_iter"]["_M_ptr"]:
            below = below["m_subdir_iter"]["_M_ptr"].dereference()
            yield below["m_impl"]["_M_ptr"]

    return "%s in %s" % (fio_entry(state["entry"]), fio_braces(levels(), lambda level: fio_text(level["directory"])))


def fio_line(value):
    notes = []
    if value["m_indent"] != 0:
        notes.append("depth %d" % int(value["m_indent"]))
    if value["m_code"] != -1:
        notes.append("code %d" % int(value["m_code"]))
    if value["m_aux_text"]["_M_string_length"] != 0:
        notes.append("with " + fio_string(value["m_aux_text"]))
    return fio_text(value["m_text"]) + " (%s)" % ", ".join(notes) * bool(notes)


def fio_message(value):
    lines = value["m_lines"]["m_holder"]
    return fio_braces((lines["m_start"][i] for i in range(int(lines["m_size"]))), fio_line)


def fio_error(value):
    value = fio_dynamic(value)
    name = value.type.name
    # An error of somebody else keeps its words elsewhere.
    return "%s %s" % (name, fio_message(value["m_message"])) if gdb.types.has_field(value.type, "m_message") else name


def fio_made_error(value):
    error = value.type.strip_typedefs().template_argument(0).pointer()
    made = value["m_error"].address.cast(error.pointer()).dereference()
    return fio_error(made.dereference()) if made else "no error"


def fio_guid(value):
    text = fio_guid_text(value)
    name = fio_from_tables(fio_class_name, text)
    return text + (" " + name if name else "")


def fio_enumerator(value):
    """The name of exactly this value, or None."""
    return {field.enumval: field.name for field in value.type.strip_typedefs().fields()}.get(int(value))


def fio_described(value, describe):
    number = int(value)
    description = fio_from_tables(describe, number)
    return (fio_enumerator(value) or str(number)) + (" (%s)" % description if description else "")


def fio_file_type(value):
    return fio_described(value, fio_file_type_description)


def fio_extension_type(value):
    return fio_described(value, fio_extension_description)


def fio_flags(value):
    name = fio_enumerator(value)
    if name is not None:
        return name
    rest = int(value)
    names = []
    for field in value.type.strip_typedefs().fields():
        bit = field.enumval
        if bit > 0 and bit & (bit - 1) == 0 and rest & bit:
            names.append(field.name)
            rest &= ~bit
    if rest != 0 or not names:
        names.append(hex(rest & (1 << 8 * value.type.sizeof) - 1))
    return " | ".join(names)


class FioPrinter:
    """A value as one of the functions above shows it."""

    def __init__(self, show, value):
        if value.type.strip_typedefs().code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
            value = value.referenced_value()
        self.show = show
        self.value = value

    def is_described(self):
        """Whether the members are known. A compiler may leave a class to the debug symbols of the library, as one with
        virtual functions."""
        return bool(self.value.type.strip_typedefs().fields())

    def to_string(self):
        if not self.is_described():
            return "<the debug symbols of the library are missing>"
        return fio_guarded(self.show, self.value)


class FioPathPrinter(FioPrinter):
    """A path, and below it the components."""

    def children(self):
        if not self.is_described():
            return

        def sound(component):  # the printer of strings relies on what it is given
            fio_text(component)
            return component

        for name in ("m_drive", "m_directory", "m_base", "m_extension"):
            yield name, fio_guarded(sound, self.value[name])
        if self.value["m_path_separator"] != ord("/"):
            yield "m_path_separator", self.value["m_path_separator"]


def fio_printers():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("libccl_fio")
    printers.add_printer("FIO_PATH", "^FIO_PATH$", lambda value: FioPathPrinter(fio_path, value))
    for name, show in (
        ("FIO_FIND", fio_find),
        ("FIO_DIRECTORY_ENTRY", fio_entry),
        ("FIO_DIRECTORY_ITERATOR", fio_iterator),
        ("FIO_RECURSIVE_DIRECTORY_ITERATOR", fio_iterator),
        ("FIO_DIRECTORY_ITERATOR_IMPL", fio_open_directory),
        ("_finddata_t", fio_found_entry),
        ("KORVANE_ERROR_MESSAGE::LINE", fio_line),
        ("KORVANE_ERROR_MESSAGE", fio_message),
        ("KORVANE_ERRC", fio_error),
        ("FIO_ERRC", fio_error),
        ("FIO::ERRC::[A-Z_]+", fio_error),
        ("KORVANE_ERROR<.*>", fio_made_error),
        ("_GUID", fio_guid),
        ("FIO_FILE_TYPE", fio_file_type),
        ("FIO_EXTENSION_TYPE", fio_extension_type),
        ("FIO_FILE_TYPE_FLAG", fio_flags),
        ("FIO_EXTENSION_TYPE_FLAG", fio_flags),
        ("FIO_EDITOR_TYPE", fio_flags),
    ):
        printers.add_printer(name, "^%s$" % name, lambda value, show=show: FioPrinter(show, value))
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), fio_printers(), replace=True)
