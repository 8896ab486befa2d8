// The text of a path as seen from a directory.

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <string>
#include <vector>

#include "ccl/fio/fio_path.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

using std::string_literals::operator""s;
using texts = std::vector<std::string>;

class relative_path : public fio_test {};

std::string seen_from(std::string const& directory, std::string const& text) {
  return FIO_PATH(text).get_relative_to(directory);
}

struct relative_row {
  std::string path;
  std::string directory;
  std::string expected;
};

void expect_relative(relative_row const& row) {
  SCOPED_TRACE("'" + row.path + "' from '" + row.directory + "'");
  FIO_PATH const path(row.path);
  EXPECT_EQ(path.get_relative_to(row.directory), row.expected);
  EXPECT_EQ(path.fullpath(), FIO_PATH(row.path).fullpath());
}

// With these the answer leads somewhere.
relative_row const relative[] = {
    // the same directory
    {"/a/b/f.t", "/a/b", "f.t"},
    {"/a/b/f.t", "/a/b/", "f.t"},
    {"/a/b/f.t", "/a/b//", "f.t"},
    {"/a/b/f.t", "/a/b/////", "f.t"},
    {"/a/f", "/a", "f"},
    {"/a/b/", "/a/b", ""},
    {"/a/b/", "/a/b/", ""},
    {"/a/", "/a", ""},
    // a parent
    {"/a/b/f.t", "/a", "b/f.t"},
    {"/a/b/c/d/f", "/a/b", "c/d/f"},
    {"/a/b/", "/a", "b/"},
    {"/a/b/c/", "/a/", "b/c/"},
    // a directory below
    {"/a/f.t", "/a/b/c", "../../f.t"},
    {"/a/f.t", "/a/b", "../f.t"},
    {"/a/", "/a/b", "../"},
    {"/a/", "/a/b/c/d", "../../../"},
    {"/a/b/", "/a/b/c/", "../"},
    // beside
    {"/a/b/f.t", "/a/c", "../b/f.t"},
    {"/a/b/c/f.t", "/a/b/x/y", "../../c/f.t"},
    {"/a/b/", "/a/c", "../b/"},
    {"/a/b/c/d", "/a/x/c", "../../b/c/d"},
    {"/a/b/b/f", "/a/b/a/b", "../../b/f"},
    // a level is only the same as a whole
    {"/a/b/f", "/a/bc", "../b/f"},
    {"/a/bc/f", "/a/b", "../bc/f"},
    {"/a/b/f", "/a/B", "../b/f"},
    {"/a/b.c/f", "/a/b", "../b.c/f"},
    {"/a/\xff/f", "/a/\xfe", "../\xff/f"},
    // a name is no directory, and all of the argument is one
    {"/a/b", "/a/b", "../b"},
    {"/a/b/f.t", "/a/b/f.t", "../f.t"},
    {"/a/b/f.t", "/a/b/f.t/", "../f.t"},
    {"/a/b", "/a/b/c", "../../b"},
    {"/a/f.t", "/a/.t", "../f.t"},
    // dots are levels and names like any other
    {"/a/../b/f.t", "/a", "../b/f.t"},
    {"/a/./b/f", "/a/b", ".././b/f"},
    {"/a/b/f", "/a/./b", "../../b/f"},
    {"/a/b/f", "/a/b/.", "../f"},
    {"/a/b/f", "/a/b/..", "../f"},
    {"/a/b/f", "/a/../a/b", "../../../b/f"},
    {"/a/../b/f", "/a/..", "b/f"},
    {"/../a/f", "/..", "a/f"},
    {"/./a/f", "/./b", "../a/f"},
    {"/a/.", "/a", "."},
    {"/a/..", "/a", ".."},
    {"/a/b/..", "/a/b", ".."},
    {"/a/b/..", "/a", "b/.."},
    {"/a/b/f.", "/a/b", "f."},
    {"/a/b/...", "/a/b", "..."},
    {"/a/b/.f", "/a/c", "../b/.f"},
    {"/a/b/f.t.u", "/a/c", "../b/f.t.u"},
    // separators
    {"/a/b/f", "/a\\c", "../b/f"},
    {"/a/b/f", "\\a\\b\\", "f"},
    {"/a/b/f", "//a///b", "f"},
    {"/a/b/f", "/\\a\\/b/\\", "f"},
    {"\\a\\b\\f", "/a/c", "../b/f"},
    {"//a//b//f", "/a", "b/f"},
    // other bytes
    {"/a b/c d/e f", "/a b", "c d/e f"},
    {"/%s/%n", "/%s/%d", "../%n"},
    {"/a:/f", "/a:", "f"},
    {"/C:/a/f", "/C:", "a/f"},
};

