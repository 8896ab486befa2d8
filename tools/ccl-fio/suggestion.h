/// @file
/// What somebody may have meant who wrote a word that nobody knows.

#ifndef CCL_TOOLS_SUGGESTION_H
#define CCL_TOOLS_SUGGESTION_H

#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// The one of `known` that is nearest to `given`, as the end of a message; empty if none is near.
std::string suggestion(std::string_view given, std::vector<std::string> const& known);

} // namespace tool

#endif
