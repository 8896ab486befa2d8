// Making a path absolute, moving it, and asking where it really is.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "ccl/fio/fio_path.h"
#include "tests/support/current_directory.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace fs = std::filesystem;

namespace {

class path_location : public fio_test {};

using texts = std::vector<std::string>;

std::string absolute_text(std::string const& text, std::string const& directory) {
  FIO_PATH path(text);
  path.become_absolute(directory);
  return path.fullpath();
}

std::optional<std::string> canonical_text(std::string const& path) {
  auto const result = FIO_PATH::canonical(path);
  return result ? std::optional<std::string>(*result) : std::nullopt;
}

// A directory of the tree whose path has more than 1023 characters.
std::string make_deep_directory(scratch_tree const& tree) {
  std::string name = repeated(200);
  for (int level = 0; level != 5; ++level) {
    name += '/' + repeated(200);
  }
  tree.make_directory(name);
  return tree.path(name);
}

struct location_row {
  char const* path;
  char const* directory;
  char const* expected;
};

void expect_absolute(location_row const& row) {
  SCOPED_TRACE(std::string("'") + row.path + "' at '" + row.directory + "'");
  FIO_PATH path(row.path);
  path.become_absolute(row.directory);
  EXPECT_EQ(path.fullpath(), row.expected);
  EXPECT_EQ(path.directory() + path.filename(), row.expected);
  EXPECT_TRUE(path.is_legal_length());
}

void expect_moved(location_row const& row) {
  SCOPED_TRACE(std::string("'") + row.path + "' to '" + row.directory + "'");
  FIO_PATH path(row.path);
  FIO_PATH& result = path.cd(row.directory);
  EXPECT_EQ(&result, &path);
  EXPECT_EQ(path.fullpath(), row.expected);
  EXPECT_EQ(path.directory() + path.filename(), row.expected);
}

location_row const at_the_current_directory[] = {
    {"", "", "/w/x/"},
    {"a", "", "/w/x/a"},
    {"a/b", "", "/w/x/a/b"},
    {"a/", "", "/w/x/a/"},
    {"a//b/./c.d", "", "/w/x/a/b/c.d"},
    {"a\\b", "", "/w/x/a/b"},
    {".profile", "", "/w/x/.profile"},
    // dots
    {"./a", "", "/w/x/a"},
    {"../a", "", "/w/a"},
    {"../", "", "/w/"},
    {"./", "", "/w/x/"},
    {"../../a", "", "/a"},
    {"../../../a", "", "/a"},
    {"a/../b", "", "/w/x/b"},
    {"a/../../b", "", "/w/b"},
    // a final dot or two do not climb
    {".", "", "/w/x/"},
    {"..", "", "/w/x/"},
    {"a/..", "", "/w/x/a/"},
    {"a/.", "", "/w/x/a/"},
    {"../..", "", "/w/"},
    {"...", "", "/w/x/.."},
    {"a.", "", "/w/x/a"},
    {"..a", "", "/w/x/.a"},
    // no drives here
    {"C:/x/y.txt", "", "/w/x/C:/x/y.txt"},
    {"C:\\x\\..\\y.txt", "", "/w/x/C:/y.txt"},
    // absolute already
    {"/", "", "/"},
    {"/a", "", "/a"},
    {"/a/../b", "", "/a/../b"},
    {"/./a/.", "", "/./a/."},
    {"/..", "", "/.."},
    {"//a/b.", "", "/a/b."},
    {"\\a\\..\\b", "", "/a/../b"},
};

location_row const at_a_given_directory[] = {
    {"a", "/x", "/x/a"},
    {"a", "/x/", "/x/a"},
    {"a", "/x//", "/x/a"},
    {"../a", "/x/y", "/x/a"},
    {"a", "/", "/a"},
    {"a", "//", "/a"},
    {"", "/", "/"},
    {"..", "/", "/"},
    {"a/.", "/x", "/x/a/"},
    {"", "/w/x", "/w/x/"},
    {"..", "/w/x", "/w/x/"},
    {"../../../a", "/x/y", "/a"},
    // a relative one gives a relative path
    {"a", "x", "x/a"},
    {"", "x", "x/"},
    {"..", "x", "x/"},
    {"../a", "x", "a"},
    {"../../a", "x", "../a"},
    {"a", ".", "a"},
    {"a", "..", "../a"},
    {"a", "../x", "../x/a"},
    // it is a directory whatever it looks like
    {"a", "/x/y.txt", "/x/y.txt/a"},
    {"a", "/x/y.", "/x/y./a"},
    {"a", "/x/..", "/a"},
    {"a", "/x/.", "/x/a"},
    {"a", "/x/../y", "/y/a"},
    {"a", "C:/x", "C:/x/a"},
    // and a text like any other
    {"a", "\\x\\y", "/x/y/a"},
    {"a", "/x//y\\", "/x/y/a"},
    {"a", "/does/not/exist", "/does/not/exist/a"},
    // absolute already
    {"/a", "/x", "/a"},
    {"/a/../b", "/x", "/a/../b"},
    {"/a/.", "x", "/a/."},
    {"/", "/x", "/"},
};

location_row const moves[] = {
    {"/a/b/f.t", "..", "/a/f.t"},
    {"/a/b/f.t", ".", "/a/b/f.t"},
    {"/a/b/f.t", "c", "/a/b/c/f.t"},
    {"/a/b/f.t", "c/", "/a/b/c/f.t"},
    {"/a/b/f.t", "c\\d", "/a/b/c/d/f.t"},
    {"/a/b/f.t", "c//d\\\\e/", "/a/b/c/d/e/f.t"},
    {"/a/b/f.t", "../c", "/a/c/f.t"},
    {"/a/b/f.t", "../..", "/f.t"},
    {"/a/b/f.t", "../../..", "/f.t"},
    {"/a/b/f.t", "...", "/a/b/.../f.t"},
    {"/a/b/f.t", "x.y", "/a/b/x.y/f.t"},
    {"/a/b/", "c\\d", "/a/b/c/d/"},
    {"/a/b/", "..", "/a/"},
    {"/a/", "C:/x", "/a/C:/x/"},
    {"/a/f.t", "../..", "/f.t"},
    // to an absolute directory
    {"/a/b/f.t", "/x/y", "/x/y/f.t"},
    {"/a/b/f.t", "/x", "/x/f.t"},
    {"/a/b/f.t", "\\x", "/x/f.t"},
    {"/a/b/f.t", "//x//y/", "/x/y/f.t"},
    {"/a/b/f.t", "/x/../y", "/y/f.t"},
    {"/a/b/f.t", "/..", "/f.t"},
    {"/a/b/f.t", "/", "/f.t"},
    {"/a/b/f.t", "\\", "/f.t"},
    {"f.t", "/x", "/x/f.t"},
    // from a relative directory, or from none
    {"f.t", "sub", "sub/f.t"},
    {"f.t", "..", "../f.t"},
    {"f.t", ".", "f.t"},
    {"f.t", "./sub/../x", "x/f.t"},
    {"a/f.t", "..", "f.t"},
    {"a/f.t", "../..", "../f.t"},
    {"../f.t", "..", "../../f.t"},
    {"a/b/", "../..", ""},
    {"", "a", "a/"},
    {"", "..", "../"},
    {"", "/", "/"},
    // simplification takes the path as a whole
    {"a/../b/f", "c", "b/c/f"},
    {"a/./b/f", ".", "a/b/f"},
    {"a.", "x", "x/a"},
    {".", "x", "x/"},
    {"..", "x", "x/"},
    {"..a", "x", "x/.a"},
    // nothing to do
    {"/a/b/f.t", "", "/a/b/f.t"},
    {"a/../f.t", "", "a/../f.t"},
    {"a/..", "", "a/.."},
    {".", "", "."},
    {"", "", ""},
};

} // namespace

