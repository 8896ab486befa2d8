#include "ccl/fio/fio_file_ext_type_info.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "ccl/fio/internal/module.h"
#include "ccl/fio/internal/path_text.h"
#include "ccl/fio/internal/type_tables.h"
#include "ccl/stl/stl.h"

char const* fio_empty_result_value = "";

namespace {

MEM_INITIALIZER const mem_initializer(fio_internal::module_name);

using fio_tables::extension_key_table;
using fio_tables::extension_row;
using fio_tables::extension_row_count;
using fio_tables::file_type_row;
using fio_tables::fio_extension_type_datas;
using fio_tables::fio_file_type_datas;
using fio_tables::named_value;

// Returns the row of a file type, which is its index; null for an unknown type.
file_type_row const* row_of(FIO_FILE_TYPE file_type) {
  auto const index = static_cast<std::size_t>(file_type);
  return index < fio_tables::file_type_count ? &fio_file_type_datas.rows[index] : nullptr;
}

extension_row const* end_of_extensions() { return fio_extension_type_datas + extension_row_count; }

// Returns the first row that can have an extension type or a file type. Every value of either has a row of its own
// before the next value is used, so none is in a row before the one with its number.
extension_row const* first_row_for(short value) {
  auto const index = static_cast<std::size_t>(value);
  return index < extension_row_count ? fio_extension_type_datas + index : end_of_extensions();
}

bool is_default(extension_row const& row) { return (row.traits & FIO_EXTENSION_TYPE_FLAG_DEFAULT_EXTENSION) != 0; }

// An extension, padded as those of the rows are, so that it is compared in one piece.
using padded_extension = char[sizeof extension_row::extension];

// Without a branch, so that the compiler compares several at a time.
bool holds_key(std::uint32_t const (&block)[extension_key_table::block_size], std::uint32_t wanted) {
  std::uint32_t found = 0;
  for (std::uint32_t const key : block) {
    found |= key == wanted ? 1 : 0;
  }
  return found != 0;
}

// Returns the first row of an extension, or null.
extension_row const* find_extension(padded_extension const& extension) {
  std::uint32_t const key = fio_tables::extension_key(extension);
  std::size_t start = 0;
  for (auto const& block : fio_tables::fio_extension_keys.blocks) {
    std::size_t const end = std::min(start + std::size(block), std::size(fio_extension_type_datas));
    if (holds_key(block, key)) {
      auto const has_extension = [&extension](extension_row const& row) {
        return std::memcmp(row.extension, extension, sizeof extension) == 0;
      };
      auto const* const row =
          std::find_if(fio_extension_type_datas + start, fio_extension_type_datas + end, has_extension);
      if (row != fio_extension_type_datas + end) {
        return row;
      }
    }
    start = end;
  }
  return nullptr;
}

template <std::size_t size>
char const* find_text(named_value const (&table)[size], std::uint32_t value) {
  for (named_value const& entry : table) {
    if (entry.value == value) {
      return entry.text;
    }
  }
  return nullptr;
}

// Returns what a name is searched by: its extension, or all of it if it has none, as a bare extension does.
std::string text_to_look_up(std::string const& name) {
  std::string_view const extension = fio_internal::divide_path(name.c_str()).extension;
  if (!extension.empty()) {
    return std::string(extension);
  }
  return name.empty() || name.front() == '.' ? name : '.' + name;
}

} // namespace

// By file type

char const* fio_get_file_type_name(FIO_FILE_TYPE file_type) {
  file_type_row const* const row = row_of(file_type);
  return row != nullptr ? fio_file_type_datas.descriptions + row->description : fio_empty_result_value;
}

char const* fio_get_file_description(FIO_FILE_TYPE file_type) {
  static constexpr char other_desc[] = "Other";
  return fio_test_trait_of(file_type, FIO_FILE_TYPE_FLAG_OTHER_FILES) ? other_desc : fio_get_file_type_name(file_type);
}

FIO_EDITOR_TYPE fio_get_editor_type(FIO_FILE_TYPE file_type) {
  file_type_row const* const row = row_of(file_type);
  return row != nullptr ? row->editor_type : FIO_EDITOR_TYPE_NONE;
}

bool fio_test_trait_of(FIO_FILE_TYPE file_type, FIO_FILE_TYPE_FLAG flag) {
  file_type_row const* const row = row_of(file_type);
  return row != nullptr && (row->traits & flag) != 0;
}

FIO_EXTENSION_TYPE fio_get_default_extension_type(FIO_FILE_TYPE file_type) {
  extension_row const* row = first_row_for(file_type);
  for (; row != end_of_extensions() && row->file_type <= file_type; ++row) {
    if (row->file_type == file_type && is_default(*row)) {
      return row->extension_type;
    }
  }
  return FIO_EXTENSION_TYPE_INVALID;
}

