/// @file
/// What a search path should come to, and a small tree to search: what lies outside of it is never asked for.

#ifndef CCL_TESTS_FUZZ_SUPPORT_SEARCH_ORACLE_H
#define CCL_TESTS_FUZZ_SUPPORT_SEARCH_ORACLE_H

#include <string>
#include <vector>

namespace fuzz {

/// A folder of its own, which becomes the current directory and goes away with the process. In it are the directories
/// "d" and "d/e", and the files "f.v" and "d/g.v".
void enter_search_tree();

/// How often the tree's entries can be met in a walk of one directory, "." and ".." among them.
constexpr int most_entries = 4;

/// The elements of the search list, as texts before they are divided.
std::vector<std::string> search_elements(std::string const& search_path);

/// The list that serves `find`.
std::vector<std::string> find_directories(std::string const& search_path);

/// Whether this text, as a path, stays in the tree: it is relative and never climbs.
bool stays_inside(std::string const& text);

bool has_wildcard(std::string const& text);

/// The paths that a path fits which has wildcards in its last component alone, in no order.
std::vector<std::string> matching_entries(std::string const& pattern);

/// Whether a text without wildcards leads to something.
bool leads_anywhere(std::string const& text);

} // namespace fuzz

#endif