// Absolute paths

TEST_F(path_location, relative_path_is_anchored_at_the_current_directory) {
  pretend_current_directory("/w/x");
  for (location_row const& row : at_the_current_directory) {
    expect_absolute(row);
  }
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_location, relative_path_is_anchored_at_a_given_directory) {
  pretend_current_directory("/w/x");
  for (location_row const& row : at_a_given_directory) {
    expect_absolute(row);
  }
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_location, older_simplification_makes_no_difference) {
  pretend_current_directory("/w/x");
  ::setenv("fio_old_simplify", "", 1);
  for (location_row const& row : at_the_current_directory) {
    expect_absolute(row);
  }
  for (location_row const& row : at_a_given_directory) {
    expect_absolute(row);
  }
  for (location_row const& row : moves) {
    expect_moved(row);
  }
}

TEST_F(path_location, separator_at_the_end_of_the_current_directory_is_not_doubled) {
  pretend_current_directory("/w/x/");
  EXPECT_EQ(absolute_text("a", ""), "/w/x/a");
  EXPECT_EQ(absolute_text("", ""), "/w/x/");
}

TEST_F(path_location, root_as_the_current_directory) {
  pretend_current_directory("/");
  location_row const rows[] = {
      {"a", "", "/a"}, {"..", "", "/"}, {"", "", "/"}, {".", "", "/"}, {"../a", "", "/a"}, {"a/..", "", "/a/"},
  };
  for (location_row const& row : rows) {
    expect_absolute(row);
  }
}

