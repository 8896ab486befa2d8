/// @file
/// String helpers that the suite shares.
///
/// @par Thread safety
/// The operations have no state of their own and may be called from any thread on texts of its own.

#ifndef CCL_STL_STL_H
#define CCL_STL_STL_H

#include <cstddef>
#include <string>

#include "ccl/platform/export.h"

/// Folds the letters A to Z of `text` to lower case, in place.
///
///     "Top.VHD"   => "top.vhd"
///
/// All other bytes stay, those above 127 among them, whatever the locale says: file names are bytes and must not change
/// with the user's language. Allocates nothing.
CCL_PLATFORM_EXPORT void stl_tolower(std::string& text);

/// The bounded tokeniser of the C standard's bounds-checking interfaces (ISO C11, K.3.7.3.1).
///
/// The first call passes the text and, in `*remaining`, its size in bytes, the terminating NUL included. Later calls
/// pass a null `text` and the same `remaining` and `context`. Each call skips the characters of `delimiters`, ends the
/// token behind them with a NUL, and answers it, or null when there is none left. The set of delimiters may change
/// between calls.
///
///     ";;a;b"  by ";"   => "a", "b", null
///
/// It answers null, and changes neither the text nor `*remaining` nor `*context`, when `remaining`, `delimiters` or
/// `context` is null, when `text` and `*context` are both null, or when `*remaining` is greater than half the address
/// space. When neither a delimiter nor a NUL ends the token within the bytes that remain, the answer is null and the
/// text is unchanged too, and the search is over: `*context` is null afterwards.
CCL_PLATFORM_EXPORT char* strtok_s(char* text, std::size_t* remaining, char const* delimiters, char** context);

#endif
