// Comparing paths by the places that they name: the six operators, and the platform's comparison of names.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "ccl/fio/fio_path.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/calls.h"
#include "tests/support/current_directory.h"
#include "tests/support/ever_more_memory.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

using std::string_literals::operator""s;
using texts = std::vector<std::string>;

char const* const current_directory = "/w/x";

class path_comparison : public fio_test {
protected:
  void SetUp() override {
    fio_test::SetUp();
    pretend_current_directory(current_directory);
  }
};

// Runs `check` under the algorithm of simplification in use, and under the older one, selected in two ways.
template <typename Check>
void under_each_simplification(Check check) {
  for (char const* const variable : {static_cast<char const*>(nullptr), "", "1"}) {
    SCOPED_TRACE(variable == nullptr ? "new simplification"s : "old simplification, by '"s + variable + "'");
    variable == nullptr ? ::unsetenv("fio_old_simplify") : ::setenv("fio_old_simplify", variable, 1);
    check(variable != nullptr);
  }
  ::unsetenv("fio_old_simplify");
}

// What the operators answer: whether the operands are equal, and how they are ordered: '<', '>', or '=' for neither.
struct outcome {
  bool equal;
  char order;
};

outcome turned(outcome const& given) {
  return {given.equal, given.order == '<' ? '>' : given.order == '>' ? '<' : '='};
}

// One direction only: the operand on the right may not be of the kind that the left one is.
template <typename Right>
void expect_comparison(FIO_PATH const& left, Right const& right, outcome const& expected) {
  EXPECT_EQ(left == right, expected.equal);
  EXPECT_EQ(left != right, !expected.equal);
  EXPECT_EQ(left < right, expected.order == '<');
}

struct comparison_row {
  std::string left;
  std::string right;
  outcome expected;

  std::string name() const { return "'" + left + "' and '" + right + "'"; }
};

// Both directions, and both kinds of right operand.
void expect_row(comparison_row const& row) {
  SCOPED_TRACE(row.name());
  expect_comparison(FIO_PATH(row.left), FIO_PATH(row.right), row.expected);
  expect_comparison(FIO_PATH(row.left), row.right, row.expected);
  expect_comparison(FIO_PATH(row.right), FIO_PATH(row.left), turned(row.expected));
  expect_comparison(FIO_PATH(row.right), row.left, turned(row.expected));
}

// With the current directory "/w/x", and with either simplification.
comparison_row const comparisons[] = {
    {"a/b", "/w/x/a/b", {true, '='}},
    {"./a", "a", {true, '='}},
    {"/a/./b", "/a/b", {true, '='}},
    {"/a/b/../c", "/a/c", {true, '='}},
    {"", "/w/x/", {true, '='}},
    {"/a/b/.", "/a/b/", {false, '='}},
    {"a/b.", "a/b", {false, '='}},
    {".", "./", {false, '='}},
    {"..", ".", {false, '='}},
    {"/a/b/..", "/a/", {false, '>'}},
    {"/a/", "/a", {false, '>'}},
    {"/A", "/a", {false, '<'}},
    {"/a/b", "/a/c", {false, '<'}},
    // the same text
    {"", "", {true, '='}},
    {"a", "a", {true, '='}},
    {"/", "/", {true, '='}},
    {"a/b/c.d", "a/b/c.d", {true, '='}},
    {".", ".", {true, '='}},
    {"a/..", "a/..", {true, '='}},
    {"/w/x", "/w/x", {true, '='}},
    // relative ones stand in the current directory
    {"a", "/w/x/a", {true, '='}},
    {"a/", "/w/x/a/", {true, '='}},
    {"a", "/w/a", {false, '>'}},
    {"a", "/a", {false, '>'}},
    {"a", "b", {false, '<'}},
    {"../a", "/w/a", {true, '='}},
    {"../../a", "/a", {true, '='}},
    {"../../../a", "/a", {true, '='}},
    {"../", "/w/", {true, '='}},
    {"../x/", "", {true, '='}},
    {"../x/a", "a", {true, '='}},
    {"", "/w/x", {false, '>'}},
    {"", "/", {false, '>'}},
    {"./", "", {true, '='}},
    // dots between
    {"a/./b/../c", "a/c", {true, '='}},
    {"a/../", "", {true, '='}},
    {"a/../b", "b", {true, '='}},
    {"a/../../b", "../b", {true, '='}},
    {"/../", "/", {true, '='}},
    {"/../a", "/a", {true, '='}},
    {"/a/../../b", "/b", {true, '='}},
    // a directory and a file name
    {"a/b/", "a/b", {false, '>'}},
    {"/w/x/", "/w/x", {false, '>'}},
    // names that differ before the simplification, and no more behind it
    {".", "", {false, '='}},
    {"..", "", {false, '='}},
    {"..", "/w/x/", {false, '='}},
    {"../..", "/w/", {false, '='}},
    {"/..", "/", {false, '='}},
    {"/.", "/..", {false, '='}},
    {"a/..", "a/", {false, '='}},
    {"a/..", "a/.", {false, '='}},
    {"a.", "a", {false, '='}},
    {"..a", ".a", {false, '='}},
    {"a/..b", "a/.b", {false, '='}},
    {"/a/b.", "/a/b", {false, '='}},
    // and names that differ behind it as well
    {"..", "../", {false, '>'}},
    {"a/..", "", {false, '>'}},
    {"/a/b..", "/a/b.", {false, '>'}},
    {"/a/...", "/a/..", {false, '>'}},
    // a relative path with a directory is simplified twice, an absolute one once
    {"a/b.", "/w/x/a/b.", {true, '='}},
    {"a/b..", "/w/x/a/b..", {false, '<'}},
    {"a/b..", "a/b.", {false, '='}},
    {"a/...", "/w/x/a/...", {false, '<'}},
    {"a/...", "a/..", {false, '='}},
    {"a/..b.", "/w/x/a/..b.", {false, '>'}},
    // separators
    {"a//b", "a/b", {true, '='}},
    {"//a///b", "/a/b", {true, '='}},
    {"a\\b", "a/b", {true, '='}},
    {"\\a\\..\\b", "/b", {true, '='}},
    {"a\\", "a/", {true, '='}},
    // no drives here
    {"C:/x", "/w/x/C:/x", {true, '='}},
    {"C:\\x\\..\\y", "C:/y", {true, '='}},
    {"C:/x", "c:/x", {false, '<'}},
    // byte by byte
    {"a", "A", {false, '>'}},
    {"/a/F", "/a/f", {false, '<'}},
    {"/A/f", "/a/f", {false, '<'}},
    {"a", "ab", {false, '<'}},
    {"/a/f", "/b/f", {false, '<'}},
    {"/b/a", "/a/b", {false, '>'}},
    {"f.t", "f.u", {false, '<'}},
    {".a", "a", {false, '<'}},
    {" a", "a", {false, '<'}},
    {"/a/b", "/a-b", {false, '>'}},
    {"/a/b", "/a.b", {false, '>'}},
    {"/a/b", "/a0b", {false, '<'}},
    {"\xff", "a", {false, '>'}},
    {"\x7f", "\x80", {false, '<'}},
    {"/\xff/f", "/z/f", {false, '>'}},
    {"\xc3\xa9", "\xc3\xa9", {true, '='}},
    {"%s%n", "./%s%n", {true, '='}},
};

