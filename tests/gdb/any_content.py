# Shows memory of any content as objects of all types. Nothing of it may end in an exception of the printers.

import random
import struct

import gdb

TYPES = """
FIO_PATH FIO_FIND FIO_DIRECTORY_ENTRY FIO_DIRECTORY_ITERATOR FIO_RECURSIVE_DIRECTORY_ITERATOR
FIO_DIRECTORY_ITERATOR_IMPL _finddata_t KORVANE_ERROR_MESSAGE KORVANE_ERROR_MESSAGE::LINE FIO_ERRC KORVANE_ERRC
FIO::ERRC::NOT_A_DIRECTORY_ERRC KORVANE_ERROR<FIO::ERRC::NOT_A_DIRECTORY_ERRC> _GUID FIO_FILE_TYPE FIO_EXTENSION_TYPE
FIO_FILE_TYPE_FLAG FIO_EXTENSION_TYPE_FLAG FIO_EDITOR_TYPE
""".split()
ROUNDS = 100

random.seed(1)
memory = int(gdb.parse_and_eval("(long)&no_find"))
words = int(gdb.parse_and_eval("sizeof no_find")) // 8
# What looks like a pointer to something: to the stack, the heap, a string, and a table of virtual functions.
places = [int(gdb.parse_and_eval("(long)" + place)) for place in ("&path", "error.get()", "*(void**)&path", "*(void**)&tree")]


def word():
    kind = random.randrange(4)
    if kind == 0:
        return random.choice(places) + 8 * random.randrange(-16, 32)
    if kind == 1:
        return random.randrange(40)
    if kind == 2:
        return random.choice((0, 1 << 63, (1 << 64) - 1)) + random.randrange(-2, 3)
    return random.getrandbits(64)


shown = 0
for name in TYPES:
    for _ in range(ROUNDS):
        content = b"".join(struct.pack("<Q", word() % (1 << 64)) for _ in range(words))
        gdb.selected_inferior().write_memory(memory, content)
        command = "*(%s*)%d" % (name, memory)
        try:
            text = gdb.execute("print " + command, to_string=True)
        except gdb.error:
            # gdb itself looks for the table of virtual functions before it asks a printer.
            try:
                gdb.execute("print/r " + command, to_string=True)
            except gdb.error:
                continue
            text = "Exception"
        if "Exception" in text or len(text) > 100000:
            print("%s of %s: %s" % (name, content.hex(), text[:1000]))
        shown += 1
print("most are shown" if shown > 0.9 * ROUNDS * len(TYPES) else shown)
