// What a file is, by its name; and what the suite knows of a type.

#include <ccl/fio/fio_clsid.h>
#include <ccl/fio/fio_file_ext_type_info.h>
#include <ccl/fio/fio_file_type_info.h>

#include <iostream>
#include <list>

int main() {
  for (char const* const name : {"rtl/Top.VHD", "top.v", "notes.xyz"}) {
    FIO_FILE_TYPE const type = fio_get_file_type(name);
    std::cout << name << ": " << (type == FIO_FILE_TYPE_INVALID ? "of no known type" : fio_get_file_type_name(type))
              << '\n';
  }

  // The entries of a file dialog.
  std::cout << fio_get_file_type_filter(FIO_FILE_TYPE_VHDL_FILE, /*plural=*/true) << '\n';

  // Lists are appended to, and may hold a value several times.
  std::list<FIO_FILE_TYPE> memory_files;
  fio_get_file_type_list(&memory_files, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_MEMORY_FILES, /*traits=*/-1);
  for (FIO_FILE_TYPE const type : memory_files) {
    std::cout << "the memory editor opens: " << fio_get_file_type_name(type) << ' '
              << fio_get_default_extension_string(type) << '\n';
  }

  // A document names its class; the class has a type.
  _GUID const clsid = fio_str_to_clsid("{4643d12e-344d-4088-bba7-83dc594ebde5}");
  std::cout << "the class is that of a " << fio_get_file_type_name(fio_get_file_type(clsid)) << '\n';

  std::cout << "a Verilog file is "
            << (FIO_FILE_TYPE_INFO::is_design_file(FIO_FILE_TYPE_VERILOG_HDL_FILE) ? "" : "not ") << "a design file\n";
}
