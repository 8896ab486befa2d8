// The header for the standard library: hashes that agree with comparisons, keys by their text, streams, fmt, class
// identifiers, and traits to iterate over. Compiled once as C++17 and once as C++20; what compiles at all is tested in
// `headers`.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iomanip>
#include <limits>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#if __has_include(<fmt/format.h>)
#define FMT_HEADER_ONLY // so that nothing has to be linked
#define CCL_FIO_WITH_FMT
#endif
#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/fio_std.h"
#include "tests/support/calls.h"
#include "tests/support/current_directory.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

using std::string_literals::operator""s;
using std::string_view_literals::operator""sv;
using texts = std::vector<std::string>;

class std_header : public fio_test {
protected:
  void SetUp() override {
    fio_test::SetUp();
    pretend_current_directory("/w/x");
  }
};

std::size_t hash_of(FIO_PATH const& path) { return std::hash<FIO_PATH>()(path); }

FIO_PATH edited(std::string const& directory, std::string const& base) {
  FIO_PATH path;
  path.directory(directory);
  path.base(base);
  return path;
}

// Paths of every kind: as texts give them, and as edits leave them.
std::vector<FIO_PATH> paths_of_all_kinds() {
  std::string const long_level(600, 'd');
  std::vector<std::string> const all_texts{"",
                                           "/",
                                           "a",
                                           "./a",
                                           "a/",
                                           "a/.",
                                           "a/..",
                                           "a/./",
                                           "a/b",
                                           "a/b.",
                                           "a/b/",
                                           "a/b/.",
                                           "a/b/..",
                                           "a/c/../b",
                                           "a.b",
                                           "a/a.b",
                                           ".",
                                           "..",
                                           "...",
                                           "./",
                                           "../",
                                           "../x/",
                                           "../x/a",
                                           "../../w/x/a/b",
                                           "/a",
                                           "/a/",
                                           "/A",
                                           "/w/x",
                                           "/w/x/",
                                           "/w/x/a",
                                           "/w/x/a/b",
                                           "/w/x/a/",
                                           "/w/x/./a/../a/b",
                                           "/w/x/C:/a/b",
                                           "C:/a/b",
                                           "C:a/b",
                                           "C:C:a/b",
                                           "f",
                                           "C:f",
                                           "/w/x/f",
                                           "f.",
                                           "..f",
                                           "a\\b",
                                           "\\w\\x\\a",
                                           "a|/b",
                                           "x/y",
                                           "a/sub.d/f",
                                           std::string(1019, 'n'),
                                           std::string(1018, 'n'),
                                           "/w/x/" + std::string(1018, 'n'),
                                           std::string(1023, 'n'),
                                           std::string(1024, 'n'),
                                           "p/../" + std::string(1018, 'n'),
                                           "/" + long_level + "/f"};
  std::vector<FIO_PATH> paths(all_texts.begin(), all_texts.end());
  for (char const separator : {'\\', '|'}) {
    for (char const* const text : {"", "f", "a/b", "/a/b", "/w/x/a", "a/../a/b"}) {
      paths.push_back(with_separator(separator, text));
      paths.push_back(assigned_from(paths.back()));
    }
  }
  for (char const* const text : {"f", "a/b", "/a/b", ""}) {
    paths.push_back(FIO_PATH(text));
    paths.back().drive('C');
  }
  for (char const* const root : {"", "/"}) {
    std::string const too_long = root + long_level + "/" + long_level;
    for (char const* const up : {"", "/..", "/../.."}) {
      paths.push_back(edited(too_long + up, "f"));
      paths.push_back(edited(too_long + up, ""));
    }
  }
  paths.push_back(edited("", "x/y"));
  paths.push_back(edited("", long_level + long_level));
  paths.push_back(FIO_PATH("a", "sub.d/f"));
  return paths;
}

TEST_F(std_header, hashes_of_equal_paths_are_the_same) {
  std::vector<FIO_PATH> const paths = paths_of_all_kinds();
  for (char const* const variable : {static_cast<char const*>(nullptr), "1"}) {
    SCOPED_TRACE(variable == nullptr ? "new simplification" : "old simplification");
    variable == nullptr ? ::unsetenv("fio_old_simplify") : ::setenv("fio_old_simplify", variable, 1);
    std::size_t equal_pairs = 0;
    for (FIO_PATH const& right : paths) {
      if (!(right == right)) {
        continue;
      }
      for (FIO_PATH const& left : paths) {
        if (left == right) {
          EXPECT_EQ(hash_of(left), hash_of(right)) << "'" << left << "' and '" << right << "'";
          equal_pairs += left.fullpath() == right.fullpath() ? 0u : 1u;
        }
      }
    }
    EXPECT_GT(equal_pairs, 60u);
  }
}

