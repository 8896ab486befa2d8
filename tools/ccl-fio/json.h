/// @file
/// JSON in which every name survives.

#ifndef CCL_TOOLS_JSON_H
#define CCL_TOOLS_JSON_H

#include <nlohmann/json.hpp>
#include <string>

namespace tool {

using json = nlohmann::ordered_json;

/// A name as JSON: a string if it is UTF-8, and otherwise an object `{"percent_encoded": "caf%E9.v"}`, in which every
/// byte that is no part of a character, and `%`, is written as `%` and two hexadecimal digits.
json name_to_json(std::string const& name);

/// The same, with null for an empty name.
json name_or_null(std::string const& name);

/// Writes a document with a newline behind it.
void write_json(json const& document);

} // namespace tool

#endif
