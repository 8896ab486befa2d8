// Trees whose paths are as long as a path may be, and one character longer: what cannot be named is left where it is.

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "ccl/fio/fio_errc.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_iterator.h"
#include "ccl/fio/fio_path.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/trees.h"
#include "tests/support/paths.h"
#include "tests/support/text.h"
#include "tests/support/walks.h"

using namespace faults;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t component = 100;
constexpr std::size_t system_limit = 4095; // of the system's own paths

// A relative path of directories with exactly this length, whose first level tells it from others.
std::string chain(char first, std::size_t length) {
  std::string text(1, first);
  std::size_t missing = length - 2;
  for (text += '/'; missing > 2 * component + 1; missing -= component + 1) {
    text += repeated(component, 'd') + '/';
  }
  return text + repeated(missing, 'd');
}

std::string made_chain(char first, std::size_t length) {
  std::string const path = chain(first, length);
  fs::create_directories(path);
  return path;
}

// A directory that is reached level by level, as no single path leads to it.
class levels {
public:
  explicit levels(std::string const& top) { enter(AT_FDCWD, top); }
  ~levels() {
    for (int const level : m_open) {
      ::close(level);
    }
  }
  levels(levels const&) = delete;
  levels& operator=(levels const&) = delete;

  int deepest() const { return m_open.back(); }
  bool enter(std::string const& name) { return enter(deepest(), name); }

  // Makes a level with a file in it.
  void add(std::string const& name) {
    CHECK_EQUAL(::mkdirat(deepest(), name.c_str(), 0755), 0);
    CHECK(enter(name));
    add_file();
  }
  void add_file() { ::close(::openat(deepest(), "f", O_WRONLY | O_CREAT, 0644)); }
  bool has_file() const {
    struct stat record;
    return ::fstatat(deepest(), "f", &record, 0) == 0;
  }

private:
  bool enter(int parent, std::string const& name) {
    int const level = ::openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (level != -1) {
      m_open.push_back(level);
    }
    return level != -1;
  }

  std::vector<int> m_open;
};

constexpr int depth = 45;
std::string const level_name = repeated(component, 'd');

// The length of the path of a level, counted from 1, whose components all have the same length.
std::size_t length_of_level(int level) { return static_cast<std::size_t>(level) * (component + 1) - 1; }

void make_levels() {
  CHECK_EQUAL(::mkdir(level_name.c_str(), 0755), 0);
  levels tree(level_name);
  tree.add_file();
  for (int level = 2; level <= depth; ++level) {
    tree.add(level_name);
  }
}

// Removes a chain of levels from the inside, whatever its length.
void remove_levels(int parent) {
  int const level = ::openat(parent, level_name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (level != -1) {
    remove_levels(level);
    ::unlinkat(level, "f", 0);
    ::close(level);
    ::unlinkat(parent, level_name.c_str(), AT_REMOVEDIR);
  }
}

std::string words_of(std::unique_ptr<FIO_ERRC> const& error) {
  return error == nullptr ? std::string() : error->message().m_lines.at(0).m_text;
}

} // namespace

void directories_of_the_longest_path(scratch_tree const& /*tree*/) {
  struct {
    char first;
    std::size_t length;
    char const* ending;
    bool told;
    bool made;
  } const rows[] = {
      {'a', 1021, "", true, true},    {'b', 1022, "", true, true},   {'c', 1022, "/", true, true},
      {'e', 1023, "", false, false}, // the separator that is added makes it too long
      {'f', 1023, "/", false, false}, {'g', 1024, "", false, false}, {'h', 2000, "", false, false},
  };
  for (auto const& row : rows) {
    about const topic(std::to_string(row.length) + row.ending);
    std::string const path = chain(row.first, row.length);
    CHECK_EQUAL(FIO_FILE_SYSTEM::create(path + row.ending), row.told);
    CHECK_EQUAL(stands(path), row.made);
    CHECK_EQUAL(stands(std::string(1, row.first)), row.made);
  }
  CHECK_EQUAL(take_messages(), lines{});
  // What stands there already is found up to the limit.
  CHECK(FIO_FILE_SYSTEM::create(made_chain('k', 1023)));
  CHECK(!FIO_FILE_SYSTEM::create(made_chain('l', 1023) + '/'));
  CHECK(!FIO_FILE_SYSTEM::create(made_chain('m', 1024)));
  CHECK(FIO_FILE_SYSTEM::exists(chain('k', 1023).c_str()));
  CHECK(!FIO_FILE_SYSTEM::exists(chain('m', 1024).c_str()));
  CHECK(FIO_FILE_SYSTEM::is_directory(chain('m', 1024).c_str())); // which has no such limit
}

