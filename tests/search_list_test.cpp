/// @file
/// How an object of `FIO_FIND` comes to hold its two lists of directories, and how relative results become absolute.

#include <cxxabi.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <boost/system/system_error.hpp>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <list>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "ccl/fio/fio_find.h"
#include "tests/support/ever_more_memory.h"
#include "tests/support/path_texts.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

using text_list = std::vector<std::string>;

text_list part(text_list const& list, std::size_t start, std::size_t count = std::string::npos) {
  auto const first = list.begin() + static_cast<std::ptrdiff_t>(std::min(start, list.size()));
  auto const length = static_cast<std::ptrdiff_t>(std::min(count, static_cast<std::size_t>(list.end() - first)));
  return {first, first + length};
}

/// What left an operation: the type of the exception and the system's error number in it.
struct failure {
  std::string type;
  int code;
};

bool operator==(failure const& left, failure const& right) {
  return left.type == right.type && left.code == right.code;
}

std::ostream& operator<<(std::ostream& out, failure const& shown) { return out << shown.type << ' ' << shown.code; }

failure file_system_failure(int code) { return {"boost::filesystem::filesystem_error", code}; }

failure failure_of(std::function<void()> const& operation) {
  try {
    operation();
  } catch (boost::system::system_error const& error) {
    int status = 0;
    char* const name = abi::__cxa_demangle(typeid(error).name(), nullptr, nullptr, &status);
    failure const result{name, error.code().value()};
    std::free(name);
    return result;
  }
  return {"none", 0};
}

class search_list : public fio_test {};

} // namespace

TEST_F(search_list, a_search_path_makes_both_lists_each_by_its_own_rules) {
  struct row {
    std::string search_path;
    text_list search_list;
    text_list directories;
  };
  row const rows[] = {
      // every difference between the two at a glance
      {"/a", {"/a/"}, {}},
      {"/a;/b", {"/a/", "/b/"}, {"/a/"}},
      {"/a;/b;", {"/a/", "/b/"}, {"/a/", "/b/"}},
      {" /a ; /b/ ", {"/a/", "/b/"}, {" /a /"}},
      {"/a;;/b;", {"/a/", "/b/"}, {"/a/", "/b/"}},
      {"/a; ;/b;", {"/a/"}, {"/a/", " /", "/b/"}},
      {"", {}, {}},
      // runs of the list separator
      {";", {}, {}},
      {";;;", {}, {}},
      {";/a", {"/a/"}, {}},
      {";;/a;;;/b;;", {"/a/", "/b/"}, {"/a/", "/b/"}},
      // no other character separates
      {"c:/x;d:/y", {"c:/x/", "d:/y/"}, {"c:/x/"}},
      {"/a:/b,/c;/d;", {"/a:/b,/c/", "/d/"}, {"/a:/b,/c/", "/d/"}},
      {"/a b;/c", {"/a b/", "/c/"}, {"/a b/"}},
      {"/a|/b", {"/a|/b/"}, {}},
      // white space is these four characters, at the ends only
      {" \t\r\n/a\n\r\t ;\t/b\t;", {"/a/", "/b/"}, {" \t\r\n/a\n\r\t /", "\t/b\t/"}},
      {"\v/a\f;\f/b\v;", {"\v/a\f/", "\f/b\v/"}, {"\v/a\f/", "\f/b\v/"}},
      {"\v;\f;", {"\v/", "\f/"}, {"\v/", "\f/"}},
      {"/a \t b;", {"/a \t b/"}, {"/a \t b/"}},
      {" /a/ ;", {"/a/"}, {" /a/ /"}},
      // nothing but white space ends one list and is a directory of the other
      {" ;/b;", {}, {" /", "/b/"}},
      {"/a;\t\r\n", {"/a/"}, {"/a/"}},
      {"/a;\t\r\n;/b;/c;", {"/a/"}, {"/a/", "\t\r\n/", "/b/", "/c/"}},
      {" ", {}, {}},
      // the end of an element; a path also has its separators made one and the same
      {"/a/;/b//;/;", {"/a/", "/b/", "/"}, {"/a/", "/b//", "/"}},
      {"/a\\;/b\\c;\\;", {"/a/", "/b/c/", "/"}, {"/a\\", "/b\\c/", "\\"}},
      {".;..;r;top.v;r/top.v/;", {"./", "../", "r/", "top.v/", "r/top.v/"}, {"./", "../", "r/", "top.v/", "r/top.v/"}},
      {"/a/../b;", {"/a/../b/"}, {"/a/../b/"}},
      // one list ends at a NUL, the other has it as any character
      {std::string("/a;/b\0;/c;", 10), {"/a/", "/b/"}, {"/a/", std::string("/b\0/", 4), "/c/"}},
      {std::string("/a;\0/b;", 7), {"/a/"}, {"/a/", std::string("\0/b/", 4)}},
  };
  for (row const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.search_path));
    FIO_FIND const find(row.search_path, false);
    EXPECT_EQ(find.m_search_path, row.search_path);
    EXPECT_EQ(texts(find.m_search_list), row.search_list);
    EXPECT_EQ(texts(find.m_directories), row.directories);
  }
  EXPECT_EQ(messages(), text_list());
}

