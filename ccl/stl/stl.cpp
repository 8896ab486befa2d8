#include "ccl/stl/stl.h"

#include <cstdint>
#include <cstring>

namespace {

// RSIZE_MAX of the bounds-checking interfaces: a greater size is taken for a converted negative number.
constexpr std::size_t largest_size = SIZE_MAX >> 1;

bool is_one_of(char character, char const* set) { return character != '\0' && std::strchr(set, character) != nullptr; }

} // namespace

void stl_tolower(std::string& text) {
  for (char& character : text) {
    if (character >= 'A' && character <= 'Z') {
      character = static_cast<char>(character - 'A' + 'a');
    }
  }
}

char* strtok_s(char* text, std::size_t* remaining, char const* delimiters, char** context) {
  if (remaining == nullptr || delimiters == nullptr || context == nullptr || *remaining > largest_size ||
      (text == nullptr && *context == nullptr)) {
    return nullptr;
  }
  char* start = text != nullptr ? text : *context;
  char* const limit = start + *remaining;
  while (start != limit && is_one_of(*start, delimiters)) {
    ++start;
  }
  char* end = start;
  while (end != limit && *end != '\0' && !is_one_of(*end, delimiters)) {
    ++end;
  }
  if (end == limit) {
    *context = nullptr;
    *remaining = 0;
    return nullptr;
  }
  char* const token = end == start ? nullptr : start;
  if (*end != '\0') {
    *end++ = '\0';
  }
  // At the end of the string the context stays on its NUL, so that every later search finds nothing.
  *context = end;
  *remaining = static_cast<std::size_t>(limit - end);
  return token;
}
