/// @file
/// The readers of `FIO_PATH`: what each answers from the stored components, and which of them look at the length.

#include "ccl/fio/fio_path.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include "tests/support/allocation_failure.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

class path_queries : public fio_test {};

namespace {

using std::string_literals::operator""s;

/// "aa/bb/xx...x.ext" with a text of exactly `length` characters. The name was lengthened by an edit.
FIO_PATH path_of_length(std::size_t length) {
  FIO_PATH path("aa/bb/.ext");
  path.base(repeated(length - path.fullpath().size()));
  return path;
}

std::vector<std::string> level_names(FIO_PATH const& path) {
  std::vector<std::string> names;
  for (int level = 0; level < path.levels(); ++level) {
    names.push_back(path[level]);
  }
  return names;
}

/// What every query answers for one path.
struct answers {
  std::string fullpath;
  std::string directory;
  std::string base;
  std::string extension;
  std::string filename;
  std::vector<std::string> names; ///< of the levels
  std::string tail;
  bool has_directory;
  bool has_extension;
  bool absolute;
  bool directory_path;
};

void expect_answers(FIO_PATH const& path, answers const& expected) {
  EXPECT_EQ(path.fullpath(), expected.fullpath);
  EXPECT_EQ(path.operator std::string(), expected.fullpath);
  EXPECT_STREQ(path.operator char const*(), expected.fullpath.c_str());
  EXPECT_EQ(path.directory(), expected.directory);
  EXPECT_EQ(path.full_directory(), expected.directory);
  EXPECT_EQ(path.base(), expected.base);
  EXPECT_EQ(path.extension(), expected.extension);
  EXPECT_EQ(path.filename(), expected.filename);
  EXPECT_EQ(path.levels(), static_cast<int>(expected.names.size()));
  EXPECT_EQ(level_names(path), expected.names);
  EXPECT_EQ(path[path.levels()], "");
  EXPECT_EQ(path.tail(), expected.tail);
  EXPECT_EQ(path.has_directory(), expected.has_directory);
  EXPECT_EQ(path.has_extension(), expected.has_extension);
  EXPECT_EQ(path.absolute(), expected.absolute);
  EXPECT_EQ(path.directory_path(), expected.directory_path);
  EXPECT_FALSE(path.has_drive());
  EXPECT_EQ(path.drive(), "");
}

/// One reader, called for its effects, and how many messages it writes about a text that is too long.
struct reader {
  char const* name;
  std::function<void(FIO_PATH const&)> read;
  std::size_t messages;
};

std::vector<reader> const& all_readers() {
  static std::vector<reader> const readers = {
      {"fullpath", [](FIO_PATH const& path) { static_cast<void>(path.fullpath()); }, 1},
      {"operator string", [](FIO_PATH const& path) { static_cast<void>(path.operator std::string()); }, 1},
      {"operator char const*", [](FIO_PATH const& path) { static_cast<void>(path.operator char const*()); }, 1},
      {"directory", [](FIO_PATH const& path) { static_cast<void>(path.directory()); }, 1},
      {"full_directory", [](FIO_PATH const& path) { static_cast<void>(path.full_directory()); }, 1},
      {"base", [](FIO_PATH const& path) { static_cast<void>(path.base()); }, 1},
      {"filename", [](FIO_PATH const& path) { static_cast<void>(path.filename()); }, 1},
      {"operator[] of a level", [](FIO_PATH const& path) { static_cast<void>(path[0]); }, 1},
      {"operator[] below the levels", [](FIO_PATH const& path) { static_cast<void>(path[-1]); }, 1},
      {"operator[] behind the levels", [](FIO_PATH const& path) { static_cast<void>(path[1000]); }, 1},
      {"tail", [](FIO_PATH const& path) { static_cast<void>(path.tail()); }, 2},
      {"get_path_components", [](FIO_PATH const& path) { static_cast<void>(path.get_path_components(15)); }, 0},
      {"has_drive", [](FIO_PATH const& path) { static_cast<void>(path.has_drive()); }, 0},
      {"has_directory", [](FIO_PATH const& path) { static_cast<void>(path.has_directory()); }, 0},
      {"has_extension", [](FIO_PATH const& path) { static_cast<void>(path.has_extension()); }, 0},
      {"absolute", [](FIO_PATH const& path) { static_cast<void>(path.absolute()); }, 0},
      {"directory_path", [](FIO_PATH const& path) { static_cast<void>(path.directory_path()); }, 0},
      {"drive", [](FIO_PATH const& path) { static_cast<void>(path.drive()); }, 0},
      {"extension", [](FIO_PATH const& path) { static_cast<void>(path.extension()); }, 0},
      {"levels", [](FIO_PATH const& path) { static_cast<void>(path.levels()); }, 0},
      {"legal", [](FIO_PATH const& path) { static_cast<void>(path.legal(0)); }, 0},
      {"is_legal_length", [](FIO_PATH const& path) { static_cast<void>(path.is_legal_length()); }, 0},
      {"unc", [](FIO_PATH const& path) { static_cast<void>(path.unc()); }, 0},
      {"copy construction", [](FIO_PATH const& path) { FIO_PATH const copy(path); }, 0},
  };
  return readers;
}

} // namespace

