/// @file
/// The names that a walk over a wildcard reports.

#ifndef CCL_TESTS_SUPPORT_WALKS_H
#define CCL_TESTS_SUPPORT_WALKS_H

#include <algorithm>
#include <string>
#include <vector>

#include "ccl/fio/fio_file_sys.h"

/// The names in the order in which the walk reports them.
inline std::vector<std::string> walked(std::string const& filespec) {
  std::vector<std::string> names;
  _finddata_t entry;
  long const handle = FIO_FILE_SYSTEM::findfirst(filespec.c_str(), &entry);
  if (handle != -1) {
    do {
      names.emplace_back(entry.name);
    } while (FIO_FILE_SYSTEM::findnext(handle, &entry) == 0);
  }
  FIO_FILE_SYSTEM::findclose(handle);
  return names;
}

/// The names, sorted.
inline std::vector<std::string> found_names(std::string const& filespec) {
  std::vector<std::string> names = walked(filespec);
  std::sort(names.begin(), names.end());
  return names;
}

#endif
