// A directory that turns into a symbolic link between two calls of one operation. What the link leads to is entered, as
// any link to a directory is; nothing but its contents may be touched.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>

#include "ccl/fio/fio_errc.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_iterator.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/trees.h"
#include "tests/support/calls.h"
#include "tests/support/platform_double.h"

using namespace faults;

namespace {

// The moment at which a directory is replaced: once, at the first such call for one path.
enum class moment { before_opening, after_opening, before_removing, before_reading };

int remove_of_the_system(char const* path) {
  return ::unlink(path) == 0 || (errno == EISDIR && ::rmdir(path) == 0) ? 0 : -1;
}

// Moves a directory aside and puts a link into its place.
void replace(std::string const& directory, std::string const& target) {
  CHECK_EQUAL(::renameat(AT_FDCWD, directory.c_str(), AT_FDCWD, "moved"), 0);
  CHECK_EQUAL(::symlink(target.c_str(), directory.c_str()), 0);
}

void replace_at(moment when, std::string const& path, std::string const& directory, std::string const& target) {
  auto const once = [path, directory, target, done = std::make_shared<bool>(false)](char const* called) {
    if (called == path && !*done) {
      *done = true;
      replace(directory, target);
    }
  };
  platform_double::reset();
  platform_double::replacements& doubles = platform_double::replaced();
  if (when == moment::before_opening) {
    doubles.opendir = [once](char const* called) { return once(called), opendir_of_the_system(called); };
  } else if (when == moment::after_opening) {
    doubles.opendir = [once](char const* called) {
      DIR* const stream = opendir_of_the_system(called);
      once(called);
      return stream;
    };
  } else if (when == moment::before_removing) {
    doubles.remove = [once](char const* called) { return once(called), remove_of_the_system(called); };
  } else {
    doubles.osi_fopen = [once](char const* called, char const* mode) { return once(called), std::fopen(called, mode); };
  }
}

// What lies outside the tree, but for the contents of `outside`.
void draw_outside(scratch_tree const& tree) {
  tree.draw({"outside/b=outside", "outside/c=outside", "outside/deep/d=outside", "guard/g=guard", "file=guard"});
}

lines const untouched = {"file=guard", "guard/", "guard/g=guard"};
lines const outside = {"outside/", "outside/b=outside", "outside/c=outside", "outside/deep/", "outside/deep/d=outside"};

lines together(std::initializer_list<lines> parts) {
  lines all;
  for (lines const& part : parts) {
    all.insert(all.end(), part.begin(), part.end());
  }
  std::sort(all.begin(), all.end());
  return all;
}

void start_again(scratch_tree const& tree) {
  platform_double::reset();
  for (char const* const name : {"tree", "moved", "outside", "guard", "file", "to"}) {
    std::filesystem::remove_all(tree.path(name));
  }
  draw_outside(tree);
}

} // namespace

void removal_of_a_directory_that_became_a_link(scratch_tree const& tree) {
  struct {
    char const* target;
    lines outside_left;
  } const rows[] = {{"../outside", {"outside/"}}, // what the target holds goes, and the link, and not the target
                    {"../file", outside},
                    {"nowhere", outside},
                    {"sub", outside},
                    {"/proc/self/nothing", outside}};
  for (auto const& row : rows) {
    about const topic(row.target);
    start_again(tree);
    tree.draw({"tree/sub/a=1", "tree/sub/b=22", "tree/top=t"});
    replace_at(moment::before_opening, "tree/sub", "tree/sub", row.target);
    CHECK(FIO_FILE_SYSTEM::remove_recursively("tree", nullptr, nullptr));
    CHECK_EQUAL(drawing("."), together({untouched, row.outside_left, {"moved/", "moved/a=1", "moved/b=22"}}));
  }
}

