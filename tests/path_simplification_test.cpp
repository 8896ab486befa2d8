// Taking "." and ".." out of a path's directory, by either of the two algorithms.

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "ccl/fio/fio_path.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

class path_simplification : public fio_test {};

char const* const old_algorithm_variable = "fio_old_simplify";

void set_variable(char const* value) { ::setenv(old_algorithm_variable, value, 1); }

// Each algorithm, as `become_simplified` selects it.

void simplify_new(FIO_PATH& path) {
  ::unsetenv(old_algorithm_variable);
  path.become_simplified();
}

void simplify_old(FIO_PATH& path) {
  set_variable("1");
  path.become_simplified();
  ::unsetenv(old_algorithm_variable);
}

std::string simplified_new(std::string const& text) {
  FIO_PATH path(text);
  simplify_new(path);
  return path.fullpath();
}

std::string simplified_old(std::string const& text) {
  FIO_PATH path(text);
  simplify_old(path);
  return path.fullpath();
}

// The text with another character for each slash.
std::string separated_by(std::string text, char separator) {
  for (char& character : text) {
    if (character == '/') {
      character = separator;
    }
  }
  return text;
}

struct result_row {
  char const* given;
  char const* expected;
  char const* expected_old = nullptr; // null: the same

  char const* old_result() const { return expected_old != nullptr ? expected_old : expected; }
};

result_row const results[] = {
    // without a directory
    {"", ""},
    {"a", "a"},
    {"a.b", "a.b"},
    {".", ".", ""},
    {"..", "..", ""},
    {"...", "...", ".."},
    {".a", ".a"},
    {"..a", "..a", ".a"},
    {"...a", "...a"},
    {"a.", "a.", "a"},
    {"a..", "a..", "a."},
    {"a..b", "a..b"},
    // the root
    {"/", "/"},
    {"///", "/"},
    {"\\", "/"},
    {"/a", "/a"},
    {"/a/", "/a/"},
    {"/.", "/"},
    {"/..", "/"},
    {"/...", "/.."},
    {"/../", "/"},
    {"/../..", "/"},
    {"/../../", "/"},
    {"/./", "/"},
    {"/../a", "/a"},
    {"//../a", "/a"},
    {"/a/../../b", "/b"},
    {"/a/../../../b/c", "/b/c"},
    {"/../../a/../b/", "/b/"},
    // an absolute directory
    {"/a/.", "/a/"},
    {"/a/..", "/a/"},
    {"/a/../", "/"},
    {"/a/b/..", "/a/b/"},
    {"/a/b/../", "/a/"},
    {"/a/b/../c", "/a/c"},
    {"/a/b/../../..", "/"},
    {"/a/b/../../", "/"},
    {"/a/b/../../c/d", "/c/d"},
    {"/a/./b", "/a/b"},
    {"/a/./b/../c", "/a/c"},
    {"/a//b", "/a/b"},
    {"/a/././././b", "/a/b"},
    // a relative directory
    {"./", ""},
    {"./a", "a"},
    {"././a/./b", "a/b"},
    {"../", "../"},
    {"../a", "../a"},
    {"../../a", "../../a"},
    {"../../../a", "../../../a"},
    {"../..", "../"},
    {"../../", "../../"},
    {"../.", "../"},
    {"./../a", "../a"},
    {".././../a", "../../a"},
    {"../a/..", "../a/"},
    {"../a/../", "../"},
    {"../a/../../b", "../../b"},
    {"a/", "a/"},
    {"a/b/", "a/b/"},
    {"a/.", "a/"},
    {"a/..", "a/"},
    {"a/../", ""},
    {"a/../.", ""},
    {"a/../..", ""},
    {"a/../b", "b"},
    {"a/../b/", "b/"},
    {"a/../../b", "../b"},
    {"a/../../../b", "../../b"},
    {"a/b/../..", "a/"},
    {"a/b/../../", ""},
    {"a/b/../../../c", "../c"},
    {"a/b/../c", "a/c"},
    {"a/b/c/../../d/e", "a/d/e"},
    {"a/./b/", "a/b/"},
    {"a/./../b", "b"},
    {"a/b/./../c", "a/c"},
    {"./.", ""},
    {"./..", ""},
    // lone dots at the ends of the name
    {"./a.", "a"},
    {"./..a", ".a"},
    {"./...", ".."},
    {"a/.b", "a/.b"},
    {"a/..b", "a/.b"},
    {"/..b", "/.b"},
    {"a/...b", "a/...b"},
    {"a/b.", "a/b"},
    {"a/b..", "a/b."},
    {"a/..b.", "a/..b"},
    {"a/..b.c", "a/..b.c"},
    {"a/...", "a/.."},
    {"a/....", "a/..."},
    {"a/b/c.d/../e.f", "a/b/e.f"},
    // only "." and ".." are special, and only as a whole component
    {"..a/b", "..a/b"},
    {".a/b", ".a/b"},
    {"a./b", "a./b"},
    {"a../b", "a../b"},
    {".../b", ".../b"},
    {".../../b", "b"},
    {"..a/../b", "b"},
    {".a/../b", "b"},
    {"/..a/../b", "/b"},
    {"x/..a/../b", "x/b"},
    {"x/a../../b", "x/b"},
    {"../..a/../b", "../b"},
    {"a/ ./b", "a/ ./b"},
    {"a/.. /b", "a/.. /b"},
    {"a/ ../b", "a/ ../b"},
    {"a/%s/../b", "a/b"},
    {"\xff\xfe/../b", "b"},
    {"\xff/./b", "\xff/b"},
    // backslashes separate too, and a drive is a name like any other
    {"a\\b\\..\\c", "a/c"},
    {"a\\.\\b", "a/b"},
    {"a\\..", "a/"},
    {"\\a\\..\\b", "/b"},
    {"C:/x/../y", "C:/y"},
    {"C:/../y", "y"},
    {"C:\\x\\.\\y.txt", "C:/x/y.txt"},
    {"//server/share/../f", "/server/f"},
};