// Without a directory only the older algorithm simplifies, and so it may do it once more than the other one.
struct {
  char const* left;
  char const* right;
  outcome expected;
  outcome expected_old;
} const comparisons_of_dotted_names[] = {
    {"...", "..", {false, '>'}, {false, '='}},        {"...", "/w/x/...", {true, '='}, {false, '<'}},
    {"b..", "b.", {false, '>'}, {false, '='}},        {"b..", "/w/x/b..", {true, '='}, {false, '<'}},
    {"..a.", "/w/x/..a.", {true, '='}, {false, '>'}}, {"b.", "/w/x/b.", {true, '='}, {true, '='}},
    {"..a", "/w/x/..a", {true, '='}, {true, '='}},
};

// Every text of at most `size` characters.
texts all_texts(std::string const& alphabet, std::size_t size) {
  texts result{""};
  for (std::size_t first = 0; result[first].size() != size; ++first) {
    for (char const character : alphabet) {
      result.push_back(result[first] + character);
    }
  }
  return result;
}

std::string anchored(std::string const& text) {
  FIO_PATH path(text);
  path.become_simplified();
  path.become_absolute("");
  return path.fullpath();
}

// Everything that can be seen of a path.
struct view {
  std::string text;
  std::string directory;
  std::string base;
  std::string extension;
  std::string joined_directory; // it has the path's separator
  bool is_legal_length;
};

view view_of(FIO_PATH const& path) {
  return {path.fullpath(),       path.directory(), path.base(), path.extension(), path.sync_path_separators("x/y\\z"),
          path.is_legal_length()};
}

void expect_same(view const& now, view const& before) {
  EXPECT_EQ(now.text, before.text);
  EXPECT_EQ(now.directory, before.directory);
  EXPECT_EQ(now.base, before.base);
  EXPECT_EQ(now.extension, before.extension);
  EXPECT_EQ(now.joined_directory, before.joined_directory);
  EXPECT_EQ(now.is_legal_length, before.is_legal_length);
}

FIO_PATH with_drive(char const* text) {
  FIO_PATH path(text);
  path.drive('C');
  return path;
}

// A path that edits made; no length is looked at.
FIO_PATH edited(std::string const& directory, std::string const& name) {
  FIO_PATH path;
  path.directory(directory).base(name);
  return path;
}

std::string const long_name = repeated(1100, 'd');
std::string const other_long_name = repeated(1200, 'e');

// The messages while `operation` runs, shortened to the path that each complains of.
template <typename Operation>
texts complaints_of(Operation operation, texts const& paths) {
  platform_double::debug_messages().clear();
  operation();
  texts complaints;
  for (platform_double::debug_message const& message : platform_double::debug_messages()) {
    auto const found = std::find_if(paths.begin(), paths.end(), [&message](std::string const& path) {
      return message.module == "FIO" && message.text == length_message(path);
    });
    complaints.push_back(found != paths.end() ? *found : "other: " + message.text);
  }
  return complaints;
}

texts const no_reads;
texts const two_reads{"osi_getcwd(1024)", "osi_getcwd(1024)"};

// Whether a path has a member, or a function beside it, for another relation, or a member for C-strings.

template <typename Path, typename = void>
constexpr bool has_function_beside_it = false;
template <typename Path>
constexpr bool
    has_function_beside_it<Path, std::void_t<decltype(operator>(std::declval<Path>(), std::declval<Path>())),
                                             decltype(operator<=(std::declval<Path>(), std::declval<Path>())),
                                             decltype(operator>=(std::declval<Path>(), std::declval<Path>()))>> = true;

template <typename Path, typename = void>
constexpr bool compares_with_c_strings = false;
template <typename Path>
constexpr bool
    compares_with_c_strings<Path, std::void_t<decltype(std::declval<Path>().operator==(std::declval<char const*>()))>> =
        true;

template <typename Path, typename Right, typename = void>
constexpr bool has_greater = false;
template <typename Path, typename Right>
constexpr bool has_greater<Path, Right, std::void_t<decltype(std::declval<Path>().operator>(std::declval<Right>()))>> =
    true;

template <typename Path, typename Right, typename = void>
constexpr bool has_at_most = false;
template <typename Path, typename Right>
constexpr bool has_at_most<Path, Right, std::void_t<decltype(std::declval<Path>().operator<=(std::declval<Right>()))>> =
    true;

