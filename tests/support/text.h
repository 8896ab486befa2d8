/// @file
/// Texts to test with.

#ifndef CCL_TESTS_SUPPORT_TEXT_H
#define CCL_TESTS_SUPPORT_TEXT_H

#include <cstddef>
#include <string>

/// A text of `length` times the same character.
inline std::string repeated(std::size_t length, char character = 'x') { return std::string(length, character); }

#endif
