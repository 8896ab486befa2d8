// What an ordinary user may not read, enter or write.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <boost/filesystem/exception.hpp>
#include <cerrno>
#include <memory>
#include <string>

#include "ccl/fio/fio_errc.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_find.h"
#include "ccl/fio/fio_iterator.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/trees.h"
#include "tests/support/walks.h"

using namespace faults;
using files = FIO_FILE_SYSTEM;

namespace {

// A directory that may neither be read nor entered, may only be read, may only be entered, and may not be written.
constexpr struct {
  char const* name;
  mode_t mode;
  bool read;
  bool enter;
} directories[] = {{"shut", 0000, false, false},
                   {"readable", 0444, true, false},
                   {"passable", 0111, false, true},
                   {"fixed", 0555, true, true}};

void draw_directories(scratch_tree const& tree) {
  for (auto const& one : directories) {
    std::string const path = std::string("top/") + one.name;
    tree.make_file(path + "/f", "content");
    CHECK_EQUAL(::chmod(path.c_str(), one.mode), 0);
  }
  tree.draw({"top/open/f=content", "source=new"});
}

void open_directories() {
  for (auto const& one : directories) {
    ::chmod((std::string("top/") + one.name).c_str(), 0755);
  }
}

lines if_true(bool condition, lines const& some) { return condition ? some : lines{}; }

std::string words_of(std::unique_ptr<FIO_ERRC> const& error) {
  return error == nullptr ? std::string() : error->message().m_lines.at(0).m_text;
}

} // namespace

void directories_without_permissions(scratch_tree const& tree) {
  draw_directories(tree);
  for (auto const& one : directories) {
    about const topic(one.name);
    std::string const path = std::string("top/") + one.name;
    std::string const file = path + "/f";
    CHECK(files::exists(path.c_str()));
    CHECK(files::is_directory(path.c_str()));
    CHECK_EQUAL(files::exists(file.c_str()), one.enter);
    // A walk needs both: the names and their status.
    CHECK_EQUAL(found_names(path + "/*"), if_true(one.read && one.enter, {".", "..", "f"}));
    CHECK_EQUAL(files::is_directory_empty(path.c_str()), !(one.read && one.enter));
    CHECK_EQUAL(iterated<FIO_DIRECTORY_ITERATOR>(path), if_true(one.read, {file}));
    CHECK_EQUAL(files::copy(file, "copied", true, false), one.enter);
    CHECK_EQUAL(files::remove_if_exists(file), !one.enter);
    CHECK(!files::touch(path + "/new"));
    CHECK(!files::copy("source", path + "/new", true, false));
    CHECK(!files::rename("source", (path + "/new").c_str()));
    CHECK(!files::remove(file));
    take_messages();
    CHECK(!files::create(path + "/new/sub"));
    std::string const sub = path + "/new";
    CHECK_EQUAL(take_messages(), (lines{"mkdir failed with: " + sub + " (errno: " + std::to_string(EACCES) + ')',
                                        "is_directory (via status) failed with: " + sub +
                                            " (errno: " + std::to_string(one.enter ? ENOENT : EACCES) + ')'}));
    CHECK_EQUAL(files::set_current_directory(path), one.enter);
    CHECK(files::set_current_directory(tree.root()));
    CHECK_EQUAL(words_of(files::remove_empty_subdirectories(path, true)),
                one.read && one.enter ? "" : "Failed to open \"" + path + "\" as a directory.");
  }
  CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>("top"),
              (lines{"top/fixed/", "top/fixed/f", "top/open/", "top/open/f", "top/passable/", "top/readable/",
                     "top/readable/f", "top/shut/"}));
  // What cannot be walked counts as copied.
  CHECK(files::copy_dir("top", "copy", false, false));
  CHECK_EQUAL(drawing("copy"),
              (lines{"fixed/", "fixed/f=content", "open/", "open/f=content", "passable/", "readable/", "shut/"}));
  bool thrown = false;
  try {
    FIO_FIND const search("top", true);
  } catch (boost::filesystem::filesystem_error const&) {
    thrown = true;
  }
  CHECK(thrown);
  CHECK_EQUAL(FIO_FIND("top/passable;top/shut", false).find_first("f").fullpath(), "top/passable/f");
  open_directories();
}

