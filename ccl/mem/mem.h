/// @file
/// Declares the memory layer: module registration, debug messages and formatted strings.
///
/// This is an open substitute for the suite's own memory layer. A suite replaces the whole platform library by its own
/// (see `CCL_PLATFORM_TARGET`), so everything here is a plain function or class with nothing inline.
///
/// @par Thread safety
/// Every operation may be called from any thread. The list of registrations is guarded by a mutex, and a debug message
/// is written by one call, so that messages of different threads do not mix within a line.

#ifndef CCL_MEM_MEM_H
#define CCL_MEM_MEM_H

#include <cstdarg>
#include <string>
#include <vector>

#include "ccl/platform/export.h"

/// Registers a module for the lifetime of the object.
///
/// Each source file of a library has one static object of this class. Several objects may have the same name, and each
/// counts. Construction and destruction allocate nothing and work before and after `main`.
class CCL_PLATFORM_EXPORT MEM_INITIALIZER {
public:
  /// Registers `module`, a string that must outlive the object (as a literal does).
  explicit MEM_INITIALIZER(char const* module);

  /// Cancels the registration.
  ~MEM_INITIALIZER();

  MEM_INITIALIZER(MEM_INITIALIZER const&) = delete;
  MEM_INITIALIZER& operator=(MEM_INITIALIZER const&) = delete;

  /// Returns the names of all registrations in force, oldest first, one element for each object.
  ///
  /// @throws std::bad_alloc if the list cannot be stored
  static std::vector<std::string> registered_modules();

private:
  char const* m_module;
  MEM_INITIALIZER* m_previous;
  MEM_INITIALIZER* m_next;
};

/// Writes one formatted debug message of `module`, if debug messages are enabled.
///
/// The environment variable `CCL_DEBUG_MESSAGES` enables them: if it is unset, empty or `0`, nothing is formatted or
/// written; with any other value each message is written to standard error as `MODULE: TEXT`, followed by a line feed.
/// The variable is read at each message. A message that cannot be formatted or written is lost. `errno` is preserved.
///
/// @param module    the name of the module that writes the message
/// @param format    a `printf` format
/// @param arguments the arguments of the format
CCL_PLATFORM_EXPORT void mem_msg_local_vdebug(char const* module, char const* format, va_list arguments)
    __attribute__((format(printf, 2, 0)));

namespace MEM_DETAIL {

/// Replaces the content of `*out` with the result of a `printf` format, whatever its length.
///
///     stl_raw_sprintf(&text, "%04x", 255u)   => text is "00ff"
///
/// If the format cannot be processed, `*out` is empty afterwards.
///
/// @throws std::bad_alloc if the string cannot be stored
CCL_PLATFORM_EXPORT void stl_raw_sprintf(std::string* out, char const* format, ...)
    __attribute__((format(printf, 2, 3)));

} // namespace MEM_DETAIL

#endif