void files_of_the_longest_path(scratch_tree const& tree) {
  tree.draw({"source=content"});
  std::string const longest = made_chain('a', 1000) + '/' + repeated(22);
  std::string const longer = longest + 'x';
  CHECK(FIO_FILE_SYSTEM::touch(longest));
  CHECK(!FIO_FILE_SYSTEM::touch(longer));
  CHECK(!stands(longer));
  CHECK(FIO_FILE_SYSTEM::copy("source", longest, true, true));
  CHECK(!FIO_FILE_SYSTEM::copy("source", longer, true, true));
  CHECK(!FIO_FILE_SYSTEM::move("source", longer, true, true));
  CHECK(!stands(longer));
  CHECK_EQUAL(content_of(longest), "content");
  CHECK(FIO_FILE_SYSTEM::exists(longest.c_str()));
  CHECK(FIO_FILE_SYSTEM::exists((longest.substr(0, 1022) + '*').c_str()));
  _finddata_t entry;
  CHECK_EQUAL(FIO_FILE_SYSTEM::findfirst(longest.c_str(), &entry), 0);
  CHECK_EQUAL(entry.size, 7);

  // One character more: there for the system, and for what asks it without a look at the length.
  CHECK(FIO_FILE_SYSTEM::rename(longest.c_str(), longer.c_str()));
  CHECK(stands(longer));
  CHECK(!FIO_FILE_SYSTEM::exists(longer.c_str()));
  CHECK(!FIO_FILE_SYSTEM::exists(FIO_PATH(longer)));
  CHECK(!FIO_FILE_SYSTEM::exists((longest + '*').c_str()));
  CHECK(FIO_FILE_SYSTEM::is_regular_file(longer.c_str()));
  CHECK_EQUAL(FIO_FILE_SYSTEM::findfirst(longer.c_str(), &entry), -1);
  CHECK(!FIO_FILE_SYSTEM::copy(longer, "copied", true, true));
  CHECK(!FIO_FILE_SYSTEM::move(longer, "copied", true, true));
  CHECK(!stands("copied"));
  CHECK(!FIO_FILE_SYSTEM::remove(FIO_PATH(longer)));
  CHECK(FIO_FILE_SYSTEM::remove_if_exists(longer)); // it is said not to be there
  CHECK(FIO_FILE_SYSTEM::remove_files(longer.c_str()));
  CHECK(!FIO_FILE_SYSTEM::remove_recursively(longer.c_str(), nullptr, nullptr));
  CHECK(stands(longer));
  CHECK(FIO_FILE_SYSTEM::remove(longer));
  CHECK(!stands(longer));

  // The name of a temporary file is never too long to be used, only to be found: by the search for a free one, and by
  // the walk that is to remove it.
  for (std::size_t const length : {std::size_t{1008}, std::size_t{1009}}) {
    about const topic(std::to_string(length));
    std::string const directory = made_chain(length == 1008 ? 'b' : 'c', length);
    CHECK(FIO_FILE_SYSTEM::get_tmp_path((directory + '/').c_str()).size() > longest_path - 10);
    write_file(directory + "/.korvane.1.tmp", "");
    CHECK(FIO_FILE_SYSTEM::remove_temp_files((directory + '/').c_str(), -10, nullptr));
    CHECK_EQUAL(stands(directory + "/.korvane.1.tmp"), length + 2 + 14 > longest_path);
  }
}

