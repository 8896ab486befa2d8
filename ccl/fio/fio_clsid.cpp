#include "ccl/fio/fio_clsid.h"

#include <cstdio>
#include <string_view>

#include "ccl/fio/internal/clsid_values.h"
#include "ccl/fio/internal/module.h"

namespace {

MEM_INITIALIZER const mem_initializer(fio_internal::module_name);

constexpr std::string_view text_shape = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";

bool has_text_shape(std::string const& text) {
  if (text.size() != text_shape.size()) {
    return false;
  }
  for (std::size_t i = 0; i != text_shape.size(); ++i) {
    if (text_shape[i] != 'x' && text[i] != text_shape[i]) {
      return false;
    }
  }
  return true;
}

// A part of the string as a C-string of its own, so that a scan cannot run past its end.
struct piece {
  char text[13];

  piece(std::string const& whole, std::size_t start, std::size_t length) {
    text[whole.copy(text, length, start)] = '\0';
  }
};

} // namespace

#define FIO_DEFINE_CONSTANT(name, ...) _GUID const VFC_CLSID_##name = fio_clsid_values::name;
FIO_CLSID_LIST(FIO_DEFINE_CONSTANT)
#undef FIO_DEFINE_CONSTANT

_GUID const FIO_CLSID_NULL = fio_clsid_values::NONE;

_GUID fio_str_to_clsid(std::string const& text) {
  if (!has_text_shape(text)) {
    return FIO_CLSID_NULL;
  }
  unsigned fields[3];
  unsigned bytes[8];
  // An end of the piece before the first conversion is reported as a negative count, which changes the sum as well.
  int const conversions = std::sscanf(piece(text, 1, 8).text, "%x", &fields[0]) +
                          std::sscanf(piece(text, 10, 4).text, "%x", &fields[1]) +
                          std::sscanf(piece(text, 15, 4).text, "%x", &fields[2]) +
                          std::sscanf(piece(text, 20, 4).text, "%2x%2x", &bytes[0], &bytes[1]) +
                          std::sscanf(piece(text, 25, 12).text, "%2x%2x%2x%2x%2x%2x", &bytes[2], &bytes[3], &bytes[4],
                                      &bytes[5], &bytes[6], &bytes[7]);
  if (conversions != 11) {
    return FIO_CLSID_NULL;
  }
  _GUID clsid = {fields[0], static_cast<std::uint16_t>(fields[1]), static_cast<std::uint16_t>(fields[2]), {}};
  for (int i = 0; i != 8; ++i) {
    clsid.Data4[i] = static_cast<std::uint8_t>(bytes[i]);
  }
  return clsid;
}

std::string fio_clsid_to_str(_GUID const& clsid, FIO_CLSID_FORMAT format) {
  static constexpr char format_ary[][96] = {
      "{%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x}",
      "{0x%08x, 0x%04x, 0x%04x, {0x%02x, 0x%02x, 0x%02x, 0x%02x, 0x%02x, 0x%02x, 0x%02x, 0x%02x}}",
  };
  std::string text;
  std::uint8_t const* const bytes = clsid.Data4;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral" // both formats are above and take eleven numbers
  MEM_DETAIL::stl_raw_sprintf(&text, format_ary[format], clsid.Data1, clsid.Data2, clsid.Data3, bytes[0], bytes[1],
                              bytes[2], bytes[3], bytes[4], bytes[5], bytes[6], bytes[7]);
#pragma GCC diagnostic pop
  return text;
}
