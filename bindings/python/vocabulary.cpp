// The queries on file types and extensions, over plain values: the enumerations are classes of Python, made of the same
// names and values.

#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "bindings/python/bindings.h"
#include "ccl/fio/fio_clsid.h"
#include "ccl/fio/fio_clsid_list.h"
#include "ccl/fio/fio_extension_type_info.h"
#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/fio_file_type_info.h"

namespace {

using type_value = std::int16_t;

FIO_FILE_TYPE file_type(type_value value) { return static_cast<FIO_FILE_TYPE>(value); }
FIO_EXTENSION_TYPE extension_type(type_value value) { return static_cast<FIO_EXTENSION_TYPE>(value); }

template <typename Type>
std::vector<type_value> values_of(std::list<Type> const& types) {
  return {types.begin(), types.end()};
}

void bind_file_types(py::module_& module) {
  module.def("file_type_of_name", [](file_name const& name) -> type_value { return fio_get_file_type(name.bytes); });
  module.def("file_type_of_extension",
             [](type_value type) -> type_value { return fio_get_file_type(extension_type(type)); });
  module.def("file_type_of_class",
             [](std::string const& clsid) -> type_value { return fio_get_file_type(fio_str_to_clsid(clsid)); });
  module.def("file_type_name", [](type_value type) { return fio_get_file_type_name(file_type(type)); });
  module.def("file_description", [](type_value type) { return fio_get_file_description(file_type(type)); });
  module.def("file_type_filter",
             [](type_value type, bool plural) { return fio_get_file_type_filter(file_type(type), plural); });
  module.def("editor_type", [](type_value type) -> std::uint32_t { return fio_get_editor_type(file_type(type)); });
  module.def("has_trait", [](type_value type, std::int32_t traits) {
    return fio_test_trait_of(file_type(type), static_cast<FIO_FILE_TYPE_FLAG>(traits));
  });
  module.def("is_design_file", [](type_value type) { return FIO_FILE_TYPE_INFO::is_design_file(file_type(type)); });
  module.def("default_extension_type",
             [](type_value type) -> type_value { return fio_get_default_extension_type(file_type(type)); });
  module.def("file_type_list", [](type_value type, std::uint32_t editor, long traits) {
    std::list<FIO_FILE_TYPE> types;
    fio_get_file_type_list(&types, file_type(type), static_cast<FIO_EDITOR_TYPE>(editor), traits);
    return values_of(types);
  });
}

void bind_extension_types(py::module_& module) {
  module.def("extension_type_of_name",
             [](file_name const& name) -> type_value { return fio_get_extension_type(name.bytes); });
  module.def("extension_string", [](type_value type) { return fio_get_extension_string(extension_type(type)); });
  module.def("extension_type_filter",
             [](type_value type, bool plural) { return fio_get_extension_type_filter(extension_type(type), plural); });
  module.def("extension_type_list", [](type_value extension, type_value type) {
    std::list<FIO_EXTENSION_TYPE> types;
    fio_get_extension_type_list(&types, extension_type(extension), file_type(type));
    return values_of(types);
  });
  module.def("extensions_with_trait", [](std::int32_t trait) {
    std::list<FIO_EXTENSION_TYPE> types;
    fio_get_list_of_extensions_valid_for_trait(static_cast<FIO_EXTENSION_TYPE_FLAG>(trait), &types);
    return values_of(types);
  });
}

void bind_strings(py::module_& module) {
  module.def("editor_string",
             [](std::uint32_t editor) { return fio_get_editor_type_string(static_cast<FIO_EDITOR_TYPE>(editor)); });
  module.def("file_type_trait_string",
             [](std::int32_t trait) { return fio_get_file_type_trait_string(static_cast<FIO_FILE_TYPE_FLAG>(trait)); });
  module.def("extension_type_trait_string", [](std::int32_t trait) {
    return fio_get_extension_type_trait_string(static_cast<FIO_EXTENSION_TYPE_FLAG>(trait));
  });
#define NAMED_CLASS(name, ...) {#name, fio_clsid_to_str(VFC_CLSID_##name, FIO_CLSID_FORMAT_TEXT)},
  module.def("document_classes",
             [] { return std::vector<std::pair<std::string, std::string>>{FIO_CLSID_LIST(NAMED_CLASS)}; });
#undef NAMED_CLASS
}

} // namespace

void bind_vocabulary(py::module_& module) {
  bind_file_types(module);
  bind_extension_types(module);
  bind_strings(module);
}
