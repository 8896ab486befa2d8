/// @file
/// The setters of `FIO_PATH` and the constructor that joins a directory and a name.

#include "ccl/fio/fio_path.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "ccl/fio/fio_extension_type_info.h"
#include "ccl/fio/fio_file_sys.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

class path_editing : public fio_test {};

namespace {

using std::string_literals::operator""s;

/// What is stored in a path, but for its drive, and the text that it makes.
struct parts {
  std::string directory;
  std::string base;
  std::string extension;
  std::string text;
};

bool operator==(parts const& left, parts const& right) {
  return left.directory == right.directory && left.base == right.base && left.extension == right.extension &&
         left.text == right.text;
}

void PrintTo(parts const& value, std::ostream* stream) {
  *stream << testing::PrintToString(std::vector<std::string>{value.directory, value.base, value.extension, value.text});
}

parts parts_of(FIO_PATH const& path) {
  return {path.get_path_components(FIO_PATH::DIRECTORY), path.get_path_components(FIO_PATH::BASE),
          path.get_path_components(FIO_PATH::EXTENSION), path.fullpath()};
}

/// An edit by one text, and what it makes of the path `from`.
struct edit_row {
  std::string from;
  std::string value;
  parts expected;
};

template <std::size_t Count>
void expect_edits(edit_row const (&rows)[Count], FIO_PATH& (FIO_PATH::*edit)(std::string const&)) {
  for (edit_row const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.from) + " with " + testing::PrintToString(row.value));
    FIO_PATH path(row.from);
    EXPECT_EQ(&(path.*edit)(row.value), &path);
    EXPECT_EQ(parts_of(path), row.expected);
    EXPECT_TRUE(path.is_legal_length());
  }
  EXPECT_EQ(platform_double::debug_messages().size(), 0u);
}

FIO_PATH with_drive(std::string const& text) {
  FIO_PATH path(text);
  path.drive('C');
  return path;
}

constexpr FIO_EXTENSION_TYPE type(int value) { return static_cast<FIO_EXTENSION_TYPE>(value); }

/// One use of each setter.
struct setter {
  char const* name;
  FIO_PATH& (*edit)(FIO_PATH&);
  char const* drive = nullptr; ///< what the text begins with afterwards, null: as before
};

setter const setters_but_filename[] = {
    {"drive of a letter", [](FIO_PATH& path) -> FIO_PATH& { return path.drive('D'); }, "D:"},
    {"drive of a text", [](FIO_PATH& path) -> FIO_PATH& { return path.drive("E:"); }, "E:"},
    {"no drive", [](FIO_PATH& path) -> FIO_PATH& { return path.drive(""); }, ""},
    {"directory", [](FIO_PATH& path) -> FIO_PATH& { return path.directory("x\\y"); }},
    {"no directory", [](FIO_PATH& path) -> FIO_PATH& { return path.directory(""); }},
    {"base", [](FIO_PATH& path) -> FIO_PATH& { return path.base("d.e"); }},
    {"no base", [](FIO_PATH& path) -> FIO_PATH& { return path.base(""); }},
    {"no name", [](FIO_PATH& path) -> FIO_PATH& { return path.filename(""); }},
    {"tail", [](FIO_PATH& path) -> FIO_PATH& { return path.tail("z"); }},
    {"no tail", [](FIO_PATH& path) -> FIO_PATH& { return path.tail(""); }},
    {"no_extension", [](FIO_PATH& path) -> FIO_PATH& { return path.no_extension(); }},
    {"extension of two types",
     [](FIO_PATH& path) -> FIO_PATH& { return path.extension(FIO_EXTENSION_TYPE_VHD, FIO_EXTENSION_TYPE_H); }},
    {"extension of a type and a text",
     [](FIO_PATH& path) -> FIO_PATH& { return path.extension(FIO_EXTENSION_TYPE_VHD, "gz"); }},
    {"extension of a text and a type",
     [](FIO_PATH& path) -> FIO_PATH& { return path.extension("tar", FIO_EXTENSION_TYPE_H); }},
    {"extension of two texts", [](FIO_PATH& path) -> FIO_PATH& { return path.extension("tar", "gz"); }},
};

} // namespace

// The exact types of the setters

namespace {

using letter_setter = FIO_PATH& (FIO_PATH::*)(char);
using text_setter = FIO_PATH& (FIO_PATH::*)(std::string const&);

} // namespace

static_assert(has_type<letter_setter>(&FIO_PATH::drive));
static_assert(has_type<text_setter>(&FIO_PATH::drive));
static_assert(has_type<text_setter>(&FIO_PATH::directory));
static_assert(has_type<text_setter>(&FIO_PATH::base));
static_assert(has_type<text_setter>(&FIO_PATH::filename));
static_assert(has_type<text_setter>(&FIO_PATH::tail));
static_assert(std::is_same_v<decltype(&FIO_PATH::no_extension), FIO_PATH& (FIO_PATH::*)()>);
static_assert(has_type<FIO_PATH& (FIO_PATH::*)(FIO_EXTENSION_TYPE, FIO_EXTENSION_TYPE)>(&FIO_PATH::extension));
static_assert(has_type<FIO_PATH& (FIO_PATH::*)(FIO_EXTENSION_TYPE, std::string const&)>(&FIO_PATH::extension));
static_assert(has_type<FIO_PATH& (FIO_PATH::*)(std::string const&, FIO_EXTENSION_TYPE)>(&FIO_PATH::extension));
static_assert(has_type<FIO_PATH& (FIO_PATH::*)(std::string const&, std::string const&)>(&FIO_PATH::extension));

// Drive

TEST_F(path_editing, a_drive_is_one_character_and_a_colon_before_the_text) {
  edit_row const rows[] = {
      {"/x", "C", {"/", "x", "", "C:/x"}},
      {"/x", "D:/anything", {"/", "x", "", "D:/x"}},
      {"/x", "C:", {"/", "x", "", "C:/x"}},
      {"/x", "", {"/", "x", "", "/x"}},
      {"", "C:", {"", "", "", "C:"}},
      {"a/b.c", "q", {"a/", "b", ".c", "q:a/b.c"}},

      // The drive is not looked at.
      {"/x", "/y", {"/", "x", "", "/:/x"}},
      {"/x", "\\\\server", {"/", "x", "", "\\:/x"}},
      {"/x", ":", {"/", "x", "", "::/x"}},
      {"/x", "\xC3\xA4", {"/", "x", "", "\xC3:/x"}},
      {"/x", "C\0D"s, {"/", "x", "", "C:/x"}},
      {"/x", "\0C"s, {"/", "x", "", "/x"}}, // the first character ends the drive
  };
  expect_edits(rows, static_cast<FIO_PATH& (FIO_PATH::*)(std::string const&)>(&FIO_PATH::drive));
}