// And here the path's own text comes back.
relative_row const unchanged[] = {
    // nothing in common
    {"/x/f.t", "/a/b", "/x/f.t"},
    {"/a/f", "/b", "/a/f"},
    {"/a/", "/b", "/a/"},
    {"/b/a/f", "/a", "/b/a/f"},
    {"/a/b/f", "/b", "/a/b/f"},
    {"/a/f", "/ab", "/a/f"},
    {"/ab/f", "/a", "/ab/f"},
    {"/A/f.t", "/a", "/A/f.t"},
    {"/./a/f", "/a", "/./a/f"},
    {"/a/f", "/./a", "/a/f"},
    {"/a/f", "/../a", "/a/f"},
    {"/C:/a/f", "/c:/a", "/C:/a/f"},
    {"/x/../a/f", "/a", "/x/../a/f"},
    // no levels
    {"/f.t", "/a", "/f.t"},
    {"/a", "/a", "/a"},
    {"/a", "/a/", "/a"},
    {"/a/f.t", "/", "/a/f.t"},
    {"/a/f.t", "//", "/a/f.t"},
    {"/a/f.t", "\\", "/a/f.t"},
    {"/f.t", "/", "/f.t"},
    {"/", "/", "/"},
    {"/", "/a", "/"},
    {"/a/", "/", "/a/"},
    // a relative path
    {"a/f.t", "/a", "a/f.t"},
    {"a/f.t", "a", "a/f.t"},
    {"a/f.t", "", "a/f.t"},
    {"f", "/a", "f"},
    {"./f", "/a", "./f"},
    {"../a/f", "/a", "../a/f"},
    {"", "/a", ""},
    {"", "", ""},
    {".", "/a", "."},
    {"C:/a/f.t", "C:/a", "C:/a/f.t"},
    {"C:\\a\\f.t", "/C:/a", "C:/a/f.t"},
    // a relative directory
    {"/a/f.t", "a", "/a/f.t"},
    {"/a/f.t", "a/", "/a/f.t"},
    {"/a/f.t", ".", "/a/f.t"},
    {"/a/f.t", "", "/a/f.t"},
    {"/a/f.t", "./a", "/a/f.t"},
    {"/a/f.t", " /a", "/a/f.t"},
    {"/C:/a/f.t", "C:/a", "/C:/a/f.t"},
    // unchanged is the text that the path has, not the one that it was given
    {"\\x\\f", "/a", "/x/f"},
    {"//x//f", "/a", "/x/f"},
    {"x\\\\f", "/a", "x/f"},
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

// The texts between the separators, and what stands behind the last one.
texts pieces_of(std::string const& text) {
  texts pieces{""};
  for (char const character : text) {
    if (character != '/') {
      pieces.back() += character;
    } else if (!pieces.back().empty()) {
      pieces.emplace_back();
    }
  }
  return pieces;
}

// The rule, told in another way, for texts whose only separator is `/`.
std::string told_result(std::string const& path, std::string const& directory) {
  texts own = pieces_of(path);
  std::string const name = own.back();
  own.pop_back();
  texts theirs = pieces_of(directory + '/');
  theirs.pop_back();
  if (path.substr(0, 1) != "/" || directory.substr(0, 1) != "/" || own.empty() || theirs.empty() ||
      own[0] != theirs[0]) {
    return FIO_PATH(path).fullpath();
  }
  std::size_t common = 0;
  while (common != own.size() && common != theirs.size() && own[common] == theirs[common]) {
    ++common;
  }
  std::string result;
  for (std::size_t i = common; i != theirs.size(); ++i) {
    result += "../";
  }
  for (std::size_t i = common; i != own.size(); ++i) {
    result += own[i] + '/';
  }
  return result + name;
}

std::string steps_up(std::size_t count) {
  std::string steps;
  for (; count != 0; --count) {
    steps += "../";
  }
  return steps;
}

std::string levels(std::size_t count) {
  std::string result;
  for (; count != 0; --count) {
    result += "b/";
  }
  return result;
}

} // namespace

// The results

TEST_F(relative_path, path_is_told_as_seen_from_the_directory) {
  static_assert(has_type<std::string (FIO_PATH::*)(std::string const&) const>(&FIO_PATH::get_relative_to));
  for (relative_row const& row : relative) {
    expect_relative(row);
  }
  EXPECT_EQ(messages(), texts());
}

