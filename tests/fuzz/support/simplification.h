/// @file
/// What must hold of a path that is simplified.

#ifndef CCL_TESTS_FUZZ_SUPPORT_SIMPLIFICATION_H
#define CCL_TESTS_FUZZ_SUPPORT_SIMPLIFICATION_H

#include <string>

#include "tests/fuzz/support/watched_path.h"

namespace fuzz {

/// Whether this process has the older of the two ways of simplification in force.
bool simplifies_the_old_way();

/// Selects it, or the usual one.
void simplify_the_old_way(bool old);

/// The text of a path of this text, simplified in the usual way.
std::string simplified(std::string const& text);

/// Checks both ways of simplification on copies: the result that a stack of levels gives, no second effect, and that
/// the two agree where they should.
void check_simplification(watched_path const& watched);

} // namespace fuzz

#endif