// The rule, told in another way: the results for texts whose only separator is `/`.
std::string told_result(std::string const& text, bool old) {
  std::size_t const last_separator = text.rfind('/');
  if (last_separator == std::string::npos && !old) {
    return text;
  }
  std::size_t const name_start = last_separator == std::string::npos ? 0 : last_separator + 1;
  bool const rooted = text.front() == '/';
  std::vector<std::string> stack;
  std::string component;
  for (char const character : text.substr(0, name_start)) {
    if (character != '/') {
      component += character;
      continue;
    }
    if (component == "..") {
      if (!stack.empty() && stack.back() != "..") {
        stack.pop_back();
      } else if (!rooted) {
        stack.push_back(component);
      }
    } else if (!component.empty() && component != ".") {
      stack.push_back(component);
    }
    component.clear();
  }
  std::string result = rooted ? "/" : "";
  for (std::string const& level : stack) {
    result += level + '/';
  }
  std::string const name = text.substr(name_start);
  std::size_t const dot = name.rfind('.');
  std::string const base = name.substr(0, dot);
  std::string const extension = dot == std::string::npos ? "" : name.substr(dot);
  return result + (base == "." ? "" : base) + (extension == "." ? "" : extension);
}

// Every text of at least one character and at most `size` of them.
std::vector<std::string> all_texts(std::string const& alphabet, std::size_t size) {
  std::vector<std::string> texts{""};
  std::size_t first = 0;
  for (std::size_t length = 1; length <= size; ++length) {
    std::size_t const end = texts.size();
    for (; first != end; ++first) {
      for (char const character : alphabet) {
        texts.push_back(texts[first] + character);
      }
    }
  }
  texts.erase(texts.begin());
  return texts;
}

} // namespace

// The results

TEST_F(path_simplification, directory_loses_its_dots) {
  for (result_row const& row : results) {
    SCOPED_TRACE(row.given);
    FIO_PATH path(row.given);
    path.become_simplified();
    EXPECT_EQ(path.fullpath(), row.expected);
    EXPECT_EQ(path.directory() + path.filename(), row.expected);
    EXPECT_TRUE(path.is_legal_length());
  }
  EXPECT_EQ(messages(), std::vector<std::string>());
}

TEST_F(path_simplification, variable_selects_the_older_algorithm_whatever_its_value) {
  for (char const* const value : {"", "0", "1", "no", "any value"}) {
    set_variable(value);
    for (result_row const& row : results) {
      SCOPED_TRACE(std::string(row.given) + " with the value '" + value + "'");
      FIO_PATH path(row.given);
      path.become_simplified();
      EXPECT_EQ(path.fullpath(), row.old_result());
      EXPECT_EQ(path.directory() + path.filename(), row.old_result());
      EXPECT_TRUE(path.is_legal_length());
    }
  }
  EXPECT_EQ(messages(), std::vector<std::string>());
}

TEST_F(path_simplification, flatten_does_not_look_at_the_variable) {
  for (char const* const value : {"", "1"}) {
    set_variable(value);
    for (result_row const& row : results) {
      SCOPED_TRACE(row.given);
      FIO_PATH path(row.given);
      path.flatten();
      EXPECT_EQ(path.fullpath(), row.expected);
    }
  }
}

TEST_F(path_simplification, variable_is_read_at_each_call) {
  auto const simplified = [] {
    FIO_PATH path("..a");
    path.become_simplified();
    return path.fullpath();
  };
  EXPECT_EQ(simplified(), "..a");
  set_variable("1");
  EXPECT_EQ(simplified(), ".a");
  ::unsetenv(old_algorithm_variable);
  EXPECT_EQ(simplified(), "..a");
  set_variable("");
  EXPECT_EQ(simplified(), ".a");
}

TEST_F(path_simplification, other_variables_select_nothing) {
  char const* const others[] = {"FIO_OLD_SIMPLIFY", "fio_old_simplif", "fio_old_simplify_", "old_simplify"};
  for (char const* const name : others) {
    SCOPED_TRACE(name);
    ::setenv(name, "1", 1);
    FIO_PATH path(".");
    path.become_simplified();
    EXPECT_EQ(path.fullpath(), ".");
    ::unsetenv(name);
  }
}