TEST_F(path_location, unreadable_current_directory_counts_as_the_root) {
  pretend_unreadable_current_directory();
  location_row const rows[] = {
      {"a", "", "/a"}, {"a/b", "", "/a/b"}, {"..", "", "/"}, {"../a", "", "/a"}, {"", "", "/"}, {"/a/..", "", "/a/.."},
  };
  for (location_row const& row : rows) {
    expect_absolute(row);
  }
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_location, current_directory_is_read_once_without_a_given_one) {
  pretend_current_directory("/w/x");
  platform_double::record_calls(true);
  for (char const* const text : {"a", "", "..", "a/b/../c", "/a", "/a/../b", "/"}) {
    SCOPED_TRACE(text);
    platform_double::calls().clear();
    FIO_PATH path(text);
    path.become_absolute("");
    EXPECT_EQ(platform_double::calls(), texts{"osi_getcwd(1024)"});
  }
}

TEST_F(path_location, unreadable_current_directory_is_not_asked_for_again) {
  pretend_unreadable_current_directory();
  platform_double::record_calls(true);
  EXPECT_EQ(absolute_text("a", ""), "/a");
  EXPECT_EQ(platform_double::calls(), texts{"osi_getcwd(1024)"});
}

TEST_F(path_location, nothing_is_asked_of_the_system_with_a_given_directory) {
  platform_double::record_calls(true);
  for (location_row const& row : at_a_given_directory) {
    expect_absolute(row);
  }
  for (location_row const& row : moves) {
    expect_moved(row);
  }
  EXPECT_EQ(platform_double::calls(), texts());
}

TEST_F(path_location, real_current_directory) {
  m_tree.draw({"here/"});
  ASSERT_EQ(::chdir(m_tree.path("here").c_str()), 0);
  EXPECT_EQ(absolute_text("a", ""), m_tree.path("here/a"));
  EXPECT_EQ(absolute_text("../a", ""), m_tree.path("a"));
  EXPECT_EQ(absolute_text("", ""), m_tree.path("here/"));
}

TEST_F(path_location, current_directory_that_was_removed_or_is_too_deep_counts_as_the_root) {
  m_tree.draw({"gone/"});
  ASSERT_EQ(::chdir(m_tree.path("gone").c_str()), 0);
  ASSERT_EQ(::rmdir(m_tree.path("gone").c_str()), 0);
  EXPECT_EQ(absolute_text("a/b", ""), "/a/b");

  fs::current_path(make_deep_directory(m_tree));
  EXPECT_EQ(absolute_text("a/b", ""), "/a/b");
}

