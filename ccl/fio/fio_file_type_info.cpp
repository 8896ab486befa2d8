#include "ccl/fio/fio_file_type_info.h"

#include <string_view>

#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/internal/filter_text.h"
#include "ccl/fio/internal/module.h"

namespace {

MEM_INITIALIZER const mem_initializer(fio_internal::module_name);

} // namespace

void FIO_FILE_TYPE_INFO::get_file_type_list(std::list<FIO_FILE_TYPE>* file_type_list, FIO_FILE_TYPE file_type,
                                            FIO_EDITOR_TYPE editor_type, long traits) {
  fio_get_file_type_list(file_type_list, file_type, editor_type, traits);
}

FIO_FILE_TYPE FIO_FILE_TYPE_INFO::get_file_type(std::string const& name) { return fio_get_file_type(name); }

FIO_FILE_TYPE FIO_FILE_TYPE_INFO::get_file_type(_GUID const& clsid) { return fio_get_file_type(clsid); }

std::string FIO_FILE_TYPE_INFO::get_file_type_name(FIO_FILE_TYPE file_type) {
  return fio_get_file_type_name(file_type);
}

std::string FIO_FILE_TYPE_INFO::get_file_description(FIO_FILE_TYPE file_type) {
  return fio_get_file_description(file_type);
}

FIO_EDITOR_TYPE FIO_FILE_TYPE_INFO::get_editor_type(FIO_FILE_TYPE file_type) { return fio_get_editor_type(file_type); }

bool FIO_FILE_TYPE_INFO::is_design_file(FIO_FILE_TYPE file_type) {
  return fio_test_trait_of(file_type, FIO_FILE_TYPE_FLAG_DESIGN_FILES);
}

std::string fio_get_file_type_filter(FIO_FILE_TYPE file_type, bool plural) {
  std::string_view const name = fio_get_file_type_name(file_type);
  if (name.empty()) {
    return {};
  }
  std::list<FIO_EXTENSION_TYPE> extensions;
  fio_get_extension_type_list(&extensions, FIO_EXTENSION_TYPE_ANY, file_type);
  std::string patterns; // every extension of the vocabulary has a string
  for (FIO_EXTENSION_TYPE const extension : extensions) {
    patterns.append(patterns.empty() ? "*" : " *").append(fio_get_extension_string(extension));
  }
  return fio_internal::filter_text(name, plural, patterns);
}