TEST_F(path_simplification, components_are_kept_in_step_with_the_text) {
  struct {
    char const* given;
    char const* directory;
    char const* base;
    char const* extension; // as stored, with its dot
  } const rows[] = {
      {"/a/../", "/", "", ""},         {"/a/b/..", "/a/b/", "", ""},   {"a/../", "", "", ""},
      {"a/./b.c", "a/", "b", ".c"},    {"a/b.", "a/", "b", ""},        {"a/..b", "a/", "", ".b"},
      {"a/...", "a/", "..", ""},       {"a/..b.", "a/", "..b", ""},    {"./.", "", "", ""},
      {"a/b/c/../x", "a/b/", "x", ""}, {"../a/../x", "../", "x", ""},  {"/../x.y", "/", "x", ".y"},
      {"x/../a.b.c", "", "a.b", ".c"}, {"x/../.b", "", "", ".b"},      {"a/....", "a/", "...", ""},
      {"a/../../", "../", "", ""},     {"..a/./.b", "..a/", "", ".b"}, {"a/x..", "a/", "x.", ""},
  };
  for (auto const& row : rows) {
    for (auto* const simplify : {simplify_new, simplify_old}) {
      SCOPED_TRACE(std::string(row.given) + (simplify == simplify_old ? " (old)" : ""));
      FIO_PATH path(row.given);
      simplify(path);
      EXPECT_EQ(path.directory(), row.directory);
      EXPECT_EQ(path.base(), row.base);
      EXPECT_EQ(path.get_path_components(FIO_PATH::EXTENSION), row.extension);
    }
  }
}

TEST_F(path_simplification, nothing_is_asked_of_the_system) {
  platform_double::record_calls(true);
  FIO_PATH path("/a/./b/../c");
  simplify_new(path);
  FIO_PATH other("a/./../b/c");
  simplify_old(other);
  EXPECT_EQ(platform_double::calls(), std::vector<std::string>());
  EXPECT_EQ(path.fullpath(), "/a/c");
  EXPECT_EQ(other.fullpath(), "b/c");
}

TEST_F(path_simplification, links_are_not_followed) {
  m_tree.draw({"real/deep/", "link -> real/deep"});
  FIO_PATH path(m_tree.root() + "/link/../x");
  path.become_simplified();
  EXPECT_EQ(path.fullpath(), m_tree.path("x"));
}

// Relations over all short texts

TEST_F(path_simplification, every_short_text_simplifies_by_the_rule) {
  std::vector<std::string> const texts = all_texts("/.a", 7);
  ASSERT_EQ(texts.size(), 3279u);
  for (std::string const& text : texts) {
    ASSERT_EQ(simplified_new(text), told_result(text, false)) << text;
    ASSERT_EQ(simplified_old(text), told_result(text, true)) << text;
  }
}

TEST_F(path_simplification, algorithms_agree_on_a_text_with_a_directory) {
  for (std::string const& text : all_texts("/.a", 7)) {
    if (text.find('/') != std::string::npos) {
      ASSERT_EQ(simplified_new(text), simplified_old(text)) << text;
    } else {
      ASSERT_EQ(simplified_new(text), text);
    }
  }
}

TEST_F(path_simplification, simplifying_the_same_path_again_changes_nothing) {
  for (std::string const& text : all_texts("/.a", 7)) {
    for (auto* const simplify : {simplify_new, simplify_old}) {
      FIO_PATH path(text);
      simplify(path);
      FIO_PATH const once(path);
      simplify(path);
      ASSERT_EQ(path.fullpath(), once.fullpath()) << text;
      ASSERT_EQ(path.directory(), once.directory()) << text;
      ASSERT_EQ(path.base(), once.base()) << text;
      ASSERT_EQ(path.extension(), once.extension()) << text;
    }
  }
}

// The dot that goes may be the one that kept another from standing alone, and the text that is left is divided anew.
TEST_F(path_simplification, simplified_text_is_simple_unless_its_division_finds_another_lone_dot) {
  int exceptions = 0;
  for (std::string const& text : all_texts("/.a", 7)) {
    std::string const once = simplified_new(text);
    FIO_PATH const divided(once);
    std::string const base = divided.base() == "." ? "" : divided.base();
    std::string const extension = divided.extension().empty() ? "" : "." + divided.extension();
    std::string const twice = divided.has_directory() ? divided.directory() + base + extension : once;
    ASSERT_EQ(simplified_new(once), twice) << text;
    exceptions += twice != once ? 1 : 0;
    bool const ended_in_a_dot = text.back() == '.';
    ASSERT_TRUE(twice == once || ended_in_a_dot) << text;
  }
  EXPECT_GT(exceptions, 0);
}

