#include "ccl/fio/fio_clsid.h"
#include "ccl/fio/fio_extension_type_info.h"
#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/fio_file_type_info.h"
#include "tests/stress/statements.h"
#include "tests/vocabulary_expected.h"

using stress::transcript;
using stress::workplace;

namespace {

template <typename Type>
void add_list(std::list<Type> const& list, transcript& out) {
  out << list.size();
  for (Type const value : list) {
    out << value;
  }
}

std::string text_of_all_classes() {
  std::string text;
  for (vocabulary::named_class const& one : vocabulary::classes) {
    text += fio_clsid_to_str(*one.clsid, FIO_CLSID_FORMAT_TEXT) + std::to_string(fio_get_file_type(*one.clsid));
  }
  return text + fio_clsid_to_str(FIO_CLSID_NULL, FIO_CLSID_FORMAT_TEXT) +
         fio_get_file_type_name(FIO_FILE_TYPE_TEXT_FILE);
}

// Made before `main`.
std::string const early_text = text_of_all_classes();

void read_class_constants(workplace const& /*place*/, transcript& out) {
  out << text_of_all_classes() << (early_text == text_of_all_classes());
}

void convert_classes(workplace const& /*place*/, transcript& out) {
  for (vocabulary::named_class const& one : vocabulary::classes) {
    std::string const text = fio_clsid_to_str(*one.clsid, FIO_CLSID_FORMAT_TEXT);
    out << fio_clsid_to_str(*one.clsid, FIO_CLSID_FORMAT_INITIALIZER);
    out << fio_clsid_to_str(fio_str_to_clsid(text), FIO_CLSID_FORMAT_TEXT) << fio_str_to_clsid(text + ' ').Data1;
  }
  out << fio_str_to_clsid("{12zz5678-0000-0000-0000-000000000000}").Data1 << fio_str_to_clsid("").Data1;
}

void ask_about_file_types(transcript& out) {
  for (int value = -1; value <= vocabulary::file_type_count; ++value) {
    auto const type = static_cast<FIO_FILE_TYPE>(value);
    out << fio_get_file_type_name(type) << fio_get_file_description(type) << fio_get_editor_type(type);
    out << fio_get_default_extension_type(type) << fio_get_default_extension_string(type);
    out << fio_test_trait_of(type, FIO_FILE_TYPE_FLAG_DESIGN_FILES) << fio_test_trait_of(type, FIO_FILE_TYPE_FLAG(-1));
  }
}

void ask_about_extensions(transcript& out) {
  for (int value = -1; value <= vocabulary::extension_type_count; ++value) {
    auto const type = static_cast<FIO_EXTENSION_TYPE>(value);
    out << fio_get_extension_string(type) << fio_get_file_type(type);
  }
  for (vocabulary::extension_row const& row : vocabulary::extensions) {
    std::string const name = std::string("dir.d/Name") + row.text;
    out << fio_get_extension_type(name) << fio_get_file_type(name);
  }
}

void ask_about_texts(transcript& out) {
  for (FIO_EDITOR_TYPE const editor : vocabulary::editor_names) {
    out << fio_get_editor_type_string(editor);
  }
  for (FIO_FILE_TYPE_FLAG const trait : vocabulary::file_type_trait_names) {
    out << fio_get_file_type_trait_string(trait);
  }
  for (FIO_EXTENSION_TYPE_FLAG const trait : vocabulary::extension_trait_names) {
    out << fio_get_extension_type_trait_string(trait);
  }
}

void ask_all_queries(workplace const& /*place*/, transcript& out) {
  ask_about_file_types(out);
  ask_about_extensions(out);
  ask_about_texts(out);
  for (_GUID const* const clsid : vocabulary::document_classes) {
    out << fio_get_file_type(*clsid);
  }
}

// The same addresses in all threads: nothing is copied.
void read_texts_in_place(workplace const& /*place*/, transcript& out) {
  auto const add = [&out](char const* text) { out << text << reinterpret_cast<std::uintptr_t>(text); };
  add(fio_empty_result_value);
  for (FIO_FILE_TYPE const type : vocabulary::file_type_names) {
    add(fio_get_file_type_name(type));
    add(fio_get_default_extension_string(type));
  }
  for (FIO_EXTENSION_TYPE const type : vocabulary::extension_type_names) {
    add(fio_get_extension_string(type));
  }
  add(fio_get_file_type_name(static_cast<FIO_FILE_TYPE>(vocabulary::file_type_count)));
}

void fill_own_lists(workplace const& /*place*/, transcript& out) {
  std::list<FIO_FILE_TYPE> types;
  std::list<FIO_EXTENSION_TYPE> extensions;
  for (FIO_FILE_TYPE const type : vocabulary::file_type_names) {
    fio_get_extension_type_list(&extensions, FIO_EXTENSION_TYPE_ANY, type);
  }
  fio_get_extension_type_list(&extensions, FIO_EXTENSION_TYPE_V, FIO_FILE_TYPE_ANY);
  for (FIO_EXTENSION_TYPE_FLAG const trait : vocabulary::extension_trait_names) {
    fio_get_list_of_extensions_valid_for_trait(trait, &extensions);
  }
  for (FIO_EDITOR_TYPE const editor : vocabulary::editor_names) {
    fio_get_file_type_list(&types, FIO_FILE_TYPE_ANY, editor, -1);
  }
  for (FIO_FILE_TYPE_FLAG const trait : vocabulary::file_type_trait_names) {
    fio_get_file_type_list(&types, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_ALL_FILES, static_cast<long>(trait));
  }
  add_list(types, out);
  add_list(extensions, out);
}

void ask_by_file_type_class(workplace const& /*place*/, transcript& out) {
  for (FIO_FILE_TYPE const type : vocabulary::file_type_names) {
    out << FIO_FILE_TYPE_INFO::get_file_type_name(type) << FIO_FILE_TYPE_INFO::get_file_description(type);
    out << FIO_FILE_TYPE_INFO::get_editor_type(type) << FIO_FILE_TYPE_INFO::is_design_file(type);
    out << fio_get_file_type_filter(type, type % 2 == 0);
  }
  std::list<FIO_FILE_TYPE> types;
  FIO_FILE_TYPE_INFO::get_file_type_list(&types, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_ALL_FILES, -1);
  add_list(types, out);
  out << FIO_FILE_TYPE_INFO::get_file_type("rtl/Top.VHD");
  out << FIO_FILE_TYPE_INFO::get_file_type(VFC_CLSID_TED_DEFAULT_DOC);
}

void ask_by_extension_class(workplace const& /*place*/, transcript& out) {
  for (FIO_EXTENSION_TYPE const type : vocabulary::extension_type_names) {
    out << FIO_EXTENSION_TYPE_INFO::get_extension_string(type) << FIO_EXTENSION_TYPE_INFO::get_file_type(type);
    out << fio_get_extension_type_filter(type, type % 2 == 0);
  }
  for (FIO_FILE_TYPE const type : vocabulary::file_type_names) {
    out << FIO_EXTENSION_TYPE_INFO::get_default_extension_type(type);
  }
  std::list<FIO_EXTENSION_TYPE> extensions;
  FIO_EXTENSION_TYPE_INFO::get_extension_type_list(&extensions, FIO_EXTENSION_TYPE_ANY, FIO_FILE_TYPE_ANY, 0);
  add_list(extensions, out);
  out << FIO_EXTENSION_TYPE_INFO::get_extension_type("x.Tar.GZ");
}

void use_enumerators(workplace const& /*place*/, transcript& out) {
  for (FIO_FILE_TYPE const type : vocabulary::file_type_names) {
    out << type;
  }
  for (FIO_EXTENSION_TYPE const type : vocabulary::extension_type_names) {
    out << type;
  }
  out << FIO_FILE_TYPE_ANY << FIO_EXTENSION_TYPE_ANY << FIO_EDITOR_TYPE_ALL_FILES << FIO_FILE_TYPE_FLAG_DESIGN_FILES;
}

} // namespace

std::vector<stress::statement> stress::vocabulary_statements() {
  return {
      {"fio_clsid.h", "The constants are read-only", "reading all constants, which was done before main as well",
       read_class_constants},
      {"fio_clsid.h", "The two conversions keep no state", "both conversions of all constants", convert_classes},
      {"fio_file_ext_type_info.h", "All queries read constant data", "every query for every value", ask_all_queries},
      {"fio_file_ext_type_info.h", "C-strings point into that data and are never freed",
       "reading all texts, at the same addresses", read_texts_in_place},
      {"fio_file_ext_type_info.h", "A list belongs to its caller", "every list query into lists of its own",
       fill_own_lists},
      {"fio_file_type_info.h", "as fio_file_ext_type_info.h tells", "every member and filter for every file type",
       ask_by_file_type_class},
      {"fio_extension_type_info.h", "as fio_file_ext_type_info.h tells",
       "every member and filter for every extension type", ask_by_extension_class},
      {"fio_types.h", "Enumerators are constants and may be used from any thread", "all enumerators of both types",
       use_enumerators},
  };
}
