/// @file
/// How `FIO_PATH` takes a text apart, stores components and reads the text back.

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <new>
#include <ostream>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_path.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/ever_more_memory.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

using texts = std::vector<std::string>;

/// Everything that a path tells about itself. A drive shows in the text alone.
struct path_state {
  std::string directory;
  std::string base;
  std::string extension;
  std::string text;
  char separator = '/';
  bool legal = true;
};

bool operator==(path_state const& left, path_state const& right) {
  return left.directory == right.directory && left.base == right.base && left.extension == right.extension &&
         left.text == right.text && left.separator == right.separator && left.legal == right.legal;
}

std::ostream& operator<<(std::ostream& out, path_state const& state) {
  return out << "directory " << testing::PrintToString(state.directory) << ", base "
             << testing::PrintToString(state.base) << ", extension " << testing::PrintToString(state.extension)
             << ", text " << testing::PrintToString(state.text) << ", separator '" << state.separator << "', "
             << (state.legal ? "legal" : "not legal");
}

/// A separator is replaced by the path's own one whichever it is, so a lone `/` tells which one that is.
char separator_of(FIO_PATH const& path) { return path.sync_path_separators("/").front(); }

path_state state_of(FIO_PATH const& path) {
  return {path.get_path_components(FIO_PATH::DIRECTORY),
          path.get_path_components(FIO_PATH::BASE),
          path.get_path_components(FIO_PATH::EXTENSION),
          path.fullpath(),
          separator_of(path),
          path.is_legal_length()};
}

/// A text that may hold NUL bytes.
template <std::size_t Size>
std::string bytes(char const (&literal)[Size]) {
  return std::string(literal, Size - 1);
}

char const* own_text(FIO_PATH const& path) { return path; }

/// A path with something in every field, none of which may outlive the next text.
FIO_PATH used_path() {
  FIO_PATH path("old/directory/old.base.old");
  path.drive('Z');
  return path;
}

/// The text after a store of the base "n". A drive that was left behind comes to light in it.
std::string renamed(FIO_PATH& path) {
  path.make_path(FIO_PATH::BASE, "n");
  return path.fullpath();
}

/// The ways of dividing a text into a path, and the content that a path has afterwards.
struct parsing_route {
  char const* name;
  path_state (*parse)(char const* text);
};

parsing_route const parsing_routes[] = {
    {"construction from a C-string", [](char const* text) { return state_of(FIO_PATH(text)); }},
    {"construction from a string", [](char const* text) { return state_of(FIO_PATH(std::string(text))); }},
    {"assignment of a C-string",
     [](char const* text) {
       FIO_PATH path = used_path();
       path = text;
       return state_of(path);
     }},
    {"assignment of a string",
     [](char const* text) {
       FIO_PATH path = used_path();
       path = std::string(text);
       return state_of(path);
     }},
    {"split_full_path",
     [](char const* text) {
       FIO_PATH path = used_path();
       path.split_full_path(text);
       return state_of(path);
     }},
};

struct parsing_row {
  char const* text;
  char const* directory;
  char const* base;
  char const* extension;
  char const* full_text;
};

parsing_row const parsing_rows[] = {
    // Nothing.
    {"", "", "", "", ""},
    // The last dot of a name starts the extension, wherever in the name it stands.
    {"a", "", "a", "", "a"},
    {"a.b", "", "a", ".b", "a.b"},
    {"a.b.c", "", "a.b", ".c", "a.b.c"},
    {"a..b", "", "a.", ".b", "a..b"},
    {".profile", "", "", ".profile", ".profile"},
    {".a.b", "", ".a", ".b", ".a.b"},
    {".", "", "", ".", "."},
    {"..", "", ".", ".", ".."},
    {"...", "", "..", ".", "..."},
    {"file.", "", "file", ".", "file."},
    {"file..", "", "file.", ".", "file.."},
    // A dot in the directory does not.
    {"dir.d/name", "dir.d/", "name", "", "dir.d/name"},
    {"dir.d\\name", "dir.d/", "name", "", "dir.d/name"},
    {"dir.d/", "dir.d/", "", "", "dir.d/"},
    {"./name", "./", "name", "", "./name"},
    {"../name", "../", "name", "", "../name"},
    {"a.b/c.d/e.f", "a.b/c.d/", "e", ".f", "a.b/c.d/e.f"},
    {"a.b/.c", "a.b/", "", ".c", "a.b/.c"},
    {"dir/.", "dir/", "", ".", "dir/."},
    {"dir/..", "dir/", ".", ".", "dir/.."},
    {"/..", "/", ".", ".", "/.."},
    // The directory reaches up to the last separator, of either kind.
    {"a/b", "a/", "b", "", "a/b"},
    {"a\\b", "a/", "b", "", "a/b"},
    {"a\\b/c.t", "a/b/", "c", ".t", "a/b/c.t"},
    {"a/b\\c.t", "a/b/", "c", ".t", "a/b/c.t"},
    {"dir/", "dir/", "", "", "dir/"},
    {"dir\\", "dir/", "", "", "dir/"},
    {"/", "/", "", "", "/"},
    {"\\", "/", "", "", "/"},
    {"/name", "/", "name", "", "/name"},
    {"\\name", "/", "name", "", "/name"},
    // Runs of separators become one, also at both ends.
    {"a///b\\\\c", "a/b/", "c", "", "a/b/c"},
    {"a\\b//c.txt", "a/b/", "c", ".txt", "a/b/c.txt"},
    {"//", "/", "", "", "/"},
    {"/\\/\\", "/", "", "", "/"},
    {"///a///", "/a/", "", "", "/a/"},
    {"rtl//core\\alu.v", "rtl/core/", "alu", ".v", "rtl/core/alu.v"},
    // There are neither drives nor network names.
    {"C:", "", "C:", "", "C:"},
    {"C:x.y", "", "C:x", ".y", "C:x.y"},
    {"C:/x", "C:/", "x", "", "C:/x"},
    {"C:\\x\\y.txt", "C:/x/", "y", ".txt", "C:/x/y.txt"},
    {"//server/share/f", "/server/share/", "f", "", "/server/share/f"},
    {"\\\\server\\share\\f", "/server/share/", "f", "", "/server/share/f"},
    {"http://h/x.y", "http:/h/", "x", ".y", "http:/h/x.y"},
    // All other bytes are taken as they come.
    {" a b / c . d ", " a b /", " c ", ". d ", " a b / c . d "},
    {"*?|;\"'%s\n/\t.\x01", "*?|;\"'%s\n/", "\t", ".\x01", "*?|;\"'%s\n/\t.\x01"},
    {"\xff\x80/\xc3\xa9.\xfe\x81", "\xff\x80/", "\xc3\xa9", ".\xfe\x81", "\xff\x80/\xc3\xa9.\xfe\x81"},
    {"\xaf\xdc\xae", "", "\xaf\xdc\xae", "", "\xaf\xdc\xae"}, // the separators and the dot, with the highest bit set
};

path_state const empty_state = {};
path_state const refused_state = {"", "", "", "", '/', false};

/// A path whose text was lengthened past the limit, which no edit refuses.
FIO_PATH lengthened_path(std::size_t length) {
  FIO_PATH path("a/b.c");
  path.make_path(FIO_PATH::BASE, repeated(length - 4));
  return path;
}

} // namespace

class path_parsing : public fio_test {};

static_assert(!std::is_polymorphic_v<FIO_PATH>, "a path is a plain value");
static_assert(sizeof(FIO_PATH) == 5 * sizeof(std::string) + 8, "five texts, a separator and the mark of a refusal");
static_assert(std::is_nothrow_move_constructible_v<FIO_PATH>);
static_assert(std::is_nothrow_move_assignable_v<FIO_PATH>);