TEST_F(path_editing, a_drive_is_set_by_a_letter_as_by_a_text) {
  for (char letter : {'C', 'z', '1', '/', '\\', ':', ' ', '\xFF', '\0'}) {
    FIO_PATH by_letter("/a/x.y");
    FIO_PATH by_text("/a/x.y");
    EXPECT_EQ(&by_letter.drive(letter), &by_letter);
    by_text.drive(std::string(1, letter));
    EXPECT_EQ(parts_of(by_letter), parts_of(by_text));
    std::string const drive = letter == '\0' ? "" : std::string(1, letter) + ':';
    EXPECT_EQ(parts_of(by_letter), (parts{"/a/", "x", ".y", drive + "/a/x.y"}));
  }
}

TEST_F(path_editing, a_drive_is_replaced_and_removed) {
  FIO_PATH path("/x");
  path.drive('C');
  EXPECT_EQ(path.fullpath(), "C:/x");
  path.drive("D:/anything");
  EXPECT_EQ(path.fullpath(), "D:/x");
  EXPECT_FALSE(path.has_drive());
  EXPECT_EQ(path.drive(), "");
  path.drive("");
  EXPECT_EQ(path.fullpath(), "/x");
  EXPECT_EQ(path.drive('E').drive(path.drive()).fullpath(), "/x");
}

// Directory

TEST_F(path_editing, a_directory_is_replaced_normalised_and_closed) {
  edit_row const rows[] = {
      {"a/b/c.txt", "x\\y", {"x/y/", "c", ".txt", "x/y/c.txt"}},
      {"a/b/c.txt", "x/y/", {"x/y/", "c", ".txt", "x/y/c.txt"}},
      {"a/b/c.txt", "\\\\x//\\y\\/", {"/x/y/", "c", ".txt", "/x/y/c.txt"}},
      {"a/b/c.txt", "/", {"/", "c", ".txt", "/c.txt"}},
      {"a/b/c.txt", "\\", {"/", "c", ".txt", "/c.txt"}},
      {"a/b/c.txt", "..", {"../", "c", ".txt", "../c.txt"}},
      {"a/b/c.txt", "C:", {"C:/", "c", ".txt", "C:/c.txt"}},
      {"c.txt", "x.d", {"x.d/", "c", ".txt", "x.d/c.txt"}},
      {"", "x", {"x/", "", "", "x/"}},

      // An empty text removes the directory.
      {"a/b/c.txt", "", {"", "c", ".txt", "c.txt"}},
      {"/", "", {"", "", "", ""}},
      {"", "", {"", "", "", ""}},

      // A NUL is kept, but in the text it ends the directory.
      {"a/b/c.txt", "x\0y"s, {"x\0y/"s, "c", ".txt", "x/c.txt"}},
      {"a/b/c.txt", "x/\0y"s, {"x/\0y/"s, "c", ".txt", "x/c.txt"}},
      {"a/b/c.txt", "x\\\0\\\\y"s, {"x/\0/y/"s, "c", ".txt", "x/c.txt"}},
      {"a/b/c.txt", "\0"s, {"\0/"s, "c", ".txt", "c.txt"}},
  };
  expect_edits(rows, static_cast<FIO_PATH& (FIO_PATH::*)(std::string const&)>(&FIO_PATH::directory));
}

// Base

TEST_F(path_editing, a_base_is_stored_unchecked) {
  edit_row const rows[] = {
      {"a/b/c.txt", "d", {"a/b/", "d", ".txt", "a/b/d.txt"}},
      {"a/b/c.txt", "d.e", {"a/b/", "d.e", ".txt", "a/b/d.e.txt"}},
      {"a/b/c.txt", "", {"a/b/", "", ".txt", "a/b/.txt"}},
      {"a/b/c.txt", "d.", {"a/b/", "d.", ".txt", "a/b/d..txt"}},
      {"a/b/c.txt", "/d\\\\e//f", {"a/b/", "/d\\\\e//f", ".txt", "a/b//d\\\\e//f.txt"}},
      {"c", "d.e", {"", "d.e", "", "d.e"}},
      {"", "x/", {"", "x/", "", "x/"}},
      {"a/b/c.txt", "d\0e"s, {"a/b/", "d\0e"s, ".txt", "a/b/d.txt"}},
      {"a/b/c.txt", "\0e"s, {"a/b/", "\0e"s, ".txt", "a/b/.txt"}},
  };
  expect_edits(rows, static_cast<FIO_PATH& (FIO_PATH::*)(std::string const&)>(&FIO_PATH::base));
}

TEST_F(path_editing, what_a_base_holds_is_seen_when_the_text_is_divided_anew) {
  FIO_PATH path("a/c");
  path.base("p\\q.r");
  EXPECT_EQ(parts_of(path), (parts{"a/", "p\\q.r", "", "a/p\\q.r"}));
  path = path.fullpath();
  EXPECT_EQ(parts_of(path), (parts{"a/p/", "q", ".r", "a/p/q.r"}));
}

// File name

TEST_F(path_editing, a_file_name_is_divided_and_its_directory_added_below) {
  edit_row const rows[] = {
      {"a/b/c.txt", "d.h", {"a/b/", "d", ".h", "a/b/d.h"}},
      {"a/b/c.txt", "x/d.h", {"a/b/x/", "d", ".h", "a/b/x/d.h"}},
      {"a/b/c.txt", "/x/d.h", {"a/b/x/", "d", ".h", "a/b/x/d.h"}},
      {"a/b/c.txt", "\\x\\\\d.h", {"a/b/x/", "d", ".h", "a/b/x/d.h"}},
      {"a/b/c.txt", "sub/", {"a/b/sub/", "", "", "a/b/sub/"}},
      {"a/b/c.txt", "/", {"a/b/", "", "", "a/b/"}},
      {"a/b/c.txt", "../d", {"a/b/../", "d", "", "a/b/../d"}},
      {"a/b/c.txt", "C:/d", {"a/b/C:/", "d", "", "a/b/C:/d"}},
      {"c.txt", "x/d.h", {"x/", "d", ".h", "x/d.h"}},
      {"c.txt", "/x/d.h", {"/x/", "d", ".h", "/x/d.h"}},
      {"/c.txt", "/d.h", {"/", "d", ".h", "/d.h"}},
      {"", "d.h", {"", "d", ".h", "d.h"}},
      {"rtl//core\\alu.v", "fpu.sv", {"rtl/core/", "fpu", ".sv", "rtl/core/fpu.sv"}},

      // Both parts of the name are replaced, also by nothing.
      {"a/b/c.txt", "d", {"a/b/", "d", "", "a/b/d"}},
      {"a/b/c.txt", "d.e.f", {"a/b/", "d.e", ".f", "a/b/d.e.f"}},
      {"a/b/c.txt", "d.", {"a/b/", "d", ".", "a/b/d."}},
      {"a/b/c.txt", ".d", {"a/b/", "", ".d", "a/b/.d"}},
      {"a/b/c.txt", "..", {"a/b/", ".", ".", "a/b/.."}},
      {"a/b/c.txt", "x.d/e", {"a/b/x.d/", "e", "", "a/b/x.d/e"}},

      // An empty text removes the name alone.
      {"a/b/c.txt", "", {"a/b/", "", "", "a/b/"}},
      {"c.txt", "", {"", "", "", ""}},
      {"a/b/", "", {"a/b/", "", "", "a/b/"}},

      // A NUL ends the text.
      {"a/b/c.txt", "x/d.h\0i/j.k"s, {"a/b/x/", "d", ".h", "a/b/x/d.h"}},
      {"a/b/c.txt", "d\0"s + repeated(2000), {"a/b/", "d", "", "a/b/d"}},
  };
  expect_edits(rows, static_cast<FIO_PATH& (FIO_PATH::*)(std::string const&)>(&FIO_PATH::filename));
}

