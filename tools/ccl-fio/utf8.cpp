#include "tools/ccl-fio/utf8.h"

namespace tool {

character first_character(std::string_view text) {
  auto const byte_at = [text](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  unsigned char const lead = byte_at(0);
  if (lead < 0x80) {
    return {lead, 1, true};
  }
  std::size_t const size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  char32_t code = lead & (0x7Fu >> size);
  if (lead < 0xC2 || lead > 0xF4 || text.size() < size) {
    return {lead, 1, false};
  }
  for (std::size_t i = 1; i != size; ++i) {
    if ((byte_at(i) & 0xC0) != 0x80) {
      return {lead, 1, false};
    }
    code = code << 6 | (byte_at(i) & 0x3Fu);
  }
  constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
  bool const valid = code >= least[size] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
  return valid ? character{code, size, true} : character{lead, 1, false};
}

bool is_utf8(std::string_view text) {
  while (!text.empty()) {
    character const first = first_character(text);
    if (!first.valid) {
      return false;
    }
    text.remove_prefix(first.size);
  }
  return true;
}

} // namespace tool