TEST_F(path_simplification, three_dots_are_two_afterwards_and_gone_after_a_new_division) {
  FIO_PATH path("a/...");
  path.become_simplified();
  EXPECT_EQ(path.fullpath(), "a/..");
  EXPECT_EQ(path.base(), "..");
  EXPECT_FALSE(path.has_extension());
  path.become_simplified();
  EXPECT_EQ(path.fullpath(), "a/..");
  FIO_PATH divided_anew(path.fullpath());
  EXPECT_EQ(divided_anew.base(), ".");
  EXPECT_EQ(divided_anew.get_path_components(FIO_PATH::EXTENSION), ".");
  divided_anew.become_simplified();
  EXPECT_EQ(divided_anew.fullpath(), "a/");
}

// Names that an edit made

TEST_F(path_simplification, lone_dots_of_an_edit_are_erased_too) {
  FIO_PATH extension_of_a_dot("a/b");
  extension_of_a_dot.make_path(FIO_PATH::EXTENSION, ".");
  extension_of_a_dot.become_simplified();
  EXPECT_EQ(extension_of_a_dot.fullpath(), "a/b");
  EXPECT_FALSE(extension_of_a_dot.has_extension());

  FIO_PATH base_of_a_dot("a/b.t");
  base_of_a_dot.base(".");
  base_of_a_dot.become_simplified();
  EXPECT_EQ(base_of_a_dot.fullpath(), "a/.t");
  EXPECT_EQ(base_of_a_dot.base(), "");

  FIO_PATH without_directory("b.t");
  without_directory.base(".");
  FIO_PATH without_directory_old(without_directory);
  simplify_new(without_directory);
  EXPECT_EQ(without_directory.fullpath(), "..t");
  simplify_old(without_directory_old);
  EXPECT_EQ(without_directory_old.fullpath(), ".t");
}

TEST_F(path_simplification, other_names_of_an_edit_stay) {
  FIO_PATH base_of_two_dots("a/b.t");
  base_of_two_dots.base("..");
  base_of_two_dots.become_simplified();
  EXPECT_EQ(base_of_two_dots.fullpath(), "a/...t");

  FIO_PATH extension_without_a_dot("a/./b");
  extension_without_a_dot.make_path(FIO_PATH::EXTENSION, "x");
  extension_without_a_dot.become_simplified();
  EXPECT_EQ(extension_without_a_dot.fullpath(), "a/b.x");
  EXPECT_EQ(extension_without_a_dot.get_path_components(FIO_PATH::EXTENSION), "x");

  FIO_PATH extension_of_two_dots("a/b");
  extension_of_two_dots.make_path(FIO_PATH::EXTENSION, "..");
  extension_of_two_dots.become_simplified();
  EXPECT_EQ(extension_of_two_dots.fullpath(), "a/b..");
}

TEST_F(path_simplification, base_is_compared_up_to_its_first_nul) {
  for (auto* const simplify : {simplify_new, simplify_old}) {
    FIO_PATH path("a/b.t");
    path.base(std::string(".\0x", 3));
    simplify(path);
    EXPECT_EQ(path.base(), "");
    EXPECT_EQ(path.fullpath(), "a/.t");
  }
}

TEST_F(path_simplification, extension_is_compared_as_a_whole) {
  for (auto* const simplify : {simplify_new, simplify_old}) {
    FIO_PATH path("a/b");
    path.make_path(FIO_PATH::EXTENSION, std::string(".\0x", 3));
    simplify(path);
    EXPECT_EQ(path.get_path_components(FIO_PATH::EXTENSION), std::string(".\0x", 3));
    EXPECT_EQ(path.fullpath(), "a/b.");
  }
}

// Of such a directory nothing is in the text, which is what is walked.
TEST_F(path_simplification, directory_that_begins_with_a_nul_goes) {
  for (auto* const simplify : {simplify_new, simplify_old}) {
    FIO_PATH path;
    path.directory(std::string("\0x", 2));
    ASSERT_TRUE(path.has_directory());
    simplify(path);
    EXPECT_FALSE(path.has_directory());
    EXPECT_EQ(path.fullpath(), "");
  }
}

// The components come from the text, so those that an edit put into the base count, and the base keeps them too.
TEST_F(path_simplification, separators_in_the_base_make_components) {
  for (auto* const simplify : {simplify_new, simplify_old}) {
    FIO_PATH joined("a", "sub.d/f");
    simplify(joined);
    EXPECT_EQ(joined.directory(), "a/sub.d/");
    EXPECT_EQ(joined.fullpath(), "a/sub.d/sub.d/f");

    FIO_PATH climbing("a/b/y");
    climbing.base("../x");
    simplify(climbing);
    EXPECT_EQ(climbing.directory(), "a/");
    EXPECT_EQ(climbing.fullpath(), "a/../x");

    FIO_PATH doubled("a/y");
    doubled.base("b//../x");
    simplify(doubled);
    EXPECT_EQ(doubled.directory(), "a/");
    EXPECT_EQ(doubled.fullpath(), "a/b//../x");

    FIO_PATH closed("a/y");
    closed.base("x//");
    simplify(closed);
    EXPECT_EQ(closed.fullpath(), "a/x/x//");
  }
}