template <typename Path, typename Right, typename = void>
constexpr bool has_at_least = false;
template <typename Path, typename Right>
constexpr bool
    has_at_least<Path, Right, std::void_t<decltype(std::declval<Path>().operator>=(std::declval<Right>()))>> = true;

} // namespace

// The interface

TEST_F(path_comparison, there_are_six_operators) {
  static_assert(has_type<bool (FIO_PATH::*)(FIO_PATH const&) const>(&FIO_PATH::operator==));
  static_assert(has_type<bool (FIO_PATH::*)(std::string const&) const>(&FIO_PATH::operator==));
  static_assert(has_type<bool (FIO_PATH::*)(FIO_PATH const&) const>(&FIO_PATH::operator!=));
  static_assert(has_type<bool (FIO_PATH::*)(std::string const&) const>(&FIO_PATH::operator!=));
  static_assert(has_type<bool (FIO_PATH::*)(FIO_PATH const&) const>(&FIO_PATH::operator<));
  static_assert(has_type<bool (FIO_PATH::*)(std::string const&) const>(&FIO_PATH::operator<));
  static_assert(has_type<int (*)(char const*, char const*)>(&FIO_PATH::os_specific_comparison));

  static_assert(!has_function_beside_it<FIO_PATH const&> && !compares_with_c_strings<FIO_PATH const&>);
  static_assert(!has_greater<FIO_PATH, FIO_PATH> && !has_greater<FIO_PATH, std::string>);
  static_assert(!has_at_most<FIO_PATH, FIO_PATH> && !has_at_most<FIO_PATH, std::string>);
  static_assert(!has_at_least<FIO_PATH, FIO_PATH> && !has_at_least<FIO_PATH, std::string>);
}

TEST_F(path_comparison, names_are_compared_byte_by_byte) {
  struct {
    char const* left;
    char const* right;
    char order;
  } const rows[] = {
      {"", "", '='},      {"a", "a", '='},         {"", "a", '<'},    {"a", "b", '<'},       {"a", "ab", '<'},
      {"A", "a", '<'},    {"B", "a", '<'},         {"ab", "b", '<'},  {"/a/b", "/a/b", '='}, {"/a/", "/a", '>'},
      {"/a", "\\a", '<'}, {"a//b", "a/b", '<'},    {"./a", "a", '<'}, {"\xff", "a", '>'},    {"\x7f", "\x80", '<'},
      {" ", "", '>'},     {"a\xff", "a\x01", '>'}, {"10", "9", '<'},  {"a\0b", "a\0c", '='},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE("'"s + row.left + "' and '" + row.right + "'");
    int const there = FIO_PATH::os_specific_comparison(row.left, row.right);
    int const back = FIO_PATH::os_specific_comparison(row.right, row.left);
    EXPECT_EQ(there < 0 ? '<' : there > 0 ? '>' : '=', row.order);
    EXPECT_EQ(back < 0 ? '>' : back > 0 ? '<' : '=', row.order);
  }
}

// The results

TEST_F(path_comparison, places_are_compared) {
  under_each_simplification([](bool) {
    for (comparison_row const& row : comparisons) {
      expect_row(row);
    }
  });
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_comparison, simplification_in_force_is_the_one_that_compares) {
  under_each_simplification([](bool old) {
    for (auto const& row : comparisons_of_dotted_names) {
      expect_row({row.left, row.right, old ? row.expected_old : row.expected});
    }
  });
}

TEST_F(path_comparison, documented_examples) {
  EXPECT_TRUE(FIO_PATH("a/b") == "/w/x/a/b"s);
  EXPECT_TRUE(FIO_PATH("/a/b/../c") == "/a/c"s);
  EXPECT_TRUE(FIO_PATH("") == "/w/x/"s);

  EXPECT_FALSE(FIO_PATH("/a/") == "/a"s);
  EXPECT_TRUE(FIO_PATH("/a") < "/a/"s);
  EXPECT_FALSE(FIO_PATH("/a/") < "/a"s);

  EXPECT_FALSE(FIO_PATH("/a/b/.") == "/a/b/"s);
  EXPECT_FALSE(FIO_PATH("/a/b/.") < "/a/b/"s);
  EXPECT_FALSE(FIO_PATH("/a/b/") < "/a/b/."s);
}

// Paths with the default separator; the others are another matter, below.
TEST_F(path_comparison, operators_agree_with_each_other) {
  texts const all = all_texts("/.a", 4);
  under_each_simplification([&all](bool) {
    texts places;
    for (std::string const& text : all) {
      places.push_back(anchored(text));
    }
    for (std::size_t i = 0; i != all.size(); ++i) {
      for (std::size_t j = i; j != all.size(); ++j) {
        bool const equal = FIO_PATH(all[i]).filename() == FIO_PATH(all[j]).filename() && places[i] == places[j];
        expect_row({all[i], all[j], {equal, places[i] < places[j] ? '<' : places[j] < places[i] ? '>' : '='}});
      }
    }
  });
}

TEST_F(path_comparison, path_is_equal_to_itself_and_not_less) {
  for (comparison_row const& row : comparisons) {
    SCOPED_TRACE(row.left);
    FIO_PATH const path(row.left);
    expect_comparison(path, path, {true, '='});
    expect_comparison(path, path.fullpath(), {true, '='});
  }
}

TEST_F(path_comparison, real_current_directory_is_the_anchor) {
  platform_double::replaced().osi_getcwd = nullptr;
  m_tree.draw({"here/"});
  std::filesystem::current_path(m_tree.path("here"));
  expect_row({"a/f", m_tree.path("here/a/f"), {true, '='}});
  expect_row({"../f", m_tree.path("f"), {true, '='}});
  expect_row({"", m_tree.path("here/"), {true, '='}});
  expect_row({"", m_tree.path("here"), {false, '>'}});
  expect_row({"f", m_tree.path("f"), {false, m_tree.path("here/f") < m_tree.path("f") ? '<' : '>'}});
}

