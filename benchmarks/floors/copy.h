/// @file
/// The floors of copying and removing trees: the system calls of the library, but for those that a stream of the C
/// library makes for itself.

#ifndef CCL_BENCHMARKS_FLOORS_COPY_H
#define CCL_BENCHMARKS_FLOORS_COPY_H

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstddef>
#include <cstdio>
#include <string>

#include "benchmarks/floors/walk.h"

namespace floors {

inline bool exists(char const* path) {
  struct stat status;
  return ::stat(path, &status) == 0;
}

/// Makes a directory, and first those above it. The text begins and ends with '/'.
inline bool create_directory(std::string const& path) {
  std::string made;
  made.reserve(path.size());
  for (std::size_t end = 0; (end = path.find('/', end + 1)) != std::string::npos;) {
    made.assign(path, 0, end);
    if (!exists(made.c_str()) && ::mkdir(made.c_str(), 0777) != 0) {
      break;
    }
  }
  return exists(path.c_str());
}

/// `finish(descriptor)` is called when all is written.
template <typename Finish>
bool copy_content(int source, char const* target, Finish finish) {
  int const descriptor = ::open(target, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (descriptor == -1) {
    return false;
  }
  char block[4096];
  ssize_t size = 0;
  bool written = true;
  while (written && (size = ::read(source, block, sizeof block)) > 0) {
    written = ::write(descriptor, block, static_cast<std::size_t>(size)) == size;
  }
  finish(descriptor);
  ::close(descriptor);
  return written && size == 0;
}

inline void force_out(int descriptor) { ::fsync(descriptor); }

template <typename Finish>
bool copy_file(char const* source, char const* target, Finish finish) {
  if (!exists(source)) {
    return false;
  }
  int const descriptor = ::open(source, O_RDONLY | O_CLOEXEC);
  if (descriptor == -1) {
    return false;
  }
  if (exists(target)) {
    std::remove(target);
  }
  bool const copied = exists(target) || copy_content(descriptor, target, finish);
  ::close(descriptor);
  return copied;
}

/// Copies a tree over another one. Both texts end with '/', and serve to name the entries.
template <typename Finish>
bool copy_tree(std::string& source, std::string& target, Finish finish) {
  if (!exists(target.c_str()) && !create_directory(target)) {
    return false;
  }
  std::size_t const source_size = source.size();
  std::size_t const target_size = target.size();
  DIR* const stream = ::opendir(source.c_str());
  bool copied = true;
  _finddata_t found;
  while (dirent64 const* const entry = copied && stream != nullptr ? ::readdir64(stream) : nullptr) {
    source.resize(source_size);
    target.resize(target_size);
    source += entry->d_name;
    target += entry->d_name;
    if (!read_entry(source.c_str(), entry->d_name, found) || is_dot_name(entry->d_name)) {
      continue;
    }
    if (found.attrib == 0x10) {
      source += '/';
      target += '/';
      copied = copy_tree(source, target, finish);
    } else {
      copied = copy_file(source.c_str(), target.c_str(), finish);
    }
  }
  if (stream != nullptr) {
    ::closedir(stream);
  }
  source.resize(source_size);
  target.resize(target_size);
  return copied;
}

/// Removes what is below a directory, and the directory.
inline bool remove_below(std::string& path) {
  std::size_t const prefix = path.size();
  DIR* const stream = ::opendir(path.c_str());
  bool removed = true;
  _finddata_t found;
  while (dirent64 const* const entry = stream != nullptr ? ::readdir64(stream) : nullptr) {
    path.resize(prefix);
    path.append(1, '/').append(entry->d_name);
    if (!read_entry(path.c_str(), entry->d_name, found) || is_dot_name(entry->d_name)) {
      continue;
    }
    removed = (found.attrib == 0x10 ? remove_below(path) : std::remove(path.c_str()) == 0) && removed;
  }
  if (stream != nullptr) {
    ::closedir(stream);
  }
  path.resize(prefix);
  return std::remove(path.c_str()) == 0 && removed;
}

inline bool remove_tree(std::string path) {
  char current[1024];
  return exists(path.c_str()) && ::getcwd(current, sizeof current) != nullptr && remove_below(path) &&
         ::chdir(current) == 0;
}

} // namespace floors

#endif