void removal_without_permissions(scratch_tree const& tree) {
  draw_directories(tree);
  tree.draw({"top/hollow/", "top/file"});
  CHECK_EQUAL(::chmod("top/hollow", 0), 0);
  CHECK(!files::remove_recursively("top", nullptr, nullptr));
  open_directories();
  // An empty directory goes without a look inside.
  CHECK_EQUAL(drawing("top"), (lines{"fixed/", "fixed/f=content", "passable/", "passable/f=content", "readable/",
                                     "readable/f=content", "shut/", "shut/f=content"}));
  CHECK(files::remove_recursively("top", nullptr, nullptr));

  tree.draw({"top/a/inner/", "top/b/inner/", "top/c/inner/"});
  CHECK_EQUAL(::chmod("top/a", 0555), 0);
  CHECK_EQUAL(::chmod("top/b", 0), 0);
  CHECK(!files::remove_temp_files("top/a/", 0, nullptr));
  // Which of the two errors is met first is for the directory to say; the other one goes to the debug log.
  std::string const first = words_of(files::remove_empty_subdirectories("top", true));
  std::string const not_removed = "Failed to remove directory \"top/a/inner\".";
  std::string const not_opened = "Failed to open \"top/b\" as a directory.";
  CHECK(first == not_removed || first == not_opened);
  CHECK_EQUAL(take_messages(),
              lines{"remove_empty_subdirectories failed with: " + (first == not_removed ? not_opened : not_removed)});
  CHECK_EQUAL(::chmod("top/b", 0755), 0);
  CHECK_EQUAL(drawing("top"), (lines{"a/", "a/inner/", "b/", "b/inner/"}));
  CHECK_EQUAL(::chmod("top/a", 0755), 0);
}

void files_without_permissions(scratch_tree const& tree) {
  tree.draw({"fixed/f=old", "secret=secret", "readable=r", "source=new", "dir/a=a"});
  CHECK_EQUAL(::chmod("secret", 0), 0);
  CHECK_EQUAL(::chmod("readable", 0444), 0);
  CHECK_EQUAL(::chmod("fixed", 0555), 0);
  _finddata_t entry;
  CHECK_EQUAL(files::findfirst("readable", &entry), 0);
  CHECK_EQUAL(entry.attrib, 0x01U);
  CHECK_EQUAL(files::findfirst("source", &entry), 0);
  CHECK_EQUAL(entry.attrib, 0U);
  CHECK_EQUAL(files::findfirst("fixed", &entry), 0);
  CHECK_EQUAL(entry.attrib, 0x10U);

  // A source that cannot be read leaves the target as it is, whatever is asked for.
  CHECK(!files::copy("secret", "source", true, true));
  CHECK(!files::copy("secret", "new", true, true));
  CHECK(!files::move("secret", "source", false, true));
  CHECK(!stands("new"));
  CHECK_EQUAL(content_of("source"), "new");
  // A target that cannot be removed stays, and that is a success.
  CHECK(files::copy("source", "fixed/f", true, false));
  CHECK_EQUAL(content_of("fixed/f"), "old");
  // A target that cannot be written can be replaced.
  CHECK(files::copy("source", "readable", true, false));
  CHECK_EQUAL(content_of("readable"), "new");
  CHECK(!files::touch("secret"));
  CHECK(files::touch("./source"));
  CHECK(!files::touch("./secret"));
  // The copy of a source that cannot be removed stays.
  CHECK(!files::move("fixed/f", "moved", false, false));
  CHECK_EQUAL(content_of("moved"), "old");
  CHECK_EQUAL(content_of("fixed/f"), "old");
  CHECK(files::remove("secret"));
  CHECK_EQUAL(::chmod("fixed", 0755), 0);
}
