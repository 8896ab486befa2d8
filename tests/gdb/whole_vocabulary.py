# Compares what is shown of every type, extension and document class with what the library says in the same process.

import gdb
import gdb.types


def shown(expression):
    return gdb.execute("output " + expression, to_string=True)


def said(call):
    return gdb.parse_and_eval(call).string()


def compare(expression, expected):
    if shown(expression) != expected:
        print("%s is shown as %s, not as %s" % (expression, shown(expression), expected))


def enumerators(name):
    return gdb.types.make_enum_dict(gdb.lookup_type(name))


for name, number in enumerators("FIO_FILE_TYPE").items():
    text = said("fio_get_file_type_name((FIO_FILE_TYPE)%d)" % number)
    compare(name, "%s (%s)" % (name, text) if text else name)

for name, number in enumerators("FIO_EXTENSION_TYPE").items():
    text = said("fio_get_extension_string((FIO_EXTENSION_TYPE)%d)" % number)
    file_type = "fio_get_file_type_name(fio_get_file_type((FIO_EXTENSION_TYPE)%d))" % number
    compare(name, "%s (%s, %s)" % (name, text, said(file_type)) if text else name)

classes = [line.split()[-1].rstrip(";") for line in gdb.execute("info variables -q _CLSID_", to_string=True).splitlines()
           if "const _GUID" in line]
for name in classes:
    text = said("fio_clsid_to_str(%s, FIO_CLSID_FORMAT_TEXT)._M_dataplus._M_p" % name)
    compare(name, "%s %s" % (text, name))
print(len(enumerators("FIO_FILE_TYPE")), len(enumerators("FIO_EXTENSION_TYPE")), len(classes))