TEST_F(std_header, hashes_of_other_places_differ) {
  char const* const places[] = {"", "a", "a/", "a/b", "/a", "/a/", "/", "/A", "a/b/", "a.b", "/w/a"};
  std::set<std::size_t> hashes;
  for (char const* const place : places) {
    hashes.insert(hash_of(place));
  }
  EXPECT_EQ(hashes.size(), std::size(places));
}

// Such a path is equal to one path as it stands on the right and to another one as it stands on the left, which are not
// equal. There is no hash for it, and it is not equal to itself.
TEST_F(std_header, path_that_is_not_equal_to_itself_is_no_key) {
  std::string const level(600, 'd');
  FIO_PATH const path = edited(level + "/" + level + "/../..", "f");
  EXPECT_TRUE(FIO_PATH("f") == path && path == FIO_PATH("") && !(FIO_PATH("f") == FIO_PATH("")));
  EXPECT_FALSE(path == path);
  FIO_PATH const key(path.fullpath());
  EXPECT_TRUE(key == key);
}

TEST_F(std_header, hash_follows_the_current_directory_and_reads_it_once) {
  std::size_t const here = hash_of("a");
  std::size_t const fixed = hash_of("/w/x/a");
  EXPECT_EQ(here, fixed);
  pretend_current_directory("/v");
  EXPECT_NE(hash_of("a"), here);
  EXPECT_EQ(hash_of("a"), hash_of("/v/a"));
  EXPECT_EQ(hash_of("/w/x/a"), fixed);
  pretend_unreadable_current_directory();
  EXPECT_EQ(hash_of("a"), hash_of("/a"));
  for (char const* const text : {"a", "/a", ""}) {
    EXPECT_EQ(calls_of([text] { hash_of(text); }), texts{"osi_getcwd(1024)"}) << text;
  }
}

TEST_F(std_header, hash_notes_a_path_that_is_too_long_once) {
  FIO_PATH const path = edited(std::string(1024, 'd'), "f");
  hash_of(path);
  EXPECT_EQ(messages(), texts{length_message(path.get_path_components(FIO_PATH::DIRECTORY) + "f")});
}

TEST_F(std_header, unordered_containers_hold_one_path_of_a_place) {
  std::unordered_set<FIO_PATH> const places{"a/b", "/w/x/a/b", "./a/b", "a/c/../b", "/a", "", "/w/x/", "/w/x"};
  EXPECT_EQ(places.size(), 4u);
  EXPECT_EQ(places.count("../x/a/b"), 1u);
  EXPECT_EQ(places.count("b"), 0u);
  std::unordered_map<FIO_PATH, int> sizes;
  ++sizes["rtl/top.v"];
  ++sizes["rtl/./top.v"];
  EXPECT_EQ(sizes.size(), 1u);
  EXPECT_EQ(sizes.at("/w/x/rtl/top.v"), 2);
}

// Comparisons with texts

template <typename Text>
void expect_comparisons(FIO_PATH const& path, Text const& text, bool equal, char order) {
  EXPECT_EQ(path == text, equal);
  EXPECT_EQ(text == path, equal);
  EXPECT_EQ(path != text, !equal);
  EXPECT_EQ(text != path, !equal);
  EXPECT_EQ(path < text, order == '<');
  EXPECT_EQ(text < path, order == '>');
}

TEST_F(std_header, paths_are_compared_with_texts_on_either_side_as_with_paths) {
  struct {
    char const* path;
    std::string text;
    bool equal;
    char order;
  } const rows[] = {
      {"a/b", "/w/x/a/b", true, '='},
      {"./a", "a", true, '='},
      {"a", "\\w\\x\\a", true, '='},
      {"", "/w/x/", true, '='},
      {"", "", true, '='},
      {"/a/b/.", "/a/b/", false, '='},
      {"/A", "/a", false, '<'},
      {"b", "a", false, '>'},
      {"/a/", "/a", false, '>'},
      {"", std::string(1024, 'x'), true, '='},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE("'"s + row.path + "' and '" + row.text + "'");
    FIO_PATH const path(row.path);
    std::string writable = row.text;
    expect_comparisons(path, row.text, row.equal, row.order);
    expect_comparisons(path, std::string_view(row.text), row.equal, row.order);
    expect_comparisons(path, row.text.c_str(), row.equal, row.order);
    expect_comparisons(path, writable.data(), row.equal, row.order);
    expect_comparisons(path, FIO_PATH(row.text), row.equal, row.order);
  }
  expect_comparisons("a", "/w/x/a", true, '=');
  expect_comparisons("a", "b", false, '<');
  expect_comparisons("a", "a\0b"s, true, '=');
  expect_comparisons("a", "a\0b"sv, true, '=');
  expect_comparisons("", static_cast<char const*>(nullptr), true, '=');
  expect_comparisons("a", static_cast<char const*>(nullptr), false, '>');
}

