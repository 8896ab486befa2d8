/// @file
/// The current directory of the process, read as the library reads it everywhere.

#ifndef CCL_FIO_INTERNAL_CURRENT_DIRECTORY_H
#define CCL_FIO_INTERNAL_CURRENT_DIRECTORY_H

#include <string_view>

#include "ccl/fio/internal/path_text.h"
#include "ccl/osi/osi.h"

namespace fio_internal {

/// The current directory when this object was made, or an empty string if it could not be read or had 1024 characters
/// or more.
class current_directory {
public:
  current_directory() : m_known(osi_getcwd(m_buffer, size) != nullptr) {}

  /// Reads it and discards it.
  static void read() {
    char buffer[size];
    osi_getcwd(buffer, size);
  }

  std::string_view text() const { return m_known ? m_buffer : ""; }

private:
  static constexpr std::size_t size = longest_path + 1;

  // All zero, and one byte longer than the size that is passed on, so that the string is terminated in any case.
  char m_buffer[size + 1] = {};
  bool m_known;
};

} // namespace fio_internal

#endif
