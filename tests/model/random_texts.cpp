#include "tests/model/random_texts.h"

#include <string_view>

namespace {

constexpr std::size_t longest_sequence = 40;

// A NUL stands behind a character that is neither a dot nor a separator: what a component that starts with a NUL means
// is nobody's concern.
char const* const names[] = {"a",   "b",   "ab", "aab",  ".",    "..",  "...",      "..a",  "a.",
                             ".x",  "a.b", "C:", "%",    "%s%n", "%%d", "\xff\xe4", "\x80", "|",
                             "a|b", ":",   "x",  "name", "*",    "?",   " ",        "a.b.c"};
char const* const glue[] = {"/", "/", "/", "\\", "//", "\\/", "|", ":"};
char const* const units[] = {"a", "x", "/", "a/", "../", "./", "x.y/", "%n", "%s/", "\\b", "\xe4", ".", "ab|", "a:"};
constexpr std::string_view alphabet = "//\\..aab:%|*?\xff\x80";

// The lengths at which something changes: of the extension, of a path's parts with their spare characters, of a path,
// and of the buffer behind it.
constexpr std::size_t lengths[] = {20,   254,  255,  256,  257,  258,  500,  511,  512,  980,  1000, 1001,
                                   1002, 1003, 1004, 1005, 1006, 1021, 1022, 1023, 1024, 1025, 1043, 2000};

constexpr int components[] = {1, 2, 4, 8, 0, 3, 15, 16, -1};
constexpr int separators[] = {'/', '/', '/', '\\', '\\', '|', ':', 'a', '.', '%', 0xff, 0x80};
constexpr int letters[] = {'C', 'd', '/', '\\', '.', '%', '\0', 0xe4};
constexpr int masks[] = {0, 1, 2, 4, 6, 8, 10, 12, 14, 15, 16, -1};
constexpr int levels[] = {-1, 0, 1, 2, 3, 5, 200, 1000, 2147483647, -2147483647 - 1};
constexpr int offsets[] = {0, 1, 2, 5, 100, 1000};
constexpr int number_lengths[] = {0, 1022, 1023, 1024, 1025, 2147483647, -1};

// These give a path new content, and are wanted more often than the others.
constexpr operation makers[] = {operation::construct, operation::assign,   operation::construct_joined,
                                operation::directory, operation::filename, operation::make_path};

} // namespace

std::vector<step> step_source::sequence() {
  std::vector<step> steps(1 + below(longest_sequence));
  for (step& what : steps) {
    what = next();
  }
  return steps;
}

step step_source::next() {
  step result;
  result.what = next_operation();
  number_use const use = kind_of(result).numbers;
  result.first = text();
  result.second = result.what == operation::same_file ? pattern_text() : text();
  result.number = number_for(use);
  result.other_number = number_for(use);
  result.target = below(paths_of_a_scene);
  result.source = below(paths_of_a_scene);
  return result;
}

operation step_source::next_operation() {
  if (below(4) == 0) {
    return one_of(makers);
  }
  return one_of(step_kinds()).what;
}

int step_source::number_for(number_use use) {
  switch (use) {
  case number_use::none:
    return 0;
  case number_use::component:
    return one_of(components);
  case number_use::separator:
    return one_of(separators);
  case number_use::letter:
    return one_of(letters);
  case number_use::extension_type:
    return one_of(modelled_extension_types);
  case number_use::mask:
    return one_of(masks);
  case number_use::level:
    return one_of(levels);
  case number_use::length:
    return one_of(number_lengths);
  case number_use::offset:
    return one_of(offsets);
  case number_use::flag:
    return static_cast<int>(below(2));
  }
  return 0;
}

std::string step_source::text() {
  switch (below(10)) {
  case 0:
    return "";
  case 1:
  case 2:
    return characters_text();
  case 3:
  case 4:
    return long_text();
  case 5:
    return long_extension_text();
  case 6:
    return names_text() + "x" + std::string(1, '\0') + names_text();
  default:
    return names_text();
  }
}

std::string step_source::characters_text() {
  std::string result;
  for (std::size_t length = below(9); length > 0; --length) {
    result += one_of(alphabet);
  }
  return result;
}

std::string step_source::names_text() {
  std::string result = below(2) == 0 ? one_of(glue) : "";
  for (std::size_t count = below(6); count > 0; --count) {
    result += one_of(names);
    if (count > 1 || below(3) == 0) {
      result += one_of(glue);
    }
  }
  return result;
}

// One unit over and over, between a beginning and an end of names, to an exact length.
std::string step_source::long_text() {
  std::size_t const length = one_of(lengths);
  std::string const unit = one_of(units);
  std::string const end = below(2) == 0 ? names_text() : "";
  std::string result = below(2) == 0 ? names_text() : "";
  while (result.size() + end.size() < length) {
    result += unit;
  }
  result += end;
  return result.substr(0, length);
}

std::string step_source::long_extension_text() {
  std::string const name = names_text();
  return name + "." + std::string(253 + below(6), one_of(std::string_view("xy%:")));
}

std::string step_source::pattern_text() {
  std::string result;
  for (std::size_t length = below(6); length > 0; --length) {
    result += one_of(std::string_view("**?aab./"));
  }
  return result;
}
