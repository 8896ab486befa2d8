/// @file
/// Compares the operations of the sweep with those that the library exports.

#ifndef CCL_TESTS_SWEEPS_ALLOCATION_COVERAGE_H
#define CCL_TESTS_SWEEPS_ALLOCATION_COVERAGE_H

#include <string>
#include <vector>

#include "tests/sweeps/allocation_operation.h"

/// What stands in front of the name of an operation that is no symbol of the library, as a template or an inline one.
inline constexpr char inline_prefix[] = "inline: ";

/// What is wrong: an exported function that no operation covers, and an operation that covers none. `symbols` is the
/// path of the list of all symbols, of which a line is a letter (T for code) and a name.
std::vector<std::string> coverage_mistakes(operation_table const& table, char const* symbols);

#endif