TEST_F(search_list, an_element_that_is_too_long_stays_as_an_empty_path) {
  struct row {
    std::size_t length; // of the element, whose separator comes on top
    bool legal;
  };
  for (row const& row : {row{1022, true}, row{1023, false}, row{3000, false}}) {
    SCOPED_TRACE(row.length);
    std::string const element = repeated(row.length);
    FIO_FIND const find("/a;" + element + ";/b;", false);
    EXPECT_EQ(texts(find.m_search_list), (text_list{"/a/", row.legal ? element + '/' : "", "/b/"}));
    EXPECT_EQ(std::next(find.m_search_list.begin())->is_legal_length(), row.legal);
    EXPECT_EQ(texts(find.m_directories), (text_list{"/a/", element + '/', "/b/"}));
  }
  // A "/" comes behind a "\\" too, before the separators are made one, and it counts.
  FIO_FIND const find('/' + repeated(1020) + "\\;/" + repeated(1021) + '\\', false);
  EXPECT_EQ(texts(find.m_search_list), (text_list{'/' + repeated(1020) + '/', ""}));
  EXPECT_EQ(messages(), text_list());
}

TEST_F(search_list, a_new_object_has_all_its_fields_set) {
  for (bool const recursive : {false, true}) {
    FIO_FIND const of_text("no-such-directory;", recursive);
    FIO_FIND const of_list(std::list<FIO_PATH>{"no-such-directory/"}, recursive);
    EXPECT_EQ(of_text.m_search_path, "no-such-directory;");
    EXPECT_EQ(of_list.m_search_path, "");
    EXPECT_EQ(texts(of_text.m_directories), text_list{"no-such-directory/"});
    EXPECT_EQ(texts(of_list.m_directories), text_list());
    for (FIO_FIND const* find : {&of_text, &of_list}) {
      EXPECT_EQ(find->m_list_separator, ';');
      EXPECT_EQ(find->m_separator, '/');
      EXPECT_EQ(find->m_alternate_separator, '\\');
      EXPECT_EQ(find->m_absolute_to, "");
      EXPECT_EQ(texts(find->m_search_list), text_list{"no-such-directory/"});
      EXPECT_EQ(find->m_find_handle, -1);
      EXPECT_EQ(find->m_recursive, recursive);
    }
  }
}

TEST_F(search_list, the_fields_stand_in_their_order_in_a_class_without_virtual_operations) {
  FIO_FIND const find("", false);
  void const* const fields[] = {&find.m_search_path, &find.m_directories,         &find.m_list_separator,
                                &find.m_separator,   &find.m_alternate_separator, &find.m_absolute_to,
                                &find.m_search_list, &find.m_find_handle,         &find.m_recursive};
  EXPECT_TRUE(std::is_sorted(std::begin(fields), std::end(fields), std::less<void const*>()));
  EXPECT_EQ(fields[0], &find);
  EXPECT_FALSE(std::is_polymorphic<FIO_FIND>::value);
}

TEST_F(search_list, making_the_lists_reads_no_file_unless_subdirectories_are_wanted) {
  m_tree.draw({"r/sub/"});
  platform_double::record_calls(true);
  FIO_FIND find(m_tree.path("r") + ";/b", false);
  EXPECT_EQ(platform_double::calls(),
            (text_list{"strtok_s(" + m_tree.path("r") + ";/b, ;)", "strtok_s(null, ;)", "strtok_s(null, ;)"}));
  platform_double::calls().clear();
  find.parse_dirs();
  find.add_subdirs();
  find.init(std::list<FIO_PATH>{m_tree.path("r/")});
  EXPECT_TRUE(find.set_directory_for_results_to_become_absolute_to("/proj"));
  FIO_PATH path("x");
  find.make_path_absolute_if_relative(&path);
  EXPECT_EQ(platform_double::calls(), text_list());
}

// The tokeniser

TEST_F(search_list, the_tokeniser_is_given_the_size_of_its_text_and_one_context) {
  struct call {
    bool has_text;
    std::size_t remaining;
    std::size_t* remaining_at;
    std::string delimiters;
    char** context_at;
  };
  std::vector<call> calls;
  std::string tokens[] = {" /one ", "/two/"};
  char end[] = "";
  platform_double::replaced().strtok_s = [&](char* text, std::size_t* remaining, char const* delimiters,
                                             char** context) -> char* {
    std::size_t const index = calls.size();
    calls.push_back({text != nullptr, *remaining, remaining, delimiters, context});
    *remaining = 7 - index;
    *context = end;
    return index < 2 ? tokens[index].data() : nullptr;
  };
  FIO_FIND find("", false);
  calls.clear();
  find.init("some text");
  EXPECT_EQ(texts(find.m_search_list), (text_list{"/one/", "/two/"}));
  ASSERT_EQ(calls.size(), 3u);
  for (std::size_t index = 0; index != 3; ++index) {
    EXPECT_EQ(calls[index].has_text, index == 0);
    EXPECT_EQ(calls[index].remaining, index == 0 ? sizeof "some text" : 8 - index);
    EXPECT_EQ(calls[index].remaining_at, calls[0].remaining_at);
    EXPECT_EQ(calls[index].delimiters, ";");
    EXPECT_EQ(calls[index].context_at, calls[0].context_at);
  }
}