// The exact types of the operations

static_assert(std::is_same_v<decltype(&FIO_PATH::fullpath), std::string (FIO_PATH::*)() const>);
static_assert(std::is_same_v<decltype(&FIO_PATH::operator std::string), std::string (FIO_PATH::*)() const>);
static_assert(std::is_same_v<decltype(&FIO_PATH::operator char const*), char const* (FIO_PATH::*)() const>);
static_assert(std::is_same_v<decltype(&FIO_PATH::split_full_path), void (FIO_PATH::*)(char const*)>);
static_assert(
    std::is_same_v<decltype(&FIO_PATH::make_path), void (FIO_PATH::*)(FIO_PATH::FILE_COMPONENTS, std::string const&)>);
static_assert(
    std::is_same_v<decltype(&FIO_PATH::sync_path_separators), std::string (FIO_PATH::*)(std::string const&) const>);
static_assert(std::is_same_v<decltype(&FIO_PATH::path_separator), FIO_PATH& (FIO_PATH::*)(char)>);
static_assert(std::is_same_v<decltype(&FIO_PATH::default_path_separator), char (*)()>);
static_assert(has_type<bool (*)(char const*)>(&FIO_PATH::is_unc_path));
static_assert(has_type<bool (*)(std::string const&)>(&FIO_PATH::is_unc_path));
static_assert(std::is_same_v<decltype(&FIO_PATH::convert_unc_to_path_with_drive), bool (*)(char const*, std::string&)>);
static_assert(std::is_same_v<decltype(&FIO_PATH::convert_path_with_drive_to_unc), bool (*)(char const*, std::string&)>);
static_assert(std::is_same_v<decltype(&FIO_PATH::change_path_separators_for_windows_api), void (*)()>);
static_assert(std::is_same_v<decltype(&fio_display_path_too_long_assert_message), void (*)(char const*)>);

// Division of a text

TEST_F(path_parsing, a_new_path_is_empty_and_separates_by_slashes) {
  EXPECT_EQ(state_of(FIO_PATH()), empty_state);
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_parsing, a_text_is_divided_in_the_same_way_on_every_route) {
  platform_double::record_calls(true);
  for (parsing_row const& row : parsing_rows) {
    path_state const expected = {row.directory, row.base, row.extension, row.full_text};
    for (parsing_route const& route : parsing_routes) {
      EXPECT_EQ(route.parse(row.text), expected) << route.name << " of " << testing::PrintToString(row.text);
    }
  }
  EXPECT_EQ(platform_double::calls(), texts()) << "paths are work on texts alone";
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_parsing, a_null_text_leaves_an_empty_path) {
  char const* const none = nullptr;
  EXPECT_EQ(state_of(FIO_PATH(none)), empty_state);

  FIO_PATH assigned = used_path();
  assigned = none;
  EXPECT_EQ(state_of(assigned), empty_state);

  FIO_PATH divided = used_path();
  divided.split_full_path(none);
  EXPECT_EQ(state_of(divided), empty_state);
}

TEST_F(path_parsing, a_text_that_is_taken_or_refused_leaves_the_error_number_alone) {
  errno = 77;
  FIO_PATH path("a/b");
  EXPECT_EQ(errno, 77);
  path = repeated(2000);
  EXPECT_EQ(errno, 77);
  EXPECT_EQ(state_of(path), refused_state);
}

TEST_F(path_parsing, every_text_removes_a_drive) {
  struct row {
    std::string text;
    char const* renamed;
  };
  row const rows[] = {{"", "n"}, {"b", "n"}, {"a/b.c", "a/n.c"}, {"C:b", "n"}, {repeated(1024), "n"}};
  for (row const& row : rows) {
    FIO_PATH path = used_path();
    path = row.text;
    EXPECT_EQ(renamed(path), row.renamed) << row.text;
  }
  FIO_PATH path = used_path();
  path = static_cast<char const*>(nullptr);
  EXPECT_EQ(renamed(path), "n");
}

TEST_F(path_parsing, a_text_converts_to_a_path) {
  FIO_PATH const from_literal = "a/b.c";
  FIO_PATH const from_string = std::string("a/b.c");
  EXPECT_EQ(from_literal.fullpath(), "a/b.c");
  EXPECT_EQ(from_string.fullpath(), "a/b.c");
}

TEST_F(path_parsing, the_first_nul_ends_a_string) {
  struct row {
    std::string text;
    path_state expected;
  };
  row const rows[] = {
      {bytes("a/b\0c/d.e"), {"a/", "b", "", "a/b"}},
      {bytes("a/b.c\0"), {"a/", "b", ".c", "a/b.c"}},
      {bytes("a/\0b"), {"a/", "", "", "a/"}},
      {bytes("\0a/b.c"), empty_state},
      {bytes("a/b.c\0") + repeated(5000), {"a/", "b", ".c", "a/b.c"}}, // what stands behind it has no length either
  };
  for (row const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    EXPECT_EQ(state_of(FIO_PATH(row.text)), row.expected);
    FIO_PATH assigned = used_path();
    assigned = row.text;
    EXPECT_EQ(state_of(assigned), row.expected);
  }
}

TEST_F(path_parsing, a_finished_text_divides_into_what_made_it) {
  for (parsing_row const& row : parsing_rows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    FIO_PATH const path(row.text);
    path_state const state = state_of(path);
    EXPECT_EQ(state_of(FIO_PATH(path.fullpath())), state);
    EXPECT_EQ(state.directory + state.base + state.extension, state.text);
    char made[1024];
    FIO_FILE_SYSTEM::makepath(made, "", state.directory.c_str(), state.base.c_str(), state.extension.c_str());
    EXPECT_EQ(made, state.text);
  }
}

TEST_F(path_parsing, a_directory_takes_the_separator_of_the_path) {
  struct row {
    char separator;
    char const* text;
    path_state expected;
  };
  row const rows[] = {
      {'\\', "a/b/c.t", {"a\\b\\", "c", ".t", "a\\b\\c.t", '\\'}},
      {'\\', "a/\\b\\/c.t", {"a\\b\\", "c", ".t", "a\\b\\c.t", '\\'}},
      {'\\', "//a", {"\\", "a", "", "\\a", '\\'}},
      {'\\', "a.b", {"", "a", ".b", "a.b", '\\'}},
      // A separator of one's own: `/` gives way to it, `\` does not, and only these two divide a text. The finished
      // text has a `/` behind the directory all the same.
      {'|', "a/b/f", {"a|b|", "f", "", "a|b|/f", '|'}},
      {'|', "a|b|f", {"", "a|b|f", "", "a|b|f", '|'}},
      {'|', "a|b|/f", {"a|b|", "f", "", "a|b|/f", '|'}},
      {'|', "a||/|/b/f.t", {"a|b|", "f", ".t", "a|b|/f.t", '|'}},
      {'|', "a\\b/f", {"a\\b|", "f", "", "a\\b|/f", '|'}},
      {'|', "a\\b\\f", {"a\\b\\|", "f", "", "a\\b\\|/f", '|'}},
      {'|', "/f", {"|", "f", "", "|/f", '|'}},
      {'.', "a.b/c.d", {"a.b.", "c", ".d", "a.b./c.d", '.'}},
  };
  for (row const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text) + " under " + row.separator);
    FIO_PATH const path = with_separator(row.separator, row.text);
    EXPECT_EQ(state_of(path), row.expected);
    EXPECT_EQ(state_of(with_separator(row.separator, own_text(path))), row.expected);
  }
}

// Length