TEST_F(path_editing, a_file_name_decides_about_the_legal_length_unless_it_is_empty) {
  FIO_PATH path("a/b/c.txt");
  path.filename(repeated(longest_path + 1));
  EXPECT_FALSE(path.is_legal_length());
  EXPECT_EQ(parts_of(path), (parts{"a/b/", "", "", "a/b/"}));

  path.filename("");
  EXPECT_FALSE(path.is_legal_length());
  path.filename("d.h");
  EXPECT_TRUE(path.is_legal_length());
  EXPECT_EQ(parts_of(path), (parts{"a/b/", "d", ".h", "a/b/d.h"}));
  path.filename("");
  EXPECT_TRUE(path.is_legal_length());

  // A text that is empty for the parser, but not for the setter, is no legal text.
  path.filename("d.h").filename("\0d.h"s);
  EXPECT_FALSE(path.is_legal_length());
  EXPECT_EQ(parts_of(path), (parts{"a/b/", "", "", "a/b/"}));

  path = repeated(longest_path + 1);
  EXPECT_FALSE(path.is_legal_length());
  path.filename("d.h");
  EXPECT_TRUE(path.is_legal_length());
  EXPECT_EQ(messages(), std::vector<std::string>());
}

TEST_F(path_editing, a_file_name_of_any_legal_length_is_taken) {
  struct {
    std::string value;
    bool legal; ///< as a text of its own
    parts expected;
  } const rows[] = {
      {repeated(longest_path), true, {"", repeated(longest_path), "", repeated(longest_path)}},
      {repeated(longest_path + 1), false, {"", "", "", ""}},
      {"x/" + repeated(longest_path - 2),
       true,
       {"x/", repeated(longest_path - 2), "", "x/" + repeated(longest_path - 2)}},
      {"x/" + repeated(longest_path - 1), false, {"", "", "", ""}},

      // An extension is cut, with its dot, to 256 characters.
      {"d." + repeated(255), true, {"", "d", "." + repeated(255), "d." + repeated(255)}},
      {"d." + repeated(256), true, {"", "d", "." + repeated(255), "d." + repeated(255)}},
      {"." + repeated(1022), true, {"", "", "." + repeated(255), "." + repeated(255)}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.value);
    FIO_PATH path("c.txt");
    path.filename(row.value);
    EXPECT_EQ(parts_of(path), row.expected);
    EXPECT_EQ(path.is_legal_length(), row.legal);
  }
  EXPECT_EQ(messages(), std::vector<std::string>());
}

// Tail

TEST_F(path_editing, a_tail_replaces_what_stands_behind_the_last_separator_but_one) {
  edit_row const rows[] = {
      {"a/b/c.txt", "z", {"a/z/", "c", ".txt", "a/z/c.txt"}},
      {"/a/b/c.txt", "z", {"/a/z/", "c", ".txt", "/a/z/c.txt"}},
      {"/a/c.txt", "z", {"/z/", "c", ".txt", "/z/c.txt"}},
      {"a/b/", "z", {"a/z/", "", "", "a/z/"}},
      {"../a/c", "..", {"../../", "c", "", "../../c"}},

      // Without a level or a separator to cut at, the text is glued to what there is.
      {"a/c.txt", "z", {"az/", "c", ".txt", "az/c.txt"}},
      {"a/", "b", {"ab/", "", "", "ab/"}},
      {"a/c.txt", "/z", {"a/z/", "c", ".txt", "a/z/c.txt"}},
      {"c.txt", "z", {"z/", "c", ".txt", "z/c.txt"}},
      {"/c.txt", "z", {"z/", "c", ".txt", "z/c.txt"}},
      {"/c.txt", "/z", {"/z/", "c", ".txt", "/z/c.txt"}},
      {"", "z", {"z/", "", "", "z/"}},

      // The text is normalised with the directory, and may be any number of levels.
      {"a/b/c.txt", "y\\\\z//", {"a/y/z/", "c", ".txt", "a/y/z/c.txt"}},
      {"a/b/c.txt", "\\z", {"a/z/", "c", ".txt", "a/z/c.txt"}},
      {"a/b/c.txt", "/", {"a/", "c", ".txt", "a/c.txt"}},
      {"c.txt", "\\", {"/", "c", ".txt", "/c.txt"}},
      {"a/b/c.txt", "z\0y"s, {"a/z\0y/"s, "c", ".txt", "a/z/c.txt"}},
      {"a/b/c.txt", "\0"s, {"a/\0/"s, "c", ".txt", "a/c.txt"}},

      // Nothing happens for an empty text.
      {"a/b/c.txt", "", {"a/b/", "c", ".txt", "a/b/c.txt"}},
      {"a/c.txt", "", {"a/", "c", ".txt", "a/c.txt"}},
      {"", "", {"", "", "", ""}},
  };
  expect_edits(rows, static_cast<FIO_PATH& (FIO_PATH::*)(std::string const&)>(&FIO_PATH::tail));
}

TEST_F(path_editing, a_tail_is_read_back_where_there_is_a_separator_to_cut_at) {
  for (char const* text : {"a/b/c.txt", "/a/c.txt", "/a/b/", "../x/y"}) {
    for (char const* value : {"z", "..", "z.d", "C:"}) {
      FIO_PATH path(text);
      int const levels = path.levels();
      path.tail(value);
      EXPECT_EQ(path.tail(), value) << text;
      EXPECT_EQ(path.levels(), levels) << text;
      std::string const once = path.fullpath();
      EXPECT_EQ(path.tail(value).fullpath(), once) << text;
    }
  }
}

// Extension

TEST_F(path_editing, an_extension_is_removed_with_its_dot) {
  struct {
    char const* from;
    parts expected;
  } const rows[] = {
      {"a/b/c.txt", {"a/b/", "c", "", "a/b/c"}},
      {"c.tar.gz", {"", "c.tar", "", "c.tar"}},
      {"a/b/c", {"a/b/", "c", "", "a/b/c"}},
      {"file.", {"", "file", "", "file"}},
      {".profile", {"", "", "", ""}},
      {"d/..", {"d/", ".", "", "d/."}},
      {"a.d/", {"a.d/", "", "", "a.d/"}},
      {"", {"", "", "", ""}},
  };
  for (auto const& row : rows) {
    FIO_PATH path(row.from);
    EXPECT_EQ(&path.no_extension(), &path);
    EXPECT_EQ(parts_of(path), row.expected) << row.from;
    EXPECT_EQ(parts_of(FIO_PATH(row.from).extension("", "")), row.expected) << row.from;
  }
}

