/// @file
/// What must hold between two paths, or a path and a text: order, equality, and one seen from the other.

#ifndef CCL_TESTS_FUZZ_SUPPORT_RELATIONS_H
#define CCL_TESTS_FUZZ_SUPPORT_RELATIONS_H

#include <string>

#include "tests/fuzz/support/watched_path.h"

namespace fuzz {

/// Checks all comparisons of the two, and those with the text.
void check_comparison(watched_path const& left, watched_path const& right, std::string const& text);

/// Checks the path as it is seen from a directory, and that it leads back from there.
void check_relative_form(watched_path const& watched, std::string const& directory);

} // namespace fuzz

#endif