TEST_F(path_parsing, a_text_of_1023_characters_is_the_longest) {
  struct row {
    std::string text;
    path_state expected;
  };
  std::string const directory = repeated(20, 'd') + '/';
  row const rows[] = {
      {repeated(1022), {"", repeated(1022), "", repeated(1022)}},
      {repeated(1023), {"", repeated(1023), "", repeated(1023)}},
      {repeated(1023, '\xff'), {"", repeated(1023, '\xff'), "", repeated(1023, '\xff')}},
      {repeated(1022) + '/', {repeated(1022) + '/', "", "", repeated(1022) + '/'}},
      {'/' + repeated(1022), {"/", repeated(1022), "", '/' + repeated(1022)}},
      {directory + repeated(1000) + ".t", {directory, repeated(1000), ".t", directory + repeated(1000) + ".t"}},
      {repeated(1023, '/'), {"/", "", "", "/"}},
      {repeated(1023, '.'), {"", repeated(1022, '.'), ".", repeated(1023, '.')}},
      // The length that counts is that of the text as it is given.
      {repeated(1024), refused_state},
      {repeated(1024, '\xff'), refused_state},
      {repeated(1024, '/'), refused_state},
      {repeated(1023) + '/', refused_state},
      {'/' + repeated(1023), refused_state},
      {repeated(1021) + ".tt", refused_state},
      {repeated(1025), refused_state},
      {repeated(100000), refused_state},
  };
  for (row const& row : rows) {
    for (parsing_route const& route : parsing_routes) {
      EXPECT_EQ(route.parse(row.text.c_str()), row.expected)
          << route.name << ", " << row.text.size() << " characters, the last one " << row.text.back();
    }
  }
  EXPECT_EQ(messages(), texts()) << "a text is refused in silence";
}

TEST_F(path_parsing, an_extension_is_cut_to_256_characters) {
  struct row {
    std::size_t length;
    std::size_t kept;
  };
  row const rows[] = {{255, 255}, {256, 256}, {257, 256}, {258, 256}, {1019, 256}};
  for (row const& row : rows) {
    std::string const text = "d/\xe4y." + repeated(row.length - 1);
    std::string const kept = '.' + repeated(row.kept - 1);
    for (parsing_route const& route : parsing_routes) {
      EXPECT_EQ(route.parse(text.c_str()), (path_state{"d/", "\xe4y", kept, "d/\xe4y" + kept}))
          << route.name << ", extension of " << row.length;
    }
  }
  EXPECT_EQ(messages(), texts()) << "an extension is cut in silence";
}

TEST_F(path_parsing, only_a_text_that_is_not_empty_lifts_a_refusal) {
  for (char const* const nothing : {"", static_cast<char const*>(nullptr)}) {
    FIO_PATH path(repeated(1024));
    path = nothing;
    EXPECT_EQ(state_of(path), refused_state);
    path.split_full_path(nothing);
    EXPECT_EQ(state_of(path), refused_state);
    path = std::string();
    EXPECT_EQ(state_of(path), refused_state);
    path = bytes("\0a");
    EXPECT_EQ(state_of(path), refused_state);
    path = "a";
    EXPECT_EQ(state_of(path), (path_state{"", "a", "", "a"}));
    path = nothing;
    EXPECT_EQ(state_of(path), empty_state);
  }
}

TEST_F(path_parsing, an_edit_does_not_lift_a_refusal) {
  FIO_PATH path(repeated(1024));
  path.make_path(FIO_PATH::DIRECTORY, "a");
  path.make_path(FIO_PATH::BASE, "b");
  EXPECT_EQ(state_of(path), (path_state{"a/", "b", "", "a/b", '/', false}));
  path.path_separator('\\');
  EXPECT_EQ(state_of(path), (path_state{"a\\", "b", "", "a\\b", '\\', false}));
  path = "c";
  EXPECT_EQ(state_of(path), (path_state{"", "c", "", "c", '\\', true}));
}

TEST_F(path_parsing, a_refused_text_leaves_separator_alone_and_nothing_of_the_old_content) {
  FIO_PATH path = with_separator('\\', "a/b.c");
  path.drive('C');
  path = repeated(1024);
  EXPECT_EQ(state_of(path), (path_state{"", "", "", "", '\\', false}));
  path = "d/e";
  EXPECT_EQ(state_of(path), (path_state{"d\\", "e", "", "d\\e", '\\', true}));
}

TEST_F(path_parsing, a_length_is_legal_up_to_1023) {
  struct row {
    unsigned long length;
    bool legal;
  };
  row const rows[] = {
      {0, true},         {1, true},      {1022, true},       {1023, true},       {1024, false},
      {1025, false},     {65536, false}, {1UL << 31, false}, {1UL << 32, false}, {(1UL << 32) + 1, false},
      {ULONG_MAX, false}};
  for (row const& row : rows) {
    EXPECT_EQ(FIO_PATH::is_path_length_within_operating_system_limits(row.length), row.legal) << row.length;
    if (row.length <= 65536) {
      EXPECT_EQ(FIO_PATH::is_path_length_within_operating_system_limits(repeated(row.length)), row.legal) << row.length;
      // Of a string the size counts, whatever its bytes are.
      EXPECT_EQ(FIO_PATH::is_path_length_within_operating_system_limits(repeated(row.length, '\0')), row.legal)
          << row.length;
    }
  }
}

TEST_F(path_parsing, a_path_is_of_legal_length_while_its_text_is) {
  FIO_PATH path = lengthened_path(1023);
  EXPECT_TRUE(path.is_legal_length());
  path.make_path(FIO_PATH::EXTENSION, ".cc");
  EXPECT_FALSE(path.is_legal_length());
  path.make_path(FIO_PATH::EXTENSION, ".c");
  EXPECT_TRUE(path.is_legal_length());

  // The text that is made can be longer than the one that was given.
  FIO_PATH grown = with_separator('|', "a/" + repeated(1020));
  EXPECT_TRUE(grown.is_legal_length());
  grown = "a/" + repeated(1021);
  EXPECT_FALSE(grown.is_legal_length());
  EXPECT_EQ(messages(), texts());
  EXPECT_EQ(grown.fullpath(), "a|/" + repeated(1021));
  EXPECT_EQ(messages(), texts{length_message("a|/" + repeated(1021))});
}

TEST_F(path_parsing, a_path_stays_as_it_is_if_there_is_no_memory_for_the_components_of_a_text) {
  std::string const text = repeated(100) + "/b";
  FIO_PATH refused(repeated(1024));
  FIO_PATH with_drive("a/b.c");
  with_drive.drive('C');
  for (FIO_PATH* const path : {&refused, &with_drive}) {
    path_state const before = state_of(*path);
    {
      allocation_failure const failure(1);
      EXPECT_THROW(*path = text, std::bad_alloc);
    }
    EXPECT_EQ(state_of(*path), before);
  }
  EXPECT_EQ(state_of(refused), refused_state);
  EXPECT_EQ(with_drive.fullpath(), "C:a/b.c");
  EXPECT_EQ(renamed(with_drive), "C:a/n.c");
}

TEST_F(path_parsing, a_path_can_be_used_on_whichever_memory_was_missing_for_a_text) {
  std::string const text = repeated(100, 'd') + '/' + repeated(100, 'b') + '.' + repeated(100, 'e');
  FIO_PATH from("a/b.c");
  from.drive('C');
  path_state const before = state_of(from);
  int failures = 0;
  for (bool failed = true; failed;) {
    FIO_PATH path(from);
    try {
      allocation_failure const failure(failures + 1);
      path = text;
      failed = false;
    } catch (std::bad_alloc const&) {
      ++failures;
    }
    SCOPED_TRACE("failure " + std::to_string(failures));
    if (failed && failures <= 3) { // of base, extension and directory
      EXPECT_EQ(state_of(path), before);
      FIO_PATH edited(path);
      EXPECT_EQ(renamed(edited), "C:a/n.c");
    }
    if (!failed) {
      EXPECT_EQ(state_of(path),
                (path_state{repeated(100, 'd') + '/', repeated(100, 'b'), '.' + repeated(100, 'e'), text}));
    }
    path = "x/y.z";
    EXPECT_EQ(state_of(path), (path_state{"x/", "y", ".z", "x/y.z"}));
  }
  EXPECT_GE(failures, 3);
}