namespace {

/// A part of an extension, as a type or as a text, and the text that it adds behind or without another one.
struct type_part {
  FIO_EXTENSION_TYPE value;
  bool present;
  std::string text;
};
struct text_part {
  std::string value;
  bool present;
  std::string text;
};

type_part const type_parts[] = {
    {FIO_EXTENSION_TYPE_ANY, false, ""},
    {FIO_EXTENSION_TYPE_INVALID, true, "."},
    {FIO_EXTENSION_TYPE_IMG, true, ".img"},
    {FIO_EXTENSION_TYPE_VHD, true, ".vhd"},
    {FIO_EXTENSION_TYPE_TAR, true, ".tar"},
    {FIO_EXTENSION_TYPE_TAVRO_CPP, true, ".cpp"},
    {FIO_EXTENSION_TYPE_CPP, true, ".cpp"},
    {FIO_EXTENSION_TYPE_CSF_RPT, true, ".csf.rpt"},
    {FIO_EXTENSION_TYPE_VHDLVIEW, true, ".VHDLView"},
    {type(282), true, ".ptc"},

    // Unknown values are present and have an empty text.
    {type(283), true, ""},
    {type(-2), true, ""},
    {type(32767), true, ""},
    {type(-32768), true, ""},
};

text_part const text_parts[] = {
    {"", false, ""},   {"h", true, ".h"},           {".h", true, ".h"},      {"..h", true, "..h"},
    {".", true, "."},  {"tar.gz", true, ".tar.gz"}, {"*", true, ".*"},       {"p/q\\\\r", true, ".p/q\\\\r"},
    {" ", true, ". "}, {"h\0i"s, true, ".h\0i"s},   {"\0i"s, true, ".\0i"s}, {".\0i"s, true, ".\0i"s},
};

/// Sets each pair of parts on paths with and without an extension. An absent first part removes the extension, whatever
/// the second one is.
template <typename Firsts, typename Seconds>
void expect_extensions(Firsts const& firsts, Seconds const& seconds) {
  for (auto const& first : firsts) {
    for (auto const& second : seconds) {
      SCOPED_TRACE(testing::PrintToString(first.value) + " and " + testing::PrintToString(second.value));
      std::string const extension = first.present ? first.text + second.text : std::string();
      for (char const* from : {"a/b/c.txt", "a/b/c", "a/b/c."}) {
        FIO_PATH path(from);
        EXPECT_EQ(&path.extension(first.value, second.value), &path);
        EXPECT_EQ(parts_of(path), (parts{"a/b/", "c", extension, "a/b/c"s + extension.c_str()}));
        EXPECT_EQ(path.has_extension(), !extension.empty());
      }
    }
  }
}

} // namespace

TEST_F(path_editing, an_extension_of_two_types) { expect_extensions(type_parts, type_parts); }

TEST_F(path_editing, an_extension_of_a_type_and_a_text) { expect_extensions(type_parts, text_parts); }

TEST_F(path_editing, an_extension_of_a_text_and_a_type) { expect_extensions(text_parts, type_parts); }

TEST_F(path_editing, an_extension_of_two_texts) { expect_extensions(text_parts, text_parts); }

TEST_F(path_editing, examples_of_extensions) {
  auto const path = [] { return FIO_PATH("a/b/c.txt"); };
  // Of a single part.
  EXPECT_EQ(path().extension("h", "").fullpath(), "a/b/c.h");
  EXPECT_EQ(path().extension(".h", "").fullpath(), "a/b/c.h");
  EXPECT_EQ(path().extension("h", FIO_EXTENSION_TYPE_ANY).fullpath(), "a/b/c.h");
  EXPECT_EQ(path().extension(FIO_EXTENSION_TYPE_VHD, "").fullpath(), "a/b/c.vhd");
  EXPECT_EQ(path().extension(FIO_EXTENSION_TYPE_VHD, FIO_EXTENSION_TYPE_ANY).fullpath(), "a/b/c.vhd");
  EXPECT_EQ(path().extension(FIO_EXTENSION_TYPE_INVALID, "").fullpath(), "a/b/c.");
  // Of two parts.
  EXPECT_EQ(path().extension("tar", "gz").fullpath(), "a/b/c.tar.gz");
  EXPECT_EQ(path().extension("tar", ".gz").fullpath(), "a/b/c.tar.gz");
  EXPECT_EQ(path().extension(FIO_EXTENSION_TYPE_TAR, "gz").fullpath(), "a/b/c.tar.gz");
  EXPECT_EQ(path().extension(FIO_EXTENSION_TYPE_INVALID, "gz").fullpath(), "a/b/c..gz");
  EXPECT_EQ(path().extension(FIO_EXTENSION_TYPE_V, FIO_EXTENSION_TYPE_HTM).fullpath(), "a/b/c.v.htm");
  // Without a first part.
  EXPECT_EQ(path().extension("", ".gz").fullpath(), "a/b/c");
  EXPECT_EQ(path().extension("", FIO_EXTENSION_TYPE_VHD).fullpath(), "a/b/c");
  EXPECT_EQ(path().extension(FIO_EXTENSION_TYPE_ANY, "gz").fullpath(), "a/b/c");
  EXPECT_EQ(path().extension(FIO_EXTENSION_TYPE_ANY, FIO_EXTENSION_TYPE_VHD).fullpath(), "a/b/c");
}

TEST_F(path_editing, a_composed_extension_is_read_as_one) {
  FIO_PATH path("c");
  path.extension("tar", "gz");
  EXPECT_EQ(path.base(), "c");
  EXPECT_EQ(path.extension(), "tar.gz");
  path = path.fullpath();
  EXPECT_EQ(path.base(), "c.tar");
  EXPECT_EQ(path.extension(), "gz");
}

TEST_F(path_editing, every_extension_type_is_stored_with_the_text_of_the_vocabulary) {
  for (int value = 0; value <= 282; ++value) {
    std::string const text = FIO_EXTENSION_TYPE_INFO::get_extension_string(type(value));
    ASSERT_EQ(text.substr(0, 1), ".") << value;
    FIO_PATH path("d/c.txt");
    EXPECT_EQ(parts_of(path.extension(type(value), "")), (parts{"d/", "c", text, "d/c" + text})) << value;
    EXPECT_EQ(parts_of(path.extension(type(value), FIO_EXTENSION_TYPE_ANY)), (parts{"d/", "c", text, "d/c" + text}));
    EXPECT_EQ(parts_of(path.extension("x", type(value))), (parts{"d/", "c", ".x" + text, "d/c.x" + text})) << value;
  }
}

TEST_F(path_editing, an_unknown_type_has_the_text_that_a_program_gave_to_unknown_values) {
  char const* const kept = std::exchange(fio_empty_result_value, "x");
  FIO_PATH path("a/b.c");
  path.extension(static_cast<FIO_EXTENSION_TYPE>(999), std::string());
  fio_empty_result_value = kept;
  EXPECT_EQ(path.get_path_components(FIO_PATH::EXTENSION), "x");
  EXPECT_EQ(path.fullpath(), "a/b.x");
}