void walks_at_the_longest_path(scratch_tree const& /*tree*/) {
  struct {
    std::size_t length;
    lines names; // as found
  } const rows[] = {
      {1015, {".", "..", "666666", "7777777"}},
      {1020, {".", "..", "1", "22"}},
      {1021, {".", "1"}},
      {1022, {}},
      {1023, {}},
  };
  for (auto const& row : rows) {
    about const topic(std::to_string(row.length));
    std::string const directory = made_chain('a', row.length);
    lines all;
    for (std::string const name : {"1", "22", "666666", "7777777", "88888888", "999999999"}) {
      if (row.length != 1015 || name.size() > 2) {
        write_file(directory + '/' + name, "x");
        all.push_back(directory + '/' + name);
      }
    }
    CHECK_EQUAL(found_names(directory + "/*"), row.names);
    CHECK_EQUAL(FIO_FILE_SYSTEM::exists((directory + "/*").c_str()), !row.names.empty());
    CHECK_EQUAL(FIO_FILE_SYSTEM::is_directory_empty(directory.c_str()), row.names.empty());
    CHECK_EQUAL(words_of(FIO_FILE_SYSTEM::remove_empty_subdirectories(directory, true)),
                row.names.empty() ? "Failed to open \"" + directory + "\" as a directory." : "");
    // The iterators know no limit but the system's.
    CHECK_EQUAL(iterated<FIO_DIRECTORY_ITERATOR>(directory), all);
    fs::remove_all("a");
  }
}

void removal_at_the_longest_path(scratch_tree const& tree) {
  for (std::size_t length = 1019; length != 1026; ++length) {
    for (bool const with_file : {false, true}) {
      about const topic(std::to_string(length) + (with_file ? " with a file" : ""));
      std::string const leaf = made_chain('a', length);
      tree.draw({"a/z/beside"});
      if (with_file) {
        write_file(leaf + "/f", "");
      }
      // An empty directory goes by its own path; one with a file must be walked, with two characters more.
      bool const told = length + (with_file ? 2 : 0) <= longest_path;
      CHECK_EQUAL(FIO_FILE_SYSTEM::remove_recursively("a", nullptr, nullptr), told);
      CHECK_EQUAL(stands("a"), !told);
      if (!told) {
        CHECK(stands(with_file ? leaf + "/f" : leaf));
        CHECK(!stands("a/z"));
        fs::remove_all("a");
      }
    }
  }
  CHECK(!FIO_FILE_SYSTEM::remove_recursively(made_chain('b', 1024).c_str(), nullptr, nullptr));
  CHECK(stands(chain('b', 1024)));
  CHECK(FIO_FILE_SYSTEM::remove_recursively(made_chain('c', 1023).c_str(), nullptr, nullptr));
  CHECK(!stands(chain('c', 1023)));
}

void removal_beyond_the_longest_path(scratch_tree const& /*tree*/) {
  make_levels();
  CHECK(!FIO_FILE_SYSTEM::remove_recursively(level_name.c_str(), nullptr, nullptr));
  levels left(level_name);
  for (int level = 1; level <= depth; ++level) {
    about const topic("level " + std::to_string(level));
    CHECK_EQUAL(left.has_file(), length_of_level(level) + std::strlen("/f") > longest_path);
    CHECK_EQUAL(left.enter(level_name), level != depth);
  }
  remove_levels(AT_FDCWD);
  CHECK(!stands(level_name));
}