TEST_F(search_list, a_context_that_became_null_ends_the_list) {
  int calls = 0;
  std::string token = "/only";
  platform_double::replaced().strtok_s = [&](char*, std::size_t*, char const*, char** context) -> char* {
    ++calls;
    *context = nullptr;
    return token.data();
  };
  FIO_FIND const find("/a;/b;", false);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(texts(find.m_search_list), text_list{"/only/"});
}

TEST_F(search_list, an_element_of_white_space_asks_for_no_further_one) {
  platform_double::record_calls(true);
  FIO_FIND const find("/a; ;/b", false);
  EXPECT_EQ(platform_double::calls(), (text_list{"strtok_s(/a; ;/b, ;)", "strtok_s(null, ;)"}));
}

TEST_F(search_list, the_tokeniser_works_on_a_copy) {
  std::string const search_path = "/a;/b;/c";
  FIO_FIND find("", false);
  find.init(search_path);
  EXPECT_EQ(search_path, "/a;/b;/c");
  EXPECT_EQ(find.m_search_path, "/a;/b;/c");
}

// Making the lists again

TEST_F(search_list, init_replaces_the_search_path_and_its_list_and_leaves_the_directories) {
  FIO_FIND find("/a;/b;", false);
  find.init("/c;/d;");
  EXPECT_EQ(find.m_search_path, "/c;/d;");
  EXPECT_EQ(texts(find.m_search_list), (text_list{"/c/", "/d/"}));
  EXPECT_EQ(texts(find.m_directories), (text_list{"/a/", "/b/"}));
  find.init("/c;/d;");
  EXPECT_EQ(texts(find.m_search_list), (text_list{"/c/", "/d/"}));
  find.init("");
  EXPECT_EQ(find.m_search_path, "");
  EXPECT_EQ(texts(find.m_search_list), text_list());
  EXPECT_EQ(texts(find.m_directories), (text_list{"/a/", "/b/"}));
}

TEST_F(search_list, init_leaves_an_open_walk_alone) {
  m_tree.draw({"a/1.v", "a/2.v", "a/3.v"});
  FIO_FIND find(m_tree.path("a/*.v"), false);
  text_list names{find.find_first()};
  long const handle = find.m_find_handle;
  EXPECT_NE(handle, -1);
  find.init("/b;/c");
  EXPECT_EQ(find.m_find_handle, handle);
  names.push_back(find.find_next());
  find.init(std::list<FIO_PATH>{"/d/"});
  EXPECT_EQ(find.m_find_handle, handle);
  names.push_back(find.find_next());
  EXPECT_EQ(sorted(names), (text_list{"1.v", "2.v", "3.v"}));
  EXPECT_EQ(find.find_next(), "");
  EXPECT_EQ(find.find_close(), 1);
}

TEST_F(search_list, init_keeps_the_whole_of_a_text_with_a_nul) {
  std::string const search_path("/a;/b\0;/c;", 10);
  FIO_FIND find("", false);
  find.init(search_path);
  EXPECT_EQ(find.m_search_path, search_path);
  EXPECT_EQ(texts(find.m_search_list), (text_list{"/a/", "/b/"}));
}

TEST_F(search_list, parse_dirs_appends_once_more_at_each_call) {
  FIO_FIND find("/a;/b;", false);
  find.parse_dirs();
  EXPECT_EQ(texts(find.m_directories), (text_list{"/a/", "/b/", "/a/", "/b/"}));
  find.init("/c;/d");
  find.parse_dirs();
  EXPECT_EQ(texts(find.m_directories), (text_list{"/a/", "/b/", "/a/", "/b/", "/c/"}));
  find.init("");
  find.parse_dirs();
  EXPECT_EQ(texts(find.m_directories), (text_list{"/a/", "/b/", "/a/", "/b/", "/c/"}));
  EXPECT_EQ(texts(find.m_search_list), text_list());
}

TEST_F(search_list, parse_dirs_of_an_object_made_from_a_list_finds_nothing) {
  FIO_FIND find(std::list<FIO_PATH>{"/a/", "/b/"}, false);
  find.parse_dirs();
  EXPECT_EQ(texts(find.m_directories), text_list());
}

TEST_F(search_list, init_takes_the_objects_own_texts) {
  FIO_FIND find("/a;/b;", false);
  find.init(find.m_search_path);
  EXPECT_EQ(find.m_search_path, "/a;/b;");
  EXPECT_EQ(texts(find.m_search_list), (text_list{"/a/", "/b/"}));

  find.m_search_path = "/c;/d";
  find.init(find.m_search_path);
  EXPECT_EQ(find.m_search_path, "/c;/d");
  EXPECT_EQ(texts(find.m_search_list), (text_list{"/c/", "/d/"}));

  find.init(find.m_directories.back());
  EXPECT_EQ(find.m_search_path, "/b/");
  EXPECT_EQ(texts(find.m_search_list), text_list{"/b/"});

  EXPECT_TRUE(find.set_directory_for_results_to_become_absolute_to("/e;/f"));
  find.init(find.m_absolute_to);
  EXPECT_EQ(find.m_search_path, "/e;/f");
  EXPECT_EQ(texts(find.m_search_list), (text_list{"/e/", "/f/"}));
  EXPECT_EQ(find.m_absolute_to, "/e;/f");
}

