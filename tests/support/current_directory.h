/// @file
/// Current directories as the system would report them, whatever the real one is.

#ifndef CCL_TESTS_SUPPORT_CURRENT_DIRECTORY_H
#define CCL_TESTS_SUPPORT_CURRENT_DIRECTORY_H

#include <cstring>
#include <string>
#include <vector>

#include "tests/support/platform_double.h"

/// What the system's call does for a program that runs in `directory`.
inline char* report_current_directory(std::string const& directory, char* buffer, unsigned long size) {
  if (directory.size() >= size) {
    return nullptr;
  }
  std::memcpy(buffer, directory.c_str(), directory.size() + 1);
  return buffer;
}

inline void pretend_current_directory(std::string const& directory) {
  platform_double::replaced().osi_getcwd = [directory](char* buffer, unsigned long size) {
    return report_current_directory(directory, buffer, size);
  };
}

/// A current directory that is another one each time it is read.
inline void pretend_current_directories(std::vector<std::string> const& directories) {
  platform_double::replaced().osi_getcwd = [directories, reads = 0u](char* buffer, unsigned long size) mutable {
    return report_current_directory(directories.at(reads++), buffer, size);
  };
}

/// The call fails and leaves something in the buffer, which nobody may look at.
inline void pretend_unreadable_current_directory() {
  platform_double::replaced().osi_getcwd = [](char* buffer, unsigned long) -> char* {
    std::strcpy(buffer, "/junk");
    return nullptr;
  };
}

#endif
