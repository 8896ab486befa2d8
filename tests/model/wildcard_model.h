/// @file
/// A slow second writing of the wildcard test of the file system class, with its prefix rule.

#ifndef CCL_TESTS_MODEL_WILDCARD_MODEL_H
#define CCL_TESTS_MODEL_WILDCARD_MODEL_H

#include <string>

/// Whether the name fits the pattern. Neither text holds a NUL.
bool model_same_file(std::string const& name, std::string const& pattern);

#endif