// The exact types of the queries

namespace {

using text_query = std::string (FIO_PATH::*)() const;
using yes_or_no_query = bool (FIO_PATH::*)() const;

} // namespace

static_assert(std::is_same_v<decltype(&FIO_PATH::get_path_components), std::string (FIO_PATH::*)(int) const>);
static_assert(std::is_same_v<decltype(&FIO_PATH::has_drive), yes_or_no_query>);
static_assert(std::is_same_v<decltype(&FIO_PATH::has_directory), yes_or_no_query>);
static_assert(std::is_same_v<decltype(&FIO_PATH::has_extension), yes_or_no_query>);
static_assert(std::is_same_v<decltype(&FIO_PATH::absolute), yes_or_no_query>);
static_assert(std::is_same_v<decltype(&FIO_PATH::directory_path), yes_or_no_query>);
static_assert(has_type<text_query>(&FIO_PATH::drive));
static_assert(has_type<text_query>(&FIO_PATH::directory));
static_assert(std::is_same_v<decltype(&FIO_PATH::full_directory), text_query>);
static_assert(has_type<text_query>(&FIO_PATH::base));
static_assert(has_type<text_query>(&FIO_PATH::extension));
static_assert(has_type<text_query>(&FIO_PATH::filename));
static_assert(std::is_same_v<decltype(&FIO_PATH::levels), int (FIO_PATH::*)() const>);
static_assert(std::is_same_v<decltype(&FIO_PATH::operator[]), std::string (FIO_PATH::*)(int) const>);
static_assert(has_type<text_query>(&FIO_PATH::tail));
static_assert(std::is_same_v<decltype(&FIO_PATH::is_dot_directory), bool (*)(std::string const&)>);
static_assert(std::is_same_v<decltype(&FIO_PATH::legal), bool (FIO_PATH::*)(int) const>);
static_assert(std::is_same_v<decltype(&FIO_PATH::is_legal_length), yes_or_no_query>);
static_assert(std::is_same_v<decltype(&FIO_PATH::unc), yes_or_no_query>);
static_assert(has_type<bool (*)(unsigned long)>(&FIO_PATH::is_path_length_within_operating_system_limits));
static_assert(has_type<bool (*)(std::string const&)>(&FIO_PATH::is_path_length_within_operating_system_limits));
static_assert(std::is_same_v<decltype(&FIO_PATH::fullpath), text_query>);
static_assert(std::is_same_v<decltype(&FIO_PATH::operator std::string), text_query>);
static_assert(std::is_same_v<decltype(&FIO_PATH::operator char const*), char const* (FIO_PATH::*)() const>);

// The answers