TEST_F(search_list, init_takes_the_objects_own_list) {
  m_tree.draw({"r/sub/"});
  std::string const given = m_tree.path("r/");
  FIO_FIND find(std::list<FIO_PATH>{FIO_PATH(given), with_backslashes("/a/b/")}, false);
  find.init(find.m_search_list);
  EXPECT_EQ(texts(find.m_search_list), (text_list{given, "\\a\\b\\"}));
  EXPECT_EQ(separator_of(find.m_search_list.back()), '\\');
  find.m_recursive = true;
  find.init(find.m_search_list);
  EXPECT_EQ(texts(find.m_search_list), (text_list{given, "\\a\\b\\", given + "sub/"}));
}

TEST_F(search_list, init_from_a_list_leaves_the_other_fields) {
  FIO_FIND find("/a;/b;", false);
  EXPECT_TRUE(find.set_directory_for_results_to_become_absolute_to("/proj"));
  find.init(std::list<FIO_PATH>{"/c/", "d", ""});
  EXPECT_EQ(texts(find.m_search_list), (text_list{"/c/", "d", ""}));
  EXPECT_EQ(find.m_search_path, "/a;/b;");
  EXPECT_EQ(texts(find.m_directories), (text_list{"/a/", "/b/"}));
  EXPECT_EQ(find.m_absolute_to, "/proj");
  EXPECT_EQ(find.m_find_handle, -1);
  find.init(std::list<FIO_PATH>());
  EXPECT_EQ(texts(find.m_search_list), text_list());
}

TEST_F(search_list, a_list_of_paths_is_copied_in_every_respect) {
  std::list<FIO_PATH> given{FIO_PATH("/a/b/"), with_backslashes("/c/d/"), FIO_PATH(repeated(1024)), FIO_PATH("x.v"),
                            FIO_PATH("/e/f").drive('C')};
  FIO_FIND made(given, false);
  FIO_FIND remade("/1;/2;/3;/4;/5;/6", false);
  remade.init(given);
  given.clear();
  for (FIO_FIND const* find : {&made, &remade}) {
    EXPECT_EQ(texts(find->m_search_list), (text_list{"/a/b/", "\\c\\d\\", "", "x.v", "C:/e/f"}));
    std::string separators;
    std::string lengths;
    for (FIO_PATH const& path : find->m_search_list) {
      separators += separator_of(path);
      lengths += path.is_legal_length() ? 'y' : 'n';
    }
    EXPECT_EQ(separators, "/\\///");
    EXPECT_EQ(lengths, "yynyy");
  }
}

// push

TEST_F(search_list, push_ends_its_argument_and_keeps_a_copy) {
  struct row {
    char const* given;
    char const* kept;
  };
  row const rows[] = {{"/a", "/a/"}, {"/a/", "/a/"}, {"a\\", "a\\"}, {"/a//", "/a//"},    {"/", "/"},
                      {"\\", "\\"},  {" ", " /"},    {".", "./"},    {"a;b:c", "a;b:c/"}, {"a|", "a|/"}};
  FIO_FIND find("", false);
  text_list expected;
  for (row const& row : rows) {
    std::string directory = row.given;
    find.push(directory);
    expected.push_back(row.kept);
    EXPECT_EQ(directory, row.kept) << row.given;
    EXPECT_EQ(texts(find.m_directories), expected) << row.given;
    find.push(directory);
    expected.push_back(row.kept);
    EXPECT_EQ(directory, row.kept) << "again: " << row.given;
    directory = "overwritten";
  }
  EXPECT_EQ(texts(find.m_directories), expected);
  EXPECT_EQ(texts(find.m_search_list), text_list());
}

TEST_F(search_list, push_takes_an_element_of_the_objects_own_list) {
  FIO_FIND find("", false);
  find.m_directories.push_back("/x");
  find.push(find.m_directories.front());
  EXPECT_EQ(texts(find.m_directories), (text_list{"/x/", "/x/"}));
}

TEST_F(search_list, push_of_an_empty_text_is_a_mistake_of_the_caller) {
  FIO_FIND find("/a;", false);
  std::string directory;
  try {
    find.push(directory);
    ADD_FAILURE() << "nothing was reported";
  } catch (platform_double::internal_error const& error) {
    EXPECT_EQ(error.condition, "0 != dir.size()");
    EXPECT_EQ(error.module, "FIO");
    EXPECT_EQ(error.file, "ccl/fio/fio_find.cpp");
    EXPECT_GT(error.line, 0);
  }
  EXPECT_EQ(directory, "");
  EXPECT_EQ(texts(find.m_directories), text_list{"/a/"});
}

TEST_F(search_list, the_characters_of_the_object_serve_parse_dirs_and_push_alone) {
  FIO_FIND find("", false);
  find.m_list_separator = ':';
  find.m_separator = '|';
  find.m_alternate_separator = '#';
  find.init("a;b:c;d/:e|:f#:g");
  find.parse_dirs();
  EXPECT_EQ(texts(find.m_search_list), (text_list{"a/", "b:c/", "d/:e|:f#:g/"}));
  EXPECT_EQ(texts(find.m_directories), (text_list{"a;b|", "c;d/|", "e|", "f#"}));
  std::string directory = "h\\";
  find.push(directory);
  EXPECT_EQ(directory, "h\\|");
}

