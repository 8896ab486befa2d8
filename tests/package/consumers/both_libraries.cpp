// A program of somebody else, who has the installed library and nothing more.

#include <ccl/fio/fio.h>
#include <ccl/mem/mem.h>

#include <cstring>

int main() {
  FIO_PATH path("rtl//core\\alu.v");
  path.extension(FIO_EXTENSION_TYPE_SV, FIO_EXTENSION_TYPE_ANY);
  bool const good =
      path.fullpath() == "rtl/core/alu.sv" &&
      std::strcmp(fio_get_file_type_name(fio_get_file_type(path.fullpath())), "SystemVerilog HDL File") == 0 &&
      fio_str_to_clsid(fio_clsid_to_str(VFC_CLSID_TED_VHD_DOC, FIO_CLSID_FORMAT_TEXT)).Data1 ==
          VFC_CLSID_TED_VHD_DOC.Data1 &&
      FIO_FILE_SYSTEM::exists("/") && FIO_FIND("/", false).m_search_list.size() == 1 &&
      MEM_INITIALIZER::registered_modules().size() == 9;
  return good ? 0 : 1;
}
