/// @file
/// The wildcard test of names, against a matcher that is told rather than stepped.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "ccl/fio/fio_file_sys.h"
#include "tests/fuzz/support/check.h"
#include "tests/fuzz/support/input.h"
#include "tests/fuzz/support/target.h"

namespace {

bool fits(char name, char pattern) { return pattern == '?' || pattern == name; }

// How many characters of `literal`, which has no star, fit the start of `name`.
std::size_t fitting_length(std::string_view name, std::string_view literal) {
  std::size_t length = 0;
  while (length != name.size() && length != literal.size() && fits(name[length], literal[length])) {
    ++length;
  }
  return length;
}

bool matches(std::string_view name, std::string_view pattern);

// A star and then `rest`. The first place at which the text before the next star fits is the only one tried, and that
// star needs a character of the name; without a next star the rest must end with the name.
bool matches_after_star(std::string_view name, std::string_view rest) {
  std::string_view const literal = rest.substr(0, rest.find('*'));
  bool const has_star = literal.size() != rest.size();
  for (std::size_t start = 0; start != name.size(); ++start) {
    std::string_view const there = name.substr(start);
    std::size_t const length = fitting_length(there, literal);
    if (has_star && length == literal.size() && length != there.size()) {
      return matches(there.substr(length), rest.substr(length));
    }
    if (length == there.size()) {
      return !has_star && length == literal.size();
    }
  }
  return rest.empty();
}

// Without a star in front, what stands before the next star is a prefix of the name, and that star too needs a
// character of it.
bool matches(std::string_view name, std::string_view pattern) {
  if (!pattern.empty() && pattern.front() == '*') {
    return matches_after_star(name, pattern.substr(1));
  }
  std::string_view const literal = pattern.substr(0, pattern.find('*'));
  std::size_t const length = literal.size();
  if (fitting_length(name, literal) != length) {
    return false;
  }
  return length == pattern.size() || (length != name.size() && matches(name.substr(length), pattern.substr(length)));
}

void check(std::string const& name, std::string const& pattern) {
  bool const expected = matches(name.c_str(), pattern.c_str());
  if (FIO_FILE_SYSTEM::same_file(name.c_str(), pattern.c_str()) != expected) {
    fuzz::fail("the name " + fuzz::quoted(name) + (expected ? " matches " : " does not match ") +
               fuzz::quoted(pattern));
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  fuzz::input input(data, size);
  std::string const name = input.line();
  std::string const pattern = input.line();
  check(name, pattern);
  // What must hold whatever the two are.
  check(name, "");
  check(name, "*");
  check(name, name);
  check(name, '*' + name);
  check(name, pattern + '*');
  check(pattern, name);
  return 0;
}