TEST_F(relative_path, path_stays_as_it_is_without_a_common_first_level) {
  for (relative_row const& row : unchanged) {
    expect_relative(row);
  }
  EXPECT_EQ(messages(), texts());
}

TEST_F(relative_path, documented_examples) {
  EXPECT_EQ(FIO_PATH("/a/b/f.t").get_relative_to("/a/b"), "f.t");
  EXPECT_EQ(FIO_PATH("/a/b/f.t").get_relative_to("/a/c"), "../b/f.t");
  EXPECT_EQ(FIO_PATH("/a/b/").get_relative_to("/a/b"), "");
  EXPECT_EQ(FIO_PATH("/x/f.t").get_relative_to("/a/b"), "/x/f.t");
  EXPECT_EQ(FIO_PATH("/a/f.t").get_relative_to("/"), "/a/f.t");
  EXPECT_EQ(FIO_PATH("/a/../b/f").get_relative_to("/a"), "../b/f");
  EXPECT_EQ(with_separator('\\', "/a/b/f").get_relative_to("/a/c"), "..\\b/f");
}

TEST_F(relative_path, every_short_path_and_directory) {
  texts const all = all_texts("/.a", 5);
  texts const directories = all_texts("/.a", 4);
  for (std::string const& path : all) {
    for (std::string const& directory : directories) {
      ASSERT_EQ(seen_from(directory, path), told_result(path, directory)) << path << " from " << directory;
    }
  }
}

TEST_F(relative_path, answer_leads_back_from_the_directory) {
  for (std::string const& path : all_texts("/ab", 6)) {
    for (char const* const directory : {"/a", "/a/", "/b/a", "/a/a/b/", "/a//b"}) {
      FIO_PATH const original(path);
      if (original.absolute()) {
        FIO_PATH back(original.get_relative_to(directory));
        back.become_absolute(directory);
        ASSERT_EQ(back.fullpath(), original.fullpath()) << " from " << directory;
      }
    }
  }
}

TEST_F(relative_path, relative_answer_is_final) {
  for (relative_row const& row : relative) {
    SCOPED_TRACE("'" + row.path + "' from '" + row.directory + "'");
    EXPECT_EQ(seen_from(row.directory, row.expected), row.expected);
  }
}

// Both sides are simplified by those who want the shortest text.
TEST_F(relative_path, simplified_sides_give_the_shortest_text) {
  FIO_PATH path("/a/./b/../c/f");
  FIO_PATH directory("/a/x/../c/");
  EXPECT_EQ(path.get_relative_to(directory), "../../.././b/../c/f");
  path.become_simplified();
  directory.become_simplified();
  EXPECT_EQ(path.get_relative_to(directory), "f");
}

TEST_F(relative_path, nothing_is_asked_of_the_system) {
  platform_double::record_calls(true);
  for (relative_row const& row : relative) {
    expect_relative(row);
  }
  for (relative_row const& row : unchanged) {
    expect_relative(row);
  }
  EXPECT_EQ(platform_double::calls(), texts());
}

TEST_F(relative_path, own_text_may_be_the_directory) {
  FIO_PATH const path("/a/b/");
  EXPECT_EQ(path.get_relative_to(path), "");
  EXPECT_EQ(FIO_PATH("/a/b").get_relative_to(FIO_PATH("/a/b")), "../b");
}

TEST_F(relative_path, path_is_left_alone) {
  FIO_PATH const path = with_separator('\\', "/a/../b/f.t");
  EXPECT_EQ(path.get_relative_to("/a"), "../b/f.t");
  EXPECT_EQ(path.get_relative_to("/a/c"), "..\\../b/f.t");
  EXPECT_EQ(path.fullpath(), "\\a\\..\\b\\f.t");
  EXPECT_EQ(path.directory(), "\\a\\..\\b\\");
  EXPECT_EQ(path.filename(), "f.t");
  EXPECT_EQ(path.sync_path_separators("a/b"), "a\\b");
  EXPECT_TRUE(path.is_legal_length());
}

