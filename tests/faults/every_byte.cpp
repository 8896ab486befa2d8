// Names of every byte that a name may have. Nearly all are like any other; `*`, `?`, `\`, and in a search path `;` and
// white space, have a meaning of their own.

#include <sys/stat.h>

#include <cstring>
#include <filesystem>
#include <functional>
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
using files = FIO_FILE_SYSTEM;

namespace {

// What becomes of a name. The bytes with a meaning have rules of their own, alone and behind a letter.
struct rules {
  bool exists;       // `exists` finds it, or something that it matches
  bool walked;       // a walk delivers it
  bool created;      // the answer of `create`
  bool made;         // `create` makes an entry of this name
  bool touched;      // the answer of `touch`, which makes it if it is true
  bool copied;       // the answer of `copy`
  bool copy_made;    // `copy` makes an entry of this name
  bool files_copied; // `copy_files` makes one
  bool files_told;   // the answer of `remove_files`
  bool files_gone;   // `remove_files` removes it
};

//                              exists walked creat. made   touch. copied made   files  told   gone
constexpr rules plain = {true, true, true, true, true, true, true, true, true, true};
constexpr rules backslash = {true, true, false, false, false, true, true, false, false, false};
constexpr rules wildcard = {true, false, true, false, true, true, false, false, false, false};       // finds "."
constexpr rules with_wildcard = {false, false, false, true, true, false, false, false, true, false}; // finds nothing

rules rules_of(std::string const& name) {
  switch (name.back()) {
  case '\\':
    return backslash;
  case '*':
  case '?':
    return name.size() == 1 ? wildcard : with_wildcard;
  default:
    return plain;
  }
}

// Runs a check for every name of one byte, and of a letter and one byte, each in an empty folder.
void for_each_name(scratch_tree const& tree, std::function<void(std::string const& name)> const& check) {
  for (int byte = 1; byte != 256; ++byte) {
    for (std::string const prefix : {"", "a"}) {
      std::string const name = prefix + static_cast<char>(byte);
      if (byte == '/' || name == ".") {
        continue;
      }
      about const topic(prefix + " and byte " + std::to_string(byte));
      tree.draw({"dir/", "out/"});
      check(name);
      std::filesystem::remove_all("dir");
      std::filesystem::remove_all("out");
    }
  }
}

// A path in `dir` as `FIO_PATH` has it: a backslash ends a level there.
std::string as_path(std::string const& name) {
  return name == "\\" ? "dir/" : name == "a\\" ? "dir/a/" : "dir/" + name;
}

lines if_true(bool condition, std::string const& line) { return condition ? lines{line} : lines{}; }

void check_queries(std::string const& name) {
  rules const expected = rules_of(name);
  std::string const path = "dir/" + name;
  write_file(path, "content");
  CHECK_EQUAL(files::exists(path.c_str()), expected.exists);
  CHECK(files::is_regular_file(path.c_str()));
  lines names = {".", ".."};
  if (expected.walked) {
    names.insert(name < "." ? names.begin() : name < ".." ? names.begin() + 1 : names.end(), name);
  }
  CHECK_EQUAL(found_names("dir/*"), names);
  CHECK_EQUAL(files::is_directory_empty("dir"), !expected.walked);
  if (expected.walked) {
    CHECK_EQUAL(found_names(path), lines{name});
    CHECK_EQUAL(found_names("di*/" + name), lines{}); // the directory is taken literally
  }
  CHECK_EQUAL(iterated<FIO_DIRECTORY_ITERATOR>("dir"), lines{path});
  CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>("dir"), lines{path});
  CHECK_EQUAL(FIO_DIRECTORY_ITERATOR("dir")->derive_path().fullpath(), as_path(name));
}

void check_changes(std::string const& name) {
  rules const expected = rules_of(name);
  std::string const path = "dir/" + name;
  write_file(path, "content");
  CHECK_EQUAL(files::copy(path, "out/" + name, false, false), expected.copied);
  CHECK_EQUAL(drawing("out"), if_true(expected.copy_made, name + "=content"));
  std::filesystem::remove("out/" + name);
  CHECK_EQUAL(files::copy_files(path, "out", false, true), name != "a\\"); // `dir/a/` is no source
  CHECK_EQUAL(drawing("out"), if_true(expected.files_copied, name + "=content"));
  std::filesystem::remove("out/" + name);
  CHECK(files::copy_dir("dir", "out", false, true));
  CHECK_EQUAL(drawing("out"), if_true(expected.walked, name + "=content"));
  std::filesystem::remove("out/" + name);
  // The system's own calls know no meaning but that of the separator.
  CHECK(files::rename(path.c_str(), "out/other"));
  CHECK(files::rename(std::string("out/other"), path));
  // For a path, a backslash at the end leaves the folder in front of it.
  CHECK_EQUAL(files::rename(FIO_PATH(path), FIO_PATH("out/other")), name != "a\\");
  CHECK_EQUAL(stands("dir"), name != "\\");
  CHECK_EQUAL(files::rename("out/other", name == "\\" ? "dir" : path.c_str()), name != "a\\");
  CHECK_EQUAL(drawing("dir"), lines{name + "=content"});
  CHECK_EQUAL(files::remove_files(path.c_str()), expected.files_told);
  CHECK_EQUAL(stands(path), !expected.files_gone);
  write_file(path, "content");
  CHECK_EQUAL(files::remove_recursively("dir", nullptr, nullptr), expected.walked);
  CHECK_EQUAL(stands(path), !expected.walked);
  std::filesystem::create_directory("dir");
  write_file(path, "content");
  CHECK(files::remove(path));
  CHECK_EQUAL(drawing("dir"), lines{});
}