TEST_F(path_simplification, separators_in_the_base_count_without_a_directory_for_the_older_algorithm_alone) {
  FIO_PATH path("y");
  path.base("x/./");
  FIO_PATH other(path);
  simplify_new(path);
  EXPECT_EQ(path.fullpath(), "x/./");
  EXPECT_FALSE(path.has_directory());
  simplify_old(other);
  EXPECT_EQ(other.fullpath(), "x/x/./");
  EXPECT_EQ(other.directory(), "x/");
}

// A backslash in the base is no separator for the scan, and becomes one when the directory is stored.
TEST_F(path_simplification, backslashes_in_the_base_are_part_of_a_component) {
  FIO_PATH path("a/y");
  path.base("b\\..\\c/x");
  FIO_PATH other(path);
  simplify_new(path);
  EXPECT_EQ(path.directory(), "a/b/../c/");
  simplify_old(other);
  EXPECT_EQ(other.directory(), "a/c/");
}

// Drives

// A drive is in the text that is scanned and stays a drive, so each simplification adds it to the directory.
TEST_F(path_simplification, drive_becomes_a_component_of_the_directory_as_well) {
  struct {
    char const* given;
    char const* drive;
    char const* expected;
    char const* directory;
  } const rows[] = {
      {"/b", "C", "C:/C:/b", "/C:/"},
      {"/a/../b", "C", "C:/C:/b", "/C:/"},
      {"/a/./b/c", "C", "C:/C:/a/b/c", "/C:/a/b/"},
      {"/../b", "C", "C:/b", "/"},
      {"/../../b", "C", "C:/b", "/"},
      {"/", "C", "C:/C:/", "/C:/"},
      {"a/./b", "C", "C:C:a/b", "C:a/"},
      {"../b", "C", "C:C:../b", "C:../"},
      {"./b", "C", "C:C:./b", "C:./"},
      {"a/../b", "C", "C:b", ""},
      {"a/../", "C", "C:", ""},
      {"a/b", "/", "/::a/b", ":a/"},
      {"a/..", "C", "C:C:a/", "C:a/"},
  };
  for (auto const& row : rows) {
    for (auto* const simplify : {simplify_new, simplify_old}) {
      SCOPED_TRACE(std::string(row.given) + (simplify == simplify_old ? " (old)" : ""));
      FIO_PATH path(row.given);
      path.drive(row.drive);
      simplify(path);
      EXPECT_EQ(path.fullpath(), row.expected);
      EXPECT_EQ(path.directory(), row.directory);
    }
  }
}

TEST_F(path_simplification, drive_grows_with_each_simplification) {
  FIO_PATH path("/b");
  path.drive('C');
  path.become_simplified();
  EXPECT_EQ(path.fullpath(), "C:/C:/b");
  path.become_simplified();
  EXPECT_EQ(path.fullpath(), "C:/C:/C:/b");
}

TEST_F(path_simplification, drive_without_a_directory_gets_none) {
  struct {
    char const* given;
    char const* expected;
    char const* expected_old;
  } const rows[] = {
      {"", "C:", "C:"}, {"b", "C:b", "C:b"}, {"b.", "C:b.", "C:b"}, {".", "C:.", "C:"}, {"..b", "C:..b", "C:.b"},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.given);
    FIO_PATH path(row.given);
    path.drive('C');
    FIO_PATH other(path);
    simplify_new(path);
    EXPECT_EQ(path.fullpath(), row.expected);
    EXPECT_FALSE(path.has_directory());
    simplify_old(other);
    EXPECT_EQ(other.fullpath(), row.expected_old);
    EXPECT_FALSE(other.has_directory());
  }
}

// Other separators

TEST_F(path_simplification, backslash_as_the_separator_gives_the_same_results) {
  for (result_row const& row : results) {
    SCOPED_TRACE(row.given);
    FIO_PATH path(row.given);
    path.path_separator('\\');
    FIO_PATH other(path);
    simplify_new(path);
    EXPECT_EQ(path.fullpath(), separated_by(row.expected, '\\'));
    simplify_old(other);
    EXPECT_EQ(other.fullpath(), separated_by(row.old_result(), '\\'));
  }
}

TEST_F(path_simplification, any_separator_gives_the_same_results) {
  for (char const separator : {'|', ':', ';', 'z'}) {
    for (result_row const& row : results) {
      std::string const given = row.given;
      if (given.find(separator) != std::string::npos) {
        continue;
      }
      SCOPED_TRACE(given + " with the separator " + separator);
      FIO_PATH path(given);
      path.path_separator(separator);
      simplify_new(path);
      FIO_PATH const expected(row.expected);
      // The text has a slash behind a directory that ends in neither slash nor backslash.
      EXPECT_EQ(path.directory(), separated_by(expected.directory(), separator));
      EXPECT_EQ(path.fullpath(), path.directory() + (path.has_directory() ? "/" : "") + expected.filename());
    }
  }
}