// Subdirectories

TEST_F(search_list, subdirectories_follow_behind_all_given_directories) {
  enter(m_tree);
  m_tree.draw({"r/a/aa/aaa/", "r/b/", "r/file", "s/c/", "s/d/dd/", "s/d/file.v", "t/", "other/"});
  FIO_FIND const find("s;missing;r;t", true);
  text_list const list = texts(find.m_search_list);
  EXPECT_EQ(part(list, 0, 4), (text_list{"s/", "missing/", "r/", "t/"}));
  EXPECT_EQ(sorted(part(list, 4, 3)), (text_list{"s/c/", "s/d/", "s/d/dd/"}));
  EXPECT_EQ(sorted(part(list, 7)), (text_list{"r/a/", "r/a/aa/", "r/a/aa/aaa/", "r/b/"}));
  EXPECT_EQ(texts(find.m_directories), (text_list{"s/", "missing/", "r/"}));
  for (char const* inner : {"s/d/dd/", "r/a/aa/", "r/a/aa/aaa/"}) {
    std::string const outer = std::filesystem::path(inner).parent_path().parent_path().string() + '/';
    EXPECT_LT(std::find(list.begin(), list.end(), outer), std::find(list.begin(), list.end(), inner)) << inner;
  }
}

TEST_F(search_list, the_contents_of_a_directory_follow_it_at_once) {
  enter(m_tree);
  m_tree.draw({"r/a/1/", "r/b/1/", "r/c/1/", "r/d/1/"});
  text_list const list = part(texts(FIO_FIND("r", true).m_search_list), 1);
  ASSERT_EQ(list.size(), 8u);
  for (std::size_t index = 0; index != 8; index += 2) {
    EXPECT_EQ(list[index + 1], list[index] + "1/");
  }
}

TEST_F(search_list, siblings_come_in_the_order_of_the_file_system) {
  enter(m_tree);
  m_tree.draw({"r/m/", "r/c/2/", "r/z/", "r/a/", "r/y/9/", "r/y/1/", "r/b/", "r/x/", "r/d/", "r/file"});
  text_list expected{"r/"};
  for (auto const& entry : std::filesystem::recursive_directory_iterator("r")) {
    if (entry.is_directory()) {
      expected.push_back(entry.path().string() + '/');
    }
  }
  ASSERT_EQ(expected.size(), 12u);
  EXPECT_EQ(texts(FIO_FIND("r", true).m_search_list), expected);
}

TEST_F(search_list, what_adds_subdirectories) {
  enter(m_tree);
  m_tree.draw({"r/sub/", "empty/", "link -> r", "dangling -> nowhere", "file", "r/we\\ird/", "r/.hidden/", "r/a.b/",
               "r/ blank /", "r/x.v/y.v"});
  text_list const of_r{"r/ blank /", "r/.hidden/", "r/a.b/", "r/sub/", "r/we/ird/", "r/x.v/"};
  text_list of_link = of_r;
  text_list of_dot = of_r;
  for (std::string& text : of_link) {
    text.replace(0, 1, "link");
  }
  for (std::string& text : of_dot) {
    text.insert(0, "./");
  }
  of_dot.insert(of_dot.end(), {"./empty/", "./link/", "./r/"});
  struct row {
    char const* given;
    text_list added;
  };
  row const rows[] = {
      {"r/", of_r},       {"r", of_r},          {"r\\", of_r},
      {"link/", of_link}, {"link", of_link},    {"./", sorted(of_dot)},
      {"r/sub/", {}},     {"empty/", {}},       {"missing/", {}},
      {"file", {}},       {"file/", {}},        {"r/sub/x.v/", {}},
      {"dangling", {}},   {"dangling/", {}},    {"", {}},
      {"*", {}},          {"r/x.v/y.v/z/", {}}, {"r/we\\ird/", {}},
      {"r/we/ird/", {}},
  };
  for (row const& row : rows) {
    SCOPED_TRACE(row.given);
    FIO_PATH const given(row.given);
    FIO_FIND const of_list(std::list<FIO_PATH>{given}, true);
    EXPECT_EQ(of_list.m_search_list.front().fullpath(), given.fullpath());
    EXPECT_EQ(sorted(part(texts(of_list.m_search_list), 1)), row.added);
    FIO_FIND const not_recursive(std::list<FIO_PATH>{given}, false);
    EXPECT_EQ(texts(not_recursive.m_search_list), text_list{given.fullpath()});
  }
}

TEST_F(search_list, a_path_with_another_separator_is_looked_up_by_its_own_text) {
  enter(m_tree);
  m_tree.draw({"r/s/sub/", "r\\s\\/other/"});
  FIO_FIND const find(std::list<FIO_PATH>{with_backslashes("r/s/")}, true);
  EXPECT_EQ(texts(find.m_search_list), (text_list{"r\\s\\", "r/s/other/"}));
  EXPECT_EQ(separator_of(find.m_search_list.front()), '\\');
  EXPECT_EQ(separator_of(find.m_search_list.back()), '/');
}