// Copying and moving

namespace {

/// Paths in every kind of state, each in its own way different from a fresh one.
struct sample {
  char const* name;
  std::string renamed; ///< the text after a store of the base "n", which brings a drive to light
  FIO_PATH (*make)();
};

FIO_PATH path_with_drive() {
  FIO_PATH path("a/b.c");
  path.drive('C');
  return path;
}

FIO_PATH path_with_nul() {
  FIO_PATH path("a/b.c");
  path.make_path(FIO_PATH::BASE, bytes("b\0x"));
  return path;
}

sample const samples[] = {
    {"empty", "n", [] { return FIO_PATH(); }},
    {"short", "a/n.c", [] { return FIO_PATH("a/b.c"); }},
    {"long", repeated(100, 'd') + "/n." + repeated(100, 'e'),
     [] { return FIO_PATH(repeated(100, 'd') + '/' + repeated(100, 'b') + '.' + repeated(100, 'e')); }},
    {"with a drive", "C:a/n.c", path_with_drive},
    {"backslashes", "a\\b\\n.d", [] { return with_separator('\\', "a/b/c.d"); }},
    {"bars", "a|b|/n.d", [] { return with_separator('|', "a/b/c.d"); }},
    {"refused", "n", [] { return FIO_PATH(repeated(1024)); }},
    {"refused, backslashes", "n", [] { return with_separator('\\', repeated(1024)); }},
    {"lengthened", "a/n.c", [] { return lengthened_path(2000); }},
    {"with a NUL", "a/n.c", path_with_nul},
};

/// What an assignment makes of a state: the separator and the mark of a refusal stay behind.
path_state assigned_state(path_state state) {
  state.separator = '/';
  state.legal = state.text.size() <= 1023;
  return state;
}

/// What a move leaves behind.
path_state abandoned_state(path_state const& state) { return {"", "", "", "", state.separator, false}; }

} // namespace

TEST_F(path_parsing, copy_construction_takes_everything) {
  for (sample const& sample : samples) {
    SCOPED_TRACE(sample.name);
    FIO_PATH source = sample.make();
    path_state const before = state_of(source);
    FIO_PATH copy(source);
    EXPECT_EQ(state_of(copy), before);
    EXPECT_EQ(state_of(source), before);
    EXPECT_EQ(renamed(copy), sample.renamed);
    EXPECT_EQ(renamed(source), sample.renamed);
  }
}

TEST_F(path_parsing, move_construction_takes_everything_and_leaves_a_refused_path) {
  for (sample const& sample : samples) {
    SCOPED_TRACE(sample.name);
    FIO_PATH source = sample.make();
    path_state const before = state_of(source);
    FIO_PATH taken(std::move(source));
    EXPECT_EQ(state_of(taken), before);
    EXPECT_EQ(state_of(source), abandoned_state(before)); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(renamed(taken), sample.renamed);
    EXPECT_EQ(renamed(source), "n") << "a drive was left behind";
  }
}

TEST_F(path_parsing, copy_assignment_leaves_separator_and_refusal_behind) {
  for (sample const& sample : samples) {
    for (auto const& target : samples) {
      SCOPED_TRACE(std::string(sample.name) + " to " + target.name);
      FIO_PATH source = sample.make();
      path_state const before = state_of(source);
      FIO_PATH copy = target.make();
      EXPECT_EQ(&(copy = source), &copy);
      EXPECT_EQ(state_of(copy), assigned_state(before));
      EXPECT_EQ(state_of(source), before);
      EXPECT_EQ(renamed(copy), sample.renamed);
      EXPECT_EQ(renamed(source), sample.renamed);
      copy.make_path(FIO_PATH::DIRECTORY, "");
      copy.make_path(FIO_PATH::DRIVE, "");
      copy.make_path(FIO_PATH::EXTENSION, "");
      EXPECT_TRUE(copy.is_legal_length()) << "the mark of a refusal was taken over";
    }
  }
}

TEST_F(path_parsing, move_assignment_leaves_separator_and_refusal_behind_in_a_refused_path) {
  for (sample const& sample : samples) {
    for (auto const& target : samples) {
      SCOPED_TRACE(std::string(sample.name) + " to " + target.name);
      FIO_PATH source = sample.make();
      path_state const before = state_of(source);
      FIO_PATH taken = target.make();
      EXPECT_EQ(&(taken = std::move(source)), &taken);
      EXPECT_EQ(state_of(taken), assigned_state(before));
      EXPECT_EQ(state_of(source), abandoned_state(before)); // NOLINT(bugprone-use-after-move)
      EXPECT_EQ(renamed(taken), sample.renamed);
      EXPECT_EQ(renamed(source), "n") << "a drive was left behind";
    }
  }
}

TEST_F(path_parsing, a_move_hands_over_the_text_itself) {
  FIO_PATH first("d/" + repeated(300));
  char const* const text = first;
  FIO_PATH second(std::move(first));
  EXPECT_EQ(static_cast<void const*>(own_text(second)), static_cast<void const*>(text));
  FIO_PATH third("e/" + repeated(400, 'y'));
  third = std::move(second);
  EXPECT_EQ(static_cast<void const*>(own_text(third)), static_cast<void const*>(text));
  EXPECT_EQ(third.fullpath(), "d/" + repeated(300));
}

TEST_F(path_parsing, assigning_a_path_changes_nothing_unless_there_is_memory_for_all_of_it) {
  FIO_PATH const source(repeated(40) + '/', repeated(40) + '.' + repeated(40));
  FIO_PATH const before = with_separator('\\', "x\\y.z");
  FIO_PATH path(before);
  with_ever_more_memory([&] { path = source; },
                        [&](bool enough) {
                          EXPECT_EQ(path.fullpath(), enough ? source.fullpath() : before.fullpath());
                          EXPECT_EQ(path.get_path_components(15), enough ? source.fullpath() : before.fullpath());
                          EXPECT_EQ(path.absolute(), false);
                        });
}

TEST_F(path_parsing, assigning_a_path_to_itself_changes_nothing) {
  for (sample const& sample : samples) {
    SCOPED_TRACE(sample.name);
    FIO_PATH path = sample.make();
    FIO_PATH& same = path;
    path_state const before = state_of(path);
    EXPECT_EQ(&(path = same), &path);
    EXPECT_EQ(state_of(path), before);
    EXPECT_EQ(&(path = std::move(same)), &path);
    EXPECT_EQ(state_of(path), before); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(renamed(path), sample.renamed);
  }
}

TEST_F(path_parsing, a_moved_from_path_can_be_used_again) {
  FIO_PATH path = with_separator('\\', "a/b.c");
  FIO_PATH const first(std::move(path));
  path = "d/e.f"; // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(state_of(path), (path_state{"d\\", "e", ".f", "d\\e.f", '\\'}));
  FIO_PATH second;
  second = std::move(path);
  path = first; // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(state_of(path), (path_state{"a\\", "b", ".c", "a\\b.c"}));
  EXPECT_EQ(state_of(second), (path_state{"d\\", "e", ".f", "d\\e.f"}));
}