TEST_F(path_editing, a_second_type_behind_none_is_not_looked_up) {
  char const* const kept = std::exchange(fio_empty_result_value, nullptr);
  FIO_PATH path("a/b.c");
  path.extension(FIO_EXTENSION_TYPE_ANY, static_cast<FIO_EXTENSION_TYPE>(999));
  fio_empty_result_value = kept;
  EXPECT_EQ(path.fullpath(), "a/b");
}

TEST_F(path_editing, an_extension_that_is_set_is_not_cut) {
  std::string const part = repeated(300);
  EXPECT_EQ(parts_of(FIO_PATH("c").extension(part, part)),
            (parts{"", "c", "." + part + "." + part, "c." + part + "." + part}));
}

// Joining

TEST_F(path_editing, joining_takes_the_last_dot_of_the_name_and_divides_nothing_else) {
  struct {
    std::string directory;
    std::string name;
    parts expected;
  } const rows[] = {
      {"a//b", "c.d.e", {"a/b/", "c.d", ".e", "a/b/c.d.e"}},
      {"", "", {"", "", "", ""}},
      {"a", "", {"a/", "", "", "a/"}},
      {"", "c", {"", "c", "", "c"}},
      {"/", "c", {"/", "c", "", "/c"}},
      {"a.d", "c", {"a.d/", "c", "", "a.d/c"}},
      {"a", ".c", {"a/", "", ".c", "a/.c"}},
      {"a", "c.", {"a/", "c", ".", "a/c."}},
      {"a", "..", {"a/", ".", ".", "a/.."}},
      {"C:", "c", {"C:/", "c", "", "C:/c"}},

      // Both are normalised.
      {"\\\\a\\/b\\", "x\\\\y//c.d", {"/a/b/", "x/y/c", ".d", "/a/b/x/y/c.d"}},
      {"a", "c.d\\\\e", {"a/", "c", ".d/e", "a/c.d/e"}},

      // A separator in the name stays there, also behind the dot.
      {"a", "sub.d/f", {"a/", "sub", ".d/f", "a/sub.d/f"}},
      {"a", "x/f", {"a/", "x/f", "", "a/x/f"}},
      {"a", "/f", {"a/", "/f", "", "a//f"}},
      {"", "/f.x", {"", "/f", ".x", "/f.x"}},
      {"", "f/", {"", "f/", "", "f/"}},

      // Nothing ends at a NUL but the text.
      {"a\0b"s, "c\0d.e"s, {"a\0b/"s, "c\0d"s, ".e", "a/c.e"}},
      {"a", "c.d\0.e"s, {"a/", "c.d\0"s, ".e", "a/c.d.e"}},
      {"a", "c.d\0e"s, {"a/", "c", ".d\0e"s, "a/c.d"}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.directory) + " and " + testing::PrintToString(row.name));
    FIO_PATH const path(row.directory, row.name);
    EXPECT_EQ(parts_of(path), row.expected);
    EXPECT_TRUE(path.is_legal_length());
  }
  EXPECT_FALSE(FIO_PATH("", "/f").absolute());
  EXPECT_FALSE(FIO_PATH("", "x/f").has_directory());
}

TEST_F(path_editing, joining_cuts_nothing_and_refuses_nothing) {
  std::string const long_name = repeated(longest_path + 1);
  FIO_PATH path(repeated(longest_path + 1, 'd'), long_name + "." + long_name);
  EXPECT_EQ(path.get_path_components(FIO_PATH::DIRECTORY), repeated(longest_path + 1, 'd') + '/');
  EXPECT_EQ(path.get_path_components(FIO_PATH::BASE), long_name);
  EXPECT_EQ(path.get_path_components(FIO_PATH::EXTENSION), "." + long_name);
  EXPECT_FALSE(path.is_legal_length());
  EXPECT_EQ(messages(), std::vector<std::string>());

  // The size of the text alone made it so.
  path.directory("").base("c").no_extension();
  EXPECT_EQ(path.fullpath(), "c");
  EXPECT_TRUE(path.is_legal_length());

  EXPECT_TRUE(FIO_PATH("d", repeated(longest_path - 2)).is_legal_length());
  EXPECT_FALSE(FIO_PATH("d", repeated(longest_path - 1)).is_legal_length());
  EXPECT_EQ(messages(), std::vector<std::string>());
}

TEST_F(path_editing, a_joined_path_has_the_default_separator) {
  FIO_PATH path("a", "b");
  EXPECT_EQ(path.filename("c/d").fullpath(), "a/c/d");
  EXPECT_EQ(path.levels(), 2);
}

TEST_F(path_editing, a_path_that_is_split_and_joined_is_the_same) {
  for (char const* text : {"", "/", "a/", "name", "a/b/c.txt", "/a/b/", "/a/..", "dir/.", "file.", ".profile",
                           "a.tar.gz", "C:/x/y.txt", "//s/t", "a\\b//c.d"}) {
    FIO_PATH const path(text);
    EXPECT_EQ(parts_of(FIO_PATH(path.directory(), path.filename())), parts_of(path)) << text;
    EXPECT_EQ(parts_of(FIO_PATH().directory(path.directory()).filename(path.filename())), parts_of(path)) << text;
    EXPECT_EQ(parts_of(FIO_PATH().filename(text)), parts_of(path)) << text;

    FIO_PATH same(text);
    same.directory(path.directory()).base(path.base()).tail("").make_path(FIO_PATH::DRIVE, "");
    EXPECT_EQ(parts_of(same), parts_of(path)) << text;
    if (!path.extension().empty()) {
      EXPECT_EQ(parts_of(same.extension(path.extension(), "")), parts_of(path)) << text;
    }
  }
}

// Other separators