TEST_F(search_list, a_link_to_a_directory_is_listed_and_not_entered) {
  enter(m_tree);
  m_tree.draw({"r/a/inner/", "r/up -> ..", "r/here -> .", "r/away -> ../s", "r/to-a -> a", "r/to-file -> ../file",
               "r/dangling -> nowhere", "r/a/inner/top -> ../..", "s/t/", "file"});
  FIO_FIND const find("r", true);
  EXPECT_EQ(sorted(texts(find.m_search_list)),
            (text_list{"r/", "r/a/", "r/a/inner/", "r/a/inner/top/", "r/away/", "r/here/", "r/to-a/", "r/up/"}));
}

TEST_F(search_list, a_directory_reached_twice_is_kept_twice) {
  enter(m_tree);
  m_tree.draw({"r/a/b/"});
  EXPECT_EQ(texts(FIO_FIND("r;r", true).m_search_list), (text_list{"r/", "r/", "r/a/", "r/a/b/", "r/a/", "r/a/b/"}));
  EXPECT_EQ(texts(FIO_FIND("r/a;r", true).m_search_list), (text_list{"r/a/", "r/", "r/a/b/", "r/a/", "r/a/b/"}));
}

TEST_F(search_list, add_subdirs_starts_from_all_that_the_list_has_by_then) {
  enter(m_tree);
  m_tree.draw({"r/a/b/"});
  FIO_FIND find("r", true);
  find.add_subdirs();
  text_list const twice{"r/", "r/a/", "r/a/b/", "r/a/", "r/a/b/", "r/a/b/"};
  EXPECT_EQ(texts(find.m_search_list), twice);
  find.m_recursive = false;
  find.add_subdirs();
  EXPECT_EQ(texts(find.m_search_list), twice);
}

TEST_F(search_list, init_collects_the_subdirectories_anew) {
  enter(m_tree);
  m_tree.draw({"r/a/"});
  FIO_FIND find("r", true);
  m_tree.draw({"r/a/later/", "s/c/"});
  EXPECT_EQ(texts(find.m_search_list), (text_list{"r/", "r/a/"}));
  find.init(find.m_search_path);
  EXPECT_EQ(texts(find.m_search_list), (text_list{"r/", "r/a/", "r/a/later/"}));
  find.init("s;");
  EXPECT_EQ(texts(find.m_search_list), (text_list{"s/", "s/c/"}));
  find.init(std::list<FIO_PATH>{"r/a/"});
  EXPECT_EQ(texts(find.m_search_list), (text_list{"r/a/", "r/a/later/"}));
  EXPECT_EQ(texts(find.m_directories), text_list());
}

TEST_F(search_list, a_directory_of_the_longest_length_is_walked_and_a_longer_one_is_not) {
  // Directories of 200 characters each, and a last one that makes the text 1023 characters with its separator.
  std::string const level = repeated(200, 'd') + '/';
  std::string directory = m_tree.root() + '/';
  while (directory.size() + level.size() + 2 < 1023) {
    directory += level;
  }
  directory += repeated(1023 - directory.size() - 1, 'e') + '/';
  ASSERT_EQ(directory.size(), 1023u);
  std::filesystem::create_directories(directory + "sub");

  FIO_FIND const longest(directory, true);
  EXPECT_EQ(texts(longest.m_search_list), (text_list{directory, ""})) << "the subdirectory's text is refused";
  EXPECT_TRUE(longest.m_search_list.front().is_legal_length());
  EXPECT_FALSE(longest.m_search_list.back().is_legal_length());

  EXPECT_EQ(texts(FIO_FIND(directory + "sub", true).m_search_list), text_list{""});
  FIO_PATH grown(directory);
  grown.cd("sub");
  platform_double::debug_messages().clear();
  FIO_FIND const too_long(std::list<FIO_PATH>{grown}, true);
  EXPECT_EQ(messages(), text_list());
  EXPECT_EQ(texts(too_long.m_search_list), text_list{directory + "sub/"});
}

// Directories that cannot be read

namespace {

bool unreadable_directories_leave_as_exceptions(scratch_tree const& tree) {
  failure const expected = file_system_failure(EACCES);
  int const open_before = platform_double::open_streams();
  std::list<FIO_PATH> const inside{FIO_PATH(tree.path("good/")), FIO_PATH(tree.path("bad/"))};
  std::list<FIO_PATH> const closed{FIO_PATH(tree.path("bad/closed/"))};
  text_list const good{tree.path("good/"), tree.path("good/a/")};

  bool ok = failure_of([&] { FIO_FIND find(tree.path("good") + ';' + tree.path("bad"), true); }) == expected;
  ok = ok && failure_of([&] { FIO_FIND find(inside, true); }) == expected;
  ok = ok && failure_of([&] { FIO_FIND find(closed, true); }) == expected;
  // What lies in a directory that may not be searched cannot even be asked for.
  ok = ok && failure_of([&] { FIO_FIND find(tree.path("bad/closed/in/"), true); }) == expected;
  ok = ok && failure_of([&] { FIO_FIND find(inside, false); }) == failure{"none", 0};

  FIO_FIND find(tree.path("good"), true);
  ok = ok && texts(find.m_search_list) == good;
  ok = ok && failure_of([&] { find.init(tree.path("good") + ';' + tree.path("bad")); }) == expected;
  ok = ok && texts(find.m_search_list) == text_list{tree.path("good/"), tree.path("bad/")};
  ok = ok && failure_of([&] { find.add_subdirs(); }) == expected;
  ok = ok && texts(find.m_search_list) == text_list{tree.path("good/"), tree.path("bad/")};
  ok = ok && failure_of([&] { find.init(closed); }) == expected;
  ok = ok && texts(find.m_search_list) == text_list{tree.path("bad/closed/")};
  return ok && platform_double::open_streams() == open_before;
}

} // namespace

