/// @file
/// Declares `FIO_EXTENSION_TYPE_INFO`, the queries on extension types as one class with `std::string` results, and the
/// dialog filter of an extension.
///
/// Each member returns exactly what the function that it calls returns. `fio_file_ext_type_info.h` documents the
/// functions, their failures and thread safety. A member that returns a string may throw `std::bad_alloc`.

#ifndef CCL_FIO_FIO_EXTENSION_TYPE_INFO_H
#define CCL_FIO_FIO_EXTENSION_TYPE_INFO_H

#include <list>
#include <string>

#include "ccl/fio/fio_export.h"
#include "ccl/fio/fio_types.h"

/// Provides the queries on extension types. Not instantiated.
class FIO_EXTENSION_TYPE_INFO {
public:
  explicit FIO_EXTENSION_TYPE_INFO() = delete;

  /// Calls `fio_get_extension_type_list`. The last argument is ignored: there is no filter by traits.
  FIO_EXPORT static void get_extension_type_list(std::list<FIO_EXTENSION_TYPE>* extension_list,
                                                 FIO_EXTENSION_TYPE extension_type, FIO_FILE_TYPE file_type,
                                                 long ignored);

  /// Calls `fio_get_default_extension_type`.
  [[nodiscard]] FIO_EXPORT static FIO_EXTENSION_TYPE get_default_extension_type(FIO_FILE_TYPE file_type);

  /// Calls `fio_get_extension_string`.
  [[nodiscard]] FIO_EXPORT static std::string get_extension_string(FIO_EXTENSION_TYPE extension_type);

  /// Calls `fio_get_extension_type`.
  [[nodiscard]] FIO_EXPORT static FIO_EXTENSION_TYPE get_extension_type(std::string const& name);

  /// Calls `fio_get_file_type` with an extension type.
  [[nodiscard]] FIO_EXPORT static FIO_FILE_TYPE get_file_type(FIO_EXTENSION_TYPE extension_type);
};

/// Returns the entry of a file dialog for one extension: its pattern, after the name of the file type that
/// `fio_get_file_type` returns for it.
///
///     FIO_EXTENSION_TYPE_VHDL, true        => "VHDL Files (*.vhdl)"
///     FIO_EXTENSION_TYPE_V, false          => "Verilog HDL File (*.v)", of three types
///     FIO_EXTENSION_TYPE_INVALID, false    => ""
///
/// @param extension_type any value
/// @param plural whether an "s" is appended to the name
/// @return the string; empty for an unknown type and for one of no file type
/// @throws std::bad_alloc if the string cannot be stored
/// @par Thread safety
/// Any thread.
/// @par Complexity
/// At most three scans of the vocabulary.
[[nodiscard]] FIO_EXPORT std::string fio_get_extension_type_filter(FIO_EXTENSION_TYPE extension_type, bool plural);

#endif