TEST_F(path_parsing, an_assigned_directory_keeps_the_separators_of_its_source_until_it_is_stored_again) {
  FIO_PATH path;
  path = with_separator('\\', "a/b/f");
  EXPECT_EQ(path.levels(), 1);
  path.make_path(FIO_PATH::BASE, "g");
  EXPECT_EQ(state_of(path), (path_state{"a\\b\\", "g", "", "a\\b\\g"}));
  path.make_path(FIO_PATH::DIRECTORY, path.directory());
  EXPECT_EQ(state_of(path), (path_state{"a/b/", "g", "", "a/b/g"}));
  EXPECT_EQ(path.levels(), 2);

  path = with_separator('|', "a/b/f");
  EXPECT_EQ(state_of(path), (path_state{"a|b|", "f", "", "a|b|/f"}));
  path.make_path(FIO_PATH::DIRECTORY, path.directory());
  EXPECT_EQ(state_of(path), (path_state{"a|b|/", "f", "", "a|b|/f"}));
}

TEST_F(path_parsing, copies_share_nothing) {
  FIO_PATH first("a/b.c");
  FIO_PATH second(first);
  FIO_PATH third;
  third = first;
  first.make_path(FIO_PATH::BASE, "x");
  second.make_path(FIO_PATH::DIRECTORY, "y");
  EXPECT_EQ(first.fullpath(), "a/x.c");
  EXPECT_EQ(second.fullpath(), "y/b.c");
  EXPECT_EQ(third.fullpath(), "a/b.c");
}

TEST_F(path_parsing, assigning_a_text_answers_this_path_and_keeps_the_separator) {
  FIO_PATH path = with_separator('\\', "a/b");
  EXPECT_EQ(&(path = "c/d"), &path);
  EXPECT_EQ(state_of(path), (path_state{"c\\", "d", "", "c\\d", '\\'}));
  EXPECT_EQ(&(path = std::string("e/f")), &path);
  EXPECT_EQ(state_of(path), (path_state{"e\\", "f", "", "e\\f", '\\'}));
  EXPECT_EQ(&(path = ""), &path);
  EXPECT_EQ(state_of(path), (path_state{"", "", "", "", '\\'}));
}

TEST_F(path_parsing, a_path_takes_its_own_text) {
  std::string const name = repeated(200, 'n');
  struct row {
    std::string text;
    std::size_t start; ///< where in the path's own text the new one begins
    path_state expected;
  };
  row const rows[] = {
      {"a/b.c", 0, {"a/", "b", ".c", "a/b.c"}},
      {"a/b.c", 2, {"", "b", ".c", "b.c"}},
      {"a/b.c", 3, {"", "", ".c", ".c"}},
      {"a/b.c", 5, empty_state},
      {"dir/" + name + "/" + name + ".v", 0, {"dir/" + name + "/", name, ".v", "dir/" + name + "/" + name + ".v"}},
      {"dir/" + name + "/" + name + ".v", 4, {name + "/", name, ".v", name + "/" + name + ".v"}},
      {"dir/" + name + "/" + name + ".v", 205, {"", name, ".v", name + ".v"}},
  };
  for (row const& row : rows) {
    SCOPED_TRACE(row.text + " from " + std::to_string(row.start));
    FIO_PATH assigned(row.text);
    assigned = own_text(assigned) + row.start;
    EXPECT_EQ(state_of(assigned), row.expected);
    FIO_PATH divided(row.text);
    divided.split_full_path(own_text(divided) + row.start);
    EXPECT_EQ(state_of(divided), row.expected);
  }
}

TEST_F(path_parsing, a_path_that_takes_its_own_text_loses_what_the_text_does_not_tell) {
  FIO_PATH with_drive("a/b.c");
  with_drive.drive('C');
  with_drive = own_text(with_drive);
  EXPECT_EQ(state_of(with_drive), (path_state{"C:a/", "b", ".c", "C:a/b.c"}));
  EXPECT_EQ(renamed(with_drive), "C:a/n.c") << "the drive is directory text now, and there once";

  FIO_PATH backslashes = with_separator('\\', "a/b/c.d");
  backslashes = own_text(backslashes);
  EXPECT_EQ(state_of(backslashes), (path_state{"a\\b\\", "c", ".d", "a\\b\\c.d", '\\'}));

  FIO_PATH too_long = lengthened_path(1024);
  too_long = own_text(too_long);
  EXPECT_EQ(messages(), texts{length_message("a/" + repeated(1020) + ".c")}) << "the reader's message";
  EXPECT_EQ(state_of(too_long), refused_state);
}

// Storing one component

TEST_F(path_parsing, make_path_stores_one_component) {
  struct row {
    FIO_PATH::FILE_COMPONENTS component;
    std::string value;
    path_state expected;
  };
  row const rows[] = {
      // A directory is normalised and closed.
      {FIO_PATH::DIRECTORY, "", {"", "b", ".c", "b.c"}},
      {FIO_PATH::DIRECTORY, "x", {"x/", "b", ".c", "x/b.c"}},
      {FIO_PATH::DIRECTORY, "x/", {"x/", "b", ".c", "x/b.c"}},
      {FIO_PATH::DIRECTORY, "x\\", {"x/", "b", ".c", "x/b.c"}},
      {FIO_PATH::DIRECTORY, "x\\y//z", {"x/y/z/", "b", ".c", "x/y/z/b.c"}},
      {FIO_PATH::DIRECTORY, "x.y", {"x.y/", "b", ".c", "x.y/b.c"}},
      {FIO_PATH::DIRECTORY, "/", {"/", "b", ".c", "/b.c"}},
      {FIO_PATH::DIRECTORY, "\\\\", {"/", "b", ".c", "/b.c"}},
      {FIO_PATH::DIRECTORY, "//server/share", {"/server/share/", "b", ".c", "/server/share/b.c"}},
      {FIO_PATH::DIRECTORY, bytes("x\0//y"), {bytes("x\0/y/"), "b", ".c", "x/b.c"}},
      {FIO_PATH::DIRECTORY, bytes("\0x"), {bytes("\0x/"), "b", ".c", "b.c"}},
      // A drive is one character, of any kind.
      {FIO_PATH::DRIVE, "", {"a/", "b", ".c", "a/b.c"}},
      {FIO_PATH::DRIVE, "C", {"a/", "b", ".c", "C:a/b.c"}},
      {FIO_PATH::DRIVE, "D:/e", {"a/", "b", ".c", "D:a/b.c"}},
      {FIO_PATH::DRIVE, ":", {"a/", "b", ".c", "::a/b.c"}},
      {FIO_PATH::DRIVE, "\xff", {"a/", "b", ".c", "\xff:a/b.c"}},
      {FIO_PATH::DRIVE, bytes("\0C"), {"a/", "b", ".c", "a/b.c"}},
      // Base and extension are stored as they come, and the text stops at the NUL of each component.
      {FIO_PATH::BASE, "", {"a/", "", ".c", "a/.c"}},
      {FIO_PATH::BASE, "x", {"a/", "x", ".c", "a/x.c"}},
      {FIO_PATH::BASE, "x//y.z\\", {"a/", "x//y.z\\", ".c", "a/x//y.z\\.c"}},
      {FIO_PATH::BASE, bytes("x\0y"), {"a/", bytes("x\0y"), ".c", "a/x.c"}},
      {FIO_PATH::EXTENSION, "", {"a/", "b", "", "a/b"}},
      {FIO_PATH::EXTENSION, "x", {"a/", "b", "x", "a/b.x"}}, // the dot is in the text, and not in the field
      {FIO_PATH::EXTENSION, ".x", {"a/", "b", ".x", "a/b.x"}},
      {FIO_PATH::EXTENSION, ".", {"a/", "b", ".", "a/b."}},
      {FIO_PATH::EXTENSION, "..x", {"a/", "b", "..x", "a/b..x"}},
      {FIO_PATH::EXTENSION, "x/y\\", {"a/", "b", "x/y\\", "a/b.x/y\\"}},
      {FIO_PATH::EXTENSION, bytes("x\0y"), {"a/", "b", bytes("x\0y"), "a/b.x"}},
      {FIO_PATH::EXTENSION, bytes("\0x"), {"a/", "b", bytes("\0x"), "a/b"}},
      {FIO_PATH::EXTENSION, '.' + repeated(300), {"a/", "b", '.' + repeated(300), "a/b." + repeated(300)}},
  };
  for (row const& row : rows) {
    FIO_PATH path("a/b.c");
    path.make_path(row.component, row.value);
    EXPECT_EQ(state_of(path), row.expected) << row.component << ", " << testing::PrintToString(row.value);
  }
}

