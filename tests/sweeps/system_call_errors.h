/// @file
/// How each function of the system can fail, and what of the library's imports cannot fail.

#ifndef CCL_TESTS_SWEEPS_SYSTEM_CALL_ERRORS_H
#define CCL_TESTS_SWEEPS_SYSTEM_CALL_ERRORS_H

#include <string>
#include <vector>

#include "tests/sweeps/system_call_doubles.h"

namespace system_call {

/// The ways to disturb a call of this function: all errors of its manual page first. Empty if there is no entry.
std::vector<disturbance> const& disturbances_of(std::string const& function);

/// Why a call of this function, as the program that is linked names it, cannot fail. Empty if it can.
std::string reason_why_it_cannot_fail(std::string const& demangled);

} // namespace system_call

#endif