void iteration_beyond_the_longest_path(scratch_tree const& /*tree*/) {
  make_levels();
  int files = 0;
  int directories = 0;
  int legal = 0;
  std::size_t deepest = 0;
  for (FIO_DIRECTORY_ENTRY const& entry : FIO_RECURSIVE_DIRECTORY_ITERATOR(level_name.c_str())) {
    ++(entry.is_directory ? directories : files);
    bool const fits = entry.path.size() <= longest_path;
    legal += fits ? 1 : 0;
    CHECK_EQUAL(entry.derive_path().is_legal_length(), fits);
    deepest = std::max(deepest, entry.path.size());
  }
  // All levels that the system can be asked for are entered, and the one behind them is delivered.
  int entered = 0;
  int fitting = 0;
  for (int level = 1; length_of_level(level) <= system_limit; ++level) {
    ++entered;
    fitting += length_of_level(level) + 2 <= longest_path ? 1 : 0;
    fitting += length_of_level(level + 1) <= longest_path ? 1 : 0;
  }
  CHECK_EQUAL(files, entered);
  CHECK_EQUAL(directories, entered);
  CHECK_EQUAL(legal, fitting);
  CHECK_EQUAL(deepest, length_of_level(entered + 1));
  remove_levels(AT_FDCWD);
}

void copy_at_the_longest_path(scratch_tree const& tree) {
  struct {
    std::size_t from;
    std::size_t to;
    bool told;
    bool made;   // the target itself
    bool copied; // the file of one character in it
  } const rows[] = {
      {10, 1021, true, true, true},   {10, 1022, false, true, false}, {10, 1023, false, false, false},
      {1021, 10, true, true, true},   {1022, 10, false, true, false}, {1023, 10, false, true, false},
      {1021, 1021, true, true, true},
  };
  for (auto const& row : rows) {
    about const topic(std::to_string(row.from) + " to " + std::to_string(row.to));
    std::string const from = made_chain('a', row.from);
    std::string const to = chain('b', row.to);
    write_file(from + "/x", "content");
    CHECK_EQUAL(FIO_FILE_SYSTEM::copy_dir(from, to, false, false), row.told);
    CHECK_EQUAL(stands(to), row.made);
    CHECK_EQUAL(stands(to + "/x"), row.copied);
    CHECK_EQUAL(stands("b"), row.made);
    fs::remove_all("a");
    fs::remove_all("b");
  }
  // A name that makes a path too long is not found, and is not missed.
  std::string const from = made_chain('a', 1015);
  write_file(from + "/7777777", "x");
  write_file(from + "/88888888", "x");
  CHECK(FIO_FILE_SYSTEM::copy_dir(from, "b", false, false));
  CHECK_EQUAL(drawing("b"), lines{"7777777=x"});
  // A tree into itself grows until its paths are too long.
  tree.draw({"c/f"});
  CHECK(!FIO_FILE_SYSTEM::copy_dir("c", "c/c", false, false));
  CHECK(stands("c/c/c/c"));
}

void current_directory_of_the_longest_path(scratch_tree const& tree) {
  for (std::size_t length = 1020; length != 1027; ++length) {
    about const topic(std::to_string(length));
    CHECK_EQUAL(::chdir(tree.root().c_str()), 0);
    std::string const directory = tree.path(made_chain('a', length - tree.root().size() - 1));
    CHECK_EQUAL(::chdir(directory.c_str()), 0);
    bool const readable = length <= longest_path;
    CHECK_EQUAL(FIO_FILE_SYSTEM::get_current_directory(), readable ? directory : "");
    FIO_PATH path("a");
    path.become_absolute("");
    bool const fits = length + 2 <= longest_path;
    CHECK_EQUAL(path.fullpath(), fits ? directory + "/a" : readable ? "" : "/a");
    CHECK_EQUAL(path.is_legal_length(), fits || !readable);
    // The system's own answer has no limit.
    write_file("a", "");
    CHECK(FIO_PATH::canonical("a") == directory + "/a");
    CHECK_EQUAL(FIO_FILE_SYSTEM::remove_recursively("a", nullptr, nullptr), readable);
    CHECK(!stands("a"));
  }
  CHECK_EQUAL(::chdir(tree.root().c_str()), 0);
}