void removal_of_a_directory_that_becomes_a_link(scratch_tree const& tree) {
  lines const without_b = {"outside/", "outside/c=outside", "outside/deep/", "outside/deep/d=outside"};
  struct {
    moment when;
    char const* path;
    lines outside_left;
    lines moved;
  } const rows[] = {
      // The names are the old ones, and the entries those of the target: what it lacks is passed over.
      {moment::after_opening, "tree/sub", without_b, {"moved/", "moved/b=22"}},
      {moment::before_removing, "tree/sub/b", without_b, {"moved/", "moved/b=22"}},
      // Empty by then; the link goes in its place.
      {moment::before_removing, "tree/sub", outside, {"moved/"}},
  };
  for (auto const& row : rows) {
    about const topic(std::string(row.path) + " at " + std::to_string(static_cast<int>(row.when)));
    start_again(tree);
    tree.draw({"tree/sub/b=22", "tree/top=t"});
    replace_at(row.when, row.path, "tree/sub", "../outside");
    CHECK(FIO_FILE_SYSTEM::remove_recursively("tree", nullptr, nullptr));
    CHECK_EQUAL(drawing("."), together({untouched, row.outside_left, row.moved}));
  }
  // Age is asked of what the path leads to at that moment.
  start_again(tree);
  tree.draw({"tree/sub/b=22"});
  set_times("outside/b", 1000);
  long const limit = 2000;
  std::string path = "tree/sub";
  replace_at(moment::after_opening, "tree/sub", "tree/sub", "../outside");
  CHECK(FIO_FILE_SYSTEM::do_remove_recursively(path, nullptr, &limit));
  CHECK_EQUAL(path, "tree/sub");
  CHECK(!stands("outside/b"));
  CHECK_EQUAL(drawing("moved"), lines{"b=22"});
  CHECK_EQUAL(drawing("tree"), lines{"sub -> ../outside"}); // its target is too young
}

void removal_of_a_link_upwards(scratch_tree const& tree) {
  start_again(tree);
  tree.draw({"tree/sub/a=1", "tree/top=t"});
  replace_at(moment::before_opening, "tree/sub", "tree/sub", ".");
  // The way down ends where the system follows no more links. There everything goes, and the one link with it, so
  // that all levels above fail but the top.
  CHECK(!FIO_FILE_SYSTEM::remove_recursively("tree", nullptr, nullptr));
  CHECK_EQUAL(drawing("."), together({untouched, outside, {"moved/", "moved/a=1"}}));
}

void walks_of_a_directory_that_became_a_link(scratch_tree const& tree) {
  start_again(tree);
  tree.draw({"tree/sub/a=1", "tree/sub/b=22", "tree/sub/e=1"});
  _finddata_t entry;
  long const handle = FIO_FILE_SYSTEM::findfirst("tree/sub/*", &entry);
  std::string const first = entry.name;
  lines names{first};
  replace("tree/sub", "../outside");
  while (FIO_FILE_SYSTEM::findnext(handle, &entry) == 0) {
    names.emplace_back(entry.name);
    CHECK(names.back() != "b" || entry.size == 7); // the size of the one outside
  }
  CHECK_EQUAL(FIO_FILE_SYSTEM::findclose(handle), 1);
  lines expected{first};
  for (char const* const name : {".", "..", "b"}) {
    if (name != first) {
      expected.emplace_back(name);
    }
  }
  CHECK_EQUAL(together({names}), together({expected}));

  // The iterators ask nothing of an entry...
  start_again(tree);
  tree.draw({"tree/sub/a=1", "tree/sub/b=22", "tree/sub/e/"});
  FIO_DIRECTORY_ITERATOR flat("tree/sub");
  FIO_RECURSIVE_DIRECTORY_ITERATOR const deep("tree");
  CHECK_EQUAL((*deep).path, "tree/sub");
  replace("tree/sub", "../outside");
  lines paths;
  for (FIO_DIRECTORY_ENTRY const& found : flat) {
    paths.push_back(found.path);
  }
  CHECK_EQUAL(together({paths}), (lines{"tree/sub/a", "tree/sub/b", "tree/sub/e"}));
  // ...and enter by its path what was a directory when it was read.
  paths.clear();
  for (FIO_DIRECTORY_ENTRY const& found : deep) {
    paths.push_back(found.path);
  }
  CHECK_EQUAL(together({paths}), (lines{"tree/sub", "tree/sub/b", "tree/sub/c", "tree/sub/deep", "tree/sub/deep/d"}));
  CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>("tree"), lines{"tree/sub"});
}

