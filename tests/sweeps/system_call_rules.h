/// @file
/// What is to come out when a call is disturbed.

#ifndef CCL_TESTS_SWEEPS_SYSTEM_CALL_RULES_H
#define CCL_TESTS_SWEEPS_SYSTEM_CALL_RULES_H

#include <string>

#include "tests/sweeps/system_call_doubles.h"
#include "tests/sweeps/system_call_tree.h"

namespace system_call {

/// When the disturbed call is disturbed.
enum class timing { any, once, always };

/// One rule: what the disturbance of some calls of some operations leads to. Names are patterns as of `fnmatch`.
struct rule {
  char const* operation;
  char const* function;
  char const* subject;
  int occurrence; ///< of the function with this subject, or 0 for any
  timing when;
  char const* disturbance;
  char const* result; ///< "=" is the undisturbed one, "?" any; %d is the number of the error
  effect left;
};

/// The first rule that fits. Null if there is none.
rule const* rule_for(std::string const& operation, call const& disturbed, bool always, disturbance const& what);

} // namespace system_call

#endif
