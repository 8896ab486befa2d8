#include "tests/fuzz/support/relations.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "tests/fuzz/support/check.h"
#include "tests/fuzz/support/debug_channel.h"
#include "tests/fuzz/support/simplification.h"

namespace fuzz {

namespace {

// Whether the path of the text is the same path, so that it does not matter that left operands are read from theirs.
bool reads_back(watched_path const& watched) {
  components const stored = components_of(watched.path);
  components const read = components_of(FIO_PATH(watched.path.fullpath()));
  return watched.separator == '/' && watched.drive.empty() && stored.directory == read.directory &&
         stored.base == read.base && stored.extension == read.extension;
}

// The order of two paths, which are simplified and anchored for it: below 0, 0 or above.
int order_of(FIO_PATH left, FIO_PATH right) {
  left.become_simplified();
  right.become_simplified();
  left.become_absolute("");
  right.become_absolute("");
  return std::strcmp(left.fullpath().c_str(), right.fullpath().c_str());
}

// Holds one form of the comparisons against the same right operand as a path.
template <typename Right>
void check_against(FIO_PATH const& path, Right const& right, FIO_PATH const& right_path) {
  FIO_PATH const left_path(path.fullpath());
  int const order = order_of(left_path, right_path);
  // As C-strings: a NUL may have been set into a name.
  bool const same_name = std::strcmp(left_path.filename().c_str(), right_path.filename().c_str()) == 0;
  bool const equal = same_name && order == 0;
  std::string const subject = path.fullpath() + '\n' + right_path.fullpath();
  expect((path == right) == equal, equal ? "these are equal" : "these are not equal", subject);
  expect((path != right) != equal, "!= is the opposite of ==", subject);
  expect((path < right) == (order < 0), order < 0 ? "the first is less" : "the first is not less", subject);
}

// What follows for texts, whatever the paths are.
void check_order_of_texts(FIO_PATH const& left, FIO_PATH const& right) {
  std::string const left_text = left.fullpath();
  std::string const right_text = right.fullpath();
  expect(left == left_text && !(left != left_text) && !(left < left_text), "a path equals its text", left_text);
  bool const less = left < right_text;
  bool const greater = right < left_text;
  std::string const subject = left_text + '\n' + right_text;
  expect(!(less && greater), "two texts are not less than each other", subject);
  expect(!(left == right_text && (less || greater)), "equal texts have no order", subject);
  expect((left == right_text) == (right == left_text), "two texts are equal both ways", subject);
}

// The levels of `self` from `reference` on, behind as many steps up as lead out of the rest of that.
std::string expected_relative_form(std::string const& text, FIO_PATH const& self, FIO_PATH const& reference,
                                   char separator) {
  std::vector<std::string> const own = levels_of(self.get_path_components(FIO_PATH::DIRECTORY), '/');
  std::vector<std::string> const other = levels_of(reference.get_path_components(FIO_PATH::DIRECTORY), '/');
  if (!self.absolute() || !reference.absolute() || own.empty() || other.empty() || own[0] != other[0]) {
    return text;
  }
  auto const [first_own, first_other] = std::mismatch(own.begin(), own.end(), other.begin(), other.end());
  std::string result;
  std::for_each(first_other, other.end(),
                [&](std::string const& /*level*/) { result += std::string("..") + separator; });
  std::for_each(first_own, own.end(), [&](std::string const& level) { result += level + '/'; });
  return result + self.get_path_components(FIO_PATH::BASE | FIO_PATH::EXTENSION);
}

} // namespace

void check_comparison(watched_path const& left, watched_path const& right, std::string const& text) {
  check_against(left.path, right.path, right.path);
  check_against(left.path, text, FIO_PATH(text));
  check_order_of_texts(left.path, right.path);
  check_order_of_texts(left.path, FIO_PATH(text));
  if (reads_back(left)) {
    expect(left.path == left.path && !(left.path != left.path) && !(left.path < left.path), "a path equals itself",
           left.path.fullpath());
  }
  std::string const left_text = left.path.fullpath();
  std::string const right_text = right.path.fullpath();
  int const found = FIO_PATH::os_specific_comparison(left_text.c_str(), right_text.c_str());
  int const expected = std::strcmp(left_text.c_str(), right_text.c_str());
  expect((found < 0) == (expected < 0) && (found > 0) == (expected > 0), "names compare as characters",
         left_text + '\n' + right_text);
}

void check_relative_form(watched_path const& watched, std::string const& directory) {
  std::string const text = watched.path.fullpath();
  std::string const reference = stored_directory(directory, watched.separator);
  take_debug_messages();
  std::string const found = watched.path.get_relative_to(directory);
  expect(take_debug_messages().empty(), "a relative form writes no message", text);
  expect_equal(found, expected_relative_form(text, FIO_PATH(text), FIO_PATH(reference), watched.separator),
               "the relative form");
  bool const is_relative = found != text && watched.separator == '/';
  if (is_relative && reference.size() + found.size() <= longest_path && simplified(text) == text &&
      simplified(reference) == reference) {
    expect_equal(simplified(reference + found), text, "where the relative form leads");
  }
}

} // namespace fuzz