TEST_F(path_parsing, make_path_stores_nothing_for_a_value_that_names_no_single_component) {
  for (int const component : {0, 3, 5, 6, 7, 9, 10, 12, 14, 15, 16, 1024, -1, INT_MAX, INT_MIN}) {
    FIO_PATH path("a/b.c");
    path.make_path(static_cast<FIO_PATH::FILE_COMPONENTS>(component), "x");
    EXPECT_EQ(state_of(path), (path_state{"a/", "b", ".c", "a/b.c"})) << component;
    EXPECT_EQ(renamed(path), "a/n.c") << component;
  }
}

TEST_F(path_parsing, make_path_makes_the_text_anew_for_a_value_that_names_no_single_component) {
  std::string const base = repeated(2000);
  FIO_PATH path("a/c.t");
  {
    allocation_failure const failure(2); // the base is stored, and there is no room for the text
    EXPECT_THROW(path.make_path(FIO_PATH::BASE, base), std::bad_alloc);
  }
  EXPECT_EQ(path.fullpath(), "a/c.t");
  path.make_path(static_cast<FIO_PATH::FILE_COMPONENTS>(15), "");
  EXPECT_EQ(path.fullpath(), "a/" + base + ".t");
}

TEST_F(path_parsing, make_path_asks_for_no_memory_while_the_text_has_room) {
  FIO_PATH path("d/" + repeated(300) + ".t");
  std::string const base = "short";
  long asked_for = -1;
  {
    allocation_failure const failure(1);
    path.make_path(FIO_PATH::BASE, base);
    asked_for = failure.asked_for();
  }
  EXPECT_EQ(asked_for, 0);
  EXPECT_EQ(state_of(path), (path_state{"d/", "short", ".t", "d/short.t"}));
}

TEST_F(path_parsing, components_are_single_bits) {
  EXPECT_EQ(int{FIO_PATH::DRIVE}, 1);
  EXPECT_EQ(int{FIO_PATH::DIRECTORY}, 2);
  EXPECT_EQ(int{FIO_PATH::BASE}, 4);
  EXPECT_EQ(int{FIO_PATH::EXTENSION}, 8);
}

TEST_F(path_parsing, make_path_removes_what_it_stored_before) {
  FIO_PATH path("a/b.c");
  path.make_path(FIO_PATH::DRIVE, "C");
  path.make_path(FIO_PATH::DRIVE, "DD");
  EXPECT_EQ(path.fullpath(), "D:a/b.c");
  path.make_path(FIO_PATH::DRIVE, "");
  EXPECT_EQ(path.fullpath(), "a/b.c");
}

TEST_F(path_parsing, make_path_makes_a_text_of_any_length) {
  // Around the sizes of the buffers that a text could be made in.
  for (std::size_t const length :
       {1000U, 1003U, 1004U, 1005U, 1022U, 1023U, 1024U, 1025U, 1043U, 1044U, 1045U, 70000U}) {
    SCOPED_TRACE(length);
    std::string const filling = repeated(length - 5, '\xfd');

    FIO_PATH base("a/b.c");
    base.make_path(FIO_PATH::BASE, 'b' + filling);
    FIO_PATH directory("a/b.c");
    directory.make_path(FIO_PATH::DIRECTORY, 'a' + filling);
    FIO_PATH extension("a/b.c");
    extension.make_path(FIO_PATH::EXTENSION, 'c' + filling);
    EXPECT_EQ(messages(), texts()) << "an edit says nothing about a length";

    bool const legal = length <= 1023;
    EXPECT_EQ(state_of(base), (path_state{"a/", 'b' + filling, ".c", "a/b" + filling + ".c", '/', legal}));
    EXPECT_EQ(state_of(directory), (path_state{'a' + filling + '/', "b", ".c", 'a' + filling + "/b.c", '/', legal}));
    EXPECT_EQ(state_of(extension), (path_state{"a/", "b", 'c' + filling, "a/b.c" + filling, '/', legal}));
    platform_double::debug_messages().clear();
  }
}

TEST_F(path_parsing, make_path_treats_a_directory_under_the_separator_of_the_path) {
  struct row {
    char separator;
    char const* directory;
    char const* stored;
    char const* text;
  };
  row const rows[] = {
      {'\\', "a/b", "a\\b\\", "a\\b\\f"},
      {'\\', "a\\\\/b/", "a\\b\\", "a\\b\\f"},
      {'\\', "", "", "f"},
      {'|', "a/b", "a|b|", "a|b|/f"},
      {'|', "a|b|", "a|b|", "a|b|/f"},
      {'|', "a\\b\\", "a\\b\\|", "a\\b\\|/f"},
      {'|', "", "", "f"},
  };
  for (row const& row : rows) {
    FIO_PATH path = with_separator(row.separator, "x/f");
    path.make_path(FIO_PATH::DIRECTORY, row.directory);
    EXPECT_EQ(state_of(path), (path_state{row.stored, "f", "", row.text, row.separator}))
        << row.directory << " under " << row.separator;
  }
}

// Separators

TEST_F(path_parsing, sync_path_separators_leaves_one_kind_of_separator_and_no_runs) {
  struct row {
    char separator;
    std::string text;
    std::string expected;
  };
  row const rows[] = {
      {'/', "", ""},
      {'/', "a", "a"},
      {'/', "/", "/"},
      {'/', "\\", "/"},
      {'/', "//", "/"},
      {'/', "\\/\\\\/", "/"},
      {'/', "a\\b//c", "a/b/c"},
      {'/', "//server//share", "/server/share"},
      {'/', "a/b/", "a/b/"},
      {'/', "a//\\", "a/"},
      {'/', "aa//bb..cc", "aa/bb..cc"},
      {'/', bytes("a\0//b\0\\"), bytes("a\0/b\0/")},
      {'/', "\xff//\xaf\xaf\xdc\xdc", "\xff/\xaf\xaf\xdc\xdc"},
      {'/', repeated(5000, '/') + repeated(5000), '/' + repeated(5000)},
      {'\\', "", ""},
      {'\\', "/", "\\"},
      {'\\', "a/b\\\\c", "a\\b\\c"},
      {'\\', "//server\\/share", "\\server\\share"},
      // The opposite of any other separator is `/`, and `\` is as good as a letter.
      {'|', "a/b", "a|b"},
      {'|', "a|/||b", "a|b"},
      {'|', "a\\\\b", "a\\\\b"},
      {'|', "\\/\\", "\\|\\"},
      {'x', "axx/b/x", "axbx"},
      {'\0', bytes("a/\0/b"), bytes("a\0b")},
  };
  for (row const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text) + " under " + row.separator);
    FIO_PATH path("d/n.e");
    path.path_separator(row.separator);
    path_state const before = state_of(path);
    EXPECT_EQ(path.sync_path_separators(row.text), row.expected);
    EXPECT_EQ(path.sync_path_separators(row.expected), row.expected) << "a second pass changes nothing";
    EXPECT_EQ(state_of(path), before);
  }
}