TEST_F(path_comparison, nothing_is_looked_up_on_the_disk) {
  m_tree.draw({"real/f", "link -> real"});
  texts const calls = calls_of([this] {
    expect_comparison(FIO_PATH(m_tree.path("link/f")), FIO_PATH(m_tree.path("real/f")), {false, '<'});
    expect_comparison(FIO_PATH(m_tree.root() + "/link/../f"), m_tree.path("f"), {true, '='});
    expect_comparison(FIO_PATH("/missing/a/../f"), FIO_PATH("/missing/f"), {true, '='});
  });
  EXPECT_EQ(calls, texts(18, "osi_getcwd(1024)"));
}

// Reading the current directory

TEST_F(path_comparison, different_names_settle_the_matter_before_anything_is_read) {
  struct {
    char const* left;
    char const* right;
  } const rows[] = {
      {"a", "b"},      {"/a", "/b"},   {"/a/", "/a"}, {"/A", "/a"},      {"/a/b/.", "/a/b/"},
      {"a/b.", "a/b"}, {".", "./"},    {"..", "."},   {"", "a"},         {"/a/b/..", "/a/"},
      {"a.b", "a.c"},  {"a.b", "b.b"}, {"a", "a."},   {"a/...", "a/.."}, {"", "/w/x"},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE("'"s + row.left + "' and '" + row.right + "'");
    FIO_PATH const left(row.left);
    FIO_PATH const right(row.right);
    std::string const text(row.right);
    EXPECT_EQ(calls_of([&] { EXPECT_FALSE(left == right); }), no_reads);
    EXPECT_EQ(calls_of([&] { EXPECT_FALSE(left == text); }), no_reads);
    EXPECT_EQ(calls_of([&] { EXPECT_TRUE(left != right); }), no_reads);
    EXPECT_EQ(calls_of([&] { EXPECT_TRUE(left != text); }), no_reads);
    EXPECT_EQ(calls_of([&] { static_cast<void>(left < right); }), two_reads);
    EXPECT_EQ(calls_of([&] { static_cast<void>(left < text); }), two_reads);
  }
}

TEST_F(path_comparison, current_directory_is_read_twice_for_absolute_paths_too) {
  struct {
    char const* left;
    char const* right;
    bool equal;
  } const rows[] = {
      {"a", "a", true}, {"a", "/w/x/a", true}, {"/w/x/a", "a", true}, {"/a", "/a", true}, {"/a", "/b/a", false},
      {"", "", true},   {"/", "/", true},      {"a/f", "b/f", false}, {"..", "..", true}, {"/a/", "/b/", false},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE("'"s + row.left + "' and '" + row.right + "'");
    FIO_PATH const left(row.left);
    FIO_PATH const right(row.right);
    std::string const text(row.right);
    EXPECT_EQ(calls_of([&] { EXPECT_EQ(left == right, row.equal); }), two_reads);
    EXPECT_EQ(calls_of([&] { EXPECT_EQ(left == text, row.equal); }), two_reads);
    EXPECT_EQ(calls_of([&] { EXPECT_EQ(left != right, !row.equal); }), two_reads);
    EXPECT_EQ(calls_of([&] { EXPECT_EQ(left != text, !row.equal); }), two_reads);
    EXPECT_EQ(calls_of([&] { static_cast<void>(left < right); }), two_reads);
    EXPECT_EQ(calls_of([&] { static_cast<void>(left < text); }), two_reads);
  }
}