// The text is taken as the class takes it, on the right; for an order on the left it becomes a path.
TEST_F(std_header, separator_of_a_path_counts_on_its_own_side_alone) {
  FIO_PATH const path = with_separator('\\', "/a/b");
  EXPECT_TRUE(path == "/a/b");
  EXPECT_TRUE("/a/b" == path);
  EXPECT_FALSE(path < "/a/b");
  EXPECT_TRUE("/a/b" < path);
  EXPECT_TRUE(FIO_PATH("/a/b") < path);
}

// The elements of these were compared by their addresses in C++20 without the header.
TEST_F(std_header, pairs_and_containers_compare_paths_by_place) {
  std::vector<FIO_PATH> const ab{"a", "b"};
  std::vector<FIO_PATH> const ba{"b", "a"};
  for (auto const& [less, more] : {std::pair(&ab[0], &ab[1]), std::pair(&ba[1], &ba[0])}) {
    EXPECT_LT(std::pair(*less, 1), std::pair(*more, 0));
    EXPECT_FALSE(std::pair(*more, 0) < std::pair(*less, 1));
    EXPECT_GT(std::tuple(*more), std::tuple(*less));
    EXPECT_FALSE(std::tuple(*less) > std::tuple(*more));
    EXPECT_TRUE(std::vector{*less} < std::vector{*more});
    EXPECT_FALSE(std::vector{*more} <= std::vector{*less});
  }
  EXPECT_LT(std::pair(FIO_PATH("a"), 1), std::pair(FIO_PATH("/w/x/a"), 2));
}

// Texts

TEST_F(std_header, keys_by_text_compare_bytes_alone) {
  struct {
    char const* left;
    char const* right;
    char order;
  } const rows[] = {
      {"", "", '='},        {"a", "a", '='},     {"a", "./a", '>'},  {"a", "a/", '<'},    {"A", "a", '<'},
      {"a", "/w/x/a", '>'}, {"a.b", "a/b", '<'}, {"z", "\xe4", '<'}, {"a/b", "a/b", '='},
  };
  auto const expect = [](auto const& left, auto const& right, char order) {
    EXPECT_EQ(fio_text_equal()(left, right), order == '=');
    EXPECT_EQ(fio_text_less()(left, right), order == '<');
    EXPECT_EQ(fio_text_less()(right, left), order == '>');
    EXPECT_EQ(fio_text_hash()(left) == fio_text_hash()(right), order == '=');
  };
  for (auto const& row : rows) {
    SCOPED_TRACE("'"s + row.left + "' and '" + row.right + "'");
    expect(FIO_PATH(row.left), FIO_PATH(row.right), row.order);
    expect(FIO_PATH(row.left), row.right, row.order);
    expect(std::string(row.left), FIO_PATH(row.right), row.order);
    expect(FIO_PATH(row.left), std::string_view(row.right), row.order);
  }
  EXPECT_FALSE(fio_text_equal()(with_separator('\\', "a/b"), FIO_PATH("a/b")));
  EXPECT_EQ(calls_of([&] { expect(FIO_PATH("a"), FIO_PATH("a"), '='); }), texts());
}

TEST_F(std_header, containers_by_text_find_a_path_by_a_literal) {
  std::map<FIO_PATH, int, fio_text_less> const sizes{{"b", 2}, {"a", 1}, {"./a", 3}, {"a", 4}};
  ASSERT_EQ(sizes.size(), 3u);
  EXPECT_EQ(sizes.find("./a")->second, 3);
  EXPECT_EQ(sizes.find("a"s)->second, 1);
  EXPECT_EQ(sizes.count("/w/x/a"sv), 0u);
  std::unordered_set<FIO_PATH, fio_text_hash, fio_text_equal> const hashed{"a", "a", "./a"};
  EXPECT_EQ(hashed.size(), 2u);
  EXPECT_EQ(hashed.count("a"), 1u);
  EXPECT_EQ(hashed.count("/w/x/a"), 0u);
}

TEST_F(std_header, readers_of_the_text_check_the_length) {
  FIO_PATH const path = edited(std::string(1024, 'd'), "f");
  texts const note{length_message(std::string(1024, 'd') + "/f")};
  auto const notes_of = [](auto const& read) {
    platform_double::debug_messages().clear();
    read();
    return messages();
  };
  EXPECT_EQ(notes_of([&] { (void)fio_text_hash()(path); }), note);
  EXPECT_EQ(notes_of([&] { (void)fio_text_equal()(path, "x"); }), note);
  EXPECT_EQ(notes_of([&] { (void)fio_text_less()("x", path); }), note);
  EXPECT_EQ(notes_of([&] { (void)(path == "x"); }), note);
  std::ostringstream stream;
  EXPECT_EQ(notes_of([&] { stream << path; }), note);
  EXPECT_EQ(stream.str().size(), 1026u);
}