TEST_F(path_editing, edits_of_a_directory_follow_the_separator_of_the_path) {
  struct {
    char const* what;
    FIO_PATH from;
    FIO_PATH& (*edit)(FIO_PATH&);
    parts expected;
  } const rows[] = {
      {"directory under \\",
       with_separator('\\', "a/b/c.t"),
       [](FIO_PATH& path) -> FIO_PATH& { return path.directory("/x//y"); },
       {"\\x\\y\\", "c", ".t", "\\x\\y\\c.t"}},
      {"name under \\",
       with_separator('\\', "a/b/c.t"),
       [](FIO_PATH& path) -> FIO_PATH& { return path.filename("x/d.h"); },
       {"a\\b\\x\\", "d", ".h", "a\\b\\x\\d.h"}},
      {"tail under \\",
       with_separator('\\', "a/b/c.t"),
       [](FIO_PATH& path) -> FIO_PATH& { return path.tail("y/z"); },
       {"a\\y\\z\\", "c", ".t", "a\\y\\z\\c.t"}},
      {"tail of one level under \\",
       with_separator('\\', "a/c.t"),
       [](FIO_PATH& path) -> FIO_PATH& { return path.tail("z"); },
       {"az\\", "c", ".t", "az\\c.t"}},

      // A path with a third separator replaces "/" alone, and has a "/" behind its directory all the same.
      {"directory under |",
       with_separator('|', "a/b/c.t"),
       [](FIO_PATH& path) -> FIO_PATH& { return path.directory("x//y||z"); },
       {"x|y|z|", "c", ".t", "x|y|z|/c.t"}},
      {"directory with a backslash under |",
       with_separator('|', "a/b/c.t"),
       [](FIO_PATH& path) -> FIO_PATH& { return path.directory("x\\\\y\\"); },
       {"x\\\\y\\|", "c", ".t", "x\\\\y\\|/c.t"}},
      {"no directory under |",
       with_separator('|', "a/b/c.t"),
       [](FIO_PATH& path) -> FIO_PATH& { return path.directory(""); },
       {"", "c", ".t", "c.t"}},
      {"name under |",
       with_separator('|', "a/b/c.t"),
       [](FIO_PATH& path) -> FIO_PATH& { return path.filename("x/y/d.h"); },
       {"a|b|x|y|", "d", ".h", "a|b|x|y|/d.h"}},
      {"name with a backslash under |",
       with_separator('|', "a/b/c.t"),
       [](FIO_PATH& path) -> FIO_PATH& { return path.filename("x\\d.h"); },
       {"a|b|x\\|", "d", ".h", "a|b|x\\|/d.h"}},
      {"name with the separator under |",
       with_separator('|', "a/b/c.t"),
       [](FIO_PATH& path) -> FIO_PATH& { return path.filename("x|d.h"); },
       {"a|b|", "x|d", ".h", "a|b|/x|d.h"}},
      {"tail under |",
       with_separator('|', "a/b/c.t"),
       [](FIO_PATH& path) -> FIO_PATH& { return path.tail("z"); },
       {"a|z|", "c", ".t", "a|z|/c.t"}},
      {"base under |",
       with_separator('|', "a/c.t"),
       [](FIO_PATH& path) -> FIO_PATH& { return path.base("x/y|z"); },
       {"a|", "x/y|z", ".t", "a|/x/y|z.t"}},

      // An assigned directory keeps the separators of its source until it is stored.
      {"base of an assigned path",
       assigned_from(with_separator('\\', "a/b/c.t")),
       [](FIO_PATH& path) -> FIO_PATH& { return path.base("d"); },
       {"a\\b\\", "d", ".t", "a\\b\\d.t"}},
      {"plain name of an assigned path",
       assigned_from(with_separator('\\', "a/b/c.t")),
       [](FIO_PATH& path) -> FIO_PATH& { return path.filename("d.h"); },
       {"a\\b\\", "d", ".h", "a\\b\\d.h"}},
      {"name of an assigned path",
       assigned_from(with_separator('\\', "a/b/c.t")),
       [](FIO_PATH& path) -> FIO_PATH& { return path.filename("x/d.h"); },
       {"a/b/x/", "d", ".h", "a/b/x/d.h"}},
      {"name of a path assigned from |",
       assigned_from(with_separator('|', "a/b/c.t")),
       [](FIO_PATH& path) -> FIO_PATH& { return path.filename("x/d.h"); },
       {"a|b|/x/", "d", ".h", "a|b|/x/d.h"}},
      {"tail of an assigned path",
       assigned_from(with_separator('\\', "a/b/c.t")),
       [](FIO_PATH& path) -> FIO_PATH& { return path.tail("z"); },
       {"a/b/z/", "c", ".t", "a/b/z/c.t"}},
      {"no tail of an assigned path",
       assigned_from(with_separator('\\', "a/b/c.t")),
       [](FIO_PATH& path) -> FIO_PATH& { return path.tail(""); },
       {"a\\b\\", "c", ".t", "a\\b\\c.t"}},
      {"tail of a path assigned from |",
       assigned_from(with_separator('|', "a/b/c.t")),
       [](FIO_PATH& path) -> FIO_PATH& { return path.tail("z"); },
       {"a|b|z/", "c", ".t", "a|b|z/c.t"}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.what);
    FIO_PATH path(row.from);
    EXPECT_EQ(&row.edit(path), &path);
    EXPECT_EQ(parts_of(path), row.expected);
  }
}

// A drive that was set

TEST_F(path_editing, an_edit_leaves_the_drive_where_it_is) {
  struct {
    char const* what;
    FIO_PATH& (*edit)(FIO_PATH&);
    parts expected;
  } const rows[] = {
      {"directory", [](FIO_PATH& path) -> FIO_PATH& { return path.directory("x"); }, {"x/", "c", ".t", "C:x/c.t"}},
      {"no directory", [](FIO_PATH& path) -> FIO_PATH& { return path.directory(""); }, {"", "c", ".t", "C:c.t"}},
      {"base", [](FIO_PATH& path) -> FIO_PATH& { return path.base("d"); }, {"/a/", "d", ".t", "C:/a/d.t"}},
      {"name", [](FIO_PATH& path) -> FIO_PATH& { return path.filename("D:/d"); }, {"/a/D:/", "d", "", "C:/a/D:/d"}},
      {"no name", [](FIO_PATH& path) -> FIO_PATH& { return path.filename(""); }, {"/a/", "", "", "C:/a/"}},
      {"tail", [](FIO_PATH& path) -> FIO_PATH& { return path.tail("z"); }, {"/z/", "c", ".t", "C:/z/c.t"}},
      {"no_extension", [](FIO_PATH& path) -> FIO_PATH& { return path.no_extension(); }, {"/a/", "c", "", "C:/a/c"}},
      {"extension",
       [](FIO_PATH& path) -> FIO_PATH& { return path.extension("h", ""); },
       {"/a/", "c", ".h", "C:/a/c.h"}},
      {"a refused name",
       [](FIO_PATH& path) -> FIO_PATH& { return path.filename(repeated(2000)); },
       {"/a/", "", "", "C:/a/"}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.what);
    FIO_PATH path = with_drive("/a/c.t");
    EXPECT_EQ(&row.edit(path), &path);
    EXPECT_EQ(parts_of(path), row.expected);
  }
  FIO_PATH assigned = with_drive("/a/c.t");
  assigned = "/a/c.t";
  EXPECT_EQ(assigned.fullpath(), "/a/c.t");
}

// All setters

TEST_F(path_editing, setters_chain_on_the_path_itself) {
  FIO_PATH path("a/b/c.txt");
  for (setter const& row : setters_but_filename) {
    EXPECT_EQ(&row.edit(path), &path) << row.name;
  }
  FIO_PATH& end = path.drive("").directory("x/y").tail("z").base("d").extension("v", "gz").filename("e.f/g.h");
  EXPECT_EQ(&end, &path);
  EXPECT_EQ(parts_of(path), (parts{"x/z/e.f/", "g", ".h", "x/z/e.f/g.h"}));
}

