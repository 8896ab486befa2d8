#include "tests/fuzz/support/check.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz {

std::string quoted(std::string const& text) {
  static constexpr char digits[] = "0123456789abcdef";
  std::string result = "\"";
  for (char const character : text) {
    auto const byte = static_cast<unsigned char>(character);
    if (byte >= 0x20 && byte < 0x7f && character != '"' && character != '\\') {
      result += character;
    } else {
      result += "\\x";
      result += digits[byte >> 4];
      result += digits[byte & 15];
    }
  }
  return result + '"';
}

std::string quoted(std::vector<std::string> const& texts) {
  std::string result = "[";
  for (std::string const& text : texts) {
    result += ' ' + quoted(text);
  }
  return result + " ]";
}

void fail(std::string const& what) {
  std::fprintf(stderr, "finding: %s\n", what.c_str());
  std::abort();
}

void expect(bool holds, char const* what, std::string const& subject) {
  if (!holds) {
    fail(what + (": " + quoted(subject)));
  }
}

void expect_equal(std::string const& found, std::string const& expected, char const* what) {
  if (found != expected) {
    fail(what + (": is " + quoted(found)) + ", should be " + quoted(expected));
  }
}

void expect_equal(std::vector<std::string> const& found, std::vector<std::string> const& expected, char const* what) {
  if (found != expected) {
    fail(what + (": is " + quoted(found)) + ", should be " + quoted(expected));
  }
}

void expect_equal(long found, long expected, char const* what) {
  if (found != expected) {
    fail(what + (": is " + std::to_string(found)) + ", should be " + std::to_string(expected));
  }
}

} // namespace fuzz
