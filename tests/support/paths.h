/// @file
/// What the tests of paths have in common: paths in states that a text alone does not bring about, the length rule, and
/// a look at the types of operations.

#ifndef CCL_TESTS_SUPPORT_PATHS_H
#define CCL_TESTS_SUPPORT_PATHS_H

#include <cstddef>
#include <string>

#include "ccl/fio/fio_path.h"

/// The length of the longest text that is divided into a path.
inline constexpr std::size_t longest_path = 1023;

/// What the debug channel is told of a text that is too long.
inline std::string length_message(std::string const& path) {
  return "Path name is too long -- must be shorter than 1024 characters\nPath (length " + std::to_string(path.size()) +
         "): " + path + "\n";
}

/// The path of a text that was divided under this separator.
inline FIO_PATH with_separator(char separator, std::string const& text) {
  FIO_PATH path;
  path.path_separator(separator);
  path = text;
  return path;
}

/// A path with the separator `/` whose directory still has those of the path that was assigned to it.
inline FIO_PATH assigned_from(FIO_PATH const& source) {
  FIO_PATH path;
  path = source;
  return path;
}

/// True, and compiles only if the operation, which may be one of several with its name, has this very type.
template <typename Type>
constexpr bool has_type(Type /*operation*/) {
  return true;
}

#endif