TEST_F(path_editing, the_text_is_made_anew_by_each_setter) {
  FIO_PATH path("/a/b/c.txt");
  for (char letter : {'\0', 'C'}) {
    for (setter const& row : setters_but_filename) {
      SCOPED_TRACE(row.name);
      FIO_PATH edited(path);
      row.edit(edited.drive(letter));
      char const* const drive = row.drive != nullptr ? row.drive : letter == '\0' ? "" : "C:";
      parts const stored = parts_of(edited);
      char text[1024];
      FIO_FILE_SYSTEM::makepath(text, drive, stored.directory.c_str(), stored.base.c_str(), stored.extension.c_str());
      EXPECT_EQ(edited.fullpath(), text);
    }
  }
}

TEST_F(path_editing, only_a_file_name_makes_a_refused_length_legal_again) {
  for (setter const& row : setters_but_filename) {
    SCOPED_TRACE(row.name);
    FIO_PATH refused(repeated(longest_path + 1));
    EXPECT_FALSE(row.edit(refused).is_legal_length());
    FIO_PATH accepted("a/b/c.t");
    EXPECT_TRUE(row.edit(accepted).is_legal_length());
  }
  EXPECT_TRUE(FIO_PATH(repeated(longest_path + 1)).filename("x").is_legal_length());
}

TEST_F(path_editing, an_edit_beyond_the_limit_is_kept_whole_and_noted_by_the_next_reader) {
  std::string const long_text = repeated(longest_path);
  std::string const half = repeated(longest_path / 2);
  struct {
    char const* what;
    FIO_PATH from;
    std::function<FIO_PATH&(FIO_PATH&)> edit;
    std::string text;
  } const rows[] = {
      {"drive of a letter", long_text, [](FIO_PATH& path) -> FIO_PATH& { return path.drive('C'); }, "C:" + long_text},
      {"drive of a text", long_text, [](FIO_PATH& path) -> FIO_PATH& { return path.drive("CD"); }, "C:" + long_text},
      {"directory", FIO_PATH("c.t"), [&](FIO_PATH& path) -> FIO_PATH& { return path.directory(long_text); },
       long_text + "/c.t"},
      {"base", FIO_PATH("a/c.t"), [&](FIO_PATH& path) -> FIO_PATH& { return path.base(long_text); },
       "a/" + long_text + ".t"},
      {"name", FIO_PATH("a/c.t"), [&](FIO_PATH& path) -> FIO_PATH& { return path.filename(long_text); },
       "a/" + long_text},
      {"name with a directory", FIO_PATH(half + "/c"),
       [&](FIO_PATH& path) -> FIO_PATH& { return path.filename(half + "/d"); }, half + "/" + half + "/d"},
      {"tail", FIO_PATH("a/b/c.t"), [&](FIO_PATH& path) -> FIO_PATH& { return path.tail(long_text); },
       "a/" + long_text + "/c.t"},
      {"extension of two texts", FIO_PATH("a/c.t"),
       [&](FIO_PATH& path) -> FIO_PATH& { return path.extension(half, half); }, "a/c." + half + "." + half},
      {"extension of a type and a text", FIO_PATH("a/c.t"),
       [&](FIO_PATH& path) -> FIO_PATH& { return path.extension(FIO_EXTENSION_TYPE_VHD, long_text); },
       "a/c.vhd." + long_text},
      {"extension of a text and a type", FIO_PATH("a/c.t"),
       [&](FIO_PATH& path) -> FIO_PATH& { return path.extension(long_text, FIO_EXTENSION_TYPE_VHD); },
       "a/c." + long_text + ".vhd"},
      {"extension of two types", FIO_PATH(repeated(longest_path - 1)),
       [](FIO_PATH& path) -> FIO_PATH& { return path.extension(FIO_EXTENSION_TYPE_VHD, FIO_EXTENSION_TYPE_V); },
       repeated(longest_path - 1) + ".vhd.v"},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.what);
    FIO_PATH path(row.from);
    platform_double::debug_messages().clear();
    row.edit(path);
    EXPECT_EQ(messages(), std::vector<std::string>());
    EXPECT_FALSE(path.is_legal_length());
    EXPECT_EQ(path.fullpath(), row.text);
    EXPECT_EQ(messages(), std::vector<std::string>{length_message(row.text)});

    // Further edits are silent too, and a text that is short again is legal.
    platform_double::debug_messages().clear();
    for (setter const& again : setters_but_filename) {
      FIO_PATH copy(path);
      again.edit(copy);
    }
    path.drive("").directory("").base("c").no_extension();
    EXPECT_TRUE(path.is_legal_length());
    EXPECT_EQ(path.fullpath(), "c");
    EXPECT_EQ(messages(), std::vector<std::string>());
  }
}

TEST_F(path_editing, a_text_of_any_length_is_made_whole) {
  // Around the limit of a path, and around 1024 with some room for what is written between the components.
  for (std::size_t length :
       {0u, 1u, 998u, 999u, 1000u, 1001u, 1002u, 1016u, 1017u, 1018u, 1022u, 1023u, 1024u, 5000u}) {
    FIO_PATH path("/d/.t");
    path.base(repeated(length));
    EXPECT_EQ(parts_of(path), (parts{"/d/", repeated(length), ".t", "/d/" + repeated(length) + ".t"}));
    EXPECT_EQ(path.is_legal_length(), length + 5 <= longest_path);
  }
}

TEST_F(path_editing, no_setter_asks_the_system) {
  platform_double::record_calls(true);
  FIO_PATH path("a/b", "c.txt");
  for (setter const& row : setters_but_filename) {
    row.edit(path);
  }
  path.filename("x/y.z");
  platform_double::record_calls(false);
  EXPECT_EQ(platform_double::calls(), std::vector<std::string>());
  EXPECT_EQ(messages(), std::vector<std::string>());
}

TEST_F(path_editing, a_component_is_stored_before_memory_for_the_text_runs_out) {
  std::string const text = repeated(2000);
  FIO_PATH path("a/c.txt");
  {
    allocation_failure const failure(2);
    EXPECT_THROW(path.base(text), std::bad_alloc);
  }
  EXPECT_EQ(path.get_path_components(FIO_PATH::BASE), text);
  EXPECT_EQ(path.get_path_components(FIO_PATH::DIRECTORY), "a/");
  EXPECT_EQ(path.get_path_components(FIO_PATH::EXTENSION), ".txt");

  // An empty tail is no edit, and the next one brings the text up to date.
  EXPECT_EQ(path.tail("").fullpath(), "a/c.txt");
  path.directory("b");
  EXPECT_FALSE(path.is_legal_length());
  path.base("d");
  EXPECT_EQ(path.fullpath(), "b/d.txt");
}

namespace {

/// The text that the stored components make, which need not be the one that the path has.
std::string stored_text(FIO_PATH const& path) {
  FIO_PATH copy(path);
  copy.make_path(FIO_PATH::FILE_COMPONENTS{}, "");
  return copy.fullpath();
}

/// Runs `edit` while allocations fail from this one on. Answers whether it came to an end all the same.
bool ends_in_spite_of_failure(long first_to_fail, FIO_PATH& path, std::function<void(FIO_PATH&)> const& edit) {
  try {
    allocation_failure const failure(first_to_fail);
    edit(path);
    return true;
  } catch (std::bad_alloc const&) {
    return false;
  }
}

/// A path whose base was set when there was memory for the base and none for the text.
FIO_PATH with_stale_text(std::string const& from, std::string const& base) {
  FIO_PATH path(from);
  EXPECT_FALSE(ends_in_spite_of_failure(2, path, [&base](FIO_PATH& edited) { edited.base(base); }));
  EXPECT_EQ(path.fullpath(), from);
  EXPECT_EQ(path.get_path_components(FIO_PATH::BASE), base);
  return path;
}

} // namespace

