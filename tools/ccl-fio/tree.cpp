#include "tools/ccl-fio/tree.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "ccl/fio/fio_iterator.h"

namespace tool {

tree_entry entry_at(std::string const& path, bool follow) {
  tree_entry entry;
  entry.path = path;
  entry.name = path.substr(path.rfind('/') + 1);
  if (::lstat(path.c_str(), &entry.status) != 0) {
    entry.error = errno;
    return entry;
  }
  entry.is_link = S_ISLNK(entry.status.st_mode);
  if (entry.is_link && follow && ::stat(path.c_str(), &entry.status) != 0) {
    entry.error = errno;
  }
  return entry;
}

std::vector<tree_entry> entries_of(std::string const& directory, bool follow, int& error) {
  std::vector<tree_entry> entries;
  // To the iterator a directory that cannot be read is empty.
  error = ::access(directory.c_str(), R_OK | X_OK) == 0 ? 0 : errno;
  if (error == 0) {
    for (FIO_DIRECTORY_ENTRY const& entry : FIO_DIRECTORY_ITERATOR(directory.c_str())) {
      entries.push_back(entry_at(entry.path, follow));
    }
  }
  std::sort(entries.begin(), entries.end(),
            [](tree_entry const& left, tree_entry const& right) { return left.name < right.name; });
  return entries;
}

bool open_directories::enter(tree_entry const& directory) {
  bool const is_open = std::any_of(m_open.begin(), m_open.end(),
                                   [&directory](tree_entry const& open) { return open.id() == directory.id(); });
  if (!is_open) {
    m_open.push_back(directory);
  }
  return !is_open;
}

int change_error(std::string const& path) {
  std::filesystem::path directory = path;
  int error = 0;
  do {
    directory = directory.parent_path();
    error = ::access((directory / ".").c_str(), W_OK | X_OK) == 0 ? 0 : errno;
  } while (error == ENOENT && !directory.empty());
  return error;
}

std::string without_separator(std::string path) {
  while (path.size() > 1 && path.back() == '/') {
    path.pop_back();
  }
  return path;
}

} // namespace tool
