/// @file
/// The error layer: the report of a broken internal assumption.
///
/// @par Thread safety
/// May be called from any thread. The report is written by one call.

#ifndef CCL_ERR_ERR_H
#define CCL_ERR_ERR_H

#include "ccl/platform/export.h"

/// Reports a failed internal check on standard error and aborts the process.
///
///     internal error: 0 != dir.size() (module FIO, ccl/fio/fio_find.cpp:97)
///
/// A suite's own error layer may do something else, but it never returns to the caller.
///
/// @param condition the text of the condition that did not hold
/// @param module    the name of the module that made the check
/// @param file      the source file of the check
/// @param line      the line of the check
[[noreturn]] CCL_PLATFORM_EXPORT void err_report_internal_error(char const* condition, char const* module,
                                                                char const* file, int line);

#endif
