/// @file
/// Doubles of the platform layer and of the system's file calls, for tests that provoke failures or watch calls.
///
/// A test program that links this takes the place of both: the dynamic linker prefers its definitions to those of the
/// platform library and of the C library. Each double hands the call on, unless a test has put a function into the
/// double's place. Debug messages are recorded and an internal error is thrown, so that both can be asserted on.

#ifndef CCL_TESTS_SUPPORT_PLATFORM_DOUBLE_H
#define CCL_TESTS_SUPPORT_PLATFORM_DOUBLE_H

#include <dirent.h>
#include <sys/stat.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "ccl/osi/osi.h"

namespace platform_double {

/// What `err_report_internal_error` throws here instead of aborting.
struct internal_error {
  std::string condition;
  std::string module;
  std::string file;
  int line;
};

/// One message of `mem_msg_local_vdebug`. The text is formatted, except that of the message about a path that is too
/// long: that one carries a path as its format, and its text is the format.
struct debug_message {
  std::string module;
  std::string format;
  std::string text;
};

/// The functions that a test puts in the place of operations. An empty one means the real operation.
struct replacements {
  std::function<int(char const*, int, int)> osi_open;
  std::function<std::FILE*(char const*, char const*)> osi_fopen;
  std::function<int(char const*, int)> osi_chmod;
  std::function<char*(char*, unsigned long)> osi_getcwd;
  std::function<int(char const*)> osi_mkdir;
  std::function<int(char const*)> osi_rmdir;
  std::function<int(char const*)> osi_chdir;
  std::function<int(char const*, struct stat*)> osi_status;
  std::function<int(char const*)> osi_exists;
  std::function<OSI_PATH*(char const*)> osi_get_unc_full_path;
  std::function<char const*(OSI_PATH*)> osi_path_get_data;
  std::function<void(OSI_PATH*)> osi_path_free;
  std::function<void(std::string&)> stl_tolower;
  std::function<char*(char*, std::size_t*, char const*, char**)> strtok_s;

  std::function<int(char const*, struct stat*)> stat;
  std::function<int(char const*, int)> access;
  std::function<DIR*(char const*)> opendir;
  std::function<dirent64*(DIR*)> readdir64;
  std::function<int(DIR*)> closedir;
  std::function<int(char const*)> remove;
  std::function<int(char const*, char const*)> rename;
};

/// The replacements in force.
replacements& replaced();

/// The debug messages since the last `reset`, oldest first.
std::vector<debug_message>& debug_messages();

/// The calls since the last `reset` of all operations of `replacements`, while `record_calls(true)` is in force, as
/// `osi_exists(/a/b)` or `rename(a, b)`: the name and the texts among the arguments.
std::vector<std::string>& calls();
void record_calls(bool on);

/// The number of directory streams that are open: `opendir` less `closedir` since the program started.
int open_streams();

/// Forgets all messages, calls and replacements, and stops recording.
void reset();

} // namespace platform_double

#endif