char const* fio_get_default_extension_string(FIO_FILE_TYPE file_type) {
  return fio_get_extension_string(fio_get_default_extension_type(file_type));
}

// By extension type

char const* fio_get_extension_string(FIO_EXTENSION_TYPE extension_type) {
  for (extension_row const* row = first_row_for(extension_type); row != end_of_extensions(); ++row) {
    if (row->extension_type == extension_type) {
      return row->extension;
    }
  }
  return fio_empty_result_value;
}

FIO_FILE_TYPE fio_get_file_type(FIO_EXTENSION_TYPE extension_type) {
  if (extension_type == FIO_EXTENSION_TYPE_INVALID) {
    return FIO_FILE_TYPE_INVALID;
  }
  // The first file type that has the extension for its default, or else the first that uses it.
  FIO_FILE_TYPE first = FIO_FILE_TYPE_INVALID;
  for (extension_row const* row = first_row_for(extension_type); row != end_of_extensions(); ++row) {
    if (row->extension_type == extension_type) {
      if (is_default(*row)) {
        return row->file_type;
      }
      first = first != FIO_FILE_TYPE_INVALID ? first : row->file_type;
    }
  }
  return first;
}

// By name or identifier

FIO_EXTENSION_TYPE fio_get_extension_type(std::string const& name) {
  std::string text = text_to_look_up(name);
  // An empty string has no row, and a lone dot has the one of the invalid extension: both have the same result.
  if (text.size() <= 1) {
    return FIO_EXTENSION_TYPE_INVALID;
  }
  stl_tolower(text);
  padded_extension padded = {};
  // A NUL at the end of the string must not be taken for padding; no row has one before that.
  if (text.empty() || text.size() >= sizeof padded || text.back() == '\0') {
    return FIO_EXTENSION_TYPE_INVALID;
  }
  std::memcpy(padded, text.data(), text.size()); // NOLINT(bugprone-not-null-terminated-result): the rest is zero
  extension_row const* const row = find_extension(padded);
  return row != nullptr ? row->extension_type : FIO_EXTENSION_TYPE_INVALID;
}

FIO_FILE_TYPE fio_get_file_type(std::string const& name) { return fio_get_file_type(fio_get_extension_type(name)); }

FIO_FILE_TYPE fio_get_file_type(_GUID const& clsid) {
  for (file_type_row const& row : fio_file_type_datas.rows) {
    if (row.file_type != FIO_FILE_TYPE_INVALID && std::memcmp(&row.clsid, &clsid, sizeof clsid) == 0) {
      return row.file_type;
    }
  }
  return FIO_FILE_TYPE_INVALID;
}

// Names of editors and traits

char const* fio_get_editor_type_string(FIO_EDITOR_TYPE editor_type) {
  return find_text(fio_tables::fio_editor_type_to_string, editor_type);
}

char const* fio_get_file_type_trait_string(FIO_FILE_TYPE_FLAG trait) {
  return find_text(fio_tables::fio_file_type_traits_to_string, static_cast<std::uint32_t>(trait));
}

char const* fio_get_extension_type_trait_string(FIO_EXTENSION_TYPE_FLAG trait) {
  return find_text(fio_tables::fio_extension_type_traits_to_string, static_cast<std::uint32_t>(trait));
}

// Lists

void fio_get_extension_type_list(std::list<FIO_EXTENSION_TYPE>* extension_list, FIO_EXTENSION_TYPE extension_type,
                                 FIO_FILE_TYPE file_type) {
  FIO_CHECK(extension_list != NULL);
  for (extension_row const& row : fio_extension_type_datas) {
    if ((extension_type == FIO_EXTENSION_TYPE_ANY || row.extension_type == extension_type) &&
        (file_type == FIO_FILE_TYPE_ANY || row.file_type == file_type)) {
      extension_list->push_back(row.extension_type);
    }
  }
}

void fio_get_file_type_list(std::list<FIO_FILE_TYPE>* file_type_list, FIO_FILE_TYPE file_type,
                            FIO_EDITOR_TYPE editor_type, long traits) {
  constexpr long any_traits = -1;
  FIO_CHECK(file_type_list != NULL);
  for (file_type_row const& row : fio_file_type_datas.rows) {
    if ((file_type == FIO_FILE_TYPE_ANY || row.file_type == file_type) &&
        (editor_type == FIO_EDITOR_TYPE_ALL_FILES || row.editor_type == editor_type) &&
        (traits == any_traits || (row.traits & traits) != 0)) {
      file_type_list->push_back(row.file_type);
    }
  }
}

void fio_get_list_of_extensions_valid_for_trait(FIO_EXTENSION_TYPE_FLAG flag,
                                                std::list<FIO_EXTENSION_TYPE>* extension_list) {
  FIO_CHECK(extension_list != NULL);
  for (extension_row const& row : fio_extension_type_datas) {
    if ((row.traits & flag) != 0) {
      extension_list->push_back(row.extension_type);
    }
  }
}