TEST_F(path_parsing, path_separator_replaces_the_separator_of_the_directory) {
  struct row {
    char from;
    char const* text;
    char to;
    path_state expected;
  };
  row const rows[] = {
      {'/', "a/b/f.t", '/', {"a/b/", "f", ".t", "a/b/f.t", '/'}},
      {'/', "a/b/f", '\\', {"a\\b\\", "f", "", "a\\b\\f", '\\'}},
      {'/', "/a/f.t", '\\', {"\\a\\", "f", ".t", "\\a\\f.t", '\\'}},
      {'/', "f.t", '\\', {"", "f", ".t", "f.t", '\\'}},
      {'/', "", '\\', {"", "", "", "", '\\'}},
      {'/', "/", '|', {"|", "", "", "|/", '|'}},
      {'/', "a/b/f", '|', {"a|b|", "f", "", "a|b|/f", '|'}},
      {'\\', "a/b/f", '/', {"a/b/", "f", "", "a/b/f", '/'}},
      {'\\', "a/b/f", '|', {"a|b|", "f", "", "a|b|/f", '|'}},
      {'|', "a/b/f", '/', {"a/b/", "f", "", "a/b/f", '/'}},
      {'|', "a/b/f", '\\', {"a\\b\\", "f", "", "a\\b\\f", '\\'}},
      {'|', "a/b/f", ';', {"a;b;", "f", "", "a;b;/f", ';'}},
      // What the directory holds of the new separator, or of its opposite, is normalised with it.
      {'/', "a|/b/f", '|', {"a|b|", "f", "", "a|b|/f", '|'}},
      {'/', "abba/f", 'b', {"abab", "f", "", "abab/f", 'b'}},
      {'|', "a\\b/f", '/', {"a/b/", "f", "", "a/b/f", '/'}},
      {'|', "a\\/b/f", '\\', {"a\\b\\", "f", "", "a\\b\\f", '\\'}},
      {'|', "a\\b/f", ';', {"a\\b;", "f", "", "a\\b;/f", ';'}},
      // The name is not looked at.
      {'/', "a/f|g.t", '|', {"a|", "f|g", ".t", "a|/f|g.t", '|'}},
      {'|', "a/f|g.t", '/', {"a/", "f|g", ".t", "a/f|g.t", '/'}},
  };
  for (row const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text) + " from " + row.from + " to " + row.to);
    FIO_PATH path = with_separator(row.from, row.text);
    EXPECT_EQ(&path.path_separator(row.to), &path);
    EXPECT_EQ(state_of(path), row.expected);
    path.path_separator(row.to);
    EXPECT_EQ(state_of(path), row.expected) << "a second time changes nothing";
  }
}

TEST_F(path_parsing, path_separator_keeps_the_drive) {
  FIO_PATH path("a/b/f");
  path.drive('C').path_separator('\\');
  EXPECT_EQ(state_of(path), (path_state{"a\\b\\", "f", "", "C:a\\b\\f", '\\'}));
}

TEST_F(path_parsing, path_separator_stores_anew_a_directory_that_was_assigned_with_other_separators) {
  FIO_PATH path;
  path = with_separator('\\', "a/b/f");
  path.path_separator('/');
  EXPECT_EQ(state_of(path), (path_state{"a/b/", "f", "", "a/b/f", '/'}));

  // The bars are not this path's separator: they are kept, and closed.
  path = with_separator('|', "a/b/f");
  path.path_separator('\\');
  EXPECT_EQ(state_of(path), (path_state{"a|b|\\", "f", "", "a|b|\\f", '\\'}));
}

TEST_F(path_parsing, there_are_no_network_paths) {
  std::string untouched = "untouched";
  for (char const* const text : {"", "/", "//", "//server/share/f", "\\\\server\\share\\f", "\\\\?\\C:\\x", "C:/x"}) {
    SCOPED_TRACE(text);
    EXPECT_FALSE(FIO_PATH::is_unc_path(text));
    EXPECT_FALSE(FIO_PATH::is_unc_path(std::string(text)));
    EXPECT_FALSE(FIO_PATH(text).unc());
    EXPECT_FALSE(with_separator('\\', text).unc());
    EXPECT_FALSE(FIO_PATH::convert_unc_to_path_with_drive(text, untouched));
    EXPECT_EQ(untouched, "untouched");
    EXPECT_FALSE(FIO_PATH::convert_path_with_drive_to_unc(text, untouched));
    EXPECT_EQ(untouched, "untouched");
  }
}

TEST_F(path_parsing, null_is_no_network_path) {
  char const* const none = nullptr;
  std::string untouched = "untouched";
  EXPECT_FALSE(FIO_PATH::is_unc_path(none));
  EXPECT_FALSE(FIO_PATH::convert_unc_to_path_with_drive(none, untouched));
  EXPECT_EQ(untouched, "untouched");
  EXPECT_FALSE(FIO_PATH::convert_path_with_drive_to_unc(none, untouched));
  EXPECT_EQ(untouched, "untouched");
}

TEST_F(path_parsing, the_default_separator_is_a_slash_and_stays_one) {
  EXPECT_EQ(FIO_PATH::default_path_separator(), '/');
  FIO_PATH path("a/b/f");
  FIO_PATH::change_path_separators_for_windows_api();
  EXPECT_EQ(FIO_PATH::default_path_separator(), '/');
  EXPECT_EQ(state_of(path), (path_state{"a/b/", "f", "", "a/b/f"}));
  path.path_separator('\\');
  EXPECT_EQ(FIO_PATH::default_path_separator(), '/');
  EXPECT_EQ(state_of(FIO_PATH("c\\d")), (path_state{"c/", "d", "", "c/d"}));
}

// Reading

TEST_F(path_parsing, all_readers_of_the_text_give_the_same) {
  for (parsing_row const& row : parsing_rows) {
    FIO_PATH const path(row.text);
    std::string const converted = path;
    EXPECT_EQ(converted, row.full_text);
    EXPECT_EQ(path.fullpath(), row.full_text);
    EXPECT_STREQ(own_text(path), row.full_text);
  }
}

TEST_F(path_parsing, the_text_is_read_without_a_copy) {
  FIO_PATH const path("dir/" + repeated(100));
  EXPECT_EQ(own_text(path), own_text(path));
  // A copy would have been released or overwritten.
  char const* const first = path;
  FIO_PATH const other("another/" + repeated(100, 'y'));
  EXPECT_STREQ(own_text(other), other.fullpath().c_str());
  EXPECT_EQ(first, "dir/" + repeated(100));

  FIO_PATH const empty;
  ASSERT_NE(own_text(empty), nullptr);
  EXPECT_STREQ(own_text(empty), "");
}