TEST_F(path_queries, every_query_answers_from_the_parsed_components) {
  constexpr bool yes = true;
  constexpr bool no = false;
  struct {
    std::string text;
    answers expected;
  } const rows[] = {
      // text, {fullpath, directory, base, extension, filename, names, tail,
      //        has_directory, has_extension, absolute, directory_path}

      // No directory: no levels, however long the name.
      {"", {"", "", "", "", "", {}, "", no, no, no, no}},
      {"name.txt", {"name.txt", "", "name", "txt", "name.txt", {}, "", no, yes, no, no}},
      {"f.t", {"f.t", "", "f", "t", "f.t", {}, "", no, yes, no, no}},
      {"name", {"name", "", "name", "", "name", {}, "", no, no, no, no}},
      {repeated(longest_path),
       {repeated(longest_path), "", repeated(longest_path), "", repeated(longest_path), {}, "", no, no, no, no}},

      // A directory alone.
      {"/", {"/", "/", "", "", "", {}, "", yes, no, yes, yes}},
      {"///", {"/", "/", "", "", "", {}, "", yes, no, yes, yes}},
      {"a/", {"a/", "a/", "", "", "", {"a"}, "a", yes, no, no, yes}},
      {"dir/", {"dir/", "dir/", "", "", "", {"dir"}, "dir", yes, no, no, yes}},
      {"/a/b/", {"/a/b/", "/a/b/", "", "", "", {"a", "b"}, "b", yes, no, yes, yes}},
      {"../", {"../", "../", "", "", "", {".."}, "..", yes, no, no, yes}},

      // A directory and a name.
      {"/a", {"/a", "/", "a", "", "a", {}, "", yes, no, yes, no}},
      {"a/b/c.txt", {"a/b/c.txt", "a/b/", "c", "txt", "c.txt", {"a", "b"}, "b", yes, yes, no, no}},
      {"a/b/c", {"a/b/c", "a/b/", "c", "", "c", {"a", "b"}, "b", yes, no, no, no}},
      {"/a/b/c.txt", {"/a/b/c.txt", "/a/b/", "c", "txt", "c.txt", {"a", "b"}, "b", yes, yes, yes, no}},
      {"dir.d/name", {"dir.d/name", "dir.d/", "name", "", "name", {"dir.d"}, "dir.d", yes, no, no, no}},
      {"a/./../b/c", {"a/./../b/c", "a/./../b/", "c", "", "c", {"a", ".", "..", "b"}, "b", yes, no, no, no}},
      {" /\t/ .\n", {" /\t/ .\n", " /\t/", " ", "\n", " .\n", {" ", "\t"}, "\t", yes, yes, no, no}},
      {"\xC3\xA4/\xFF.\x80",
       {"\xC3\xA4/\xFF.\x80", "\xC3\xA4/", "\xFF", "\x80", "\xFF.\x80", {"\xC3\xA4"}, "\xC3\xA4", yes, yes, no, no}},

      // Both kinds of separator divide, and runs are one.
      {"rtl//core\\alu.v",
       {"rtl/core/alu.v", "rtl/core/", "alu", "v", "alu.v", {"rtl", "core"}, "core", yes, yes, no, no}},
      {"\\a\\", {"/a/", "/a/", "", "", "", {"a"}, "a", yes, no, yes, yes}},
      {"//server/share/f",
       {"/server/share/f", "/server/share/", "f", "", "f", {"server", "share"}, "share", yes, no, yes, no}},

      // No drives.
      {"C:/x", {"C:/x", "C:/", "x", "", "x", {"C:"}, "C:", yes, no, no, no}},
      {"C:/x/y.txt", {"C:/x/y.txt", "C:/x/", "y", "txt", "y.txt", {"C:", "x"}, "x", yes, yes, no, no}},
      {"C:x", {"C:x", "", "C:x", "", "C:x", {}, "", no, no, no, no}},

      // The last dot of the name starts the extension, which is read without that dot.
      {"file.", {"file.", "", "file", "", "file.", {}, "", no, yes, no, no}},
      {".profile", {".profile", "", "", "profile", ".profile", {}, "", no, yes, no, no}},
      {"a.tar.gz", {"a.tar.gz", "", "a.tar", "gz", "a.tar.gz", {}, "", no, yes, no, no}},
      {"d/.x", {"d/.x", "d/", "", "x", ".x", {"d"}, "d", yes, yes, no, no}},
      {".", {".", "", "", "", ".", {}, "", no, yes, no, no}},
      {"..", {"..", "", ".", "", "..", {}, "", no, yes, no, no}},
      {"...", {"...", "", "..", "", "...", {}, "", no, yes, no, no}},
      {"dir/.", {"dir/.", "dir/", "", "", ".", {"dir"}, "dir", yes, yes, no, no}},
      {"dir/..", {"dir/..", "dir/", ".", "", "..", {"dir"}, "dir", yes, yes, no, no}},
      {"/a/..", {"/a/..", "/a/", ".", "", "..", {"a"}, "a", yes, yes, yes, no}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    expect_answers(FIO_PATH(row.text), row.expected);
  }
  EXPECT_EQ(messages(), std::vector<std::string>());
}

TEST_F(path_queries, a_mask_picks_components_in_a_fixed_order_and_never_the_drive) {
  FIO_PATH path("a/b.c");
  path.drive('C');
  ASSERT_EQ(path.fullpath(), "C:a/b.c");
  struct {
    int mask;
    char const* expected;
  } const rows[] = {
      {0, ""},
      {FIO_PATH::DRIVE, ""},
      {FIO_PATH::DIRECTORY, "a/"},
      {FIO_PATH::DRIVE | FIO_PATH::DIRECTORY, "a/"},
      {FIO_PATH::BASE, "b"},
      {FIO_PATH::DRIVE | FIO_PATH::BASE, "b"},
      {FIO_PATH::DIRECTORY | FIO_PATH::BASE, "a/b"},
      {FIO_PATH::DRIVE | FIO_PATH::DIRECTORY | FIO_PATH::BASE, "a/b"},
      {FIO_PATH::EXTENSION, ".c"},
      {FIO_PATH::DRIVE | FIO_PATH::EXTENSION, ".c"},
      {FIO_PATH::DIRECTORY | FIO_PATH::EXTENSION, "a/.c"},
      {FIO_PATH::DRIVE | FIO_PATH::DIRECTORY | FIO_PATH::EXTENSION, "a/.c"},
      {FIO_PATH::BASE | FIO_PATH::EXTENSION, "b.c"},
      {FIO_PATH::DRIVE | FIO_PATH::BASE | FIO_PATH::EXTENSION, "b.c"},
      {FIO_PATH::DIRECTORY | FIO_PATH::BASE | FIO_PATH::EXTENSION, "a/b.c"},
      {FIO_PATH::DRIVE | FIO_PATH::DIRECTORY | FIO_PATH::BASE | FIO_PATH::EXTENSION, "a/b.c"},

      // Bits that name no component are ignored.
      {16, ""},
      {16 | FIO_PATH::BASE, "b"},
      {INT_MIN, ""},
      {INT_MAX, "a/b.c"},
      {-1, "a/b.c"},
      {~FIO_PATH::DIRECTORY, "b.c"},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(path.get_path_components(row.mask), row.expected) << row.mask;
  }
  for (int mask : {0, 1, 2, 4, 8, 15, -1}) {
    EXPECT_EQ(FIO_PATH().get_path_components(mask), "") << mask;
  }
}

TEST_F(path_queries, the_bits_of_the_components_are_fixed) {
  EXPECT_EQ(static_cast<int>(FIO_PATH::DRIVE), 1);
  EXPECT_EQ(static_cast<int>(FIO_PATH::DIRECTORY), 2);
  EXPECT_EQ(static_cast<int>(FIO_PATH::BASE), 4);
  EXPECT_EQ(static_cast<int>(FIO_PATH::EXTENSION), 8);
}

TEST_F(path_queries, an_index_outside_the_levels_gives_an_empty_text) {
  for (char const* text : {"", "/", "name.txt", "a/", "a/b/c", "/a/b/c.txt"}) {
    FIO_PATH const path(text);
    for (int level : {INT_MIN, INT_MIN + 1, -1000, -2, -1, path.levels(), path.levels() + 1, 1000, INT_MAX}) {
      EXPECT_EQ(path[level], "") << text << " [" << level << ']';
      EXPECT_FALSE(path.legal(level)) << text << " [" << level << ']';
    }
  }
}

TEST_F(path_queries, an_index_is_legal_exactly_where_a_level_has_a_name) {
  for (char const* text : {"", "/", "name.txt", "a/", "a/b/c", "/a/b/c.txt", "../../x", "/a/./b/"}) {
    FIO_PATH const path(text);
    for (int level = -3; level != 8; ++level) {
      EXPECT_EQ(path.legal(level), !path[level].empty()) << text << " [" << level << ']';
    }
  }
}

TEST_F(path_queries, a_drive_shows_in_the_text_and_in_the_tail_alone) {
  struct {
    char const* text;
    char const* fullpath;
    char const* directory;
    std::vector<std::string> names;
    char const* tail;
    bool absolute;
    bool directory_path;
  } const rows[] = {
      // In the text the drive makes one more level, or lengthens the first one: the tail is taken from there.
      {"/a/x", "C:/a/x", "/a/", {"a"}, "C:", true, false},
      {"/a/b/x", "C:/a/b/x", "/a/b/", {"a", "b"}, "a", true, false},
      {"a/x", "C:a/x", "a/", {"a"}, "C:a", false, false},
      {"a/b/", "C:a/b/", "a/b/", {"a", "b"}, "b", false, true},
      {"/", "C:/", "/", {}, "", true, true},
      {"x", "C:x", "", {}, "", false, false},
      {"", "C:", "", {}, "", false, false},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.text);
    FIO_PATH path(row.text);
    path.drive('C');
    EXPECT_EQ(path.fullpath(), row.fullpath);
    EXPECT_FALSE(path.has_drive());
    EXPECT_EQ(path.drive(), "");
    EXPECT_EQ(path.directory(), row.directory);
    EXPECT_EQ(path.full_directory(), row.directory);
    EXPECT_EQ(path.has_directory(), *row.directory != '\0');
    EXPECT_EQ(level_names(path), row.names);
    EXPECT_EQ(path.tail(), row.tail);
    EXPECT_EQ(path.absolute(), row.absolute);
    EXPECT_EQ(path.directory_path(), row.directory_path);
    EXPECT_EQ(path.filename(), FIO_PATH(row.text).filename());
  }
}