// The older algorithm divides the text under the default separator, so it sees one component at most here, and that
// one with the separator at its end.
TEST_F(path_simplification, older_algorithm_does_not_find_the_components_between_unusual_separators) {
  struct {
    char const* given;
    char const* expected;
    char const* expected_old;
  } const rows[] = {
      {"a/b/f", "a|b|/f", "a|b|/f"},
      {"a/../f", "f", "a|..|/f"},
      {"a/./b/f", "a|b|/f", "a|.|b|/f"},
      {"/f", "|/f", "|/f"},
      {"/../f", "|/f", "|..|/f"},
      {"/a/f", "|a|/f", "|a|/f"},
      {"/a/../b/f", "|b|/f", "|a|..|b|/f"},
      {"../f", "..|/f", "..|/f"},
      {"a/..", "a|/", "a|/"},
      {"./f", "f", ".|/f"},
      {"/", "|/", "|/"},
      {".", ".", ""},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.given);
    FIO_PATH path(row.given);
    path.path_separator('|');
    FIO_PATH other(path);
    simplify_new(path);
    EXPECT_EQ(path.fullpath(), row.expected);
    simplify_old(other);
    EXPECT_EQ(other.fullpath(), row.expected_old);
  }
}

TEST_F(path_simplification, backslashes_between_unusual_separators_are_components_for_the_older_algorithm_alone) {
  FIO_PATH path("f");
  path.path_separator('|').directory("a\\..\\b");
  FIO_PATH other(path);
  simplify_new(path);
  EXPECT_EQ(path.fullpath(), "a\\..\\b|/f");
  simplify_old(other);
  EXPECT_EQ(other.fullpath(), "b|/f");

  FIO_PATH levels("f");
  levels.path_separator('|').directory("x|y\\..\\a\\b");
  simplify_old(levels);
  EXPECT_EQ(levels.fullpath(), "x|a|b|/f");
}

// What begins with the separator is no root without a directory, so ".." takes it away with the component behind it.
TEST_F(path_simplification, component_that_begins_with_the_separator_goes_as_a_whole_for_the_older_algorithm) {
  FIO_PATH path("f");
  path.path_separator('|').base("|x/../f");
  simplify_old(path);
  EXPECT_EQ(path.directory(), "");
  EXPECT_EQ(path.fullpath(), "|x/../f");
}

TEST_F(path_simplification, separator_is_kept) {
  for (auto* const simplify : {simplify_new, simplify_old}) {
    FIO_PATH path("a/./b");
    path.path_separator('\\');
    simplify(path);
    path.directory("x/y");
    EXPECT_EQ(path.fullpath(), "x\\y\\b");
  }
}

// An assigned path has the separator `/`, and keeps the directory text of its source. A text without any `/` is then
// one component altogether, the file name included; the older algorithm divides it as usual.
TEST_F(path_simplification, assigned_path_with_backslashes_is_one_component) {
  struct {
    char const* given;
    char const* assigned;
    char const* expected;
    char const* expected_old;
  } const rows[] = {
      {"a/f", "a\\f", "a/f/f", "a/f"},
      {"a/b/../f", "a\\b\\..\\f", "a/b/../f/f", "a/f"},
      {"a/b/f.t", "a\\b\\f.t", "a/b/f.t/f.t", "a/b/f.t"},
      {"/a/f", "\\a\\f", "/a/f/f", "a/f"},
      {"/", "\\", "/", ""},
      {"a/", "a\\", "a/", "a/"},
      {"a/..", "a\\..", "a/../", "a/"},
      {"a/.", "a\\.", "a/./", "a/"},
      {"../f", "..\\f", "../f/f", "../f"},
      {"./f", ".\\f", "./f/f", "f"},
      {"/../f", "\\..\\f", "/../f/f", "../f"},
      {".", ".", ".", ""},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.given);
    FIO_PATH path = assigned_from(with_separator('\\', row.given));
    ASSERT_EQ(path.fullpath(), row.assigned);
    simplify_new(path);
    EXPECT_EQ(path.fullpath(), row.expected);
    FIO_PATH other = assigned_from(with_separator('\\', row.given));
    simplify_old(other);
    EXPECT_EQ(other.fullpath(), row.expected_old);
  }
}

TEST_F(path_simplification, assigned_path_with_one_slash_ends_its_components_there) {
  // The slash is the one that the text has behind an unusual separator.
  struct {
    char const* given;
    char const* assigned;
    char const* directory;
  } const rows[] = {
      {"a/../f", "a|..|/f", "a|..|/"},
      {"/a/f", "|a|/f", "|a|/"},
      {"a/", "a|/", "a|/"},
  };
  for (auto const& row : rows) {
    for (auto* const simplify : {simplify_new, simplify_old}) {
      SCOPED_TRACE(std::string(row.given) + (simplify == simplify_old ? " (old)" : ""));
      FIO_PATH path = assigned_from(with_separator('|', row.given));
      ASSERT_EQ(path.fullpath(), row.assigned);
      simplify(path);
      EXPECT_EQ(path.fullpath(), row.assigned);
      EXPECT_EQ(path.directory(), row.directory);
    }
  }

  FIO_PATH in_the_base = assigned_from(with_separator('\\', "a/f"));
  in_the_base.base("x/y");
  ASSERT_EQ(in_the_base.fullpath(), "a\\x/y");
  simplify_new(in_the_base);
  EXPECT_EQ(in_the_base.directory(), "a/x/");
  EXPECT_EQ(in_the_base.fullpath(), "a/x/x/y");
}