TEST_F(path_location, given_directory_ends_at_its_first_nul) {
  pretend_current_directory("/w/x");
  EXPECT_EQ(absolute_text("a", std::string("/x\0y", 4)), "/x/a");
  // It is not empty, so the current directory does not come in.
  EXPECT_EQ(absolute_text("a", std::string("\0x", 2)), "/a");
}

TEST_F(path_location, own_text_may_be_the_given_directory) {
  FIO_PATH path("a/b");
  path.become_absolute(path);
  EXPECT_EQ(path.fullpath(), "a/b/a/b");
  FIO_PATH moved("a/b");
  moved.cd(moved.directory());
  EXPECT_EQ(moved.fullpath(), "a/a/b");
}

TEST_F(path_location, absolute_path_stays_as_it_is_for_good) {
  pretend_current_directory("/w/x");
  for (location_row const& row : at_the_current_directory) {
    SCOPED_TRACE(row.path);
    FIO_PATH path(row.path);
    path.become_absolute("");
    EXPECT_TRUE(path.absolute());
    std::string const once = path.fullpath();
    path.become_absolute("");
    path.become_absolute("/other");
    EXPECT_EQ(path.fullpath(), once);
  }
}

TEST_F(path_location, separator_of_the_path_is_kept) {
  struct {
    char separator;
    char const* path;
    char const* directory;
    char const* expected;
    char const* with_other_directory;
  } const rows[] = {
      {'\\', "b", "/x", "\\x\\b", "p\\q\\b"},        {'\\', "a/b", "/x", "\\x\\a\\b", "p\\q\\b"},
      {'\\', "../b", "\\x\\y", "\\x\\b", "p\\q\\b"}, {'\\', "/a/../b", "/x", "\\a\\..\\b", "p\\q\\b"},
      {'|', "b", "/x", "|x|/b", "p|q|/b"},           {'|', "a/b", "/x", "|x|a|/b", "p|q|/b"},
      {'|', "../b", "/x/y", "|x|/b", "p|q|/b"},      {'|', "/a/./b", "/x", "|a|.|/b", "p|q|/b"},
      {'|', "a/b", "x|y", "x|y|a|/b", "p|q|/b"},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(std::string(row.path) + " with the separator " + row.separator);
    FIO_PATH path(row.path);
    path.path_separator(row.separator).become_absolute(row.directory);
    EXPECT_EQ(path.fullpath(), row.expected);
    EXPECT_EQ(path.directory("p/q").fullpath(), row.with_other_directory);
  }
}

// The older algorithm finds no components between unusual separators.
TEST_F(path_location, path_is_simplified_by_the_algorithm_that_the_variable_selects) {
  auto const anchored = [] {
    FIO_PATH path("../b");
    path.path_separator('|').become_absolute("/x/y");
    return path.fullpath();
  };
  EXPECT_EQ(anchored(), "|x|/b");
  ::setenv("fio_old_simplify", "1", 1);
  EXPECT_EQ(anchored(), "|x|y|..|/b");
}

// Only the path's own separator makes it absolute, and the joined text is divided as usual.
TEST_F(path_location, assigned_path_with_backslashes_is_relative) {
  FIO_PATH path = assigned_from(with_separator('\\', "/a/../b"));
  path.become_absolute("/x");
  EXPECT_EQ(path.fullpath(), "/x/b");
  FIO_PATH relative = assigned_from(with_separator('\\', "a/b"));
  relative.become_absolute("/x");
  EXPECT_EQ(relative.fullpath(), "/x/a/b");
}

TEST_F(path_location, drive_becomes_text) {
  FIO_PATH relative("a/f");
  relative.drive('C').become_absolute("/x");
  EXPECT_EQ(relative.fullpath(), "/x/C:a/f");
  EXPECT_EQ(relative.directory("y").fullpath(), "y/f");

  FIO_PATH absolute("/a/../f");
  absolute.drive('C').become_absolute("/x");
  EXPECT_EQ(absolute.fullpath(), "C:/a/../f");
}

// Absolute paths, length

