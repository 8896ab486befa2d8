/// @file
/// An iteration of `FIO_FILE_SYSTEM` over the entries that match a wildcard, as an object.

#ifndef CCL_FIO_INTERNAL_SEARCH_H
#define CCL_FIO_INTERNAL_SEARCH_H

#include <cstdint>
#include <utility>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/internal/path_text.h"

namespace fio_internal {

/// The value of a find handle when nothing was found.
inline constexpr long nothing_found = -1;

/// The attribute of a directory.
inline constexpr std::uint32_t attribute_directory = 0x10;

/// A search that is closed by its destructor.
class search {
public:
  explicit search(char const* filespec) : m_handle(FIO_FILE_SYSTEM::findfirst(filespec, &entry)) {}
  ~search() { close(); }
  search(search const&) = delete;
  search& operator=(search const&) = delete;

  bool found() const { return m_handle != nothing_found; }
  bool next() { return FIO_FILE_SYSTEM::findnext(m_handle, &entry) == 0; }
  void close() { FIO_FILE_SYSTEM::findclose(std::exchange(m_handle, nothing_found)); }

  bool is_dot_entry() const { return is_dot_name(entry.name); }
  bool is_directory() const { return entry.attrib == attribute_directory; }

  /// Empty until an entry is found. Declared before the handle, whose initialisation fills it.
  _finddata_t entry = {};

private:
  long m_handle;
};

} // namespace fio_internal

#endif
