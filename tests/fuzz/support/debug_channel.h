/// @file
/// A debug channel for fuzz targets. It takes the place of the platform's: a message about a path that is too long has
/// the path in the place of a format, and a path of arbitrary bytes must never be expanded as one.

#ifndef CCL_TESTS_FUZZ_SUPPORT_DEBUG_CHANNEL_H
#define CCL_TESTS_FUZZ_SUPPORT_DEBUG_CHANNEL_H

#include <string>
#include <vector>

namespace fuzz {

/// The formats of the messages since the last call, oldest first.
std::vector<std::string> take_debug_messages();

} // namespace fuzz

#endif
