// The current directory is gone: there is no text for it any more, and nothing can be made in it.

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <list>
#include <string>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_find.h"
#include "ccl/fio/fio_iterator.h"
#include "ccl/fio/fio_path.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/trees.h"
#include "tests/support/walks.h"

using namespace faults;

namespace {

void lose_current_directory(scratch_tree const& tree) {
  tree.draw({"gone/", "stays/f=f"});
  CHECK_EQUAL(::chdir(tree.path("gone").c_str()), 0);
  CHECK_EQUAL(::rmdir(tree.path("gone").c_str()), 0);
}

std::string anchored(char const* text, char const* directory) {
  FIO_PATH path(text);
  path.become_absolute(directory);
  return path.fullpath();
}

std::string told_of(char const* path, int mkdir_errno, int status_errno) {
  return std::string("mkdir failed with: ") + path + " (errno: " + std::to_string(mkdir_errno) +
         ")|is_directory (via status) failed with: " + path + " (errno: " + std::to_string(status_errno) + ")|";
}

std::string joined_messages() {
  std::string text;
  for (std::string const& message : take_messages()) {
    text += message + '|';
  }
  return text;
}

} // namespace

void paths_in_a_removed_directory(scratch_tree const& tree) {
  CHECK(FIO_PATH::canonical("/").has_value());
  lose_current_directory(tree);
  CHECK_EQUAL(FIO_FILE_SYSTEM::get_current_directory(), "");
  char buffer[1025] = "kept";
  errno = 0;
  CHECK(FIO_FILE_SYSTEM::get_current_directory(buffer, sizeof buffer) == nullptr);
  CHECK_EQUAL(errno, ENOENT);
  std::strcpy(buffer, "kept");
  CHECK_EQUAL(FIO_FILE_SYSTEM::get_current_directory(sizeof buffer, buffer), 4U);

  // A relative path is anchored at the root, without a word.
  struct {
    char const* text;
    char const* directory;
    char const* result;
  } const rows[] = {{"a", "", "/a"},      {"a/b", "", "/a/b"},
                    {"./a", "", "/a"},    {"../a", "", "/a"},
                    {"", "", "/"},        {".", "", "/"},
                    {"..", "", "/"},      {"a/..", "", "/a/"},
                    {"a/", "", "/a/"},    {"/a/../b", "", "/a/../b"},
                    {"a", "/x", "/x/a"},  {"a", "x", "x/a"},
                    {"../a", "/x", "/a"}, {"/a/./b", "/x", "/a/./b"},
                    {"a", "/", "/a"},     {"", "/x", "/x/"}};
  for (auto const& row : rows) {
    about const topic(std::string(row.text) + " against " + row.directory);
    CHECK_EQUAL(anchored(row.text, row.directory), row.result);
  }

  CHECK(FIO_PATH("a") == FIO_PATH("/a"));
  CHECK(!(FIO_PATH("a") != std::string("/a")));
  CHECK(FIO_PATH("a/b") == std::string("/a/b"));
  CHECK(FIO_PATH("../a") == FIO_PATH("a"));
  CHECK(FIO_PATH("") == FIO_PATH("/"));
  CHECK(!(FIO_PATH("a") == FIO_PATH("/b")));
  CHECK(FIO_PATH("a") < FIO_PATH("/b"));
  CHECK(!(FIO_PATH("/a") < FIO_PATH("a")) && !(FIO_PATH("a") < FIO_PATH("/a")));

  // What asks the system fails, for absolute texts too.
  for (char const* const text : {"/", ".", "a", "", "/proc"}) {
    about const topic(text);
    CHECK(!FIO_PATH::canonical(text).has_value());
  }
  CHECK(FIO_FILE_SYSTEM::set_current_directory(tree.root()));
  CHECK_EQUAL(FIO_FILE_SYSTEM::get_current_directory(), tree.root());
  CHECK(FIO_PATH::canonical("stays/f") == tree.path("stays/f"));
}