// Length

namespace {

struct length_row {
  char const* what;
  std::string directory;
  std::string base;
  std::string expected;
  bool message;
  std::string expected_old;
  bool message_old;
};

std::vector<std::string> message_about(std::string const& text, bool expected) {
  return expected ? std::vector<std::string>{length_message(text)} : std::vector<std::string>();
}

} // namespace

TEST_F(path_simplification, text_over_the_limit_is_simplified_and_the_older_algorithm_drops_its_directory) {
  std::string const d = repeated(1100, 'd');
  std::string const b = repeated(1100, 'b');
  length_row const rows[] = {
      {"the simplified text is short", d + "/..", "f", "f", false, "f", false},
      {"a part of the directory is left", "x/" + d + "/..", "f", "x/f", false, "f", false},
      {"it is absolute and short", "/x/" + d + "/..", "f", "/x/f", false, "/f", false},
      {"a long directory is left", d + "/.", "f", d + "/f", true, "f", false},
      {"it is absolute and long", "/" + d + "/.", "f", "/" + d + "/f", true, "/f", false},
      {"a long name is left", "x/./y", b, "x/y/" + b, true, b, true},
      {"it is absolute and the name is long", "/x/../y", b, "/y/" + b, true, "/" + b, true},
      {"there is no directory", "", b, b, false, b, true},
      {"the directory goes and the name is long", "x/..", b, b, true, b, true},
  };
  for (length_row const& row : rows) {
    SCOPED_TRACE(row.what);
    FIO_PATH path;
    path.directory(row.directory).base(row.base);
    FIO_PATH other(path);
    platform_double::debug_messages().clear();
    simplify_new(path);
    EXPECT_EQ(messages(), message_about(row.expected, row.message));
    EXPECT_EQ(path.fullpath(), row.expected);
    platform_double::debug_messages().clear();
    simplify_old(other);
    EXPECT_EQ(messages(), message_about(row.expected_old, row.message_old));
    EXPECT_EQ(other.fullpath(), row.expected_old);
  }
}

TEST_F(path_simplification, limit_is_1023_characters) {
  struct {
    std::size_t directory;
    std::size_t base;
    bool too_long;
    bool keeps_directory_old;
    bool message_old;
  } const rows[] = {
      {1021, 1, false, true, false}, // with the separator: 1023
      {1022, 1, true, false, false}, {1, 1021, false, true, false}, {1, 1022, true, false, false},
      {1, 1023, true, false, false}, {1, 1024, true, false, true},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(std::to_string(row.directory) + "/" + std::to_string(row.base));
    std::string const base = repeated(row.base, 'b');
    std::string const whole = repeated(row.directory, 'd') + '/' + base;
    std::string const whole_old = row.keeps_directory_old ? whole : base;
    FIO_PATH path;
    path.directory(repeated(row.directory, 'd')).base(base);
    FIO_PATH other(path);
    platform_double::debug_messages().clear();
    simplify_new(path);
    EXPECT_EQ(messages(), message_about(whole, row.too_long));
    EXPECT_EQ(path.fullpath(), whole);
    platform_double::debug_messages().clear();
    simplify_old(other);
    EXPECT_EQ(messages(), message_about(whole_old, row.message_old));
    EXPECT_EQ(other.fullpath(), whole_old);
  }
}

TEST_F(path_simplification, name_of_1024_characters_is_noted_by_the_older_algorithm_alone) {
  for (std::size_t const length : {1023u, 1024u}) {
    SCOPED_TRACE(length);
    FIO_PATH path;
    path.base(repeated(length));
    FIO_PATH other(path);
    platform_double::debug_messages().clear();
    simplify_new(path);
    EXPECT_EQ(messages(), std::vector<std::string>());
    simplify_old(other);
    EXPECT_EQ(messages(), message_about(repeated(length), length == 1024));
  }
}

TEST_F(path_simplification, message_tells_of_the_text_behind_the_erased_dots) {
  FIO_PATH path;
  path.directory("a").base(repeated(1022)).make_path(FIO_PATH::EXTENSION, ".");
  ASSERT_FALSE(path.is_legal_length());
  simplify_new(path);
  EXPECT_EQ(messages(), message_about("a/" + repeated(1022), true));

  FIO_PATH short_afterwards;
  short_afterwards.directory("a").base(repeated(1021)).make_path(FIO_PATH::EXTENSION, ".");
  ASSERT_FALSE(short_afterwards.is_legal_length());
  platform_double::debug_messages().clear();
  simplify_new(short_afterwards);
  EXPECT_EQ(messages(), std::vector<std::string>());
  EXPECT_TRUE(short_afterwards.is_legal_length());
}

