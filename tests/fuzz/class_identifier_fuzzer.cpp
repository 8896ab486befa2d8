/// @file
/// Class identifiers: any text is read as the standard scan reads its pieces, and any identifier comes back from its
/// own text.

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "ccl/fio/fio_clsid.h"
#include "tests/fuzz/support/check.h"
#include "tests/fuzz/support/target.h"

namespace {

constexpr std::size_t text_length = 38;

std::string bytes_of(_GUID const& clsid) {
  std::string bytes(sizeof clsid, '\0');
  std::memcpy(bytes.data(), &clsid, sizeof clsid);
  return bytes;
}

bool has_frame(std::string const& text) {
  return text.size() == text_length && text[0] == '{' && text[9] == '-' && text[14] == '-' && text[19] == '-' &&
         text[24] == '-' && text[37] == '}';
}

// What the text should give: the pieces between the marks, read by the scan itself.
_GUID expected_of(std::string const& text) {
  _GUID clsid = {};
  if (!has_frame(text)) {
    return clsid;
  }
  unsigned values[11] = {};
  int count = std::sscanf(text.substr(1, 8).c_str(), "%x", &values[0]);
  count += std::sscanf(text.substr(10, 4).c_str(), "%x", &values[1]);
  count += std::sscanf(text.substr(15, 4).c_str(), "%x", &values[2]);
  count += std::sscanf(text.substr(20, 4).c_str(), "%2x%2x", &values[3], &values[4]);
  count += std::sscanf(text.substr(25, 12).c_str(), "%2x%2x%2x%2x%2x%2x", &values[5], &values[6], &values[7],
                       &values[8], &values[9], &values[10]);
  if (count == 11) {
    clsid.Data1 = values[0];
    clsid.Data2 = static_cast<std::uint16_t>(values[1]);
    clsid.Data3 = static_cast<std::uint16_t>(values[2]);
    std::transform(values + 3, values + 11, clsid.Data4,
                   [](unsigned value) { return static_cast<std::uint8_t>(value); });
  }
  return clsid;
}

// The same digits for both forms, in the order of the record.
std::string digits_of(_GUID const& clsid) {
  char text[33];
  std::snprintf(text, sizeof text, "%08x%04x%04x", clsid.Data1, clsid.Data2, clsid.Data3);
  for (std::size_t i = 0; i != 8; ++i) {
    std::snprintf(text + 16 + 2 * i, 3, "%02x", clsid.Data4[i]);
  }
  return text;
}

// Puts digits into the places of `#` in a frame.
std::string filled(std::string frame, std::string const& digits) {
  std::size_t next = 0;
  for (char& place : frame) {
    place = place == '#' ? digits[next++] : place;
  }
  return frame;
}

std::string upper_case(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
  return text;
}

void check_reading(std::string const& text) {
  _GUID const found = fio_str_to_clsid(text);
  if (bytes_of(found) != bytes_of(expected_of(text))) {
    fuzz::fail("reading " + fuzz::quoted(text) + " gives " + fio_clsid_to_str(found, FIO_CLSID_FORMAT_TEXT));
  }
}

void check_writing(_GUID const& clsid) {
  std::string const text = fio_clsid_to_str(clsid, FIO_CLSID_FORMAT_TEXT);
  std::string const initializer = fio_clsid_to_str(clsid, FIO_CLSID_FORMAT_INITIALIZER);
  std::string const digits = digits_of(clsid);
  fuzz::expect_equal(text, filled("{########-####-####-####-############}", digits), "the text of an identifier");
  fuzz::expect_equal(initializer,
                     filled("{0x########, 0x####, 0x####, {0x##, 0x##, 0x##, 0x##, 0x##, 0x##, 0x##, 0x##}}", digits),
                     "the initializer of an identifier");
  fuzz::expect_equal(bytes_of(fio_str_to_clsid(text)), bytes_of(clsid), "the identifier of its own text");
  fuzz::expect_equal(bytes_of(fio_str_to_clsid(upper_case(text))), bytes_of(clsid), "the identifier of its upper case");
  fuzz::expect_equal(bytes_of(fio_str_to_clsid(initializer)), bytes_of(FIO_CLSID_NULL), "what an initializer reads as");
}

// The text with the marks of an identifier in their places, so that the scan behind them is reached.
std::string framed(std::string text) {
  text.resize(text_length, '0');
  text[0] = '{';
  text[9] = text[14] = text[19] = text[24] = '-';
  text[37] = '}';
  return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string const text(data, data + size);
  check_reading(text);
  check_reading(framed(text));
  _GUID clsid = {};
  if (size != 0) {
    std::memcpy(&clsid, data, std::min(size, sizeof clsid));
  }
  check_writing(clsid);
  check_writing(fio_str_to_clsid(framed(text)));
  return 0;
}