TEST_F(path_queries, levels_are_divided_by_the_separator_of_the_path_alone) {
  struct {
    char separator;
    char const* text;
    answers expected;
  } const rows[] = {
      {'\\',
       "/a/b/c.txt",
       {"\\a\\b\\c.txt", "\\a\\b\\", "c", "txt", "c.txt", {"a", "b"}, "b", true, true, true, false}},
      {'\\', "a/b/", {"a\\b\\", "a\\b\\", "", "", "", {"a", "b"}, "b", true, false, false, true}},
      {'\\', "/", {"\\", "\\", "", "", "", {}, "", true, false, true, true}},
      {'\\', "f", {"f", "", "f", "", "f", {}, "", false, false, false, false}},

      // The text of a path with a third separator has a "/" behind the directory, which is one level when it is read
      // again: the tail is there for a single level, separators and all, and is empty for more.
      {'|', "a/f", {"a|/f", "a|", "f", "", "f", {"a"}, "a|", true, false, false, false}},
      {'|', "a/b/f.x", {"a|b|/f.x", "a|b|", "f", "x", "f.x", {"a", "b"}, "", true, true, false, false}},
      {'|', "/a/f", {"|a|/f", "|a|", "f", "", "f", {"a"}, "|a|", true, false, true, false}},
      {'|', "/f", {"|/f", "|", "f", "", "f", {}, "", true, false, true, false}},
      {'x', "axb/c/f", {"axbxcx/f", "axbxcx", "f", "", "f", {"a", "b", "c"}, "", true, false, false, false}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(std::string(1, row.separator) + ' ' + row.text);
    expect_answers(with_separator(row.separator, row.text), row.expected);
  }
}

TEST_F(path_queries, a_backslash_is_no_separator_of_a_path_with_a_third_one) {
  FIO_PATH path;
  path.path_separator('|');
  path = "\\a/b\\c.txt";
  expect_answers(path, {"\\a|b\\|/c.txt",
                        "\\a|b\\|",
                        "c",
                        "txt",
                        "c.txt",
                        {"\\a", "b\\"},
                        "|", // of "a|b", "|": in the text both kinds of separator divide
                        true,
                        true,
                        false,
                        false});
}

TEST_F(path_queries, a_tail_is_found_behind_a_run_of_separators_in_the_text) {
  FIO_PATH path = with_separator('|', "a/b/f");
  path.base("/\\p//q");
  EXPECT_EQ(path.fullpath(), "a|b|//\\p//q");
  EXPECT_EQ(path.tail(), "p"); // of "a|b|", "p"

  FIO_PATH const joined("a", "//f/g");
  EXPECT_EQ(joined.fullpath(), "a//f/g");
  EXPECT_EQ(joined.tail(), "a");
}

TEST_F(path_queries, an_assigned_directory_is_one_level_until_it_is_stored_under_the_separator) {
  FIO_PATH path = assigned_from(with_separator('\\', "/a/b/f.x"));
  // Only the tail reads the text anew. Its index comes from the single level.
  expect_answers(
      path, {"\\a\\b\\f.x", "\\a\\b\\", "f", "x", "f.x", {"\\a\\b\\"}, "a", true, true, false /* not by "\" */, false});

  path.directory(path.directory());
  expect_answers(path, {"/a/b/f.x", "/a/b/", "f", "x", "f.x", {"a", "b"}, "b", true, true, true, false});

  path = assigned_from(with_separator('|', "a/b/f"));
  expect_answers(path, {"a|b|/f", "a|b|", "f", "", "f", {"a|b|"}, "a|b|", true, false, false, false});
}

TEST_F(path_queries, components_are_read_as_they_were_stored) {
  struct {
    char const* what;
    void (*edit)(FIO_PATH&);
    answers expected;
  } const rows[] = {
      {"a separator in the base is no level",
       [](FIO_PATH& path) { path.base("p/q"); },
       {"a/p/q.txt", "a/", "p/q", "txt", "p/q.txt", {"a"}, "a", true, true, false, false}},
      {"a dot in the base is no extension",
       [](FIO_PATH& path) { path.base("d.e").no_extension(); },
       {"a/d.e", "a/", "d.e", "", "d.e", {"a"}, "a", true, false, false, false}},
      {"the text supplies a dot that the extension lacks, and the name does not",
       [](FIO_PATH& path) { path.make_path(FIO_PATH::EXTENSION, "h"); },
       {"a/c.h", "a/", "c", "h", "ch", {"a"}, "a", true, true, false, false}},
      {"only one leading dot is left out",
       [](FIO_PATH& path) { path.make_path(FIO_PATH::EXTENSION, "..h"); },
       {"a/c..h", "a/", "c", ".h", "c..h", {"a"}, "a", true, true, false, false}},
      {"a lone dot is an extension",
       [](FIO_PATH& path) { path.make_path(FIO_PATH::EXTENSION, "."); },
       {"a/c.", "a/", "c", "", "c.", {"a"}, "a", true, true, false, false}},
      {"a directory with a base alone",
       [](FIO_PATH& path) { path.no_extension(); },
       {"a/c", "a/", "c", "", "c", {"a"}, "a", true, false, false, false}},
      {"a directory with an extension alone",
       [](FIO_PATH& path) { path.base(""); },
       {"a/.txt", "a/", "", "txt", ".txt", {"a"}, "a", true, true, false, false}},
      {"a directory that became one by editing",
       [](FIO_PATH& path) { path.filename(""); },
       {"a/", "a/", "", "", "", {"a"}, "a", true, false, false, true}},
      {"an empty path is no directory",
       [](FIO_PATH& path) { path.filename("").directory(""); },
       {"", "", "", "", "", {}, "", false, false, false, false}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.what);
    FIO_PATH path("a/c.txt");
    row.edit(path);
    expect_answers(path, row.expected);
  }
}

TEST_F(path_queries, a_component_keeps_a_nul_that_ends_it_in_the_text) {
  FIO_PATH path("a/b/c.txt");
  path.base("d\0e"s);
  expect_answers(path, {"a/b/d.txt", "a/b/", "d\0e"s, "txt", "d\0e.txt"s, {"a", "b"}, "b", true, true, false, false});

  path = "c.txt";
  path.directory("x\0y/z"s);
  // Two levels, of which the text has one.
  expect_answers(path, {"x/c.txt", "x\0y/z/"s, "c", "txt", "c.txt", {"x\0y"s, "z"}, "", true, true, false, false});

  path = "c.txt";
  path.make_path(FIO_PATH::EXTENSION, ".h\0i"s);
  expect_answers(path, {"c.h", "", "c", "h\0i"s, "c.h\0i"s, {}, "", false, true, false, false});

  path = "c";
  path.base("\0"s);
  path.directory("a");
  EXPECT_EQ(path.fullpath(), "a/");
  EXPECT_FALSE(path.directory_path());
}

TEST_F(path_queries, dot_directories_are_the_two_names_alone) {
  struct {
    std::string name;
    bool expected;
  } const rows[] = {
      {".", true},   {"..", true},   {".\0x"s, true}, {"..\0"s, true}, // the first NUL ends the name
      {"", false},   {"...", false}, {"./", false},   {"../", false},  {"/.", false},
      {".a", false}, {"a.", false},  {" .", false},   {"\0."s, false},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(FIO_PATH::is_dot_directory(row.name), row.expected) << testing::PrintToString(row.name);
  }
}

TEST_F(path_queries, each_reader_that_checks_the_length_says_so_once_and_tail_twice) {
  for (std::size_t length : {longest_path, longest_path + 1, longest_path + 500}) {
    FIO_PATH const path = path_of_length(length);
    std::string const text = "aa/bb/" + repeated(length - 10) + ".ext";
    for (reader const& row : all_readers()) {
      SCOPED_TRACE(std::string(row.name) + ", " + std::to_string(length));
      platform_double::debug_messages().clear();
      row.read(path);
      std::size_t const expected = length <= longest_path ? 0 : row.messages;
      EXPECT_EQ(messages(), std::vector<std::string>(expected, length_message(text)));
      for (platform_double::debug_message const& message : platform_double::debug_messages()) {
        EXPECT_EQ(message.module, "FIO");
      }
    }
  }
}

TEST_F(path_queries, the_length_is_checked_without_a_directory_and_with_nothing_to_answer) {
  FIO_PATH name;
  name.base(repeated(longest_path + 1));
  FIO_PATH directory;
  directory.directory(repeated(longest_path));
  for (FIO_PATH const& path : {name, directory}) {
    for (reader const& row : all_readers()) {
      SCOPED_TRACE(row.name);
      platform_double::debug_messages().clear();
      row.read(path);
      EXPECT_EQ(messages().size(), row.messages);
    }
  }
}

TEST_F(path_queries, the_message_shows_the_whole_text_with_its_drive_and_its_percent_signs) {
  FIO_PATH path("%s/%n.x");
  path.drive('%').base("%d" + repeated(longest_path));
  std::string const text = "%:%s/%d" + repeated(longest_path) + ".x";
  EXPECT_EQ(path.directory(), "%s/");
  ASSERT_EQ(platform_double::debug_messages().size(), 1u);
  EXPECT_EQ(platform_double::debug_messages().front().module, "FIO");
  EXPECT_EQ(platform_double::debug_messages().front().format, length_message(text));
}

TEST_F(path_queries, a_text_that_is_too_long_changes_no_answer_but_the_tail) {
  std::string const base = repeated(longest_path - 10, 'b');
  FIO_PATH path("aa/bb/" + base + ".ext");
  expect_answers(
      path,
      {"aa/bb/" + base + ".ext", "aa/bb/", base, "ext", base + ".ext", {"aa", "bb"}, "bb", true, true, false, false});
  EXPECT_EQ(messages(), std::vector<std::string>());

  path.base(base + 'b');
  expect_answers(path, {"aa/bb/" + base + "b.ext",
                        "aa/bb/",
                        base + 'b',
                        "ext",
                        base + "b.ext",
                        {"aa", "bb"},
                        "",
                        true,
                        true,
                        false,
                        false});
}

TEST_F(path_queries, levels_are_counted_in_a_text_of_any_length) {
  std::string directory;
  for (int level = 0; level != 300; ++level) {
    directory += std::to_string(level) + '/';
  }
  FIO_PATH path;
  path.directory(directory);
  ASSERT_EQ(directory.size(), 1090u);
  EXPECT_EQ(path.levels(), 300);
  EXPECT_EQ(path[0], "0");
  EXPECT_EQ(path[299], "299");
  EXPECT_EQ(path[300], "");
  EXPECT_EQ(path.tail(), "");
  EXPECT_TRUE(path.legal(299));
  EXPECT_TRUE(path.directory_path());
}

TEST_F(path_queries, a_refused_text_leaves_nothing_to_say) {
  FIO_PATH const path(repeated(longest_path + 1));
  EXPECT_FALSE(path.is_legal_length());
  expect_answers(path, {"", "", "", "", "", {}, "", false, false, false, false});
  EXPECT_EQ(messages(), std::vector<std::string>());
}

TEST_F(path_queries, no_query_changes_the_path_or_asks_the_system) {
  FIO_PATH const paths[] = {FIO_PATH("a/b/c.txt"), with_separator('\\', "/a/b.c"),
                            assigned_from(with_separator('|', "a/b/c")), path_of_length(longest_path + 7)};
  for (FIO_PATH const& path : paths) {
    std::string const text = path.fullpath();
    std::string const components = path.get_path_components(15);
    bool const legal = path.is_legal_length();
    int const levels = path.levels();
    char const* const address = path;
    platform_double::record_calls(true);
    for (reader const& row : all_readers()) {
      SCOPED_TRACE(text + ", " + row.name);
      row.read(path);
      EXPECT_EQ(path.fullpath(), text);
      EXPECT_EQ(path.operator char const*(), address);
      EXPECT_EQ(path.get_path_components(15), components);
      EXPECT_EQ(path.is_legal_length(), legal);
      EXPECT_EQ(path.levels(), levels);
    }
    platform_double::record_calls(false);
    EXPECT_EQ(platform_double::calls(), std::vector<std::string>());
  }
}

TEST_F(path_queries, several_threads_may_read_one_path) {
  FIO_PATH const path("a/b/" + repeated(100) + ".txt");
  answers const expected = {"a/b/" + repeated(100) + ".txt",
                            "a/b/",
                            repeated(100),
                            "txt",
                            repeated(100) + ".txt",
                            {"a", "b"},
                            "b",
                            true,
                            true,
                            false,
                            false};
  std::vector<std::thread> threads;
  for (int count = 0; count != 2; ++count) {
    threads.emplace_back([&path, &expected] {
      for (int round = 0; round != 50; ++round) {
        for (reader const& row : all_readers()) {
          row.read(path);
        }
        expect_answers(path, expected);
        EXPECT_EQ(path.get_path_components(15), expected.fullpath);
        EXPECT_TRUE(path.is_legal_length());
        EXPECT_TRUE(path.legal(1));
        EXPECT_FALSE(path.legal(2));
        EXPECT_FALSE(path.unc());
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(messages(), std::vector<std::string>());
}

TEST_F(path_queries, a_query_that_makes_no_text_asks_for_no_memory) {
  FIO_PATH const path("/aa/bb/" + repeated(100) + ".ext");
  struct {
    char const* name;
    bool (*holds)(FIO_PATH const& path);
  } const rows[] = {
      {"operator char const*", [](FIO_PATH const& read) { return *read.operator char const*() == '/'; }},
      {"levels", [](FIO_PATH const& read) { return read.levels() == 2; }},
      {"legal", [](FIO_PATH const& read) { return read.legal(1); }},
      {"absolute", [](FIO_PATH const& read) { return read.absolute(); }},
      {"has_drive", [](FIO_PATH const& read) { return !read.has_drive(); }},
      {"has_directory", [](FIO_PATH const& read) { return read.has_directory(); }},
      {"has_extension", [](FIO_PATH const& read) { return read.has_extension(); }},
      {"directory_path", [](FIO_PATH const& read) { return !read.directory_path(); }},
      {"is_legal_length", [](FIO_PATH const& read) { return read.is_legal_length(); }},
  };
  for (auto const& row : rows) {
    bool holds = false;
    long asked_for = -1;
    {
      allocation_failure const failure(1);
      holds = row.holds(path);
      asked_for = failure.asked_for();
    }
    EXPECT_TRUE(holds) << row.name;
    EXPECT_EQ(asked_for, 0) << row.name;
  }
}

TEST_F(path_queries, reading_the_text_gives_a_copy_or_the_text_itself) {
  FIO_PATH path("a/b.c");
  char const* const itself = path;
  std::string copy = path.fullpath();
  std::string converted = path;
  copy[0] = 'x';
  converted[0] = 'y';
  EXPECT_STREQ(itself, "a/b.c");
  EXPECT_EQ(path.operator char const*(), itself);
  EXPECT_STREQ(FIO_PATH().operator char const*(), "");
}

TEST_F(path_queries, the_parts_of_a_parsed_path_make_its_text) {
  for (char const* text : {"", "/", "a/", "name", "name.txt", "a/b/c.txt", "/a/b/", "/a/..", "dir/.", "file.",
                           ".profile", "a.tar.gz", "C:/x/y.txt", "//s/t", "a\\b//c"}) {
    SCOPED_TRACE(text);
    for (char separator : {'/', '\\'}) {
      FIO_PATH const path = with_separator(separator, text);
      EXPECT_EQ(path.directory() + path.filename(), path.fullpath());
      EXPECT_EQ(path.base() + (path.has_extension() ? "." : "") + path.extension(), path.filename());
      EXPECT_EQ(path.get_path_components(-1), path.fullpath());
      EXPECT_EQ(path.has_directory(), !path.directory().empty());
      EXPECT_EQ(path.directory_path(), path.has_directory() && path.filename().empty());

      std::string joined = path.absolute() ? std::string(1, separator) : std::string();
      for (int level = 0; level != path.levels(); ++level) {
        EXPECT_EQ(path[level].find(separator), std::string::npos);
        joined += path[level] + separator;
      }
      EXPECT_EQ(joined, path.directory());
      EXPECT_EQ(path.tail(), path[path.levels() - 1]);
    }
  }
}