TEST_F(search_list, an_unreadable_directory_leaves_as_an_exception_and_adds_nothing) {
  m_tree.draw({"good/a/", "bad/a/", "bad/closed/in/"});
  std::filesystem::permissions(m_tree.path("bad/closed"), std::filesystem::perms::none);
  EXPECT_TRUE(holds_for_ordinary_user(unreadable_directories_leave_as_exceptions, m_tree));
}

TEST_F(search_list, a_status_that_fails_leaves_as_an_exception_unless_the_path_is_missing) {
  enter(m_tree);
  m_tree.draw({"good/a/", "self -> self", "tree/loop -> loop", "tree/sub/", "file"});
  struct row {
    std::string given;
    failure expected;
  };
  row const rows[] = {
      {"self", file_system_failure(ELOOP)},
      {"tree", file_system_failure(ELOOP)},
      {repeated(256), file_system_failure(ENAMETOOLONG)},
      {"missing", {"none", 0}},
      {"file/inside", {"none", 0}},
  };
  for (row const& row : rows) {
    SCOPED_TRACE(row.given);
    EXPECT_EQ(failure_of([&] { FIO_FIND find("good;" + row.given, true); }), row.expected);
    FIO_FIND find("good", true);
    find.m_search_list.emplace_back(row.given + '/');
    text_list const before = texts(find.m_search_list);
    EXPECT_EQ(failure_of([&] { find.add_subdirs(); }), row.expected);
    if (row.expected.type != "none") {
      EXPECT_EQ(texts(find.m_search_list), before);
    }
    EXPECT_EQ(failure_of([&] { find.init("good;" + row.given); }), row.expected);
    EXPECT_EQ(find.m_search_path, "good;" + row.given);
    EXPECT_EQ(part(texts(find.m_search_list), 0, 2), (text_list{"good/", row.given + '/'}));
    EXPECT_EQ(failure_of([&] { FIO_FIND not_recursive("good;" + row.given, false); }), (failure{"none", 0}));
  }
}

TEST_F(search_list, memory_that_runs_out_leaves_no_directory_open_and_adds_nothing) {
  enter(m_tree);
  m_tree.draw({"r/a_name_longer_than_a_short_text/b/", "r/c/", "s/d/e/"});
  int const streams = platform_double::open_streams();
  std::string const search_path = "a_missing_directory_with_a_long_name;r;s;";
  FIO_FIND find(search_path, false);
  find.m_recursive = true;
  text_list const before = texts(find.m_search_list);
  with_ever_more_memory([&] { find.add_subdirs(); },
                        [&](bool succeeded) {
                          EXPECT_EQ(platform_double::open_streams(), streams);
                          EXPECT_TRUE(succeeded || texts(find.m_search_list) == before);
                        });
  with_ever_more_memory([&] { FIO_FIND made(search_path, true); },
                        [&](bool) { EXPECT_EQ(platform_double::open_streams(), streams); });
  EXPECT_EQ(find.m_search_list.size(), 8u);
}

// Relative results

TEST_F(search_list, an_absolute_directory_is_stored_as_it_stands_and_a_relative_one_is_refused) {
  std::string const longest = '/' + repeated(1021) + '/';
  std::string const too_long = longest + 'x';
  struct row {
    char const* directory;
    bool answer;
    char const* kept; // after "/former" was in force
  };
  row const rows[] = {
      // none
      {nullptr, false, ""},
      {"", false, ""},
      // absolute
      {"/", true, "/"},
      {"/proj", true, "/proj"},
      {"/proj/", true, "/proj/"},
      {"//a//./b/../c", true, "//a//./b/../c"},
      {"\\a\\b", true, "\\a\\b"},
      {"/no such directory", true, "/no such directory"},
      {longest.c_str(), true, longest.c_str()},
      // relative
      {"rel/dir", false, "/former"},
      {"rel", false, "/former"},
      {".", false, "/former"},
      {"../x", false, "/former"},
      {" /a", false, "/former"},
      {"c:/x", false, "/former"},
      {too_long.c_str(), false, "/former"},
  };
  for (row const& row : rows) {
    SCOPED_TRACE(row.directory != nullptr ? row.directory : "null");
    FIO_FIND find("", false);
    EXPECT_TRUE(find.set_directory_for_results_to_become_absolute_to("/former"));
    EXPECT_EQ(find.set_directory_for_results_to_become_absolute_to(row.directory), row.answer);
    EXPECT_EQ(find.m_absolute_to, row.kept);
  }
  EXPECT_EQ(messages(), text_list());
}

