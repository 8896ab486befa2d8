/// @file
/// Paths for tests of files and searches: short ones to compare, and ones of a given length.

#ifndef CCL_TESTS_SUPPORT_PATH_TEXTS_H
#define CCL_TESTS_SUPPORT_PATH_TEXTS_H

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <list>
#include <string>
#include <vector>

#include "ccl/fio/fio_path.h"
#include "tests/support/paths.h"
#include "tests/support/scratch.h"

inline std::vector<std::string> texts(std::list<FIO_PATH> const& paths) {
  std::vector<std::string> result;
  for (FIO_PATH const& path : paths) {
    result.push_back(path.fullpath());
  }
  return result;
}

inline std::vector<std::string> texts(std::list<std::string> const& directories) {
  return {directories.begin(), directories.end()};
}

inline std::vector<std::string> sorted(std::vector<std::string> list) {
  std::sort(list.begin(), list.end());
  return list;
}

inline FIO_PATH with_backslashes(char const* text) {
  FIO_PATH path(text);
  path.path_separator('\\');
  return path;
}

/// The separator of a path, which shows in what it makes of another text.
inline char separator_of(FIO_PATH const& path) { return path.sync_path_separators("/").front(); }

/// Makes the tree the current directory, so that short relative texts can be used.
inline void enter(scratch_tree const& tree) { std::filesystem::current_path(tree.root()); }

/// Text of exactly this length that leads to `path`, which must be absolute.
inline std::string padded(std::string const& path, std::size_t length) {
  return repeated(length - path.size(), '/') + path;
}

/// The path of a new directory in the tree whose absolute text has exactly this length.
inline std::string directory_of_length(scratch_tree const& tree, std::size_t length) {
  std::string name;
  std::size_t missing = length - tree.root().size() - 1;
  for (; missing > 201; missing -= 101) {
    name += repeated(100, 'd') + '/';
  }
  name += repeated(missing, 'd');
  tree.make_directory(name);
  return tree.path(name);
}

#endif