namespace {

/// The queries, each with the number of messages that it writes about a text that is too long.
struct reader {
  char const* name;
  int length_messages;
  std::string (*read)(FIO_PATH const& path);
  std::string expected; ///< for the directory "a/", a base of 1020 "x" and the extension ".c"
};

std::string yes_or_no(bool answer) { return answer ? "yes" : "no"; }

std::vector<reader> readers() {
  std::string const base = repeated(1020);
  return {
      {"operator char const*", 1, [](FIO_PATH const& path) { return std::string(own_text(path)); }, "a/" + base + ".c"},
      {"operator string", 1, [](FIO_PATH const& path) -> std::string { return path; }, "a/" + base + ".c"},
      {"fullpath", 1, [](FIO_PATH const& path) { return path.fullpath(); }, "a/" + base + ".c"},
      {"directory", 1, [](FIO_PATH const& path) { return path.directory(); }, "a/"},
      {"full_directory", 1, [](FIO_PATH const& path) { return path.full_directory(); }, "a/"},
      {"base", 1, [](FIO_PATH const& path) { return path.base(); }, base},
      {"filename", 1, [](FIO_PATH const& path) { return path.filename(); }, base + ".c"},
      {"operator[]", 1, [](FIO_PATH const& path) { return path[0]; }, "a"},
      // Once for itself and once for the text that it reads, which is too long to have levels.
      {"tail", 2, [](FIO_PATH const& path) { return path.tail(); }, ""},
      {"drive", 0, [](FIO_PATH const& path) { return path.drive(); }, ""},
      {"extension", 0, [](FIO_PATH const& path) { return path.extension(); }, "c"},
      {"has_drive", 0, [](FIO_PATH const& path) { return yes_or_no(path.has_drive()); }, "no"},
      {"has_directory", 0, [](FIO_PATH const& path) { return yes_or_no(path.has_directory()); }, "yes"},
      {"has_extension", 0, [](FIO_PATH const& path) { return yes_or_no(path.has_extension()); }, "yes"},
      {"directory_path", 0, [](FIO_PATH const& path) { return yes_or_no(path.directory_path()); }, "no"},
      {"absolute", 0, [](FIO_PATH const& path) { return yes_or_no(path.absolute()); }, "no"},
      {"levels", 0, [](FIO_PATH const& path) { return std::to_string(path.levels()); }, "1"},
      {"legal", 0, [](FIO_PATH const& path) { return yes_or_no(path.legal(0)); }, "yes"},
      {"is_legal_length", 0, [](FIO_PATH const& path) { return yes_or_no(path.is_legal_length()); }, "no"},
      {"unc", 0, [](FIO_PATH const& path) { return yes_or_no(path.unc()); }, "no"},
      {"get_path_components", 0, [](FIO_PATH const& path) { return path.get_path_components(15); }, "a/" + base + ".c"},
      {"sync_path_separators", 0, [](FIO_PATH const& path) { return path.sync_path_separators("a\\"); }, "a/"},
      {"a copy", 0, [](FIO_PATH const& path) { return FIO_PATH(path).extension(); }, "c"},
  };
}

} // namespace

TEST_F(path_parsing, a_reader_that_checks_the_length_says_so_and_answers_as_usual) {
  for (reader const& reader : readers()) {
    SCOPED_TRACE(reader.name);
    FIO_PATH const path = lengthened_path(1024);
    ASSERT_EQ(messages(), texts());
    EXPECT_EQ(reader.read(path), reader.expected);
    texts const expected(static_cast<std::size_t>(reader.length_messages),
                         length_message("a/" + repeated(1020) + ".c"));
    EXPECT_EQ(messages(), expected);
    platform_double::debug_messages().clear();
  }
}

TEST_F(path_parsing, a_reader_says_nothing_about_a_text_of_1023_characters) {
  FIO_PATH const path = lengthened_path(1023);
  for (reader const& reader : readers()) {
    reader.read(path);
    EXPECT_EQ(messages(), texts()) << reader.name;
  }
}

TEST_F(path_parsing, a_refused_text_is_not_one_that_is_too_long_to_read) {
  FIO_PATH const path(repeated(1024));
  for (reader const& reader : readers()) {
    reader.read(path);
    EXPECT_EQ(messages(), texts()) << reader.name;
  }
}

TEST_F(path_parsing, each_reading_of_a_text_that_is_too_long_writes_its_own_message) {
  FIO_PATH path = lengthened_path(1024);
  (void)path.fullpath();
  (void)own_text(path);
  path.make_path(FIO_PATH::BASE, "%d%s%n" + repeated(2000));
  (void)path.base();
  EXPECT_EQ(messages(),
            (texts{length_message("a/" + repeated(1020) + ".c"), length_message("a/" + repeated(1020) + ".c"),
                   length_message("a/%d%s%n" + repeated(2000) + ".c")}));
  path.make_path(FIO_PATH::BASE, "b");
  EXPECT_EQ(path.fullpath(), "a/b.c");
  EXPECT_EQ(messages().size(), 3U);
}

TEST_F(path_parsing, legal_speaks_of_the_index_of_a_level) {
  struct row {
    char const* text;
    int level;
    bool legal;
  };
  row const rows[] = {
      {"", 0, false},     {"", -1, false},     {"name", 0, false},        {"/", 0, false},
      {"a/", 0, true},    {"a/", 1, false},    {"a/b/c", -1, false},      {"a/b/c", 0, true},
      {"a/b/c", 1, true}, {"a/b/c", 2, false}, {"a/b/c", INT_MAX, false}, {"a/b/c", INT_MIN, false},
      {"/a/b/", 1, true}, {"/a/b/", 2, false},
  };
  for (row const& row : rows) {
    SCOPED_TRACE(std::string(row.text) + ", level " + std::to_string(row.level));
    FIO_PATH const path(row.text);
    EXPECT_EQ(path.legal(row.level), row.legal);
    EXPECT_FALSE(path.legal(path.levels()));
  }
  EXPECT_TRUE(lengthened_path(5000).legal(0));
}

// The message about a text that is too long

TEST_F(path_parsing, the_length_message_tells_the_text_and_its_length) {
  std::string const first_line = "Path name is too long -- must be shorter than 1024 characters";
  struct row {
    std::string path;
    std::string expected;
  };
  row const rows[] = {
      {repeated(2000), first_line + "\nPath (length 2000): " + repeated(2000) + '\n'},
      {repeated(100000, 'y'), first_line + "\nPath (length 100000): " + repeated(100000, 'y') + '\n'},
      {"a/b", first_line + "\nPath (length 3): a/b\n"}, // whoever calls has tested the length
      {"", first_line + "\nPath (length 0): \n"},
      {"a\nb", first_line + "\nPath (length 3): a\nb\n"},
      {"\xff", first_line + "\nPath (length 1): \xff\n"},
      {"100%s%n%%", first_line + "\nPath (length 9): 100%s%n%%\n"}, // the text is the format, with the path in it
  };
  for (row const& row : rows) {
    platform_double::debug_messages().clear();
    fio_display_path_too_long_assert_message(row.path.c_str());
    ASSERT_EQ(platform_double::debug_messages().size(), 1U) << row.path;
    EXPECT_EQ(platform_double::debug_messages()[0].module, "FIO") << row.path;
    EXPECT_EQ(platform_double::debug_messages()[0].format, row.expected);
  }
}

TEST_F(path_parsing, the_length_message_has_one_line_without_a_path) {
  fio_display_path_too_long_assert_message(nullptr);
  ASSERT_EQ(messages(), texts{"Path name is too long -- must be shorter than 1024 characters"});
  EXPECT_EQ(platform_double::debug_messages()[0].module, "FIO");
}

// The whole of it

TEST_F(path_parsing, different_paths_serve_different_threads) {
  std::vector<std::thread> threads;
  for (int count = 0; count != 4; ++count) {
    threads.emplace_back([] {
      for (parsing_row const& row : parsing_rows) {
        EXPECT_EQ(FIO_PATH(row.text).path_separator('\\').path_separator('/').fullpath(), row.full_text);
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
}

TEST_F(path_parsing, a_component_set_in_a_parsed_path_shows_in_the_text_at_once) {
  FIO_PATH path("rtl//core\\alu.v");
  EXPECT_EQ(path.fullpath(), "rtl/core/alu.v");
  EXPECT_EQ(path.directory(), "rtl/core/");
  EXPECT_EQ(path.base(), "alu");
  EXPECT_EQ(path.extension(), "v");
  EXPECT_EQ(path.filename("fpu.sv").fullpath(), "rtl/core/fpu.sv");
}
