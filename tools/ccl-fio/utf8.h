/// @file
/// Names are bytes, and most of them are UTF-8: where its characters begin and end, and what is none.

#ifndef CCL_TOOLS_UTF8_H
#define CCL_TOOLS_UTF8_H

#include <cstddef>
#include <string_view>

namespace tool {

/// The first character of a text. What is no UTF-8 is one byte, which is then the code.
struct character {
  char32_t code = 0;
  std::size_t size = 1;
  bool valid = false;
};

/// The first character of `text`, which is not empty. Surrogates and forms that are longer than they need to be are no
/// UTF-8.
character first_character(std::string_view text);

/// Whether all of `text` is UTF-8.
bool is_utf8(std::string_view text);

} // namespace tool

#endif
