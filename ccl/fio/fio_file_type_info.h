/// @file
/// Declares `FIO_FILE_TYPE_INFO`, the queries on file types as one class with `std::string` results, and the dialog
/// filter of a type.
///
/// Each member returns exactly what the function that it calls returns. `fio_file_ext_type_info.h` documents the
/// functions, their failures and thread safety. A member that returns a string may throw `std::bad_alloc`.

#ifndef CCL_FIO_FIO_FILE_TYPE_INFO_H
#define CCL_FIO_FIO_FILE_TYPE_INFO_H

#include <list>
#include <string>

#include "ccl/fio/fio_clsid.h"
#include "ccl/fio/fio_export.h"
#include "ccl/fio/fio_types.h"

/// Provides the queries on file types. Not instantiated.
class FIO_FILE_TYPE_INFO {
public:
  explicit FIO_FILE_TYPE_INFO() = delete;

  /// Calls `fio_get_file_type_list`.
  FIO_EXPORT static void get_file_type_list(std::list<FIO_FILE_TYPE>* file_type_list, FIO_FILE_TYPE file_type,
                                            FIO_EDITOR_TYPE editor_type, long traits);

  /// Calls `fio_get_file_type` with a name.
  [[nodiscard]] FIO_EXPORT static FIO_FILE_TYPE get_file_type(std::string const& name);

  /// Calls `fio_get_file_type` with a class identifier.
  [[nodiscard]] FIO_EXPORT static FIO_FILE_TYPE get_file_type(_GUID const& clsid);

  /// Calls `fio_get_file_type_name`.
  [[nodiscard]] FIO_EXPORT static std::string get_file_type_name(FIO_FILE_TYPE file_type);

  /// Calls `fio_get_file_description`.
  [[nodiscard]] FIO_EXPORT static std::string get_file_description(FIO_FILE_TYPE file_type);

  /// Calls `fio_get_editor_type`.
  [[nodiscard]] FIO_EXPORT static FIO_EDITOR_TYPE get_editor_type(FIO_FILE_TYPE file_type);

  /// Returns true if the type has the trait `FIO_FILE_TYPE_FLAG_DESIGN_FILES`. The types that have only the other trait
  /// of that name, `FIO_FILE_TYPE_FLAG_DESIGN_FILES_GROUP`, such as scripts, are not design files.
  [[nodiscard]] FIO_EXPORT static bool is_design_file(FIO_FILE_TYPE file_type);
};

/// Returns the entry of a file dialog for a file type: its name, and a pattern for each of its extensions, in the order
/// of the vocabulary.
///
///     FIO_FILE_TYPE_VHDL_FILE, false       => "VHDL File (*.vhd *.vhdl *.vhdp)"
///     FIO_FILE_TYPE_DIRECTORY, true        => "Directorys (*.dir)": the plural is a bare "s", whatever the word
///     FIO_FILE_TYPE_INVALID, false         => "Invalid file type (*.)"
///     FIO_FILE_TYPE_ANY, false             => ""
///
/// The name is the type's own, even where `fio_get_file_description` returns "Other".
///
/// @param file_type any value
/// @param plural whether an "s" is appended to the name
/// @return the string; empty for a type without a name or without extensions, as every unknown one is
/// @throws std::bad_alloc if the string or the list of the extensions cannot be stored
/// @par Thread safety
/// Any thread.
/// @par Complexity
/// A scan of the vocabulary, and one more for each extension of the type.
[[nodiscard]] FIO_EXPORT std::string fio_get_file_type_filter(FIO_FILE_TYPE file_type, bool plural);

#endif