TEST_F(std_header, stream_is_given_the_text_with_its_width) {
  std::ostringstream stream;
  stream << FIO_PATH("a\\\\b/c.v") << '|' << std::setw(6) << std::setfill('.') << FIO_PATH("top") << '|' << std::left
         << std::setw(4) << FIO_PATH("a") << '|' << FIO_PATH() << '|' << std::setw(2) << FIO_PATH("long");
  EXPECT_EQ(stream.str(), "a/b/c.v|...top|a...||long");
}

#if defined FMT_VERSION
TEST_F(std_header, fmt_formats_a_path_as_a_string) {
  EXPECT_EQ(fmt::format("{}|{:>6}|{:.<4}|{:.2}|{}", FIO_PATH("a\\b"), FIO_PATH("top"), FIO_PATH("a"), FIO_PATH("long"),
                        FIO_PATH()),
            "a/b|   top|a...|lo|");
}
#endif

// Class identifiers

TEST_F(std_header, class_identifiers_are_ordered_as_their_texts_are) {
  std::vector<_GUID> clsids{FIO_CLSID_NULL,        VFC_CLSID_TED_DEFAULT_DOC,
                            VFC_CLSID_PJM_PROJECT, VFC_CLSID_PJM_CSF,
                            VFC_CLSID_PJM_SSF,     VFC_CLSID_KDB_DEFAULT_DOC,
                            {1, 0, 0, {}},         {256, 0, 0, {}},
                            {0, 1, 0, {}},         {0, 256, 0, {}},
                            {0, 0, 1, {}},         {0, 0, 256, {}},
                            {0, 0, 0, {1}},        {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 1}}};
  std::unordered_set<_GUID> const hashed(clsids.begin(), clsids.end());
  EXPECT_EQ(hashed.size(), clsids.size());
  for (_GUID const& left : clsids) {
    for (_GUID const& right : clsids) {
      std::string const left_text = fio_clsid_to_str(left, FIO_CLSID_FORMAT_TEXT);
      std::string const right_text = fio_clsid_to_str(right, FIO_CLSID_FORMAT_TEXT);
      SCOPED_TRACE(left_text + " and " + right_text);
      EXPECT_EQ(left == right, left_text == right_text);
      EXPECT_EQ(left != right, left_text != right_text);
      EXPECT_EQ(left < right, left_text < right_text);
      EXPECT_EQ(std::hash<_GUID>()(left) == std::hash<_GUID>()(right), left_text == right_text);
    }
  }
  EXPECT_TRUE(fio_str_to_clsid("") == FIO_CLSID_NULL);
}

// Traits and editors

TEST_F(std_header, traits_that_combine_are_taken_by_the_queries) {
  EXPECT_TRUE(
      fio_test_trait_of(FIO_FILE_TYPE_VHDL_FILE, FIO_FILE_TYPE_FLAG_DESIGN_FILES | FIO_FILE_TYPE_FLAG_HIDDEN_FILES));
  EXPECT_FALSE(
      fio_test_trait_of(FIO_FILE_TYPE_VHDL_FILE, FIO_FILE_TYPE_FLAG_DESIGN_FILES & FIO_FILE_TYPE_FLAG_HIDDEN_FILES));
}

// Which single bits have a text.
template <typename Value, typename Text>
std::vector<Value> bits_with_text(Text text_of) {
  std::vector<Value> bits;
  for (unsigned bit = 1; bit != 0; bit <<= 1) {
    if (text_of(static_cast<Value>(bit)) != nullptr) {
      bits.push_back(static_cast<Value>(bit));
    }
  }
  return bits;
}

TEST_F(std_header, lists_hold_every_bit_that_has_a_text) {
  EXPECT_EQ(bits_with_text<FIO_FILE_TYPE_FLAG>(fio_get_file_type_trait_string),
            std::vector(fio_file_type_flags.begin(), fio_file_type_flags.end()));
  EXPECT_EQ(bits_with_text<FIO_EXTENSION_TYPE_FLAG>(fio_get_extension_type_trait_string),
            std::vector(fio_extension_type_flags.begin(), fio_extension_type_flags.end()));
  EXPECT_EQ(bits_with_text<FIO_EDITOR_TYPE>(fio_get_editor_type_string),
            std::vector(fio_editor_types.begin(), fio_editor_types.end()));
}

} // namespace
