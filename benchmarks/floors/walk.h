/// @file
/// The floors of walks: the system calls of the library, with the text of an entry put together in one place.

#ifndef CCL_BENCHMARKS_FLOORS_WALK_H
#define CCL_BENCHMARKS_FLOORS_WALK_H

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

#include "benchmarks/floors/wildcard.h"
#include "ccl/fio/fio_file_sys.h"

namespace floors {

inline bool is_dot_name(char const* name) {
  return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

/// Fills an entry with what the system says of a path; false if there is no such file.
inline bool read_entry(char const* path, std::string_view name, _finddata_t& entry) {
  struct stat status;
  if (::stat(path, &status) != 0) {
    return false;
  }
  entry.attrib = (status.st_mode & 0x4000) != 0 ? 0x10 : ::access(path, W_OK) == -1 ? 0x01 : 0;
  entry.time_write = status.st_mtime;
  entry.size = status.st_size;
  entry.name[name.copy(entry.name, sizeof entry.name - 1)] = '\0';
  return true;
}

/// Visits the entries of a directory whose path fits a pattern, which begins with that directory and has no wildcard in
/// it.
template <typename Visitor>
void walk_matches(std::string_view pattern, Visitor const& visit) {
  std::size_t const prefix = pattern.rfind('/') + 1;
  char path[2048];
  pattern.copy(path, prefix - 1);
  path[prefix - 1] = '\0';
  DIR* const stream = ::opendir(path);
  if (stream == nullptr) {
    return;
  }
  path[prefix - 1] = '/';
  _finddata_t found;
  while (dirent64 const* const entry = ::readdir64(stream)) {
    // The directory fits by itself.
    std::string_view const name = entry->d_name;
    path[prefix + name.copy(path + prefix, sizeof path - prefix - 1)] = '\0';
    if (matches(entry->d_name, pattern.data() + prefix) && prefix + name.size() <= 1023 &&
        name.find_first_of("*?") == std::string_view::npos && read_entry(path, name, found)) {
      visit(found);
    }
  }
  ::closedir(stream);
}

/// Visits the entries below a directory, depth first.
class tree_walk {
public:
  explicit tree_walk(std::string const& directory) : path(directory) {}

  std::string path;          ///< of the present entry
  bool is_directory = false; ///< what the directory says of it

  /// Walks what is below the present entry. Whether there is anything.
  template <typename Visitor>
  bool below(Visitor const& visit) {
    std::size_t const prefix = path.size();
    struct stat status;
    if (::stat(path.c_str(), &status) != 0 || (status.st_mode & 0x4000) == 0) {
      return false;
    }
    DIR* const stream = ::opendir(path.c_str());
    if (stream == nullptr) {
      return false;
    }
    bool found = false;
    while (dirent64 const* const entry = ::readdir64(stream)) {
      if (is_dot_name(entry->d_name)) {
        continue;
      }
      found = true;
      path.resize(prefix);
      path.append(1, '/').append(entry->d_name);
      is_directory = (entry->d_type & 4) != 0;
      visit(*this);
      // An empty directory that comes last is opened once more on each level above it.
      while (is_directory && below(visit)) {
      }
    }
    ::closedir(stream);
    return found;
  }
};

} // namespace floors

#endif