TEST_F(path_location, joined_text_over_the_limit_leaves_nothing) {
  pretend_current_directory("/w/x");
  struct {
    std::string path;
    std::string directory;
    std::string expected;
    bool legal;
  } const rows[] = {
      {repeated(1018), "", "/w/x/" + repeated(1018), true},
      {repeated(1019), "", "", false},
      {repeated(1020), "/x", "/x/" + repeated(1020), true},
      {repeated(1021), "/x", "", false},
      // the length is that of the joined text, not of what is left of it
      {"../" + repeated(1015), "", "/w/" + repeated(1015), true},
      {"../" + repeated(1016), "", "", false},
      {repeated(1019), "/x/", "/x/" + repeated(1019), true},
      {repeated(1020), "/x/", "", false},
      {"a", "/" + repeated(1020), "/" + repeated(1020) + "/a", true},
      {"a", "/" + repeated(1021), "", false},
      {"a", "/" + repeated(1022), "", false},
      // a given directory that is refused itself is no directory
      {"a", "/" + repeated(1023), "/a", true},
      {"", "/" + repeated(1023), "/", true},
      {"../a", repeated(5000), "/a", true},
  };
  for (char const* const variable : {static_cast<char const*>(nullptr), "1"}) {
    if (variable != nullptr) {
      ::setenv("fio_old_simplify", variable, 1);
    }
    for (auto const& row : rows) {
      SCOPED_TRACE(std::to_string(row.path.size()) + " at " + std::to_string(row.directory.size()));
      FIO_PATH path(row.path);
      path.become_absolute(row.directory);
      EXPECT_EQ(path.is_legal_length(), row.legal);
      EXPECT_EQ(path.fullpath(), row.expected);
      EXPECT_EQ(path.directory() + path.base() + path.extension(), row.expected);
    }
  }
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_location, current_directory_over_the_limit_counts_as_the_root) {
  // The buffer that is handed down is one longer than the layer below is told.
  platform_double::replaced().osi_getcwd = [](char* buffer, unsigned long size) -> char* {
    std::memset(buffer, 'x', size);
    *buffer = '/';
    return buffer;
  };
  EXPECT_EQ(absolute_text("a", ""), "/a");
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_location, long_extension_of_the_given_directory_is_cut) {
  EXPECT_EQ(absolute_text("a", "/x." + repeated(300, 'e')), "/x." + repeated(255, 'e') + "/a");
}

TEST_F(path_location, relative_path_that_edits_made_too_long_is_noted_and_lost) {
  FIO_PATH path;
  path.directory(repeated(1100, 'd')).base("f");
  path.become_absolute("/x");
  EXPECT_EQ(messages(), texts{length_message(repeated(1100, 'd') + "/f")});
  EXPECT_EQ(path.fullpath(), "");
  EXPECT_FALSE(path.is_legal_length());
}

TEST_F(path_location, absolute_path_that_edits_made_too_long_stays) {
  FIO_PATH path;
  path.directory("/" + repeated(1100, 'd') + "/..").base("f");
  path.become_absolute("/x");
  EXPECT_EQ(messages(), texts());
  EXPECT_EQ(path.fullpath(), "/" + repeated(1100, 'd') + "/../f");
}

TEST_F(path_location, refused_path_is_anchored_as_an_empty_one) {
  pretend_current_directory("/w/x");
  FIO_PATH path(repeated(1024));
  ASSERT_FALSE(path.is_legal_length());
  path.become_absolute("");
  EXPECT_EQ(path.fullpath(), "/w/x/");
  EXPECT_TRUE(path.is_legal_length());
}

// Moving

TEST_F(path_location, directory_moves_and_the_name_stays) {
  for (location_row const& row : moves) {
    expect_moved(row);
  }
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_location, moves_can_be_chained) {
  FIO_PATH path("/a/b/f.t");
  EXPECT_EQ(path.cd("..").cd("c").cd("").cd("d/e").cd("../x").fullpath(), "/a/c/d/x/f.t");
}

