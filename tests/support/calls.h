/// @file
/// Watching and answering the calls that one operation makes to the layers below.

#ifndef CCL_TESTS_SUPPORT_CALLS_H
#define CCL_TESTS_SUPPORT_CALLS_H

#include <dirent.h>
#include <dlfcn.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "tests/support/platform_double.h"

/// An error number that no call has: where it is found, nobody has written another one.
constexpr int telltale = 4711;

/// What is called while `operation` runs.
template <typename Operation>
std::vector<std::string> calls_of(Operation operation) {
  platform_double::calls().clear();
  platform_double::record_calls(true);
  operation();
  platform_double::record_calls(false);
  return platform_double::calls();
}

/// What the status of an entry of this mode says, the type included.
inline struct stat record_of_mode(mode_t mode) {
  struct stat record = {};
  record.st_mode = mode;
  return record;
}

/// @name The system's own calls
/// For doubles that note a directory stream or change an answer, and otherwise let the call happen.
/// @{
inline DIR* opendir_of_the_system(char const* path) {
  DIR* (*original)(char const*);
  *reinterpret_cast<void**>(&original) = ::dlsym(RTLD_NEXT, "opendir");
  return original(path);
}

inline int closedir_of_the_system(DIR* stream) {
  int (*original)(DIR*);
  *reinterpret_cast<void**>(&original) = ::dlsym(RTLD_NEXT, "closedir");
  return original(stream);
}
/// @}

#endif
