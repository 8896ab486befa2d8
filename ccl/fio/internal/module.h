/// @file
/// What every source file of the library shares: its name, debug messages, internal checks, including those of Boost,
/// and the start-up of the standard streams.

#ifndef CCL_FIO_INTERNAL_MODULE_H
#define CCL_FIO_INTERNAL_MODULE_H

#ifndef BOOST_ENABLE_ASSERT_HANDLER
#error "the assertions of Boost are to be routed to the error layer"
#endif

#include <cstdarg>
#include <iostream> // sets up the standard streams before the file registers: a memory layer may write to them
#include <stdexcept>

#include "ccl/err/err.h"
#include "ccl/mem/mem.h"

namespace fio_internal {

/// The one name under which the library registers, writes debug messages and reports internal errors.
inline constexpr char module_name[] = "FIO";

/// Writes a debug message, which changes nothing in the operation that writes it.
__attribute__((format(printf, 1, 2))) inline void mem_msg_vdebug(char const* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  mem_msg_local_vdebug(module_name, format, arguments);
  va_end(arguments);
}

/// Rejects a null C-string with the exception that constructing a string from it throws, whatever the C++ library.
inline void require_text(char const* text) {
  if (text == nullptr) {
    throw std::logic_error("basic_string: construction from null is not valid");
  }
}

} // namespace fio_internal

/// Checks an assumption about the calling program, never about its input or the file system. If it does not hold,
/// reports the condition as it is written and does not return.
#define FIO_CHECK(condition)                                                                                           \
  ((condition) ? static_cast<void>(0)                                                                                  \
               : err_report_internal_error(#condition, fio_internal::module_name, __FILE__, __LINE__))

namespace boost {

// Boost calls these for failed assertions: the library is built with BOOST_ENABLE_ASSERT_HANDLER, and every source file
// includes this header, so the definitions can be inline.

inline void assertion_failed(char const* condition, char const* /*function*/, char const* file, long line) {
  err_report_internal_error(condition, fio_internal::module_name, file, static_cast<int>(line));
}

inline void assertion_failed_msg(char const* condition, char const* /*message*/, char const* /*function*/,
                                 char const* file, long line) {
  err_report_internal_error(condition, fio_internal::module_name, file, static_cast<int>(line));
}

} // namespace boost

#endif