void check_making(std::string const& name) {
  rules const expected = rules_of(name);
  std::string const path = "dir/" + name;
  CHECK_EQUAL(files::create(path), expected.created);
  // A backslash divides levels, so that the letter before it becomes one.
  lines const level = name == "a\\" ? lines{"a/"} : lines{};
  CHECK_EQUAL(drawing("dir"), expected.made ? lines{name + '/'} : level);
  std::filesystem::remove_all("dir");
  CHECK_EQUAL(files::touch(path), expected.touched);
  CHECK_EQUAL(drawing("dir"), expected.touched ? lines{name} : level);
  CHECK_EQUAL(take_messages(), lines{});
  CHECK_EQUAL(files::mkdir(("out/" + name).c_str()), 0);
  CHECK_EQUAL(drawing("out"), lines{name + '/'});
  CHECK_EQUAL(files::rmdir(("out/" + name).c_str()), 0);
}

void check_search(std::string const& name) {
  rules const expected = rules_of(name);
  std::string const path = "dir/" + name;
  write_file(path, "content");
  FIO_FIND search("dir;", false);
  // `find` appends the name as it stands; `find_first` takes the file name of a path, which is empty behind `\`.
  CHECK_EQUAL(search.find(name), expected.exists ? path : "");
  CHECK_EQUAL(search.find_first(name).fullpath(), !expected.exists ? "" : name.back() == '\\' ? "dir/" : path);
  FIO_FIND walk(path, false);
  bool const literal = std::strpbrk(name.c_str(), "*?") == nullptr;
  std::string const first = walk.find_first();
  if (literal) {
    CHECK_EQUAL(first, name);
    CHECK_EQUAL(walk.find_next(), "");
  } else {
    CHECK_EQUAL(!first.empty(), expected.exists);
    CHECK(first != name);
  }
  walk.find_close();
}

void check_directories(std::string const& name) {
  rules const expected = rules_of(name);
  std::string const path = "dir/" + name;
  std::filesystem::create_directory(path);
  write_file(path + "/f", "content");
  CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>("dir"), (lines{path + '/', path + "/f"}));
  // No directory of a name that a path divides can be made.
  CHECK_EQUAL(files::copy_dir("dir", "out", false, false), name.back() != '\\');
  CHECK_EQUAL(stands("out/" + name + "/f"), expected.walked && name.back() != '\\');
  CHECK_EQUAL(files::remove_recursively("dir", nullptr, nullptr), expected.walked);
  CHECK_EQUAL(stands(path + "/f"), !expected.walked);
}

void check_search_path(std::string const& name) {
  std::filesystem::current_path("dir");
  std::filesystem::create_directory(name);
  write_file(name + "/f_of_this_case", "content");
  // White space is trimmed, `;` ends a directory, `\` ends a level, and a wildcard matches no directory.
  bool const found = std::strchr(" \t\n\r;\\*?", name.back()) == nullptr;
  std::string const whole = name + "/f_of_this_case";
  CHECK_EQUAL(FIO_FIND(name, false).find_first("f_of_this_case").fullpath(), found ? whole : "");
  // The other list keeps white space, and a backslash as it stands.
  bool const kept = std::strchr(";*?", name.back()) == nullptr;
  CHECK_EQUAL(FIO_FIND(name + ';', false).find("f_of_this_case"), kept ? whole : "");
  std::filesystem::current_path("..");
}

} // namespace

void every_byte_in_the_name_of_a_file(scratch_tree const& tree) {
  for_each_name(tree, check_queries);
  for_each_name(tree, check_changes);
}

void every_byte_in_a_name_to_be_made(scratch_tree const& tree) { for_each_name(tree, check_making); }

void every_byte_in_a_name_that_is_searched(scratch_tree const& tree) { for_each_name(tree, check_search); }

void every_byte_in_the_name_of_a_directory(scratch_tree const& tree) { for_each_name(tree, check_directories); }

void every_byte_in_a_search_path(scratch_tree const& tree) { for_each_name(tree, check_search_path); }
