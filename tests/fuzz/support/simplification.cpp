#include "tests/fuzz/support/simplification.h"

#include <cstdlib>
#include <cstring>
#include <vector>

#include "tests/fuzz/support/check.h"
#include "tests/fuzz/support/debug_channel.h"

namespace fuzz {

namespace {

constexpr char old_way[] = "fio_old_simplify";

// The levels that are left: ".." takes the plain one before it, piles up at the start, and vanishes at the root.
std::vector<std::string> reduced(std::vector<std::string> const& levels, bool absolute) {
  std::vector<std::string> stack;
  for (std::string const& level : levels) {
    if (level == ".." && !stack.empty() && stack.back() != "..") {
      stack.pop_back();
    } else if (level != "." && !(level == ".." && absolute)) {
      stack.push_back(level);
    }
  }
  return stack;
}

// The components of a plain path with a directory after its simplification.
components reduced(components parts, char separator) {
  bool const absolute = !parts.directory.empty() && parts.directory.front() == separator;
  std::vector<std::string> const levels = levels_of(parts.directory, separator);
  parts.directory = absolute ? std::string(1, separator) : std::string();
  for (std::string const& level : reduced(levels, absolute)) {
    parts.directory += level + separator;
  }
  if (std::strcmp(parts.base.c_str(), ".") == 0) {
    parts.base.clear();
  }
  if (parts.extension == ".") {
    parts.extension.clear();
  }
  return parts;
}

// A copy, simplified by one of the two, with its messages checked.
FIO_PATH simplified_copy(watched_path const& watched, void (FIO_PATH::*simplify)()) {
  FIO_PATH copy(watched.path);
  bool const always_runs = simplify == &FIO_PATH::become_simplified && simplifies_the_old_way();
  bool const runs = always_runs || copy.has_directory();
  take_debug_messages();
  (copy.*simplify)();
  std::vector<std::string> const messages = take_debug_messages();
  std::string const text = copy.fullpath();
  expect_equal(static_cast<long>(messages.size()), runs && text.size() > longest_path ? 1 : 0,
               "the messages of a simplification");
  take_debug_messages();
  return copy;
}

void check_flatten(watched_path const& watched, components const& parts) {
  FIO_PATH once = simplified_copy(watched, &FIO_PATH::flatten);
  if (parts.directory.empty()) {
    expect_components(once, watched.drive, parts, "a path without a directory stays");
    return;
  }
  if (!is_plain(watched)) {
    return;
  }
  components const expected = reduced(parts, watched.separator);
  expect_components(once, "", expected, "a simplified path");
  once.flatten();
  expect_components(once, "", expected, "a path simplified twice");
}

void check_old_way(watched_path const& watched, components const& parts) {
  bool const was_old = simplifies_the_old_way();
  simplify_the_old_way(true);
  FIO_PATH const old = simplified_copy(watched, &FIO_PATH::become_simplified);
  simplify_the_old_way(was_old);
  std::string const text = composed(watched.drive, parts);
  if (text.size() <= longest_path && is_separator(watched.separator) && is_plain(watched)) {
    expect_components(old, "", reduced(parts, watched.separator), "a path simplified the old way");
  }
}

} // namespace

bool simplifies_the_old_way() { return std::getenv(old_way) != nullptr; }

void simplify_the_old_way(bool old) {
  if (old) {
    ::setenv(old_way, "", 1);
  } else {
    ::unsetenv(old_way);
  }
}

std::string simplified(std::string const& text) {
  FIO_PATH path(text);
  path.flatten();
  return path.fullpath();
}

void check_simplification(watched_path const& watched) {
  components const parts = components_of(watched.path);
  check_flatten(watched, parts);
  check_old_way(watched, parts);
  FIO_PATH const found = simplified_copy(watched, &FIO_PATH::become_simplified);
  if (!simplifies_the_old_way()) {
    FIO_PATH const expected = simplified_copy(watched, &FIO_PATH::flatten);
    expect_components(found, watched.drive, components_of(expected), "the usual simplification");
  }
}

} // namespace fuzz
