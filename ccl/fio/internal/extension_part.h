/// @file
/// The parts that an extension is composed of.

#ifndef CCL_FIO_INTERNAL_EXTENSION_PART_H
#define CCL_FIO_INTERNAL_EXTENSION_PART_H

#include <string>
#include <string_view>

#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/fio_types.h"

namespace fio_internal {

/// A part of an extension, given as a type or as a string.
struct extension_part {
  /// No part.
  extension_part() = default;

  /// The string of a type, in constant data. `FIO_EXTENSION_TYPE_ANY` means no part.
  explicit extension_part(FIO_EXTENSION_TYPE type)
      : is_present(type != FIO_EXTENSION_TYPE_ANY), text(is_present ? fio_get_extension_string(type) : "") {}

  /// A string, which must outlive this object. An empty one means no part.
  explicit extension_part(std::string const& given)
      : is_present(!given.empty()), needs_dot(is_present && given.front() != '.'), text(given) {}

  /// Appends the part with its dot, if there is a part.
  void append_to(std::string& extension) const {
    if (!is_present) {
      return;
    }
    if (needs_dot) {
      extension += '.';
    }
    extension += text;
  }

  bool is_present = false;
  bool needs_dot = false;
  std::string_view text;
};

} // namespace fio_internal

#endif
