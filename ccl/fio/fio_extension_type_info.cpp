#include "ccl/fio/fio_extension_type_info.h"

#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/internal/filter_text.h"
#include "ccl/fio/internal/module.h"

namespace {

MEM_INITIALIZER const mem_initializer(fio_internal::module_name);

} // namespace

void FIO_EXTENSION_TYPE_INFO::get_extension_type_list(std::list<FIO_EXTENSION_TYPE>* extension_list,
                                                      FIO_EXTENSION_TYPE extension_type, FIO_FILE_TYPE file_type,
                                                      long /*ignored*/) {
  fio_get_extension_type_list(extension_list, extension_type, file_type);
}

FIO_EXTENSION_TYPE FIO_EXTENSION_TYPE_INFO::get_default_extension_type(FIO_FILE_TYPE file_type) {
  return fio_get_default_extension_type(file_type);
}

std::string FIO_EXTENSION_TYPE_INFO::get_extension_string(FIO_EXTENSION_TYPE extension_type) {
  return fio_get_extension_string(extension_type);
}

FIO_EXTENSION_TYPE FIO_EXTENSION_TYPE_INFO::get_extension_type(std::string const& name) {
  return fio_get_extension_type(name);
}

FIO_FILE_TYPE FIO_EXTENSION_TYPE_INFO::get_file_type(FIO_EXTENSION_TYPE extension_type) {
  return fio_get_file_type(extension_type);
}

std::string fio_get_extension_type_filter(FIO_EXTENSION_TYPE extension_type, bool plural) {
  FIO_FILE_TYPE const file_type = fio_get_file_type(extension_type);
  if (file_type == FIO_FILE_TYPE_INVALID) {
    return {};
  }
  // An extension of a file type has a string, and the type a name.
  std::string const pattern = std::string("*") + fio_get_extension_string(extension_type);
  return fio_internal::filter_text(fio_get_file_type_name(file_type), plural, pattern);
}