TEST_F(relative_path, memory_that_runs_out_changes_nothing) {
  std::string const level = "/" + repeated(50);
  FIO_PATH const path("/a" + level + level + "/f");
  std::string const directory = "/a" + repeated(50, '/') + "b" + level;
  long failures = 0;
  for (bool ended = false; !ended; ++failures) {
    std::string answer;
    try {
      allocation_failure const failure(failures + 1);
      answer = path.get_relative_to(directory);
      ended = true;
    } catch (std::bad_alloc const&) {
    }
    EXPECT_EQ(answer, ended ? "../.." + level + level + "/f" : "");
    EXPECT_EQ(path.fullpath(), "/a" + level + level + "/f");
  }
  EXPECT_GT(failures, 1);
}

// NUL

TEST_F(relative_path, directory_ends_at_its_first_nul) {
  relative_row const rows[] = {
      // and is a file name then, because the separator at the end is lost
      {"/a/b/f.t", "/a/b\0"s, "b/f.t"},    {"/a/b/f.t", "/a/b\0c"s, "b/f.t"},   {"/a/b/f.t", "/a/b\0/c/"s, "b/f.t"},
      {"/a/b/f.t", "/a/b/\0"s, "f.t"},     {"/a/b/f.t", "/a/b/\0c"s, "f.t"},    {"/a/b/f.t", "/a/c/\0/d"s, "../b/f.t"},
      {"/a/b/f.t", "/a\0"s, "/a/b/f.t"},   {"/a/b/f.t", "/a\0/b"s, "/a/b/f.t"}, {"/a/b/f.t", "\0/a/b"s, "/a/b/f.t"},
      {"/a/b/f.t", "/\0a/b"s, "/a/b/f.t"},
  };
  for (relative_row const& row : rows) {
    expect_relative(row);
  }
  // However long the rest is.
  EXPECT_EQ(seen_from("/a/b/\0"s + repeated(5000), "/a/b/f"), "f");
}

TEST_F(relative_path, components_of_the_path_end_at_their_first_nul) {
  FIO_PATH path;
  path.directory("/a/b\0c/d"s).base("f\0g"s);
  EXPECT_EQ(path.get_relative_to("/a/b"), "f");
  EXPECT_EQ(path.get_relative_to("/a/c"), "../b/f");
  EXPECT_EQ(path.get_relative_to("/x"), "/a/b/f");
}

// Separators

TEST_F(relative_path, steps_up_have_the_separator_of_the_path_and_the_rest_the_default_one) {
  struct {
    char separator;
    char const* path;
    char const* directory;
    char const* expected;
  } const rows[] = {
      {'\\', "/a/b/f", "/a/b", "f"},
      {'\\', "/a/b/f", "/a", "b/f"},
      {'\\', "/a/b/", "/a", "b/"},
      {'\\', "/a/b/", "/a/b", ""},
      {'\\', "/a/b/f", "/a/c", "..\\b/f"},
      {'\\', "/a/b/f", "\\a\\c\\", "..\\b/f"},
      {'\\', "/a/b/f", "/a\\c//d/\\", "..\\..\\b/f"},
      {'\\', "/a/b/c/d/f.t", "/a/x/y", "..\\..\\b/c/d/f.t"},
      {'\\', "/a/", "/a/b", "..\\"},
      // unchanged
      {'\\', "/x/b/f", "/a", "\\x\\b\\f"},
      {'\\', "a/b/f", "/a", "a\\b\\f"},
      {'\\', "/f", "/a", "\\f"},
      {'\\', "/a/f", "/", "\\a\\f"},
      {'\\', "/a/f", "", "\\a\\f"},
      // The default separator does not know a path with another one for absolute,
      {'|', "/a/b/f", "/a/b", "|a|b|/f"},
      {'|', "/a/b/f", "|a|b", "|a|b|/f"},
      {'|', "f", "/a", "f"},
      // but backslashes, which such a path leaves alone, separate like any other then.
      {'|', "\\a\\b\\f", "\\a\\c\\", "..|b/|/f"},
      {'|', "\\a\\b\\f", "\\a\\c\\d\\", "..|..|b/|/f"},
      {'|', "\\a\\b\\f", "\\a\\", "b/|/f"},
      // The separator that is put behind the directory does not end it, so its last level is a name.
      {'|', "\\a\\b\\f", "\\a\\c", "b/|/f"},
      {'|', "\\a\\b\\f", "\\a", "\\a\\b\\|/f"},
      {'|', "\\a\\b\\f", "/a/b", "\\a\\b\\|/f"},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE("'"s + row.path + "' from '" + row.directory + "' with the separator " + row.separator);
    EXPECT_EQ(with_separator(row.separator, row.path).get_relative_to(row.directory), row.expected);
  }
}

