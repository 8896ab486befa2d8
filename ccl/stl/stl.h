/// @file
/// Declares string functions that the suite shares.
///
/// @par Thread safety
/// The functions have no state of their own and may be called from any thread on strings of its own.

#ifndef CCL_STL_STL_H
#define CCL_STL_STL_H

#include <cstddef>
#include <string>

#include "ccl/platform/export.h"

/// Converts the letters A to Z of `text` to lower case, in place.
///
///     "Top.VHD"   => "top.vhd"
///
/// All other bytes are unchanged, including those above 127, whatever the locale: file names are bytes and must not
/// change with the user's language. Allocates nothing.
CCL_PLATFORM_EXPORT void stl_tolower(std::string& text);

/// Splits a string into tokens, as in the bounds-checking interfaces of the C standard (ISO C11, K.3.7.3.1).
///
/// The first call passes the string and, in `*remaining`, its size in bytes, the terminating NUL included. Later calls
/// pass a null `text` and the same `remaining` and `context`. Each call skips the characters of `delimiters`,
/// terminates the token after them with a NUL, and returns it, or null if there is none left. The set of delimiters may
/// change between calls.
///
///     ";;a;b"  by ";"   => "a", "b", null
///
/// Returns null, and modifies neither the string nor `*remaining` nor `*context`, if `remaining`, `delimiters` or
/// `context` is null, if `text` and `*context` are both null, or if `*remaining` is greater than half the address
/// space. If neither a delimiter nor a NUL ends the token within the remaining bytes, the result is null and the string
/// is unchanged too, and the search is over: `*context` is null afterwards.
CCL_PLATFORM_EXPORT char* strtok_s(char* text, std::size_t* remaining, char const* delimiters, char** context);

#endif