TEST_F(path_editing, each_setter_stores_its_component_before_memory_for_the_text_runs_out) {
  std::string const text = repeated(200); // short enough to be divided again as it is
  std::string const long_name = repeated(100, 'c');
  struct {
    char const* what;
    std::string from;
    std::function<void(FIO_PATH&)> edit;
    std::string expected;
  } const rows[] = {
      {"directory", "a/b/c.txt", [&](FIO_PATH& path) { path.directory(text); }, text + "/c.txt"},
      {"base", "a/b/c.txt", [&](FIO_PATH& path) { path.base(text); }, "a/b/" + text + ".txt"},
      {"tail", "a/b/c.txt", [&](FIO_PATH& path) { path.tail(text); }, "a/" + text + "/c.txt"},
      {"extension", "a/b/c.txt", [&](FIO_PATH& path) { path.extension(text, ""); }, "a/b/c." + text},
      {"drive", "a/" + long_name, [](FIO_PATH& path) { path.drive('C'); }, "C:a/" + long_name},
  };
  for (auto const& row : rows) {
    bool stored_without_text = false;
    bool ended = false;
    for (long first_to_fail = 1; !ended; ++first_to_fail) {
      SCOPED_TRACE(std::string(row.what) + ", allocation " + std::to_string(first_to_fail));
      FIO_PATH path(row.from);
      ended = ends_in_spite_of_failure(first_to_fail, path, row.edit);
      EXPECT_EQ(path.fullpath(), ended ? row.expected : row.from);
      bool const stored = stored_text(path) == row.expected;
      EXPECT_EQ(stored_text(path), stored ? row.expected : row.from);
      stored_without_text = stored_without_text || (stored && !ended);

      path.base("n");
      EXPECT_EQ(path.fullpath(), FIO_PATH(stored ? row.expected : row.from).base("n").fullpath());
      EXPECT_EQ(path.drive("").directory("x").base("y").extension("z", "").fullpath(), "x/y.z");
    }
    EXPECT_TRUE(stored_without_text) << row.what;
  }
}

TEST_F(path_editing, the_text_is_brought_up_to_date_by_an_edit_that_changes_no_component) {
  std::string const base = repeated(2000);
  struct {
    char const* what;
    std::function<FIO_PATH&(FIO_PATH&)> edit;
  } const rows[] = {
      {"the base that was not written", [&](FIO_PATH& path) -> FIO_PATH& { return path.base(base); }},
      {"its own base", [](FIO_PATH& path) -> FIO_PATH& { return path.base(path.base()); }},
      {"its own directory", [](FIO_PATH& path) -> FIO_PATH& { return path.directory(path.directory()); }},
      {"its own extension", [](FIO_PATH& path) -> FIO_PATH& { return path.extension(path.extension(), ""); }},
      {"no drive", [](FIO_PATH& path) -> FIO_PATH& { return path.drive(""); }},
      {"its own base and no drive", [](FIO_PATH& path) -> FIO_PATH& { return path.base(path.base()).drive(""); }},
  };
  FIO_PATH const path = with_stale_text("a/c.txt", base);
  for (auto const& row : rows) {
    FIO_PATH copy(path);
    EXPECT_EQ(copy.fullpath(), "a/c.txt") << row.what;
    EXPECT_EQ(row.edit(copy).fullpath(), "a/" + base + ".txt") << row.what;
  }
  EXPECT_EQ(with_stale_text("a/c", base).no_extension().fullpath(), "a/" + base);
  EXPECT_EQ(with_stale_text("a/c.txt", base).no_extension().fullpath(), "a/" + base);
}

TEST_F(path_editing, a_directory_is_stored_with_its_separator_or_not_at_all) {
  std::string const text = repeated(300);
  bool ended = false;
  for (long first_to_fail = 1; !ended; ++first_to_fail) {
    FIO_PATH path("a/b/c.txt");
    ended = ends_in_spite_of_failure(first_to_fail, path, [&text](FIO_PATH& edited) { edited.directory(text); });
    std::string const directory = path.get_path_components(FIO_PATH::DIRECTORY);
    EXPECT_EQ(directory, directory == "a/b/" && !ended ? "a/b/" : text + '/') << first_to_fail;
  }
}

TEST_F(path_editing, a_file_name_is_set_whole_or_not_at_all_when_memory_runs_out) {
  std::string const directory = repeated(40, 'd');
  std::string const base = repeated(50, 'b');
  std::string const extension = "." + repeated(60, 'e');
  FIO_PATH from(repeated(2000)); // a refused text, so that its end shows too
  from.directory("a").base("b");
  ASSERT_FALSE(from.is_legal_length());
  for (std::string const& text : {base + extension, directory + '/' + base + extension}) {
    int old = 0;
    bool ended = false;
    for (long first_to_fail = 1; !ended; ++first_to_fail) {
      FIO_PATH path(from);
      ended = ends_in_spite_of_failure(first_to_fail, path, [&text](FIO_PATH& edited) { edited.filename(text); });
      bool const is_old = stored_text(path) == "a/b";
      EXPECT_TRUE(is_old || stored_text(path) == "a/" + text) << first_to_fail << ": " << stored_text(path);
      EXPECT_EQ(path.is_legal_length(), !is_old) << first_to_fail;
      EXPECT_EQ(path.fullpath(), ended ? "a/" + text : "a/b");
      old += is_old ? 1 : 0;
    }
    EXPECT_GT(old, 1) << text;
  }
}

TEST_F(path_editing, an_assigned_text_is_divided_whole_or_not_at_all_when_memory_runs_out) {
  std::string const directory = repeated(40, 'd') + '\\'; // is closed once more under a third separator
  for (char const separator : {'/', '\\', '|'}) {
    for (std::string const& text : {directory, directory + repeated(50, 'b') + '.' + repeated(60, 'e')}) {
      SCOPED_TRACE(std::string(1, separator) + ' ' + text);
      FIO_PATH from("a/b.");
      from.path_separator(separator);
      FIO_PATH to = FIO_PATH(from);
      to = text;
      bool ended = false;
      for (long first_to_fail = 1; !ended; ++first_to_fail) {
        FIO_PATH path = FIO_PATH(from);
        ended = ends_in_spite_of_failure(first_to_fail, path, [&text](FIO_PATH& edited) { edited = text; });
        EXPECT_TRUE(stored_text(path) == stored_text(from) || stored_text(path) == to.fullpath()) << first_to_fail;
        EXPECT_EQ(path.fullpath(), ended ? to.fullpath() : from.fullpath());
      }
    }
  }
}