TEST_F(relative_path, assigned_path_is_divided_by_its_text) {
  FIO_PATH const path = assigned_from(with_separator('\\', "/a/b/f"));
  EXPECT_EQ(path.get_relative_to("/a/c"), "../b/f");
  EXPECT_EQ(path.get_relative_to("/x"), "\\a\\b\\f");
}

// What edits made

TEST_F(relative_path, text_counts_and_not_the_components) {
  FIO_PATH with_drive("/a/f");
  with_drive.drive('C');
  EXPECT_EQ(with_drive.get_relative_to("/a"), "C:/a/f");
  EXPECT_EQ(with_drive.get_relative_to("C:/a"), "C:/a/f");
  FIO_PATH with_odd_drive("a/f");
  with_odd_drive.drive('/');
  EXPECT_EQ(with_odd_drive.get_relative_to("/:a"), "f");

  FIO_PATH named("/a/");
  named.base("b\\c.d").extension(".e/f", "");
  EXPECT_EQ(named.fullpath(), "/a/b\\c.d.e/f");
  EXPECT_EQ(named.get_relative_to("/a"), "b/c.d.e/f");
  EXPECT_EQ(named.get_relative_to("/a/b"), "c.d.e/f");
  EXPECT_EQ(named.get_relative_to("/x"), "/a/b\\c.d.e/f");
}

TEST_F(relative_path, long_extension_is_cut_where_the_text_is_divided_anew) {
  FIO_PATH path("/a/f");
  path.extension(repeated(300, 'e'), "");
  EXPECT_EQ(path.get_relative_to("/a"), "f." + repeated(255, 'e'));
  EXPECT_EQ(path.get_relative_to("/x"), "/a/f." + repeated(300, 'e'));
}

// Length

TEST_F(relative_path, path_that_is_too_long_stays_as_it_is_without_notice) {
  struct {
    std::size_t length;
    bool is_relative;
  } const rows[] = {{1022, true}, {1023, true}, {1024, false}, {5000, false}};
  for (auto const& row : rows) {
    SCOPED_TRACE(row.length);
    FIO_PATH path("/a/b/");
    path.base(repeated(row.length - 5, 'f'));
    std::string const name = repeated(row.length - 5, 'f');
    EXPECT_EQ(path.get_relative_to("/a/b"), row.is_relative ? name : "/a/b/" + name);
    EXPECT_EQ(path.get_relative_to("/a/c"), row.is_relative ? "../b/" + name : "/a/b/" + name);
    EXPECT_EQ(path.get_relative_to("/x"), "/a/b/" + name);
    EXPECT_EQ(path.get_relative_to(""), "/a/b/" + name);
  }
  EXPECT_EQ(messages(), texts());
}

// It has its limit with the separator at its end, which is added if it is missing.
TEST_F(relative_path, directory_that_is_too_long_counts_as_relative_without_notice) {
  struct {
    std::string directory;
    bool is_relative;
  } const rows[] = {
      {"/a/" + repeated(1018), true},          {"/a/" + repeated(1019), true},
      {"/a/" + repeated(1020), false},         {"/a/" + repeated(1019) + "/", true},
      {"/a/" + repeated(1020) + "/", false},   {"/a/" + repeated(5000), false},
      {"/a/" + repeated(1019) + "////", true}, {"/a" + repeated(5000, '/') + "x", true},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.directory.size());
    EXPECT_EQ(seen_from(row.directory, "/a/b/f"), row.is_relative ? "../b/f" : "/a/b/f");
  }
  EXPECT_EQ(messages(), texts());
}

TEST_F(relative_path, answer_may_be_longer_than_a_path) {
  std::string const directory = "/a/" + levels(500);
  EXPECT_EQ(seen_from(directory, "/a/f"), steps_up(500) + "f");
  EXPECT_EQ(seen_from(directory, "/a/c/" + repeated(1000)), steps_up(500) + "c/" + repeated(1000));
  EXPECT_EQ(seen_from(directory, "/a/" + levels(499) + "f"), "../f");
  EXPECT_EQ(seen_from("/a", "/a/" + levels(500) + "f"), levels(500) + "f");
  EXPECT_EQ(messages(), texts());
}

TEST_F(relative_path, path_that_was_refused_is_an_empty_one) {
  EXPECT_EQ(seen_from("/a", "/a/" + repeated(1021)), "");
  EXPECT_EQ(seen_from("", repeated(1024)), "");
  EXPECT_EQ(messages(), texts());
}