void work_in_a_removed_directory(scratch_tree const& tree) {
  lose_current_directory(tree);
  std::string const file = tree.path("stays/f");
  // The directory is still open to this process, and holds nothing.
  CHECK(FIO_FILE_SYSTEM::exists("."));
  CHECK(FIO_FILE_SYSTEM::is_directory("."));
  CHECK(!FIO_FILE_SYSTEM::exists("new"));
  CHECK(!FIO_FILE_SYSTEM::exists("*"));
  CHECK(FIO_FILE_SYSTEM::is_directory_empty("."));
  CHECK_EQUAL(found_names("*"), lines{});
  CHECK_EQUAL(found_names("./*"), lines{});
  CHECK_EQUAL(iterated<FIO_DIRECTORY_ITERATOR>("."), lines{});
  CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>("."), lines{});

  CHECK_EQUAL(FIO_FILE_SYSTEM::mkdir("new"), -1);
  CHECK_EQUAL(errno, ENOENT);
  CHECK(!FIO_FILE_SYSTEM::create("new/sub"));
  CHECK_EQUAL(joined_messages(), told_of("new", ENOENT, ENOENT));
  CHECK(!FIO_FILE_SYSTEM::touch("new"));
  CHECK(!FIO_FILE_SYSTEM::touch("./new"));
  CHECK(!FIO_FILE_SYSTEM::copy(file, "new", true, true));
  CHECK(!FIO_FILE_SYSTEM::copy("new", file, true, true));
  CHECK(!FIO_FILE_SYSTEM::move(file, "new", true, true));
  CHECK(!FIO_FILE_SYSTEM::rename(file.c_str(), "new"));
  CHECK(!FIO_FILE_SYSTEM::remove("new"));
  CHECK(!FIO_FILE_SYSTEM::remove("."));
  CHECK(FIO_FILE_SYSTEM::remove_if_exists("new"));
  CHECK(FIO_FILE_SYSTEM::remove_files("*"));
  CHECK_EQUAL(FIO_FILE_SYSTEM::get_tmp_path("").compare(0, 9, ".korvane."), 0);
  CHECK(!FIO_FILE_SYSTEM::remove_temp_files("", 0, nullptr));
  CHECK(!FIO_FILE_SYSTEM::remove_recursively("new", nullptr, nullptr));
  CHECK(!FIO_FILE_SYSTEM::remove_recursively("./", nullptr, nullptr));
  CHECK_EQUAL(drawing(tree.root()), (lines{"stays/", "stays/f=f"}));

  // Absolute paths serve; a removal runs and says no, since there is nothing to go back to.
  CHECK(FIO_FILE_SYSTEM::create(tree.path("made/sub")));
  CHECK(FIO_FILE_SYSTEM::copy_dir(tree.path("stays"), tree.path("made/sub"), false, false));
  CHECK_EQUAL(drawing(tree.path("made")), (lines{"sub/", "sub/f=f"}));
  CHECK(!FIO_FILE_SYSTEM::remove_recursively(tree.path("made").c_str(), nullptr, nullptr));
  CHECK(!stands(tree.path("made")));
  CHECK_EQUAL(take_messages(), lines{});
}

void search_in_a_removed_directory(scratch_tree const& tree) {
  lose_current_directory(tree);
  FIO_FIND here(".;" + tree.path("stays") + ';', true);
  CHECK_EQUAL(here.m_search_list.size(), 2U);
  CHECK_EQUAL(here.find_first("f").fullpath(), tree.path("stays/f"));
  CHECK_EQUAL(here.find("f"), tree.path("stays/f"));
  CHECK_EQUAL(here.find_first("missing").fullpath(), "");
  std::list<FIO_PATH> matches;
  CHECK(here.find_all("f", {""}, &matches, false, true));
  CHECK_EQUAL(matches.size(), 1U);
  FIO_FIND pattern("*", false);
  CHECK_EQUAL(pattern.find_first(), "");
  CHECK_EQUAL(pattern.find_close(), -1);
}
