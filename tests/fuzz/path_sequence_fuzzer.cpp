/// @file
/// Sequences of operations on a few paths. After each one the components are what the operation says, and the path is
/// in order.
///
/// The first line of an input tells which way of simplification is in force ("o" for the old one), and each other line
/// is an operation: its letter, the number of a path, and a text. A tab divides the text of an operation that takes
/// two.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <utility>

#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_path.h"
#include "tests/fuzz/support/check.h"
#include "tests/fuzz/support/debug_channel.h"
#include "tests/fuzz/support/input.h"
#include "tests/fuzz/support/relations.h"
#include "tests/fuzz/support/simplification.h"
#include "tests/fuzz/support/target.h"
#include "tests/fuzz/support/watched_path.h"

namespace {

using fuzz::components;
using fuzz::watched_path;

using paths = std::array<std::unique_ptr<watched_path>, 3>;

// What one operation works on.
struct operands {
  watched_path& subject;
  std::unique_ptr<watched_path>& neighbour;
  std::string text;
};

// A type from some characters, the wildcard and values of no row among them.
FIO_EXTENSION_TYPE type_of(std::string const& text) {
  int value = text.empty() ? 0 : static_cast<std::uint8_t>(text[0]);
  value += text.size() > 1 ? static_cast<std::uint8_t>(text[1]) : 0;
  return static_cast<FIO_EXTENSION_TYPE>(value - 1);
}

// Dividing a text

void expect_divided(watched_path& subject, std::string const& text) {
  std::string const whole = text.c_str();
  components expected = fuzz::divided(whole);
  expected.directory = fuzz::stored_directory(expected.directory, subject.separator);
  subject.drive.clear();
  subject.has_own_directory = true;
  subject.legal = whole.empty() ? subject.legal : whole.size() <= fuzz::longest_path;
  fuzz::expect_components(subject.path, "", expected, "a text that was divided");
  std::string const made = subject.path.fullpath();
  if (made.size() <= fuzz::longest_path && subject.separator != '\0') {
    FIO_PATH again;
    again.path_separator(subject.separator);
    again.split_full_path(made.c_str());
    fuzz::expect_components(again, "", expected, "the text of a path that was divided anew");
  }
}

void assign_string(operands& given) {
  given.subject.path = given.text;
  expect_divided(given.subject, given.text);
}

void assign_characters(operands& given) {
  given.subject.path = given.text.empty() ? nullptr : given.text.c_str();
  expect_divided(given.subject, given.text);
}

void split(operands& given) {
  given.subject.path.split_full_path(given.text.c_str());
  expect_divided(given.subject, given.text);
}

void split_own_text(operands& given) {
  std::string const text = given.subject.path.fullpath();
  given.subject.path.split_full_path(given.subject.path);
  expect_divided(given.subject, text);
}

// Making and assigning

void construct_from_text(operands& given) {
  given.neighbour.reset(new watched_path{FIO_PATH(given.text), {}});
  expect_divided(*given.neighbour, given.text);
}

void construct_joined(operands& given) {
  std::string name = given.text;
  std::string const directory = fuzz::cut_front(name, '\t');
  given.neighbour.reset(new watched_path{FIO_PATH(directory, name), {}});
  name = fuzz::synchronised(name, '/');
  std::size_t const dot = std::min(name.rfind('.'), name.size());
  fuzz::expect_components(given.neighbour->path, "",
                          {fuzz::stored_directory(directory, '/'), name.substr(0, dot), name.substr(dot)},
                          "a directory and a name joined");
}

void construct_copy(operands& given) {
  given.neighbour = std::make_unique<watched_path>(given.subject);
  fuzz::expect_components(given.neighbour->path, given.subject.drive, fuzz::components_of(given.subject.path),
                          "a constructed copy");
}

void construct_by_move(operands& given) {
  components const before = fuzz::components_of(given.subject.path);
  given.neighbour = std::make_unique<watched_path>(std::move(given.subject));
  given.subject.drive.clear();
  given.subject.legal = false;
  fuzz::expect_components(given.neighbour->path, given.neighbour->drive, before, "a path that was moved");
  fuzz::expect_components(given.subject.path, "", {}, "a path that was moved from");
}

// What an assignment from another path leaves of the hidden state.
void expect_assigned(watched_path& target, std::string const& drive, components const& expected) {
  target.drive = drive;
  target.separator = '/';
  target.legal = true;
  target.has_own_directory = fuzz::stored_directory(expected.directory, '/') == expected.directory;
  fuzz::expect_components(target.path, drive, expected, "an assigned path");
}

void assign_copy(operands& given) {
  given.neighbour->path = given.subject.path;
  expect_assigned(*given.neighbour, given.subject.drive, fuzz::components_of(given.subject.path));
}

void assign_by_move(operands& given) {
  components const before = fuzz::components_of(given.subject.path);
  given.neighbour->path = std::move(given.subject.path);
  expect_assigned(*given.neighbour, std::exchange(given.subject.drive, {}), before);
  given.subject.legal = false;
  fuzz::expect_components(given.subject.path, "", {}, "a path that was assigned from");
}

void assign_itself(operands& given) {
  components const before = fuzz::components_of(given.subject.path);
  FIO_PATH& same = given.subject.path;
  given.subject.path = same;
  given.subject.path = std::move(same);
  fuzz::expect_components(given.subject.path, given.subject.drive, before, "a path assigned to itself");
}

// Setting components

void set_directory(operands& given) {
  components expected = fuzz::components_of(given.subject.path);
  expected.directory = fuzz::stored_directory(given.text, given.subject.separator);
  given.subject.path.directory(given.text);
  given.subject.has_own_directory = true;
  fuzz::expect_components(given.subject.path, given.subject.drive, expected, "directory");
}

void set_base(operands& given) {
  components expected = fuzz::components_of(given.subject.path);
  expected.base = given.text;
  given.subject.path.base(given.text);
  fuzz::expect_components(given.subject.path, given.subject.drive, expected, "base");
}

void set_filename(operands& given) {
  watched_path& subject = given.subject;
  components expected = fuzz::components_of(subject.path);
  components const parts = fuzz::divided(given.text);
  if (!parts.directory.empty()) {
    // One more separator between the two is dropped when they are stored.
    expected.directory += (expected.directory.empty() ? "" : std::string(1, subject.separator)) + parts.directory;
    expected.directory = fuzz::stored_directory(expected.directory, subject.separator);
    subject.has_own_directory = true;
  }
  expected.base = parts.base;
  expected.extension = parts.extension;
  if (!given.text.empty()) {
    std::size_t const length = std::string(given.text.c_str()).size();
    subject.legal = length != 0 && length <= fuzz::longest_path;
  }
  subject.path.filename(given.text);
  fuzz::expect_components(subject.path, subject.drive, expected, "filename");
}

void set_tail(operands& given) {
  char const separator = given.subject.separator;
  components expected = fuzz::components_of(given.subject.path);
  if (!given.text.empty()) {
    std::string& directory = expected.directory;
    if (!directory.empty() && directory.back() == separator) {
      directory.pop_back();
    }
    std::size_t const last = directory.rfind(separator);
    directory.resize(last == std::string::npos ? directory.size() : last + 1);
    directory = fuzz::stored_directory(directory + given.text, separator);
    given.subject.has_own_directory = true;
  }
  given.subject.path.tail(given.text);
  fuzz::expect_components(given.subject.path, given.subject.drive, expected, "tail");
}

void set_drive_letter(operands& given) {
  char const letter = given.text.empty() ? 'C' : given.text[0];
  components const before = fuzz::components_of(given.subject.path);
  given.subject.drive = {letter, ':'};
  given.subject.path.drive(letter);
  fuzz::expect_components(given.subject.path, given.subject.drive, before, "drive by letter");
}

void set_drive(operands& given) {
  components const before = fuzz::components_of(given.subject.path);
  given.subject.drive = given.text.empty() ? "" : given.text.substr(0, 1) + ':';
  given.subject.path.drive(given.text);
  fuzz::expect_components(given.subject.path, given.subject.drive, before, "drive by text");
}

void remove_extension(operands& given) {
  components expected = fuzz::components_of(given.subject.path);
  expected.extension.clear();
  given.subject.path.no_extension();
  fuzz::expect_components(given.subject.path, given.subject.drive, expected, "no_extension");
}

std::string extension_part(std::string const& text) { return text.empty() || text.front() == '.' ? text : '.' + text; }

std::string extension_part(FIO_EXTENSION_TYPE type) { return fio_get_extension_string(type); }

bool is_absent(std::string const& text) { return text.empty(); }

bool is_absent(FIO_EXTENSION_TYPE type) { return type == FIO_EXTENSION_TYPE_ANY; }

template <typename First, typename Second>
void set_extension(operands& given, First const& first, Second const& second) {
  components expected = fuzz::components_of(given.subject.path);
  expected.extension =
      is_absent(first) ? "" : extension_part(first) + (is_absent(second) ? "" : extension_part(second));
  given.subject.path.extension(first, second);
  fuzz::expect_components(given.subject.path, given.subject.drive, expected, "extension");
}

void set_extension(operands& given) {
  std::string second = given.text;
  std::string const first = fuzz::cut_front(second, '\t');
  set_extension(given, first, second);
}

void set_extension_of_types(operands& given) {
  std::string second = given.text;
  std::string const first = fuzz::cut_front(second, '\t');
  set_extension(given, type_of(first), type_of(second));
  set_extension(given, type_of(first), second);
  set_extension(given, first, type_of(second));
}

void make_path(operands& given) {
  watched_path& subject = given.subject;
  int const component = given.text.empty() ? 0 : given.text[0] % 16;
  std::string const value = given.text.substr(given.text.empty() ? 0 : 1);
  components expected = fuzz::components_of(subject.path);
  switch (component) {
  case FIO_PATH::DRIVE:
    subject.drive = value.empty() ? "" : value.substr(0, 1) + ':';
    break;
  case FIO_PATH::DIRECTORY:
    expected.directory = fuzz::stored_directory(value, subject.separator);
    subject.has_own_directory = true;
    break;
  case FIO_PATH::BASE:
    expected.base = value;
    break;
  case FIO_PATH::EXTENSION:
    expected.extension = value;
    break;
  default:
    break;
  }
  subject.path.make_path(static_cast<FIO_PATH::FILE_COMPONENTS>(component), value);
  fuzz::expect_components(subject.path, subject.drive, expected, "make_path");
}

void set_separator(operands& given) {
  watched_path& subject = given.subject;
  char const separator = given.text.empty() ? '\\' : given.text[0];
  components expected = fuzz::components_of(subject.path);
  std::replace(expected.directory.begin(), expected.directory.end(), subject.separator, separator);
  expected.directory = fuzz::stored_directory(expected.directory, separator);
  subject.path.path_separator(separator);
  subject.separator = separator;
  subject.has_own_directory = true;
  fuzz::expect_components(subject.path, subject.drive, expected, "path_separator");
}

void synchronise(operands& given) {
  fuzz::expect_equal(given.subject.path.sync_path_separators(given.text),
                     fuzz::synchronised(given.text, given.subject.separator), "sync_path_separators");
  std::string untouched = "untouched";
  fuzz::expect(!FIO_PATH::is_unc_path(given.text) && !FIO_PATH::is_unc_path(given.text.c_str()) &&
                   !FIO_PATH::convert_unc_to_path_with_drive(given.text.c_str(), untouched) &&
                   !FIO_PATH::convert_path_with_drive_to_unc(given.text.c_str(), untouched) && untouched == "untouched",
               "there are no network paths", given.text);
  std::string const name = given.text.c_str();
  fuzz::expect(FIO_PATH::is_dot_directory(given.text) == (name == "." || name == ".."), "is_dot_directory", name);
}

// Simplification and location

void flatten(operands& given) {
  fuzz::check_simplification(given.subject);
  given.subject.has_own_directory = true;
  given.subject.path.flatten();
}

void become_simplified(operands& given) {
  fuzz::check_simplification(given.subject);
  given.subject.has_own_directory = true;
  given.subject.path.become_simplified();
}

void change_directory(operands& given) {
  watched_path& subject = given.subject;
  std::string target = fuzz::synchronised(given.text, subject.separator);
  FIO_PATH expected(subject.path);
  if (!target.empty()) {
    std::string current = subject.path.get_path_components(FIO_PATH::DIRECTORY);
    if (!current.empty() && current.back() != subject.separator) {
      current += subject.separator;
    }
    if (target.front() != subject.separator) {
      target.insert(0, current);
    }
    expected.make_path(FIO_PATH::DIRECTORY, target);
    expected.become_simplified();
    subject.has_own_directory = true;
  }
  fuzz::take_debug_messages();
  subject.path.cd(given.text);
  std::size_t const messages = fuzz::take_debug_messages().size();
  fuzz::expect_components(subject.path, subject.drive, fuzz::components_of(expected), "cd");
  bool const is_told = !target.empty() && subject.path.fullpath().size() > fuzz::longest_path;
  fuzz::expect_equal(static_cast<long>(messages), is_told ? 1 : 0, "the messages of cd");
}

void become_absolute(operands& given) {
  watched_path& subject = given.subject;
  FIO_PATH expected(subject.path);
  if (!subject.path.absolute()) {
    FIO_PATH const anchor(given.text.empty() ? FIO_FILE_SYSTEM::get_current_directory() : given.text);
    std::string const joined = anchor.fullpath() + '/' + subject.path.fullpath();
    expected = joined;
    expected.become_simplified();
    subject.drive.clear();
    subject.legal = joined.size() <= fuzz::longest_path;
    subject.has_own_directory = true;
  }
  subject.path.become_absolute(given.text);
  fuzz::expect_components(subject.path, subject.drive, fuzz::components_of(expected), "become_absolute");
}

void compare(operands& given) { fuzz::check_comparison(given.subject, *given.neighbour, given.text); }

void see_from_directory(operands& given) { fuzz::check_relative_form(given.subject, given.text); }

struct operation {
  char letter;
  void (*apply)(operands&);
  bool changes_neighbour = false;
};

constexpr operation operations[] = {
    {'=', assign_string},
    {'0', assign_characters},
    {'/', split},
    {'"', split_own_text},
    {'n', construct_from_text, true},
    {'j', construct_joined, true},
    {'C', construct_copy, true},
    {'M', construct_by_move, true},
    {'c', assign_copy, true},
    {'m', assign_by_move, true},
    {'i', assign_itself},
    {'d', set_directory},
    {'b', set_base},
    {'f', set_filename},
    {'t', set_tail},
    {':', set_drive_letter},
    {'D', set_drive},
    {'X', remove_extension},
    {'x', set_extension},
    {'y', set_extension_of_types},
    {'p', make_path},
    {'|', set_separator},
    {'u', synchronise},
    {'F', flatten},
    {'s', become_simplified},
    {'>', change_directory},
    {'a', become_absolute},
    {'<', compare},
    {'r', see_from_directory},
};

void apply_line(std::string const& line, paths& all) {
  auto const* const chosen =
      std::find_if(std::begin(operations), std::end(operations),
                   [&line](operation const& candidate) { return !line.empty() && candidate.letter == line[0]; });
  if (chosen == std::end(operations)) {
    return;
  }
  std::size_t const which = line.size() > 1 ? static_cast<std::uint8_t>(line[1]) % all.size() : 0;
  std::unique_ptr<watched_path>& neighbour = all[(which + 1) % all.size()];
  operands given{*all[which], neighbour, fuzz::expanded(line.substr(std::min<std::size_t>(line.size(), 2)))};
  chosen->apply(given);
  fuzz::check_invariants(given.subject);
  if (chosen->changes_neighbour) {
    fuzz::check_invariants(*neighbour);
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  constexpr int most_operations = 25;
  fuzz::input input(data, size);
  fuzz::simplify_the_old_way(input.line() == "o");
  paths all;
  std::generate(all.begin(), all.end(), [] { return std::make_unique<watched_path>(); });
  for (int i = 0; i != most_operations && !input.at_end(); ++i) {
    apply_line(input.line(), all);
  }
  return 0;
}