TEST_F(search_list, the_directory_for_absolute_results_may_be_set_from_itself) {
  FIO_FIND find("", false);
  EXPECT_TRUE(find.set_directory_for_results_to_become_absolute_to("/proj/sub"));
  EXPECT_TRUE(find.set_directory_for_results_to_become_absolute_to(find.m_absolute_to.c_str()));
  EXPECT_EQ(find.m_absolute_to, "/proj/sub");
  EXPECT_TRUE(find.set_directory_for_results_to_become_absolute_to(find.m_absolute_to.c_str() + 5));
  EXPECT_EQ(find.m_absolute_to, "/sub");
}

TEST_F(search_list, a_relative_result_becomes_absolute_as_a_path_and_as_a_text) {
  struct row {
    char const* absolute_to;
    char const* given;
    char const* path;
    char const* text;
  };
  row const rows[] = {
      // relative: anchored and simplified
      {"/proj", "a", "/proj/a", "/proj/a"},
      {"/proj/", "a/b.v", "/proj/a/b.v", "/proj/a/b.v"},
      {"/proj/x", "../a", "/proj/a", "/proj/a"},
      {"/proj", "./a//b\\c", "/proj/a/b/c", "/proj/a/b/c"},
      {"/proj/./x", "a", "/proj/x/a", "/proj/x/a"},
      {"/", "a", "/a", "/a"},
      {"\\p\\q", "a", "/p/q/a", "/p/q/a"},
      {"/proj", "C:/a", "/proj/C:/a", "/proj/C:/a"},
      {"/proj", ".", "/proj/", "/proj/"},
      {"/proj", "..", "/proj/", "/proj/"},
      {"/proj", " /a", "/proj/ /a", "/proj/ /a"},
      // an empty path is relative, an empty text is no result
      {"/proj", "", "/proj/", ""},
      // absolute: left alone, a text to the byte
      {"/proj", "/a", "/a", "/a"},
      {"/proj", "/", "/", "/"},
      {"/proj", "//a//./../b\\c", "/a/./../b/c", "//a//./../b\\c"},
      {"/proj", "\\a", "/a", "\\a"},
      // no directory is set
      {"", "a", "a", "a"},
      {"", "", "", ""},
      {"", "./a//b\\..\\c", "./a/b/../c", "./a//b\\..\\c"},
  };
  for (row const& row : rows) {
    SCOPED_TRACE(testing::Message() << row.given << " against " << row.absolute_to);
    FIO_FIND find("", false);
    find.set_directory_for_results_to_become_absolute_to(row.absolute_to);
    FIO_PATH path(row.given);
    find.make_path_absolute_if_relative(&path);
    EXPECT_EQ(path.fullpath(), row.path);
    std::string text = row.given;
    find.make_path_absolute_if_relative(&text);
    EXPECT_EQ(text, row.text);
    EXPECT_EQ(find.m_absolute_to, row.absolute_to);
  }
}

TEST_F(search_list, a_text_that_begins_with_a_nul_is_an_empty_relative_path) {
  FIO_FIND find("", false);
  EXPECT_TRUE(find.set_directory_for_results_to_become_absolute_to("/proj"));
  std::string text("\0x", 2);
  find.make_path_absolute_if_relative(&text);
  EXPECT_EQ(text, "/proj/");
}

TEST_F(search_list, null_results_are_left_alone) {
  FIO_FIND find("", false);
  for (char const* directory : {"", "/proj"}) {
    find.set_directory_for_results_to_become_absolute_to(directory);
    find.make_path_absolute_if_relative(static_cast<FIO_PATH*>(nullptr));
    find.make_path_absolute_if_relative(static_cast<std::string*>(nullptr));
  }
  EXPECT_EQ(messages(), text_list());
}

TEST_F(search_list, a_path_keeps_its_separator_when_it_becomes_absolute) {
  FIO_FIND find("", false);
  find.set_directory_for_results_to_become_absolute_to("/proj/x");
  FIO_PATH relative = with_backslashes("a/b.v");
  find.make_path_absolute_if_relative(&relative);
  EXPECT_EQ(relative.fullpath(), "\\proj\\x\\a\\b.v");
  FIO_PATH absolute = with_backslashes("/a/../b.v");
  find.make_path_absolute_if_relative(&absolute);
  EXPECT_EQ(absolute.fullpath(), "\\a\\..\\b.v");
}

TEST_F(search_list, results_beyond_the_longest_path_become_empty_or_the_directory) {
  FIO_FIND find("", false);
  find.set_directory_for_results_to_become_absolute_to(("/proj/" + repeated(1000)).c_str());
  FIO_PATH path(repeated(100));
  find.make_path_absolute_if_relative(&path);
  EXPECT_EQ(path.fullpath(), "");
  EXPECT_FALSE(path.is_legal_length());
  std::string text = repeated(100);
  find.make_path_absolute_if_relative(&text);
  EXPECT_EQ(text, "");

  // A text that no path takes counts as an empty relative path, even one that begins with a separator.
  find.set_directory_for_results_to_become_absolute_to("/proj");
  for (std::string given : {repeated(1024), '/' + repeated(1023)}) {
    find.make_path_absolute_if_relative(&given);
    EXPECT_EQ(given, "/proj/");
  }
  std::string longest = '/' + repeated(1022);
  find.make_path_absolute_if_relative(&longest);
  EXPECT_EQ(longest, '/' + repeated(1022));
  EXPECT_EQ(messages(), text_list());
}