// The left operand has the first reading, even where it has no use for it.
TEST_F(path_comparison, change_of_the_current_directory_in_between_is_seen) {
  struct {
    char const* left;
    char const* right;
    outcome expected;
  } const rows[] = {
      {"a", "a", {false, '<'}},     {"", "", {false, '<'}},     {"a", "/u/a", {true, '='}},
      {"a", "/v/a", {false, '<'}},  {"/v/a", "a", {true, '='}}, {"/u/a", "a", {false, '<'}},
      {"../v/a", "a", {true, '='}}, {"/a", "/a", {true, '='}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE("'"s + row.left + "' and '" + row.right + "'");
    pretend_current_directories({"/u", "/v", "/u", "/v", "/u", "/v"});
    expect_comparison(FIO_PATH(row.left), FIO_PATH(row.right), row.expected);
    pretend_current_directories({"/u", "/v", "/u", "/v", "/u", "/v"});
    expect_comparison(FIO_PATH(row.left), std::string(row.right), row.expected);
  }
}

TEST_F(path_comparison, nothing_is_remembered_from_one_comparison_to_the_next) {
  FIO_PATH const path("a");
  EXPECT_TRUE(path == "/w/x/a"s);
  pretend_current_directory("/y");
  EXPECT_FALSE(path == "/w/x/a"s);
  EXPECT_TRUE(path == "/y/a"s);
}

TEST_F(path_comparison, relative_paths_stand_in_the_root_without_a_current_directory) {
  pretend_unreadable_current_directory();
  comparison_row const rows[] = {
      {"a", "/a", {true, '='}},    {"a/b", "/a/b", {true, '='}},   {"", "/", {true, '='}}, {"../a", "/a", {true, '='}},
      {"..", "../", {false, '='}}, {"a", "/junk/a", {false, '<'}}, {"", "", {true, '='}},  {"a/", "/a", {false, '>'}},
  };
  under_each_simplification([&rows](bool) {
    for (comparison_row const& row : rows) {
      expect_row(row);
    }
  });
  EXPECT_EQ(messages(), texts());
  EXPECT_EQ(calls_of([] { EXPECT_TRUE(FIO_PATH("a") == "/a"s); }), two_reads);
}

// Operands

TEST_F(path_comparison, operands_are_left_alone) {
  FIO_PATH refused(repeated(1024));
  FIO_PATH named("f");
  named.base("a/b\\c").extension(".d/e", "");
  FIO_PATH const paths[] = {
      FIO_PATH(),
      FIO_PATH("a/../b/./c.d"),
      FIO_PATH("/a/b/.."),
      FIO_PATH("..."),
      with_separator('\\', "/a/../b.c"),
      with_separator('|', "a/./b"),
      assigned_from(with_separator('\\', "a/../b")),
      with_drive("/a/../b"),
      edited("a" + "\0b"s, "c" + "\0d"s),
      edited(long_name + "/..", "f"),
      named,
      refused,
  };
  for (FIO_PATH const& left : paths) {
    for (FIO_PATH const& right : paths) {
      SCOPED_TRACE("'" + left.fullpath() + "' and '" + right.fullpath() + "'");
      view const left_before = view_of(left);
      view const right_before = view_of(right);
      std::string const text = right.fullpath();
      static_cast<void>(left == right || left != right || left < right);
      static_cast<void>(left != right && left == right);
      static_cast<void>(left < right);
      static_cast<void>(left == text);
      static_cast<void>(left != text);
      static_cast<void>(left < text);
      expect_same(view_of(left), left_before);
      expect_same(view_of(right), right_before);
      EXPECT_EQ(text, right.fullpath());
    }
  }
}

TEST_F(path_comparison, takes_no_memory) {
  FIO_PATH const left("a/../" + repeated(50) + "/f");
  FIO_PATH const right(repeated(50) + "/./f");
  std::string const text = right.fullpath();
  struct {
    std::function<bool()> compare;
    bool expected;
  } const rows[] = {
      {[&] { return left == right; }, true},  {[&] { return left == text; }, true},
      {[&] { return left != right; }, false}, {[&] { return left != text; }, false},
      {[&] { return left < right; }, false},  {[&] { return left < text; }, false},
  };
  for (auto const& row : rows) {
    allocation_failure const none(1);
    EXPECT_EQ(row.compare(), row.expected);
    EXPECT_EQ(none.asked_for(), 0);
  }
}

TEST_F(path_comparison, memory_that_runs_out_changes_no_operand) {
  FIO_PATH const left("a/../" + repeated(50) + "/f");
  // Another separator is kept on the right, which takes a copy of the path.
  FIO_PATH right(repeated(50) + "/./f");
  right.path_separator('\\');
  view const left_before = view_of(left);
  view const right_before = view_of(right);
  struct {
    std::function<bool()> compare;
    bool expected;
  } const rows[] = {
      {[&] { return left == right; }, false},
      {[&] { return left != right; }, true},
      {[&] { return left < right; }, true},
  };
  for (auto const& row : rows) {
    bool answer = !row.expected;
    int const failed = with_ever_more_memory([&] { answer = row.compare(); },
                                             [&](bool succeeded) {
                                               EXPECT_EQ(answer == row.expected, succeeded);
                                               expect_same(view_of(left), left_before);
                                               expect_same(view_of(right), right_before);
                                             });
    EXPECT_GT(failed, 1);
  }
}

TEST_F(path_comparison, text_ends_at_its_first_nul) {
  struct {
    char const* left;
    std::string right;
    outcome expected;
  } const rows[] = {
      {"a", "a\0b"s, {true, '='}},
      {"a", "a\0"s, {true, '='}},
      {"/a/b", "/a/./b\0/../c"s, {true, '='}},
      {"", "\0a"s, {true, '='}},
      {"a", "\0a"s, {false, '>'}},
      {"/a/", "/a/\0b"s, {true, '='}},
      {"a.b", "a\0.b"s, {false, '>'}},
      {"/a", "/a\0/"s, {true, '='}},
      {"/w/x/", "\0"s, {true, '='}},
      {"/a", "/" + repeated(1022) + "\0"s, {false, '<'}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE("'"s + row.left + "' and '" + row.right + "'");
    expect_comparison(FIO_PATH(row.left), row.right, row.expected);
    expect_comparison(FIO_PATH(row.left), FIO_PATH(row.right), row.expected);
  }
  // The text is legal up to there, however much stands behind.
  EXPECT_TRUE(FIO_PATH("a") == "a\0"s + repeated(2000));
}

TEST_F(path_comparison, components_end_at_their_first_nul) {
  under_each_simplification([](bool) {
    FIO_PATH const named = edited("d", "f\0x"s);
    expect_comparison(FIO_PATH("d/f"), named, {true, '='});
    expect_comparison(named, FIO_PATH("d/f"), {true, '='});
    expect_comparison(named, edited("d", "f\0y"s), {true, '='});
    // The name ends there as a whole, and its extension with it, but the text goes on behind it.
    FIO_PATH extended = named;
    extended.extension("e", "");
    ASSERT_EQ(extended.fullpath(), "d/f.e");
    expect_comparison(FIO_PATH("d/f.e"), extended, {false, '='});
    expect_comparison(FIO_PATH("d/f"), extended, {false, '<'});
    expect_comparison(extended, extended, {false, '='});
    FIO_PATH const located = edited("d\0e"s, "f");
    expect_comparison(FIO_PATH("d/f"), located, {true, '='});
    expect_comparison(located, FIO_PATH("d/f"), {true, '='});
  });
}

// Separators

TEST_F(path_comparison, right_operand_keeps_its_separator) {
  struct {
    char separator;
    char const* text;
    outcome expected;        // the path of the text on the left, the one with the separator on the right
    outcome expected_turned; // the other way round
  } const rows[] = {
      {'\\', "/a/b", {false, '<'}, {true, '='}},
      {'\\', "a/b", {false, '<'}, {true, '='}},
      {'\\', "/a/../b/c.d", {false, '<'}, {true, '='}},
      {'\\', "f", {false, '<'}, {true, '='}},
      {'\\', "/f", {false, '<'}, {true, '='}},
      {'\\', "a/", {false, '<'}, {true, '='}},
      {'\\', "", {false, '<'}, {true, '='}},
      {'\\', "/", {false, '<'}, {true, '='}},
      // no separator of the default kind at all: the text of the left copy is relative
      {'|', "/a/b", {false, '<'}, {false, '>'}},
      {'|', "/", {false, '<'}, {false, '>'}},
      {'|', "a/b", {false, '<'}, {false, '>'}},
      {'|', "f", {false, '<'}, {true, '='}},
      {'|', "", {false, '<'}, {true, '='}},
      {'/', "/a/b", {true, '='}, {true, '='}},
  };
  under_each_simplification([&rows](bool) {
    for (auto const& row : rows) {
      SCOPED_TRACE("'"s + row.text + "' with the separator " + row.separator);
      FIO_PATH const path = with_separator(row.separator, row.text);
      expect_comparison(FIO_PATH(row.text), path, row.expected);
      expect_comparison(path, FIO_PATH(row.text), row.expected_turned);
      expect_comparison(path, std::string(row.text), row.expected_turned);
    }
  });
}

TEST_F(path_comparison, right_text_is_divided_whatever_its_separators) {
  expect_comparison(FIO_PATH("/a/b"), "\\a\\b"s, {true, '='});
  expect_comparison(with_separator('\\', "/a/b"), "\\a\\b"s, {true, '='});
  expect_comparison(with_separator('\\', "/a/b"), "/a/b"s, {true, '='});
  expect_comparison(with_separator('|', "a/b"), "a|b"s, {false, '<'});
  expect_comparison(with_separator('|', "a/b"), "a|/b"s, {true, '='});
}

TEST_F(path_comparison, path_with_backslashes_is_not_equal_to_itself) {
  for (char const* const text : {"/a/b", "a/b", "f", ""}) {
    SCOPED_TRACE(text);
    FIO_PATH const path = with_separator('\\', text);
    expect_comparison(path, path, {false, '<'});
    expect_comparison(path, path.fullpath(), {true, '='});
  }
}

// The right copy has the separator `/` then, and other ones in its directory, which the newer simplification takes for
// part of a name and the older one for what they are.
TEST_F(path_comparison, assigned_path_keeps_its_text_on_the_right) {
  under_each_simplification([](bool old) {
    FIO_PATH const relative = assigned_from(with_separator('\\', "a/b"));
    expect_comparison(FIO_PATH("a/b"), relative, old ? outcome{true, '='} : outcome{false, '<'});
    expect_comparison(relative, FIO_PATH("a/b"), {true, '='});
    expect_comparison(FIO_PATH("a/b/b"), relative, old ? outcome{false, '>'} : outcome{true, '='});
    FIO_PATH const absolute = assigned_from(with_separator('\\', "/a/b"));
    expect_comparison(FIO_PATH("/w/x/a/b"), absolute, old ? outcome{true, '='} : outcome{false, '>'});
    expect_comparison(FIO_PATH("/a/b/b"), absolute, old ? outcome{false, '<'} : outcome{true, '='});
    expect_comparison(absolute, FIO_PATH("/a/b"), {true, '='});
  });
}

// What edits made

TEST_F(path_comparison, drive_of_the_left_operand_is_text_and_that_of_the_right_one_comes_twice) {
  FIO_PATH const absolute = with_drive("/a/b");
  FIO_PATH const relative = with_drive("a/b");
  FIO_PATH const bare = with_drive("f");
  under_each_simplification([&](bool) {
    expect_comparison(absolute, "C:/a/b"s, {true, '='});
    expect_comparison(absolute, FIO_PATH("/w/x/C:/a/b"), {true, '='});
    expect_comparison(absolute, absolute, {false, '<'});
    expect_comparison(FIO_PATH("/a/b"), absolute, {false, '<'});
    expect_comparison(FIO_PATH("/C:/a/b"), absolute, {false, '<'});
    expect_comparison(FIO_PATH("C:/a/b"), absolute, {false, '<'});

    expect_comparison(relative, "C:a/b"s, {true, '='});
    expect_comparison(relative, relative, {false, '>'});
    expect_comparison(FIO_PATH("C:C:a/b"), relative, {true, '='});
    expect_comparison(FIO_PATH("a/b"), relative, {false, '>'});

    // Only the text has the drive, not the name.
    expect_comparison(bare, "C:f"s, {true, '='});
    expect_comparison(bare, bare, {false, '='});
    expect_comparison(FIO_PATH("C:f"), bare, {false, '='});
    expect_comparison(FIO_PATH("f"), bare, {false, '>'});
  });
  EXPECT_EQ(calls_of([&] { EXPECT_FALSE(bare == bare); }), no_reads);
  EXPECT_EQ(calls_of([&] { EXPECT_FALSE(FIO_PATH("f") == bare); }), two_reads);
}

// The left operand is divided anew, the right one is as its setters left it.
TEST_F(path_comparison, name_with_a_separator_is_divided_on_the_left_only) {
  FIO_PATH const named = edited("", "x/y");
  expect_comparison(named, "x/y"s, {true, '='});
  expect_comparison(named, named, {false, '='});
  expect_comparison(FIO_PATH("x/y"), named, {false, '='});
  EXPECT_EQ(calls_of([&] { EXPECT_TRUE(named != named); }), no_reads);

  FIO_PATH const joined("a", "sub.d/f");
  expect_comparison(joined, "a/sub.d/f"s, {true, '='});
  EXPECT_FALSE(joined == joined);
}

TEST_F(path_comparison, long_extension_is_cut_on_the_left_only) {
  std::string const cut = "." + repeated(255, 'e');
  std::string const whole = "." + repeated(300, 'e');
  FIO_PATH edited_extension("/a");
  edited_extension.extension(whole, "");
  expect_comparison(edited_extension, edited_extension, {false, '<'});
  expect_comparison(edited_extension, edited_extension.fullpath(), {true, '='});
  expect_comparison(FIO_PATH("/a" + whole), "/a" + cut, {true, '='});
  expect_comparison(FIO_PATH("/a" + cut), "/a" + whole, {true, '='});
  expect_comparison(edited_extension, FIO_PATH("/a" + cut), {true, '='});
  expect_comparison(FIO_PATH("/a" + cut), FIO_PATH("/a" + whole), {true, '='});
  expect_comparison(FIO_PATH("/a" + cut), edited_extension, {false, '<'});
}

// Length

TEST_F(path_comparison, left_path_that_is_too_long_counts_as_empty_and_is_noted_once) {
  FIO_PATH const file = edited(long_name, "f");
  struct {
    std::string right;
    outcome expected;
  } const rows[] = {
      {"", {true, '='}},
      {"/w/x/", {true, '='}},
      {"a/../", {true, '='}},
      {"/w/x", {false, '>'}},
      {"f", {false, '<'}},
      {long_name + "/f", {true, '='}},
      {"/z/", {false, '<'}},
      {".", {false, '='}},
      {other_long_name, {true, '='}},
      {"/" + repeated(1023), {true, '='}},
      {"/" + repeated(1022), {false, '<'}},
  };
  texts const known{file.get_path_components(FIO_PATH::DIRECTORY) + "f"};
  under_each_simplification([&](bool) {
    for (auto const& row : rows) {
      SCOPED_TRACE(row.right.substr(0, 20) + " of " + std::to_string(row.right.size()));
      bool answer = false;
      EXPECT_EQ(complaints_of([&] { answer = file == row.right; }, known), known);
      EXPECT_EQ(answer, row.expected.equal);
      EXPECT_EQ(complaints_of([&] { answer = file != row.right; }, known), known);
      EXPECT_EQ(answer, !row.expected.equal);
      EXPECT_EQ(complaints_of([&] { answer = file < row.right; }, known), known);
      EXPECT_EQ(answer, row.expected.order == '<');
      EXPECT_EQ(complaints_of([&] { expect_comparison(file, FIO_PATH(row.right), row.expected); }, known),
                texts(3, known[0]));
    }
  });
}

TEST_F(path_comparison, right_text_that_is_too_long_counts_as_empty_without_notice) {
  struct {
    char const* left;
    outcome expected;
  } const rows[] = {
      {"", {true, '='}},   {"/w/x/", {true, '='}}, {"../x/", {true, '='}}, {"/w/x", {false, '<'}},
      {"a", {false, '>'}}, {"/z/", {false, '>'}},  {".", {false, '='}},
  };
  under_each_simplification([&rows](bool) {
    for (auto const& row : rows) {
      SCOPED_TRACE(row.left);
      expect_comparison(FIO_PATH(row.left), repeated(1024), row.expected);
      expect_comparison(FIO_PATH(row.left), "/" + repeated(5000, 'a'), row.expected);
      // and a path that refused its text is an empty one
      expect_comparison(FIO_PATH(row.left), FIO_PATH(repeated(1024)), row.expected);
      expect_comparison(FIO_PATH(repeated(1024)), std::string(row.left), turned(row.expected));
    }
  });
  // One character less, and the text counts.
  expect_comparison(FIO_PATH("/"), "/" + repeated(1022), {false, '<'});
  expect_comparison(FIO_PATH("/" + repeated(1022)), "/" + repeated(1022), {true, '='});
  EXPECT_EQ(messages(), texts());
}

// The kinds of right operand that are too long: what each notes, with the left operand whose name is the same.
TEST_F(path_comparison, right_path_that_is_too_long_is_noted_by_each_step_that_reads_it) {
  std::string const d = long_name;
  struct {
    FIO_PATH left;
    FIO_PATH right;
    outcome expected;
    texts notes;       // of equality: on the name, the simplified text, and the text that is anchored or compared
    texts order_notes; // the order has no use for the name
  } const rows[] = {
      // joined to the current directory it is too long and gone
      {FIO_PATH("f"), edited(d, "f"), {false, '>'}, {d + "/f", d + "/f", d + "/f"}, {d + "/f", d + "/f"}},
      {FIO_PATH("f"),
       edited(d + "/./b/..", "f"),
       {false, '>'},
       {d + "/./b/../f", d + "/f", d + "/f"},
       {d + "/f", d + "/f"}},
      {FIO_PATH("/"), edited(d, ""), {false, '>'}, {d + "/", d + "/", d + "/"}, {d + "/", d + "/"}},
      // an absolute one stays
      {FIO_PATH("f"),
       edited("/" + d, "f"),
       {false, '>'},
       {"/" + d + "/f", "/" + d + "/f", "/" + d + "/f"},
       {"/" + d + "/f", "/" + d + "/f"}},
      {FIO_PATH("/b/f"),
       edited("/a/../" + d, "f"),
       {false, '<'},
       {"/a/../" + d + "/f", "/" + d + "/f", "/" + d + "/f"},
       {"/" + d + "/f", "/" + d + "/f"}},
      // simplified it is short enough
      {FIO_PATH("f"), edited(d + "/..", "f"), {true, '='}, {d + "/../f"}, {}},
      {FIO_PATH("/f"), edited("/" + d + "/..", "f"), {true, '='}, {"/" + d + "/../f"}, {}},
      // there is no directory to simplify
      {FIO_PATH(""), edited("", d), {false, '>'}, {d}, {d}},
      // other names
      {FIO_PATH("g"), edited(d, "f"), {false, '>'}, {d + "/f"}, {d + "/f", d + "/f"}},
  };
  for (auto const& row : rows) {
    texts known = row.notes;
    known.insert(known.end(), row.order_notes.begin(), row.order_notes.end());
    SCOPED_TRACE(row.left.fullpath() + " and " + row.notes.front());
    bool answer = false;
    EXPECT_EQ(complaints_of([&] { answer = row.left == row.right; }, known), row.notes);
    EXPECT_EQ(answer, row.expected.equal);
    EXPECT_EQ(complaints_of([&] { answer = row.left != row.right; }, known), row.notes);
    EXPECT_EQ(answer, !row.expected.equal);
    EXPECT_EQ(complaints_of([&] { answer = row.left < row.right; }, known), row.order_notes);
    EXPECT_EQ(answer, row.expected.order == '<');
  }
}

// The older simplification leaves nothing but the root of such a directory.
TEST_F(path_comparison, right_path_that_is_too_long_loses_its_directory_with_the_older_simplification) {
  ::setenv("fio_old_simplify", "1", 1);
  for (std::string const& root : {""s, "/"s}) {
    FIO_PATH const path = edited(root + long_name, "f");
    texts const note{root + long_name + "/f"};
    EXPECT_EQ(complaints_of([&] { EXPECT_TRUE(FIO_PATH(root + "f") == path); }, note), note);
    EXPECT_EQ(complaints_of([&] { EXPECT_FALSE(FIO_PATH(root + "f") != path); }, note), note);
    EXPECT_EQ(complaints_of([&] { EXPECT_FALSE(FIO_PATH(root + "f") < path); }, note), texts());
  }
}

TEST_F(path_comparison, left_one_of_two_that_are_too_long_is_noted_first) {
  for (std::string const& root : {""s, "/"s}) {
    SCOPED_TRACE("root '" + root + "'");
    FIO_PATH const left = edited(root + long_name, "");
    FIO_PATH const right = edited(root + other_long_name, "");
    std::string const l = root + long_name + "/";
    std::string const r = root + other_long_name + "/";
    texts const known{l, r};
    bool answer = false;
    EXPECT_EQ(complaints_of([&] { answer = left == right; }, known), (texts{l, r, r, r}));
    EXPECT_FALSE(answer);
    EXPECT_EQ(complaints_of([&] { answer = left != right; }, known), (texts{l, r, r, r}));
    EXPECT_TRUE(answer);
    // "/w/x/" against nothing, or against the absolute text
    EXPECT_EQ(complaints_of([&] { answer = left < right; }, known), (texts{l, r, r}));
    EXPECT_FALSE(answer);
    EXPECT_EQ(complaints_of([&] { answer = left == right.get_path_components(FIO_PATH::DIRECTORY); }, known), texts{l});
    EXPECT_TRUE(answer);
  }
}

TEST_F(path_comparison, path_that_is_too_long_is_not_equal_to_itself) {
  FIO_PATH const path = edited("/" + long_name, "f");
  expect_comparison(path, path, {false, '>'});
  expect_comparison(path, path.get_path_components(FIO_PATH::DIRECTORY), {true, '='});
}

// What is too long at the current directory is an empty text then, and no message tells of it.
TEST_F(path_comparison, paths_that_are_too_long_when_they_are_anchored_lose_their_texts) {
  comparison_row const rows[] = {
      {repeated(1018), "/w/x/" + repeated(1018), {true, '='}},
      {repeated(1018), repeated(1018), {true, '='}},
      {repeated(1019), repeated(1019), {true, '='}},
      {repeated(1019), repeated(1020), {false, '='}},
      {"p/" + repeated(1016), "q/" + repeated(1016), {false, '<'}},
      {"p/" + repeated(1017), "q/" + repeated(1017), {true, '='}},
      {repeated(1019), "/" + repeated(1019), {false, '<'}},
      {repeated(1019), "", {false, '<'}},
      // the simplification comes first
      {"p/../" + repeated(1018), repeated(1018), {true, '='}},
  };
  under_each_simplification([&rows](bool) {
    for (comparison_row const& row : rows) {
      expect_row(row);
    }
  });
  EXPECT_EQ(messages(), texts());
}

// Containers

TEST_F(path_comparison, set_holds_one_path_of_those_that_are_neither_less_nor_greater) {
  std::set<FIO_PATH> set;
  struct {
    char const* path;
    bool is_new;
  } const rows[] = {
      {"a/b", true},    {"/w/x/a/b", false}, {"./a/b", false}, {"a/c/../b", false}, {"a/b.", false}, {"a/b/", true},
      {"a/b/.", false}, {"a/b/..", false},   {"/A", true},     {"/a", true},        {"", true},      {".", false},
      {"..", false},    {"/w/x/", false},    {"/w/x", true},   {"\\a", false},      {"/a/", true},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.path);
    EXPECT_EQ(set.insert(row.path).second, row.is_new);
    EXPECT_EQ(set.count(FIO_PATH(row.path)), 1u);
  }
  texts kept;
  for (FIO_PATH const& path : set) {
    kept.push_back(path.fullpath());
  }
  EXPECT_EQ(kept, (texts{"/A", "/a", "/a/", "/w/x", "", "a/b", "a/b/"}));
  auto const found = set.find(FIO_PATH("/w/x/a/b/.."));
  ASSERT_TRUE(found != set.end());
  EXPECT_EQ(found->fullpath(), "a/b/");
  EXPECT_TRUE(set.find(FIO_PATH("b")) == set.end());
}

TEST_F(path_comparison, equality_tells_apart_what_a_set_does_not) {
  std::vector<FIO_PATH> const paths{"a/b/.", "a/b/..", "a/b/", "a/b/c/../"};
  EXPECT_EQ(std::set<FIO_PATH>(paths.begin(), paths.end()).size(), 1u);
  EXPECT_EQ(std::find(paths.begin(), paths.end(), FIO_PATH("/w/x/a/b/")) - paths.begin(), 2);
  EXPECT_EQ(std::count(paths.begin(), paths.end(), "/w/x/a/b/"s), 2);
  EXPECT_EQ(std::count(paths.begin(), paths.end(), "/w/x/a/b/.."s), 1);
  EXPECT_EQ(std::count(paths.begin(), paths.end(), "/w/x/a/b"s), 0);
}
