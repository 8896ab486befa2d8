/// @file
/// What stands in a directory, as plain lists that compare with what should stand there.

#ifndef CCL_TESTS_FAULTS_TREES_H
#define CCL_TESTS_FAULTS_TREES_H

#include <sys/types.h>

#include <cstddef>
#include <string>
#include <vector>

namespace faults {

using lines = std::vector<std::string>;

/// Everything below a directory, sorted, in the notation of `scratch_tree::draw`: no link is followed, and a file with
/// content is "name=content". What is neither a file, a directory nor a link is "name?".
lines drawing(std::string const& directory);

/// A drawing with all that a change leaves behind: modes, numbers of links and the times of the last modification.
lines snapshot(std::string const& directory);

/// The paths that an iterator delivers, sorted. A directory ends in a separator.
template <typename Iterator>
lines iterated(std::string const& directory);

/// A text without any period of a power of two, so that no block of it stands for another.
std::string patterned(std::size_t size);

std::string content_of(std::string const& path);
void write_file(std::string const& path, std::string const& content);
void set_times(std::string const& path, time_t seconds);
time_t modified_at(std::string const& path);

/// Whether anything stands at a path: no link is followed and no character has a meaning.
bool stands(std::string const& path);

/// How many descriptors are open.
int open_descriptors();

/// The texts of the debug messages since the last call.
lines take_messages();

} // namespace faults

#endif