TEST_F(path_location, moving_there_and_back_changes_nothing) {
  for (char const* const text : {"/a/b/f.t", "/f", "f", "a/", "../f", "../../a/f.t", "/"}) {
    for (char const* const there : {"x", "x.y", ".x", "...", "x\\"}) {
      SCOPED_TRACE(std::string(text) + " to " + there);
      FIO_PATH path(text);
      EXPECT_EQ(path.cd(there).cd("..").fullpath(), text);
    }
  }
}

TEST_F(path_location, current_directory_of_the_process_stays) {
  m_tree.draw({"here/below/"});
  ASSERT_EQ(::chdir(m_tree.path("here").c_str()), 0);
  FIO_PATH path("f");
  path.cd("below").cd("/").cd("..");
  path.become_absolute("");
  EXPECT_EQ(fs::current_path(), m_tree.path("here"));
}

TEST_F(path_location, moving_goes_by_the_path_s_own_separator) {
  struct {
    char separator;
    char const* path;
    char const* directory;
    char const* expected;
  } const rows[] = {
      {'\\', "/a/b/f", "..", "\\a\\f"},      {'\\', "/a/b/f", "c/d", "\\a\\b\\c\\d\\f"},
      {'\\', "/a/b/f", "/x", "\\x\\f"},      {'\\', "/a/b/f", "\\x", "\\x\\f"},
      {'\\', "f", "../..", "..\\..\\f"},     {'|', "/a/b/f", "..", "|a|/f"},
      {'|', "/a/b/f", "c/d", "|a|b|c|d|/f"}, {'|', "/a/b/f", "c\\d", "|a|b|c\\d|/f"},
      {'|', "/a/b/f", "/x", "|x|/f"},        {'|', "/a/b/f", "|x||y", "|x|y|/f"},
      {'|', "/a/b/f", "\\x", "|a|b|\\x|/f"}, {'|', "a/f", "..", "f"},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(std::string(row.path) + " to " + row.directory + " with the separator " + row.separator);
    FIO_PATH path(row.path);
    path.path_separator(row.separator).cd(row.directory);
    EXPECT_EQ(path.fullpath(), row.expected);
  }
}

TEST_F(path_location, moving_an_assigned_path_brings_it_to_its_separator) {
  struct {
    char const* path;
    char separator;
    char const* directory;
    char const* expected;
  } const rows[] = {
      {"a/b/f", '\\', "c", "a/b/c/f"}, {"a/b/f", '\\', "..", "a/f"},       {"/a/f", '\\', "c", "/a/c/f"},
      {"a/f", '\\', "", "a\\f"},       {"a/b/f", '|', "c", "a|b|/c/f"},    {"a/b/f", '|', "..", "f"},
      {"a/b/f", '\\', "/x", "/x/f"},   {"a/b/f", '|', "\\x\\y", "/x/y/f"},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(std::string(row.path) + " from the separator " + row.separator + " to " + row.directory);
    FIO_PATH path = assigned_from(with_separator(row.separator, row.path));
    EXPECT_EQ(path.cd(row.directory).fullpath(), row.expected);
  }
}

TEST_F(path_location, moving_to_a_directory_that_begins_with_a_nul_simplifies) {
  FIO_PATH path("a/../f.t");
  EXPECT_EQ(path.cd(std::string("\0x", 2)).fullpath(), "f.t");
}

TEST_F(path_location, moving_a_path_with_a_drive_takes_the_drive_into_the_directory) {
  FIO_PATH absolute("/a/f");
  EXPECT_EQ(absolute.drive('C').cd("b").fullpath(), "C:/C:/a/b/f");
  FIO_PATH relative("a/f");
  EXPECT_EQ(relative.drive('C').cd("b").fullpath(), "C:C:a/b/f");
  FIO_PATH untouched("a/../f");
  EXPECT_EQ(untouched.drive('C').cd("").fullpath(), "C:a/../f");
}