void copy_of_a_directory_that_became_a_link(scratch_tree const& tree) {
  lines const nothing = {"sub/"};
  struct {
    moment when;
    char const* path;
    char const* target;
    bool told;
    lines copied;
  } const rows[] = {
      {moment::before_opening,
       "tree/sub",
       "../outside",
       true,
       {"sub/", "sub/b=outside", "sub/c=outside", "sub/deep/", "sub/deep/d=outside"}},
      {moment::before_opening, "tree/sub", "nowhere", true, nothing}, // cannot be opened: counts as done
      {moment::after_opening, "tree/sub", "../outside", true, {"sub/", "sub/b=outside"}},
      {moment::before_reading, "tree/sub/b", "../outside", true, {"sub/", "sub/b=outside"}},
      {moment::before_reading, "tree/sub/b", "nowhere", false, nothing},
  };
  for (auto const& row : rows) {
    about const topic(std::string(row.path) + " to " + row.target);
    start_again(tree);
    tree.draw({"tree/sub/b=22"});
    replace_at(row.when, row.path, "tree/sub", row.target);
    CHECK_EQUAL(FIO_FILE_SYSTEM::copy_dir("tree", "to", false, false), row.told);
    CHECK_EQUAL(drawing("to"), row.copied);
    std::filesystem::remove_all("to");
    CHECK_EQUAL(
        drawing("."),
        together({untouched, outside, {"moved/", "moved/b=22", "tree/", std::string("tree/sub -> ") + row.target}}));
  }
}

void other_removals_of_what_became_a_link(scratch_tree const& tree) {
  start_again(tree);
  tree.draw({"tree/sub/b=22"});
  replace_at(moment::before_removing, "tree/sub/b", "tree/sub", "../outside");
  CHECK(FIO_FILE_SYSTEM::remove_files("tree/sub/*b"));
  CHECK(!stands("outside/b"));
  CHECK_EQUAL(drawing("moved"), lines{"b=22"});

  start_again(tree);
  tree.draw({"tree/sub/b=22"});
  replace_at(moment::before_removing, "tree/sub/b", "tree/sub", "nowhere");
  CHECK(!FIO_FILE_SYSTEM::remove_files("tree/sub/*b"));
  CHECK_EQUAL(drawing("moved"), lines{"b=22"});

  // Empty directories go on the other side of the link, and the link if nothing is left there.
  start_again(tree);
  tree.draw({"tree/sub/inner/", "outside/hollow/"});
  replace_at(moment::before_opening, "tree/sub", "tree/sub", "../outside");
  CHECK(FIO_FILE_SYSTEM::remove_empty_subdirectories("tree", true) == nullptr);
  CHECK_EQUAL(drawing("."),
              together({untouched, outside, {"moved/", "moved/inner/", "tree/", "tree/sub -> ../outside"}}));
  start_again(tree);
  tree.draw({"tree/sub/inner/", "guard/hollow/"});
  ::unlink("guard/g");
  replace_at(moment::before_opening, "tree/sub", "tree/sub", "../guard");
  CHECK(FIO_FILE_SYSTEM::remove_empty_subdirectories("tree", true) == nullptr);
  CHECK_EQUAL(drawing("."), together({outside, {"file=guard", "guard/", "moved/", "moved/inner/"}}));

  start_again(tree);
  tree.draw({"tree/sub/"});
  replace_at(moment::before_opening, "tree/sub", "tree/sub", "../outside");
  CHECK(!FIO_FILE_SYSTEM::is_directory_empty("tree/sub"));
  start_again(tree);
  tree.draw({"tree/sub/f"});
  replace_at(moment::before_opening, "tree/sub", "tree/sub", "nowhere");
  CHECK(FIO_FILE_SYSTEM::is_directory_empty("tree/sub"));
}
