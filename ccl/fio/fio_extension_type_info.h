/// @file
/// `FIO_EXTENSION_TYPE_INFO`: the queries on extension types as one class, with texts as strings; and the dialog filter
/// of an extension.
///
/// Each member answers exactly what the function that it names answers, which is told in `fio_file_ext_type_info.h`
/// together with failures and thread safety. A member that answers a string may throw `std::bad_alloc`.

#ifndef CCL_FIO_FIO_EXTENSION_TYPE_INFO_H
#define CCL_FIO_FIO_EXTENSION_TYPE_INFO_H

#include <list>
#include <string>

#include "ccl/fio/fio_export.h"
#include "ccl/fio/fio_types.h"

/// The queries on extension types. Not instantiated.
class FIO_EXTENSION_TYPE_INFO {
public:
  explicit FIO_EXTENSION_TYPE_INFO() = delete;

  /// `fio_get_extension_type_list`. The last argument is ignored: there is no filter by traits.
  FIO_EXPORT static void get_extension_type_list(std::list<FIO_EXTENSION_TYPE>* extension_list,
                                                 FIO_EXTENSION_TYPE extension_type, FIO_FILE_TYPE file_type,
                                                 long ignored);

  /// `fio_get_default_extension_type`
  [[nodiscard]] FIO_EXPORT static FIO_EXTENSION_TYPE get_default_extension_type(FIO_FILE_TYPE file_type);

  /// `fio_get_extension_string`
  [[nodiscard]] FIO_EXPORT static std::string get_extension_string(FIO_EXTENSION_TYPE extension_type);

  /// `fio_get_extension_type`
  [[nodiscard]] FIO_EXPORT static FIO_EXTENSION_TYPE get_extension_type(std::string const& name);

  /// `fio_get_file_type` by extension type
  [[nodiscard]] FIO_EXPORT static FIO_FILE_TYPE get_file_type(FIO_EXTENSION_TYPE extension_type);
};

/// The entry of a file dialog for one extension: its pattern, under the name of the file type that
/// `fio_get_file_type` gives it.
///
///     FIO_EXTENSION_TYPE_VHDL, true        => "VHDL Files (*.vhdl)"
///     FIO_EXTENSION_TYPE_V, false          => "Verilog HDL File (*.v)", of three types
///     FIO_EXTENSION_TYPE_INVALID, false    => ""
///
/// @param extension_type any value
/// @param plural whether an "s" stands behind the name
/// @return the text; empty for an unknown type and for one of no file type
/// @throws std::bad_alloc when the text cannot be stored
/// @par Thread safety
/// Any thread.
/// @par Complexity
/// Three walks over the vocabulary at most.
[[nodiscard]] FIO_EXPORT std::string fio_get_extension_type_filter(FIO_EXTENSION_TYPE extension_type, bool plural);

#endif