TEST_F(path_location, moving_past_the_limit_is_noted_and_not_refused) {
  std::string const d = repeated(1022, 'd');
  FIO_PATH path("f");
  EXPECT_EQ(path.cd(d.substr(1)).is_legal_length(), true);
  EXPECT_EQ(messages(), texts());

  FIO_PATH longer("f");
  longer.cd(d);
  EXPECT_EQ(messages(), texts{length_message(d + "/f")});
  EXPECT_EQ(longer.directory(), d + "/");
  EXPECT_FALSE(longer.is_legal_length());

  // An empty argument does not even look.
  platform_double::debug_messages().clear();
  longer.cd("");
  EXPECT_EQ(messages(), texts());
  longer.cd("..");
  EXPECT_EQ(messages(), texts());
  EXPECT_EQ(longer.fullpath(), "f");
  EXPECT_TRUE(longer.is_legal_length());
}

TEST_F(path_location, moving_past_the_limit_loses_the_directory_with_the_older_simplification) {
  ::setenv("fio_old_simplify", "1", 1);
  FIO_PATH relative("a/f");
  EXPECT_EQ(relative.cd(repeated(1020)).fullpath(), "f");
  FIO_PATH absolute("/a/f");
  EXPECT_EQ(absolute.cd(repeated(1020)).fullpath(), "/f");
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_location, refused_path_moves_and_stays_refused) {
  FIO_PATH path(repeated(1024));
  EXPECT_EQ(path.cd("a").fullpath(), "a/");
  EXPECT_FALSE(path.is_legal_length());
}

// Real locations

TEST_F(path_location, real_location_is_absolute_and_without_links_and_dots) {
  m_tree.draw({"real/deep/f.t", "real/deep.x/", "file", "link -> real/deep", "chain -> link", "real/up -> ../file",
               "again -> real/up", "self -> ."});
  m_tree.draw({("absolute -> " + m_tree.path("real")).c_str()});
  struct {
    char const* path;
    char const* expected;
  } const rows[] = {
      {"file", "file"},
      {"real/deep/f.t", "real/deep/f.t"},
      {"real/deep", "real/deep"},
      {"real/deep/", "real/deep"},
      {"real//deep///f.t", "real/deep/f.t"},
      {"./real/./deep/.", "real/deep"},
      {"real/deep/..", "real"},
      {"real/../file", "file"},
      {"real/deep/../deep.x", "real/deep.x"},
      // links
      {"link", "real/deep"},
      {"link/f.t", "real/deep/f.t"},
      {"link/..", "real"},
      {"link/../../file", "file"},
      {"chain/f.t", "real/deep/f.t"},
      {"real/up", "file"},
      {"again", "file"},
      {"absolute/deep/f.t", "real/deep/f.t"},
      {"self/self/file", "file"},
  };
  ASSERT_EQ(::chdir(m_tree.root().c_str()), 0);
  for (auto const& row : rows) {
    SCOPED_TRACE(row.path);
    EXPECT_EQ(canonical_text(m_tree.root() + '/' + row.path), m_tree.path(row.expected));
    EXPECT_EQ(canonical_text(row.path), m_tree.path(row.expected));
  }
  EXPECT_EQ(canonical_text("."), m_tree.root());
  EXPECT_EQ(canonical_text("/"), "/");
  EXPECT_EQ(canonical_text("/.."), "/");
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_location, real_location_starts_at_the_real_current_directory) {
  m_tree.draw({"here/f", "f", "link -> here"});
  pretend_current_directory(m_tree.root());
  platform_double::record_calls(true);
  ASSERT_EQ(::chdir(m_tree.path("link").c_str()), 0);
  EXPECT_EQ(canonical_text("f"), m_tree.path("here/f"));
  EXPECT_EQ(canonical_text("../f"), m_tree.path("f"));
  EXPECT_EQ(canonical_text("."), m_tree.path("here"));
  for (std::string const& call : platform_double::calls()) {
    EXPECT_NE(call.rfind("osi_", 0), 0u) << call;
  }
}

TEST_F(path_location, real_location_of_an_empty_text_is_the_current_directory) {
  m_tree.draw({"here/"});
  ASSERT_EQ(::chdir(m_tree.path("here").c_str()), 0);
  EXPECT_EQ(canonical_text(""), m_tree.path("here"));
}

