/// @file
/// Declares the error layer: the report of a failed internal check.
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
/// The error layer of a suite may do something else, but it never returns to the caller.
///
/// @param condition the condition that did not hold, as it is in the source
/// @param module    the name of the module that made the check
/// @param file      the source file of the check
/// @param line      the line of the check
[[noreturn]] CCL_PLATFORM_EXPORT void err_report_internal_error(char const* condition, char const* module,
                                                                char const* file, int line);

#endif
