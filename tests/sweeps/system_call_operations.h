/// @file
/// The operations of the sweep.

#ifndef CCL_TESTS_SWEEPS_SYSTEM_CALL_OPERATIONS_H
#define CCL_TESTS_SWEEPS_SYSTEM_CALL_OPERATIONS_H

#include <string>
#include <vector>

namespace system_call {

/// One operation with its arguments.
struct operation {
  char const* name;      ///< as the rules call it
  char const* signature; ///< the exported operation
  std::string (*run)();  ///< runs it in a drawn tree, watched, gives back what it opened, and tells its result
  char const* result;    ///< what it tells if nothing is disturbed
  char const* at_stake;  ///< names that a failure may cost, separated by blanks
  char const* kept;      ///< names that stay as they were unless the result is the undisturbed one
};

/// All rows. The first one needs a process in which no temporary name was ever made.
std::vector<operation> all_operations();

/// @name The families of rows
/// @{
std::vector<operation> primitive_operations();
std::vector<operation> copying_operations();
std::vector<operation> removing_operations();
std::vector<operation> searching_operations();
std::vector<operation> path_operations();
/// @}

} // namespace system_call

#endif