// The system looks at the name up to there.
TEST_F(path_location, real_location_keeps_what_stands_behind_a_nul) {
  m_tree.draw({"here/f"});
  ASSERT_EQ(::chdir(m_tree.path("here").c_str()), 0);
  EXPECT_EQ(canonical_text(std::string("f\0x", 3)), m_tree.path("here") + std::string("/f\0x", 4));
}

TEST_F(path_location, real_location_is_a_text_as_the_system_has_it) {
  for (char const* const name : {"a\\b", "a.", "...", "..a", " ", "%s", "\xff\xfe", "C:"}) {
    SCOPED_TRACE(name);
    m_tree.make_file(name);
    EXPECT_EQ(canonical_text(m_tree.path(name)), m_tree.path(name));
  }
  // A backslash is a character like any other here.
  m_tree.draw({"d/f"});
  EXPECT_EQ(canonical_text(m_tree.root() + "/d\\f"), std::nullopt);
}

TEST_F(path_location, real_location_of_what_cannot_be_reached_is_absent) {
  m_tree.draw(
      {"file", "dir/", "dangling -> missing", "loop -> loop", "to -> fro", "fro -> to", "into -> dangling/deeper"});
  char const* const missing[] = {"missing", "missing/file", "dir/missing", "missing/..",      "dangling", "dangling/x",
                                 "loop",    "loop/x",       "to",          "fro/x",           "into",     "file/x",
                                 "file/..", "file/.",       "FILE",        "missing/../file", "file "};
  ASSERT_EQ(::chdir(m_tree.root().c_str()), 0);
  for (char const* const name : missing) {
    SCOPED_TRACE(name);
    EXPECT_EQ(canonical_text(m_tree.root() + '/' + name), std::nullopt);
    EXPECT_EQ(canonical_text(name), std::nullopt);
  }
  EXPECT_EQ(canonical_text(m_tree.path(repeated(256))), std::nullopt);
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_location, real_location_has_no_limit_of_length) {
  std::string const deep = make_deep_directory(m_tree);
  ASSERT_GT(deep.size(), 1023u);
  EXPECT_EQ(canonical_text(deep), deep);
  EXPECT_EQ(canonical_text(deep + "/../."), deep.substr(0, deep.rfind('/')));
  fs::current_path(deep);
  EXPECT_EQ(canonical_text("."), deep);
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_location, real_location_is_absent_without_a_current_directory) {
  m_tree.draw({"gone/", "file"});
  ASSERT_EQ(::chdir(m_tree.path("gone").c_str()), 0);
  ASSERT_EQ(::rmdir(m_tree.path("gone").c_str()), 0);
  EXPECT_EQ(canonical_text("."), std::nullopt);
  EXPECT_EQ(canonical_text("file"), std::nullopt);
  // An absolute path does not need it, and is refused all the same.
  EXPECT_EQ(canonical_text(m_tree.path("file")), std::nullopt);
  EXPECT_EQ(canonical_text("/"), std::nullopt);
}

TEST_F(path_location, real_location_needs_permission_to_search_the_way) {
  EXPECT_TRUE(holds_for_ordinary_user(
      [](scratch_tree const& tree) {
        tree.draw({"open/f", "closed/f"});
        std::string const closed = tree.path("closed");
        bool const as_expected = canonical_text(tree.path("open/f")) == tree.path("open/f") &&
                                 canonical_text(closed + "/f") == closed + "/f" && ::chmod(closed.c_str(), 0) == 0 &&
                                 canonical_text(closed) == closed && canonical_text(closed + "/f") == std::nullopt;
        return ::chmod(closed.c_str(), 0700) == 0 && as_expected;
      },
      m_tree));
}

TEST_F(path_location, absent_location_is_not_an_empty_one) {
  static_assert(std::is_same_v<decltype(FIO_PATH::canonical("")), boost::optional<std::string>>);
  EXPECT_FALSE(FIO_PATH::canonical(m_tree.path("missing")).has_value());
  boost::optional<std::string> const present = FIO_PATH::canonical(m_tree.root());
  ASSERT_TRUE(present.has_value());
  EXPECT_EQ(*present, m_tree.root());
}