TEST_F(path_simplification, refused_text_is_left_alone_and_stays_refused) {
  for (auto* const simplify : {simplify_new, simplify_old}) {
    FIO_PATH path(repeated(500, 'd') + "/./" + repeated(521));
    simplify(path);
    EXPECT_EQ(path.fullpath(), "");
    EXPECT_FALSE(path.is_legal_length());

    path.directory("a/./b");
    simplify(path);
    EXPECT_EQ(path.fullpath(), "a/b/");
    EXPECT_FALSE(path.is_legal_length());
  }
  EXPECT_EQ(messages(), std::vector<std::string>());
}

TEST_F(path_simplification, length_of_an_edited_text_is_noted_whatever_was_refused_before) {
  FIO_PATH path(repeated(1024));
  path.directory(repeated(1100, 'd')).base("f");
  ASSERT_EQ(messages(), std::vector<std::string>());
  path.flatten();
  EXPECT_EQ(messages(), message_about(repeated(1100, 'd') + "/f", true));
}

TEST_F(path_simplification, long_texts_of_legal_length_simplify_in_full) {
  std::string climbing;
  std::string plain;
  for (int level = 0; level != 200; ++level) {
    climbing += "../";
    plain += "a/";
  }
  for (auto* const simplify : {simplify_new, simplify_old}) {
    FIO_PATH piled_up(climbing + "f");
    simplify(piled_up);
    EXPECT_EQ(piled_up.fullpath(), climbing + "f");

    FIO_PATH cancelled(plain + climbing + "f");
    simplify(cancelled);
    EXPECT_EQ(cancelled.fullpath(), "f");

    FIO_PATH rooted("/" + plain + climbing + "../f");
    simplify(rooted);
    EXPECT_EQ(rooted.fullpath(), "/f");

    FIO_PATH beyond(plain + climbing + "../../f");
    simplify(beyond);
    EXPECT_EQ(beyond.fullpath(), "../../f");
  }
}

// Memory

namespace {

struct stored {
  std::string directory;
  std::string base;
  std::string extension;
  std::string text;
};

stored stored_in(FIO_PATH const& path) {
  return {path.get_path_components(FIO_PATH::DIRECTORY), path.get_path_components(FIO_PATH::BASE),
          path.get_path_components(FIO_PATH::EXTENSION), path.fullpath()};
}

void expect_stored(FIO_PATH const& path, stored const& expected) {
  EXPECT_EQ(path.get_path_components(FIO_PATH::DIRECTORY), expected.directory);
  EXPECT_EQ(path.get_path_components(FIO_PATH::BASE), expected.base);
  EXPECT_EQ(path.get_path_components(FIO_PATH::EXTENSION), expected.extension);
  EXPECT_EQ(path.fullpath(), expected.text);
}

// Simplifies copies of a path with less and less memory missing, until there is enough.
void expect_all_or_nothing(FIO_PATH const& path, bool has_drive, std::string const& expected) {
  stored const before = stored_in(path);
  long first_to_fail = 1;
  for (bool ended = false; !ended; ++first_to_fail) {
    SCOPED_TRACE("allocation " + std::to_string(first_to_fail));
    FIO_PATH copy(path);
    try {
      allocation_failure const failure(first_to_fail);
      copy.become_simplified();
      ended = true;
    } catch (std::bad_alloc const&) {
      expect_stored(copy, before);
    }
    if (!has_drive) {
      EXPECT_EQ(copy.directory() + copy.filename(), copy.fullpath());
    }
    if (ended) {
      EXPECT_EQ(copy.fullpath(), expected);
    }
  }
  // Without a drive the path becomes shorter in its place.
  EXPECT_EQ(first_to_fail > 2, has_drive) << "allocations: " << first_to_fail - 2;
}

} // namespace

TEST_F(path_simplification, nothing_is_changed_when_memory_runs_out) {
  std::string const x = repeated(20);
  struct {
    std::string given;
    std::string expected;
    std::string expected_with_drive;
  } const rows[] = {
      {"/" + x + "/f.", "/" + x + "/f", "C:/C:/" + x + "/f"},
      {"/" + x + "/..f", "/" + x + "/.f", "C:/C:/" + x + "/.f"},
  };
  for (bool const old : {false, true}) {
    if (old) {
      set_variable("1");
    }
    for (auto const& row : rows) {
      SCOPED_TRACE(row.given + (old ? " (old)" : ""));
      FIO_PATH path(row.given);
      expect_all_or_nothing(path, false, row.expected);
      path.drive('C');
      expect_all_or_nothing(path, true, row.expected_with_drive);
    }
  }
}

TEST_F(path_simplification, a_directory_whose_text_a_nul_hides_is_removed) {
  FIO_PATH path;
  path.path_separator('\0').directory(std::string(1, '\0'));
  ASSERT_TRUE(path.absolute());
  ASSERT_EQ(path.fullpath(), "");
  path.flatten();
  EXPECT_FALSE(path.has_directory());
}
